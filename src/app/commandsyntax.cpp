#include "commandsyntax.h"

#include "connectionprofiles.h"

#include <algorithm>
#include <array>

namespace {

constexpr OptionSyntax kOptions[] = {
    {"all", "", ValueKind::None,
     "Every database that the server lists (or that the --odbc string reaches), each on a connection of its own."},
    {"fleet", "FILE", ValueKind::File,
     "Every database of the servers of the fleet file FILE (TOML): one [[server]] table each, with mode, server, "
     "and optional odbc_env (the name of an environment variable holding the server's ODBC string; a server beside "
     "it must be the one the string reaches), label (a name for the reports), include and exclude (patterns over "
     "the names: * ? [...] [!...], a literal [ as [[]), and jobs (at most so many of that server's databases at "
     "once); a top-level jobs is the default of --jobs; lock_timeout, lock_retries and lock_wait, at the top or in "
     "a [[server]], are the defaults of those options. Two tables that reach one server are refused. With "
     "--retry: the fleet file to take the servers' connections from now."},
    {"retry", "FOLDER", ValueKind::Folder,
     "Only the databases that an earlier invocation, whose folder is FOLDER, did not complete (for check: that "
     "did not match) and their servers still list; each server reached as the fleet file that the index names "
     "says, while its content is unchanged (else give --fleet), or, for a folder made with --all, as --mode and "
     "--server or --odbc say again. An index entry that is not what zrt writes, or that says other than the "
     "operator's input, is refused. The new folder goes beside FOLDER unless --report-dir says."},
    {"shard", "K/N", ValueKind::Text,
     "Only the K-th of N parts of the databases, each database's part fixed by its server and name (adding a "
     "database moves no other): N hosts given 1/N to N/N do the whole fleet once; zrt merge joins their folders."},
    {"mode", "MODE", ValueKind::Mode, "OFFLINE, LOCAL or ONLINE, in any letter case."},
    {"database", "NAME", ValueKind::Text, "The database."},
    {"server", "NAME", ValueKind::Text,
     "The server: host, host,port, tcp:host,port or host\\instance. Without it, run, plan and check work on "
     "the local default instance."},
    {"odbc", "STRING", ValueKind::Text,
     "A complete ODBC connection string instead of a server (OFFLINE or LOCAL mode)."},
    {"create-at", "FILEBASE", ValueKind::File,
     "Create a database that is missing, on the chosen server, with its files at FILEBASE.mdf and "
     "FILEBASE_Log.ldf, named after FILEBASE's file name."},
    {"report", "FILE", ValueKind::File,
     "Write the run's context, one JSON object per statement and its end to FILE."},
    {"junit", "FILE", ValueKind::File,
     "Write the run to FILE as a JUnit XML test suite, as CI systems read it: a test case per phase, failed "
     "with the messages of its statements that failed unexpectedly."},
    {"jobs", "N", ValueKind::Text, "At most N databases at once (default: a fleet file's jobs, else 8)."},
    {"max-failures", "N", ValueKind::Text,
     "Start no database once N have ended with unexpected failures; the rest are not started (exit 3)."},
    {"report-dir", "DIR", ValueKind::Folder,
     "A new folder in DIR for this invocation, YYYYMMDD-HHMMSS-COMMAND, with index.json, index.html, junit.xml "
     "and, for run and plan (and a merge of theirs), one report per database."},
    {"statement-timeout", "SECONDS", ValueKind::Text,
     "A statement still running after SECONDS fails as timed out and the run goes on (default 30; 0 waits "
     "for ever)."},
    {"lock-timeout", "SECONDS", ValueKind::Text,
     "A statement waits at most SECONDS for a lock that another session holds (SET LOCK_TIMEOUT; default 5, "
     "0 does not wait); then it is refused and sent again."},
    {"lock-retries", "N", ValueKind::Text,
     "A statement refused its locks is sent again, in its place, up to N times after pauses of 1, 2, 4... "
     "seconds (default 5); then it counts as blocked."},
    {"lock-wait", "SECONDS", ValueKind::Text,
     "Wait at most SECONDS for another run on the database to end (default 0); after that the database is "
     "busy and nothing is sent."},
    {"output", "FILE", ValueKind::File, "Write to FILE instead of the standard output."},
    {"json", "", ValueKind::None, "Print one JSON document instead of text."},
    {"quiet", "", ValueKind::None, "Print only the header, the outcome and errors."},
    {"verbose", "", ValueKind::None, "List every failure, not the first 20 messages."},
};

constexpr FormSyntax kScriptForms[] = {{"", "[--output FILE]"}};
constexpr FormSyntax kListForms[] = {
    {"", "--mode MODE [--server NAME | --odbc STRING] [--json]"},
    {"fleet", "--fleet FILE [--json]"},
};
constexpr FormSyntax kRunForms[] = {
    {"", "--mode MODE --database NAME [--server NAME | --odbc STRING] [--create-at FILEBASE] [--report FILE] "
         "[--junit FILE] [--statement-timeout SECONDS] [--lock-timeout SECONDS] [--lock-retries N] "
         "[--lock-wait SECONDS] [--json | --quiet | --verbose]"},
    {"all", "--all --mode MODE [--server NAME | --odbc STRING] [--shard K/N] [--jobs N] [--max-failures N] "
            "[--report-dir DIR] [--statement-timeout SECONDS] [--lock-timeout SECONDS] [--lock-retries N] "
            "[--lock-wait SECONDS] [--json | --quiet | --verbose]"},
    {"fleet", "--fleet FILE [--shard K/N] [--jobs N] [--max-failures N] [--report-dir DIR] "
              "[--statement-timeout SECONDS] [--lock-timeout SECONDS] [--lock-retries N] [--lock-wait SECONDS] "
              "[--json | --quiet | --verbose]"},
    {"retry", "--retry FOLDER [--fleet FILE | --mode MODE [--server NAME | --odbc STRING]] [--shard K/N] [--jobs N] "
              "[--max-failures N] [--report-dir DIR] [--statement-timeout SECONDS] [--lock-timeout SECONDS] "
              "[--lock-retries N] [--lock-wait SECONDS] [--json | --quiet | --verbose]"},
};
constexpr FormSyntax kCheckForms[] = {
    {"", "--mode MODE --database NAME [--server NAME | --odbc STRING] [--lock-wait SECONDS] [--json]"},
    {"all", "--all --mode MODE [--server NAME | --odbc STRING] [--shard K/N] [--jobs N] [--max-failures N] "
            "[--report-dir DIR] [--lock-wait SECONDS] [--json]"},
    {"fleet", "--fleet FILE [--shard K/N] [--jobs N] [--max-failures N] [--report-dir DIR] [--lock-wait SECONDS] "
              "[--json]"},
    {"retry", "--retry FOLDER [--fleet FILE | --mode MODE [--server NAME | --odbc STRING]] [--shard K/N] [--jobs N] "
              "[--max-failures N] [--report-dir DIR] [--lock-wait SECONDS] [--json]"},
};
constexpr FormSyntax kMergeForms[] = {{"", "[--report-dir DIR] FOLDER..."}};
constexpr FormSyntax kHelpForms[] = {{"", "[COMMAND]"}};

constexpr CommandSyntax kCommands[] = {
    {"script", "write every statement a run sends to an empty database", kScriptForms,
     "Writes every statement that a run sends to an existing, empty database, in run\n"
     "order, each followed by a line holding only GO."},
    {"list", "list the Quorvex databases of a server", kListForms,
     "Prints the Quorvex databases of the server, one per line, as the window lists\n"
     "them; with --odbc or ZRT_ODBC the string reaches the server. With --fleet,\n"
     "each server's databases that its patterns admit, each line the server, a tab\n"
     "and the name. Exit 4 when a server cannot be reached, or takes the login and\n"
     "does not list its databases within 30 s."},
    {"run", "run the maintenance on one database, with a summary and a report", kRunForms,
     "Runs the maintenance on one database, as the window does, and prints what\n"
     "its statements did, failures grouped by message. ONLINE mode opens only on\n"
     "the servers QUORVEXMAIN and SERVER; on any other nothing is sent (exit 4).\n"
     "With --odbc every open, the fallback on tempdb included, uses the given ODBC\n"
     "connection string; the database is named at login. A database that is\n"
     "missing is created only with --create-at, on the chosen server; otherwise\n"
     "nothing is sent (exit 4). The run never goes on in the fallback on tempdb.\n"
     "A lost connection ends the run. Before its first statement the run takes\n"
     "the tool's application lock on the database (sp_getapplock, exclusive, for\n"
     "its session) and sets its lock timeout: when another run holds the lock\n"
     "past --lock-wait the database is busy, nothing is sent (exit 3) and --retry\n"
     "takes it again; a statement refused its locks (error 1222) is sent again in\n"
     "its place and, refused past --lock-retries, counts as blocked, naming the\n"
     "sessions that held the locks where the login may see them. An engine without\n"
     "application locks (SQLite) is said so, and run without. With --all every\n"
     "database that the server lists is run (with --odbc or ZRT_ODBC, through\n"
     "that string, each database named at login), with --fleet those of every\n"
     "server of the file, with --retry those an earlier invocation did not\n"
     "complete; each on its own connection, with a line for each as it ends, and\n"
     "on a terminal a line of progress. Ctrl-C starts no further run and stops\n"
     "the running ones after their current statement, or at once in a pause\n"
     "before a statement's next try. Exit 0 completed, 3 statements failed\n"
     "unexpectedly, timed out or were blocked, the database was busy, the\n"
     "connection was lost, --max-failures stopped the fleet or a file could not\n"
     "be written, 4 nothing could be applied, 130 interrupted."},
    {"plan", "what a run would do to a database: run, then rolled back", kRunForms,
     "Shows what a run would do to the database, in the run's own words, and\n"
     "leaves it as it was: it opens the database as run does, turns autocommit\n"
     "off, sends exactly the run's statements (each guard sees what the earlier\n"
     "statements did) and rolls everything back; it never commits. It also names\n"
     "the rows the run would discard. A database that is missing is reported as\n"
     "one that a run would create (with --create-at, by the statement shown);\n"
     "nothing is sent. It takes the application lock, bounds its lock waits and\n"
     "sends refused statements again as run does, inside its transaction. A\n"
     "preview holds the same locks as a run until it rolls back: the\n"
     "application's users wait for it as for a run. Exit codes as run: 0 the run\n"
     "would complete, 3 statements would fail unexpectedly or be blocked, the\n"
     "database was busy or the preview stopped (once the server has ended its\n"
     "transaction, or will not say, nothing more is sent), 4 nothing could be\n"
     "read, 130 interrupted."},
    {"check", "list what a database lacks of what a run leaves; changes nothing", kCheckForms,
     "Compares the database's tables, columns and views with what a run leaves\n"
     "and lists what is missing or of another type or width. Tables, columns and\n"
     "views of its own are listed as left alone; views that read a table no run\n"
     "creates and the database lacks are listed as not installable here. Neither\n"
     "counts as a difference. Only reads: it sends nothing but Selects. With --all,\n"
     "--fleet or --retry the databases are checked as run takes them, up to --jobs\n"
     "at once, one line each. It reads under the tool's application lock, shared:\n"
     "beside other checks, never beside a run; with a run past --lock-wait the\n"
     "database is busy (exit 3). Exit 0 when the database matches, 1 when it\n"
     "differs, 4 when it cannot be opened or read."},
    {"merge", "one invocation's folder from several: shards run on other hosts", kMergeForms,
     "Writes a new folder, YYYYMMDD-HHMMSS-merge in DIR (default: beside the first\n"
     "FOLDER), that holds what the invocations' folders FOLDER... hold, as if one\n"
     "invocation had done them all: index.json with every database once, the\n"
     "servers united and the totals counted again, index.html, junit.xml, and\n"
     "every report, so that the folder stands alone and --retry takes it. It is\n"
     "complete only when every folder is, and, for shards, when every part of\n"
     "them is given. Folders of different commands, a preview with a run, and a\n"
     "database in two folders are refused (exit 2) and nothing is written. Exit\n"
     "0 written, 3 a file could not be copied or written."},
    {"help", "the help of zrt, or of one command", kHelpForms,
     "Prints the help of zrt, or of COMMAND: its usage, what it does and its options."},
};

constexpr TermSyntax kExitStatuses[] = {
    {"0", "success (check: the database matches)"},
    {"1", "check: the database differs"},
    {"2", "bad usage"},
    {"3", "statements failed unexpectedly, timed out or were blocked, the run\nstopped part-way (connection lost, preview stopped), another run held\nthe database (busy), or a file could not be written"},
    {"4", "nothing could be applied or read: no connection, no database"},
    {"130", "interrupted (Ctrl-C, SIGTERM, or a closed output pipe)"},
};

constexpr TermSyntax kEnvironment[] = {
    {"ZRT_ODBC_DRIVER", "the ODBC driver that reaches SQL Server (default FreeTDS)"},
    {"ZRT_ONLINE_SERVER", "the host of the hosted server of ONLINE mode"},
    {"ZRT_ENCRYPT", "request (default) encryption, require it with the server's\ncertificate verified (use it with the hosted ONLINE server),\nor require-unverified for a self-signed certificate"},
    {"ZRT_TLS_CA", "with require: the CA file (PEM) that the certificate is\nverified against, instead of the system's CA store"},
    {"ZRT_ODBC", "an ODBC connection string used as --odbc is, where\nneither --odbc nor --server is given"},
    {"NAME", "in a fleet file, odbc_env = \"NAME\" names a variable that\nholds that server's ODBC string"},
    {"DISPLAY", "without a command, zrt opens the window where this,\nWAYLAND_DISPLAY or QT_QPA_PLATFORM is set"},
    {"NO_COLOR", "set to anything but empty: no colours on a terminal"},
};

constexpr std::array<const char *, 3> kModes = {ConnectionProfiles::kOffline, ConnectionProfiles::kLocal,
                                                ConnectionProfiles::kOnline};

// Terms and texts in two columns; a text's later lines under its first.
QString termList(std::span<const TermSyntax> terms, int column)
{
    QString list;
    for (const TermSyntax &term : terms) {
        const QStringList lines = syntaxText(term.text).split(QLatin1Char('\n'));
        list += QLatin1String("  ") + syntaxText(term.term).leftJustified(column - 3) + QLatin1Char(' ') + lines.first()
            + QLatin1Char('\n');
        for (const QString &line : lines.mid(1))
            list += QString(column, QLatin1Char(' ')) + line + QLatin1Char('\n');
    }
    return list;
}

} // namespace

