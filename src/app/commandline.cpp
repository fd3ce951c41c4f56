#include "commandline.h"

#include "checkcommand.h"
#include "commandoptions.h"
#include "commandsyntax.h"
#include "exitstatus.h"
#include "listcommand.h"
#include "mergecommand.h"
#include "printabletext.h"
#include "programversion.h"
#include "runcommand.h"
#include "scriptcommand.h"

#include <QIODevice>

namespace {

// zrt help [COMMAND]
int helpCommand(const QStringList &arguments, CommandContext &context)
{
    if (arguments.isEmpty()) {
        context.out << programHelp();
        return kExitOk;
    }
    const bool ownHelp = arguments.first() == QLatin1String("--help") || arguments.first() == QLatin1String("-h");
    const CommandSyntax *command = findCommand(ownHelp ? QStringLiteral("help") : arguments.first());
    if (!command) {
        context.err << "zrt help: unknown command '" << escapedControls(arguments.first()) << "'\n";
        return kExitUsage;
    }
    if (arguments.size() > 1) {
        context.err << "zrt help: unexpected argument '" << escapedControls(arguments[1]) << "'\n";
        return kExitUsage;
    }
    context.out << commandHelp(*command);
    return kExitOk;
}

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
    if (command == QLatin1String("merge"))
        return mergeCommand(rest, context);
    if (command == QLatin1String("help"))
        return helpCommand(rest, context);
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
        context.out << programHelp();
        return kExitOk;
    }
    if (command == QLatin1String("--version") || command == QLatin1String("-V") || command == QLatin1String("version")) {
        context.out << "zrt " << programVersion() << "\n";
        return kExitOk;
    }
    if (arguments.size() < 2)
        context.err << "zrt: no display to open the window on; give a command\n\n" << programHelp();
    else
        context.err << "zrt: unknown command '" << escapedControls(command) << "'\n\n" << programHelp();
    return kExitUsage;
}
