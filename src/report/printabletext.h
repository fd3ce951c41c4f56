#pragma once

#include <QDateTime>
#include <QString>

// The text with every control character shown as an escape (\n, \t, \x1B,
// \u2028), so that names and server messages cannot move the cursor, colour
// the terminal or break a line.
QString escapedControls(const QString &text);

// A moment as reports write it: local time with its offset, to the millisecond.
QString reportTime(const QDateTime &moment);
