#include "catalogueanswers.h"
#include "commandinvocation.h"
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

const QString kLocalListing = QStringLiteral("Select name From sys.databases Where name like 'Quorvex%' Order By name");

// Every call of every connection, in one list.
QStringList allCalls(const ScriptedServer &server)
{
    QStringList calls;
    for (const QStringList &log : server.logs())
        calls += log;
    return calls;
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
    void runCountsWhatItsStatementsDid();
    void runOnSqliteAccountsForEveryStatement();
    void runStopsWhenTheDatabaseCannotBeOpened();
    void runAllGivesEachDatabaseItsRun_data();
    void runAllGivesEachDatabaseItsRun();
    void runAllStopsOnRequest();
    void check_data();
    void check();

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
    ScriptedServer server;
    const Invocation invocation = invoke(arguments, server.connections());
    QCOMPARE(invocation.exit, 2);
    QVERIFY2(invocation.err.contains(named), qPrintable(invocation.err));
    QVERIFY(invocation.out.isEmpty());
    QVERIFY(server.logs().isEmpty());
    QVERIFY(!QFileInfo::exists(m_dir.filePath(QStringLiteral("missing"))));
}

void TestCommandLine::listPrintsTheDatabases()
{
    ScriptedServer server;
    server.answers.insert(kLocalListing, singleColumn("name", {"QuorvexA", "QuorvexB"}));
    const QStringList arguments{"list", "--mode", "LOCAL", "--server", "ACCOUNTS"};
    const Invocation listed = invoke(arguments, server.connections());
    QCOMPARE(listed.exit, 0);
    QCOMPARE(listed.out, QStringLiteral("QuorvexA\nQuorvexB\n"));

    server.refusedOpens << QStringLiteral("master");
    const Invocation refused = invoke(arguments, server.connections());
    QCOMPARE(refused.exit, 1);
    QVERIFY(refused.out.isEmpty());
    QCOMPARE(refused.err, QStringLiteral("Connection not established, please check the server configuration.\n"));
}

void TestCommandLine::runCountsWhatItsStatementsDid()
{
    ScriptedServer server;
    server.failingStatements << QStringLiteral("drop view [dbo].[Stock]");
    const Invocation run = invoke({"run", "--mode", "LOCAL", "--database", "QuorvexNew"}, server.connections());
    QCOMPARE(run.exit, 0);
    QCOMPARE(summaryCount(run.out, "Statements sent"), 493);
    QCOMPARE(summaryCount(run.out, "  failed for another reason"), 1);
    QCOMPARE(summaryCount(run.out, "Columns added"), 221);
    QCOMPARE(summaryCount(run.out, "Views created"), 62);
    QCOMPARE(summaryCount(run.out, "Built-in rows written"), 4);
    QCOMPARE(summaryCount(run.out, "Accounts written"), 26);
    QVERIFY2(run.out.contains("[view drops] drop view [dbo].[Stock]\n      scripted failure\n"), qPrintable(run.out));
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
    ScriptedServer server;
    server.refusedOpens << QStringLiteral("Initial Catalog=QuorvexGone;");
    const QString report = m_dir.filePath(QStringLiteral("gone.jsonl"));
    const QStringList arguments{"run", "--mode", "LOCAL", "--database", "QuorvexGone", "--report", report};
    const Invocation stopped = invoke(arguments, server.connections());
    QCOMPARE(stopped.exit, 1);
    QVERIFY(stopped.err.contains(QLatin1String("QuorvexGone")));
    QVERIFY(stopped.err.contains(QLatin1String("--create-at")));
    QVERIFY(!allCalls(server).join('\n').contains("execute"));
    QVERIFY(!QFileInfo::exists(report));

    const Invocation created = invoke(arguments + QStringList{"--create-at", "/srv/sql/QuorvexGone"}, server.connections());
    QCOMPARE(created.exit, 0);
    QVERIFY(server.logs().last().contains(
        QStringLiteral("execute CREATE DATABASE [QuorvexGone]  ON (NAME = N'Quorvex KRN', FILENAME = N'/srv/sql/QuorvexGone.mdf') "
                       "LOG ON (NAME = N'Quorvex KRN_Log', FILENAME = N'/srv/sql/QuorvexGone_Log.ldf')")));
    QCOMPARE(readReport(report).lines, 494);
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
    ScriptedServer server;
    server.answers.insert(kLocalListing, singleColumn("name", {"QuorvexA", "QuorvexB", "QuorvexC"}));
    server.refusedOpens << QStringLiteral("Initial Catalog=QuorvexB;");
    const QString reports = m_dir.filePath(QStringLiteral("reports-") + jobs);
    const Invocation all = invoke({"run", "--all", "--mode", "LOCAL", "--server", "ACCOUNTS", "--jobs", jobs,
                                   "--report-dir", reports},
                                  server.connections());
    QCOMPARE(all.exit, 1);
    QCOMPARE(tableWithoutSeconds(all.out),
             (QStringList{"Database                       Outcome           Failed  Columns",
                          "QuorvexA                       completed              0      221",
                          "QuorvexB                       could not start        -        -",
                          "QuorvexC                       completed              0      221"}));
    QCOMPARE(QDir(reports).entryList(QDir::Files), (QStringList{"QuorvexA.jsonl", "QuorvexC.jsonl"}));
    QCOMPARE(readReport(QDir(reports).filePath("QuorvexA.jsonl")).lines, 493);

    // Each run on a connection of its own: the listing's, then one per database.
    QCOMPARE(server.logs().size(), 4);
    server.refusedOpens.clear();
    const Invocation clean = invoke({"run", "--all", "--mode", "LOCAL", "--server", "ACCOUNTS", "--jobs", jobs},
                                    server.connections());
    QCOMPARE(clean.exit, 0);
    QVERIFY(!clean.out.contains(QLatin1String("Not done")));
}

