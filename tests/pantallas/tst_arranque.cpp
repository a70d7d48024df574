// Arranque y salida del programa, dentro del propio proceso: el mismo frmInicio y el mismo
// frmMenu que ve el usuario, con los cuadros contestados por la prueba.
#include "app/Aplicacion.h"
#include "app/frmInicio.h"
#include "app/frmMenu.h"
#include "core/modFunciones.h"
#include "core/Programa.h"
#include "masterdata/frmConfiguracion.h"
#include "tests/comun/EntornoPrueba.h"
#include "tests/comun/ProcesosAlmacen.h"
#include "tests/pantallas/PruebaPantallas.h"
#include "tools/frmCopiaSeguridad.h"

#include <QLockFile>
#include <QMdiArea>
#include <QProcess>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

using Mensajes::Respuesta;

namespace {
const QString TEXTO_AMBOS = QStringLiteral(
    "No se han establecido valores para el IVA ni el IRPF.\nSe han asignado los siguientes valores por defecto: \n\n"
    "    - IVA: 16%\n    - IRPF: 15%\n\n¿Desea cambiar estos valores asignados por defecto?");
const QString TEXTO_IVA = QStringLiteral(
    "No se han establecido valores para el IVA.\nSe ha asignado el siguiente valor por defecto: \n\n"
    "    - IVA: 16%\n\n¿Desea cambiar este valor asignado por defecto?");
const QString TEXTO_IRPF = QStringLiteral(
    "No se han establecido valores para el IRPF.\nSe han asignado el siguiente valor por defecto: \n\n"
    "    - IRPF: 15%\n\n¿Desea cambiar este valor asignado por defecto?");
const QString TEXTO_SIN_BD = QStringLiteral(
    "No se ha podido encontrar el fichero que contiene la base de datos del programa. Puede que haya sido borrado o cambiado de su ubicación."
    "\n\nA continuación el programa se cerrará. Cuando lo vuelva a ejecutar se le solicitará que indique la ubicación de la base de datos.");

QByteArray contenido(const QString& f)
{
    QFile fi(f);
    fi.open(QIODevice::ReadOnly);
    return fi.readAll();
}

void fijarTipos(EntornoPrueba& e, const QVariant& iva, const QVariant& irpf)
{
    e.conectar();
    UsoConexion uso;
    ejecutar(QStringLiteral("DELETE FROM Config"));
    ejecutar(QStringLiteral("INSERT INTO Config (IVA, IRPF) VALUES (?, ?)"), {iva, irpf});
}
}  // namespace

class tst_arranque : public QObject {
    Q_OBJECT

    QPointer<frmInicio> m_inicio;

    frmInicio* arrancar()
    {
        Aplicacion::reiniciar();
        m_inicio = new frmInicio;
        m_inicio->Form_Load();
        return m_inicio;
    }

private slots:
    void init() { Aplicacion::reiniciar(); }

    void cleanup()
    {
        delete m_inicio;
        delete frmMenu::existente();
        for (QWidget* w : Pantallas::cargadas())
            delete w;
        procesarEventos();
        Aplicacion::reiniciar();
    }

    void arranqueNormal()
    {
        EntornoPrueba e;
        e.respuestas << Respuesta::Si;  // revisar los tipos por defecto
        frmInicio* ini = arrancar();
        QVERIFY(!Programa::terminado());
        QVERIFY(ini->temporizadorActivo());
        QCOMPARE(e.cuadros.size(), 1);
        QCOMPARE(e.cuadros[0].titulo, QStringLiteral("Aviso"));
        QCOMPARE(e.cuadros[0].icono, Mensajes::Icono::Pregunta);
        QCOMPARE(e.cuadros[0].porDefecto, Respuesta::No);
        QCOMPARE(e.cuadros[0].texto, TEXTO_AMBOS);
        QVERIFY(!BaseDatos::estaAbierta());

        ini->tmr_1_Timer();
        QCOMPARE(ini->valoresBarra(), (QList<int>{5, 15, 25, 35, 45, 55, 65, 75, 85, 95, 100}));
        frmMenu* menu = frmMenu::existente();
        QVERIFY(menu && menu->isVisible());
        auto* conf = Pantallas::cargada<frmConfiguracion>();
        QVERIFY(conf);
        QCOMPARE(conf->pestanas()->currentIndex(), 1);

        UsoConexion uso;
        Consulta c(QStringLiteral("SELECT IVA, IRPF, (SELECT count(*) FROM Config) FROM Config"));
        QVERIFY(c.siguiente());
        QCOMPARE(c.valor(0).toInt(), 16);
        QCOMPARE(c.valor(1).toInt(), 15);
        QCOMPARE(c.valor(2).toInt(), 1);
    }

