#include "maintenancerun.h"
#include "mdzrt.h"
#include "runplan.h"
#include "scriptedconnection.h"

#include <QTest>

using CallCounts = QMap<QString, int>;

class tst_Guards : public QObject
{
    Q_OBJECT

private slots:
    void guardsOfTheRun_data();
    void guardsOfTheRun();
};

void tst_Guards::guardsOfTheRun_data()
{
    QTest::addColumn<int>("runs");             // one window, one run after the other
    QTest::addColumn<QStringList>("withRows"); // Selects that find two rows
    QTest::addColumn<QStringList>("failing");
    QTest::addColumn<CallCounts>("times");     // how often each call is made in all

    const QString closingDateTest = QStringLiteral("Select ClosingDate From tblClosingDate");
    const QString closingDate = QStringLiteral("execute Insert Into tblClosingDate (ClosingDate) Values ('1/1/2000')");
    const QString administrator = QStringLiteral("Select UserName From tblLogon Where UserName='ADMINISTRATOR'");
    const QString administratorInsert = QStringLiteral("execute Insert Into tblLogon (UserName,Password,UserType) Values ('ADMINISTRATOR','TULIPOAK','ADMINISTRATOR')");
    const QString configTest = QStringLiteral("Select * From tblConfig");
    const QString configInsert = QStringLiteral("execute Insert Into tblConfig (ValueInPoints,DecimalPointsYes,DecimalPointsNo,UpdateStatus) Values ('NO',0,2,0)");
    const QString stamp = QStringLiteral("execute Update tblConfig Set UpdateStatus='20210105'");
    const QString capitalByName = QStringLiteral("Select PartyName From tblPartyInfo Where PartyName='CAPITAL'");
    const QString capitalByCode = QStringLiteral("Select PartyCode From tblPartyInfo Where PartyCode='10-10-000'");
    const QString capitalInsert = QStringLiteral("Insert Into tblPartyInfo (PartyName,PartyCode) Values ('CAPITAL','10-10-000')");
    const QString capitalBalance = QStringLiteral("execute Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','CAPITAL','10-10-000','OPENING BALANCE')");
    const QString loansByCode = QStringLiteral("Select PartyCode From tblPartyInfo Where PartyCode='11-10-000'");
    const QString loansInsert = QStringLiteral("execute Insert Into tblPartyInfo (PartyName,PartyCode) Values ('LOANS','11-10-000')");
    const QString saleInsert = QStringLiteral("Insert Into tblPartyInfo (PartyName,PartyCode) Values ('SYSTEM SALE AND PURCHASE ACCOUNTS','20-10-000')");
    const QString saleBalance = QStringLiteral("execute Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','SYSTEM SALE AND PURCHASE ACCOUNTS','20-10-001','OPENING BALANCE')");
    const QString lastByName = QStringLiteral("Select PartyName From tblPartyInfo Where PartyName='STAFF SALARIES'");
    const QString q = QStringLiteral("query ");
    const QString e = QStringLiteral("execute ");

    QTest::newRow("a closing date that was set is kept")
        << 1 << QStringList{closingDateTest} << QStringList() << CallCounts{{closingDate, 0}, {administratorInsert, 1}};
    QTest::newRow("an administrator is kept with the password he has")
        << 1 << QStringList{administrator} << QStringList() << CallCounts{{closingDate, 1}, {administratorInsert, 0}};
    QTest::newRow("a configuration of two rows gets no third; both are stamped once")
        << 1 << QStringList{configTest} << QStringList() << CallCounts{{configInsert, 0}, {stamp, 1}};
    QTest::newRow("an account found by name is not tested by code")
        << 1 << QStringList{capitalByName} << QStringList()
        << CallCounts{{q + capitalByName, 1}, {q + capitalByCode, 0}, {e + capitalInsert, 0}, {capitalBalance, 0}};
    QTest::newRow("an account found by code is not inserted")
        << 1 << QStringList{capitalByCode} << QStringList()
        << CallCounts{{q + capitalByCode, 1}, {e + capitalInsert, 0}, {capitalBalance, 0}};
    QTest::newRow("a failing party insert is still followed by its opening row")
        << 1 << QStringList() << QStringList{capitalInsert, saleInsert}
        << CallCounts{{e + capitalInsert, 1}, {capitalBalance, 1}, {e + saleInsert, 1}, {saleBalance, 1}};
    QTest::newRow("a failing test on a variable never opened counts as no row")
        << 1 << QStringList() << QStringList{closingDateTest, configTest} << CallCounts{{closingDate, 1}, {configInsert, 1}};
    QTest::newRow("a failing name test reads the administrator's row that its variable still holds")
        << 1 << QStringList{administrator} << QStringList{capitalByName}
        << CallCounts{{q + capitalByName, 1}, {q + capitalByCode, 0}, {e + capitalInsert, 0}};
    QTest::newRow("a failing code test reads the code test before it on its own variable")
        << 1 << QStringList{capitalByCode} << QStringList{loansByCode} << CallCounts{{q + loansByCode, 1}, {loansInsert, 0}};
    QTest::newRow("the window's variable keeps the last account's test for the next run")
        << 2 << QStringList{lastByName} << QStringList{closingDateTest} << CallCounts{{closingDate, 1}};
    QTest::newRow("the configuration variable goes with its run")
        << 2 << QStringList{"Select PartyCode From tblPartyInfo Where PartyCode='21-10-008'"} << QStringList{configTest} << CallCounts{{configInsert, 2}, {stamp, 2}};
}

void tst_Guards::guardsOfTheRun()
{
    QFETCH(int, runs);
    QFETCH(QStringList, withRows);
    QFETCH(QStringList, failing);
    QFETCH(CallCounts, times);

    ScriptedServer server;
    for (const QString &select : withRows)
        server.answers.insert(select, singleColumn(QStringLiteral("Found"), {QStringLiteral("1"), QStringLiteral("2")}));
    server.failingStatements = QSet<QString>(failing.begin(), failing.end());
    CheckRecordsets windowRecordsets;
    for (int run = 0; run < runs; ++run) {
        mdZRT module(server.connections());
        HeadlessRunHost host;
        MaintenanceRun(module, host, windowRecordsets)
            .run({QStringLiteral("OFFLINE"), QStringLiteral("ACCOUNTS"), QStringLiteral("Quorvex2024")},
                 maintenanceSteps());
    }
    QStringList calls;
    for (const QStringList &log : server.logs())
        calls += log;
    for (auto call = times.cbegin(); call != times.cend(); ++call)
        QVERIFY2(calls.count(call.key()) == call.value(), qPrintable(call.key()));
}

QTEST_APPLESS_MAIN(tst_Guards)
#include "tst_guards.moc"
