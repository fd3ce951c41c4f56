#include "databaselisting.h"

#include "connectionprofiles.h"
#include "odbckeywords.h"
#include "openfailure.h"

#include <QStringList>

namespace {

constexpr char kLocalQuery[] = "Select name From sys.databases Where name like 'Quorvex%' Order By name";
constexpr char kOfflineQuery[] = "Select name From sysdatabases Where name like 'Quorvex%' Order By name";
// The hosted server holds every company's databases; the login sees only the
// ones it may open, which HAS_DBACCESS tells without trying each one.
constexpr char kOnlineQuery[] =
    "Select name From sys.databases Where name like 'Quorvex%' And HAS_DBACCESS(name) = 1 Order By name";

DbStatus readNames(Connection &connection, const QString &connectionString, const QString &query,
                   const std::function<void(const QString &)> &add)
{
    if (const DbStatus opened = connection.open(connectionString); !opened.ok)
        return opened;
    ResultSet names;
    if (const DbStatus queried = connection.query(query, names); !queried.ok)
        return queried;
    const DbStatus read = forEachRow(names, [&add](const ResultSet &row) {
        const std::optional<QVariant> name = row.field(QStringLiteral("name"));
        if (name)
            add(name->toString());
        return name.has_value();
    });
    if (!read.ok)
        return read;
    names.close();
    return connection.close();
}

} // namespace

ListingOutcome listDatabases(const QString &mode, const QString &server, const ConnectionFactory &factory,
                             const std::function<void(const QString &)> &add)
{
    ListingOutcome outcome;
    std::optional<QString> connectionString;
    QString query;
    const bool online = mode == QLatin1String(ConnectionProfiles::kOnline);
    if (online) {
        connectionString = ConnectionProfiles::runConnectionString(
            *ConnectionProfiles::prefix(mode), QStringLiteral("master"), ConnectionProfiles::onlineDataSource());
        query = QString::fromLatin1(kOnlineQuery);
    } else {
        connectionString = ConnectionProfiles::listingConnectionString(mode, server);
        query = QString::fromLatin1(mode == QLatin1String(ConnectionProfiles::kLocal) ? kLocalQuery : kOfflineQuery);
    }
    if (!connectionString)
        return outcome; // an unknown mode lists nothing and says nothing

    const std::unique_ptr<Connection> connection = factory();
    // The hosted list is offered whole or not at all.
    QStringList hosted;
    outcome.failure = readNames(*connection, *connectionString, query, [&](const QString &name) {
        if (online)
            hosted << name;
        else
            add(name);
    });
    if (!outcome.failed()) {
        for (const QString &name : std::as_const(hosted))
            add(name);
    }
    return outcome;
}

QString listingFailureText(const ListingOutcome &outcome, const QString &target)
{
    const OpenFailure kind = openFailureOf(outcome.failure);
    if (kind == OpenFailure::Unreachable || kind == OpenFailure::LoginRefused || kind == OpenFailure::Unverified)
        return withoutPasswords(openFailureText(outcome.failure, target));
    return withoutPasswords(QStringLiteral("cannot list the databases of %1: %2").arg(target, outcome.failure.message));
}
