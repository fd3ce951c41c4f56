#include "catalogueanswers.h"
#include "commandinvocation.h"
#include "fleetdisplay.h"
#include "fleetjunit.h"
#include "fleetpage.h"
#include "printabletext.h"
#include "programversion.h"
#include "scriptfixture.h"
#include "tdslistener.h"
#include "testcertificate.h"

#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>

using ServerSetup = std::function<void(ScriptedServer &)>;
Q_DECLARE_METATYPE(ServerSetup)
Q_DECLARE_METATYPE(TdsListener::Script)

namespace {

const QString kLocalListing = QStringLiteral("Select name From sys.databases Where name like 'Quorvex%' Order By name");
const QStringList kRun{"run", "--mode", "LOCAL", "--database", "QuorvexA"};
const QStringList kRunAll{"run", "--all", "--mode", "LOCAL", "--server", "S"};
// How the query naming a lock's holders begins.
const QString kLockHolders = QStringLiteral("SELECT TOP (3) s.session_id");

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

ServerSetup refusal(const DbStatus &status)
{
    return [=](ScriptedServer &server) { server.openRefusal = status; };
}

// The JSON with the value at `path` set (an array's next place appends), or
// removed when the value is undefined.
QJsonValue editedJson(const QJsonValue &json, QStringList path, const QJsonValue &value)
{
    if (path.isEmpty())
        return value;
    const QString key = path.takeFirst();
    if (json.isArray()) {
        QJsonArray array = json.toArray();
        if (key.toInt() == array.size())
            array.append(QJsonValue());
        array[key.toInt()] = editedJson(array[key.toInt()], path, value);
        return array;
    }
    QJsonObject object = json.toObject();
    if (path.isEmpty() && value.isUndefined())
        object.remove(key);
    else
        object[key] = editedJson(object[key], path, value);
    return object;
}

ServerSetup failing(const QString &statement, const DbStatus &status)
{
    return [=](ScriptedServer &server) { server.failingWith.insert(statement, status); };
}

// What a headless Chromium makes of the page with `asked` (the DOM with
// --dump-dom); empty without Chromium.
QString chromium(const QString &page, const QString &asked)
{
    const QString browser = QStandardPaths::findExecutable(QStringLiteral("chromium"));
    if (browser.isEmpty())
        return QString();
    QTemporaryDir profile;
    QProcess process;
    process.start(browser, {"--headless", "--no-sandbox", "--disable-gpu", "--no-first-run", "--hide-scrollbars",
                            "--disable-background-networking", "--disable-component-update", "--disable-sync",
                            "--window-size=1400,1000", "--user-data-dir=" + profile.path(), asked,
                            QUrl::fromLocalFile(page).toString()});
    process.waitForFinished(60000);
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString renderedDom(const QString &page)
{
    return chromium(page, QStringLiteral("--dump-dom"));
}

// What a JUnit file holds: its suites' and its cases' names, and each failed
// or skipped case as "CASE failure: MESSAGE\nTEXT".
struct JUnitRead
{
    QStringList suites;
    QStringList cases;
    QStringList problems;
    QString error;
};

JUnitRead readJunit(const QString &path)
{
    QXmlStreamReader xml(fileBytes(path));
    JUnitRead read;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString name = xml.attributes().value(xml.name() == QLatin1String("testsuite") ? "name" : "message").toString();
        if (xml.name() == QLatin1String("testsuite"))
            read.suites << name;
        else if (xml.name() == QLatin1String("testcase"))
            read.cases << xml.attributes().value("name").toString();
        else if (xml.name() == QLatin1String("failure") || xml.name() == QLatin1String("skipped"))
            read.problems << read.cases.last() + " " + xml.name().toString() + ": " + name + "\n" + xml.readElementText();
    }
    read.error = xml.hasError() ? xml.errorString() : QString();
    if (read.suites.isEmpty() && read.error.isEmpty())
        read.error = QStringLiteral("no test suite in ") + path;
    return read;
}

// Sends through `connection` and asks the run to stop once `after` statements
// were sent. SQLite keeps its transaction through a failed statement, which
// only SQL Server is asked about: the test answers for it.
class StoppingConnection : public Connection
{
public:
    StoppingConnection(std::unique_ptr<Connection> connection, std::atomic<bool> &stop, int after)
        : m_connection(std::move(connection)), m_stop(stop), m_after(after)
    {
    }
    DbStatus open(const QString &connectionString) override { return m_connection->open(connectionString); }
    DbStatus execute(const QString &sql) override { return counted(m_connection->execute(sql)); }
    DbStatus query(const QString &sql, ResultSet &into) override
    {
        if (sql != QLatin1String("SELECT @@TRANCOUNT AS TranCount"))
            return counted(m_connection->query(sql, into));
        into = singleColumn("TranCount", {"1"});
        return DbStatus::success();
    }
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
    const QString m_linked = m_dir.filePath(QStringLiteral("linked"));
    const QString m_link = m_dir.filePath(QStringLiteral("link"));

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        QCOMPARE(QProcess::execute("mkfifo", {m_fifo}), 0);
        QFile linked(m_linked);
        QVERIFY(linked.open(QIODevice::WriteOnly) && linked.write("kept") == 4);
        linked.close();
        QVERIFY(QFile::link(m_linked, m_link));
        qputenv("ZRT_TEST_AT_1500", "DRIVER={FreeTDS};Server=tcp:127.0.0.1;PORT=1500;PWD=secret");
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
        QTest::newRow("a folder as --output") << QStringList{"script", "--output", m_dir.path()} << "not a regular file";
        QTest::newRow("a link as --report") << kRun + QStringList{"--report", m_link} << "is a symbolic link";
        QTest::newRow("a link as --junit") << kRun + QStringList{"--junit", m_link} << "cannot write --junit " + m_link;
        QTest::newRow("a link as --report-dir") << kRunAll + QStringList{"--report-dir", m_link} << "is a symbolic link";
        QTest::newRow("a folder that cannot be made") << kRunAll + QStringList{"--report-dir", m_fifo + "/x"} << "cannot make";
        QTest::newRow("a second server in --server")
            << QStringList{"list", "--mode", "LOCAL", "--server", "h;Data Source=127.0.0.1,1"} << "holds one of ; { } =";
        QTest::newRow("a brace in --server with --all") << kRunAll.mid(0, 5) + QStringList{"S}"} << "holds one of ; { } =";
        QTest::newRow("a semicolon in --server") << kRun + QStringList{"--server", "S;x"} << "holds one of ; { } =";
        QTest::newRow("--odbc naming another database")
            << kRun + QStringList{"--odbc", "DRIVER={FreeTDS};Database={QuorvexB}"} << "names the database 'QuorvexB'";
        QTest::newRow("a FIFO as --report") << kRun + QStringList{"--report", m_fifo} << "not a regular file";
        QTest::newRow("a file as --report-dir") << kRunAll + QStringList{"--report-dir", m_fifo} << "is not a folder";
        QTest::newRow("a negative --statement-timeout") << QStringList{"plan", "--mode", "LOCAL", "--database", "Q",
                                                                       "--statement-timeout", "-1"} << "-1";
        QTest::newRow("ZRT_ODBC in ONLINE mode") << QStringList{"run", "--mode", "ONLINE", "--database", "Q", "ZRT_ODBC"}
                                                 << "ZRT_ODBC go with";
        QTest::newRow("run --all: no server") << QStringList{"run", "--all", "--mode", "LOCAL"} << "zrt run: missing --server";
        QTest::newRow("--fleet with --mode") << QStringList{"check", "--fleet", "f", "--mode", "LOCAL"} << "--mode does not go";
        QTest::newRow("--retry of a folder without an index") << QStringList{"plan", "--retry", m_dir.path()} << "no index.json";
        QTest::newRow("run --all: --jobs 0") << kRunAll + QStringList{"--jobs", "0", "--report-dir", missingDir} << "--jobs";
        QTest::newRow("--max-failures 0") << kRunAll + QStringList{"--max-failures", "0"} << "--max-failures";
        QTest::newRow("run --all: with --database") << kRunAll + QStringList{"--database", "Q"} << "--database";
        QTest::newRow("an option given twice") << kRunAll + QStringList{"--jobs", "2", "--jobs", "3"}
                                               << "zrt run: --jobs is given more than once";
        QTest::newRow("a switch given twice") << QStringList{"list", "--mode", "LOCAL", "--server", "S", "--json", "--json"}
                                              << "--json is given more than once";
        QTest::newRow("a name longer than SQL Server's") << QStringList{"check", "--mode", "LOCAL", "--database", QString(129, 'Q')}
                                                         << "is no database's name: it is longer than the 128";
        QTest::newRow("--retry of an --all folder with --fleet and --mode")
            << QStringList{"run", "--retry", m_dir.path(), "--fleet", "f", "--mode", "LOCAL"} << "--mode does not go with --fleet";
        QTest::newRow("a negative --lock-retries") << kRun + QStringList{"--lock-retries", "-1"}
                                                   << "zrt run: --lock-retries needs a whole number from 0 up, not '-1'";
        QTest::newRow("check: --lock-wait as text") << QStringList{"check", "--mode", "LOCAL", "--database", "Q", "--lock-wait", "x"}
                                                    << "zrt check: --lock-wait needs a whole number from 0 up";
        QTest::newRow("check: no --lock-timeout") << QStringList{"check", "--mode", "LOCAL", "--database", "Q", "--lock-timeout", "1"}
                                                  << "Unknown option 'lock-timeout'";
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
        QCOMPARE(fileBytes(m_linked), QByteArray("kept"));
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
        DbStatus unreachableServer = DbStatus::failure("Unable to connect");
        unreachableServer.sqlState = "08001";
        const DbStatus loginRefused = DbStatus::failure("Login failed", 18456);
        DbStatus lost = DbStatus::failure("Communication link %1 failure");
        lost.connectionLost = true;
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
        QTest::newRow("list: unreachable") << QStringList{"list", "--mode", "LOCAL", "--server", "S"}
                                           << refusing(unreachable, refusal(unreachableServer)) << false << 4
                                           << "zrt list: cannot reach server S: Unable to connect\n";
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
        QTest::newRow("run: database missing") << kRun << refusing(refuseA) << false << 4
                                               << "the database 'QuorvexA' is missing on the local default instance: "
                                                  "refused; give --create-at";
        QTest::newRow("run: unreachable") << kRun + QStringList{"--server", "S"} << refusing(unreachable, refusal(unreachableServer))
                                          << false << 4 << "could not start: cannot reach server S: Unable to connect\n";
        QTest::newRow("plan: login refused") << QStringList{"plan", "--mode", "LOCAL", "--database", "QuorvexA"}
                                             << refusing(unreachable, refusal(loginRefused)) << false << 4
                                             << "zrt plan: could not start: the local default instance refused the login: "
                                                "Login failed\n";
        QTest::newRow("run: connection lost")
            << kRun << failing(stock, lost) << true << 3
            << "connection lost after statement #" + QString::number(wholeRun.indexOf(stock) + 1)
                   + ": Communication link %1 failure; " + QString::number(wholeRun.size() - wholeRun.indexOf(stock) - 1)
                   + " statements not sent\n";
        QTest::newRow("run: connection lost before anything was applied")
            << kRun << failing(wholeRun.first(), lost) << true << 4 << "after statement #1: Communication link %1 failure";
        QTest::newRow("run: unreachable, --create-at") << kRun + QStringList{"--create-at", "/srv/QuorvexA"}
                                                       << refusing(unreachable) << false << 4 << "could not start";
        QTest::newRow("run: ONLINE elsewhere") << QStringList{"run", "--mode", "ONLINE", "--database", "Q", "--server", "X"}
                                               << none << false << 4 << "no connection was opened";
        QTest::newRow("run --json: cannot open") << kRun + QStringList{"--json"} << refusing(refuseA) << false << 4
                                                 << "\"outcome\":\"could not start\"";
        QTest::newRow("run --all: one could not start") << kRunAll << refusing(refuseA, two) << true << 4
                                                        << "2 databases: 1 completed, 1 could not start;";
        QTest::newRow("run --all: unreachable") << kRunAll << refusing(unreachable, refusal(unreachableServer)) << false << 4
                                                << "zrt run: cannot reach server S: Unable to connect\n";
        QTest::newRow("run --all --json") << kRunAll + QStringList{"--json"} << two << true << 0
                                          << "\"byOutcome\":[{\"databases\":2,\"outcome\":\"completed\"}]";
        QTest::newRow("run --all --quiet: failures only") << kRunAll + QStringList{"--jobs", "1", "--quiet"}
                                                          << refusing(refuseA, two) << true << 4
                                                          << "2 databases: 1 completed, 1 could not start";
        QTest::newRow("run --all --verbose: failures by message")
            << kRunAll + QStringList{"--verbose"}
            << ServerSetup([=](ScriptedServer &s) { s.failingWith.insert(stock, DbStatus::failure("Invalid column name 'Type'.", 207)); two(s); })
            << true << 3 << " s\n             1  Invalid column name 'Type'.\n";
        QTest::newRow("run --all --max-failures 1: nothing starts after a failure")
            << kRunAll + QStringList{"--jobs", "1", "--max-failures", "1"}
            << refusing(refuseA, refusing("Initial Catalog=QuorvexB;", listing({"QuorvexA", "QuorvexB", "QuorvexC"})))
            << false << 4 << "Not started: QuorvexB, QuorvexC\n3 databases: 1 could not start, 2 not started;";
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
                                           << "a run would create it by: CREATE DATABASE [Q]  ON (NAME = N'Quorvex KRN', FILENAME = N'/srv/Q.mdf')";
        QTest::newRow("plan --all") << QStringList{"plan", "--all", "--mode", "LOCAL", "--server", "S"} << two << true << 0
                                    << "2 databases previewed, nothing kept: 2 completed";
        QTest::newRow("check: matches") << check << ServerSetup([](ScriptedServer &s) { answerCatalogue(s, whatARunLeaves()); })
                                        << false << 0 << "\nmatches\n";
        QTest::newRow("check: differs") << check << none << false << 1 << "Stock (source table missing: tblStock)\n87 diff";
        QTest::newRow("check: database missing") << check << refusing(refuseA) << false << 4 << "the database 'QuorvexA' is missing";
        QTest::newRow("check --all: unreachable") << checkAll << refusing(unreachable, refusal(unreachableServer)) << false << 4
                                                  << "zrt check: cannot reach server S: Unable to connect\n";
        QTest::newRow("check --all --jobs 2") << checkAll + QStringList{"--jobs", "2"} << refusing("Initial Catalog=QuorvexB;", two) << false << 4
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
        QCOMPARE(quiet.out.split('\n', Qt::SkipEmptyParts).size(), 3); // header, no application locks, outcome

