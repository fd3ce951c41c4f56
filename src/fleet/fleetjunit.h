#pragma once

#include <QByteArray>
#include <QJsonObject>

// The index as JUnit XML, as CI systems show it: a test suite per server (a
// preview marked in its name), a case per database that fails with its
// messages grouped, or what a check found different, and is skipped when it
// was not begun; a server that could not be listed fails a case of its own.
QByteArray fleetJunit(const QJsonObject &index);
