#include "odbcconnection.h"
#include "odbcconnectionstring.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

namespace {

QString asItStands(const QString &text)
{
    return text;
}

ResultSet singleRowKept()
{
    return ResultSet({QStringLiteral("Name")}, {{QStringLiteral("kept")}});
}

} // namespace

class TestOdbcConnection : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void sqliteStatementsAndResultSets();
    void freeTdsUnreachableServerFailsQuickly();

private:
    QTemporaryDir m_dir;
};

void TestOdbcConnection::initTestCase()
{
    QVERIFY(m_dir.isValid());
}

void TestOdbcConnection::sqliteStatementsAndResultSets()
{
    OdbcConnection connection(asItStands);
    QVERIFY(!connection.isOpen());
    QVERIFY(!connection.execute(QStringLiteral("Select 1")).ok);
    const QString odbc = QStringLiteral("DRIVER={SQLite3};Database=%1").arg(m_dir.filePath(QStringLiteral("a.db")));
    const DbStatus opened = connection.open(odbc);
    QVERIFY2(opened.ok, qPrintable(opened.message));
    QVERIFY(connection.isOpen());
    QVERIFY(!connection.open(odbc).ok);

    QVERIFY(connection.execute(QStringLiteral("CREATE TABLE tblA (Name text, Code text)")).ok);
    const DbStatus refused = connection.execute(QStringLiteral("CREATE TABLE tblA (Name text)"));
    QVERIFY(!refused.ok);
    QVERIFY(refused.message.contains(QLatin1String("already exists")));
    QVERIFY(connection.execute(QStringLiteral("Insert Into tblA (Name, Code) Values ('CASH', '19-10-000')")).ok);
    QVERIFY(connection.execute(QStringLiteral("Insert Into tblA (Name, Code) Values ('CAPITAL', '10-10-000')")).ok);

    ResultSet rows;
    QVERIFY(!rows.atEnd().has_value()); // never opened: the end test fails
    QVERIFY(connection.query(QStringLiteral("Select * From tblA Order By Code"), rows).ok);
    QCOMPARE(rows.atEnd(), std::optional<bool>(false));
    QCOMPARE(rows.field(QStringLiteral("Name"))->toString(), QStringLiteral("CAPITAL"));
    QCOMPARE(rows.field(QStringLiteral("code"))->toString(), QStringLiteral("10-10-000"));
    QVERIFY(!rows.field(QStringLiteral("Missing")).has_value());
    QVERIFY(rows.moveNext().ok);
    QCOMPARE(rows.field(QStringLiteral("Name"))->toString(), QStringLiteral("CASH"));
    QVERIFY(rows.moveNext().ok);
    QCOMPARE(rows.atEnd(), std::optional<bool>(true));
    QVERIFY(!rows.moveNext().ok);

    // The connection is free while the earlier result set stays in its variable.
    ResultSet empty;
    QVERIFY(connection.query(QStringLiteral("Select * From tblA Where Name = 'NONE'"), empty).ok);
    QCOMPARE(empty.atEnd(), std::optional<bool>(true));

    ResultSet kept = singleRowKept();
    QVERIFY(!connection.query(QStringLiteral("Select * From tblMissing"), kept).ok);
    QCOMPARE(kept.atEnd(), std::optional<bool>(false));

    rows.close();
    QVERIFY(!rows.atEnd().has_value());
    QVERIFY(connection.close().ok);
    QVERIFY(!connection.isOpen());
    QVERIFY(!connection.close().ok);
}

void TestOdbcConnection::freeTdsUnreachableServerFailsQuickly()
{
    // Nothing listens on port 1 of the loopback address.
    OdbcConnection connection([](const QString &oleDb) { return odbcFromOleDb(oleDb, QStringLiteral("FreeTDS")); });
    QElapsedTimer timer;
    timer.start();
    const DbStatus status = connection.open(QStringLiteral(
        "Provider=SQLOLEDB.1;Password=Tq482Harbor517;Persist Security Info=False;User ID=quorvex;Initial Catalog=master;Data Source=tcp:127.0.0.1,1"));
    QVERIFY(!status.ok);
    QVERIFY(!status.message.isEmpty());
    QVERIFY(!connection.isOpen());
    QVERIFY2(timer.elapsed() < 15000, qPrintable(QString::number(timer.elapsed())));
}

QTEST_GUILESS_MAIN(TestOdbcConnection)
#include "tst_odbcconnection.moc"
