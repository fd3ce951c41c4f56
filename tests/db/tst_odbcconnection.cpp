#include "connectionprofiles.h"
#include "databaselisting.h"
#include "maintenancerun.h"
#include "mdzrt.h"
#include "odbcconnection.h"
#include "tdslistener.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

namespace {

// Short, so that waiting for a silent server keeps the test quick.
constexpr OdbcTimeouts kShortTimeouts{2, 1};
// What the driver may take beyond its timeout to give up and hang up.
constexpr qint64 kGraceMilliseconds = 3000;

class RecordingHost : public HeadlessRunHost
{
public:
    QList<StatementOutcome> outcomes;

    std::optional<DatabaseFile> chooseDatabaseFile() override { return std::nullopt; }
    void statementExecuted(const StatementOutcome &outcome) override { outcomes << outcome; }
};

} // namespace

class TestOdbcConnection : public QObject
{
    Q_OBJECT

private slots:
    void sqliteStatementsAndResultSets();
    void silentServerGivesUp_data();
    void silentServerGivesUp();
    void unansweredStatementTimesOutAndTheRunGoesOn();
};

void TestOdbcConnection::sqliteStatementsAndResultSets()
{
    QTemporaryDir dir;
    // Row by row, so that a row that fails fails its own fetch.
    const std::unique_ptr<Connection> connection =
        odbcConnectionsTo(QStringLiteral("DRIVER={SQLite3};StepAPI=1;Database=%1").arg(dir.filePath(QStringLiteral("a.db"))))();
    QVERIFY(!connection->execute(QStringLiteral("Select 1")).ok);
    const DbStatus opened = connection->open(QString());
    QVERIFY2(opened.ok, qPrintable(opened.message));
    QVERIFY(!connection->open(QString()).ok);

    QVERIFY(connection->execute(QStringLiteral("CREATE TABLE tblA (Name text, Code text)")).ok);
    const DbStatus refused = connection->execute(QStringLiteral("CREATE TABLE tblA (Name text)"));
    QVERIFY(!refused.ok);
    QVERIFY2(refused.message.contains(QLatin1String("already exists")), qPrintable(refused.message));
    const QString wide = QStringLiteral("Ж語ऄ").repeated(400);
    QVERIFY(connection->execute(QStringLiteral("Insert Into tblA Values ('%1', '19-10-000')").arg(wide)).ok);
    QVERIFY(connection->execute(QStringLiteral("Insert Into tblA (Name, Code) Values (NULL, '10-10-000')")).ok);

    ResultSet rows;
    QVERIFY(connection->query(QStringLiteral("Select * From tblA Order By Code"), rows).ok);
    QVERIFY(rows.field(QStringLiteral("Name"))->isNull());
    QCOMPARE(rows.field(QStringLiteral("code"))->toString(), QStringLiteral("10-10-000"));
    QVERIFY(rows.moveNext().ok);
    QCOMPARE(rows.field(QStringLiteral("Name"))->toString(), wide);
    QVERIFY(rows.moveNext().ok);
    QCOMPARE(rows.atEnd(), std::optional<bool>(true));

    // A failing Select leaves the variable's rows; a fetch that fails keeps the
    // rows before it, and the end test then fails.
    QVERIFY(!connection->query(QStringLiteral("Select * From tblMissing"), rows).ok);
    QCOMPARE(rows.atEnd(), std::optional<bool>(true));
    QVERIFY(connection->query(QStringLiteral("Select abs(x) As v From (Select 1 As x Union All Select -9223372036854775807 - 1)"), rows).ok);
    QCOMPARE(rows.field(QStringLiteral("v"))->toString(), QStringLiteral("1"));
    QVERIFY(rows.moveNext().ok);
    QVERIFY(!rows.atEnd().has_value());

    QVERIFY(connection->close().ok);
    QVERIFY(!connection->isOpen());
    QVERIFY(!connection->close().ok);
}

void TestOdbcConnection::silentServerGivesUp_data()
{
    QTest::addColumn<int>("manner");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<bool>("listing");
    for (const auto manner : {TdsListener::Manner::Silent, TdsListener::Manner::Garbage}) {
        for (const char *mode : {ConnectionProfiles::kLocal, ConnectionProfiles::kOffline}) {
            for (const bool listing : {true, false}) {
                QTest::addRow("%s, %s, %s", manner == TdsListener::Manner::Silent ? "silent" : "garbage", mode,
                              listing ? "listing" : "opening")
                    << int(manner) << QString::fromLatin1(mode) << listing;
            }
        }
    }
}

void TestOdbcConnection::silentServerGivesUp()
{
    QFETCH(int, manner);
    QFETCH(QString, mode);
    QFETCH(bool, listing);
    TdsListener server({TdsListener::Manner(manner), QString(), QString()});
    const ConnectionFactory connections = sqlServerConnections(kShortTimeouts);
    QElapsedTimer timer;
    timer.start();
    const bool failed = listing
        ? listDatabases(mode, server.dataSource(), connections, [](const QString &) {}).failed
        : !connections()->open(ConnectionProfiles::runConnectionString(*ConnectionProfiles::prefix(mode),
                                                                      QStringLiteral("QuorvexA"), server.dataSource())).ok;
    QVERIFY(failed);
    QVERIFY(server.received().connections > 0);
    QVERIFY2(timer.elapsed() < kShortTimeouts.loginSeconds * 1000 + kGraceMilliseconds,
             qPrintable(QString::number(timer.elapsed())));
}

void TestOdbcConnection::unansweredStatementTimesOutAndTheRunGoesOn()
{
    TdsListener server({TdsListener::Manner::Answering, QString(), QStringLiteral("WAITFOR")});
    mdZRT module(sqlServerConnections(kShortTimeouts), server.dataSource());
    RecordingHost host;
    CheckRecordsets recordsets;
    const Steps steps{Step::execute(QStringLiteral("WAITFOR DELAY '01:00:00'")),
                      Step::execute(QStringLiteral("drop table [dbo].[tblStockEmpty]"))};
    QElapsedTimer timer;
    timer.start();
    const RunEnd end = MaintenanceRun(module, host, recordsets)
                           .run({QStringLiteral("LOCAL"), QStringLiteral("ACCOUNTS"), QStringLiteral("QuorvexA")}, steps);
    QCOMPARE(end, RunEnd::Completed);
    QVERIFY(module.ConnectionOpened());
    QCOMPARE(host.outcomes.size(), 2);
    QVERIFY(host.outcomes[0].status.timedOut);
    QVERIFY2(host.outcomes[1].status.ok, qPrintable(host.outcomes[1].status.message));
    QVERIFY2(timer.elapsed() < kShortTimeouts.statementSeconds * 1000 + kGraceMilliseconds,
             qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(server.received().batches.last(), steps[1].text);
}

QTEST_GUILESS_MAIN(TestOdbcConnection)
#include "tst_odbcconnection.moc"
