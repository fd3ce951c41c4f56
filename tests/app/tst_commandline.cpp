#include "catalogueanswers.h"
#include "commandinvocation.h"
#include "printabletext.h"
#include "programversion.h"
#include "scriptfixture.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using ServerSetup = std::function<void(ScriptedServer &)>;
Q_DECLARE_METATYPE(ServerSetup)

namespace {

const QString kLocalListing = QStringLiteral("Select name From sys.databases Where name like 'Quorvex%' Order By name");
const QStringList kRun{"run", "--mode", "LOCAL", "--database", "QuorvexA"};
const QStringList kRunAll{"run", "--all", "--mode", "LOCAL", "--server", "S"};

ServerSetup listing(const QStringList &names)
{
    return [names](ScriptedServer &server) { server.answers.insert(kLocalListing, singleColumn("name", names)); };
}

ServerSetup refusing(const QString &opens, const ServerSetup &also = [](ScriptedServer &) {})
{
    return [=](ScriptedServer &server) {
        server.refusedOpens << opens;
        also(server);
    };
}

ServerSetup failing(const QString &statement, const DbStatus &status)
{
    return [=](ScriptedServer &server) { server.failingWith.insert(statement, status); };
}

// The page as a headless Chromium renders it.
QString renderedDom(const QString &page)
{
    const QString chromium = QStandardPaths::findExecutable(QStringLiteral("chromium"));
    if (chromium.isEmpty())
        return QString();
    QTemporaryDir profile;
    QProcess browser;
    browser.start(chromium, {"--headless", "--no-sandbox", "--disable-gpu", "--no-first-run",
                             "--disable-background-networking", "--disable-component-update", "--disable-sync",
                             "--user-data-dir=" + profile.path(), "--dump-dom", QUrl::fromLocalFile(page).toString()});
    browser.waitForFinished(60000);
    return QString::fromUtf8(browser.readAllStandardOutput());
}

// Sends through `connection` and asks the run to stop once `after` statements were sent.
class StoppingConnection : public Connection
{
public:
    StoppingConnection(std::unique_ptr<Connection> connection, std::atomic<bool> &stop, int after)
        : m_connection(std::move(connection)), m_stop(stop), m_after(after)
    {
    }
    DbStatus open(const QString &connectionString) override { return m_connection->open(connectionString); }
    DbStatus execute(const QString &sql) override { return counted(m_connection->execute(sql)); }
    DbStatus query(const QString &sql, ResultSet &into) override { return counted(m_connection->query(sql, into)); }
    DbStatus setAutocommit(bool on) override { return m_connection->setAutocommit(on); }
    DbStatus rollback() override { return m_connection->rollback(); }
    DbStatus close() override { return m_connection->close(); }
    bool isOpen() const override { return m_connection->isOpen(); }

private:
    DbStatus counted(DbStatus status)
    {
        if (--m_after == 0)
            m_stop = true;
        return status;
    }
    std::unique_ptr<Connection> m_connection;
    std::atomic<bool> &m_stop;
    int m_after;
};

} // namespace

