// Copia de seguridad y restauración desde sus pantallas, y el recordatorio al salir. Se pasa
// también contra el servidor (tst_copia_servidor).
#include "app/Aplicacion.h"
#include "app/frmMenu.h"
#include "core/modFunciones.h"
#include "core/Programa.h"
#include "tests/comun/ContenidoBase.h"
#include "tests/comun/EntornoPrueba.h"
#include "tests/pantallas/PruebaPantallas.h"
#include "tests/comun/ProcesosAlmacen.h"
#include "tools/frmCopiaSeguridad.h"
#include "tools/frmRestaurarCopiaSeguridad.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QtTest>
#include <optional>
#include <sys/stat.h>

using Mensajes::Respuesta;
using namespace ProcesosAlmacen;

namespace {

const QString EN_USO_RESTAURAR = QStringLiteral(
    "No se puede restaurar la base de datos pues está siendo usada por otras personas.\n"
    "Espere a que se libere la base de datos e inicie de nuevo el proceso de restauración");
const QString NO_ES_COPIA = QStringLiteral(
    "El fichero seleccionado no es una copia de seguridad de este programa.\nNo se ha restaurado nada. Por favor, seleccione otra copia de seguridad");
const QString INI_COPIA = QStringLiteral("[BD]\r\nruta=%1\r\n[Opciones]\r\ninicio=1\r\ncopia=1\r\n[Prueba]\r\norigen=copia\r\n");

ino_t nodo(const QString& f)
{
    struct stat s {};
    ::stat(QFile::encodeName(f).constData(), &s);
    return s.st_ino;
}

// Otro puesto del servidor a mitad de un guardado: ha escrito una fila y no ha confirmado.
class PuestoGuardando {
public:
    PuestoGuardando()
    {
        QSqlDatabase db = BaseDatos::abrirOtraConexion(NOMBRE, BaseDatos::Acceso::LecturaEscritura);
        ejecutar(db, QStringLiteral("BEGIN"));
        ejecutar(db, QStringLiteral("INSERT INTO Clientes (Codigo_Cli) VALUES (999999)"));
    }
    ~PuestoGuardando()
    {
        QSqlDatabase::database(NOMBRE, false).close();
        QSqlDatabase::removeDatabase(NOMBRE);
    }

private:
    inline static const QString NOMBRE = QStringLiteral("puesto_guardando");
};

template <typename T>
T* hijo(QWidget* f, const char* nombre)
{
    T* w = f->findChild<T*>(QString::fromLatin1(nombre));
    if (!w)
        qFatal("falta el control %s", nombre);
    return w;
}

}  // namespace

class tst_copia : public QObject {
    Q_OBJECT

    std::unique_ptr<EntornoPrueba> m_e;
    std::optional<ServidorPrueba> m_s;
    QTemporaryDir m_destino;
    EntornoPrueba& e() { return *m_e; }
    QString destino() const { return QDir::toNativeSeparators(m_destino.path()) + QDir::separator(); }

    frmCopiaSeguridad* abrirCopia()
    {
        frmMenu::instancia()->mnu_RealizarCopia_Click();
        auto* f = Pantallas::cargada<frmCopiaSeguridad>();
        hijo<QLabel>(f, "lbl_RutaCopia")->setText(destino());
        e().limpiarCuadros();
        return f;
    }

    frmRestaurarCopiaSeguridad* abrirRestaurar(int opcion, const QString& copia)
    {
        frmMenu::instancia()->mnu_RestaurarCopia_Click();
        auto* f = Pantallas::cargada<frmRestaurarCopiaSeguridad>();
        hijo<QRadioButton>(f, QStringLiteral("opt_Restaurar_%1").arg(opcion).toLatin1().constData())->setChecked(true);
        hijo<QLineEdit>(f, "txt_NombreCopia")->setText(copia);
        e().limpiarCuadros();
        return f;
    }

    // Una copia hecha por el programa, con más clientes que la base de datos, y su inicio.ini.bak.
    QString prepararCopia(bool conAjustes = true)
    {
        const QString copia = destino() + QStringLiteral("copia.mee");
        prepararBase(copia, 300, 7, 3);
        if (conAjustes)
            escribirContenido(destino() + QStringLiteral("inicio.ini.bak"), INI_COPIA.arg(e().carpetaDatos()).toUtf8());
        return copia;
    }

private slots:
    void initTestCase() { Aplicacion::prepararEntorno(); }

