#pragma once

#include <QString>

// Turns one of the system's OLE DB connection strings into an ODBC connection
// string for the SQL Server driver named by ZRT_ODBC_DRIVER (default FreeTDS).
QString odbcFromOleDb(const QString &oleDb);
QString odbcFromOleDb(const QString &oleDb, const QString &driver);

QString configuredOdbcDriver();
