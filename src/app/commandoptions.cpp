#include "commandoptions.h"

#include "connectionprofiles.h"
#include "odbckeywords.h"
#include "printabletext.h"
#include "programversion.h"

namespace {

// A server name that the ODBC driver would read as keywords of its own.
bool holdsKeywordCharacters(const QString &server)
{
    for (const QChar c : server) {
        if (c == u';' || c == u'{' || c == u'}' || c == u'=')
            return true;
    }
    return false;
}

// The database a given ODBC string names with its DATABASE keyword, if any
// of them names another than `database`.
std::optional<QString> otherDatabase(const QString &odbc, const QString &database)
{
    for (const OdbcKeyword &keyword : odbcKeywords(odbc)) {
        if (keyword.name.compare(QLatin1String("DATABASE"), Qt::CaseInsensitive) == 0
            && keyword.value.compare(database, Qt::CaseInsensitive) != 0)
            return keyword.value;
    }
    return std::nullopt;
}

} // namespace

std::optional<int> parseOptions(QCommandLineParser &parser, const QString &command, const QString &description,
                                const QStringList &arguments, CommandContext &context)
{
    parser.setApplicationDescription(description);
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help."));
    parser.addOption(help);
    if (!parser.parse(QStringList{QLatin1String("zrt ") + command} + arguments)) {
        context.err << "zrt " << command << ": " << escapedControls(parser.errorText()) << "\n";
        return kExitUsage;
    }
    if (parser.isSet(help)) {
        // Past Qt's own usage line, which names the executable's path.
        context.out << parser.helpText().section(QLatin1Char('\n'), 1);
        return kExitOk;
    }
    if (!parser.positionalArguments().isEmpty()) {
        context.err << "zrt " << command << ": unexpected argument '"
                    << escapedControls(parser.positionalArguments().first()) << "'\n";
        return kExitUsage;
    }
    return std::nullopt;
}

std::optional<QString> requiredValue(const QCommandLineParser &parser, const QString &name, CommandContext &context)
{
    if (!parser.isSet(name)) {
        context.err << "zrt: missing --" << name << "\n";
        return std::nullopt;
    }
    return parser.value(name);
}

std::optional<QString> checkedMode(const QCommandLineParser &parser, CommandContext &context)
{
    const std::optional<QString> mode = requiredValue(parser, QStringLiteral("mode"), context);
    if (mode && !ConnectionProfiles::prefix(*mode)) {
        context.err << "zrt: unknown mode '" << escapedControls(*mode) << "' (OFFLINE, LOCAL or ONLINE)\n";
        return std::nullopt;
    }
    return mode;
}

void addDatabaseOptions(QCommandLineParser &parser)
{
    parser.addOption({QStringLiteral("mode"), QStringLiteral("OFFLINE, LOCAL or ONLINE."), QStringLiteral("MODE")});
    parser.addOption({QStringLiteral("database"), QStringLiteral("The database."), QStringLiteral("NAME")});
    parser.addOption({QStringLiteral("server"), QStringLiteral("The server (default: the local default instance)."),
                      QStringLiteral("NAME")});
    parser.addOption({QStringLiteral("odbc"),
                      QStringLiteral("A complete ODBC connection string instead of a server (OFFLINE or LOCAL mode)."),
                      QStringLiteral("STRING")});
}

std::optional<QString> givenOdbc(const QCommandLineParser &parser)
{
    if (parser.isSet(QStringLiteral("odbc")))
        return parser.value(QStringLiteral("odbc"));
    const QString environment = qEnvironmentVariable("ZRT_ODBC");
    if (environment.isEmpty() || parser.isSet(QStringLiteral("server")))
        return std::nullopt;
    return environment;
}

ConnectionFactory chosenConnections(const QCommandLineParser &parser, CommandContext &context, int statementSeconds)
{
    const std::optional<QString> odbc = givenOdbc(parser);
    return odbc ? context.odbc(*odbc, statementSeconds) : context.sqlServer(statementSeconds);
}

