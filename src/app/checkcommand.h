#pragma once

#include "commandcontext.h"

// zrt check, one database or a fleet: what each lacks of what a run leaves.
int checkCommand(const QStringList &arguments, CommandContext &context);
