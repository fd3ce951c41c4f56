#pragma once

#include "databaselisting.h"
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
    std::optional<QString> reportDir; // one report per database, index.json and index.html
    const std::atomic<bool> *stop = nullptr; // no run starts once it is set
    bool preview = false;                    // each run rolled back: see DatabaseRun
    // Told of each run as it ends, one call at a time, on the run's thread.
    std::function<void(const QString &database, const DatabaseRunResult &result)> finished;
};

struct AllRunsResult
{
    ListingOutcome listing;
    QDateTime started;
    QStringList databases; // as the server listed them
    std::vector<std::optional<DatabaseRunResult>> results; // nothing: never started
    QStringList reportFiles; // each database's report in the report folder
    QStringList indexErrors; // index.json or index.html that could not be written
};

// Lists the server's databases as the window does and runs each on a
// connection of its own, up to `jobs` at once. With a report folder, writes
// the index of the runs there once they have ended, however they ended.
AllRunsResult runAllDatabases(const AllRuns &runs);
