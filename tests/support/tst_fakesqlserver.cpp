#include "fakesqlserver.h"

#include <QTest>

namespace {

const QString kOpenBooks = QStringLiteral("Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;"
                                          "Initial Catalog=QuorvexBooks;Data Source=");

const QString kCreateItems = QStringLiteral("CREATE TABLE [dbo].[tblItems] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL )");
const QString kAddItemName = QStringLiteral("ALTER TABLE [dbo].[tblItems] ADD [ItemName] [nvarchar] (20) Default('') NOT NULL ");
const QString kAddItemDate = QStringLiteral("ALTER TABLE [dbo].[tblItems] ADD [EntryDate] [datetime] Default('1/1/2000') NOT NULL");
const QString kAddItemRate = QStringLiteral("ALTER TABLE [dbo].[tblItems] ADD [Rate] [float] Default(0) NOT NULL");
const QString kInsertPen = QStringLiteral("Insert Into tblItems (ItemName) Values ('PEN')");
const QString kInsertInk = QStringLiteral("Insert Into tblItems (ItemName,Rate) Values('INK',2.5)");

// Statements that must all succeed before the statement under test.
void runSetup(FakeSqlServer &connection, const QStringList &statements)
{
    for (const QString &statement : statements) {
        const DbStatus status = connection.execute(statement);
        QVERIFY2(status.ok, qPrintable(statement + QLatin1String(": ") + status.message));
    }
}

} // namespace

class TestFakeSqlServer : public QObject
{
    Q_OBJECT

private slots:
    void refusals_data();
    void refusals();
    void tableContents_data();
    void tableContents();
    void alterColumnWidensAndKeepsData();
    void guardSelect_data();
    void guardSelect();
    void viewKeepsItsDefinition();
    void informationSchemaDescribesTheDatabase();
    void olderDatabaseTakesNewColumns();
    void createdDatabaseOpens();
    void openRules();
    void logRecordsEveryStatement();
};

