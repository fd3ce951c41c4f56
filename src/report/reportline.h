#pragma once

#include "runhost.h"

#include <QByteArray>
#include <QDateTime>
#include <QJsonObject>

// One statement of a run as a line of its report: a JSON object with the
// statement's place, the wall-clock time it ended, its phase, text, outcome,
// the server's message and its duration.
QByteArray reportLine(int index, const StatementOutcome &outcome, const QDateTime &at);

// Any other line of a report: its opening context or its end.
QByteArray jsonLine(const QJsonObject &object);
