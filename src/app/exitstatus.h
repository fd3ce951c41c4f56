#pragma once

#include "commandcontext.h"
#include "databaserun.h"

inline int exitStatusOf(RunOutcome outcome)
{
    switch (outcome) {
    case RunOutcome::Completed:
        return kExitOk;
    case RunOutcome::CompletedWithFailures:
        return kExitFailures;
    case RunOutcome::NothingApplied:
    case RunOutcome::CouldNotStart:
        return kExitNothingDone;
    case RunOutcome::Interrupted:
    case RunOutcome::NotDone:
        return kExitInterrupted;
    }
    Q_UNREACHABLE();
}

// A lost report or index makes a clean run's status 3; a worse one stands.
inline int withLostReport(int status, bool lost)
{
    return lost && status == kExitOk ? kExitFailures : status;
}
