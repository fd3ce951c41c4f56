#pragma once

#include "allruns.h"

#include <QJsonObject>

struct FleetTotals
{
    int byOutcome[int(RunOutcome::NotDone) + 1] = {};
    int sent = 0;
    int unexpected = 0; // statements failed or timed out
};

FleetTotals fleetTotals(const AllRunsResult &all);

// Every listed database with its outcome, counts, times and report file,
// and the totals: index.json, and what --json prints.
QJsonObject fleetIndex(const AllRuns &runs, const AllRunsResult &all);

// The index as one page that needs nothing but itself: a row per database,
// its outcome coloured, linked to its report.
QByteArray fleetPage(const QJsonObject &index);
