// Times a whole run against the SQLite ODBC driver, and the same statements
// sent through bare ODBC calls in the same process, each on a fresh scratch
// file; prints both medians and their ratio.
#include "maintenancerun.h"
#include "mdzrt.h"
#include "odbcconnection.h"
#include "plainodbc.h"
#include "runplan.h"

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

qint64 median(QList<qint64> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTemporaryDir dir;
    const Steps steps = maintenanceSteps();
    QList<qint64> tool;
    QList<qint64> plain;
    qsizetype statements = 0;
    for (int round = 0; round < kRounds; ++round) {
        const auto scratch = [&](const char *name) {
            return QStringLiteral("DRIVER={SQLite3};Database=%1;LoadExt=%2")
                .arg(dir.filePath(QStringLiteral("%1-%2.db").arg(QLatin1String(name)).arg(round)),
                     QStringLiteral(ZRT_SQLITE_DBO));
        };
        mdZRT module(odbcConnectionsTo(scratch("tool")));
        RecordingHost host;
        CheckRecordsets recordsets;
        QElapsedTimer timer;
        timer.start();
        MaintenanceRun(module, host, recordsets).run({QStringLiteral("LOCAL"), QString(), QStringLiteral("bench")}, steps);
        tool << timer.nsecsElapsed();
        const qint64 bare = sendThroughPlainOdbc(scratch("plain"), host.statements);
        if (bare < 0) {
            out << "cannot open the SQLite ODBC driver\n";
            return 1;
        }
        plain << bare;
        statements = host.statements.size();
    }
    const double toolMs = median(tool) / 1e6;
    const double plainMs = median(plain) / 1e6;
    out << QStringLiteral("statements per run: %1\n").arg(statements);
    out << QStringLiteral("tool run:        %1 ms (median of %2)\n").arg(toolMs, 0, 'f', 1).arg(kRounds);
    out << QStringLiteral("plain ODBC calls: %1 ms\n").arg(plainMs, 0, 'f', 1);
    out << QStringLiteral("ratio:           %1\n").arg(toolMs / plainMs, 0, 'f', 3);
    return 0;
}
