#pragma once

#include "runhost.h"

#include <QString>

enum class StatementResult { Succeeded, AlreadyExisted, NotThereToDrop, Failed };

// Tells an expected refusal (the object is already there, or not there to
// drop) from a real failure, by SQL Server's error numbers, or by the SQLite
// driver's messages where the run is tried out on SQLite.
StatementResult classify(const StatementOutcome &outcome);
QString resultName(StatementResult result);

// The phase as reports name it.
QString phaseName(Phase phase);