void TestFakeSqlServer::refusals_data()
{
    QTest::addColumn<QStringList>("setup");
    QTest::addColumn<QString>("statement");
    QTest::addColumn<int>("nativeError");

    const QStringList items = {kCreateItems, kAddItemName};
    const QStringList itemsWithRow = {kCreateItems, kAddItemName, kInsertPen};
    const QString itemView = QStringLiteral("CREATE VIEW dbo.ItemList AS SELECT ItemName FROM dbo.tblItems");

    QTest::newRow("create existing table") << items << kCreateItems << 2714;
    QTest::newRow("create table named as a view")
        << (items + QStringList{itemView}) << QStringLiteral("CREATE TABLE [dbo].[ItemList] ([A] [int] NULL)") << 2714;
    QTest::newRow("create view named as a table") << items
                                                  << QStringLiteral("CREATE VIEW dbo.TBLITEMS AS SELECT * FROM dbo.tblItems")
                                                  << 2714;
    QTest::newRow("add existing column") << items
                                         << QStringLiteral("ALTER TABLE [dbo].[tblItems] ADD [itemname] [int] Default(0) NOT NULL")
                                         << 2705;
    QTest::newRow("NOT NULL without default on a table with rows")
        << itemsWithRow << QStringLiteral("ALTER TABLE [dbo].[tblItems] ADD [StockDate] [datetime] NOT NULL ") << 4901;
    QTest::newRow("add column to missing table")
        << QStringList() << QStringLiteral("ALTER TABLE [dbo].[tblNone] ADD [A] [int] Default(0) NOT NULL") << 4902;
    QTest::newRow("alter missing column")
        << items << QStringLiteral("ALTER TABLE [dbo].[tblItems] ALTER COLUMN [Phone] [nvarchar] (100) NOT NULL") << 4924;
    QTest::newRow("insert into missing column")
        << items << QStringLiteral("Insert Into tblItems (ItemName,Colour) Values ('PEN','RED')") << 207;
    QTest::newRow("insert into missing table") << QStringList() << kInsertPen << 208;
    QTest::newRow("insert of more values than columns")
        << items << QStringLiteral("Insert Into tblItems (ItemName) Values ('PEN','INK')") << 110;
    QTest::newRow("insert of more values than the table has")
        << items << QStringLiteral("Insert Into tblItems Values ('PEN','INK')") << 213;
    QTest::newRow("insert into identity") << items << QStringLiteral("Insert Into tblItems (SrNo) Values (7)") << 544;
    QTest::newRow("insert leaves NOT NULL without default empty")
        << QStringList{QStringLiteral("CREATE TABLE [dbo].[tblDue] ([DueDate] [datetime] NOT NULL ,[Note] [nvarchar] (5) NULL)")}
        << QStringLiteral("Insert Into tblDue (Note) Values ('x')") << 515;
    QTest::newRow("text too long for its column")
        << items << QStringLiteral("Insert Into tblItems (ItemName) Values ('ABCDEFGHIJKLMNOPQRSTUVWXYZ')") << 8152;
    QTest::newRow("drop missing table") << QStringList() << QStringLiteral("drop table [dbo].[tblItems]") << 3701;
    QTest::newRow("drop missing view") << items << QStringLiteral("drop view [dbo].[ItemList]") << 3701;
    QTest::newRow("drop view of a table") << items << QStringLiteral("drop view [dbo].[tblItems]") << 3705;
    QTest::newRow("drop table of a view") << (items + QStringList{itemView})
                                          << QStringLiteral("drop table [dbo].[ItemList]") << 3705;
    QTest::newRow("view on missing dbo table")
        << items << QStringLiteral("CREATE VIEW dbo.Stock AS SELECT Units FROM dbo.tblStock") << 208;
    QTest::newRow("view joining a missing view")
        << items
        << QStringLiteral("CREATE VIEW dbo.Both AS SELECT I.ItemName FROM dbo.tblItems I "
                          "INNER JOIN dbo.ItemList L ON I.ItemName = L.ItemName")
        << 208;
    QTest::newRow("view on missing table without owner")
        << items << QStringLiteral("CREATE VIEW dbo.Stock AS SELECT Units FROM tblStock S") << 208;
    QTest::newRow("select from missing table") << QStringList() << QStringLiteral("Select * From tblConfig") << 208;
    QTest::newRow("select of missing column")
        << items << QStringLiteral("Select Colour From tblItems Where ItemName='PEN'") << 207;
    QTest::newRow("create existing database")
        << QStringList() << QStringLiteral("CREATE DATABASE [QuorvexBooks]  ON (NAME = N'x', FILENAME = N'x.mdf')") << 1801;
    QTest::newRow("create database without a name")
        << QStringList() << QStringLiteral("CREATE DATABASE []  ON (NAME = N'x', FILENAME = N'.mdf')") << 1038;
    QTest::newRow("unknown type") << QStringList() << QStringLiteral("CREATE TABLE [dbo].[tblX] ([A] [nvarchr] (5) NULL)")
                                  << 2715;
    QTest::newRow("statement form the server cannot read")
        << items << QStringLiteral("Insert tblItems ItemName 'PEN'") << 102;
}

void TestFakeSqlServer::refusals()
{
    QFETCH(QStringList, setup);
    QFETCH(QString, statement);
    QFETCH(int, nativeError);

    FakeSqlServer connection;
    QVERIFY(connection.open(kOpenBooks).ok);
    runSetup(connection, setup);
    const FakeDatabase before = connection.server()->database(QStringLiteral("QuorvexBooks"));

    const DbStatus status = connection.execute(statement);

    QVERIFY(!status.ok);
    QCOMPARE(status.nativeError, nativeError);
    QVERIFY(!status.message.isEmpty());
    const FakeDatabase &after = connection.server()->database(QStringLiteral("QuorvexBooks"));
    QCOMPARE(after.tables(), before.tables());
    QCOMPARE(after.views(), before.views());
    for (const QString &table : after.tables()) {
        QCOMPARE(after.columns(table).size(), before.columns(table).size());
        QCOMPARE(after.rowTexts(table), before.rowTexts(table));
    }
}

