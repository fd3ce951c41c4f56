#include "listcommand.h"

#include "commandoptions.h"
#include "databaselisting.h"
#include "printabletext.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

int listCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("mode"), QStringLiteral("OFFLINE, LOCAL or ONLINE."), QStringLiteral("MODE")});
    parser.addOption({QStringLiteral("server"), QStringLiteral("The server to list."), QStringLiteral("NAME")});
    parser.addOption({QStringLiteral("json"), QStringLiteral("Print one JSON document instead of one name a line.")});
    if (const std::optional<int> exit = parseOptions(
            parser, QStringLiteral("list"),
            QStringLiteral("zrt list --mode MODE --server NAME [--json]\n\nPrints the Quorvex databases of the server, "
                           "one per line, as the window lists them. Exit 4 when the server cannot be reached."),
            arguments, context))
        return *exit;
    const std::optional<QString> mode = checkedMode(parser, context);
    const std::optional<QString> server = requiredValue(parser, QStringLiteral("server"), context);
    if (!mode || !server || !checkedServer(parser, QStringLiteral("list"), context))
        return kExitUsage;

    const bool json = parser.isSet(QStringLiteral("json"));
    QStringList names;
    const ListingOutcome outcome = listDatabases(*mode, *server, context.sqlServer(kDefaultStatementSeconds), [&](const QString &name) {
        names << name;
        if (!json)
            context.out << escapedControls(name) << "\n";
    });
    const int status = outcome.failed() ? kExitNothingDone : kExitOk;
    const QString error = outcome.failed() ? listingFailureText(outcome, QLatin1String("server ") + *server) : QString();
    if (json) {
        QJsonObject document{{QStringLiteral("mode"), *mode},
                             {QStringLiteral("server"), *server},
                             {QStringLiteral("databases"), QJsonArray::fromStringList(names)},
                             {QStringLiteral("exit"), status}};
        if (outcome.failed())
            document.insert(QStringLiteral("error"), error);
        context.out << QJsonDocument(document).toJson(QJsonDocument::Compact) << "\n";
    } else if (outcome.failed()) {
        context.err << "zrt list: " << escapedControls(error) << "\n";
    }
    return status;
}
