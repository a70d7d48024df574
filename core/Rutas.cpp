#include "core/Rutas.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>

namespace {
QString& directorio()
{
    static QString d;
    return d;
}
}

namespace Rutas {

QString directorioPrograma()
{
    if (directorio().isEmpty() && QCoreApplication::instance())
        directorio() = nativa(QCoreApplication::applicationDirPath());
    return directorio();
}

void establecerDirectorioPrograma(const QString& d)
{
    QString limpio = nativa(QDir::cleanPath(d));
    while (limpio.size() > 1 && limpio.endsWith(QDir::separator()))
        limpio.chop(1);
    directorio() = limpio;
}

QString enPrograma(const QString& relativa)
{
    QString r = nativa(relativa);
    if (r.startsWith(QDir::separator()))
        r.remove(0, 1);
    return directorioPrograma() + QDir::separator() + r;
}

QString huellaInstalacion()
{
    return QString::fromLatin1(QCryptographicHash::hash(directorioPrograma().toUtf8(), QCryptographicHash::Sha1).toHex().left(16));
}

QString ficheroIni() { return enPrograma(QStringLiteral("inicio.ini")); }

QString ficheroLog() { return enPrograma(QStringLiteral("Logs/Log.txt")); }

QString nativa(const QString& ruta) { return QDir::toNativeSeparators(ruta); }

QString conSeparadorFinal(const QString& ruta)
{
    QString r = nativa(ruta);
    if (!r.isEmpty() && !r.endsWith(QDir::separator()))
        r += QDir::separator();
    return r;
}

}  // namespace Rutas
