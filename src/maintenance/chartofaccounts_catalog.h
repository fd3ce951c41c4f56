#pragma once

#include "step.h"

// The standard chart of accounts with its opening-balance rows: the last phase.
Steps chartOfAccountsSteps();
