#pragma once

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
    ConnectionFactory sqlServer;                              // for the three modes
    std::function<ConnectionFactory(const QString &)> odbc;   // for --odbc
    bool terminal = false;                                    // draw a progress bar on err
    const std::atomic<bool> *stop = nullptr;                  // set by Ctrl-C during --all
};

// Exit statuses of the command line.
inline constexpr int kExitOk = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;
