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

// A view the database cannot hold: it reads tables that no run creates and
// that the database lacks.
struct UninstallableView
{
    QString view;
    QStringList missingTables;
};

// How a database departs from what the run leaves. Only what is missing or
// differs counts; what the database holds beyond that is left alone.
struct SchemaDrift
{
    QStringList missingTables;
    QList<ColumnFinding> missingColumns; // of the tables that are there
    QList<ColumnFinding> differingColumns;
    QStringList missingViews;
    QList<UninstallableView> uninstallableViews; // missing, and no difference
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
