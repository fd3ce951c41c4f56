#include "maintenancerun.h"
#include "mdzrt.h"
#include "runplan.h"
#include "scriptedconnection.h"

#include <QTest>

Q_DECLARE_METATYPE(Recordset)

namespace {

const QString kEarlierTest = QStringLiteral("Select Earlier From tblEarlier");
const QString kEarlierInsert = QStringLiteral("Insert Into tblEarlier (Earlier) Values (1)");
const QString kFailingTest = QStringLiteral("Select Failing From tblFailing");
const QString kGuardedInsert = QStringLiteral("Insert Into tblFailing (Failing) Values (1)");

// A host that shows nothing and whose file dialog yields an empty file.
class QuietHost : public HeadlessRunHost
{
public:
    std::optional<DatabaseFile> chooseDatabaseFile() override { return DatabaseFile{}; }
};

// A scripted server behind the shared connection, and the window's result-set
// variables, which outlive each run.
class ScriptedRuns
{
public:
    ScriptedServer server;
    CheckRecordsets recordsets;

    void run(const Steps &steps)
    {
        mdZRT module(server.connections());
        QuietHost host;
        MaintenanceRun(module, host, recordsets)
            .run({QStringLiteral("OFFLINE"), QStringLiteral("ACCOUNTS"), QStringLiteral("Quorvex2024")}, steps);
    }

    qsizetype sent(const QString &call) const
    {
        qsizetype times = 0;
        for (const QStringList &log : server.logs())
            times += log.count(call);
        return times;
    }
};

Step guardedInsert(const QString &select, Recordset into, const QString &insert)
{
    return Step::guard(select, into, {Step::execute(Action::InsertBuiltInRow, insert)});
}

} // namespace

class tst_Guards : public QObject
{
    Q_OBJECT

private slots:
    void failingTestLooksAtPreviousSet_data();
    void failingTestLooksAtPreviousSet();
    void setsAcrossRuns_data();
    void setsAcrossRuns();
    void guardsOfTheRun_data();
    void guardsOfTheRun();
};

void tst_Guards::failingTestLooksAtPreviousSet_data()
{
    QTest::addColumn<Recordset>("earlierInto");
    QTest::addColumn<bool>("earlierFindsRow");
    QTest::addColumn<Recordset>("failingInto");
    QTest::addColumn<bool>("insertRuns");

    QTest::newRow("previous set held a row") << Recordset::Check << true << Recordset::Check << false;
    QTest::newRow("previous set was empty") << Recordset::Check << false << Recordset::Check << true;
    QTest::newRow("inner variable keeps its own set") << Recordset::InnerCheck << true << Recordset::InnerCheck << false;
    QTest::newRow("configuration variable keeps its own set") << Recordset::Config << true << Recordset::Config << false;
    QTest::newRow("check variable never opened") << Recordset::InnerCheck << true << Recordset::Check << true;
    QTest::newRow("inner variable never opened") << Recordset::Check << true << Recordset::InnerCheck << true;
    QTest::newRow("configuration variable never opened") << Recordset::Check << true << Recordset::Config << true;
}

void tst_Guards::failingTestLooksAtPreviousSet()
{
    QFETCH(Recordset, earlierInto);
    QFETCH(bool, earlierFindsRow);
    QFETCH(Recordset, failingInto);
    QFETCH(bool, insertRuns);

    ScriptedRuns runs;
    if (earlierFindsRow)
        runs.server.answers.insert(kEarlierTest, singleColumn(QStringLiteral("Earlier"), {QStringLiteral("1")}));
    runs.server.failingStatements << kFailingTest;
    runs.run({guardedInsert(kEarlierTest, earlierInto, kEarlierInsert),
              guardedInsert(kFailingTest, failingInto, kGuardedInsert)});

    QCOMPARE(runs.sent(QLatin1String("query ") + kFailingTest), 1);
    QCOMPARE(runs.sent(QLatin1String("execute ") + kEarlierInsert), earlierFindsRow ? 0 : 1);
    QCOMPARE(runs.sent(QLatin1String("execute ") + kGuardedInsert), insertRuns ? 1 : 0);
}

void tst_Guards::setsAcrossRuns_data()
{
    QTest::addColumn<Recordset>("into");
    QTest::addColumn<bool>("insertRuns");

    // The window holds the two check variables; the configuration set goes
    // with the run that opened it.
    QTest::newRow("check set of the earlier run") << Recordset::Check << false;
    QTest::newRow("inner check set of the earlier run") << Recordset::InnerCheck << false;
    QTest::newRow("configuration set of the earlier run") << Recordset::Config << true;
}

