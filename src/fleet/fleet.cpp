#include "fleet.h"

#include "connectionprofiles.h"
#include "fleetfolder.h"
#include "fleetindex.h"
#include "keptindex.h"
#include "lastwords.h"
#include "printabletext.h"

#include <QWaitCondition>

#include <thread>

namespace {

// Takes the databases in order on up to `jobs` threads, skipping past those
// whose server is at its own limit so that it never idles the others; the
// stop rules are asked before each start. `changed` is told of each start and end.
void runScheduled(const FleetWork &work, FleetRecord &fleet, QMutex &mutex, const std::function<bool(qsizetype)> &one,
                  const std::function<void()> &changed)
{
    const FleetLimits &limits = work.limits;
    std::vector<DatabaseState> &states = fleet.states;
    const qsizetype count = qsizetype(states.size());
    std::vector<int> running(work.servers.size());
    QWaitCondition roomMade;
    qsizetype first = 0; // none before it waits
    int failures = 0;
    const auto hasRoom = [&](qsizetype database) {
        const qsizetype server = fleet.databases[database].server;
        return work.servers[server].jobs == 0 || running[server] < work.servers[server].jobs;
    };
    const auto worker = [&] {
        QMutexLocker lock(&mutex);
        for (;;) {
            // This thread's last end and its next start are one step for the
            // index, which is written once the lock is let go.
            changed();
            while (first < count && states[first] != DatabaseState::Waiting)
                ++first;
            if ((limits.stop && limits.stop->load()) || first == count)
                return;
            if (limits.maxFailures > 0 && failures >= limits.maxFailures) {
                for (qsizetype i = first; i < count; ++i)
                    states[i] = states[i] == DatabaseState::Waiting ? DatabaseState::NotStarted : states[i];
                return;
            }
            qsizetype database = first;
            while (database < count && (states[database] != DatabaseState::Waiting || !hasRoom(database)))
                ++database;
            if (database == count) {
                // Every server with databases left is at its limit: one of theirs ends first.
                roomMade.wait(&mutex);
                continue;
            }
            states[database] = DatabaseState::Running;
            ++running[fleet.databases[database].server];
            lock.unlock();
            if (work.started)
                work.started(fleet, database);
            const bool failed = one(database);
            lock.relock();
            states[database] = DatabaseState::Ended;
            --running[fleet.databases[database].server];
            failures += failed ? 1 : 0;
            roomMade.wakeAll();
        }
    };
    std::vector<std::thread> workers;
    for (int i = 0; i < limits.jobs && i < count; ++i)
        workers.emplace_back(worker);
    for (std::thread &thread : workers)
        thread.join();
}

} // namespace

QString listingTarget(const FleetServer &server)
{
    if (server.mode == QLatin1String(ConnectionProfiles::kOnline))
        return QLatin1String("server ") + ConnectionProfiles::onlineDataSource();
    return server.target;
}

FleetRecord listFleet(const QList<FleetServer> &servers, const std::optional<FleetShard> &shard,
                      const std::atomic<bool> *stop)
{
    FleetRecord fleet;
    fleet.started = QDateTime::currentDateTime();
    for (qsizetype server = 0; server < servers.size(); ++server) {
        const FleetServer &from = servers[server];
        QStringList listed;
        QStringList refused;
        const auto add = [&](const QString &name) {
            if (const QString refusal = databaseNameRefusal(name); !refusal.isEmpty())
                refused << QStringLiteral("'%1': %2").arg(escapedControls(name), refusal);
            else if (from.patterns.admits(name) && (!shard || inShard(*shard, from.server, name)))
                listed << name;
        };
        ListingOutcome listing;
        listing.failure = DbStatus::failure(QStringLiteral("the invocation was stopped"));
        listing.interrupted = true;
        if (!stop || !stop->load())
            listing = listDatabases(from.mode, from.server, from.connections, add, stop);
        listing.statementSeconds = from.statementSeconds;
        listing.refused = refused;
        for (const QString &name : from.databases.value_or(listed)) {
            if (listed.contains(name))
                fleet.databases << FleetDatabase{server, name};
            else if (!listing.failed())
                listing.noLongerListed << name;
        }
        fleet.listings << listing;
    }
    fleet.states.resize(fleet.databases.size());
    for (qsizetype i = 0; i < fleet.databases.size(); ++i)
        fleet.reportFiles << reportFileName(i, fleet.databases[i].name);
    return fleet;
}

void runFleet(const FleetWork &work, FleetRecord &fleet, QMutex &mutex, const std::function<bool(qsizetype)> &one,
              const FleetIndexParts &index)
{
    const auto now = [&] {
        const QMutexLocker lock(&mutex);
        return fleetIndex(work, fleet, index);
    };
    std::optional<int> indexAtOnce;
    std::optional<KeptIndex> kept;
    if (work.folder) {
        // Ended at once, by a second Ctrl-C or by a kill, the folder still
        // lists what ended, the running databases as interrupted and the rest
        // as not done, for a retry to take up.
        indexAtOnce = LastWords::instance().add([&] { writeFleetIndex(*work.folder, now(), fleet.indexErrors); });
        kept.emplace(*work.folder, now);
    }
    runScheduled(work, fleet, mutex, one, [&kept] {
        if (kept)
            kept->changed();
    });
    kept.reset();
    if (indexAtOnce)
        LastWords::instance().remove(*indexAtOnce);
    fleet.index = fleetIndex(work, fleet, index);
    if (work.folder)
        writeFleetIndex(*work.folder, fleet.index, fleet.indexErrors);
}
