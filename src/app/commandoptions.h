#pragma once

#include "commandcontext.h"

#include <QCommandLineParser>
#include <QDateTime>

#include <optional>

// How long a statement may take before it counts as failed, unless told otherwise.
inline constexpr int kDefaultStatementSeconds = 30;

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

// With --all: a --server and none of `oneOnly`; without it: none of `allOnly`.
// Else a usage message.
bool checkedForm(const QCommandLineParser &parser, const QString &command, const QStringList &oneOnly,
                 const QStringList &allOnly, CommandContext &context);

// The ODBC string the operator gave: --odbc's, else ZRT_ODBC's where no
// --server is given, so that a password need not show in the process list.
std::optional<QString> givenOdbc(const QCommandLineParser &parser);

// The database's connections: the given ODBC string for every open, else the
// servers'; each statement may take `statementSeconds`.
ConnectionFactory chosenConnections(const QCommandLineParser &parser, CommandContext &context,
                                    int statementSeconds = kDefaultStatementSeconds);

// Where the database is, as headers and reports name it: the server, or the
// --odbc string with its password masked.
QString targetName(const QCommandLineParser &parser);

// True unless --server holds a character the ODBC driver would read as more
// keywords; else a usage message.
bool checkedServer(const QCommandLineParser &parser, const QString &command, CommandContext &context);

// The first line of a command's output: the program's version, what it works
// on and when it started.
QString headerLine(const QString &command, const QString &subject, const QDateTime &started);

// --statement-timeout's seconds (0: wait for ever), the default when not
// given, else a usage message.
std::optional<int> checkedStatementSeconds(const QCommandLineParser &parser, const QString &command,
                                           CommandContext &context);

// The mode's value when it is one of the three, else a usage message.
std::optional<QString> checkedMode(const QCommandLineParser &parser, CommandContext &context);

// A required option's value, else a usage message.
std::optional<QString> requiredValue(const QCommandLineParser &parser, const QString &name, CommandContext &context);
