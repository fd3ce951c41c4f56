#include "catalogserver.h"
#include "databaselisting.h"
#include "odbcconnection.h"

#include <QElapsedTimer>
#include <QTest>

namespace {

struct Listed
{
    QStringList names;
    ListingOutcome outcome;
};

Listed list(const QString &mode, const QString &server, const std::shared_ptr<CatalogServer::State> &state)
{
    Listed listed;
    listed.outcome = listDatabases(mode, server, [state] { return std::make_unique<CatalogServer>(state); },
                                   [&](const QString &name) { listed.names << name; });
    return listed;
}

} // namespace

class TestDatabaseListing : public QObject
{
    Q_OBJECT

private slots:
    void listing_data();
    void listing();
    void unknownModeListsNothing();
    void onlineListsTheHostedDatabasesTheLoginMayOpen();
    void unreachableFreeTdsServerAnswersWithinTheLoginTimeout();
};

void TestDatabaseListing::listing_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("server");
    QTest::addColumn<QStringList>("databases");
    QTest::addColumn<bool>("refuseLogin");
    QTest::addColumn<int>("dropAfterRows");
    QTest::addColumn<QString>("openedString");
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<bool>("failed");

    const QString offline = QStringLiteral("Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;Initial Catalog=master;Data Source=");
    const QString local = QStringLiteral("Provider=SQLOLEDB.1;Password=Tq482Harbor517;Persist Security Info=False;User ID=quorvex;Initial Catalog=master;Data Source=");
    const QString offlineQuery = QStringLiteral("Select name From sysdatabases Where name like 'Quorvex%' Order By name");
    const QString localQuery = QStringLiteral("Select name From sys.databases Where name like 'Quorvex%' Order By name");
    const QStringList three{QStringLiteral("QuorvexB"), QStringLiteral("QuorvexA"), QStringLiteral("Sales")};

    QTest::newRow("OFFLINE reads sysdatabases in the server's order")
        << "OFFLINE" << "ACCOUNTS" << three << false << -1 << offline + "ACCOUNTS" << offlineQuery
        << QStringList{"QuorvexA", "QuorvexB"} << false;
    QTest::newRow("LOCAL reads sys.databases")
        << "LOCAL" << "LAPTOP" << three << false << -1 << local + "LAPTOP" << localQuery
        << QStringList{"QuorvexA", "QuorvexB"} << false;
    QTest::newRow("server text used as it stands")
        << "LOCAL" << " laptop\\SQL " << three << false << -1 << local + " laptop\\SQL " << localQuery
        << QStringList{"QuorvexA", "QuorvexB"} << false;
    QTest::newRow("prefix in any case on a case-insensitive server")
        << "OFFLINE" << "S" << QStringList{"quorvexz", "QUORVEXY", "Other"} << false << -1 << offline + "S" << offlineQuery
        << QStringList{"QUORVEXY", "quorvexz"} << false;
    QTest::newRow("no database with the prefix") << "OFFLINE" << "S" << QStringList{"Sales"} << false << -1
                                                 << offline + "S" << offlineQuery << QStringList{} << false;
    QTest::newRow("refused login") << "LOCAL" << "S" << three << true << -1 << local + "S" << QString()
                                   << QStringList{} << true;
    QTest::newRow("drop while reading keeps the names read")
        << "OFFLINE" << "S" << QStringList{"QuorvexA", "QuorvexB", "QuorvexC"} << false << 2 << offline + "S"
        << offlineQuery << QStringList{"QuorvexA", "QuorvexB"} << true;
    QTest::newRow("drop before the first row") << "OFFLINE" << "S" << three << false << 0 << offline + "S"
                                               << offlineQuery << QStringList{} << true;
}

void TestDatabaseListing::listing()
{
    QFETCH(QString, mode);
    QFETCH(QString, server);
    QFETCH(QStringList, databases);
    QFETCH(bool, refuseLogin);
    QFETCH(int, dropAfterRows);
    QFETCH(QString, openedString);
    QFETCH(QString, query);
    QFETCH(QStringList, names);
    QFETCH(bool, failed);

    auto state = std::make_shared<CatalogServer::State>();
    state->databases = databases;
    state->refuseLogin = refuseLogin;
    state->dropAfterRows = dropAfterRows;
    const Listed listed = list(mode, server, state);
    QCOMPARE(state->opened, QStringList{openedString});
    QCOMPARE(state->queries, query.isEmpty() ? QStringList() : QStringList{query});
    QCOMPARE(listed.names, names);
    QCOMPARE(listed.outcome.failed, failed);
    QCOMPARE(listed.outcome.serverDataSource, server);
}

void TestDatabaseListing::unknownModeListsNothing()
{
    auto state = std::make_shared<CatalogServer::State>();
    state->databases = QStringList{QStringLiteral("QuorvexA")};
    const Listed listed = list(QStringLiteral("Offline"), QStringLiteral("ACCOUNTS"), state);
    QVERIFY(listed.names.isEmpty());
    QVERIFY(!listed.outcome.failed);
    QVERIFY(state->opened.isEmpty());
}

void TestDatabaseListing::onlineListsTheHostedDatabasesTheLoginMayOpen()
{
    qputenv("ZRT_ONLINE_SERVER", "hosted.test");
    auto state = std::make_shared<CatalogServer::State>();
    state->databases = QStringList{QStringLiteral("QuorvexB"), QStringLiteral("QuorvexZ"), QStringLiteral("QuorvexA"),
                                   QStringLiteral("Sales")};
    state->inaccessible = QStringList{QStringLiteral("QuorvexZ")};
    const Listed listed = list(QStringLiteral("ONLINE"), QStringLiteral("ACCOUNTS"), state);
    qunsetenv("ZRT_ONLINE_SERVER");
    QCOMPARE(state->opened,
             QStringList{QStringLiteral("Provider=SQLOLEDB.1;Password=#BranchPortal718Qz%;Persist Security Info=False;"
                                        "User ID=kwonline;Initial Catalog=master;Data Source=tcp:hosted.test,1433")});
    QCOMPARE(listed.names, (QStringList{QStringLiteral("QuorvexA"), QStringLiteral("QuorvexB")}));
    QCOMPARE(listed.outcome.serverDataSource, QStringLiteral("tcp:hosted.test,1433"));
    QVERIFY(!listed.outcome.failed);

    state->refuseLogin = true;
    const Listed refused = list(QStringLiteral("ONLINE"), QStringLiteral("ACCOUNTS"), state);
    QVERIFY(refused.outcome.failed);
    QVERIFY(refused.names.isEmpty());

    state->refuseLogin = false;
    state->dropAfterRows = 1;
    const Listed dropped = list(QStringLiteral("ONLINE"), QStringLiteral("ACCOUNTS"), state);
    QVERIFY(dropped.outcome.failed);
    QVERIFY(dropped.names.isEmpty());
}

void TestDatabaseListing::unreachableFreeTdsServerAnswersWithinTheLoginTimeout()
{
    QElapsedTimer timer;
    timer.start();
    QStringList names;
    // The name resolves to this machine, where nothing listens on port 1.
    const ListingOutcome outcome = listDatabases(QStringLiteral("LOCAL"), QStringLiteral("tcp:localhost,1"),
                                                 sqlServerConnections(), [&](const QString &name) { names << name; });
    QVERIFY(outcome.failed);
    QVERIFY(names.isEmpty());
    // Well within the login timeout of a few seconds.
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
}

QTEST_GUILESS_MAIN(TestDatabaseListing)
#include "tst_databaselisting.moc"
