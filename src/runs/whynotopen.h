#pragma once

#include <QString>

class mdZRT;

// Empty when the module's shared connection stands open on the database
// after OpenConnection; else why it does not, passwords masked. `target`
// names the server in the message.
QString whyNotOpen(mdZRT &module, const QString &target, const QString &database);
