#include "databaselisting.h"
#include "odbcconnection.h"
#include "scriptedconnection.h"

#include <QElapsedTimer>
#include <QTest>

Q_DECLARE_METATYPE(ResultSet)

namespace {

const QString kOfflineQuery = QStringLiteral("Select name From sysdatabases Where name like 'Quorvex%' Order By name");
const QString kLocalQuery = QStringLiteral("Select name From sys.databases Where name like 'Quorvex%' Order By name");
const QString kOnlineQuery = QStringLiteral(
    "Select name From sys.databases Where name like 'Quorvex%' And HAS_DBACCESS(name) = 1 Order By name");

} // namespace

class TestDatabaseListing : public QObject
{
    Q_OBJECT

private slots:
    void listing_data();
    void listing();
    void unreachableFreeTdsServerAnswersWithinTheLoginTimeout();
};

void TestDatabaseListing::listing_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("server");
    QTest::addColumn<QString>("refusedOpen");
    QTest::addColumn<ResultSet>("rows"); // what the server answers the listing query
    QTest::addColumn<QStringList>("calls");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<bool>("failed");

    const QString offline = QStringLiteral("open Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;Initial Catalog=master;Data Source=");
    const QString local = QStringLiteral("open Provider=SQLOLEDB.1;Password=Tq482Harbor517;Persist Security Info=False;User ID=quorvex;Initial Catalog=master;Data Source=");
    const QString online = QStringLiteral("open Provider=SQLOLEDB.1;Password=#BranchPortal718Qz%;Persist Security Info=False;User ID=kwonline;Initial Catalog=master;Data Source=tcp:hosted.test,1433");
    const ResultSet two = singleColumn(QStringLiteral("name"), {QStringLiteral("QuorvexB"), QStringLiteral("QuorvexA")});
    const ResultSet brokenAfterOne({QStringLiteral("name")}, {{QStringLiteral("QuorvexA")}},
                                   DbStatus::failure(QStringLiteral("connection lost")));
    const QStringList both{QStringLiteral("QuorvexB"), QStringLiteral("QuorvexA")};

    QTest::newRow("OFFLINE reads sysdatabases, in the server's order")
        << "OFFLINE" << "ACCOUNTS" << QString() << two
        << QStringList{offline + "ACCOUNTS", "query " + kOfflineQuery, "close"} << both << false;
    QTest::newRow("LOCAL reads sys.databases; the server text as it stands")
        << "LOCAL" << " laptop\\SQL " << QString() << two
        << QStringList{local + " laptop\\SQL ", "query " + kLocalQuery, "close"} << both << false;
    QTest::newRow("ONLINE lists what the hosted login may open")
        << "ONLINE" << "ACCOUNTS" << QString() << two << QStringList{online, "query " + kOnlineQuery, "close"} << both
        << false;
    QTest::newRow("refused login") << "LOCAL" << "S" << "master" << two << QStringList{local + "S"} << QStringList()
                                   << true;
    QTest::newRow("connection lost while reading keeps the names read")
        << "OFFLINE" << "S" << QString() << brokenAfterOne << QStringList{offline + "S", "query " + kOfflineQuery}
        << QStringList{"QuorvexA"} << true;
    QTest::newRow("a hosted list cut short is offered not at all")
        << "ONLINE" << "S" << QString() << brokenAfterOne << QStringList{online, "query " + kOnlineQuery}
        << QStringList() << true;
    QTest::newRow("unknown mode lists nothing and opens nothing")
        << "Offline" << "S" << QString() << two << QStringList() << QStringList() << false;
}

void TestDatabaseListing::listing()
{
    QFETCH(QString, mode);
    QFETCH(QString, server);
    QFETCH(QString, refusedOpen);
    QFETCH(ResultSet, rows);
    QFETCH(QStringList, calls);
    QFETCH(QStringList, names);
    QFETCH(bool, failed);

    qputenv("ZRT_ONLINE_SERVER", "hosted.test");
    ScriptedServer scripted;
    if (!refusedOpen.isEmpty())
        scripted.refusedOpens << refusedOpen;
    for (const QString &query : {kOfflineQuery, kLocalQuery, kOnlineQuery})
        scripted.answers.insert(query, rows);
    QStringList listed;
    const ListingOutcome outcome =
        listDatabases(mode, server, scripted.connections(), [&](const QString &name) { listed << name; });
    QCOMPARE(scripted.calls(), calls);
    QCOMPARE(listed, names);
    QCOMPARE(outcome.failed(), failed);
}

void TestDatabaseListing::unreachableFreeTdsServerAnswersWithinTheLoginTimeout()
{
    QElapsedTimer timer;
    timer.start();
    QStringList names;
    // The name resolves to this machine, where nothing listens on port 1.
    const ListingOutcome outcome = listDatabases(QStringLiteral("LOCAL"), QStringLiteral("tcp:localhost,1"),
                                                 sqlServerConnections(), [&](const QString &name) { names << name; });
    QVERIFY(outcome.failed());
    QVERIFY(names.isEmpty());
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
}

QTEST_GUILESS_MAIN(TestDatabaseListing)
#include "tst_databaselisting.moc"
