#pragma once

#include "databasebefore.h"
#include "runhost.h"
#include "statementtally.h"

#include <QJsonArray>
#include <QStringList>

#include <optional>

// What a previewed run would change, in the run's own terms: gathered from
// the outcomes the server gave while the preview ran, against what the
// database held before it.
class PreviewFindings
{
public:
    explicit PreviewFindings(DatabaseBefore before = {});

    void add(const StatementOutcome &outcome);

    // One line each, "would ...", the counts taken from the run's `tally`,
    // the discarded rows included.
    QStringList lines(const StatementTally &tally) const;
    // The same as objects, one per table, column, widening or table emptied:
    // "kind" is the verb of its line (create, add, widen, write, insert,
    // replace, discard) or "unread" for what could not be told.
    QJsonArray json(const StatementTally &tally) const;

private:
    struct Widened
    {
        QString table;
        QString column;
        std::optional<int> from; // nothing when the table did not have the column
        int to = 0;
    };

    DatabaseBefore m_before;
    QList<QPair<QString, QString>> m_columnsAdded; // table, column
    QList<Widened> m_widened;
    QStringList m_tablesCreated;
};

// A run's changes in one line, from the findings as json() gives them:
// "would create 2 tables, add 221 columns, widen 3 columns, discard 40 rows"
// (the report header row counted as one).
QString wouldSummary(const QJsonArray &findings);
