#pragma once

#include "commandcontext.h"

#include <QCommandLineParser>

// run or plan (with `preview`) with --all, --fleet or --retry, its options
// parsed: every database, a line for each as it ends, the totals, and the
// invocation's folder.
int runAllCommand(const QCommandLineParser &parser, bool preview, CommandContext &context);
