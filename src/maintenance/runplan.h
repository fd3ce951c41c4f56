#pragma once

#include "step.h"

#include <QString>

// Everything the run sends after the connection is open, in run order: the six
// rebuilt tables' drops, the table phase, the views, the chart of accounts.
Steps maintenanceSteps();

// The statement that creates a missing database under the file base chosen.
QString createDatabaseStatement(const QString &databaseName, const QString &fileBase);
