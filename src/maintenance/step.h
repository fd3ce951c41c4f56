#pragma once

#include <QString>

#include <vector>

// The result-set variables that hold the existence tests' results.
enum class Recordset { Check, InnerCheck, Config };

// The stretches of a run, in run order.
enum class Phase { CreateDatabase, RebuiltTableDrops, Tables, ViewDrops, ViewCreates, ChartOfAccounts };

// What a statement does to the database when it succeeds; reports count by it.
enum class Action {
    ExistenceTest,
    CreateDatabase,
    DropTable,
    CreateTable,
    AddColumn,
    WidenColumn,
    InsertBuiltInRow,
    StampConfiguration,
    DropView,
    CreateView,
    InsertAccount,
    InsertOpeningBalance,
};

// One step of the run. The driver walks a list of these and knows nothing of
// particular tables, rows or views.
struct Step
{
    enum class Kind { Execute, Guard, Progress };

    Kind kind = Kind::Execute;
    Phase phase = Phase::Tables;
    Action action = Action::ExistenceTest;
    QString text; // Execute: the statement; Guard: its Select
    Recordset recordset = Recordset::Check; // Guard: the variable that keeps the Select's result
    std::vector<Step> whenNoRows; // Guard: run only when the Select found nothing
    int progress = 0; // Progress: the bar's new value

    static Step execute(Action action, QString text)
    {
        return {Kind::Execute, Phase::Tables, action, std::move(text), Recordset::Check, {}, 0};
    }
    static Step guard(QString select, Recordset into, std::vector<Step> whenNoRows)
    {
        return {Kind::Guard, Phase::Tables, Action::ExistenceTest, std::move(select), into, std::move(whenNoRows), 0};
    }
    static Step progressMark(int value)
    {
        return {Kind::Progress, Phase::Tables, Action::ExistenceTest, {}, Recordset::Check, {}, value};
    }
};

using Steps = std::vector<Step>;

inline void append(Steps &to, Steps from)
{
    to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
}

// The steps, guarded ones included, marked as belonging to `phase`.
inline Steps inPhase(Phase phase, Steps steps)
{
    for (Step &step : steps) {
        step.phase = phase;
        step.whenNoRows = inPhase(phase, std::move(step.whenNoRows));
    }
    return steps;
}
