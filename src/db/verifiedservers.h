#pragma once

#include <QString>

// A server whose certificate the driver verifies: against `caFile`, or the
// system's CA store when it is empty, with its host name checked or not.
struct VerifiedServer
{
    QString host;
    int port = 0;     // 0: `instance`, found by the server browser
    QString instance;
    QString caFile;
    bool checkHostName = true;

    bool operator==(const VerifiedServer &) const = default;
};

// Whether freetds.conf would read `value` as something else: a line ends at
// ; # or a line break, quotes and braces are its own, spaces run together.
bool confMisreads(const QString &value);

// FreeTDS verifies a certificate only for a server named by a section of a
// freetds.conf (its ODBC string takes Encryption alone). The process keeps
// such a file of its own, made when first needed in a folder only its user
// may read and named in FREETDSCONF; a file named there before is copied into
// it first, so that its sections still serve. The section's name for
// SERVERNAME, or empty when the file cannot be written, with `error`.
QString verifiedServerSection(const VerifiedServer &server, QString &error);
