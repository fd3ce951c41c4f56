#include "commandinvocation.h"

#include <QDir>
#include <QJsonObject>
#include <QTest>

// Runs against a real SQL Server when ZRT_TEST_SQLSERVER holds an ODBC
// connection string to its master database; skipped otherwise. What only the
// server's own rules show is tested here.
class TestSqlServer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void scenario_data();
    void scenario();
    void liveSessions_data();
    void liveSessions();

private:
    // A new database that a run has brought up to date.
    QString runDatabase();
    // Sends each statement to `database` (master when empty); the first
    // column of the last statement's first row, if it yields one.
    QString send(const QString &database, const QStringList &statements);

    QString m_master;
    int m_databases = 0;
};

void TestSqlServer::initTestCase()
{
    m_master = qEnvironmentVariable("ZRT_TEST_SQLSERVER");
    if (m_master.isEmpty())
        QSKIP("ZRT_TEST_SQLSERVER is not set: set it to an ODBC connection string to a SQL Server's master database");
}

QString TestSqlServer::send(const QString &database, const QStringList &statements)
{
    const QString odbc = database.isEmpty() ? m_master : m_master + QStringLiteral(";DATABASE=") + database;
    const std::unique_ptr<Connection> connection = odbcConnectionsTo(odbc)();
    if (!connection->open(QString()).ok)
        return QStringLiteral("cannot open");
    ResultSet rows;
    for (const QString &statement : statements) {
        const DbStatus status = connection->query(statement, rows);
        if (!status.ok)
            return status.message;
    }
    const std::optional<QVariant> value = rows.isOpen() && !rows.atEnd().value_or(true)
        ? rows.field(QStringLiteral("v")) : std::nullopt;
    return value ? value->toString() : QString();
}

void TestSqlServer::scenario_data()
{
    QTest::addColumn<QStringList>("before"); // sent to the new database before the first run
    QTest::addColumn<QString>("probe");      // read after two runs, as a column named v
    QTest::addColumn<QString>("expected");

    QTest::newRow("a new database")
        << QStringList() << "SELECT COUNT(*) AS v FROM tblPartyInfo" << "26";
    QTest::newRow("an older database gains its missing columns")
        << QStringList{"CREATE TABLE tblInvoice (SrNo bigint IDENTITY (1, 1) NOT NULL, InvoiceNo nvarchar(10) NOT NULL)",
                       "INSERT INTO tblInvoice (InvoiceNo) VALUES ('A-1')"}
        << "SELECT COUNT(*) AS v FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'tblInvoice' AND COLUMN_NAME = 'UserName'"
        << "1";
    QTest::newRow("widened columns keep their data")
        << QStringList{"CREATE TABLE tblPartyInfo (PartySrNo bigint IDENTITY (1, 1) NOT NULL, PartyPhone nvarchar(50) NOT NULL)",
                       "INSERT INTO tblPartyInfo (PartyPhone) VALUES ('0300-1234567')"}
        << "SELECT MAX(PartyPhone) + '/' + CAST(COL_LENGTH('tblPartyInfo', 'PartyPhone') / 2 AS varchar) AS v FROM tblPartyInfo"
        << "0300-1234567/100";
    QTest::newRow("a table with rows refuses a NOT NULL column without default")
        << QStringList{"CREATE TABLE tblEmployeeStock (SrNo bigint IDENTITY (1, 1) NOT NULL)",
                       "INSERT INTO tblEmployeeStock DEFAULT VALUES"}
        << "SELECT COUNT(*) AS v FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'tblEmployeeStock' AND COLUMN_NAME = 'StockDate'"
        << "0";
    QTest::newRow("the scratch tables come back empty")
        << QStringList{"CREATE TABLE tblInvoiceEmpty (SrNo bigint IDENTITY (1, 1) NOT NULL)",
                       "INSERT INTO tblInvoiceEmpty DEFAULT VALUES"}
        << "SELECT COUNT(*) AS v FROM tblInvoiceEmpty" << "0";
    QTest::newRow("the administrator's changed password and the closing date are kept")
        << QStringList{"CREATE TABLE tblLogon (UserName nvarchar(50) NOT NULL, Password nvarchar(50) NOT NULL, UserType nvarchar(13) NOT NULL)",
                       "INSERT INTO tblLogon VALUES ('ADMINISTRATOR', 'CHANGED', 'ADMINISTRATOR')",
                       "CREATE TABLE tblClosingDate (ClosingDate DateTime NOT NULL)",
                       "INSERT INTO tblClosingDate VALUES ('2024-06-30')"}
        << "SELECT MAX(Password) + '/' + CONVERT(varchar, (SELECT MAX(ClosingDate) FROM tblClosingDate), 23) AS v FROM tblLogon"
        << "CHANGED/2024-06-30";
    QTest::newRow("the views that a run cannot drop are kept")
        << QStringList() << "SELECT COUNT(*) AS v FROM INFORMATION_SCHEMA.VIEWS" << "61";
}