    void tiposPorDefecto_data()
    {
        QTest::addColumn<QVariant>("iva");
        QTest::addColumn<QVariant>("irpf");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<int>("ivaFinal");
        QTest::addColumn<int>("irpfFinal");
        const QVariant nulo(QMetaType(QMetaType::Double));
        QTest::newRow("falta el IVA") << nulo << QVariant(18) << TEXTO_IVA << 16 << 18;
        QTest::newRow("falta el IRPF") << QVariant(21) << nulo << TEXTO_IRPF << 21 << 15;
        QTest::newRow("IVA vacío como texto") << QVariant(QString()) << QVariant(7) << TEXTO_IVA << 16 << 7;
        QTest::newRow("IVA cero es un valor") << QVariant(0) << QVariant(15) << QString() << 0 << 15;
        QTest::newRow("ninguno") << nulo << nulo << TEXTO_AMBOS << 16 << 15;
    }

    void tiposPorDefecto()
    {
        QFETCH(QVariant, iva);
        QFETCH(QVariant, irpf);
        QFETCH(QString, texto);
        QFETCH(int, ivaFinal);
        QFETCH(int, irpfFinal);
        EntornoPrueba e;
        fijarTipos(e, iva, irpf);
        e.respuestas << Respuesta::No;  // contestar que no también guarda el valor
        frmInicio* ini = arrancar();
        QVERIFY(!ini->abrirConfiguracion());
        QCOMPARE(e.textos(), texto.isEmpty() ? QStringList() : QStringList{texto});
        UsoConexion uso;
        Consulta c(QStringLiteral("SELECT IVA, IRPF FROM Config"));
        QVERIFY(c.siguiente());
        QCOMPARE(c.valor(0).toInt(), ivaFinal);
        QCOMPARE(c.valor(1).toInt(), irpfFinal);
        QVERIFY(!c.siguiente());
    }

    void primerArranqueSinIni()
    {
        EntornoPrueba e(false);
        frmInicio* ini = arrancar();
        QVERIFY(Programa::terminado());
        QCOMPARE(e.cuadros.size(), 2);
        QVERIFY(e.cuadros[0].texto.contains(QStringLiteral("Procedimiento: comprobarBD")));
        QCOMPARE(e.cuadros[0].icono, Mensajes::Icono::Ninguno);
        QCOMPARE(e.cuadros[1].texto, TEXTO_SIN_BD);
        QCOMPARE(leerIni(e.ficheroIni(), QStringLiteral("Opciones"), QStringLiteral("inicio")), QStringLiteral("0"));
        QCOMPARE(ini->valoresBarra(), (QList<int>{5, 15, 25}));  // los dos pasos de comprobarBD no se dan
        QCOMPARE(e.entradasLog(), 1);
    }

    // Un inicio.ini ilegible o una base de datos que ya no está: se dice, se vuelve a pedir la
    // ubicación en el siguiente arranque, y no se crea ninguna base de datos vacía.
    void sinBaseDeDatos_data()
    {
        QTest::addColumn<bool>("iniConBasura");
        QTest::newRow("inicio.ini con basura") << true;
        QTest::newRow("base de datos desaparecida") << false;
    }

    void sinBaseDeDatos()
    {
        QFETCH(bool, iniConBasura);
        EntornoPrueba e(!iniConBasura);
        if (iniConBasura)
            e.escribirIni(QStringLiteral("\x01\x02 basura sin secciones =\r\n[Opciones\r\ninicio=uno\r\n"));
        else
            QFile::remove(e.ficheroBD());
        arrancar();
        QVERIFY(Programa::terminado());
        QCOMPARE(e.textos().last(), TEXTO_SIN_BD);
        QCOMPARE(e.cuadros.last().icono, Mensajes::Icono::Exclamacion);
        QVERIFY(!QFile::exists(e.directorio() + QStringLiteral("/Usuarios.qst")));
        QCOMPARE(leerIni(e.ficheroIni(), QStringLiteral("opciones"), QStringLiteral("inicio")), QStringLiteral("0"));
    }

