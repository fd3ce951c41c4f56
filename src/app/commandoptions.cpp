#include "commandoptions.h"

#include "commandsyntax.h"
#include "connectionprofiles.h"
#include "databaselisting.h"
#include "odbckeywords.h"
#include "printabletext.h"
#include "programversion.h"

namespace {

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

void addCommandOptions(QCommandLineParser &parser, const CommandSyntax &command)
{
    QStringList usage;
    for (const FormSyntax &form : command.forms)
        usage << usageLine(command, form);
    parser.setApplicationDescription(usage.join(QLatin1Char('\n')) + QLatin1String("\n\n") + syntaxText(command.description));
    parser.addOption({QStringList{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help.")});
    for (const QString &name : commandOptions(command)) {
        const OptionSyntax &option = *findOption(name);
        parser.addOption({name, syntaxText(option.description), syntaxText(option.value)});
    }
}

// The form the options given select: the one whose switch is set, else the usual one.
const FormSyntax &chosenForm(const QCommandLineParser &parser, const CommandSyntax &command)
{
    const FormSyntax *chosen = &command.forms.front();
    for (const FormSyntax &form : command.forms) {
        if (!form.selector.empty() && parser.isSet(syntaxText(form.selector)))
            chosen = &form;
    }
    return *chosen;
}

// Why the options given make none of the command's forms, or nothing: an
// option of another form, two alternatives, or a required option missing.
QString formRefusal(const QCommandLineParser &parser, const CommandSyntax &command)
{
    const FormSyntax &chosen = chosenForm(parser, command);
    const QString selector = syntaxText(chosen.selector);
    for (const QString &given : parser.optionNames()) {
        if (formTakes(chosen, given) || given == QLatin1String("h") || given == QLatin1String("help"))
            continue;
        if (!selector.isEmpty())
            return QStringLiteral("--%1 does not go with --%2").arg(given, selector);
        for (const FormSyntax &form : command.forms) {
            if (formTakes(form, given))
                return QStringLiteral("--%1 goes with --%2").arg(given, syntaxText(form.selector));
        }
    }
    for (const FormOption &option : formOptions(chosen)) {
        QStringList given;
        for (const QString &name : option.names) {
            if (parser.isSet(name))
                given << name;
        }
        if (given.size() > 1)
            return QStringLiteral("--%1 does not go with --%2").arg(given[1], given[0]);
        if (option.required && given.isEmpty())
            return selector.isEmpty() ? QStringLiteral("missing --%1").arg(option.names.first())
                                      : QStringLiteral("--%1 needs --%2").arg(selector, option.names.first());
    }
    return QString();
}

} // namespace

QString commandHelp(const CommandSyntax &command)
{
    QCommandLineParser parser;
    addCommandOptions(parser, command);
    // Past Qt's own usage line, which names the executable's path.
    return parser.helpText().section(QLatin1Char('\n'), 1);
}

std::optional<int> parseOptions(QCommandLineParser &parser, const QString &command, const QStringList &arguments,
                                CommandContext &context)
{
    const CommandSyntax &syntax = *findCommand(command);
    addCommandOptions(parser, syntax);
    if (!parser.parse(QStringList{QLatin1String("zrt ") + command} + arguments)) {
        context.err << "zrt " << command << ": " << escapedControls(parser.errorText()) << "\n";
        return kExitUsage;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        context.out << commandHelp(syntax);
        return kExitOk;
    }
    if (!parser.positionalArguments().isEmpty() && !formTakesOperands(chosenForm(parser, syntax))) {
        context.err << "zrt " << command << ": unexpected argument '"
                    << escapedControls(parser.positionalArguments().first()) << "'\n";
        return kExitUsage;
    }
    if (const QString refusal = formRefusal(parser, syntax); !refusal.isEmpty()) {
        context.err << "zrt " << command << ": " << refusal << "\n";
        return kExitUsage;
    }
    // Only options the command defines are asked of the parser: Qt warns of any other.
    const QStringList given = parser.optionNames();
    for (const QString &name : given) {
        if (given.count(name) > 1) {
            context.err << "zrt " << command << ": --" << name << " is given more than once\n";
            return kExitUsage;
        }
    }
    const QString server = given.contains(QStringLiteral("server")) ? parser.value(QStringLiteral("server")) : QString();
    if (const QString refusal = serverNameRefusal(server); !refusal.isEmpty()) {
        context.err << "zrt " << command << ": " << refusal << "\n";
        return kExitUsage;
    }
    return std::nullopt;
}

QString serverNameRefusal(const QString &server)
{
    for (const QChar c : server) {
        if (c == u';' || c == u'{' || c == u'}' || c == u'=')
            return QStringLiteral("the server name '%1' holds one of ; { } =, which the ODBC driver would read as more "
                                  "of its keywords")
                .arg(escapedControls(server));
    }
    return QString();
}

std::optional<QString> modeNamed(const QString &text)
{
    for (const char *name : modeNames()) {
        if (text.compare(QLatin1String(name), Qt::CaseInsensitive) == 0)
            return QString::fromLatin1(name);
    }
    return std::nullopt;
}

QString unknownModeText(const QString &text)
{
    return QStringLiteral("unknown mode '%1' (OFFLINE, LOCAL or ONLINE)").arg(escapedControls(text));
}

std::optional<QString> checkedMode(const QCommandLineParser &parser, const QString &command, CommandContext &context)
{
    const QString mode = parser.value(QStringLiteral("mode"));
    const std::optional<QString> named = modeNamed(mode);
    if (!named)
        context.err << "zrt " << command << ": " << unknownModeText(mode) << "\n";
    return named;
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
    return odbc ? context.odbc(*odbc, statementSeconds) : context.sqlServer(statementSeconds, std::nullopt);
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

QString targetName(const QCommandLineParser &parser, const QString &mode)
{
    if (const std::optional<QString> odbc = givenOdbc(parser))
        return QLatin1String("ODBC ") + withoutPasswords(*odbc);
    return serverTarget(ConnectionProfiles::runDataSource(mode, parser.value(QStringLiteral("server"))));
}

QString serverTarget(const QString &server)
{
    return server.isEmpty() ? QStringLiteral("the local default instance") : QLatin1String("server ") + server;
}

QString headerLine(const QString &command, const QString &subject, const QDateTime &started)
{
    return QStringLiteral("zrt %1 %2: %3, started %4\n")
        .arg(programVersion(), command, escapedControls(subject), reportTime(started));
}

std::optional<DatabaseChoice> checkedDatabaseChoice(const QCommandLineParser &parser, const QString &command,
                                                    CommandContext &context)
{
    const std::optional<QString> mode = checkedMode(parser, command, context);
    if (!mode)
        return std::nullopt;
    const QString database = parser.value(QStringLiteral("database"));
    if (database.isEmpty()) {
        context.err << "zrt " << command << ": --database names no database\n";
        return std::nullopt;
    }
    if (const QString refusal = databaseNameRefusal(database); !refusal.isEmpty()) {
        context.err << "zrt " << command << ": --database '" << escapedControls(database) << "' is no database's name: "
                    << refusal << "\n";
        return std::nullopt;
    }
    const std::optional<QString> odbc = givenOdbc(parser);
    if (odbc && *mode == QLatin1String(ConnectionProfiles::kOnline)) {
        context.err << "zrt " << command << ": " << kOdbcNotOnline << "\n";
        return std::nullopt;
    }
    // The program names the database at login; a string naming another
    // would send the run there instead.
    if (const std::optional<QString> other = odbc ? otherDatabase(*odbc, database) : std::nullopt) {
        context.err << "zrt " << command << ": the ODBC string names the database '" << escapedControls(*other)
                    << "', not '" << escapedControls(database) << "' of --database\n";
        return std::nullopt;
    }
    return DatabaseChoice{*mode, database, parser.value(QStringLiteral("server"))};
}
