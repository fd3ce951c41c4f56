#include "outcomewords.h"

#include <QJsonArray>

namespace {

QString columnText(const QJsonValue &column)
{
    QString text = column[QLatin1String("table")].toString() + QLatin1Char('.') + column[QLatin1String("column")].toString();
    if (column[QLatin1String("found")].isString())
        text += QLatin1Char(' ') + column[QLatin1String("found")].toString() + QLatin1String(", expected");
    return text + QLatin1Char(' ') + column[QLatin1String("expected")].toString();
}

QString viewText(const QJsonValue &view)
{
    QStringList tables;
    for (const QJsonValue &table : view[QLatin1String("missingTables")].toArray())
        tables << table.toString();
    return QStringLiteral("%1 (source table missing: %2)").arg(view[QLatin1String("view")].toString(), tables.join(QLatin1String(", ")));
}

} // namespace

Standing standingOf(const QString &outcome)
{
    if (outcome == QLatin1String("completed") || outcome == QLatin1String("matches"))
        return Standing::Succeeded;
    if (outcome == QLatin1String("interrupted") || outcome == QLatin1String("not done") || outcome == QLatin1String("not started")
        || outcome == QLatin1String("busy"))
        return Standing::LeftUndone;
    return Standing::Failed;
}

QString stopText(const QJsonObject &entry)
{
    if (!entry.contains(QLatin1String("stoppedAfter")))
        return QString();
    const QString detail = entry.value(QLatin1String("stopReason")).toString();
    // One arg() for all: a server's words may hold "%1".
    return QStringLiteral("after statement #%1%2; %3 statements not sent")
        .arg(QString::number(entry.value(QLatin1String("stoppedAfter")).toInt()),
             detail.isEmpty() ? QString() : QLatin1String(": ") + detail,
             QString::number(entry.value(QLatin1String("counts"))[QLatin1String("notSent")].toInt()));
}

int unexpectedCount(const QJsonObject &entry)
{
    const QJsonValue counts = entry.value(QLatin1String("counts"));
    return counts[QLatin1String("failed")].toInt() + counts[QLatin1String("timedOut")].toInt()
        + counts[QLatin1String("blocked")].toInt();
}

QString unexpectedText(qsizetype unexpected, qsizetype sent)
{
    return QStringLiteral("%1 of %2 statements failed unexpectedly, timed out or were blocked").arg(unexpected).arg(sent);
}

QString whyText(const QJsonObject &entry)
{
    const QString outcome = entry.value(QLatin1String("outcome")).toString();
    QStringList said;
    if (outcome == QLatin1String("not done"))
        said << QStringLiteral("not begun: the invocation was stopped before its turn");
    else if (outcome == QLatin1String("not started"))
        said << QStringLiteral("not begun: --max-failures databases had failed");
    else if (outcome == QLatin1String("interrupted") && !entry.contains(QLatin1String("stoppedAfter")))
        said << QStringLiteral("interrupted: the program was ended while it ran");
    if (const QString stop = stopText(entry); !stop.isEmpty())
        said << QLatin1String("stopped ") + stop;
    for (const char *key : {"reason", "error", "reportError", "junitError"})
        said << entry.value(QLatin1String(key)).toString();
    said.removeAll(QString());
    return said.join(QLatin1String("; "));
}

QStringList messageGroups(const QJsonObject &entry)
{
    QStringList groups;
    for (const QJsonValue &group : entry.value(QLatin1String("failures")).toArray())
        groups << QStringLiteral("%1× %2").arg(group[QLatin1String("count")].toInt()).arg(group[QLatin1String("message")].toString());
    return groups;
}

QStringList differenceLines(const QJsonObject &entry)
{
    struct Kind
    {
        const char *key;
        const char *title;
        QString (*text)(const QJsonValue &);
    };
    static const Kind kinds[] = {
        {"missingTables", "Missing tables", [](const QJsonValue &name) { return name.toString(); }},
        {"missingColumns", "Missing columns", columnText},
        {"differingColumns", "Columns of another type or width", columnText},
        {"missingViews", "Missing views", [](const QJsonValue &name) { return name.toString(); }},
        {"notInstallableViews", "Not installable here", viewText},
    };
    QStringList lines;
    for (const Kind &kind : kinds) {
        QStringList items;
        for (const QJsonValue &item : entry.value(QLatin1String(kind.key)).toArray())
            items << kind.text(item);
        if (!items.isEmpty())
            lines << QStringLiteral("%1: %2").arg(QLatin1String(kind.title), items.join(QLatin1String(", ")));
    }
    return lines;
}