void TestCommandLine::runAllStopsOnRequest()
{
    std::atomic<int> statements = 0;
    std::atomic<bool> stop = false;
    ScriptedServer server;
    server.answers.insert(kLocalListing, singleColumn("name", {"QuorvexA", "QuorvexB", "QuorvexC"}));
    server.heard = [&] {
        if (++statements == 1 + 600) // the listing's query, then into the second database's run
            stop = true;
    };
    const Invocation stopped = invoke({"run", "--all", "--mode", "LOCAL", "--server", "S", "--jobs", "1"},
                                      server.connections(), &stop);
    QCOMPARE(stopped.exit, 1);
    // The statement under way finishes; none follows it.
    QCOMPARE(statements.load(), 601);
    const QStringList rows = tableWithoutSeconds(stopped.out);
    QVERIFY(rows[1].startsWith(QLatin1String("QuorvexA                       completed ")));
    QVERIFY(rows[2].startsWith(QLatin1String("QuorvexB                       interrupted ")));
    QVERIFY(rows[3].startsWith(QLatin1String("QuorvexC                       not done ")));
    QVERIFY(stopped.out.contains(QLatin1String("Not done: QuorvexB, QuorvexC")));
}

void TestCommandLine::check_data()
{
    QTest::addColumn<bool>("opens");
    QTest::addColumn<bool>("upToDate");
    QTest::addColumn<int>("exit");
    QTest::addColumn<QString>("last"); // line of the output, or of the errors

    QTest::newRow("a database as a run leaves it") << true << true << 0 << "matches";
    QTest::newRow("an empty database") << true << false << 1 << "88 differences";
    QTest::newRow("a database that cannot be opened") << false << true << 1 << "zrt check: cannot open the database 'QuorvexA'";
}

void TestCommandLine::check()
{
    QFETCH(bool, opens);
    QFETCH(bool, upToDate);
    QFETCH(int, exit);
    QFETCH(QString, last);

    ScriptedServer server;
    if (!opens)
        server.refusedOpens << QStringLiteral("Initial Catalog=QuorvexA;");
    if (upToDate)
        answerCatalogue(server, whatARunLeaves());
    const Invocation check = invoke({"check", "--mode", "LOCAL", "--database", "QuorvexA"}, server.connections());
    QCOMPARE(check.exit, exit);
    QCOMPARE((check.out + check.err).trimmed().section('\n', -1), last);
    // It only reads.
    for (const QString &call : allCalls(server))
        QVERIFY2(!call.startsWith("execute"), qPrintable(call));
}

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
