#pragma once

#include "databaserun.h"
#include "fleet.h"

// A run or a preview of every database of a fleet.
struct AllRuns : FleetWork
{
    // Told after each statement of a database's run: how many were sent, in which phase.
    // Each database's progress, as its run tells it (see DatabaseRun::progress).
    std::function<void(qsizetype database, std::optional<Phase> phase, int value, int maximum)> progress;
    // Told of each run as it ends, on the run's thread.
    std::function<void(const FleetRecord &fleet, qsizetype database, const DatabaseRunResult &result)> finished;
};

using AllRunsResult = FleetResults<DatabaseRunResult>;

// What became of one database of the fleet.
RunOutcome fleetOutcome(const AllRunsResult &all, qsizetype database);

struct FleetTotals
{
    int byOutcome[kRunOutcomes] = {};
    int sent = 0;
    int unexpected = 0; // statements failed or timed out
};

FleetTotals fleetTotals(const AllRunsResult &all);

// Lists the servers' databases as the window does and runs each on a
// connection of its own, as `runs` limits them; with a folder, each with its
// report there, and the index written once they have ended, however they ended.
AllRunsResult runAllDatabases(const AllRuns &runs);