void tst_Guards::setsAcrossRuns()
{
    QFETCH(Recordset, into);
    QFETCH(bool, insertRuns);

    ScriptedRuns runs;
    runs.server.answers.insert(kEarlierTest, singleColumn(QStringLiteral("Earlier"), {QStringLiteral("1")}));
    runs.run({guardedInsert(kEarlierTest, into, kEarlierInsert)});
    runs.server.failingStatements << kFailingTest;
    runs.run({guardedInsert(kFailingTest, into, kGuardedInsert)});

    QCOMPARE(runs.sent(QLatin1String("execute ") + kEarlierInsert), 0);
    QCOMPARE(runs.sent(QLatin1String("execute ") + kGuardedInsert), insertRuns ? 1 : 0);
}

void tst_Guards::guardsOfTheRun_data()
{
    QTest::addColumn<QStringList>("withRows"); // Selects that find rows
    QTest::addColumn<QStringList>("failing");
    QTest::addColumn<QStringList>("once");  // calls made exactly once
    QTest::addColumn<QStringList>("never"); // calls not made

    const QString closingDate = QStringLiteral("Insert Into tblClosingDate (ClosingDate) Values ('1/1/2000')");
    const QString administrator = QStringLiteral("Select UserName From tblLogon Where UserName='ADMINISTRATOR'");
    const QString administratorInsert = QStringLiteral("Insert Into tblLogon (UserName,Password,UserType) Values ('ADMINISTRATOR','TULIPOAK','ADMINISTRATOR')");
    const QString capitalByName = QStringLiteral("Select PartyName From tblPartyInfo Where PartyName='CAPITAL'");
    const QString capitalByCode = QStringLiteral("Select PartyCode From tblPartyInfo Where PartyCode='10-10-000'");
    const QString capitalInsert = QStringLiteral("Insert Into tblPartyInfo (PartyName,PartyCode) Values ('CAPITAL','10-10-000')");
    const QString capitalBalance = QStringLiteral("Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','CAPITAL','10-10-000','OPENING BALANCE')");
    const QString saleInsert = QStringLiteral("Insert Into tblPartyInfo (PartyName,PartyCode) Values ('SYSTEM SALE AND PURCHASE ACCOUNTS','20-10-000')");
    const QString saleBalance = QStringLiteral("Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','SYSTEM SALE AND PURCHASE ACCOUNTS','20-10-001','OPENING BALANCE')");
    const QString execute = QStringLiteral("execute ");
    const QString query = QStringLiteral("query ");

    QTest::newRow("a closing date that was set is kept")
        << QStringList{"Select ClosingDate From tblClosingDate"} << QStringList{}
        << QStringList{execute + administratorInsert} << QStringList{execute + closingDate};
    QTest::newRow("an administrator is kept with the password he has")
        << QStringList{administrator} << QStringList{} << QStringList{execute + closingDate}
        << QStringList{execute + administratorInsert};
    QTest::newRow("a configuration of two rows gets no third; both are stamped once")
        << QStringList{"Select * From tblConfig"} << QStringList{}
        << QStringList{execute + "Update tblConfig Set UpdateStatus='20210105'"}
        << QStringList{execute + "Insert Into tblConfig (ValueInPoints,DecimalPointsYes,DecimalPointsNo,UpdateStatus) Values ('NO',0,2,0)"};
    QTest::newRow("an account found by name is not tested by code")
        << QStringList{capitalByName} << QStringList{} << QStringList{query + capitalByName}
        << QStringList{query + capitalByCode, execute + capitalInsert, execute + capitalBalance};
    QTest::newRow("an account found by code is not inserted")
        << QStringList{capitalByCode} << QStringList{} << QStringList{query + capitalByName, query + capitalByCode}
        << QStringList{execute + capitalInsert, execute + capitalBalance};
    QTest::newRow("a failing name test reads the administrator's row that the variable still holds")
        << QStringList{administrator} << QStringList{capitalByName} << QStringList{query + capitalByName}
        << QStringList{query + capitalByCode, execute + capitalInsert};
    QTest::newRow("a failing party insert is still followed by its opening row")
        << QStringList{} << QStringList{capitalInsert, saleInsert}
        << QStringList{execute + capitalInsert, execute + capitalBalance, execute + saleInsert, execute + saleBalance}
        << QStringList{};
}

void tst_Guards::guardsOfTheRun()
{
    QFETCH(QStringList, withRows);
    QFETCH(QStringList, failing);
    QFETCH(QStringList, once);
    QFETCH(QStringList, never);

    ScriptedRuns runs;
    for (const QString &select : withRows)
        runs.server.answers.insert(select, singleColumn(QStringLiteral("Found"), {QStringLiteral("1"), QStringLiteral("2")}));
    runs.server.failingStatements = QSet<QString>(failing.begin(), failing.end());
    runs.run(maintenanceSteps());
    for (const QString &call : once)
        QVERIFY2(runs.sent(call) == 1, qPrintable(call));
    for (const QString &call : never)
        QVERIFY2(runs.sent(call) == 0, qPrintable(call));
}

QTEST_APPLESS_MAIN(tst_Guards)
#include "tst_guards.moc"
