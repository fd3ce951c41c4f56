#include "odbcconnection.h"

#include "odbchandle.h"
#include "odbcrows.h"
#include "openfailure.h"

#include <QList>

#include <algorithm>

namespace {

SQLWCHAR *wide(const QString &text)
{
    return const_cast<SQLWCHAR *>(reinterpret_cast<const SQLWCHAR *>(text.utf16()));
}

// FreeTDS reads the attribute before it knows the connection's character set,
// and carries only Latin-1 text through; any other name is selected once
// logged in.
bool carriedAtLogin(const QString &catalog)
{
    return !catalog.isEmpty() && std::all_of(catalog.begin(), catalog.end(), [](QChar c) { return c.unicode() <= 0xff; });
}

// An attribute's whole-number value, as ODBC passes it.
SQLPOINTER attribute(int value)
{
    return reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(value));
}

QString bracketed(QString name)
{
    return QLatin1Char('[') + name.replace(QLatin1Char(']'), QLatin1String("]]")) + QLatin1Char(']');
}

DbStatus notOpen()
{
    return DbStatus::failure(QStringLiteral("The connection is not open."));
}

} // namespace

// The environment and connection handles of one open connection.
struct OdbcConnection::Session
{
    OdbcHandle environment{SQL_HANDLE_ENV, SQL_NULL_HANDLE};
    OdbcHandle connection{SQL_HANDLE_DBC, speakingOdbc3(environment)};
    bool connected = false;
    bool manualCommit = false;

    ~Session()
    {
        // A transaction left open is undone, never committed; the driver
        // would refuse to disconnect from it.
        if (connected && manualCommit)
            SQLEndTran(SQL_HANDLE_DBC, connection.get(), SQL_ROLLBACK);
        if (connected)
            SQLDisconnect(connection.get());
    }

