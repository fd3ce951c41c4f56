#pragma once

#include "connection.h"

#include <QStringList>

#include <memory>

// A server that answers the database-listing queries the way SQL Server does:
// it filters its database names by the LIKE prefix (without case) and sorts
// them by name. It can refuse the login, or drop the connection after some rows.
class CatalogServer : public Connection
{
public:
    struct State
    {
        QStringList databases;
        QStringList inaccessible; // left out where the query asks HAS_DBACCESS
        bool refuseLogin = false;
        int dropAfterRows = -1; // -1: never
        QStringList opened;     // connection strings, in order
        QStringList queries;
        int closes = 0;
    };

    explicit CatalogServer(std::shared_ptr<State> state);

    DbStatus open(const QString &connectionString) override;
    DbStatus execute(const QString &sql) override;
    DbStatus query(const QString &sql, ResultSet &into) override;
    DbStatus close() override;
    bool isOpen() const override { return m_open; }

private:
    std::shared_ptr<State> m_state;
    bool m_open = false;
};
