#include "expectedschema.h"
#include "tablesinorder.h"

#include <QTest>

namespace {

// "tblA(SrNo bigint, Name nvarchar 20)": the columns in order, a width only where one was given.
QStringList described(const QList<SchemaTable> &tables)
{
    QStringList described;
    for (const SchemaTable &table : tables) {
        QStringList columns;
        for (const SchemaColumn &column : table.columns)
            columns << column.name + QLatin1Char(' ') + column.type
                    + (column.length ? QLatin1Char(' ') + QString::number(column.length) : QString());
        described << table.name + QLatin1Char('(') + columns.join(QLatin1String(", ")) + QLatin1Char(')');
    }
    return described;
}

QString describedTable(const QString &name)
{
    const ExpectedSchema schema = tablePhaseSchema();
    for (const SchemaTable &table : schema.tables) {
        if (table.name == name)
            return described({table}).first();
    }
    return QString();
}

const QString kCreateItems = QStringLiteral("CREATE TABLE [dbo].[tblItems] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL )");

} // namespace

class TestExpectedSchema : public QObject
{
    Q_OBJECT

private slots:
    void tablePhaseTables();
    void tablePhaseColumns_data();
    void tablePhaseColumns();
    void statementsApplied_data();
    void statementsApplied();
};

void TestExpectedSchema::tablePhaseTables()
{
    const ExpectedSchema schema = tablePhaseSchema();
    QVERIFY2(schema.unread.isEmpty(), qPrintable(schema.unread.join(QLatin1Char('\n'))));
    QStringList names;
    for (const SchemaTable &table : schema.tables)
        names << table.name;
    QCOMPARE(names,
             tablesInCreationOrder());
}

void TestExpectedSchema::tablePhaseColumns_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("columns");

    QTest::newRow("first column created, the rest added")
        << "tblCareOf" << "tblCareOf(SrNo bigint, Name nvarchar 50, Designation nvarchar 20, UserName nvarchar 50)";
    QTest::newRow("type spelled as the statement spells it")
        << "tblClosingDate" << "tblClosingDate(ClosingDate DateTime)";
    QTest::newRow("widened columns at their new width")
        << "tblPartyInfo"
        << "tblPartyInfo(PartySrNo bigint, PartyName nvarchar 200, PartyCode nvarchar 9, PartyAddress nvarchar 100, "
           "PartyPhone nvarchar 100, PartyFax nvarchar 100, PartyEmail nvarchar 100, PartyDesc nvarchar 500, "
           "PartySaleTaxNo nvarchar 20, PartyNTN nvarchar 9, DueDays int, CareOf nvarchar 50, UserName nvarchar 50, "
           "EntryDate datetime)";
    QTest::newRow("every column in one CREATE TABLE")
        << "tblStockEmpty"
        << "tblStockEmpty(SrNo bigint, KWClientName nvarchar 50, KWClientAddress nvarchar 255, BrandName nvarchar 35, "
           "Type nvarchar 20, PartyName nvarchar 50, PartyCode nvarchar 9, Units int, UnitPrice real, "
           "StockDate datetime, Issue int, StockInHand int, SDate datetime, EDate datetime, StockDesc nvarchar 500)";
    QTest::newRow("configuration table")
        << "tblConfig"
        << "tblConfig(SrNo bigint, ValueInPoints nvarchar 5, DecimalPointsYes int, DecimalPointsNo int, "
           "UpdateStatus nvarchar 10)";
}

void TestExpectedSchema::tablePhaseColumns()
{
    QFETCH(QString, table);
    QFETCH(QString, columns);
    QCOMPARE(describedTable(table), columns);
}

void TestExpectedSchema::statementsApplied_data()
{
    QTest::addColumn<QStringList>("statements");
    QTest::addColumn<QStringList>("tables");
    QTest::addColumn<QStringList>("unread");

    const QString addName = QStringLiteral("ALTER TABLE [dbo].[tblItems] ADD [ItemName] [nvarchar] (20) Default('') NOT NULL ");
    QTest::newRow("identity's comma inside its parentheses")
        << QStringList{kCreateItems} << QStringList{"tblItems(SrNo bigint)"} << QStringList();
    QTest::newRow("commas inside a default's quotes")
        << QStringList{"CREATE TABLE [dbo].[tblNotes] ([Note] [nvarchar] (9) Default(',') NULL,[Day] [int] NULL)"}
        << QStringList{"tblNotes(Note nvarchar 9, Day int)"} << QStringList();
    QTest::newRow("table created twice keeps its first form")
        << QStringList{kCreateItems, "CREATE TABLE [dbo].[TBLITEMS] ([Code] [int] NULL)"}
        << QStringList{"tblItems(SrNo bigint)"} << QStringList();
    QTest::newRow("column added twice keeps its first type")
        << QStringList{kCreateItems, addName, "ALTER TABLE [dbo].[tblItems] ADD [itemname] [int] Default(0) NOT NULL"}
        << QStringList{"tblItems(SrNo bigint, ItemName nvarchar 20)"} << QStringList();
    QTest::newRow("a statement adding an existing column adds none")
        << QStringList{kCreateItems, addName,
                       "ALTER TABLE [dbo].[tblItems] ADD [Rate] [float] NULL, [ItemName] [nvarchar] (9) NULL"}
        << QStringList{"tblItems(SrNo bigint, ItemName nvarchar 20)"} << QStringList();
    QTest::newRow("column added to a missing table")
        << QStringList{addName} << QStringList() << QStringList();
    QTest::newRow("altered column takes its new type and width in place")
        << QStringList{kCreateItems, addName, "ALTER TABLE [dbo].[tblItems] ADD [Rate] [float] NULL",
                       "ALTER TABLE [dbo].[tblItems] ALTER COLUMN [ItemName] [nvarchar] (100) NOT NULL"}
        << QStringList{"tblItems(SrNo bigint, ItemName nvarchar 100, Rate float)"} << QStringList();
    QTest::newRow("altering a missing column changes nothing")
        << QStringList{kCreateItems, "ALTER TABLE [dbo].[tblItems] ALTER COLUMN [Phone] [nvarchar] (100) NOT NULL"}
        << QStringList{"tblItems(SrNo bigint)"} << QStringList();
    QTest::newRow("rows and their tests shape no table")
        << QStringList{kCreateItems, "Select * From tblItems", "Insert Into tblItems (SrNo) Values (1)",
                       "Update tblItems Set SrNo=2", "drop table [dbo].[tblItems]"}
        << QStringList{"tblItems(SrNo bigint)"} << QStringList();
    QTest::newRow("forms not read are told")
        << QStringList{kCreateItems, "ALTER TABLE [dbo].[tblItems] DROP COLUMN [SrNo]",
                       "CREATE TABLE tblPlain (Code int)"}
        << QStringList{"tblItems(SrNo bigint)"}
        << QStringList{"ALTER TABLE [dbo].[tblItems] DROP COLUMN [SrNo]", "CREATE TABLE tblPlain (Code int)"};
}

void TestExpectedSchema::statementsApplied()
{
    QFETCH(QStringList, statements);
    QFETCH(QStringList, tables);
    QFETCH(QStringList, unread);
    const ExpectedSchema schema = schemaAfter(statements);
    QCOMPARE(described(schema.tables), tables);
    QCOMPARE(schema.unread, unread);
}

QTEST_APPLESS_MAIN(TestExpectedSchema)
#include "tst_expectedschema.moc"
