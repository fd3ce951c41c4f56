#include "allruns.h"

#include "databaselisting.h"

#include <QDir>
#include <QSaveFile>

#include <thread>

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

DatabaseRunResult runOne(const AllRuns &runs, const QString &database)
{
    DatabaseRun run{runs.mode, runs.server, database, runs.connections, std::nullopt, nullptr, runs.mask, {}, runs.stop};
    std::optional<QSaveFile> report;
    if (runs.reportDir) {
        report.emplace(QDir(*runs.reportDir).filePath(reportName(database)));
        if (report->open(QIODevice::WriteOnly))
            run.report = &*report;
    }
    DatabaseRunResult result = runDatabase(run);
    if (run.report && result.end == RunEnd::Completed)
        report->commit();
    return result;
}

} // namespace

AllRunsResult runAllDatabases(const AllRuns &runs)
{
    AllRunsResult all;
    all.listingFailed = listDatabases(runs.mode, runs.server, runs.connections,
                                      [&all](const QString &name) { all.databases << name; })
                            .failed;
    if (all.listingFailed)
        return all;

    all.results.resize(all.databases.size());
    std::atomic<qsizetype> next = 0;
    const auto work = [&] {
        for (qsizetype i = next++; i < all.databases.size(); i = next++) {
            if (runs.stop && runs.stop->load())
                return;
            all.results[i] = runOne(runs, all.databases[i]);
        }
    };
    std::vector<std::thread> workers;
    for (int i = 0; i < runs.jobs && i < all.databases.size(); ++i)
        workers.emplace_back(work);
    for (std::thread &worker : workers)
        worker.join();
    return all;
}
