#pragma once

#include "step.h"

#include <span>
#include <string_view>

// One account of the standard chart and the code its opening row is booked on.
struct ChartAccount
{
    std::string_view name;
    std::string_view code;
    std::string_view balanceCode;
};

// The accounts in the order the run seeds them.
std::span<const ChartAccount> chartOfAccounts();

// The standard chart of accounts with its opening-balance rows: the last phase.
Steps chartOfAccountsSteps();
