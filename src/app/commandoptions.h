#pragma once

#include "commandcontext.h"

#include <QCommandLineParser>

#include <optional>

// Parses a subcommand's options. Prints its help, or the bad argument, and
// gives the exit status to end with; nothing when the command may go on.
std::optional<int> parseOptions(QCommandLineParser &parser, const QString &command, const QString &description,
                                const QStringList &arguments, CommandContext &context);

// The mode's value when it is one of the three, else a usage message.
std::optional<QString> checkedMode(const QCommandLineParser &parser, CommandContext &context);

// A required option's value, else a usage message.
std::optional<QString> requiredValue(const QCommandLineParser &parser, const QString &name, CommandContext &context);
