#include "fakesqlserver.h"
#include "maintenancerun.h"
#include "mdzrt.h"
#include "quietrunhost.h"
#include "runplan.h"
#include "scriptfixture.h"
#include "tablesinorder.h"

#include <QTest>

#include <algorithm>

namespace {

const QString kDatabase = QStringLiteral("Quorvex2024");
const QString kOpenDatabase = QStringLiteral("Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;"
                                             "Initial Catalog=Quorvex2024;Data Source=");

const QStringList kMonths = {"January", "February", "March", "April", "May", "June",
                             "July", "August", "September", "October", "November", "December"};

const QStringList kScratchTables = {"tblMonthlyComparisonReportEmpty", "tblDailyComparisonReportEmpty",
                                    "tblPartyBalanceEmpty", "tblInvoiceEmpty", "tblStockEmpty", "tblKWClientInfo"};

QStringList numbered(const QString &stem, int last)
{
    QStringList names;
    for (int i = 1; i <= last; ++i)
        names << stem + QString::number(i);
    return names;
}

class EndingHost : public QuietRunHost
{
public:
    bool ended = false;
    void showEndButton() override { ended = true; }
};

// One whole run as the window starts it; true when it reached its end.
bool runMaintenance(const std::shared_ptr<FakeServerState> &server)
{
    mdZRT module(fakeSqlServerConnections(server));
    EndingHost host;
    CheckRecordsets recordsets;
    MaintenanceRun run(module, host, recordsets);
    run.run({QStringLiteral("OFFLINE"), QStringLiteral("ACCOUNTS"), kDatabase}, maintenanceSteps());
    return host.ended;
}

// The first refusal, or an empty text when the server took every statement.
QString execute(const std::shared_ptr<FakeServerState> &server, const QStringList &statements)
{
    FakeSqlServer connection(server);
    if (const DbStatus opened = connection.open(kOpenDatabase); !opened.ok)
        return opened.message;
    for (const QString &statement : statements) {
        if (const DbStatus status = connection.execute(statement); !status.ok)
            return statement + QLatin1String(": ") + status.message;
    }
    return {};
}

// The table as an older version left it: built by the current statements for
// it, less the columns it did not have yet.
QStringList olderTable(const QString &table, const QStringList &notYetAdded)
{
    const QString create = QLatin1String("CREATE TABLE [dbo].[") + table + QLatin1String("] ");
    const QString add = QLatin1String("ALTER TABLE [dbo].[") + table + QLatin1String("] ADD [");
    QStringList statements;
    for (const QString &statement : fixtureStatements(QStringLiteral("table_phase.sql"))) {
        if (statement.startsWith(create))
            statements << statement;
        else if (statement.startsWith(add)
                 && !notYetAdded.contains(statement.sliced(add.size()).section(u']', 0, 0)))
            statements << statement;
    }
    return statements;
}

QStringList columnNames(const FakeDatabase &database, const QString &table)
{
    QStringList names;
    for (const FakeColumn &column : database.columns(table))
        names << column.name;
    return names;
}

// Every column's definition, tables in name order: the recreated scratch
// tables change their place among the tables, not their definition.
QStringList schemaOf(const FakeDatabase &database)
{
    QStringList tables = database.tables();
    std::sort(tables.begin(), tables.end());
    QStringList schema;
    for (const QString &table : tables) {
        for (const FakeColumn &column : database.columns(table)) {
            schema << QStringLiteral("%1.%2 %3 (%4)%5%6 default %7")
                          .arg(table, column.name, column.type)
                          .arg(column.length)
                          .arg(column.identity ? QLatin1String(" identity") : QLatin1String(""),
                               column.notNull ? QLatin1String(" not null") : QLatin1String(" null"),
                               column.defaultValue.value_or(QStringLiteral("none")));
        }
    }
    return schema;
}

} // namespace

class tst_TablePhaseDatabase : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void newDatabaseGetsEveryTableInOrder();
    void newDatabaseColumns_data();
    void newDatabaseColumns();
    void newPartyInfoWidths_data();
    void newPartyInfoWidths();
    void secondRunChangesNoTable();
    void scratchTablesComeBackEmpty_data();
    void scratchTablesComeBackEmpty();
    void olderInvoiceGainsStatusAndEntryDate();
    void employeeStockWithRowsStaysWithoutStockDate();
    void narrowContactColumnIsWidenedWithItsData_data();
    void narrowContactColumnIsWidenedWithItsData();

