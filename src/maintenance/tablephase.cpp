#include "tablephase.h"

#include "builtinrows_catalog.h"

Steps tablePhaseSteps()
{
    Steps steps;
    append(steps, closingDateRowSteps());
    steps.push_back(Step::progressMark(100));
    steps.push_back(Step::progressMark(200));
    append(steps, administratorRowSteps());
    steps.push_back(Step::progressMark(300));
    steps.push_back(Step::progressMark(400));
    steps.push_back(Step::progressMark(500));
    steps.push_back(Step::progressMark(600));
    steps.push_back(Step::progressMark(700));
    append(steps, reportHeaderRowSteps());
    append(steps, configTableSteps());
    return steps;
}
