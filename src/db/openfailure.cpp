#include "openfailure.h"

#include <algorithm>
#include <array>

namespace {

// SQL Server's numbers for a login the server would not take.
constexpr std::array kLoginRefused = {18456, 18452, 18470, 18486, 18487, 18488};
// The database named at login, or selected by USE, does not exist or cannot be opened.
constexpr std::array kDatabaseMissing = {4060, 911};

} // namespace

OpenFailure openFailureOf(const DbStatus &status)
{
    if (status.unverified)
        return OpenFailure::Unverified;
    if (std::find(kDatabaseMissing.begin(), kDatabaseMissing.end(), status.nativeError) != kDatabaseMissing.end())
        return OpenFailure::DatabaseMissing;
    if (std::find(kLoginRefused.begin(), kLoginRefused.end(), status.nativeError) != kLoginRefused.end()
        || status.sqlState == QLatin1String("28000"))
        return OpenFailure::LoginRefused;
    // Connection failures (08...) and a login past its time: nothing answered.
    if (status.sqlState.startsWith(QLatin1String("08")) || status.sqlState == QLatin1String("HYT00")
        || status.sqlState == QLatin1String("HYT01"))
        return OpenFailure::Unreachable;
    return OpenFailure::Other;
}

QString openFailureName(OpenFailure failure)
{
    switch (failure) {
    case OpenFailure::Unreachable:
        return QStringLiteral("server unreachable");
    case OpenFailure::LoginRefused:
        return QStringLiteral("login refused");
    case OpenFailure::DatabaseMissing:
        return QStringLiteral("database missing");
    case OpenFailure::Unverified:
        return QStringLiteral("certificate refused");
    case OpenFailure::Other:
        return QStringLiteral("refused");
    }
    Q_UNREACHABLE();
}

QString openFailureText(const DbStatus &status, const QString &target, const QString &database)
{
    QString what;
    switch (openFailureOf(status)) {
    case OpenFailure::Unreachable:
        what = QStringLiteral("cannot reach %1").arg(target);
        break;
    case OpenFailure::LoginRefused:
        what = QStringLiteral("%1 refused the login").arg(target);
        break;
    case OpenFailure::DatabaseMissing:
        what = QStringLiteral("the database '%1' is missing on %2").arg(database, target);
        break;
    case OpenFailure::Unverified:
        what = QStringLiteral("cannot verify %1").arg(target);
        break;
    case OpenFailure::Other:
        what = database.isEmpty() ? QStringLiteral("cannot open a connection to %1").arg(target)
                                  : QStringLiteral("cannot open the database '%1' on %2").arg(database, target);
        break;
    }
    return what + QLatin1String(": ") + status.message;
}
