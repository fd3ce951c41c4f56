#pragma once

#include "connection.h"

#include <QString>

#include <memory>

// The process-wide shared connection and the routines that open it.
class mdZRT
{
public:
    // The window never names a data source: its runs work on the local default
    // server. The command line may name one.
    explicit mdZRT(ConnectionFactory factory, QString dataSource = QString());

    // Created empty on first use, then kept for the life of the module.
    Connection &SharedConnection();
    bool ConnectionOpened() const { return m_connectionOpened; }

    void OpenConnection(const QString &mode, const QString &server, const QString &database);
    void OpenFallbackConnection();

private:
    ConnectionFactory m_factory;
    std::unique_ptr<Connection> m_sharedConnection;
    bool m_connectionOpened = false;
    const QString m_dataSource; // put behind ";Data Source=" in the run's string
};
