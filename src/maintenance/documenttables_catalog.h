#pragma once

#include "step.h"

// The document, stock, payroll and access tables: each created with its
// identity column, then completed one added column at a time.
Steps deliveryChallanTableSteps();
Steps purchaseStockTableSteps();
Steps employeeStockTableSteps();
Steps employeeInfoTableSteps();
Steps employeeSalaryTableSteps();
Steps otherServicesTableSteps();
Steps postDatedChequeTableSteps();
Steps userRightsTableSteps();
Steps purchaseOrderTableSteps();
Steps jobCardTableSteps();
