#include "scriptcommand.h"

#include "commandoptions.h"
#include "emptydatabasescript.h"
#include "runplan.h"

#include <QSaveFile>

int scriptCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    const QCommandLineOption output(QStringLiteral("output"), QStringLiteral("Write to FILE instead of the standard output."),
                                    QStringLiteral("FILE"));
    parser.addOption(output);
    if (const std::optional<int> exit = parseOptions(
            parser, QStringLiteral("script"),
            QStringLiteral("zrt script [--output FILE]\n\nWrites every statement that a run sends to an existing, "
                           "empty database, in run order, each followed by a line holding only GO."),
            arguments, context))
        return *exit;

    const QByteArray script = scriptText(statementsForEmptyDatabase(maintenanceSteps()));
    if (!parser.isSet(output)) {
        context.out << QString::fromUtf8(script);
        return kExitOk;
    }
    // Written whole or not at all.
    QSaveFile file(parser.value(output));
    if (!file.open(QIODevice::WriteOnly) || file.write(script) != script.size() || !file.commit()) {
        context.err << "zrt script: cannot write " << parser.value(output) << ": " << file.errorString() << "\n";
        return kExitUsage;
    }
    return kExitOk;
}
