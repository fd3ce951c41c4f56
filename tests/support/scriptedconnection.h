#pragma once

#include "connection.h"

#include <QHash>
#include <QMutex>
#include <QSet>
#include <QStringList>

#include <functional>
#include <list>

// A server whose answers a test sets: it refuses some opens, fails some
// statements and answers some queries with rows; every other query finds no
// row. Each connection it hands out keeps a log of its own calls: "open
// <string>", "execute <sql>", "query <sql>", "autocommit on|off", "rollback",
// "close".
class ScriptedServer
{
public:
    QStringList refusedOpens;         // opens of strings containing one of these fail
    DbStatus openRefusal = DbStatus::failure(QStringLiteral("refused"), 4060); // with this: the database is missing
    QSet<QString> failingStatements;  // statements and queries with these texts fail
    QHash<QString, DbStatus> failingWith; // statement text -> the failure it meets
    QHash<QString, ResultSet> answers; // query text -> its rows
    std::function<void()> heard;      // called at each statement and query, on the caller's thread

    ConnectionFactory connections();
    // The logs of the connections in the order they were made.
    QList<QStringList> logs() const;
    // The first connection's log, for tests that make one.
    QStringList calls() const { return logs().value(0); }

private:
    mutable QMutex m_mutex;
    std::list<QStringList> m_logs; // stable addresses while connections write
    friend class ScriptedConnection;
};

// A result set with one column and the given rows.
ResultSet singleColumn(const QString &column, const QStringList &values);
