#pragma once

#include "applicationlock.h"
#include "connection.h"
#include "maintenancerun.h"
#include "openfailure.h"
#include "previewfindings.h"
#include "statementtally.h"

#include <QDateTime>
#include <QJsonObject>

#include <atomic>
#include <functional>
#include <optional>

class OutputFile;

// One database's run without a window.
struct DatabaseRun
{
    QString mode;
    QString server; // the data source (empty: the local default instance); in ONLINE mode only whether it opens
    QString database;
    QString target; // where, as headers and reports name it, without secrets
    ConnectionFactory connections;
    std::optional<QString> createAt; // without it a database that cannot be opened is left alone
    // Opened for writing: a context line, one line per statement and an end
    // line; committed when the run ends, however it ends.
    OutputFile *report = nullptr;
    // The phase under way (nothing before the first statement) and the run's
    // progress, as the window's bar would show it.
    std::function<void(std::optional<Phase> phase, int value, int maximum)> progress;
    const std::atomic<bool> *stop = nullptr; // asked before each statement
    // Runs every statement in one transaction and rolls it back: nothing is
    // created, committed or kept.
    bool preview = false;
    // Opened for writing: the run as a JUnit test suite, committed when the
    // run ends, however it ends.
    OutputFile *junit = nullptr;
    // Without it the run is sent as the window sends it: no application
    // lock, no lock timeout, every statement once.
    std::optional<LockPolicy> locks = LockPolicy{};
    Pause pause; // between tries of a statement refused its locks; empty: waits, ending at once on `stop`
};

// Why a run that had begun ended before its last statement.
enum class StopCause {
    Interrupted,    // asked to stop
    ConnectionLost, // the connection died: nothing more can arrive
    PreviewEnded,   // the server ended the preview's transaction, or would not say whether it had
};

struct RunStop
{
    StopCause cause = StopCause::Interrupted;
    int afterStatement = 0; // the last statement sent, from 1
    QString detail;         // what the server said
};

struct DatabaseRunResult
{
    RunEnd end = RunEnd::NotOpened;
    StatementTally tally;
    QDateTime started;
    double seconds = 0;
    QString reason; // why the run could not start
    bool busy = false; // another run held the database: nothing was sent
    QString lockNote;  // why the run took no application lock
    std::optional<OpenFailure> openFailure; // what the driver said of the database's open, when it failed
    std::optional<RunStop> stop;            // why it ended early
    int notSent = 0;                        // what a stop left unsent, as a new database would receive it
    QString reportError; // why its report could not be written
    QString junitError;  // why its JUnit file could not be written
    std::optional<PreviewFindings> preview; // what the run would do, once the database opened
};

// What became of a run, from the best to the worst.
enum class RunOutcome {
    Completed,
    CompletedWithFailures,
    NothingApplied, // every statement failed for an unexpected reason
    ConnectionLost,
    PreviewStopped,
    CouldNotStart,
    Busy, // another run holds the database
    Interrupted,
    NotDone,
    NotStarted, // kept from starting by --max-failures
};
inline constexpr int kRunOutcomes = int(RunOutcome::NotStarted) + 1;

RunOutcome outcomeOf(const std::optional<DatabaseRunResult> &result);
QString outcomeName(RunOutcome outcome);

// What was run where, by which version, from when: a report's first line.
QJsonObject runContext(const DatabaseRun &run, const QDateTime &started);
// The outcome, times, reason and counts; nothing for a run never started.
QJsonObject runJson(const std::optional<DatabaseRunResult> &result);

// Stops before sending anything when no connection serves the database, or
// when another run holds its application lock; a
// database that is missing is created only at `createAt`, and never by a
// preview. A lost connection ends the run, and so does a preview's
// transaction that has ended or whose state cannot be read: nothing is sent
// outside it.
DatabaseRunResult runDatabase(const DatabaseRun &run);
