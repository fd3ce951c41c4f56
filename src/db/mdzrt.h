#pragma once

#include "connection.h"

#include <QString>

#include <memory>

// The process-wide shared connection and the routines that open it.
class mdZRT
{
public:
    // Where OpenFallbackConnection opens tempdb when the database cannot be opened.
    enum class Fallback {
        LocalWindowsLogin,  // the window's: the local default server, integrated security
        SameServerAndLogin, // the command line's: where the database was asked for
    };

    // The window never names a data source: its runs work on the local default
    // server. The command line may name one.
    explicit mdZRT(ConnectionFactory factory, QString dataSource = QString(),
                   Fallback fallback = Fallback::LocalWindowsLogin);

    // Created empty on first use, then kept for the life of the module.
    Connection &SharedConnection();
    bool ConnectionOpened() const { return m_connectionOpened; }
    // Why the last OpenConnection could not open the database; the window
    // never asks, a run without one names it.
    const DbStatus &openFailure() const { return m_openFailure; }

    void OpenConnection(const QString &mode, const QString &server, const QString &database);
    void OpenFallbackConnection(const QString &mode);

private:
    ConnectionFactory m_factory;
    std::unique_ptr<Connection> m_sharedConnection;
    bool m_connectionOpened = false;
    DbStatus m_openFailure;
    const QString m_dataSource; // put behind ";Data Source=" in the run's string
    const Fallback m_fallback;
};
