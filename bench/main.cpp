// Times a whole run against the SQLite ODBC driver three ways, each on a
// fresh scratch file: as the window sends it, as the command line sends it
// (lock, lock timeout and retry rules in place), and as bare ODBC calls in the
// same process. Then, through the real FreeTDS driver on a loopback listener
// that grants the application lock, the command line's run with and without
// the lock and the lock timeout. Prints the medians; exits 1 when a run could
// not open its database or sent fewer statements than the sequence holds.
#include "databaserun.h"
#include "emptydatabasescript.h"
#include "maintenancerun.h"
#include "mdzrt.h"
#include "odbcconnection.h"
#include "plainodbc.h"
#include "runplan.h"
#include "tdslistener.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>

namespace {

constexpr int kRounds = 7;

class RecordingHost : public HeadlessRunHost
{
public:
    QStringList statements;

    void statementExecuted(const StatementOutcome &outcome) override { statements << outcome.text; }
};

double medianMs(QList<qint64> values)
{
    std::sort(values.begin(), values.end());
    return double(values[values.size() / 2]) / 1e6;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTemporaryDir dir;
    const Steps steps = maintenanceSteps();
    const int sequence = statementCount(steps);
    QList<qint64> window, commandLine, plain, unlocked, locked;
    QStringList faults;
    const auto complete = [&](const QString &what, RunEnd end, int sent) {
        if (end != RunEnd::Completed || sent < sequence)
            faults << QStringLiteral("%1: %2 of %3 statements sent%4")
                          .arg(what)
                          .arg(sent)
                          .arg(sequence)
                          .arg(end == RunEnd::NotOpened ? QStringLiteral(", the database was not opened") : QString());
    };
    TdsListener server;
    for (int round = 0; round < kRounds; ++round) {
        // The run names the file it opens: SQLite's database is its file.
        const auto scratch = [&](const char *name) {
            return dir.filePath(QStringLiteral("%1-%2.db").arg(QLatin1String(name)).arg(round));
        };
        const auto odbc = [](const QString &file) {
            return QStringLiteral("DRIVER={SQLite3};Database=%1;LoadExt=%2").arg(file, QStringLiteral(ZRT_SQLITE_DBO));
        };
        const QString toolFile = scratch("window");
        mdZRT module(odbcConnectionsTo(odbc(toolFile)));
        RecordingHost host;
        CheckRecordsets recordsets;
        QElapsedTimer timer;
        timer.start();
        const RunEnd end = MaintenanceRun(module, host, recordsets).run({QStringLiteral("LOCAL"), QString(), toolFile}, steps);
        window << timer.nsecsElapsed();
        complete(QStringLiteral("window's run"), end, int(host.statements.size()));

        const QString lineFile = scratch("command-line");
        timer.restart();
        const DatabaseRunResult line =
            runDatabase({QStringLiteral("LOCAL"), QString(), lineFile, QStringLiteral("bench"), odbcConnectionsTo(odbc(lineFile))});
        commandLine << timer.nsecsElapsed();
        complete(QStringLiteral("command line's run"), line.end, line.tally.sent());

        const qint64 bare = sendThroughPlainOdbc(odbc(scratch("plain")), host.statements);
        if (bare < 0) {
            out << "cannot open the SQLite ODBC driver\n";
            return 1;
        }
        plain << bare;

        // In turns first, so that neither gains from a warmer cache.
        for (const bool withLocks : {round % 2 == 0, round % 2 != 0}) {
            DatabaseRun run{QStringLiteral("LOCAL"), server.dataSource(), QStringLiteral("QuorvexBench"),
                            QStringLiteral("bench"), sqlServerConnections()};
            if (!withLocks)
                run.locks.reset();
            timer.restart();
            const DatabaseRunResult result = runDatabase(run);
            (withLocks ? locked : unlocked) << timer.nsecsElapsed();
            complete(withLocks ? QStringLiteral("listener, locks") : QStringLiteral("listener, no locks"), result.end,
                     result.tally.sent());
        }
    }
    const qsizetype batches = server.received().batches.size();
    out << QStringLiteral("statements per run: %1\n").arg(sequence);
    out << QStringLiteral("SQLite, median of %1 rounds:\n").arg(kRounds);
    out << QStringLiteral("  window's run:          %1 ms\n").arg(medianMs(window), 0, 'f', 1);
    out << QStringLiteral("  command line's run:    %1 ms\n").arg(medianMs(commandLine), 0, 'f', 1);
    out << QStringLiteral("  plain ODBC calls:      %1 ms\n").arg(medianMs(plain), 0, 'f', 1);
    out << QStringLiteral("  ratio window/plain:    %1\n").arg(medianMs(window) / medianMs(plain), 0, 'f', 3);
    out << QStringLiteral("FreeTDS on a loopback listener (%1 batches in all):\n").arg(batches);
    out << QStringLiteral("  no lock, no timeout:   %1 ms\n").arg(medianMs(unlocked), 0, 'f', 1);
    out << QStringLiteral("  lock and lock timeout: %1 ms\n").arg(medianMs(locked), 0, 'f', 1);
    out << QStringLiteral("  ratio:                 %1\n").arg(medianMs(locked) / medianMs(unlocked), 0, 'f', 3);
    for (const QString &fault : faults)
        out << "zrt_bench: " << fault << "\n";
    return faults.isEmpty() ? 0 : 1;
}
