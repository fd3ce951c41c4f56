#include "connectionprofiles.h"
#include "odbcconnection.h"
#include "openfailure.h"
#include "tdslistener.h"
#include "testcertificate.h"

#include <QTemporaryDir>
#include <QTest>

using namespace ConnectionProfiles;

Q_DECLARE_METATYPE(TdsListener::Script)

class TestConnectionStrings : public QObject
{
    Q_OBJECT

private slots:
    void theLoginNamesTheDatabase_data();
    void theLoginNamesTheDatabase();
    void openFails_data();
    void openFails();
    void encryption_data();
    void encryption();

private:
    QTemporaryDir m_dir;
};

void TestConnectionStrings::theLoginNamesTheDatabase_data()
{
    QTest::addColumn<QString>("database");
    QTest::addColumn<QString>("landsIn");       // where the server says the login landed; empty: it says nothing
    QTest::addColumn<QStringList>("batches"); // sent once logged in
    QTest::newRow("brace ending the value, then keywords") << "x};PORT=1;Z={" << "" << QStringList();
    QTest::newRow("doubled closing brace") << "}}" << "" << QStringList();
    QTest::newRow("equals sign and semicolon") << "=;" << "" << QStringList();
    QTest::newRow("file data source") << "Books.dsn" << "" << QStringList();
    QTest::newRow("quotes") << "O'Brien \"Ltd\"" << "" << QStringList();
    QTest::newRow("closing bracket") << "a]b" << "" << QStringList();
    QTest::newRow("Latin-1 letters") << "Quorvexäöüß" << "" << QStringList();
    QTest::newRow("other scripts: selected by name once logged in")
        << QStringLiteral("Ж]語").repeated(60) << "" << QStringList{"USE [" + QStringLiteral("Ж]]語").repeated(60) + "]"};
    QTest::newRow("landed as asked") << "QuorvexA" << "quorvexa" << QStringList();
    QTest::newRow("landed elsewhere: selected by name") << "a]b" << "master" << QStringList{"USE [a]]b]"};
}

void TestConnectionStrings::theLoginNamesTheDatabase()
{
    QFETCH(QString, database);
    QFETCH(QString, landsIn);
    QFETCH(QStringList, batches);
    TdsListener server({.landsIn = landsIn});
    const DbStatus opened = sqlServerConnections()()->open(runConnectionString(*prefix("LOCAL"), database, server.dataSource()));
    QVERIFY2(opened.ok, qPrintable(opened.message));
    const TdsListener::Received received = server.received();
    QCOMPARE(received.user, "quorvex");
    QCOMPARE(received.database, batches.isEmpty() || !landsIn.isEmpty() ? database : QString());
    QCOMPARE(received.batches, batches);
}

void TestConnectionStrings::openFails_data()
{
    QTest::addColumn<TdsListener::Script>("script");
    QTest::addColumn<QString>("serverSuffix");
    QTest::addColumn<QByteArray>("encrypt");
    QTest::addColumn<OpenFailure>("failure");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("connections");
    const TdsListener::Script answering;
    QTest::newRow("server with keywords") << answering << ";PORT=1" << QByteArray() << OpenFailure::Other << "; { } =" << 0;
    QTest::newRow("server with a brace") << answering << "}" << QByteArray() << OpenFailure::Other << "; { } =" << 0;
    QTest::newRow("a second server in the server name")
        << answering << ";Data Source=127.0.0.1,1" << QByteArray() << OpenFailure::Other << "Data Source" << 0;
    QTest::newRow("encryption neither requested nor required")
        << answering << QString() << QByteArray("off") << OpenFailure::Other << "ZRT_ENCRYPT" << 0;
    QTest::newRow("encryption required of a server without it")
        << answering << QString() << QByteArray("require-unverified") << OpenFailure::Unreachable << QString() << 1;
    QTest::newRow("login refused")
        << TdsListener::Script{.loginError = TdsListener::Error{18456, "Login failed for user 'quorvex'."}} << QString()
        << QByteArray() << OpenFailure::LoginRefused << "Login failed for user 'quorvex'." << 1;
    QTest::newRow("database missing")
        << TdsListener::Script{.loginError = TdsListener::Error{4060, "Cannot open database \"QuorvexA\"."}} << QString()
        << QByteArray() << OpenFailure::DatabaseMissing << "Cannot open database" << 1;
    QTest::newRow("landed elsewhere, and the database will not be selected")
        << TdsListener::Script{.refusedBatch = "USE", .landsIn = "master"} << QString() << QByteArray()
        << OpenFailure::Other << "Refused by the listener." << 1;
}