void TestFakeSqlServer::tableContents_data()
{
    QTest::addColumn<QStringList>("statements");
    QTest::addColumn<QString>("table");
    QTest::addColumn<QList<QStringList>>("rows");

    QTest::newRow("identity counts from its seed")
        << QStringList{kCreateItems, kAddItemName, kInsertPen, QStringLiteral("Insert Into tblItems (ItemName) Values ('INK')"),
                       kInsertPen}
        << QStringLiteral("tblItems")
        << QList<QStringList>{{"1", "PEN"}, {"2", "INK"}, {"3", "PEN"}};
    QTest::newRow("defaults fill omitted columns")
        << QStringList{kCreateItems, kAddItemName, kAddItemDate, kAddItemRate, kInsertPen, kInsertInk}
        << QStringLiteral("tblItems")
        << QList<QStringList>{{"1", "PEN", "1/1/2000", "0"}, {"2", "INK", "1/1/2000", "2.5"}};
    QTest::newRow("added NOT NULL columns take their default in existing rows")
        << QStringList{kCreateItems, kAddItemName, kInsertPen, kAddItemDate, kAddItemRate} << QStringLiteral("tblItems")
        << QList<QStringList>{{"1", "PEN", "1/1/2000", "0"}};
    QTest::newRow("added nullable columns are NULL in existing rows")
        << QStringList{kCreateItems, kAddItemName, kInsertPen,
                       QStringLiteral("ALTER TABLE [dbo].[tblItems] ADD [Note] [nvarchar] (10) NULL"),
                       QStringLiteral("ALTER TABLE [dbo].[tblItems] ADD [Shelf] [int] Default(3) NULL")}
        << QStringLiteral("tblItems") << QList<QStringList>{{"1", "PEN", "NULL", "NULL"}};
    QTest::newRow("NOT NULL without default on an empty table")
        << QStringList{kCreateItems, QStringLiteral("ALTER TABLE [dbo].[tblItems] ADD [StockDate] [datetime] NOT NULL "),
                       QStringLiteral("Insert Into tblItems (StockDate) Values ('3/1/2021')")}
        << QStringLiteral("tblItems") << QList<QStringList>{{"1", "3/1/2021"}};
    QTest::newRow("text given for numbers, numbers for text, char padded")
        << QStringList{QStringLiteral("CREATE TABLE [dbo].[tblHead] ( [No] [bigint] Default(0) NOT NULL , "
                                      "[Kind] [char] (2) Default('') NOT NULL, [Stamp] [nvarchar] (10) Default('') NOT NULL)"),
                       QStringLiteral("Insert Into tblHead (No,Kind,Stamp) Values ('1','1',0)")}
        << QStringLiteral("tblHead") << QList<QStringList>{{"1", "1 ", "0"}};
    QTest::newRow("names without case, brackets or owner")
        << QStringList{kCreateItems, kAddItemName, QStringLiteral("insert into [dbo].[TBLITEMS] ([itemname]) values (N'PEN')"),
                       QStringLiteral("INSERT INTO dbo.tblitems (ITEMNAME) VALUES ('INK')")}
        << QStringLiteral("TblItems") << QList<QStringList>{{"1", "PEN"}, {"2", "INK"}};
    QTest::newRow("update of every row")
        << QStringList{kCreateItems, kAddItemName, kAddItemRate, kInsertPen, kInsertInk,
                       QStringLiteral("Update tblItems Set Rate='7'")}
        << QStringLiteral("tblItems") << QList<QStringList>{{"1", "PEN", "7"}, {"2", "INK", "7"}};
    QTest::newRow("update of matching rows")
        << QStringList{kCreateItems, kAddItemName, kAddItemRate, kInsertPen, kInsertInk,
                       QStringLiteral("Update tblItems Set ItemName='NIB', Rate=1 Where itemname='pen '")}
        << QStringLiteral("tblItems") << QList<QStringList>{{"1", "NIB", "1"}, {"2", "INK", "2.5"}};
    QTest::newRow("drop and create again empties a table")
        << QStringList{kCreateItems, kAddItemName, kInsertPen, QStringLiteral("drop table [dbo].[tblItems]"), kCreateItems}
        << QStringLiteral("tblItems") << QList<QStringList>();
}

void TestFakeSqlServer::tableContents()
{
    QFETCH(QStringList, statements);
    QFETCH(QString, table);
    QFETCH(QList<QStringList>, rows);

    FakeSqlServer connection;
    QVERIFY(connection.open(kOpenBooks).ok);
    runSetup(connection, statements);

    QCOMPARE(connection.server()->database(QStringLiteral("QuorvexBooks")).rowTexts(table), rows);
}

