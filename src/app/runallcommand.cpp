#include "runallcommand.h"

#include "commandoptions.h"
#include "databaselisting.h"
#include "exitstatus.h"
#include "fleetindex.h"
#include "outputfile.h"
#include "printabletext.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

QString finishedLine(const QString &database, const DatabaseRunResult &result)
{
    const RunOutcome outcome = outcomeOf(result);
    const QString start = QStringLiteral("%1  %2  ").arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss")),
                                                        escapedControls(database).leftJustified(30));
    if (outcome == RunOutcome::CouldNotStart)
        return start + QLatin1String("could not start: ") + escapedControls(result.reason) + QLatin1Char('\n');
    return start
        + QStringLiteral("%1 %2 sent %3 failed %4 columns %5 s\n")
              .arg(outcomeName(outcome), -24)
              .arg(result.tally.sent(), 4)
              .arg(result.tally.unexpected(), 4)
              .arg(result.tally.columnsAdded(), 4)
              .arg(result.seconds, 6, 'f', 1);
}

QString totalsLine(const AllRunsResult &all)
{
    const FleetTotals totals = fleetTotals(all);
    QStringList outcomes;
    for (int outcome = 0; outcome <= int(RunOutcome::NotDone); ++outcome) {
        if (totals.byOutcome[outcome] > 0)
            outcomes << QStringLiteral("%1 %2").arg(totals.byOutcome[outcome]).arg(outcomeName(RunOutcome(outcome)));
    }
    return QStringLiteral("%1 databases: %2; %3 statements sent, %4 failed unexpectedly or timed out\n")
        .arg(all.databases.size())
        .arg(outcomes.isEmpty() ? QStringLiteral("none") : outcomes.join(QLatin1String(", ")))
        .arg(totals.sent)
        .arg(totals.unexpected);
}

int allExitStatus(const AllRunsResult &all)
{
    int status = kExitOk;
    bool lost = !all.indexErrors.isEmpty();
    for (const std::optional<DatabaseRunResult> &result : all.results) {
        status = moreSerious(status, exitStatusOf(result));
        lost = lost || (result && !result->reportError.isEmpty());
    }
    return withLostReport(status, lost);
}

} // namespace

int runAllCommand(const QCommandLineParser &parser, const QString &mode, bool preview, CommandContext &context)
{
    const QString command = preview ? QStringLiteral("zrt plan: ") : QStringLiteral("zrt run: ");
    const std::optional<int> statementSeconds =
        checkedStatementSeconds(parser, preview ? QStringLiteral("plan") : QStringLiteral("run"), context);
    if (!statementSeconds)
        return kExitUsage;
    AllRuns runs{mode, parser.value(QStringLiteral("server")), context.sqlServer(*statementSeconds)};
    runs.preview = preview;
    runs.stop = context.stop;
    if (parser.isSet(QStringLiteral("jobs"))) {
        bool ok = false;
        runs.jobs = parser.value(QStringLiteral("jobs")).toInt(&ok);
        if (!ok || runs.jobs < 1) {
            context.err << command << "--jobs needs a whole number from 1 up, not '"
                        << escapedControls(parser.value(QStringLiteral("jobs"))) << "'\n";
            return kExitUsage;
        }
    }
    if (parser.isSet(QStringLiteral("report-dir"))) {
        runs.reportDir = parser.value(QStringLiteral("report-dir"));
        if (const QString refusal = outputFolderRefusal(*runs.reportDir); !refusal.isEmpty()) {
            context.err << command << "--report-dir: " << escapedControls(refusal) << "\n";
            return kExitUsage;
        }
    }
    const bool json = parser.isSet(QStringLiteral("json"));
    if (!json) {
        context.out << headerLine(preview ? QStringLiteral("plan --all") : QStringLiteral("run --all"), QStringLiteral("server %1, mode %2").arg(runs.server, mode),
                                  QDateTime::currentDateTime());
        context.out.flush();
        runs.finished = [&context, command](const QString &database, const DatabaseRunResult &result) {
            context.out << finishedLine(database, result);
            context.out.flush();
            if (!result.reportError.isEmpty())
                context.err << command << escapedControls(result.reportError) << "\n";
        };
    }
    const AllRunsResult all = runAllDatabases(runs);
    if (all.listing.failed()) {
        const QString error = listingFailureText(all.listing, QLatin1String("server ") + runs.server);
        if (json)
            context.out << QJsonDocument(QJsonObject{{QStringLiteral("error"), error},
                                                     {QStringLiteral("exit"), kExitNothingDone}})
                               .toJson(QJsonDocument::Compact)
                        << "\n";
        else
            context.err << command << escapedControls(error) << "\n";
        return kExitNothingDone;
    }
    const int status = allExitStatus(all);
    if (json) {
        QJsonObject index = fleetIndex(runs, all);
        index.insert(QStringLiteral("exit"), status);
        if (!all.indexErrors.isEmpty())
            index.insert(QStringLiteral("errors"), QJsonArray::fromStringList(all.indexErrors));
        context.out << QJsonDocument(index).toJson(QJsonDocument::Compact) << "\n";
        return status;
    }
    QStringList notDone;
    for (qsizetype i = 0; i < all.databases.size(); ++i) {
        if (!all.results[i])
            notDone << escapedControls(all.databases[i]);
    }
    if (!notDone.isEmpty())
        context.out << "Not done: " << notDone.join(QLatin1String(", ")) << "\n";
    context.out << totalsLine(all);
    for (const QString &error : all.indexErrors)
        context.err << command << escapedControls(error) << "\n";
    return status;
}
