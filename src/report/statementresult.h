#pragma once

#include "runhost.h"

#include <QString>

enum class StatementResult { Succeeded, AlreadyExisted, NotThereToDrop, SourceTableMissing, TimedOut, Blocked, Failed };
inline constexpr int kStatementResults = int(StatementResult::Failed) + 1;

// Tells an expected refusal (the object is already there, not there to drop,
// or a view's source table that no run creates is missing) from a real
// failure, by SQL Server's error numbers, or by the SQLite driver's messages
// where the run is tried out on SQLite. A statement past its time is its own
// kind, and so is one still refused its locks once its tries were spent.
StatementResult classify(const StatementOutcome &outcome);
QString resultName(StatementResult result);
// The result as a key of the counts in JSON.
QString resultKey(StatementResult result);

// Failed, timed-out and blocked statements: what the run did not expect.
inline bool isUnexpected(StatementResult result)
{
    return result == StatementResult::TimedOut || result == StatementResult::Blocked || result == StatementResult::Failed;
}

// SQL Server's "Lock request time out period exceeded": the statement waited
// its LOCK_TIMEOUT for a lock another session holds.
inline constexpr int kLockRequestTimedOut = 1222;

// The table whose absence refused a view, as the server named it; empty for
// any other outcome.
QString missingSourceTable(const StatementOutcome &outcome);

// The view a CREATE VIEW text makes.
QString createdViewName(const QString &definition);

inline constexpr int kPhases = int(Phase::ChartOfAccounts) + 1;

// The phase as reports name it.
QString phaseName(Phase phase);
