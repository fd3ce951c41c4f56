#include "reportline.h"

#include "statementresult.h"

#include <QJsonDocument>
#include <QJsonObject>

QByteArray reportLine(int index, const StatementOutcome &outcome)
{
    const QJsonObject line{
        {QStringLiteral("index"), index},
        {QStringLiteral("phase"), phaseName(outcome.phase)},
        {QStringLiteral("text"), outcome.text},
        {QStringLiteral("outcome"), resultName(classify(outcome))},
        {QStringLiteral("message"), outcome.status.message},
        {QStringLiteral("milliseconds"), double(outcome.nanoseconds) / 1e6},
    };
    return QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
}
