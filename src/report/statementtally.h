#pragma once

#include "statementresult.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>

#include <optional>
#include <span>

// The unexpected failures that share one message, in run order.
struct FailureGroup
{
    struct Statement
    {
        int index; // from 1, as the report numbers it
        Phase phase;
        QString text;
    };
    QString message; // a timed-out or blocked statement's marked as such
    QList<Statement> statements;
};

// A view refused because a table it reads is missing.
struct MissingSource
{
    QString view;
    QString table;
};

// Each group's count and message, then its first `statementsEach` statements
// (index, phase, first line of the text), one line each; every control
// character escaped.
QString failureListing(std::span<const FailureGroup> groups, qsizetype statementsEach);

// What the statements of one phase took.
struct PhaseTally
{
    int sent = 0;
    qint64 nanoseconds = 0;
};

// Counts what a run did, statement by statement.
class StatementTally
{
public:
    void add(const StatementOutcome &outcome);

    int sent() const { return m_sent; }
    int count(StatementResult result) const { return m_byResult[int(result)]; }
    int unexpected() const
    {
        return count(StatementResult::TimedOut) + count(StatementResult::Blocked) + count(StatementResult::Failed);
    }
    int columnsAdded() const { return m_columnsAdded; }
    int viewsCreated() const { return m_viewsCreated; }
    int builtInRowsWritten() const { return m_builtInRows; }
    int accountsWritten() const { return m_accounts; }
    qsizetype sourceTablesMissing() const { return m_missingSources.size(); }
    const PhaseTally &phase(Phase phase) const { return m_phases[int(phase)]; }
    // The phase of the last statement sent; nothing before the first.
    std::optional<Phase> lastPhase() const { return m_lastPhase; }

    // The most frequent message first; equal counts in the order they came.
    // With `phase`, only its statements, and only the messages they share.
    QList<FailureGroup> failureGroups(std::optional<Phase> phase = std::nullopt) const;

    // Counts, then the failures by message: `verbose` shows every message and
    // every statement, else the first 20 messages with one statement each.
    QString summary(bool verbose, bool reported) const;
    // Counts, failures by message and the views refused for a missing table.
    QJsonObject json() const;
    // The first `shown` statements that failed unexpectedly, timed out or were blocked, in
    // the order they were sent: number, phase, message and first line.
    QJsonArray failedStatements(qsizetype shown) const;

private:
    int m_sent = 0;
    int m_byResult[kStatementResults] = {};
    int m_columnsAdded = 0;
    int m_viewsCreated = 0;
    int m_viewsFailed = 0;
    int m_builtInRows = 0;
    int m_accounts = 0;
    PhaseTally m_phases[kPhases];
    std::optional<Phase> m_lastPhase;
    QList<FailureGroup> m_groups;
    QHash<QString, qsizetype> m_groupOf; // message -> its place in m_groups
    QList<MissingSource> m_missingSources;
};
