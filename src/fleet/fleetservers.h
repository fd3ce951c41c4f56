#pragma once

#include "fleet.h"
#include "fleetfile.h"
#include "fleetindex.h"

#include <functional>
#include <optional>

// The servers an invocation works on, each with its connections and where
// messages say it is; from a fleet file, that file's jobs and origin too.
struct FleetServers
{
    QList<FleetServer> servers;
    std::optional<int> jobs;
    std::optional<FleetFileOrigin> fleetFile;
};

// Why a fleet file's server cannot be taken, or nothing; it may set the
// server's mode, name and reach as the caller names them.
using ServerCheck = std::function<std::optional<FleetRefusal>(FleetFileServer &server)>;
// Gives a server its connections and the name messages use.
using ServerConnector = std::function<void(FleetServer &server)>;

// The servers of the fleet file at `path`, each checked, with its own
// encryption and lock limits, and connected; else `error` says why.
std::optional<FleetServers> fleetFileServers(const QString &path, const ServerCheck &check, const ServerConnector &connect,
                                             QString &error);

// The servers that `retry` of `folder` leaves work on, each as the
// operator's `given` servers reach it: an index's server that none of them
// reaches, or reaches in another mode or through another variable, or that
// two entries reach, is refused, naming the entry.
std::optional<FleetServers> retriedServers(const FleetRetry &retry, const FleetServers &given, const QString &folder,
                                           QString &error);

// `locks` with what `given` says instead.
LockPolicy withLockKeys(LockPolicy locks, const FleetLockKeys &given);
