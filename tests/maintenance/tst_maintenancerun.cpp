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
    int sendAgainTimes = 0; // how often the host asks for a statement to be sent again

    bool sendAgain(const StatementOutcome &) override { return sendAgainTimes-- > 0; }
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
    void phaseStarted(Phase phase) override { calls << QStringLiteral("phase %1").arg(int(phase)); }
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
    ScriptedServer server;
    mdZRT module{server.connections()};
    RecordingHost host;
    CheckRecordsets recordsets;

    int notSent = 0;

    RunEnd operator()(const QString &database, const Steps &steps)
    {
        MaintenanceRun run(module, host, recordsets);
        const RunEnd end = run.run({QStringLiteral("LOCAL"), QStringLiteral("ACCOUNTS"), database}, steps);
        notSent = run.notSent();
        return end;
    }
    // What was sent after the first open, without the call's kind.
    QStringList sent() const
    {
        QStringList texts;
        for (const QString &call : server.calls().mid(1))
            texts << call.section(QLatin1Char(' '), 1);
        return texts;
    }
};

const QString kLocalPrefix = QStringLiteral("open Provider=SQLOLEDB.1;Password=Tq482Harbor517;Persist Security Info=False;User ID=quorvex;Initial Catalog=");
const QString kFallback = QStringLiteral("open Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;Initial Catalog=tempdb");

} // namespace

class TestMaintenanceRun : public QObject
{
    Q_OBJECT

private slots:
    void hostSeesTheRunInOrder();
    void newDatabaseReceivesTheCompleteScript();
    void failuresAreSkipped();
    void databaseThatCannotBeOpened_data();
    void databaseThatCannotBeOpened();
    void hostMayStopBetweenStatements();
    void hostMaySendAStatementAgainInItsPlace();
};

void TestMaintenanceRun::hostSeesTheRunInOrder()
{
    Run run;
    run(QStringLiteral("QuorvexA"), {Step::execute(Action::DropTable, QStringLiteral("drop table [dbo].[tblX]")),
                                     Step::progressMark(200),
                                     Step::execute(Action::DropTable, QStringLiteral("drop table [dbo].[tblY]"))});
    QCOMPARE(run.host.calls, (QStringList{"caption 0%", "show", "maximum 1000", "front", "progress 100", "yield",
                                          "phase 2", "progress 200", "caption 100%", "progress 1000", "hide process",
                                          "caption MANAGING DATABASE PROCESS HAS COMPLETED.", "show end"}));
    QCOMPARE(run.server.calls(),
             (QStringList{kLocalPrefix + "QuorvexA;Data Source=", "execute drop table [dbo].[tblX]",
                          "execute drop table [dbo].[tblY]"}));
    // The run leaves the shared connection open on the database.
    QVERIFY(run.module.SharedConnection().isOpen());
}

void TestMaintenanceRun::newDatabaseReceivesTheCompleteScript()
{
    // Every guard finds nothing on a new database, so every insert follows it.
    Run run;
    QCOMPARE(run(QStringLiteral("QuorvexA"), maintenanceSteps()), RunEnd::Completed);
    const QStringList expected = wholeRunFixtureStatements();
    const QStringList sent = run.sent();
    QCOMPARE(sent.size(), expected.size());
    for (qsizetype i = 0; i < expected.size(); ++i)
        QCOMPARE(sent[i], expected[i]);
    QCOMPARE(run.host.progress, (QList<int>{100, 100, 200, 300, 400, 500, 600, 700, 800, 900, 1000}));
}

void TestMaintenanceRun::failuresAreSkipped()
{
    Run run;
    // The window's run goes on even past a connection that died.
    DbStatus lost = DbStatus::failure(QStringLiteral("Communication link failure"));
    lost.connectionLost = true;
    run.server.failingWith.insert(QStringLiteral("A"), lost);
    run.server.failingStatements = {QStringLiteral("C")};
    run(QStringLiteral("QuorvexA"), {Step::execute(Action::AddColumn, "A"), Step::execute(Action::AddColumn, "B"),
                                     Step::execute(Action::AddColumn, "C"), Step::execute(Action::AddColumn, "D")});
    QCOMPARE(run.sent(), (QStringList{"A", "B", "C", "D"}));
    QCOMPARE(run.host.statements.size(), 4);
    QVERIFY(!run.host.statements[0].status.ok);
    QVERIFY(run.host.statements[1].status.ok);
    QCOMPARE(run.host.calls.last(), QStringLiteral("show end"));
}

