#include "runcommand.h"

#include "allruns.h"
#include "commandoptions.h"
#include "connectionprofiles.h"
#include "databaserun.h"

#include <QDir>
#include <QRegularExpression>
#include <QSaveFile>

namespace {

constexpr char kDescription[] =
    "zrt run --mode MODE --database NAME [--server NAME | --odbc STRING]\n"
    "        [--create-at FILEBASE] [--report FILE]\n"
    "zrt run --all --mode MODE --server NAME [--jobs N] [--report-dir DIR]\n"
    "\n"
    "Runs the maintenance on one database, as the window does, and prints what\n"
    "its statements did. ONLINE mode opens only on the servers QUORVEXMAIN and\n"
    "SERVER. With --odbc every open, the fallback on tempdb included, uses the\n"
    "given ODBC connection string. A database that cannot be opened is created\n"
    "only with --create-at; otherwise nothing is sent and the exit status is 1.\n"
    "With --all every database that the server lists is run, each on its own\n"
    "connection; Ctrl-C starts no further run and stops the running ones after\n"
    "their current statement.";

// The password of an ODBC string, braced or not.
QString odbcPassword(const QString &odbc)
{
    static const QRegularExpression pwd(QStringLiteral("(?:^|;)\\s*PWD\\s*=\\s*(\\{(?:[^}]|\\}\\})*\\}|[^;]*)"),
                                        QRegularExpression::CaseInsensitiveOption);
    QString value = pwd.match(odbc).captured(1);
    if (value.startsWith(QLatin1Char('{')))
        value = value.mid(1, value.size() - 2).replace(QLatin1String("}}"), QLatin1String("}"));
    return value;
}

bool usageError(CommandContext &context, const char *message)
{
    context.err << "zrt run: " << message << "\n";
    return false;
}

// The options that belong to one form of the command and not the other.
bool checkCombination(const QCommandLineParser &parser, CommandContext &context)
{
    const auto set = [&parser](const char *name) { return parser.isSet(QLatin1String(name)); };
    if (set("all")) {
        if (set("database") || set("odbc") || set("create-at") || set("report"))
            return usageError(context, "--all takes no --database, --odbc, --create-at or --report");
        if (!set("server"))
            return usageError(context, "--all needs --server");
        return true;
    }
    if (set("jobs") || set("report-dir"))
        return usageError(context, "--jobs and --report-dir go with --all");
    if (set("odbc") && set("server"))
        return usageError(context, "give --server or --odbc, not both");
    return true;
}

int runAll(const QCommandLineParser &parser, const QString &mode, CommandContext &context)
{
    AllRuns runs{mode, parser.value(QStringLiteral("server"))};
    if (parser.isSet(QStringLiteral("jobs"))) {
        bool ok = false;
        runs.jobs = parser.value(QStringLiteral("jobs")).toInt(&ok);
        if (!ok || runs.jobs < 1) {
            context.err << "zrt run: --jobs needs a whole number from 1 up, not '" << parser.value(QStringLiteral("jobs"))
                        << "'\n";
            return kExitUsage;
        }
    }
    if (parser.isSet(QStringLiteral("report-dir"))) {
        runs.reportDir = parser.value(QStringLiteral("report-dir"));
        if (!QDir().mkpath(*runs.reportDir)) {
            context.err << "zrt run: cannot make the folder " << *runs.reportDir << "\n";
            return kExitUsage;
        }
    }
    return runAllDatabases(runs, context);
}

int runOne(const QCommandLineParser &parser, const QString &mode, CommandContext &context)
{
    const std::optional<QString> database = requiredValue(parser, QStringLiteral("database"), context);
    if (!database)
        return kExitUsage;
    if (database->isEmpty()) {
        context.err << "zrt run: --database names no database\n";
        return kExitUsage;
    }
    // Written whole at the end, or not at all.
    std::optional<QSaveFile> report;
    if (parser.isSet(QStringLiteral("report"))) {
        report.emplace(parser.value(QStringLiteral("report")));
        if (!report->open(QIODevice::WriteOnly)) {
            context.err << "zrt run: cannot write " << report->fileName() << ": " << report->errorString() << "\n";
            return kExitUsage;
        }
    }

    const bool viaOdbc = parser.isSet(QStringLiteral("odbc"));
    const QString odbc = parser.value(QStringLiteral("odbc"));
    const QString odbcSecret = odbcPassword(odbc);
    DatabaseRun run;
    run.mode = mode;
    run.server = parser.value(QStringLiteral("server"));
    run.database = *database;
    run.connections = viaOdbc ? context.odbc(odbc) : context.sqlServer;
    if (parser.isSet(QStringLiteral("create-at")))
        run.createAt = parser.value(QStringLiteral("create-at"));
    run.report = report ? &*report : nullptr;
    run.mask = [odbcSecret](QString text) {
        text = ConnectionProfiles::withoutPasswords(std::move(text));
        return odbcSecret.isEmpty() ? text : text.replace(odbcSecret, QLatin1String("****"));
    };
    run.showProgress = context.terminal;
    run.stop = context.stop;

    const DatabaseRunResult result = runDatabase(run, context);
    if (result.end != RunEnd::Completed) {
        if (report)
            report->cancelWriting();
        if (result.end == RunEnd::Stopped)
            context.err << "\nzrt run: interrupted after " << result.tally.sent() << " statements\n";
        else
            context.err << "zrt run: cannot open the database '" << *database
                        << "'; give --create-at FILEBASE to create it\n";
        return kExitFailed;
    }
    context.out << result.tally.summary();
    if (report && !report->commit()) {
        context.err << "zrt run: cannot write " << report->fileName() << ": " << report->errorString() << "\n";
        return kExitFailed;
    }
    return kExitOk;
}

} // namespace

int runCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("mode"), QStringLiteral("OFFLINE, LOCAL or ONLINE."), QStringLiteral("MODE")});
    parser.addOption({QStringLiteral("database"), QStringLiteral("The database to maintain."), QStringLiteral("NAME")});
    parser.addOption({QStringLiteral("server"), QStringLiteral("The server (default: the local default instance)."),
                      QStringLiteral("NAME")});
    parser.addOption({QStringLiteral("odbc"), QStringLiteral("A complete ODBC connection string instead of a server."),
                      QStringLiteral("STRING")});
    parser.addOption({QStringLiteral("create-at"),
                      QStringLiteral("Create a database that cannot be opened, with its files at FILEBASE.mdf and "
                                     "FILEBASE_Log.ldf, named after FILEBASE's file name."),
                      QStringLiteral("FILEBASE")});
    parser.addOption({QStringLiteral("report"), QStringLiteral("Write one JSON object per statement to FILE."),
                      QStringLiteral("FILE")});
    parser.addOption({QStringLiteral("all"), QStringLiteral("Run every database that the server lists.")});
    parser.addOption({QStringLiteral("jobs"), QStringLiteral("With --all: at most N runs at once (default 4)."),
                      QStringLiteral("N")});
    parser.addOption({QStringLiteral("report-dir"), QStringLiteral("With --all: one report per database in DIR."),
                      QStringLiteral("DIR")});
    if (const std::optional<int> exit =
            parseOptions(parser, QStringLiteral("run"), QString::fromLatin1(kDescription), arguments, context))
        return *exit;
    const std::optional<QString> mode = checkedMode(parser, context);
    if (!mode || !checkCombination(parser, context))
        return kExitUsage;
    return parser.isSet(QStringLiteral("all")) ? runAll(parser, *mode, context) : runOne(parser, *mode, context);
}
