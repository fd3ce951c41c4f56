#include "fakesqlserver.h"

#include "fakesqlstatements.h"

namespace {

QString catalogOf(const QString &connectionString)
{
    const QLatin1StringView key("Initial Catalog=");
    const qsizetype start = connectionString.indexOf(key, 0, Qt::CaseInsensitive);
    if (start < 0)
        return QStringLiteral("master");
    const qsizetype valueStart = start + key.size();
    const qsizetype end = connectionString.indexOf(u';', valueStart);
    const QString catalog = connectionString.mid(valueStart, end < 0 ? -1 : end - valueStart).trimmed();
    return catalog.isEmpty() ? QStringLiteral("master") : catalog;
}

} // namespace

FakeSqlServer::FakeSqlServer(std::shared_ptr<FakeServerState> server)
    : m_server(std::move(server))
{
}

DbStatus FakeSqlServer::open(const QString &connectionString)
{
    if (m_open)
        return DbStatus::failure(QStringLiteral("Operation is not allowed when the object is open."), 3705);
    const QString catalog = catalogOf(connectionString);
    const DbStatus opened = m_server->openCatalog(catalog);
    if (!opened.ok)
        return opened;
    m_catalog = catalog;
    m_open = true;
    return DbStatus::success();
}

DbStatus FakeSqlServer::execute(const QString &sql)
{
    ResultSet discarded;
    return run(sql, discarded);
}

DbStatus FakeSqlServer::query(const QString &sql, ResultSet &into)
{
    ResultSet result;
    const DbStatus status = run(sql, result);
    if (status.ok)
        into = result;
    return status;
}

DbStatus FakeSqlServer::close()
{
    if (!m_open)
        return DbStatus::failure(QStringLiteral("Operation is not allowed when the object is closed."), 3704);
    m_open = false;
    m_catalog.clear();
    return DbStatus::success();
}

DbStatus FakeSqlServer::run(const QString &sql, ResultSet &result)
{
    const DbStatus status = m_open
        ? runFakeStatement(*m_server, m_catalog, sql, result)
        : DbStatus::failure(QStringLiteral("Operation is not allowed when the object is closed."), 3704);
    m_server->record({m_catalog, sql, status.ok, status.nativeError, status.message});
    return status;
}

ConnectionFactory fakeSqlServerConnections(std::shared_ptr<FakeServerState> server)
{
    return [server] { return std::make_unique<FakeSqlServer>(server); };
}
