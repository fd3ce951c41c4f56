#pragma once

#include "commandcontext.h"

#include <optional>

struct AllRuns
{
    QString mode;
    QString server;
    int jobs = 4;
    std::optional<QString> reportDir;
};

// Lists the server's databases as the window does and runs each on a
// connection of its own, up to `jobs` at once; prints one line per database.
int runAllDatabases(const AllRuns &runs, CommandContext &context);
