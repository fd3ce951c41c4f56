#include "maintenancerun.h"

#include "mdzrt.h"
#include "emptydatabasescript.h"
#include "runplan.h"

#include <QElapsedTimer>

namespace {

constexpr int kProgressMaximum = 1000;
constexpr int kStartProgress = 100;

} // namespace

MaintenanceRun::MaintenanceRun(mdZRT &module, RunHost &host, CheckRecordsets &recordsets)
    : m_module(module)
    , m_host(host)
    , m_recordsets(recordsets)
{
}

RunEnd MaintenanceRun::run(const RunChoice &choice, const Steps &steps)
{
    m_host.setCaption(QString::number(0) + QLatin1Char('%'));
    m_host.showWindow();
    m_host.setProgressMaximum(kProgressMaximum);
    m_host.bringToFront();
    m_host.setProgress(kStartProgress);
    m_host.yieldToPendingEvents();

    m_module.OpenConnection(choice.mode, choice.server, choice.database);
    if (!m_module.ConnectionOpened()) {
        const std::optional<DatabaseFile> file = m_host.chooseDatabaseFile();
        if (!file)
            return RunEnd::NotOpened;
        m_phase = Phase::CreateDatabase;
        m_action = Action::CreateDatabase;
        tellPhase();
        ExecuteIgnoringErrors(createDatabaseStatement(file->title, file->fullName));
        m_module.SharedConnection().close();
        m_module.OpenConnection(choice.mode, choice.server, choice.database);
    }
    if (!m_host.goOnAfterOpening())
        return RunEnd::NotOpened;

    if (!walk(steps))
        return RunEnd::Stopped;

    m_host.setCaption(QStringLiteral("100%"));
    m_host.setProgress(kProgressMaximum);
    m_host.hideProcessButton();
    m_host.setCaption(QStringLiteral("MANAGING DATABASE PROCESS HAS COMPLETED."));
    m_host.showEndButton();
    return RunEnd::Completed;
}

bool MaintenanceRun::walk(std::span<const Step> steps)
{
    for (auto step = steps.begin(); step != steps.end(); ++step) {
        m_phase = step->phase;
        m_action = step->action;
        if (step->kind != Step::Kind::Progress && m_host.stopRequested()) {
            m_notSent += statementCount(std::span(step, steps.end()));
            return false;
        }
        if (step->kind != Step::Kind::Progress)
            tellPhase();
        switch (step->kind) {
        case Step::Kind::Execute:
            ExecuteIgnoringErrors(step->text);
            break;
        case Step::Kind::Guard:
            if (QueryReturnsNoRows(step->text, recordset(step->recordset)) && !walk(step->whenNoRows)) {
                m_notSent += statementCount(std::span(step + 1, steps.end()));
                return false;
            }
            break;
        case Step::Kind::Progress:
            m_host.setProgress(step->progress);
            break;
        }
    }
    return true;
}

void MaintenanceRun::ExecuteIgnoringErrors(const QString &sql)
{
    sendTold(m_action, sql, [&] { return m_module.SharedConnection().execute(sql); });
}

bool MaintenanceRun::QueryReturnsNoRows(const QString &select, ResultSet &into)
{
    // A failing Select leaves the variable's earlier result set in place.
    sendTold(Action::ExistenceTest, select, [&] { return m_module.SharedConnection().query(select, into); });
    // A failing end test counts as no row, so the guarded insert is tried.
    return into.atEnd().value_or(true);
}

void MaintenanceRun::sendTold(Action action, const QString &text, const std::function<DbStatus()> &send)
{
    StatementOutcome outcome{m_phase, action, text, {}, 0, 0};
    do {
        QElapsedTimer timer;
        timer.start();
        outcome.status = send();
        outcome.nanoseconds += timer.nsecsElapsed();
        ++outcome.tries;
    } while (m_host.sendAgain(outcome));
    m_host.statementExecuted(outcome);
}

void MaintenanceRun::tellPhase()
{
    if (m_toldPhase == m_phase)
        return;
    m_toldPhase = m_phase;
    m_host.phaseStarted(m_phase);
}

ResultSet &MaintenanceRun::recordset(Recordset which)
{
    switch (which) {
    case Recordset::Check:
        return m_recordsets.check;
    case Recordset::InnerCheck:
        return m_recordsets.innerCheck;
    case Recordset::Config:
        return m_configRecordset;
    }
    Q_UNREACHABLE();
}
