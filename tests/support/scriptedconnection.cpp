#include "scriptedconnection.h"

ScriptedConnection::ScriptedConnection(std::shared_ptr<Log> log)
    : m_log(std::move(log))
{
}

DbStatus ScriptedConnection::open(const QString &connectionString)
{
    m_log->calls << QLatin1String("open ") + connectionString;
    if (m_open)
        return DbStatus::failure(QStringLiteral("already open"));
    if (refuseEveryOpen)
        return DbStatus::failure(QStringLiteral("refused"), 18456);
    for (const QString &refused : refusedOpens) {
        if (connectionString.contains(refused))
            return DbStatus::failure(QStringLiteral("refused"), 4060);
    }
    m_open = true;
    return DbStatus::success();
}

DbStatus ScriptedConnection::execute(const QString &sql)
{
    m_log->calls << QLatin1String("execute ") + sql;
    if (!m_open)
        return DbStatus::failure(QStringLiteral("not open"));
    if (failingStatements.contains(sql))
        return DbStatus::failure(QStringLiteral("scripted failure"), 50000);
    return DbStatus::success();
}

DbStatus ScriptedConnection::query(const QString &sql, ResultSet &into)
{
    m_log->calls << QLatin1String("query ") + sql;
    if (!m_open)
        return DbStatus::failure(QStringLiteral("not open"));
    if (failingStatements.contains(sql))
        return DbStatus::failure(QStringLiteral("scripted failure"), 50000);
    into = answers.value(sql, ResultSet(QStringList(), {}));
    return DbStatus::success();
}

DbStatus ScriptedConnection::close()
{
    m_log->calls << QStringLiteral("close");
    if (!m_open)
        return DbStatus::failure(QStringLiteral("not open"));
    m_open = false;
    return DbStatus::success();
}

ResultSet singleColumn(const QString &column, const QStringList &values)
{
    QList<QVariantList> rows;
    for (const QString &value : values)
        rows << QVariantList{value};
    return ResultSet({column}, rows);
}
