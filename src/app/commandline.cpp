#include "commandline.h"

#include "checkcommand.h"
#include "listcommand.h"
#include "runcommand.h"
#include "scriptcommand.h"

namespace {

constexpr char kProgramHelp[] =
    "Usage: zrt [COMMAND] [OPTIONS]\n"
    "\n"
    "Without a command, zrt opens its window. Commands run without a display:\n"
    "  script   write every statement a run sends to an empty database\n"
    "  list     list the Quorvex databases of a server\n"
    "  run      run the maintenance on one database, with a summary and a report\n"
    "  check    list what a database lacks of what a run leaves; changes nothing\n"
    "\n"
    "zrt COMMAND --help tells more of each; zrt --version prints the version.\n";

} // namespace

int runCommandLine(const QStringList &arguments, CommandContext &context)
{
    const QString command = arguments.value(1);
    const QStringList rest = arguments.mid(2);
    if (command == QLatin1String("script"))
        return scriptCommand(rest, context);
    if (command == QLatin1String("list"))
        return listCommand(rest, context);
    if (command == QLatin1String("run"))
        return runCommand(rest, context);
    if (command == QLatin1String("check"))
        return checkCommand(rest, context);
    if (command == QLatin1String("--help") || command == QLatin1String("-h")) {
        context.out << kProgramHelp;
        return kExitOk;
    }
    if (command == QLatin1String("--version")) {
        context.out << "zrt " << ZRT_VERSION << "\n";
        return kExitOk;
    }
    context.err << "zrt: unknown command '" << command << "'\n\n" << kProgramHelp;
    return kExitUsage;
}
