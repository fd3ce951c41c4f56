#pragma once

#include "commandcontext.h"

// zrt run --mode MODE --database NAME [--server NAME | --odbc STRING]
//         [--create-at FILEBASE] [--report FILE] [--json | --quiet | --verbose]
// zrt run --all --mode MODE --server NAME [--jobs N] [--report-dir DIR] [--json]
int runCommand(const QStringList &arguments, CommandContext &context);

// zrt plan, with the options of run: the same run in one transaction, rolled
// back, and what it would change.
int planCommand(const QStringList &arguments, CommandContext &context);
