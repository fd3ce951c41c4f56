#include "whynotopen.h"

#include "mdzrt.h"
#include "odbckeywords.h"
#include "openfailure.h"

QString whyNotOpen(mdZRT &module, const QString &target, const QString &database)
{
    if (!module.ConnectionOpened())
        return withoutPasswords(openFailureText(module.openFailure(), target, database));
    if (!module.SharedConnection().isOpen())
        return QStringLiteral("no connection was opened: ONLINE mode opens only on the servers QUORVEXMAIN and SERVER");
    return QString();
}
