#pragma once

#include "dbstatus.h"

#include <QList>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <optional>

// A result set read whole into memory when its query ran, so the connection is
// free for the next statement while the set stays "open" in a variable.
// A default-constructed set was never opened: its end test fails.
class ResultSet
{
public:
    ResultSet() = default;
    ResultSet(QStringList columns, QList<QVariantList> rows,
              std::optional<DbStatus> fetchError = std::nullopt);

    bool isOpen() const { return m_open; }
    const QStringList &columns() const { return m_columns; }
    // nullopt when the test itself fails: the set is not open, or the server
    // failed after the rows fetched so far.
    std::optional<bool> atEnd() const;
    // nullopt when the set is closed, at its end, or has no such column.
    std::optional<QVariant> field(const QString &name) const;
    // Fails when the set is closed or at its end.
    DbStatus moveNext();
    void close();

private:
    QStringList m_columns;
    QList<QVariantList> m_rows;
    std::optional<DbStatus> m_fetchError;
    qsizetype m_position = 0;
    bool m_open = false;
};

// Hands each row from the current one to the end to `take`, which answers
// whether to go on. Fails where the end test or a move fails, or `take` stops.
DbStatus forEachRow(ResultSet &rows, const std::function<bool(const ResultSet &)> &take);
