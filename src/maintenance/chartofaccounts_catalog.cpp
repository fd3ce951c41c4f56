// clang-format off
#include "chartofaccounts_catalog.h"

#include <QString>

#include <array>
#include <string_view>

namespace {

// One account of the standard chart and the code its opening row is booked on.
struct ChartAccount
{
    std::string_view name;
    std::string_view code;
    std::string_view balanceCode;
};

// Run order, not code order. The names are the ones the application's
// databases already hold, misspellings included: the name test compares whole
// names, so any other spelling would seed a second account.
constexpr std::array<ChartAccount, 26> kChartOfAccounts = {{
    {"CAPITAL", "10-10-000", "10-10-000"},
    {"LOANS", "11-10-000", "11-10-000"},
    {"FIXED ASSETS", "12-10-000", "12-10-000"},
    {"CURRENT ASSETS", "12-11-000", "12-11-000"},
    {"DEPRICIATION", "12-12-000", "12-12-000"},
    {"SECURTIES", "12-13-000", "12-13-000"},
    {"SYSTEM ACCOUNTS", "13-10-000", "13-10-000"},
    {"INVOICE BALANCE", "20-10-002", "20-10-002"},
    {"PURCHASER", "14-10-000", "14-10-000"},
    {"CUSTOMERS", "18-10-000", "18-10-000"},
    {"CASH", "19-10-000", "19-10-000"},
    {"CASH IN HAND", "19-10-001", "19-10-001"},
    {"CASH IN BANKS", "19-11-000", "19-11-000"},
    {"CHEQUES IN HAND", "19-12-000", "19-12-000"},
    // The group head carries the party row; the opening row is booked on the
    // account under it, which gets no party row of its own.
    {"SYSTEM SALE AND PURCHASE ACCOUNTS", "20-10-000", "20-10-001"},
    {"PROFIT AND LOSS", "20-11-001", "20-11-001"},
    {"SYSTEM PURCHASE ACCOUNT", "20-12-000", "20-12-000"},
    {"ADMIN EXPENSES", "21-10-000", "21-10-000"},
    {"ENTERTAINMENT", "21-10-001", "21-10-001"},
    {"TRAVELING EXPENSES", "21-10-002", "21-10-002"},
    {"PRINTING AND STATIONARY", "21-10-003", "21-10-003"},
    {"OFFICE RENT", "21-10-004", "21-10-004"},
    {"BANK CHARGES", "21-10-005", "21-10-005"},
    {"TELEPHONE BILLS", "21-10-006", "21-10-006"},
    {"ELECTRICITY BILLS", "21-10-007", "21-10-007"},
    {"STAFF SALARIES", "21-10-008", "21-10-008"},
}};

QString text(std::string_view value)
{
    return QString::fromLatin1(value.data(), qsizetype(value.size()));
}

QString nameTest(const ChartAccount &account)
{
    return QStringLiteral("Select PartyName From tblPartyInfo Where PartyName='%1'").arg(text(account.name));
}

QString codeTest(const ChartAccount &account)
{
    return QStringLiteral("Select PartyCode From tblPartyInfo Where PartyCode='%1'").arg(text(account.code));
}

// A blank before "Values" here and none in the opening-balance insert.
QString partyInsert(const ChartAccount &account)
{
    return QStringLiteral("Insert Into tblPartyInfo (PartyName,PartyCode) Values ('%1','%2')")
        .arg(text(account.name), text(account.code));
}

QString openingBalanceInsert(const ChartAccount &account)
{
    return QStringLiteral("Insert Into tblPartyBalance (VoucherType,VDate,PartyName,PartyCode,PartyDesc) Values('JV','1/1/2000','%1','%2','OPENING BALANCE')")
        .arg(text(account.name), text(account.balanceCode));
}

} // namespace

Steps chartOfAccountsSteps()
{
    Steps steps;
    for (const ChartAccount &account : kChartOfAccounts) {
        // Either test finding a row skips the account. The opening row is not
        // tested: it follows the party insert whatever that insert did.
        steps.push_back(Step::guard(nameTest(account), Recordset::Check, {
            Step::guard(codeTest(account), Recordset::InnerCheck, {
                Step::execute(Action::InsertAccount, partyInsert(account)),
                Step::execute(Action::InsertOpeningBalance, openingBalanceInsert(account)),
            }),
        }));
    }
    return steps;
}
