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
