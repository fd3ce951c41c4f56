#pragma once

#include "step.h"

// The ledger and master-data tables: each created with its first column, then
// completed one added column at a time, so an existing database gains only
// what it lacks.
Steps careOfTableSteps();
Steps closingDateTableSteps();
Steps dbcrTableSteps();
Steps logonTableSteps();
Steps partyBalanceTableSteps();
Steps partyInfoTableSteps(); // ends with the widening of six older columns
Steps itemCodingTableSteps();
Steps invoiceTableSteps();
Steps titleNameTableSteps();
