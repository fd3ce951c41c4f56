#pragma once

#include "dbstatus.h"
#include "resultset.h"

#include <QString>

#include <functional>
#include <memory>

// What the tool needs of a database connection, and nothing more. The window
// and the run talk only to this, so tests can script a server.
class Connection
{
public:
    virtual ~Connection() = default;

    // Fails when the connection is already open.
    virtual DbStatus open(const QString &connectionString) = 0;
    // Sends the text as it stands and discards any result.
    virtual DbStatus execute(const QString &sql) = 0;
    // Replaces `into` only when the query succeeds.
    virtual DbStatus query(const QString &sql, ResultSet &into) = 0;
    // Off: every statement from the next one on belongs to one transaction,
    // which only rollback() ends; nothing here commits it.
    virtual DbStatus setAutocommit(bool on) = 0;
    virtual DbStatus rollback() = 0;
    virtual DbStatus close() = 0;
    virtual bool isOpen() const = 0;
    // From another thread: asks the statement under way, if any, to end now
    // as failed. Where nothing can be asked, nothing happens.
    virtual void cancel() {}
    // The database engine as its driver names it once open ("Microsoft SQL
    // Server", "SQLite"); empty when it does not say.
    virtual QString engine() const { return QString(); }
};

using ConnectionFactory = std::function<std::unique_ptr<Connection>()>;
