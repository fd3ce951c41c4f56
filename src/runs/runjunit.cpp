#include "runjunit.h"

#include "outcomewords.h"
#include "programversion.h"

namespace {

constexpr Phase kRunOrder[] = {Phase::CreateDatabase, Phase::RebuiltTableDrops, Phase::Tables,
                               Phase::ViewDrops,      Phase::ViewCreates,       Phase::ChartOfAccounts};
static_assert(std::size(kRunOrder) == kPhases);

JUnitSuite emptySuite(const DatabaseRun &run, const QDateTime &started, RunOutcome outcome)
{
    const QString name = run.preview ? QStringLiteral("zrt plan %1 (preview, rolled back)") : QStringLiteral("zrt run %1");
    return {name.arg(run.database),
            started,
            0,
            {{QStringLiteral("database"), run.database},
             {QStringLiteral("mode"), run.mode},
             {QStringLiteral("target"), run.target},
             {QStringLiteral("preview"), run.preview ? QStringLiteral("true") : QStringLiteral("false")},
             {QStringLiteral("version"), programVersion()},
             {QStringLiteral("outcome"), outcomeName(outcome)}},
            {}};
}

} // namespace

JUnitSuite runSuite(const DatabaseRun &run, const DatabaseRunResult &result)
{
    const RunOutcome outcome = outcomeOf(result);
    JUnitSuite suite = emptySuite(run, result.started, outcome);
    suite.seconds = result.seconds;
    const StatementTally &tally = result.tally;
    // A stop is told where its last statement was sent; before the first, at the open.
    const std::optional<Phase> stoppedIn = result.stop ? tally.lastPhase() : std::nullopt;
    const QString stopped = outcomeName(outcome) + QLatin1Char(' ') + stopText(runJson(result));

    JUnitCase open{run.database, QStringLiteral("open the database")};
    if (result.busy)
        open.skipped = QLatin1String("busy: ") + result.reason; // for a later run, as --retry takes it
    else if (result.end == RunEnd::NotOpened)
        open.failure = QLatin1String("could not start: ") + result.reason;
    else if (result.stop && !stoppedIn)
        open.failure = stopped;
    suite.cases << open;

    for (const Phase phase : kRunOrder) {
        const PhaseTally &done = tally.phase(phase);
        if (phase == Phase::CreateDatabase && done.sent == 0)
            continue; // the database was there
        JUnitCase test{run.database, phaseName(phase), double(done.nanoseconds) / 1e9};
        const QList<FailureGroup> groups = tally.failureGroups(phase);
        qsizetype unexpected = 0;
        for (const FailureGroup &group : groups)
            unexpected += group.statements.size();
        if (phase == stoppedIn)
            test.failure = stopped;
        else if (unexpected > 0)
            test.failure = unexpectedText(unexpected, done.sent);
        else if (done.sent == 0 && result.end != RunEnd::Completed)
            test.skipped = QLatin1String("not sent: ") + outcomeName(outcome);
        test.failureText = failureListing(groups, done.sent);
        suite.cases << test;
    }
    return suite;
}

JUnitSuite endedAtOnceSuite(const DatabaseRun &run, const QDateTime &started)
{
    JUnitSuite suite = emptySuite(run, started, RunOutcome::Interrupted);
    JUnitCase ended{run.database, QStringLiteral("run")};
    ended.failure = QStringLiteral("interrupted: the program was ended at once");
    suite.cases << ended;
    return suite;
}
