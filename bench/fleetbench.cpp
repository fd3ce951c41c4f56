// Times a run of a fleet of 16 databases on a loopback listener that takes
// 2 ms to answer each statement, at 1, 2, 4, 8 and 16 databases at once,
// through the real ODBC driver; prints the seconds and the speed-up over one
// at a time. The fleet is meant to run at least 6 times faster at 8 jobs.
#include "allruns.h"
#include "odbcconnection.h"
#include "tdslistener.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTextStream>

namespace {

constexpr int kDatabases = 16;
constexpr std::chrono::milliseconds kStatementTime{2};

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QStringList names;
    for (int i = 1; i <= kDatabases; ++i)
        names << QStringLiteral("Quorvex%1").arg(i, 2, 10, QLatin1Char('0'));
    TdsListener server({.rows = {{QStringLiteral("Select name From sys.databases"), names}}, .batchTime = kStatementTime});
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
        out << QStringLiteral("%1  %2  %3  %4\n")
                   .arg(jobs, 4)
                   .arg(seconds, 7, 'f', 2)
                   .arg(alone / seconds, 8, 'f', 1)
                   .arg(sent, 10);
        out.flush();
    }
    return 0;
}