    void asistente_data()
    {
        QTest::addColumn<int>("eleccion");  // 0 carpeta con base de datos, 1 sin ella, 2 cancelar
        QTest::addColumn<QString>("mensaje");
        QTest::newRow("carpeta buena") << 0 << QString();
        QTest::newRow("carpeta sin base") << 1
                                          << QStringLiteral("El directorio seleccionado no contiene la base de datos del programa.\n"
                                                            "Por favor, seleccione la ruta en la que instaló la base de datos");
        QTest::newRow("cancelado") << 2 << QStringLiteral("Para que el programa funcione es necesario seleccionar la ubicación de la base de datos del programa");
    }

    void asistente()
    {
        QFETCH(int, eleccion);
        QFETCH(QString, mensaje);
        EntornoPrueba e;
        fijarTipos(e, 16, 15);
        BaseDatos::cerrar();
        e.escribirIni(QStringLiteral("[Opciones]\r\ninicio=0\r\n"));
        e.carpetas << (eleccion == 0 ? e.carpetaDatos() : eleccion == 1 ? e.directorio() + QStringLiteral("/Logs") : QString());
        // El asistente es modal: se pulsa "Continuar" en cuanto aparece.
        VigiaDialogo vigia(QStringLiteral("frmAyudaSeleccionBD"),
                           [](QWidget* w) { w->findChild<QPushButton*>(QStringLiteral("cmd_Continuar"))->click(); });
        frmInicio* ini = arrancar();
        QCOMPARE(e.titulosCarpeta, QStringList{tituloCambiarRuta(1)});
        if (eleccion == 0) {
            QVERIFY(!Programa::terminado());
            QVERIFY(ini->temporizadorActivo());
            QVERIFY(e.cuadros.isEmpty());
            QCOMPARE(leerIni(e.ficheroIni(), QStringLiteral("BD"), QStringLiteral("ruta")), e.carpetaDatos());
            QCOMPARE(leerIni(e.ficheroIni(), QStringLiteral("Opciones"), QStringLiteral("inicio")), QStringLiteral("1"));
            QVERIFY(leerIni(e.ficheroIni(), QStringLiteral("BD"), QStringLiteral("ruta_instalacion")).startsWith(e.directorio()));
            QVERIFY(leerIni(e.ficheroIni(), QStringLiteral("PLANTILLAS_CONTRATOS"), QStringLiteral("P3")).endsWith(QStringLiteral("Trabajos_de_edificacion.doc")));
            QCOMPARE(rutaBD, e.carpetaDatos());
        } else {
            QVERIFY(Programa::terminado());
            QCOMPARE(e.textos(), QStringList{mensaje});
            QCOMPARE(leerIni(e.ficheroIni(), QStringLiteral("BD"), QStringLiteral("ruta")), QString());
        }
    }

