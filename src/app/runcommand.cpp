#include "runcommand.h"

#include "allruns.h"
#include "commandoptions.h"
#include "connectionprofiles.h"
#include "databaselisting.h"
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
    return true;
}

QString outcomeName(const std::optional<DatabaseRunResult> &result)
{
    if (!result)
        return QStringLiteral("not done");
    switch (result->end) {
    case RunEnd::Completed:
        return QStringLiteral("completed");
    case RunEnd::NotOpened:
        return QStringLiteral("could not start");
    case RunEnd::Stopped:
        return QStringLiteral("interrupted");
    }
    Q_UNREACHABLE();
}

QString tableRow(const QString &database, const QString &outcome, const QString &failed, const QString &columns,
                 const QString &seconds)
{
    return QStringLiteral("%1 %2 %3 %4 %5\n").arg(database, -30).arg(outcome, -16).arg(failed, 7).arg(columns, 8).arg(seconds, 8);
}

// One row per listed database, in the server's order.
int printAllRuns(const AllRunsResult &all, CommandContext &context)
{
    context.out << tableRow(QStringLiteral("Database"), QStringLiteral("Outcome"), QStringLiteral("Failed"),
                            QStringLiteral("Columns"), QStringLiteral("Seconds"));
    bool allCompleted = true;
    QStringList notDone;
    for (qsizetype i = 0; i < all.databases.size(); ++i) {
        const std::optional<DatabaseRunResult> &result = all.results[i];
        const bool ran = result && result->end != RunEnd::NotOpened;
        allCompleted = allCompleted && result && result->end == RunEnd::Completed;
        if (!result || result->end == RunEnd::Stopped)
            notDone << all.databases[i];
        const QString none = QStringLiteral("-");
        context.out << tableRow(all.databases[i], outcomeName(result),
                                ran ? QString::number(result->tally.count(StatementResult::Failed)) : none,
                                ran ? QString::number(result->tally.columnsAdded()) : none,
                                result ? QString::number(result->seconds, 'f', 1) : none);
    }
    if (!notDone.isEmpty())
        context.out << "Not done: " << notDone.join(QLatin1String(", ")) << "\n";
    return allCompleted ? kExitOk : kExitFailed;
}

int runAll(const QCommandLineParser &parser, const QString &mode, CommandContext &context)
{
    AllRuns runs{mode, parser.value(QStringLiteral("server")), context.sqlServer};
    runs.mask = [](QString text) { return ConnectionProfiles::withoutPasswords(std::move(text)); };
    runs.stop = context.stop;
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
    const AllRunsResult all = runAllDatabases(runs);
    if (all.listingFailed) {
        context.err << kConnectionNotEstablished << "\n";
        return kExitFailed;
    }
    return printAllRuns(all, context);
}

// A bar on the terminal, redrawn in place.
void drawProgress(QTextStream &err, int value, int maximum)
{
    constexpr int kBarWidth = 40;
    if (maximum <= 0)
        return;
    const int filled = kBarWidth * value / maximum;
    err << "\r[" << QString(filled, QLatin1Char('#')) << QString(kBarWidth - filled, QLatin1Char(' ')) << "] "
        << 100 * value / maximum << "%";
    err.flush();
}

int runOne(const QCommandLineParser &parser, CommandContext &context)
{
    const std::optional<DatabaseChoice> choice = checkedDatabaseChoice(parser, QStringLiteral("run"), context);
    if (!choice)
        return kExitUsage;
    // Written whole at the end, or not at all.
    std::optional<QSaveFile> report;
    if (parser.isSet(QStringLiteral("report"))) {
        report.emplace(parser.value(QStringLiteral("report")));
        if (!report->open(QIODevice::WriteOnly)) {
            context.err << "zrt run: cannot write " << report->fileName() << ": " << report->errorString() << "\n";
            return kExitUsage;
        }
    }

    const QString odbcSecret = odbcPassword(parser.value(QStringLiteral("odbc")));
    DatabaseRun run;
    run.mode = choice->mode;
    run.server = choice->server;
    run.database = choice->database;
    run.connections = chosenConnections(parser, context);
    if (parser.isSet(QStringLiteral("create-at")))
        run.createAt = parser.value(QStringLiteral("create-at"));
    run.report = report ? &*report : nullptr;
    run.mask = [odbcSecret](QString text) {
        text = ConnectionProfiles::withoutPasswords(std::move(text));
        return odbcSecret.isEmpty() ? text : text.replace(odbcSecret, QLatin1String("****"));
    };
    if (context.terminal)
        run.progress = [&context](int value, int maximum) { drawProgress(context.err, value, maximum); };
    run.stop = context.stop;

    const DatabaseRunResult result = runDatabase(run);
    if (context.terminal)
        context.err << "\n";
    if (result.end != RunEnd::Completed) {
        if (report)
            report->cancelWriting();
        if (result.end == RunEnd::Stopped)
            context.err << "zrt run: interrupted after " << result.tally.sent() << " statements\n";
        else
            context.err << "zrt run: cannot open the database '" << choice->database
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
    addDatabaseOptions(parser);
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
    if (!checkCombination(parser, context))
        return kExitUsage;
    if (!parser.isSet(QStringLiteral("all")))
        return runOne(parser, context);
    const std::optional<QString> mode = checkedMode(parser, context);
    return mode ? runAll(parser, *mode, context) : kExitUsage;
}
