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
    // The next database to start, if any. The one this thread ran before
    // ends in the same step, so that the index never shows a moment when
    // this thread runs neither.
    const auto take = [&](std::optional<qsizetype> ended, bool failed) -> std::optional<qsizetype> {
        const QMutexLocker lock(&mutex);
        if (ended) {
            states[*ended] = DatabaseState::Ended;
            failures += failed ? 1 : 0;
        }
        if ((limits.stop && limits.stop->load()) || next == qsizetype(states.size()))
            return std::nullopt;
        if (limits.maxFailures > 0 && failures >= limits.maxFailures) {
            for (; next < qsizetype(states.size()); ++next)
                states[next] = DatabaseState::NotStarted;
            return std::nullopt;
        }
        states[next] = DatabaseState::Running;
        return next++;
    };
    const auto worker = [&] {
        for (std::optional<qsizetype> database = take(std::nullopt, false);; ) {
            changed();
            if (!database)
                return;
            if (work.started)
                work.started(fleet, *database);
            const bool failed = one(*database);
            database = take(database, failed);
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