void TestFakeSqlServer::alterColumnWidensAndKeepsData()
{
    FakeSqlServer connection;
    QVERIFY(connection.open(kOpenBooks).ok);
    runSetup(connection, {QStringLiteral("CREATE TABLE [dbo].[tblParty] ( [PartySrNo] [bigint] IDENTITY (1, 1) NOT NULL )"),
                          QStringLiteral("ALTER TABLE [dbo].[tblParty] ADD [Phone] [nvarchar] (50) Default('') NOT NULL "),
                          QStringLiteral("Insert Into tblParty (Phone) Values ('042-111')"),
                          QStringLiteral("ALTER TABLE [dbo].[tblParty] ALTER COLUMN [Phone] [nvarchar] (100) NOT NULL")});

    const FakeDatabase &database = connection.server()->database(QStringLiteral("QuorvexBooks"));
    const std::optional<FakeColumn> phone = database.column(QStringLiteral("tblParty"), QStringLiteral("phone"));
    QVERIFY(phone);
    QCOMPARE(phone->type, QStringLiteral("nvarchar"));
    QCOMPARE(phone->length, 100);
    QVERIFY(phone->notNull);
    QCOMPARE(phone->defaultValue, std::optional<QString>(QString()));
    QCOMPARE(database.cellText(QStringLiteral("tblParty"), 0, QStringLiteral("Phone")), QStringLiteral("042-111"));
    const QString hundredDigits(100, u'9');
    QVERIFY(connection.execute(QStringLiteral("Insert Into tblParty (Phone) Values ('%1')").arg(hundredDigits)).ok);
}

void TestFakeSqlServer::guardSelect_data()
{
    QTest::addColumn<QString>("select");
    QTest::addColumn<QStringList>("found");

    QTest::newRow("every row") << QStringLiteral("Select * From tblLogin") << QStringList{"ADMINISTRATOR", "CLERK"};
    QTest::newRow("matching name") << QStringLiteral("Select UserName From tblLogin Where UserName='ADMINISTRATOR'")
                                   << QStringList{"ADMINISTRATOR"};
    QTest::newRow("name without case") << QStringLiteral("Select UserName From tblLogin Where UserName='administrator'")
                                       << QStringList{"ADMINISTRATOR"};
    QTest::newRow("trailing blanks ignored") << QStringLiteral("Select UserName From tblLogin Where UserName='CLERK  '")
                                             << QStringList{"CLERK"};
    QTest::newRow("no such name") << QStringLiteral("Select UserName From tblLogin Where UserName='GUEST'") << QStringList();
    QTest::newRow("both conditions") << QStringLiteral("Select UserName From tblLogin Where UserName='CLERK' And Password='X'")
                                     << QStringList();
    QTest::newRow("number compared by value") << QStringLiteral("Select UserName From tblLogin Where Level=2")
                                              << QStringList{"CLERK"};
}

void TestFakeSqlServer::guardSelect()
{
    QFETCH(QString, select);
    QFETCH(QStringList, found);

    FakeSqlServer connection;
    QVERIFY(connection.open(kOpenBooks).ok);
    runSetup(connection, {QStringLiteral("CREATE TABLE [dbo].[tblLogin] ( [UserName] [nvarchar] (50) Default('') NOT NULL )"),
                          QStringLiteral("ALTER TABLE [dbo].[tblLogin] ADD [Password] [nvarchar] (50) Default('') NOT NULL "),
                          QStringLiteral("ALTER TABLE [dbo].[tblLogin] ADD [Level] [int] Default(1) NOT NULL"),
                          QStringLiteral("Insert Into tblLogin (UserName,Password) Values ('ADMINISTRATOR','SECRET')"),
                          QStringLiteral("Insert Into tblLogin (UserName,Password,Level) Values ('CLERK','Y',2)")});

    ResultSet result;
    QVERIFY(connection.query(select, result).ok);
    QStringList names;
    while (result.atEnd() == false) {
        names << result.field(QStringLiteral("UserName"))->toString();
        QVERIFY(result.moveNext().ok);
    }
    QCOMPARE(names, found);
}

