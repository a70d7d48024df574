#include "app/Aplicacion.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace Aplicacion {

void prepararEntorno()
{
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    Q_INIT_RESOURCE(recursos);
    static QTranslator traductorQt;
    if (traductorQt.load(QLocale(QLocale::Spanish, QLocale::Spain), QStringLiteral("qtbase"), QStringLiteral("_"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&traductorQt);
}

int ejecutar(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("PLANORUM MIRVADE"));
    prepararEntorno();
    return 0;
}

}  // namespace Aplicacion
