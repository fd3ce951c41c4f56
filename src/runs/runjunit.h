#pragma once

#include "databaserun.h"
#include "junitxml.h"

// A run as a JUnit test suite named for its database, a preview marked: a
// case for opening the database, then one per phase in run order. A phase
// fails with the messages of its statements that failed unexpectedly or
// timed out, grouped as the summary groups them; the phase a run stopped in
// fails with why; the phases it never reached are skipped.
JUnitSuite runSuite(const DatabaseRun &run, const DatabaseRunResult &result);

// What stands for the run when the program is ended at once: one failed case.
JUnitSuite endedAtOnceSuite(const DatabaseRun &run, const QDateTime &started);
