#pragma once

#include "commandcontext.h"

#include <QCommandLineParser>

#include <optional>

// Parses a subcommand's options. Prints its help, or the bad argument, and
// gives the exit status to end with; nothing when the command may go on.
std::optional<int> parseOptions(QCommandLineParser &parser, const QString &command, const QString &description,
                                const QStringList &arguments, CommandContext &context);

// --mode, --database, --server and --odbc: the options run and check share.
void addDatabaseOptions(QCommandLineParser &parser);

struct DatabaseChoice
{
    QString mode;
    QString database;
    QString server;
};

// The shared options' values, else a usage message naming what is wrong.
std::optional<DatabaseChoice> checkedDatabaseChoice(const QCommandLineParser &parser, const QString &command,
                                                    CommandContext &context);

// The database's connections: --odbc's string for every open, else the servers'.
ConnectionFactory chosenConnections(const QCommandLineParser &parser, CommandContext &context);

// The mode's value when it is one of the three, else a usage message.
std::optional<QString> checkedMode(const QCommandLineParser &parser, CommandContext &context);

// A required option's value, else a usage message.
std::optional<QString> requiredValue(const QCommandLineParser &parser, const QString &name, CommandContext &context);
