// clang-format off
#include "documenttables_catalog.h"

#include "tablestatements.h"

#include <array>
#include <string_view>


namespace {

constexpr std::string_view kDeliveryChallan = "tblDeliveryChallan";
constexpr auto kDeliveryChallanStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblDeliveryChallan] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL )"),
    ColumnRow{kDeliveryChallan, "RecordNo", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kDeliveryChallan, "DeliveryChallanNo", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kDeliveryChallan, "PartyName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kDeliveryChallan, "PartyCode", "nvarchar", "9", "Default('')", "NOT NULL", true},
    ColumnRow{kDeliveryChallan, "VDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    ColumnRow{kDeliveryChallan, "Description", "nvarchar", "500", "Default('')", "NOT NULL", true},
    ColumnRow{kDeliveryChallan, "PONo", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kDeliveryChallan, "Quantity", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kDeliveryChallan, "DemandNo", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kDeliveryChallan, "GateEntryNo", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kDeliveryChallan, "Type", "nvarchar", "10", "Default('')", "NOT NULL", true},
    ColumnRow{kDeliveryChallan, "CTN", "nvarchar", "10", "Default('')", "NOT NULL", true},
    ColumnRow{kDeliveryChallan, "TitleName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kDeliveryChallan, "CareOf", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kDeliveryChallan, "UserName", "nvarchar", "50", "Default('')", "NOT NULL", false},
    ColumnRow{kDeliveryChallan, "EntryDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
});

constexpr std::string_view kPurchaseStock = "tblPurchaseStock";
constexpr auto kPurchaseStockStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblPurchaseStock] ([SrNo] [bigint] IDENTITY (1, 1) NOT NULL)"),
    ColumnRow{kPurchaseStock, "RecordNo", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "VoucherType", "nvarchar", "3", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "VoucherNo", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "BillNo", "nvarchar", "10", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "VDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "PartyName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "ItemDesc", "nvarchar", "500", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "Weight", "nvarchar", "10", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "Quantity", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "Issue", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "UnitRate", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "UnitType", "nvarchar", "10", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "Freight", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "Amount", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "SaleTax", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "PurchaseName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "CareOf", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "UserName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseStock, "EntryDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
});

constexpr std::string_view kEmployeeStock = "tblEmployeeStock";
constexpr auto kEmployeeStockStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblEmployeeStock] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL)"),
    ColumnRow{kEmployeeStock, "BrandName", "nvarchar", "35", "Default('')", "NOT NULL", false},
    ColumnRow{kEmployeeStock, "Type", "nvarchar", "20", "Default('')", "NOT NULL", true},
    ColumnRow{kEmployeeStock, "PartyName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kEmployeeStock, "PartyCode", "nvarchar", "9", "Default('')", "NOT NULL", true},
    ColumnRow{kEmployeeStock, "Units", "int", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kEmployeeStock, "Issue", "int", "", "Default(0)", "NOT NULL", true},
    // No default: refused on a table that already holds rows, which then stays without it.
    addColumnText("ALTER TABLE [dbo].[tblEmployeeStock] ADD [StockDate] [datetime] NOT NULL "),
    ColumnRow{kEmployeeStock, "Item", "nvarchar", "9", "Default('')", "NOT NULL", false},
    ColumnRow{kEmployeeStock, "UserName", "nvarchar", "50", "Default('')", "NOT NULL", false},
    ColumnRow{kEmployeeStock, "EntryDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
});

