#pragma once

#include <QJsonObject>
#include <QStringList>

// Several invocations' folders (shards run on other hosts, say) made one, as
// if one invocation had done them all.

struct MergeParts
{
    QStringList folders;
    QList<QJsonObject> indexes; // each folder's index.json
    QString refusal;            // why they cannot be merged; then nothing is made
};

// Reads every folder's index. Refused: a folder that holds none, folders of
// different commands or a preview with a run, and a database in two of them.
MergeParts readMergeParts(const QStringList &folders);

// Writes into the new folder `into` the parts' reports, renamed in the
// merged order, and index.json, index.html and junit.xml: every database
// once, the servers united, the totals counted again, started at the
// earliest, finished at the latest, complete only when every part is (and,
// for shards, every part of them is there). What could not be copied or
// written is added to `errors`. Returns the index.
QJsonObject writeMerged(const MergeParts &parts, const QString &into, QStringList &errors);
