#include "fleetmerge.h"

#include "fleetfolder.h"
#include "fleetindex.h"
#include "printabletext.h"
#include "programversion.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>

#include <algorithm>
#include <map>
#include <set>

namespace {

// Where an entry or a server is, as SQL Server compares names.
QString serverKey(const QJsonValue &value)
{
    return value[QLatin1String("server")].toString().toCaseFolded() + QLatin1Char('\n') + value[QLatin1String("mode")].toString()
        + QLatin1Char('\n') + value[QLatin1String("odbcEnv")].toString();
}

QString databaseKey(const QJsonValue &entry)
{
    return serverKey(entry) + QLatin1Char('\n') + entry[QLatin1String("database")].toString().toCaseFolded();
}

QString kindOf(const QJsonObject &index)
{
    return index.value(QLatin1String("preview")).toBool() ? QStringLiteral("a preview") : QStringLiteral("not a preview");
}

QDateTime timeOf(const QJsonObject &index, const char *key)
{
    return QDateTime::fromString(index.value(QLatin1String(key)).toString(), Qt::ISODateWithMs);
}

// A part's report, copied whole under its new name; its name in the part is
// only ever a file of that folder.
bool copyReport(const QString &from, const QString &name, const QString &into, QStringList &errors)
{
    if (name.isEmpty() || name.contains(QLatin1Char('/')) || name == QLatin1String("..") || name == QLatin1String(".")) {
        errors << QStringLiteral("%1: the report '%2' is not a file of the folder").arg(from, escapedControls(name));
        return false;
    }
    const QString path = QDir(from).filePath(name);
    QFile file(path);
    // Nothing but a regular file is read: a FIFO would be read for ever.
    if (QFileInfo(path).isSymLink() || !QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        errors << QStringLiteral("cannot read %1: not a regular file that can be read").arg(path);
        return false;
    }
    const qsizetype before = errors.size();
    writeWhole(into, file.readAll(), errors);
    return errors.size() == before;
}

// Complete shards: for every N among the parts, each of 1/N..N/N.
bool everyShard(const QList<QJsonObject> &indexes)
{
    std::map<int, std::set<int>> seen;
    for (const QJsonObject &index : indexes) {
        const QJsonValue shard = index.value(QLatin1String("shard"));
        if (shard.isObject())
            seen[shard[QLatin1String("parts")].toInt()].insert(shard[QLatin1String("part")].toInt());
    }
    return std::all_of(seen.begin(), seen.end(), [](const auto &parts) { return int(parts.second.size()) == parts.first; });
}

} // namespace

MergeParts readMergeParts(const QStringList &folders)
{
    MergeParts parts{folders, {}, QString()};
    std::map<QString, QString> holder; // a database's key, the folder that has it
    for (const QString &folder : folders) {
        const FleetIndexReading reading = readFleetIndex(folder);
        if (!reading.error.isEmpty())
            return {folders, {}, reading.error};
        const QJsonObject &index = reading.index;
        if (!parts.indexes.isEmpty()) {
            const QJsonObject &first = parts.indexes.first();
            if (index.value(QLatin1String("preview")) != first.value(QLatin1String("preview")))
                return {folders, {}, QStringLiteral("%1 is %2 and %3 %4: a preview's outcomes are not a run's")
                                         .arg(folders.first(), kindOf(first), folder, kindOf(index))};
            if (index.value(QLatin1String("command")) != first.value(QLatin1String("command")))
                return {folders, {}, QStringLiteral("%1 is of zrt %2 and %3 of zrt %4")
                                         .arg(folders.first(), first.value(QLatin1String("command")).toString(), folder,
                                              index.value(QLatin1String("command")).toString())};
        }
        for (const QJsonValue &entry : index.value(QLatin1String("databases")).toArray()) {
            const auto [place, added] = holder.try_emplace(databaseKey(entry), folder);
            if (!added)
                return {folders, {}, QStringLiteral("the database '%1' on server '%2' is in both %3 and %4")
                                         .arg(entry[QLatin1String("database")].toString(), entry[QLatin1String("server")].toString(),
                                              place->second, folder)};
        }
        parts.indexes << index;
    }
    return parts;
}

