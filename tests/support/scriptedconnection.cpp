#include "scriptedconnection.h"

#include <QMutexLocker>

class ScriptedConnection : public Connection
{
public:
    ScriptedConnection(const ScriptedServer &server, QStringList &log)
        : m_server(server)
        , m_log(log)
    {
    }

    DbStatus open(const QString &connectionString) override
    {
        record(QLatin1String("open ") + connectionString);
        if (m_open)
            return DbStatus::failure(QStringLiteral("already open"));
        for (const QString &refused : m_server.refusedOpens) {
            if (connectionString.contains(refused))
                return m_server.openRefusal;
        }
        m_open = true;
        return DbStatus::success();
    }
    DbStatus execute(const QString &sql) override { return answer(QLatin1String("execute ") + sql, sql); }
    DbStatus query(const QString &sql, ResultSet &into) override
    {
        const DbStatus status = answer(QLatin1String("query ") + sql, sql);
        if (status.ok)
            into = m_server.answers.value(sql, ResultSet(QStringList(), {}));
        return status;
    }
    DbStatus setAutocommit(bool on) override
    {
        record(on ? QStringLiteral("autocommit on") : QStringLiteral("autocommit off"));
        return m_open ? DbStatus::success() : DbStatus::failure(QStringLiteral("not open"));
    }
    DbStatus rollback() override
    {
        record(QStringLiteral("rollback"));
        return m_open ? DbStatus::success() : DbStatus::failure(QStringLiteral("not open"));
    }
    DbStatus close() override
    {
        record(QStringLiteral("close"));
        if (!m_open)
            return DbStatus::failure(QStringLiteral("not open"));
        m_open = false;
        return DbStatus::success();
    }
    bool isOpen() const override { return m_open; }

private:
    void record(const QString &call)
    {
        QMutexLocker lock(&m_server.m_mutex);
        m_log << call;
    }
    DbStatus answer(const QString &call, const QString &sql)
    {
        record(call);
        if (m_server.heard)
            m_server.heard();
        if (!m_open)
            return DbStatus::failure(QStringLiteral("not open"));
        if (m_server.failingWith.contains(sql))
            return m_server.failingWith.value(sql);
        if (m_server.failingStatements.contains(sql))
            return DbStatus::failure(QStringLiteral("scripted failure"), 50000);
        return DbStatus::success();
    }

    const ScriptedServer &m_server;
    QStringList &m_log;
    bool m_open = false;
};

ConnectionFactory ScriptedServer::connections()
{
    return [this] {
        QMutexLocker lock(&m_mutex);
        m_logs.emplace_back();
        return std::make_unique<ScriptedConnection>(*this, m_logs.back());
    };
}

QList<QStringList> ScriptedServer::logs() const
{
    QMutexLocker lock(&m_mutex);
    return QList<QStringList>(m_logs.begin(), m_logs.end());
}

ResultSet singleColumn(const QString &column, const QStringList &values)
{
    QList<QVariantList> rows;
    for (const QString &value : values)
        rows << QVariantList{value};
    return ResultSet({column}, rows);
}
