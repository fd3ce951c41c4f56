#pragma once

#include "runhost.h"

#include <QByteArray>

// One statement of a run as a line of its report: a JSON object with the
// statement's place, phase, text, outcome, the server's message and its time.
QByteArray reportLine(int index, const StatementOutcome &outcome);
