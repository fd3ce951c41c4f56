#include "fleetshard.h"

#include <QCryptographicHash>
#include <QRegularExpression>
#include <QtEndian>

std::optional<FleetShard> shardNamed(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^([1-9][0-9]{0,5})/([1-9][0-9]{0,5})$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const FleetShard shard{match.captured(1).toInt(), match.captured(2).toInt()};
    if (shard.part > shard.parts)
        return std::nullopt;
    return shard;
}

QString shardText(const FleetShard &shard)
{
    return QStringLiteral("%1/%2").arg(shard.part).arg(shard.parts);
}

bool inShard(const FleetShard &shard, const QString &server, const QString &database)
{
    // SQL Server compares names without regard to case, and so do the parts;
    // a seeded hash would give each host other parts.
    const QByteArray key = server.trimmed().toCaseFolded().toUtf8() + '\0' + database.toCaseFolded().toUtf8();
    const QByteArray digest = QCryptographicHash::hash(key, QCryptographicHash::Sha256);
    const quint64 value = qFromBigEndian<quint64>(digest.constData());
    return int(value % quint64(shard.parts)) == shard.part - 1;
}
