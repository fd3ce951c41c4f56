#pragma once

#include "commandcontext.h"

// zrt script [--output FILE]
int scriptCommand(const QStringList &arguments, CommandContext &context);
