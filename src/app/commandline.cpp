#include "commandline.h"

#include "checkcommand.h"
#include "exitstatus.h"
#include "listcommand.h"
#include "printabletext.h"
#include "programversion.h"
#include "runcommand.h"
#include "scriptcommand.h"

#include <QIODevice>

namespace {

constexpr char kProgramHelp[] =
    "Usage: zrt [COMMAND] [OPTIONS]\n"
    "\n"
    "Without a command, zrt opens its window. Commands run without a display:\n"
    "  script   write every statement a run sends to an empty database\n"
    "  list     list the Quorvex databases of a server\n"
    "  run      run the maintenance on one database, with a summary and a report\n"
    "  plan     what a run would do to a database: run, then rolled back\n"
    "  check    list what a database lacks of what a run leaves; changes nothing\n"
    "\n"
    "zrt COMMAND --help tells more of each; zrt --version prints the version.\n"
    "\n"
    "Exit status, the same for every command:\n"
    "  0    success (check: the database matches)\n"
    "  1    check: the database differs\n"
    "  2    bad usage\n"
    "  3    statements failed unexpectedly or timed out, the run stopped part-way\n"
    "       (connection lost, preview stopped), or a file could not be written\n"
    "  4    nothing could be applied or read: no connection, no database\n"
    "  130  interrupted\n"
    "With --all, the most serious status of any database.\n"
    "\n"
    "Environment:\n"
    "  ZRT_ODBC_DRIVER     the ODBC driver that reaches SQL Server (default FreeTDS)\n"
    "  ZRT_ONLINE_SERVER   the host of the hosted server of ONLINE mode\n"
    "  ZRT_ENCRYPT         request (default) or require an encrypted connection;\n"
    "                      use require with the hosted ONLINE server\n"
    "  ZRT_ODBC            an ODBC connection string used as --odbc is, where\n"
    "                      neither --odbc nor --server is given\n";

} // namespace

namespace {

int dispatch(const QString &command, const QStringList &rest, CommandContext &context)
{
    if (command == QLatin1String("script"))
        return scriptCommand(rest, context);
    if (command == QLatin1String("list"))
        return listCommand(rest, context);
    if (command == QLatin1String("run"))
        return runCommand(rest, context);
    if (command == QLatin1String("plan"))
        return planCommand(rest, context);
    if (command == QLatin1String("check"))
        return checkCommand(rest, context);
    return -1;
}

} // namespace

int runCommandLine(const QStringList &arguments, CommandContext &context)
{
    const QString command = arguments.value(1);
    if (int status = dispatch(command, arguments.mid(2), context); status >= 0) {
        // Asked to stop: whatever the command was waiting for when it was asked.
        if (context.stop && context.stop->load())
            status = moreSerious(status, kExitInterrupted);
        // Output that did not all arrive is a lost file like any other.
        context.out.flush();
        if (context.out.status() == QTextStream::Ok)
            return status;
        context.err << "zrt " << command << ": cannot write the standard output"
                    << (context.out.device() ? QLatin1String(": ") + context.out.device()->errorString() : QString())
                    << "\n";
        return withLostReport(status, true);
    }
    if (command == QLatin1String("--help") || command == QLatin1String("-h")) {
        context.out << kProgramHelp;
        return kExitOk;
    }
    if (command == QLatin1String("--version")) {
        context.out << "zrt " << programVersion() << "\n";
        return kExitOk;
    }
    if (arguments.size() < 2)
        context.err << "zrt: no display to open the window on; give a command\n\n" << kProgramHelp;
    else
        context.err << "zrt: unknown command '" << escapedControls(command) << "'\n\n" << kProgramHelp;
    return kExitUsage;
}
