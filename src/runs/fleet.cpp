#include "fleet.h"

#include "connectionprofiles.h"
#include "fleetfolder.h"
#include "fleetindex.h"
#include "keptindex.h"
#include "lastwords.h"

#include <thread>

namespace {

// Takes the databases in order on up to `jobs` threads; the stop rules are
// asked before each start. `changed` is told of each start and end.
void runScheduled(const FleetWork &work, FleetRecord &fleet, QMutex &mutex, const std::function<bool(qsizetype)> &one,
                  const std::function<void()> &changed)
{
    const FleetLimits &limits = work.limits;
    std::vector<DatabaseState> &states = fleet.states;
    qsizetype next = 0;
    int failures = 0;
    const auto worker = [&] {
        for (;;) {
            qsizetype database = 0;
            {
                const QMutexLocker lock(&mutex);
                if ((limits.stop && limits.stop->load()) || next == qsizetype(states.size()))
                    return;
                if (limits.maxFailures > 0 && failures >= limits.maxFailures) {
                    for (; next < qsizetype(states.size()); ++next)
                        states[next] = DatabaseState::NotStarted;
                    return;
                }
                database = next++;
                states[database] = DatabaseState::Running;
            }
            changed();
            if (work.started)
                work.started(fleet, database);
            const bool failed = one(database);
            {
                const QMutexLocker lock(&mutex);
                states[database] = DatabaseState::Ended;
                failures += failed ? 1 : 0;
            }
            changed();
        }
    };
    std::vector<std::thread> workers;
    for (int i = 0; i < limits.jobs && i < qsizetype(states.size()); ++i)
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

FleetRecord listFleet(const QList<FleetServer> &servers)
{
    FleetRecord fleet;
    fleet.started = QDateTime::currentDateTime();
    for (qsizetype server = 0; server < servers.size(); ++server) {
        const FleetServer &from = servers[server];
        const auto add = [&](const QString &name) {
            if (from.patterns.admits(name))
                fleet.databases << FleetDatabase{server, name};
        };
        if (from.databases) {
            for (const QString &name : *from.databases)
                add(name);
            fleet.listings << ListingOutcome{};
        } else {
            fleet.listings << listDatabases(from.mode, from.server, from.connections, add);
        }
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
