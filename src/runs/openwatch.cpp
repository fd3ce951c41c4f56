#include "openwatch.h"

#include "connectionprofiles.h"
#include "mdzrt.h"

namespace {

class WatchedConnection : public Connection
{
public:
    WatchedConnection(std::unique_ptr<Connection> connection, std::shared_ptr<QString> refusal)
        : m_connection(std::move(connection))
        , m_refusal(std::move(refusal))
    {
    }

    DbStatus open(const QString &connectionString) override
    {
        DbStatus status = m_connection->open(connectionString);
        if (!status.ok && connectionString != ConnectionProfiles::fallbackConnectionString())
            *m_refusal = status.message;
        return status;
    }
    DbStatus execute(const QString &sql) override { return m_connection->execute(sql); }
    DbStatus query(const QString &sql, ResultSet &into) override { return m_connection->query(sql, into); }
    DbStatus setAutocommit(bool on) override { return m_connection->setAutocommit(on); }
    DbStatus rollback() override { return m_connection->rollback(); }
    DbStatus close() override { return m_connection->close(); }
    bool isOpen() const override { return m_connection->isOpen(); }

private:
    std::unique_ptr<Connection> m_connection;
    std::shared_ptr<QString> m_refusal;
};

} // namespace

OpenWatch::OpenWatch(ConnectionFactory connections)
    : m_connections(std::move(connections))
    , m_refusal(std::make_shared<QString>())
{
}

ConnectionFactory OpenWatch::connections() const
{
    return [connections = m_connections, refusal = m_refusal]() -> std::unique_ptr<Connection> {
        return std::make_unique<WatchedConnection>(connections(), refusal);
    };
}

QString OpenWatch::whyNotOpen(mdZRT &module, const QString &database) const
{
    if (!module.ConnectionOpened())
        return QStringLiteral("cannot open the database '%1'%2")
            .arg(database, m_refusal->isEmpty() ? QString() : QLatin1String(": ") + *m_refusal);
    if (!module.SharedConnection().isOpen())
        return QStringLiteral("no connection was opened: ONLINE mode opens only on the servers QUORVEXMAIN and SERVER");
    return QString();
}
