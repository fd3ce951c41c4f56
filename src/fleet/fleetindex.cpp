#include "fleetindex.h"

#include "allruns.h"
#include "databasecheck.h"
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
    if (!server.label.isEmpty())
        json.insert(QStringLiteral("label"), server.label);
    if (!server.odbcEnv.isEmpty())
        json.insert(QStringLiteral("odbcEnv"), server.odbcEnv);
    if (!server.odbc.isEmpty())
        json.insert(QStringLiteral("odbc"), server.odbc);
    if (!server.patterns.include.isEmpty())
        json.insert(QStringLiteral("include"), QJsonArray::fromStringList(server.patterns.include));
    if (!server.patterns.exclude.isEmpty())
        json.insert(QStringLiteral("exclude"), QJsonArray::fromStringList(server.patterns.exclude));
    if (server.jobs > 0)
        json.insert(QStringLiteral("jobs"), server.jobs);
    if (listing.failed())
        json.insert(QStringLiteral("error"), listingFailureText(listing, listingTarget(server)));
    if (!listing.refused.isEmpty())
        json.insert(QStringLiteral("refused"), QJsonArray::fromStringList(listing.refused));
    if (!listing.noLongerListed.isEmpty())
        json.insert(QStringLiteral("noLongerListed"), QJsonArray::fromStringList(listing.noLongerListed));
    return json;
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
    if (work.fleetFile)
        index.insert(QStringLiteral("fleet"), QJsonObject{{QStringLiteral("file"), work.fleetFile->path},
                                                          {QStringLiteral("sha256"), QString::fromLatin1(work.fleetFile->digest)}});
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