    void init()
    {
        Aplicacion::reiniciar();
        m_e = std::make_unique<EntornoPrueba>();
        ServidorPrueba::conectarAlPedido(e(), m_s);
        for (const QString& f : ficheros(m_destino.path()))
            QFile::remove(m_destino.filePath(f));
        frmMenu::instancia();
    }

    void cleanup()
    {
        delete frmMenu::existente();
        for (QWidget* w : Pantallas::cargadas())
            delete w;
        procesarEventos();
        m_s.reset();
        m_e.reset();
        Aplicacion::reiniciar();
    }

    void entradasDelMenu()
    {
        auto* menu = frmMenu::instancia();
        QVERIFY(menu->findChild<QAction*>(QStringLiteral("mnu_RealizarCopia"))->isEnabled());
        QVERIFY(menu->findChild<QAction*>(QStringLiteral("mnu_RestaurarCopia"))->isEnabled());
        menu->mnu_RealizarCopia_Click();
        QCOMPARE(e().cuadros.value(0).titulo, QStringLiteral("Información"));
        QCOMPARE(e().textos(), QStringList{QStringLiteral("Por favor, para evitar posibles errores, cierre TODAS las pantallas del programa "
                                                          "(excepto la del propio programa) antes de proceder a realizar la copia de seguridad")});
        auto* f = Pantallas::cargada<frmCopiaSeguridad>();
        QVERIFY(f && !f->salirAlTerminar);
        QCOMPARE(f->windowTitle(), QStringLiteral("Realizar copia de seguridad"));
        QCOMPARE(hijo<QLabel>(f, "lbl_RutaCopia")->text(), Rutas::conSeparadorFinal(Sistema::carpetaDocumentos()));
        QVERIFY2(QRegularExpression(QStringLiteral("^PlanorumMirvade - (lunes|martes|miércoles|jueves|viernes|sábado|domingo), "
                                                   "\\d{1,2} de [a-z]+ de \\d{4}$"))
                     .match(hijo<QLineEdit>(f, "txt_NombreCopia")->text())
                     .hasMatch(),
                 qPrintable(hijo<QLineEdit>(f, "txt_NombreCopia")->text()));
        QVERIFY(!hijo<QCheckBox>(f, "chk_RecordarCopia")->isChecked());
        QCOMPARE(hijo<QPushButton>(f, "cmd_IniciarCopia")->text(), QStringLiteral("&Iniciar copia"));
        QCOMPARE(hijo<QPushButton>(f, "cmd_Cambiar")->text(), QStringLiteral("C&ambiar ruta"));
        QCOMPARE(hijo<QPushButton>(f, "cmd_Salir")->text(), QStringLiteral("&Cancelar"));

        // Cancelar el diálogo de carpetas deja la ruta; elegir una la cambia.
        e().carpetas << QString() << QDir::toNativeSeparators(m_destino.path());
        const QString antes = hijo<QLabel>(f, "lbl_RutaCopia")->text();
        hijo<QPushButton>(f, "cmd_Cambiar")->click();
        QCOMPARE(hijo<QLabel>(f, "lbl_RutaCopia")->text(), antes);
        hijo<QPushButton>(f, "cmd_Cambiar")->click();
        QCOMPARE(e().titulosCarpeta, QStringList(2, tituloCambiarRuta(4)));
        QCOMPARE(hijo<QLabel>(f, "lbl_RutaCopia")->text(), destino());
    }

    // Dos copias el mismo día con el nombre propuesto: la segunda sustituye a la primera sin preguntar.
    void dosCopiasConElMismoNombre()
    {
        frmCopiaSeguridad* f = abrirCopia();
        const QString nombre = hijo<QLineEdit>(f, "txt_NombreCopia")->text();
        const QString mee = destino() + nombre + QStringLiteral(".mee");
        for (int vez = 1; vez <= 2; ++vez) {
            {
                e().conectar();
                UsoConexion uso;
                insertar(QStringLiteral("Clientes"), {{QStringLiteral("Codigo_Cli"), vez}, {QStringLiteral("Nombre_Cli"), QStringLiteral("Ana")}});
            }
            hijo<QPushButton>(f, "cmd_IniciarCopia")->click();
            QCOMPARE(e().textos(), QStringList{QStringLiteral("Copia de seguridad realizada correctamente en: ") + destino()});
            QCOMPARE(e().cuadros[0].titulo, QStringLiteral("Información"));
            e().limpiarCuadros();
            const QStringList viva = contenidoBaseViva();
            QCOMPARE(contenidoBase(mee), viva);
            QCOMPARE(viva.filter(QRegularExpression(QStringLiteral("^Clientes: "))).size(), vez);
        }
        QCOMPARE(contenido(destino() + QStringLiteral("inicio.ini.bak")), contenido(e().ficheroIni()));
        QCOMPARE(ficheros(m_destino.path()), (QStringList{nombre + QStringLiteral(".mee"), QStringLiteral("inicio.ini.bak")}));
        QVERIFY(Pantallas::cargada<frmCopiaSeguridad>());  // la pantalla sigue abierta
    }

