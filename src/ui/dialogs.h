#pragma once

#include "runhost.h"

#include <QString>

class QWidget;

// The window's modal boxes and its file dialog, behind one object that tests
// can answer in their place.
class Dialogs
{
public:
    virtual ~Dialogs() = default;
    // A modal box with the critical icon, an OK button and the application's title.
    virtual void critical(QWidget *parent, const QString &text) = 0;
    virtual DatabaseFile chooseDatabaseFile(QWidget *parent) = 0;
};

class QtDialogs : public Dialogs
{
public:
    void critical(QWidget *parent, const QString &text) override;
    DatabaseFile chooseDatabaseFile(QWidget *parent) override;
};