private:
    std::shared_ptr<FakeServerState> m_newDatabase = std::make_shared<FakeServerState>();
};

void tst_TablePhaseDatabase::initTestCase()
{
    QVERIFY(runMaintenance(m_newDatabase));
}

void tst_TablePhaseDatabase::newDatabaseGetsEveryTableInOrder()
{
    QCOMPARE(m_newDatabase->database(kDatabase).tables(),
             tablesInCreationOrder());
}

void tst_TablePhaseDatabase::newDatabaseColumns_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("identity"); // empty for a table without one
    QTest::addColumn<QStringList>("columns");

    QTest::newRow("tblCareOf") << QStringLiteral("tblCareOf") << QStringLiteral("SrNo")
        << QStringList{"SrNo", "Name", "Designation", "UserName"};
    QTest::newRow("tblClosingDate") << QStringLiteral("tblClosingDate") << QString()
        << QStringList{"ClosingDate"};
    QTest::newRow("tblDBCR") << QStringLiteral("tblDBCR") << QString()
        << QStringList{"PartyCode"};
    QTest::newRow("tblLogon") << QStringLiteral("tblLogon") << QString()
        << QStringList{"UserName", "Password", "UserType"};
    QTest::newRow("tblMonthlyComparisonReportEmpty") << QStringLiteral("tblMonthlyComparisonReportEmpty") << QString()
        << QStringList{"PartyCode", "PartyName"} + kMonths;
    QTest::newRow("tblDailyComparisonReportEmpty") << QStringLiteral("tblDailyComparisonReportEmpty") << QString()
        << QStringList{"ItemName", "VDate"} + numbered(QStringLiteral("Day"), 31);
    QTest::newRow("tblPartyBalance") << QStringLiteral("tblPartyBalance") << QStringLiteral("SrNo")
        << QStringList{"SrNo", "RecordNo", "VoucherType", "VoucherNo", "InvoiceNo", "VDate", "PartyName",
                       "PartyCode", "PartyDR", "PartyCR", "PartyBalance", "PartyDesc",
                       "EmployeeSalary", "OverTime", "Holidays", "OverDays", "OTAmount",
                       "TotalSalary", "Advance", "CareOf", "UserName", "EntryDate"};
    QTest::newRow("tblPartyBalanceEmpty") << QStringLiteral("tblPartyBalanceEmpty") << QString()
        << QStringList{"KWClientName", "KWClientAddress", "SrNo", "VDate", "VoucherType", "VoucherNo",
                       "PartyDesc", "PartyName", "PartyCode", "PartyDR", "PartyCR",
                       "PartyBalance", "DBCR", "TotalDR", "TotalCR", "EmployeeSalary", "OverTime",
                       "Holidays", "OverDays", "OTAmount", "TotalSalary", "Advance", "InvoiceNo"};
    QTest::newRow("tblPartyInfo") << QStringLiteral("tblPartyInfo") << QStringLiteral("PartySrNo")
        << QStringList{"PartySrNo", "PartyName", "PartyCode", "PartyAddress", "PartyPhone", "PartyFax",
                       "PartyEmail", "PartyDesc", "PartySaleTaxNo", "PartyNTN", "DueDays",
                       "CareOf", "UserName", "EntryDate"};
    QTest::newRow("tblItemCoding") << QStringLiteral("tblItemCoding") << QStringLiteral("SrNo")
        << QStringList{"SrNo", "ItemName", "ItemCode", "CostRate", "SaleRate", "UnitType", "UserName",
                       "EntryDate"};
    QTest::newRow("tblInvoice") << QStringLiteral("tblInvoice") << QStringLiteral("SrNo")
        << QStringList{"SrNo", "RecordNo", "InvoiceNo", "PartyName", "PartyCode", "InvoiceDate",
                       "Description", "DescCode", "PONo", "Quantity", "Rate", "Price",
                       "RateOfSaleTax", "FurtherTax", "SaleTaxPayable", "ValueIncludingTax",
                       "CED", "Total", "TermsOfSale", "ChallanNo", "GateEntryNo", "Type", "JobNo",
                       "TitleName", "InvoiceDesc", "DTRE", "Weight", "CareOf", "UserName",
                       "Status", "EntryDate"};
    QTest::newRow("tblInvoiceEmpty") << QStringLiteral("tblInvoiceEmpty") << QString()
        << QStringList{"SrNo", "InvoiceNo", "InvoiceDate", "PartyName", "PartyCode", "Description",
                       "DescCode", "PONo", "Quantity", "Rate", "Price", "RateOfSaleTax",
                       "FurtherTax", "SaleTaxPayable", "ValueIncludingTax", "Total",
                       "TermsOfSale", "Remarks", "ChallanNO", "GateEntryNo", "Type", "JobNo",
                       "CED", "InvoiceDesc", "DTRE", "Weight", "TitleName"};
    QTest::newRow("tblDeliveryChallan") << QStringLiteral("tblDeliveryChallan") << QStringLiteral("SrNo")
        << QStringList{"SrNo", "RecordNo", "DeliveryChallanNo", "PartyName", "PartyCode", "VDate",
                       "Description", "PONo", "Quantity", "DemandNo", "GateEntryNo", "Type",
                       "CTN", "TitleName", "CareOf", "UserName", "EntryDate"};
    QTest::newRow("tblPurchaseStock") << QStringLiteral("tblPurchaseStock") << QStringLiteral("SrNo")
        << QStringList{"SrNo", "RecordNo", "VoucherType", "VoucherNo", "BillNo", "VDate", "PartyName",
                       "ItemDesc", "Weight", "Quantity", "Issue", "UnitRate", "UnitType",
                       "Freight", "Amount", "SaleTax", "PurchaseName", "CareOf", "UserName",
                       "EntryDate"};
    QTest::newRow("tblStockEmpty") << QStringLiteral("tblStockEmpty") << QString()
        << QStringList{"SrNo", "KWClientName", "KWClientAddress", "BrandName", "Type", "PartyName",
                       "PartyCode", "Units", "UnitPrice", "StockDate", "Issue", "StockInHand",
                       "SDate", "EDate", "StockDesc"};
    QTest::newRow("tblEmployeeStock") << QStringLiteral("tblEmployeeStock") << QStringLiteral("SrNo")
        << QStringList{"SrNo", "BrandName", "Type", "PartyName", "PartyCode", "Units", "Issue", "StockDate",
                       "Item", "UserName", "EntryDate"};
    QTest::newRow("tblEmployeeInfo") << QStringLiteral("tblEmployeeInfo") << QStringLiteral("SrNo")
        << QStringList{"SrNo", "EmployeeCode", "EmployeeName", "Salary", "InDate", "IncrementDate",
                       "UserName", "EntryDate", "Status"};
    QTest::newRow("tblEmployeeSalary") << QStringLiteral("tblEmployeeSalary") << QStringLiteral("SrNo")
        << QStringList{"SrNo", "VoucherType", "VoucherNo", "VDate", "EmployeeCode", "EmployeeName",
                       "EmployeeSalary", "OverTime", "Holidays", "OverDays", "OTAmount",
                       "TotalSalary", "Advance", "Balance", "UserName", "EntryDate"};
    QTest::newRow("tblOtherServices") << QStringLiteral("tblOtherServices") << QStringLiteral("SrNo")
        << QStringList{"SrNo", "VoucherType", "VoucherNo", "ServiceDate", "PartyName", "PartyCode",
                       "Service", "ServiceAmount", "SupplierName", "SupplierCode",
                       "SupplierAmount", "CareOf", "UserName", "Remarks", "InvoiceNo",
                       "EntryDate"};
    QTest::newRow("tblPostDatedCheque") << QStringLiteral("tblPostDatedCheque") << QStringLiteral("SrNo")
        << QStringList{"SrNo", "VoucherType", "VoucherNo", "VDate", "ChequeDate", "PartyName", "PartyCode",
                       "BankName", "BankCode", "Amount", "Description", "Status", "CareOf",
                       "UserName", "EntryDate"};
    QTest::newRow("tblUserRights") << QStringLiteral("tblUserRights") << QStringLiteral("SrNo")
        << QStringList{"SrNo", "Menu", "UserName"};
    QTest::newRow("tblKWClientInfo") << QStringLiteral("tblKWClientInfo") << QString()
        << QStringList{"KWClientName", "KWClientAddress", "PartyCode", "PartyCode1", "SDate", "EDate",
                       "VoucherNo", "VoucherType", "PartyName", "CareOf", "UserName", "InvoiceNo",
                       "KWClientSaleTaxNo", "KWClientNTN"};
    QTest::newRow("tblPurchaseOrder") << QStringLiteral("tblPurchaseOrder") << QStringLiteral("SrNo")
        << QStringList{"SrNo", "RecordNo", "PONo", "PartyPONo", "PartyName", "PartyCode", "VDate",
                       "DemandDate", "Description", "JobNo", "DemandNo", "Quantity", "UnitPrice",
                       "Type", "CareOf", "UserName", "EntryDate", "TitleName"};
    QTest::newRow("tblJobCard") << QStringLiteral("tblJobCard") << QStringLiteral("SrNo")
        << QStringList{"SrNo", "JobCardNo", "PartyPONo", "PartyName", "PartyCode", "VDate", "IssueDate",
                       "PODate", "JobDetail", "Paper", "PaperSize", "Quantity", "CuttingSize",
                       "Printing", "Machine", "Design", "Positive", "Plate", "Die", "Bleach",
                       "Lamination", "Other", "Status", "UserName", "EntryDate"};
    QTest::newRow("tblTitleName") << QStringLiteral("tblTitleName") << QStringLiteral("SrNo")
        << QStringList{"SrNo", "TitleName"};
    QTest::newRow("tblConfig") << QStringLiteral("tblConfig") << QStringLiteral("SrNo")
        << QStringList{"SrNo", "ValueInPoints", "DecimalPointsYes", "DecimalPointsNo", "UpdateStatus"};
}

