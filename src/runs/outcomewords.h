#pragma once

#include <QJsonObject>
#include <QStringList>

// What a database's entry in an index tells, in words: the fleet page and
// its JUnit file say the same.

// Where an outcome stands: failures come first, then what was left undone.
enum class Standing { Failed, LeftUndone, Succeeded };
Standing standingOf(const QString &outcome);

// Where a run that began ended early: "after statement #107; 386 statements
// not sent". Empty for a run that did not stop.
QString stopText(const QJsonObject &entry);

// How many of its statements failed unexpectedly or timed out.
int unexpectedCount(const QJsonObject &entry);

// "3 of 62 statements failed unexpectedly or timed out".
QString unexpectedText(qsizetype unexpected, qsizetype sent);

// Why the database ended as it did, in a sentence or two: why it could not
// start or be read, where it stopped, why it was not begun, what could not
// be written. Empty when nothing needs saying.
QString whyText(const QJsonObject &entry);

// Its failures by message, the most frequent first: "12× message".
QStringList messageGroups(const QJsonObject &entry);

// What a check found different, a line per kind: "Missing tables: a, b".
QStringList differenceLines(const QJsonObject &entry);
