// clang-format off
#include "builtinrows_catalog.h"

#include "tablestatements.h"

#include <array>

namespace {

// The application's initial password for its administrator, stored as plain
// text; an administrator who changed it keeps the new one.
constexpr char kInitialAdministratorPassword[] = "TULIPOAK";

constexpr std::array<TableStatement, 5> kConfigTable = {
    createTable("CREATE TABLE [dbo].[tblConfig] ( [SrNo] [bigint] IDENTITY (1, 1) NOT NULL )"),
    ColumnRow{"tblConfig", "ValueInPoints", "nvarchar", "5", "Default('NO')", "NOT NULL", true},
    ColumnRow{"tblConfig", "DecimalPointsYes", "int", "", "Default(3)", "NOT NULL", true},
    ColumnRow{"tblConfig", "DecimalPointsNo", "int", "", "Default(2)", "NOT NULL", true},
    ColumnRow{"tblConfig", "UpdateStatus", "nvarchar", "10", "Default('')", "NOT NULL", true},
};

} // namespace

// Any row at all counts: a closing date that was set is kept.
Steps closingDateRowSteps()
{
    return {
        Step::guard(QStringLiteral("Select ClosingDate From tblClosingDate"), Recordset::Check, {
            Step::execute(Action::InsertBuiltInRow, QStringLiteral("Insert Into tblClosingDate (ClosingDate) Values ('1/1/2000')")),
        }),
    };
}

// Only the user name is tested: a removed administrator comes back with the
// initial password, an existing one keeps the password it has.
Steps administratorRowSteps()
{
    return {
        Step::guard(QStringLiteral("Select UserName From tblLogon Where UserName='ADMINISTRATOR'"), Recordset::Check, {
            Step::execute(Action::InsertBuiltInRow, QStringLiteral("Insert Into tblLogon (UserName,Password,UserType) Values ('ADMINISTRATOR','%1','ADMINISTRATOR')")
                              .arg(QLatin1String(kInitialAdministratorPassword))),
        }),
    };
}

// Untested: the table was dropped and created again just before.
Steps reportHeaderRowSteps()
{
    return {
        Step::execute(Action::InsertBuiltInRow, QStringLiteral("Insert Into tblKWClientInfo (KWClientName,KWClientAddress,SDate,EDate,VoucherType,VoucherNo,PartyCode,PartyCode1,PartyName,CareOf,UserName) Values ('1','1','1/1/2000','1/1/2000','1','1','1','1','1','1','1')")),
    };
}

Steps configTableSteps()
{
    Steps steps = tableSteps(kConfigTable);
    // DecimalPointsYes 0 against its default of 3, and UpdateStatus as the
    // number 0: the row the application has always started from.
    steps.push_back(Step::guard(QStringLiteral("Select * From tblConfig"), Recordset::Config, {
        Step::execute(Action::InsertBuiltInRow, QStringLiteral("Insert Into tblConfig (ValueInPoints,DecimalPointsYes,DecimalPointsNo,UpdateStatus) Values ('NO',0,2,0)")),
    }));
    // Every row, every run, once every table and column has been issued.
    steps.push_back(Step::execute(Action::StampConfiguration, QStringLiteral("Update tblConfig Set UpdateStatus='20210105'")));
    return steps;
}
