#include "catalogserver.h"
#include "commandinvocation.h"
#include "fakesqlserver.h"
#include "scriptfixture.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Outcome -> count, and the outcomes of the CREATE TABLE statements, from a report.
struct Report
{
    QHash<QString, int> outcomes;
    QStringList createTableOutcomes;
    int lines = 0;
};

Report readReport(const QString &path)
{
    Report report;
    for (const QByteArray &line : fileBytes(path).split('\n')) {
        if (line.isEmpty())
            continue;
        const QJsonObject statement = QJsonDocument::fromJson(line).object();
        ++report.lines;
        ++report.outcomes[statement.value(QStringLiteral("outcome")).toString()];
        if (statement.value(QStringLiteral("text")).toString().startsWith(QLatin1String("CREATE TABLE")))
            report.createTableOutcomes << statement.value(QStringLiteral("outcome")).toString();
    }
    return report;
}

// Lists its databases on master and accepts every statement on them, except
// that it refuses to open some. It changes nothing of its own, so runs on
// several threads may share it; it may ask a stop after some statements.
class CompanyServer : public Connection
{
public:
    struct Setup
    {
        QStringList databases;
        QStringList refused;
        std::atomic<int> *statements = nullptr;
        std::atomic<bool> *stop = nullptr;
        int stopAfter = -1;
    };

    explicit CompanyServer(const Setup &setup)
        : m_setup(setup)
    {
    }

    DbStatus open(const QString &connectionString) override
    {
        const QString catalog = connectionString.section(QLatin1String("Initial Catalog="), 1).section(QLatin1Char(';'), 0, 0);
        if (m_open || m_setup.refused.contains(catalog))
            return DbStatus::failure(QStringLiteral("Cannot open database"), 4060);
        m_catalog = catalog;
        m_open = true;
        return DbStatus::success();
    }
    DbStatus execute(const QString &) override
    {
        if (m_setup.statements && ++*m_setup.statements == m_setup.stopAfter)
            *m_setup.stop = true;
        return m_open ? DbStatus::success() : DbStatus::failure(QStringLiteral("closed"));
    }
    DbStatus query(const QString &sql, ResultSet &into) override
    {
        if (!m_open)
            return DbStatus::failure(QStringLiteral("closed"));
        QList<QVariantList> rows;
        if (m_catalog == QLatin1String("master") && sql.startsWith(QLatin1String("Select name From"))) {
            QStringList names = m_setup.databases.filter(QRegularExpression(QStringLiteral("^quorvex"),
                                                                             QRegularExpression::CaseInsensitiveOption));
            names.sort();
            for (const QString &name : names)
                rows << QVariantList{name};
        }
        into = ResultSet({QStringLiteral("name")}, rows);
        return DbStatus::success();
    }
    DbStatus close() override
    {
        m_open = false;
        return DbStatus::success();
    }
    bool isOpen() const override { return m_open; }

private:
    const Setup &m_setup;
    QString m_catalog;
    bool m_open = false;
};

ConnectionFactory companyServer(const CompanyServer::Setup &setup)
{
    return [&setup] { return std::make_unique<CompanyServer>(setup); };
}

// The summary table without its seconds, which vary from run to run.
QStringList tableWithoutSeconds(const QString &out)
{
    QStringList lines;
    for (const QString &line : out.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        lines << line.left(line.size() - 8).trimmed();
    return lines;
}

} // namespace

class TestCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void scriptWritesEveryStatementOfARun();
    void badUsage_data();
    void badUsage();
    void listPrintsTheDatabases();
    void runOnTheFakeServer();
    void runOnSqliteAccountsForEveryStatement();
    void runStopsWhenTheDatabaseCannotBeOpened();
    void runAllGivesEachDatabaseItsRun_data();
    void runAllGivesEachDatabaseItsRun();
    void runAllStopsOnRequest();

private:
    QTemporaryDir m_dir;
};

void TestCommandLine::initTestCase()
{
    QVERIFY(m_dir.isValid());
}

void TestCommandLine::scriptWritesEveryStatementOfARun()
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

