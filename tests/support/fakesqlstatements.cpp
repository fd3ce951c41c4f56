#include "fakesqlstatements.h"

#include "fakeserverstate.h"
#include "fakesqltokens.h"
#include "fakesqltypes.h"

#include <QSet>

namespace {

using Kind = FakeSqlToken::Kind;

QLatin1StringView kw(const char *word)
{
    return QLatin1StringView(word);
}

DbStatus syntaxError(const FakeSqlCursor &cursor)
{
    if (cursor.atEnd())
        return DbStatus::failure(QStringLiteral("Incorrect syntax near the end of the statement."), 102);
    return DbStatus::failure(QStringLiteral("Incorrect syntax near '%1'.").arg(cursor.peek().text), 102);
}

DbStatus repeatedName(const QString &name)
{
    return DbStatus::failure(QStringLiteral("The column name '%1' is specified more than once in the SET clause or "
                                            "column list of an INSERT. A column cannot be assigned more than one "
                                            "value in the same clause.")
                                 .arg(name),
                             264);
}

QString firstRepeated(const QStringList &names)
{
    QSet<QString> seen;
    for (const QString &name : names) {
        if (seen.contains(name.toLower()))
            return name;
        seen.insert(name.toLower());
    }
    return QString();
}

class StatementReader
{
public:
    StatementReader(FakeServerState &server, const QString &database, const QString &sql,
                    QList<FakeSqlToken> tokens, ResultSet &result)
        : m_server(server)
        , m_databaseName(database)
        , m_sql(sql)
        , m_cursor(std::move(tokens))
        , m_result(result)
    {
    }

    DbStatus run()
    {
        if (m_cursor.acceptKeyword(kw("CREATE"))) {
            if (m_cursor.acceptKeyword(kw("TABLE")))
                return createTable();
            if (m_cursor.acceptKeyword(kw("VIEW")))
                return createView();
            if (m_cursor.acceptKeyword(kw("DATABASE")))
                return createDatabase();
        } else if (m_cursor.acceptKeyword(kw("ALTER"))) {
            if (m_cursor.acceptKeyword(kw("TABLE")))
                return alterTable();
        } else if (m_cursor.acceptKeyword(kw("DROP"))) {
            if (m_cursor.acceptKeyword(kw("TABLE")))
                return drop(&FakeDatabase::dropTable);
            if (m_cursor.acceptKeyword(kw("VIEW")))
                return drop(&FakeDatabase::dropView);
        } else if (m_cursor.acceptKeyword(kw("INSERT"))) {
            return insert();
        } else if (m_cursor.acceptKeyword(kw("SELECT"))) {
            return select();
        } else if (m_cursor.acceptKeyword(kw("UPDATE"))) {
            return update();
        }
        return syntaxError(m_cursor);
    }

private:
    FakeDatabase &database() { return m_server.database(m_databaseName); }

    bool atStatementEnd()
    {
        m_cursor.acceptSymbol(u';');
        return m_cursor.atEnd();
    }

    DbStatus createTable()
    {
        const std::optional<QString> table = m_cursor.objectName();
        if (!table || !m_cursor.acceptSymbol(u'('))
            return syntaxError(m_cursor);
        QList<FakeColumn> columns;
        do {
            FakeColumn column;
            bool withValues = false;
            const DbStatus read = columnDefinition(column, withValues);
            if (!read.ok)
                return read;
            columns.append(column);
        } while (m_cursor.acceptSymbol(u','));
        if (!m_cursor.acceptSymbol(u')') || !atStatementEnd())
            return syntaxError(m_cursor);
        return database().createTable(*table, columns);
    }

    DbStatus alterTable()
    {
        const std::optional<QString> table = m_cursor.objectName();
        if (!table)
            return syntaxError(m_cursor);
        if (m_cursor.acceptKeyword(kw("ADD")))
            return addColumns(*table);
        if (m_cursor.acceptKeyword(kw("ALTER")) && m_cursor.acceptKeyword(kw("COLUMN")))
            return alterColumn(*table);
        return syntaxError(m_cursor);
    }

