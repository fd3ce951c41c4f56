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