void TestConnectionStrings::openFails()
{
    QFETCH(TdsListener::Script, script);
    QFETCH(QString, serverSuffix);
    QFETCH(QByteArray, encrypt);
    QFETCH(OpenFailure, failure);
    QFETCH(QString, message);
    QFETCH(int, connections);
    TdsListener server(script);
    qputenv("ZRT_ENCRYPT", encrypt.isEmpty() ? QByteArray("request") : encrypt);
    const auto connection = sqlServerConnections()();
    const DbStatus opened = connection->open(runConnectionString(*prefix("LOCAL"), "QuorvexA", server.dataSource() + serverSuffix));
    qunsetenv("ZRT_ENCRYPT");
    QVERIFY(!opened.ok);
    QVERIFY(!connection->isOpen());
    QVERIFY2(opened.message.contains(message), qPrintable(opened.message));
    QCOMPARE(openFailureOf(opened), failure);
    QCOMPARE(server.received().connections, connections);
}

void TestConnectionStrings::encryption_data()
{
    QTest::addColumn<QByteArray>("encrypt");
    QTest::addColumn<QString>("ca");       // ZRT_TLS_CA: "the test's", a file name, or empty: the system's store
    QTest::addColumn<QString>("server");   // its certificate: "trusted" (the CA's, for 127.0.0.1), "elsewhere", "self-signed"
    QTest::addColumn<QString>("refusal");  // empty: opened
    QTest::addColumn<QString>("user");     // the last to log in, encrypted; empty: nothing sent
    const QString probe = QStringLiteral("zrt-certificate-probe");
    QTest::newRow("require: the CA given, the name matches") << QByteArray("require") << "the test's" << "trusted" << "" << "quorvex";
    QTest::newRow("require: an unknown CA")
        << QByteArray("require") << "the test's" << "self-signed" << "certificate not trusted" << probe;
    QTest::newRow("require: another host's name")
        << QByteArray("require") << "the test's" << "elsewhere" << "host name does not match" << probe;
    QTest::newRow("require: a CA the system does not know")
        << QByteArray("require") << "" << "trusted" << "certificate not trusted" << probe;
    QTest::newRow("require: a CA file name that freetds.conf misreads")
        << QByteArray("require") << "ca.pem\n[x]" << "trusted" << "ZRT_TLS_CA names \"ca.pem" << "";
    QTest::newRow("require-unverified: self-signed") << QByteArray("require-unverified") << "" << "self-signed" << "" << "quorvex";
    QTest::newRow("request: encrypted as the server requires") << QByteArray("request") << "" << "self-signed" << "" << "quorvex";
}

void TestConnectionStrings::encryption()
{
    QFETCH(QByteArray, encrypt);
    QFETCH(QString, ca);
    QFETCH(QString, server);
    QFETCH(QString, refusal);
    QFETCH(QString, user);
    const QString path = testCertificate(m_dir.path(), server, server == "elsewhere" ? "DNS:elsewhere.example" : "IP:127.0.0.1",
                                         server == "self-signed");
    TdsListener listener({.certificate = path + ".pem", .key = path + ".key"});
    qputenv("ZRT_ENCRYPT", encrypt);
    qputenv("ZRT_TLS_CA", QFile::encodeName(ca == "the test's" ? testCertificate(m_dir.path(), "ca") + ".pem" : ca));
    const DbStatus opened = sqlServerConnections()()->open(runConnectionString(*prefix("LOCAL"), "QuorvexA", listener.dataSource()));
    qunsetenv("ZRT_ENCRYPT");
    qunsetenv("ZRT_TLS_CA");
    QVERIFY2(opened.ok == refusal.isEmpty() && opened.message.contains(refusal), qPrintable(opened.message));
    // A server refused saw only a login of no one, under TLS, to find out why.
    QCOMPARE(listener.received().user, user);
    QCOMPARE(listener.received().encrypted, user.isEmpty() ? 0 : 1);
}

QTEST_APPLESS_MAIN(TestConnectionStrings)
#include "tst_connectionstrings.moc"
