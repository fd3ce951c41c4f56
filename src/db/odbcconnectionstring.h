#pragma once

#include "encryption.h"

#include <QString>

// What the ODBC driver is given for one of the system's connection strings.
struct OdbcTarget
{
    QString connectionString; // handed to the driver as it stands
    QString catalog;          // named at login; empty: the login's default
    QString refusal;          // why nothing may be opened; empty when it may
    // With a certificate to verify: the same server without credentials, its
    // host name not checked, then its certificate not verified at all. Which
    // of them the server passes tells why it was refused.
    QString hostNameUnchecked;
    QString unverified;
};

// The OLE DB string of a connection profile, for the SQL Server driver named by
// ZRT_ODBC_DRIVER (default FreeTDS), encrypted as `encryption` says. No text
// typed or listed goes into the driver's keywords: the catalog is named at
// login as an attribute, and a server name that the driver would read as more
// keywords is refused. `requestSeconds` bounds what the driver asks of the
// server outside a statement (beginning and ending a transaction); 0 waits
// for ever.
OdbcTarget odbcTargetFromOleDb(const QString &oleDb, const Encryption &encryption = encryptionFromEnvironment(),
                               int requestSeconds = 0);

// An ODBC string the operator gave, used for the database that `oleDb` names:
// the string as given, less a DATABASE keyword naming another catalog (as the
// fallback on tempdb does), so that the catalog named at login holds.
OdbcTarget odbcTargetFromGiven(const QString &odbc, const QString &oleDb);
