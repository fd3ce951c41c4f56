#pragma once

#include "connection.h"
#include "expectedschema.h"

#include <QList>
#include <QPair>

// What a database holds before a run that the run would change or discard:
// its tables and columns, the rows of the tables every run drops, and the
// report-header row that it writes afresh.
struct DatabaseBefore
{
    QList<SchemaTable> tables; // empty when the catalogue cannot be read
    QList<QPair<QString, int>> rebuiltTableRows; // each table that holds rows
    QList<QPair<QString, QString>> reportHeader; // column, value of its first row
};

// Reads with Selects only; what cannot be read is left out.
DatabaseBefore readDatabaseBefore(Connection &connection);
