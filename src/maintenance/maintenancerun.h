#pragma once

#include "resultset.h"
#include "runhost.h"
#include "step.h"

#include <QString>

#include <functional>
#include <optional>
#include <span>

class mdZRT;

// The operator's three choices, as the window's lists hold them.
struct RunChoice
{
    QString mode;
    QString server;
    QString database;
};

enum class RunEnd {
    Completed,
    NotOpened, // the database could not be opened and the host chose no file, or would not go on
    Stopped,   // the host asked to stop between two statements
};

// The result-set variables that outlive a run: they belong to the window.
struct CheckRecordsets
{
    ResultSet check;
    ResultSet innerCheck;
};

// The maintenance run from the "0%" caption to the completion text. Every
// failure after the yield is skipped silently; the host hears of it only
// through statementExecuted().
class MaintenanceRun
{
public:
    MaintenanceRun(mdZRT &module, RunHost &host, CheckRecordsets &recordsets);

    RunEnd run(const RunChoice &choice, const Steps &steps);
    // After a stop: the statements the steps still held, each guard's
    // statements counted as a new database would receive them.
    int notSent() const { return m_notSent; }

    void ExecuteIgnoringErrors(const QString &sql);
    bool QueryReturnsNoRows(const QString &select, ResultSet &into);

private:
    // False when the host asked to stop.
    bool walk(std::span<const Step> steps);
    ResultSet &recordset(Recordset which);
    // Sends by `send` as often as the host asks, then tells the host.
    void sendTold(Action action, const QString &text, const std::function<DbStatus()> &send);
    // Tells the host of m_phase when its first statement is about to be sent.
    void tellPhase();

    mdZRT &m_module;
    RunHost &m_host;
    CheckRecordsets &m_recordsets;
    ResultSet m_configRecordset;
    // What the statement under way belongs to, for the host's reports.
    Phase m_phase = Phase::Tables;
    Action m_action = Action::ExistenceTest;
    std::optional<Phase> m_toldPhase;
    int m_notSent = 0;
};
