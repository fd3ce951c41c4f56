#include "runplan.h"

#include "chartofaccounts_catalog.h"
#include "tablephase.h"
#include "viewcatalog.h"

#include <array>
#include <string_view>

namespace {

// Always dropped, so every run rebuilds them empty (the client-information
// table with one fresh row).
constexpr std::array<std::string_view, 6> kRebuiltTableDrops = {
    "drop table [dbo].[tblMonthlyComparisonReportEmpty]",
    "drop table [dbo].[tblPartyBalanceEmpty]",
    "drop table [dbo].[tblKWClientInfo]",
    "drop table [dbo].[tblDailyComparisonReportEmpty]",
    "drop table [dbo].[tblInvoiceEmpty]",
    "drop table [dbo].[tblStockEmpty]",
};

Steps viewPhaseSteps()
{
    Steps steps{Step::phase(QStringLiteral("view drops"))};
    for (std::string_view name : reportViewDropOrder())
        steps.push_back(Step::execute(QLatin1String("drop view [dbo].[") + QString::fromUtf8(name) + QLatin1Char(']')));
    steps.push_back(Step::progressMark(800));
    steps.push_back(Step::phase(QStringLiteral("view creates")));
    for (const ReportView &view : reportViewsInCreateOrder())
        steps.push_back(Step::execute(QString::fromUtf8(view.definition)));
    steps.push_back(Step::progressMark(900));
    return steps;
}

} // namespace

Steps maintenanceSteps()
{
    Steps steps{Step::phase(QStringLiteral("rebuilt table drops"))};
    for (std::string_view drop : kRebuiltTableDrops)
        steps.push_back(Step::execute(QString::fromUtf8(drop)));
    steps.push_back(Step::phase(QStringLiteral("tables")));
    append(steps, tablePhaseSteps());
    append(steps, viewPhaseSteps());
    steps.push_back(Step::phase(QStringLiteral("chart of accounts")));
    append(steps, chartOfAccountsSteps());
    return steps;
}

QString createDatabaseStatement(const QString &databaseName, const QString &fileBase)
{
    // Two blanks after "]", fixed logical names, extensions appended as they
    // stand and nothing quoted: the text the application's databases were made by.
    return QLatin1String("CREATE DATABASE [") + databaseName
        + QLatin1String("]  ON (NAME = N'Quorvex KRN', FILENAME = N'") + fileBase
        + QLatin1String(".mdf') LOG ON (NAME = N'Quorvex KRN_Log', FILENAME = N'") + fileBase
        + QLatin1String("_Log.ldf')");
}
