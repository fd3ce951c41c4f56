#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// Table, column, view and type names compare without case, as the server's do.
inline bool sameName(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

struct SchemaColumn
{
    QString name;
    QString type;   // as the statement spells it: "DateTime", "nvarchar"
    int length = 0; // the width given in characters; 0 where the statement gives none
};

struct SchemaTable
{
    QString name;
    QList<SchemaColumn> columns; // in table order
};

// The tables and columns that `statements` leave when sent in order to an
// empty database, each failing where the server would: a table created twice
// keeps its first form, a column added twice its first type, and a change to
// a missing table or column changes nothing. Only the forms the table phase
// sends are read: CREATE TABLE [dbo].[T] (...), ALTER TABLE [dbo].[T] ADD ...
// and ALTER TABLE [dbo].[T] ALTER COLUMN ...; the Selects, Inserts and
// Updates between them shape no table and are passed over.
QList<SchemaTable> schemaAfter(const QStringList &statements);

// What the table phase leaves: every table and column at its final type and width.
QList<SchemaTable> tablePhaseSchema();
