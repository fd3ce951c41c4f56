#pragma once

#include "databasebefore.h"
#include "runhost.h"

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
    // The server ended the transaction after statement `index`: from there
    // on, statements no longer see what earlier ones did.
    void transactionEndedAt(int index);

    // One line each, "would ...", the discarded rows included.
    QStringList lines() const;
    QJsonArray json() const { return QJsonArray::fromStringList(lines()); }

private:
    DatabaseBefore m_before;
    QStringList m_columnsAdded;
    QStringList m_widened;
    QStringList m_tablesCreated;
    int m_builtInRows = 0;
    int m_accounts = 0;
    int m_viewsCreated = 0;
    int m_sourcesMissing = 0;
    std::optional<int> m_transactionEndedAt;
};
