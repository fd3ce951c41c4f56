#pragma once

#include <QString>

#include <optional>

// How a connection to SQL Server is encrypted: "request" (encrypted when the
// server offers it), "require" (encrypted, and the server's certificate
// verified against `caFile` or the system's CA store, its host name checked)
// or "require-unverified" (encrypted, the certificate taken as it comes: a
// server with a self-signed one).
struct Encryption
{
    QString mode;
    QString caFile;
};

inline constexpr char kEncryptRequire[] = "require";
inline constexpr char kEncryptUnverified[] = "require-unverified";

// ZRT_ENCRYPT (default "request") and ZRT_TLS_CA.
Encryption encryptionFromEnvironment();

// Why an encryption cannot be used, naming its part: `modeKey` or `caKey`.
struct EncryptionRefusal
{
    QString key;
    QString reason;
};

std::optional<EncryptionRefusal> encryptionRefusal(const Encryption &encryption, const QString &modeKey,
                                                   const QString &caKey);
