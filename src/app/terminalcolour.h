#pragma once

#include "databaserun.h"

#include <QString>

enum class Tint { Green, Yellow, Red, Grey };

// `text` in `tint` on a terminal, unless NO_COLOR is set (to anything); as it
// is anywhere else, so that files and pipes get no escapes.
QString tinted(const QString &text, Tint tint, bool terminal);

// Completed green, failures yellow, nothing done red, interrupted grey.
Tint outcomeTint(RunOutcome outcome);
