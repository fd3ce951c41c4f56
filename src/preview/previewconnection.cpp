#include "previewconnection.h"

namespace {

class PreviewConnection : public Connection
{
public:
    explicit PreviewConnection(std::unique_ptr<Connection> connection)
        : m_connection(std::move(connection))
    {
    }
    ~PreviewConnection() override
    {
        if (m_connection->isOpen())
            m_connection->rollback();
    }

    DbStatus open(const QString &connectionString) override
    {
        const DbStatus opened = m_connection->open(connectionString);
        if (!opened.ok)
            return opened;
        const DbStatus manual = m_connection->setAutocommit(false);
        if (manual.ok)
            return manual;
        // Without a transaction of its own a preview would change the database.
        m_connection->close();
        return DbStatus::failure(QLatin1String("cannot preview without a transaction: ") + manual.message,
                                 manual.nativeError);
    }
    DbStatus execute(const QString &sql) override { return m_connection->execute(sql); }
    DbStatus query(const QString &sql, ResultSet &into) override { return m_connection->query(sql, into); }
    DbStatus setAutocommit(bool on) override
    {
        return on ? DbStatus::failure(QStringLiteral("a preview never commits")) : DbStatus::success();
    }
    DbStatus rollback() override { return m_connection->rollback(); }
    DbStatus close() override
    {
        if (m_connection->isOpen())
            m_connection->rollback();
        return m_connection->close();
    }
    bool isOpen() const override { return m_connection->isOpen(); }
    QString engine() const override { return m_connection->engine(); }

private:
    std::unique_ptr<Connection> m_connection;
};

} // namespace

ConnectionFactory previewConnections(ConnectionFactory connections)
{
    return [connections = std::move(connections)]() -> std::unique_ptr<Connection> {
        return std::make_unique<PreviewConnection>(connections());
    };
}

TransactionState transactionState(Connection &connection)
{
    ResultSet count;
    if (!connection.query(QStringLiteral("SELECT @@TRANCOUNT AS TranCount"), count).ok)
        return TransactionState::Unknown;
    bool number = false;
    const int open = count.field(QStringLiteral("TranCount")).value_or(QVariant()).toInt(&number);
    if (!number)
        return TransactionState::Unknown;
    return open > 0 ? TransactionState::Open : TransactionState::Ended;
}