    DbStatus addColumns(const QString &table)
    {
        QList<std::pair<FakeColumn, bool>> added;
        do {
            FakeColumn column;
            bool withValues = false;
            const DbStatus read = columnDefinition(column, withValues);
            if (!read.ok)
                return read;
            added.append({column, withValues});
        } while (m_cursor.acceptSymbol(u','));
        if (!atStatementEnd())
            return syntaxError(m_cursor);
        // One statement adds all its columns or none.
        FakeDatabase &target = database();
        const FakeDatabase before = target;
        for (const auto &[column, withValues] : std::as_const(added)) {
            const DbStatus status = target.addColumn(table, column, withValues);
            if (!status.ok) {
                target = before;
                return status;
            }
        }
        return DbStatus::success();
    }

    DbStatus alterColumn(const QString &table)
    {
        const std::optional<QString> column = m_cursor.name();
        const std::optional<QString> type = m_cursor.name();
        if (!column || !type)
            return syntaxError(m_cursor);
        int length = 0;
        const DbStatus width = typeWidth(length);
        if (!width.ok)
            return width;
        bool notNull = false;
        if (m_cursor.acceptKeyword(kw("NOT"))) {
            if (!m_cursor.acceptKeyword(kw("NULL")))
                return syntaxError(m_cursor);
            notNull = true;
        } else {
            m_cursor.acceptKeyword(kw("NULL"));
        }
        if (!atStatementEnd())
            return syntaxError(m_cursor);
        return database().alterColumn(table, *column, *type, length, notNull);
    }

    DbStatus drop(DbStatus (FakeDatabase::*dropObject)(const QString &))
    {
        const std::optional<QString> name = m_cursor.objectName();
        if (!name || !atStatementEnd())
            return syntaxError(m_cursor);
        return (database().*dropObject)(*name);
    }

    DbStatus createView()
    {
        const std::optional<QString> view = m_cursor.objectName();
        if (!view)
            return syntaxError(m_cursor);
        if (m_cursor.acceptSymbol(u'(')) {
            while (!m_cursor.atEnd() && !m_cursor.acceptSymbol(u')'))
                m_cursor.skip();
        }
        if (!m_cursor.acceptKeyword(kw("AS")) || m_cursor.atEnd())
            return syntaxError(m_cursor);
        FakeDatabase &target = database();
        if (target.hasTable(*view) || target.hasView(*view))
            return target.createView(*view, m_sql);
        for (const auto &[written, name] : viewSources()) {
            if (!target.hasTable(name) && !target.hasView(name))
                return DbStatus::failure(QStringLiteral("Invalid object name '%1'.").arg(written), 208);
        }
        return target.createView(*view, m_sql);
    }

    // The objects a view's body reads: every `dbo.<name>`, and every name
    // after FROM or JOIN; each as written and as looked up.
    QList<std::pair<QString, QString>> viewSources()
    {
        QList<std::pair<QString, QString>> sources;
        QSet<QString> seen;
        const auto add = [&](const QString &written, const QString &name) {
            if (!seen.contains(name.toLower())) {
                seen.insert(name.toLower());
                sources.append({written, name});
            }
        };
        const auto isName = [&](qsizetype ahead) {
            const Kind kind = m_cursor.peek(ahead).kind;
            return kind == Kind::Word || kind == Kind::Bracketed;
        };
        const auto isDot = [&](qsizetype ahead) {
            return m_cursor.peek(ahead).kind == Kind::Symbol && m_cursor.peek(ahead).text == QLatin1String(".");
        };
        while (!m_cursor.atEnd()) {
            const FakeSqlToken &token = m_cursor.peek();
            const bool named = token.kind == Kind::Word || token.kind == Kind::Bracketed;
            if (named && token.text.compare(kw("dbo"), Qt::CaseInsensitive) == 0 && isDot(1) && isName(2)) {
                add(QLatin1String("dbo.") + m_cursor.peek(2).text, m_cursor.peek(2).text);
                m_cursor.skip(3);
            } else if ((m_cursor.isKeyword(kw("FROM")) || m_cursor.isKeyword(kw("JOIN"))) && isName(1)) {
                m_cursor.skip();
                if (!isDot(1)) {
                    add(m_cursor.peek().text, m_cursor.peek().text);
                    m_cursor.skip();
                }
            } else {
                m_cursor.skip();
            }
        }
        return sources;
    }

