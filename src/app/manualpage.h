#pragma once

#include <QString>

// A manual page template filled in: @VERSION@ and @DATE@, and @SYNOPSIS@,
// @COMMANDS@, @OPTIONS@, @EXIT_STATUS@ and @ENVIRONMENT@ in roff from the
// commands' syntax, so the page follows the program's own help.
QString manualPage(QString page, const QString &version, const QString &date);
