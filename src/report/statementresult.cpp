#include "statementresult.h"

#include "viewsources.h"

#include <QRegularExpression>
#include <QStringList>

namespace {

constexpr int kObjectExists = 2714;
constexpr int kColumnExists = 2705;
constexpr int kDatabaseExists = 1801;
constexpr int kCannotDropMissing = 3701;
constexpr int kInvalidObjectName = 208;

bool isDrop(Action action)
{
    return action == Action::DropTable || action == Action::DropView;
}

} // namespace

QString missingSourceTable(const StatementOutcome &outcome)
{
    const QString &message = outcome.status.message;
    if (outcome.status.ok || outcome.action != Action::CreateView
        || (outcome.status.nativeError != kInvalidObjectName && !message.contains(QLatin1String("no such table"))))
        return QString();
    for (const QString &table : tablesNoRunCreates(createdViewName(outcome.text))) {
        if (message.contains(table, Qt::CaseInsensitive))
            return table;
    }
    return QString();
}

QString createdViewName(const QString &definition)
{
    static const QRegularExpression name(QStringLiteral(R"(^CREATE VIEW\s+(?:\[?dbo\]?\.)?\[?(\w+))"),
                                         QRegularExpression::CaseInsensitiveOption);
    return name.match(definition).captured(1);
}

StatementResult classify(const StatementOutcome &outcome)
{
    if (outcome.status.ok)
        return StatementResult::Succeeded;
    if (outcome.status.timedOut)
        return StatementResult::TimedOut;
    if (outcome.status.nativeError == kLockRequestTimedOut)
        return StatementResult::Blocked;
    const int number = outcome.status.nativeError;
    const QString &message = outcome.status.message;
    if (number == kObjectExists || number == kColumnExists || number == kDatabaseExists
        || message.contains(QLatin1String("already exists")) || message.contains(QLatin1String("duplicate column name")))
        return StatementResult::AlreadyExisted;
    if (isDrop(outcome.action)
        && (number == kCannotDropMissing || message.contains(QLatin1String("no such table"))
            || message.contains(QLatin1String("no such view"))))
        return StatementResult::NotThereToDrop;
    if (!missingSourceTable(outcome).isEmpty())
        return StatementResult::SourceTableMissing;
    return StatementResult::Failed;
}

QString resultName(StatementResult result)
{
    switch (result) {
    case StatementResult::Succeeded:
        return QStringLiteral("succeeded");
    case StatementResult::AlreadyExisted:
        return QStringLiteral("already existed");
    case StatementResult::NotThereToDrop:
        return QStringLiteral("not there to drop");
    case StatementResult::SourceTableMissing:
        return QStringLiteral("source table missing");
    case StatementResult::TimedOut:
        return QStringLiteral("timed out");
    case StatementResult::Blocked:
        return QStringLiteral("blocked");
    case StatementResult::Failed:
        return QStringLiteral("failed");
    }
    Q_UNREACHABLE();
}

QString resultKey(StatementResult result)
{
    // "not there to drop" -> "notThereToDrop"
    QStringList words = resultName(result).split(QLatin1Char(' '));
    for (qsizetype i = 1; i < words.size(); ++i)
        words[i][0] = words[i][0].toUpper();
    return words.join(QString());
}

QString phaseName(Phase phase)
{
    switch (phase) {
    case Phase::CreateDatabase:
        return QStringLiteral("create database");
    case Phase::RebuiltTableDrops:
        return QStringLiteral("rebuilt table drops");
    case Phase::Tables:
        return QStringLiteral("tables");
    case Phase::ViewDrops:
        return QStringLiteral("view drops");
    case Phase::ViewCreates:
        return QStringLiteral("view creates");
    case Phase::ChartOfAccounts:
        return QStringLiteral("chart of accounts");
    }
    Q_UNREACHABLE();
}
