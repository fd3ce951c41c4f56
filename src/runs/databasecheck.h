#pragma once

#include "connection.h"
#include "databaselisting.h"
#include "schemadrift.h"

#include <QStringList>

#include <atomic>
#include <functional>
#include <optional>

struct DatabaseCheckResult
{
    std::optional<SchemaDrift> drift; // nothing when the database could not be opened or read
    QString error;
};

// Opens the database as a run does, reads its catalogue and compares it with
// what a run leaves. Sends nothing but Selects. `target` names the server in messages.
DatabaseCheckResult checkDatabase(const QString &mode, const QString &server, const QString &database,
                                  const QString &target, const ConnectionFactory &connections);

struct AllChecksResult
{
    ListingOutcome listing;
    QStringList databases; // as the server listed them
    qsizetype checked = 0; // the first ones; the rest were stopped before
};

// Every database the server lists, one after another, each told to `checked`
// as it is done; none starts once `stop` is set.
AllChecksResult checkAllDatabases(const QString &mode, const QString &server, const ConnectionFactory &connections,
                                  const std::atomic<bool> *stop,
                                  const std::function<void(const QString &database, const DatabaseCheckResult &)> &checked);
