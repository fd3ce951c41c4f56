#include "tablestatements.h"

namespace {

struct StatementText
{
    QString operator()(const ColumnRow &row) const { return addColumnStatement(row); }
    QString operator()(std::string_view whole) const { return QString::fromUtf8(whole); }
};

} // namespace

Steps tableSteps(std::span<const TableStatement> statements)
{
    Steps steps;
    steps.reserve(statements.size());
    for (const TableStatement &statement : statements)
        steps.push_back(Step::execute(std::visit(StatementText{}, statement)));
    return steps;
}