        const QList<QJsonObject> lines = reportLines(report);
        QCOMPARE(lines.size(), 1 + 493 + 1);
        QCOMPARE(lines.first().value("version").toString(), programVersion());
        QCOMPARE(lines.first().value("target").toString(), QStringLiteral("the local default instance"));
        QVERIFY(QDateTime::fromString(lines[1].value("at").toString(), Qt::ISODateWithMs).isValid());
        QCOMPARE(lines.last().value("complete").toBool(), true);
        QCOMPARE(lines.last().value("outcome").toString(), QStringLiteral("completed with failures"));
    }

    void junitTellsEachPhase_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<ServerSetup>("setup");
        QTest::addColumn<QString>("suite");
        QTest::addColumn<QStringList>("problems"); // each failed or skipped case, how its element begins
        const QStringList wholeRun = wholeRunFixtureStatements();
        const QString stock = wholeRun.filter("CREATE VIEW dbo.Stock ").value(0);
        const ServerSetup none = [](ScriptedServer &) {};
        DbStatus lost = DbStatus::failure("Communication link %1 failure\x1b[2J");
        lost.connectionLost = true;
        QTest::newRow("a clean run") << kRun << none << "zrt run QuorvexA" << QStringList();
        QTest::newRow("one statement failed unexpectedly")
            << kRun << failing(stock, DbStatus::failure("Invalid column name 'Type'.\x1b[2J", 207)) << "zrt run QuorvexA"
            << QStringList{"view creates failure: 1 of 62 statements failed unexpectedly, timed out or were blocked\n"
                           "     1  Invalid column name 'Type'.\\x1B[2J\n        #"};
        QTest::newRow("the connection was lost")
            << kRun << failing(stock, lost) << "zrt run QuorvexA"
            << QStringList{"view creates failure: connection lost after statement #" + QString::number(wholeRun.indexOf(stock) + 1)
                               + ": Communication link %1 failure\\x1B[2J; "
                               + QString::number(wholeRun.size() - wholeRun.indexOf(stock) - 1) + " statements not sent\n",
                           "chart of accounts skipped: not sent: connection lost"};
        QTest::newRow("a preview") << QStringList{"plan", "--mode", "LOCAL", "--database", "QuorvexA"} << none
                                   << "zrt plan QuorvexA (preview, rolled back)" << QStringList();
    }

    void junitTellsEachPhase()
    {
        QFETCH(QStringList, arguments);
        QFETCH(ServerSetup, setup);
        QFETCH(QString, suite);
        QFETCH(QStringList, problems);
        ScriptedServer server;
        setup(server);
        const QString path = m_dir.filePath(QStringLiteral("junit.xml"));
        invoke(arguments + QStringList{"--junit", path}, server.connections());
        const JUnitRead junit = readJunit(path);
        QVERIFY2(junit.error.isEmpty(), qPrintable(junit.error));
        QCOMPARE(junit.suites, QStringList{suite});
        QCOMPARE(junit.cases, (QStringList{"open the database", "rebuilt table drops", "tables", "view drops", "view creates",
                                           "chart of accounts"}));
        QCOMPARE(junit.problems.size(), problems.size());
        for (qsizetype i = 0; i < problems.size(); ++i)
            QVERIFY2(junit.problems[i].startsWith(problems[i]), qPrintable(junit.problems[i]));
    }

    void terminalOutput_data()
    {
        QTest::addColumn<QByteArray>("noColor"); // NO_COLOR's value; null: not set
        QTest::addColumn<bool>("coloured");
        QTest::newRow("a terminal") << QByteArray() << true;
        QTest::newRow("a terminal, NO_COLOR set empty: it counts only with a value") << QByteArray("") << true;
        QTest::newRow("a terminal, NO_COLOR=1") << QByteArray("1") << false;
    }

    void terminalOutput()
    {
        QFETCH(QByteArray, noColor);
        QFETCH(bool, coloured);
        if (!noColor.isNull())
            qputenv("NO_COLOR", noColor);
        ScriptedServer server;
        const Invocation run = invoke(kRun, server.connections(), nullptr, nullptr, true);
        listing({"QuorvexA"})(server);
        const Invocation all = invoke(kRunAll, server.connections(), nullptr, nullptr, true);
        qunsetenv("NO_COLOR");
        QVERIFY2(all.out.contains(coloured ? "  \x1b[32mcompleted      " : "  completed      "), qPrintable(all.out));
        QVERIFY2(run.out.endsWith(coloured ? "\x1b[32mcompleted\x1b[0m: 493 statements, none failed unexpectedly\n"
                                                    : "\ncompleted: 493 statements, none failed unexpectedly\n"),
                 qPrintable(run.out));
        QVERIFY2(run.err.contains("] view creates 80%"), qPrintable(run.err));
    }

    void planStopsWhereItsTransactionEnds_data()
    {
        QTest::addColumn<QString>("tranCount"); // what the server says after an unexpected failure; empty: it fails
        QTest::addColumn<bool>("stops");
        QTest::newRow("the server ended the transaction") << "0" << true;
        QTest::newRow("the server will not say") << "" << true;
        QTest::newRow("the transaction is still open") << "1" << false;
    }

    void planStopsWhereItsTransactionEnds()
    {
        QFETCH(QString, tranCount);
        QFETCH(bool, stops);
        const QString probe = QStringLiteral("SELECT @@TRANCOUNT AS TranCount");
        const QStringList wholeRun = wholeRunFixtureStatements();
        const QString stock = wholeRun.filter("CREATE VIEW dbo.Stock ").value(0);
        ScriptedServer server;
        server.failingStatements << stock;
        if (tranCount.isEmpty())
            server.failingStatements << probe;
        else
            server.answers.insert(probe, singleColumn("TranCount", {tranCount}));
        const Invocation plan = invoke({"plan", "--mode", "LOCAL", "--database", "QuorvexA"}, server.connections());
        QCOMPARE(plan.exit, 3);
        QCOMPARE(plan.out.contains(QStringLiteral("preview stopped, nothing more sent to the database, after statement #%1")
                                       .arg(wholeRun.indexOf(stock) + 1)),
                 stops);
        // After the failing statement: the question, then nothing more but the rollback.
        const QStringList calls = server.calls();
        const QStringList after = calls.mid(calls.indexOf("execute " + stock) + 1);
        QCOMPARE(after.mid(0, 1), QStringList{"query " + probe});
        QCOMPARE(after.size() == 2, stops);
        QCOMPARE(calls.mid(1, 1), QStringList{"autocommit off"});
        QCOMPARE(calls.filter(QRegularExpression("commit", QRegularExpression::CaseInsensitiveOption)),
                 QStringList{"autocommit off"});
        QCOMPARE(calls.last(), QStringLiteral("rollback"));
    }

    // A refusal of its locks ends no transaction, but a preview asks before
    // each try: nothing is sent outside it.
    void planSendsAgainOnlyInsideItsTransaction_data()
    {
        QTest::addColumn<QString>("tranCount");
        QTest::addColumn<int>("sends");
        QTest::newRow("open") << "1" << 6;
        QTest::newRow("ended") << "0" << 1;
    }

    void planSendsAgainOnlyInsideItsTransaction()
    {
        QFETCH(QString, tranCount);
        QFETCH(int, sends);
        const QString probe = QStringLiteral("SELECT @@TRANCOUNT AS TranCount");
        const QString drop = QStringLiteral("drop table [dbo].[tblKWClientInfo]");
        ScriptedServer server;
        server.failingWith.insert(drop, DbStatus::failure("Lock request time out period exceeded.", 1222));
        server.answers.insert(probe, singleColumn("TranCount", {tranCount}));
        int pauses = 0;
        const Invocation plan = invoke({"plan", "--mode", "LOCAL", "--database", "QuorvexA"}, server.connections(), nullptr,
                                       nullptr, false, [&pauses](std::chrono::milliseconds) { return ++pauses > 0; });
        QCOMPARE(plan.exit, 3);
        QCOMPARE(pauses, sends - 1);
        const QStringList calls = server.calls();
        QCOMPARE(calls.filter("execute " + drop).size(), sends);
        QStringList beforeEachTry;
        for (qsizetype i = calls.indexOf("execute " + drop) + 1; i < calls.size(); ++i) {
            if (calls[i] == "execute " + drop)
                beforeEachTry << calls[i - 1];
        }
        QCOMPARE(beforeEachTry, QStringList(sends - 1, "query " + probe));
        QVERIFY2(plan.out.contains(sends == 1 ? "preview stopped" : "1  blocked: Lock request time out period exceeded."),
                 qPrintable(plan.out));
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
        const QStringList plan{"plan", "--mode", "LOCAL", "--database", file, "--report", file + ".plan"};
        const QStringList run{"run", "--mode", "LOCAL", "--database", file, "--odbc", odbc, "--report", file + ".run"};
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
        for (const auto &[key, result] : {std::pair("succeeded", "succeeded"), {"alreadyExisted", "already existed"},
                                          {"notThereToDrop", "not there to drop"}, {"failed", "failed"}})
            QCOMPARE(counts.value(key).toInt(), sent.filter(QRegularExpression(QLatin1String("^") + result + " ")).size());
        // The six rebuilt tables are dropped first, so a second run makes them again.
        QCOMPARE(sent.filter(QRegularExpression("^succeeded CREATE TABLE")).size(), runFirst ? 6 : 26);
    }

    void runAllReportsEveryDatabase()
    {
        const QStringList names{"Quorvex a", "Quorvex_a", "Quorvex<a&", "Quorvex年度", "Quorvex\x1b[31mB",
                                "Quorvex" + QString(121, 'x')};
        ScriptedServer server;
        // Past SQL Server's 128 characters: no name, left alone.
        listing(names + QStringList{"Quorvex" + QString(122, 'y')})(server);
        server.refusedOpens << "Initial Catalog=Quorvex\x1b[31mB;";
        const QString dir = m_dir.filePath(QStringLiteral("fleet"));
        const Invocation all = invoke(kRunAll + QStringList{"--jobs", "2", "--report-dir", dir}, server.connections());
        QCOMPARE(all.exit, 4);
        QVERIFY2(all.err.contains("server S lists a database that is left alone: 'Quorvex" + QString(122, 'y')
                                  + "': it is longer than the 128 characters SQL Server allows\n"),
                 qPrintable(all.err));
        for (const QStringList &log : server.logs())
            QVERIFY(log.filter(QString(122, 'y')).isEmpty());
        const QString folder = invocationFolders(dir).value(0);
        const QStringList lines = all.out.split('\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.mid(1, 1), QStringList{"Reports in " + folder});
        QCOMPARE(lines.size(), 2 + 1 + 6 + 1); // the scripted engine has no application locks: said once
        QVERIFY(all.out.contains("could not start: the database 'Quorvex\\x1B[31mB' is missing on server S: refused\n"));
        QVERIFY(!all.out.contains(QChar(0x1b)));
        QVERIFY(lines.last().startsWith("6 databases: 5 completed, 1 could not start; 2465 statements sent"));

        const QJsonArray index = QJsonDocument::fromJson(fileBytes(folder + "/index.json")).object().value("databases").toArray();
        QCOMPARE(index.size(), 6);
        QStringList files;
        QStringList rows;
        for (qsizetype i = 0; i < index.size(); ++i) {
            const QJsonObject run = index[i].toObject();
            QCOMPARE(run.value("database").toString(), names[i]);
            files << run.value("report").toString();
            rows << escapedControls(names[i]).toHtmlEscaped() + " " + run.value("outcome").toString();
            const QJsonObject end = reportLines(folder + "/" + files.last()).last();
            QCOMPARE(end.value("outcome"), run.value("outcome"));
            QCOMPARE(end.value("counts"), run.value("counts"));
        }
        QCOMPARE(files, (QStringList{"001-Quorvex_a.jsonl", "002-Quorvex_a.jsonl", "003-Quorvex_a_.jsonl",
                                     "004-Quorvex年度.jsonl", "005-Quorvex__31mB.jsonl", "006-Quorvex" + QString(53, 'x') + ".jsonl"}));

        const QString dom = renderedDom(folder + "/index.html");
        QVERIFY2(!dom.isEmpty(), "chromium did not render the page: scripts/test.sh installs it");
        QStringList rendered;
        static const QRegularExpression row(
            R"(<td class="database">([^<]*)</td><td class="server">S</td><td class="outcome"[^>]*>([^<]*)</td>)");
        for (const QRegularExpressionMatch &match : row.globalMatch(dom))
            rendered << match.captured(1) + " " + match.captured(2);
        // The failures first.
        std::stable_partition(rows.begin(), rows.end(), [](const QString &row) { return row.endsWith("could not start"); });
        QCOMPARE(rendered, rows);
    }

    void aStoppedFleetTellsWhatFailed()
    {
        // QuorvexA completes, a statement of QuorvexB times out, QuorvexC is
        // stopped part-way and QuorvexD is never begun.
        const QStringList wholeRun = wholeRunFixtureStatements();
        const QString stock = wholeRun.filter("CREATE VIEW dbo.Stock ").value(0);
        std::atomic<int> statements = 0;
        std::atomic<bool> stop = false;
        ScriptedServer server;
        listing({"QuorvexA", "QuorvexB", "QuorvexC", "QuorvexD"})(server);
        server.heard = [&] {
            // One database at a time on one thread: the listing's query, then each run's statements.
            const int heard = ++statements;
            if (heard == 1 + 493)
                server.failingWith.insert(stock, {false, "Query timeout expired", 0, true});
            if (heard == 1 + 2 * 493)
                server.failingWith.clear();
            if (heard == 1 + 2 * 493 + 107)
                stop = true;
        };
        const QString dir = m_dir.filePath(QStringLiteral("stopped"));
        const Invocation stopped =
            invoke(kRunAll + QStringList{"--jobs", "1", "--report-dir", dir}, server.connections(), &stop);
        const QString folder = invocationFolders(dir).value(0);
        QCOMPARE(stopped.exit, 130);
        // The statement under way finishes; none follows it.
        QCOMPARE(statements.load(), 1 + 2 * 493 + 107);
        QVERIFY(stopped.out.contains(QRegularExpression("QuorvexC +interrupted +107 sent")));
        QVERIFY(stopped.out.contains(QLatin1String("Not done: QuorvexD\n")));
        const QJsonObject index = QJsonDocument::fromJson(fileBytes(folder + "/index.json")).object();
        QCOMPARE(index["databases"][2]["counts"]["notSent"].toInt(), 493 - 107);
        QCOMPARE(index.value("complete").toBool(true), false);
        const QList<QJsonObject> partial = reportLines(folder + "/003-QuorvexC.jsonl");
        QCOMPARE(partial.size(), 1 + 107 + 1);
        QCOMPARE(partial.last().value("complete").toBool(true), false);

        const QString dom = renderedDom(folder + "/index.html");
        QVERIFY2(!dom.isEmpty(), "chromium did not render the page: scripts/test.sh installs it");
        QVERIFY(chromium(folder + "/index.html", "--screenshot=" + m_dir.filePath("fleet-page.png")).isEmpty());
        QVERIFY(QFileInfo(m_dir.filePath("fleet-page.png")).size() > 0);
        for (const QString &shown :
             {QString("<th>Databases</th><td>4: <span class=\"completed\">1 completed</span>, <span class=\"completed-with-failures\">1 "
              "completed with failures</span>, <span class=\"interrupted\">1 interrupted</span>, <span class=\"not-done\">1 "
              "not done</span></td>"),
              QStringLiteral("<th>Statements sent</th><td>%1</td>").arg(2 * 493 + 107),
              QString("<th>Statements failed unexpectedly, timed out or blocked</th><td>1</td>"),
              QString("<li>1× timed out: Query timeout expired</li>"),
              QStringLiteral("<td class=\"number\" data-sort=\"%1\">%1</td><td>view creates</td><td>timed out: Query timeout expired</td>")
                  .arg(wholeRun.indexOf(stock) + 1),
              QString("<li>stopped after statement #107; 386 statements not sent</li>"),
              QString("<li>not begun: the invocation was stopped before its turn</li>")})
            QVERIFY2(dom.contains(shown), qPrintable(shown));
        // The failures first, each linked to its failed statements.
        static const QRegularExpression database("<td class=\"database\">(<a href=\"#db-\\d\">)?(\\w+)");
        QStringList rows;
        for (const QRegularExpressionMatch &match : database.globalMatch(dom))
            rows << match.captured(1) + match.captured(2);
        QCOMPARE(rows, (QStringList{"<a href=\"#db-2\">QuorvexB", "QuorvexC", "QuorvexD", "QuorvexA"}));
        QVERIFY(dom.contains("<section id=\"db-2\"><h3>QuorvexB on S: "));

        const JUnitRead junit = readJunit(folder + "/junit.xml");
        QVERIFY2(junit.error.isEmpty(), qPrintable(junit.error));
        QCOMPARE(junit.suites, QStringList{"zrt run on S"});
        QCOMPARE(junit.cases, (QStringList{"QuorvexA", "QuorvexB", "QuorvexC", "QuorvexD"}));
        QCOMPARE(junit.problems.size(), 3);
        QVERIFY2(junit.problems[0].startsWith("QuorvexB failure: completed with failures: 1 of 493 statements failed "
                                              "unexpectedly, timed out or were blocked\n1× timed out: Query timeout expired\n#"),
                 qPrintable(junit.problems[0]));
        QVERIFY2(junit.problems[1].startsWith("QuorvexC failure: interrupted: stopped after statement #107"), qPrintable(junit.problems[1]));
        QVERIFY2(junit.problems[2].startsWith("QuorvexD skipped: not done: not begun"), qPrintable(junit.problems[2]));
    }

    // Where each outcome puts a database: on the page among the failed, the
    // left undone or the done; in the JUnit file as a failed, skipped or passed case.
    void fleetDocumentsPlaceEachOutcome_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("outcome");
        QTest::addColumn<QString>("junit");    // how its case ends: "failure", "skipped", or empty: passed
        QTest::addColumn<QString>("rows");     // the page's order of X (this outcome), U (interrupted), D (done)
        QTest::newRow("completed") << "run" << "completed" << "" << "UDX";
        QTest::newRow("completed with failures") << "run" << "completed with failures" << "failure" << "XUD";
        QTest::newRow("could not start") << "run" << "could not start" << "failure" << "XUD";
        QTest::newRow("not done") << "run" << "not done" << "skipped" << "UXD";
        QTest::newRow("not started") << "run" << "not started" << "skipped" << "UXD";
        QTest::newRow("busy: another run held the database") << "run" << "busy" << "skipped" << "UXD";
        QTest::newRow("check: matches") << "check" << "matches" << "" << "UDX";
        QTest::newRow("check: differs") << "check" << "differs" << "failure" << "XUD";
    }

    void fleetDocumentsPlaceEachOutcome()
    {
        QFETCH(QString, command);
        QFETCH(QString, outcome);
        QFETCH(QString, junit);
        QFETCH(QString, rows);
        QJsonArray failures, databases;
        for (int message = 1; message <= 5; ++message)
            failures.append(QJsonObject{{"count", 1}, {"message", QString::number(message)}});
        for (const auto &[name, ended] : QList<std::pair<QString, QString>>{
                 {"D", command == "check" ? "matches" : "completed"}, {"U", "interrupted"}, {"X", outcome}})
            databases.append(QJsonObject{{"database", name}, {"server", "S"}, {"mode", "LOCAL"}, {"outcome", ended}, {"failures", failures}});
        const QJsonObject index{{"command", command},
                                {"servers", QJsonArray{QJsonObject{{"server", "S"}, {"mode", "LOCAL"}},
                                                       QJsonObject{{"server", "T"}, {"mode", "LOCAL"}, {"error", "unlisted"}}}},
                                {"databases", databases}};
        const QString page = QString::fromUtf8(fleetPage(index));
        static const QRegularExpression database("<td class=\"database\">(?:<a [^>]*>)?(\\w)<");
        QString order;
        for (const QRegularExpressionMatch &match : database.globalMatch(page))
            order += match.captured(1);
        QCOMPARE(order, rows);
        QVERIFY(page.contains("<li>1× 3</li><li>and 2 more messages</li>"));
        const QString path = m_dir.filePath(QStringLiteral("outcomes.xml"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(fleetJunit(index)) > 0);
        file.close();
        QStringList problems{"U failure: interrupted", "X " + junit + ": " + outcome, "list the databases failure: unlisted"};
        if (junit.isEmpty())
            problems.removeAt(1);
        QStringList found = readJunit(path).problems;
        for (QString &problem : found)
            problem = problem.section(QRegularExpression("[:\\n]"), 0, 1);
        QCOMPARE(found, problems);
    }

    void aPreviewFleetSaysSo()
    {
        ScriptedServer server;
        listing({"QuorvexA", "QuorvexB"})(server);
        const QString dir = m_dir.filePath(QStringLiteral("previewed"));
        const Invocation plan = invoke({"plan", "--all", "--mode", "LOCAL", "--server", "S", "--report-dir", dir}, server.connections());
        const QString folder = invocationFolders(dir).value(0);
        QCOMPARE(plan.exit, 0);
        QVERIFY2(plan.out.contains(QRegularExpression("QuorvexB +would end completed +493 sent +0 failed +\\d+\\.\\d s  would create "
                                                      "20 tables, add 0 columns, widen 6 columns, discard 0 rows\n")),
                 qPrintable(plan.out));
        QVERIFY(QJsonDocument::fromJson(fileBytes(folder + "/index.json"))["preview"].toBool());

        const QString dom = renderedDom(folder + "/index.html");
        QVERIFY(chromium(folder + "/index.html", "--screenshot=" + m_dir.filePath("fleet-page-preview.png")).isEmpty());
        for (const char *shown : {"<title>zrt plan on S (LOCAL) (preview, rolled back)</title>",
                                  "<p class=\"banner\">Preview: every database's statements were rolled back",
                                  "<th>Statements sent (rolled back)</th>",
                                  "<td class=\"outcome\" data-sort=\"2\">would end completed</td>",
                                  "<td>would create 20 tables, add 0 columns, widen 6 columns, discard 0 rows</td>"})
            QVERIFY2(dom.contains(QLatin1String(shown)), shown);
        QCOMPARE(readJunit(folder + "/junit.xml").suites, QStringList{"zrt plan on S (preview, rolled back)"});
    }

    void theDatabasesConnectionString_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QByteArray>("environment"); // ZRT_ODBC
        QTest::addColumn<QString>("target");         // as the header names it
        QTest::addColumn<int>("statementSeconds");
        const QByteArray secret = "DRIVER={Nothing};UID=e;PWD=e;Password={a;b}}c};pwd=z";
        const QString masked = "ODBC DRIVER={Nothing};UID=e;PWD=****;Password=****;pwd=****";
        QTest::newRow("ZRT_ODBC without --server") << QStringList() << secret << masked << 30;
        QTest::newRow("--server before ZRT_ODBC") << QStringList{"--server", "S"} << secret << "server S" << 30;
        QTest::newRow("--odbc before ZRT_ODBC") << QStringList{"--odbc", "DSN=x;PWD=y"} << secret << "ODBC DSN=x;PWD=****" << 30;
        QTest::newRow("a malformed password keyword") << QStringList{"--odbc", "DSN=x;PWD{=b}c;{Password} = b}c;UID=u"} << secret
                                                      << "ODBC DSN=x;PWD{=****;{Password} = ****;UID=u" << 30;
        QTest::newRow("no server at all") << QStringList() << QByteArray() << "the local default instance" << 30;
        QTest::newRow("statements may wait for ever")
            << QStringList{"--statement-timeout", "0"} << QByteArray() << "the local default instance" << 0;
        QTest::newRow("statements bounded as asked")
            << QStringList{"--statement-timeout", "7"} << QByteArray() << "the local default instance" << 7;
    }

    void theDatabasesConnectionString()
    {
        QFETCH(QStringList, options);
        QFETCH(QByteArray, environment);
        QFETCH(QString, target);
        QFETCH(int, statementSeconds);
        ScriptedServer server;
        server.refusedOpens << "QuorvexA";
        qputenv("ZRT_ODBC", environment);
        const Invocation run = invoke(kRun + options, server.connections());
        qunsetenv("ZRT_ODBC");
        QCOMPARE(run.exit, 4);
        QVERIFY2(run.out.startsWith("zrt " + programVersion() + " run: database 'QuorvexA', " + target + ", mode LOCAL"),
                 qPrintable(run.out));
        QVERIFY2(!(run.out + run.err).contains("b}c") && !run.err.contains("=z"), qPrintable(run.err));
        QCOMPARE(run.statementSeconds, QList<int>{statementSeconds});
        QCOMPARE(server.logs().isEmpty(), target.startsWith("ODBC"));
    }

    void createAtUsesTheChosenServer()
    {
        ScriptedServer server;
        server.refusedOpens << "Initial Catalog=QuorvexA;";
        // Created: opens from then on.
        server.heard = [&server] { server.refusedOpens.clear(); };
        const Invocation run = invoke(kRun + QStringList{"--server", "S", "--create-at", "/srv/QuorvexA"}, server.connections());
        QCOMPARE(run.exit, 0);
        const QString local = "open Provider=SQLOLEDB.1;Password=Tq482Harbor517;Persist Security Info=False;User ID=quorvex;"
                              "Initial Catalog=";
        QCOMPARE(server.calls().mid(0, 5),
                 (QStringList{local + "QuorvexA;Data Source=S", local + "tempdb;Data Source=S",
                              "execute CREATE DATABASE [QuorvexA]  ON (NAME = N'Quorvex KRN', FILENAME = N'/srv/QuorvexA.mdf') "
                              "LOG ON (NAME = N'Quorvex KRN_Log', FILENAME = N'/srv/QuorvexA_Log.ldf')",
                              "close", local + "QuorvexA;Data Source=S"}));
    }

    void aStopAskedDuringTheLoginIsKept()
    {
        ScriptedServer server;
        server.refusedOpens << "Initial Catalog=QuorvexA;";
        std::atomic<bool> stop = true; // Ctrl-C while the server was being reached
        const Invocation run = invoke(kRun + QStringList{"--create-at", "/srv/QuorvexA"}, server.connections(), &stop);
        QCOMPARE(run.exit, 130);
        QVERIFY2(run.out.contains("interrupted after 0 statements, 493 not sent"), qPrintable(run.out));
        QVERIFY(server.calls().filter(QRegularExpression("^execute ")).isEmpty());
    }

    void badFleetFiles_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("named");
        const QByteArray server = "[[server]]\nserver = \"S\"\n";
        const QByteArray local = server + "mode = \"LOCAL\"\n";
        QTest::newRow("a missing key") << server << ":1: key 'mode': missing";
        QTest::newRow("an unknown key") << local + "odbc = \"DSN=x\"\n" << ":4: key 'odbc': no such key";
        QTest::newRow("a bad mode") << server + "mode = \"LOKAL\"\n" << ":3: key 'mode': unknown mode 'LOKAL'";
        QTest::newRow("an unset variable") << local + "odbc_env = \"ZRT_UNSET\"\n"
                                           << ":4: key 'odbc_env': the environment variable ZRT_UNSET is not set";
        QTest::newRow("a server named twice") << local + local << ":4: key 'server': 'S' and 'S' of line 1 reach one server";
        QTest::newRow("a brace in a server") << QByteArray("[[server]]\nserver = \"S}\"\nmode = \"LOCAL\"\n")
                                             << ":2: key 'server': the server name 'S}'";
        QTest::newRow("an unknown encryption") << local + "encrypt = \"required\"\n" << ":4: key 'encrypt': must be";
        QTest::newRow("a CA without require") << local + "tls_ca = \"/etc/hostname\"\n" << ":4: key 'tls_ca': goes with";
        QTest::newRow("a CA file that cannot be read") << local + "encrypt = \"require\"\ntls_ca = \"none.pem\"\n"
                                                       << ":5: key 'tls_ca': names a file that cannot be read";
        QTest::newRow("encryption beside an ODBC string")
            << QByteArray("[[server]]\nmode = \"LOCAL\"\nodbc_env = \"HOME\"\nencrypt = \"require\"\n")
            << ":3: key 'odbc_env': its ODBC string says";
        QTest::newRow("no jobs") << "jobs = 0\n" + local << ":1: key 'jobs'";
        const QByteArray at1500 = "[[server]]\nserver = \"127.0.0.1,1500\"\nmode = \"LOCAL\"\n";
        QTest::newRow("one server by name and by address") << at1500 + "[[server]]\nserver = \"localhost,1500\"\nmode = \"LOCAL\"\n"
                                                            << ":4: key 'server': 'localhost,1500' and '127.0.0.1,1500' of line 1 reach one";
        QTest::newRow("one server with tcp: and another case")
            << QByteArray("[[server]]\nserver = \"LocalHost,1500\"\nmode = \"LOCAL\"\n[[server]]\nserver = \"tcp:localhost,1500\"\nmode = \"LOCAL\"\n")
            << ":4: key 'server': 'tcp:localhost,1500' and 'LocalHost,1500' of line 1 reach one";
        QTest::newRow("one server by a comma and by Port=") << at1500 + "[[server]]\nmode = \"LOCAL\"\nodbc_env = \"ZRT_TEST_AT_1500\"\n"
                                                            << ":4: key 'server': 'tcp:127.0.0.1,1500' and '127.0.0.1,1500' of line 1";
        QTest::newRow("a string reaching another server") << QByteArray("[[server]]\nserver = \"127.0.0.1,1501\"\nmode = \"LOCAL\"\n"
                                                                        "odbc_env = \"ZRT_TEST_AT_1500\"\n")
                                                          << ":2: key 'server': the string in ZRT_TEST_AT_1500 reaches another server";
        for (const char *pattern : {"[!]", "x[!]", "Quorvex[", "[a-", "\\\\", "]", "[z-a]", ""})
            QTest::addRow("the pattern %s", pattern) << local + "exclude = [\"*A1\", \"" + pattern + "\"]\n"
                                                     << ":4: key 'exclude': '" + QString(pattern).replace("\\\\", "\\") + "' is not a pattern";
        QTest::newRow("no server") << QByteArray("jobs = 2\n") << ":1: key 'server'";
        QTest::newRow("a negative lock timeout") << "lock_timeout = -1\n" + local
                                                 << ":1: key 'lock_timeout': must be a whole number from 0 up";
        QTest::newRow("lock retries as text") << local + "lock_retries = \"5\"\n"
                                              << ":4: key 'lock_retries': must be a whole number from 0 up";
    }

    void badFleetFiles()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, named);
        const QString path = m_dir.filePath(QStringLiteral("bad.toml"));
        QFile fleet(path);
        QVERIFY(fleet.open(QIODevice::WriteOnly | QIODevice::Truncate) && fleet.write(file) == file.size());
        fleet.close();
        ScriptedServer server;
        const QString unmade = m_dir.filePath(QTest::currentDataTag());
        const Invocation run = invoke({"run", "--fleet", path, "--report-dir", unmade}, server.connections());
        QCOMPARE(run.exit, 2);
        QVERIFY2(run.err.startsWith("zrt run: " + path + named), qPrintable(run.err));
        QVERIFY2(!run.err.contains("secret"), qPrintable(run.err));
        QVERIFY(server.logs().isEmpty() && !QFileInfo::exists(unmade));
    }

    // Through the real driver: the lock and the lock timeout before the first
    // statement, nothing sent when another run holds the lock, a statement
    // refused its locks sent again in its place.
    void aLiveServerIsShared_data()
    {
        QTest::addColumn<TdsListener::Script>("script");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<int>("exit");
        QTest::addColumn<QString>("printed");
        QTest::addColumn<int>("tries"); // of the refused statement; 0: the run sends no statement
        const QString drop = QStringLiteral("drop table [dbo].[tblKWClientInfo]");
        QTest::newRow("nothing blocks") << TdsListener::Script{} << QStringList() << 0 << "completed: 493 statements" << 1;
        QTest::newRow("options") << TdsListener::Script{} << QStringList{"--lock-wait", "7", "--lock-timeout", "2"} << 0
                                 << "completed: 493 statements" << 1;
        QTest::newRow("another run holds it") << TdsListener::Script{.appLockAnswer = -1} << QStringList() << 3
                                              << "busy: another run holds QuorvexA; nothing was sent" << 0;
        QTest::newRow("the lock cannot be asked for") << TdsListener::Script{.refusedBatch = "DECLARE @granted"} << QStringList()
                                                      << 4 << "could not start: cannot take the application lock on 'QuorvexA': "
                                                      << 0;
        QTest::newRow("refused twice") << TdsListener::Script{.blockedBatch = drop, .blockedTimes = 2} << QStringList()
                                       << 0 << "completed: 493 statements, none failed" << 3;
        QTest::newRow("refused past its retries")
            << TdsListener::Script{.blockedBatch = drop, .blockedTimes = 9} << QStringList{"--lock-retries", "2"} << 3
            << "     1  blocked: [FreeTDS][SQL Server]Lock request time out period exceeded.; no holder this login may see" << 3;
    }

    void aLiveServerIsShared()
    {
        QFETCH(TdsListener::Script, script);
        QFETCH(QStringList, options);
        QFETCH(int, exit);
        QFETCH(QString, printed);
        QFETCH(int, tries);
        const TdsListener listener(script);
        const QString report = m_dir.filePath(QStringLiteral("shared.jsonl"));
        QList<std::chrono::milliseconds> pauses;
        const Invocation run = invoke(QStringList{"run", "--mode", "LOCAL", "--server", listener.dataSource(), "--database",
                                                  "QuorvexA", "--report", report} + options,
                                      sqlServerConnections(), nullptr, nullptr, false, [&pauses](std::chrono::milliseconds pause) {
                                          pauses << pause;
                                          return true;
                                      });
        QVERIFY2((run.out + run.err).contains(printed), qPrintable(run.out + run.err));
        QCOMPARE(run.exit, exit);
        const QString wait = options.contains("--lock-wait") ? "7000" : "0";
        const QString timeout = options.contains("--lock-timeout") ? "2000" : "5000";
        QStringList expected{"DECLARE @granted int; EXEC @granted = sp_getapplock @Resource = N'zrt maintenance', "
                             "@LockMode = N'Exclusive', @LockOwner = N'Session', @LockTimeout = " + wait
                             + "; SELECT @granted AS granted"};
        if (tries > 0) {
            expected << "SET LOCK_TIMEOUT " + timeout;
            for (const QString &statement : wholeRunFixtureStatements()) {
                for (int i = 0; i < (statement == script.blockedBatch ? tries : 1); ++i)
                    expected << statement;
                if (statement == script.blockedBatch && exit != 0)
                    expected << kLockHolders;
            }
            expected << "EXEC sp_releaseapplock @Resource = N'zrt maintenance', @LockOwner = N'Session'";
        }
        QStringList received = listener.received().batches;
        for (QString &batch : received)
            batch = batch.startsWith(kLockHolders) ? kLockHolders : batch;
        QCOMPARE(received, expected);
        QList<std::chrono::milliseconds> doubling;
        for (int i = 1; i < tries; ++i)
            doubling << std::chrono::milliseconds(1000 << (i - 1));
        QCOMPARE(pauses, doubling);
        QStringList triesReported;
        for (const QJsonObject &line : reportLines(report)) {
            if (line.contains("tries"))
                triesReported << line["text"].toString() + " " + QString::number(line["tries"].toInt());
        }
        QCOMPARE(triesReported, tries > 1 ? QStringList{script.blockedBatch + " " + QString::number(tries)} : QStringList());
    }

    // Ctrl-C during a pause before a statement's next try ends it at once.
    void aStopEndsAPauseAtOnce()
    {
        const TdsListener listener({.blockedBatch = QStringLiteral("drop table [dbo].[tblKWClientInfo]"), .blockedTimes = 9});
        std::atomic<bool> stop = false;
        QElapsedTimer paused;
        const Invocation run = invoke({"run", "--mode", "LOCAL", "--server", listener.dataSource(), "--database", "QuorvexA"},
                                      sqlServerConnections(), &stop, nullptr, false, [&](std::chrono::milliseconds pause) {
                                          stop = true; // as Ctrl-C does, just as the pause begins
                                          paused.start();
                                          return pauseUnlessStopped(pause * 60, &stop);
                                      });
        QVERIFY(paused.elapsed() < 1000);
        QCOMPARE(run.exit, 130);
        QVERIFY2(run.out.contains("interrupted after 3 statements"), qPrintable(run.out));
        QCOMPARE(listener.received().batches.filter("drop table [dbo].[tblKWClientInfo]").size(), 1);
    }

    // Held by another run: nothing is sent, the database is left for a retry,
    // and --max-failures does not count it. A fleet file's lock keys hold
    // under the command line's.
    void aBusyDatabaseIsLeftForLater()
    {
        const TdsListener held({.rows = {{kLocalListing, {"QuorvexA", "QuorvexB"}}}, .appLockAnswer = -1});
        const QString path = m_dir.filePath(QStringLiteral("held.toml"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("lock_wait = 3\nlock_timeout = 1\n[[server]]\nserver = \"" + held.dataSource().toUtf8()
                   + "\"\nmode = \"LOCAL\"\nlock_wait = 4\n");
        file.close();
        const QString dir = m_dir.filePath(QStringLiteral("held"));
        const Invocation run = invoke({"run", "--fleet", path, "--max-failures", "1", "--report-dir", dir}, sqlServerConnections());
        QCOMPARE(run.exit, 3);
        QVERIFY2(run.out.contains("Busy, held by another run: QuorvexA, QuorvexB\n"), qPrintable(run.out));
        const QString folder = invocationFolders(dir).value(0);
        QStringList outcomes;
        for (const QJsonValue &entry : QJsonDocument::fromJson(fileBytes(folder + "/index.json"))["databases"].toArray())
            outcomes << entry["outcome"].toString() + ": " + entry["reason"].toString();
        QCOMPARE(outcomes, (QStringList{"busy: another run holds QuorvexA", "busy: another run holds QuorvexB"}));
        QCOMPARE(readJunit(folder + "/junit.xml").problems.filter(" skipped: ").size(), 2);
        const QStringList sent = held.received().batches.filter(QRegularExpression("^(?!Select name)"));
        QCOMPARE(sent.size(), 2);
        QVERIFY2(sent.filter("@LockMode = N'Exclusive', @LockOwner = N'Session', @LockTimeout = 4000;").size() == 2,
                 qPrintable(sent.join('\n')));

        const Invocation retry = invoke({"run", "--retry", folder, "--lock-wait", "6"}, sqlServerConnections());
        QCOMPARE(retry.exit, 3);
        QCOMPARE(held.received().batches.filter("@LockTimeout = 6000;").size(), 2);

        const Invocation check = invoke({"check", "--mode", "LOCAL", "--server", held.dataSource(), "--database", "QuorvexA"},
                                        sqlServerConnections());
        QCOMPARE(check.exit, 3);
        QVERIFY2(check.err.contains("zrt check: another run holds QuorvexA\n"), qPrintable(check.err));
        QVERIFY(held.received().batches.last().contains("@LockMode = N'Shared', @LockOwner = N'Session', @LockTimeout = 0;"));
    }

    void fleetAcrossServers()
    {
        // The first lists a name holding NUL: no name, and nothing is opened for it.
        TdsListener first({.rows = {{kLocalListing, {"QuorvexA", "QuorvexTest", QString::fromUtf8("Quorvex\0A", 9)}}}});
        TdsListener second({.rows = {{kLocalListing, {"QuorvexB", "QuorvexC2023", "Quorvex[1]"}}}});
        const QString port = second.dataSource().section(',', 1);
        const QByteArray site = "DRIVER={FreeTDS};SERVER=127.0.0.1;PORT=" + port.toUtf8() + ";UID=site;PWD=secret;TDS_Version=7.4";
        qputenv("SITE_ODBC", site);
        const QString path = m_dir.filePath(QStringLiteral("fleet.toml"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        // The second server spelled otherwise than its string spells it, and labelled.
        file.write("jobs = 3\n[[server]]\nserver = \"" + first.dataSource().toUtf8() + "\"\nmode = \"local\"\n"
                   "exclude = [\"*test*\"]\n[[server]]\nserver = \"TCP:127.0.0.1," + port.toUtf8() + "\"\nlabel = \"site\"\n"
                   "mode = \"LOCAL\"\nodbc_env = \"SITE_ODBC\"\ninclude = [\"Quorvex?\", \"Quorvex[[]1[]]\"]\n");
        file.close();
        const QString dir = m_dir.filePath(QStringLiteral("across"));
        const Invocation run = invoke({"run", "--fleet", path, "--report-dir", dir}, sqlServerConnections());
        QVERIFY2(run.exit == 4, qPrintable(run.err));
        QVERIFY2(run.err.contains("lists a database that is left alone: 'Quorvex\\x00A': it holds NUL\n"), qPrintable(run.err));
        QCOMPARE(first.received().connections, 2); // its listing and QuorvexA
        const QByteArray index = fileBytes(invocationFolders(dir).value(0) + "/index.json");
        QStringList ran;
        for (const QJsonValue &entry : QJsonDocument::fromJson(index)["databases"].toArray())
            ran << entry["server"].toString() + " " + entry["database"].toString() + " " + entry["odbcEnv"].toString();
        QCOMPARE(ran, (QStringList{first.dataSource() + " QuorvexA ", second.dataSource() + " QuorvexB SITE_ODBC",
                                   second.dataSource() + " Quorvex[1] SITE_ODBC"}));
        QCOMPARE(first.received().user, QStringLiteral("quorvex"));
        QCOMPARE(second.received().user, QStringLiteral("site"));
        QVERIFY(!(run.out + run.err + index).contains("secret"));

        QCOMPARE(invoke({"list", "--fleet", path}, sqlServerConnections()).out,
                 first.dataSource() + "\tQuorvexA\n" + second.dataSource() + "\tQuorvexB\n" + second.dataSource()
                     + "\tQuorvex[1]\n");
        qputenv("ZRT_ODBC", site);
        QCOMPARE(invoke({"list", "--mode", "LOCAL"}).out, QStringLiteral("QuorvexB\nQuorvexC2023\nQuorvex[1]\n"));
        qunsetenv("ZRT_ODBC");
    }

    // A fleet file's own encryption holds for its server: its certificate
    // verified against the CA file beside the fleet file, the login never sent.
    void aFleetFilesEncryptionHolds()
    {
        const QString self = testCertificate(m_dir.path(), "self-signed", "IP:127.0.0.1", true);
        testCertificate(m_dir.path(), "ca");
        TdsListener server({.rows = {{kLocalListing, {"QuorvexA"}}}, .certificate = self + ".pem", .key = self + ".key"});
        const QString path = m_dir.filePath(QStringLiteral("encrypted.toml"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[[server]]\nserver = \"" + server.dataSource().toUtf8() + "\"\nmode = \"LOCAL\"\nencrypt = \"require\"\n"
                   "tls_ca = \"ca.pem\"\n");
        file.close();
        const Invocation list = invoke({"list", "--fleet", path}, sqlServerConnections());
        QCOMPARE(list.exit, 4);
        QVERIFY2(list.err.contains("certificate not trusted"), qPrintable(list.err));
        QCOMPARE(server.received().user, QStringLiteral("zrt-certificate-probe"));
    }

    void retryTakesWhatTheOperatorNames_data()
    {
        QTest::addColumn<QStringList>("edited");  // where the index is edited: "databases/2/odbcEnv"
        QTest::addColumn<QJsonValue>("value");    // undefined: the key removed
        QTest::addColumn<QStringList>("options"); // beside --retry FOLDER
        QTest::addColumn<int>("exit");
        QTest::addColumn<QString>("named");
        QTest::addColumn<QList<int>>("connections"); // of the first, the second and the other server
        const QJsonValue removed(QJsonValue::Undefined);
        const QList<int> left{2, 2, 0}; // each listed again, QuorvexA and QuorvexC run
        const QList<int> none{0, 0, 0};
        const auto row = [](const char *name, const QStringList &edited, const QJsonValue &value, int exit,
                            const QString &named, const QList<int> &connections, const QStringList &options = {}) {
            QTest::newRow(name) << edited << value << options << exit << named << connections;
        };
        row("what was left", {}, removed, 0, QString(), left);
        row("a number for a name", {"databases/0/database"}, 5, 2, "databases entry 1: 'database' is not a text", none);
        row("an empty name", {"databases/0/database"}, "", 2, "databases entry 1: the database '' is no name: it is empty", none);
        row("a name holding NUL", {"databases/0/database"}, QString::fromUtf8("Quorvex\0A", 9), 2, "it holds NUL", none);
        row("a name longer than 128", {"databases/0/database"}, "Quorvex" + QString(122, 'x'), 2, "longer than the 128", none);
        row("a server the index does not list", {"databases/0/server"}, "127.0.0.1,1", 2,
            "databases entry 1: the server '127.0.0.1,1' is none the index lists", none);
        row("a missing key", {"databases/0/outcome"}, removed, 2, "databases entry 1: 'outcome' is missing", none);
        row("an unknown outcome", {"databases/0/outcome"}, "skipped", 2, "databases entry 1: 'skipped' is no outcome of run", none);
        row("another variable in an entry", {"databases/2/odbcEnv"}, "ELSEWHERE_ODBC", 2,
            "databases entry 3: its mode or odbcEnv is not its server's (servers entry 2)", none);
        row("another variable for a server", {"servers/1/odbcEnv", "databases/2/odbcEnv"}, "ELSEWHERE_ODBC", 2,
            "says odbcEnv 'ELSEWHERE_ODBC', ", none);
        row("another server", {"servers/1/server", "databases/2/server"}, "ELSEWHERE", 2, "('ELSEWHERE') is not a server of ", none);
        row("a doubled entry", {"databases/3"},
            QJsonObject{{"database", "QUORVEXA"}, {"server", "FIRST"}, {"mode", "LOCAL"}, {"outcome", "not done"}}, 2,
            "databases entry 4: it names 'QUORVEXA' on 'FIRST' again, as databases entry 1 does", none);
        row("a name no longer listed", {"databases/1"},
            QJsonObject{{"database", "QuorvexGone"}, {"server", "FIRST"}, {"mode", "LOCAL"}, {"outcome", "not done"}}, 0,
            "no longer lists, so they are not retried: QuorvexGone", left);
        row("a changed fleet file", {"fleet/sha256"}, QString(64, '0'), 2, "has changed since", none);
        row("a changed fleet file given again", {"fleet/sha256"}, QString(64, '0'), 0, QString(), left, {"--fleet", "FILE"});
        row("a fleet file that is gone", {"fleet/file"}, "GONE", 2, "GONE that ", none);
        row("an --all folder without its server", {"fleet"}, removed, 2, "was made with --all: give its --mode", none);
        row("an --all folder with one of its servers", {"fleet"}, removed, 2, "servers entry 2 ('SECOND') is not a server of the server given",
            none, {"--mode", "LOCAL", "--server", "FIRST"});
    }

    void retryTakesWhatTheOperatorNames()
    {
        QFETCH(QStringList, edited);
        QFETCH(QJsonValue, value);
        QFETCH(QStringList, options);
        QFETCH(int, exit);
        QFETCH(QString, named);
        QFETCH(QList<int>, connections);
        TdsListener first({.rows = {{kLocalListing, {"QuorvexA", "QuorvexB"}}}});
        TdsListener second({.rows = {{kLocalListing, {"QuorvexC"}}}});
        TdsListener elsewhere({.rows = {{kLocalListing, {"QuorvexA", "QuorvexC"}}}});
        const auto odbcTo = [](const TdsListener &server) {
            return "DRIVER={FreeTDS};SERVER=127.0.0.1;PORT=" + server.dataSource().section(',', 1).toUtf8() + ";UID=site;TDS_Version=7.4";
        };
        qputenv("SITE_ODBC", odbcTo(second));
        qputenv("ELSEWHERE_ODBC", odbcTo(elsewhere));
        const QString dir = m_dir.filePath(QStringLiteral("retry-") + QTest::currentDataTag());
        const QString earlier = dir + "/20240101-000000-run";
        QVERIFY(QDir().mkpath(earlier));
        const QByteArray fleet = "[[server]]\nserver = \"" + first.dataSource().toUtf8()
            + "\"\nmode = \"LOCAL\"\n[[server]]\nmode = \"LOCAL\"\nodbc_env = \"SITE_ODBC\"\n";
        const QString fleetPath = dir + "/fleet.toml";
        QFile fleetFile(fleetPath);
        QVERIFY(fleetFile.open(QIODevice::WriteOnly) && fleetFile.write(fleet) == fleet.size());
        fleetFile.close();
        QJsonArray databases;
        for (const auto &[name, server, outcome] : {std::tuple{"QuorvexA", &first, "not done"}, {"QuorvexB", &first, "completed"},
                                                    {"QuorvexC", &second, "completed with failures"}}) {
            QJsonObject entry{{"database", name}, {"server", server->dataSource()}, {"mode", "LOCAL"}, {"outcome", outcome}};
            if (server == &second)
                entry.insert("odbcEnv", "SITE_ODBC");
            databases.append(entry);
        }
        const QJsonArray servers{QJsonObject{{"server", first.dataSource()}, {"mode", "LOCAL"}},
                                 QJsonObject{{"server", second.dataSource()}, {"mode", "LOCAL"}, {"odbcEnv", "SITE_ODBC"}}};
        QJsonValue index = QJsonObject{
            {"type", "index"}, {"format", 1}, {"command", "run"}, {"databases", databases}, {"servers", servers},
            {"fleet", QJsonObject{{"file", fleetPath}, {"sha256", QString(QCryptographicHash::hash(fleet, QCryptographicHash::Sha256).toHex())}}}};
        // The rows name the servers as FIRST, SECOND and ELSEWHERE, the files as FILE and GONE.
        const QHash<QString, QString> names{{"FIRST", first.dataSource()}, {"SECOND", second.dataSource()},
                                            {"ELSEWHERE", elsewhere.dataSource()}, {"FILE", fleetPath}, {"GONE", dir + "/gone.toml"}};
        const auto spelled = [&names](QString text) {
            for (auto name = names.begin(); name != names.end(); ++name)
                text.replace(name.key(), name.value());
            return text;
        };
        if (value.isObject()) {
            QJsonObject object = value.toObject();
            object["server"] = spelled(object["server"].toString());
            value = object;
        } else if (value.isString()) {
            value = spelled(value.toString());
        }
        for (const QString &path : edited)
            index = editedJson(index, path.split('/'), value);
        QFile file(earlier + "/index.json");
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(index.toObject()).toJson()) > 0);
        file.close();
        for (QString &option : options)
            option = spelled(option);
        const Invocation retry = invoke(QStringList{"run", "--retry", earlier, "--report-dir", dir} + options, sqlServerConnections());
        qunsetenv("ELSEWHERE_ODBC");
        QCOMPARE(retry.exit, exit);
        QVERIFY2(retry.err.contains(spelled(named)), qPrintable(retry.err));
        QCOMPARE((QList<int>{first.received().connections, second.received().connections, elsewhere.received().connections}),
                 connections);
        if (exit != 0)
            return;
        QStringList ran;
        for (const QJsonValue &entry : QJsonDocument::fromJson(fileBytes(invocationFolders(dir).last() + "/index.json"))["databases"].toArray())
            ran << entry["database"].toString();
        QCOMPARE(ran, (QStringList{"QuorvexA", "QuorvexC"}));
    }

    void onlineOpensWhereTheWindowDoes_data()
    {
        QTest::addColumn<QString>("command");
        QTest::newRow("run") << "run";
        QTest::newRow("check") << "check";
    }

    void onlineOpensWhereTheWindowDoes()
    {
        QFETCH(QString, command);
        ScriptedServer server;
        invoke({command, "--mode", "ONLINE", "--database", "Q", "--server", "SERVER"}, server.connections());
        QVERIFY2(server.calls().value(0).endsWith("User ID=kwonline;Initial Catalog=Q;Data Source="),
                 qPrintable(server.calls().value(0)));
    }

    void theLiveLine()
    {
        QString out;
        QString err;
        QTextStream outStream(&out);
        QTextStream errStream(&err);
        CommandContext context{outStream, errStream, {}, {}, true, nullptr, false, 60};
        FleetDisplay display(context, true);
        FleetRecord fleet;
        fleet.databases = {{0, "QuorvexA"}, {0, "QuorvexB"}, {0, "QuorvexC"}};
        display.started(fleet, 0);
        display.started(fleet, 1);
        display.advanced(0, "tables", 40);
        display.ended(1, "QuorvexB ended\n", true);
        display.finish();
        QCOMPARE(out, QStringLiteral("QuorvexB ended\n"));
        QVERIFY2(err.endsWith("2 running, 0 failed: QuorvexA, QuorvexB\r\x1b[K\r\x1b[K1/3 done, 1 running, 1 failed: "
                              "QuorvexA tables 40%\r\x1b[K"),
                 qPrintable(escapedControls(err)));
    }

    void shardsSplitTheFleet_data()
    {
        QTest::addColumn<int>("parts");
        QTest::newRow("one part") << 1;
        QTest::newRow("two parts") << 2;
        QTest::newRow("three parts") << 3;
    }

    void shardsSplitTheFleet()
    {
        QFETCH(int, parts);
        QStringList names;
        for (int i = 0; i < 40; ++i)
            names << QStringLiteral("Quorvex%1").arg(i);
        // Each part's databases as "server name", from a listing that may have one more.
        const auto split = [parts](const QStringList &listed) {
            ScriptedServer scripted;
            listing(listed)(scripted);
            const QList<FleetServer> servers{FleetServer{.server = "S1", .mode = "LOCAL", .connections = scripted.connections()},
                                             FleetServer{.server = "tcp:s2,1433", .mode = "LOCAL", .connections = scripted.connections()}};
            QList<QSet<QString>> split;
            for (int part = 1; part <= parts; ++part) {
                split << QSet<QString>();
                for (const FleetDatabase &database : listFleet(servers, FleetShard{part, parts}, nullptr).databases)
                    split.last() << servers[database.server].server + " " + database.name;
            }
            return split;
        };
        const QList<QSet<QString>> before = split(names);
        QSet<QString> whole;
        qsizetype sizes = 0;
        for (const QSet<QString> &part : before) {
            whole.unite(part);
            sizes += part.size();
        }
        QCOMPARE(sizes, 2 * names.size()); // disjoint
        QCOMPARE(whole.size(), 2 * names.size()); // together the whole
        const QList<QSet<QString>> after = split(names + QStringList{"QuorvexAdded"});
        for (int part = 0; part < parts; ++part)
            QCOMPARE(QSet<QString>(after[part]).subtract({"S1 QuorvexAdded", "tcp:s2,1433 QuorvexAdded"}), before[part]);
    }

    void twoShardsMergedAreTheWholeFleet()
    {
        ScriptedServer server;
        listing({"QuorvexA", "QuorvexB", "QuorvexC", "QuorvexD", "QuorvexE", "QuorvexF"})(server);
        server.refusedOpens << "Initial Catalog=QuorvexC;";
        const QString dir = m_dir.filePath(QStringLiteral("shards"));
        QCOMPARE(invoke(kRunAll + QStringList{"--report-dir", dir + "/whole"}, server.connections()).exit, 4);
        for (const QString shard : {"1/2", "2/2"}) {
            const Invocation part = invoke(kRunAll + QStringList{"--shard", shard, "--report-dir", dir + "/parts"}, server.connections());
            QVERIFY2(part.out.section('\n', 0, 0).contains(", mode LOCAL, part " + shard.left(1) + " of 2, started"), qPrintable(part.out));
        }
        const QStringList parts = invocationFolders(dir + "/parts");
        QCOMPARE(parts.size(), 2);
        const Invocation merge = invoke(QStringList{"merge", "--report-dir", dir + "/merged"} + parts);
        QCOMPARE(merge.exit, 0);
        const QString folder = invocationFolders(dir + "/merged").value(0);
        const QJsonObject whole = QJsonDocument::fromJson(fileBytes(invocationFolders(dir + "/whole").value(0) + "/index.json")).object();
        const QJsonObject merged = QJsonDocument::fromJson(fileBytes(folder + "/index.json")).object();
        QCOMPARE(merged["totals"], whole["totals"]);
        QCOMPARE(merged["servers"], whole["servers"]);
        QCOMPARE(merged["complete"], whole["complete"]);
        for (qsizetype i = 0; i < 6; ++i) {
            const QJsonObject entry = merged["databases"][i].toObject();
            QCOMPARE(entry["database"], whole["databases"][i]["database"]);
            QCOMPARE(entry["outcome"], whole["databases"][i]["outcome"]);
            if (entry.contains("report"))
                QCOMPARE(reportLines(folder + "/" + entry["report"].toString()).last()["counts"], entry["counts"]);
        }
        QVERIFY(fileBytes(folder + "/index.html").contains("<li>the database 'QuorvexC' is missing on server S: refused: 1 database<br>"
                                                            "<a href=\"#row-3\">QuorvexC</a></li>"));
        QCOMPARE(readJunit(folder + "/junit.xml").cases, readJunit(invocationFolders(dir + "/whole").value(0) + "/junit.xml").cases);
        ScriptedServer again;
        listing({"QuorvexA", "QuorvexB", "QuorvexC", "QuorvexD", "QuorvexE", "QuorvexF"})(again);
        QCOMPARE(invoke({"run", "--retry", folder, "--mode", "LOCAL", "--server", "S", "--report-dir", dir}, again.connections()).exit, 0);
        QCOMPARE(again.logs().size(), 2); // its listing, then QuorvexC alone
    }

    void mergeRefusals_data()
    {
        QTest::addColumn<QString>("command"); // of the second folder; empty: it holds no index
        QTest::addColumn<bool>("preview");
        QTest::addColumn<QString>("database");
        QTest::addColumn<QString>("named");
        QTest::newRow("no index") << "" << false << "QuorvexB" << "/second holds no index.json";
        QTest::newRow("another command") << "check" << false << "QuorvexB" << "/first is of zrt run and ";
        QTest::newRow("a preview with a run") << "plan" << true << "QuorvexB" << "/first is not a preview and ";
        QTest::newRow("a database in both") << "run" << false << "quorvexa" << "the database 'quorvexa' on server 'S' is in both ";
    }

    void mergeRefusals()
    {
        QFETCH(QString, command);
        QFETCH(bool, preview);
        QFETCH(QString, database);
        QFETCH(QString, named);
        const QString dir = m_dir.filePath(QStringLiteral("refused/") + QTest::currentDataTag());
        const auto write = [&dir](const QString &folder, const QString &command, bool preview, const QString &database) {
            QDir().mkpath(dir + folder);
            const QJsonObject index{{"type", "index"}, {"format", 1}, {"command", command}, {"preview", preview},
                                    {"databases", QJsonArray{QJsonObject{{"database", database}, {"server", "S"}, {"mode", "LOCAL"}}}}};
            QFile file(dir + folder + "/index.json");
            return command.isEmpty() || (file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(index).toJson()) > 0);
        };
        QVERIFY(write("/first", "run", false, "QuorvexA") && write("/second", command, preview, database));
        const Invocation merge = invoke({"merge", "--report-dir", dir + "/merged", dir + "/first", dir + "/second"});
        QCOMPARE(merge.exit, 2);
        QVERIFY2(merge.err.startsWith("zrt merge: ") && merge.err.contains(named), qPrintable(merge.err));
        QVERIFY(!QFileInfo::exists(dir + "/merged"));
    }

    void eachServerKeepsToItsJobs()
    {
        const QStringList three{"QuorvexA", "QuorvexWithALongerNameB", "QuorvexC"};
        TdsListener capped({.rows = {{kLocalListing, three}}, .batchTime = std::chrono::milliseconds(1)});
        TdsListener free({.rows = {{kLocalListing, three}}, .batchTime = std::chrono::milliseconds(1)});
        const QString path = m_dir.filePath(QStringLiteral("capped.toml"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("jobs = 4\n[[server]]\nserver = \"" + capped.dataSource().toUtf8() + "\"\nmode = \"LOCAL\"\njobs = 1\n"
                   "[[server]]\nserver = \"" + free.dataSource().toUtf8() + "\"\nmode = \"LOCAL\"\n");
        file.close();
        const Invocation run = invoke({"run", "--fleet", path}, sqlServerConnections());
        QCOMPARE(run.exit, 0);
        QCOMPARE(capped.received().mostAtOnce, 1);
        QCOMPARE(free.received().mostAtOnce, 3);
        // Names with their server past the usual width still line up.
        const QStringList lines = run.out.split('\n').filter(" completed ");
        QCOMPARE(lines.size(), 6);
        for (const QString &line : lines)
            QCOMPARE(line.indexOf(" completed "), lines[0].indexOf(" completed "));
    }

    void standardOutputThatFails()
    {
        // A device that takes nothing, as a full disk or a closed pipe does.
        class Refusing : public QIODevice
        {
        protected:
            qint64 readData(char *, qint64) override { return -1; }
            qint64 writeData(const char *, qint64) override { return -1; }
        } refusing;
        refusing.open(QIODevice::WriteOnly);
        const Invocation script = invoke({QStringLiteral("script")}, {}, nullptr, &refusing);
        QCOMPARE(script.exit, 3);
        QCOMPARE(script.err.left(44), QStringLiteral("zrt script: cannot write the standard output"));
    }
};

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
