#pragma once

#include "commandcontext.h"

// zrt list: the Quorvex databases of a server, or of each server of a fleet.
int listCommand(const QStringList &arguments, CommandContext &context);
