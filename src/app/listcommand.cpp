#include "listcommand.h"

#include "commandoptions.h"
#include "databaselisting.h"

int listCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("mode"), QStringLiteral("OFFLINE, LOCAL or ONLINE."), QStringLiteral("MODE")});
    parser.addOption({QStringLiteral("server"), QStringLiteral("The server to list."), QStringLiteral("NAME")});
    if (const std::optional<int> exit = parseOptions(
            parser, QStringLiteral("list"),
            QStringLiteral("zrt list --mode MODE --server NAME\n\nPrints the Quorvex databases of the server, one per "
                           "line, as the window lists them."),
            arguments, context))
        return *exit;
    const std::optional<QString> mode = checkedMode(parser, context);
    const std::optional<QString> server = requiredValue(parser, QStringLiteral("server"), context);
    if (!mode || !server)
        return kExitUsage;

    const ListingOutcome outcome =
        listDatabases(*mode, *server, context.sqlServer, [&](const QString &name) { context.out << name << "\n"; });
    if (outcome.failed) {
        context.err << kConnectionNotEstablished << "\n";
        return kExitFailed;
    }
    return kExitOk;
}
