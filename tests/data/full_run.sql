drop table [dbo].[tblMonthlyComparisonReportEmpty]
GO
drop table [dbo].[tblPartyBalanceEmpty]
GO
drop table [dbo].[tblKWClientInfo]
GO
drop table [dbo].[tblDailyComparisonReportEmpty]
GO
drop table [dbo].[tblInvoiceEmpty]
GO
drop table [dbo].[tblStockEmpty]
GO
CREATE TABLE [dbo].[tblCareOf] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL)
GO
ALTER TABLE [dbo].[tblCareOf] ADD [Name] [nvarchar] (50) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblCareOf] ADD [Designation] [nvarchar] (20) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblCareOf] ADD [UserName] [nvarchar] (50) Default('') NOT NULL
GO
CREATE TABLE [dbo].[tblClosingDate] ([ClosingDate] [DateTime] Default('1/1/2000') NOT NULL)
GO
Select ClosingDate From tblClosingDate
GO
Insert Into tblClosingDate (ClosingDate) Values ('1/1/2000')
GO
CREATE TABLE [dbo].[tblDBCR] ( [PartyCode] [nvarchar] (9) Default('') NOT NULL)
GO
CREATE TABLE [dbo].[tblLogon] ( [UserName] [nvarchar] (50) Default('') NOT NULL )
GO
ALTER TABLE [dbo].[tblLogon] ADD [Password] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblLogon] ADD [UserType] [nvarchar] (13) Default('') NOT NULL
GO
Select UserName From tblLogon Where UserName='ADMINISTRATOR'
GO
Insert Into tblLogon (UserName,Password,UserType) Values ('ADMINISTRATOR','TULIPOAK','ADMINISTRATOR')
GO
CREATE TABLE [dbo].[tblMonthlyComparisonReportEmpty] ([PartyCode] [nvarchar] (50) Default('') NULL , [PartyName] [nvarchar] (50) Default('') NULL , [January] [bigint] Default(0) NULL , [February] [bigint] Default(0) NULL , [March] [bigint] Default(0) NULL ,[April] [bigint] Default(0) NULL , [May] [bigint] Default(0) NULL , [June] [bigint] Default(0) NULL ,[July] [bigint] Default(0) NULL , [August] [bigint] Default(0) NULL ,[September] [bigint] Default(0) NULL ,[October] [bigint] Default(0) NULL ,[November] [bigint] Default(0) NULL ,[December] [bigint] Default(0) NULL)
GO
CREATE TABLE [dbo].[tblDailyComparisonReportEmpty] ([ItemName] [nvarchar] (100) Default('') NULL , [VDate] [datetime] Default('1/1/2000') NULL , [Day1] [bigint] Default(0) NULL , [Day2] [bigint] Default(0) NULL , [Day3] [bigint] Default(0) NULL , [Day4] [bigint] Default(0) NULL , [Day5] [bigint] Default(0) NULL , [Day6] [bigint] Default(0) NULL , [Day7] [bigint] Default(0) NULL , [Day8] [bigint] Default(0) NULL , [Day9] [bigint] Default(0) NULL , [Day10] [bigint] Default(0) NULL , [Day11] [bigint] Default(0) NULL , [Day12] [bigint] Default(0) NULL , [Day13] [bigint] Default(0) NULL , [Day14] [bigint] Default(0) NULL , [Day15] [bigint] Default(0) NULL, [Day16] [bigint] Default(0) NULL , [Day17] [bigint] Default(0) NULL , [Day18] [bigint] Default(0) NULL , [Day19] [bigint] Default(0) NULL , [Day20] [bigint] Default(0) NULL , [Day21] [bigint] Default(0) NULL , [Day22] [bigint] Default(0) NULL , [Day23] [bigint] Default(0) NULL , [Day24] [bigint] Default(0) NULL , [Day25] [bigint] Default(0) NULL , [Day26] [bigint] Default(0) NULL , [Day27] [bigint] Default(0) NULL , [Day28] [bigint] Default(0) NULL , [Day29] [bigint] Default(0) NULL , [Day30] [bigint] Default(0) NULL , [Day31] [bigint] Default(0) NULL)
GO
CREATE TABLE [dbo].[tblPartyBalance] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL )
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [RecordNo] [bigint] Default(0) NOT NULL
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [VoucherType] [nvarchar] (5) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [VoucherNo] [bigint] Default(0) NOT NULL
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [InvoiceNo] [nvarchar] (10) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [VDate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [PartyName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [PartyCode] [nvarchar] (9) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [PartyDR] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [PartyCR] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [PartyBalance] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [PartyDesc] [nvarchar] (4000) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [EmployeeSalary] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [OverTime] [int] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [Holidays] [int] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [OverDays] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [OTAmount] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [TotalSalary] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [Advance] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [CareOf] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [UserName] [nvarchar] (50) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblPartyBalance] ADD [EntryDate] [datetime] Default('1/1/2000') NOT NULL 
GO
CREATE TABLE [dbo].[tblPartyBalanceEmpty] ([KWClientName] [nvarchar] (50) Default('') NULL,[KWClientAddress] [nvarchar] (255) Default('') NULL,[SrNo] [bigint] Default(0) NULL,[VDate] [datetime] NULL,[VoucherType] [nvarchar] (50) Default('') NULL ,[VoucherNo] [bigint] Default(0) NULL ,[PartyDesc] [nvarchar] (4000) Default('') NULL ,[PartyName] [nvarchar] (50) Default('') NULL ,[PartyCode] [nvarchar] (50) Default('') NULL ,[PartyDR] [float] Default(0) NULL ,[PartyCR] [float] Default(0) NULL ,[PartyBalance] [float] Default(0) NULL ,[DBCR] [nvarchar] (50) Default('') NULL ,[TotalDR] [float] Default(0) NULL ,[TotalCR] [float] Default(0) NULL ,[EmployeeSalary] [float] Default(0) NULL ,[OverTime] [int] Default(0) NULL ,[Holidays] [int] Default(0) NULL ,[OverDays] [float] Default(0) NULL ,[OTAmount] [float] Default(0) NULL ,[TotalSalary] [float] Default(0) NULL ,[Advance] [float] Default(0) NULL,[InvoiceNo] [nvarchar] (10) Default('') NULL)
GO
CREATE TABLE [dbo].[tblPartyInfo] ( [PartySrNo] [bigint] IDENTITY (1, 1) NOT NULL )
GO
ALTER TABLE [dbo].[tblPartyInfo] ADD [PartyName] [nvarchar] (200) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyInfo] ADD [PartyCode] [nvarchar] (9) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyInfo] ADD [PartyAddress] [nvarchar] (100) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyInfo] ADD [PartyPhone] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyInfo] ADD [PartyFax] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyInfo] ADD [PartyEmail] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyInfo] ADD [PartyDesc] [nvarchar] (500) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyInfo] ADD [PartySaleTaxNo] [nvarchar] (20) Default('__-__-____-___-__') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyInfo] ADD [PartyNTN] [nvarchar] (9) Default('_______-_') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyInfo] ADD [DueDays] [int] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyInfo] ADD [CareOf] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyInfo] ADD [UserName] [nvarchar] (50) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblPartyInfo] ADD [EntryDate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblPartyInfo] ALTER COLUMN [PartyName] [nvarchar] (200) NOT NULL
GO
ALTER TABLE [dbo].[tblPartyInfo] ALTER COLUMN [PartyAddress] [nvarchar] (100) NOT NULL
GO
ALTER TABLE [dbo].[tblPartyInfo] ALTER COLUMN [PartyPhone] [nvarchar] (100) NOT NULL
GO
ALTER TABLE [dbo].[tblPartyInfo] ALTER COLUMN [PartyFax] [nvarchar] (100) NOT NULL
GO
ALTER TABLE [dbo].[tblPartyInfo] ALTER COLUMN [PartyEmail] [nvarchar] (100) NOT NULL
GO
ALTER TABLE [dbo].[tblPartyInfo] ALTER COLUMN [PartyDesc] [nvarchar] (500) NOT NULL
GO
CREATE TABLE [dbo].[tblItemCoding] ([SrNo] [bigint] IDENTITY (1, 1) NOT NULL)
GO
ALTER TABLE [dbo].[tblItemCoding] ADD [ItemName] [nvarchar] (100) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblItemCoding] ADD [ItemCode] [nvarchar] (9) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblItemCoding] ADD [CostRate] [real] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblItemCoding] ADD [SaleRate] [real] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblItemCoding] ADD [UnitType] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblItemCoding] ADD [UserName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblItemCoding] ADD [EntryDate] [DateTime] Default('1/1/2000') NOT NULL
GO
CREATE TABLE [dbo].[tblInvoice] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL )
GO
ALTER TABLE [dbo].[tblInvoice] ADD [RecordNo] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [InvoiceNo] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [PartyName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [PartyCode] [nvarchar] (9) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [InvoiceDate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [Description] [nvarchar] (500) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [DescCode] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [PONo] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [Quantity] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [Rate] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [Price] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [RateOfSaleTax] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [FurtherTax] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [SaleTaxPayable] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [ValueIncludingTax] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [CED] [real] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [Total] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [TermsOfSale] [nvarchar] (100) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [ChallanNo] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [GateEntryNo] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [Type] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [JobNo] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [TitleName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [InvoiceDesc] [nvarchar] (500) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [DTRE] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [Weight] [real] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [CareOf] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblInvoice] ADD [UserName] [nvarchar] (50) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblInvoice] ADD [Status] [nvarchar] (50) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblInvoice] ADD [EntryDate] [datetime] Default('1/1/2000') NOT NULL
GO
CREATE TABLE [dbo].[tblInvoiceEmpty] ([SrNo] [bigint] Default(0) NOT NULL ,[InvoiceNo] [bigint] Default(0) NOT NULL ,[InvoiceDate] [datetime] NOT NULL ,[PartyName] [nvarchar] (50) Default('') NOT NULL ,[PartyCode] [nvarchar] (9) Default('') NOT NULL , [Description] [nvarchar] (500) Default('') NOT NULL ,[DescCode] [nvarchar] (50) Default('') NOT NULL ,[PONo] [nvarchar] (50) Default('') NOT NULL ,[Quantity] [float] Default(0) NOT NULL , [Rate] [float] Default(0) NOT NULL ,[Price] [bigint] Default(0) NOT NULL , [RateOfSaleTax] [float] Default(0) NOT NULL ,[FurtherTax] [float] Default(0) NOT NULL ,[SaleTaxPayable] [bigint] Default(0) NOT NULL , [ValueIncludingTax] [bigint] Default(0) NOT NULL ,[Total] [bigint] Default(0) NOT NULL ,[TermsOfSale] [nvarchar] (100) Default('') NOT NULL ,[Remarks] [nvarchar] (10) Default('') NOT NULL ,[ChallanNO] [nvarchar] (50) Default('') NOT NULL ,[GateEntryNo] [nvarchar] (50) Default('') NOT NULL ,[Type] [nvarchar] (50) Default('') NOT NULL,[JobNo] [nvarchar] (50) Default('') NOT NULL,[CED] [nvarchar] (50) Default('') NOT NULL,[InvoiceDesc] [nvarchar] (500) Default('') NOT NULL,[DTRE] [nvarchar] (50) Default('') NOT NULL,[Weight] [real] Default(0) NOT NULL,[TitleName] [nvarchar] (50) Default('') NOT NULL)
GO
CREATE TABLE [dbo].[tblDeliveryChallan] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL )
GO
ALTER TABLE [dbo].[tblDeliveryChallan] ADD [RecordNo] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblDeliveryChallan] ADD [DeliveryChallanNo] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblDeliveryChallan] ADD [PartyName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblDeliveryChallan] ADD [PartyCode] [nvarchar] (9) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblDeliveryChallan] ADD [VDate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblDeliveryChallan] ADD [Description] [nvarchar] (500) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblDeliveryChallan] ADD [PONo] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblDeliveryChallan] ADD [Quantity] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblDeliveryChallan] ADD [DemandNo] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblDeliveryChallan] ADD [GateEntryNo] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblDeliveryChallan] ADD [Type] [nvarchar] (10) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblDeliveryChallan] ADD [CTN] [nvarchar] (10) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblDeliveryChallan] ADD [TitleName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblDeliveryChallan] ADD [CareOf] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblDeliveryChallan] ADD [UserName] [nvarchar] (50) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblDeliveryChallan] ADD [EntryDate] [datetime] Default('1/1/2000') NOT NULL 
GO
CREATE TABLE [dbo].[tblPurchaseStock] ([SrNo] [bigint] IDENTITY (1, 1) NOT NULL)
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [RecordNo] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [VoucherType] [nvarchar] (3) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [VoucherNo] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [BillNo] [nvarchar] (10) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [VDate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [PartyName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [ItemDesc] [nvarchar] (500) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [Weight] [nvarchar] (10) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [Quantity] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [Issue] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [UnitRate] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [UnitType] [nvarchar] (10) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [Freight] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [Amount] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [SaleTax] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [PurchaseName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [CareOf] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [UserName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseStock] ADD [EntryDate] [datetime] Default('1/1/2000') NOT NULL 
GO
CREATE TABLE [dbo].[tblStockEmpty] ( [SrNo] [bigint] Default(0) NULL,[KWClientName] [nvarchar] (50) Default('') NULL , [KWClientAddress] [nvarchar] (255) Default('') NULL , [BrandName] [nvarchar] (35) Default('') NULL ,[Type] [nvarchar] (20) Default('') NULL ,[PartyName] [nvarchar] (50) Default('') NULL ,[PartyCode] [nvarchar] (9) Default('') NULL ,[Units] [int] Default(0) NULL ,[UnitPrice] [real] Default(0) NULL ,[StockDate] [datetime] NULL ,[Issue] [int] Default(0) NULL ,[StockInHand] [int] Default(0) NULL ,[SDate] [datetime] NULL ,[EDate] [datetime] NULL ,[StockDesc] [nvarchar] (500) Default('') NULL)
GO
CREATE TABLE [dbo].[tblEmployeeStock] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL)
GO
ALTER TABLE [dbo].[tblEmployeeStock] ADD [BrandName] [nvarchar] (35) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblEmployeeStock] ADD [Type] [nvarchar] (20) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeStock] ADD [PartyName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeStock] ADD [PartyCode] [nvarchar] (9) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeStock] ADD [Units] [int] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeStock] ADD [Issue] [int] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeStock] ADD [StockDate] [datetime] NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeStock] ADD [Item] [nvarchar] (9) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblEmployeeStock] ADD [UserName] [nvarchar] (50) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblEmployeeStock] ADD [EntryDate] [datetime] Default('1/1/2000') NOT NULL 
GO
CREATE TABLE [dbo].[tblEmployeeInfo] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL )
GO
ALTER TABLE [dbo].[tblEmployeeInfo] ADD [EmployeeCode] [nvarchar] (9) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeInfo] ADD [EmployeeName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeInfo] ADD [Salary] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeInfo] ADD [InDate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeInfo] ADD [IncrementDate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeInfo] ADD [UserName] [nvarchar] (50) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblEmployeeInfo] ADD [EntryDate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeInfo] ADD [Status] [nvarchar] (8) Default('ACTIVE') NOT NULL
GO
CREATE TABLE [dbo].[tblEmployeeSalary] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL )
GO
ALTER TABLE [dbo].[tblEmployeeSalary] ADD [VoucherType] [nvarchar] (2) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblEmployeeSalary] ADD [VoucherNo] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeSalary] ADD [VDate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeSalary] ADD [EmployeeCode] [nvarchar] (9) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeSalary] ADD [EmployeeName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeSalary] ADD [EmployeeSalary] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeSalary] ADD [OverTime] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeSalary] ADD [Holidays] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeSalary] ADD [OverDays] [float] Default(0) NOT NULL
GO
ALTER TABLE [dbo].[tblEmployeeSalary] ADD [OTAmount] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeSalary] ADD [TotalSalary] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeSalary] ADD [Advance] [bigint] Default(0) NOT NULL
GO
ALTER TABLE [dbo].[tblEmployeeSalary] ADD [Balance] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeSalary] ADD [UserName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblEmployeeSalary] ADD [EntryDate] [DateTime] Default(0) NOT NULL
GO
CREATE TABLE [dbo].[tblOtherServices] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL )
GO
ALTER TABLE [dbo].[tblOtherServices] ADD [VoucherType] [nvarchar] (3) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblOtherServices] ADD [VoucherNo] [int] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblOtherServices] ADD [ServiceDate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblOtherServices] ADD [PartyName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblOtherServices] ADD [PartyCode] [nvarchar] (9) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblOtherServices] ADD [Service] [nvarchar] (500) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblOtherServices] ADD [ServiceAmount] [int] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblOtherServices] ADD [SupplierName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblOtherServices] ADD [SupplierCode] [nvarchar] (9) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblOtherServices] ADD [SupplierAmount] [int] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblOtherServices] ADD [CareOf] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblOtherServices] ADD [UserName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblOtherServices] ADD [Remarks] [nvarchar] (6) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblOtherServices] ADD [InvoiceNo] [nvarchar] (10) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblOtherServices] ADD [EntryDate] [datetime] Default('1/1/2000') NOT NULL 
GO
CREATE TABLE [dbo].[tblPostDatedCheque] ([SrNo] [bigint] IDENTITY (1, 1) NOT NULL)
GO
ALTER TABLE [dbo].[tblPostDatedCheque] ADD [VoucherType] [nvarchar] (2) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPostDatedCheque] ADD [VoucherNo] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPostDatedCheque] ADD [VDate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblPostDatedCheque] ADD [ChequeDate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblPostDatedCheque] ADD [PartyName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPostDatedCheque] ADD [PartyCode] [nvarchar] (9) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPostDatedCheque] ADD [BankName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPostDatedCheque] ADD [BankCode] [nvarchar] (9) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPostDatedCheque] ADD [Amount] [float] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPostDatedCheque] ADD [Description] [nvarchar] (500) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPostDatedCheque] ADD [Status] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPostDatedCheque] ADD [CareOf] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPostDatedCheque] ADD [UserName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPostDatedCheque] ADD [EntryDate] [DateTime] Default('1/1/2000') NOT NULL
GO
CREATE TABLE [dbo].[tblUserRights] ([SrNo] [bigint] IDENTITY (1, 1) NOT NULL)
GO
ALTER TABLE [dbo].[tblUserRights] ADD [Menu] [nvarchar] (4000) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblUserRights] ADD [UserName] [nvarchar] (50) Default('') NOT NULL
GO
CREATE TABLE [dbo].[tblKWClientInfo] ( [KWClientName] [nvarchar] (255) Default('') NOT NULL , [KWClientAddress] [nvarchar] (255) Default('') NOT NULL , [PartyCode] [nvarchar] (10) Default('') NOT NULL , [PartyCode1] [nvarchar] (50) Default('') NOT NULL , [SDate] [datetime] Default('1/1/2000') NOT NULL , [EDate] [datetime] Default('1/1/2000') NOT NULL , [VoucherNo] [bigint] Default(0) NOT NULL , [VoucherType] [char] (2) Default('') NOT NULL , [PartyName] [nvarchar] (100) Default('') NOT NULL , [CareOf] [nvarchar] (50) Default('') NOT NULL , [UserName] [nvarchar] (50) Default('') NOT NULL, [InvoiceNo] [bigint] Default(0) NOT NULL, [KWClientSaleTaxNo] [nvarchar] (50) Default('') NOT NULL, [KWClientNTN] [nvarchar] (9) Default('_______-_') NOT NULL)
GO
Insert Into tblKWClientInfo (KWClientName,KWClientAddress,SDate,EDate,VoucherType,VoucherNo,PartyCode,PartyCode1,PartyName,CareOf,UserName) Values ('1','1','1/1/2000','1/1/2000','1','1','1','1','1','1','1')
GO
CREATE TABLE [dbo].[tblPurchaseOrder] ([SrNo] [bigint] IDENTITY (1, 1) NOT NULL)
GO
ALTER TABLE [dbo].[tblPurchaseOrder] ADD [RecordNo] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseOrder] ADD [PONo] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseOrder] ADD [PartyPONo] [nvarchar] (30) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseOrder] ADD [PartyName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseOrder] ADD [PartyCode] [nvarchar] (9) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseOrder] ADD [VDate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseOrder] ADD [DemandDate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseOrder] ADD [Description] [nvarchar] (500) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseOrder] ADD [JobNo] [nvarchar] (20) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseOrder] ADD [DemandNo] [nvarchar] (20) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseOrder] ADD [Quantity] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseOrder] ADD [UnitPrice] [real] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseOrder] ADD [Type] [nvarchar] (10) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseOrder] ADD [CareOf] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseOrder] ADD [UserName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseOrder] ADD [EntryDate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblPurchaseOrder] ADD [TitleName] [nvarchar] (50) Default('') NOT NULL
GO
CREATE TABLE [dbo].[tblJobCard] ([SrNo] [bigint] IDENTITY (1, 1) NOT NULL)
GO
ALTER TABLE [dbo].[tblJobCard] ADD [JobCardNo] [bigint] Default(0) NOT NULL 
GO
ALTER TABLE [dbo].[tblJobCard] ADD [PartyPONo] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblJobCard] ADD [PartyName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblJobCard] ADD [PartyCode] [nvarchar] (9) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblJobCard] ADD [VDate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblJobCard] ADD [IssueDate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblJobCard] ADD [PODate] [datetime] Default('1/1/2000') NOT NULL 
GO
ALTER TABLE [dbo].[tblJobCard] ADD [JobDetail] [nvarchar] (100) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblJobCard] ADD [Paper] [nvarchar] (100) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblJobCard] ADD [PaperSize] [nvarchar] (100) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblJobCard] ADD [Quantity] [nvarchar] (100) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblJobCard] ADD [CuttingSize] [nvarchar] (100) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblJobCard] ADD [Printing] [nvarchar] (100) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblJobCard] ADD [Machine] [nvarchar] (100) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblJobCard] ADD [Design] [nvarchar] (100) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblJobCard] ADD [Positive] [nvarchar] (100) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblJobCard] ADD [Plate] [nvarchar] (100) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblJobCard] ADD [Die] [nvarchar] (100) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblJobCard] ADD [Bleach] [nvarchar] (100) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblJobCard] ADD [Lamination] [nvarchar] (100) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblJobCard] ADD [Other] [nvarchar] (100) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblJobCard] ADD [Status] [nvarchar] (100) Default('') NOT NULL
GO
ALTER TABLE [dbo].[tblJobCard] ADD [UserName] [nvarchar] (50) Default('') NOT NULL 
GO
ALTER TABLE [dbo].[tblJobCard] ADD [EntryDate] [datetime] Default('1/1/2000') NOT NULL 
GO
CREATE TABLE [dbo].[tblTitleName] ([SrNo] [bigint] IDENTITY (1, 1) NOT NULL)
GO
ALTER TABLE [dbo].[tblTitleName] ADD [TitleName] [nvarchar] (50) Default ('') NOT NULL
GO
CREATE TABLE [dbo].[tblConfig] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL )
GO
ALTER TABLE [dbo].[tblConfig] ADD [ValueInPoints] [nvarchar] (5) Default('NO') NOT NULL 
GO
ALTER TABLE [dbo].[tblConfig] ADD [DecimalPointsYes] [int] Default(3) NOT NULL 
GO
ALTER TABLE [dbo].[tblConfig] ADD [DecimalPointsNo] [int] Default(2) NOT NULL 
GO
ALTER TABLE [dbo].[tblConfig] ADD [UpdateStatus] [nvarchar] (10) Default('') NOT NULL 
GO
Select * From tblConfig
GO
Insert Into tblConfig (ValueInPoints,DecimalPointsYes,DecimalPointsNo,UpdateStatus) Values ('NO',0,2,0)
GO
Update tblConfig Set UpdateStatus='20210105'
GO
drop view [dbo].[ChartOfAccount]
GO
drop view [dbo].[AllPartiesRecoveryReport]
GO
drop view [dbo].[PartiesRecoveryReport]
GO
drop view [dbo].[OpeningBalanceOfRecovery]
GO
drop view [dbo].[AgingReport]
GO
drop view [dbo].[PartyBalanceEmpty]
GO
drop view [dbo].[AgingBalance]
GO
drop view [dbo].[AgingDetail]
GO
drop view [dbo].[AgeingReportPeriod]
GO
drop view [dbo].[AgeingBalance]
GO
drop view [dbo].[AgeingDays30]
GO
drop view [dbo].[AgeingDays31_60]
GO
drop view [dbo].[AgeingDays61_90]
GO
drop view [dbo].[AgeingDaysAbove90]
GO
drop view [dbo].[LedgerSaleTax]
GO
drop view [dbo].[LedgerOfAccountSaleTax]
GO
drop view [dbo].[LedgerWithOutSaleTax]
GO
drop view [dbo].[LedgerSV]
GO
drop view [dbo].[SaleRegisterTaxPayable]
GO
drop view [dbo].[Ledger]
GO
drop view [dbo].[LedgerOfAccount]
GO
drop view [dbo].[OpeningBalanceOfLedger]
GO
drop view [dbo].[CashAndBankUptoDate]
GO
drop view [dbo].[CashVoucher]
GO
drop view [dbo].[CreditList]
GO
drop view [dbo].[DebitList]
GO
drop view [dbo].[PreviousCash]
GO
drop view [dbo].[ProfitAndLoss]
GO
drop view [dbo].[SingleVoucher]
GO
drop view [dbo].[TrialBalance]
GO
drop view [dbo].[TrialBalanceUptoDate]
GO
drop view [dbo].[VoucherListing]
GO
drop view [dbo].[LedgerLink]
GO
drop view [dbo].[LedgerOfAccountLink]
GO
drop view [dbo].[OpeningBalanceOfLedgerLink]
GO
drop view [dbo].[TrialBalanceWithClosing]
GO
drop view [dbo].[TrialBalanceProfitAndLossWithClosing]
GO
drop view [dbo].[TrialBalanceExpenses]
GO
drop view [dbo].[TrialBalanceUpToCash]
GO
drop view [dbo].[BalanceSheet]
GO
drop view [dbo].[BalanceSheetSingleDate]
GO
drop view [dbo].[Bill]
GO
drop view [dbo].[GetVoucherNoForBill]
GO
drop view [dbo].[SaleTaxInvoice]
GO
drop view [dbo].[ClientDetail]
GO
drop view [dbo].[SaleRegister]
GO
drop view [dbo].[SaleSummary]
GO
drop view [dbo].[SaleRegisterSummary]
GO
drop view [dbo].[EmployeeList]
GO
drop view [dbo].[EmployeeSalary]
GO
drop view [dbo].[Stock]
GO
drop view [dbo].[PurchaseRegister]
GO
drop view [dbo].[PartyPositionSingleDate]
GO
drop view [dbo].[PostDatedCheque]
GO
drop view [dbo].[DeliveryChallan]
GO
drop view [dbo].[DeliveryChallanSummary]
GO
drop view [dbo].[PurchaseOrder]
GO
drop view [dbo].[PoDcStatus]
GO
drop view [dbo].[DcInvoiceStatus]
GO
drop view [dbo].[JobCard]
GO
CREATE VIEW dbo.ChartOfAccount AS SELECT TOP 100 PERCENT PartyCode, PartyName, PartyAddress, PartyPhone, PartyFax, PartyEmail, PartySaleTaxNo FROM dbo.tblPartyInfo PI ORDER BY PartyCode
GO
CREATE VIEW dbo.OpeningBalanceOfRecovery AS SELECT TOP 100 PERCENT ISNULL(SUM(PB.PartyBalance), 0) AS OpeningBalance, PI.PartyCode, PI.PartyName, PI.CareOf FROM dbo.tblPartyBalance PB INNER JOIN dbo.tblKWClientInfo KW ON PB.VDate < KW.SDate RIGHT OUTER JOIN dbo.tblPartyInfo PI ON PB.PartyCode = PI.PartyCode GROUP BY PI.PartyCode, PI.PartyName, PI.CareOf ORDER BY PI.PartyCode
GO
CREATE VIEW dbo.PartiesRecoveryReport AS SELECT TOP 100 PERCENT PB.PartyCode, SUM(PB.PartyDR) AS PartyDR, SUM(PB.PartyCR) AS PartyCR, SUM(PB.PartyBalance) AS PartyBalance FROM dbo.tblPartyBalance PB CROSS JOIN dbo.tblKWClientInfo KW WHERE (PB.VDate BETWEEN KW.SDate AND KW.EDate) GROUP BY PB.PartyCode ORDER BY PB.PartyCode
GO
CREATE VIEW dbo.AllPartiesRecoveryReport AS SELECT TOP 100 PERCENT OB.PartyCode, OB.PartyName, OB.OpeningBalance, RB.PartyDR, RB.PartyCR, RB.PartyBalance, OB.CareOf FROM dbo.OpeningBalanceOfRecovery OB INNER JOIN dbo.tblDBCR ON OB.PartyCode = dbo.tblDBCR.PartyCode FULL OUTER JOIN dbo.PartiesRecoveryReport RB ON OB.PartyCode = RB.PartyCode WHERE (OB.PartyCode NOT LIKE '%__-__-000') ORDER BY OB.PartyCode
GO
CREATE VIEW dbo.CreditList AS SELECT SUM(PB.PartyBalance) AS PartyBalance, DBCR.PartyCode, PB.PartyName, CI.EDate, CI.SDate, CI.KWClientAddress, CI.KWClientName, PI.PartyPhone, PI.PartyAddress FROM dbo.tblDBCR DBCR INNER JOIN dbo.tblPartyBalance PB ON DBCR.PartyCode = PB.PartyCode INNER JOIN dbo.tblPartyInfo PI ON PB.PartyCode = PI.PartyCode CROSS JOIN dbo.tblKWClientInfo CI WHERE (PB.VDate BETWEEN CI.SDate AND CI.EDate) GROUP BY DBCR.PartyCode, PB.PartyName, CI.EDate, CI.SDate, CI.KWClientAddress, CI.KWClientName, PI.PartyPhone, PI.PartyAddress Having (Sum(PB.PartyBalance) < 0)
GO
CREATE VIEW dbo.DebitList AS SELECT SUM(PB.PartyBalance) AS PartyBalance, DBCR.PartyCode, PB.PartyName, CI.SDate, CI.EDate, CI.KWClientName, CI.KWClientAddress,PI.PartyPhone,PI.PartyAddress FROM dbo.tblDBCR DBCR INNER JOIN dbo.tblPartyBalance PB ON DBCR.PartyCode = PB.PartyCode INNER JOIN dbo.tblPartyInfo PI ON PB.PartyCode = PI.PartyCode CROSS JOIN dbo.tblKWClientInfo CI WHERE (PB.VDate BETWEEN CI.SDate AND CI.EDate) GROUP BY DBCR.PartyCode, PB.PartyName, CI.SDate, CI.EDate, CI.KWClientName, CI.KWClientAddress, PI.PartyPhone, PI.PartyAddress Having (Sum(PB.PartyBalance) > 0)
GO
CREATE VIEW dbo.VoucherListing AS SELECT TOP 100 PERCENT PB.* FROM dbo.tblPartyBalance PB ORDER BY VDate, VoucherType, VoucherNo, SrNo
GO
CREATE VIEW dbo.TrialBalance AS SELECT SUM(PB.PartyBalance) AS PartyBalance, PB.PartyCode, PB.PartyName, CI.SDate, CI.EDate FROM dbo.tblPartyBalance PB CROSS JOIN dbo.tblKWClientInfo CI WHERE (PB.VDate BETWEEN CI.SDate AND CI.EDate) GROUP BY PB.PartyCode, PB.PartyName, CI.SDate, CI.EDate Having (Sum(PB.PartyBalance) <> 0)
GO
CREATE VIEW dbo.TrialBalanceUptoDate AS SELECT SUM(PB.PartyBalance) AS PartyBalance, PB.PartyCode, PB.PartyName, CI.KWClientName, CI.KWClientAddress, CI.SDate, CI.EDate, PI.CareOf,PI.PartyPhone, PI.PartyAddress FROM dbo.tblPartyBalance PB INNER JOIN dbo.tblPartyInfo PI ON PB.PartyCode = PI.PartyCode CROSS JOIN dbo.tblKWClientInfo CI GROUP BY PB.PartyCode, PB.PartyName, CI.KWClientName, CI.KWClientAddress, CI.SDate, CI.EDate, PI.CareOf, PI.PartyPhone, PI.PartyAddress HAVING (SUM(PB.PartyBalance) <> 0) OR (PB.PartyCode LIKE '%__-__-000%')
GO
CREATE VIEW dbo.TrialBalanceUpToCash AS SELECT SUM(PB.PartyBalance) AS PartyBalance, PB.PartyCode, PB.PartyName, PI.CareOf, PI.PartyPhone, PI.PartyAddress FROM dbo.tblPartyBalance PB INNER JOIN dbo.tblPartyInfo PI ON PB.PartyCode = PI.PartyCode WHERE (PB.PartyCode < '19-99-999') GROUP BY PB.PartyCode, PB.PartyName, PI.CareOf, PI.PartyPhone, PI.PartyAddress HAVING (SUM(PB.PartyBalance) <> 0) OR (PB.PartyCode LIKE '%__-__-000%')
GO
CREATE VIEW dbo.TrialBalanceExpenses AS SELECT SUM(PB.PartyBalance) AS PartyBalance, PB.PartyCode, PB.PartyName, PI.CareOf, PI.PartyPhone, PI.PartyAddress FROM dbo.tblPartyBalance PB INNER JOIN dbo.tblPartyInfo PI ON PB.PartyCode = PI.PartyCode INNER JOIN dbo.tblClosingDate CD ON PB.VDate > CD.ClosingDate WHERE (PB.PartyCode >= '20-00-000') GROUP BY PB.PartyCode, PB.PartyName, PI.CareOf, PI.PartyPhone, PI.PartyAddress HAVING (SUM(PB.PartyBalance) <> 0) OR (PB.PartyCode LIKE '%__-__-000%')
GO
CREATE VIEW dbo.TrialBalanceProfitAndLossWithClosing AS SELECT SUM(PB.PartyBalance) AS PartyBalance, dbo.tblKWClientInfo.KWClientName, dbo.tblKWClientInfo.KWClientAddress, dbo.tblKWClientInfo.SDate , dbo.tblKWClientInfo.EDate, CD.ClosingDate FROM dbo.tblPartyBalance PB INNER JOIN dbo.tblClosingDate CD ON PB.VDate <= CD.ClosingDate CROSS JOIN dbo.tblKWClientInfo WHERE (PB.PartyCode >= '20-00-000') GROUP BY dbo.tblKWClientInfo.KWClientName, dbo.tblKWClientInfo.KWClientAddress, dbo.tblKWClientInfo.SDate, dbo.tblKWClientInfo.EDate,CD.ClosingDate Having (Sum(PB.PartyBalance) <> 0)
GO
CREATE VIEW dbo.TrialBalanceWithClosing AS SELECT C.* FROM dbo.TrialBalanceUpToCash C Union All SELECT E.* FROM dbo.TrialBalanceExpenses E
GO
CREATE VIEW dbo.PartyPosition AS SELECT TOP 100 PERCENT SUM(PB.PartyBalance) AS PartyBalance, DBCR.PartyCode, PB.PartyName, PI.PartyPhone FROM dbo.tblDBCR DBCR INNER JOIN dbo.tblPartyBalance PB ON DBCR.PartyCode = PB.PartyCode INNER JOIN dbo.tblPartyInfo PI ON PB.PartyCode = PI.PartyCode CROSS JOIN dbo.tblKWClientInfo CI WHERE (PB.VDate BETWEEN CI.SDate AND CI.EDate) GROUP BY DBCR.PartyCode, PB.PartyName, PI.PartyPhone, PI.PartyAddress HAVING (SUM(PB.PartyBalance) <> 0) OR (DBCR.PartyCode LIKE '__-__-000%') ORDER BY DBCR.PartyCode
GO
CREATE VIEW dbo.BalanceSheet AS SELECT SUM(PartyBalance) AS PartyBalance, PartyCode, PartyName FROM dbo.tblPartyBalance PB GROUP BY PartyCode, PartyName HAVING (SUM(PartyBalance) <> 0) OR (PartyCode LIKE '%__-__-000%')
GO
CREATE VIEW dbo.BalanceSheetSingleDate AS SELECT SUM(PB.PartyBalance) AS PartyBalance, PB.PartyCode, PB.PartyName FROM dbo.tblPartyBalance PB INNER JOIN dbo.tblKWClientInfo CI ON PB.VDate <= CI.EDate GROUP BY PB.PartyCode, PB.PartyName HAVING (SUM(PB.PartyBalance) <> 0) OR (PB.PartyCode LIKE '%__-__-000%')
GO
CREATE VIEW dbo.CashAndBankUptoDate AS SELECT SUM(PB.PartyBalance) AS PartyBalance, PB.PartyCode, PB.PartyName, PI.CareOf, PI.PartyPhone, PI.PartyAddress FROM dbo.tblPartyBalance PB INNER JOIN dbo.tblPartyInfo PI ON PB.PartyCode = PI.PartyCode CROSS JOIN dbo.tblKWClientInfo CI WHERE (PB.PartyCode BETWEEN '19-10-000' AND '19-99-999') GROUP BY PB.PartyCode, PB.PartyName, PI.CareOf, PI.PartyPhone, PI.PartyAddress HAVING (SUM(PB.PartyBalance) <> 0) OR (PB.PartyCode LIKE '%__-__-000%')
GO
CREATE VIEW dbo.PreviousCash AS SELECT TOP 100 PERCENT SUM(PB.PartyBalance) AS Balance FROM dbo.tblPartyBalance PB INNER JOIN dbo.tblKWClientInfo CI ON PB.VDate < CI.SDate WHERE (PB.PartyCode = '19-10-001')
GO
CREATE VIEW dbo.CashVoucher AS SELECT TOP 100 PERCENT PB.VoucherNo, PB.VoucherType, PB.PartyName, PB.PartyDR, PB.PartyCR, PB.PartyDesc, PB.PartyBalance, PB.VDate,PB.PartyCode, PB.InvoiceNo, ISNULL(dbo.PreviousCash.Balance, 0) AS Balance FROM dbo.tblPartyBalance PB CROSS JOIN dbo.tblKWClientInfo CI CROSS JOIN dbo.PreviousCash WHERE (PB.VDate BETWEEN CI.SDate AND CI.EDate) AND (PB.VoucherType IN ('CP', 'CR')) AND (PB.PartyCode <> '19-10-001') ORDER BY PB.PartyCR, PB.PartyDR
GO
CREATE VIEW dbo.SingleVoucher AS SELECT PartyCode, PartyName, PartyDesc, PartyDR, PartyCR, VoucherType, VoucherNo, VDate FROM dbo.tblPartyBalance PB WHERE (PartyCode <> '19-10-001')
GO
CREATE VIEW dbo.PartyBalanceEmpty AS SELECT TOP 100 PERCENT SrNo, VDate, VoucherType, VoucherNo, PartyDR, PartyCR, PartyBalance, TotalDR From dbo.tblPartyBalanceEmpty ORDER BY VDate DESC, SrNo DESC
GO
CREATE VIEW dbo.AgingReport AS SELECT TOP 100 PERCENT SrNo, VDate, VoucherNo, PartyDR, TotalDR, DATEDIFF(day, VDate, GETDATE()) AS Days From dbo.PartyBalanceEmpty ORDER BY SrNo DESC
GO
CREATE VIEW dbo.AgingBalance AS SELECT TOP 100 PERCENT PB.PartyCode, SUM(PB.PartyBalance) AS OpeningBalance FROM dbo.tblPartyBalance PB INNER JOIN dbo.tblKWClientInfo CI ON PB.PartyCode = CI.PartyCode AND PB.VDate <= CI.EDate GROUP BY PB.PartyCode
GO
CREATE VIEW dbo.AgingDetail AS SELECT TOP 100 PERCENT PB.SrNo, PB.VoucherType, PB.VoucherNo, PB.VDate, PB.InvoiceNo, PB.PartyName, PB.PartyCode, PB.PartyDR, PB.PartyCR, PB.PartyDesc FROM dbo.tblPartyBalance PB INNER JOIN dbo.tblKWClientInfo CI ON PB.PartyCode = CI.PartyCode ORDER BY PB.SrNo DESC
GO
CREATE VIEW dbo.AgeingBalance AS SELECT TOP 100 PERCENT PB.PartyCode, PB.PartyName, SUM(PB.PartyBalance) AS AgeingBalance FROM dbo.tblPartyBalance AS PB INNER JOIN dbo.tblKWClientInfo AS CI ON PB.VDate <= CI.EDate GROUP BY PB.PartyCode, PB.PartyName ORDER BY PB.PartyCode
GO
CREATE VIEW dbo.AgeingDays30 AS SELECT PB.PartyCode, SUM(PB.PartyBalance) AS Days30 FROM dbo.tblPartyBalance AS PB INNER JOIN dbo.tblKWClientInfo AS CI ON PB.VDate BETWEEN CI.EDate - 30 AND CI.EDate GROUP BY PB.PartyCode Having (Sum(PB.PartyBalance) <> 0)
GO
CREATE VIEW dbo.AgeingDays31_60 AS SELECT TOP 100 PERCENT PB.PartyCode, SUM(PB.PartyBalance) AS Days31_60 FROM dbo.tblPartyBalance AS PB INNER JOIN dbo.tblKWClientInfo AS CI ON PB.VDate BETWEEN CI.EDate - 60 AND CI.EDate - 31 GROUP BY PB.PartyCode ORDER BY PB.PartyCode
GO
CREATE VIEW dbo.AgeingDays61_90 AS SELECT TOP 100 PERCENT PB.PartyCode, SUM(PB.PartyBalance) AS Days61_90 FROM dbo.tblPartyBalance AS PB INNER JOIN dbo.tblKWClientInfo AS CI ON PB.VDate BETWEEN CI.EDate - 90 AND CI.EDate - 61 GROUP BY PB.PartyCode ORDER BY PB.PartyCode
GO
CREATE VIEW dbo.AgeingDaysAbove90 AS SELECT TOP 100 PERCENT PB.PartyCode, SUM(PB.PartyBalance) AS DaysAbove90 FROM dbo.tblPartyBalance AS PB INNER JOIN dbo.tblKWClientInfo AS CI ON PB.VDate < CI.EDate - 90 GROUP BY PB.PartyCode ORDER BY PB.PartyCode
GO
CREATE VIEW dbo.AgeingReportPeriod AS SELECT TOP 100 PERCENT PI.PartyCode, PI.PartyName, ISNULL(OB.AgeingBalance, 0) AS AgeingBalance, ISNULL(D30.Days30, 0) AS Days30, ISNULL(D60.Days31_60, 0) AS Days31_60, ISNULL(D90.Days61_90, 0) AS Days61_90, ISNULL(DA90.DaysAbove90, 0) AS DaysAbove90 FROM dbo.AgeingDays61_90 AS D90 FULL OUTER JOIN dbo.tblPartyInfo AS PI ON D90.PartyCode = PI.PartyCode FULL OUTER JOIN dbo.AgeingDaysAbove90 AS DA90 ON PI.PartyCode = DA90.PartyCode FULL OUTER JOIN dbo.AgeingDays30 AS D30 ON PI.PartyCode = D30.PartyCode FULL OUTER JOIN dbo.AgeingDays31_60 AS D60 ON PI.PartyCode = D60.PartyCode FULL OUTER JOIN dbo.AgeingBalance AS OB ON PI.PartyCode = OB.PartyCode WHERE (PI.PartyCode BETWEEN '14-00-000' AND '18-99-999') AND (PI.PartyCode NOT LIKE '%__-__-000') AND (OB.AgeingBalance > 0) ORDER BY PI.PartyCode
GO
CREATE VIEW dbo.OpeningBalanceOfLedger AS SELECT SUM(PB.PartyBalance) AS Balance, PB.PartyCode FROM dbo.tblPartyBalance PB INNER JOIN dbo.tblKWClientInfo CI ON PB.PartyCode = CI.PartyCode AND PB.VDate < CI.SDate GROUP BY PB.PartyCode
GO
CREATE VIEW dbo.LedgerOfAccount AS SELECT PI.PartyAddress AS PartyAddress, PI.PartyPhone AS PartyPhone, PB.SrNo, PB.VoucherType, PB.VoucherNo, PB.VDate, PB.InvoiceNo, PB.PartyName, PB.PartyCode , PB.PartyDR, PB.PartyCR, PB.PartyDesc, PI.DueDays FROM dbo.tblPartyBalance PB INNER JOIN dbo.tblKWClientInfo CI ON PB.PartyCode = CI.PartyCode INNER JOIN dbo.tblPartyInfo PI ON PB.PartyCode = PI.PartyCode WHERE (PB.VDate BETWEEN CI.SDate AND CI.EDate)
GO
CREATE VIEW dbo.Ledger AS SELECT ISNULL(O.Balance, 0) AS OpeningBalance, L.* FROM dbo.LedgerOfAccount AS L FULL OUTER JOIN dbo.OpeningBalanceOfLedger AS O ON L.PartyCode = O.PartyCode
GO
CREATE VIEW dbo.OpeningBalanceOfLedgerLink AS SELECT SUM(PartyBalance) AS Balance, PartyCode FROM dbo.tblPartyBalance PB WHERE (PartyCode = '10-10-000') AND (VDate < '1/1/1900') GROUP BY PartyCode
GO
CREATE VIEW dbo.LedgerOfAccountLink AS SELECT PB.*,PI.PartyAddress, PI.PartyPhone FROM dbo.tblPartyBalance PB INNER JOIN dbo.tblPartyInfo PI ON PB.PartyCode = PI.PartyCode
GO
CREATE VIEW dbo.LedgerLink AS SELECT ISNULL(dbo.OpeningBalanceOfLedgerLink.Balance,0) AS OpeningBalance, dbo.LedgerOfAccountLink.* FROM dbo.OpeningBalanceOfLedgerLink FULL OUTER JOIN dbo.LedgerOfAccountLink ON dbo.OpeningBalanceOfLedgerLink.PartyCode = dbo.LedgerOfAccountLink.PartyCode
GO
CREATE VIEW dbo.SaleRegisterTaxPayable AS SELECT PartyCode, InvoiceNo, SUM(Price) AS Price, SUM(SaleTaxPayable) AS SaleTaxPayable From dbo.tblInvoice GROUP BY PartyCode, InvoiceNo
GO
CREATE VIEW dbo.LedgerWithOutSaleTax AS SELECT PI.PartyAddress, PI.PartyPhone, PB.SrNo, PB.VoucherType, PB.VoucherNo, PB.VDate, PB.InvoiceNo, PB.PartyName, PB.PartyCode, PB.PartyDR, 0 AS SaleTaxPayable, PB.PartyCR, PB.PartyDesc, PI.DueDays FROM dbo.tblPartyBalance AS PB INNER JOIN dbo.tblKWClientInfo AS CI ON PB.PartyCode = CI.PartyCode INNER JOIN dbo.tblPartyInfo AS PI ON PB.PartyCode = PI.PartyCode WHERE (PB.VDate BETWEEN CI.SDate AND CI.EDate) AND (PB.VoucherType <> 'SV')
GO
CREATE VIEW dbo.LedgerSV AS SELECT PI.PartyAddress, PI.PartyPhone, PB.SrNo, PB.VoucherType, PB.VoucherNo, PB.VDate, PB.InvoiceNo, PB.PartyName, PB.PartyCode, S.Price AS PartyDR, S.SaleTaxPayable, PB.PartyCR, PB.PartyDesc, PI.DueDays FROM dbo.tblPartyBalance AS PB INNER JOIN dbo.tblKWClientInfo AS CI ON PB.PartyCode = CI.PartyCode INNER JOIN dbo.tblPartyInfo AS PI ON PB.PartyCode = PI.PartyCode INNER JOIN dbo.SaleRegisterTaxPayable AS S ON PB.VoucherNo = S.InvoiceNo AND PB.PartyCode = S.PartyCode WHERE (PB.VDate BETWEEN CI.SDate AND CI.EDate) AND (PB.VoucherType = 'SV')
GO
CREATE VIEW dbo.LedgerOfAccountSaleTax AS Select * From dbo.LedgerSV Union Select * From dbo.LedgerWithoutSaleTax
GO
CREATE VIEW dbo.LedgerSaleTax AS SELECT ISNULL(O.Balance, 0) AS OpeningBalance, L.PartyAddress, L.PartyPhone, L.SrNo, L.VoucherType, L.VoucherNo, L.VDate, L.InvoiceNo, L.PartyName, L.PartyCode, L.PartyDR, L.PartyCR, L.PartyDesc, L.DueDays , L.SaleTaxPayable FROM dbo.LedgerOfAccountSaleTax AS L FULL OUTER JOIN dbo.OpeningBalanceOfLedger AS O ON L.PartyCode = O.PartyCode
GO
CREATE VIEW dbo.ProfitAndLoss AS SELECT SUM(PB.PartyBalance) AS PartyBalance, PB.PartyCode, CI.SDate, CI.EDate, PB.PartyName FROM dbo.tblPartyBalance PB CROSS JOIN dbo.tblKWClientInfo CI WHERE (PB.PartyCode > '20-10-000') AND (PB.VDate BETWEEN CI.SDate AND CI.EDate) GROUP BY PB.PartyCode, CI.SDate, CI.EDate, PB.PartyName Having (Sum(PB.PartyBalance) <> 0)
GO
CREATE VIEW dbo.GetVoucherNoForBill AS SELECT TOP 100 PERCENT MAX(PB.VoucherNo) AS VoucherNo, PB.PartyCode, MIN(PB.SrNo) AS SrNo FROM dbo.tblPartyBalance PB INNER JOIN dbo.tblKWClientInfo KW ON PB.VoucherNo = KW.VoucherNo AND PB.PartyName = KW.PartyName WHERE (PB.VoucherType = 'SV') AND (PB.PartyCode <> '20-10-002') GROUP BY PB.PartyCode, PB.VoucherNo ORDER BY MAX(PB.VoucherNo)
GO
CREATE VIEW dbo.Bill AS SELECT TOP 100 PERCENT INV.InvoiceNo,INV.Description,INV.PONo,INV.Rate,INV.Quantity,INV.Price,INV.RateOfSaleTax,INV.SaleTaxPayable,INV.ValueIncludingTax,INV.InvoiceDate,INV.PartyName,PI.PartyDesc,INV.PartyCode,INV.SrNo,INV.ChallanNo,INV.GateEntryNo,INV.TermsOfSale,INV.TitleName,SUM(PB.PartyBalance) AS Balance,INV.CED,INV.JobNo FROM dbo.tblInvoice INV INNER JOIN dbo.tblKWClientInfo CI ON INV.InvoiceNo=CI.InvoiceNo INNER JOIN dbo.tblPartyInfo PI ON INV.PartyCode=PI.PartyCode INNER JOIN dbo.tblPartyBalance PB ON INV.PartyCode=PB.PartyCode INNER JOIN dbo.GetVoucherNoForBill VN ON PB.PartyCode=VN.PartyCode AND PB.SrNo < VN.SrNo GROUP BY INV.InvoiceNo,INV.Description,INV.PONo,INV.Rate,INV.Quantity,INV.Price,INV.RateOfSaleTax,INV.SaleTaxPayable,INV.ValueIncludingTax,INV.InvoiceDate,INV.PartyName,PI.PartyDesc,INV.PartyCode,INV.SrNo,INV.ChallanNo,INV.GateEntryNo,INV.TermsOfSale,INV.TitleName,INV.CED,INV.JobNo ORDER BY INV.TermsOfSale,INV.SrNo
GO
CREATE VIEW dbo.SaleTaxInvoice AS SELECT TOP 100 PERCENT INV.InvoiceNo, INV.Description, INV.PONo, INV.Rate, INV.Quantity, INV.Price, INV.RateOfSaleTax, INV.SaleTaxPayable,INV.ValueIncludingTax, PI.PartyName, PI.PartySaleTaxNo, PI.PartyAddress, INV.InvoiceDate, PI.PartyCode, PI.PartyPhone, PI.PartyFax, PI.PartyEmail,INV.ChallanNo , INV.GateEntryNo, INV.TermsOfSale, INV.SrNo, INV.Type, INV.TitleName, INV.JobNo, INV.CED, INV.InvoiceDesc, INV.DTRE, INV.Weight, PI.PartyNTN, INV.FurtherTax, INV.DescCode FROM dbo.tblInvoice INV INNER JOIN dbo.tblKWClientInfo CI ON INV.InvoiceNo = CI.InvoiceNo INNER JOIN dbo.tblPartyInfo PI ON INV.PartyCode = PI.PartyCode ORDER BY INV.TermsOfSale, INV.SrNo
GO
CREATE VIEW dbo.ClientDetail AS SELECT dbo.tblInvoice.* From dbo.tblInvoice
GO
CREATE VIEW dbo.SaleRegister AS SELECT INV.InvoiceNo, INV.InvoiceDate, INV.Quantity, INV.Price, INV.SaleTaxPayable, PI.PartyName, PI.PartySaleTaxNo, INV.TermsOfSale, INV.PartyCode, INV.InvoiceDesc , INV.Rate, INV.Weight, INV.RateOfSaleTax, INV.TitleName FROM dbo.tblInvoice INV INNER JOIN dbo.tblPartyInfo PI ON INV.PartyCode = PI.PartyCode CROSS JOIN dbo.tblKWClientInfo CI WHERE (INV.InvoiceDate BETWEEN CI.SDate AND CI.EDate)
GO
CREATE VIEW dbo.SaleSummary AS SELECT SUM(INV.SaleTaxPayable) AS SaleTaxPayable, PI.PartyName, PI.PartySaleTaxNo, INV.PartyCode, COUNT(INV.InvoiceNo) AS TotalInvoiceNo FROM dbo.tblInvoice INV INNER JOIN dbo.tblPartyInfo PI ON INV.PartyCode = PI.PartyCode INNER JOIN dbo.tblKWClientInfo CI ON MONTH(INV.InvoiceDate) = MONTH(CI.SDate) AND YEAR(INV.InvoiceDate) = YEAR(CI.SDate) GROUP BY PI.PartyName, PI.PartySaleTaxNo, INV.PartyCode
GO
CREATE VIEW dbo.SaleRegisterSummary AS SELECT TOP 100 PERCENT InvoiceNo, PartyName, PartyCode, InvoiceDate, ChallanNo, TitleName, SUM(Price) AS Price, SUM(ValueIncludingTax) AS ValueIncludingTax, Status, TermsOfSale From dbo.tblInvoice GROUP BY InvoiceNo, PartyName, PartyCode, InvoiceDate, ChallanNo, TitleName, Status, TermsOfSale ORDER BY TitleName, InvoiceDate, InvoiceNo
GO
CREATE VIEW dbo.OtherServices AS SELECT TOP 100 PERCENT VoucherType, VoucherNo, ServiceDate, PartyName, Service, ServiceAmount, SupplierName, SupplierAmount, InvoiceNo From dbo.tblOtherServices ORDER BY ServiceDate, VoucherType, VoucherNo
GO
CREATE VIEW dbo.EmployeeList AS SELECT TOP 100 PERCENT EmployeeCode, EmployeeName, Salary, InDate, IncrementDate, Status From dbo.tblEmployeeInfo ORDER BY Status    
GO
CREATE VIEW dbo.EmployeeSalary AS SELECT VDate, EmployeeName, Balance, EmployeeSalary, OverTime, Holidays, OverDays, OTAmount, TotalSalary, Advance, VoucherNo, EmployeeCode From dbo.tblEmployeeSalary
GO
CREATE VIEW dbo.Stock AS SELECT Type, SUM(Units) AS Units, SUM(UnitPrice) AS UnitPrice, SUM(Issue) AS Issue, VDate, BrandName From dbo.tblStock GROUP BY Type, VDate, BrandName
GO
CREATE VIEW dbo.PartyPositionSingleDate AS SELECT TOP 100 PERCENT SUM(PB.PartyBalance) AS PartyBalance, DBCR.PartyCode, PB.PartyName, PI.PartyPhone FROM dbo.tblDBCR DBCR INNER JOIN dbo.tblPartyBalance PB ON DBCR.PartyCode = PB.PartyCode INNER JOIN dbo.tblPartyInfo PI ON PB.PartyCode = PI.PartyCode INNER JOIN dbo.tblKWClientInfo CI ON PB.VDate <= CI.EDate GROUP BY DBCR.PartyCode, PB.PartyName, PI.PartyPhone, PI.PartyAddress HAVING (SUM(PB.PartyBalance) <> 0) OR (DBCR.PartyCode LIKE '__-__-000%') ORDER BY DBCR.PartyCode
GO
CREATE VIEW dbo.PurchaseRegister AS SELECT dbo.tblPurchaseStock.* From dbo.tblPurchaseStock
GO
CREATE VIEW dbo.PostDatedCheque AS SELECT TOP 100 PERCENT VDate, ChequeDate, PartyName, BankName, Amount, Description, EntryDate, Status From dbo.tblPostDatedCheque ORDER BY VDate
GO
CREATE VIEW dbo.DeliveryChallan AS SELECT TOP 100 PERCENT dbo.tblDeliveryChallan.* From dbo.tblDeliveryChallan ORDER BY DeliveryChallanNo
GO
CREATE VIEW dbo.DeliveryChallanSummary AS SELECT DISTINCT TOP 100 PERCENT DeliveryChallanNo AS DC, PartyName, PartyCode, VDate, PONo, TitleName From dbo.DeliveryChallan ORDER BY TitleName, VDate, DeliveryChallanNo
GO
CREATE VIEW dbo.PurchaseOrder AS SELECT TOP 100 PERCENT PO.RecordNo, PO.PONo, PO.PartyName, PO.PartyCode, PO.VDate, PO.DemandDate, PO.Description, PO.JobNo, PO.DemandNo, PO.Quantity , PO.UnitPrice, PO.Type, PI.PartyAddress, PI.PartyPhone, PO.TitleName, PO.PartyPONo FROM dbo.tblPurchaseOrder PO INNER JOIN dbo.tblPartyInfo PI ON PO.PartyCode = PI.PartyCode ORDER BY PO.PONo, PO.RecordNo
GO
CREATE VIEW dbo.PoDcStatus AS SELECT DISTINCT PO.PartyPONo, PO.PartyName, PO.VDate AS PODate, PO.Description AS PODesc, PO.Quantity AS POQuantity, PO.TitleName, DC.DeliveryChallanNo, DC.VDate AS DCDate, DC.Quantity AS DCQuantity, DC.DemandNo, DC.GateEntryNo, PO.JobNo FROM dbo.tblPurchaseOrder PO LEFT OUTER JOIN dbo.tblDeliveryChallan DC ON PO.PartyPONo = DC.PONo AND PO.PartyName = DC.PartyName AND PO.TitleName = DC.TitleName AND PO.Description = DC.Description
GO
CREATE VIEW dbo.DcInvoiceStatus AS SELECT DISTINCT TOP 100 PERCENT DC.PONo, DC.PartyName, DC.VDate AS DCDate, DC.Description AS DcDesc, DC.Quantity AS DCQuantity, Inv.InvoiceNo, Inv.InvoiceDate AS InvDate, Inv.Quantity AS InvQuantity, DC.DeliveryChallanNo , Inv.Description, DC.TitleName FROM dbo.tblDeliveryChallan AS DC LEFT OUTER JOIN dbo.tblInvoice AS Inv ON DC.DemandNo = Inv.JobNo AND DC.TitleName = Inv.TitleName AND CAST(DC.DeliveryChallanNo AS nvarchar(100)) = Inv.ChallanNo AND DC.PartyName = Inv.PartyName And DC.Description = Inv.Description ORDER BY DC.DeliveryChallanNo
GO
CREATE VIEW dbo.JobCard AS SELECT dbo.tblJobCard.* From dbo.tblJobCard
GO
Select PartyName From tblPartyInfo Where PartyName='CAPITAL'
GO
Select PartyCode From tblPartyInfo Where PartyCode='10-10-000'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('CAPITAL','10-10-000')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','CAPITAL','10-10-000','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='LOANS'
GO
Select PartyCode From tblPartyInfo Where PartyCode='11-10-000'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('LOANS','11-10-000')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','LOANS','11-10-000','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='FIXED ASSETS'
GO
Select PartyCode From tblPartyInfo Where PartyCode='12-10-000'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('FIXED ASSETS','12-10-000')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','FIXED ASSETS','12-10-000','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='CURRENT ASSETS'
GO
Select PartyCode From tblPartyInfo Where PartyCode='12-11-000'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('CURRENT ASSETS','12-11-000')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','CURRENT ASSETS','12-11-000','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='DEPRICIATION'
GO
Select PartyCode From tblPartyInfo Where PartyCode='12-12-000'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('DEPRICIATION','12-12-000')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','DEPRICIATION','12-12-000','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='SECURTIES'
GO
Select PartyCode From tblPartyInfo Where PartyCode='12-13-000'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('SECURTIES','12-13-000')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','SECURTIES','12-13-000','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='SYSTEM ACCOUNTS'
GO
Select PartyCode From tblPartyInfo Where PartyCode='13-10-000'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('SYSTEM ACCOUNTS','13-10-000')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','SYSTEM ACCOUNTS','13-10-000','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='INVOICE BALANCE'
GO
Select PartyCode From tblPartyInfo Where PartyCode='20-10-002'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('INVOICE BALANCE','20-10-002')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','INVOICE BALANCE','20-10-002','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='PURCHASER'
GO
Select PartyCode From tblPartyInfo Where PartyCode='14-10-000'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('PURCHASER','14-10-000')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','PURCHASER','14-10-000','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='CUSTOMERS'
GO
Select PartyCode From tblPartyInfo Where PartyCode='18-10-000'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('CUSTOMERS','18-10-000')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','CUSTOMERS','18-10-000','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='CASH'
GO
Select PartyCode From tblPartyInfo Where PartyCode='19-10-000'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('CASH','19-10-000')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','CASH','19-10-000','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='CASH IN HAND'
GO
Select PartyCode From tblPartyInfo Where PartyCode='19-10-001'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('CASH IN HAND','19-10-001')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','CASH IN HAND','19-10-001','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='CASH IN BANKS'
GO
Select PartyCode From tblPartyInfo Where PartyCode='19-11-000'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('CASH IN BANKS','19-11-000')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','CASH IN BANKS','19-11-000','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='CHEQUES IN HAND'
GO
Select PartyCode From tblPartyInfo Where PartyCode='19-12-000'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('CHEQUES IN HAND','19-12-000')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','CHEQUES IN HAND','19-12-000','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='SYSTEM SALE AND PURCHASE ACCOUNTS'
GO
Select PartyCode From tblPartyInfo Where PartyCode='20-10-000'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('SYSTEM SALE AND PURCHASE ACCOUNTS','20-10-000')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','SYSTEM SALE AND PURCHASE ACCOUNTS','20-10-001','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='PROFIT AND LOSS'
GO
Select PartyCode From tblPartyInfo Where PartyCode='20-11-001'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('PROFIT AND LOSS','20-11-001')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','PROFIT AND LOSS','20-11-001','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='SYSTEM PURCHASE ACCOUNT'
GO
Select PartyCode From tblPartyInfo Where PartyCode='20-12-000'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('SYSTEM PURCHASE ACCOUNT','20-12-000')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','SYSTEM PURCHASE ACCOUNT','20-12-000','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='ADMIN EXPENSES'
GO
Select PartyCode From tblPartyInfo Where PartyCode='21-10-000'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('ADMIN EXPENSES','21-10-000')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','ADMIN EXPENSES','21-10-000','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='ENTERTAINMENT'
GO
Select PartyCode From tblPartyInfo Where PartyCode='21-10-001'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('ENTERTAINMENT','21-10-001')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','ENTERTAINMENT','21-10-001','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='TRAVELING EXPENSES'
GO
Select PartyCode From tblPartyInfo Where PartyCode='21-10-002'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('TRAVELING EXPENSES','21-10-002')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','TRAVELING EXPENSES','21-10-002','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='PRINTING AND STATIONARY'
GO
Select PartyCode From tblPartyInfo Where PartyCode='21-10-003'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('PRINTING AND STATIONARY','21-10-003')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','PRINTING AND STATIONARY','21-10-003','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='OFFICE RENT'
GO
Select PartyCode From tblPartyInfo Where PartyCode='21-10-004'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('OFFICE RENT','21-10-004')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','OFFICE RENT','21-10-004','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='BANK CHARGES'
GO
Select PartyCode From tblPartyInfo Where PartyCode='21-10-005'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('BANK CHARGES','21-10-005')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','BANK CHARGES','21-10-005','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='TELEPHONE BILLS'
GO
Select PartyCode From tblPartyInfo Where PartyCode='21-10-006'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('TELEPHONE BILLS','21-10-006')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','TELEPHONE BILLS','21-10-006','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='ELECTRICITY BILLS'
GO
Select PartyCode From tblPartyInfo Where PartyCode='21-10-007'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('ELECTRICITY BILLS','21-10-007')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','ELECTRICITY BILLS','21-10-007','OPENING BALANCE')
GO
Select PartyName From tblPartyInfo Where PartyName='STAFF SALARIES'
GO
Select PartyCode From tblPartyInfo Where PartyCode='21-10-008'
GO
Insert Into tblPartyInfo (PartyName,PartyCode) Values ('STAFF SALARIES','21-10-008')
GO
Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','STAFF SALARIES','21-10-008','OPENING BALANCE')
GO
