#include "fleetindex.h"

#include "fleetjunit.h"
#include "fleetpage.h"
#include "outputfile.h"
#include "printabletext.h"
#include "programversion.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

constexpr int kIndexFormat = 1;

// The outcomes a retry leaves alone, by the command that wrote the index.
QString successOf(const QString &command)
{
    return command == QLatin1String("check") ? QStringLiteral("matches") : QStringLiteral("completed");
}

QJsonObject serverJson(const FleetServer &server, const ListingOutcome &listing)
{
    QJsonObject json{{QStringLiteral("server"), server.server}, {QStringLiteral("mode"), server.mode}};
    if (!server.odbcEnv.isEmpty())
        json.insert(QStringLiteral("odbcEnv"), server.odbcEnv);
    if (!server.odbc.isEmpty())
        json.insert(QStringLiteral("odbc"), server.odbc);
    if (server.encryption) {
        json.insert(QStringLiteral("encrypt"), server.encryption->mode);
        if (!server.encryption->caFile.isEmpty())
            json.insert(QStringLiteral("tlsCa"), server.encryption->caFile);
    }
    if (!server.patterns.include.isEmpty())
        json.insert(QStringLiteral("include"), QJsonArray::fromStringList(server.patterns.include));
    if (!server.patterns.exclude.isEmpty())
        json.insert(QStringLiteral("exclude"), QJsonArray::fromStringList(server.patterns.exclude));
    if (server.jobs > 0)
        json.insert(QStringLiteral("jobs"), server.jobs);
    if (listing.failed())
        json.insert(QStringLiteral("error"), listingFailureText(listing, listingTarget(server)));
    return json;
}

QStringList texts(const QJsonValue &array)
{
    QStringList list;
    for (const QJsonValue &value : array.toArray())
        list << value.toString();
    return list;
}

} // namespace

QJsonObject fleetIndex(const FleetWork &work, const FleetRecord &fleet, const FleetIndexParts &parts)
{
    QJsonArray servers;
    bool complete = true;
    for (qsizetype i = 0; i < work.servers.size(); ++i) {
        servers.append(serverJson(work.servers[i], fleet.listings[i]));
        complete = complete && !fleet.listings[i].failed();
    }
    QJsonArray databases;
    QList<int> byOutcome(parts.outcomes.size());
    for (qsizetype i = 0; i < fleet.databases.size(); ++i) {
        const FleetServer &server = work.servers[fleet.databases[i].server];
        QJsonObject entry{{QStringLiteral("database"), fleet.databases[i].name},
                          {QStringLiteral("server"), server.server},
                          {QStringLiteral("mode"), server.mode}};
        if (!server.odbcEnv.isEmpty())
            entry.insert(QStringLiteral("odbcEnv"), server.odbcEnv);
        const QJsonObject details = parts.entry(i);
        for (auto it = details.begin(); it != details.end(); ++it)
            entry.insert(it.key(), it.value());
        const QString outcome = entry.value(QLatin1String("outcome")).toString();
        if (const qsizetype place = parts.outcomes.indexOf(outcome); place >= 0)
            ++byOutcome[place];
        complete = complete && outcome != QLatin1String("interrupted") && outcome != QLatin1String("not done")
            && outcome != QLatin1String("not started") && outcome != QLatin1String("busy");
        databases.append(entry);
    }
    QJsonArray counts;
    for (qsizetype i = 0; i < parts.outcomes.size(); ++i) {
        if (byOutcome[i] > 0)
            counts.append(QJsonObject{{QStringLiteral("outcome"), parts.outcomes[i]}, {QStringLiteral("databases"), byOutcome[i]}});
    }
    QJsonObject totals = parts.totals ? parts.totals() : QJsonObject();
    totals.insert(QStringLiteral("databases"), databases.size());
    totals.insert(QStringLiteral("byOutcome"), counts);
    QJsonObject index{{QStringLiteral("type"), QStringLiteral("index")},
                      {QStringLiteral("format"), kIndexFormat},
                      {QStringLiteral("program"), QStringLiteral("zrt")},
                      {QStringLiteral("version"), programVersion()},
                      {QStringLiteral("command"), work.command},
                      {QStringLiteral("preview"), work.preview},
                      {QStringLiteral("started"), reportTime(fleet.started)},
                      {QStringLiteral("finished"), reportTime(QDateTime::currentDateTime())},
                      {QStringLiteral("complete"), complete},
                      {QStringLiteral("servers"), servers},
                      {QStringLiteral("databases"), databases},
                      {QStringLiteral("totals"), totals}};
    if (work.shard)
        index.insert(QStringLiteral("shard"), QJsonObject{{QStringLiteral("part"), work.shard->part},
                                                          {QStringLiteral("parts"), work.shard->parts}});
    return index;
}

