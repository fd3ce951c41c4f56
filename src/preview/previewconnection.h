#pragma once

#include "connection.h"

// Connections whose every change is undone: autocommit goes off the moment
// one opens, before its first statement, and whatever it did is rolled back
// when it closes or is released. No path through them commits; a session
// that ends without a commit is rolled back by the server as well.
ConnectionFactory previewConnections(ConnectionFactory connections);

// Whether the server still holds the connection's transaction. Only SQL
// Server answers the question; elsewhere the answer is "as far as known".
bool transactionStillOpen(Connection &connection);