void tst_TablePhaseDatabase::newDatabaseColumns()
{
    QFETCH(QString, table);
    QFETCH(QString, identity);
    QFETCH(QStringList, columns);

    const FakeDatabase &database = m_newDatabase->database(kDatabase);
    QCOMPARE(columnNames(database, table), columns);
    QStringList identities;
    for (const FakeColumn &column : database.columns(table)) {
        if (column.identity)
            identities << column.name;
    }
    QCOMPARE(identities, identity.isEmpty() ? QStringList() : QStringList{identity});
}

void tst_TablePhaseDatabase::newPartyInfoWidths_data()
{
    QTest::addColumn<QString>("column");
    QTest::addColumn<int>("width");

    QTest::newRow("PartyName") << QStringLiteral("PartyName") << 200;
    QTest::newRow("PartyAddress") << QStringLiteral("PartyAddress") << 100;
    QTest::newRow("PartyPhone widened from 50") << QStringLiteral("PartyPhone") << 100;
    QTest::newRow("PartyFax widened from 50") << QStringLiteral("PartyFax") << 100;
    QTest::newRow("PartyEmail widened from 50") << QStringLiteral("PartyEmail") << 100;
    QTest::newRow("PartyDesc") << QStringLiteral("PartyDesc") << 500;
}

