// Fleets on loopback listeners that take 2 ms to answer each statement,
// through the real ODBC driver.
//
//   zrt_fleetbench                      16 databases on one listener at 1, 2, 4,
//                                       8 and 16 jobs: seconds and speed-up (meant
//                                       to be at least 6 at 8 jobs)
//   zrt_fleetbench fleet N JOBS [CAPS]  N databases over 4 listeners, at JOBS at
//                                       once, each server at most its CAPS (say
//                                       "4,0,0,0"; 0: no cap of its own)
//   zrt_fleetbench merge FOLDERS EACH   zrt merge of FOLDERS folders of EACH databases
//
// The listeners of a fleet run in a child process, so the time, processor
// and peak memory printed are the program's own.
#include "allruns.h"
#include "fleetfolder.h"
#include "fleetindex.h"
#include "fleetmerge.h"
#include "odbcconnection.h"
#include "tdslistener.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QTemporaryDir>
#include <QTextStream>

#include <csignal>
#include <memory>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr std::chrono::milliseconds kStatementTime{2};
constexpr int kListeners = 4;
const QString kListing = QStringLiteral("Select name From sys.databases");

QStringList databaseNames(int count, int first = 1)
{
    QStringList names;
    for (int i = first; i < first + count; ++i)
        names << QStringLiteral("Quorvex%1").arg(i, 4, 10, QLatin1Char('0'));
    return names;
}

double processorSeconds(const rusage &usage)
{
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) + double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

// "seconds wall, seconds of processor since `since`, MiB at most" of this process.
QString ownCost(double seconds, const rusage &since = {})
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const double processor = processorSeconds(usage) - processorSeconds(since);
    return QStringLiteral("%1 s wall, %2 s processor, %3 MiB peak")
        .arg(seconds, 0, 'f', 1)
        .arg(processor, 0, 'f', 1)
        .arg(double(usage.ru_maxrss) / 1024, 0, 'f', 1);
}

int sixteen(QTextStream &out)
{
    const int kDatabases = 16;
    TdsListener server({.rows = {{kListing, databaseNames(kDatabases)}}, .batchTime = kStatementTime});
    double alone = 0;
    out << QStringLiteral("%1 databases, %2 ms a statement\njobs  seconds  speed-up  statements\n")
               .arg(kDatabases)
               .arg(kStatementTime.count());
    for (const int jobs : {1, 2, 4, 8, 16}) {
        AllRuns runs;
        runs.command = QStringLiteral("run");
        runs.servers = {FleetServer{.server = server.dataSource(), .mode = QStringLiteral("LOCAL"),
                                    .connections = sqlServerConnections()}};
        runs.limits.jobs = jobs;
        QElapsedTimer timer;
        timer.start();
        const AllRunsResult all = runAllDatabases(runs);
        const double seconds = double(timer.nsecsElapsed()) / 1e9;
        if (jobs == 1)
            alone = seconds;
        int sent = 0;
        for (const std::optional<DatabaseRunResult> &result : all.results)
            sent += result && outcomeOf(result) == RunOutcome::Completed ? result->tally.sent() : 0;
        out << QStringLiteral("%1  %2  %3  %4\n").arg(jobs, 4).arg(seconds, 7, 'f', 2).arg(alone / seconds, 8, 'f', 1).arg(sent, 10);
        out.flush();
    }
    return 0;
}

// Serves the listeners in a child process until it is ended; their ports,
// one a line, on `ports`.
pid_t serveListeners(int databases, FILE *&ports)
{
    int toParent[2];
    if (::pipe(toParent) != 0)
        return -1;
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(toParent[0]);
        std::vector<std::unique_ptr<TdsListener>> listeners;
        const int each = databases / kListeners;
        for (int i = 0; i < kListeners; ++i)
            listeners.push_back(std::make_unique<TdsListener>(TdsListener::Script{
                .rows = {{kListing, databaseNames(i + 1 == kListeners ? databases - i * each : each, 1 + i * each)}},
                .batchTime = kStatementTime,
                .keepsBatches = false}));
        QByteArray text;
        for (const auto &listener : listeners)
            text += listener->dataSource().toUtf8() + '\n';
        [[maybe_unused]] const ssize_t written = ::write(toParent[1], text.constData(), size_t(text.size()));
        ::close(toParent[1]);
        for (;;)
            ::pause();
    }
    ::close(toParent[1]);
    ports = ::fdopen(toParent[0], "r");
    return child;
}

