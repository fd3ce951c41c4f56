#include "testcertificate.h"

#include <QDir>
#include <QFile>
#include <QProcess>

QString testCertificate(const QString &folder, const QString &name, const QString &subjectAltName, bool selfSigned)
{
    const QString path = QDir(folder).filePath(name);
    if (QFile::exists(path + ".pem"))
        return path;
    QStringList arguments{"req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes",
                          "-days", "2", "-subj", "/CN=" + name, "-keyout", path + ".key", "-out", path + ".pem"};
    if (name == "ca")
        arguments << "-addext" << "keyUsage=keyCertSign";
    else
        arguments << "-addext" << "basicConstraints=critical,CA:FALSE" << "-addext" << "subjectAltName=" + subjectAltName;
    if (name != "ca" && !selfSigned) {
        const QString ca = testCertificate(folder, "ca");
        arguments << "-CA" << ca + ".pem" << "-CAkey" << ca + ".key";
    }
    QProcess openssl;
    openssl.start("openssl", arguments);
    openssl.waitForFinished();
    return path;
}
