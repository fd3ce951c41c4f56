#include "databasecheck.h"

#include "databaselisting.h"
#include "mdzrt.h"
#include "openwatch.h"

DatabaseCheckResult checkDatabase(const QString &mode, const QString &server, const QString &database,
                                  const ConnectionFactory &connections)
{
    const OpenWatch watch(connections);
    mdZRT module(watch.connections(), server);
    module.OpenConnection(mode, server, database);
    if (const QString notOpen = watch.whyNotOpen(module, database); !notOpen.isEmpty())
        return {std::nullopt, notOpen};
    DatabaseSchema found;
    const DbStatus read = readDatabaseSchema(module.SharedConnection(), found);
    if (!read.ok)
        return {std::nullopt, QStringLiteral("cannot read the catalogue of '%1': %2").arg(database, read.message)};
    return {schemaDrift(whatARunLeaves(), found), QString()};
}

AllChecksResult checkAllDatabases(const QString &mode, const QString &server, const ConnectionFactory &connections,
                                  const std::atomic<bool> *stop,
                                  const std::function<void(const QString &database, const DatabaseCheckResult &)> &checked)
{
    AllChecksResult all;
    all.listingFailed =
        listDatabases(mode, server, connections, [&all](const QString &name) { all.databases << name; }).failed;
    for (; all.checked < all.databases.size() && !(stop && stop->load()); ++all.checked) {
        const QString &database = all.databases[all.checked];
        checked(database, checkDatabase(mode, server, database, connections));
    }
    return all;
}
