#pragma once

#include "commandcontext.h"

// zrt list --mode MODE --server NAME
int listCommand(const QStringList &arguments, CommandContext &context);
