#pragma once

#include "runhost.h"

#include <QList>
#include <QString>
#include <QStringList>

enum class StatementResult { Succeeded, AlreadyExisted, NotThereToDrop, Failed };

// Tells an expected refusal (the object is already there, or not there to
// drop) from a real failure, by SQL Server's error numbers, or by the SQLite
// driver's messages where the run is tried out on SQLite.
StatementResult classify(const StatementOutcome &outcome);
QString resultName(StatementResult result);

// Counts what a run did, statement by statement.
class StatementTally
{
public:
    struct Failure
    {
        int index;
        StatementOutcome outcome;
    };

    void add(const StatementOutcome &outcome);

    int sent() const { return m_sent; }
    int count(StatementResult result) const { return m_byResult[int(result)]; }
    int columnsAdded() const { return m_columnsAdded; }
    int viewsCreated() const { return m_viewsCreated; }
    const QStringList &viewsFailed() const { return m_viewsFailed; }
    int builtInRowsWritten() const { return m_builtInRows; }
    int accountsWritten() const { return m_accounts; }
    const QList<Failure> &failures() const { return m_failures; }

    QString summary() const;

private:
    int m_sent = 0;
    int m_byResult[4] = {};
    int m_columnsAdded = 0;
    int m_viewsCreated = 0;
    QStringList m_viewsFailed;
    int m_builtInRows = 0;
    int m_accounts = 0;
    QList<Failure> m_failures;
};
