#include "allruns.h"

#include "databaselisting.h"
#include "outputfile.h"
#include "fleetindex.h"

#include <QDir>
#include <QJsonDocument>
#include <QMutex>

#include <thread>

namespace {

constexpr qsizetype kNameCharacters = 60; // a file name's 255 bytes hold them in UTF-8

// A report's file name, its own for every place in the listing; the name's
// letters, digits and hyphens kept, the rest made '_'.
QString reportFileName(qsizetype position, const QString &database)
{
    QString name = database.left(kNameCharacters);
    for (QChar &c : name) {
        if (!c.isLetterOrNumber() && c != u'-')
            c = u'_';
    }
    return QStringLiteral("%1-%2.jsonl").arg(position + 1, 3, 10, QLatin1Char('0')).arg(name);
}

DatabaseRunResult runOne(const AllRuns &runs, const QString &database, const QString &reportFile)
{
    DatabaseRun run{runs.mode, runs.server, database, QLatin1String("server ") + runs.server, runs.connections,
                    std::nullopt, nullptr, runs.mask, {}, runs.stop, runs.preview};
    OutputFile report;
    QString openError;
    if (runs.reportDir) {
        if (report.open(QDir(*runs.reportDir).filePath(reportFile)))
            run.report = &report;
        else
            openError = QStringLiteral("cannot write %1: %2").arg(report.name(), report.errorString());
    }
    DatabaseRunResult result = runDatabase(run);
    if (!openError.isEmpty())
        result.reportError = openError;
    return result;
}

void writeWhole(const QString &path, const QByteArray &bytes, QStringList &errors)
{
    OutputFile file;
    if (!file.open(path) || file.device()->write(bytes) != bytes.size() || !file.commit())
        errors << QStringLiteral("cannot write %1: %2").arg(path, file.errorString());
}

} // namespace

AllRunsResult runAllDatabases(const AllRuns &runs)
{
    AllRunsResult all;
    all.started = QDateTime::currentDateTime();
    all.listingFailed = listDatabases(runs.mode, runs.server, runs.connections,
                                      [&all](const QString &name) { all.databases << name; })
                            .failed;
    if (all.listingFailed)
        return all;

    all.results.resize(all.databases.size());
    for (qsizetype i = 0; i < all.databases.size(); ++i)
        all.reportFiles << reportFileName(i, all.databases[i]);
    std::atomic<qsizetype> next = 0;
    QMutex telling;
    const auto work = [&] {
        for (qsizetype i = next++; i < all.databases.size(); i = next++) {
            if (runs.stop && runs.stop->load())
                return;
            DatabaseRunResult result = runOne(runs, all.databases[i], all.reportFiles[i]);
            QMutexLocker lock(&telling);
            if (runs.finished)
                runs.finished(all.databases[i], result);
            all.results[i] = std::move(result);
        }
    };
    std::vector<std::thread> workers;
    for (int i = 0; i < runs.jobs && i < all.databases.size(); ++i)
        workers.emplace_back(work);
    for (std::thread &worker : workers)
        worker.join();

    if (runs.reportDir) {
        const QDir folder(*runs.reportDir);
        const QJsonObject index = fleetIndex(runs, all);
        writeWhole(folder.filePath(QStringLiteral("index.json")), QJsonDocument(index).toJson(), all.indexErrors);
        writeWhole(folder.filePath(QStringLiteral("index.html")), fleetPage(index), all.indexErrors);
    }
    return all;
}
