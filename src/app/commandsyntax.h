#pragma once

#include <QList>
#include <QStringList>

#include <span>
#include <string_view>

// The commands, their forms and their options, as the parser checks them and
// as the help, the manual page and the shell completion show them.

// What an option's value is, so completion can offer it.
enum class ValueKind
{
    None, // a switch
    Text,
    Mode,
    File,
    Folder,
};

struct OptionSyntax
{
    std::string_view name;  // without its dashes
    std::string_view value; // the value as help names it, empty for a switch
    ValueKind kind;
    std::string_view description;
};

// One way to call a command: the switch that selects it (none for the usual
// way) and what follows "zrt COMMAND"; alternatives are bracketed and
// separated by "|".
struct FormSyntax
{
    std::string_view selector;
    std::string_view usage;
};

struct CommandSyntax
{
    std::string_view name;
    std::string_view summary; // its line in the program's help
    std::span<const FormSyntax> forms;
    std::string_view description;
};

// A term and what it means: an exit status, an environment variable.
struct TermSyntax
{
    std::string_view term;
    std::string_view text;
};

// The table's text as Qt's.
QString syntaxText(std::string_view text);

std::span<const CommandSyntax> commandSyntax();
std::span<const OptionSyntax> optionSyntax();
std::span<const TermSyntax> exitStatusSyntax();
std::span<const TermSyntax> environmentSyntax();

// The connection modes, as the window names them.
std::span<const char *const> modeNames();

const CommandSyntax *findCommand(QStringView name);
const OptionSyntax *findOption(QStringView name);

// An option of a form, or a group of alternatives of which one may be given.
struct FormOption
{
    QStringList names; // without dashes
    bool required = false;
};

// A form's options in usage order.
QList<FormOption> formOptions(const FormSyntax &form);

bool formTakes(const FormSyntax &form, const QString &name);

// Whether the form ends with operands, "FOLDER...", after its options.
bool formTakesOperands(const FormSyntax &form);

// Every option of the command's forms, each once, in usage order.
QStringList commandOptions(const CommandSyntax &command);

// A form's usage as the words printed together: an option with its value, or
// a bracketed group.
QStringList usageUnits(const FormSyntax &form);

// "zrt COMMAND USAGE", broken before `width` columns with later lines
// indented under the first option; never inside brackets.
QString usageLine(const CommandSyntax &command, const FormSyntax &form, int width = 79);

// What in the table does not fit together: a usage naming an option that has
// no row, or a value other than the row's, or a form not led by its switch.
QStringList syntaxFaults();

// The program's help: its commands, exit statuses and environment.
QString programHelp();
