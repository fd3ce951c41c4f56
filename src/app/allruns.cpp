#include "allruns.h"

#include "connectionprofiles.h"
#include "databaselisting.h"
#include "databaserun.h"

#include <QDir>
#include <QSaveFile>

#include <optional>
#include <thread>
#include <vector>

namespace {

QString reportName(const QString &database)
{
    QString name = database;
    for (QChar &c : name) {
        if (!c.isLetterOrNumber() && c != QLatin1Char('_') && c != QLatin1Char('-') && c != QLatin1Char('.'))
            c = QLatin1Char('_');
    }
    return name + QLatin1String(".jsonl");
}

QString outcomeName(const std::optional<DatabaseRunResult> &result)
{
    if (!result)
        return QStringLiteral("not done");
    switch (result->end) {
    case RunEnd::Completed:
        return QStringLiteral("completed");
    case RunEnd::NotOpened:
        return QStringLiteral("could not start");
    case RunEnd::Stopped:
        return QStringLiteral("interrupted");
    }
    Q_UNREACHABLE();
}

DatabaseRunResult runOne(const AllRuns &runs, const QString &database, CommandContext &context)
{
    DatabaseRun run{runs.mode, runs.server, database, context.sqlServer, std::nullopt, nullptr,
                    [](QString text) { return ConnectionProfiles::withoutPasswords(std::move(text)); },
                    false, context.stop};
    std::optional<QSaveFile> report;
    if (runs.reportDir) {
        report.emplace(QDir(*runs.reportDir).filePath(reportName(database)));
        if (report->open(QIODevice::WriteOnly))
            run.report = &*report;
    }
    DatabaseRunResult result = runDatabase(run, context);
    if (run.report && result.end == RunEnd::Completed)
        report->commit();
    return result;
}

} // namespace

int runAllDatabases(const AllRuns &runs, CommandContext &context)
{
    QStringList databases;
    const ListingOutcome listing =
        listDatabases(runs.mode, runs.server, context.sqlServer, [&](const QString &name) { databases << name; });
    if (listing.failed) {
        context.err << kConnectionNotEstablished << "\n";
        return kExitFailed;
    }

    std::vector<std::optional<DatabaseRunResult>> results(databases.size());
    std::atomic<qsizetype> next = 0;
    const auto work = [&] {
        for (qsizetype i = next++; i < databases.size(); i = next++) {
            if (context.stop && context.stop->load())
                return;
            results[i] = runOne(runs, databases[i], context);
        }
    };
    std::vector<std::thread> workers;
    for (int i = 0; i < runs.jobs && i < databases.size(); ++i)
        workers.emplace_back(work);
    for (std::thread &worker : workers)
        worker.join();

    context.out << QStringLiteral("%1 %2 %3 %4 %5\n")
                       .arg(QStringLiteral("Database"), -30)
                       .arg(QStringLiteral("Outcome"), -16)
                       .arg(QStringLiteral("Failed"), 7)
                       .arg(QStringLiteral("Columns"), 8)
                       .arg(QStringLiteral("Seconds"), 8);
    bool allCompleted = true;
    QStringList notDone;
    for (qsizetype i = 0; i < databases.size(); ++i) {
        const std::optional<DatabaseRunResult> &result = results[i];
        const bool ran = result && result->end != RunEnd::NotOpened;
        allCompleted = allCompleted && result && result->end == RunEnd::Completed;
        if (!result || result->end == RunEnd::Stopped)
            notDone << databases[i];
        context.out << QStringLiteral("%1 %2 %3 %4 %5\n")
                           .arg(databases[i], -30)
                           .arg(outcomeName(result), -16)
                           .arg(ran ? QString::number(result->tally.count(StatementResult::Failed)) : QStringLiteral("-"), 7)
                           .arg(ran ? QString::number(result->tally.columnsAdded()) : QStringLiteral("-"), 8)
                           .arg(result ? QString::number(result->seconds, 'f', 1) : QStringLiteral("-"), 8);
    }
    if (!notDone.isEmpty())
        context.out << "Not done: " << notDone.join(QLatin1String(", ")) << "\n";
    return allCompleted ? kExitOk : kExitFailed;
}
