#pragma once

#include "step.h"

#include <QStringList>

#include <span>

// Every statement the steps send to an existing, empty database, in order:
// each guard's Select finds nothing there, so its statements follow it.
QStringList statementsForEmptyDatabase(const Steps &steps);

// How many statements that is, for any stretch of steps.
int statementCount(std::span<const Step> steps);

// The statements as a script: each text followed by a line holding only GO.
QByteArray scriptText(const QStringList &statements);
