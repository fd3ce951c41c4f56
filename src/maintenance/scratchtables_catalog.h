#pragma once

#include "step.h"

// The report scratch tables and the report-header table, which every run
// drops first and recreates here whole.
Steps monthlyComparisonReportEmptyTableSteps();
Steps dailyComparisonReportEmptyTableSteps();
Steps partyBalanceEmptyTableSteps();
Steps invoiceEmptyTableSteps();
Steps stockEmptyTableSteps();
Steps kwClientInfoTableSteps();
