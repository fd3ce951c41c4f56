#include "listcommand.h"

#include "commandoptions.h"
#include "databaselisting.h"
#include "printabletext.h"
#include "reportline.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

int listCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    if (const std::optional<int> exit = parseOptions(parser, QStringLiteral("list"), arguments, context))
        return *exit;
    const std::optional<QString> mode = checkedMode(parser, QStringLiteral("list"), context);
    if (!mode)
        return kExitUsage;
    const QString server = parser.value(QStringLiteral("server"));

    const bool json = parser.isSet(QStringLiteral("json"));
    QStringList names;
    const ListingOutcome outcome = listDatabases(*mode, server, context.sqlServer(kDefaultStatementSeconds), [&](const QString &name) {
        names << name;
        if (!json)
            context.out << escapedControls(name) << "\n";
    });
    const int status = outcome.failed() ? kExitNothingDone : kExitOk;
    const QString error = outcome.failed() ? listingFailureText(outcome, QLatin1String("server ") + server) : QString();
    if (json) {
        QJsonObject document = merged(jsonDocument(QStringLiteral("list")),
                                      {{QStringLiteral("mode"), *mode},
                                       {QStringLiteral("server"), server},
                                       {QStringLiteral("databases"), QJsonArray::fromStringList(names)},
                                       {QStringLiteral("exit"), status}});
        if (outcome.failed())
            document.insert(QStringLiteral("error"), error);
        context.out << QJsonDocument(document).toJson(QJsonDocument::Compact) << "\n";
    } else if (outcome.failed()) {
        context.err << "zrt list: " << escapedControls(error) << "\n";
    }
    return status;
}
