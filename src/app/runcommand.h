#pragma once

#include "commandcontext.h"

// zrt run --mode MODE --database NAME [--server NAME | --odbc STRING]
//         [--create-at FILEBASE] [--report FILE] [--json | --quiet | --verbose]
// zrt run --all --mode MODE --server NAME [--jobs N] [--report-dir DIR] [--json]
int runCommand(const QStringList &arguments, CommandContext &context);
