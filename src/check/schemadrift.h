#pragma once

#include "databaseschema.h"

// One column that is missing, differs or was left alone; types as
// "nvarchar(100)", empty on the side where the column is not.
struct ColumnFinding
{
    QString table;
    QString column;
    QString expected;
    QString found;
};

// How a database departs from what the run leaves. Only what is missing or
// differs counts; what the database holds beyond that is left alone.
struct SchemaDrift
{
    QStringList missingTables;
    QList<ColumnFinding> missingColumns; // of the tables that are there
    QList<ColumnFinding> differingColumns;
    QStringList missingViews;
    QStringList extraTables;
    QList<ColumnFinding> extraColumns; // of the expected tables
    QStringList extraViews;

    qsizetype differences() const
    {
        return missingTables.size() + missingColumns.size() + differingColumns.size() + missingViews.size();
    }
};

// Names compare without case, as the server's do, and so do type names; a
// width counts where the expected column has one.
SchemaDrift schemaDrift(const DatabaseSchema &expected, const DatabaseSchema &found);
