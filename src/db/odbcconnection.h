#pragma once

#include "connection.h"

#include <QString>

// A connection over Qt SQL's ODBC driver. open() receives the connection
// string as the system builds it and passes it through `toOdbc` first.
class OdbcConnection : public Connection
{
public:
    using Translator = std::function<QString(const QString &)>;

    explicit OdbcConnection(Translator toOdbc);
    ~OdbcConnection() override;

    DbStatus open(const QString &connectionString) override;
    DbStatus execute(const QString &sql) override;
    DbStatus query(const QString &sql, ResultSet &into) override;
    DbStatus setAutocommit(bool on) override;
    DbStatus rollback() override;
    DbStatus close() override;
    bool isOpen() const override;

private:
    Translator m_toOdbc;
    QString m_name;
    bool m_open = false;
};

// Connections to SQL Server through the configured ODBC driver.
ConnectionFactory sqlServerConnections();

// Connections that open `odbc` whatever string the system gives them.
ConnectionFactory odbcConnectionsTo(const QString &odbc);
