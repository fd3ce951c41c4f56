#include "commandoptions.h"

#include "connectionprofiles.h"

std::optional<int> parseOptions(QCommandLineParser &parser, const QString &command, const QString &description,
                                const QStringList &arguments, CommandContext &context)
{
    parser.setApplicationDescription(description);
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help."));
    parser.addOption(help);
    if (!parser.parse(QStringList{QLatin1String("zrt ") + command} + arguments)) {
        context.err << "zrt " << command << ": " << parser.errorText() << "\n";
        return kExitUsage;
    }
    if (parser.isSet(help)) {
        // Past Qt's own usage line, which names the executable's path.
        context.out << parser.helpText().section(QLatin1Char('\n'), 1);
        return kExitOk;
    }
    if (!parser.positionalArguments().isEmpty()) {
        context.err << "zrt " << command << ": unexpected argument '" << parser.positionalArguments().first() << "'\n";
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
        context.err << "zrt: unknown mode '" << *mode << "' (OFFLINE, LOCAL or ONLINE)\n";
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
    parser.addOption({QStringLiteral("odbc"), QStringLiteral("A complete ODBC connection string instead of a server."),
                      QStringLiteral("STRING")});
}

ConnectionFactory chosenConnections(const QCommandLineParser &parser, CommandContext &context)
{
    return parser.isSet(QStringLiteral("odbc")) ? context.odbc(parser.value(QStringLiteral("odbc"))) : context.sqlServer;
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
    return DatabaseChoice{*mode, *database, parser.value(QStringLiteral("server"))};
}