void TestMaintenanceRun::databaseThatCannotBeOpened_data()
{
    QTest::addColumn<bool>("hostGivesAFile");
    QTest::addColumn<QString>("fullName");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QStringList>("calls"); // after the first open and its fallback

    const QString reopen = kLocalPrefix + "QuorvexNone;Data Source=";
    QTest::newRow("created under the file's title, then opened by the typed name again")
        << true << "D:\\Data\\Books2024.mdf" << "Books2024.mdf"
        << QStringList{"execute CREATE DATABASE [Books2024.mdf]  ON (NAME = N'Quorvex KRN', FILENAME = N'D:\\Data\\Books2024.mdf.mdf') LOG ON (NAME = N'Quorvex KRN_Log', FILENAME = N'D:\\Data\\Books2024.mdf_Log.ldf')",
                       "close", reopen, kFallback, "execute A"};
    QTest::newRow("a cancelled dialog still sends its statement")
        << true << "" << ""
        << QStringList{"execute CREATE DATABASE []  ON (NAME = N'Quorvex KRN', FILENAME = N'.mdf') LOG ON (NAME = N'Quorvex KRN_Log', FILENAME = N'_Log.ldf')",
                       "close", reopen, kFallback, "execute A"};
    QTest::newRow("a host without a file stops before any statement") << false << "" << "" << QStringList{};
}

void TestMaintenanceRun::databaseThatCannotBeOpened()
{
    QFETCH(bool, hostGivesAFile);
    QFETCH(QString, fullName);
    QFETCH(QString, title);
    QFETCH(QStringList, calls);

    Run run;
    run.server.refusedOpens << QStringLiteral("Initial Catalog=QuorvexNone");
    run.host.stopWhenAskedForAFile = !hostGivesAFile;
    run.host.file = {fullName, title};
    const RunEnd end = run(QStringLiteral("QuorvexNone"), {Step::execute(Action::AddColumn, "A")});
    QCOMPARE(end, hostGivesAFile ? RunEnd::Completed : RunEnd::NotOpened);
    QCOMPARE(run.server.calls().mid(0, 2), (QStringList{kLocalPrefix + "QuorvexNone;Data Source=", kFallback}));
    QCOMPARE(run.server.calls().mid(2), calls);
    QCOMPARE(run.host.calls.contains(QStringLiteral("show end")), hostGivesAFile);
}

void TestMaintenanceRun::hostMayStopBetweenStatements()
{
    Run run;
    run.host.stopAfterStatements = 2;
    const Steps steps{Step::execute(Action::AddColumn, "A"),
                      Step::guard("Select B", Recordset::Check,
                                  {Step::execute(Action::InsertBuiltInRow, "C"), Step::execute(Action::InsertBuiltInRow, "D")}),
                      Step::execute(Action::AddColumn, "E"),
                      Step::guard("Select F", Recordset::Check, {Step::execute(Action::InsertBuiltInRow, "G")})};
    QCOMPARE(run(QStringLiteral("QuorvexA"), steps), RunEnd::Stopped);
    QCOMPARE(run.sent(), (QStringList{"A", "Select B"}));
    QCOMPARE(run.notSent, 5); // C, D, E, F and G: what a new database would still have received
    QVERIFY(!run.host.calls.contains(QStringLiteral("show end")));
}

QTEST_GUILESS_MAIN(TestMaintenanceRun)
#include "tst_maintenancerun.moc"

void TestMaintenanceRun::hostMaySendAStatementAgainInItsPlace()
{
    // A lock refusal, which the window's host takes as it comes: sent once.
    DbStatus refused = DbStatus::failure(QStringLiteral("Lock request time out period exceeded."), 1222);
    Run window;
    window.server.failingWith.insert(QStringLiteral("B"), refused);
    const Steps steps{Step::execute(Action::AddColumn, "A"), Step::execute(Action::AddColumn, "B"),
                      Step::guard("C", Recordset::Check, {Step::execute(Action::InsertBuiltInRow, "D")})};
    window(QStringLiteral("QuorvexA"), steps);
    QCOMPARE(window.sent(), (QStringList{"A", "B", "C", "D"}));

    Run again;
    again.host.sendAgainTimes = 2;
    again(QStringLiteral("QuorvexA"), steps);
    QCOMPARE(again.sent(), (QStringList{"A", "A", "A", "B", "C", "D"}));
    QCOMPARE(again.host.statements.size(), 4);
    QCOMPARE(again.host.statements[0].tries, 3);
    QCOMPARE(again.host.statements[1].tries, 1);
}
