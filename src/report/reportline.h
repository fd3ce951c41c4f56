#pragma once

#include "runhost.h"

#include <QByteArray>
#include <QDateTime>
#include <QJsonObject>

// The version of the JSON the program writes, in every document and in every
// report's header: raised when a key goes or changes its meaning.
inline constexpr int kJsonFormat = 1;

// The keys a JSON document or a report's header begins with: what it is
// ("run", "check", "list", "header") and its format.
QJsonObject jsonDocument(const QString &type);

// `into` with every key of `from` added, replacing its own.
QJsonObject merged(QJsonObject into, const QJsonObject &from);

// One statement of a run as a line of its report: a JSON object of type
// "statement" with the statement's place, the wall-clock time it ended, its
// phase, text, outcome, the server's message and its duration.
QByteArray reportLine(int index, const StatementOutcome &outcome, const QDateTime &at);

// Any other line of a report: its header or its summary.
QByteArray jsonLine(const QJsonObject &object);
