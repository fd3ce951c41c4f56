#pragma once

#include "applicationlock.h"
#include "connection.h"

#include <QTextStream>

#include <atomic>
#include <functional>

// What a subcommand reaches the world through, so tests can stand in for
// the servers and the terminal.
struct CommandContext
{
    QTextStream &out;
    QTextStream &err;
    // Connections for the three modes, and for an ODBC string the operator
    // gave; each statement may take `statementSeconds` (0: for ever).
    std::function<ConnectionFactory(int statementSeconds)> sqlServer;
    std::function<ConnectionFactory(const QString &odbc, int statementSeconds)> odbc;
    bool terminal = false;                                    // err is a terminal: draw a progress bar, colour
    const std::atomic<bool> *stop = nullptr;                  // set by Ctrl-C during --all
    bool outTerminal = false;                                 // out is a terminal: colour the outcomes
    int columns = 80;                                         // the terminal's width
    Pause pause; // between tries of a statement refused its locks; empty: waits, ending at once on `stop`
};

// Exit statuses of every command; with --all the most serious of the databases'.
inline constexpr int kExitOk = 0;
inline constexpr int kExitDiffers = 1;     // check: the database differs from what a run leaves
inline constexpr int kExitUsage = 2;
inline constexpr int kExitFailures = 3;    // completed, but statements failed unexpectedly or a report was lost
inline constexpr int kExitNothingDone = 4; // nothing could be applied or read
inline constexpr int kExitInterrupted = 130;
