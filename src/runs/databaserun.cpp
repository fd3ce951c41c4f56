#include "databaserun.h"

#include "connectionprofiles.h"
#include "emptydatabasescript.h"
#include "mdzrt.h"
#include "odbckeywords.h"
#include "outputfile.h"
#include "previewconnection.h"
#include "printabletext.h"
#include "programversion.h"
#include "reportline.h"
#include "runjunit.h"
#include "runplan.h"
#include "whynotopen.h"

#include <QElapsedTimer>
#include <QFileInfo>

namespace {

// Stands in for the window: a file base instead of the file dialog, a tally
// and a report instead of the progress display.
class HeadlessHost : public HeadlessRunHost
{
public:
    HeadlessHost(const DatabaseRun &run, mdZRT &module)
        : m_run(run)
        , m_module(module)
    {
    }

    const StatementTally &tally() const { return m_tally; }
    const std::optional<PreviewFindings> &findings() const { return m_findings; }
    const std::optional<RunStop> &cut() const { return m_cut; }
    bool busy() const { return m_busy; }
    const QString &refusal() const { return m_refusal; }
    const QString &lockNote() const { return m_lockNote; }

    QString notOpen() const { return whyNotOpen(m_module, m_run.target, m_run.database); }

    void setProgressMaximum(int maximum) override { m_maximum = maximum; }
    void setProgress(int value) override
    {
        m_value = value;
        if (m_run.progress)
            m_run.progress(m_phase, m_value, m_maximum);
    }
    void phaseStarted(Phase phase) override
    {
        m_phase = phase;
        setProgress(m_value);
    }
    // Only a database that is missing is created: not one on a server that
    // cannot be reached or that refused the login.
    std::optional<DatabaseFile> chooseDatabaseFile() override
    {
        if (!m_run.createAt || m_run.preview || stopRequested()
            || openFailureOf(m_module.openFailure()) != OpenFailure::DatabaseMissing)
            return std::nullopt;
        return DatabaseFile{*m_run.createAt, QFileInfo(*m_run.createAt).fileName()};
    }
    // Never into the fallback on tempdb, nor into a connection never opened.
    bool goOnAfterOpening() override
    {
        if (!notOpen().isEmpty() || (m_run.locks && !guarded()))
            return false;
        if (m_run.preview) // inside the preview's transaction, before its first statement
            m_findings.emplace(readDatabaseBefore(m_module.SharedConnection()));
        return true;
    }
    // Only a refusal of its locks is tried again, and a preview's only inside its transaction.
    bool sendAgain(const StatementOutcome &outcome) override
    {
        if (!m_run.locks || outcome.status.nativeError != kLockRequestTimedOut || outcome.tries > m_run.locks->retries
            || stopRequested()
            || (m_findings && transactionState(m_module.SharedConnection()) != TransactionState::Open))
            return false;
        const std::chrono::milliseconds pause = retryPause(outcome.tries);
        return (m_run.pause ? m_run.pause(pause) : pauseUnlessStopped(pause, m_run.stop)) && !stopRequested();
    }
    void statementExecuted(const StatementOutcome &outcome) override
    {
        StatementOutcome masked = outcome;
        if (classify(outcome) == StatementResult::Blocked)
            masked.status.message += QLatin1String("; ") + lockHolders(m_module.SharedConnection());
        masked.status.message = withoutPasswords(masked.status.message);
        m_tally.add(masked);
        if (m_findings)
            m_findings->add(masked);
        if (outcome.status.connectionLost)
            m_cut = RunStop{StopCause::ConnectionLost, m_tally.sent(), masked.status.message};
        else if (m_findings && isUnexpected(classify(masked)))
            checkPreviewTransaction();
        if (m_run.report)
            m_run.report->write(reportLine(m_tally.sent(), masked, QDateTime::currentDateTime()));
    }
    bool stopRequested() const override { return m_cut || (m_run.stop && m_run.stop->load()); }

