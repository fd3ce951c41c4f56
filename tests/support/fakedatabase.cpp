#include "fakedatabase.h"

#include "fakesqltypes.h"

#include <QSet>

#include <algorithm>

namespace {

bool sameName(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

qsizetype indexOfColumn(const QList<FakeColumn> &columns, const QString &name)
{
    for (qsizetype at = 0; at < columns.size(); ++at) {
        if (sameName(columns[at].name, name))
            return at;
    }
    return -1;
}

DbStatus invalidObject(const QString &name)
{
    return DbStatus::failure(QStringLiteral("Invalid object name '%1'.").arg(name), 208);
}

DbStatus invalidColumn(const QString &name)
{
    return DbStatus::failure(QStringLiteral("Invalid column name '%1'.").arg(name), 207);
}

DbStatus missingAlterTarget(const QString &table)
{
    return DbStatus::failure(
        QStringLiteral("Cannot find the object \"%1\" because it does not exist or you do not have permissions.")
            .arg(table),
        4902);
}

DbStatus duplicateColumn(const QString &column, const QString &table)
{
    return DbStatus::failure(QStringLiteral("Column names in each table must be unique. Column name '%1' in table "
                                            "'%2' is specified more than once.")
                                 .arg(column, table),
                             2705);
}

DbStatus nullRefused(const QString &column, const QString &database, const QString &table,
                     QLatin1StringView operation)
{
    return DbStatus::failure(QStringLiteral("Cannot insert the value NULL into column '%1', table '%2.dbo.%3'; column "
                                            "does not allow nulls. %4 fails.")
                                 .arg(column, database, table, operation),
                             515);
}

DbStatus assignedTwice(const QString &column)
{
    return DbStatus::failure(QStringLiteral("The column name '%1' is specified more than once in the SET clause or "
                                            "column list of an INSERT. A column cannot be assigned more than one "
                                            "value in the same clause.")
                                 .arg(column),
                             264);
}

DbStatus viewsHoldNoRows(const QString &view)
{
    // The fake keeps a view's text only; it cannot read or write through it.
    return DbStatus::failure(QStringLiteral("FakeSqlServer does not evaluate the view '%1'.").arg(view));
}

// Indexes of the named columns; fails on a missing or repeated one.
DbStatus resolveColumns(const QList<FakeColumn> &columns, const QStringList &names, QList<qsizetype> &indexes)
{
    QSet<qsizetype> seen;
    for (const QString &name : names) {
        const qsizetype at = indexOfColumn(columns, name);
        if (at < 0)
            return invalidColumn(name);
        if (seen.contains(at))
            return assignedTwice(name);
        seen.insert(at);
        indexes.append(at);
    }
    return DbStatus::success();
}

// The column index and converted literal of each condition.
DbStatus resolveConditions(const QList<FakeColumn> &columns, const FakeConditions &where,
                           QList<std::pair<qsizetype, QVariant>> &resolved)
{
    for (const auto &[name, literal] : where) {
        const qsizetype at = indexOfColumn(columns, name);
        if (at < 0)
            return invalidColumn(name);
        QVariant value = literal;
        const DbStatus converted = convertForComparison(columns[at], value);
        if (!converted.ok)
            return converted;
        resolved.append({at, value});
    }
    return DbStatus::success();
}

bool passes(const QList<FakeColumn> &columns, const QVariantList &row,
            const QList<std::pair<qsizetype, QVariant>> &conditions)
{
    for (const auto &[at, literal] : conditions) {
        if (!sqlEquals(columns[at], row[at], literal))
            return false;
    }
    return true;
}

} // namespace

FakeDatabase::FakeDatabase(QString name)
    : m_name(std::move(name))
{
}

DbStatus FakeDatabase::createTable(const QString &table, const QList<FakeColumn> &columns)
{
    const DbStatus free = checkNewObject(table);
    if (!free.ok)
        return free;
    Table created{table, {}, {}, 1};
    for (FakeColumn column : columns) {
        const DbStatus prepared = prepareColumn(column, int(created.columns.size()) + 1);
        if (!prepared.ok)
            return prepared;
        if (indexOfColumn(created.columns, column.name) >= 0)
            return duplicateColumn(column.name, table);
        if (column.identity) {
            for (const FakeColumn &other : std::as_const(created.columns)) {
                if (other.identity) {
                    return DbStatus::failure(QStringLiteral("Multiple identity columns specified for table '%1'. "
                                                            "Only one identity column per table is allowed.")
                                                 .arg(table),
                                             2744);
                }
            }
            created.nextIdentity = column.identitySeed;
        }
        created.columns.append(column);
    }
    m_tables.push_back(std::move(created));
    return DbStatus::success();
}

DbStatus FakeDatabase::addColumn(const QString &table, const FakeColumn &column, bool withValues)
{
    Table *target = findTable(table);
    if (!target)
        return missingAlterTarget(table);
    FakeColumn added = column;
    const DbStatus prepared = prepareColumn(added, 1);
    if (!prepared.ok)
        return prepared;
    if (indexOfColumn(target->columns, added.name) >= 0)
        return duplicateColumn(added.name, target->name);
    if (added.identity) {
        for (const FakeColumn &other : std::as_const(target->columns)) {
            if (other.identity) {
                return DbStatus::failure(QStringLiteral("Multiple identity columns specified for table '%1'. Only "
                                                        "one identity column per table is allowed.")
                                             .arg(target->name),
                                         2744);
            }
        }
    }
    if (added.notNull && !added.defaultValue && !added.identity && !target->rows.isEmpty()) {
        return DbStatus::failure(
            QStringLiteral("ALTER TABLE only allows columns to be added that can contain nulls, or have a DEFAULT "
                           "definition specified, or the column being added is an identity or timestamp column, or "
                           "alternatively if none of the previous conditions are satisfied the table must be empty "
                           "to allow addition of this column. Column '%1' cannot be added to non-empty table '%2' "
                           "because it does not satisfy these conditions.")
                .arg(added.name, target->name),
            4901);
    }
    QVariant fill;
    if (added.defaultValue && (added.notNull || withValues)) {
        fill = QVariant(*added.defaultValue);
        const DbStatus converted = convertForColumn(added, fill);
        if (!converted.ok)
            return converted;
    }
    qint64 identity = added.identitySeed;
    for (QVariantList &row : target->rows) {
        if (added.identity) {
            row.append(identity);
            identity += added.identityIncrement;
        } else {
            row.append(fill);
        }
    }
    if (added.identity)
        target->nextIdentity = identity;
    target->columns.append(added);
    return DbStatus::success();
}

DbStatus FakeDatabase::alterColumn(const QString &table, const QString &column, const QString &type, int length,
                                   bool notNull)
{
    Table *target = findTable(table);
    if (!target)
        return missingAlterTarget(table);
    const qsizetype at = indexOfColumn(target->columns, column);
    if (at < 0) {
        return DbStatus::failure(
            QStringLiteral("ALTER TABLE ALTER COLUMN failed because column '%1' does not exist in table '%2'.")
                .arg(column, target->name),
            4924);
    }
    FakeColumn altered = target->columns[at];
    altered.type = type;
    altered.length = length;
    altered.notNull = notNull;
    const DbStatus prepared = prepareColumn(altered, 1);
    if (!prepared.ok)
        return prepared;
    // A default constraint allows a new width, not a new type.
    if (altered.defaultValue && altered.type != target->columns[at].type) {
        return DbStatus::failure(QStringLiteral("The object 'DF__%1__%2' is dependent on column '%2'.")
                                     .arg(target->name, target->columns[at].name),
                                 5074);
    }
    QList<QVariantList> rows = target->rows;
    for (QVariantList &row : rows) {
        if (row[at].isNull() && altered.notNull)
            return nullRefused(altered.name, m_name, target->name, QLatin1StringView("UPDATE"));
        const DbStatus converted = convertForColumn(altered, row[at]);
        if (!converted.ok)
            return converted;
    }
    target->columns[at] = altered;
    target->rows = std::move(rows);
    return DbStatus::success();
}

DbStatus FakeDatabase::dropTable(const QString &table)
{
    if (hasView(table)) {
        return DbStatus::failure(
            QStringLiteral("Cannot use DROP TABLE with '%1' because '%1' is a view. Use DROP VIEW.").arg(table), 3705);
    }
    const auto found = std::find_if(m_tables.begin(), m_tables.end(),
                                    [&](const Table &candidate) { return sameName(candidate.name, table); });
    if (found == m_tables.end()) {
        return DbStatus::failure(
            QStringLiteral("Cannot drop the table '%1', because it does not exist or you do not have permission.")
                .arg(table),
            3701);
    }
    m_tables.erase(found);
    return DbStatus::success();
}

DbStatus FakeDatabase::createView(const QString &view, const QString &definition)
{
    const DbStatus free = checkNewObject(view);
    if (!free.ok)
        return free;
    m_views.push_back({view, definition});
    return DbStatus::success();
}

DbStatus FakeDatabase::dropView(const QString &view)
{
    if (hasTable(view)) {
        return DbStatus::failure(
            QStringLiteral("Cannot use DROP VIEW with '%1' because '%1' is a table. Use DROP TABLE.").arg(view), 3705);
    }
    const auto found = std::find_if(m_views.begin(), m_views.end(),
                                    [&](const View &candidate) { return sameName(candidate.name, view); });
    if (found == m_views.end()) {
        return DbStatus::failure(
            QStringLiteral("Cannot drop the view '%1', because it does not exist or you do not have permission.")
                .arg(view),
            3701);
    }
    m_views.erase(found);
    return DbStatus::success();
}

DbStatus FakeDatabase::insertRow(const QString &table, const QVariantMap &values)
{
    const DbStatus writable = checkWritableTable(table);
    if (!writable.ok)
        return writable;
    Table &target = *findTable(table);
    QList<qsizetype> given;
    const DbStatus resolved = resolveColumns(target.columns, values.keys(), given);
    if (!resolved.ok)
        return resolved;
    for (qsizetype at : std::as_const(given)) {
        if (target.columns[at].identity) {
            return DbStatus::failure(QStringLiteral("Cannot insert explicit value for identity column in table '%1' "
                                                    "when IDENTITY_INSERT is set to OFF.")
                                         .arg(target.name),
                                     544);
        }
    }
    const QList<QVariant> givenValues = values.values();
    QVariantList row;
    for (qsizetype at = 0; at < target.columns.size(); ++at) {
        const FakeColumn &column = target.columns[at];
        const qsizetype position = given.indexOf(at);
        QVariant value;
        if (position >= 0)
            value = givenValues[position];
        else if (column.identity)
            value = target.nextIdentity;
        else if (column.defaultValue)
            value = *column.defaultValue;
        if (value.isNull() && column.notNull)
            return nullRefused(column.name, m_name, target.name, QLatin1StringView("INSERT"));
        const DbStatus converted = convertForColumn(column, value);
        if (!converted.ok)
            return converted;
        row.append(value);
    }
    for (const FakeColumn &column : std::as_const(target.columns)) {
        if (column.identity)
            target.nextIdentity += column.identityIncrement;
    }
    target.rows.append(row);
    return DbStatus::success();
}

DbStatus FakeDatabase::update(const QString &table, const QVariantMap &assignments, const FakeConditions &where)
{
    const DbStatus writable = checkWritableTable(table);
    if (!writable.ok)
        return writable;
    Table &target = *findTable(table);
    QList<qsizetype> assigned;
    DbStatus status = resolveColumns(target.columns, assignments.keys(), assigned);
    if (!status.ok)
        return status;
    for (qsizetype at : std::as_const(assigned)) {
        if (target.columns[at].identity) {
            return DbStatus::failure(QStringLiteral("Cannot update identity column '%1'.").arg(target.columns[at].name),
                                     8102);
        }
    }
    QList<std::pair<qsizetype, QVariant>> conditions;
    status = resolveConditions(target.columns, where, conditions);
    if (!status.ok)
        return status;
    const QList<QVariant> assignedValues = assignments.values();
    QList<QVariantList> rows = target.rows;
    for (QVariantList &row : rows) {
        if (!passes(target.columns, row, conditions))
            continue;
        for (qsizetype position = 0; position < assigned.size(); ++position) {
            const FakeColumn &column = target.columns[assigned[position]];
            QVariant value = assignedValues[position];
            if (value.isNull() && column.notNull)
                return nullRefused(column.name, m_name, target.name, QLatin1StringView("UPDATE"));
            status = convertForColumn(column, value);
            if (!status.ok)
                return status;
            row[assigned[position]] = value;
        }
    }
    target.rows = std::move(rows);
    return DbStatus::success();
}

DbStatus FakeDatabase::select(const QString &table, const QStringList &columns, const FakeConditions &where,
                              ResultSet &into) const
{
    if (hasView(table))
        return viewsHoldNoRows(table);
    const Table *source = findTable(table);
    if (!source)
        return invalidObject(table);
    QList<qsizetype> picked;
    QStringList names = columns;
    if (columns.isEmpty()) {
        for (qsizetype at = 0; at < source->columns.size(); ++at) {
            picked.append(at);
            names.append(source->columns[at].name);
        }
    } else {
        for (const QString &name : columns) {
            const qsizetype at = indexOfColumn(source->columns, name);
            if (at < 0)
                return invalidColumn(name);
            picked.append(at);
        }
    }
    QList<std::pair<qsizetype, QVariant>> conditions;
    const DbStatus resolved = resolveConditions(source->columns, where, conditions);
    if (!resolved.ok)
        return resolved;
    QList<QVariantList> rows;
    for (const QVariantList &row : source->rows) {
        if (!passes(source->columns, row, conditions))
            continue;
        QVariantList selected;
        for (qsizetype at : std::as_const(picked))
            selected.append(row[at]);
        rows.append(selected);
    }
    into = ResultSet(names, rows);
    return DbStatus::success();
}

FakeDatabase FakeDatabase::informationSchema() const
{
    const auto name = [](const char *column, int length = 128) {
        return FakeColumn{.name = QLatin1String(column), .type = QStringLiteral("nvarchar"), .length = length};
    };
    const auto number = [](const char *column) {
        return FakeColumn{.name = QLatin1String(column), .type = QStringLiteral("int")};
    };
    FakeDatabase catalog(m_name);
    catalog.createTable(QStringLiteral("COLUMNS"),
                        {name("TABLE_CATALOG"), name("TABLE_SCHEMA"), name("TABLE_NAME"), name("COLUMN_NAME"),
                         number("ORDINAL_POSITION"), name("DATA_TYPE"), number("CHARACTER_MAXIMUM_LENGTH")});
    catalog.createTable(QStringLiteral("VIEWS"),
                        {name("TABLE_CATALOG"), name("TABLE_SCHEMA"), name("TABLE_NAME"), name("VIEW_DEFINITION", -1)});
    const QString owner = QStringLiteral("dbo");
    for (const Table &table : m_tables) {
        for (qsizetype at = 0; at < table.columns.size(); ++at) {
            const FakeColumn &column = table.columns[at];
            catalog.insertRow(QStringLiteral("COLUMNS"), {{QStringLiteral("TABLE_CATALOG"), m_name},
                                                          {QStringLiteral("TABLE_SCHEMA"), owner},
                                                          {QStringLiteral("TABLE_NAME"), table.name},
                                                          {QStringLiteral("COLUMN_NAME"), column.name},
                                                          {QStringLiteral("ORDINAL_POSITION"), int(at) + 1},
                                                          {QStringLiteral("DATA_TYPE"), column.type},
                                                          {QStringLiteral("CHARACTER_MAXIMUM_LENGTH"),
                                                           characterMaximumLength(column)}});
        }
    }
    for (const View &view : m_views) {
        catalog.insertRow(QStringLiteral("VIEWS"), {{QStringLiteral("TABLE_CATALOG"), m_name},
                                                    {QStringLiteral("TABLE_SCHEMA"), owner},
                                                    {QStringLiteral("TABLE_NAME"), view.name},
                                                    {QStringLiteral("VIEW_DEFINITION"), view.definition}});
    }
    return catalog;
}

QStringList FakeDatabase::tables() const
{
    QStringList names;
    for (const Table &table : m_tables)
        names.append(table.name);
    return names;
}

QStringList FakeDatabase::views() const
{
    QStringList names;
    for (const View &view : m_views)
        names.append(view.name);
    return names;
}

bool FakeDatabase::hasTable(const QString &table) const
{
    return findTable(table) != nullptr;
}

bool FakeDatabase::hasView(const QString &view) const
{
    return findView(view) != nullptr;
}

QList<FakeColumn> FakeDatabase::columns(const QString &table) const
{
    const Table *found = findTable(table);
    return found ? found->columns : QList<FakeColumn>();
}

std::optional<FakeColumn> FakeDatabase::column(const QString &table, const QString &column) const
{
    const Table *found = findTable(table);
    if (!found)
        return std::nullopt;
    const qsizetype at = indexOfColumn(found->columns, column);
    if (at < 0)
        return std::nullopt;
    return found->columns[at];
}

QList<QVariantList> FakeDatabase::rows(const QString &table) const
{
    const Table *found = findTable(table);
    return found ? found->rows : QList<QVariantList>();
}

QList<QStringList> FakeDatabase::rowTexts(const QString &table) const
{
    QList<QStringList> texts;
    for (const QVariantList &row : rows(table)) {
        QStringList cells;
        for (const QVariant &cell : row)
            cells.append(sqlText(cell));
        texts.append(cells);
    }
    return texts;
}

QString FakeDatabase::cellText(const QString &table, qsizetype row, const QString &column) const
{
    const Table *found = findTable(table);
    if (!found || row < 0 || row >= found->rows.size())
        return QString();
    const qsizetype at = indexOfColumn(found->columns, column);
    return at < 0 ? QString() : sqlText(found->rows[row][at]);
}

QString FakeDatabase::viewDefinition(const QString &view) const
{
    const View *found = findView(view);
    return found ? found->definition : QString();
}

FakeDatabase::Table *FakeDatabase::findTable(const QString &table)
{
    for (Table &candidate : m_tables) {
        if (sameName(candidate.name, table))
            return &candidate;
    }
    return nullptr;
}

const FakeDatabase::Table *FakeDatabase::findTable(const QString &table) const
{
    return const_cast<FakeDatabase *>(this)->findTable(table);
}

const FakeDatabase::View *FakeDatabase::findView(const QString &view) const
{
    for (const View &candidate : m_views) {
        if (sameName(candidate.name, view))
            return &candidate;
    }
    return nullptr;
}

DbStatus FakeDatabase::checkNewObject(const QString &name) const
{
    // Tables and views share one namespace.
    if (hasTable(name) || hasView(name)) {
        return DbStatus::failure(QStringLiteral("There is already an object named '%1' in the database.").arg(name),
                                 2714);
    }
    return DbStatus::success();
}

DbStatus FakeDatabase::checkWritableTable(const QString &table) const
{
    if (hasView(table))
        return viewsHoldNoRows(table);
    if (!hasTable(table))
        return invalidObject(table);
    return DbStatus::success();
}