    DbStatus createDatabase()
    {
        const std::optional<QString> name = m_cursor.name();
        if (!name)
            return syntaxError(m_cursor);
        return m_server.createDatabase(*name);
    }

    DbStatus insert()
    {
        m_cursor.acceptKeyword(kw("INTO"));
        const std::optional<QString> table = m_cursor.objectName();
        if (!table)
            return syntaxError(m_cursor);
        QStringList names;
        if (m_cursor.acceptSymbol(u'(')) {
            const DbStatus listed = nameList(names);
            if (!listed.ok)
                return listed;
        }
        if (!m_cursor.acceptKeyword(kw("VALUES")))
            return syntaxError(m_cursor);
        QList<QVariantList> rows;
        do {
            QVariantList values;
            const DbStatus read = valueList(values);
            if (!read.ok)
                return read;
            rows.append(values);
        } while (m_cursor.acceptSymbol(u','));
        if (!atStatementEnd())
            return syntaxError(m_cursor);

        FakeDatabase &target = database();
        if (!target.hasTable(*table) && !target.hasView(*table))
            return DbStatus::failure(QStringLiteral("Invalid object name '%1'.").arg(*table), 208);
        const QString repeated = firstRepeated(names);
        if (!repeated.isNull())
            return repeatedName(repeated);
        const bool everyColumn = names.isEmpty();
        if (everyColumn) {
            for (const FakeColumn &column : target.columns(*table)) {
                if (!column.identity)
                    names.append(column.name);
            }
        }
        const FakeDatabase before = target;
        for (const QVariantList &values : std::as_const(rows)) {
            const DbStatus counted = checkValueCount(names.size(), values.size(), everyColumn);
            if (!counted.ok)
                return counted;
            QVariantMap byName;
            for (qsizetype at = 0; at < names.size(); ++at)
                byName.insert(names[at], values[at]);
            const DbStatus inserted = target.insertRow(*table, byName);
            if (!inserted.ok) {
                target = before;
                return inserted;
            }
        }
        return DbStatus::success();
    }

    static DbStatus checkValueCount(qsizetype columns, qsizetype values, bool everyColumn)
    {
        if (everyColumn && columns != values) {
            return DbStatus::failure(
                QStringLiteral("Column name or number of supplied values does not match table definition."), 213);
        }
        if (columns > values) {
            return DbStatus::failure(QStringLiteral("There are more columns in the INSERT statement than values "
                                                    "specified in the VALUES clause. The number of values in the "
                                                    "VALUES clause must match the number of columns specified in "
                                                    "the INSERT statement."),
                                     109);
        }
        if (columns < values) {
            return DbStatus::failure(QStringLiteral("There are fewer columns in the INSERT statement than values "
                                                    "specified in the VALUES clause. The number of values in the "
                                                    "VALUES clause must match the number of columns specified in "
                                                    "the INSERT statement."),
                                     110);
        }
        return DbStatus::success();
    }

    DbStatus select()
    {
        QStringList columns;
        if (!m_cursor.acceptSymbol(u'*')) {
            do {
                const std::optional<QString> column = m_cursor.name();
                if (!column)
                    return syntaxError(m_cursor);
                columns.append(*column);
            } while (m_cursor.acceptSymbol(u','));
        }
        if (!m_cursor.acceptKeyword(kw("FROM")))
            return syntaxError(m_cursor);
        const bool informationSchema =
            m_cursor.isKeyword(kw("INFORMATION_SCHEMA")) && m_cursor.peek(1).text == QLatin1String(".");
        const std::optional<QString> table = m_cursor.objectName();
        if (!table)
            return syntaxError(m_cursor);
        FakeConditions where;
        const DbStatus conditions = whereClause(where);
        if (!conditions.ok)
            return conditions;
        if (informationSchema)
            return database().informationSchema().select(*table, columns, where, m_result);
        return database().select(*table, columns, where, m_result);
    }