    // La misma comprobación que al restaurar una copia: el motivo llega en español y el texto del
    // motor sólo al registro; el fichero no se toca.
    void baseDeDatosInservible_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("motivo");
        const QString noEs = QStringLiteral("El fichero %1 no es una base de datos de este programa.\nCompruebe la ubicación de la base de datos");
        QTest::newRow("vacía") << QByteArray() << noEs;
        QTest::newRow("no es una base de datos")
            << QByteArray("Hoja de cálculo exportada; nada que ver con una base de datos\n").repeated(20) << noEs;
        QTest::newRow("sin tablas") << QByteArray("sqlite") << noEs;
        QTest::newRow("dañada") << QByteArray("dañada")
                                << QStringLiteral("La base de datos %1 está dañada.\nRestaure la última copia de seguridad");
    }

    void baseDeDatosInservible()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, motivo);
        EntornoPrueba e;
        if (bytes == "sqlite") {
            QFile::remove(e.ficheroBD());
            QProcess::execute(QStringLiteral("sqlite3"), {e.ficheroBD(), QStringLiteral("CREATE TABLE Otra (x); DROP TABLE Otra;")});
            bytes = contenido(e.ficheroBD());
        } else if (bytes == "dañada") {
            ProcesosAlmacen::prepararBase(e.ficheroBD(), 2000, 1, 5);
            ProcesosAlmacen::danarClientes(e.ficheroBD());
            bytes = contenido(e.ficheroBD());
        } else {
            QFile f(e.ficheroBD());
            f.open(QIODevice::WriteOnly | QIODevice::Truncate);
            f.write(bytes);
        }
        frmInicio* ini = arrancar();
        QVERIFY(!Programa::terminado());
        QVERIFY(!ini->temporizadorActivo());  // la pantalla se queda; un clic o Esc la cierran
        QCOMPARE(e.cuadros.size(), 1);
        QVERIFY(e.cuadros[0].texto.contains(QStringLiteral("Procedimiento: Form_Load")));
        QVERIFY2(e.cuadros[0].texto.contains(QStringLiteral("Descripción: ") + motivo.arg(e.ficheroBD()) + QStringLiteral("\r\n")),
                 qPrintable(e.cuadros[0].texto));
        QCOMPARE(e.entradasLog(), 1);
        QCOMPARE(contenido(e.ficheroBD()), bytes);  // nunca se toca el fichero
        QTest::keyClick(ini, Qt::Key_Escape);
        QVERIFY(Programa::terminado());
    }

    // Una ruta escrita a mano sin el separador final vale igual.
    void rutaSinSeparadorFinal()
    {
        EntornoPrueba e;
        fijarTipos(e, 16, 15);
        BaseDatos::cerrar();
        QString ruta = e.carpetaDatos();
        ruta.chop(1);
        escribirAjuste(QStringLiteral("BD"), QStringLiteral("ruta"), ruta);
        frmInicio* ini = arrancar();
        QVERIFY(ini->temporizadorActivo());
        QVERIFY(e.cuadros.isEmpty());
        QCOMPARE(rutaBD, e.carpetaDatos());
    }

    void segundaInstancia()
    {
        EntornoPrueba e;
        QLockFile otro(Aplicacion::ficheroCerrojo());
        QVERIFY(otro.tryLock(0));
        frmInicio* ini = arrancar();
        QVERIFY(Programa::terminado());
        QVERIFY(e.cuadros.isEmpty());
        QCOMPARE(ini->valoresBarra(), QList<int>{5});
        QVERIFY(!frmMenu::existente());
    }

    void compactacionConOtroUsuario()
    {
        EntornoPrueba e;
        fijarTipos(e, 16, 15);
        BaseDatos::cerrar();
        QProcess otro;  // otro puesto con la base de datos abierta y leyendo
        otro.start(QStringLiteral("sqlite3"), {e.ficheroBD()});
        QVERIFY(otro.waitForStarted());
        otro.write("BEGIN;\nSELECT count(*) FROM Config;\n");
        QVERIFY(otro.waitForReadyRead(5000));
        frmInicio* ini = arrancar();
        QVERIFY(ini->temporizadorActivo());
        ini->tmr_1_Timer();
        QVERIFY(frmMenu::existente() && frmMenu::existente()->isVisible());
        QVERIFY(e.cuadros.isEmpty());
        QCOMPARE(e.entradasLog(), 1);
        QVERIFY(e.leerLog().contains(QStringLiteral(
            "Comentario: PlanorumMirvade - [No se ha podido realizar la compactación al estar la base de datos abierta por otro usuario]")));
        QVERIFY(e.leerLog().contains(QStringLiteral("Procedimiento: compactarBD")));
        otro.closeWriteChannel();
        otro.waitForFinished();
    }

    void salida_data()
    {
        QTest::addColumn<QString>("copia");
        QTest::addColumn<int>("respuesta");
        QTest::addColumn<bool>("termina");
        QTest::addColumn<bool>("copiaAbierta");
        QTest::newRow("no") << QStringLiteral("0") << int(Respuesta::No) << false << false;
        QTest::newRow("sí sin recordatorio") << QStringLiteral("0") << int(Respuesta::Si) << true << false;
        QTest::newRow("sí con recordatorio") << QStringLiteral("1") << int(Respuesta::Si) << false << true;
        QTest::newRow("sí con valor raro") << QStringLiteral("7") << int(Respuesta::Si) << false << false;
    }

    void salida()
    {
        QFETCH(QString, copia);
        QFETCH(int, respuesta);
        QFETCH(bool, termina);
        QFETCH(bool, copiaAbierta);
        EntornoPrueba e;
        escribirAjuste(QStringLiteral("Opciones"), QStringLiteral("copia"), copia);
        frmMenu* menu = frmMenu::instancia();
        menu->show();
        e.respuestas << Respuesta(respuesta);
        const bool cerrada = menu->close();
        QCOMPARE(e.cuadros.size(), 1);
        QCOMPARE(e.cuadros[0].texto, QStringLiteral("¿Desea salir del programa?"));
        QCOMPARE(e.cuadros[0].porDefecto, Respuesta::No);
        QCOMPARE(Programa::terminado(), termina);
        QCOMPARE(Pantallas::cargada<frmCopiaSeguridad>() != nullptr, copiaAbierta);
        QCOMPARE(cerrada, respuesta == int(Respuesta::Si) && copia != QLatin1String("1"));
        if (copiaAbierta) {
            // Cerrar la copia de seguridad, aunque sea con "Cancelar", termina el programa.
            Pantallas::descargar(Pantallas::cargada<frmCopiaSeguridad>());
            QVERIFY(Programa::terminado());
            QCOMPARE(leerAjuste(QStringLiteral("Opciones"), QStringLiteral("copia")), QStringLiteral("1"));
        }
    }

    void fondoDeLaPrincipal()
    {
        EntornoPrueba e;
        frmMenu* menu = frmMenu::instancia();
        menu->resize(1000, 700);
        menu->show();
        // Color &H53524D en una esquina y el dibujo en el centro.
        const QImage fondo = menu->area()->viewport()->grab().toImage();
        QCOMPARE(fondo.pixelColor(3, 3), QColor(77, 82, 83));
        QVERIFY(fondo.pixelColor(fondo.width() / 2, fondo.height() / 2) != QColor(77, 82, 83)
                || fondo.pixelColor(fondo.width() / 2 + 40, fondo.height() / 2) != QColor(77, 82, 83));
    }

    void avisosDeCopiaYAyuda()
    {
        EntornoPrueba e;
        frmMenu* menu = frmMenu::instancia();
        menu->mnu_RestaurarCopia_Click();
        QCOMPARE(e.cuadros.value(0).titulo, QStringLiteral("Información"));
        QCOMPARE(e.cuadros.value(0).texto,
                 QStringLiteral("Por favor, para evitar posibles errores, cierre TODAS las pantallas del programa (excepto la del propio programa) "
                                "antes de proceder a restaurar la copia de seguridad"));
        e.limpiarCuadros();
        e.resultadoAbrir = 2;
        menu->mnu_Indice_Click();
        QVERIFY(e.abiertos.value(0).endsWith(QStringLiteral("index.html")));
        QCOMPARE(e.textos(), QStringList{QStringLiteral("No se ha podido mostrar la ayuda. Por favor, inténtelo de nuevo")});
        e.limpiarCuadros();
        // La ayuda está, pero ningún programa abre las páginas: se dice dónde está.
        e.resultadoAbrir = 31;
        menu->mnu_Indice_Click();
        QVERIFY(e.textos().value(0).contains(QDir::toNativeSeparators(QFileInfo(e.abiertos.last()).absoluteFilePath())));
        QVERIFY(e.textos().value(0).contains(QStringLiteral("'*.html'")));
        e.limpiarCuadros();
        e.resultadoAbrir = 42;
        menu->mnu_ListaChequeo_Click(3);
        QVERIFY(e.abiertos.last().endsWith(QStringLiteral("LC_DireccionObra.pdf")));
        QVERIFY(e.cuadros.isEmpty());
    }
};

PRUEBA_PANTALLAS(tst_arranque)
#include "tst_arranque.moc"
