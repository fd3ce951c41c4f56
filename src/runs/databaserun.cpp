#include "databaserun.h"

#include "mdzrt.h"
#include "reportline.h"
#include "runplan.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QIODevice>

namespace {

// Stands in for the window: a file base instead of the file dialog, a tally
// and a report instead of the progress display.
class HeadlessHost : public HeadlessRunHost
{
public:
    explicit HeadlessHost(const DatabaseRun &run)
        : m_run(run)
    {
    }

    const StatementTally &tally() const { return m_tally; }

    void setProgressMaximum(int maximum) override { m_maximum = maximum; }
    void setProgress(int value) override
    {
        if (m_run.progress)
            m_run.progress(value, m_maximum);
    }
    std::optional<DatabaseFile> chooseDatabaseFile() override
    {
        if (!m_run.createAt)
            return std::nullopt;
        return DatabaseFile{*m_run.createAt, QFileInfo(*m_run.createAt).fileName()};
    }
    void statementExecuted(const StatementOutcome &outcome) override
    {
        StatementOutcome masked = outcome;
        if (m_run.mask)
            masked.status.message = m_run.mask(outcome.status.message);
        m_tally.add(masked);
        if (m_run.report)
            m_run.report->write(reportLine(m_tally.sent(), masked));
    }
    bool stopRequested() const override { return m_run.stop && m_run.stop->load(); }

private:
    const DatabaseRun &m_run;
    StatementTally m_tally;
    int m_maximum = 0;
};

} // namespace

DatabaseRunResult runDatabase(const DatabaseRun &run)
{
    QElapsedTimer timer;
    timer.start();
    mdZRT module(run.connections, run.server);
    HeadlessHost host(run);
    CheckRecordsets recordsets;
    DatabaseRunResult result;
    result.end = MaintenanceRun(module, host, recordsets).run({run.mode, run.server, run.database}, maintenanceSteps());
    result.tally = host.tally();
    result.seconds = double(timer.nsecsElapsed()) / 1e9;
    return result;
}