void TestSqlServer::scenario()
{
    QFETCH(QStringList, before);
    QFETCH(QString, probe);
    QFETCH(QString, expected);

    const QString database =
        QStringLiteral("QuorvexZrtTest%1_%2").arg(QCoreApplication::applicationPid()).arg(++m_databases);
    QCOMPARE(send(QString(), {QStringLiteral("CREATE DATABASE [%1]").arg(database)}), QString());
    if (!before.isEmpty())
        QCOMPARE(send(database, before), QString());
    const QString odbc = m_master + QStringLiteral(";DATABASE=") + database;
    const QStringList run{"run", "--mode", "LOCAL", "--database", database, "--odbc", odbc, "--report"};
    const QString reports = QDir::temp().filePath(database);
    // A preview first: the run that follows answers statement for statement as it did.
    const Invocation plan = invoke(QStringList{"plan"} + run.mid(1) + QStringList{reports + ".plan"});
    const Invocation first = invoke(run + QStringList{reports + ".run"});
    const Invocation second = invoke(run + QStringList{reports + ".second"});
    QCOMPARE(outcomes(reports + ".plan"), outcomes(reports + ".run"));
    QCOMPARE(send(database, {QStringLiteral("SELECT @@TRANCOUNT AS v")}), QStringLiteral("0"));
    const QString found = send(database, {probe});
    send(QString(), {QStringLiteral("DROP DATABASE [%1]").arg(database)});
    QVERIFY2(plan.err.isEmpty() && first.err.isEmpty() && second.err.isEmpty(), qPrintable(plan.err + first.err + second.err));
    QCOMPARE(found, expected);
}

QString TestSqlServer::runDatabase()
{
    const QString database =
        QStringLiteral("QuorvexZrtTest%1_%2").arg(QCoreApplication::applicationPid()).arg(++m_databases);
    if (!send(QString(), {QStringLiteral("CREATE DATABASE [%1]").arg(database)}).isEmpty())
        return QString();
    invoke({"run", "--mode", "LOCAL", "--database", database, "--odbc", m_master + QStringLiteral(";DATABASE=") + database});
    return database;
}

// A user's open transaction on a table the run drops: the run's statement
// waits its lock timeout, is sent again, and goes through once the user
// commits, or counts as blocked, naming the user. A second run started while
// the first pauses is busy and sends nothing.
void TestSqlServer::liveSessions_data()
{
    QTest::addColumn<bool>("letGo");      // the user commits at the run's first pause
    QTest::addColumn<bool>("secondRun");  // another run starts during that pause
    QTest::addColumn<int>("exit");
    QTest::addColumn<QString>("printed");
    QTest::newRow("the user commits") << true << false << 0 << "completed: ";
    QTest::newRow("the user's transaction stays open") << false << false << 3 << "blocked: ";
    QTest::newRow("two runs at once") << true << true << 0 << "completed: ";
}

void TestSqlServer::liveSessions()
{
    QFETCH(bool, letGo);
    QFETCH(bool, secondRun);
    QFETCH(int, exit);
    QFETCH(QString, printed);
    const QString database = runDatabase();
    QVERIFY(!database.isEmpty());
    const QString odbc = m_master + QStringLiteral(";DATABASE=") + database;
    const std::unique_ptr<Connection> user = odbcConnectionsTo(odbc + QStringLiteral(";APP=zrt-test-user"))();
    QVERIFY(user->open(QString()).ok);
    ResultSet rows;
    QVERIFY(user->setAutocommit(false).ok);
    QVERIFY(user->query(QStringLiteral("SELECT COUNT(*) AS v FROM tblKWClientInfo WITH (TABLOCKX, HOLDLOCK)"), rows).ok);
    const QString report = QDir::temp().filePath(database + QStringLiteral(".live"));
    const QStringList arguments{"run", "--mode", "LOCAL", "--database", database, "--odbc", odbc, "--lock-timeout", "1",
                                "--lock-retries", "2", "--report"};
    Invocation second;
    int pauses = 0;
    const Invocation run = invoke(arguments + QStringList{report}, {}, nullptr, nullptr, false, [&](std::chrono::milliseconds) {
        if (++pauses == 1 && secondRun)
            second = invoke(arguments + QStringList{report + QStringLiteral(".second")});
        if (pauses == 1 && letGo)
            user->setAutocommit(true); // commits the user's transaction
        return true;
    });
    user->close();
    send(QString(), {QStringLiteral("ALTER DATABASE [%1] SET SINGLE_USER WITH ROLLBACK IMMEDIATE").arg(database),
                     QStringLiteral("DROP DATABASE [%1]").arg(database)});
    QVERIFY2((run.out + run.err).contains(printed), qPrintable(run.out + run.err));
    QCOMPARE(run.exit, exit);
    const QJsonObject drop = reportLines(report).value(3); // the third statement drops tblKWClientInfo
    QCOMPARE(drop["text"].toString(), QStringLiteral("drop table [dbo].[tblKWClientInfo]"));
    QCOMPARE(drop["tries"].toInt(), letGo ? 2 : 3);
    // Each refused try waited the lock timeout, not the statement's 30 s.
    QVERIFY2(drop["milliseconds"].toDouble() >= 1000 && drop["milliseconds"].toDouble() < 10000,
             qPrintable(QString::number(drop["milliseconds"].toDouble())));
    if (!letGo)
        QVERIFY2(drop["message"].toString().contains("program zrt-test-user"), qPrintable(drop["message"].toString()));
    if (secondRun) {
        QCOMPARE(second.exit, 3);
        QVERIFY2(second.err.contains("busy: another run holds " + database), qPrintable(second.err));
        QCOMPARE(reportLines(report + QStringLiteral(".second")).size(), 2); // its context and its end: nothing sent
    }
}

QTEST_GUILESS_MAIN(TestSqlServer)
#include "tst_sqlserver.moc"