    void copiaQueNoSeHace_data()
    {
        QTest::addColumn<QString>("caso");
        QTest::addColumn<QString>("aviso");
        QTest::addColumn<QString>("foco");
        QTest::newRow("sin carpeta") << QStringLiteral("sin carpeta")
                                     << QStringLiteral("Debe seleccionar el directorio donde realizar la copia de seguridad")
                                     << QStringLiteral("cmd_Cambiar");
        QTest::newRow("sin nombre") << QStringLiteral("sin nombre") << QStringLiteral("Debe proporcionar un nombre para la copia de seguridad")
                                    << QStringLiteral("txt_NombreCopia");
        QTest::newRow("sin ruta de la base de datos") << QStringLiteral("sin ruta") << QString() << QString();
    }

    void copiaQueNoSeHace()
    {
        QFETCH(QString, caso);
        QFETCH(QString, aviso);
        QFETCH(QString, foco);
        frmCopiaSeguridad* f = abrirCopia();
        if (caso == QLatin1String("sin carpeta"))
            hijo<QLabel>(f, "lbl_RutaCopia")->clear();
        else if (caso == QLatin1String("sin nombre"))
            hijo<QLineEdit>(f, "txt_NombreCopia")->setText(QStringLiteral("   "));
        else if (ServidorPrueba::pedido())
            QSKIP("Con el servidor la copia no necesita la ruta de un fichero");
        else
            e().escribirIni(QStringLiteral("[Opciones]\r\ninicio=1\r\n"));
        hijo<QPushButton>(f, "cmd_IniciarCopia")->click();
        QCOMPARE(e().textos(), aviso.isEmpty() ? QStringList() : QStringList{aviso});
        if (!aviso.isEmpty()) {
            QCOMPARE(e().cuadros[0].titulo, QStringLiteral("Aviso"));
            QCOMPARE(f->focusWidget()->objectName(), foco);
        }
        QCOMPARE(ficheros(m_destino.path()), QStringList());
    }

    // Un nombre que el sistema no admite: el informe normal de fallos, en español, y nada a medias.
    void nombreQueNoEsUnFichero()
    {
        frmCopiaSeguridad* f = abrirCopia();
        hijo<QLineEdit>(f, "txt_NombreCopia")->setText(QStringLiteral("Copias/de hoy"));
        hijo<QPushButton>(f, "cmd_IniciarCopia")->click();
        QCOMPARE(e().cuadros.size(), 1);
        QCOMPARE(e().cuadros[0].icono, Mensajes::Icono::Ninguno);
        QVERIFY(e().cuadros[0].texto.contains(QStringLiteral("Procedimiento: cmd_IniciarCopia_Click")));
        QVERIFY(e().cuadros[0].texto.contains(QStringLiteral("Descripción: No se puede crear el fichero en la carpeta ") + destino()
                                              + QStringLiteral("Copias.\nCompruebe que la carpeta existe y que tiene permiso para escribir en ella")));
        QCOMPARE(ficheros(m_destino.path()), QStringList());
    }

    // Otro puesto usa la base de datos: la copia y la restauración dan el mismo aviso, que habla de
    // restaurar, y lo anotan en silencio a nombre de la restauración. Con el servidor sólo la
    // restauración espera a otro puesto (unos segundos, a que termine su guardado).
    void baseEnUso_data()
    {
        QTest::addColumn<bool>("restaurar");
        QTest::newRow("copia") << false;
        QTest::newRow("restauración") << true;
    }

