#include "runcommand.h"

#include "commandoptions.h"
#include "exitstatus.h"
#include "fleetoptions.h"
#include "outputfile.h"
#include "printabletext.h"
#include "reportline.h"
#include "runallcommand.h"
#include "runplan.h"
#include "statementresult.h"
#include "terminalcolour.h"

#include <QJsonDocument>
#include <QFileInfo>

namespace {

// What `run` and `plan` share but their names and whether they roll back.
struct Command
{
    QString name;
    bool preview;
};

// A bar on the terminal, redrawn in place, with the phase under way.
void drawProgress(QTextStream &err, std::optional<Phase> phase, int value, int maximum)
{
    constexpr int kBarWidth = 40;
    if (maximum <= 0)
        return;
    const int filled = kBarWidth * value / maximum;
    const QString done = QStringLiteral("%1%").arg(100 * value / maximum);
    // Padded over the longest phase's name, which a shorter one replaces.
    err << "\r[" << QString(filled, QLatin1Char('#')) << QString(kBarWidth - filled, QLatin1Char(' ')) << "] "
        << (phase ? phaseName(*phase) + QLatin1Char(' ') + done : done).leftJustified(24);
    err.flush();
}

// What follows the outcome's name on the last line.
QString outcomeDetail(const DatabaseRunResult &result, bool reported)
{
    const StatementTally &tally = result.tally;
    const auto stopped = [&result](const char *what) {
        // One arg() for all: the server's words may hold "%1".
        return QStringLiteral("%1 after statement #%2: %3; %4 statements not sent")
            .arg(QLatin1String(what), QString::number(result.stop->afterStatement), escapedControls(result.stop->detail),
                 QString::number(result.notSent));
    };
    switch (outcomeOf(result)) {
    case RunOutcome::Completed:
        return QStringLiteral(": %1 statements, none failed unexpectedly").arg(tally.sent());
    case RunOutcome::CompletedWithFailures:
        return QStringLiteral(": %1 of %2 statements failed unexpectedly, timed out or were blocked").arg(tally.unexpected()).arg(tally.sent());
    case RunOutcome::NothingApplied:
        return QStringLiteral(": none of %1 statements succeeded").arg(tally.sent());
    case RunOutcome::ConnectionLost:
        return stopped("");
    case RunOutcome::PreviewStopped:
        return stopped(", nothing more sent to the database,");
    case RunOutcome::Interrupted:
        return QStringLiteral(" after %1 statements, %2 not sent%3")
            .arg(tally.sent())
            .arg(result.notSent)
            .arg(reported ? QStringLiteral("; the report is kept, marked incomplete") : QString());
    default:
        return QString();
    }
}

// Opens the file an option names, if it is given; checked before anything is
// sent. False, after saying why, when it cannot be written.
bool openNamedFile(std::optional<OutputFile> &file, const QCommandLineParser &parser, const QString &option,
                   const QString &command, CommandContext &context)
{
    if (!parser.isSet(option))
        return true;
    file.emplace();
    if (file->open(parser.value(option)))
        return true;
    context.err << "zrt " << command << ": cannot write --" << option << " " << escapedControls(file->name()) << ": "
                << escapedControls(file->errorString()) << "\n";
    return false;
}

// Why a preview found no database, and what a run would do about it.
QString wouldBeCreated(const DatabaseRun &run, const QString &reason)
{
    if (!run.createAt)
        return QStringLiteral("zrt plan: %1; a run would create it: give --create-at FILEBASE to see how\n")
            .arg(escapedControls(reason));
    return QStringLiteral("zrt plan: %1; a run would create it by: %2\n")
        .arg(escapedControls(reason),
             escapedControls(createDatabaseStatement(QFileInfo(*run.createAt).fileName(), *run.createAt)));
}

int runOne(const QCommandLineParser &parser, const Command &command, CommandContext &context)
{
    const std::optional<DatabaseChoice> choice = checkedDatabaseChoice(parser, command.name, context);
    if (!choice)
        return kExitUsage;
    // Written whole when the run ends, or not at all.
    std::optional<OutputFile> report;
    std::optional<OutputFile> junit;
    if (!openNamedFile(report, parser, QStringLiteral("report"), command.name, context)
        || !openNamedFile(junit, parser, QStringLiteral("junit"), command.name, context))
        return kExitUsage;
    const bool json = parser.isSet(QStringLiteral("json"));
    const bool quiet = parser.isSet(QStringLiteral("quiet"));

    const std::optional<int> statementSeconds = checkedStatementSeconds(parser, command.name, context);
    const std::optional<FleetLockKeys> locks =
        statementSeconds ? checkedLockOptions(parser, command.name, context) : std::nullopt;
    if (!locks)
        return kExitUsage;
    DatabaseRun run{choice->mode, choice->server, choice->database, targetName(parser, choice->mode),
                    chosenConnections(parser, context, *statementSeconds)};
    if (parser.isSet(QStringLiteral("create-at")))
        run.createAt = parser.value(QStringLiteral("create-at"));
    run.report = report ? &*report : nullptr;
    run.junit = junit ? &*junit : nullptr;
    if (context.terminal && !json && !quiet)
        run.progress = [&context](std::optional<Phase> phase, int value, int maximum) {
            drawProgress(context.err, phase, value, maximum);
        };
    run.stop = context.stop;
    run.preview = command.preview;
    run.locks = withLockKeys(LockPolicy{}, *locks);
    run.pause = context.pause;

    const QDateTime started = QDateTime::currentDateTime();
    if (!json) {
        context.out << headerLine(command.name,
                                  QStringLiteral("database '%1', %2, mode %3").arg(run.database, run.target, run.mode),
                                  started);
        context.out.flush();
    }
    const DatabaseRunResult result = runDatabase(run);
    const RunOutcome outcome = outcomeOf(result);
    const int status = withLostReport(exitStatusOf(result), !result.reportError.isEmpty() || !result.junitError.isEmpty());
    if (json) {
        QJsonObject document =
            merged(merged(jsonDocument(QStringLiteral("run")), runContext(run, result.started)), runJson(result));
        document.insert(QStringLiteral("exit"), status);
        context.out << QJsonDocument(document).toJson(QJsonDocument::Compact) << "\n";
        return status;
    }
    if (run.progress)
        context.err << "\n";
    if (!result.lockNote.isEmpty()) // under the header: nothing else was printed there during the run
        context.out << "zrt " << command.name << ": " << escapedControls(result.lockNote) << "\n";
    const bool missing = result.openFailure == OpenFailure::DatabaseMissing;
    if (outcome == RunOutcome::CouldNotStart && command.preview && missing) {
        context.err << wouldBeCreated(run, result.reason);
    } else if (outcome == RunOutcome::CouldNotStart || outcome == RunOutcome::Busy) {
        context.err << "zrt " << command.name << ": " << tinted(outcomeName(outcome), outcomeTint(outcome), context.terminal)
                    << ": " << escapedControls(result.reason)
                    << (missing && !run.createAt ? "; give --create-at FILEBASE to create it" : "")
                    << (outcome == RunOutcome::Busy ? "; nothing was sent: run it again once that run has ended" : "")
                    << "\n";
    } else {
        if (!quiet && result.preview)
            context.out << result.preview->lines(result.tally).join(QLatin1Char('\n')) << "\n";
        if (!quiet)
            context.out << result.tally.summary(parser.isSet(QStringLiteral("verbose")), run.report);
        // What the preview saw is what a run would do, up to where a preview stops.
        const bool wouldEnd = command.preview && !result.stop;
        context.out << (wouldEnd ? QLatin1String("a run would end ") : QLatin1String(""))
                    << tinted(outcomeName(outcome), outcomeTint(outcome), context.outTerminal)
                    << outcomeDetail(result, run.report) << "\n";
    }
    for (const QString &error : {result.reportError, result.junitError}) {
        if (!error.isEmpty())
            context.err << "zrt " << command.name << ": " << escapedControls(error) << "\n";
    }
    return status;
}

int maintenanceCommand(const Command &command, const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    if (const std::optional<int> exit = parseOptions(parser, command.name, arguments, context))
        return *exit;
    if (namesAFleet(parser))
        return runAllCommand(parser, command.preview, context);
    return runOne(parser, command, context);
}

} // namespace

int runCommand(const QStringList &arguments, CommandContext &context)
{
    return maintenanceCommand({QStringLiteral("run"), false}, arguments, context);
}

int planCommand(const QStringList &arguments, CommandContext &context)
{
    return maintenanceCommand({QStringLiteral("plan"), true}, arguments, context);
}
