#include "mdzrt.h"

#include "connectionprofiles.h"

mdZRT::mdZRT(ConnectionFactory factory, QString dataSource, Fallback fallback)
    : m_factory(std::move(factory))
    , m_dataSource(std::move(dataSource))
    , m_fallback(fallback)
{
}

Connection &mdZRT::SharedConnection()
{
    if (!m_sharedConnection)
        m_sharedConnection = m_factory();
    return *m_sharedConnection;
}

void mdZRT::OpenConnection(const QString &mode, const QString &server, const QString &database)
{
    const std::optional<QString> prefix = ConnectionProfiles::prefix(mode);
    // "ONLINE" opens only for its two hosted servers; any other server, and any
    // unknown mode, opens nothing and still counts as opened.
    const bool opensNothing = !prefix
        || (mode == QLatin1String(ConnectionProfiles::kOnline) && server != QLatin1String("QUORVEXMAIN")
            && server != QLatin1String("SERVER"));
    if (!opensNothing) {
        const DbStatus status =
            SharedConnection().open(ConnectionProfiles::runConnectionString(*prefix, database, m_dataSource));
        if (!status.ok) {
            m_connectionOpened = false;
            m_openFailure = status;
            OpenFallbackConnection(mode);
            return;
        }
    }
    m_connectionOpened = true;
    m_openFailure = DbStatus::success();
}

void mdZRT::OpenFallbackConnection(const QString &mode)
{
    const QString fallback = m_fallback == Fallback::LocalWindowsLogin
        ? ConnectionProfiles::fallbackConnectionString()
        : ConnectionProfiles::runConnectionString(*ConnectionProfiles::prefix(mode), QStringLiteral("tempdb"), m_dataSource);
    SharedConnection().open(fallback);
}