void TestCommandLine::badUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named"); // what the message must name
    const QString missingDir = m_dir.filePath(QStringLiteral("missing/x"));
    QTest::newRow("unknown command") << QStringList{"repair"} << "repair";
    QTest::newRow("unknown option") << QStringList{"script", "--outptu", "x"} << "outptu";
    QTest::newRow("stray argument") << QStringList{"script", "extra"} << "extra";
    QTest::newRow("missing --database") << QStringList{"run", "--mode", "LOCAL"} << "--database";
    QTest::newRow("empty --database") << QStringList{"run", "--mode", "LOCAL", "--database", ""} << "--database";
    QTest::newRow("unknown mode") << QStringList{"run", "--mode", "local", "--database", "QuorvexA"} << "local";
    QTest::newRow("list without server") << QStringList{"list", "--mode", "LOCAL"} << "--server";
    QTest::newRow("server and odbc") << QStringList{"run", "--mode", "LOCAL", "--database", "Q", "--server", "S", "--odbc", "DSN=x"}
                                     << "--odbc";
    QTest::newRow("unwritable --output") << QStringList{"script", "--output", missingDir} << missingDir;
    QTest::newRow("unwritable --report") << QStringList{"run", "--mode", "LOCAL", "--database", "Q", "--report", missingDir}
                                         << missingDir;
    QTest::newRow("check: unknown option") << QStringList{"check", "--mode", "LOCAL", "--database", "Q", "--jsn"} << "jsn";
    QTest::newRow("check: missing --mode") << QStringList{"check", "--database", "Q"} << "--mode";
    QTest::newRow("check: empty --database") << QStringList{"check", "--mode", "LOCAL", "--database", ""} << "--database";
    QTest::newRow("check: unknown mode") << QStringList{"check", "--mode", "Local", "--database", "Q"} << "Local";
    QTest::newRow("check: server and odbc")
        << QStringList{"check", "--mode", "LOCAL", "--database", "Q", "--server", "S", "--odbc", "DSN=x"} << "--odbc";
    QTest::newRow("run --all: --jobs 0") << QStringList{"run", "--all", "--mode", "LOCAL", "--server", "S", "--jobs", "0"}
                                         << "--jobs";
    QTest::newRow("run --all: with --database")
        << QStringList{"run", "--all", "--mode", "LOCAL", "--server", "S", "--database", "Q"} << "--database";
    QTest::newRow("run --all: without --server") << QStringList{"run", "--all", "--mode", "LOCAL"} << "--server";
}

void TestCommandLine::badUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    auto server = std::make_shared<FakeServerState>();
    const Invocation invocation = invoke(arguments, fakeSqlServerConnections(server));
    QCOMPARE(invocation.exit, 2);
    QVERIFY2(invocation.err.contains(named), qPrintable(invocation.err));
    QVERIFY(invocation.out.isEmpty());
    QVERIFY(server->statementLog().isEmpty());
    QVERIFY(!QFileInfo::exists(m_dir.filePath(QStringLiteral("missing"))));
}

void TestCommandLine::listPrintsTheDatabases()
{
    auto state = std::make_shared<CatalogServer::State>();
    state->databases = QStringList{QStringLiteral("QuorvexB"), QStringLiteral("Sales"), QStringLiteral("QuorvexA")};
    const auto connections = [state] { return std::make_unique<CatalogServer>(state); };
    const QStringList arguments{"list", "--mode", "LOCAL", "--server", "ACCOUNTS"};
    const Invocation listed = invoke(arguments, connections);
    QCOMPARE(listed.exit, 0);
    QCOMPARE(listed.out, QStringLiteral("QuorvexA\nQuorvexB\n"));

    state->refuseLogin = true;
    const Invocation refused = invoke(arguments, connections);
    QCOMPARE(refused.exit, 1);
    QVERIFY(refused.out.isEmpty());
    QCOMPARE(refused.err, QStringLiteral("Connection not established, please check the server configuration.\n"));
    QVERIFY(!refused.err.contains(QLatin1String("Tq482Harbor517")));
}

