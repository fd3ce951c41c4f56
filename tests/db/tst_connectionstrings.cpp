#include "connectionprofiles.h"
#include "odbcconnection.h"
#include "tdslistener.h"

#include <QTest>

using namespace ConnectionProfiles;

namespace {

// The catalog that a "USE [name]" batch selects, as the server reads it.
QString selectedCatalog(const QStringList &batches)
{
    for (const QString &batch : batches) {
        if (batch.startsWith(QLatin1String("USE [")) && batch.endsWith(QLatin1Char(']')))
            return batch.mid(5, batch.size() - 6).replace(QLatin1String("]]"), QLatin1String("]"));
    }
    return QString();
}

} // namespace

class TestConnectionStrings : public QObject
{
    Q_OBJECT

private slots:
    void namesReachTheChosenServer_data();
    void namesReachTheChosenServer();
    void openFails_data();
    void openFails();
};

void TestConnectionStrings::namesReachTheChosenServer_data()
{
    QTest::addColumn<QString>("database");
    QTest::newRow("brace ending the value, then keywords") << "x};PORT=1;Z={";
    QTest::newRow("doubled closing brace") << "}}";
    QTest::newRow("opening brace") << "{";
    QTest::newRow("equals sign") << "=";
    QTest::newRow("semicolon") << ";";
    QTest::newRow("a data source inside the name") << "x;Data Source=tcp:127.0.0.1,1";
    QTest::newRow("file data source") << "Books.dsn";
    QTest::newRow("quotes") << "O'Brien \"Ltd\"";
    QTest::newRow("closing bracket") << "a]b";
    QTest::newRow("200 letters of other scripts") << QStringLiteral("Ж語").repeated(100);
}

void TestConnectionStrings::namesReachTheChosenServer()
{
    QFETCH(QString, database);
    TdsListener server;
    const DbStatus opened = sqlServerConnections()()->open(runConnectionString(*prefix("LOCAL"), database, server.dataSource()));
    QVERIFY2(opened.ok, qPrintable(opened.message));
    const TdsListener::Received received = server.received();
    QCOMPARE(received.user, "quorvex");
    QVERIFY(received.database.isEmpty());
    QCOMPARE(selectedCatalog(received.batches), database);
}

void TestConnectionStrings::openFails_data()
{
    QTest::addColumn<QString>("serverSuffix");
    QTest::addColumn<QByteArray>("encrypt");
    QTest::addColumn<QString>("refusedBatch");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("connections");
    QTest::newRow("server with keywords") << ";PORT=1" << QByteArray() << QString() << "; { } =" << 0;
    QTest::newRow("server with a brace") << "}" << QByteArray() << QString() << "; { } =" << 0;
    QTest::newRow("encryption neither requested nor required") << QString() << QByteArray("off") << QString()
                                                               << "ZRT_ENCRYPT" << 0;
    QTest::newRow("encryption required of a server without it") << QString() << QByteArray("require") << QString()
                                                                 << QString() << 1;
    QTest::newRow("catalog the server will not select") << QString() << QByteArray() << "USE"
                                                        << "Refused by the listener." << 1;
}

void TestConnectionStrings::openFails()
{
    QFETCH(QString, serverSuffix);
    QFETCH(QByteArray, encrypt);
    QFETCH(QString, refusedBatch);
    QFETCH(QString, message);
    QFETCH(int, connections);
    TdsListener server(TdsListener::Manner::Answering, refusedBatch);
    qputenv("ZRT_ENCRYPT", encrypt.isEmpty() ? QByteArray("request") : encrypt);
    const auto connection = sqlServerConnections()();
    const DbStatus opened = connection->open(runConnectionString(*prefix("LOCAL"), "QuorvexA", server.dataSource() + serverSuffix));
    qunsetenv("ZRT_ENCRYPT");
    QVERIFY(!opened.ok);
    QVERIFY(!connection->isOpen());
    QVERIFY2(opened.message.contains(message), qPrintable(opened.message));
    QCOMPARE(opened.nativeError, refusedBatch.isEmpty() ? 0 : TdsListener::kRefusal);
    QCOMPARE(server.received().connections, connections);
}

QTEST_APPLESS_MAIN(TestConnectionStrings)
#include "tst_connectionstrings.moc"
