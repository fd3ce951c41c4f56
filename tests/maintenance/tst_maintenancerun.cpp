#include "maintenancerun.h"
#include "mdzrt.h"
#include "runplan.h"
#include "scriptedconnection.h"
#include "scriptfixture.h"

#include <QTest>

namespace {

// Writes down, in order, everything the run does to its host.
class RecordingHost : public RunHost
{
public:
    QStringList calls;
    QList<int> progress;
    QList<StatementOutcome> statements;
    DatabaseFile file;
    bool stopWhenAskedForAFile = false;
    int stopAfterStatements = -1;

    void setCaption(const QString &caption) override { calls << "caption " + caption; }
    void showWindow() override { calls << "show"; }
    void setProgressMaximum(int maximum) override { calls << QStringLiteral("maximum %1").arg(maximum); }
    void bringToFront() override { calls << "front"; }
    void setProgress(int value) override
    {
        calls << QStringLiteral("progress %1").arg(value);
        progress << value;
    }
    void yieldToPendingEvents() override { calls << "yield"; }
    std::optional<DatabaseFile> chooseDatabaseFile() override
    {
        calls << "file dialog";
        if (stopWhenAskedForAFile)
            return std::nullopt;
        return file;
    }
    void hideProcessButton() override { calls << "hide process"; }
    void showEndButton() override { calls << "show end"; }
    void statementExecuted(const StatementOutcome &outcome) override { statements << outcome; }
    bool stopRequested() const override { return statements.size() == stopAfterStatements; }
};

struct Run
{
    std::shared_ptr<ScriptedConnection::Log> log = std::make_shared<ScriptedConnection::Log>();
    QSet<QString> refusedOpens;
    QSet<QString> failingStatements;
    mdZRT module{[this] {
        auto connection = std::make_unique<ScriptedConnection>(log);
        connection->refusedOpens = refusedOpens;
        connection->failingStatements = failingStatements;
        return connection;
    }};
    RecordingHost host;
    CheckRecordsets recordsets;

    void operator()(const QString &database, const Steps &steps)
    {
        MaintenanceRun(module, host, recordsets).run({QStringLiteral("LOCAL"), QStringLiteral("ACCOUNTS"), database}, steps);
    }
};

} // namespace

class TestMaintenanceRun : public QObject
{
    Q_OBJECT

private slots:
    void hostSeesTheRunInOrder();
    void progressPassesItsFixedValues();
    void sixRebuiltTablesAreDroppedFirst();
    void newDatabaseReceivesTheCompleteScript();
    void failuresAreSkipped();
    void outcomesCarryTheirPhase();
    void hostMayStopARunWhoseDatabaseCannotBeOpened();
    void hostMayStopBetweenStatements();
};

void TestMaintenanceRun::hostSeesTheRunInOrder()
{
    Run run;
    run(QStringLiteral("QuorvexA"), {Step::execute(QStringLiteral("drop table [dbo].[tblX]")), Step::progressMark(200)});
    QCOMPARE(run.host.calls, (QStringList{"caption 0%", "show", "maximum 1000", "front", "progress 100", "yield",
                                          "progress 200", "caption 100%", "progress 1000", "hide process",
                                          "caption MANAGING DATABASE PROCESS HAS COMPLETED.", "show end"}));
    QCOMPARE(run.log->calls,
             (QStringList{"open Provider=SQLOLEDB.1;Password=Tq482Harbor517;Persist Security Info=False;User ID=quorvex;"
                          "Initial Catalog=QuorvexA;Data Source=",
                          "execute drop table [dbo].[tblX]"}));
    // The run leaves the shared connection open on the database.
    QVERIFY(run.module.SharedConnection().isOpen());
}

void TestMaintenanceRun::progressPassesItsFixedValues()
{
    Run run;
    run(QStringLiteral("QuorvexA"), maintenanceSteps());
    QCOMPARE(run.host.progress, (QList<int>{100, 100, 200, 300, 400, 500, 600, 700, 800, 900, 1000}));
}

