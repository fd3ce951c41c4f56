#include "runplan.h"

#include "chartofaccounts_catalog.h"
#include "tablephase.h"
#include "viewcatalog.h"

#include <array>
#include <string_view>

namespace {

// Always dropped, so every run rebuilds them empty (the client-information
// table with one fresh row).
constexpr std::array<std::string_view, 6> kRebuiltTables = {
    "tblMonthlyComparisonReportEmpty",
    "tblPartyBalanceEmpty",
    "tblKWClientInfo",
    "tblDailyComparisonReportEmpty",
    "tblInvoiceEmpty",
    "tblStockEmpty",
};

Steps rebuiltTableDrops()
{
    Steps steps;
    for (const QString &table : rebuiltTables())
        steps.push_back(Step::execute(Action::DropTable, QLatin1String("drop table [dbo].[") + table + QLatin1Char(']')));
    return steps;
}

Steps viewDrops()
{
    Steps steps;
    for (std::string_view name : reportViewDropOrder())
        steps.push_back(Step::execute(Action::DropView,
                                      QLatin1String("drop view [dbo].[") + QString::fromUtf8(name) + QLatin1Char(']')));
    steps.push_back(Step::progressMark(800));
    return steps;
}

Steps viewCreates()
{
    Steps steps;
    for (const ReportView &view : reportViewsInCreateOrder())
        steps.push_back(Step::execute(Action::CreateView, QString::fromUtf8(view.definition)));
    steps.push_back(Step::progressMark(900));
    return steps;
}

} // namespace

QStringList rebuiltTables()
{
    QStringList tables;
    for (std::string_view table : kRebuiltTables)
        tables << QString::fromUtf8(table);
    return tables;
}

Steps maintenanceSteps()
{
    Steps steps = inPhase(Phase::RebuiltTableDrops, rebuiltTableDrops());
    append(steps, inPhase(Phase::Tables, tablePhaseSteps()));
    append(steps, inPhase(Phase::ViewDrops, viewDrops()));
    append(steps, inPhase(Phase::ViewCreates, viewCreates()));
    append(steps, inPhase(Phase::ChartOfAccounts, chartOfAccountsSteps()));
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
