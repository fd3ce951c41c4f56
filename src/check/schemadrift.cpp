#include "schemadrift.h"

#include "viewsources.h"

namespace {

template<typename Named>
const Named *findNamed(const QList<Named> &list, const QString &name)
{
    for (const Named &item : list) {
        if (sameName(item.name, name))
            return &item;
    }
    return nullptr;
}

QString typeText(const SchemaColumn &column)
{
    const QString type = column.type.toLower();
    if (column.length == 0)
        return type;
    const QString width = column.length < 0 ? QStringLiteral("max") : QString::number(column.length);
    return type + QLatin1Char('(') + width + QLatin1Char(')');
}

bool differs(const SchemaColumn &expected, const SchemaColumn &found)
{
    return !sameName(expected.type, found.type) || (expected.length != 0 && expected.length != found.length);
}

void compareColumns(const SchemaTable &expected, const SchemaTable &found, SchemaDrift &drift)
{
    for (const SchemaColumn &column : expected.columns) {
        const SchemaColumn *there = findNamed(found.columns, column.name);
        if (!there)
            drift.missingColumns << ColumnFinding{expected.name, column.name, typeText(column), QString()};
        else if (differs(column, *there))
            drift.differingColumns << ColumnFinding{expected.name, column.name, typeText(column), typeText(*there)};
    }
    for (const SchemaColumn &column : found.columns) {
        if (!findNamed(expected.columns, column.name))
            drift.extraColumns << ColumnFinding{found.name, column.name, QString(), typeText(column)};
    }
}

QStringList tableNames(const QList<SchemaTable> &tables)
{
    QStringList names;
    for (const SchemaTable &table : tables)
        names << table.name;
    return names;
}

QStringList namesMissingFrom(const QStringList &names, const QStringList &in)
{
    QStringList missing;
    for (const QString &name : names) {
        if (!in.contains(name, Qt::CaseInsensitive))
            missing << name;
    }
    return missing;
}

} // namespace

SchemaDrift schemaDrift(const DatabaseSchema &expected, const DatabaseSchema &found)
{
    SchemaDrift drift;
    for (const SchemaTable &table : expected.tables) {
        if (const SchemaTable *there = findNamed(found.tables, table.name))
            compareColumns(table, *there, drift);
        else
            drift.missingTables << table.name;
    }
    for (const SchemaTable &table : found.tables) {
        if (!findNamed(expected.tables, table.name))
            drift.extraTables << table.name;
    }
    for (const QString &view : namesMissingFrom(expected.views, found.views)) {
        const QStringList lacking = namesMissingFrom(tablesNoRunCreates(view), tableNames(found.tables));
        if (lacking.isEmpty())
            drift.missingViews << view;
        else
            drift.uninstallableViews << UninstallableView{view, lacking};
    }
    drift.extraViews = namesMissingFrom(found.views, expected.views);
    return drift;
}
