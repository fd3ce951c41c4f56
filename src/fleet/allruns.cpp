#include "allruns.h"

#include "fleetindex.h"
#include "outputfile.h"

#include <QDir>
#include <QFileInfo>

namespace {

// How many of a database's failed statements its index entry names; its
// report has every one.
constexpr qsizetype kFailedStatementsNamed = 50;

DatabaseRunResult runOne(const AllRuns &runs, const AllRunsResult &all, qsizetype database)
{
    const FleetServer &server = runs.servers[all.databases[database].server];
    DatabaseRun run{server.mode, server.server, all.databases[database].name, server.target, server.connections,
                    std::nullopt, nullptr, {}, runs.limits.stop, runs.preview};
    run.locks = server.locks;
    run.pause = runs.limits.pause;
    if (runs.progress)
        run.progress = [&runs, database](std::optional<Phase> phase, int value, int maximum) {
            runs.progress(database, phase, value, maximum);
        };
    OutputFile report;
    QString openError;
    if (runs.folder) {
        if (report.open(QDir(*runs.folder).filePath(all.reportFiles[database])))
            run.report = &report;
        else
            openError = QStringLiteral("cannot write %1: %2").arg(report.name(), report.errorString());
    }
    DatabaseRunResult result = runDatabase(run);
    if (!openError.isEmpty())
        result.reportError = openError;
    return result;
}

// What the index holds of a run that has not ended: one under way when the
// program is ended at once was interrupted.
std::optional<DatabaseRunResult> resultNow(const AllRunsResult &all, qsizetype database)
{
    if (all.results[database] || all.states[database] != DatabaseState::Running)
        return all.results[database];
    DatabaseRunResult interrupted;
    interrupted.end = RunEnd::Stopped;
    interrupted.stop = RunStop{StopCause::Interrupted, 0, QString()};
    return interrupted;
}

} // namespace

RunOutcome fleetOutcome(const AllRunsResult &all, qsizetype database)
{
    return all.states[database] == DatabaseState::NotStarted ? RunOutcome::NotStarted : outcomeOf(all.results[database]);
}

FleetTotals fleetTotals(const AllRunsResult &all)
{
    FleetTotals totals;
    for (qsizetype i = 0; i < all.databases.size(); ++i) {
        ++totals.byOutcome[int(fleetOutcome(all, i))];
        if (const std::optional<DatabaseRunResult> &result = all.results[i]) {
            totals.sent += result->tally.sent();
            totals.unexpected += result->tally.unexpected();
        }
    }
    return totals;
}

AllRunsResult runAllDatabases(const AllRuns &runs)
{
    AllRunsResult all = listedFleet<DatabaseRunResult>(runs);
    QMutex recording;
    const auto one = [&](qsizetype database) {
        const DatabaseRunResult result = runOne(runs, all, database);
        {
            const QMutexLocker lock(&recording);
            all.results[database] = result;
        }
        if (runs.finished)
            runs.finished(all, database, result);
        const RunOutcome outcome = outcomeOf(result);
        // Another run's lock says nothing of this database: it is no failure.
        return outcome != RunOutcome::Completed && outcome != RunOutcome::Interrupted && outcome != RunOutcome::Busy;
    };
    const auto entry = [&](qsizetype database) {
        const std::optional<DatabaseRunResult> result = resultNow(all, database);
        QJsonObject json = runJson(result);
        if (all.states[database] == DatabaseState::NotStarted)
            json.insert(QStringLiteral("outcome"), outcomeName(RunOutcome::NotStarted));
        // Only a report that is there: a lost one, or one a kill left unwritten, is not named.
        if (runs.folder && result && result->reportError.isEmpty()
            && QFileInfo(QDir(*runs.folder).filePath(all.reportFiles[database])).isFile())
            json.insert(QStringLiteral("report"), all.reportFiles[database]);
        if (result && result->tally.unexpected() > 0)
            json.insert(QStringLiteral("failedStatements"), result->tally.failedStatements(kFailedStatementsNamed));
        return json;
    };
    const auto totals = [&] {
        const FleetTotals counted = fleetTotals(all);
        return QJsonObject{{QStringLiteral("sent"), counted.sent}, {QStringLiteral("failedOrTimedOut"), counted.unexpected}};
    };
    QStringList outcomes;
    for (int outcome = 0; outcome < kRunOutcomes; ++outcome)
        outcomes << outcomeName(RunOutcome(outcome));
    runFleet(runs, all, recording, one, {outcomes, entry, totals});
    return all;
}
