#include "databaserun.h"

#include "mdzrt.h"
#include "openwatch.h"
#include "outputfile.h"
#include "previewconnection.h"
#include "printabletext.h"
#include "programversion.h"
#include "reportline.h"
#include "runplan.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QFileInfo>

namespace {

// Stands in for the window: a file base instead of the file dialog, a tally
// and a report instead of the progress display.
class HeadlessHost : public HeadlessRunHost
{
public:
    HeadlessHost(const DatabaseRun &run, mdZRT &module, const OpenWatch &watch)
        : m_run(run)
        , m_module(module)
        , m_watch(watch)
    {
    }

    const StatementTally &tally() const { return m_tally; }
    const std::optional<PreviewFindings> &findings() const { return m_findings; }
    QString whyNotOpen() const { return m_watch.whyNotOpen(m_module, m_run.database); }

    void setProgressMaximum(int maximum) override { m_maximum = maximum; }
    void setProgress(int value) override
    {
        if (m_run.progress)
            m_run.progress(value, m_maximum);
    }
    std::optional<DatabaseFile> chooseDatabaseFile() override
    {
        if (!m_run.createAt || m_run.preview)
            return std::nullopt;
        return DatabaseFile{*m_run.createAt, QFileInfo(*m_run.createAt).fileName()};
    }
    // Never into the fallback on tempdb, nor into a connection never opened.
    bool goOnAfterOpening() override
    {
        if (!whyNotOpen().isEmpty())
            return false;
        if (m_run.preview) // inside the preview's transaction, before its first statement
            m_findings.emplace(readDatabaseBefore(m_module.SharedConnection()));
        return true;
    }
    void statementExecuted(const StatementOutcome &outcome) override
    {
        StatementOutcome masked = outcome;
        if (m_run.mask)
            masked.status.message = m_run.mask(outcome.status.message);
        m_tally.add(masked);
        if (m_findings) {
            m_findings->add(masked);
            if (isUnexpected(classify(masked)) && !transactionStillOpen(m_module.SharedConnection()))
                m_findings->transactionEndedAt(m_tally.sent());
        }
        if (m_run.report)
            m_run.report->device()->write(reportLine(m_tally.sent(), masked, QDateTime::currentDateTime()));
    }
    bool stopRequested() const override { return m_run.stop && m_run.stop->load(); }

private:
    const DatabaseRun &m_run;
    mdZRT &m_module;
    const OpenWatch &m_watch;
    StatementTally m_tally;
    std::optional<PreviewFindings> m_findings;
    int m_maximum = 0;
};

} // namespace

RunOutcome outcomeOf(const std::optional<DatabaseRunResult> &result)
{
    if (!result)
        return RunOutcome::NotDone;
    switch (result->end) {
    case RunEnd::NotOpened:
        return RunOutcome::CouldNotStart;
    case RunEnd::Stopped:
        return RunOutcome::Interrupted;
    case RunEnd::Completed:
        break;
    }
    const StatementTally &tally = result->tally;
    if (tally.unexpected() == 0)
        return RunOutcome::Completed;
    return tally.count(StatementResult::Succeeded) == 0 ? RunOutcome::NothingApplied : RunOutcome::CompletedWithFailures;
}

QString outcomeName(RunOutcome outcome)
{
    switch (outcome) {
    case RunOutcome::Completed:
        return QStringLiteral("completed");
    case RunOutcome::CompletedWithFailures:
        return QStringLiteral("completed with failures");
    case RunOutcome::NothingApplied:
        return QStringLiteral("nothing applied");
    case RunOutcome::CouldNotStart:
        return QStringLiteral("could not start");
    case RunOutcome::Interrupted:
        return QStringLiteral("interrupted");
    case RunOutcome::NotDone:
        return QStringLiteral("not done");
    }
    Q_UNREACHABLE();
}

QJsonObject runContext(const DatabaseRun &run, const QDateTime &started)
{
    return {{QStringLiteral("program"), QStringLiteral("zrt")},
            {QStringLiteral("preview"), run.preview},
            {QStringLiteral("version"), programVersion()},
            {QStringLiteral("database"), run.database},
            {QStringLiteral("mode"), run.mode},
            {QStringLiteral("target"), run.target},
            {QStringLiteral("started"), reportTime(started)}};
}

QJsonObject runJson(const std::optional<DatabaseRunResult> &result)
{
    QJsonObject json{{QStringLiteral("outcome"), outcomeName(outcomeOf(result))}};
    if (!result)
        return json;
    json.insert(QStringLiteral("started"), reportTime(result->started));
    json.insert(QStringLiteral("seconds"), result->seconds);
    if (!result->reason.isEmpty())
        json.insert(QStringLiteral("reason"), result->reason);
    if (!result->reportError.isEmpty())
        json.insert(QStringLiteral("reportError"), result->reportError);
    if (result->preview)
        json.insert(QStringLiteral("would"), QJsonArray::fromStringList(result->preview->lines(result->tally)));
    const QJsonObject tally = result->tally.json();
    for (auto it = tally.begin(); it != tally.end(); ++it)
        json.insert(it.key(), it.value());
    return json;
}

DatabaseRunResult runDatabase(const DatabaseRun &run)
{
    QElapsedTimer timer;
    timer.start();
    DatabaseRunResult result;
    result.started = QDateTime::currentDateTime();
    if (run.report)
        run.report->device()->write(jsonLine(runContext(run, result.started)));

    const OpenWatch watch(run.preview ? previewConnections(run.connections) : run.connections);
    mdZRT module(watch.connections(), run.server);
    HeadlessHost host(run, module, watch);
    CheckRecordsets recordsets;
    result.end = MaintenanceRun(module, host, recordsets).run({run.mode, run.server, run.database}, maintenanceSteps());
    result.tally = host.tally();
    result.preview = host.findings();
    result.cannotOpen = !module.ConnectionOpened();
    if (result.end == RunEnd::NotOpened)
        result.reason = run.mask ? run.mask(host.whyNotOpen()) : host.whyNotOpen();
    result.seconds = double(timer.nsecsElapsed()) / 1e9;

    if (run.report) {
        QJsonObject end = runJson(result);
        end.insert(QStringLiteral("complete"), result.end == RunEnd::Completed);
        end.insert(QStringLiteral("finished"), reportTime(QDateTime::currentDateTime()));
        for (const char *detail : {"failures", "sourceTablesMissing"})
            end.remove(QLatin1String(detail)); // the statement lines hold them
        run.report->device()->write(jsonLine(end));
        if (!run.report->commit())
            result.reportError = QStringLiteral("cannot write %1: %2").arg(run.report->name(), run.report->errorString());
    }
    return result;
}
