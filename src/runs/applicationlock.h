#pragma once

#include "connection.h"

#include <QString>

#include <atomic>
#include <chrono>
#include <functional>

// How a run from the command line shares a live server with its users and
// with other runs.
struct LockPolicy
{
    int timeoutSeconds = 5; // how long a statement waits for a lock another session holds
    int retries = 5;        // how often a statement refused its locks is sent again
    int waitSeconds = 0;    // how long to wait for another run's application lock
};

// Run and plan change the schema; a check only reads it, beside other checks.
enum class LockMode { Exclusive, Shared };

// What became of asking for the tool's application lock on a database.
struct LockTaking
{
    enum class Kind {
        Taken,
        Held,               // another run holds it
        NoApplicationLocks, // the engine has none: `detail` names it
        Failed,             // SQL Server would not grant or refuse it: `detail` says why
    };
    Kind kind = Kind::Taken;
    QString detail;
};

// Takes the lock for the connection's session, waiting at most
// `waitSeconds`, and bounds every later lock wait of the session by
// `timeoutSeconds`. Only an engine that names itself SQL Server is asked:
// another engine is sent nothing.
LockTaking takeApplicationLock(Connection &connection, LockMode mode, int waitSeconds);
DbStatus setLockTimeout(Connection &connection, int seconds);
// The lock dies with the session too; a failure here loses nothing.
void releaseApplicationLock(Connection &connection);

// The sessions that hold locks in the connection's database, oldest
// transaction first, as the login may see them: "held by session 57 (login
// ..., host ..., program ..., transaction open 12 s)"; else why they cannot be named.
QString lockHolders(Connection &connection);

// The pause before a refused statement's next try: 1 s after the first, then
// doubling, at most a minute.
std::chrono::milliseconds retryPause(int tries);

// Waits `pause`, ending at once when `stop` is set; false when it did.
bool pauseUnlessStopped(std::chrono::milliseconds pause, const std::atomic<bool> *stop);

// A pause that a test may shorten: false when a stop ended it.
using Pause = std::function<bool(std::chrono::milliseconds)>;
