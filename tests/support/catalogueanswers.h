#pragma once

#include "databaseschema.h"
#include "scriptedconnection.h"

// Lets a scripted server answer the two catalogue reads of `zrt check` as a
// database holding `schema` would.
inline void answerCatalogue(ScriptedServer &server, const DatabaseSchema &schema)
{
    QList<QVariantList> columns;
    for (const SchemaTable &table : schema.tables) {
        for (qsizetype i = 0; i < table.columns.size(); ++i) {
            const SchemaColumn &column = table.columns[i];
            columns << QVariantList{table.name, column.name, column.type,
                                    column.length ? QVariant(column.length) : QVariant(), int(i + 1)};
        }
    }
    QList<QVariantList> views;
    for (const QString &view : schema.views)
        views << QVariantList{view};
    server.answers.insert(
        QStringLiteral("SELECT TABLE_NAME, COLUMN_NAME, DATA_TYPE, CHARACTER_MAXIMUM_LENGTH, ORDINAL_POSITION "
                       "FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_SCHEMA = 'dbo'"),
        ResultSet({"TABLE_NAME", "COLUMN_NAME", "DATA_TYPE", "CHARACTER_MAXIMUM_LENGTH", "ORDINAL_POSITION"}, columns));
    server.answers.insert(QStringLiteral("SELECT TABLE_NAME FROM INFORMATION_SCHEMA.VIEWS WHERE TABLE_SCHEMA = 'dbo'"),
                          ResultSet({"TABLE_NAME"}, views));
}
