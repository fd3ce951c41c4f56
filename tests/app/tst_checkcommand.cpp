#include "commandinvocation.h"
#include "fakesqlserver.h"
#include "stocktable.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <functional>

using DatabaseChange = std::function<DbStatus(FakeDatabase &)>;
Q_DECLARE_METATYPE(DatabaseChange)

namespace {

const QString kDatabase = QStringLiteral("QuorvexA");

// The table made again, empty, with its columns edited: as an older database may hold it.
DbStatus remade(FakeDatabase &database, const QString &table, const std::function<void(QList<FakeColumn> &)> &edit)
{
    QList<FakeColumn> columns = database.columns(table);
    edit(columns);
    const DbStatus dropped = database.dropTable(table);
    return dropped.ok ? database.createTable(table, columns) : dropped;
}

// A database after a full run on the fake server.
std::shared_ptr<FakeServerState> ranDatabase(bool withStockTable)
{
    auto server = std::make_shared<FakeServerState>();
    if (withStockTable)
        addStockTable(server->database(kDatabase));
    const Invocation run =
        invoke({"run", "--mode", "LOCAL", "--database", kDatabase}, fakeSqlServerConnections(server));
    if (run.exit != 0)
        qFatal("the run before the check failed: %s", qPrintable(run.err));
    return server;
}

QString lastLine(const QString &text)
{
    return text.trimmed().section(QLatin1Char('\n'), -1);
}

} // namespace

class TestCheckCommand : public QObject
{
    Q_OBJECT

private slots:
    void check_data();
    void check();
    void databaseThatCannotBeOpened();
};

void TestCheckCommand::check_data()
{
    QTest::addColumn<bool>("withStockTable");
    QTest::addColumn<DatabaseChange>("change");
    QTest::addColumn<int>("exit");
    QTest::addColumn<QString>("line"); // one line of the report
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("kind"); // a JSON array
    QTest::addColumn<QString>("findings"); // all of it

    const DatabaseChange nothing = [](FakeDatabase &) { return DbStatus::success(); };
    // The statements spell some types DateTime; the server reports datetime.
    QTest::newRow("after a full run")
        << true << nothing << 0 << "  table tblStock" << "matches" << "extraTables" << R"(["tblStock"])";
    QTest::newRow("after a full run without tblStock")
        << false << nothing << 1 << "  Stock" << "1 difference" << "missingViews" << R"(["Stock"])";
    QTest::newRow("missing column")
        << true
        << DatabaseChange([](FakeDatabase &database) {
               return remade(database, QStringLiteral("tblPartyInfo"), [](QList<FakeColumn> &columns) {
                   columns.removeIf([](const FakeColumn &column) { return column.name == QLatin1String("PartyFax"); });
               });
           })
        << 1 << "  tblPartyInfo.PartyFax nvarchar(100)" << "1 difference" << "missingColumns"
        << R"json([{"column":"PartyFax","expected":"nvarchar(100)","table":"tblPartyInfo"}])json";
    QTest::newRow("narrower column")
        << true
        << DatabaseChange([](FakeDatabase &database) {
               return database.alterColumn(QStringLiteral("tblPartyInfo"), QStringLiteral("PartyPhone"),
                                           QStringLiteral("nvarchar"), 50, true);
           })
        << 1 << "  tblPartyInfo.PartyPhone nvarchar(50), expected nvarchar(100)" << "1 difference"
        << "differingColumns"
        << R"json([{"column":"PartyPhone","expected":"nvarchar(100)","found":"nvarchar(50)","table":"tblPartyInfo"}])json";
    QTest::newRow("column of another type")
        << true
        << DatabaseChange([](FakeDatabase &database) {
               return remade(database, QStringLiteral("tblConfig"), [](QList<FakeColumn> &columns) {
                   columns.last() = {QStringLiteral("UpdateStatus"), QStringLiteral("int")};
               });
           })
        << 1 << "  tblConfig.UpdateStatus int, expected nvarchar(10)" << "1 difference" << "differingColumns"
        << R"json([{"column":"UpdateStatus","expected":"nvarchar(10)","found":"int","table":"tblConfig"}])json";
    QTest::newRow("missing table")
        << true << DatabaseChange([](FakeDatabase &database) { return database.dropTable(QStringLiteral("tblJobCard")); })
        << 1 << "  tblJobCard" << "1 difference" << "missingTables" << R"(["tblJobCard"])";
    QTest::newRow("missing view")
        << true
        << DatabaseChange([](FakeDatabase &database) { return database.dropView(QStringLiteral("PartyPosition")); })
        << 1 << "  PartyPosition" << "1 difference" << "missingViews" << R"(["PartyPosition"])";
    QTest::newRow("extra table left alone")
        << true
        << DatabaseChange([](FakeDatabase &database) {
               return database.createTable(QStringLiteral("tblNotes"), {{QStringLiteral("Note"), QStringLiteral("ntext")}});
           })
        << 0 << "  table tblNotes" << "matches" << "extraTables" << R"(["tblNotes","tblStock"])";
    QTest::newRow("extra column left alone")
        << true
        << DatabaseChange([](FakeDatabase &database) {
               return database.addColumn(QStringLiteral("tblConfig"),
                                         {QStringLiteral("Theme"), QStringLiteral("nvarchar"), 20});
           })
        << 0 << "  column tblConfig.Theme nvarchar(20)" << "matches" << "extraColumns"
        << R"json([{"column":"Theme","found":"nvarchar(20)","table":"tblConfig"}])json";
    QTest::newRow("extra view left alone")
        << true
        << DatabaseChange([](FakeDatabase &database) {
               return database.createView(QStringLiteral("OldList"),
                                          QStringLiteral("CREATE VIEW dbo.OldList AS SELECT 1 AS One"));
           })
        << 0 << "  view OldList" << "matches" << "extraViews" << R"(["OldList"])";
}

