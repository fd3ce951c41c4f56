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
