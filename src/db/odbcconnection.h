#pragma once

#include "connection.h"
#include "odbcconnectionstring.h"

#include <QString>

#include <memory>
#include <mutex>
#include <optional>

// How long a connection waits on its server before it gives up.
struct OdbcTimeouts
{
    int loginSeconds = 15;     // connecting and logging in, and any USE of the catalog after it
    int statementSeconds = 30; // each statement, which then fails as timed out; 0 waits for ever
};

// A connection over the ODBC driver manager. open() receives the connection
// string as the system builds it and asks `toOdbc` what to give the driver.
class OdbcConnection : public Connection
{
public:
    using Translator = std::function<OdbcTarget(const QString &)>;

    explicit OdbcConnection(Translator toOdbc, OdbcTimeouts timeouts = {});
    ~OdbcConnection() override;

    DbStatus open(const QString &connectionString) override;
    DbStatus execute(const QString &sql) override;
    DbStatus query(const QString &sql, ResultSet &into) override;
    DbStatus setAutocommit(bool on) override;
    DbStatus rollback() override;
    DbStatus close() override;
    bool isOpen() const override { return m_session != nullptr; }
    void cancel() override;
    QString engine() const override;

    struct Session;

private:
    // Runs one statement, reading its first result set with columns into
    // `into` when one is asked for.
    DbStatus run(const QString &sql, int timeoutSeconds, ResultSet *into);
    // Whether the login landed in `catalog` (named in it or not), as the driver reports it.
    bool inCatalog(const QString &catalog, bool namedAtLogin) const;
    void setRunning(void *statement);
    // The failure, marked when the driver finds the connection dead with it.
    DbStatus withConnectionState(DbStatus failure) const;

    Translator m_toOdbc;
    OdbcTimeouts m_timeouts;
    std::unique_ptr<Session> m_session;
    std::mutex m_runningMutex;
    void *m_running = nullptr; // the statement handle under way, for cancel()
};

// Connections to SQL Server that open the profiles' OLE DB strings, encrypted
// as `encryption` says, or else as the environment says when each opens.
ConnectionFactory sqlServerConnections(OdbcTimeouts timeouts = {}, std::optional<Encryption> encryption = std::nullopt);

// Connections that open `odbc` as given, for the database that the system's
// string names (see odbcTargetFromGiven).
ConnectionFactory odbcConnectionsTo(const QString &odbc, OdbcTimeouts timeouts = {});
