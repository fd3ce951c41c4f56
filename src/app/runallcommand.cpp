#include "runallcommand.h"

#include "allruns.h"
#include "commandoptions.h"
#include "exitstatus.h"
#include "fleetdisplay.h"
#include "fleetoptions.h"
#include "printabletext.h"
#include "statementresult.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

QString finishedLine(const QString &database, const DatabaseRunResult &result)
{
    const RunOutcome outcome = outcomeOf(result);
    const QString start = QStringLiteral("%1  %2  ").arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss")),
                                                        database.leftJustified(30));
    if (outcome == RunOutcome::CouldNotStart)
        return start + QLatin1String("could not start: ") + escapedControls(result.reason) + QLatin1Char('\n');
    return start
        + QStringLiteral("%1 %2 sent %3 failed %4 columns %5 s\n")
              .arg(outcomeName(outcome), -24)
              .arg(result.tally.sent(), 4)
              .arg(result.tally.unexpected(), 4)
              .arg(result.tally.columnsAdded(), 4)
              .arg(result.seconds, 6, 'f', 1);
}

// Under a database's line with --verbose: its failures by message.
QString failureLines(const DatabaseRunResult &result)
{
    QString lines;
    for (const FailureGroup &group : result.tally.failureGroups())
        lines += QStringLiteral("          %1  %2\n").arg(group.statements.size(), 4).arg(escapedControls(group.message));
    return lines;
}

QString totalsLine(const AllRunsResult &all)
{
    const FleetTotals totals = fleetTotals(all);
    QStringList outcomes;
    for (int outcome = 0; outcome < kRunOutcomes; ++outcome) {
        if (totals.byOutcome[outcome] > 0)
            outcomes << QStringLiteral("%1 %2").arg(totals.byOutcome[outcome]).arg(outcomeName(RunOutcome(outcome)));
    }
    return QStringLiteral("%1 databases: %2; %3 statements sent, %4 failed unexpectedly or timed out\n")
        .arg(all.databases.size())
        .arg(outcomes.isEmpty() ? QStringLiteral("none") : outcomes.join(QLatin1String(", ")))
        .arg(totals.sent)
        .arg(totals.unexpected);
}

int allExitStatus(const AllRunsResult &all)
{
    int status = kExitOk;
    bool lost = !all.indexErrors.isEmpty();
    for (const ListingOutcome &listing : all.listings)
        status = listing.failed() ? kExitNothingDone : status;
    for (qsizetype i = 0; i < all.databases.size(); ++i) {
        const std::optional<DatabaseRunResult> &result = all.results[i];
        status = moreSerious(status, exitStatusOf(fleetOutcome(all, i), result));
        lost = lost || (result && !result->reportError.isEmpty());
    }
    return withLostReport(status, lost);
}

} // namespace

int runAllCommand(const QCommandLineParser &parser, bool preview, CommandContext &context)
{
    const QString name = preview ? QStringLiteral("plan") : QStringLiteral("run");
    const std::optional<int> statementSeconds = checkedStatementSeconds(parser, name, context);
    if (!statementSeconds)
        return kExitUsage;
    const std::optional<FleetWork> work = checkedFleet(parser, name, context, *statementSeconds);
    if (!work)
        return kExitUsage;
    AllRuns runs;
    static_cast<FleetWork &>(runs) = *work;
    runs.preview = preview;
    const bool json = parser.isSet(QStringLiteral("json"));
    const bool quiet = parser.isSet(QStringLiteral("quiet"));
    const bool verbose = parser.isSet(QStringLiteral("verbose"));
    FleetDisplay display(context, context.terminal && !json && !quiet);
    if (!json)
        printFleetHeader(parser, runs, context);
    runs.started = [&display](const FleetRecord &fleet, qsizetype database) { display.started(fleet, database); };
    runs.progress = [&display](qsizetype database, std::optional<Phase> phase, int value, int maximum) {
        if (phase && maximum > 0)
            display.advanced(database, phaseName(*phase), 100 * value / maximum);
    };
    runs.finished = [&](const FleetRecord &fleet, qsizetype database, const DatabaseRunResult &result) {
        const RunOutcome outcome = outcomeOf(result);
        const bool failed = outcome != RunOutcome::Completed;
        QString lines;
        if (!json && (failed || !quiet))
            lines = finishedLine(fleetDatabaseName(runs, fleet.databases[database]), result)
                + (verbose ? failureLines(result) : QString());
        const QString error = result.reportError.isEmpty()
            ? QString() : QStringLiteral("zrt %1: %2\n").arg(name, escapedControls(result.reportError));
        display.ended(database, lines, failed && outcome != RunOutcome::Interrupted, error);
    };
    const AllRunsResult all = runAllDatabases(runs);
    display.finish();
    const int status = allExitStatus(all);
    if (json) {
        QJsonObject index = all.index;
        index.insert(QStringLiteral("exit"), status);
        if (runs.folder)
            index.insert(QStringLiteral("folder"), *runs.folder);
        if (!all.indexErrors.isEmpty())
            index.insert(QStringLiteral("errors"), QJsonArray::fromStringList(all.indexErrors));
        context.out << QJsonDocument(index).toJson(QJsonDocument::Compact) << "\n";
        return status;
    }
    printListingFailures(runs.command, runs.servers, all, context);
    for (const auto &[left, title] : {std::pair{RunOutcome::NotDone, "Not done"}, {RunOutcome::NotStarted, "Not started"}}) {
        QStringList names;
        for (qsizetype i = 0; i < all.databases.size(); ++i) {
            if (fleetOutcome(all, i) == left)
                names << fleetDatabaseName(runs, all.databases[i]);
        }
        if (!names.isEmpty())
            context.out << title << ": " << names.join(QLatin1String(", ")) << "\n";
    }
    context.out << totalsLine(all);
    for (const QString &error : all.indexErrors)
        context.err << "zrt " << name << ": " << escapedControls(error) << "\n";
    return status;
}
