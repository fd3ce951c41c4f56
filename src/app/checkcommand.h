#pragma once

#include "commandcontext.h"

// zrt check --mode MODE --database NAME [--server NAME | --odbc STRING] [--json]
// zrt check --all --mode MODE --server NAME [--json]
int checkCommand(const QStringList &arguments, CommandContext &context);
