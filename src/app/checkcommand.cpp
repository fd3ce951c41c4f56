#include "checkcommand.h"

#include "commandoptions.h"
#include "connectionprofiles.h"
#include "mdzrt.h"
#include "schemadrift.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr char kDescription[] =
    "zrt check --mode MODE --database NAME [--server NAME | --odbc STRING] [--json]\n"
    "\n"
    "Compares the database's tables, columns and views with what a run leaves\n"
    "and lists what is missing or of another type or width. Tables, columns and\n"
    "views of its own are listed as left alone. Only reads: it sends nothing but\n"
    "Selects. Exit 0 when the database matches, 1 when it differs or cannot be\n"
    "opened or read.";

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
        out << "  " << line << "\n";
}

void printReport(QTextStream &out, const SchemaDrift &drift)
{
    QStringList missingColumns;
    for (const ColumnFinding &finding : drift.missingColumns)
        missingColumns << columnName(finding) + QLatin1Char(' ') + finding.expected;
    QStringList differingColumns;
    for (const ColumnFinding &finding : drift.differingColumns)
        differingColumns << columnName(finding) + QLatin1Char(' ') + finding.found + QLatin1String(", expected ")
                + finding.expected;
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
    printGroup(out, "Left alone", leftAlone);
    const qsizetype differences = drift.differences();
    if (differences == 0)
        out << "matches\n";
    else
        out << differences << (differences == 1 ? " difference\n" : " differences\n");
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

void printJson(QTextStream &out, const QString &database, const SchemaDrift &drift)
{
    const QJsonObject report{
        {QStringLiteral("database"), database},
        {QStringLiteral("matches"), drift.differences() == 0},
        {QStringLiteral("differences"), qint64(drift.differences())},
        {QStringLiteral("missingTables"), QJsonArray::fromStringList(drift.missingTables)},
        {QStringLiteral("missingColumns"), columnsJson(drift.missingColumns)},
        {QStringLiteral("differingColumns"), columnsJson(drift.differingColumns)},
        {QStringLiteral("missingViews"), QJsonArray::fromStringList(drift.missingViews)},
        {QStringLiteral("extraTables"), QJsonArray::fromStringList(drift.extraTables)},
        {QStringLiteral("extraColumns"), columnsJson(drift.extraColumns)},
        {QStringLiteral("extraViews"), QJsonArray::fromStringList(drift.extraViews)},
    };
    out << QJsonDocument(report).toJson(QJsonDocument::Compact) << "\n";
}

} // namespace

int checkCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    addDatabaseOptions(parser);
    parser.addOption({QStringLiteral("json"), QStringLiteral("Print one JSON object instead of the report.")});
    if (const std::optional<int> exit =
            parseOptions(parser, QStringLiteral("check"), QString::fromLatin1(kDescription), arguments, context))
        return *exit;
    const std::optional<DatabaseChoice> choice = checkedDatabaseChoice(parser, QStringLiteral("check"), context);
    if (!choice)
        return kExitUsage;

    mdZRT module(chosenConnections(parser, context), choice->server);
    module.OpenConnection(choice->mode, choice->server, choice->database);
    if (!module.ConnectionOpened()) {
        context.err << "zrt check: cannot open the database '" << choice->database << "'\n";
        return kExitFailed;
    }
    DatabaseSchema found;
    const DbStatus read = readDatabaseSchema(module.SharedConnection(), found);
    if (!read.ok) {
        context.err << "zrt check: cannot read the catalogue of '" << choice->database
                    << "': " << ConnectionProfiles::withoutPasswords(read.message) << "\n";
        return kExitFailed;
    }

    const SchemaDrift drift = schemaDrift(whatARunLeaves(), found);
    if (parser.isSet(QStringLiteral("json")))
        printJson(context.out, choice->database, drift);
    else
        printReport(context.out, drift);
    return drift.differences() == 0 ? kExitOk : kExitFailed;
}
