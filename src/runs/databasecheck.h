#pragma once

#include "connection.h"
#include "schemadrift.h"

#include <QJsonObject>

#include <optional>

struct DatabaseCheckResult
{
    std::optional<SchemaDrift> drift; // nothing when the database could not be opened or read
    QString error;
    bool busy = false; // a run held the database: nothing was read
    QString lockNote;  // why the check took no application lock
};

// Opens the database as a run does, reads its catalogue and compares it with
// what a run leaves. Sends nothing but Selects, under a shared application
// lock that keeps runs off while it reads (waiting at most `lockWaitSeconds`
// for one to end). `target` names the server in messages.
DatabaseCheckResult checkDatabase(const QString &mode, const QString &server, const QString &database,
                                  const QString &target, const ConnectionFactory &connections, int lockWaitSeconds);

enum class CheckOutcome { Matches, Differs, CouldNotBeRead, Busy, NotDone, NotStarted };
inline constexpr int kCheckOutcomes = int(CheckOutcome::NotStarted) + 1;

CheckOutcome checkOutcomeOf(const std::optional<DatabaseCheckResult> &result);
QString checkOutcomeName(CheckOutcome outcome);

// The outcome, and what differs or why the database could not be read.
QJsonObject checkJson(const std::optional<DatabaseCheckResult> &result);
