#pragma once

#include "runhost.h"

// A host that shows nothing and cancels the file dialog: for tests that look
// only at what reaches the server.
class QuietRunHost : public RunHost
{
public:
    void setCaption(const QString &) override {}
    void showWindow() override {}
    void setProgressMaximum(int) override {}
    void bringToFront() override {}
    void setProgress(int) override {}
    void yieldToPendingEvents() override {}
    std::optional<DatabaseFile> chooseDatabaseFile() override { return DatabaseFile{}; }
    void hideProcessButton() override {}
    void showEndButton() override {}
};
