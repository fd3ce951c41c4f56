#include "dialogs.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

void QtDialogs::critical(QWidget *parent, const QString &text)
{
    QMessageBox::critical(parent, QCoreApplication::applicationName(), text, QMessageBox::Ok);
}

DatabaseFile QtDialogs::chooseDatabaseFile(QWidget *parent)
{
    // A save dialog without a filter: the name typed becomes the database's
    // name and, as it stands, the base of its data and log files.
    const QString fullName = QFileDialog::getSaveFileName(parent, QString(), QString(), QString(), nullptr,
                                                          QFileDialog::DontConfirmOverwrite);
    return {fullName, fullName.isEmpty() ? QString() : QFileInfo(fullName).fileName()};
}
