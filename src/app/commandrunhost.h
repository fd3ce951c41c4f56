#pragma once

#include "commandcontext.h"
#include "runhost.h"
#include "statementtally.h"

#include <atomic>
#include <optional>

class QIODevice;

// Stands in for the window when the run has no display: a progress bar on a
// terminal, a tally of outcomes, and one JSON line per statement in the report.
class CommandRunHost : public HeadlessRunHost
{
public:
    CommandRunHost(CommandContext &context, std::optional<QString> createAt, QIODevice *report,
                   std::function<QString(QString)> mask, bool showProgress, const std::atomic<bool> *stop);

    const StatementTally &tally() const { return m_tally; }

    void setProgressMaximum(int maximum) override { m_maximum = maximum; }
    void setProgress(int value) override;
    std::optional<DatabaseFile> chooseDatabaseFile() override;
    void showEndButton() override;
    void statementExecuted(const StatementOutcome &outcome) override;
    bool stopRequested() const override { return m_stop && m_stop->load(); }

private:
    CommandContext &m_context;
    std::optional<QString> m_createAt;
    QIODevice *m_report;
    std::function<QString(QString)> m_mask;
    bool m_showProgress;
    const std::atomic<bool> *m_stop;
    StatementTally m_tally;
    int m_maximum = 100;
};