void TestFakeSqlServer::viewKeepsItsDefinition()
{
    const QString definition = QStringLiteral("CREATE VIEW dbo.ItemList AS SELECT ItemName FROM dbo.tblItems  WHERE (Rate > 0)");
    FakeSqlServer connection;
    QVERIFY(connection.open(kOpenBooks).ok);
    runSetup(connection, {kCreateItems, kAddItemName, kAddItemRate, definition});

    const FakeDatabase &database = connection.server()->database(QStringLiteral("QuorvexBooks"));
    QCOMPARE(database.views(), QStringList{QStringLiteral("ItemList")});
    QCOMPARE(database.viewDefinition(QStringLiteral("itemlist")), definition);
    QVERIFY(connection.execute(QStringLiteral("drop view [dbo].[ItemList]")).ok);
    QVERIFY(database.views().isEmpty());
}

void TestFakeSqlServer::informationSchemaDescribesTheDatabase()
{
    FakeSqlServer connection;
    QVERIFY(connection.open(kOpenBooks).ok);
    runSetup(connection, {kCreateItems, kAddItemName, kAddItemDate,
                          QStringLiteral("CREATE TABLE [dbo].[tblCodes] ([Code] [char] (3) NULL,[Note] [NVARCHAR] (max) NULL)"),
                          QStringLiteral("CREATE VIEW dbo.ItemList AS SELECT ItemName FROM dbo.tblItems")});

    // Each row's fields as text, joined by blanks.
    const auto rows = [&](const QString &select, const QStringList &fields) {
        ResultSet result;
        const DbStatus status = connection.query(select, result);
        QStringList texts;
        if (!status.ok)
            texts << status.message;
        while (status.ok && result.atEnd() == false) {
            QStringList values;
            for (const QString &field : fields) {
                const QVariant value = result.field(field).value_or(QStringLiteral("(none)"));
                values << (value.isNull() ? QStringLiteral("NULL") : value.toString());
            }
            texts << values.join(u' ');
            result.moveNext();
        }
        return texts;
    };
    QCOMPARE(rows(QStringLiteral("select table_name, column_name, data_type, character_maximum_length, ordinal_position "
                                 "from INFORMATION_SCHEMA.COLUMNS where TABLE_SCHEMA='dbo'"),
                  {"TABLE_NAME", "COLUMN_NAME", "DATA_TYPE", "CHARACTER_MAXIMUM_LENGTH", "ORDINAL_POSITION"}),
             QStringList({"tblItems SrNo bigint NULL 1", "tblItems ItemName nvarchar 20 2",
                          "tblItems EntryDate datetime NULL 3", "tblCodes Code char 3 1", "tblCodes Note nvarchar -1 2"}));
    QCOMPARE(rows(QStringLiteral("Select TABLE_CATALOG, TABLE_NAME From INFORMATION_SCHEMA.VIEWS"),
                  {"TABLE_CATALOG", "TABLE_NAME"}),
             QStringList{"QuorvexBooks ItemList"});
    QCOMPARE(rows(QStringLiteral("Select * From INFORMATION_SCHEMA.TABLES"), {"TABLE_NAME"}),
             QStringList{"Invalid object name 'TABLES'."});
    // Without the owner, the names are the database's own.
    QCOMPARE(rows(QStringLiteral("Select * From COLUMNS"), {"TABLE_NAME"}),
             QStringList{"Invalid object name 'COLUMNS'."});
}

void TestFakeSqlServer::olderDatabaseTakesNewColumns()
{
    auto server = std::make_shared<FakeServerState>();
    FakeDatabase &older = server->database(QStringLiteral("QuorvexBooks"));
    QVERIFY(older.createTable(QStringLiteral("tblItems"),
                              {FakeColumn{.name = QStringLiteral("SrNo"), .type = QStringLiteral("bigint"), .identity = true},
                               FakeColumn{.name = QStringLiteral("ItemName"), .type = QStringLiteral("nvarchar"), .length = 20}})
                .ok);
    QVERIFY(older.insertRow(QStringLiteral("tblItems"), {{QStringLiteral("ItemName"), QStringLiteral("PEN")}}).ok);
    QVERIFY(older.insertRow(QStringLiteral("tblItems"), {}).ok);
    QVERIFY(older.createView(QStringLiteral("ItemList"), QStringLiteral("CREATE VIEW dbo.ItemList AS SELECT 1 AS One")).ok);

    FakeSqlServer connection(server);
    QVERIFY(connection.open(kOpenBooks).ok);
    runSetup(connection, {kAddItemDate, QStringLiteral("Insert Into tblItems Values ('INK','2/2/2002')")});
    QCOMPARE(connection.execute(kAddItemName).nativeError, 2705);
    QCOMPARE(connection.execute(QStringLiteral("CREATE VIEW dbo.ItemList AS SELECT ItemName FROM dbo.tblItems")).nativeError,
             2714);

    QCOMPARE(older.rowTexts(QStringLiteral("tblItems")),
             (QList<QStringList>{{"1", "PEN", "1/1/2000"}, {"2", "NULL", "1/1/2000"}, {"3", "INK", "2/2/2002"}}));
    QCOMPARE(older.columns(QStringLiteral("tblItems")).size(), 3);
    QVERIFY(older.column(QStringLiteral("tblItems"), QStringLiteral("SrNo"))->notNull);
}

