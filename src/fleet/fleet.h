#pragma once

#include "applicationlock.h"
#include "connection.h"
#include "databaselisting.h"
#include "encryption.h"
#include "fleetshard.h"
#include "namepatterns.h"

#include <QDateTime>
#include <QJsonObject>
#include <QMutex>
#include <QStringList>

#include <atomic>
#include <functional>
#include <optional>
#include <vector>

// One server of an invocation, and how its databases are reached.
struct FleetServer
{
    QString server; // the data source as --server or a fleet file names it; beside an ODBC string, the one it reaches
    QString mode;
    QString label;   // a fleet file's name for it in the reports
    QString target;  // where, as messages name it, without secrets
    QString odbcEnv; // the environment variable its ODBC string came from
    QString odbc;    // an ODBC string given on the command line, passwords masked
    std::optional<Encryption> encryption; // its own; nothing: as the environment says
    ConnectionFactory connections;
    int statementSeconds = 30; // what its connections give each statement, its listing's included
    NamePatterns patterns;
    std::optional<QStringList> databases; // of these, those the server still lists (a retry)
    int jobs = 0; // at most so many of its databases at once; 0: only the fleet's limit
    LockPolicy locks;
};

// The fleet file an invocation's servers came from, as the index names it.
struct FleetFileOrigin
{
    QString path; // absolute
    QByteArray digest; // SHA-256 of its bytes, in hex
};

// Where the server's databases are listed, as messages name it: in ONLINE
// mode the hosted server, wherever its runs open.
QString listingTarget(const FleetServer &server);

struct FleetDatabase
{
    qsizetype server; // its place among the invocation's servers
    QString name;
};

// How many databases at once when neither --jobs nor a fleet file says:
// measured on a listener that takes 2 ms a statement (bench/).
inline constexpr int kDefaultJobs = 8;

struct FleetLimits
{
    int jobs = kDefaultJobs;
    int maxFailures = 0; // 0: no limit
    const std::atomic<bool> *stop = nullptr;
    Pause pause; // between tries of a statement refused its locks; empty: as a run waits
};

enum class DatabaseState { Waiting, Running, Ended, NotStarted };

struct FleetRecord;

// What every command's fleet is given.
struct FleetWork
{
    QString command; // run, plan or check, as the index names it
    bool preview = false;
    QList<FleetServer> servers;
    std::optional<FleetFileOrigin> fleetFile;
    std::optional<FleetShard> shard; // only this part of the servers' databases
    FleetLimits limits;
    std::optional<QString> folder; // this invocation's: reports, index.json and index.html
    std::function<void(const FleetRecord &fleet, qsizetype database)> started; // on the database's thread
};

// Where every database of a fleet stands, whatever the command.
struct FleetRecord
{
    QDateTime started;
    QList<FleetDatabase> databases; // every server's in turn, as listed and admitted, or as a retry names them
    QList<ListingOutcome> listings; // one per server; a server that cannot be listed adds no database
    std::vector<DatabaseState> states;
    QStringList reportFiles; // each database's, when the command writes reports
    QJsonObject index;       // as written in the folder, or as it would be
    QStringList indexErrors; // index.json or index.html that could not be written
};

template <typename Result>
struct FleetResults : FleetRecord
{
    std::vector<std::optional<Result>> results; // nothing: never ended
};

// The servers' databases in turn, each server's as it lists them (for a
// retry, those of its names it still lists) and its patterns and the shard
// admit, with their report files' names; a listed name that is none is
// refused. Once `stop` is set no server is listed and the listing under way
// ends.
FleetRecord listFleet(const QList<FleetServer> &servers, const std::optional<FleetShard> &shard,
                      const std::atomic<bool> *stop);

template <typename Result>
FleetResults<Result> listedFleet(const FleetWork &work)
{
    FleetResults<Result> fleet;
    static_cast<FleetRecord &>(fleet) = listFleet(work.servers, work.shard, work.limits.stop);
    fleet.results.resize(fleet.databases.size());
    return fleet;
}

// What only the command knows of its index: its outcomes from the best to
// the worst, a database's entry past its name and server (asked for a
// running one too when the program is ended at once), and totals beyond the
// count of each outcome.
struct FleetIndexParts
{
    QStringList outcomes;
    std::function<QJsonObject(qsizetype database)> entry;
    std::function<QJsonObject()> totals; // may be empty
};

// Does every database on up to `jobs` threads, in order, each server's at
// most its own jobs at once (the next whose server has room starts): `one`
// does one, records what became of it under `mutex` and says whether it
// failed unexpectedly. None starts once `stop` is set (the rest: not done) or once
// `maxFailures` databases have failed (the rest: not started). Makes the
// index when all have ended and, with a folder, writes it there, at once too
// if the program is ended at once; `index` is asked under `mutex`.
void runFleet(const FleetWork &work, FleetRecord &fleet, QMutex &mutex, const std::function<bool(qsizetype)> &one,
              const FleetIndexParts &index);
