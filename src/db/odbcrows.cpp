#include "odbcrows.h"

#include <QList>

#include <optional>

namespace {

constexpr SQLLEN kPieceCharacters = 256;

QString fromWide(const SQLWCHAR *text, qsizetype length)
{
    return QString::fromUtf16(reinterpret_cast<const char16_t *>(text), length);
}

QString columnName(const OdbcHandle &statement, SQLUSMALLINT column)
{
    QList<SQLWCHAR> name(kPieceCharacters);
    SQLSMALLINT length = 0;
    for (;;) {
        if (!SQL_SUCCEEDED(SQLDescribeColW(statement.get(), column, name.data(), SQLSMALLINT(name.size()), &length,
                                           nullptr, nullptr, nullptr, nullptr)))
            return QString();
        if (length < name.size())
            return fromWide(name.constData(), length);
        name.resize(length + 1);
    }
}

// Asks for the value piece by piece until the driver has given all of it, so
// that a text of any length comes through whole. nullopt when reading fails.
std::optional<QVariant> readText(const OdbcHandle &statement, SQLUSMALLINT column)
{
    SQLWCHAR piece[kPieceCharacters];
    QString text;
    for (;;) {
        SQLLEN indicator = 0;
        const SQLRETURN read = SQLGetData(statement.get(), column, SQL_C_WCHAR, piece, sizeof piece, &indicator);
        if (read == SQL_NO_DATA)
            return text;
        if (!SQL_SUCCEEDED(read))
            return std::nullopt;
        if (indicator == SQL_NULL_DATA)
            return QVariant();
        const bool cut = indicator == SQL_NO_TOTAL || indicator >= SQLLEN(sizeof piece);
        text += fromWide(piece, cut ? kPieceCharacters - 1 : indicator / SQLLEN(sizeof(SQLWCHAR)));
        if (!cut)
            return text;
    }
}

} // namespace

ResultSet readRows(const OdbcHandle &statement, SQLSMALLINT columns, bool *fetchFailed)
{
    QStringList names;
    for (SQLUSMALLINT column = 1; column <= columns; ++column)
        names << columnName(statement, column);
    QList<QVariantList> rows;
    *fetchFailed = true; // until the end is reached
    for (;;) {
        const SQLRETURN fetched = SQLFetch(statement.get());
        if (fetched == SQL_NO_DATA)
            break;
        if (!SQL_SUCCEEDED(fetched))
            return ResultSet(names, rows, statement.failure());
        QVariantList row;
        for (SQLUSMALLINT column = 1; column <= columns; ++column) {
            const std::optional<QVariant> value = readText(statement, column);
            if (!value)
                return ResultSet(names, rows, statement.failure());
            row << *value;
        }
        rows << row;
    }
    *fetchFailed = false;
    return ResultSet(names, rows);
}