void TestCommandLine::runOnTheFakeServer()
{
    auto server = std::make_shared<FakeServerState>();
    const QStringList arguments{"run", "--mode", "LOCAL", "--database", "QuorvexNew"};
    const Invocation first = invoke(arguments, fakeSqlServerConnections(server));
    QCOMPARE(first.exit, 0);
    QCOMPARE(summaryCount(first.out, "Statements sent"), 493);
    QCOMPARE(summaryCount(first.out, "  refused, already existed"), 0);
    QCOMPARE(summaryCount(first.out, "  refused, not there to drop"), 66);
    QCOMPARE(summaryCount(first.out, "  failed for another reason"), 1);
    QCOMPARE(summaryCount(first.out, "Columns added"), 221);
    QCOMPARE(summaryCount(first.out, "Views created"), 61);
    QVERIFY(first.out.contains(QLatin1String("Views failed:                     1 (Stock)")));
    QCOMPARE(summaryCount(first.out, "Built-in rows written"), 4);
    QCOMPARE(summaryCount(first.out, "Accounts written"), 26);

    const Invocation second = invoke(arguments, fakeSqlServerConnections(server));
    QCOMPARE(second.exit, 0);
    QCOMPARE(summaryCount(second.out, "Columns added"), 0);
    // Every table but the six rebuilt ones, every column, and the two views
    // that are never dropped.
    QCOMPARE(summaryCount(second.out, "  refused, already existed"), 20 + 221 + 2);
    QCOMPARE(summaryCount(second.out, "Views created"), 62 - 2 - 1); // Stock still has no table
    QCOMPARE(summaryCount(second.out, "Built-in rows written"), 1);
    QCOMPARE(summaryCount(second.out, "Accounts written"), 0);
}

void TestCommandLine::runOnSqliteAccountsForEveryStatement()
{
    // SQLite is not SQL Server: many statements fail there. What counts here
    // is that every statement is accounted for, the same way in both outputs.
    const QString odbc = QStringLiteral("DRIVER={SQLite3};Database=%1;LoadExt=%2")
                             .arg(m_dir.filePath(QStringLiteral("books.db")), QStringLiteral(ZRT_SQLITE_DBO));
    const QString firstReport = m_dir.filePath(QStringLiteral("first.jsonl"));
    const QString secondReport = m_dir.filePath(QStringLiteral("second.jsonl"));
    const QStringList arguments{"run", "--mode", "LOCAL", "--database", "QuorvexA", "--odbc", odbc, "--report"};

    const Invocation first = invoke(arguments + QStringList{firstReport});
    QCOMPARE(first.exit, 0);
    const Report report = readReport(firstReport);
    QCOMPARE(summaryCount(first.out, "Statements sent"), report.lines);
    QCOMPARE(summaryCount(first.out, "  succeeded"), report.outcomes.value("succeeded"));
    QCOMPARE(summaryCount(first.out, "  refused, already existed"), report.outcomes.value("already existed"));
    QCOMPARE(summaryCount(first.out, "  refused, not there to drop"), report.outcomes.value("not there to drop"));
    QCOMPARE(summaryCount(first.out, "  failed for another reason"), report.outcomes.value("failed"));
    QCOMPARE(report.createTableOutcomes, QStringList(26, QStringLiteral("succeeded")));

    const Invocation second = invoke(arguments + QStringList{secondReport});
    QCOMPARE(second.exit, 0);
    // The six rebuilt tables are dropped first, so they are made again.
    const Report again = readReport(secondReport);
    QCOMPARE(again.createTableOutcomes.count(QStringLiteral("already existed")), 20);
    QCOMPARE(again.createTableOutcomes.count(QStringLiteral("succeeded")), 6);
    QCOMPARE(summaryCount(second.out, "Columns added"), 0);
}

