#include "reportline.h"

#include "printabletext.h"
#include "statementresult.h"

#include <QJsonDocument>

QByteArray reportLine(int index, const StatementOutcome &outcome, const QDateTime &at)
{
    QJsonObject line{
        {QStringLiteral("index"), index},
        {QStringLiteral("at"), reportTime(at)},
        {QStringLiteral("phase"), phaseName(outcome.phase)},
        {QStringLiteral("text"), outcome.text},
        {QStringLiteral("outcome"), resultName(classify(outcome))},
        {QStringLiteral("message"), outcome.status.message},
        {QStringLiteral("milliseconds"), double(outcome.nanoseconds) / 1e6},
    };
    if (const QString table = missingSourceTable(outcome); !table.isEmpty())
        line.insert(QStringLiteral("missingTable"), table);
    return jsonLine(line);
}

QByteArray jsonLine(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}
