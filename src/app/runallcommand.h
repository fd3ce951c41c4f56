#pragma once

#include "commandcontext.h"

#include <QCommandLineParser>

// run --all (plan --all with `preview`), its options parsed: every listed
// database, a line for each as it ends, the totals, and the report folder.
int runAllCommand(const QCommandLineParser &parser, const QString &mode, bool preview, CommandContext &context);