constexpr std::string_view kEmployeeInfo = "tblEmployeeInfo";
constexpr auto kEmployeeInfoStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblEmployeeInfo] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL )"),
    ColumnRow{kEmployeeInfo, "EmployeeCode", "nvarchar", "9", "Default('')", "NOT NULL", true},
    ColumnRow{kEmployeeInfo, "EmployeeName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kEmployeeInfo, "Salary", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kEmployeeInfo, "InDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    ColumnRow{kEmployeeInfo, "IncrementDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    ColumnRow{kEmployeeInfo, "UserName", "nvarchar", "50", "Default('')", "NOT NULL", false},
    ColumnRow{kEmployeeInfo, "EntryDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    ColumnRow{kEmployeeInfo, "Status", "nvarchar", "8", "Default('ACTIVE')", "NOT NULL", false},
});

constexpr std::string_view kEmployeeSalary = "tblEmployeeSalary";
constexpr auto kEmployeeSalaryStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblEmployeeSalary] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL )"),
    ColumnRow{kEmployeeSalary, "VoucherType", "nvarchar", "2", "Default('')", "NOT NULL", false},
    ColumnRow{kEmployeeSalary, "VoucherNo", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kEmployeeSalary, "VDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    ColumnRow{kEmployeeSalary, "EmployeeCode", "nvarchar", "9", "Default('')", "NOT NULL", true},
    ColumnRow{kEmployeeSalary, "EmployeeName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kEmployeeSalary, "EmployeeSalary", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kEmployeeSalary, "OverTime", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kEmployeeSalary, "Holidays", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kEmployeeSalary, "OverDays", "float", "", "Default(0)", "NOT NULL", false},
    ColumnRow{kEmployeeSalary, "OTAmount", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kEmployeeSalary, "TotalSalary", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kEmployeeSalary, "Advance", "bigint", "", "Default(0)", "NOT NULL", false},
    ColumnRow{kEmployeeSalary, "Balance", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kEmployeeSalary, "UserName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    // Day zero, not the empty date of the other tables: 1 January 1900.
    ColumnRow{kEmployeeSalary, "EntryDate", "DateTime", "", "Default(0)", "NOT NULL", false},
});

constexpr std::string_view kOtherServices = "tblOtherServices";
constexpr auto kOtherServicesStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblOtherServices] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL )"),
    ColumnRow{kOtherServices, "VoucherType", "nvarchar", "3", "Default('')", "NOT NULL", true},
    ColumnRow{kOtherServices, "VoucherNo", "int", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kOtherServices, "ServiceDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    ColumnRow{kOtherServices, "PartyName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kOtherServices, "PartyCode", "nvarchar", "9", "Default('')", "NOT NULL", true},
    ColumnRow{kOtherServices, "Service", "nvarchar", "500", "Default('')", "NOT NULL", true},
    ColumnRow{kOtherServices, "ServiceAmount", "int", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kOtherServices, "SupplierName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kOtherServices, "SupplierCode", "nvarchar", "9", "Default('')", "NOT NULL", true},
    ColumnRow{kOtherServices, "SupplierAmount", "int", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kOtherServices, "CareOf", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kOtherServices, "UserName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kOtherServices, "Remarks", "nvarchar", "6", "Default('')", "NOT NULL", false},
    ColumnRow{kOtherServices, "InvoiceNo", "nvarchar", "10", "Default('')", "NOT NULL", false},
    ColumnRow{kOtherServices, "EntryDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
});

constexpr std::string_view kPostDatedCheque = "tblPostDatedCheque";
constexpr auto kPostDatedChequeStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblPostDatedCheque] ([SrNo] [bigint] IDENTITY (1, 1) NOT NULL)"),
    ColumnRow{kPostDatedCheque, "VoucherType", "nvarchar", "2", "Default('')", "NOT NULL", true},
    ColumnRow{kPostDatedCheque, "VoucherNo", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPostDatedCheque, "VDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    ColumnRow{kPostDatedCheque, "ChequeDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    ColumnRow{kPostDatedCheque, "PartyName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPostDatedCheque, "PartyCode", "nvarchar", "9", "Default('')", "NOT NULL", true},
    ColumnRow{kPostDatedCheque, "BankName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPostDatedCheque, "BankCode", "nvarchar", "9", "Default('')", "NOT NULL", true},
    ColumnRow{kPostDatedCheque, "Amount", "float", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPostDatedCheque, "Description", "nvarchar", "500", "Default('')", "NOT NULL", true},
    ColumnRow{kPostDatedCheque, "Status", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPostDatedCheque, "CareOf", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPostDatedCheque, "UserName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPostDatedCheque, "EntryDate", "DateTime", "", "Default('1/1/2000')", "NOT NULL", false},
});

constexpr std::string_view kUserRights = "tblUserRights";
constexpr auto kUserRightsStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblUserRights] ([SrNo] [bigint] IDENTITY (1, 1) NOT NULL)"),
    ColumnRow{kUserRights, "Menu", "nvarchar", "4000", "Default('')", "NOT NULL", false},
    ColumnRow{kUserRights, "UserName", "nvarchar", "50", "Default('')", "NOT NULL", false},
});

