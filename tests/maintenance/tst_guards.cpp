#include "chartofaccounts_catalog.h"
#include "maintenancerun.h"
#include "mdzrt.h"
#include "quietrunhost.h"
#include "scriptedconnection.h"

#include <QTest>

Q_DECLARE_METATYPE(Recordset)

namespace {

const QString kEarlierTest = QStringLiteral("Select Earlier From tblEarlier");
const QString kEarlierInsert = QStringLiteral("Insert Into tblEarlier (Earlier) Values (1)");
const QString kFailingTest = QStringLiteral("Select Failing From tblFailing");
const QString kGuardedInsert = QStringLiteral("Insert Into tblFailing (Failing) Values (1)");

// A scripted server behind the shared connection, and the window's result-set
// variables, which outlive each run.
class ScriptedRuns
{
public:
    QSet<QString> failingStatements;
    QHash<QString, ResultSet> answers;
    CheckRecordsets recordsets;

    void run(const Steps &steps)
    {
        mdZRT module([this] {
            auto connection = std::make_unique<ScriptedConnection>(m_log);
            connection->failingStatements = failingStatements;
            connection->answers = answers;
            return connection;
        });
        QuietRunHost host;
        MaintenanceRun run(module, host, recordsets);
        run.run({QStringLiteral("OFFLINE"), QStringLiteral("ACCOUNTS"), QStringLiteral("Quorvex2024")}, steps);
    }

    bool sent(const QString &call) const { return m_log->calls.contains(call); }
    const QStringList &calls() const { return m_log->calls; }

private:
    std::shared_ptr<ScriptedConnection::Log> m_log = std::make_shared<ScriptedConnection::Log>();
};

Step guardedInsert(const QString &select, Recordset into, const QString &insert)
{
    return Step::guard(select, into, {Step::execute(insert)});
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
    void failingPartyInsert_data();
    void failingPartyInsert();
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
        runs.answers.insert(kEarlierTest, singleColumn(QStringLiteral("Earlier"), {QStringLiteral("1")}));
    runs.failingStatements << kFailingTest;
    runs.run({guardedInsert(kEarlierTest, earlierInto, kEarlierInsert),
              guardedInsert(kFailingTest, failingInto, kGuardedInsert)});

    QVERIFY(runs.sent(QLatin1String("query ") + kFailingTest));
    QCOMPARE(runs.sent(QLatin1String("execute ") + kEarlierInsert), !earlierFindsRow);
    QCOMPARE(runs.sent(QLatin1String("execute ") + kGuardedInsert), insertRuns);
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
    runs.answers.insert(kEarlierTest, singleColumn(QStringLiteral("Earlier"), {QStringLiteral("1")}));
    runs.run({guardedInsert(kEarlierTest, into, kEarlierInsert)});
    runs.failingStatements << kFailingTest;
    runs.run({guardedInsert(kFailingTest, into, kGuardedInsert)});

    QVERIFY(!runs.sent(QLatin1String("execute ") + kEarlierInsert));
    QCOMPARE(runs.sent(QLatin1String("execute ") + kGuardedInsert), insertRuns);
}

void tst_Guards::failingPartyInsert_data()
{
    QTest::addColumn<QString>("partyInsert");
    QTest::addColumn<QString>("balanceInsert");

    QTest::newRow("first account")
        << "Insert Into tblPartyInfo (PartyName,PartyCode) Values ('CAPITAL','10-10-000')"
        << "Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','CAPITAL','10-10-000','OPENING BALANCE')";
    QTest::newRow("account booked on another code")
        << "Insert Into tblPartyInfo (PartyName,PartyCode) Values ('SYSTEM SALE AND PURCHASE ACCOUNTS','20-10-000')"
        << "Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','SYSTEM SALE AND PURCHASE ACCOUNTS','20-10-001','OPENING BALANCE')";
    QTest::newRow("last account")
        << "Insert Into tblPartyInfo (PartyName,PartyCode) Values ('STAFF SALARIES','21-10-008')"
        << "Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','STAFF SALARIES','21-10-008','OPENING BALANCE')";
}

void tst_Guards::failingPartyInsert()
{
    QFETCH(QString, partyInsert);
    QFETCH(QString, balanceInsert);

    ScriptedRuns runs;
    runs.failingStatements << partyInsert;
    runs.run(chartOfAccountsSteps());

    const qsizetype party = runs.calls().indexOf(QLatin1String("execute ") + partyInsert);
    QVERIFY(party >= 0);
    QCOMPARE(runs.calls().value(party + 1), QLatin1String("execute ") + balanceInsert);
    QCOMPARE(runs.calls().count(QLatin1String("execute ") + balanceInsert), 1);
}

QTEST_APPLESS_MAIN(tst_Guards)
#include "tst_guards.moc"
