#pragma once

#include "connection.h"
#include "maintenancerun.h"
#include "statementtally.h"

#include <atomic>
#include <functional>
#include <optional>

class QIODevice;

// One database's run without a window.
struct DatabaseRun
{
    QString mode;
    QString server; // the data source; empty: the local default instance
    QString database;
    ConnectionFactory connections;
    std::optional<QString> createAt; // without it a database that cannot be opened is left alone
    QIODevice *report = nullptr;     // one line per statement
    std::function<QString(QString)> mask; // applied to every server message kept
    std::function<void(int value, int maximum)> progress;
    const std::atomic<bool> *stop = nullptr; // asked before each statement
};

struct DatabaseRunResult
{
    RunEnd end = RunEnd::NotOpened;
    StatementTally tally;
    double seconds = 0;
};

DatabaseRunResult runDatabase(const DatabaseRun &run);
