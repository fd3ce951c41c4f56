#include "connectionprofiles.h"

#include <QtGlobal>

namespace ConnectionProfiles {

namespace {

constexpr char kOfflinePrefix[] =
    "Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;Initial Catalog=";
// The same fixed logins on every installation.
constexpr char kLocalPassword[] = "Tq482Harbor517";
constexpr char kOnlinePassword[] = "#BranchPortal718Qz%";

QString loginPrefix(const char *password, const char *user)
{
    return QLatin1String("Provider=SQLOLEDB.1;Password=") + QLatin1String(password)
        + QLatin1String(";Persist Security Info=False;User ID=") + QLatin1String(user)
        + QLatin1String(";Initial Catalog=");
}
constexpr char kFallback[] =
    "Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;Initial Catalog=tempdb";
constexpr char kOnlineHost[] = "online.quorvex.com";

} // namespace

std::optional<QString> prefix(const QString &mode)
{
    if (mode == QLatin1String(kOffline))
        return QString::fromLatin1(kOfflinePrefix);
    if (mode == QLatin1String(kLocal))
        return loginPrefix(kLocalPassword, "quorvex");
    if (mode == QLatin1String(kOnline))
        return loginPrefix(kOnlinePassword, "kwonline");
    return std::nullopt;
}

QString runConnectionString(const QString &prefix, const QString &catalog, const QString &dataSource)
{
    return prefix + catalog + QLatin1String(";Data Source=") + dataSource;
}

std::optional<QString> listingConnectionString(const QString &mode, const QString &dataSource)
{
    if (mode != QLatin1String(kOffline) && mode != QLatin1String(kLocal))
        return std::nullopt;
    return runConnectionString(*prefix(mode), QStringLiteral("master"), dataSource);
}

QString runDataSource(const QString &mode, const QString &server)
{
    return mode == QLatin1String(kOnline) ? QString() : server;
}

QString fallbackConnectionString()
{
    return QString::fromLatin1(kFallback);
}

QString onlineDataSource()
{
    const QString host = qEnvironmentVariable("ZRT_ONLINE_SERVER", QString::fromLatin1(kOnlineHost));
    return QLatin1String("tcp:") + host + QLatin1String(",1433");
}

} // namespace ConnectionProfiles
