#include "scriptcommand.h"

#include "commandoptions.h"
#include "emptydatabasescript.h"
#include "outputfile.h"
#include "printabletext.h"
#include "runplan.h"


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
    OutputFile file;
    if (!file.open(parser.value(output))) {
        context.err << "zrt script: cannot write --output " << escapedControls(file.name()) << ": "
                    << escapedControls(file.errorString()) << "\n";
        return kExitUsage;
    }
    if (!file.write(script) || !file.commit()) {
        context.err << "zrt script: cannot write " << escapedControls(file.name()) << ": "
                    << escapedControls(file.errorString()) << "\n";
        return kExitFailures;
    }
    return kExitOk;
}
