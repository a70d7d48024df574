// Capturas de la ventana principal a 1366×768 para mirarlas: la lista de un impreso, la ficha del
// proyecto, el menú "Ventana" con las pantallas abiertas, el registro de contratos con el alta de
// un documento y el editor con un contrato. Uso: bench_capturas carpeta
// (mejor bajo xvfb-run -s '-screen 0 1366x768x24'; sin pantalla sirve QT_QPA_PLATFORM=offscreen).
// Con "bench_capturas carpeta --servidor", el arranque, el asistente y la configuración de un
// puesto del servidor de pruebas anunciado en PLANORUM_PG_* (scripts/servidor-pruebas.sh).
#include "app/Aplicacion.h"
#include "app/frmAyudaSeleccionBD.h"
#include "app/frmInicio.h"
#include "app/frmMenu.h"
#include "contracts/frmAddModContrato.h"
#include "contracts/frmContratos.h"
#include "core/BaseDatos.h"
#include "core/Fichas.h"
#include "core/Pantallas.h"
#include "core/Programa.h"
#include "reports/modInformes.h"
#include "search/AbrirBusqueda.h"
#include "masterdata/frmConfiguracion.h"
#include "tests/comun/EntornoPrueba.h"
#include "tests/comun/ServidorPrueba.h"
#include "tools/frmEditorRTF.h"

#include <QApplication>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QTabWidget>
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

// Un puesto del servidor: la pantalla de arranque (con el IVA ya puesto, sin preguntas), el
// asistente de la primera vez y la pestaña "Parámetros" de la configuración, con las carpetas.
int capturasDelServidor(const QString& carpeta)
{
    EntornoPrueba env;
    ServidorPrueba s;
    if (!s.disponible()) {
        std::printf("%s\n", qPrintable(s.motivo()));
        return 1;
    }
    s.elegirEn(env);
    {
        UsoConexion uso;
        ejecutar(QStringLiteral("INSERT INTO Config (Arq1Nom, Modulo, IVA, IRPF) VALUES ('Ana García Sáenz', 530, 21, 15)"));
    }
    BaseDatos::cerrar();
    auto* inicio = new frmInicio;
    inicio->Form_Load();
    guardar(inicio, carpeta + QStringLiteral("/inicio-servidor.png"));
    delete inicio;

    frmAyudaSeleccionBD asistente;
    asistente.show();
    guardar(&asistente, carpeta + QStringLiteral("/asistente-servidor.png"));
    asistente.hide();

    frmMenu* menu = frmMenu::instancia();
    menu->resize(1366, 768);
    menu->show();
    frmConfiguracion::abrir(1);
    guardar(menu, carpeta + QStringLiteral("/configuracion-servidor.png"));
    return 0;
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
    if (argc > 2 && qstrcmp(argv[2], "--servidor") == 0)
        return capturasDelServidor(carpeta);
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