    DbStatus update()
    {
        const std::optional<QString> table = m_cursor.objectName();
        if (!table || !m_cursor.acceptKeyword(kw("SET")))
            return syntaxError(m_cursor);
        FakeConditions assignments;
        do {
            const DbStatus read = comparison(assignments);
            if (!read.ok)
                return read;
        } while (m_cursor.acceptSymbol(u','));
        FakeConditions where;
        const DbStatus conditions = whereClause(where);
        if (!conditions.ok)
            return conditions;
        QStringList names;
        QVariantMap byName;
        for (const auto &[name, value] : std::as_const(assignments)) {
            names.append(name);
            byName.insert(name, value);
        }
        const QString repeated = firstRepeated(names);
        if (!repeated.isNull())
            return repeatedName(repeated);
        return database().update(*table, byName, where);
    }

    // [WHERE name = literal {AND name = literal}] and the statement's end.
    DbStatus whereClause(FakeConditions &where)
    {
        if (m_cursor.acceptKeyword(kw("WHERE"))) {
            do {
                const DbStatus read = comparison(where);
                if (!read.ok)
                    return read;
            } while (m_cursor.acceptKeyword(kw("AND")));
        }
        return atStatementEnd() ? DbStatus::success() : syntaxError(m_cursor);
    }

    DbStatus comparison(FakeConditions &into)
    {
        const std::optional<QString> name = m_cursor.name();
        if (!name || !m_cursor.acceptSymbol(u'='))
            return syntaxError(m_cursor);
        const std::optional<QVariant> value = m_cursor.literal();
        if (!value)
            return syntaxError(m_cursor);
        into.append({*name, *value});
        return DbStatus::success();
    }

    // Names up to and including the closing parenthesis.
    DbStatus nameList(QStringList &names)
    {
        do {
            const std::optional<QString> name = m_cursor.name();
            if (!name)
                return syntaxError(m_cursor);
            names.append(*name);
        } while (m_cursor.acceptSymbol(u','));
        return m_cursor.acceptSymbol(u')') ? DbStatus::success() : syntaxError(m_cursor);
    }

    DbStatus valueList(QVariantList &values)
    {
        if (!m_cursor.acceptSymbol(u'('))
            return syntaxError(m_cursor);
        do {
            const std::optional<QVariant> value = m_cursor.literal();
            if (!value)
                return syntaxError(m_cursor);
            values.append(*value);
        } while (m_cursor.acceptSymbol(u','));
        return m_cursor.acceptSymbol(u')') ? DbStatus::success() : syntaxError(m_cursor);
    }

    // name type [(width)] then IDENTITY, DEFAULT, NULL, NOT NULL, WITH VALUES
    // in any order, up to a comma or closing parenthesis of the list.
    DbStatus columnDefinition(FakeColumn &column, bool &withValues)
    {
        const std::optional<QString> name = m_cursor.name();
        const std::optional<QString> type = m_cursor.name();
        if (!name || !type)
            return syntaxError(m_cursor);
        column.name = *name;
        column.type = *type;
        const DbStatus width = typeWidth(column.length);
        if (!width.ok)
            return width;
        while (!m_cursor.atEnd() && m_cursor.peek().kind != Kind::Symbol) {
            if (m_cursor.acceptKeyword(kw("IDENTITY"))) {
                column.identity = true;
                if (m_cursor.acceptSymbol(u'(')) {
                    const std::optional<QVariant> seed = m_cursor.literal();
                    const bool comma = m_cursor.acceptSymbol(u',');
                    const std::optional<QVariant> increment = m_cursor.literal();
                    if (!seed || !comma || !increment || !m_cursor.acceptSymbol(u')'))
                        return syntaxError(m_cursor);
                    column.identitySeed = seed->toLongLong();
                    column.identityIncrement = increment->toLongLong();
                }
            } else if (m_cursor.acceptKeyword(kw("DEFAULT"))) {
                const DbStatus read = defaultValue(column.defaultValue);
                if (!read.ok)
                    return read;
            } else if (m_cursor.acceptKeyword(kw("NOT"))) {
                if (!m_cursor.acceptKeyword(kw("NULL")))
                    return syntaxError(m_cursor);
                column.notNull = true;
            } else if (m_cursor.acceptKeyword(kw("NULL"))) {
                column.notNull = false;
            } else if (m_cursor.acceptKeyword(kw("CONSTRAINT"))) {
                if (!m_cursor.name())
                    return syntaxError(m_cursor);
            } else if (m_cursor.acceptKeyword(kw("WITH"))) {
                if (!m_cursor.acceptKeyword(kw("VALUES")))
                    return syntaxError(m_cursor);
                withValues = true;
            } else {
                return syntaxError(m_cursor);
            }
        }
        return DbStatus::success();
    }

