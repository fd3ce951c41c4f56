#include "checkcommand.h"

#include "commandoptions.h"
#include "allchecks.h"
#include "exitstatus.h"
#include "fleetdisplay.h"
#include "fleetoptions.h"
#include "printabletext.h"
#include "reportline.h"
#include "terminalcolour.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString columnName(const ColumnFinding &finding)
{
    return finding.table + QLatin1Char('.') + finding.column;
}

void printGroup(QTextStream &out, const char *title, const QStringList &lines)
{
    if (lines.isEmpty())
        return;
    out << title << ":\n";
    for (const QString &line : lines)
        out << "  " << escapedControls(line) << "\n";
}

QString differencesText(const SchemaDrift &drift)
{
    const qsizetype differences = drift.differences();
    if (differences == 0)
        return QStringLiteral("matches");
    return QStringLiteral("%1 %2").arg(differences).arg(differences == 1 ? "difference" : "differences");
}

Tint differencesTint(const SchemaDrift &drift)
{
    return drift.differences() == 0 ? Tint::Green : Tint::Yellow;
}

void printReport(QTextStream &out, const SchemaDrift &drift, bool terminal)
{
    QStringList missingColumns;
    for (const ColumnFinding &finding : drift.missingColumns)
        missingColumns << columnName(finding) + QLatin1Char(' ') + finding.expected;
    QStringList differingColumns;
    for (const ColumnFinding &finding : drift.differingColumns)
        differingColumns << columnName(finding) + QLatin1Char(' ') + finding.found + QLatin1String(", expected ")
                + finding.expected;
    QStringList notInstallable;
    for (const UninstallableView &view : drift.uninstallableViews)
        notInstallable << view.view + QLatin1String(" (source table missing: ") + view.missingTables.join(QLatin1String(", "))
                + QLatin1Char(')');
    QStringList leftAlone;
    for (const QString &table : drift.extraTables)
        leftAlone << QLatin1String("table ") + table;
    for (const ColumnFinding &finding : drift.extraColumns)
        leftAlone << QLatin1String("column ") + columnName(finding) + QLatin1Char(' ') + finding.found;
    for (const QString &view : drift.extraViews)
        leftAlone << QLatin1String("view ") + view;

    printGroup(out, "Missing tables", drift.missingTables);
    printGroup(out, "Missing columns", missingColumns);
    printGroup(out, "Columns of another type or width", differingColumns);
    printGroup(out, "Missing views", drift.missingViews);
    printGroup(out, "Not installable here", notInstallable);
    printGroup(out, "Left alone", leftAlone);
    out << tinted(differencesText(drift), differencesTint(drift), terminal) << "\n";
}

int exitStatus(CheckOutcome outcome)
{
    switch (outcome) {
    case CheckOutcome::Matches:
        return kExitOk;
    case CheckOutcome::Differs:
        return kExitDiffers;
    case CheckOutcome::CouldNotBeRead:
        return kExitNothingDone;
    case CheckOutcome::NotDone:
        return kExitInterrupted;
    case CheckOutcome::NotStarted:
    case CheckOutcome::Busy:
        return kExitFailures;
    }
    Q_UNREACHABLE();
}

QString resultText(const DatabaseCheckResult &result)
{
    return result.drift ? differencesText(*result.drift) : escapedControls(result.error);
}


