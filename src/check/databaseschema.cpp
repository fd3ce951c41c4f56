#include "databaseschema.h"

#include "viewcatalog.h"

#include <algorithm>
#include <functional>
#include <map>

namespace {

// Every column of every dbo table and view, with its type and its width in characters.
constexpr char kColumnsQuery[] =
    "SELECT TABLE_NAME, COLUMN_NAME, DATA_TYPE, CHARACTER_MAXIMUM_LENGTH, ORDINAL_POSITION "
    "FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_SCHEMA = 'dbo'";
// Every dbo view, so that its columns are not taken for a table's.
constexpr char kViewsQuery[] = "SELECT TABLE_NAME FROM INFORMATION_SCHEMA.VIEWS WHERE TABLE_SCHEMA = 'dbo'";

QString text(const ResultSet &row, const char *field)
{
    return row.field(QLatin1String(field)).value_or(QVariant()).toString();
}

int number(const ResultSet &row, const char *field)
{
    return row.field(QLatin1String(field)).value_or(QVariant()).toInt(); // NULL: 0
}

DbStatus eachRow(Connection &connection, const char *select, const std::function<void(const ResultSet &)> &take)
{
    ResultSet rows;
    const DbStatus status = connection.query(QLatin1String(select), rows);
    if (!status.ok)
        return status;
    return forEachRow(rows, [&take](const ResultSet &row) {
        take(row);
        return true;
    });
}

bool byName(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) < 0;
}

} // namespace

DbStatus readDatabaseSchema(Connection &connection, DatabaseSchema &into)
{
    struct PlacedColumn
    {
        int ordinal;
        SchemaColumn column;
    };
    std::map<QString, QList<PlacedColumn>, decltype(&byName)> columnsByTable(&byName);
    DbStatus status = eachRow(connection, kColumnsQuery, [&](const ResultSet &row) {
        columnsByTable[text(row, "TABLE_NAME")].append(
            {number(row, "ORDINAL_POSITION"),
             {text(row, "COLUMN_NAME"), text(row, "DATA_TYPE"), number(row, "CHARACTER_MAXIMUM_LENGTH")}});
    });
    if (!status.ok)
        return status;
    QStringList views;
    status = eachRow(connection, kViewsQuery, [&](const ResultSet &row) { views << text(row, "TABLE_NAME"); });
    if (!status.ok)
        return status;
    std::sort(views.begin(), views.end(), byName);

    DatabaseSchema schema;
    for (auto &[name, placed] : columnsByTable) {
        if (views.contains(name, Qt::CaseInsensitive))
            continue;
        std::sort(placed.begin(), placed.end(),
                  [](const PlacedColumn &a, const PlacedColumn &b) { return a.ordinal < b.ordinal; });
        SchemaTable table{name, {}};
        for (const PlacedColumn &column : std::as_const(placed))
            table.columns << column.column;
        schema.tables << table;
    }
    schema.views = views;
    into = schema;
    return DbStatus::success();
}

DatabaseSchema whatARunLeaves()
{
    DatabaseSchema schema{tablePhaseSchema(), {}};
    for (const ReportView &view : reportViewsInCreateOrder())
        schema.views << QString::fromUtf8(view.name.data(), qsizetype(view.name.size()));
    return schema;
}
