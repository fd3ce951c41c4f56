#include "catalogserver.h"

#include <QRegularExpression>

#include <algorithm>

CatalogServer::CatalogServer(std::shared_ptr<State> state)
    : m_state(std::move(state))
{
}

DbStatus CatalogServer::open(const QString &connectionString)
{
    m_state->opened << connectionString;
    if (m_open)
        return DbStatus::failure(QStringLiteral("already open"));
    if (m_state->refuseLogin)
        return DbStatus::failure(QStringLiteral("Login failed"), 18456);
    m_open = true;
    return DbStatus::success();
}

DbStatus CatalogServer::execute(const QString &sql)
{
    Q_UNUSED(sql);
    return DbStatus::failure(QStringLiteral("not expected"));
}

DbStatus CatalogServer::query(const QString &sql, ResultSet &into)
{
    m_state->queries << sql;
    if (!m_open)
        return DbStatus::failure(QStringLiteral("not open"));
    static const QRegularExpression listing(
        QStringLiteral("^Select name From (sys\\.databases|sysdatabases) Where name like '([^'%]*)%'.* Order By name$"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = listing.match(sql);
    if (!match.hasMatch())
        return DbStatus::failure(QStringLiteral("Incorrect syntax"), 102);
    const bool accessOnly = sql.contains(QLatin1String("HAS_DBACCESS(name) = 1"), Qt::CaseInsensitive);
    QStringList names;
    for (const QString &name : m_state->databases) {
        if (name.startsWith(match.captured(2), Qt::CaseInsensitive)
            && !(accessOnly && m_state->inaccessible.contains(name)))
            names << name;
    }
    std::sort(names.begin(), names.end(),
              [](const QString &a, const QString &b) { return a.compare(b, Qt::CaseInsensitive) < 0; });
    std::optional<DbStatus> dropped;
    if (m_state->dropAfterRows >= 0 && m_state->dropAfterRows < names.size()) {
        names = names.mid(0, m_state->dropAfterRows);
        dropped = DbStatus::failure(QStringLiteral("Communication link failure"), 0);
    }
    QList<QVariantList> rows;
    for (const QString &name : names)
        rows << QVariantList{name};
    into = ResultSet({QStringLiteral("name")}, rows, dropped);
    return DbStatus::success();
}

DbStatus CatalogServer::close()
{
    ++m_state->closes;
    if (!m_open)
        return DbStatus::failure(QStringLiteral("not open"));
    m_open = false;
    return DbStatus::success();
}
