#pragma once

#include "step.h"

#include <QString>
#include <QStringList>

// Everything the run sends after the connection is open, in run order: the six
// rebuilt tables' drops, the table phase, the views, the chart of accounts.
Steps maintenanceSteps();

// The six tables every run drops first and creates again, in drop order.
QStringList rebuiltTables();

// The statement that creates a missing database under the file base chosen.
QString createDatabaseStatement(const QString &databaseName, const QString &fileBase);
