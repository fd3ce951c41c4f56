#include "catalogueanswers.h"
#include "schemadrift.h"

#include <QTest>

#include <functional>

using SchemaChange = std::function<void(DatabaseSchema &)>;
Q_DECLARE_METATYPE(SchemaChange)

namespace {

SchemaTable &table(DatabaseSchema &schema, const QString &name)
{
    for (SchemaTable &table : schema.tables) {
        if (table.name == name)
            return table;
    }
    qFatal("no table %s", qPrintable(name));
}

SchemaColumn &column(DatabaseSchema &schema, const QString &tableName, const QString &name)
{
    for (SchemaColumn &column : table(schema, tableName).columns) {
        if (column.name == name)
            return column;
    }
    qFatal("no column %s", qPrintable(name));
}

// Every finding of the drift, one line each.
QStringList findings(const SchemaDrift &drift)
{
    QStringList lines;
    for (const QString &name : drift.missingTables)
        lines << "missing table " + name;
    for (const ColumnFinding &f : drift.missingColumns)
        lines << "missing column " + f.table + "." + f.column + " " + f.expected;
    for (const ColumnFinding &f : drift.differingColumns)
        lines << "differing column " + f.table + "." + f.column + " " + f.found + " for " + f.expected;
    for (const QString &name : drift.missingViews)
        lines << "missing view " + name;
    for (const QString &name : drift.extraTables)
        lines << "extra table " + name;
    for (const ColumnFinding &f : drift.extraColumns)
        lines << "extra column " + f.table + "." + f.column + " " + f.found;
    for (const QString &name : drift.extraViews)
        lines << "extra view " + name;
    return lines;
}

} // namespace

class TestSchemaDrift : public QObject
{
    Q_OBJECT

private slots:
    void drift_data();
    void drift();
};

void TestSchemaDrift::drift_data()
{
    QTest::addColumn<SchemaChange>("change"); // to the database that a run left
    QTest::addColumn<QStringList>("findings");
    QTest::addColumn<int>("differences");

    QTest::newRow("as a run leaves it, names and types in the server's case")
        << SchemaChange([](DatabaseSchema &s) {
               table(s, "tblConfig").name = "TBLCONFIG";
               column(s, "tblClosingDate", "ClosingDate").type = "datetime";
               column(s, "tblPartyInfo", "PartyPhone").name = "partyphone";
               s.views.first() = s.views.first().toUpper();
           })
        << QStringList() << 0;
    QTest::newRow("missing column, expected at its widened width")
        << SchemaChange([](DatabaseSchema &s) {
               table(s, "tblPartyInfo").columns.removeIf([](const SchemaColumn &c) { return c.name == "PartyFax"; });
           })
        << QStringList{"missing column tblPartyInfo.PartyFax nvarchar(100)"} << 1;
    QTest::newRow("narrower column")
        << SchemaChange([](DatabaseSchema &s) { column(s, "tblPartyInfo", "PartyPhone").length = 50; })
        << QStringList{"differing column tblPartyInfo.PartyPhone nvarchar(50) for nvarchar(100)"} << 1;
    QTest::newRow("wider column")
        << SchemaChange([](DatabaseSchema &s) { column(s, "tblPartyInfo", "PartyPhone").length = 200; })
        << QStringList{"differing column tblPartyInfo.PartyPhone nvarchar(200) for nvarchar(100)"} << 1;
    QTest::newRow("column of another type")
        << SchemaChange([](DatabaseSchema &s) { column(s, "tblConfig", "UpdateStatus") = {"UpdateStatus", "int", 0}; })
        << QStringList{"differing column tblConfig.UpdateStatus int for nvarchar(10)"} << 1;
    QTest::newRow("missing table and view")
        << SchemaChange([](DatabaseSchema &s) {
               s.tables.removeIf([](const SchemaTable &t) { return t.name == "tblJobCard"; });
               s.views.removeAll("PartyPosition");
           })
        << QStringList{"missing table tblJobCard", "missing view PartyPosition"} << 2;
    QTest::newRow("what the database holds of its own is left alone")
        << SchemaChange([](DatabaseSchema &s) {
               s.tables << SchemaTable{"tblNotes", {{"Note", "ntext", 0}}};
               table(s, "tblConfig").columns << SchemaColumn{"Theme", "nvarchar", 20};
               s.views << "OldList";
           })
        << QStringList{"extra table tblNotes", "extra column tblConfig.Theme nvarchar(20)", "extra view OldList"} << 0;
}

void TestSchemaDrift::drift()
{
    QFETCH(SchemaChange, change);
    QFETCH(QStringList, findings);
    QFETCH(int, differences);

    DatabaseSchema database = whatARunLeaves();
    change(database);
    ScriptedServer server;
    answerCatalogue(server, database);
    const std::unique_ptr<Connection> connection = server.connections()();
    QVERIFY(connection->open(QStringLiteral("QuorvexA")).ok);
    DatabaseSchema found;
    QVERIFY(readDatabaseSchema(*connection, found).ok);
    const SchemaDrift drift = schemaDrift(whatARunLeaves(), found);
    QCOMPARE(::findings(drift), findings);
    QCOMPARE(drift.differences(), differences);
}

QTEST_GUILESS_MAIN(TestSchemaDrift)
#include "tst_schemadrift.moc"
