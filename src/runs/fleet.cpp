#include "fleet.h"

#include "connectionprofiles.h"
#include "fleetfolder.h"
#include "fleetindex.h"
#include "lastwords.h"
#include "printabletext.h"

#include <thread>

namespace {

// Takes the databases in order on up to `jobs` threads; the stop rules are
// asked before each start.
void runScheduled(const FleetWork &work, FleetRecord &fleet, QMutex &mutex, const std::function<bool(qsizetype)> &one)
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
            if (work.started)
                work.started(fleet, database);
            const bool failed = one(database);
            const QMutexLocker lock(&mutex);
            states[database] = DatabaseState::Ended;
            failures += failed ? 1 : 0;
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

FleetRecord listFleet(const QList<FleetServer> &servers, const std::atomic<bool> *stop)
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
            else if (from.patterns.admits(name))
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
    std::optional<int> indexAtOnce;
    if (work.folder) {
        // A second Ctrl-C ends the program at once: the index still lists
        // what ended, the running databases as interrupted, the rest as not done.
        indexAtOnce = LastWords::instance().add([&] {
            const QMutexLocker lock(&mutex);
            writeFleetIndex(*work.folder, fleetIndex(work, fleet, index), fleet.indexErrors);
        });
    }
    runScheduled(work, fleet, mutex, one);
    if (indexAtOnce)
        LastWords::instance().remove(*indexAtOnce);
    fleet.index = fleetIndex(work, fleet, index);
    if (work.folder)
        writeFleetIndex(*work.folder, fleet.index, fleet.indexErrors);
}
