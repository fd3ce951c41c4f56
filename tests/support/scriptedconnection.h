#pragma once

#include "connection.h"

#include <QHash>
#include <QSet>
#include <QStringList>

#include <memory>

// A connection whose server is a script: it records every call and answers
// opens, statements and queries as the test set them up.
class ScriptedConnection : public Connection
{
public:
    struct Log
    {
        QStringList calls; // "open <string>", "execute <sql>", "query <sql>", "close"
    };

    explicit ScriptedConnection(std::shared_ptr<Log> log = std::make_shared<Log>());

    // Opens of strings containing one of these fail.
    QSet<QString> refusedOpens;
    bool refuseEveryOpen = false;
    // Statements and queries with these exact texts fail.
    QSet<QString> failingStatements;
    // Queries answered with rows; any other query succeeds with no row.
    QHash<QString, ResultSet> answers;

    DbStatus open(const QString &connectionString) override;
    DbStatus execute(const QString &sql) override;
    DbStatus query(const QString &sql, ResultSet &into) override;
    DbStatus close() override;
    bool isOpen() const override { return m_open; }

    const std::shared_ptr<Log> &log() const { return m_log; }

private:
    std::shared_ptr<Log> m_log;
    bool m_open = false;
};

// A result set with one column and the given rows.
ResultSet singleColumn(const QString &column, const QStringList &values);
