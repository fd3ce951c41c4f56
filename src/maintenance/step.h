#pragma once

#include <QString>

#include <vector>

// The result-set variables that hold the existence tests' results.
enum class Recordset { Check, InnerCheck, Config };

// One step of the run. The driver walks a list of these and knows nothing of
// particular tables, rows or views.
struct Step
{
    enum class Kind { Execute, Guard, Progress, Phase };

    Kind kind = Kind::Execute;
    QString text; // Execute: the statement; Guard: its Select; Phase: its name
    Recordset recordset = Recordset::Check; // Guard: the variable that keeps the Select's result
    std::vector<Step> whenNoRows; // Guard: run only when the Select found nothing
    int progress = 0; // Progress: the bar's new value

    static Step execute(QString text)
    {
        return {Kind::Execute, std::move(text), Recordset::Check, {}, 0};
    }
    static Step guard(QString select, Recordset into, std::vector<Step> whenNoRows)
    {
        return {Kind::Guard, std::move(select), into, std::move(whenNoRows), 0};
    }
    static Step progressMark(int value) { return {Kind::Progress, {}, Recordset::Check, {}, value}; }
    // Names the statements that follow, for reports; the window shows nothing of it.
    static Step phase(QString name) { return {Kind::Phase, std::move(name), Recordset::Check, {}, 0}; }
};

using Steps = std::vector<Step>;

inline void append(Steps &to, Steps from)
{
    to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
}