class TestCommandLine : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    const QString m_fifo = m_dir.filePath(QStringLiteral("fifo"));

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        QCOMPARE(QProcess::execute("mkfifo", {m_fifo}), 0);
    }

    void scriptWritesEveryStatementOfARun()
    {
        const QByteArray expected = wholeRunFixtureBytes();
        QVERIFY(!expected.isEmpty());
        const Invocation toStandardOutput = invoke({QStringLiteral("script")});
        QCOMPARE(toStandardOutput.exit, 0);
        QCOMPARE(toStandardOutput.out.toUtf8(), expected);

        const QString path = m_dir.filePath(QStringLiteral("script.sql"));
        const Invocation toFile = invoke({QStringLiteral("script"), QStringLiteral("--output"), path});
        QCOMPARE(toFile.exit, 0);
        QVERIFY(toFile.out.isEmpty());
        QCOMPARE(fileBytes(path), expected);
    }

    void badUsage_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("named"); // what the message must name
        const QString missingDir = m_dir.filePath(QStringLiteral("missing/x"));
        QTest::newRow("unknown command") << QStringList{"repair"} << "repair";
        QTest::newRow("no command and no display") << QStringList{} << "no display";
        QTest::newRow("unknown option") << QStringList{"script", "--outptu", "x"} << "outptu";
        QTest::newRow("stray argument") << QStringList{"script", "extra"} << "extra";
        QTest::newRow("missing --database") << QStringList{"run", "--mode", "LOCAL"} << "zrt run: missing --database";
        QTest::newRow("empty --database") << QStringList{"run", "--mode", "LOCAL", "--database", ""} << "--database";
        QTest::newRow("unknown mode") << QStringList{"run", "--mode", "lokal", "--database", "QuorvexA"}
                                      << "zrt run: unknown mode 'lokal'";
        QTest::newRow("help on an unknown command") << QStringList{"help", "repair"} << "zrt help: unknown command";
        QTest::newRow("list without server") << QStringList{"list", "--mode", "LOCAL"} << "zrt list: missing --server";
        QTest::newRow("server and odbc") << kRun + QStringList{"--server", "S", "--odbc", "DSN=x"} << "--odbc";
        QTest::newRow("odbc in ONLINE mode") << QStringList{"run", "--mode", "ONLINE", "--database", "Q", "--odbc", "DSN=x"}
                                             << "ONLINE";
        QTest::newRow("quiet and verbose") << kRun + QStringList{"--quiet", "--verbose"} << "--quiet";
        QTest::newRow("unwritable --output") << QStringList{"script", "--output", missingDir} << missingDir;
        QTest::newRow("unwritable --report") << kRun + QStringList{"--report", missingDir} << missingDir;
        QTest::newRow("empty --report") << kRun + QStringList{"--report", ""} << "--report : no file named";
        QTest::newRow("a device as --output") << QStringList{"script", "--output", "/dev/full"} << "not a regular file";
        QTest::newRow("a FIFO as --report") << kRun + QStringList{"--report", m_fifo} << "not a regular file";
        QTest::newRow("a file as --report-dir") << kRunAll + QStringList{"--report-dir", m_fifo} << "is not a folder";
        QTest::newRow("a negative --statement-timeout") << QStringList{"plan", "--mode", "LOCAL", "--database", "Q",
                                                                       "--statement-timeout", "-1"} << "-1";
        QTest::newRow("ZRT_ODBC in ONLINE mode") << QStringList{"run", "--mode", "ONLINE", "--database", "Q", "ZRT_ODBC"}
                                                 << "ZRT_ODBC go with";
        QTest::newRow("check --all: with --odbc") << QStringList{"check", "--all", "--mode", "LOCAL", "--odbc", "x"} << "--odbc";
        QTest::newRow("run --all: --jobs 0") << kRunAll + QStringList{"--jobs", "0"} << "--jobs";
        QTest::newRow("run --all: with --database") << kRunAll + QStringList{"--database", "Q"} << "--database";
    }

    void badUsage()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, named);
        ScriptedServer server;
        // A last argument ZRT_ODBC stands for the variable set instead of --odbc.
        if (arguments.value(arguments.size() - 1) == "ZRT_ODBC")
            qputenv("ZRT_ODBC", "DSN=x;PWD=" + arguments.takeLast().toUtf8());
        const Invocation invocation = invoke(arguments, server.connections());
        qunsetenv("ZRT_ODBC");
        QCOMPARE(invocation.exit, 2);
        QVERIFY2(invocation.err.contains(named), qPrintable(invocation.err));
        QVERIFY(invocation.out.isEmpty());
        QVERIFY(server.logs().isEmpty());
        QVERIFY(!QFileInfo::exists(m_dir.filePath(QStringLiteral("missing"))));
        QVERIFY(QFileInfo(m_fifo).exists() && !QFileInfo(m_fifo).isFile());
    }

    void exitStatus_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<ServerSetup>("setup");
        QTest::addColumn<bool>("sends"); // anything but the CREATE DATABASE of --create-at
        QTest::addColumn<int>("exit");
        QTest::addColumn<QString>("printed");

        const ServerSetup none = [](ScriptedServer &) {};
        const ServerSetup two = listing({"QuorvexA", "QuorvexB"});
        const QString unreachable = QStringLiteral("Initial Catalog=");
        const QString refuseA = QStringLiteral("Initial Catalog=QuorvexA;");
        const QString stock = wholeRunFixtureStatements().filter("CREATE VIEW dbo.Stock ").value(0);
        const QStringList check{"check", "--mode", "LOCAL", "--database", "QuorvexA"};
        const QStringList checkAll{"check", "--all", "--mode", "LOCAL", "--server", "S"};
        QStringList wholeRun = wholeRunFixtureStatements();

        QTest::newRow("list") << QStringList{"list", "--mode", "LOCAL", "--server", "S"} << two << false << 0 << "QuorvexB\n";
        QTest::newRow("list: a mode in lower case") << QStringList{"list", "--mode", "local", "--server", "S"} << two << false
                                                    << 0 << "QuorvexB\n";
        QTest::newRow("-V") << QStringList{"-V"} << none << false << 0 << "zrt " + programVersion() + "\n";
        QTest::newRow("help run") << QStringList{"help", "run"} << none << false << 0 << "zrt run --all --mode MODE";
        QTest::newRow("list: unreachable") << QStringList{"list", "--mode", "LOCAL", "--server", "S"} << refusing(unreachable)
                                           << false << 4 << "Connection not established";
        QTest::newRow("list --json: unreachable") << QStringList{"list", "--mode", "LOCAL", "--server", "S", "--json"}
                                                  << refusing(unreachable) << false << 4 << "\"exit\":4";
        QTest::newRow("run: a view without its source table")
            << kRun << failing(stock, DbStatus::failure("Invalid object name 'dbo.tblStock'.", 208)) << true << 0
            << "Not installable here: view Stock (source table missing: tblStock)";
        QTest::newRow("run: a statement failed") << kRun << failing(stock, DbStatus::failure("Invalid column name 'Type'.", 207))
                                                 << true << 3 << "completed with failures: 1 of 493 statements";
        QTest::newRow("run: a statement timed out") << kRun << failing(stock, {false, "Query timeout expired", 0, true})
                                                    << true << 3 << "     1  timed out: Query timeout expired";
        QTest::newRow("run: every statement failed")
            << kRun << ServerSetup([=](ScriptedServer &s) { s.failingStatements = QSet(wholeRun.begin(), wholeRun.end()); })
            << true << 4 << "nothing applied: none of 493 statements succeeded";
        QTest::newRow("run: cannot open") << kRun << refusing(refuseA) << false << 4
                                          << "cannot open the database 'QuorvexA': refused; give --create-at";
        QTest::newRow("run: unreachable, --create-at") << kRun + QStringList{"--create-at", "/srv/QuorvexA"}
                                                       << refusing(unreachable) << false << 4 << "could not start";
        QTest::newRow("run: ONLINE elsewhere") << QStringList{"run", "--mode", "ONLINE", "--database", "Q", "--server", "X"}
                                               << none << false << 4 << "no connection was opened";
        QTest::newRow("run --json: cannot open") << kRun + QStringList{"--json"} << refusing(refuseA) << false << 4
                                                 << "\"outcome\":\"could not start\"";
        QTest::newRow("run --all: one could not start") << kRunAll << refusing(refuseA, two) << true << 4
                                                        << "2 databases: 1 completed, 1 could not start;";
        QTest::newRow("run --all: unreachable") << kRunAll << refusing(unreachable) << false << 4 << "Connection not";
        QTest::newRow("run --all --json") << kRunAll + QStringList{"--json"} << two << true << 0 << "\"completed\":2";
        QTest::newRow("plan: what the run would change")
            << QStringList{"plan", "--mode", "LOCAL", "--database", "QuorvexA"} << ServerSetup([](ScriptedServer &s) {
                   DatabaseSchema older = whatARunLeaves();
                   for (SchemaTable &table : older.tables) {
                       for (SchemaColumn &column : table.columns)
                           column.length = column.name == "PartyPhone" ? 50 : column.length;
                   }
                   answerCatalogue(s, older);
                   s.answers.insert("SELECT COUNT(*) AS RowCount FROM [dbo].[tblInvoiceEmpty]", singleColumn("RowCount", {"12"}));
               })
            << true << 0
            << "would widen tblPartyInfo.PartyPhone from 50 to 100\nwould write 4 built-in rows\nwould insert 26 accounts\n"
               "would replace 62 views, 0 source tables missing\nwould discard 12 rows of tblInvoiceEmpty\n";
        QTest::newRow("plan: cannot open") << QStringList{"plan", "--mode", "LOCAL", "--database", "QuorvexA", "--create-at", "/srv/Q"}
                                           << refusing(refuseA) << false << 4
                                           << "would be created by: CREATE DATABASE [Q]  ON (NAME = N'Quorvex KRN', FILENAME = N'/srv/Q.mdf')";
        QTest::newRow("plan --all") << QStringList{"plan", "--all", "--mode", "LOCAL", "--server", "S"} << two << true << 0
                                    << "2 databases: 2 completed";
        QTest::newRow("check: matches") << check << ServerSetup([](ScriptedServer &s) { answerCatalogue(s, whatARunLeaves()); })
                                        << false << 0 << "\nmatches\n";
        QTest::newRow("check: differs") << check << none << false << 1 << "Stock (source table missing: tblStock)\n87 diff";
        QTest::newRow("check: cannot open") << check << refusing(refuseA) << false << 4 << "cannot open the database 'QuorvexA'";
        QTest::newRow("check --all") << checkAll << refusing("Initial Catalog=QuorvexB;", two) << false << 4
                                     << "2 databases: 0 match, 1 differ, 1 could not be read";
    }

    void exitStatus()
    {
        QFETCH(QStringList, arguments);
        QFETCH(ServerSetup, setup);
        QFETCH(bool, sends);
        QFETCH(int, exit);
        QFETCH(QString, printed);
        ScriptedServer server;
        setup(server);
        const Invocation invocation = invoke(arguments, server.connections());
        QCOMPARE(invocation.exit, exit);
        QVERIFY2((invocation.out + invocation.err).contains(printed), qPrintable(invocation.out + invocation.err));
        for (const QStringList &log : server.logs()) {
            for (const QString &call : log)
                QVERIFY2(sends || !call.startsWith("execute") || call.startsWith("execute CREATE"), qPrintable(call));
        }
    }

    void runGroupsFailuresByMessage()
    {
        // 25 messages over 30 statements: the first five messages twice.
        ScriptedServer server;
        const QStringList drops = wholeRunFixtureStatements().filter(QStringLiteral("drop view"));
        for (int i = 0; i < 30; ++i)
            server.failingWith.insert(drops[i], DbStatus::failure(QStringLiteral("message %1\x1b[2J").arg(i % 25), 50000));
        const QString report = m_dir.filePath(QStringLiteral("grouped.jsonl"));
        const Invocation grouped = invoke(kRun + QStringList{"--report", report}, server.connections());
        QCOMPARE(grouped.exit, 3);
        QVERIFY(grouped.out.startsWith("zrt " + programVersion() + " run: database 'QuorvexA', the local default instance"));
        QVERIFY(grouped.out.contains("Failures by message: 25 messages, 30 statements\n     2  message 0\\x1B[2J\n"));
        QCOMPARE(grouped.out.count(QStringLiteral("  message ")), 20);
        QVERIFY(grouped.out.contains("5 more messages (5 statements) in the report\n"));
        QVERIFY(!grouped.out.contains(QChar(0x1b)));
        const Invocation verbose = invoke(kRun + QStringList{"--verbose"}, server.connections());
        QCOMPARE(verbose.out.count(QStringLiteral("  message ")), 25);
        QCOMPARE(verbose.out.count(QStringLiteral("[view drops] drop view")), 30);
        const Invocation quiet = invoke(kRun + QStringList{"--quiet"}, server.connections());
        QCOMPARE(quiet.out.split('\n', Qt::SkipEmptyParts).size(), 2);

        const QList<QJsonObject> lines = reportLines(report);
        QCOMPARE(lines.size(), 1 + 493 + 1);
        QCOMPARE(lines.first().value("version").toString(), programVersion());
        QCOMPARE(lines.first().value("target").toString(), QStringLiteral("the local default instance"));
        QVERIFY(QDateTime::fromString(lines[1].value("at").toString(), Qt::ISODateWithMs).isValid());
        QCOMPARE(lines.last().value("complete").toBool(), true);
        QCOMPARE(lines.last().value("outcome").toString(), QStringLiteral("completed with failures"));
    }

    void planNeverCommits()
    {
        ScriptedServer server;
        const QString stock = wholeRunFixtureStatements().filter("CREATE VIEW dbo.Stock ").value(0);
        server.failingStatements << stock;
        server.answers.insert("SELECT @@TRANCOUNT AS TranCount", singleColumn("TranCount", {"0"}));
        const Invocation plan = invoke({"plan", "--mode", "LOCAL", "--database", "QuorvexA"}, server.connections());
        QCOMPARE(plan.exit, 3);
        QVERIFY2(plan.out.contains("from statement #"), qPrintable(plan.out));
        const QStringList calls = server.calls();
        QCOMPARE(calls.mid(1, 1), QStringList{"autocommit off"});
        QCOMPARE(calls.last(), QStringLiteral("rollback"));
        QCOMPARE(calls.filter(QRegularExpression("commit", QRegularExpression::CaseInsensitiveOption)),
                 QStringList{"autocommit off"});
    }

    void planLeavesTheDatabaseAsItWas_data()
    {
        QTest::addColumn<bool>("runFirst");
        QTest::addColumn<int>("stopAfter"); // statements; 0 lets the plan end
        QTest::newRow("a new database") << false << 0;
        QTest::newRow("a database a run brought up to date") << true << 0;
        QTest::newRow("an interrupted plan") << false << 250;
    }

    void planLeavesTheDatabaseAsItWas()
    {
        QFETCH(bool, runFirst);
        QFETCH(int, stopAfter);
        const QString file = m_dir.filePath(QStringLiteral("plan-%1.db").arg(QTest::currentDataTag()));
        const QString odbc = QStringLiteral("DRIVER={SQLite3};Database=%1;LoadExt=%2").arg(file, QStringLiteral(ZRT_SQLITE_DBO));
        const QStringList plan{"plan", "--mode", "LOCAL", "--database", "QuorvexA", "--report", file + ".plan"};
        const QStringList run = kRun + QStringList{"--odbc", odbc, "--report", file + ".run"};
        QCOMPARE(invoke(run).exit, 3); // makes the files; SQLite refuses some statements
        if (!runFirst)
            QVERIFY(QFile::resize(file, 0) && QFile::resize(file + "-dbo", 0));
        const QByteArray before = fileBytes(file) + '|' + fileBytes(file + "-dbo");

        std::atomic<bool> stop = false;
        const Invocation planned = invoke(plan, [&] {
            return std::make_unique<StoppingConnection>(odbcConnectionsTo(odbc)(), stop, stopAfter ? stopAfter : -1);
        }, &stop);
        QCOMPARE(planned.exit, stopAfter ? 130 : 3);
        QCOMPARE(fileBytes(file) + '|' + fileBytes(file + "-dbo"), before);
        if (stopAfter)
            return;
        const Invocation ran = invoke(run + QStringList{"--json"});
        QCOMPARE(ran.exit, 3);
        QCOMPARE(outcomes(file + ".plan"), outcomes(file + ".run"));

        // Every statement is accounted for, the same way in the report and in what is printed.
        const QJsonObject counts = QJsonDocument::fromJson(ran.out.toUtf8())["counts"].toObject();
        const QStringList sent = outcomes(file + ".run");
        QCOMPARE(counts.value("sent").toInt(), sent.size());
        for (const QString &result : {"succeeded", "already existed", "not there to drop", "failed"})
            QCOMPARE(counts.value(result).toInt(), sent.filter(QRegularExpression("^" + result + " ")).size());
        // The six rebuilt tables are dropped first, so a second run makes them again.
        QCOMPARE(sent.filter(QRegularExpression("^succeeded CREATE TABLE")).size(), runFirst ? 6 : 26);
    }

    void runAllReportsEveryDatabase()
    {
        const QStringList names{"Quorvex a", "Quorvex_a", "Quorvex?a", "Quorvex年度", "Quorvex\x1b[31mB"};
        ScriptedServer server;
        listing(names)(server);
        server.refusedOpens << "Initial Catalog=Quorvex\x1b[31mB;";
        const QString dir = m_dir.filePath(QStringLiteral("fleet"));
        QVERIFY(QDir().mkpath(dir + "/005-Quorvex__31mB.jsonl")); // a folder where a report would go
        const Invocation all = invoke(kRunAll + QStringList{"--jobs", "2", "--report-dir", dir}, server.connections());
        QCOMPARE(all.exit, 4);
        const QStringList lines = all.out.split('\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 1 + 5 + 1);
        QVERIFY(all.out.contains("could not start: cannot open the database 'Quorvex\\x1B[31mB': refused\n"));
        QVERIFY(!all.out.contains(QChar(0x1b)));
        QVERIFY(lines.last().startsWith("5 databases: 4 completed, 1 could not start; 1972 statements sent"));
        QVERIFY2(all.err.contains("cannot write " + dir + "/005-Quorvex__31mB.jsonl"), qPrintable(all.err));

        const QJsonArray index = QJsonDocument::fromJson(fileBytes(dir + "/index.json")).object().value("databases").toArray();
        QCOMPARE(index.size(), 5);
        QStringList files;
        QStringList rows;
        for (qsizetype i = 0; i < index.size(); ++i) {
            const QJsonObject run = index[i].toObject();
            QCOMPARE(run.value("database").toString(), names[i]);
            files << run.value("report").toString();
            rows << escapedControls(names[i]) + " " + run.value("outcome").toString();
            if (i == 4)
                continue;
            const QJsonObject end = reportLines(dir + "/" + files.last()).last();
            QCOMPARE(end.value("outcome"), run.value("outcome"));
            QCOMPARE(end.value("counts"), run.value("counts"));
        }
        QCOMPARE(files, (QStringList{"001-Quorvex_a.jsonl", "002-Quorvex_a.jsonl", "003-Quorvex_a.jsonl",
                                     "004-Quorvex年度.jsonl", ""}));

        const QString dom = renderedDom(dir + "/index.html");
        QVERIFY2(!dom.isEmpty(), "chromium did not render the page: scripts/test.sh installs it");
        QStringList rendered;
        static const QRegularExpression row(R"(<td class="database">([^<]*)</td><td class="outcome">([^<]*)</td>)");
        for (const QRegularExpressionMatch &match : row.globalMatch(dom))
            rendered << match.captured(1) + " " + match.captured(2);
        QCOMPARE(rendered, rows);
    }

    void runAllStopsOnRequest()
    {
        std::atomic<int> statements = 0;
        std::atomic<bool> stop = false;
        ScriptedServer server;
        listing({"QuorvexA", "QuorvexB", "QuorvexC"})(server);
        server.heard = [&] {
            if (++statements == 1 + 600) // the listing's query, then into the second database's run
                stop = true;
        };
        const QString dir = m_dir.filePath(QStringLiteral("stopped"));
        const Invocation stopped =
            invoke(kRunAll + QStringList{"--jobs", "1", "--report-dir", dir}, server.connections(), &stop);
        QCOMPARE(stopped.exit, 130);
        // The statement under way finishes; none follows it.
        QCOMPARE(statements.load(), 601);
        QVERIFY(stopped.out.contains(QRegularExpression("QuorvexB +interrupted +107 sent")));
        QVERIFY(stopped.out.contains(QLatin1String("Not done: QuorvexC\n")));
        const QList<QJsonObject> partial = reportLines(dir + "/002-QuorvexB.jsonl");
        QCOMPARE(partial.size(), 1 + 107 + 1);
        QCOMPARE(partial.last().value("complete").toBool(true), false);
        QCOMPARE(QJsonDocument::fromJson(fileBytes(dir + "/index.json")).object().value("complete").toBool(true), false);
    }
};

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