void TestCommandLine::runStopsWhenTheDatabaseCannotBeOpened()
{
    auto server = std::make_shared<FakeServerState>();
    server->dropDatabase(QStringLiteral("QuorvexGone"));
    const QString report = m_dir.filePath(QStringLiteral("gone.jsonl"));
    const QStringList arguments{"run", "--mode", "LOCAL", "--database", "QuorvexGone", "--report", report};
    const Invocation stopped = invoke(arguments, fakeSqlServerConnections(server));
    QCOMPARE(stopped.exit, 1);
    QVERIFY(stopped.err.contains(QLatin1String("QuorvexGone")));
    QVERIFY(stopped.err.contains(QLatin1String("--create-at")));
    QVERIFY(server->statementLog().isEmpty());
    QVERIFY(!QFileInfo::exists(report));

    const Invocation created = invoke(arguments + QStringList{"--create-at", "/srv/sql/QuorvexGone"},
                                      fakeSqlServerConnections(server));
    QCOMPARE(created.exit, 0);
    QCOMPARE(server->statementLog().first().text,
             QStringLiteral("CREATE DATABASE [QuorvexGone]  ON (NAME = N'Quorvex KRN', FILENAME = N'/srv/sql/QuorvexGone.mdf') "
                            "LOG ON (NAME = N'Quorvex KRN_Log', FILENAME = N'/srv/sql/QuorvexGone_Log.ldf')"));
    QCOMPARE(summaryCount(created.out, "Accounts written"), 26);
    QVERIFY(QFileInfo::exists(report));
}

void TestCommandLine::runAllGivesEachDatabaseItsRun_data()
{
    QTest::addColumn<QString>("jobs");
    QTest::newRow("one at a time") << "1";
    QTest::newRow("three at once") << "3";
    QTest::newRow("more jobs than databases") << "8";
}

void TestCommandLine::runAllGivesEachDatabaseItsRun()
{
    QFETCH(QString, jobs);
    CompanyServer::Setup setup;
    setup.databases = QStringList{"QuorvexC", "Sales", "QuorvexA", "QuorvexB"};
    setup.refused = QStringList{"QuorvexB"};
    const QString reports = m_dir.filePath(QStringLiteral("reports-") + jobs);
    const Invocation all = invoke({"run", "--all", "--mode", "LOCAL", "--server", "ACCOUNTS", "--jobs", jobs,
                                   "--report-dir", reports},
                                  companyServer(setup));
    QCOMPARE(all.exit, 1);
    QCOMPARE(tableWithoutSeconds(all.out),
             (QStringList{"Database                       Outcome           Failed  Columns",
                          "QuorvexA                       completed              0      221",
                          "QuorvexB                       could not start        -        -",
                          "QuorvexC                       completed              0      221"}));
    QCOMPARE(QDir(reports).entryList(QDir::Files), (QStringList{"QuorvexA.jsonl", "QuorvexC.jsonl"}));
    QCOMPARE(readReport(QDir(reports).filePath("QuorvexA.jsonl")).lines, 493);

    setup.refused.clear();
    const Invocation clean = invoke({"run", "--all", "--mode", "LOCAL", "--server", "ACCOUNTS", "--jobs", jobs},
                                    companyServer(setup));
    QCOMPARE(clean.exit, 0);
    QVERIFY(!clean.out.contains(QLatin1String("Not done")));
}

void TestCommandLine::runAllStopsOnRequest()
{
    std::atomic<int> statements = 0;
    std::atomic<bool> stop = false;
    CompanyServer::Setup setup;
    setup.databases = QStringList{"QuorvexA", "QuorvexB", "QuorvexC"};
    setup.statements = &statements;
    setup.stop = &stop;
    setup.stopAfter = 600; // in the second database's run
    const Invocation stopped = invoke({"run", "--all", "--mode", "LOCAL", "--server", "S", "--jobs", "1"},
                                      companyServer(setup), &stop);
    QCOMPARE(stopped.exit, 1);
    // The statement under way finishes; none follows it.
    QCOMPARE(statements.load(), 600);
    const QStringList rows = tableWithoutSeconds(stopped.out);
    QVERIFY(rows[1].startsWith(QLatin1String("QuorvexA                       completed ")));
    QVERIFY(rows[2].startsWith(QLatin1String("QuorvexB                       interrupted ")));
    QVERIFY(rows[3].startsWith(QLatin1String("QuorvexC                       not done ")));
    QVERIFY(stopped.out.contains(QLatin1String("Not done: QuorvexB, QuorvexC")));
}

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
