#include "mdzrt.h"
#include "scriptedconnection.h"

#include <QTest>

namespace {

const QString kOffline = QStringLiteral("Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;Initial Catalog=");
const QString kLocal = QStringLiteral("Provider=SQLOLEDB.1;Password=Tq482Harbor517;Persist Security Info=False;User ID=quorvex;Initial Catalog=");
const QString kOnline = QStringLiteral("Provider=SQLOLEDB.1;Password=#BranchPortal718Qz%;Persist Security Info=False;User ID=kwonline;Initial Catalog=");
const QString kFallback = QStringLiteral("open Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;Initial Catalog=tempdb");

} // namespace

class TestMdZrt : public QObject
{
    Q_OBJECT

private slots:
    void openConnection_data();
    void openConnection();
    void openingAnOpenConnectionFails();
};

void TestMdZrt::openConnection_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("server");
    QTest::addColumn<QString>("database");
    QTest::addColumn<QString>("dataSource");  // given, as the command line does: its fallback is on that server
    QTest::addColumn<QString>("refusedOpen"); // opens of strings holding this fail
    QTest::addColumn<QStringList>("calls");
    QTest::addColumn<bool>("opened");
    QTest::addColumn<bool>("isOpen");

    QTest::newRow("OFFLINE opens the run string with an empty data source")
        << "OFFLINE" << "ACCOUNTS" << "QuorvexAB2024" << QString() << QString()
        << QStringList{"open " + kOffline + "QuorvexAB2024;Data Source="} << true << true;
    QTest::newRow("LOCAL")
        << "LOCAL" << "LAPTOP" << "QuorvexX" << QString() << QString()
        << QStringList{"open " + kLocal + "QuorvexX;Data Source="} << true << true;
    QTest::newRow("LOCAL missing database falls back to tempdb")
        << "LOCAL" << "ACCOUNTS" << "QuorvexNone" << QString() << "QuorvexNone"
        << QStringList{"open " + kLocal + "QuorvexNone;Data Source=", kFallback} << false << true;
    QTest::newRow("fallback failing too leaves the connection closed")
        << "OFFLINE" << "ACCOUNTS" << "Q" << QString() << "Initial Catalog="
        << QStringList{"open " + kOffline + "Q;Data Source=", kFallback} << false << false;
    QTest::newRow("the command line falls back on the same server and login")
        << "LOCAL" << "S" << "QuorvexNone" << "tcp:S,1" << "QuorvexNone"
        << QStringList{"open " + kLocal + "QuorvexNone;Data Source=tcp:S,1", "open " + kLocal + "tempdb;Data Source=tcp:S,1"}
        << false << true;
    QTest::newRow("ONLINE on SERVER") << "ONLINE" << "SERVER" << "QuorvexH" << QString() << QString()
                                      << QStringList{"open " + kOnline + "QuorvexH;Data Source="} << true << true;
    QTest::newRow("ONLINE on QUORVEXMAIN") << "ONLINE" << "QUORVEXMAIN" << "QuorvexH" << QString() << QString()
                                           << QStringList{"open " + kOnline + "QuorvexH;Data Source="} << true << true;
    QTest::newRow("ONLINE on another server opens nothing yet succeeds")
        << "ONLINE" << "ACCOUNTS" << "QuorvexH" << QString() << QString() << QStringList{} << true << false;
    QTest::newRow("server compared with its case") << "ONLINE" << "server" << "QuorvexH" << QString() << QString()
                                                   << QStringList{} << true << false;
    QTest::newRow("unknown mode opens nothing yet succeeds") << "offline" << "SERVER" << "QuorvexH" << QString() << QString()
                                                             << QStringList{} << true << false;
    QTest::newRow("empty mode") << "" << "ACCOUNTS" << "QuorvexH" << QString() << QString() << QStringList{} << true << false;
}

void TestMdZrt::openConnection()
{
    QFETCH(QString, mode);
    QFETCH(QString, server);
    QFETCH(QString, database);
    QFETCH(QString, dataSource);
    QFETCH(QString, refusedOpen);
    QFETCH(QStringList, calls);
    QFETCH(bool, opened);
    QFETCH(bool, isOpen);

    ScriptedServer scripted;
    if (!refusedOpen.isEmpty())
        scripted.refusedOpens << refusedOpen;
    mdZRT module(scripted.connections(), dataSource,
                 dataSource.isEmpty() ? mdZRT::Fallback::LocalWindowsLogin : mdZRT::Fallback::SameServerAndLogin);
    QVERIFY(!module.ConnectionOpened());
    module.OpenConnection(mode, server, database);
    QCOMPARE(scripted.calls(), calls);
    QCOMPARE(module.ConnectionOpened(), opened);
    QCOMPARE(module.SharedConnection().isOpen(), isOpen);
    QCOMPARE(module.openFailure().ok, opened); // what a command names when it did not open
}

void TestMdZrt::openingAnOpenConnectionFails()
{
    ScriptedServer scripted;
    mdZRT module(scripted.connections());
    module.OpenConnection(QStringLiteral("OFFLINE"), QStringLiteral("ACCOUNTS"), QStringLiteral("QuorvexA"));
    QVERIFY(module.ConnectionOpened());
    module.OpenConnection(QStringLiteral("OFFLINE"), QStringLiteral("ACCOUNTS"), QStringLiteral("QuorvexB"));
    QVERIFY(!module.ConnectionOpened());
    QVERIFY(module.SharedConnection().isOpen());
    QCOMPARE(scripted.logs().size(), 1);
    QCOMPARE(scripted.calls().size(), 3);
    QCOMPARE(scripted.calls().last(), kFallback);
}

QTEST_APPLESS_MAIN(TestMdZrt)
#include "tst_mdzrt.moc"
