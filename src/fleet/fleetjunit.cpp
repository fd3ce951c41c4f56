#include "fleetjunit.h"

#include "outcomewords.h"
#include "junitxml.h"

#include <QJsonArray>

namespace {

JUnitCase databaseCase(const QJsonObject &entry)
{
    const QString server = entry.value(QLatin1String("server")).toString();
    JUnitCase test{server, entry.value(QLatin1String("database")).toString(), entry.value(QLatin1String("seconds")).toDouble()};
    const QString outcome = entry.value(QLatin1String("outcome")).toString();
    const QString why = whyText(entry);
    const Standing standing = standingOf(outcome);
    if (outcome == QLatin1String("not done") || outcome == QLatin1String("not started") || outcome == QLatin1String("busy")) {
        test.skipped = outcome + QLatin1String(": ") + why;
    } else if (standing != Standing::Succeeded) {
        const QJsonObject counts = entry.value(QLatin1String("counts")).toObject();
        const int unexpected = unexpectedCount(entry);
        QString detail = why;
        if (detail.isEmpty() && unexpected > 0)
            detail = unexpectedText(unexpected, counts.value(QLatin1String("sent")).toInt());
        else if (detail.isEmpty() && entry.contains(QLatin1String("differences")))
            detail = QStringLiteral("%1 differences").arg(entry.value(QLatin1String("differences")).toInt());
        test.failure = detail.isEmpty() ? outcome : outcome + QLatin1String(": ") + detail;
        QStringList lines = messageGroups(entry) + differenceLines(entry);
        for (const QJsonValue &statement : entry.value(QLatin1String("failedStatements")).toArray())
            lines << QStringLiteral("#%1 [%2] %3").arg(statement[QLatin1String("index")].toInt())
                         .arg(statement[QLatin1String("phase")].toString(), statement[QLatin1String("statement")].toString());
        test.failureText = lines.isEmpty() ? QString() : lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
    }
    return test;
}

} // namespace

QByteArray fleetJunit(const QJsonObject &index)
{
    const QString command = index.value(QLatin1String("command")).toString();
    const bool preview = index.value(QLatin1String("preview")).toBool();
    const QDateTime started = QDateTime::fromString(index.value(QLatin1String("started")).toString(), Qt::ISODateWithMs);
    const QJsonArray entries = index.value(QLatin1String("databases")).toArray();
    QList<JUnitSuite> suites;
    for (const QJsonValue &server : index.value(QLatin1String("servers")).toArray()) {
        const QString name = server[QLatin1String("server")].toString();
        const QString mode = server[QLatin1String("mode")].toString();
        JUnitSuite suite{QStringLiteral("zrt %1 on %2%3").arg(command, name, preview ? QStringLiteral(" (preview, rolled back)") : QString()),
                         started,
                         0,
                         {{QStringLiteral("server"), name},
                          {QStringLiteral("mode"), mode},
                          {QStringLiteral("preview"), preview ? QStringLiteral("true") : QStringLiteral("false")},
                          {QStringLiteral("version"), index.value(QLatin1String("version")).toString()}},
                         {}};
        if (server[QLatin1String("error")].isString()) {
            JUnitCase listing{name, QStringLiteral("list the databases")};
            listing.failure = server[QLatin1String("error")].toString();
            suite.cases << listing;
        }
        for (const QJsonValue &entry : entries) {
            if (entry[QLatin1String("server")] == name && entry[QLatin1String("mode")] == mode) {
                suite.cases << databaseCase(entry.toObject());
                suite.seconds += suite.cases.last().seconds;
            }
        }
        suites << suite;
    }
    return junitXml(suites);
}