int fleet(int databases, int jobs, const QStringList &caps, QTextStream &out)
{
    FILE *ports = nullptr;
    const pid_t child = serveListeners(databases, ports);
    if (child < 0)
        return 1;
    AllRuns runs;
    runs.command = QStringLiteral("run");
    runs.limits.jobs = jobs;
    char line[64];
    for (int i = 0; i < kListeners && std::fgets(line, sizeof line, ports); ++i)
        runs.servers << FleetServer{.server = QString::fromLatin1(line).trimmed(), .mode = QStringLiteral("LOCAL"),
                                    .connections = sqlServerConnections(), .jobs = caps.value(i).toInt()};
    QElapsedTimer timer;
    timer.start();
    const AllRunsResult all = runAllDatabases(runs);
    const double seconds = double(timer.nsecsElapsed()) / 1e9;
    int completed = 0;
    qint64 sent = 0;
    for (const std::optional<DatabaseRunResult> &result : all.results) {
        completed += outcomeOf(result) == RunOutcome::Completed ? 1 : 0;
        sent += result ? result->tally.sent() : 0;
    }
    out << QStringLiteral("%1 databases over %2 listeners, jobs %3, caps %4: %5 completed, %6 statements; %7\n")
               .arg(databases)
               .arg(kListeners)
               .arg(jobs)
               .arg(caps.isEmpty() ? QStringLiteral("none") : caps.join(QLatin1Char(',')))
               .arg(completed)
               .arg(sent)
               .arg(ownCost(seconds));
    std::fclose(ports);
    ::kill(child, SIGTERM);
    ::waitpid(child, nullptr, 0);
    return completed == databases ? 0 : 1;
}

// Folders as shards of a real fleet leave them: each database's entry and a
// report of a whole run (one real run's, copied), then their merge.
int merge(int folders, int each, QTextStream &out)
{
    QTemporaryDir dir;
    TdsListener server({.rows = {{kListing, databaseNames(1)}}});
    AllRuns runs;
    runs.command = QStringLiteral("run");
    runs.servers = {FleetServer{.server = server.dataSource(), .mode = QStringLiteral("LOCAL"), .connections = sqlServerConnections()}};
    runs.folder = makeInvocationFolder(dir.path(), QStringLiteral("run")).path;
    const AllRunsResult one = runAllDatabases(runs);
    const QJsonObject entry = one.index.value(QLatin1String("databases"))[0].toObject();
    const QString report = QDir(*runs.folder).filePath(entry.value(QLatin1String("report")).toString());
    QStringList parts;
    for (int part = 0; part < folders; ++part) {
        parts << QDir(dir.path()).filePath(QStringLiteral("part%1").arg(part + 1));
        QDir().mkpath(parts.last());
        QJsonObject index = one.index;
        QJsonArray databases;
        for (const QString &name : databaseNames(each, 1 + part * each)) {
            QJsonObject copy = entry;
            copy.insert(QStringLiteral("database"), name);
            copy.insert(QStringLiteral("report"), name + QLatin1String(".jsonl"));
            QFile::copy(report, QDir(parts.last()).filePath(name + QLatin1String(".jsonl")));
            databases.append(copy);
        }
        index.insert(QStringLiteral("databases"), databases);
        index.insert(QStringLiteral("shard"), QJsonObject{{QStringLiteral("part"), part + 1}, {QStringLiteral("parts"), folders}});
        QStringList errors;
        writeFleetIndex(parts.last(), index, errors);
    }
    rusage before{};
    ::getrusage(RUSAGE_SELF, &before);
    QElapsedTimer timer;
    timer.start();
    QStringList errors;
    const QJsonObject merged = writeMerged(readMergeParts(parts), makeInvocationFolder(dir.path(), QStringLiteral("merge")).path, errors);
    out << QStringLiteral("merge of %1 folders of %2 databases (reports of %3 KiB each): %4 databases, %5 errors; %6 "
                          "(peak before the merge: %7 MiB)\n")
               .arg(folders)
               .arg(each)
               .arg(QFileInfo(report).size() / 1024)
               .arg(merged.value(QLatin1String("databases")).toArray().size())
               .arg(errors.size())
               .arg(ownCost(double(timer.nsecsElapsed()) / 1e9, before))
               .arg(double(before.ru_maxrss) / 1024, 0, 'f', 1);
    return errors.isEmpty() ? 0 : 1;
}

} // namespace

int main(int argc, char *argv[])
{
    // Listeners are forked before any thread of Qt's starts.
    const QStringList arguments = [&] {
        QStringList list;
        for (int i = 1; i < argc; ++i)
            list << QString::fromLocal8Bit(argv[i]);
        return list;
    }();
    QTextStream out(stdout);
    if (arguments.value(0) == QLatin1String("fleet"))
        return fleet(arguments.value(1).toInt(), arguments.value(2).toInt(),
                     arguments.value(3).split(QLatin1Char(','), Qt::SkipEmptyParts), out);
    QCoreApplication application(argc, argv);
    if (arguments.value(0) == QLatin1String("merge"))
        return merge(arguments.value(1).toInt(), arguments.value(2).toInt(), out);
    return sixteen(out);
}
