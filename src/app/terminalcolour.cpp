#include "terminalcolour.h"

namespace {

// The terminal's colour codes, in the order of Tint.
constexpr const char *kCodes[] = {"32", "33", "31", "90"};
static_assert(std::size(kCodes) == int(Tint::Grey) + 1);

} // namespace

QString tinted(const QString &text, Tint tint, bool terminal)
{
    if (!terminal || !qEnvironmentVariableIsEmpty("NO_COLOR"))
        return text;
    return QStringLiteral("\x1b[%1m%2\x1b[0m").arg(QLatin1String(kCodes[int(tint)]), text);
}

Tint outcomeTint(RunOutcome outcome)
{
    switch (outcome) {
    case RunOutcome::Completed:
        return Tint::Green;
    case RunOutcome::CompletedWithFailures:
    case RunOutcome::PreviewStopped:
        return Tint::Yellow;
    case RunOutcome::NothingApplied:
    case RunOutcome::ConnectionLost:
    case RunOutcome::CouldNotStart:
        return Tint::Red;
    case RunOutcome::Interrupted:
    case RunOutcome::NotDone:
    case RunOutcome::NotStarted:
        return Tint::Grey;
    }
    Q_UNREACHABLE();
}
