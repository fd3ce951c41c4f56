#include "databaserun.h"

#include "commandrunhost.h"
#include "mdzrt.h"
#include "runplan.h"

#include <QElapsedTimer>

DatabaseRunResult runDatabase(const DatabaseRun &run, CommandContext &context)
{
    QElapsedTimer timer;
    timer.start();
    mdZRT module(run.connections, run.server);
    CommandRunHost host(context, run.createAt, run.report, run.mask, run.showProgress, run.stop);
    CheckRecordsets recordsets;
    DatabaseRunResult result;
    result.end = MaintenanceRun(module, host, recordsets).run({run.mode, run.server, run.database}, maintenanceSteps());
    result.tally = host.tally();
    result.seconds = double(timer.nsecsElapsed()) / 1e9;
    return result;
}
