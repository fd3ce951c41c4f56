#include "checkcommand.h"

#include "commandoptions.h"
#include "databasecheck.h"
#include "databaselisting.h"
#include "exitstatus.h"
#include "printabletext.h"
#include "reportline.h"
#include "terminalcolour.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString columnName(const ColumnFinding &finding)
{
    return finding.table + QLatin1Char('.') + finding.column;
}

void printGroup(QTextStream &out, const char *title, const QStringList &lines)
{
    if (lines.isEmpty())
        return;
    out << title << ":\n";
    for (const QString &line : lines)
        out << "  " << escapedControls(line) << "\n";
}

QString differencesText(const SchemaDrift &drift)
{
    const qsizetype differences = drift.differences();
    if (differences == 0)
        return QStringLiteral("matches");
    return QStringLiteral("%1 %2").arg(differences).arg(differences == 1 ? "difference" : "differences");
}

void printReport(QTextStream &out, const SchemaDrift &drift, bool terminal)
{
    QStringList missingColumns;
    for (const ColumnFinding &finding : drift.missingColumns)
        missingColumns << columnName(finding) + QLatin1Char(' ') + finding.expected;
    QStringList differingColumns;
    for (const ColumnFinding &finding : drift.differingColumns)
        differingColumns << columnName(finding) + QLatin1Char(' ') + finding.found + QLatin1String(", expected ")
                + finding.expected;
    QStringList notInstallable;
    for (const UninstallableView &view : drift.uninstallableViews)
        notInstallable << view.view + QLatin1String(" (source table missing: ") + view.missingTables.join(QLatin1String(", "))
                + QLatin1Char(')');
    QStringList leftAlone;
    for (const QString &table : drift.extraTables)
        leftAlone << QLatin1String("table ") + table;
    for (const ColumnFinding &finding : drift.extraColumns)
        leftAlone << QLatin1String("column ") + columnName(finding) + QLatin1Char(' ') + finding.found;
    for (const QString &view : drift.extraViews)
        leftAlone << QLatin1String("view ") + view;

    printGroup(out, "Missing tables", drift.missingTables);
    printGroup(out, "Missing columns", missingColumns);
    printGroup(out, "Columns of another type or width", differingColumns);
    printGroup(out, "Missing views", drift.missingViews);
    printGroup(out, "Not installable here", notInstallable);
    printGroup(out, "Left alone", leftAlone);
    out << tinted(differencesText(drift), drift.differences() == 0 ? Tint::Green : Tint::Yellow, terminal) << "\n";
}

QJsonArray columnsJson(const QList<ColumnFinding> &findings)
{
    QJsonArray array;
    for (const ColumnFinding &finding : findings) {
        QJsonObject object{{QStringLiteral("table"), finding.table}, {QStringLiteral("column"), finding.column}};
        if (!finding.expected.isEmpty())
            object.insert(QStringLiteral("expected"), finding.expected);
        if (!finding.found.isEmpty())
            object.insert(QStringLiteral("found"), finding.found);
        array.append(object);
    }
    return array;
}

int exitStatus(const DatabaseCheckResult &result)
{
    if (!result.drift)
        return kExitNothingDone;
    return result.drift->differences() == 0 ? kExitOk : kExitDiffers;
}

QJsonObject checkJson(const QString &database, const DatabaseCheckResult &result)
{
    QJsonObject json{{QStringLiteral("database"), database}, {QStringLiteral("exit"), exitStatus(result)}};
    if (!result.drift) {
        json.insert(QStringLiteral("error"), result.error);
        return json;
    }
    const SchemaDrift &drift = *result.drift;
    QJsonArray notInstallable;
    for (const UninstallableView &view : drift.uninstallableViews)
        notInstallable.append(QJsonObject{{QStringLiteral("view"), view.view},
                                          {QStringLiteral("missingTables"), QJsonArray::fromStringList(view.missingTables)}});
    json.insert(QStringLiteral("matches"), drift.differences() == 0);
    json.insert(QStringLiteral("differences"), qint64(drift.differences()));
    json.insert(QStringLiteral("missingTables"), QJsonArray::fromStringList(drift.missingTables));
    json.insert(QStringLiteral("missingColumns"), columnsJson(drift.missingColumns));
    json.insert(QStringLiteral("differingColumns"), columnsJson(drift.differingColumns));
    json.insert(QStringLiteral("missingViews"), QJsonArray::fromStringList(drift.missingViews));
    json.insert(QStringLiteral("notInstallableViews"), notInstallable);
    json.insert(QStringLiteral("extraTables"), QJsonArray::fromStringList(drift.extraTables));
    json.insert(QStringLiteral("extraColumns"), columnsJson(drift.extraColumns));
    json.insert(QStringLiteral("extraViews"), QJsonArray::fromStringList(drift.extraViews));
    return json;
}