    // An optional "(n)", "(max)" or "(p, s)" after a type name.
    DbStatus typeWidth(int &length)
    {
        if (!m_cursor.acceptSymbol(u'('))
            return DbStatus::success();
        if (m_cursor.acceptKeyword(kw("max"))) {
            length = -1;
        } else {
            if (m_cursor.peek().kind != Kind::Number || m_cursor.atEnd())
                return syntaxError(m_cursor);
            length = m_cursor.peek().text.toInt();
            m_cursor.skip();
            if (length == 0)
                return DbStatus::failure(QStringLiteral("The length or precision 0 is invalid."), 1001);
            if (m_cursor.acceptSymbol(u',')) {
                if (m_cursor.peek().kind != Kind::Number || m_cursor.atEnd())
                    return syntaxError(m_cursor);
                m_cursor.skip();
            }
        }
        return m_cursor.acceptSymbol(u')') ? DbStatus::success() : syntaxError(m_cursor);
    }

    // DEFAULT literal, DEFAULT (literal), DEFAULT ((literal)) or a call such as
    // DEFAULT (getdate()), which is kept as its text.
    DbStatus defaultValue(std::optional<QString> &into)
    {
        int depth = 0;
        while (m_cursor.acceptSymbol(u'('))
            ++depth;
        const qsizetype start = m_cursor.index();
        if (const std::optional<QVariant> value = m_cursor.literal()) {
            into = value->isNull() ? std::optional<QString>() : std::optional<QString>(sqlText(*value));
        } else {
            QString text;
            int open = 0;
            while (!m_cursor.atEnd()) {
                const FakeSqlToken token = m_cursor.peek();
                const bool symbol = token.kind == Kind::Symbol;
                const bool closes = symbol && token.text == QLatin1String(")");
                if (closes && open == 0)
                    break;
                // Without parentheses around it, a default ends after its name or call.
                if (depth == 0 && open == 0 && !text.isEmpty() && !symbol)
                    break;
                open += closes ? -1 : (symbol && token.text == QLatin1String("(") ? 1 : 0);
                text += token.text;
                m_cursor.skip();
                if (depth == 0 && open == 0 && closes)
                    break;
            }
            if (m_cursor.index() == start)
                return syntaxError(m_cursor);
            into = text;
        }
        for (; depth > 0; --depth) {
            if (!m_cursor.acceptSymbol(u')'))
                return syntaxError(m_cursor);
        }
        return DbStatus::success();
    }

    FakeServerState &m_server;
    QString m_databaseName;
    QString m_sql;
    FakeSqlCursor m_cursor;
    ResultSet &m_result;
};

} // namespace

DbStatus runFakeStatement(FakeServerState &server, const QString &database, const QString &sql, ResultSet &result)
{
    result = ResultSet();
    std::optional<QList<FakeSqlToken>> tokens = tokenizeSql(sql);
    if (!tokens) {
        return DbStatus::failure(QStringLiteral("Unclosed quotation mark after the character string '%1'.").arg(sql),
                                 105);
    }
    return StatementReader(server, database, sql, std::move(*tokens), result).run();
}
