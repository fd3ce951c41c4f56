#pragma once

#include "connection.h"

// Connections whose every change is undone: autocommit goes off the moment
// one opens, before its first statement, and whatever it did is rolled back
// when it closes or is released. No path through them commits; a session
// that ends without a commit is rolled back by the server as well.
ConnectionFactory previewConnections(ConnectionFactory connections);

enum class TransactionState { Open, Ended, Unknown };

// Whether the server still holds the connection's transaction, as SQL Server
// tells it; Unknown when the question itself fails or gets no answer.
TransactionState transactionState(Connection &connection);
