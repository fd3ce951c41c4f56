#pragma once

#include "commandcontext.h"

#include <QCommandLineParser>

// run --all, its options parsed: every listed database, a line for each as it
// ends, the totals, and the report folder.
int runAllCommand(const QCommandLineParser &parser, const QString &mode, CommandContext &context);
