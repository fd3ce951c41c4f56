#include "fleetpage.h"

#include "outcomewords.h"
#include "previewfindings.h"
#include "printabletext.h"

#include <QDateTime>
#include <QJsonArray>
#include <QUrl>

#include <algorithm>
#include <numeric>

namespace {

constexpr qsizetype kMessagesInRow = 3;

constexpr char kStyle[] =
    "body{font-family:sans-serif;margin:1.5em}table{border-collapse:collapse;margin-bottom:1em}"
    "th,td{border:1px solid #bbb;padding:.25em .6em;text-align:left;vertical-align:top}td.number{text-align:right}"
    "#databases th{cursor:pointer}.banner{padding:.6em 1em;background:#dbe8fb;border:1px solid #7a9fd6;font-weight:bold}"
    ".error{color:#a00}ul.messages{margin:0;padding-left:1.2em}section{margin-top:1.5em}"
    ".completed,.matches{background:#cdeccd}.completed-with-failures,.differs,.preview-stopped{background:#fbe3a6}"
    ".nothing-applied,.connection-lost,.could-not-start,.could-not-be-read{background:#f5c2c2}"
    ".interrupted{background:#e3d5f3}.not-done{background:#e4e4e4}.not-started{background:#f4f4f4;font-style:italic}";

// Sorts the rows by the column clicked, numbers as numbers, again the other way.
constexpr char kSortScript[] =
    "for(const th of document.querySelectorAll('#databases th'))th.onclick=()=>{"
    "const body=th.closest('table').tBodies[0],i=th.cellIndex,up=th.dataset.up=th.dataset.up==='1'?'0':'1';"
    "const key=r=>r.cells[i].dataset.sort??r.cells[i].textContent;"
    "body.append(...[...body.rows].sort((a,b)=>{const x=key(a),y=key(b),d=isNaN(x-y)?x.localeCompare(y):x-y;"
    "return up==='1'?d:-d;}));};";

QString html(const QString &text)
{
    return escapedControls(text).toHtmlEscaped();
}

QString classOf(const QString &outcome)
{
    return QString(outcome).replace(u' ', u'-');
}

QString readableTime(const QJsonValue &time)
{
    return QDateTime::fromString(time.toString(), Qt::ISODateWithMs).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

QString duration(double seconds)
{
    const qint64 whole = qint64(seconds + 0.5);
    if (whole < 60)
        return QStringLiteral("%1 s").arg(seconds, 0, 'f', 1);
    if (whole < 3600)
        return QStringLiteral("%1 min %2 s").arg(whole / 60).arg(whole % 60);
    return QStringLiteral("%1 h %2 min").arg(whole / 3600).arg(whole % 3600 / 60);
}

// A cell sorted by `sort` when it is given, else by its text.
QString cell(const QString &content, const char *cssClass = nullptr, const QString &sort = QString())
{
    QString open = QStringLiteral("<td");
    if (cssClass)
        open += QStringLiteral(" class=\"%1\"").arg(QLatin1String(cssClass));
    if (!sort.isNull())
        open += QStringLiteral(" data-sort=\"%1\"").arg(sort.toHtmlEscaped());
    return open + QLatin1Char('>') + content + QLatin1String("</td>");
}

QString numberCell(const QJsonValue &value, int decimals = 0)
{
    if (value.isUndefined())
        return cell(QString(), "number", QStringLiteral("-1"));
    const QString number = QString::number(value.toDouble(), 'f', decimals);
    return cell(number, "number", number);
}

QString reportLink(const QString &report, const QString &text)
{
    return QStringLiteral("<a href=\"%1\">%2</a>").arg(QString::fromLatin1(QUrl::toPercentEncoding(report)), html(text));
}

QString listItems(const QStringList &items)
{
    QString list;
    for (const QString &item : items)
        list += QLatin1String("<li>") + html(item) + QLatin1String("</li>");
    return list;
}

// Its messages grouped, the first few and how many more, then why it ended.
QString messagesCell(const QJsonObject &entry)
{
    const QStringList groups = messageGroups(entry);
    QStringList shown = groups.first(std::min(kMessagesInRow, groups.size()));
    if (groups.size() > shown.size())
        shown << QStringLiteral("and %1 more messages").arg(groups.size() - shown.size());
    shown << whyText(entry);
    shown.removeAll(QString());
    return shown.isEmpty() ? cell(QString()) : cell(QLatin1String("<ul class=\"messages\">") + listItems(shown) + QLatin1String("</ul>"));
}

bool hasSection(const QJsonObject &entry)
{
    return !entry.value(QLatin1String("failedStatements")).toArray().isEmpty() || !differenceLines(entry).isEmpty();
}

QString anchor(qsizetype place)
{
    return QStringLiteral("db-%1").arg(place + 1);
}

QString headings(const QString &command, bool preview)
{
    QStringList names{QStringLiteral("Database"), QStringLiteral("Server"), QStringLiteral("Outcome")};
    if (command == QLatin1String("check"))
        names << QStringLiteral("Differences");
    else
        names << QStringLiteral("Sent") << QStringLiteral("Failed")
              << (preview ? QStringLiteral("What a run would do") : QStringLiteral("Columns added")) << QStringLiteral("Started")
              << QStringLiteral("Seconds") << QStringLiteral("Report");
    names << QStringLiteral("Messages");
    QString row;
    for (const QString &name : names)
        row += QLatin1String("<th>") + name + QLatin1String("</th>");
    return QLatin1String("<thead><tr>") + row + QLatin1String("</tr></thead>");
}

QString row(const QJsonObject &entry, qsizetype place, const QString &command, bool preview)
{
    const QJsonObject counts = entry.value(QLatin1String("counts")).toObject();
    const QString outcome = entry.value(QLatin1String("outcome")).toString();
    const QString name = html(entry.value(QLatin1String("database")).toString());
    // A preview that ran to its end tells how a run would end.
    const bool would = preview && entry.contains(QLatin1String("findings")) && !entry.contains(QLatin1String("stoppedAfter"));
    QString cells = cell(hasSection(entry) ? QStringLiteral("<a href=\"#%1\">%2</a>").arg(anchor(place), name) : name, "database")
        + cell(html(entry.value(QLatin1String("server")).toString()), "server")
        + cell(html((would ? QStringLiteral("would end ") : QString()) + outcome), "outcome",
               QString::number(int(standingOf(outcome))));
    if (command == QLatin1String("check")) {
        cells += numberCell(entry.value(QLatin1String("differences")));
    } else {
        const QJsonValue unexpected = counts.isEmpty() ? QJsonValue(QJsonValue::Undefined)
            : QJsonValue(unexpectedCount(entry));
        const QString report = entry.value(QLatin1String("report")).toString();
        cells += numberCell(counts.value(QLatin1String("sent"))) + numberCell(unexpected)
            + (preview ? cell(html(entry.contains(QLatin1String("findings"))
                                       ? wouldSummary(entry.value(QLatin1String("findings")).toArray()) : QString()))
                       : numberCell(counts.value(QLatin1String("columnsAdded"))))
            + cell(html(readableTime(entry.value(QLatin1String("started"))).mid(11)), nullptr,
                   entry.value(QLatin1String("started")).toString())
            + numberCell(entry.value(QLatin1String("seconds")), 1)
            + cell(report.isEmpty() ? QString() : reportLink(report, QStringLiteral("JSON lines")));
    }
    return QStringLiteral("<tr id=\"row-%1\" class=\"%2\">").arg(place + 1).arg(classOf(outcome)) + cells + messagesCell(entry) + QLatin1String("</tr>\n");
}

// Its failed statements with their messages, or what a check found different.
QString section(const QJsonObject &entry, qsizetype place)
{
    const QString outcome = entry.value(QLatin1String("outcome")).toString();
    QString text = QStringLiteral("<section id=\"%1\"><h3>%2 on %3: <span class=\"%4\">%5</span></h3>\n")
                       .arg(anchor(place), html(entry.value(QLatin1String("database")).toString()),
                            html(entry.value(QLatin1String("server")).toString()), classOf(outcome), html(outcome));
    if (const QString why = whyText(entry); !why.isEmpty())
        text += QLatin1String("<p>") + html(why) + QLatin1String("</p>\n");
    if (const QStringList differences = differenceLines(entry); !differences.isEmpty())
        text += QLatin1String("<ul>") + listItems(differences) + QLatin1String("</ul>\n");
    const QJsonArray failed = entry.value(QLatin1String("failedStatements")).toArray();
    if (!failed.isEmpty()) {
        text += QLatin1String("<table><thead><tr><th>#</th><th>Phase</th><th>Message</th><th>Statement</th></tr></thead><tbody>\n");
        for (const QJsonValue &statement : failed)
            text += QLatin1String("<tr>") + numberCell(statement[QLatin1String("index")])
                + cell(html(statement[QLatin1String("phase")].toString()))
                + cell(html(statement[QLatin1String("message")].toString()))
                + cell(QLatin1String("<code>") + html(statement[QLatin1String("statement")].toString()) + QLatin1String("</code>"))
                + QLatin1String("</tr>\n");
        text += QLatin1String("</tbody></table>\n");
        const int all = unexpectedCount(entry);
        const QString report = entry.value(QLatin1String("report")).toString();
        if (all > failed.size())
            text += QStringLiteral("<p>The first %1 of %2 statements that failed%3.</p>\n")
                        .arg(failed.size())
                        .arg(all)
                        .arg(report.isEmpty() ? QString() : QLatin1String("; every one is in ") + reportLink(report, report));
    }
    return text + QLatin1String("</section>\n");
}

QString totalsTable(const QJsonObject &index, bool preview)
{
    const QJsonObject totals = index.value(QLatin1String("totals")).toObject();
    QStringList outcomes;
    for (const QJsonValue &count : totals.value(QLatin1String("byOutcome")).toArray())
        outcomes << QStringLiteral("<span class=\"%1\">%2 %3</span>")
                        .arg(classOf(count[QLatin1String("outcome")].toString()))
                        .arg(count[QLatin1String("databases")].toInt())
                        .arg(html(count[QLatin1String("outcome")].toString()));
    const QDateTime started = QDateTime::fromString(index.value(QLatin1String("started")).toString(), Qt::ISODateWithMs);
    const QDateTime finished = QDateTime::fromString(index.value(QLatin1String("finished")).toString(), Qt::ISODateWithMs);
    QList<std::pair<QString, QString>> rows{
        {QStringLiteral("Databases"), QStringLiteral("%1%2").arg(totals.value(QLatin1String("databases")).toInt())
                                          .arg(outcomes.isEmpty() ? QString() : QLatin1String(": ") + outcomes.join(QLatin1String(", ")))}};
    for (const auto &[key, label] : {std::pair{"sent", preview ? "Statements sent (rolled back)" : "Statements sent"},
                                     {"failedOrTimedOut", "Statements failed unexpectedly, timed out or blocked"},
                                     {"differences", "Differences"}}) {
        if (totals.contains(QLatin1String(key)))
            rows.append({QLatin1String(label), QString::number(totals.value(QLatin1String(key)).toInt())});
    }
    rows.append({QStringLiteral("Started"), readableTime(index.value(QLatin1String("started")))});
    rows.append({QStringLiteral("Finished"), readableTime(index.value(QLatin1String("finished")))});
    rows.append({QStringLiteral("Wall time"), duration(started.msecsTo(finished) / 1000.0)});
    QString table = QStringLiteral("<table class=\"totals\">\n");
    for (const auto &[label, value] : rows)
        table += QStringLiteral("<tr><th>%1</th><td>%2</td></tr>\n").arg(label, value);
    return table + QLatin1String("</table>\n");
}

// Where an entry's link goes: its section when it has one, else its row.
QString linkTo(const QJsonObject &entry, qsizetype place)
{
    return QStringLiteral("<a href=\"#%1\">%2</a>")
        .arg(hasSection(entry) ? anchor(place) : QStringLiteral("row-%1").arg(place + 1),
             html(entry.value(QLatin1String("database")).toString()));
}

bool onServer(const QJsonValue &entry, const QJsonValue &server)
{
    return entry[QLatin1String("server")] == server[QLatin1String("server")] && entry[QLatin1String("mode")] == server[QLatin1String("mode")];
}

// A row per server, its databases per outcome; one that could not be listed
// says why in its row and is counted below.
QString serversTable(const QJsonObject &index)
{
    QStringList outcomes;
    for (const QJsonValue &count : index.value(QLatin1String("totals"))[QLatin1String("byOutcome")].toArray())
        outcomes << count[QLatin1String("outcome")].toString();
    const QJsonArray entries = index.value(QLatin1String("databases")).toArray();
    QString table = QStringLiteral("<table id=\"servers\"><thead><tr><th>Server</th><th>Mode</th>");
    for (const QString &outcome : outcomes)
        table += QStringLiteral("<th class=\"%1\">%2</th>").arg(classOf(outcome), html(outcome));
    table += QLatin1String("<th>Databases</th></tr></thead><tbody>\n");
    QList<int> sums(outcomes.size());
    int unlisted = 0;
    for (const QJsonValue &server : index.value(QLatin1String("servers")).toArray()) {
        QList<int> counts(outcomes.size());
        int all = 0;
        for (const QJsonValue &entry : entries) {
            if (onServer(entry, server)) {
                ++all;
                if (const qsizetype place = outcomes.indexOf(entry[QLatin1String("outcome")].toString()); place >= 0)
                    ++counts[place];
            }
        }
        table += QLatin1String("<tr>") + cell(html(server[QLatin1String("server")].toString()))
            + cell(html(server[QLatin1String("mode")].toString()));
        for (qsizetype i = 0; i < outcomes.size(); ++i) {
            table += numberCell(counts[i]);
            sums[i] += counts[i];
        }
        table += numberCell(all) + QLatin1String("</tr>\n");
        if (server[QLatin1String("error")].isString()) {
            ++unlisted;
            table += QStringLiteral("<tr class=\"could-not-start\"><td colspan=\"%1\">Not listed: %2</td></tr>\n")
                         .arg(outcomes.size() + 3)
                         .arg(html(server[QLatin1String("error")].toString()));
        }
    }
    table += QStringLiteral("</tbody><tfoot><tr><th>All</th><th>%1</th>")
                 .arg(unlisted == 0 ? QString() : QStringLiteral("%1 not listed").arg(unlisted));
    for (const int sum : sums)
        table += numberCell(sum);
    return table + numberCell(int(entries.size())) + QLatin1String("</tr></tfoot></table>\n");
}

// The fleet's failures by message across its databases, the most databases
// first, each database linked: one cause is seen before any row is read.
QString causesList(const QJsonArray &entries)
{
    QStringList messages;
    QList<QStringList> links;
    const auto add = [&](const QString &message, const QString &link) {
        qsizetype place = messages.indexOf(message);
        if (place < 0) {
            place = messages.size();
            messages << message;
            links << QStringList();
        }
        if (links[place].isEmpty() || links[place].last() != link)
            links[place] << link;
    };
    for (qsizetype i = 0; i < entries.size(); ++i) {
        const QJsonObject entry = entries[i].toObject();
        if (standingOf(entry.value(QLatin1String("outcome")).toString()) != Standing::Failed)
            continue;
        for (const QJsonValue &group : entry.value(QLatin1String("failures")).toArray())
            add(group[QLatin1String("message")].toString(), linkTo(entry, i));
        for (const char *key : {"reason", "error"}) {
            if (entry.value(QLatin1String(key)).isString())
                add(entry.value(QLatin1String(key)).toString(), linkTo(entry, i));
        }
    }
    if (messages.isEmpty())
        return QString();
    QList<qsizetype> order(messages.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&links](qsizetype a, qsizetype b) { return links[a].size() > links[b].size(); });
    QString list = QStringLiteral("<h2>Failures by message</h2>\n<ul id=\"causes\">\n");
    for (const qsizetype place : order)
        list += QStringLiteral("<li>%1: %2 %3<br>%4</li>\n")
                    .arg(html(messages[place]))
                    .arg(links[place].size())
                    .arg(links[place].size() == 1 ? QLatin1String("database") : QLatin1String("databases"),
                         links[place].join(QLatin1String(", ")));
    return list + QLatin1String("</ul>\n");
}

// Which part of the fleet the page tells, or which folders it was merged from.
QString partsText(const QJsonObject &index)
{
    const auto shardOf = [](const QJsonValue &shard) {
        return QStringLiteral("part %1 of %2").arg(shard[QLatin1String("part")].toInt()).arg(shard[QLatin1String("parts")].toInt());
    };
    if (index.value(QLatin1String("shard")).isObject())
        return QStringLiteral("<p>Only %1 of the fleet's databases (--shard).</p>\n").arg(shardOf(index.value(QLatin1String("shard"))));
    QStringList folders;
    for (const QJsonValue &part : index.value(QLatin1String("merged")).toArray())
        folders << html(part[QLatin1String("folder")].toString())
                + (part[QLatin1String("shard")].isObject() ? QLatin1String(" (") + shardOf(part[QLatin1String("shard")]) + QLatin1Char(')')
                                                           : QString());
    return folders.isEmpty() ? QString() : QLatin1String("<p>Merged from ") + folders.join(QLatin1String(", ")) + QLatin1String(".</p>\n");
}

} // namespace

