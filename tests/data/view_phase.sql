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
