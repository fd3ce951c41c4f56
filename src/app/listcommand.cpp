#include "listcommand.h"

#include "commandoptions.h"
#include "fleetdisplay.h"
#include "fleetoptions.h"
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
    const std::optional<FleetServers> fleet = checkedServers(parser, QStringLiteral("list"), context, kDefaultStatementSeconds);
    if (!fleet)
        return kExitUsage;
    const FleetRecord listed = listFleet(fleet->servers, std::nullopt, context.stop);
    const bool json = parser.isSet(QStringLiteral("json"));
    // With a fleet file each name comes after its server.
    const bool named = parser.isSet(QStringLiteral("fleet"));
    int status = kExitOk;
    QJsonArray servers;
    for (qsizetype i = 0; i < fleet->servers.size(); ++i) {
        const FleetServer &server = fleet->servers[i];
        QStringList names;
        for (const FleetDatabase &database : listed.databases) {
            if (database.server == i)
                names << database.name;
        }
        QJsonObject document{{QStringLiteral("mode"), server.mode},
                             {QStringLiteral("server"), server.server},
                             {QStringLiteral("databases"), QJsonArray::fromStringList(names)}};
        if (!server.odbcEnv.isEmpty())
            document.insert(QStringLiteral("odbcEnv"), server.odbcEnv);
        if (listed.listings[i].failed() || !listed.listings[i].refused.isEmpty())
            status = kExitNothingDone;
        if (listed.listings[i].failed()) {
            document.insert(QStringLiteral("error"), listingFailureText(listed.listings[i], listingTarget(server)));
        }
        servers.append(document);
        for (const QString &name : names) {
            if (!json)
                context.out << (named ? escapedControls(server.server) + QLatin1Char('\t') : QString()) << escapedControls(name)
                            << "\n";
        }
    }
    if (!json) {
        printListingFailures(QStringLiteral("list"), fleet->servers, listed, context);
        return status;
    }
    QJsonObject document = merged(jsonDocument(QStringLiteral("list")),
                                  named ? QJsonObject{{QStringLiteral("servers"), servers}} : servers.first().toObject());
    document.insert(QStringLiteral("exit"), status);
    context.out << QJsonDocument(document).toJson(QJsonDocument::Compact) << "\n";
    return status;
}