    void baseEnUso()
    {
        QFETCH(bool, restaurar);
        if (ServidorPrueba::pedido() && !restaurar)
            QSKIP("Con el servidor la copia lee su instantánea sin detener a nadie ni detenerse");
        const QString copia = prepararCopia();
        const QByteArray antes = contenido(e().ficheroBD());
        const QByteArray iniAntes = contenido(e().ficheroIni());
        const QStringList vivaAntes = contenidoBaseViva();
        {
            std::optional<PuestoLeyendo> leyendo;
            std::optional<PuestoGuardando> guardando;
            if (ServidorPrueba::pedido())
                guardando.emplace();
            else
                leyendo.emplace(e().ficheroBD());
            if (restaurar)
                hijo<QPushButton>(abrirRestaurar(0, copia), "cmd_RestaurarCopia")->click();
            else
                hijo<QPushButton>(abrirCopia(), "cmd_IniciarCopia")->click();
        }
        QCOMPARE(e().textos(), QStringList{EN_USO_RESTAURAR});
        QCOMPARE(e().cuadros[0].titulo, QStringLiteral("Aviso"));
        QCOMPARE(e().entradasLog(), 1);
        const QString log = e().leerLog();
        QVERIFY(log.contains(QStringLiteral("Formulario: frmRestaurarCopiaSeguridad\r\nProcedimiento: cmd_RestaurarCopia_Click\r\n")));
        QVERIFY(log.contains(QStringLiteral("Número: -2147467259\r\n")));
        QVERIFY(log.contains(ServidorPrueba::pedido() ? QStringLiteral("lock timeout") : QStringLiteral("[database is locked]")));
        QCOMPARE(contenido(e().ficheroBD()), antes);
        QCOMPARE(contenidoBaseViva(), vivaAntes);
        QCOMPARE(contenido(e().ficheroIni()), iniAntes);
        QCOMPARE(ficheros(m_destino.path()), (QStringList{QStringLiteral("copia.mee"), QStringLiteral("inicio.ini.bak")}));
    }

    void pantallaRestaurar()
    {
        frmMenu::instancia()->mnu_RestaurarCopia_Click();
        auto* f = Pantallas::cargada<frmRestaurarCopiaSeguridad>();
        QVERIFY(f);
        QCOMPARE(f->windowTitle(), QStringLiteral("Restaurar copia de seguridad"));
        QStringList textos;
        for (const char* n : {"lbl_Explicacion_0", "lbl_Explicacion_1", "lbl_Explicacion_2", "opt_Restaurar_0", "opt_Restaurar_1",
                              "opt_Restaurar_2", "cmd_Buscar", "cmd_RestaurarCopia", "cmd_HacerCopia", "cmd_Salir"}) {
            QWidget* w = hijo<QWidget>(f, n);
            textos << (qobject_cast<QLabel*>(w) ? qobject_cast<QLabel*>(w)->text() : qobject_cast<QAbstractButton*>(w)->text());
        }
        QCOMPARE(textos, (QStringList{
                             QStringLiteral("Utilice esta opción sólo si la base de datos que esté empleando se ha dañado o bien haya perdido algún dato."),
                             QStringLiteral("La base de datos que se esté empleando será reemplazada por la copia de seguridad que se vaya a restaurar. "
                                            "Lo mismo ocurrirá con el fichero Inicio.ini en caso de que también lo vaya a restaurar."),
                             QStringLiteral("Antes de restaurar una copia de seguridad se recomienda que haga una copia de seguridad de la base de datos actual."),
                             QStringLiteral("BD y fichero de inicio"), QStringLiteral("Sólo BD"), QStringLiteral("Sólo fichero de inicio"),
                             QStringLiteral("&Buscar copia"), QStringLiteral("&Restaurar"), QStringLiteral("&Hacer copia"), QStringLiteral("&Cancelar")}));
        QVERIFY(hijo<QRadioButton>(f, "opt_Restaurar_1")->isChecked());

        // Buscar la copia: el diálogo de ficheros con su título y su filtro; cancelar deja lo que había.
        e().ficheros << QStringLiteral("/copias/lunes.mee") << QString();
        hijo<QPushButton>(f, "cmd_Buscar")->click();
        QCOMPARE(hijo<QLineEdit>(f, "txt_NombreCopia")->text(), QStringLiteral("/copias/lunes.mee"));
        QCOMPARE(f->focusWidget()->objectName(), QStringLiteral("cmd_RestaurarCopia"));
        hijo<QPushButton>(f, "cmd_Buscar")->click();
        QCOMPARE(hijo<QLineEdit>(f, "txt_NombreCopia")->text(), QStringLiteral("/copias/lunes.mee"));
        QCOMPARE(e().titulosFichero, QStringList(2, QStringLiteral("Seleccione la copia de seguridad que desee restaurar")));
        QCOMPARE(e().filtrosFichero, QStringList(2, QStringLiteral("Copia de seguridad (*.mee)")));

        // "Hacer copia" cierra esta pantalla y abre la de la copia.
        hijo<QPushButton>(f, "cmd_HacerCopia")->click();
        procesarEventos();
        QVERIFY(!Pantallas::cargada<frmRestaurarCopiaSeguridad>());
        QVERIFY(Pantallas::cargada<frmCopiaSeguridad>());
    }

