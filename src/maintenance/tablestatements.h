#pragma once

#include "columnstatement.h"
#include "step.h"

#include <span>
#include <string_view>
#include <variant>

// A statement that departs from the common column form, kept whole, with what it does.
struct WholeTableStatement
{
    Action action;
    std::string_view text;
};

constexpr WholeTableStatement createTable(std::string_view text)
{
    return {Action::CreateTable, text};
}
constexpr WholeTableStatement addColumnText(std::string_view text)
{
    return {Action::AddColumn, text};
}
constexpr WholeTableStatement widenColumn(std::string_view text)
{
    return {Action::WidenColumn, text};
}

// One statement of a table's upgrade, in run order: a column built by the
// common form, or a text that departs from it.
using TableStatement = std::variant<ColumnRow, WholeTableStatement>;

// Each statement executed as it stands; failures on an existing schema are expected.
Steps tableSteps(std::span<const TableStatement> statements);