void tst_TablePhaseDatabase::newPartyInfoWidths()
{
    QFETCH(QString, column);
    QFETCH(int, width);

    const std::optional<FakeColumn> found = m_newDatabase->database(kDatabase).column(QStringLiteral("tblPartyInfo"), column);
    QVERIFY(found);
    QCOMPARE(found->type, QStringLiteral("nvarchar"));
    QCOMPARE(found->length, width);
    QVERIFY(found->notNull);
}

void tst_TablePhaseDatabase::secondRunChangesNoTable()
{
    const auto server = std::make_shared<FakeServerState>();
    QVERIFY(runMaintenance(server));
    const FakeDatabase &database = server->database(kDatabase);
    const QStringList schema = schemaOf(database);
    QHash<QString, QList<QStringList>> rows;
    for (const QString &table : database.tables())
        rows.insert(table, database.rowTexts(table));
    const qsizetype secondRunStart = server->statementLog().size();

    QVERIFY(runMaintenance(server));

    QCOMPARE(schemaOf(database), schema);
    for (const QString &table : database.tables()) {
        if (!kScratchTables.contains(table))
            QCOMPARE(database.rowTexts(table), rows.value(table));
    }
    // Everything but the scratch tables was there already; the widenings go through again.
    for (const FakeLoggedStatement &logged : server->statementLog().sliced(secondRunStart)) {
        const bool scratchCreate = std::any_of(kScratchTables.cbegin(), kScratchTables.cend(), [&](const QString &table) {
            return logged.text.startsWith(QLatin1String("CREATE TABLE [dbo].[") + table + QLatin1String("] "));
        });
        if (logged.text.startsWith(QLatin1String("CREATE TABLE ")))
            QVERIFY2(logged.ok == scratchCreate, qPrintable(logged.text));
        else if (logged.text.contains(QLatin1String("] ADD [")))
            QVERIFY2(!logged.ok, qPrintable(logged.text));
        else if (logged.text.contains(QLatin1String(" ALTER COLUMN ")))
            QVERIFY2(logged.ok, qPrintable(logged.text));
    }
}

