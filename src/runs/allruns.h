#pragma once

#include "databaserun.h"

#include <QStringList>

#include <optional>
#include <vector>

struct AllRuns
{
    QString mode;
    QString server;
    ConnectionFactory connections;
    int jobs = 4;
    std::optional<QString> reportDir; // one report per database
    std::function<QString(QString)> mask;
    const std::atomic<bool> *stop = nullptr; // no run starts once it is set
};

struct AllRunsResult
{
    bool listingFailed = false;
    QStringList databases; // as the server listed them
    std::vector<std::optional<DatabaseRunResult>> results; // nothing: never started
};

// Lists the server's databases as the window does and runs each on a
// connection of its own, up to `jobs` at once.
AllRunsResult runAllDatabases(const AllRuns &runs);
