#include "databasebefore.h"

#include "databaseschema.h"
#include "runplan.h"

DatabaseBefore readDatabaseBefore(Connection &connection)
{
    DatabaseBefore before;
    const auto read = [&before](const DbStatus &status, const QString &what) {
        if (status.timedOut)
            before.timedOut << what;
        return status.ok;
    };
    DatabaseSchema schema;
    if (read(readDatabaseSchema(connection, schema), QStringLiteral("the tables and their columns")))
        before.tables = schema.tables;
    for (const QString &table : rebuiltTables()) {
        ResultSet rows;
        if (!read(connection.query(QStringLiteral("SELECT COUNT(*) AS RowCount FROM [dbo].[%1]").arg(table), rows),
                  QLatin1String("the rows of ") + table))
            continue;
        const int count = rows.field(QStringLiteral("RowCount")).value_or(0).toInt();
        if (count > 0)
            before.rebuiltTableRows.append({table, count});
    }
    ResultSet header;
    if (read(connection.query(QStringLiteral("SELECT * FROM [dbo].[tblKWClientInfo]"), header),
             QStringLiteral("the report header row"))
        && !header.atEnd().value_or(true)) {
        for (const QString &column : header.columns())
            before.reportHeader.append({column, header.field(column).value_or(QVariant()).toString()});
    }
    return before;
}