    // A stopped run sends nothing more: its session's end lets the lock go.
    void releaseLock()
    {
        if (m_locked && m_module.SharedConnection().isOpen() && !stopRequested())
            releaseApplicationLock(m_module.SharedConnection());
    }

private:
    // One run per database, and no statement waiting long on users' locks.
    bool guarded()
    {
        Connection &connection = m_module.SharedConnection();
        const LockTaking taking = takeApplicationLock(connection, LockMode::Exclusive, m_run.locks->waitSeconds);
        switch (taking.kind) {
        case LockTaking::Kind::NoApplicationLocks:
            m_lockNote = QStringLiteral("%1 has no application locks: no lock keeps a second run off '%2', and no "
                                        "lock timeout is set")
                             .arg(taking.detail, m_run.database);
            return true;
        case LockTaking::Kind::Held:
            m_busy = true;
            m_refusal = QStringLiteral("another run holds %1").arg(m_run.database);
            return false;
        case LockTaking::Kind::Failed:
            m_refusal = withoutPasswords(QStringLiteral("cannot take the application lock on '%1': %2").arg(m_run.database, taking.detail));
            return false;
        case LockTaking::Kind::Taken:
            break;
        }
        m_locked = true;
        if (const DbStatus set = setLockTimeout(connection, m_run.locks->timeoutSeconds); !set.ok) {
            m_refusal = withoutPasswords(QStringLiteral("cannot set the lock timeout: ") + set.message);
            return false;
        }
        return true;
    }

    // A failure may have ended the transaction; once it has, or once that
    // cannot be told, anything sent would be applied for good.
    void checkPreviewTransaction()
    {
        switch (transactionState(m_module.SharedConnection())) {
        case TransactionState::Open:
            return;
        case TransactionState::Ended:
            m_cut = RunStop{StopCause::PreviewEnded, m_tally.sent(), QStringLiteral("the server ended the preview's transaction")};
            return;
        case TransactionState::Unknown:
            m_cut = RunStop{StopCause::PreviewEnded, m_tally.sent(),
                            QStringLiteral("the server would not say whether the preview's transaction is still open")};
            return;
        }
    }

    const DatabaseRun &m_run;
    mdZRT &m_module;
    StatementTally m_tally;
    std::optional<PreviewFindings> m_findings;
    std::optional<RunStop> m_cut;
    std::optional<Phase> m_phase;
    bool m_locked = false;
    bool m_busy = false;
    QString m_refusal; // why the run may not begin once opened
    QString m_lockNote;
    int m_value = 0;
    int m_maximum = 0;
};

} // namespace

