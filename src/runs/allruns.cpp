#include "allruns.h"

#include "databaselisting.h"
#include "outputfile.h"
#include "fleetindex.h"
#include "lastwords.h"

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
                    std::nullopt, nullptr, {}, runs.stop, runs.preview};
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
    if (!file.open(path) || !file.write(bytes) || !file.commit())
        errors << QStringLiteral("cannot write %1: %2").arg(path, file.errorString());
}

void writeIndex(const AllRuns &runs, AllRunsResult &all)
{
    const QDir folder(*runs.reportDir);
    const QJsonObject index = fleetIndex(runs, all);
    writeWhole(folder.filePath(QStringLiteral("index.json")), QJsonDocument(index).toJson(), all.indexErrors);
    writeWhole(folder.filePath(QStringLiteral("index.html")), fleetPage(index), all.indexErrors);
}

} // namespace

AllRunsResult runAllDatabases(const AllRuns &runs)
{
    AllRunsResult all;
    all.started = QDateTime::currentDateTime();
    all.listing = listDatabases(runs.mode, runs.server, runs.connections,
                                [&all](const QString &name) { all.databases << name; });
    if (all.listing.failed())
        return all;

    all.results.resize(all.databases.size());
    for (qsizetype i = 0; i < all.databases.size(); ++i)
        all.reportFiles << reportFileName(i, all.databases[i]);
    std::atomic<qsizetype> next = 0;
    QMutex recording; // the results, also read by the index written at once
    QMutex telling;   // the caller's output, which may block
    std::vector<bool> running(all.databases.size());
    std::optional<int> indexAtOnce;
    if (runs.reportDir) {
        // A second Ctrl-C ends the program at once: the index still lists what
        // ended, the running databases as interrupted, the rest as not done.
        indexAtOnce = LastWords::instance().add([&] {
            const QMutexLocker lock(&recording);
            AllRunsResult now = all;
            DatabaseRunResult interrupted;
            interrupted.end = RunEnd::Stopped;
            interrupted.stop = RunStop{StopCause::Interrupted, 0, QString()};
            for (size_t i = 0; i < running.size(); ++i) {
                if (running[i])
                    now.results[i] = interrupted;
            }
            writeIndex(runs, now);
        });
    }
    const auto work = [&] {
        for (qsizetype i = next++; i < all.databases.size(); i = next++) {
            if (runs.stop && runs.stop->load())
                return;
            {
                const QMutexLocker lock(&recording);
                running[i] = true;
            }
            DatabaseRunResult result = runOne(runs, all.databases[i], all.reportFiles[i]);
            {
                const QMutexLocker lock(&recording);
                running[i] = false;
                all.results[i] = result;
            }
            const QMutexLocker lock(&telling);
            if (runs.finished)
                runs.finished(all.databases[i], result);
        }
    };
    std::vector<std::thread> workers;
    for (int i = 0; i < runs.jobs && i < all.databases.size(); ++i)
        workers.emplace_back(work);
    for (std::thread &worker : workers)
        worker.join();

    if (indexAtOnce)
        LastWords::instance().remove(*indexAtOnce);
    if (runs.reportDir)
        writeIndex(runs, all);
    return all;
}
