#include "commandinvocation.h"

#include <QTest>

namespace {

constexpr char kVariable[] = "ZRT_TEST_SQLSERVER";

} // namespace

// Runs against a real SQL Server when ZRT_TEST_SQLSERVER holds an ODBC
// connection string to its master database; skipped otherwise.
class TestSqlServer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void firstAndSecondRun();
    void cleanupTestCase();

private:
    QString m_master;
    QString m_database;
};

void TestSqlServer::initTestCase()
{
    m_master = qEnvironmentVariable(kVariable);
    if (m_master.isEmpty())
        QSKIP("set ZRT_TEST_SQLSERVER to an ODBC connection string to a SQL Server's master database");
    m_database = QStringLiteral("QuorvexZrtTest%1").arg(QCoreApplication::applicationPid());
    auto master = odbcConnectionsTo(m_master)();
    QVERIFY(master->open(QString()).ok);
    QVERIFY(master->execute(QStringLiteral("CREATE DATABASE [%1]").arg(m_database)).ok);
}

void TestSqlServer::firstAndSecondRun()
{
    const QString odbc = m_master + QStringLiteral(";DATABASE=") + m_database;
    const QStringList run{"run", "--mode", "LOCAL", "--database", m_database, "--odbc", odbc};
    const Invocation first = invoke(run);
    QCOMPARE(first.exit, 0);
    QCOMPARE(summaryCount(first.out, "Columns added"), 221);
    QCOMPARE(summaryCount(first.out, "Accounts written"), 26);
    // Only the Stock view fails: no run creates the table it reads.
    QCOMPARE(summaryCount(first.out, "  failed for another reason"), 1);

    const Invocation second = invoke(run);
    QCOMPARE(second.exit, 0);
    QCOMPARE(summaryCount(second.out, "Columns added"), 0);
    QCOMPARE(summaryCount(second.out, "Accounts written"), 0);
    QCOMPARE(summaryCount(second.out, "Built-in rows written"), 1);
    QCOMPARE(summaryCount(second.out, "  failed for another reason"), 1);

    const Invocation check = invoke({"check", "--mode", "LOCAL", "--database", m_database, "--odbc", odbc});
    QVERIFY2(check.out.contains(QLatin1String("1 difference")), qPrintable(check.out));
}

void TestSqlServer::cleanupTestCase()
{
    if (m_database.isEmpty())
        return;
    auto master = odbcConnectionsTo(m_master)();
    if (master->open(QString()).ok)
        master->execute(QStringLiteral("DROP DATABASE [%1]").arg(m_database));
}

QTEST_GUILESS_MAIN(TestSqlServer)
#include "tst_sqlserver.moc"
