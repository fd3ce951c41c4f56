#pragma once

#include "dbstatus.h"

#include <QString>
#include <QVariant>

struct FakeColumn;

// SQL Server's rules for the column types, as far as the fake needs them.

// Spells the type in lower case and gives a text type without a width its
// implied width of 1, then checks that the type exists, takes the width it
// was given and may be an identity. `ordinal` is the column's place in its
// statement, for the message.
DbStatus prepareColumn(FakeColumn &column, int ordinal);

// Converts a value for storage in the column as the server would: text to
// numbers, numbers to text, char (n) padded with blanks. Dates stay as given.
// Fails on text that is no number and on text too long for the column.
DbStatus convertForColumn(const FakeColumn &column, QVariant &value);

// Makes a literal comparable with the column: a number for a numeric column
// (failing as the server fails on text that is no number), else text.
DbStatus convertForComparison(const FakeColumn &column, QVariant &literal);

// `column = literal` under the default collation, the literal converted as
// above: text without case and without trailing blanks, numbers by value.
// NULL equals nothing.
bool sqlEquals(const FakeColumn &column, const QVariant &stored, const QVariant &literal);

// INFORMATION_SCHEMA's CHARACTER_MAXIMUM_LENGTH of the column: the width of a
// text type in characters (-1 for max), NULL for the other types.
QVariant characterMaximumLength(const FakeColumn &column);

// A stored value as text; "NULL" for a null.
QString sqlText(const QVariant &value);