void tst_TablePhaseDatabase::scratchTablesComeBackEmpty_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("insert");
    QTest::addColumn<QList<QStringList>>("rowsAfter");

    const QList<QStringList> none;
    QTest::newRow("monthly comparison") << QStringLiteral("tblMonthlyComparisonReportEmpty")
        << QStringLiteral("Insert Into tblMonthlyComparisonReportEmpty (PartyCode,January) Values ('10-10-001',5)")
        << none;
    QTest::newRow("daily comparison") << QStringLiteral("tblDailyComparisonReportEmpty")
        << QStringLiteral("Insert Into tblDailyComparisonReportEmpty (ItemName,Day1) Values ('PEN',3)") << none;
    QTest::newRow("party balance") << QStringLiteral("tblPartyBalanceEmpty")
        << QStringLiteral("Insert Into tblPartyBalanceEmpty (PartyCode,PartyDR) Values ('10-10-001',100)") << none;
    QTest::newRow("invoice") << QStringLiteral("tblInvoiceEmpty")
        << QStringLiteral("Insert Into tblInvoiceEmpty (InvoiceNo,InvoiceDate) Values (7,'3/1/2021')") << none;
    QTest::newRow("stock") << QStringLiteral("tblStockEmpty")
        << QStringLiteral("Insert Into tblStockEmpty (BrandName,Units) Values ('ACME',4)") << none;
    QTest::newRow("report header keeps only the fresh row") << QStringLiteral("tblKWClientInfo")
        << QStringLiteral("Insert Into tblKWClientInfo (KWClientName) Values ('OLD NAME')")
        << QList<QStringList>{{"1", "1", "1", "1", "1/1/2000", "1/1/2000", "1", "1 ", "1", "1", "1", "0", "", "_______-_"}};
}

void tst_TablePhaseDatabase::scratchTablesComeBackEmpty()
{
    QFETCH(QString, table);
    QFETCH(QString, insert);
    QFETCH(QList<QStringList>, rowsAfter);

    const auto server = std::make_shared<FakeServerState>();
    QVERIFY(runMaintenance(server));
    const QString refused = execute(server, {insert});
    QVERIFY2(refused.isEmpty(), qPrintable(refused));
    const QStringList columns = columnNames(server->database(kDatabase), table);

    QVERIFY(runMaintenance(server));

    QCOMPARE(server->database(kDatabase).rowTexts(table), rowsAfter);
    QCOMPARE(columnNames(server->database(kDatabase), table), columns);
}

