#include "scriptcommand.h"

#include "commandoptions.h"
#include "emptydatabasescript.h"
#include "outputfile.h"
#include "printabletext.h"
#include "runplan.h"


int scriptCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    if (const std::optional<int> exit = parseOptions(parser, QStringLiteral("script"), arguments, context))
        return *exit;

    const QByteArray script = scriptText(statementsForEmptyDatabase(maintenanceSteps()));
    if (!parser.isSet(QStringLiteral("output"))) {
        context.out << QString::fromUtf8(script);
        return kExitOk;
    }
    OutputFile file;
    if (!file.open(parser.value(QStringLiteral("output")))) {
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
