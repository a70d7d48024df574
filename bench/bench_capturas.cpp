// Capturas de la ventana principal a 1366×768 para mirarlas: la lista de un impreso, la ficha del
// proyecto, el menú "Ventana" con las pantallas abiertas, el registro de contratos con el alta de
// un documento y el editor con un contrato. Uso: bench_capturas carpeta
// (mejor bajo xvfb-run -s '-screen 0 1366x768x24'; sin pantalla sirve QT_QPA_PLATFORM=offscreen).
#include "app/Aplicacion.h"
#include "app/frmMenu.h"
#include "contracts/frmAddModContrato.h"
#include "contracts/frmContratos.h"
#include "core/BaseDatos.h"
#include "core/Fichas.h"
#include "core/Pantallas.h"
#include "core/Programa.h"
#include "reports/modInformes.h"
#include "search/AbrirBusqueda.h"
#include "tests/comun/EntornoPrueba.h"
#include "tools/frmEditorRTF.h"

#include <QApplication>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <cstdio>

namespace {

void guardar(QWidget* ventana, const QString& fichero)
{
    procesarEventos();
    if (!ventana->grab().save(fichero))
        std::printf("no se ha podido guardar %s\n", qPrintable(fichero));
    else
        std::printf("%s\n", qPrintable(fichero));
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    if (argc < 2) {
        std::printf("Uso: bench_capturas carpeta\n");
        return 1;
    }
    const QString carpeta = QString::fromLocal8Bit(argv[1]);
    modInformes::inicializarRecursos();
    Aplicacion::registrarPantallas();
    EntornoPrueba env;
    env.conectar();
    {
        UsoConexion uso;
        ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF) VALUES (1, 'Íñigo', 'Núñez O''Brien', '12345678Z')"));
        for (const char* nombre : {"Nota de encargo García", "Encargo Bodegas Ontañón"})
            ejecutar(QStringLiteral("INSERT INTO Contratos (Nombre, RutaDocumento, TipoDocumento, PlantillaEmpleada, EsPlantilla) "
                                    "VALUES (?, ?, '1', '[Plantilla] Nota de encargo', 0)"),
                     {QString::fromUtf8(nombre), QStringLiteral("/home/estudio/Contratos/2024/")
                                                     + QString::fromUtf8(nombre).remove(QLatin1Char(' ')) + QStringLiteral(".doc")});
        for (int i = 1; i <= 30; ++i) {
            ejecutar(QStringLiteral("INSERT INTO Proyectos_A (PryCod, EXPNUM, Trabajo, Municipio, Provincia, EXPFV) VALUES (?, ?, ?, ?, ?, ?)"),
                     {i, QStringLiteral("2024-%1").arg(100000 + i), QStringLiteral("Rehabilitación de edificio de viviendas nº %1").arg(i),
                      QStringLiteral("Santo Domingo de la Calzada"), QStringLiteral("La Rioja"), QStringLiteral("2024-03-%1").arg(i % 28 + 1, 2, 10, QLatin1Char('0'))});
            ejecutar(QStringLiteral("INSERT INTO datosA1B2 (PRYNOM, PRYCOD, LUGAR_A1, FECHA_A1, TIPODOC) VALUES (?, ?, ?, ?, 'A1')"),
                     {QStringLiteral("Rehabilitación de edificio de viviendas nº %1").arg(i), i, QStringLiteral("Logroño"),
                      QStringLiteral("2024-04-%1").arg(i % 28 + 1, 2, 10, QLatin1Char('0'))});
        }
    }
    frmMenu* menu = frmMenu::instancia();
    menu->resize(1366, 768);
    menu->show();
    procesarEventos();

    abrirListaImpreso(QStringLiteral("mnu_A1"));
    guardar(menu, carpeta + QStringLiteral("/principal-lista-a1.png"));

    Fichas::abrir({.tabla = QStringLiteral("PROYECTOS_A"), .operacion = QStringLiteral("MODIFICAR"), .codigo = 3});
    guardar(menu, carpeta + QStringLiteral("/principal-proyecto.png"));

    // El menú "Ventana" abierto, pintado encima de la ventana en su sitio.
    auto* ventana = menu->findChild<QMenu*>(QStringLiteral("mnu_Ventana"));
    QMenuBar* barra = menu->menuBar();
    ventana->popup(barra->mapToGlobal(barra->actionGeometry(ventana->menuAction()).bottomLeft()));
    procesarEventos();
    QPixmap fondo = menu->grab();
    {
        QPainter p(&fondo);
        p.drawPixmap(menu->mapFromGlobal(ventana->mapToGlobal(QPoint(0, 0))), ventana->grab());
    }
    ventana->hide();
    fondo.save(carpeta + QStringLiteral("/principal-menu-ventana.png"));
    std::printf("%s\n", qPrintable(carpeta + QStringLiteral("/principal-menu-ventana.png")));

    for (QWidget* w : Pantallas::cargadas())
        if (w != menu)
            Pantallas::descargar(w);
    frmContratos::abrir();
    guardar(menu, carpeta + QStringLiteral("/principal-contratos.png"));
    frmAddModContrato::alta(QStringLiteral("1"));
    guardar(menu, carpeta + QStringLiteral("/principal-contrato-alta.png"));

    for (QWidget* w : Pantallas::cargadas())
        if (w != menu)
            Pantallas::descargar(w);
    // El editor con un contrato, pasado como lo pasa la línea de mandatos.
    Programa::fijarLineaMandatos(QStringLiteral("\"" DIRECTORIO_FUENTES "/resources/Contratos/Nota_encargo.doc\""));
    frmEditorRTF::abrir();
    guardar(menu, carpeta + QStringLiteral("/principal-editor.png"));
    return 0;
}
