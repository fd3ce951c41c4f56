#include "chartofaccounts_catalog.h"
#include "emptydatabasescript.h"
#include "scriptfixture.h"

#include <QTest>

class tst_ChartOfAccounts : public QObject
{
    Q_OBJECT

private slots:
    void emptyDatabaseScript();
    void accountOrder_data();
    void accountOrder();
};

void tst_ChartOfAccounts::emptyDatabaseScript()
{
    const QByteArray script = scriptText(statementsForEmptyDatabase(chartOfAccountsSteps()));
    const QByteArray expected = fixtureBytes(QStringLiteral("chart_phase.sql"));

    // Statement by statement first, so a failure names the statement.
    const QList<QByteArray> actualStatements = script.split('\n');
    const QList<QByteArray> expectedStatements = expected.split('\n');
    for (qsizetype i = 0; i < qMin(actualStatements.size(), expectedStatements.size()); ++i)
        QCOMPARE(actualStatements[i], expectedStatements[i]);
    QCOMPARE(script, expected);
}

void tst_ChartOfAccounts::accountOrder_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("balanceCode");

    QTest::newRow("CAPITAL") << 1 << "10-10-000" << "10-10-000";
    QTest::newRow("LOANS") << 2 << "11-10-000" << "11-10-000";
    QTest::newRow("FIXED ASSETS") << 3 << "12-10-000" << "12-10-000";
    QTest::newRow("CURRENT ASSETS") << 4 << "12-11-000" << "12-11-000";
    QTest::newRow("DEPRICIATION") << 5 << "12-12-000" << "12-12-000";
    QTest::newRow("SECURTIES") << 6 << "12-13-000" << "12-13-000";
    QTest::newRow("SYSTEM ACCOUNTS") << 7 << "13-10-000" << "13-10-000";
    QTest::newRow("INVOICE BALANCE") << 8 << "20-10-002" << "20-10-002";
    QTest::newRow("PURCHASER") << 9 << "14-10-000" << "14-10-000";
    QTest::newRow("CUSTOMERS") << 10 << "18-10-000" << "18-10-000";
    QTest::newRow("CASH") << 11 << "19-10-000" << "19-10-000";
    QTest::newRow("CASH IN HAND") << 12 << "19-10-001" << "19-10-001";
    QTest::newRow("CASH IN BANKS") << 13 << "19-11-000" << "19-11-000";
    QTest::newRow("CHEQUES IN HAND") << 14 << "19-12-000" << "19-12-000";
    QTest::newRow("SYSTEM SALE AND PURCHASE ACCOUNTS") << 15 << "20-10-000" << "20-10-001";
    QTest::newRow("PROFIT AND LOSS") << 16 << "20-11-001" << "20-11-001";
    QTest::newRow("SYSTEM PURCHASE ACCOUNT") << 17 << "20-12-000" << "20-12-000";
    QTest::newRow("ADMIN EXPENSES") << 18 << "21-10-000" << "21-10-000";
    QTest::newRow("ENTERTAINMENT") << 19 << "21-10-001" << "21-10-001";
    QTest::newRow("TRAVELING EXPENSES") << 20 << "21-10-002" << "21-10-002";
    QTest::newRow("PRINTING AND STATIONARY") << 21 << "21-10-003" << "21-10-003";
    QTest::newRow("OFFICE RENT") << 22 << "21-10-004" << "21-10-004";
    QTest::newRow("BANK CHARGES") << 23 << "21-10-005" << "21-10-005";
    QTest::newRow("TELEPHONE BILLS") << 24 << "21-10-006" << "21-10-006";
    QTest::newRow("ELECTRICITY BILLS") << 25 << "21-10-007" << "21-10-007";
    QTest::newRow("STAFF SALARIES") << 26 << "21-10-008" << "21-10-008";
}

void tst_ChartOfAccounts::accountOrder()
{
    QFETCH(int, position);
    QFETCH(QString, code);
    QFETCH(QString, balanceCode);

    const std::span<const ChartAccount> accounts = chartOfAccounts();
    QCOMPARE(accounts.size(), std::size_t(26));
    const ChartAccount &account = accounts[std::size_t(position - 1)];
    QCOMPARE(QLatin1String(account.name.data(), qsizetype(account.name.size())),
             QLatin1String(QTest::currentDataTag()));
    QCOMPARE(QLatin1String(account.code.data(), qsizetype(account.code.size())), code);
    QCOMPARE(QLatin1String(account.balanceCode.data(), qsizetype(account.balanceCode.size())), balanceCode);
}

QTEST_APPLESS_MAIN(tst_ChartOfAccounts)
#include "tst_chartofaccounts.moc"
