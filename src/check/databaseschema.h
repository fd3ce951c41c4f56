#pragma once

#include "connection.h"
#include "expectedschema.h"

#include <QStringList>

// The dbo tables, their columns and the dbo views of one database.
struct DatabaseSchema
{
    QList<SchemaTable> tables;
    QStringList views;
};

// The tables and columns the table phase leaves and every report view.
DatabaseSchema whatARunLeaves();

// What the database's own catalogue lists: tables by name, each with its
// columns in table order, and views by name. Only Selects are sent; the first
// that fails ends the reading with its status.
DbStatus readDatabaseSchema(Connection &connection, DatabaseSchema &into);