std::optional<int> checkedStatementSeconds(const QCommandLineParser &parser, const QString &command,
                                           CommandContext &context)
{
    const QString name = QStringLiteral("statement-timeout");
    if (!parser.isSet(name))
        return kDefaultStatementSeconds;
    bool ok = false;
    const int seconds = parser.value(name).toInt(&ok);
    if (ok && seconds >= 0)
        return seconds;
    context.err << "zrt " << command << ": --statement-timeout needs a whole number of seconds from 0 up, not '"
                << escapedControls(parser.value(name)) << "'\n";
    return std::nullopt;
}

QString targetName(const QCommandLineParser &parser)
{
    if (const std::optional<QString> odbc = givenOdbc(parser))
        return QLatin1String("ODBC ") + withoutPasswords(*odbc);
    const QString server = parser.value(QStringLiteral("server"));
    return server.isEmpty() ? QStringLiteral("the local default instance") : QLatin1String("server ") + server;
}

bool checkedServer(const QCommandLineParser &parser, const QString &command, CommandContext &context)
{
    const QString server = parser.value(QStringLiteral("server"));
    if (!holdsKeywordCharacters(server))
        return true;
    context.err << "zrt " << command << ": the server name '" << escapedControls(server)
                << "' holds one of ; { } =, which the ODBC driver would read as more of its keywords\n";
    return false;
}

QString headerLine(const QString &command, const QString &subject, const QDateTime &started)
{
    return QStringLiteral("zrt %1 %2: %3, started %4\n")
        .arg(programVersion(), command, escapedControls(subject), reportTime(started));
}

std::optional<DatabaseChoice> checkedDatabaseChoice(const QCommandLineParser &parser, const QString &command,
                                                    CommandContext &context)
{
    const std::optional<QString> mode = checkedMode(parser, context);
    if (!mode)
        return std::nullopt;
    const std::optional<QString> database = requiredValue(parser, QStringLiteral("database"), context);
    if (!database)
        return std::nullopt;
    if (database->isEmpty()) {
        context.err << "zrt " << command << ": --database names no database\n";
        return std::nullopt;
    }
    if (parser.isSet(QStringLiteral("odbc")) && parser.isSet(QStringLiteral("server"))) {
        context.err << "zrt " << command << ": give --server or --odbc, not both\n";
        return std::nullopt;
    }
    const std::optional<QString> odbc = givenOdbc(parser);
    // ONLINE opens only the hosted servers, whatever string it is given.
    if (odbc && *mode == QLatin1String(ConnectionProfiles::kOnline)) {
        context.err << "zrt " << command << ": --odbc and ZRT_ODBC go with --mode OFFLINE or LOCAL, not ONLINE\n";
        return std::nullopt;
    }
    // The program names the database at login; a string naming another
    // would send the run there instead.
    if (const std::optional<QString> other = odbc ? otherDatabase(*odbc, *database) : std::nullopt) {
        context.err << "zrt " << command << ": the ODBC string names the database '" << escapedControls(*other)
                    << "', not '" << escapedControls(*database) << "' of --database\n";
        return std::nullopt;
    }
    if (!checkedServer(parser, command, context))
        return std::nullopt;
    return DatabaseChoice{*mode, *database, parser.value(QStringLiteral("server"))};
}

bool checkedForm(const QCommandLineParser &parser, const QString &command, const QStringList &oneOnly,
                 const QStringList &allOnly, CommandContext &context)
{
    const bool all = parser.isSet(QStringLiteral("all"));
    for (const QString &option : all ? oneOnly : allOnly) {
        if (parser.isSet(option)) {
            context.err << "zrt " << command << ": --" << option << (all ? " does not go with --all\n" : " goes with --all\n");
            return false;
        }
    }
    if (all && !parser.isSet(QStringLiteral("server"))) {
        context.err << "zrt " << command << ": --all needs --server\n";
        return false;
    }
    return !all || checkedServer(parser, command, context);
}