QByteArray fleetPage(const QJsonObject &index)
{
    const QString command = index.value(QLatin1String("command")).toString();
    const bool preview = index.value(QLatin1String("preview")).toBool();
    QStringList servers;
    for (const QJsonValue &server : index.value(QLatin1String("servers")).toArray())
        servers << server[QLatin1String("server")].toString() + QLatin1String(" (") + server[QLatin1String("mode")].toString()
                + QLatin1Char(')');
    const QString what = html(QStringLiteral("%1 on %2%3").arg(command, servers.join(QLatin1String(", ")),
                                                               preview ? QStringLiteral(" (preview, rolled back)") : QString()));
    QString page = QStringLiteral("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>zrt %1</title><style>%2</style>"
                                  "</head><body>\n<h1>zrt %3: %1</h1>\n")
                       .arg(what, QLatin1String(kStyle), html(index.value(QLatin1String("version")).toString()));
    if (preview)
        page += QStringLiteral("<p class=\"banner\">Preview: every database's statements were rolled back and nothing was "
                               "changed. The counts tell what a run would do.</p>\n");
    if (!index.value(QLatin1String("complete")).toBool())
        page += QStringLiteral("<p class=\"error\">Incomplete: not every database was done.</p>\n");
    const QJsonArray entries = index.value(QLatin1String("databases")).toArray();
    page += partsText(index) + totalsTable(index, preview) + serversTable(index) + causesList(entries);

    QList<qsizetype> order(entries.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&entries](qsizetype a, qsizetype b) {
        return standingOf(entries[a][QLatin1String("outcome")].toString()) < standingOf(entries[b][QLatin1String("outcome")].toString());
    });
    page += QLatin1String("<table id=\"databases\">") + headings(command, preview) + QLatin1String("<tbody>\n");
    QString sections;
    for (const qsizetype place : order) {
        const QJsonObject entry = entries[place].toObject();
        page += row(entry, place, command, preview);
        if (hasSection(entry))
            sections += section(entry, place);
    }
    page += QLatin1String("</tbody></table>\n");
    if (!sections.isEmpty())
        page += QLatin1String("<h2>What failed</h2>\n") + sections;
    page += QStringLiteral("<script>%1</script>\n</body></html>\n").arg(QLatin1String(kSortScript));
    return page.toUtf8();
}
