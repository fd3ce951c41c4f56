#pragma once

#include <QString>

// NAME.pem and NAME.key in `folder`, made with openssl once: "ca" is a CA of
// its own; any other name a server's certificate for `subjectAltName`
// ("IP:127.0.0.1"), signed by that CA or by itself. The path less its suffix.
QString testCertificate(const QString &folder, const QString &name, const QString &subjectAltName = QString(),
                        bool selfSigned = false);
