// clang-format off
#include "scratchtables_catalog.h"

#include <string_view>

namespace {

// Each table is declared whole: the run has just dropped it, so it comes back
// empty with exactly these columns. One column to a line; the blanks around
// the commas are part of the text.
constexpr std::string_view kMonthlyComparisonReportEmptyCreate =
    "CREATE TABLE [dbo].[tblMonthlyComparisonReportEmpty] ("
    "[PartyCode] [nvarchar] (50) Default('') NULL , "
    "[PartyName] [nvarchar] (50) Default('') NULL , "
    "[January] [bigint] Default(0) NULL , "
    "[February] [bigint] Default(0) NULL , "
    "[March] [bigint] Default(0) NULL ,"
    "[April] [bigint] Default(0) NULL , "
    "[May] [bigint] Default(0) NULL , "
    "[June] [bigint] Default(0) NULL ,"
    "[July] [bigint] Default(0) NULL , "
    "[August] [bigint] Default(0) NULL ,"
    "[September] [bigint] Default(0) NULL ,"
    "[October] [bigint] Default(0) NULL ,"
    "[November] [bigint] Default(0) NULL ,"
    "[December] [bigint] Default(0) NULL)";

constexpr std::string_view kDailyComparisonReportEmptyCreate =
    "CREATE TABLE [dbo].[tblDailyComparisonReportEmpty] ("
    "[ItemName] [nvarchar] (100) Default('') NULL , "
    "[VDate] [datetime] Default('1/1/2000') NULL , "
    "[Day1] [bigint] Default(0) NULL , "
    "[Day2] [bigint] Default(0) NULL , "
    "[Day3] [bigint] Default(0) NULL , "
    "[Day4] [bigint] Default(0) NULL , "
    "[Day5] [bigint] Default(0) NULL , "
    "[Day6] [bigint] Default(0) NULL , "
    "[Day7] [bigint] Default(0) NULL , "
    "[Day8] [bigint] Default(0) NULL , "
    "[Day9] [bigint] Default(0) NULL , "
    "[Day10] [bigint] Default(0) NULL , "
    "[Day11] [bigint] Default(0) NULL , "
    "[Day12] [bigint] Default(0) NULL , "
    "[Day13] [bigint] Default(0) NULL , "
    "[Day14] [bigint] Default(0) NULL , "
    "[Day15] [bigint] Default(0) NULL, "
    "[Day16] [bigint] Default(0) NULL , "
    "[Day17] [bigint] Default(0) NULL , "
    "[Day18] [bigint] Default(0) NULL , "
    "[Day19] [bigint] Default(0) NULL , "
    "[Day20] [bigint] Default(0) NULL , "
    "[Day21] [bigint] Default(0) NULL , "
    "[Day22] [bigint] Default(0) NULL , "
    "[Day23] [bigint] Default(0) NULL , "
    "[Day24] [bigint] Default(0) NULL , "
    "[Day25] [bigint] Default(0) NULL , "
    "[Day26] [bigint] Default(0) NULL , "
    "[Day27] [bigint] Default(0) NULL , "
    "[Day28] [bigint] Default(0) NULL , "
    "[Day29] [bigint] Default(0) NULL , "
    "[Day30] [bigint] Default(0) NULL , "
    "[Day31] [bigint] Default(0) NULL)";

constexpr std::string_view kPartyBalanceEmptyCreate =
    "CREATE TABLE [dbo].[tblPartyBalanceEmpty] ("
    "[KWClientName] [nvarchar] (50) Default('') NULL,"
    "[KWClientAddress] [nvarchar] (255) Default('') NULL,"
    "[SrNo] [bigint] Default(0) NULL,"
    "[VDate] [datetime] NULL,"
    "[VoucherType] [nvarchar] (50) Default('') NULL ,"
    "[VoucherNo] [bigint] Default(0) NULL ,"
    "[PartyDesc] [nvarchar] (4000) Default('') NULL ,"
    "[PartyName] [nvarchar] (50) Default('') NULL ,"
    "[PartyCode] [nvarchar] (50) Default('') NULL ,"
    "[PartyDR] [float] Default(0) NULL ,"
    "[PartyCR] [float] Default(0) NULL ,"
    "[PartyBalance] [float] Default(0) NULL ,"
    "[DBCR] [nvarchar] (50) Default('') NULL ,"
    "[TotalDR] [float] Default(0) NULL ,"
    "[TotalCR] [float] Default(0) NULL ,"
    "[EmployeeSalary] [float] Default(0) NULL ,"
    "[OverTime] [int] Default(0) NULL ,"
    "[Holidays] [int] Default(0) NULL ,"
    "[OverDays] [float] Default(0) NULL ,"
    "[OTAmount] [float] Default(0) NULL ,"
    "[TotalSalary] [float] Default(0) NULL ,"
    "[Advance] [float] Default(0) NULL,"
    "[InvoiceNo] [nvarchar] (10) Default('') NULL)";

constexpr std::string_view kInvoiceEmptyCreate =
    "CREATE TABLE [dbo].[tblInvoiceEmpty] ("
    "[SrNo] [bigint] Default(0) NOT NULL ,"
    "[InvoiceNo] [bigint] Default(0) NOT NULL ,"
    "[InvoiceDate] [datetime] NOT NULL ,"
    "[PartyName] [nvarchar] (50) Default('') NOT NULL ,"
    "[PartyCode] [nvarchar] (9) Default('') NOT NULL , "
    "[Description] [nvarchar] (500) Default('') NOT NULL ,"
    "[DescCode] [nvarchar] (50) Default('') NOT NULL ,"
    "[PONo] [nvarchar] (50) Default('') NOT NULL ,"
    "[Quantity] [float] Default(0) NOT NULL , "
    "[Rate] [float] Default(0) NOT NULL ,"
    "[Price] [bigint] Default(0) NOT NULL , "
    "[RateOfSaleTax] [float] Default(0) NOT NULL ,"
    "[FurtherTax] [float] Default(0) NOT NULL ,"
    "[SaleTaxPayable] [bigint] Default(0) NOT NULL , "
    "[ValueIncludingTax] [bigint] Default(0) NOT NULL ,"
    "[Total] [bigint] Default(0) NOT NULL ,"
    "[TermsOfSale] [nvarchar] (100) Default('') NOT NULL ,"
    "[Remarks] [nvarchar] (10) Default('') NOT NULL ,"
    "[ChallanNO] [nvarchar] (50) Default('') NOT NULL ,"
    "[GateEntryNo] [nvarchar] (50) Default('') NOT NULL ,"
    "[Type] [nvarchar] (50) Default('') NOT NULL,"
    "[JobNo] [nvarchar] (50) Default('') NOT NULL,"
    "[CED] [nvarchar] (50) Default('') NOT NULL,"
    "[InvoiceDesc] [nvarchar] (500) Default('') NOT NULL,"
    "[DTRE] [nvarchar] (50) Default('') NOT NULL,"
    "[Weight] [real] Default(0) NOT NULL,"
    "[TitleName] [nvarchar] (50) Default('') NOT NULL)";

constexpr std::string_view kStockEmptyCreate =
    "CREATE TABLE [dbo].[tblStockEmpty] ( "
    "[SrNo] [bigint] Default(0) NULL,"
    "[KWClientName] [nvarchar] (50) Default('') NULL , "
    "[KWClientAddress] [nvarchar] (255) Default('') NULL , "
    "[BrandName] [nvarchar] (35) Default('') NULL ,"
    "[Type] [nvarchar] (20) Default('') NULL ,"
    "[PartyName] [nvarchar] (50) Default('') NULL ,"
    "[PartyCode] [nvarchar] (9) Default('') NULL ,"
    "[Units] [int] Default(0) NULL ,"
    "[UnitPrice] [real] Default(0) NULL ,"
    "[StockDate] [datetime] NULL ,"
    "[Issue] [int] Default(0) NULL ,"
    "[StockInHand] [int] Default(0) NULL ,"
    "[SDate] [datetime] NULL ,"
    "[EDate] [datetime] NULL ,"
    "[StockDesc] [nvarchar] (500) Default('') NULL)";

constexpr std::string_view kKWClientInfoCreate =
    "CREATE TABLE [dbo].[tblKWClientInfo] ( "
    "[KWClientName] [nvarchar] (255) Default('') NOT NULL , "
    "[KWClientAddress] [nvarchar] (255) Default('') NOT NULL , "
    "[PartyCode] [nvarchar] (10) Default('') NOT NULL , "
    "[PartyCode1] [nvarchar] (50) Default('') NOT NULL , "
    "[SDate] [datetime] Default('1/1/2000') NOT NULL , "
    "[EDate] [datetime] Default('1/1/2000') NOT NULL , "
    "[VoucherNo] [bigint] Default(0) NOT NULL , "
    "[VoucherType] [char] (2) Default('') NOT NULL , "
    "[PartyName] [nvarchar] (100) Default('') NOT NULL , "
    "[CareOf] [nvarchar] (50) Default('') NOT NULL , "
    "[UserName] [nvarchar] (50) Default('') NOT NULL, "
    "[InvoiceNo] [bigint] Default(0) NOT NULL, "
    "[KWClientSaleTaxNo] [nvarchar] (50) Default('') NOT NULL, "
    "[KWClientNTN] [nvarchar] (9) Default('_______-_') NOT NULL)";

Steps createdWhole(std::string_view create)
{
    return {Step::execute(Action::CreateTable, QString::fromUtf8(create))};
}

} // namespace

Steps monthlyComparisonReportEmptyTableSteps() { return createdWhole(kMonthlyComparisonReportEmptyCreate); }
Steps dailyComparisonReportEmptyTableSteps() { return createdWhole(kDailyComparisonReportEmptyCreate); }
Steps partyBalanceEmptyTableSteps() { return createdWhole(kPartyBalanceEmptyCreate); }
Steps invoiceEmptyTableSteps() { return createdWhole(kInvoiceEmptyCreate); }
Steps stockEmptyTableSteps() { return createdWhole(kStockEmptyCreate); }
Steps kwClientInfoTableSteps() { return createdWhole(kKWClientInfoCreate); }
