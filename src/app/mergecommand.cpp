#include "mergecommand.h"

#include "commandoptions.h"
#include "fleetfolder.h"
#include "fleetmerge.h"
#include "outputfile.h"
#include "printabletext.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

int mergeCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    if (const std::optional<int> exit = parseOptions(parser, QStringLiteral("merge"), arguments, context))
        return *exit;
    const QStringList folders = parser.positionalArguments();
    const MergeParts parts = folders.isEmpty() ? MergeParts{{}, {}, QStringLiteral("missing FOLDER: name the folders to merge")}
                                               : readMergeParts(folders);
    QString error = parts.refusal;
    // Beside the first part unless --report-dir says, as a retry's folder is.
    const QString dir = parser.isSet(QStringLiteral("report-dir")) ? parser.value(QStringLiteral("report-dir"))
                                                                   : QFileInfo(QDir(folders.value(0)).absolutePath()).path();
    if (error.isEmpty()) {
        if (const QString refusal = outputFolderRefusal(dir); !refusal.isEmpty())
            error = QLatin1String("--report-dir: ") + refusal;
    }
    InvocationFolder folder;
    if (error.isEmpty()) {
        folder = makeInvocationFolder(dir, QStringLiteral("merge"));
        error = folder.error;
    }
    if (!error.isEmpty()) {
        context.err << "zrt merge: " << escapedControls(error) << "\n";
        return kExitUsage;
    }
    QStringList errors;
    const QJsonObject index = writeMerged(parts, folder.path, errors);
    QStringList counts;
    for (const QJsonValue &count : index.value(QLatin1String("totals"))[QLatin1String("byOutcome")].toArray())
        counts << QStringLiteral("%1 %2").arg(count[QLatin1String("databases")].toInt()).arg(count[QLatin1String("outcome")].toString());
    context.out << "Merged " << folders.size() << " folders into " << escapedControls(folder.path) << "\n"
                << index.value(QLatin1String("totals"))[QLatin1String("databases")].toInt() << " databases: "
                << (counts.isEmpty() ? QStringLiteral("none") : counts.join(QLatin1String(", ")))
                << (index.value(QLatin1String("complete")).toBool() ? "" : "; incomplete") << "\n";
    for (const QString &lost : errors)
        context.err << "zrt merge: " << escapedControls(lost) << "\n";
    return errors.isEmpty() ? kExitOk : kExitFailures;
}
