#include "applicationlock.h"

#include <QStringList>

#include <algorithm>
#include <thread>

namespace {

// One name for every run of the tool, whichever program or version takes it.
const QString kResource = QStringLiteral("N'zrt maintenance'");

constexpr std::chrono::milliseconds kFirstPause{1000};
constexpr std::chrono::milliseconds kLongestPause{60000};
constexpr std::chrono::milliseconds kStopLooked{50};

// sp_getapplock's answers: 0 granted at once, 1 after a wait, -1 timed out.
constexpr int kGranted = 0;
constexpr int kGrantedAfterWait = 1;
constexpr int kTimedOut = -1;

bool isSqlServer(const QString &engine)
{
    return engine.contains(QLatin1String("SQL Server"), Qt::CaseInsensitive);
}

QString text(const ResultSet &row, const char *column)
{
    return row.field(QLatin1String(column)).value_or(QVariant()).toString();
}

} // namespace

LockTaking takeApplicationLock(Connection &connection, LockMode mode, int waitSeconds)
{
    const QString engine = connection.engine();
    if (!isSqlServer(engine))
        return {LockTaking::Kind::NoApplicationLocks, engine.isEmpty() ? QStringLiteral("the engine") : engine};
    ResultSet answer;
    const DbStatus asked = connection.query(
        QStringLiteral("DECLARE @granted int; EXEC @granted = sp_getapplock @Resource = %1, @LockMode = N'%2', "
                       "@LockOwner = N'Session', @LockTimeout = %3; SELECT @granted AS granted")
            .arg(kResource, mode == LockMode::Exclusive ? QLatin1String("Exclusive") : QLatin1String("Shared"))
            .arg(qint64(waitSeconds) * 1000),
        answer);
    if (!asked.ok)
        return {asked.timedOut ? LockTaking::Kind::Held : LockTaking::Kind::Failed, asked.message};
    bool number = false;
    const int granted = answer.field(QStringLiteral("granted")).value_or(QVariant()).toInt(&number);
    if (number && (granted == kGranted || granted == kGrantedAfterWait))
        return {LockTaking::Kind::Taken, QString()};
    if (number && granted == kTimedOut)
        return {LockTaking::Kind::Held, QString()};
    return {LockTaking::Kind::Failed, number ? QStringLiteral("sp_getapplock answered %1").arg(granted)
                                             : QStringLiteral("sp_getapplock gave no answer")};
}

DbStatus setLockTimeout(Connection &connection, int seconds)
{
    return connection.execute(QStringLiteral("SET LOCK_TIMEOUT %1").arg(qint64(seconds) * 1000));
}

void releaseApplicationLock(Connection &connection)
{
    connection.execute(QStringLiteral("EXEC sp_releaseapplock @Resource = %1, @LockOwner = N'Session'").arg(kResource));
}

QString lockHolders(Connection &connection)
{
    ResultSet rows;
    const DbStatus read = connection.query(
        QStringLiteral(
            "SELECT TOP (3) s.session_id, s.login_name, s.host_name, s.program_name, "
            "DATEDIFF(SECOND, t.transaction_begin_time, GETDATE()) AS open_seconds "
            "FROM sys.dm_exec_sessions s "
            "JOIN sys.dm_tran_session_transactions st ON st.session_id = s.session_id "
            "JOIN sys.dm_tran_active_transactions t ON t.transaction_id = st.transaction_id "
            "WHERE s.session_id <> @@SPID AND EXISTS (SELECT 1 FROM sys.dm_tran_locks l "
            "WHERE l.request_session_id = s.session_id AND l.resource_database_id = DB_ID() "
            "AND l.resource_type <> N'DATABASE') "
            "ORDER BY t.transaction_begin_time"),
        rows);
    if (!read.ok)
        return QStringLiteral("who holds the lock cannot be read: ") + read.message;
    QStringList holders;
    forEachRow(rows, [&holders](const ResultSet &row) {
        holders << QStringLiteral("session %1 (login %2, host %3, program %4, transaction open %5 s)")
                       .arg(text(row, "session_id"), text(row, "login_name"), text(row, "host_name"),
                            text(row, "program_name"), text(row, "open_seconds"));
        return true;
    });
    if (holders.isEmpty())
        return QStringLiteral("no holder this login may see (that needs VIEW SERVER STATE), or it has let go");
    return QStringLiteral("held by ") + holders.join(QLatin1String(", "));
}

std::chrono::milliseconds retryPause(int tries)
{
    return std::min<std::chrono::milliseconds>(kFirstPause * (1 << std::clamp(tries - 1, 0, 6)), kLongestPause);
}

bool pauseUnlessStopped(std::chrono::milliseconds pause, const std::atomic<bool> *stop)
{
    const auto until = std::chrono::steady_clock::now() + pause;
    while (std::chrono::steady_clock::now() < until) {
        if (stop && stop->load())
            return false;
        std::this_thread::sleep_for(std::min<std::chrono::steady_clock::duration>(kStopLooked, until - std::chrono::steady_clock::now()));
    }
    return !(stop && stop->load());
}