QString syntaxText(std::string_view text)
{
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

std::span<const CommandSyntax> commandSyntax()
{
    return kCommands;
}

std::span<const OptionSyntax> optionSyntax()
{
    return kOptions;
}

std::span<const TermSyntax> exitStatusSyntax()
{
    return kExitStatuses;
}

std::span<const TermSyntax> environmentSyntax()
{
    return kEnvironment;
}

std::span<const char *const> modeNames()
{
    return kModes;
}

const CommandSyntax *findCommand(QStringView name)
{
    const auto found = std::find_if(std::begin(kCommands), std::end(kCommands),
                                    [name](const CommandSyntax &command) { return name == syntaxText(command.name); });
    return found == std::end(kCommands) ? nullptr : found;
}

const OptionSyntax *findOption(QStringView name)
{
    const auto found = std::find_if(std::begin(kOptions), std::end(kOptions),
                                    [name](const OptionSyntax &option) { return name == syntaxText(option.name); });
    return found == std::end(kOptions) ? nullptr : found;
}

QList<FormOption> formOptions(const FormSyntax &form)
{
    QList<FormOption> options;
    int depth = 0;
    bool alternative = false;
    for (QString word : syntaxText(form.usage).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const int opened = int(word.count(QLatin1Char('[')));
        const int closed = int(word.count(QLatin1Char(']')));
        word.remove(QLatin1Char('[')).remove(QLatin1Char(']'));
        depth += opened;
        if (word == QLatin1String("|")) {
            alternative = true;
        } else if (word.startsWith(QLatin1String("--"))) {
            if (alternative)
                options.last().names << word.mid(2);
            else
                options << FormOption{{word.mid(2)}, depth == 0};
            alternative = false;
        }
        depth -= closed;
    }
    return options;
}

bool formTakesOperands(const FormSyntax &form)
{
    return syntaxText(form.usage).endsWith(QLatin1String("..."));
}

bool formTakes(const FormSyntax &form, const QString &name)
{
    const QList<FormOption> options = formOptions(form);
    return std::any_of(options.begin(), options.end(), [&](const FormOption &option) { return option.names.contains(name); });
}

QStringList commandOptions(const CommandSyntax &command)
{
    QStringList names;
    for (const FormSyntax &form : command.forms) {
        for (const FormOption &option : formOptions(form)) {
            for (const QString &name : option.names) {
                if (!names.contains(name))
                    names << name;
            }
        }
    }
    return names;
}

QStringList usageUnits(const FormSyntax &form)
{
    QStringList units;
    int depth = 0;
    for (const QString &word : syntaxText(form.usage).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const bool value = !word.startsWith(QLatin1Char('-')) && !word.startsWith(QLatin1Char('['));
        if (depth > 0 || (value && !units.isEmpty()))
            units.last() += QLatin1Char(' ') + word;
        else
            units << word;
        depth += int(word.count(QLatin1Char('['))) - int(word.count(QLatin1Char(']')));
    }
    return units;
}

QString usageLine(const CommandSyntax &command, const FormSyntax &form, int width)
{
    const QString head = QLatin1String("zrt ") + syntaxText(command.name);
    QString lines = head;
    qsizetype current = head.size();
    for (const QString &unit : usageUnits(form)) {
        if (current + 1 + unit.size() > width && current > head.size()) {
            lines += QLatin1Char('\n') + QString(head.size(), QLatin1Char(' '));
            current = head.size();
        }
        lines += QLatin1Char(' ') + unit;
        current += 1 + unit.size();
    }
    return lines;
}

QStringList syntaxFaults()
{
    QStringList faults;
    for (const CommandSyntax &command : kCommands) {
        for (const FormSyntax &form : command.forms) {
            const QString where = QLatin1String("zrt ") + syntaxText(command.name) + QLatin1String(": ");
            const QString usage = syntaxText(form.usage);
            if (!form.selector.empty() && !usage.startsWith(QLatin1String("--") + syntaxText(form.selector) + QLatin1Char(' ')))
                faults << where + QLatin1String("a form does not begin with its switch");
            QStringList words = usage.split(QLatin1Char(' '), Qt::SkipEmptyParts);
            for (QString &word : words)
                word.remove(QLatin1Char('[')).remove(QLatin1Char(']'));
            for (qsizetype i = 0; i < words.size(); ++i) {
                if (!words[i].startsWith(QLatin1String("--")))
                    continue;
                const QString next = words.value(i + 1);
                const QString value = next.startsWith(QLatin1Char('-')) || next == QLatin1String("|") ? QString() : next;
                const OptionSyntax *option = findOption(QStringView(words[i]).mid(2));
                if (!option)
                    faults << where + words[i] + QLatin1String(" has no option row");
                else if (value != syntaxText(option->value))
                    faults << where + words[i] + QLatin1String(" takes ") + syntaxText(option->value) + QLatin1String(", not ")
                            + value;
            }
        }
    }
    return faults;
}

QString programHelp()
{
    QString help = QStringLiteral("Usage: zrt [COMMAND] [OPTIONS]\n"
                                  "\n"
                                  "Without a command, zrt opens the window (the program zrt-window) on a\n"
                                  "display. The commands need no display:\n");
    for (const CommandSyntax &command : kCommands)
        help += QLatin1String("  ") + syntaxText(command.name).leftJustified(8) + QLatin1Char(' ') + syntaxText(command.summary)
            + QLatin1Char('\n');
    help += QStringLiteral("\n"
                           "zrt help COMMAND or zrt COMMAND --help tells more of each; zrt --version (-V)\n"
                           "prints the version.\n"
                           "\n"
                           "Exit status, the same for every command:\n");
    help += termList(kExitStatuses, 7);
    help += QStringLiteral("With --all, --fleet or --retry, the most serious status of any database.\n\nEnvironment:\n");
    help += termList(kEnvironment, 22);
    return help;
}
