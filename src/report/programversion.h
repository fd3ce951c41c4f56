#pragma once

#include <QString>

// The version the program was built as, for reports and headers.
QString programVersion();
