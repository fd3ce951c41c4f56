#include "emptydatabasescript.h"

namespace {

void collect(std::span<const Step> steps, QStringList &statements)
{
    for (const Step &step : steps) {
        switch (step.kind) {
        case Step::Kind::Execute:
            statements << step.text;
            break;
        case Step::Kind::Guard:
            statements << step.text;
            collect(step.whenNoRows, statements);
            break;
        case Step::Kind::Progress:
            break;
        }
    }
}

} // namespace

QByteArray scriptText(const QStringList &statements)
{
    QByteArray script;
    for (const QString &statement : statements)
        script += statement.toUtf8() + "\nGO\n";
    return script;
}

int statementCount(std::span<const Step> steps)
{
    QStringList statements;
    collect(steps, statements);
    return int(statements.size());
}

QStringList statementsForEmptyDatabase(const Steps &steps)
{
    QStringList statements;
    collect(steps, statements);
    return statements;
}
