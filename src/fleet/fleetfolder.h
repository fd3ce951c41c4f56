#pragma once

#include <QString>

// A new folder in `dir` for one invocation, DIR/YYYYMMDD-HHMMSS-COMMAND (local
// time), with -2, -3, ... appended while that name is taken: nothing of an
// earlier invocation is ever written into or replaced.
struct InvocationFolder
{
    QString path;  // empty when none could be made
    QString error;
};

InvocationFolder makeInvocationFolder(const QString &dir, const QString &command);

// A database's report in the folder: NNN-NAME.jsonl, NNN its place from 1, so
// that no two names share a file, and NAME its letters, digits and hyphens.
QString reportFileName(qsizetype position, const QString &database);
