#include "fleetindex.h"

#include "outputfile.h"
#include "printabletext.h"
#include "programversion.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUrl>

namespace {

constexpr int kIndexFormat = 1;

constexpr char kStyle[] =
    "body{font-family:sans-serif;margin:1.5em}table{border-collapse:collapse}"
    "th,td{border:1px solid #bbb;padding:.25em .6em;text-align:left}td.number{text-align:right}"
    ".completed,.matches{background:#cdeccd}.completed-with-failures,.differs{background:#fbe3a6}"
    ".nothing-applied,.could-not-start,.could-not-be-read{background:#f5c2c2}"
    ".interrupted,.not-done,.not-started{background:#ddd}";

// The outcomes a retry leaves alone, by the command that wrote the index.
QString successOf(const QString &command)
{
    return command == QLatin1String("check") ? QStringLiteral("matches") : QStringLiteral("completed");
}

QString html(const QString &text)
{
    return escapedControls(text).toHtmlEscaped();
}

QString cell(const QString &text, const char *cssClass = nullptr)
{
    const QString open = cssClass ? QStringLiteral("<td class=\"%1\">").arg(QLatin1String(cssClass)) : QStringLiteral("<td>");
    return open + html(text) + QLatin1String("</td>");
}

QString number(const QJsonValue &value, int decimals = 0)
{
    return value.isUndefined() ? QString() : QString::number(value.toDouble(), 'f', decimals);
}

QString row(const QJsonObject &run)
{
    const QJsonObject counts = run.value(QLatin1String("counts")).toObject();
    const QString outcome = run.value(QLatin1String("outcome")).toString();
    const QString report = run.value(QLatin1String("report")).toString();
    const QString link = report.isEmpty() ? QString()
        : QStringLiteral("<a href=\"%1\">%2</a>").arg(QString::fromLatin1(QUrl::toPercentEncoding(report)), html(report));
    QStringList notes;
    for (const char *key : {"reason", "reportError", "error"})
        notes << run.value(QLatin1String(key)).toString();
    const int unexpected = counts.value(QLatin1String("failed")).toInt() + counts.value(QLatin1String("timedOut")).toInt();
    return QStringLiteral("<tr class=\"%1\">").arg(QString(outcome).replace(u' ', u'-'))
        + cell(run.value(QLatin1String("database")).toString(), "database")
        + cell(run.value(QLatin1String("server")).toString(), "server") + cell(outcome, "outcome")
        + cell(number(counts.value(QLatin1String("sent"))), "number")
        + cell(counts.isEmpty() ? QString() : QString::number(unexpected), "number")
        + cell(number(counts.value(QLatin1String("columnsAdded"))), "number")
        + cell(number(run.value(QLatin1String("differences"))), "number")
        + cell(run.value(QLatin1String("started")).toString())
        + cell(number(run.value(QLatin1String("seconds")), 1), "number")
        + QLatin1String("<td>") + link + QLatin1String("</td>") + cell(notes.join(QLatin1Char(' ')).trimmed())
        + QLatin1String("</tr>\n");
}

void writeWhole(const QString &path, const QByteArray &bytes, QStringList &errors)
{
    OutputFile file;
    if (!file.open(path) || !file.write(bytes) || !file.commit())
        errors << QStringLiteral("cannot write %1: %2").arg(path, file.errorString());
}

QJsonObject serverJson(const FleetServer &server, const ListingOutcome &listing)
{
    QJsonObject json{{QStringLiteral("server"), server.server}, {QStringLiteral("mode"), server.mode}};
    if (!server.odbcEnv.isEmpty())
        json.insert(QStringLiteral("odbcEnv"), server.odbcEnv);
    if (!server.odbc.isEmpty())
        json.insert(QStringLiteral("odbc"), server.odbc);
    if (!server.patterns.include.isEmpty())
        json.insert(QStringLiteral("include"), QJsonArray::fromStringList(server.patterns.include));
    if (!server.patterns.exclude.isEmpty())
        json.insert(QStringLiteral("exclude"), QJsonArray::fromStringList(server.patterns.exclude));
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
            && outcome != QLatin1String("not started");
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
    return {{QStringLiteral("type"), QStringLiteral("index")},
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
}

QByteArray fleetPage(const QJsonObject &index)
{
    const auto text = [&index](const char *key) { return html(index.value(QLatin1String(key)).toString()); };
    QStringList servers;
    for (const QJsonValue &server : index.value(QLatin1String("servers")).toArray())
        servers << server[QLatin1String("server")].toString() + QLatin1String(" (") + server[QLatin1String("mode")].toString()
                + QLatin1Char(')');
    QString page = QStringLiteral("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>zrt %1 on %2</title>"
                                  "<style>%3</style></head><body>\n<h1>zrt %4: %1 on %2</h1>\n"
                                  "<p>Started %5, finished %6%7.</p>\n<table><thead><tr><th>Database</th><th>Server</th>"
                                  "<th>Outcome</th><th>Sent</th><th>Failed</th><th>Columns added</th><th>Differences</th>"
                                  "<th>Started</th><th>Seconds</th><th>Report</th><th>Note</th></tr></thead><tbody>\n")
                       .arg(text("command"), html(servers.join(QLatin1String(", "))), QLatin1String(kStyle),
                            text("version"), text("started"), text("finished"),
                            index.value(QLatin1String("complete")).toBool() ? QString() : QStringLiteral(", incomplete"));
    for (const QJsonValue &run : index.value(QLatin1String("databases")).toArray())
        page += row(run.toObject());
    page += QLatin1String("</tbody></table>\n</body></html>\n");
    return page.toUtf8();
}

void writeFleetIndex(const QString &folder, const QJsonObject &index, QStringList &errors)
{
    const QDir dir(folder);
    writeWhole(dir.filePath(QStringLiteral("index.json")), QJsonDocument(index).toJson(), errors);
    writeWhole(dir.filePath(QStringLiteral("index.html")), fleetPage(index), errors);
}

FleetRetry readRetry(const QString &folder)
{
    const QString path = QDir(folder).filePath(QStringLiteral("index.json"));
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {{}, QStringLiteral("%1 holds no index.json to read").arg(folder)};
    const QJsonObject index = QJsonDocument::fromJson(file.readAll()).object();
    const QString command = index.value(QLatin1String("command")).toString();
    if (index.value(QLatin1String("type")) != QLatin1String("index")
        || index.value(QLatin1String("format")).toInt() != kIndexFormat || command.isEmpty())
        return {{}, QStringLiteral("%1 is not an index that zrt wrote").arg(path)};
    const QJsonArray databases = index.value(QLatin1String("databases")).toArray();
    FleetRetry retry;
    for (const QJsonValue &value : index.value(QLatin1String("servers")).toArray()) {
        FleetServer server;
        server.server = value[QLatin1String("server")].toString();
        server.mode = value[QLatin1String("mode")].toString();
        server.odbcEnv = value[QLatin1String("odbcEnv")].toString();
        server.odbc = value[QLatin1String("odbc")].toString();
        server.patterns = {texts(value[QLatin1String("include")]), texts(value[QLatin1String("exclude")])};
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