int checkOne(const QCommandLineParser &parser, bool json, CommandContext &context)
{
    const std::optional<DatabaseChoice> choice = checkedDatabaseChoice(parser, QStringLiteral("check"), context);
    if (!choice)
        return kExitUsage;
    const std::optional<FleetLockKeys> locks = checkedLockOptions(parser, QStringLiteral("check"), context);
    if (!locks)
        return kExitUsage;
    const QString target = targetName(parser, choice->mode);
    if (!json)
        context.out << headerLine(QStringLiteral("check"),
                                  QStringLiteral("database '%1', %2, mode %3").arg(choice->database, target, choice->mode),
                                  QDateTime::currentDateTime());
    const DatabaseCheckResult result = checkDatabase(choice->mode, choice->server, choice->database, target,
                                                     chosenConnections(parser, context),
                                                     withLockKeys(LockPolicy{}, *locks).waitSeconds);
    const int status = exitStatus(checkOutcomeOf(result));
    if (json) {
        QJsonObject document = merged(jsonDocument(QStringLiteral("check")), checkJson(result));
        document.insert(QStringLiteral("database"), choice->database);
        document.insert(QStringLiteral("exit"), status);
        context.out << QJsonDocument(document).toJson(QJsonDocument::Compact) << "\n";
        return status;
    }
    if (!result.lockNote.isEmpty())
        context.out << "zrt check: " << escapedControls(result.lockNote) << "\n";
    if (result.drift) {
        printReport(context.out, *result.drift, context.outTerminal);
    } else {
        context.err << "zrt check: " << escapedControls(result.error) << "\n";
    }
    return status;
}

int checkAll(const QCommandLineParser &parser, bool json, CommandContext &context)
{
    const std::optional<FleetWork> work = checkedFleet(parser, QStringLiteral("check"), context, kDefaultStatementSeconds);
    if (!work)
        return kExitUsage;
    AllChecks checks;
    static_cast<FleetWork &>(checks) = *work;
    FleetDisplay display(context, context.terminal && !json);
    if (!json)
        printFleetHeader(parser, checks, context);
    checks.started = [&display](const FleetRecord &fleet, qsizetype database) { display.started(fleet, database); };
    std::atomic<bool> noteSaid = false;
    checks.finished = [&](const FleetRecord &fleet, qsizetype database, const DatabaseCheckResult &result) {
        // Said once: every database of an engine without application locks would say it.
        const QString note = !json && !result.lockNote.isEmpty() && !noteSaid.exchange(true)
            ? QStringLiteral("zrt check: %1\n").arg(escapedControls(result.lockNote)) : QString();
        const QString line = note + display.nameColumn(checks, fleet, database) + QLatin1String("  ")
            + tinted(resultText(result), result.drift ? differencesTint(*result.drift) : Tint::Red, context.outTerminal) + QLatin1Char('\n');
        display.ended(database, json ? QString() : line, !result.drift && !result.busy);
    };
    const AllChecksResult all = checkAllDatabases(checks);
    display.finish();
    int status = kExitOk;
    int byOutcome[kCheckOutcomes] = {};
    for (const ListingOutcome &listing : all.listings)
        status = listing.failed() || !listing.refused.isEmpty() ? kExitNothingDone : status;
    for (qsizetype i = 0; i < all.databases.size(); ++i) {
        ++byOutcome[int(fleetOutcome(all, i))];
        status = moreSerious(status, exitStatus(fleetOutcome(all, i)));
    }
    status = withLostReport(status, !all.indexErrors.isEmpty());
    if (json) {
        printFleetJson(checks, all, status, context);
        return status;
    }
    printListingFailures(checks.command, checks.servers, all, context);
    context.out << QStringLiteral("%1 databases: %2 match, %3 differ, %4 could not be read, %5 busy, %6 not checked\n")
                       .arg(all.databases.size())
                       .arg(byOutcome[int(CheckOutcome::Matches)])
                       .arg(byOutcome[int(CheckOutcome::Differs)])
                       .arg(byOutcome[int(CheckOutcome::CouldNotBeRead)])
                       .arg(byOutcome[int(CheckOutcome::Busy)])
                       .arg(byOutcome[int(CheckOutcome::NotDone)] + byOutcome[int(CheckOutcome::NotStarted)]);
    for (const QString &error : all.indexErrors)
        context.err << "zrt check: " << escapedControls(error) << "\n";
    return status;
}

} // namespace

int checkCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    if (const std::optional<int> exit = parseOptions(parser, QStringLiteral("check"), arguments, context))
        return *exit;
    const bool json = parser.isSet(QStringLiteral("json"));
    return namesAFleet(parser) ? checkAll(parser, json, context) : checkOne(parser, json, context);
}
