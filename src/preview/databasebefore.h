#pragma once

#include "connection.h"
#include "expectedschema.h"

#include <QList>
#include <QPair>
#include <QStringList>

// What a database holds before a run that the run would change or discard:
// its tables and columns, the rows of the tables every run drops, and the
// report-header row that it writes afresh.
struct DatabaseBefore
{
    QList<SchemaTable> tables; // empty when the catalogue cannot be read
    QList<QPair<QString, int>> rebuiltTableRows; // each table that holds rows
    QList<QPair<QString, QString>> reportHeader; // column, value of its first row
    QStringList timedOut; // what was not read because the server took too long
};

// Reads with Selects only; what cannot be read is left out, and named when
// its read timed out (a missing table simply holds nothing).
DatabaseBefore readDatabaseBefore(Connection &connection);
