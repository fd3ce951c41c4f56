#include "allchecks.h"

#include <QMutex>

CheckOutcome fleetOutcome(const AllChecksResult &all, qsizetype database)
{
    return all.states[database] == DatabaseState::NotStarted ? CheckOutcome::NotStarted
                                                             : checkOutcomeOf(all.results[database]);
}

AllChecksResult checkAllDatabases(const AllChecks &checks)
{
    AllChecksResult all = listedFleet<DatabaseCheckResult>(checks);
    QMutex recording;
    const auto one = [&](qsizetype database) {
        const FleetServer &server = checks.servers[all.databases[database].server];
        const DatabaseCheckResult result =
            checkDatabase(server.mode, server.server, all.databases[database].name, server.target, server.connections,
                          server.locks.waitSeconds);
        {
            const QMutexLocker lock(&recording);
            all.results[database] = result;
        }
        if (checks.finished)
            checks.finished(all, database, result);
        return !result.drift.has_value() && !result.busy;
    };
    const auto entry = [&](qsizetype database) {
        QJsonObject json = checkJson(all.results[database]);
        json.insert(QStringLiteral("outcome"), checkOutcomeName(fleetOutcome(all, database)));
        return json;
    };
    QStringList outcomes;
    for (int outcome = 0; outcome < kCheckOutcomes; ++outcome)
        outcomes << checkOutcomeName(CheckOutcome(outcome));
    const auto totals = [&] {
        qint64 differences = 0;
        for (const std::optional<DatabaseCheckResult> &result : all.results)
            differences += result && result->drift ? result->drift->differences() : 0;
        return QJsonObject{{QStringLiteral("differences"), differences}};
    };
    runFleet(checks, all, recording, one, {outcomes, entry, totals});
    return all;
}
