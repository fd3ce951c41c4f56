#pragma once

#include "commandcontext.h"
#include "databaserun.h"

#include <algorithm>
#include <array>

// The more serious of two statuses: 130 above 4 above 3 above 1 above 0.
inline int moreSerious(int a, int b)
{
    constexpr std::array kRising = {kExitOk, kExitDiffers, kExitFailures, kExitNothingDone, kExitInterrupted};
    const auto rank = [&kRising](int status) { return std::find(kRising.begin(), kRising.end(), status) - kRising.begin(); };
    return rank(a) >= rank(b) ? a : b;
}

// A lost report, index or standard output makes the status at least 3.
inline int withLostReport(int status, bool lost)
{
    return lost ? moreSerious(status, kExitFailures) : status;
}

inline int exitStatusOf(RunOutcome outcome, const std::optional<DatabaseRunResult> &result)
{
    switch (outcome) {
    case RunOutcome::Completed:
        return kExitOk;
    case RunOutcome::CompletedWithFailures:
    case RunOutcome::PreviewStopped:
    case RunOutcome::NotStarted: // a stop rule ended the fleet part-way
    case RunOutcome::Busy:       // left for when the other run has ended
        return kExitFailures;
    case RunOutcome::ConnectionLost:
        return result->tally.count(StatementResult::Succeeded) == 0 ? kExitNothingDone : kExitFailures;
    case RunOutcome::NothingApplied:
    case RunOutcome::CouldNotStart:
        return kExitNothingDone;
    case RunOutcome::Interrupted:
    case RunOutcome::NotDone:
        return kExitInterrupted;
    }
    Q_UNREACHABLE();
}

inline int exitStatusOf(const std::optional<DatabaseRunResult> &result)
{
    return exitStatusOf(outcomeOf(result), result);
}