void TestCheckCommand::check()
{
    QFETCH(bool, withStockTable);
    QFETCH(DatabaseChange, change);
    QFETCH(int, exit);
    QFETCH(QString, line);
    QFETCH(QString, last);
    QFETCH(QString, kind);
    QFETCH(QString, findings);

    const auto server = ranDatabase(withStockTable);
    const DbStatus changed = change(server->database(kDatabase));
    QVERIFY2(changed.ok, qPrintable(changed.message));
    const FakeDatabase before = server->database(kDatabase);
    const qsizetype sentBefore = server->statementLog().size();
    const QStringList arguments{"check", "--mode", "LOCAL", "--database", kDatabase};

    const Invocation report = invoke(arguments, fakeSqlServerConnections(server));
    QCOMPARE(report.exit, exit);
    QVERIFY2(report.out.split(QLatin1Char('\n')).contains(line), qPrintable(report.out));
    QCOMPARE(lastLine(report.out), last);
    QVERIFY(report.err.isEmpty());

    const Invocation json = invoke(arguments + QStringList{"--json"}, fakeSqlServerConnections(server));
    QCOMPARE(json.exit, exit);
    QJsonParseError error;
    const QJsonObject object = QJsonDocument::fromJson(json.out.toUtf8(), &error).object();
    QCOMPARE(error.error, QJsonParseError::NoError);
    QCOMPARE(object.value(QStringLiteral("matches")).toBool(), exit == 0);
    QCOMPARE(object.value(QStringLiteral("differences")).toInt(), exit == 0 ? 0 : 1);
    const QJsonArray found = object.value(kind).toArray();
    QCOMPARE(QString::fromUtf8(QJsonDocument(found).toJson(QJsonDocument::Compact)), findings);

    // Two reads of the catalogue for each check, and no change to the database.
    const QList<FakeLoggedStatement> sent = server->statementLog().mid(sentBefore);
    QCOMPARE(sent.size(), 4);
    for (const FakeLoggedStatement &statement : sent) {
        QVERIFY2(statement.text.startsWith(QLatin1String("SELECT ")), qPrintable(statement.text));
        QVERIFY2(statement.ok, qPrintable(statement.message));
    }
    const FakeDatabase &after = server->database(kDatabase);
    QCOMPARE(after.tables(), before.tables());
    QCOMPARE(after.views(), before.views());
}

void TestCheckCommand::databaseThatCannotBeOpened()
{
    auto server = std::make_shared<FakeServerState>();
    server->dropDatabase(QStringLiteral("QuorvexGone"));
    const Invocation invocation =
        invoke({"check", "--mode", "LOCAL", "--database", "QuorvexGone"}, fakeSqlServerConnections(server));
    QCOMPARE(invocation.exit, 1);
    QVERIFY2(invocation.err.contains(QLatin1String("cannot open the database 'QuorvexGone'")), qPrintable(invocation.err));
    QVERIFY(invocation.out.isEmpty());
    QVERIFY(server->statementLog().isEmpty());
    QVERIFY(!server->hasDatabase(QStringLiteral("QuorvexGone")));
}

QTEST_GUILESS_MAIN(TestCheckCommand)
#include "tst_checkcommand.moc"