void tst_TablePhaseDatabase::olderInvoiceGainsStatusAndEntryDate()
{
    const auto server = std::make_shared<FakeServerState>();
    const QString refused = execute(server, olderTable(QStringLiteral("tblInvoice"), {"Status", "EntryDate"})
                                                << QStringLiteral("Insert Into tblInvoice (InvoiceNo,PartyName,UserName) Values (7,'ACME','CLERK')")
                                                << QStringLiteral("Insert Into tblInvoice (InvoiceNo,PartyName) Values (8,'BETA')"));
    QVERIFY2(refused.isEmpty(), qPrintable(refused));
    QCOMPARE(columnNames(server->database(kDatabase), QStringLiteral("tblInvoice")).last(), QStringLiteral("UserName"));

    QVERIFY(runMaintenance(server));

    const FakeDatabase &database = server->database(kDatabase);
    const QString invoice = QStringLiteral("tblInvoice");
    QCOMPARE(columnNames(database, invoice).last(3), (QStringList{"UserName", "Status", "EntryDate"}));
    QCOMPARE(database.rows(invoice).size(), 2);
    for (qsizetype row = 0; row < 2; ++row) {
        QCOMPARE(database.cellText(invoice, row, QStringLiteral("Status")), QString()); // not "NULL"
        QCOMPARE(database.cellText(invoice, row, QStringLiteral("EntryDate")), QStringLiteral("1/1/2000"));
    }
    QCOMPARE(database.cellText(invoice, 0, QStringLiteral("PartyName")), QStringLiteral("ACME"));
    QCOMPARE(database.cellText(invoice, 0, QStringLiteral("UserName")), QStringLiteral("CLERK"));
    QCOMPARE(database.cellText(invoice, 1, QStringLiteral("InvoiceNo")), QStringLiteral("8"));
}

void tst_TablePhaseDatabase::employeeStockWithRowsStaysWithoutStockDate()
{
    const auto server = std::make_shared<FakeServerState>();
    const QString refused =
        execute(server, olderTable(QStringLiteral("tblEmployeeStock"), {"StockDate", "Item", "UserName", "EntryDate"})
                            << QStringLiteral("Insert Into tblEmployeeStock (BrandName,Units) Values ('ACME',12)"));
    QVERIFY2(refused.isEmpty(), qPrintable(refused));

    QVERIFY(runMaintenance(server));

    const FakeDatabase &database = server->database(kDatabase);
    const QString stock = QStringLiteral("tblEmployeeStock");
    QCOMPARE(columnNames(database, stock),
             (QStringList{"SrNo", "BrandName", "Type", "PartyName", "PartyCode", "Units", "Issue", "Item", "UserName",
                          "EntryDate"}));
    QCOMPARE(database.cellText(stock, 0, QStringLiteral("BrandName")), QStringLiteral("ACME"));
    QCOMPARE(database.cellText(stock, 0, QStringLiteral("EntryDate")), QStringLiteral("1/1/2000"));
    // The phase went on to its last statement.
    QCOMPARE(database.cellText(QStringLiteral("tblConfig"), 0, QStringLiteral("UpdateStatus")),
             QStringLiteral("20210105"));
}

void tst_TablePhaseDatabase::narrowContactColumnIsWidenedWithItsData_data()
{
    QTest::addColumn<QString>("column");

    QTest::newRow("PartyPhone") << QStringLiteral("PartyPhone");
    QTest::newRow("PartyFax") << QStringLiteral("PartyFax");
    QTest::newRow("PartyEmail") << QStringLiteral("PartyEmail");
}

void tst_TablePhaseDatabase::narrowContactColumnIsWidenedWithItsData()
{
    QFETCH(QString, column);

    const QString fiftyCharacters = QStringLiteral("042-111-222-333 / 042-444-555-666 / ext 1234567890");
    QCOMPARE(fiftyCharacters.size(), 50);
    const auto server = std::make_shared<FakeServerState>();
    const QString refused =
        execute(server, olderTable(QStringLiteral("tblPartyInfo"), {})
                            << QStringLiteral("Insert Into tblPartyInfo (PartyName,PartyCode,%1) Values ('ACME','99-99-999','%2')")
                                   .arg(column, fiftyCharacters));
    QVERIFY2(refused.isEmpty(), qPrintable(refused));
    QCOMPARE(server->database(kDatabase).column(QStringLiteral("tblPartyInfo"), column)->length, 50);

    QVERIFY(runMaintenance(server));

    const FakeDatabase &database = server->database(kDatabase);
    QCOMPARE(database.column(QStringLiteral("tblPartyInfo"), column)->length, 100);
    QCOMPARE(database.cellText(QStringLiteral("tblPartyInfo"), 0, column), fiftyCharacters);
    QCOMPARE(database.cellText(QStringLiteral("tblPartyInfo"), 0, QStringLiteral("PartyCode")), QStringLiteral("99-99-999"));
}

QTEST_GUILESS_MAIN(tst_TablePhaseDatabase)

#include "tst_tablephase_database.moc"
