#pragma once

#include "databasebefore.h"
#include "runhost.h"
#include "statementtally.h"

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

private:
    DatabaseBefore m_before;
    QStringList m_columnsAdded;
    QStringList m_widened;
    QStringList m_tablesCreated;
};
