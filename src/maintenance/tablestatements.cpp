#include "tablestatements.h"

namespace {

struct StatementStep
{
    Step operator()(const ColumnRow &row) const { return Step::execute(Action::AddColumn, addColumnStatement(row)); }
    Step operator()(const WholeTableStatement &whole) const
    {
        return Step::execute(whole.action, QString::fromUtf8(whole.text));
    }
};

} // namespace

Steps tableSteps(std::span<const TableStatement> statements)
{
    Steps steps;
    steps.reserve(statements.size());
    for (const TableStatement &statement : statements)
        steps.push_back(std::visit(StatementStep{}, statement));
    return steps;
}