void writeWhole(const QString &path, const QByteArray &bytes, QStringList &errors)
{
    OutputFile file;
    if (!file.open(path) || !file.write(bytes) || !file.commit())
        errors << QStringLiteral("cannot write %1: %2").arg(path, file.errorString());
}

void writeFleetIndex(const QString &folder, const QJsonObject &index, QStringList &errors)
{
    const QDir dir(folder);
    writeWhole(dir.filePath(QStringLiteral("index.json")), QJsonDocument(index).toJson(), errors);
    writeWhole(dir.filePath(QStringLiteral("index.html")), fleetPage(index), errors);
    writeWhole(dir.filePath(QStringLiteral("junit.xml")), fleetJunit(index), errors);
}

FleetIndexReading readFleetIndex(const QString &folder)
{
    const QString path = QDir(folder).filePath(QStringLiteral("index.json"));
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {{}, QStringLiteral("%1 holds no index.json to read").arg(folder)};
    const QJsonObject index = QJsonDocument::fromJson(file.readAll()).object();
    if (index.value(QLatin1String("type")) != QLatin1String("index")
        || index.value(QLatin1String("format")).toInt() != kIndexFormat || index.value(QLatin1String("command")).toString().isEmpty())
        return {{}, QStringLiteral("%1 is not an index that zrt wrote").arg(path)};
    return {index, QString()};
}

FleetRetry readRetry(const QString &folder)
{
    const FleetIndexReading reading = readFleetIndex(folder);
    if (!reading.error.isEmpty())
        return {{}, reading.error};
    const QJsonObject &index = reading.index;
    const QString command = index.value(QLatin1String("command")).toString();
    const QJsonArray databases = index.value(QLatin1String("databases")).toArray();
    FleetRetry retry;
    for (const QJsonValue &value : index.value(QLatin1String("servers")).toArray()) {
        FleetServer server;
        server.server = value[QLatin1String("server")].toString();
        server.mode = value[QLatin1String("mode")].toString();
        server.odbcEnv = value[QLatin1String("odbcEnv")].toString();
        server.odbc = value[QLatin1String("odbc")].toString();
        if (value[QLatin1String("encrypt")].isString())
            server.encryption = Encryption{value[QLatin1String("encrypt")].toString(), value[QLatin1String("tlsCa")].toString()};
        server.patterns = {texts(value[QLatin1String("include")]), texts(value[QLatin1String("exclude")])};
        server.jobs = value[QLatin1String("jobs")].toInt();
        if (!value[QLatin1String("error")].isString()) {
            QStringList left;
            for (const QJsonValue &entry : databases) {
                if (entry[QLatin1String("server")] == server.server && entry[QLatin1String("mode")] == server.mode
                    && entry[QLatin1String("odbcEnv")].toString() == server.odbcEnv
                    && entry[QLatin1String("outcome")] != successOf(command))
                    left << entry[QLatin1String("database")].toString();
            }
            if (left.isEmpty())
                continue;
            server.databases = left;
        }
        retry.servers << server;
    }
    return retry;
}
