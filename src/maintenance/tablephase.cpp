#include "tablephase.h"

#include "builtinrows_catalog.h"
#include "documenttables_catalog.h"
#include "ledgertables_catalog.h"
#include "scratchtables_catalog.h"

Steps tablePhaseSteps()
{
    Steps steps;
    append(steps, careOfTableSteps());
    append(steps, closingDateTableSteps());
    append(steps, closingDateRowSteps());
    steps.push_back(Step::progressMark(100));
    append(steps, dbcrTableSteps());
    steps.push_back(Step::progressMark(200));
    append(steps, logonTableSteps());
    append(steps, administratorRowSteps());
    steps.push_back(Step::progressMark(300));
    append(steps, monthlyComparisonReportEmptyTableSteps());
    steps.push_back(Step::progressMark(400));
    append(steps, dailyComparisonReportEmptyTableSteps());
    append(steps, partyBalanceTableSteps());
    append(steps, partyBalanceEmptyTableSteps());
    steps.push_back(Step::progressMark(500));
    append(steps, partyInfoTableSteps());
    append(steps, itemCodingTableSteps());
    append(steps, invoiceTableSteps());
    steps.push_back(Step::progressMark(600));
    append(steps, invoiceEmptyTableSteps());
    append(steps, deliveryChallanTableSteps());
    append(steps, purchaseStockTableSteps());
    append(steps, stockEmptyTableSteps());
    append(steps, employeeStockTableSteps());
    append(steps, employeeInfoTableSteps());
    append(steps, employeeSalaryTableSteps());
    append(steps, otherServicesTableSteps());
    append(steps, postDatedChequeTableSteps());
    append(steps, userRightsTableSteps());
    steps.push_back(Step::progressMark(700));
    // The header row goes in unguarded: the table was dropped at the start of the run.
    append(steps, kwClientInfoTableSteps());
    append(steps, reportHeaderRowSteps());
    append(steps, purchaseOrderTableSteps());
    append(steps, jobCardTableSteps());
    append(steps, titleNameTableSteps());
    append(steps, configTableSteps());
    return steps;
}