RunOutcome outcomeOf(const std::optional<DatabaseRunResult> &result)
{
    if (!result)
        return RunOutcome::NotDone;
    if (result->busy)
        return RunOutcome::Busy;
    switch (result->end) {
    case RunEnd::NotOpened:
        return RunOutcome::CouldNotStart;
    case RunEnd::Stopped:
        switch (result->stop.value_or(RunStop{}).cause) {
        case StopCause::Interrupted:
            return RunOutcome::Interrupted;
        case StopCause::ConnectionLost:
            return RunOutcome::ConnectionLost;
        case StopCause::PreviewEnded:
            return RunOutcome::PreviewStopped;
        }
        Q_UNREACHABLE();
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
    case RunOutcome::ConnectionLost:
        return QStringLiteral("connection lost");
    case RunOutcome::PreviewStopped:
        return QStringLiteral("preview stopped");
    case RunOutcome::CouldNotStart:
        return QStringLiteral("could not start");
    case RunOutcome::Busy:
        return QStringLiteral("busy");
    case RunOutcome::Interrupted:
        return QStringLiteral("interrupted");
    case RunOutcome::NotDone:
        return QStringLiteral("not done");
    case RunOutcome::NotStarted:
        return QStringLiteral("not started");
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
    if (!result->lockNote.isEmpty())
        json.insert(QStringLiteral("lockNote"), result->lockNote);
    if (result->stop) {
        json.insert(QStringLiteral("stoppedAfter"), result->stop->afterStatement);
        json.insert(QStringLiteral("stopReason"), result->stop->detail);
    }
    if (!result->reportError.isEmpty())
        json.insert(QStringLiteral("reportError"), result->reportError);
    if (!result->junitError.isEmpty())
        json.insert(QStringLiteral("junitError"), result->junitError);
    if (result->preview)
        json.insert(QStringLiteral("findings"), result->preview->json(result->tally));
    json = merged(json, result->tally.json());
    if (result->stop) {
        QJsonObject counts = json.value(QLatin1String("counts")).toObject();
        counts.insert(QStringLiteral("notSent"), result->notSent);
        json.insert(QStringLiteral("counts"), counts);
    }
    return json;
}

DatabaseRunResult runDatabase(const DatabaseRun &run)
{
    QElapsedTimer timer;
    timer.start();
    DatabaseRunResult result;
    result.started = QDateTime::currentDateTime();
    if (run.report) {
        run.report->write(jsonLine(merged(jsonDocument(QStringLiteral("header")), runContext(run, result.started))));
        // What the report ends with if the program is ended at once.
        run.report->setLastLine(jsonLine({{QStringLiteral("type"), QStringLiteral("summary")},
                                          {QStringLiteral("outcome"), outcomeName(RunOutcome::Interrupted)},
                                          {QStringLiteral("complete"), false}}));
    }
    if (run.junit)
        run.junit->setLastLine(junitXml({endedAtOnceSuite(run, result.started)}));

    mdZRT module(run.preview ? previewConnections(run.connections) : run.connections,
                 ConnectionProfiles::runDataSource(run.mode, run.server), mdZRT::Fallback::SameServerAndLogin);
    HeadlessHost host(run, module);
    CheckRecordsets recordsets;
    MaintenanceRun maintenance(module, host, recordsets);
    const Steps steps = maintenanceSteps();
    result.end = maintenance.run({run.mode, run.server, run.database}, steps);
    host.releaseLock();
    result.tally = host.tally();
    result.busy = host.busy();
    result.lockNote = host.lockNote();
    result.preview = host.findings();
    if (!module.ConnectionOpened())
        result.openFailure = openFailureOf(module.openFailure());
    if (result.end == RunEnd::NotOpened && host.stopRequested()) {
        // Asked to stop while logging in: that, not the login's outcome, ends it.
        result.end = RunEnd::Stopped;
        result.notSent = statementCount(steps);
    } else if (result.end == RunEnd::Stopped) {
        result.notSent = maintenance.notSent();
    }
    if (result.end == RunEnd::NotOpened)
        result.reason = host.refusal().isEmpty() ? host.notOpen() : host.refusal();
    if (result.end == RunEnd::Stopped)
        result.stop = host.cut().value_or(RunStop{StopCause::Interrupted, host.tally().sent(), QString()});
    result.seconds = double(timer.nsecsElapsed()) / 1e9;

    if (run.junit && !(run.junit->write(junitXml({runSuite(run, result)})) && run.junit->commit()))
        result.junitError = QStringLiteral("cannot write %1: %2").arg(run.junit->name(), run.junit->errorString());
    if (run.report) {
        QJsonObject end = runJson(result);
        end.insert(QStringLiteral("type"), QStringLiteral("summary"));
        end.insert(QStringLiteral("complete"), result.end == RunEnd::Completed);
        end.insert(QStringLiteral("finished"), reportTime(QDateTime::currentDateTime()));
        for (const char *detail : {"failures", "sourceTablesMissing"})
            end.remove(QLatin1String(detail)); // the statement lines hold them
        run.report->write(jsonLine(end));
        if (!run.report->commit())
            result.reportError = QStringLiteral("cannot write %1: %2").arg(run.report->name(), run.report->errorString());
    }
    return result;
}