    // Cada opción restaura lo suyo; la base de datos sigue siendo el mismo fichero.
    void restaurar_data()
    {
        QTest::addColumn<int>("opcion");
        QTest::addColumn<bool>("base");
        QTest::addColumn<bool>("ajustes");
        QTest::newRow("BD y fichero de inicio") << 0 << true << true;
        QTest::newRow("sólo BD") << 1 << true << false;
        QTest::newRow("sólo fichero de inicio") << 2 << false << true;
    }

    void restaurar()
    {
        QFETCH(int, opcion);
        QFETCH(bool, base);
        QFETCH(bool, ajustes);
        const QString copia = prepararCopia();
        const QStringList antes = contenidoBaseViva();
        const QByteArray iniAntes = contenido(e().ficheroIni());
        const ino_t fichero = nodo(e().ficheroBD());
        hijo<QPushButton>(abrirRestaurar(opcion, copia), "cmd_RestaurarCopia")->click();
        QCOMPARE(e().textos(), QStringList{QStringLiteral("Copia de seguridad restaurada correctamente")});
        QCOMPARE(e().cuadros[0].titulo, QStringLiteral("Información"));
        QCOMPARE(contenidoBaseViva(), base ? contenidoBase(copia) : antes);
        QCOMPARE(nodo(e().ficheroBD()), fichero);
        QCOMPARE(contenido(e().ficheroIni()), ajustes ? INI_COPIA.arg(e().carpetaDatos()).toUtf8() : iniAntes);
        QCOMPARE(ficheros(e().carpetaDatos()), QStringList{QStringLiteral("Usuarios.qst")});
        QCOMPARE(ficheros(e().directorio()), (QStringList{QStringLiteral("Contratos"), QStringLiteral("Documentos"), QStringLiteral("Excel"),
                                                         QStringLiteral("Logs"), QStringLiteral("ayuda"), QStringLiteral("datos"),
                                                         QStringLiteral("inicio.ini")}));
        QVERIFY(Pantallas::cargada<frmRestaurarCopiaSeguridad>());
    }

    // Lo que no es una copia de este programa se rechaza con un aviso y no se toca nada, tampoco
    // el fichero de inicio aunque se pidiera restaurarlo.
    void restaurarLoQueNoEsUnaCopia_data()
    {
        QTest::addColumn<QByteArray>("bytesCopia");
        QTest::newRow("fichero de texto") << QByteArray("Presupuesto de la reforma\r\nTotal: 12.000,00\r\n");
        QTest::newRow("fichero vacío") << QByteArray();
        QTest::newRow("base de datos de otro programa") << QByteArray("otro");
    }

    void restaurarLoQueNoEsUnaCopia()
    {
        QFETCH(QByteArray, bytesCopia);
        prepararCopia();
        const QString copia = destino() + QStringLiteral("otra.mee");
        if (bytesCopia == "otro")
            QProcess::execute(QStringLiteral("sqlite3"), {copia, QStringLiteral("CREATE TABLE Pedidos (n, cliente); INSERT INTO Pedidos VALUES (1, 'x');")});
        else
            escribirContenido(copia, bytesCopia);
        const QByteArray antes = contenido(e().ficheroBD());
        const QStringList vivaAntes = contenidoBaseViva();
        const QByteArray iniAntes = contenido(e().ficheroIni());
        const QByteArray copiaAntes = contenido(copia);
        frmRestaurarCopiaSeguridad* f = abrirRestaurar(0, copia);
        hijo<QPushButton>(f, "cmd_RestaurarCopia")->click();
        QCOMPARE(e().textos(), QStringList{NO_ES_COPIA});
        QCOMPARE(e().cuadros[0].titulo, QStringLiteral("Aviso"));
        QCOMPARE(e().cuadros[0].icono, Mensajes::Icono::Exclamacion);
        QCOMPARE(f->focusWidget()->objectName(), QStringLiteral("cmd_Buscar"));
        QCOMPARE(contenido(e().ficheroBD()), antes);
        QCOMPARE(contenidoBaseViva(), vivaAntes);
        QCOMPARE(contenido(e().ficheroIni()), iniAntes);
        QCOMPARE(contenido(copia), copiaAntes);
        QCOMPARE(ficheros(e().carpetaDatos()), QStringList{QStringLiteral("Usuarios.qst")});
        QCOMPARE(e().entradasLog(), 1);  // anotado sin enseñarlo
        QVERIFY(e().leerLog().contains(QStringLiteral("Procedimiento: cmd_RestaurarCopia_Click")));
    }

