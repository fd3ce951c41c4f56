#include "chartofaccounts_catalog.h"
#include "fakesqlserver.h"
#include "fakesqltypes.h"
#include "maintenancerun.h"
#include "mdzrt.h"
#include "quietrunhost.h"
#include "runplan.h"

#include <QTest>

#include <functional>

using DatabaseChange = std::function<void(FakeDatabase &)>;
Q_DECLARE_METATYPE(DatabaseChange)

namespace {

const QString kDatabase = QStringLiteral("Quorvex2024");
const QString kStamp = QStringLiteral("Update tblConfig Set UpdateStatus='20210105'");
const QString kAccountFifteen = QStringLiteral("SYSTEM SALE AND PURCHASE ACCOUNTS");
const QStringList kPartyColumns = {QStringLiteral("PartyName"), QStringLiteral("PartyCode")};
const QStringList kOpeningColumns = {QStringLiteral("VoucherType"), QStringLiteral("VDate"), QStringLiteral("PartyName"),
                                     QStringLiteral("PartyCode"), QStringLiteral("PartyDesc"), QStringLiteral("PartyDR"),
                                     QStringLiteral("PartyCR"), QStringLiteral("PartyBalance")};

// Whole runs against one fake server; the window's result-set variables are
// kept from run to run as the window keeps them.
class FakeRuns
{
public:
    void run()
    {
        mdZRT module(fakeSqlServerConnections(m_server));
        QuietRunHost host;
        MaintenanceRun run(module, host, m_recordsets);
        run.run({QStringLiteral("OFFLINE"), QStringLiteral("ACCOUNTS"), kDatabase}, maintenanceSteps());
    }

    FakeDatabase &database() { return m_server->database(kDatabase); }

    int succeeded(const QString &statement) const
    {
        int count = 0;
        for (const FakeLoggedStatement &logged : m_server->statementLog())
            count += logged.text == statement && logged.ok ? 1 : 0;
        return count;
    }

private:
    std::shared_ptr<FakeServerState> m_server = std::make_shared<FakeServerState>();
    CheckRecordsets m_recordsets;
};

QList<QStringList> selected(const FakeDatabase &database, const QString &table, const QStringList &columns,
                            const FakeConditions &where = {})
{
    ResultSet rows;
    const DbStatus status = database.select(table, columns, where, rows);
    if (!status.ok)
        return {{QLatin1String("select failed: ") + status.message}};
    QList<QStringList> texts;
    while (rows.atEnd() == false) {
        QStringList cells;
        for (const QString &column : columns)
            cells << sqlText(rows.field(column).value_or(QVariant()));
        texts << cells;
        rows.moveNext();
    }
    return texts;
}

QString text(std::string_view value)
{
    return QString::fromLatin1(value.data(), qsizetype(value.size()));
}

QStringList openingRow(const QString &name, const QString &code)
{
    return {QStringLiteral("JV"), QStringLiteral("1/1/2000"), name, code, QStringLiteral("OPENING BALANCE"),
            QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("0")};
}

// The fake knows no Delete: build the table again from its columns and the
// rows that stay, as a Delete would leave it.
void deleteRows(FakeDatabase &database, const QString &table, const QString &column, const QString &value)
{
    const QList<FakeColumn> columns = database.columns(table);
    const QList<QVariantList> rows = database.rows(table);
    database.dropTable(table);
    database.createTable(table, columns);
    for (const QVariantList &row : rows) {
        QVariantMap values;
        bool deleted = false;
        for (qsizetype at = 0; at < columns.size(); ++at) {
            if (columns[at].name == column && row[at].toString() == value)
                deleted = true;
            if (!columns[at].identity)
                values.insert(columns[at].name, row[at]);
        }
        if (!deleted)
            database.insertRow(table, values);
    }
}

} // namespace

class tst_BuiltInRowsDatabase : public QObject
{
    Q_OBJECT

private slots:
    void rowsAfterRuns_data();
    void rowsAfterRuns();
    void secondRunAddsOnlyTheReportHeader();
    void existingDataKept_data();
    void existingDataKept();
    void chartGuards_data();
    void chartGuards();
};

