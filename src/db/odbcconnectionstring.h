#pragma once

#include <QString>

// What the ODBC driver is given for one of the system's connection strings.
struct OdbcTarget
{
    QString connectionString; // handed to the driver as it stands
    QString catalog;          // selected once connected; empty: the login's default
    QString refusal;          // why nothing may be opened; empty when it may
};

// The OLE DB string of a connection profile, for the SQL Server driver named by
// ZRT_ODBC_DRIVER (default FreeTDS), encrypting as ZRT_ENCRYPT asks ("request",
// the default, or "require"). No text typed or listed goes into the driver's
// keywords: the catalog is selected after connecting, and a server name that
// the driver would read as more keywords is refused.
OdbcTarget odbcTargetFromOleDb(const QString &oleDb);
