#include "fleetindex.h"

#include "printabletext.h"
#include "programversion.h"

#include <QJsonArray>
#include <QUrl>

namespace {

constexpr char kStyle[] =
    "body{font-family:sans-serif;margin:1.5em}table{border-collapse:collapse}"
    "th,td{border:1px solid #bbb;padding:.25em .6em;text-align:left}td.number{text-align:right}"
    ".completed{background:#cdeccd}.completed-with-failures{background:#fbe3a6}"
    ".nothing-applied,.could-not-start{background:#f5c2c2}.interrupted,.not-done{background:#ddd}";

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
    const QString note = (run.value(QLatin1String("reason")).toString() + QLatin1Char(' ')
                          + run.value(QLatin1String("reportError")).toString()).trimmed();
    const int unexpected = counts.value(QLatin1String("failed")).toInt() + counts.value(QLatin1String("timedOut")).toInt();
    return QStringLiteral("<tr class=\"%1\">").arg(QString(outcome).replace(u' ', u'-'))
        + cell(run.value(QLatin1String("database")).toString(), "database") + cell(outcome, "outcome")
        + cell(number(counts.value(QLatin1String("sent"))), "number")
        + cell(counts.isEmpty() ? QString() : QString::number(unexpected), "number")
        + cell(number(counts.value(QLatin1String("columnsAdded"))), "number")
        + cell(run.value(QLatin1String("started")).toString())
        + cell(number(run.value(QLatin1String("seconds")), 1), "number")
        + QLatin1String("<td>") + link + QLatin1String("</td>") + cell(note) + QLatin1String("</tr>\n");
}

} // namespace

FleetTotals fleetTotals(const AllRunsResult &all)
{
    FleetTotals totals;
    for (const std::optional<DatabaseRunResult> &result : all.results) {
        ++totals.byOutcome[int(outcomeOf(result))];
        if (result) {
            totals.sent += result->tally.sent();
            totals.unexpected += result->tally.unexpected();
        }
    }
    return totals;
}

QJsonObject fleetIndex(const AllRuns &runs, const AllRunsResult &all)
{
    QJsonArray databases;
    for (qsizetype i = 0; i < all.databases.size(); ++i) {
        QJsonObject run = runJson(all.results[i]);
        run.insert(QStringLiteral("database"), all.databases[i]);
        if (runs.reportDir && all.results[i] && all.results[i]->reportError.isEmpty())
            run.insert(QStringLiteral("report"), all.reportFiles[i]);
        databases.append(run);
    }
    const FleetTotals counted = fleetTotals(all);
    QJsonObject totals{{QStringLiteral("databases"), databases.size()},
                       {QStringLiteral("sent"), counted.sent},
                       {QStringLiteral("failed or timed out"), counted.unexpected}};
    for (int outcome = 0; outcome <= int(RunOutcome::NotDone); ++outcome)
        totals.insert(outcomeName(RunOutcome(outcome)), counted.byOutcome[outcome]);
    return {{QStringLiteral("program"), QStringLiteral("zrt")},
            {QStringLiteral("version"), programVersion()},
            {QStringLiteral("mode"), runs.mode},
            {QStringLiteral("server"), runs.server},
            {QStringLiteral("started"), reportTime(all.started)},
            {QStringLiteral("finished"), reportTime(QDateTime::currentDateTime())},
            {QStringLiteral("complete"), counted.byOutcome[int(RunOutcome::Interrupted)] + counted.byOutcome[int(RunOutcome::NotDone)] == 0},
            {QStringLiteral("databases"), databases},
            {QStringLiteral("totals"), totals}};
}

QByteArray fleetPage(const QJsonObject &index)
{
    const auto text = [&index](const char *key) { return html(index.value(QLatin1String(key)).toString()); };
    QString page = QStringLiteral("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>zrt run --all on %1</title>"
                                  "<style>%2</style></head><body>\n<h1>zrt %3: run --all on %1, mode %4</h1>\n"
                                  "<p>Started %5, finished %6%7.</p>\n<table><thead><tr><th>Database</th><th>Outcome</th>"
                                  "<th>Sent</th><th>Failed</th><th>Columns added</th><th>Started</th><th>Seconds</th>"
                                  "<th>Report</th><th>Note</th></tr></thead><tbody>\n")
                       .arg(text("server"), QLatin1String(kStyle), text("version"), text("mode"), text("started"),
                            text("finished"), index.value(QLatin1String("complete")).toBool() ? QString() : QStringLiteral(", incomplete"));
    for (const QJsonValue &run : index.value(QLatin1String("databases")).toArray())
        page += row(run.toObject());
    page += QLatin1String("</tbody></table>\n</body></html>\n");
    return page.toUtf8();
}
