#include "databasebefore.h"

#include "databaseschema.h"
#include "runplan.h"

DatabaseBefore readDatabaseBefore(Connection &connection)
{
    DatabaseBefore before;
    DatabaseSchema schema;
    if (readDatabaseSchema(connection, schema).ok)
        before.tables = schema.tables;
    for (const QString &table : rebuiltTables()) {
        ResultSet rows;
        if (!connection.query(QStringLiteral("SELECT COUNT(*) AS RowCount FROM [dbo].[%1]").arg(table), rows).ok)
            continue;
        const int count = rows.field(QStringLiteral("RowCount")).value_or(0).toInt();
        if (count > 0)
            before.rebuiltTableRows.append({table, count});
    }
    ResultSet header;
    if (connection.query(QStringLiteral("SELECT * FROM [dbo].[tblKWClientInfo]"), header).ok
        && !header.atEnd().value_or(true)) {
        for (const QString &column : header.columns())
            before.reportHeader.append({column, header.field(column).value_or(QVariant()).toString()});
    }
    return before;
}
