#include "windowlauncher.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace {

constexpr char kWindowProgram[] = "zrt-window";

} // namespace

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
        || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

QString execWindow()
{
    // Beside this program first, so a build folder or an unpacked package
    // starts its own window, not whichever one is installed.
    const QString beside = QDir(QCoreApplication::applicationDirPath()).filePath(QLatin1String(kWindowProgram));
    for (const QString &program : {beside, QStandardPaths::findExecutable(QLatin1String(kWindowProgram))}) {
        if (program.isEmpty())
            continue;
        const QByteArray path = QFile::encodeName(program);
        char *const arguments[] = {const_cast<char *>(path.constData()), nullptr};
        execv(path.constData(), arguments);
        if (errno != ENOENT)
            return QStringLiteral("%1: %2").arg(program, QString::fromLocal8Bit(std::strerror(errno)));
    }
    return QStringLiteral("%1 is not installed (package zrt-window)").arg(QLatin1String(kWindowProgram));
}
