#pragma once

#include <QString>
#include <QStringList>

// Which of a server's listed databases a fleet takes: patterns over the whole
// name, in any letter case, as SQL Server compares names. * is any text, ? one
// character, [...] one character of a set of characters and ranges (a-z),
// [!...] one not in it; a set matches a character the pattern language uses
// literally: [[] a [, [*] a *, []] a ].
struct NamePatterns
{
    QStringList include; // none: every name
    QStringList exclude;

    bool admits(const QString &name) const;
};

// Why `pattern` is not one of the language above, or nothing.
QString patternRefusal(const QString &pattern);
