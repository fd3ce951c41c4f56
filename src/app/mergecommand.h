#pragma once

#include "commandcontext.h"

// zrt merge: one invocation's folder from several.
int mergeCommand(const QStringList &arguments, CommandContext &context);
