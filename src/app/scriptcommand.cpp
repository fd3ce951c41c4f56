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
    if (!file.open(parser.value(QStringLiteral("output"))) || file.device()->write(script) != script.size() || !file.commit()) {
        context.err << "zrt script: cannot write --output " << escapedControls(file.name()) << ": "
                    << escapedControls(file.errorString()) << "\n";
        return kExitUsage;
    }
    return kExitOk;
}
