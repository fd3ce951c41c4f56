#include "statementresult.h"

namespace {

constexpr int kObjectExists = 2714;
constexpr int kColumnExists = 2705;
constexpr int kDatabaseExists = 1801;
constexpr int kCannotDropMissing = 3701;

bool isDrop(Action action)
{
    return action == Action::DropTable || action == Action::DropView;
}

} // namespace

StatementResult classify(const StatementOutcome &outcome)
{
    if (outcome.status.ok)
        return StatementResult::Succeeded;
    const int number = outcome.status.nativeError;
    const QString &message = outcome.status.message;
    if (number == kObjectExists || number == kColumnExists || number == kDatabaseExists
        || message.contains(QLatin1String("already exists")) || message.contains(QLatin1String("duplicate column name")))
        return StatementResult::AlreadyExisted;
    if (isDrop(outcome.action)
        && (number == kCannotDropMissing || message.contains(QLatin1String("no such table"))
            || message.contains(QLatin1String("no such view"))))
        return StatementResult::NotThereToDrop;
    return StatementResult::Failed;
}

QString resultName(StatementResult result)
{
    switch (result) {
    case StatementResult::Succeeded:
        return QStringLiteral("succeeded");
    case StatementResult::AlreadyExisted:
        return QStringLiteral("already existed");
    case StatementResult::NotThereToDrop:
        return QStringLiteral("not there to drop");
    case StatementResult::Failed:
        return QStringLiteral("failed");
    }
    Q_UNREACHABLE();
}

QString phaseName(Phase phase)
{
    switch (phase) {
    case Phase::CreateDatabase:
        return QStringLiteral("create database");
    case Phase::RebuiltTableDrops:
        return QStringLiteral("rebuilt table drops");
    case Phase::Tables:
        return QStringLiteral("tables");
    case Phase::ViewDrops:
        return QStringLiteral("view drops");
    case Phase::ViewCreates:
        return QStringLiteral("view creates");
    case Phase::ChartOfAccounts:
        return QStringLiteral("chart of accounts");
    }
    Q_UNREACHABLE();
}
