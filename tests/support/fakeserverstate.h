#pragma once

#include "dbstatus.h"
#include "fakedatabase.h"

#include <QList>
#include <QSet>
#include <QString>

#include <map>

// One statement as the server received it, with its outcome.
struct FakeLoggedStatement
{
    QString database; // the connection's catalog; empty when it was not open
    QString text;
    bool ok = true;
    int nativeError = 0;
    QString message;
};

// What a fake SQL Server holds across connections: its databases and the
// statements it received. master and tempdb always exist; any other name
// exists from the first time it is used (opened, created, set up) until a
// test drops it, so ordinary runs need no setup and a missing database is
// made by dropDatabase().
class FakeServerState
{
public:
    FakeServerState();

    // The database, made empty first when it does not exist.
    FakeDatabase &database(const QString &name);
    const FakeDatabase *findDatabase(const QString &name) const;
    bool hasDatabase(const QString &name) const;
    void addDatabase(const QString &name);
    void dropDatabase(const QString &name);
    QStringList databases() const;

    // How the server answers an open of the catalog and CREATE DATABASE.
    DbStatus openCatalog(const QString &name);
    DbStatus createDatabase(const QString &name);

    // Every open fails, as when no server answers.
    bool refuseEveryOpen = false;

    void record(FakeLoggedStatement statement) { m_log.append(std::move(statement)); }
    const QList<FakeLoggedStatement> &statementLog() const { return m_log; }
    // The texts of the statements that failed, in order.
    QStringList failedStatements() const;

private:
    std::map<QString, FakeDatabase> m_databases; // by lower-case name
    QSet<QString> m_dropped; // lower-case names
    QList<FakeLoggedStatement> m_log;
};
