#pragma once

#include "fleet.h"

#include <QJsonObject>

// The invocation, its servers (with why one could not be listed), every
// database with its server and entry, and the totals: index.json, and what
// --json prints.
QJsonObject fleetIndex(const FleetWork &work, const FleetRecord &fleet, const FleetIndexParts &parts);

// index.json, index.html and junit.xml, each whole or not at all; what could
// not be written is added to `errors`.
void writeFleetIndex(const QString &folder, const QJsonObject &index, QStringList &errors);

// `bytes` whole in the file `path`, or nothing; why not is added to `errors`.
void writeWhole(const QString &path, const QByteArray &bytes, QStringList &errors);

// The index.json of an earlier invocation's folder, or why it is none that zrt wrote.
struct FleetIndexReading
{
    QJsonObject index;
    QString error;
};

FleetIndexReading readFleetIndex(const QString &folder);

// What an earlier invocation left to do, from its folder's index.json, taken
// only as an index that zrt writes can hold it (its types and keys, every
// entry a database's name on a server it lists, once, with an outcome of its
// command): the databases that did not complete (for check: that did not
// match) on each server, and whether it was listed. It names no connection:
// those are the operator's.
struct RetryServer
{
    QString server;
    QString mode;
    QString odbcEnv;
    int entry = 0;     // its place among the index's servers, from 1
    bool listed = true; // false: not listed then, every database it lists is taken
    QStringList left;
};

struct FleetRetry
{
    QList<RetryServer> servers;
    std::optional<FleetFileOrigin> fleetFile;
    QString error; // why the folder cannot be retried
};

FleetRetry readRetry(const QString &folder);