void TestMaintenanceRun::sixRebuiltTablesAreDroppedFirst()
{
    Run run;
    run(QStringLiteral("QuorvexA"), maintenanceSteps());
    QCOMPARE(run.log->calls.mid(1, 6),
             (QStringList{"execute drop table [dbo].[tblMonthlyComparisonReportEmpty]",
                          "execute drop table [dbo].[tblPartyBalanceEmpty]", "execute drop table [dbo].[tblKWClientInfo]",
                          "execute drop table [dbo].[tblDailyComparisonReportEmpty]",
                          "execute drop table [dbo].[tblInvoiceEmpty]", "execute drop table [dbo].[tblStockEmpty]"}));
}

void TestMaintenanceRun::newDatabaseReceivesTheCompleteScript()
{
    // Every guard finds nothing on a new database, so every insert follows it.
    Run run;
    run(QStringLiteral("QuorvexA"), maintenanceSteps());
    QStringList sent;
    for (const QString &call : run.log->calls.mid(1))
        sent << call.section(QLatin1Char(' '), 1);
    const QStringList expected = wholeRunFixtureStatements();
    QCOMPARE(sent.size(), expected.size());
    for (qsizetype i = 0; i < expected.size(); ++i)
        QCOMPARE(sent[i], expected[i]);
}

void TestMaintenanceRun::failuresAreSkipped()
{
    Run run;
    run.failingStatements = {QStringLiteral("A"), QStringLiteral("C")};
    run(QStringLiteral("QuorvexA"), {Step::execute("A"), Step::execute("B"), Step::execute("C"), Step::execute("D")});
    QCOMPARE(run.log->calls.mid(1), (QStringList{"execute A", "execute B", "execute C", "execute D"}));
    QCOMPARE(run.host.statements.size(), 4);
    QVERIFY(!run.host.statements[0].status.ok);
    QVERIFY(run.host.statements[1].status.ok);
    QCOMPARE(run.host.calls.last(), QStringLiteral("show end"));
}

void TestMaintenanceRun::outcomesCarryTheirPhase()
{
    Run run;
    run(QStringLiteral("QuorvexA"),
        {Step::execute("A"), Step::phase("tables"), Step::guard("Select B", Recordset::Check, {Step::execute("C")}),
         Step::progressMark(200), Step::phase("views"), Step::execute("D")});
    QCOMPARE(run.host.statements.size(), 4);
    QCOMPARE(run.host.statements[0].phase, QString());
    QCOMPARE(run.host.statements[1].phase, QStringLiteral("tables"));
    QVERIFY(run.host.statements[1].isQuery);
    QCOMPARE(run.host.statements[2].phase, QStringLiteral("tables"));
    QCOMPARE(run.host.statements[3].phase, QStringLiteral("views"));
}

void TestMaintenanceRun::hostMayStopARunWhoseDatabaseCannotBeOpened()
{
    Run run;
    run.refusedOpens = {QStringLiteral("Initial Catalog=")};
    run.host.stopWhenAskedForAFile = true;
    QCOMPARE(MaintenanceRun(run.module, run.host, run.recordsets)
                 .run({QStringLiteral("LOCAL"), QStringLiteral("ACCOUNTS"), QStringLiteral("QuorvexNone")},
                      {Step::execute("A")}),
             RunEnd::NotOpened);
    QCOMPARE(run.log->calls.size(), 2); // the open and its fallback, no statement
    QVERIFY(run.host.statements.isEmpty());
    QVERIFY(!run.host.calls.contains(QStringLiteral("show end")));
}

void TestMaintenanceRun::hostMayStopBetweenStatements()
{
    Run run;
    run.host.stopAfterStatements = 2;
    const Steps steps{Step::execute("A"), Step::guard("Select B", Recordset::Check, {Step::execute("C")}),
                      Step::execute("D")};
    QCOMPARE(MaintenanceRun(run.module, run.host, run.recordsets)
                 .run({QStringLiteral("LOCAL"), QStringLiteral("ACCOUNTS"), QStringLiteral("QuorvexA")}, steps),
             RunEnd::Stopped);
    QCOMPARE(run.log->calls.mid(1), (QStringList{"execute A", "query Select B"}));
    QVERIFY(!run.host.calls.contains(QStringLiteral("show end")));
}

QTEST_GUILESS_MAIN(TestMaintenanceRun)
#include "tst_maintenancerun.moc"
