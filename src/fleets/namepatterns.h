#pragma once

#include <QStringList>

// Which of a server's listed databases a fleet takes: glob patterns (* ? and
// [...]) over the whole name, in any letter case, as SQL Server compares names.
struct NamePatterns
{
    QStringList include; // none: every name
    QStringList exclude;

    bool admits(const QString &name) const;
};
