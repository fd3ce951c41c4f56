#pragma once

#include "commandcontext.h"

// zrt run --mode MODE --database NAME [--server NAME | --odbc STRING]
//         [--create-at FILEBASE] [--report FILE]
int runCommand(const QStringList &arguments, CommandContext &context);
