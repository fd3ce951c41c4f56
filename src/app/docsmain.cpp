// Writes, at build time, what follows the commands' syntax: the manual pages
// and the shell completion.
//   zrt-docs manual TEMPLATE OUTPUT VERSION DATE
//   zrt-docs completion TEMPLATE WORDS OUTPUT
#include "commandsyntax.h"
#include "manualpage.h"
#include "shellcompletion.h"

#include <QFile>
#include <QSaveFile>
#include <QStringList>

#include <cstdio>

namespace {

QString fileText(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}

} // namespace

int main(int argc, char *argv[])
{
    // A table that does not fit together fails the build, not a user's command.
    if (const QStringList faults = syntaxFaults(); !faults.isEmpty()) {
        std::fprintf(stderr, "zrt-docs: %s\n", qPrintable(faults.join(QLatin1String("\nzrt-docs: "))));
        return 1;
    }
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    QString written;
    QString output;
    if (arguments.size() == 5 && arguments[0] == QLatin1String("manual")) {
        written = manualPage(fileText(arguments[1]), arguments[3], arguments[4]);
        output = arguments[2];
    } else if (arguments.size() == 4 && arguments[0] == QLatin1String("completion")) {
        const QString words = fileText(arguments[2]);
        if (!words.isEmpty())
            written = fileText(arguments[1])
                          .replace(QLatin1String("@SYNTAX@\n"), completionSyntax())
                          .replace(QLatin1String("@WORDS@\n"), words);
        output = arguments[3];
    } else {
        std::fputs("usage: zrt-docs manual TEMPLATE OUTPUT VERSION DATE | completion TEMPLATE WORDS OUTPUT\n", stderr);
        return 2;
    }
    QSaveFile file(output);
    // Nothing read (a template missing) writes nothing.
    if (written.isEmpty() || !file.open(QIODevice::WriteOnly) || file.write(written.toUtf8()) < 0 || !file.commit()) {
        std::fprintf(stderr, "zrt-docs: cannot write %s\n", qPrintable(output));
        return 1;
    }
    return 0;
}
