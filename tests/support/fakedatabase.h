#pragma once

#include "dbstatus.h"
#include "resultset.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantMap>

#include <optional>
#include <utility>
#include <vector>

// One column as the server keeps it.
struct FakeColumn
{
    QString name;
    QString type; // lower case, as the server reports it: "nvarchar", "datetime"
    int length = 0; // characters of a text type, -1 for max, 0 where the type has none
    bool identity = false;
    bool notNull = false;
    std::optional<QString> defaultValue = std::nullopt; // the default's value without quotes: "", "0", "1/1/2000"
    qint64 identitySeed = 1;
    qint64 identityIncrement = 1;
};

// `column = value` tests, all of which a row must pass.
using FakeConditions = QList<std::pair<QString, QVariant>>;

// The tables and views of one database. Every change is checked as SQL Server
// checks it and fails with its error number; names compare without case.
class FakeDatabase
{
public:
    explicit FakeDatabase(QString name);

    const QString &name() const { return m_name; }

    DbStatus createTable(const QString &table, const QList<FakeColumn> &columns);
    // Existing rows get the default only where the column is NOT NULL (or
    // `withValues`), as SQL Server fills them.
    DbStatus addColumn(const QString &table, const FakeColumn &column, bool withValues = false);
    // Keeps the column's place, default and data; converts the data.
    DbStatus alterColumn(const QString &table, const QString &column, const QString &type, int length,
                         bool notNull);
    DbStatus dropTable(const QString &table);
    // Keeps the definition as given; a statement that creates a view checks
    // its sources before it gets here.
    DbStatus createView(const QString &view, const QString &definition);
    DbStatus dropView(const QString &view);
    // Values by column name; identities, defaults and NULLs fill the others.
    DbStatus insertRow(const QString &table, const QVariantMap &values);
    // Every value of `assignments` goes into every row that passes `where`.
    DbStatus update(const QString &table, const QVariantMap &assignments, const FakeConditions &where);
    // `columns` empty selects every column, under its own name.
    DbStatus select(const QString &table, const QStringList &columns, const FakeConditions &where,
                    ResultSet &into) const;

    // SQL Server's INFORMATION_SCHEMA.COLUMNS and .VIEWS of this database, as
    // the tables COLUMNS and VIEWS of another. Only tables' columns are listed:
    // the fake knows a view by its text alone.
    FakeDatabase informationSchema() const;

    QStringList tables() const; // in order of creation, as created
    QStringList views() const;
    bool hasTable(const QString &table) const;
    bool hasView(const QString &view) const;
    QList<FakeColumn> columns(const QString &table) const; // in table order; empty when missing
    std::optional<FakeColumn> column(const QString &table, const QString &column) const;
    QList<QVariantList> rows(const QString &table) const;
    // Each row's cells as text; "NULL" for a null cell.
    QList<QStringList> rowTexts(const QString &table) const;
    // One cell as text; a null QString when the row or column is missing.
    QString cellText(const QString &table, qsizetype row, const QString &column) const;
    QString viewDefinition(const QString &view) const; // empty when missing

private:
    struct Table
    {
        QString name;
        QList<FakeColumn> columns;
        QList<QVariantList> rows;
        qint64 nextIdentity = 1;
    };
    struct View
    {
        QString name;
        QString definition;
    };

    Table *findTable(const QString &table);
    const Table *findTable(const QString &table) const;
    const View *findView(const QString &view) const;
    DbStatus checkNewObject(const QString &name) const;
    DbStatus checkWritableTable(const QString &table) const;

    QString m_name;
    std::vector<Table> m_tables;
    std::vector<View> m_views;
};
