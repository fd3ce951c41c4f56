#pragma once

#include "statementresult.h"

#include <QList>
#include <QString>
#include <QStringList>

// Counts what a run did, statement by statement.
class StatementTally
{
public:
    void add(const StatementOutcome &outcome);

    int sent() const { return m_sent; }
    int count(StatementResult result) const { return m_byResult[int(result)]; }
    int columnsAdded() const { return m_columnsAdded; }

    QString summary() const;

private:
    struct Failure
    {
        int index;
        StatementOutcome outcome;
    };

    int m_sent = 0;
    int m_byResult[4] = {};
    int m_columnsAdded = 0;
    int m_viewsCreated = 0;
    QStringList m_viewsFailed;
    int m_builtInRows = 0;
    int m_accounts = 0;
    QList<Failure> m_failures;
};
