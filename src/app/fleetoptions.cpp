#include "fleetoptions.h"

#include "commandoptions.h"
#include "connectionprofiles.h"
#include "fleetfile.h"
#include "fleetfolder.h"
#include "fleetindex.h"
#include "odbckeywords.h"
#include "outputfile.h"
#include "printabletext.h"
#include "serveraddress.h"

#include <QDir>
#include <QFileInfo>

namespace {

// Why a fleet file's server cannot be taken, or nothing; its mode then as the
// command line names it, and its server and reach as its connections lead:
// with odbc_env, the server its string names.
std::optional<FleetRefusal> serverRefusal(FleetFileServer &server)
{
    const std::optional<QString> named = modeNamed(server.mode);
    if (!named)
        return FleetRefusal{QStringLiteral("mode"), unknownModeText(server.mode)};
    server.mode = *named;
    if (const QString refusal = serverNameRefusal(server.server); !refusal.isEmpty())
        return FleetRefusal{QStringLiteral("server"), refusal};
    server.reach = ConnectionProfiles::runDataSource(server.mode, server.server);
    if (server.mode == QLatin1String(ConnectionProfiles::kOnline))
        server.reach = ConnectionProfiles::onlineDataSource();
    if (server.odbcEnv.isEmpty())
        return std::nullopt;
    const QString variable = escapedControls(server.odbcEnv);
    if (server.mode == QLatin1String(ConnectionProfiles::kOnline))
        return FleetRefusal{QStringLiteral("odbc_env"), QStringLiteral("goes with mode OFFLINE or LOCAL, not ONLINE")};
    if (qEnvironmentVariableIsEmpty(server.odbcEnv.toLocal8Bit().constData()))
        return FleetRefusal{QStringLiteral("odbc_env"), QStringLiteral("the environment variable %1 is not set").arg(variable)};
    // The string decides where the databases are: the reports name what it reaches.
    const QString reached = odbcServer(qEnvironmentVariable(server.odbcEnv.toLocal8Bit().constData()));
    if (reached.isEmpty() && !server.server.isEmpty())
        return FleetRefusal{QStringLiteral("server"),
                            QStringLiteral("the string in %1 names no SERVER to hold it to (a name for the reports goes in label)")
                                .arg(variable)};
    if (const QString refusal = serverNameRefusal(reached); !refusal.isEmpty())
        return FleetRefusal{QStringLiteral("odbc_env"), QStringLiteral("the SERVER of the string in %1 holds one of ; { } =").arg(variable)};
    if (!server.server.isEmpty() && !sameServer(server.server, reached))
        return FleetRefusal{QStringLiteral("server"),
                            QStringLiteral("the string in %1 reaches another server (a name for the reports goes in label)").arg(variable)};
    server.server = reached;
    // A string naming no server (a DSN's) reaches what its variable says.
    server.reach = reached.isEmpty() ? QLatin1String("odbc_env ") + server.odbcEnv : reached;
    return std::nullopt;
}

// The server's connections: through its variable's ODBC string, else the mode's own login.
void connect(FleetServer &server, CommandContext &context, int statementSeconds)
{
    server.statementSeconds = statementSeconds;
    const QString label = server.label.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(server.label);
    if (server.odbcEnv.isEmpty()) {
        server.connections = context.sqlServer(statementSeconds, server.encryption);
        server.target = serverTarget(ConnectionProfiles::runDataSource(server.mode, server.server)) + label;
        return;
    }
    server.connections = context.odbc(qEnvironmentVariable(server.odbcEnv.toLocal8Bit().constData()), statementSeconds);
    const QString from = QStringLiteral("ODBC from %1").arg(server.odbcEnv);
    server.target = server.server.isEmpty() ? from + label : QStringLiteral("server %1%2 (%3)").arg(server.server, label, from);
}

std::optional<FleetServers> fromFleetFile(const QString &path, CommandContext &context, int statementSeconds,
                                          QString &error)
{
    return fleetFileServers(path, serverRefusal,
                            [&context, statementSeconds](FleetServer &server) { connect(server, context, statementSeconds); },
                            error);
}

std::optional<FleetServers> fromOneServer(const QCommandLineParser &parser, CommandContext &context,
                                          int statementSeconds, QString &error)
{
    const QString modeText = parser.value(QStringLiteral("mode"));
    const std::optional<QString> mode = modeNamed(modeText);
    const std::optional<QString> odbc = givenOdbc(parser);
    if (!mode)
        error = unknownModeText(modeText);
    else if (!parser.isSet(QStringLiteral("server")) && !odbc)
        error = QStringLiteral("missing --server (or --odbc, or ZRT_ODBC)");
    else if (odbc && *mode == QLatin1String(ConnectionProfiles::kOnline))
        error = QLatin1String(kOdbcNotOnline);
    if (!error.isEmpty())
        return std::nullopt;
    FleetServer server;
    server.mode = *mode;
    server.server = parser.value(QStringLiteral("server"));
    if (!odbc) {
        connect(server, context, statementSeconds);
        return FleetServers{{server}, std::nullopt, std::nullopt};
    }
    if (parser.isSet(QStringLiteral("odbc")))
        server.odbc = withoutPasswords(*odbc);
    else
        server.odbcEnv = QStringLiteral("ZRT_ODBC");
    server.server = odbcServer(*odbc);
    server.statementSeconds = statementSeconds;
    server.connections = context.odbc(*odbc, statementSeconds);
    server.target = QLatin1String("ODBC ") + withoutPasswords(*odbc);
    return FleetServers{{server}, std::nullopt, std::nullopt};
}

// What the operator names now for a retry of `folder`: the fleet file given
// with --fleet, else the one the index names if it is still as it was; for a
// folder made with --all, the server named again.
std::optional<FleetServers> operatorsServers(const QCommandLineParser &parser, const QString &folder,
                                             const FleetRetry &retry, CommandContext &context, int statementSeconds,
                                             QString &error)
{
    if (parser.isSet(QStringLiteral("fleet")))
        return fromFleetFile(parser.value(QStringLiteral("fleet")), context, statementSeconds, error);
    if (retry.fleetFile) {
        const QString &path = retry.fleetFile->path;
        QString refusal = QFileInfo::exists(path) ? QString() : QStringLiteral("the fleet file %1 that %2 was made from is gone");
        std::optional<FleetServers> fleet;
        if (refusal.isEmpty())
            fleet = fromFleetFile(path, context, statementSeconds, error);
        if (fleet && fleet->fleetFile->digest != retry.fleetFile->digest)
            refusal = QStringLiteral("the fleet file %1 has changed since %2 was made");
        if (refusal.isEmpty())
            return fleet;
        error = refusal.arg(path, folder) + QLatin1String(": give --fleet FILE to take a file as it is now");
        return std::nullopt;
    }
    if (!parser.isSet(QStringLiteral("mode"))) {
        error = QStringLiteral("%1 was made with --all: give its --mode and --server (or --odbc) again").arg(folder);
        return std::nullopt;
    }
    return fromOneServer(parser, context, statementSeconds, error);
}

// The servers the index leaves work on, each as the operator's input
// reaches it; whatever the index says of them is that input's, or refused.
std::optional<FleetServers> fromRetry(const QCommandLineParser &parser, CommandContext &context, int statementSeconds,
                                      QString &error)
{
    const QString folder = parser.value(QStringLiteral("retry"));
    const FleetRetry retry = readRetry(folder);
    error = retry.error;
    std::optional<FleetServers> given;
    if (error.isEmpty())
        given = operatorsServers(parser, folder, retry, context, statementSeconds, error);
    return given ? retriedServers(retry, *given, folder, error) : std::nullopt;
}

// A whole number from `least` up given with `option`, or nothing; `error` says so when it is not one.
std::optional<int> count(const QCommandLineParser &parser, const QString &option, QString &error, int least = 1)
{
    if (!parser.optionNames().contains(option))
        return std::nullopt;
    bool ok = false;
    const int value = parser.value(option).toInt(&ok);
    if (ok && value >= least)
        return value;
    error = QStringLiteral("--%1 needs a whole number from %2 up, not '%3'")
                .arg(option, QString::number(least), escapedControls(parser.value(option)));
    return std::nullopt;
}

} // namespace

