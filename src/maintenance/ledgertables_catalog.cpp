// clang-format off
#include "ledgertables_catalog.h"

#include "tablestatements.h"

#include <array>
#include <string_view>


namespace {

constexpr std::string_view kCareOf = "tblCareOf";
constexpr auto kCareOfStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblCareOf] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL)"),
    ColumnRow{kCareOf, "Name", "nvarchar", "50", "Default('')", "NOT NULL", false},
    ColumnRow{kCareOf, "Designation", "nvarchar", "20", "Default('')", "NOT NULL", false},
    ColumnRow{kCareOf, "UserName", "nvarchar", "50", "Default('')", "NOT NULL", false},
});

constexpr auto kClosingDateStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblClosingDate] ([ClosingDate] [DateTime] Default('1/1/2000') NOT NULL)"),
});

constexpr auto kDbcrStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblDBCR] ( [PartyCode] [nvarchar] (9) Default('') NOT NULL)"),
});

constexpr std::string_view kLogon = "tblLogon";
constexpr auto kLogonStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblLogon] ( [UserName] [nvarchar] (50) Default('') NOT NULL )"),
    ColumnRow{kLogon, "Password", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kLogon, "UserType", "nvarchar", "13", "Default('')", "NOT NULL", false},
});

constexpr std::string_view kPartyBalance = "tblPartyBalance";
constexpr auto kPartyBalanceStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblPartyBalance] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL )"),
    ColumnRow{kPartyBalance, "RecordNo", "bigint", "", "Default(0)", "NOT NULL", false},
    ColumnRow{kPartyBalance, "VoucherType", "nvarchar", "5", "Default('')", "NOT NULL", true},
    ColumnRow{kPartyBalance, "VoucherNo", "bigint", "", "Default(0)", "NOT NULL", false},
    ColumnRow{kPartyBalance, "InvoiceNo", "nvarchar", "10", "Default('')", "NOT NULL", true},
    ColumnRow{kPartyBalance, "VDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    ColumnRow{kPartyBalance, "PartyName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPartyBalance, "PartyCode", "nvarchar", "9", "Default('')", "NOT NULL", true},
    ColumnRow{kPartyBalance, "PartyDR", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPartyBalance, "PartyCR", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPartyBalance, "PartyBalance", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPartyBalance, "PartyDesc", "nvarchar", "4000", "Default('')", "NOT NULL", true},
    ColumnRow{kPartyBalance, "EmployeeSalary", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPartyBalance, "OverTime", "int", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPartyBalance, "Holidays", "int", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPartyBalance, "OverDays", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPartyBalance, "OTAmount", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPartyBalance, "TotalSalary", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPartyBalance, "Advance", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPartyBalance, "CareOf", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPartyBalance, "UserName", "nvarchar", "50", "Default('')", "NOT NULL", false},
    ColumnRow{kPartyBalance, "EntryDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
});

constexpr std::string_view kPartyInfo = "tblPartyInfo";
constexpr auto kPartyInfoStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblPartyInfo] ( [PartySrNo] [bigint] IDENTITY (1, 1) NOT NULL )"),
    ColumnRow{kPartyInfo, "PartyName", "nvarchar", "200", "Default('')", "NOT NULL", true},
    ColumnRow{kPartyInfo, "PartyCode", "nvarchar", "9", "Default('')", "NOT NULL", true},
    ColumnRow{kPartyInfo, "PartyAddress", "nvarchar", "100", "Default('')", "NOT NULL", true},
    ColumnRow{kPartyInfo, "PartyPhone", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPartyInfo, "PartyFax", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPartyInfo, "PartyEmail", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPartyInfo, "PartyDesc", "nvarchar", "500", "Default('')", "NOT NULL", true},
    ColumnRow{kPartyInfo, "PartySaleTaxNo", "nvarchar", "20", "Default('__-__-____-___-__')", "NOT NULL", true},
    ColumnRow{kPartyInfo, "PartyNTN", "nvarchar", "9", "Default('_______-_')", "NOT NULL", true},
    ColumnRow{kPartyInfo, "DueDays", "int", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPartyInfo, "CareOf", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPartyInfo, "UserName", "nvarchar", "50", "Default('')", "NOT NULL", false},
    ColumnRow{kPartyInfo, "EntryDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    // Older databases hold these narrower; a new one gets Phone, Fax and Email widened from 50.
    widenColumn("ALTER TABLE [dbo].[tblPartyInfo] ALTER COLUMN [PartyName] [nvarchar] (200) NOT NULL"),
    widenColumn("ALTER TABLE [dbo].[tblPartyInfo] ALTER COLUMN [PartyAddress] [nvarchar] (100) NOT NULL"),
    widenColumn("ALTER TABLE [dbo].[tblPartyInfo] ALTER COLUMN [PartyPhone] [nvarchar] (100) NOT NULL"),
    widenColumn("ALTER TABLE [dbo].[tblPartyInfo] ALTER COLUMN [PartyFax] [nvarchar] (100) NOT NULL"),
    widenColumn("ALTER TABLE [dbo].[tblPartyInfo] ALTER COLUMN [PartyEmail] [nvarchar] (100) NOT NULL"),
    widenColumn("ALTER TABLE [dbo].[tblPartyInfo] ALTER COLUMN [PartyDesc] [nvarchar] (500) NOT NULL"),
});

