#pragma once

#include "connection.h"

#include <memory>

class mdZRT;

// Hands out connections that remember why the database's open failed, so that
// a run or a check without a window can name the reason: the module keeps
// only whether it opened.
class OpenWatch
{
public:
    explicit OpenWatch(ConnectionFactory connections);

    ConnectionFactory connections() const;
    // Empty when the module's shared connection stands open on the database;
    // else why it does not.
    QString whyNotOpen(mdZRT &module, const QString &database) const;

private:
    ConnectionFactory m_connections;
    std::shared_ptr<QString> m_refusal; // the server's answer to the last refused open, the fallback's aside
};
