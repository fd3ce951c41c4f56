#pragma once

#include "connection.h"
#include "fakeserverstate.h"

#include <QString>

#include <memory>

// A connection to a fake SQL Server that works from the statement texts alone:
// it reads the forms the tool sends, applies SQL Server's rules for them to the
// shared server state and logs every statement with its outcome. Several
// connections may share one state, so a test can reopen, inspect the state
// and set up an older database before a run.
class FakeSqlServer : public Connection
{
public:
    explicit FakeSqlServer(std::shared_ptr<FakeServerState> server = std::make_shared<FakeServerState>());

    // Opens the string's `Initial Catalog=` (master when it names none).
    DbStatus open(const QString &connectionString) override;
    DbStatus execute(const QString &sql) override;
    DbStatus query(const QString &sql, ResultSet &into) override;
    DbStatus close() override;
    bool isOpen() const override { return m_open; }

    const std::shared_ptr<FakeServerState> &server() const { return m_server; }
    // The open catalog; empty while closed.
    const QString &catalog() const { return m_catalog; }

private:
    DbStatus run(const QString &sql, ResultSet &result);

    std::shared_ptr<FakeServerState> m_server;
    QString m_catalog;
    bool m_open = false;
};

// Connections that all reach `server`.
ConnectionFactory fakeSqlServerConnections(std::shared_ptr<FakeServerState> server);
