#include "expectedschema.h"

#include "emptydatabasescript.h"
#include "tablephase.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr auto kOptions = QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption;

// Captures the table's name and what follows it.
const QRegularExpression kCreateTable(QStringLiteral(R"(^\s*CREATE\s+TABLE\s+\[dbo\]\.\[([^\]]+)\]\s*\((.*)\)\s*$)"),
                                      kOptions);
const QRegularExpression kAddColumns(QStringLiteral(R"(^\s*ALTER\s+TABLE\s+\[dbo\]\.\[([^\]]+)\]\s+ADD\s+(.*)$)"),
                                     kOptions);
const QRegularExpression kAlterColumn(
    QStringLiteral(R"(^\s*ALTER\s+TABLE\s+\[dbo\]\.\[([^\]]+)\]\s+ALTER\s+COLUMN\s+(.*)$)"), kOptions);
// [name] [type] and an optional (width); defaults, NULL and IDENTITY after it shape nothing here.
const QRegularExpression kColumn(QStringLiteral(R"(^\s*\[([^\]]+)\]\s*\[([^\]]+)\](?:\s*\((\d+)\))?)"), kOptions);

// The parts of a column list between the commas outside parentheses and quotes.
QStringList columnDefinitions(const QString &list)
{
    QStringList parts;
    int depth = 0;
    bool quoted = false;
    qsizetype from = 0;
    for (qsizetype at = 0; at < list.size(); ++at) {
        const QChar c = list[at];
        if (c == u'\'')
            quoted = !quoted;
        else if (!quoted && c == u'(')
            ++depth;
        else if (!quoted && c == u')')
            --depth;
        else if (!quoted && depth == 0 && c == u',') {
            parts << list.mid(from, at - from);
            from = at + 1;
        }
    }
    parts << list.mid(from);
    return parts;
}

// Every definition of the list, or nothing when one is of an unknown form.
std::optional<QList<SchemaColumn>> readColumns(const QString &list)
{
    QList<SchemaColumn> columns;
    for (const QString &definition : columnDefinitions(list)) {
        const QRegularExpressionMatch match = kColumn.match(definition);
        if (!match.hasMatch())
            return std::nullopt;
        columns << SchemaColumn{match.captured(1), match.captured(2), match.captured(3).toInt()};
    }
    return columns;
}

SchemaTable *findTable(QList<SchemaTable> &tables, const QString &name)
{
    const auto found = std::find_if(tables.begin(), tables.end(),
                                    [&](const SchemaTable &table) { return sameName(table.name, name); });
    return found == tables.end() ? nullptr : &*found;
}

SchemaColumn *findColumn(SchemaTable &table, const QString &name)
{
    const auto found = std::find_if(table.columns.begin(), table.columns.end(),
                                    [&](const SchemaColumn &column) { return sameName(column.name, name); });
    return found == table.columns.end() ? nullptr : &*found;
}

bool hasRepeatedName(const QList<SchemaColumn> &columns)
{
    for (qsizetype at = 0; at < columns.size(); ++at) {
        for (qsizetype later = at + 1; later < columns.size(); ++later) {
            if (sameName(columns[at].name, columns[later].name))
                return true;
        }
    }
    return false;
}

// Statements of a form not read here change nothing.
void apply(const QString &statement, QList<SchemaTable> &tables)
{
    if (const QRegularExpressionMatch create = kCreateTable.match(statement); create.hasMatch()) {
        const std::optional<QList<SchemaColumn>> columns = readColumns(create.captured(2));
        if (!columns)
            return;
        if (!findTable(tables, create.captured(1)) && !hasRepeatedName(*columns))
            tables << SchemaTable{create.captured(1), *columns};
        return;
    }
    if (const QRegularExpressionMatch add = kAddColumns.match(statement); add.hasMatch()) {
        const std::optional<QList<SchemaColumn>> columns = readColumns(add.captured(2));
        if (!columns)
            return;
        SchemaTable *table = findTable(tables, add.captured(1));
        // One statement adds all its columns or none.
        const bool addable = table && !hasRepeatedName(*columns)
            && std::none_of(columns->begin(), columns->end(),
                            [&](const SchemaColumn &column) { return findColumn(*table, column.name); });
        if (addable)
            table->columns << *columns;
        return;
    }
    if (const QRegularExpressionMatch alter = kAlterColumn.match(statement); alter.hasMatch()) {
        const std::optional<QList<SchemaColumn>> columns = readColumns(alter.captured(2));
        if (!columns || columns->size() != 1)
            return;
        SchemaTable *table = findTable(tables, alter.captured(1));
        if (SchemaColumn *column = table ? findColumn(*table, columns->first().name) : nullptr) {
            column->type = columns->first().type;
            column->length = columns->first().length;
        }
        return;
    }
}

} // namespace

QList<SchemaTable> schemaAfter(const QStringList &statements)
{
    QList<SchemaTable> tables;
    for (const QString &statement : statements)
        apply(statement, tables);
    return tables;
}

QList<SchemaTable> tablePhaseSchema()
{
    return schemaAfter(statementsForEmptyDatabase(tablePhaseSteps()));
}
