#include "reportline.h"

#include "printabletext.h"
#include "statementresult.h"

#include <QJsonDocument>

QJsonObject jsonDocument(const QString &type)
{
    return {{QStringLiteral("type"), type}, {QStringLiteral("format"), kJsonFormat}};
}

QJsonObject merged(QJsonObject into, const QJsonObject &from)
{
    for (auto it = from.begin(); it != from.end(); ++it)
        into.insert(it.key(), it.value());
    return into;
}

QByteArray reportLine(int index, const StatementOutcome &outcome, const QDateTime &at)
{
    QJsonObject line{
        {QStringLiteral("type"), QStringLiteral("statement")},
        {QStringLiteral("index"), index},
        {QStringLiteral("at"), reportTime(at)},
        {QStringLiteral("phase"), phaseName(outcome.phase)},
        {QStringLiteral("text"), outcome.text},
        {QStringLiteral("outcome"), resultName(classify(outcome))},
        {QStringLiteral("message"), outcome.status.message},
        {QStringLiteral("milliseconds"), double(outcome.nanoseconds) / 1e6},
    };
    if (outcome.tries > 1)
        line.insert(QStringLiteral("tries"), outcome.tries);
    if (const QString table = missingSourceTable(outcome); !table.isEmpty())
        line.insert(QStringLiteral("missingTable"), table);
    return jsonLine(line);
}

QByteArray jsonLine(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}
