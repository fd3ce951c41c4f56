#pragma once

#include <QString>

// Where a data source leads: the host and port as SQL Server and FreeTDS read
// them, whatever the spelling ("tcp:" or not, any letter case, "host,port" or
// a separate port).
struct ServerAddress
{
    static constexpr int kDefaultPort = 1433;

    QString host;
    int port = kDefaultPort; // 0: a named instance, found by the server browser
};

ServerAddress serverAddress(QString dataSource);

// The server an ODBC string reaches, as it gives it: its SERVER, with ",PORT"
// when a PORT keyword gives the port; empty when it names none.
QString odbcServer(const QString &odbc);

// Whether two data sources are written for one server: the same host (by
// name, or by an address the names resolve to) and the same port or instance.
bool sameServer(const QString &one, const QString &other);
