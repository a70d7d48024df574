#include "app/Aplicacion.h"

#include "app/frmInicio.h"
#include "core/BaseDatos.h"
#include "core/EsquemaServidor.h"
#include "core/Iconos.h"
#include "core/Programa.h"
#include "core/Rutas.h"
#include "forms/AbrirImpreso.h"
#include "masterdata/AperturaFichas.h"
#include "reports/modInformes.h"

#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QLockFile>
#include <QTranslator>
#include <cstdio>
#include <memory>

static void iniciarRecursosNucleo() { Q_INIT_RESOURCE(recursos); }

namespace Aplicacion {

namespace {
std::unique_ptr<QLockFile>& cerrojo()
{
    static std::unique_ptr<QLockFile> c;
    return c;
}
}  // namespace

void registrarPantallas()
{
    // Qué pantalla abre cada clave de tabla de las listas y los selectores.
    registrarFichasMaestras();
    registrarImpresos();
}

void prepararEntorno()
{
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    iniciarRecursosNucleo();
    modInformes::inicializarRecursos();
    registrarPantallas();
    static QTranslator traductorQt;
    if (traductorQt.isEmpty()
        && traductorQt.load(QLocale(QLocale::Spanish, QLocale::Spain), QStringLiteral("qtbase"), QStringLiteral("_"),
                            QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&traductorQt);
}

QString ficheroCerrojo()
{
    // El cerrojo va por instalación: dos directorios del programa son dos programas.
    return QDir::temp().filePath(QStringLiteral("planorum-mirvade-") + Rutas::huellaInstalacion() + QStringLiteral(".lock"));
}

bool hayOtraInstancia()
{
    if (cerrojo())
        return false;
    auto c = std::make_unique<QLockFile>(ficheroCerrojo());
    c->setStaleLockTime(0);
    if (!c->tryLock(0))
        return true;
    cerrojo() = std::move(c);
    return false;
}

void liberarInstancia() { cerrojo().reset(); }

void reiniciar()
{
    Programa::reiniciar();
    liberarInstancia();
    rutaBD.clear();
    cadenaConexion.clear();
    transaccionEnCurso = false;
}

int ejecutar(int argc, char* argv[])
{
    // Quien monta el servidor del estudio saca de aquí el esquema para cargarlo con psql -f.
    if (argc == 2 && qstrcmp(argv[1], OPCION_ESQUEMA_SERVIDOR) == 0) {
        QCoreApplication app(argc, argv);
        iniciarRecursosNucleo();
        const QByteArray esquema = EsquemaServidor::sql().toUtf8();
        return std::fwrite(esquema.constData(), 1, static_cast<size_t>(esquema.size()), stdout) == static_cast<size_t>(esquema.size()) ? 0 : 1;
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("PLANORUM MIRVADE"));
    QApplication::setWindowIcon(Iconos::iconoPrograma());
    // Qt ya ha quitado sus propias opciones; lo que queda es el fichero que abrirá el editor. Una
    // segunda instancia con un fichero termina igual que sin él.
    Programa::fijarLineaMandatos(QCoreApplication::arguments().mid(1).join(QLatin1Char(' ')));
    prepararEntorno();

    auto* inicio = new frmInicio;
    inicio->Form_Load();
    if (Programa::terminado()) {
        delete inicio;
        liberarInstancia();
        return 0;
    }
    Programa::bucleEnMarcha(true);
    const int codigo = QApplication::exec();
    Programa::bucleEnMarcha(false);
    liberarInstancia();
    return codigo;
}

}  // namespace Aplicacion
