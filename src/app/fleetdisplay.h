#pragma once

#include "commandcontext.h"
#include "fleet.h"

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QMutex>

#include <map>

// What a fleet command shows while its databases run. On a terminal, one
// line on the standard error redrawn in place, "12/48 done, 3 running, 1
// failed", then the running databases' phases as far as they fit; above it,
// each database's lines as it ends. Off a terminal, only those lines. Called
// from the databases' threads.
class FleetDisplay
{
public:
    FleetDisplay(CommandContext &context, bool live);

    void started(const FleetRecord &fleet, qsizetype database);
    void advanced(qsizetype database, const QString &phase, int percent);
    // `lines` (perhaps none) go to the output, `errors` to the standard error.
    void ended(qsizetype database, const QString &lines, bool failed, const QString &errors = QString());
    // Leaves the terminal's line empty for what follows.
    void finish();
    // The database as its line names it, as wide as the fleet's widest so
    // that the columns after it line up when names carry their server.
    QString nameColumn(const FleetWork &work, const FleetRecord &fleet, qsizetype database);

private:
    void draw();

    struct Running
    {
        QString name;
        QString phase;
        int percent = 0;
    };

    CommandContext &m_context;
    const bool m_live;
    QMutex m_mutex;
    qsizetype m_total = 0;
    int m_done = 0;
    int m_failed = 0;
    std::map<qsizetype, Running> m_running; // in the listing's order
    QElapsedTimer m_sinceDrawn;
    qsizetype m_nameWidth = 0;
};

// The first lines of a fleet command: what it works on, and its folder.
void printFleetHeader(const QCommandLineParser &parser, const FleetWork &work, CommandContext &context);

// A database as lines name it: with its server when the fleet has more than one.
QString fleetDatabaseName(const FleetWork &work, const FleetDatabase &database);

// What --json prints for a fleet: its index, with the exit status, the
// folder and what could not be written there.
void printFleetJson(const FleetWork &work, const FleetRecord &fleet, int status, CommandContext &context);

// Why servers could not be listed, on the standard error.
void printListingFailures(const QString &command, const QList<FleetServer> &servers, const FleetRecord &fleet,
                          CommandContext &context);
