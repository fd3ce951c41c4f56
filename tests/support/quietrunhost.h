#pragma once

#include "runhost.h"

// A host that shows nothing and cancels the file dialog: for tests that look
// only at what reaches the server.
class QuietRunHost : public HeadlessRunHost
{
public:
    std::optional<DatabaseFile> chooseDatabaseFile() override { return DatabaseFile{}; }
};
