#pragma once

#include "commandcontext.h"

#include <QCommandLineParser>
#include <QDateTime>

#include <optional>

// How long a statement may take before it counts as failed, unless told otherwise.
inline constexpr int kDefaultStatementSeconds = 30;

struct CommandSyntax;

// Parses a subcommand's options as its syntax gives them. Prints its help, or
// the bad argument or the option that does not fit its form, and gives the
// exit status to end with; nothing when the command may go on.
std::optional<int> parseOptions(QCommandLineParser &parser, const QString &command, const QStringList &arguments,
                                CommandContext &context);

// What `zrt COMMAND --help` prints.
QString commandHelp(const CommandSyntax &command);

struct DatabaseChoice
{
    QString mode;
    QString database;
    QString server;
};

// The shared options' values, else a usage message naming what is wrong.
std::optional<DatabaseChoice> checkedDatabaseChoice(const QCommandLineParser &parser, const QString &command,
                                                    CommandContext &context);

// The ODBC string the operator gave: --odbc's, else ZRT_ODBC's where no
// --server is given, so that a password need not show in the process list.
std::optional<QString> givenOdbc(const QCommandLineParser &parser);

// The database's connections: the given ODBC string for every open, else the
// servers'; each statement may take `statementSeconds`.
ConnectionFactory chosenConnections(const QCommandLineParser &parser, CommandContext &context,
                                    int statementSeconds = kDefaultStatementSeconds);

// Where the database is, as headers and reports name it: the server (none in
// ONLINE mode), or the --odbc string with its password masked.
QString targetName(const QCommandLineParser &parser, const QString &mode);
// A data source as messages name it.
QString serverTarget(const QString &server);

// ONLINE opens only the hosted servers, whatever string it is given.
inline constexpr char kOdbcNotOnline[] = "--odbc and ZRT_ODBC go with --mode OFFLINE or LOCAL, not ONLINE";

// Why a server name cannot be used, or nothing.
QString serverNameRefusal(const QString &server);


// The first line of a command's output: the program's version, what it works
// on and when it started.
QString headerLine(const QString &command, const QString &subject, const QDateTime &started);

// --statement-timeout's seconds (0: wait for ever), the default when not
// given, else a usage message.
std::optional<int> checkedStatementSeconds(const QCommandLineParser &parser, const QString &command,
                                           CommandContext &context);

// The mode a text names in any letter case, in upper case.
std::optional<QString> modeNamed(const QString &text);
QString unknownModeText(const QString &text);

// The mode given, in any letter case, as the upper-case mode; else a usage message.
std::optional<QString> checkedMode(const QCommandLineParser &parser, const QString &command, CommandContext &context);
