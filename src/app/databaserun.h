#pragma once

#include "commandcontext.h"
#include "maintenancerun.h"
#include "statementtally.h"

#include <atomic>
#include <optional>

class QIODevice;

// One database's run as the command line makes it.
struct DatabaseRun
{
    QString mode;
    QString server;   // the data source; empty: the local default instance
    QString database;
    ConnectionFactory connections;
    std::optional<QString> createAt;
    QIODevice *report = nullptr;
    std::function<QString(QString)> mask;
    bool showProgress = false;
    const std::atomic<bool> *stop = nullptr;
};

struct DatabaseRunResult
{
    RunEnd end = RunEnd::NotOpened;
    StatementTally tally;
    double seconds = 0;
};

DatabaseRunResult runDatabase(const DatabaseRun &run, CommandContext &context);
