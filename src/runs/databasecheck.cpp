#include "databasecheck.h"

#include "databaselisting.h"
#include "mdzrt.h"
#include "odbckeywords.h"
#include "whynotopen.h"

DatabaseCheckResult checkDatabase(const QString &mode, const QString &server, const QString &database,
                                  const QString &target, const ConnectionFactory &connections)
{
    mdZRT module(connections, server, mdZRT::Fallback::SameServerAndLogin);
    module.OpenConnection(mode, server, database);
    if (const QString notOpen = whyNotOpen(module, target, database); !notOpen.isEmpty())
        return {std::nullopt, notOpen};
    DatabaseSchema found;
    const DbStatus read = readDatabaseSchema(module.SharedConnection(), found);
    if (!read.ok)
        return {std::nullopt,
                withoutPasswords(QStringLiteral("cannot read the catalogue of '%1': %2").arg(database, read.message))};
    return {schemaDrift(whatARunLeaves(), found), QString()};
}

AllChecksResult checkAllDatabases(const QString &mode, const QString &server, const ConnectionFactory &connections,
                                  const std::atomic<bool> *stop,
                                  const std::function<void(const QString &database, const DatabaseCheckResult &)> &checked)
{
    AllChecksResult all;
    all.listing = listDatabases(mode, server, connections, [&all](const QString &name) { all.databases << name; });
    for (; all.checked < all.databases.size() && !(stop && stop->load()); ++all.checked) {
        const QString &database = all.databases[all.checked];
        checked(database, checkDatabase(mode, server, database, QLatin1String("server ") + server, connections));
    }
    return all;
}
