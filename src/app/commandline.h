#pragma once

#include "commandcontext.h"

#include <QStringList>

// The headless program: `arguments` as the process got them, program first.
int runCommandLine(const QStringList &arguments, CommandContext &context);
