#include "programversion.h"

QString programVersion()
{
    return QStringLiteral(ZRT_VERSION);
}