void tst_BuiltInRowsDatabase::rowsAfterRuns_data()
{
    QTest::addColumn<int>("runs");
    QTest::addColumn<QString>("table");
    QTest::addColumn<FakeConditions>("where");
    QTest::addColumn<QStringList>("columns");
    QTest::addColumn<QList<QStringList>>("rows");

    QList<QStringList> parties;
    QList<QStringList> openings;
    for (const ChartAccount &account : chartOfAccounts()) {
        parties << QStringList{text(account.name), text(account.code)};
        openings << openingRow(text(account.name), text(account.balanceCode));
    }

    for (int runs : {1, 2}) {
        const QByteArray prefix = runs == 1 ? "new database: " : "second run: ";
        QTest::newRow(prefix + "closing date")
            << runs << "tblClosingDate" << FakeConditions() << QStringList{"ClosingDate"}
            << QList<QStringList>{{"1/1/2000"}};
        QTest::newRow(prefix + "administrator")
            << runs << "tblLogon" << FakeConditions() << QStringList{"UserName", "Password", "UserType"}
            << QList<QStringList>{{"ADMINISTRATOR", "TULIPOAK", "ADMINISTRATOR"}};
        // VoucherType is char (2), so its "1" comes back blank-padded.
        QTest::newRow(prefix + "report header")
            << runs << "tblKWClientInfo" << FakeConditions()
            << QStringList{"KWClientName", "KWClientAddress", "SDate", "EDate", "VoucherType", "VoucherNo",
                           "PartyCode", "PartyCode1", "PartyName", "CareOf", "UserName", "InvoiceNo",
                           "KWClientSaleTaxNo", "KWClientNTN"}
            << QList<QStringList>{{"1", "1", "1/1/2000", "1/1/2000", "1 ", "1", "1", "1", "1", "1", "1", "0", "",
                                   "_______-_"}};
        QTest::newRow(prefix + "configuration")
            << runs << "tblConfig" << FakeConditions()
            << QStringList{"ValueInPoints", "DecimalPointsYes", "DecimalPointsNo", "UpdateStatus"}
            << QList<QStringList>{{"NO", "0", "2", "20210105"}};
        QTest::newRow(prefix + "party rows")
            << runs << "tblPartyInfo" << FakeConditions() << kPartyColumns << parties;
        QTest::newRow(prefix + "opening rows")
            << runs << "tblPartyBalance" << FakeConditions() << kOpeningColumns << openings;
        QTest::newRow(prefix + "account 15 under its head")
            << runs << "tblPartyInfo" << FakeConditions{{"PartyName", kAccountFifteen}} << QStringList{"PartyCode"}
            << QList<QStringList>{{"20-10-000"}};
        QTest::newRow(prefix + "account 15 opened on the account below")
            << runs << "tblPartyBalance" << FakeConditions{{"PartyName", kAccountFifteen}}
            << QStringList{"PartyCode"} << QList<QStringList>{{"20-10-001"}};
    }
}

void tst_BuiltInRowsDatabase::rowsAfterRuns()
{
    QFETCH(int, runs);
    QFETCH(QString, table);
    QFETCH(FakeConditions, where);
    QFETCH(QStringList, columns);
    QFETCH(QList<QStringList>, rows);

    FakeRuns server;
    for (int run = 0; run < runs; ++run)
        server.run();

    QCOMPARE(selected(server.database(), table, columns, where), rows);
}

void tst_BuiltInRowsDatabase::secondRunAddsOnlyTheReportHeader()
{
    FakeRuns server;
    server.run();
    const QStringList tables = server.database().tables();
    QVERIFY(tables.contains(QLatin1String("tblKWClientInfo")));
    QList<QList<QStringList>> before;
    for (const QString &table : tables)
        before << server.database().rowTexts(table);

    server.run();

    QCOMPARE(server.database().tables().size(), tables.size());
    for (qsizetype at = 0; at < tables.size(); ++at) {
        // The report-header table was dropped, so its one row is a new one.
        QVERIFY2(server.database().rowTexts(tables[at]) == before[at], qPrintable(tables[at]));
    }
    QCOMPARE(server.succeeded(kStamp), 2);
}