constexpr std::string_view kItemCoding = "tblItemCoding";
constexpr auto kItemCodingStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblItemCoding] ([SrNo] [bigint] IDENTITY (1, 1) NOT NULL)"),
    ColumnRow{kItemCoding, "ItemName", "nvarchar", "100", "Default('')", "NOT NULL", true},
    ColumnRow{kItemCoding, "ItemCode", "nvarchar", "9", "Default('')", "NOT NULL", true},
    ColumnRow{kItemCoding, "CostRate", "real", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kItemCoding, "SaleRate", "real", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kItemCoding, "UnitType", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kItemCoding, "UserName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kItemCoding, "EntryDate", "DateTime", "", "Default('1/1/2000')", "NOT NULL", false},
});

constexpr std::string_view kInvoice = "tblInvoice";
constexpr auto kInvoiceStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblInvoice] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL )"),
    ColumnRow{kInvoice, "RecordNo", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kInvoice, "InvoiceNo", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kInvoice, "PartyName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kInvoice, "PartyCode", "nvarchar", "9", "Default('')", "NOT NULL", true},
    ColumnRow{kInvoice, "InvoiceDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    ColumnRow{kInvoice, "Description", "nvarchar", "500", "Default('')", "NOT NULL", true},
    ColumnRow{kInvoice, "DescCode", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kInvoice, "PONo", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kInvoice, "Quantity", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kInvoice, "Rate", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kInvoice, "Price", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kInvoice, "RateOfSaleTax", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kInvoice, "FurtherTax", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kInvoice, "SaleTaxPayable", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kInvoice, "ValueIncludingTax", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kInvoice, "CED", "real", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kInvoice, "Total", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kInvoice, "TermsOfSale", "nvarchar", "100", "Default('')", "NOT NULL", true},
    ColumnRow{kInvoice, "ChallanNo", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kInvoice, "GateEntryNo", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kInvoice, "Type", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kInvoice, "JobNo", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kInvoice, "TitleName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kInvoice, "InvoiceDesc", "nvarchar", "500", "Default('')", "NOT NULL", true},
    ColumnRow{kInvoice, "DTRE", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kInvoice, "Weight", "real", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kInvoice, "CareOf", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kInvoice, "UserName", "nvarchar", "50", "Default('')", "NOT NULL", false},
    ColumnRow{kInvoice, "Status", "nvarchar", "50", "Default('')", "NOT NULL", false},
    ColumnRow{kInvoice, "EntryDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", false},
});

constexpr auto kTitleNameStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblTitleName] ([SrNo] [bigint] IDENTITY (1, 1) NOT NULL)"),
    // The one default written with a blank before its parenthesis.
    addColumnText("ALTER TABLE [dbo].[tblTitleName] ADD [TitleName] [nvarchar] (50) Default ('') NOT NULL"),
});

} // namespace

Steps careOfTableSteps() { return tableSteps(kCareOfStatements); }
Steps closingDateTableSteps() { return tableSteps(kClosingDateStatements); }
Steps dbcrTableSteps() { return tableSteps(kDbcrStatements); }
Steps logonTableSteps() { return tableSteps(kLogonStatements); }
Steps partyBalanceTableSteps() { return tableSteps(kPartyBalanceStatements); }
Steps partyInfoTableSteps() { return tableSteps(kPartyInfoStatements); }
Steps itemCodingTableSteps() { return tableSteps(kItemCodingStatements); }
Steps invoiceTableSteps() { return tableSteps(kInvoiceStatements); }
Steps titleNameTableSteps() { return tableSteps(kTitleNameStatements); }