bool namesAFleet(const QCommandLineParser &parser)
{
    const QStringList given = parser.optionNames();
    return given.contains(QStringLiteral("all")) || given.contains(QStringLiteral("fleet"))
        || given.contains(QStringLiteral("retry"));
}

std::optional<FleetServers> checkedServers(const QCommandLineParser &parser, const QString &command,
                                           CommandContext &context, int statementSeconds)
{
    QString error;
    std::optional<FleetServers> fleet;
    // Only what the command's forms define is asked of the parser: list has no --retry.
    const QStringList given = parser.optionNames();
    if (given.contains(QStringLiteral("retry")))
        fleet = fromRetry(parser, context, statementSeconds, error);
    else if (given.contains(QStringLiteral("fleet")))
        fleet = fromFleetFile(parser.value(QStringLiteral("fleet")), context, statementSeconds, error);
    else
        fleet = fromOneServer(parser, context, statementSeconds, error);
    if (!fleet)
        context.err << "zrt " << command << ": " << escapedControls(error) << "\n";
    return fleet;
}

std::optional<FleetWork> checkedFleet(const QCommandLineParser &parser, const QString &command, CommandContext &context,
                                      int statementSeconds)
{
    std::optional<FleetServers> servers = checkedServers(parser, command, context, statementSeconds);
    if (!servers)
        return std::nullopt;
    const std::optional<FleetLockKeys> locks = checkedLockOptions(parser, command, context);
    if (!locks)
        return std::nullopt;
    FleetWork work;
    work.command = command;
    work.servers = servers->servers;
    work.fleetFile = servers->fleetFile;
    // Given on the command line, a value holds for every server, as --jobs does over the file's.
    for (FleetServer &server : work.servers)
        server.locks = withLockKeys(server.locks, *locks);
    work.limits.stop = context.stop;
    work.limits.pause = context.pause;
    QString error;
    const std::optional<int> jobs = count(parser, QStringLiteral("jobs"), error);
    const std::optional<int> maxFailures = count(parser, QStringLiteral("max-failures"), error);
    work.limits.jobs = jobs.value_or(servers->jobs.value_or(kDefaultJobs));
    work.limits.maxFailures = maxFailures.value_or(0);
    if (error.isEmpty() && parser.isSet(QStringLiteral("shard"))) {
        work.shard = shardNamed(parser.value(QStringLiteral("shard")));
        if (!work.shard)
            error = QStringLiteral("--shard needs K/N, the K-th of N parts (1 <= K <= N), not '%1'")
                        .arg(escapedControls(parser.value(QStringLiteral("shard"))));
    }
    QString reportDir = parser.value(QStringLiteral("report-dir"));
    if (reportDir.isEmpty() && parser.isSet(QStringLiteral("retry")))
        reportDir = QFileInfo(QDir(parser.value(QStringLiteral("retry"))).absolutePath()).path();
    if (error.isEmpty() && (parser.isSet(QStringLiteral("report-dir")) || !reportDir.isEmpty())) {
        if (const QString refusal = outputFolderRefusal(reportDir); !refusal.isEmpty()) {
            error = QLatin1String("--report-dir: ") + refusal;
        } else {
            const InvocationFolder folder = makeInvocationFolder(reportDir, command);
            error = folder.error;
            work.folder = folder.path;
        }
    }
    if (!error.isEmpty()) {
        context.err << "zrt " << command << ": " << escapedControls(error) << "\n";
        return std::nullopt;
    }
    return work;
}

std::optional<FleetLockKeys> checkedLockOptions(const QCommandLineParser &parser, const QString &command,
                                                CommandContext &context)
{
    QString error;
    FleetLockKeys given;
    given.lockTimeout = count(parser, QStringLiteral("lock-timeout"), error, 0);
    if (error.isEmpty())
        given.lockRetries = count(parser, QStringLiteral("lock-retries"), error, 0);
    if (error.isEmpty())
        given.lockWait = count(parser, QStringLiteral("lock-wait"), error, 0);
    if (error.isEmpty())
        return given;
    context.err << "zrt " << command << ": " << error << "\n";
    return std::nullopt;
}
