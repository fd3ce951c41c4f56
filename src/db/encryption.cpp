#include "encryption.h"

#include "verifiedservers.h"

#include <QFileInfo>

Encryption encryptionFromEnvironment()
{
    const QString mode = qEnvironmentVariable("ZRT_ENCRYPT");
    return {mode.isEmpty() ? QStringLiteral("request") : mode, qEnvironmentVariable("ZRT_TLS_CA")};
}

std::optional<EncryptionRefusal> encryptionRefusal(const Encryption &encryption, const QString &modeKey,
                                                   const QString &caKey)
{
    if (encryption.mode != QLatin1String("request") && encryption.mode != QLatin1String(kEncryptRequire)
        && encryption.mode != QLatin1String(kEncryptUnverified))
        return EncryptionRefusal{modeKey, QStringLiteral("must be \"request\", \"require\" or \"require-unverified\", not \"%1\"")
                                              .arg(encryption.mode)};
    if (encryption.caFile.isEmpty())
        return std::nullopt;
    if (encryption.mode != QLatin1String(kEncryptRequire))
        return EncryptionRefusal{caKey, QStringLiteral("goes with \"require\": only then is the certificate verified")};
    if (confMisreads(encryption.caFile))
        return EncryptionRefusal{caKey, QStringLiteral("names \"%1\", which the driver cannot be given: it holds one of "
                                                       "; # \" { }, a control character, or spaces at an end or two in a row")
                                            .arg(encryption.caFile)};
    const QFileInfo file(encryption.caFile);
    if (!file.isFile() || !file.isReadable())
        return EncryptionRefusal{caKey, QStringLiteral("names a file that cannot be read: %1").arg(encryption.caFile)};
    return std::nullopt;
}
