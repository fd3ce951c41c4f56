#pragma once

#include "databasecheck.h"
#include "fleet.h"

#include <functional>

// A check of every database of a fleet.
struct AllChecks : FleetWork
{
    // Told of each check as it ends, on its thread.
    std::function<void(const FleetRecord &fleet, qsizetype database, const DatabaseCheckResult &result)> finished;
};

using AllChecksResult = FleetResults<DatabaseCheckResult>;

CheckOutcome fleetOutcome(const AllChecksResult &all, qsizetype database);

// Lists the servers' databases and checks each on a connection of its own, as
// `checks` limits them; with a folder, the index written there.
AllChecksResult checkAllDatabases(const AllChecks &checks);