QJsonObject writeMerged(const MergeParts &parts, const QString &into, QStringList &errors)
{
    const QJsonObject &first = parts.indexes.first();
    QJsonArray servers;
    QStringList serverKeys;
    QStringList outcomes; // in the order the parts count them: the command's
    QJsonObject sums;
    QJsonArray merged;
    QDateTime started = timeOf(first, "started");
    QDateTime finished = timeOf(first, "finished");
    bool complete = everyShard(parts.indexes);
    struct Entry
    {
        QJsonObject json;
        qsizetype server;
        qsizetype part;
    };
    std::vector<Entry> entries;
    for (qsizetype part = 0; part < parts.indexes.size(); ++part) {
        const QJsonObject &index = parts.indexes[part];
        for (const QJsonValue &server : index.value(QLatin1String("servers")).toArray()) {
            const qsizetype place = serverKeys.indexOf(serverKey(server));
            if (place < 0) {
                serverKeys << serverKey(server);
                servers.append(server);
            } else if (server[QLatin1String("error")].isString() && !servers[place][QLatin1String("error")].isString()) {
                // Not listed by one host: its part of that server is missing.
                servers[place] = server;
            }
        }
        const QJsonObject totals = index.value(QLatin1String("totals")).toObject();
        for (auto it = totals.begin(); it != totals.end(); ++it) {
            if (it.value().isDouble() && it.key() != QLatin1String("databases"))
                sums.insert(it.key(), sums.value(it.key()).toInt() + it.value().toInt());
        }
        for (const QJsonValue &count : totals.value(QLatin1String("byOutcome")).toArray()) {
            if (!outcomes.contains(count[QLatin1String("outcome")].toString()))
                outcomes << count[QLatin1String("outcome")].toString();
        }
        for (const QJsonValue &entry : index.value(QLatin1String("databases")).toArray())
            entries.push_back({entry.toObject(), serverKeys.indexOf(serverKey(entry)), part});
        started = std::min(started, timeOf(index, "started"));
        finished = std::max(finished, timeOf(index, "finished"));
        complete = complete && index.value(QLatin1String("complete")).toBool();
        QJsonObject from{{QStringLiteral("folder"), QFileInfo(parts.folders[part]).fileName()}};
        if (index.contains(QLatin1String("shard")))
            from.insert(QStringLiteral("shard"), index.value(QLatin1String("shard")));
        merged.append(from);
    }
    // Each server's databases together, by name, as one host would have listed them.
    std::stable_sort(entries.begin(), entries.end(), [](const Entry &a, const Entry &b) {
        if (a.server != b.server)
            return a.server < b.server;
        return a.json.value(QLatin1String("database")).toString().compare(b.json.value(QLatin1String("database")).toString(),
                                                                          Qt::CaseInsensitive) < 0;
    });
    QJsonArray databases;
    QList<int> byOutcome(outcomes.size());
    for (Entry &entry : entries) {
        const QString report = entry.json.value(QLatin1String("report")).toString();
        if (!report.isEmpty()) {
            const QString name = reportFileName(databases.size(), entry.json.value(QLatin1String("database")).toString());
            if (copyReport(parts.folders[entry.part], report, QDir(into).filePath(name), errors))
                entry.json.insert(QStringLiteral("report"), name);
            else
                entry.json.remove(QStringLiteral("report"));
        }
        const QString outcome = entry.json.value(QLatin1String("outcome")).toString();
        if (!outcomes.contains(outcome)) {
            outcomes << outcome;
            byOutcome << 0;
        }
        ++byOutcome[outcomes.indexOf(outcome)];
        databases.append(entry.json);
    }
    QJsonArray counts;
    for (qsizetype i = 0; i < outcomes.size(); ++i) {
        if (byOutcome[i] > 0)
            counts.append(QJsonObject{{QStringLiteral("outcome"), outcomes[i]}, {QStringLiteral("databases"), byOutcome[i]}});
    }
    sums.insert(QStringLiteral("databases"), databases.size());
    sums.insert(QStringLiteral("byOutcome"), counts);
    for (const QJsonValue &server : servers)
        complete = complete && !server[QLatin1String("error")].isString();
    const QJsonObject index{{QStringLiteral("type"), QStringLiteral("index")},
                            {QStringLiteral("format"), first.value(QLatin1String("format"))},
                            {QStringLiteral("program"), QStringLiteral("zrt")},
                            {QStringLiteral("version"), programVersion()},
                            {QStringLiteral("command"), first.value(QLatin1String("command"))},
                            {QStringLiteral("preview"), first.value(QLatin1String("preview"))},
                            {QStringLiteral("started"), reportTime(started)},
                            {QStringLiteral("finished"), reportTime(finished)},
                            {QStringLiteral("complete"), complete},
                            {QStringLiteral("merged"), merged},
                            {QStringLiteral("servers"), servers},
                            {QStringLiteral("databases"), databases},
                            {QStringLiteral("totals"), sums}};
    writeFleetIndex(into, index, errors);
    return index;
}