void TestFakeSqlServer::createdDatabaseOpens()
{
    auto server = std::make_shared<FakeServerState>();
    server->dropDatabase(QStringLiteral("QuorvexBooks"));
    FakeSqlServer connection(server);
    const DbStatus refused = connection.open(kOpenBooks);
    QVERIFY(!refused.ok);
    QCOMPARE(refused.nativeError, 4060);
    QVERIFY(!connection.isOpen());

    QVERIFY(connection.open(QStringLiteral("Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;"
                                           "Initial Catalog=tempdb"))
                .ok);
    QVERIFY(connection.execute(QStringLiteral("CREATE DATABASE [QuorvexBooks]  ON (NAME = N'Quorvex KRN', FILENAME = "
                                              "N'D:\\QuorvexBooks.mdf') LOG ON (NAME = N'Quorvex KRN_Log', FILENAME = "
                                              "N'D:\\QuorvexBooks_Log.ldf')"))
                .ok);
    QVERIFY(connection.close().ok);

    QVERIFY(connection.open(kOpenBooks).ok);
    QCOMPARE(connection.catalog(), QStringLiteral("QuorvexBooks"));
    QVERIFY(connection.execute(kCreateItems).ok);
    QVERIFY(server->findDatabase(QStringLiteral("quorvexbooks"))->hasTable(QStringLiteral("tblItems")));
    QVERIFY(!server->findDatabase(QStringLiteral("tempdb"))->hasTable(QStringLiteral("tblItems")));
}

void TestFakeSqlServer::openRules()
{
    auto server = std::make_shared<FakeServerState>();
    FakeSqlServer first(server);
    QVERIFY(!first.execute(kCreateItems).ok);
    QVERIFY(first.open(kOpenBooks).ok);
    QVERIFY(!first.open(kOpenBooks).ok);

    // A second connection sees what the first did.
    QVERIFY(first.execute(kCreateItems).ok);
    FakeSqlServer second(server);
    QVERIFY(second.open(kOpenBooks).ok);
    QCOMPARE(second.execute(kCreateItems).nativeError, 2714);

    server->refuseEveryOpen = true;
    FakeSqlServer third(server);
    QVERIFY(!third.open(kOpenBooks).ok);
}

void TestFakeSqlServer::logRecordsEveryStatement()
{
    FakeSqlServer connection;
    QVERIFY(!connection.execute(kCreateItems).ok);
    QVERIFY(connection.open(kOpenBooks).ok);
    connection.execute(kCreateItems);
    connection.execute(kCreateItems);
    ResultSet result;
    connection.query(QStringLiteral("Select * From tblItems"), result);

    const QList<FakeLoggedStatement> &log = connection.server()->statementLog();
    QCOMPARE(log.size(), 4);
    QCOMPARE(log[0].database, QString());
    QVERIFY(!log[0].ok);
    QCOMPARE(log[1].database, QStringLiteral("QuorvexBooks"));
    QCOMPARE(log[1].text, kCreateItems);
    QVERIFY(log[1].ok);
    QVERIFY(!log[2].ok);
    QCOMPARE(log[2].nativeError, 2714);
    QCOMPARE(log[2].message, QStringLiteral("There is already an object named 'tblItems' in the database."));
    QVERIFY(log[3].ok);
    QCOMPARE(connection.server()->failedStatements(), (QStringList{kCreateItems, kCreateItems}));
}

QTEST_GUILESS_MAIN(TestFakeSqlServer)
#include "tst_fakesqlserver.moc"