    static SQLHANDLE speakingOdbc3(const OdbcHandle &environment)
    {
        SQLSetEnvAttr(environment.get(), SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        return environment.get();
    }
};

namespace {

// Whether the driver gets through the TLS handshake with `odbc`: the login
// after it is then refused or taken.
bool handshakes(const QString &odbc, int loginSeconds)
{
    OdbcConnection::Session probe;
    SQLSetConnectAttrW(probe.connection.get(), SQL_ATTR_LOGIN_TIMEOUT, attribute(loginSeconds), SQL_IS_UINTEGER);
    probe.connected = SQL_SUCCEEDED(SQLDriverConnectW(probe.connection.get(), nullptr, wide(odbc), SQLSMALLINT(odbc.size()),
                                                      nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT));
    return probe.connected || openFailureOf(probe.connection.failure(true)) == OpenFailure::LoginRefused;
}

// FreeTDS's number for a connection that failed once the server answered,
// for no reason the server gave: among others, a handshake it gave up.
constexpr int kConnectionFailed = 20002;

// A verified open that failed that way: the certificate, when the server
// passes a handshake that checks less. A server silent or out of reach is not
// asked again.
DbStatus whyUnverified(DbStatus failure, const OdbcTarget &target, int loginSeconds)
{
    if (failure.nativeError != kConnectionFailed)
        return failure;
    const char *why = handshakes(target.hostNameUnchecked, loginSeconds) ? "host name does not match"
        : handshakes(target.unverified, loginSeconds)                    ? "certificate not trusted"
                                                                         : nullptr;
    if (why) {
        failure.unverified = true;
        failure.message = QLatin1String(why) + QLatin1String(" (") + failure.message + QLatin1Char(')');
    }
    return failure;
}

} // namespace

OdbcConnection::OdbcConnection(Translator toOdbc, OdbcTimeouts timeouts)
    : m_toOdbc(std::move(toOdbc))
    , m_timeouts(timeouts)
{
}

OdbcConnection::~OdbcConnection() = default;

DbStatus OdbcConnection::open(const QString &connectionString)
{
    if (m_session)
        return DbStatus::failure(QStringLiteral("The connection is already open."));
    const OdbcTarget target = m_toOdbc(connectionString);
    if (!target.refusal.isEmpty())
        return DbStatus::failure(target.refusal);
    auto session = std::make_unique<Session>();
    if (!session->connection.isValid())
        return DbStatus::failure(QStringLiteral("The ODBC driver manager could not be set up."));
    const SQLHDBC connection = session->connection.get();
    // The driver bounds the login by one, the waits around it by the other.
    SQLSetConnectAttrW(connection, SQL_ATTR_LOGIN_TIMEOUT, attribute(m_timeouts.loginSeconds), SQL_IS_UINTEGER);
    SQLSetConnectAttrW(connection, SQL_ATTR_CONNECTION_TIMEOUT, attribute(m_timeouts.loginSeconds), SQL_IS_UINTEGER);
    // Named in the login itself, as an attribute: a login whose own default
    // database is missing still opens this one, a missing one is refused by
    // the login, and no typed name ever reaches the string's keywords.
    const bool atLogin = carriedAtLogin(target.catalog);
    if (atLogin)
        SQLSetConnectAttrW(connection, SQL_ATTR_CURRENT_CATALOG, wide(target.catalog), SQL_NTS);
    const SQLRETURN connected = SQLDriverConnectW(connection, nullptr, wide(target.connectionString),
                                                  SQLSMALLINT(target.connectionString.size()), nullptr, 0, nullptr,
                                                  SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(connected)) {
        const DbStatus failure = session->connection.failure(true); // the reason may stand in any of its records
        return target.unverified.isEmpty() ? failure : whyUnverified(failure, target, m_timeouts.loginSeconds);
    }
    session->connected = true;
    m_session = std::move(session);
    if (!target.catalog.isEmpty() && !inCatalog(target.catalog, atLogin)) {
        const DbStatus selected = run(QLatin1String("USE ") + bracketed(target.catalog), m_timeouts.loginSeconds, nullptr);
        if (!selected.ok) {
            m_session.reset();
            return selected;
        }
    }
    return DbStatus::success();
}

bool OdbcConnection::inCatalog(const QString &catalog, bool namedAtLogin) const
{
    const SQLHDBC connection = m_session->connection.get();
    QList<SQLWCHAR> current(256);
    SQLINTEGER bytes = 0;
    if (namedAtLogin && SQL_SUCCEEDED(SQLGetConnectAttrW(connection, SQL_ATTR_CURRENT_CATALOG, current.data(),
                                         SQLINTEGER(current.size() * sizeof(SQLWCHAR)), &bytes))
        && bytes >= 0 && QString::fromUtf16(reinterpret_cast<const char16_t *>(current.constData()),
                                            std::min<qsizetype>(bytes / qsizetype(sizeof(SQLWCHAR)), current.size() - 1))
                                 .compare(catalog, Qt::CaseInsensitive)
            == 0)
        return true;
    // A driver without catalogs (a database in a file) is always in its one database.
    SQLWCHAR supported[2] = {};
    SQLSMALLINT length = 0;
    return SQL_SUCCEEDED(SQLGetInfoW(connection, SQL_CATALOG_NAME, supported, sizeof supported, &length))
        && supported[0] == u'N';
}

QString OdbcConnection::engine() const
{
    if (!m_session)
        return QString();
    SQLWCHAR name[128] = {};
    SQLSMALLINT bytes = 0;
    if (!SQL_SUCCEEDED(SQLGetInfoW(m_session->connection.get(), SQL_DBMS_NAME, name, sizeof name, &bytes)))
        return QString();
    return QString::fromUtf16(reinterpret_cast<const char16_t *>(name),
                              std::min<qsizetype>(bytes / qsizetype(sizeof(SQLWCHAR)), std::size(name) - 1));
}

DbStatus OdbcConnection::execute(const QString &sql)
{
    return m_session ? run(sql, m_timeouts.statementSeconds, nullptr) : notOpen();
}

DbStatus OdbcConnection::query(const QString &sql, ResultSet &into)
{
    return m_session ? run(sql, m_timeouts.statementSeconds, &into) : notOpen();
}

DbStatus OdbcConnection::run(const QString &sql, int timeoutSeconds, ResultSet *into)
{
    const OdbcHandle statement(SQL_HANDLE_STMT, m_session->connection.get());
    if (!statement.isValid())
        return m_session->connection.failure();
    SQLSetStmtAttrW(statement.get(), SQL_ATTR_QUERY_TIMEOUT, attribute(timeoutSeconds), SQL_IS_UINTEGER);
    // Known to cancel() until it ends, and never once its handle is freed.
    setRunning(statement.get());
    struct Ended
    {
        OdbcConnection *connection;
        ~Ended() { connection->setRunning(nullptr); }
    } ended{this};
    SQLRETURN result = SQLExecDirectW(statement.get(), wide(sql), SQLINTEGER(sql.size()));
    std::optional<ResultSet> rows;
    // Every result is walked, so that a failure in any of them is seen and the
    // connection is free for the next statement.
    for (;;) {
        if (result != SQL_NO_DATA && !SQL_SUCCEEDED(result))
            return withConnectionState(statement.failure());
        SQLSMALLINT columns = 0;
        if (into && !rows && result != SQL_NO_DATA && SQL_SUCCEEDED(SQLNumResultCols(statement.get(), &columns))
            && columns > 0) {
            bool fetchFailed = false;
            rows = readRows(statement, columns, &fetchFailed);
            if (fetchFailed)
                break; // the set ends where the server failed
        }
        result = SQLMoreResults(statement.get());
        if (result == SQL_NO_DATA)
            break;
    }
    if (into)
        *into = rows ? std::move(*rows) : ResultSet(QStringList(), {});
    return DbStatus::success();
}

void OdbcConnection::setRunning(void *statement)
{
    const std::lock_guard lock(m_runningMutex);
    m_running = statement;
}

void OdbcConnection::cancel()
{
    const std::lock_guard lock(m_runningMutex);
    if (m_running)
        SQLCancel(m_running);
}

DbStatus OdbcConnection::withConnectionState(DbStatus failure) const
{
    SQLUINTEGER dead = SQL_CD_FALSE;
    failure.connectionLost = SQL_SUCCEEDED(SQLGetConnectAttrW(m_session->connection.get(), SQL_ATTR_CONNECTION_DEAD, &dead,
                                                              SQL_IS_UINTEGER, nullptr))
        && dead == SQL_CD_TRUE;
    return failure;
}

DbStatus OdbcConnection::setAutocommit(bool on)
{
    if (!m_session)
        return notOpen();
    const SQLRETURN set = SQLSetConnectAttrW(m_session->connection.get(), SQL_ATTR_AUTOCOMMIT,
                                             attribute(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), SQL_IS_UINTEGER);
    if (!SQL_SUCCEEDED(set))
        return m_session->connection.failure();
    m_session->manualCommit = !on;
    return DbStatus::success();
}

DbStatus OdbcConnection::rollback()
{
    if (!m_session)
        return notOpen();
    const SQLRETURN ended = SQLEndTran(SQL_HANDLE_DBC, m_session->connection.get(), SQL_ROLLBACK);
    return SQL_SUCCEEDED(ended) ? DbStatus::success() : m_session->connection.failure();
}

DbStatus OdbcConnection::close()
{
    if (!m_session)
        return notOpen();
    m_session.reset();
    return DbStatus::success();
}

ConnectionFactory sqlServerConnections(OdbcTimeouts timeouts, std::optional<Encryption> encryption)
{
    const auto toOdbc = [encryption, timeouts](const QString &oleDb) {
        return odbcTargetFromOleDb(oleDb, encryption.value_or(encryptionFromEnvironment()), timeouts.statementSeconds);
    };
    return [timeouts, toOdbc] { return std::make_unique<OdbcConnection>(toOdbc, timeouts); };
}

ConnectionFactory odbcConnectionsTo(const QString &odbc, OdbcTimeouts timeouts)
{
    return [odbc, timeouts] {
        return std::make_unique<OdbcConnection>([odbc](const QString &oleDb) { return odbcTargetFromGiven(odbc, oleDb); },
                                                timeouts);
    };
}
