#include "databaselisting.h"

#include "connectionprofiles.h"
#include "odbckeywords.h"
#include "openfailure.h"

#include <QStringList>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace {

constexpr char kLocalQuery[] = "Select name From sys.databases Where name like 'Quorvex%' Order By name";
constexpr char kOfflineQuery[] = "Select name From sysdatabases Where name like 'Quorvex%' Order By name";
// The hosted server holds every company's databases; the login sees only the
// ones it may open, which HAS_DBACCESS tells without trying each one.
constexpr char kOnlineQuery[] =
    "Select name From sys.databases Where name like 'Quorvex%' And HAS_DBACCESS(name) = 1 Order By name";

constexpr qsizetype kLongestName = 128;
constexpr auto kStopLooked = std::chrono::milliseconds(50);

DbStatus readNames(Connection &connection, const QString &connectionString, const QString &query,
                   const std::function<void(const QString &)> &add, bool &loggedIn)
{
    if (const DbStatus opened = connection.open(connectionString); !opened.ok)
        return opened;
    loggedIn = true;
    ResultSet names;
    if (const DbStatus queried = connection.query(query, names); !queried.ok)
        return queried;
    const DbStatus read = forEachRow(names, [&add](const ResultSet &row) {
        const std::optional<QVariant> name = row.field(QStringLiteral("name"));
        if (name)
            add(name->toString());
        return name.has_value();
    });
    if (!read.ok)
        return read;
    names.close();
    return connection.close();
}

// Cancels the connection's statement once `stop` is set, until destroyed.
class StopWatch
{
public:
    StopWatch(Connection &connection, const std::atomic<bool> *stop)
    {
        if (stop)
            m_thread = std::thread([this, &connection, stop] {
                std::unique_lock lock(m_mutex);
                while (!m_ended.wait_for(lock, kStopLooked, [this] { return m_done; })) {
                    if (stop->load()) {
                        connection.cancel();
                        return;
                    }
                }
            });
    }
    ~StopWatch()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_done = true;
        }
        m_ended.notify_all();
        if (m_thread.joinable())
            m_thread.join();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_ended;
    bool m_done = false;
    std::thread m_thread;
};

} // namespace

QString databaseNameRefusal(const QString &name)
{
    if (name.isEmpty())
        return QStringLiteral("it is empty");
    if (name.contains(QChar(0)))
        return QStringLiteral("it holds NUL");
    if (name.size() > kLongestName)
        return QStringLiteral("it is longer than the %1 characters SQL Server allows").arg(kLongestName);
    return QString();
}

ListingOutcome listDatabases(const QString &mode, const QString &server, const ConnectionFactory &factory,
                             const std::function<void(const QString &)> &add, const std::atomic<bool> *stop)
{
    ListingOutcome outcome;
    std::optional<QString> connectionString;
    QString query;
    const bool online = mode == QLatin1String(ConnectionProfiles::kOnline);
    if (online) {
        connectionString = ConnectionProfiles::runConnectionString(
            *ConnectionProfiles::prefix(mode), QStringLiteral("master"), ConnectionProfiles::onlineDataSource());
        query = QString::fromLatin1(kOnlineQuery);
    } else {
        connectionString = ConnectionProfiles::listingConnectionString(mode, server);
        query = QString::fromLatin1(mode == QLatin1String(ConnectionProfiles::kLocal) ? kLocalQuery : kOfflineQuery);
    }
    if (!connectionString)
        return outcome; // an unknown mode lists nothing and says nothing

    const std::unique_ptr<Connection> connection = factory();
    // The hosted list is offered whole or not at all.
    QStringList hosted;
    {
        const StopWatch watch(*connection, stop);
        outcome.failure = readNames(*connection, *connectionString, query, [&](const QString &name) {
            if (online)
                hosted << name;
            else
                add(name);
        }, outcome.loggedIn);
    }
    outcome.interrupted = outcome.failed() && stop && stop->load();
    if (!outcome.failed()) {
        for (const QString &name : std::as_const(hosted))
            add(name);
    }
    return outcome;
}

QString listingFailureText(const ListingOutcome &outcome, const QString &target)
{
    if (outcome.interrupted)
        return QStringLiteral("the listing of %1 was interrupted").arg(target);
    if (outcome.loggedIn && outcome.failure.timedOut)
        return QStringLiteral("%1 answered the login and then did not list its databases within %2 s")
            .arg(target)
            .arg(outcome.statementSeconds);
    const OpenFailure kind = openFailureOf(outcome.failure);
    if (!outcome.loggedIn
        && (kind == OpenFailure::Unreachable || kind == OpenFailure::LoginRefused || kind == OpenFailure::Unverified))
        return withoutPasswords(openFailureText(outcome.failure, target));
    return withoutPasswords(QStringLiteral("cannot list the databases of %1: %2").arg(target, outcome.failure.message));
}
