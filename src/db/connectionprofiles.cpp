#include "connectionprofiles.h"

#include <QtGlobal>

namespace ConnectionProfiles {

namespace {

constexpr char kOfflinePrefix[] =
    "Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;Initial Catalog=";
constexpr char kLocalPrefix[] =
    "Provider=SQLOLEDB.1;Password=Tq482Harbor517;Persist Security Info=False;User ID=quorvex;Initial Catalog=";
constexpr char kOnlinePrefix[] =
    "Provider=SQLOLEDB.1;Password=#BranchPortal718Qz%;Persist Security Info=False;User ID=kwonline;Initial Catalog=";
constexpr char kFallback[] =
    "Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;Initial Catalog=tempdb";
constexpr char kOnlineHost[] = "online.quorvex.com";

} // namespace

std::optional<QString> prefix(const QString &mode)
{
    if (mode == QLatin1String(kOffline))
        return QString::fromLatin1(kOfflinePrefix);
    if (mode == QLatin1String(kLocal))
        return QString::fromLatin1(kLocalPrefix);
    if (mode == QLatin1String(kOnline))
        return QString::fromLatin1(kOnlinePrefix);
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
