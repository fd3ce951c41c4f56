#include "fleetservers.h"

#include "serveraddress.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

// Why a server's own encryption cannot be taken, or nothing.
std::optional<FleetRefusal> encryptionRefusalOf(const std::optional<Encryption> &encryption, const QString &odbcEnv)
{
    if (!encryption)
        return std::nullopt;
    if (!odbcEnv.isEmpty())
        return FleetRefusal{QStringLiteral("odbc_env"), QStringLiteral("its ODBC string says how it is encrypted, not encrypt or tls_ca")};
    if (const std::optional<EncryptionRefusal> refusal =
            encryptionRefusal(*encryption, QStringLiteral("encrypt"), QStringLiteral("tls_ca")))
        return FleetRefusal{refusal->key, refusal->reason};
    return std::nullopt;
}

} // namespace

std::optional<FleetServers> fleetFileServers(const QString &path, const ServerCheck &check, const ServerConnector &connect,
                                            QString &error)
{
    const auto encryption = [&path](const FleetFileServer &server) -> std::optional<Encryption> {
        if (server.encrypt.isEmpty() && server.tlsCa.isEmpty())
            return std::nullopt;
        Encryption own = encryptionFromEnvironment();
        if (!server.encrypt.isEmpty())
            own = {server.encrypt, server.encrypt == QLatin1String(kEncryptRequire) ? own.caFile : QString()};
        if (!server.tlsCa.isEmpty()) // beside the fleet file, when not a whole path
            own.caFile = QFileInfo(path).dir().absoluteFilePath(server.tlsCa);
        return own;
    };
    const FleetFileReading reading = readFleetFile(path, [&encryption, &check](FleetFileServer &server) {
        const std::optional<FleetRefusal> refusal = check(server);
        return refusal ? refusal : encryptionRefusalOf(encryption(server), server.odbcEnv);
    });
    if (!reading.fleet) {
        error = reading.error;
        return std::nullopt;
    }
    FleetServers fleet{{}, reading.fleet->jobs, FleetFileOrigin{QFileInfo(path).absoluteFilePath(), reading.digest}};
    const LockPolicy fleetLocks = withLockKeys(LockPolicy{}, reading.fleet->locks);
    for (const FleetFileServer &entry : reading.fleet->servers) {
        FleetServer server;
        server.locks = withLockKeys(fleetLocks, entry.locks);
        server.server = entry.server;
        server.mode = entry.mode;
        server.odbcEnv = entry.odbcEnv;
        server.encryption = encryption(entry);
        server.label = entry.label;
        server.patterns = entry.patterns;
        server.jobs = entry.jobs.value_or(0);
        connect(server);
        fleet.servers << server;
    }
    return fleet;
}

std::optional<FleetServers> retriedServers(const FleetRetry &retry, const FleetServers &given, const QString &folder,
                                           QString &error)
{
    const QString origin = given.fleetFile ? given.fleetFile->path : QStringLiteral("the server given");
    FleetServers fleet{{}, std::nullopt, given.fleetFile};
    QList<qsizetype> taken;
    for (const RetryServer &left : retry.servers) {
        const auto found = std::find_if(given.servers.begin(), given.servers.end(),
                                        [&left](const FleetServer &server) {
                                            return sameServer(server.server, left.server)
                                                && (!left.server.isEmpty() || server.odbcEnv == left.odbcEnv);
                                        });
        const qsizetype place = found - given.servers.begin();
        const QString entry = QStringLiteral("%1: servers entry %2 ('%3')").arg(folder).arg(left.entry).arg(left.server);
        if (found == given.servers.end())
            error = QStringLiteral("%1 is not a server of %2").arg(entry, origin);
        else if (taken.contains(place))
            error = QStringLiteral("%1 reaches a server that an earlier entry reaches").arg(entry);
        else if (found->mode != left.mode)
            error = QStringLiteral("%1 says mode %2, %3 says %4").arg(entry, left.mode, origin, found->mode);
        else if (found->odbcEnv != left.odbcEnv)
            error = QStringLiteral("%1 says odbcEnv '%2', %3 says '%4'").arg(entry, left.odbcEnv, origin, found->odbcEnv);
        if (!error.isEmpty())
            return std::nullopt;
        taken << place;
        FleetServer server = *found;
        if (left.listed)
            server.databases = left.left;
        fleet.servers << server;
    }
    return fleet;
}

LockPolicy withLockKeys(LockPolicy locks, const FleetLockKeys &given)
{
    locks.timeoutSeconds = given.lockTimeout.value_or(locks.timeoutSeconds);
    locks.retries = given.lockRetries.value_or(locks.retries);
    locks.waitSeconds = given.lockWait.value_or(locks.waitSeconds);
    return locks;
}