namespace {

// The outcomes an index's entries may hold, by its command.
QStringList outcomesOf(const QString &command)
{
    QStringList outcomes;
    if (command == QLatin1String("check")) {
        for (int outcome = 0; outcome < kCheckOutcomes; ++outcome)
            outcomes << checkOutcomeName(CheckOutcome(outcome));
    } else {
        for (int outcome = 0; outcome < kRunOutcomes; ++outcome)
            outcomes << outcomeName(RunOutcome(outcome));
    }
    return outcomes;
}

// Why `object` lacks a key that must be a text, or holds one of another
// type, or nothing; `optional` keys may be missing.
QString textKeysRefusal(const QJsonValue &object, std::initializer_list<const char *> required,
                        std::initializer_list<const char *> optional = {})
{
    if (!object.isObject())
        return QStringLiteral("not an object");
    for (const char *key : required) {
        if (!object[QLatin1String(key)].isString())
            return QStringLiteral("'%1' is %2").arg(QLatin1String(key), object.toObject().contains(QLatin1String(key))
                                                                           ? QStringLiteral("not a text")
                                                                           : QStringLiteral("missing"));
    }
    for (const char *key : optional) {
        if (object.toObject().contains(QLatin1String(key)) && !object[QLatin1String(key)].isString())
            return QStringLiteral("'%1' is not a text").arg(QLatin1String(key));
    }
    return QString();
}

// The index's own form: what zrt writes, as its schema publishes it.
QString formRefusal(const QJsonObject &index)
{
    if (index.value(QLatin1String("type")) != QLatin1String("index") || index.value(QLatin1String("format")) != kIndexFormat)
        return QStringLiteral("it is not an index that zrt wrote");
    if (!QStringList{"run", "plan", "check"}.contains(index.value(QLatin1String("command")).toString()))
        return QStringLiteral("'command' is none of run, plan and check");
    for (const char *key : {"servers", "databases"}) {
        if (!index.value(QLatin1String(key)).isArray())
            return QStringLiteral("'%1' is not a list").arg(QLatin1String(key));
    }
    if (index.contains(QLatin1String("fleet"))) {
        if (const QString why = textKeysRefusal(index.value(QLatin1String("fleet")), {"file", "sha256"}); !why.isEmpty())
            return QStringLiteral("fleet: ") + why;
    }
    return QString();
}

QString entryName(const char *list, qsizetype place)
{
    return QStringLiteral("%1 entry %2").arg(QLatin1String(list)).arg(place + 1);
}

} // namespace

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
        return {{}, std::nullopt, reading.error};
    const QJsonObject &index = reading.index;
    const QString path = QDir(folder).filePath(QStringLiteral("index.json"));
    const auto refused = [&path](const QString &why) { return FleetRetry{{}, std::nullopt, path + QLatin1String(": ") + why}; };
    if (const QString why = formRefusal(index); !why.isEmpty())
        return refused(why);
    const QString command = index.value(QLatin1String("command")).toString();
    FleetRetry retry;
    if (index.contains(QLatin1String("fleet")))
        retry.fleetFile = FleetFileOrigin{index[QLatin1String("fleet")][QLatin1String("file")].toString(),
                                          index[QLatin1String("fleet")][QLatin1String("sha256")].toString().toLatin1()};
    const QJsonArray servers = index.value(QLatin1String("servers")).toArray();
    for (qsizetype i = 0; i < servers.size(); ++i) {
        const QJsonValue value = servers[i];
        if (const QString why = textKeysRefusal(value, {"server", "mode"}, {"odbcEnv", "error"}); !why.isEmpty())
            return refused(entryName("servers", i) + QLatin1String(": ") + why);
        const RetryServer server{value[QLatin1String("server")].toString(), value[QLatin1String("mode")].toString(),
                                 value[QLatin1String("odbcEnv")].toString(), int(i + 1),
                                 !value[QLatin1String("error")].isString(), {}};
        for (const RetryServer &earlier : std::as_const(retry.servers)) {
            if (earlier.server == server.server && earlier.odbcEnv == server.odbcEnv)
                return refused(QStringLiteral("%1 and %2 both name the server '%3'")
                                   .arg(entryName("servers", earlier.entry - 1), entryName("servers", i), server.server));
        }
        retry.servers << server;
    }
    const QStringList outcomes = outcomesOf(command);
    const QJsonArray databases = index.value(QLatin1String("databases")).toArray();
    QHash<QString, qsizetype> seen; // server and name as SQL Server compares names, to its entry
    for (qsizetype i = 0; i < databases.size(); ++i) {
        const QJsonValue entry = databases[i];
        QString why = textKeysRefusal(entry, {"database", "server", "mode", "outcome"}, {"odbcEnv"});
        const QString name = entry[QLatin1String("database")].toString();
        if (why.isEmpty() && !databaseNameRefusal(name).isEmpty())
            why = QStringLiteral("the database '%1' is no name: %2").arg(name, databaseNameRefusal(name));
        const QString outcome = entry[QLatin1String("outcome")].toString();
        if (why.isEmpty() && !outcomes.contains(outcome))
            why = QStringLiteral("'%1' is no outcome of %2").arg(outcome, command);
        // A string that names no server is told by its variable.
        const auto named = [&](bool byVariable) {
            return std::find_if(retry.servers.begin(), retry.servers.end(), [&](const RetryServer &server) {
                return entry[QLatin1String("server")] == server.server
                    && (!byVariable || entry[QLatin1String("odbcEnv")].toString() == server.odbcEnv);
            });
        };
        auto server = named(true);
        if (server == retry.servers.end())
            server = named(false);
        if (why.isEmpty() && server == retry.servers.end())
            why = QStringLiteral("the server '%1' is none the index lists").arg(entry[QLatin1String("server")].toString());
        else if (why.isEmpty() && (entry[QLatin1String("mode")] != server->mode
                                   || entry[QLatin1String("odbcEnv")].toString() != server->odbcEnv))
            why = QStringLiteral("its mode or odbcEnv is not its server's (%1)").arg(entryName("servers", server->entry - 1));
        const QString key = server == retry.servers.end()
            ? QString()
            : server->server + QLatin1Char('\n') + server->odbcEnv + QLatin1Char('\n') + name.toCaseFolded();
        if (why.isEmpty() && seen.contains(key))
            why = QStringLiteral("it names '%1' on '%2' again, as %3 does")
                      .arg(name, server->server, entryName("databases", seen.value(key)));
        if (!why.isEmpty())
            return refused(entryName("databases", i) + QLatin1String(": ") + why);
        seen.insert(key, i);
        if (server->listed && outcome != successOf(command))
            server->left << name;
    }
    // A listed server with nothing left is done.
    retry.servers.removeIf([](const RetryServer &server) { return server.listed && server.left.isEmpty(); });
    return retry;
}
