#pragma once

#include <QString>

// The commands' syntax as the shell functions the completion scripts read:
// _zrt_commands, _zrt_forms, _zrt_alternatives and _zrt_value.
QString completionSyntax();
