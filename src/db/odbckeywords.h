#pragma once

#include <QList>
#include <QString>

// One "name=value" pair of an ODBC connection string, as a driver reads it: the
// value braced or running to the next ';', "}}" in a braced value a '}'.
struct OdbcKeyword
{
    QString name;  // trimmed, as written
    QString value; // unbraced
    qsizetype from = 0; // the pair's place in the string, its ';' included
    qsizetype to = 0;
};

QList<OdbcKeyword> odbcKeywords(const QString &odbc);

// The string without the pairs of that keyword (any letter case).
QString withoutKeyword(const QString &odbc, const QString &name);

// The text with the value of every PWD or Password keyword (any letter case,
// braced or not) shown as ****: for connection strings and for any message
// that may quote one. Nothing else of the text changes.
QString withoutPasswords(const QString &text);