void printJson(QTextStream &out, const QJsonObject &object)
{
    out << QJsonDocument(object).toJson(QJsonDocument::Compact) << "\n";
}

int checkOne(const QCommandLineParser &parser, bool json, CommandContext &context)
{
    const std::optional<DatabaseChoice> choice = checkedDatabaseChoice(parser, QStringLiteral("check"), context);
    if (!choice)
        return kExitUsage;
    if (!json)
        context.out << headerLine(QStringLiteral("check"),
                                  QStringLiteral("database '%1', %2, mode %3").arg(choice->database, targetName(parser), choice->mode),
                                  QDateTime::currentDateTime());
    const DatabaseCheckResult result = checkDatabase(choice->mode, choice->server, choice->database,
                                                     targetName(parser), chosenConnections(parser, context));
    if (json)
        printJson(context.out, merged(jsonDocument(QStringLiteral("check")), checkJson(choice->database, result)));
    else if (result.drift)
        printReport(context.out, *result.drift, context.outTerminal);
    else
        context.err << "zrt check: " << escapedControls(result.error) << "\n";
    return exitStatus(result);
}

int checkAll(const QCommandLineParser &parser, const QString &mode, bool json, CommandContext &context)
{
    const QString server = parser.value(QStringLiteral("server"));
    if (!json)
        context.out << headerLine(QStringLiteral("check --all"), QStringLiteral("server %1, mode %2").arg(server, mode),
                                  QDateTime::currentDateTime());
    int status = kExitOk;
    int byStatus[kExitNothingDone + 1] = {};
    QJsonArray databases;
    const AllChecksResult all = checkAllDatabases(mode, server, context.sqlServer(kDefaultStatementSeconds), context.stop,
                                                  [&](const QString &database, const DatabaseCheckResult &result) {
        status = moreSerious(status, exitStatus(result));
        ++byStatus[exitStatus(result)];
        databases.append(checkJson(database, result));
        if (json)
            return;
        context.out << escapedControls(database).leftJustified(30) << "  "
                    << (result.drift ? differencesText(*result.drift) : escapedControls(result.error)) << "\n";
        context.out.flush();
    });
    if (all.listing.failed())
        status = kExitNothingDone;
    else if (all.checked < all.databases.size())
        status = kExitInterrupted;
    if (json) {
        QJsonObject document{{QStringLiteral("server"), server}, {QStringLiteral("mode"), mode},
                             {QStringLiteral("databases"), databases}, {QStringLiteral("exit"), status}};
        if (all.listing.failed())
            document.insert(QStringLiteral("error"), listingFailureText(all.listing, QLatin1String("server ") + server));
        printJson(context.out, document);
    } else if (all.listing.failed()) {
        context.err << "zrt check: " << escapedControls(listingFailureText(all.listing, QLatin1String("server ") + server))
                    << "\n";
    } else {
        context.out << QStringLiteral("%1 databases: %2 match, %3 differ, %4 could not be read, %5 not checked\n")
                           .arg(all.databases.size())
                           .arg(byStatus[kExitOk])
                           .arg(byStatus[kExitDiffers])
                           .arg(byStatus[kExitNothingDone])
                           .arg(all.databases.size() - all.checked);
    }
    return status;
}

} // namespace

int checkCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    if (const std::optional<int> exit = parseOptions(parser, QStringLiteral("check"), arguments, context))
        return *exit;
    const bool json = parser.isSet(QStringLiteral("json"));
    if (!parser.isSet(QStringLiteral("all")))
        return checkOne(parser, json, context);
    const std::optional<QString> mode = checkedMode(parser, QStringLiteral("check"), context);
    return mode ? checkAll(parser, *mode, json, context) : kExitUsage;
}