constexpr std::string_view kPurchaseOrder = "tblPurchaseOrder";
constexpr auto kPurchaseOrderStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblPurchaseOrder] ([SrNo] [bigint] IDENTITY (1, 1) NOT NULL)"),
    ColumnRow{kPurchaseOrder, "RecordNo", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPurchaseOrder, "PONo", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPurchaseOrder, "PartyPONo", "nvarchar", "30", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseOrder, "PartyName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseOrder, "PartyCode", "nvarchar", "9", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseOrder, "VDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    ColumnRow{kPurchaseOrder, "DemandDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    ColumnRow{kPurchaseOrder, "Description", "nvarchar", "500", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseOrder, "JobNo", "nvarchar", "20", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseOrder, "DemandNo", "nvarchar", "20", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseOrder, "Quantity", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPurchaseOrder, "UnitPrice", "real", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kPurchaseOrder, "Type", "nvarchar", "10", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseOrder, "CareOf", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseOrder, "UserName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kPurchaseOrder, "EntryDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    ColumnRow{kPurchaseOrder, "TitleName", "nvarchar", "50", "Default('')", "NOT NULL", false},
});

constexpr std::string_view kJobCard = "tblJobCard";
constexpr auto kJobCardStatements = std::to_array<TableStatement>({
    createTable("CREATE TABLE [dbo].[tblJobCard] ([SrNo] [bigint] IDENTITY (1, 1) NOT NULL)"),
    ColumnRow{kJobCard, "JobCardNo", "bigint", "", "Default(0)", "NOT NULL", true},
    ColumnRow{kJobCard, "PartyPONo", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kJobCard, "PartyName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kJobCard, "PartyCode", "nvarchar", "9", "Default('')", "NOT NULL", true},
    ColumnRow{kJobCard, "VDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    ColumnRow{kJobCard, "IssueDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    ColumnRow{kJobCard, "PODate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
    ColumnRow{kJobCard, "JobDetail", "nvarchar", "100", "Default('')", "NOT NULL", true},
    ColumnRow{kJobCard, "Paper", "nvarchar", "100", "Default('')", "NOT NULL", true},
    ColumnRow{kJobCard, "PaperSize", "nvarchar", "100", "Default('')", "NOT NULL", true},
    ColumnRow{kJobCard, "Quantity", "nvarchar", "100", "Default('')", "NOT NULL", true},
    ColumnRow{kJobCard, "CuttingSize", "nvarchar", "100", "Default('')", "NOT NULL", false},
    ColumnRow{kJobCard, "Printing", "nvarchar", "100", "Default('')", "NOT NULL", false},
    ColumnRow{kJobCard, "Machine", "nvarchar", "100", "Default('')", "NOT NULL", false},
    ColumnRow{kJobCard, "Design", "nvarchar", "100", "Default('')", "NOT NULL", false},
    ColumnRow{kJobCard, "Positive", "nvarchar", "100", "Default('')", "NOT NULL", false},
    ColumnRow{kJobCard, "Plate", "nvarchar", "100", "Default('')", "NOT NULL", false},
    ColumnRow{kJobCard, "Die", "nvarchar", "100", "Default('')", "NOT NULL", false},
    ColumnRow{kJobCard, "Bleach", "nvarchar", "100", "Default('')", "NOT NULL", false},
    ColumnRow{kJobCard, "Lamination", "nvarchar", "100", "Default('')", "NOT NULL", false},
    ColumnRow{kJobCard, "Other", "nvarchar", "100", "Default('')", "NOT NULL", false},
    ColumnRow{kJobCard, "Status", "nvarchar", "100", "Default('')", "NOT NULL", false},
    ColumnRow{kJobCard, "UserName", "nvarchar", "50", "Default('')", "NOT NULL", true},
    ColumnRow{kJobCard, "EntryDate", "datetime", "", "Default('1/1/2000')", "NOT NULL", true},
});

} // namespace

Steps deliveryChallanTableSteps() { return tableSteps(kDeliveryChallanStatements); }
Steps purchaseStockTableSteps() { return tableSteps(kPurchaseStockStatements); }
Steps employeeStockTableSteps() { return tableSteps(kEmployeeStockStatements); }
Steps employeeInfoTableSteps() { return tableSteps(kEmployeeInfoStatements); }
Steps employeeSalaryTableSteps() { return tableSteps(kEmployeeSalaryStatements); }
Steps otherServicesTableSteps() { return tableSteps(kOtherServicesStatements); }
Steps postDatedChequeTableSteps() { return tableSteps(kPostDatedChequeStatements); }
Steps userRightsTableSteps() { return tableSteps(kUserRightsStatements); }
Steps purchaseOrderTableSteps() { return tableSteps(kPurchaseOrderStatements); }
Steps jobCardTableSteps() { return tableSteps(kJobCardStatements); }