void tst_BuiltInRowsDatabase::existingDataKept_data()
{
    QTest::addColumn<DatabaseChange>("change");
    QTest::addColumn<QString>("table");
    QTest::addColumn<QStringList>("columns");
    QTest::addColumn<QList<QStringList>>("rows");

    QTest::newRow("changed administrator password")
        << DatabaseChange([](FakeDatabase &database) {
               database.update("tblLogon", {{"Password", "MARIGOLD"}}, {{"UserName", "ADMINISTRATOR"}});
           })
        << "tblLogon" << QStringList{"UserName", "Password", "UserType"}
        << QList<QStringList>{{"ADMINISTRATOR", "MARIGOLD", "ADMINISTRATOR"}};
    QTest::newRow("closing date of 30 June 2023")
        << DatabaseChange([](FakeDatabase &database) {
               database.update("tblClosingDate", {{"ClosingDate", "6/30/2023"}}, {});
           })
        << "tblClosingDate" << QStringList{"ClosingDate"} << QList<QStringList>{{"6/30/2023"}};
    QTest::newRow("two configuration rows")
        << DatabaseChange([](FakeDatabase &database) {
               database.update("tblConfig",
                               {{"ValueInPoints", "YES"}, {"DecimalPointsYes", 4}, {"DecimalPointsNo", 1},
                                {"UpdateStatus", "20190101"}},
                               {});
               database.insertRow("tblConfig", {{"ValueInPoints", "NO"}, {"DecimalPointsYes", 3},
                                                {"DecimalPointsNo", 2}, {"UpdateStatus", "20190101"}});
           })
        << "tblConfig" << QStringList{"ValueInPoints", "DecimalPointsYes", "DecimalPointsNo", "UpdateStatus"}
        << QList<QStringList>{{"YES", "4", "1", "20210105"}, {"NO", "3", "2", "20210105"}};
    QTest::newRow("report header changed by the application")
        << DatabaseChange([](FakeDatabase &database) {
               database.update("tblKWClientInfo", {{"KWClientName", "NORTHWIND TRADERS"}}, {});
           })
        << "tblKWClientInfo" << QStringList{"KWClientName"} << QList<QStringList>{{"1"}};
}

void tst_BuiltInRowsDatabase::existingDataKept()
{
    QFETCH(DatabaseChange, change);
    QFETCH(QString, table);
    QFETCH(QStringList, columns);
    QFETCH(QList<QStringList>, rows);

    FakeRuns server;
    server.run();
    change(server.database());
    server.run();

    QCOMPARE(selected(server.database(), table, columns), rows);
}

void tst_BuiltInRowsDatabase::chartGuards_data()
{
    QTest::addColumn<QString>("account");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("balanceCode");
    QTest::addColumn<QList<QStringList>>("replacement");
    QTest::addColumn<bool>("seeded");

    QTest::newRow("renamed, code kept")
        << "CASH IN HAND" << "19-10-001" << "19-10-001" << QList<QStringList>{{"PETTY CASH", "19-10-001"}} << false;
    QTest::newRow("recoded, name kept")
        << "CASH IN HAND" << "19-10-001" << "19-10-001" << QList<QStringList>{{"CASH IN HAND", "19-10-009"}} << false;
    QTest::newRow("party row deleted")
        << "CASH" << "19-10-000" << "19-10-000" << QList<QStringList>() << true;
    QTest::newRow("account 15's name under another code")
        << kAccountFifteen << "20-10-000" << "20-10-001"
        << QList<QStringList>{{kAccountFifteen, "20-99-999"}} << false;
    QTest::newRow("account 15's balance code on another party")
        << kAccountFifteen << "20-10-000" << "20-10-001"
        << QList<QStringList>{{"SALES ACCOUNT", "20-10-001"}} << true;
}

void tst_BuiltInRowsDatabase::chartGuards()
{
    QFETCH(QString, account);
    QFETCH(QString, code);
    QFETCH(QString, balanceCode);
    QFETCH(QList<QStringList>, replacement);
    QFETCH(bool, seeded);

    FakeRuns server;
    server.run();
    FakeDatabase &database = server.database();
    deleteRows(database, QStringLiteral("tblPartyInfo"), QStringLiteral("PartyName"), account);
    for (const QStringList &party : std::as_const(replacement))
        QVERIFY(database.insertRow(QStringLiteral("tblPartyInfo"), {{"PartyName", party[0]}, {"PartyCode", party[1]}}).ok);
    QList<QStringList> parties = selected(database, QStringLiteral("tblPartyInfo"), kPartyColumns);
    QList<QStringList> openings = selected(database, QStringLiteral("tblPartyBalance"), kOpeningColumns);
    QCOMPARE(parties.size(), 25 + replacement.size());
    QCOMPARE(openings.size(), 26);

    server.run();

    // Nothing else is seeded: the account's two rows are the only new ones.
    if (seeded) {
        parties << QStringList{account, code};
        openings << openingRow(account, balanceCode);
    }
    QCOMPARE(selected(database, QStringLiteral("tblPartyInfo"), kPartyColumns), parties);
    QCOMPARE(selected(database, QStringLiteral("tblPartyBalance"), kOpeningColumns), openings);
}

QTEST_APPLESS_MAIN(tst_BuiltInRowsDatabase)
#include "tst_builtinrows_database.moc"
