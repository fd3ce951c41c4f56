#include "connectionprofiles.h"
#include "databaselisting.h"
#include "maintenancerun.h"
#include "mdzrt.h"
#include "odbcconnection.h"
#include "openfailure.h"
#include "tdslistener.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

using namespace ConnectionProfiles;

namespace {

// Far enough apart that a wait tells which of the two bounded it.
constexpr OdbcTimeouts kTimeouts{1, 3};
// What the driver may take beyond its timeout to give up and hang up.
constexpr qint64 kGraceMilliseconds = 1500;

class RecordingHost : public HeadlessRunHost
{
public:
    QList<StatementOutcome> outcomes;

    void statementExecuted(const StatementOutcome &outcome) override { outcomes << outcome; }
};

} // namespace

class TestOdbcConnection : public QObject
{
    Q_OBJECT

private slots:
    void sqliteStatementsAndResultSets();
    void everyWaitIsBounded_data();
    void everyWaitIsBounded();
    void aServerThatHangsUpIsALostConnection();
};

void TestOdbcConnection::sqliteStatementsAndResultSets()
{
    QTemporaryDir dir;
    // Row by row, so that a row that fails fails its own fetch.
    const auto connection = odbcConnectionsTo("DRIVER={SQLite3};StepAPI=1;Database=" + dir.filePath("a.db"))();
    QVERIFY(connection->open(QString()).ok);
    QVERIFY(!connection->open(QString()).ok);
    QVERIFY(connection->execute("CREATE TABLE tblA (Name text)").ok);
    QVERIFY(connection->execute("CREATE TABLE tblA (Name text)").message.contains("already exists"));
    const QString wide = QStringLiteral("Ж語ऄ").repeated(400);
    QVERIFY(connection->execute("Insert Into tblA Values (NULL), ('" + wide + "')").ok);

    ResultSet rows;
    QVERIFY(connection->query("Select Name From tblA Order By Name", rows).ok);
    QVERIFY(rows.field("name")->isNull());
    QVERIFY(rows.moveNext().ok);
    QCOMPARE(rows.field("Name")->toString(), wide);
    QVERIFY(rows.moveNext().ok);
    QCOMPARE(rows.atEnd(), true);
    // A failing Select leaves the variable as it was; a failing fetch keeps the
    // rows before it, and the end test then fails.
    const DbStatus missing = connection->query("Select Name From tblMissing", rows);
    QVERIFY(!missing.ok && !missing.connectionLost);
    QCOMPARE(rows.atEnd(), true);
    QVERIFY(connection->query("Select abs(x) As v From (Select 1 As x Union All Select -9223372036854775807 - 1)", rows).ok);
    QCOMPARE(rows.field("v")->toString(), "1");
    QVERIFY(rows.moveNext().ok);
    QVERIFY(!rows.atEnd().has_value());
    QVERIFY(connection->close().ok);
    QVERIFY(!connection->close().ok);
}

void TestOdbcConnection::everyWaitIsBounded_data()
{
    QTest::addColumn<TdsListener::Manner>("manner");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<bool>("listing");
    QTest::addColumn<QString>("unanswered"); // a statement the server never answers
    QTest::addColumn<int>("atLeast");        // seconds
    QTest::addColumn<int>("atMost");
    const int login = kTimeouts.loginSeconds, statement = kTimeouts.statementSeconds;
    QTest::newRow("silent, LOCAL listing") << TdsListener::Manner::Silent << "LOCAL" << true << "" << login << login;
    QTest::newRow("silent, OFFLINE opening") << TdsListener::Manner::Silent << "OFFLINE" << false << "" << login << login;
    QTest::newRow("garbage, LOCAL opening") << TdsListener::Manner::Garbage << "LOCAL" << false << "" << 0 << login;
    QTest::newRow("garbage, OFFLINE listing") << TdsListener::Manner::Garbage << "OFFLINE" << true << "" << 0 << login;
    QTest::newRow("an unanswered statement times out, the run goes on")
        << TdsListener::Manner::Answering << "LOCAL" << false << "WAITFOR" << statement << statement;
}

void TestOdbcConnection::everyWaitIsBounded()
{
    QFETCH(TdsListener::Manner, manner);
    QFETCH(QString, mode);
    QFETCH(bool, listing);
    QFETCH(QString, unanswered);
    QFETCH(int, atLeast);
    QFETCH(int, atMost);
    TdsListener server({.manner = manner, .unansweredBatch = unanswered});
    const ConnectionFactory connections = sqlServerConnections(kTimeouts);
    QElapsedTimer timer;
    timer.start();
    if (!unanswered.isEmpty()) {
        mdZRT module(connections, server.dataSource());
        RecordingHost host;
        CheckRecordsets recordsets;
        const Steps steps{Step::execute(Action::AddColumn, "WAITFOR DELAY '01:00:00'"),
                          Step::execute(Action::DropTable, "drop table [dbo].[tblStockEmpty]")};
        QCOMPARE(MaintenanceRun(module, host, recordsets).run({mode, "ACCOUNTS", "QuorvexA"}, steps), RunEnd::Completed);
        QCOMPARE(host.outcomes.size(), 2);
        QVERIFY(host.outcomes[0].status.timedOut && !host.outcomes[0].status.connectionLost);
        QVERIFY2(host.outcomes[1].status.ok, qPrintable(host.outcomes[1].status.message));
        QCOMPARE(server.received().batches.last(), steps[1].text);
    } else {
        const DbStatus failure = listing
            ? listDatabases(mode, server.dataSource(), connections, [](const QString &) {}).failure
            : connections()->open(runConnectionString(*prefix(mode), "QuorvexA", server.dataSource()));
        QVERIFY(!failure.ok);
        QCOMPARE(openFailureOf(failure), OpenFailure::Unreachable);
        QCOMPARE(server.received().connections, 1);
    }
    QVERIFY2(timer.elapsed() >= atLeast * 1000 && timer.elapsed() < atMost * 1000 + kGraceMilliseconds,
             qPrintable(QString::number(timer.elapsed())));
}

void TestOdbcConnection::aServerThatHangsUpIsALostConnection()
{
    TdsListener server({.refusedBatch = "A", .hangUpBatch = "B"});
    const auto connection = sqlServerConnections(kTimeouts)();
    QVERIFY(connection->open(runConnectionString(*prefix("LOCAL"), "QuorvexA", server.dataSource())).ok);
    const DbStatus refused = connection->execute("A");
    QVERIFY(!refused.ok && !refused.connectionLost);
    for (const char *statement : {"B", "C"}) {
        const DbStatus lost = connection->execute(statement);
        QVERIFY2(!lost.ok && lost.connectionLost, qPrintable(lost.message));
    }
    QCOMPARE(server.received().batches, (QStringList{"A", "B"}));
}

QTEST_GUILESS_MAIN(TestOdbcConnection)
#include "tst_odbcconnection.moc"
