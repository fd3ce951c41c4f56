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

// What an earlier invocation left to do, from its folder's index.json: the
// databases that did not complete (for check: that did not match), each on
// its server, mode and login, and the servers that could not be listed, to
// be listed again. The servers have neither connections nor targets yet.
struct FleetRetry
{
    QList<FleetServer> servers;
    QString error; // why the folder cannot be retried
};

FleetRetry readRetry(const QString &folder);
