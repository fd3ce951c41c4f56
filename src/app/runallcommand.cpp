#include "runallcommand.h"

#include "allruns.h"
#include "commandoptions.h"
#include "exitstatus.h"
#include "fleetdisplay.h"
#include "fleetoptions.h"
#include "printabletext.h"
#include "statementresult.h"
#include "terminalcolour.h"

namespace {

// A database's line as it ends, its name already padded; a preview that ran
// to its end tells what a run would do.
QString finishedLine(const QString &database, const DatabaseRunResult &result, bool preview, bool terminal)
{
    const RunOutcome outcome = outcomeOf(result);
    const QString start = QStringLiteral("%1  %2  ").arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss")),
                                                        database);
    if (outcome == RunOutcome::CouldNotStart || outcome == RunOutcome::Busy)
        return start + tinted(outcomeName(outcome), outcomeTint(outcome), terminal) + QLatin1String(": ")
            + escapedControls(result.reason)
            + (preview && result.openFailure == OpenFailure::DatabaseMissing ? QLatin1String("; a run would create it")
                                                                            : QLatin1String(""))
            + QLatin1Char('\n');
    const bool would = preview && result.preview && !result.stop;
    const QString counts = QStringLiteral(" %1 sent %2 failed ").arg(result.tally.sent(), 4).arg(result.tally.unexpected(), 4);
    const QString seconds = QStringLiteral("%1 s").arg(result.seconds, 6, 'f', 1);
    return start + (would ? QLatin1String("would end ") : QLatin1String(""))
        + tinted(outcomeName(outcome).leftJustified(24), outcomeTint(outcome), terminal) + counts
        + (would ? seconds + QLatin1String("  ") + wouldSummary(result.preview->json(result.tally))
                 : QStringLiteral("%1 columns ").arg(result.tally.columnsAdded(), 4) + seconds)
        + QLatin1Char('\n');
}

// Under a database's line with --verbose: its failures by message.
QString failureLines(const DatabaseRunResult &result)
{
    QString lines;
    for (const FailureGroup &group : result.tally.failureGroups())
        lines += QStringLiteral("          %1  %2\n").arg(group.statements.size(), 4).arg(escapedControls(group.message));
    return lines;
}

QString totalsLine(const AllRunsResult &all, bool preview)
{
    const FleetTotals totals = fleetTotals(all);
    QStringList outcomes;
    for (int outcome = 0; outcome < kRunOutcomes; ++outcome) {
        if (totals.byOutcome[outcome] > 0)
            outcomes << QStringLiteral("%1 %2").arg(totals.byOutcome[outcome]).arg(outcomeName(RunOutcome(outcome)));
    }
    return QStringLiteral("%1 databases%2: %3; %4 statements sent, %5 failed unexpectedly, timed out or were blocked\n")
        .arg(all.databases.size())
        .arg(preview ? QStringLiteral(" previewed, nothing kept") : QString())
        .arg(outcomes.isEmpty() ? QStringLiteral("none") : outcomes.join(QLatin1String(", ")))
        .arg(totals.sent)
        .arg(totals.unexpected);
}

int allExitStatus(const AllRunsResult &all)
{
    int status = kExitOk;
    bool lost = !all.indexErrors.isEmpty();
    for (const ListingOutcome &listing : all.listings)
        status = listing.failed() || !listing.refused.isEmpty() ? kExitNothingDone : status;
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
    std::atomic<bool> noteSaid = false;
    runs.finished = [&](const FleetRecord &fleet, qsizetype database, const DatabaseRunResult &result) {
        const RunOutcome outcome = outcomeOf(result);
        const bool failed = outcome != RunOutcome::Completed;
        QString lines;
        // Said once: every database of an engine without application locks would say it.
        if (!json && !result.lockNote.isEmpty() && !noteSaid.exchange(true))
            lines = QStringLiteral("zrt %1: %2\n").arg(name, escapedControls(result.lockNote));
        if (!json && (failed || !quiet))
            lines += finishedLine(display.nameColumn(runs, fleet, database), result, preview, context.outTerminal)
                + (verbose ? failureLines(result) : QString());
        const QString error = result.reportError.isEmpty()
            ? QString() : QStringLiteral("zrt %1: %2\n").arg(name, escapedControls(result.reportError));
        display.ended(database, lines, failed && outcome != RunOutcome::Interrupted && outcome != RunOutcome::Busy, error);
    };
    const AllRunsResult all = runAllDatabases(runs);
    display.finish();
    const int status = allExitStatus(all);
    if (json) {
        printFleetJson(runs, all, status, context);
        return status;
    }
    printListingFailures(runs.command, runs.servers, all, context);
    for (const auto &[left, title] : {std::pair{RunOutcome::NotDone, "Not done"},
                                      {RunOutcome::NotStarted, "Not started"},
                                      {RunOutcome::Busy, "Busy, held by another run"}}) {
        QStringList names;
        for (qsizetype i = 0; i < all.databases.size(); ++i) {
            if (fleetOutcome(all, i) == left)
                names << fleetDatabaseName(runs, all.databases[i]);
        }
        if (!names.isEmpty())
            context.out << title << ": " << names.join(QLatin1String(", ")) << "\n";
    }
    context.out << totalsLine(all, preview);
    for (const QString &error : all.indexErrors)
        context.err << "zrt " << name << ": " << escapedControls(error) << "\n";
    return status;
}
