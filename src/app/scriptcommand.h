#pragma once

#include "commandcontext.h"

// zrt script [--output FILE]
int scriptCommand(const QStringList &arguments, CommandContext &context);

// Every statement followed by a line holding only GO.
QByteArray runScript();
