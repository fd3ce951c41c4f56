#include "databasecheck.h"

#include "applicationlock.h"
#include "connectionprofiles.h"
#include "mdzrt.h"
#include "odbckeywords.h"
#include "whynotopen.h"

#include <QJsonArray>

namespace {

QJsonArray columnsJson(const QList<ColumnFinding> &findings)
{
    QJsonArray array;
    for (const ColumnFinding &finding : findings) {
        QJsonObject object{{QStringLiteral("table"), finding.table}, {QStringLiteral("column"), finding.column}};
        if (!finding.expected.isEmpty())
            object.insert(QStringLiteral("expected"), finding.expected);
        if (!finding.found.isEmpty())
            object.insert(QStringLiteral("found"), finding.found);
        array.append(object);
    }
    return array;
}

} // namespace

DatabaseCheckResult checkDatabase(const QString &mode, const QString &server, const QString &database,
                                  const QString &target, const ConnectionFactory &connections, int lockWaitSeconds)
{
    mdZRT module(connections, ConnectionProfiles::runDataSource(mode, server), mdZRT::Fallback::SameServerAndLogin);
    module.OpenConnection(mode, server, database);
    if (const QString notOpen = whyNotOpen(module, target, database); !notOpen.isEmpty())
        return {std::nullopt, notOpen};
    Connection &connection = module.SharedConnection();
    DatabaseCheckResult result;
    const LockTaking taking = takeApplicationLock(connection, LockMode::Shared, lockWaitSeconds);
    switch (taking.kind) {
    case LockTaking::Kind::Held:
        result.busy = true;
        result.error = QStringLiteral("another run holds %1").arg(database);
        return result;
    case LockTaking::Kind::Failed:
        result.error = withoutPasswords(QStringLiteral("cannot take the application lock on '%1': %2").arg(database, taking.detail));
        return result;
    case LockTaking::Kind::NoApplicationLocks:
        result.lockNote = QStringLiteral("%1 has no application locks: no lock keeps a run off '%2' while it is read")
                              .arg(taking.detail, database);
        break;
    case LockTaking::Kind::Taken:
        break;
    }
    DatabaseSchema found;
    const DbStatus read = readDatabaseSchema(connection, found);
    if (taking.kind == LockTaking::Kind::Taken)
        releaseApplicationLock(connection);
    if (!read.ok)
        result.error = withoutPasswords(QStringLiteral("cannot read the catalogue of '%1': %2").arg(database, read.message));
    else
        result.drift = schemaDrift(whatARunLeaves(), found);
    return result;
}

CheckOutcome checkOutcomeOf(const std::optional<DatabaseCheckResult> &result)
{
    if (!result)
        return CheckOutcome::NotDone;
    if (result->busy)
        return CheckOutcome::Busy;
    if (!result->drift)
        return CheckOutcome::CouldNotBeRead;
    return result->drift->differences() == 0 ? CheckOutcome::Matches : CheckOutcome::Differs;
}

QString checkOutcomeName(CheckOutcome outcome)
{
    switch (outcome) {
    case CheckOutcome::Matches:
        return QStringLiteral("matches");
    case CheckOutcome::Differs:
        return QStringLiteral("differs");
    case CheckOutcome::CouldNotBeRead:
        return QStringLiteral("could not be read");
    case CheckOutcome::Busy:
        return QStringLiteral("busy");
    case CheckOutcome::NotDone:
        return QStringLiteral("not done");
    case CheckOutcome::NotStarted:
        return QStringLiteral("not started");
    }
    Q_UNREACHABLE();
}

QJsonObject checkJson(const std::optional<DatabaseCheckResult> &result)
{
    QJsonObject json{{QStringLiteral("outcome"), checkOutcomeName(checkOutcomeOf(result))}};
    if (!result)
        return json;
    if (!result->lockNote.isEmpty())
        json.insert(QStringLiteral("lockNote"), result->lockNote);
    if (!result->drift) {
        json.insert(QStringLiteral("error"), result->error);
        return json;
    }
    const SchemaDrift &drift = *result->drift;
    QJsonArray notInstallable;
    for (const UninstallableView &view : drift.uninstallableViews)
        notInstallable.append(QJsonObject{{QStringLiteral("view"), view.view},
                                          {QStringLiteral("missingTables"), QJsonArray::fromStringList(view.missingTables)}});
    json.insert(QStringLiteral("matches"), drift.differences() == 0);
    json.insert(QStringLiteral("differences"), qint64(drift.differences()));
    json.insert(QStringLiteral("missingTables"), QJsonArray::fromStringList(drift.missingTables));
    json.insert(QStringLiteral("missingColumns"), columnsJson(drift.missingColumns));
    json.insert(QStringLiteral("differingColumns"), columnsJson(drift.differingColumns));
    json.insert(QStringLiteral("missingViews"), QJsonArray::fromStringList(drift.missingViews));
    json.insert(QStringLiteral("notInstallableViews"), notInstallable);
    json.insert(QStringLiteral("extraTables"), QJsonArray::fromStringList(drift.extraTables));
    json.insert(QStringLiteral("extraColumns"), columnsJson(drift.extraColumns));
    json.insert(QStringLiteral("extraViews"), QJsonArray::fromStringList(drift.extraViews));
    return json;
}
