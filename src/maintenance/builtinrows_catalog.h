#pragma once

#include "step.h"

// The built-in rows, each at its place in the table phase.
Steps closingDateRowSteps();   // after tblClosingDate
Steps administratorRowSteps(); // after tblLogon and its columns
Steps reportHeaderRowSteps();  // right after tblKWClientInfo is created
Steps configTableSteps();      // tblConfig, its row and the configuration stamp
