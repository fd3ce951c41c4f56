#include "resultset.h"

ResultSet::ResultSet(QStringList columns, QList<QVariantList> rows,
                     std::optional<DbStatus> fetchError)
    : m_columns(std::move(columns))
    , m_rows(std::move(rows))
    , m_fetchError(std::move(fetchError))
    , m_open(true)
{
}

std::optional<bool> ResultSet::atEnd() const
{
    if (!m_open)
        return std::nullopt;
    if (m_position >= m_rows.size() && m_fetchError)
        return std::nullopt; // the rows stop where the server failed, not at the end
    return m_position >= m_rows.size();
}

std::optional<QVariant> ResultSet::field(const QString &name) const
{
    if (!m_open || m_position >= m_rows.size())
        return std::nullopt;
    // Field names compare as the server compares them: without case.
    for (qsizetype column = 0; column < m_columns.size(); ++column) {
        if (m_columns[column].compare(name, Qt::CaseInsensitive) == 0 && column < m_rows[m_position].size())
            return m_rows[m_position][column];
    }
    return std::nullopt;
}

DbStatus ResultSet::moveNext()
{
    if (!m_open)
        return DbStatus::failure(QStringLiteral("The result set is closed."));
    if (m_position >= m_rows.size())
        return DbStatus::failure(QStringLiteral("The result set is at its end."));
    ++m_position;
    return DbStatus::success();
}

void ResultSet::close()
{
    m_open = false;
    m_rows.clear();
    m_position = 0;
}

DbStatus forEachRow(ResultSet &rows, const std::function<bool(const ResultSet &)> &take)
{
    for (;;) {
        const std::optional<bool> atEnd = rows.atEnd();
        if (!atEnd)
            return DbStatus::failure(QStringLiteral("The rows could not all be read."));
        if (*atEnd)
            return DbStatus::success();
        if (!take(rows))
            return DbStatus::failure(QStringLiteral("A row could not be read."));
        if (const DbStatus moved = rows.moveNext(); !moved.ok)
            return moved;
    }
}
