#pragma once

#include "columnstatement.h"
#include "step.h"

#include <span>
#include <string_view>
#include <variant>

// One statement of a table's upgrade, in run order: a column built by the
// common form, or a text that departs from it and is kept whole.
using TableStatement = std::variant<ColumnRow, std::string_view>;

// Each statement executed as it stands; failures on an existing schema are expected.
Steps tableSteps(std::span<const TableStatement> statements);
