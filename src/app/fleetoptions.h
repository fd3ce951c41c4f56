#pragma once

#include "commandcontext.h"
#include "fleetservers.h"

#include <QCommandLineParser>

// Whether --all, --fleet or --retry is given.
bool namesAFleet(const QCommandLineParser &parser);

// The servers that --fleet, --retry, or --mode with --server, --odbc or
// ZRT_ODBC name; with --fleet, the file's jobs too. Else a usage message was printed.
std::optional<FleetServers> checkedServers(const QCommandLineParser &parser, const QString &command,
                                           CommandContext &context, int statementSeconds);

// What run, plan and check with --all, --fleet or --retry work on: the
// servers, the limits, and a new folder in --report-dir (for --retry, beside
// the earlier folder unless --report-dir says). Else a usage message was
// printed, and no folder made.
std::optional<FleetWork> checkedFleet(const QCommandLineParser &parser, const QString &command, CommandContext &context,
                                      int statementSeconds);

// --lock-timeout, --lock-retries and --lock-wait, those the command takes and
// are given; else a usage message was printed.
std::optional<FleetLockKeys> checkedLockOptions(const QCommandLineParser &parser, const QString &command,
                                                CommandContext &context);
