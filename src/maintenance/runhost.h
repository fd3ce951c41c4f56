#pragma once

#include "dbstatus.h"
#include "step.h"

#include <QString>

#include <optional>

// The file chosen for a database that must be created; both empty when the
// choice was cancelled.
struct DatabaseFile
{
    QString fullName; // folder and name: the base of the data and log files
    QString title;    // the name alone: the new database's name
};

// One statement as the server answered it.
struct StatementOutcome
{
    Phase phase = Phase::Tables;
    Action action = Action::ExistenceTest;
    QString text;
    DbStatus status;
    qint64 nanoseconds = 0; // its sends together, without the pauses between them
    int tries = 1;          // how often it was sent
};

// What the run drives: the window, or the command line in its place. The run
// reports progress and outcomes outward and knows nothing of widgets.
class RunHost
{
public:
    virtual ~RunHost() = default;

    virtual void setCaption(const QString &caption) = 0;
    virtual void showWindow() = 0;
    virtual void setProgressMaximum(int maximum) = 0;
    virtual void bringToFront() = 0;
    virtual void setProgress(int value) = 0;
    virtual void yieldToPendingEvents() = 0;
    // Nothing stops the run before its first statement: the window's dialog
    // always yields a file, perhaps an empty one.
    virtual std::optional<DatabaseFile> chooseDatabaseFile() = 0;
    virtual void hideProcessButton() = 0;
    virtual void showEndButton() = 0;
    // Asked once the database is opened, or created and opened again: a host
    // may end the run there rather than send it to a connection that serves
    // another database or none. The window always goes on.
    virtual bool goOnAfterOpening() { return true; }
    // Before the first statement of each phase; the window shows no phase.
    virtual void phaseStarted(Phase) {}
    // Asked after each answer, before the statement counts: true to send it
    // again, in its place, once the host has paused as it sees fit. The
    // window takes every answer as it comes.
    virtual bool sendAgain(const StatementOutcome &) { return false; }
    virtual void statementExecuted(const StatementOutcome &) {}
    // Asked before each statement; the window never stops a run.
    virtual bool stopRequested() const { return false; }
};

// A host without a window: nothing to show, raise or repaint, and no file
// to create a missing database at.
class HeadlessRunHost : public RunHost
{
public:
    std::optional<DatabaseFile> chooseDatabaseFile() override { return std::nullopt; }
    void setCaption(const QString &) override {}
    void showWindow() override {}
    void setProgressMaximum(int) override {}
    void bringToFront() override {}
    void setProgress(int) override {}
    void yieldToPendingEvents() override {}
    void hideProcessButton() override {}
    void showEndButton() override {}
};