    // Sólo el fichero de inicio, desde una carpeta sin inicio.ini.bak: el informe normal de fallos.
    void restaurarAjustesSinSuCopia()
    {
        const QString copia = prepararCopia(false);
        const QByteArray iniAntes = contenido(e().ficheroIni());
        hijo<QPushButton>(abrirRestaurar(2, copia), "cmd_RestaurarCopia")->click();
        QCOMPARE(e().cuadros.size(), 1);
        QCOMPARE(e().cuadros[0].icono, Mensajes::Icono::Ninguno);
        QVERIFY(e().cuadros[0].texto.contains(QStringLiteral("Formulario: frmRestaurarCopiaSeguridad\r\nProcedimiento: cmd_RestaurarCopia_Click")));
        QVERIFY(e().cuadros[0].texto.contains(QStringLiteral("Descripción: No se encuentra el fichero ") + destino()
                                              + QStringLiteral("inicio.ini.bak\r\n")));
        QCOMPARE(contenido(e().ficheroIni()), iniAntes);
        QCOMPARE(e().entradasLog(), 1);
    }

    void restaurarSinCopiaElegida()
    {
        frmRestaurarCopiaSeguridad* f = abrirRestaurar(1, QStringLiteral("  "));
        hijo<QPushButton>(f, "cmd_RestaurarCopia")->click();
        QCOMPARE(e().textos(), QStringList{QStringLiteral("Debe seleccionar la copia de seguridad a restaurar")});
        QCOMPARE(f->focusWidget()->objectName(), QStringLiteral("cmd_Buscar"));
    }

    // El recordatorio: marcado, la salida pasa por la copia y el programa termina al cerrarla,
    // aunque sea con "Cancelar"; desmarcado al cerrar, la siguiente salida ya no lo ofrece.
    void recordatorio()
    {
        escribirAjuste(QStringLiteral("Opciones"), QStringLiteral("copia"), QStringLiteral("1"));
        e().respuestas << Respuesta::Si;
        QVERIFY(!frmMenu::instancia()->close());
        auto* f = Pantallas::cargada<frmCopiaSeguridad>();
        QVERIFY(f && f->salirAlTerminar);
        QVERIFY(hijo<QCheckBox>(f, "chk_RecordarCopia")->isChecked());
        QVERIFY(!Programa::terminado());
        hijo<QCheckBox>(f, "chk_RecordarCopia")->setChecked(false);
        hijo<QPushButton>(f, "cmd_Salir")->click();
        QVERIFY(Programa::terminado());
        QCOMPARE(leerAjuste(QStringLiteral("Opciones"), QStringLiteral("copia")), QStringLiteral("0"));

        // Otra sesión: la salida ya no ofrece la copia.
        procesarEventos();
        delete frmMenu::existente();
        Aplicacion::reiniciar();
        e().limpiarCuadros();
        e().respuestas << Respuesta::Si;
        QVERIFY(frmMenu::instancia()->close());
        QVERIFY(Programa::terminado());
        QCOMPARE(e().textos(), QStringList{QStringLiteral("¿Desea salir del programa?")});
        QVERIFY(!Pantallas::cargada<frmCopiaSeguridad>());
    }

    // Marcar la casilla desde el menú guarda el recordatorio y no termina el programa.
    void recordatorioDesdeElMenu()
    {
        frmMenu* menu = frmMenu::instancia();
        menu->show();
        QApplication::setActiveWindow(menu);
        QVERIFY(QTest::qWaitForWindowActive(menu));
        frmCopiaSeguridad* f = abrirCopia();
        hijo<QCheckBox>(f, "chk_RecordarCopia")->setChecked(true);
        QTest::keyClick(hijo<QLineEdit>(f, "txt_NombreCopia"), Qt::Key_Escape);
        procesarEventos();
        QVERIFY(!Pantallas::cargada<frmCopiaSeguridad>());
        QVERIFY(!Programa::terminado());
        QCOMPARE(leerAjuste(QStringLiteral("Opciones"), QStringLiteral("copia")), QStringLiteral("1"));
    }
};

PRUEBA_PANTALLAS(tst_copia)
#include "tst_copia.moc"
