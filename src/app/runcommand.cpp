#include "runcommand.h"

#include "commandoptions.h"
#include "commandrunhost.h"
#include "connectionprofiles.h"
#include "maintenancerun.h"
#include "mdzrt.h"
#include "runplan.h"

#include <QRegularExpression>
#include <QSaveFile>

namespace {

constexpr char kDescription[] =
    "zrt run --mode MODE --database NAME [--server NAME | --odbc STRING]\n"
    "        [--create-at FILEBASE] [--report FILE]\n"
    "\n"
    "Runs the maintenance on one database, as the window does, and prints what\n"
    "its statements did. ONLINE mode opens only on the servers QUORVEXMAIN and\n"
    "SERVER. With --odbc every open, the fallback on tempdb included, uses the\n"
    "given ODBC connection string. A database that cannot be opened is created\n"
    "only with --create-at; otherwise nothing is sent and the exit status is 1.";

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
    if (const std::optional<int> exit =
            parseOptions(parser, QStringLiteral("run"), QString::fromLatin1(kDescription), arguments, context))
        return *exit;
    const std::optional<QString> mode = checkedMode(parser, context);
    const std::optional<QString> database = requiredValue(parser, QStringLiteral("database"), context);
    if (!mode || !database)
        return kExitUsage;
    if (database->isEmpty()) {
        context.err << "zrt run: --database names no database\n";
        return kExitUsage;
    }
    const bool viaOdbc = parser.isSet(QStringLiteral("odbc"));
    if (viaOdbc && parser.isSet(QStringLiteral("server"))) {
        context.err << "zrt run: give --server or --odbc, not both\n";
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

    const QString odbc = parser.value(QStringLiteral("odbc"));
    const QString odbcSecret = odbcPassword(odbc);
    const auto mask = [odbcSecret](QString text) {
        text = ConnectionProfiles::withoutPasswords(std::move(text));
        return odbcSecret.isEmpty() ? text : text.replace(odbcSecret, QLatin1String("****"));
    };
    const QString server = parser.value(QStringLiteral("server"));
    mdZRT module(viaOdbc ? context.odbc(odbc) : context.sqlServer, server);
    std::optional<QString> createAt;
    if (parser.isSet(QStringLiteral("create-at")))
        createAt = parser.value(QStringLiteral("create-at"));
    CommandRunHost host(context, createAt, report ? &*report : nullptr, mask);
    CheckRecordsets recordsets;

    if (!MaintenanceRun(module, host, recordsets).run({*mode, server, *database}, maintenanceSteps())) {
        if (report)
            report->cancelWriting();
        context.err << "zrt run: cannot open the database '" << *database
                    << "'; give --create-at FILEBASE to create it\n";
        return kExitFailed;
    }
    context.out << host.tally().summary();
    if (report && !report->commit()) {
        context.err << "zrt run: cannot write " << report->fileName() << ": " << report->errorString() << "\n";
        return kExitFailed;
    }
    return kExitOk;
}
