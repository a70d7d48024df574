// El fichero de la base de datos entero: compactación, copia y restauración a través del motor,
// los fallos del almacenamiento en español, y el fichero de ajustes en cualquier codificación.
// El ejecutable hace también de segundo puesto (ProcesosAlmacen) para las pruebas con dos procesos.
#include "core/Almacen.h"
#include "core/modFunciones.h"
#include "tests/comun/EntornoPrueba.h"
#include "tests/comun/ProcesosAlmacen.h"

#include <QFile>
#include <QStringDecoder>
#include <QtTest>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace ProcesosAlmacen;

namespace {

const QString EN_USO = QStringLiteral("La base de datos está siendo usada por otro puesto de trabajo.\nEspere a que quede libre e inténtelo de nuevo");
const QString NO_ES_COPIA = QStringLiteral(
    "El fichero seleccionado no es una copia de seguridad de este programa.\nNo se ha restaurado nada. Por favor, seleccione otra copia de seguridad");
const QString COPIA_DANADA = QStringLiteral(
    "La copia de seguridad seleccionada está dañada.\nNo se ha restaurado nada. Por favor, seleccione otra copia de seguridad");

// Lo que hace que el fichero sea el mismo para los demás puestos.
struct Identidad {
    ino_t nodo = 0;
    uid_t dueno = 0;
    gid_t grupo = 0;
    mode_t modo = 0;
    bool operator==(const Identidad& o) const { return nodo == o.nodo && dueno == o.dueno && grupo == o.grupo && modo == o.modo; }
};

Identidad identidad(const QString& f)
{
    struct stat s {};
    ::stat(QFile::encodeName(f).constData(), &s);
    return {s.st_ino, s.st_uid, s.st_gid, s.st_mode};
}

}  // namespace

class tst_almacen : public QObject {
    Q_OBJECT

    static QString yo() { return QCoreApplication::applicationFilePath(); }

private slots:
    // Cada fallo del almacenamiento, provocado de verdad en el motor donde se puede: el usuario lo
    // lee en español y el texto del motor sólo queda en el registro.
    void fallosEnEspanol_data()
    {
        QTest::addColumn<QString>("caso");
        QTest::addColumn<qint64>("numero");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("motor");
        QTest::newRow("en uso") << QStringLiteral("en uso") << ERROR_BD_EN_USO << EN_USO << QStringLiteral("database is locked");
        QTest::newRow("no es una base de datos")
            << QStringLiteral("no es") << qint64(SQLITE_NOTADB)
            << QStringLiteral("El fichero no es una base de datos de este programa.\nCompruebe la ubicación de la base de datos")
            << QStringLiteral("file is not a database");
        QTest::newRow("dañada") << QStringLiteral("danada") << qint64(SQLITE_CORRUPT)
                                << QStringLiteral("La base de datos está dañada.\nRestaure la última copia de seguridad")
                                << QStringLiteral("malformed");
        QTest::newRow("sólo lectura")
            << QStringLiteral("lectura") << qint64(SQLITE_READONLY)
            << QStringLiteral("No se puede escribir en la base de datos: el fichero o su carpeta son de sólo lectura.\n"
                              "Pida permiso de escritura a quien administre el equipo o la red")
            << QStringLiteral("readonly database");
        QTest::newRow("disco lleno") << QStringLiteral("lleno") << qint64(SQLITE_FULL)
                                     << QStringLiteral("No queda espacio libre en el disco.\nLibere espacio e inténtelo de nuevo")
                                     << QStringLiteral("disk is full");
    }

    void fallosEnEspanol()
    {
        QFETCH(QString, caso);
        QFETCH(qint64, numero);
        QFETCH(QString, texto);
        QFETCH(QString, motor);
        EntornoPrueba e;
        e.conectar();
        ErrorPrograma fallo;
        try {
            if (caso == QLatin1String("en uso")) {
                PuestoLeyendo otro(e.ficheroBD());
                Almacen::probarUsoExclusivo(e.ficheroBD());
            } else if (caso == QLatin1String("no es")) {
                escribirContenido(e.ficheroBD(), QByteArray("Listado de clientes exportado a texto\n").repeated(40));
                BaseDatos::abrir();
            } else if (caso == QLatin1String("danada")) {
                danarClientes(e.ficheroBD());
                UsoConexion uso;
                escalar(QStringLiteral("SELECT count(*) FROM Clientes"));
            } else if (caso == QLatin1String("lectura")) {
                QSqlDatabase db = BaseDatos::abrirConexion(QStringLiteral("lectura"), e.ficheroBD(), BaseDatos::Acceso::SoloLectura);
                ejecutar(db, QStringLiteral("INSERT INTO Costes (CODIGO) VALUES (?)"), {QStringLiteral("X")});
            } else {
                UsoConexion uso;
                const int paginas = escalar(QStringLiteral("PRAGMA page_count")).toInt();
                ejecutar(QStringLiteral("PRAGMA max_page_count = %1").arg(paginas));
                ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Otros) VALUES (1, ?)"), {QString(100000, QLatin1Char('x'))});
            }
            QFAIL("debía fallar");
        } catch (const ErrorPrograma& err) {
            fallo = err;
        }
        QSqlDatabase::removeDatabase(QStringLiteral("lectura"));
        QCOMPARE(fallo.numero, numero);
        QCOMPARE(fallo.descripcion, texto);
        QVERIFY2(fallo.textoMotor.contains(motor), qPrintable(fallo.textoMotor));

        escribirLog(fallo, NOMBRE_PROGRAMA, QStringLiteral("frmCliente"), QStringLiteral("cmd_Guardar_Click"), 0, Mostrar::Si);
        QCOMPARE(e.cuadros.size(), 1);
        QVERIFY(e.cuadros[0].texto.contains(QStringLiteral("Descripción: ") + texto + QStringLiteral("\r\n")));
        QVERIFY(!e.cuadros[0].texto.contains(fallo.textoMotor));
        QVERIFY(e.leerLog().contains(QStringLiteral("Descripción: ") + texto + QStringLiteral(" [") + fallo.textoMotor + QStringLiteral("]\r\n")));
    }

    // La compactación y la restauración escriben en el mismo fichero: los demás puestos lo siguen
    // teniendo abierto, con su dueño, su grupo y sus permisos, y no queda ningún otro fichero.
    void mismoFicheroParaLosDemas_data()
    {
        QTest::addColumn<bool>("restaurar");
        QTest::newRow("compactar") << false;
        QTest::newRow("restaurar") << true;
    }

    void mismoFicheroParaLosDemas()
    {
        QFETCH(bool, restaurar);
        EntornoPrueba e;
        prepararBase(e.ficheroBD(), 3000, 1, 11);
        QTemporaryDir otra;
        const QString copia = otra.filePath(QStringLiteral("copia.mee"));
        prepararBase(copia, 500, 2, 12);
        // Un fichero compartido por un grupo; como root, de otro dueño y otro grupo.
        if (geteuid() == 0)
            QCOMPARE(::chown(QFile::encodeName(e.ficheroBD()).constData(), 4321, 4322), 0);
        ::chmod(QFile::encodeName(e.ficheroBD()).constData(), 0664);
        const Identidad antes = identidad(e.ficheroBD());
        const qint64 tamano = QFileInfo(e.ficheroBD()).size();

        QList<int> pasos;
        int latidos = 0;
        if (restaurar)
            Almacen::restaurarBaseDatos(copia, e.ficheroBD(), [&](int) { ++latidos; });
        else
            Almacen::compactar(e.carpetaDatos(), [&](int v) { pasos << v; }, [&](int) { ++latidos; });

        QCOMPARE(identidad(e.ficheroBD()), antes);
        QCOMPARE(ficheros(e.carpetaDatos()), QStringList{QStringLiteral("Usuarios.qst")});
        QVERIFY(QFileInfo(e.ficheroBD()).size() < tamano);
        QCOMPARE(integridad(e.ficheroBD()), QStringLiteral("ok"));
        if (restaurar) {
            QVERIFY(huella(e.ficheroBD()) == huella(copia));
        } else {
            QCOMPARE(pasos, (QList<int>{65, 75, 85, 95}));
            QCOMPARE(huella(e.ficheroBD()).filas, 2000);
        }
        Q_UNUSED(latidos);
    }

    // Lo que no es una copia de este programa se rechaza antes de tocar nada (el texto, el fichero
    // vacío y la base de otro programa se prueban desde la pantalla, en tst_copia).
    void copiaNoValida_data()
    {
        QTest::addColumn<QString>("caso");
        QTest::addColumn<QString>("texto");
        QTest::newRow("dañada") << QStringLiteral("danada") << COPIA_DANADA;
        QTest::newRow("con diario WAL") << QStringLiteral("wal") << NO_ES_COPIA;
        QTest::newRow("no existe") << QStringLiteral("no existe")
                                   << QStringLiteral("No se encuentra la copia de seguridad seleccionada.\n"
                                                     "No se ha restaurado nada. Por favor, seleccione otra copia de seguridad");
        QTest::newRow("la propia base de datos")
            << QStringLiteral("propia")
            << QStringLiteral("La copia de seguridad seleccionada es la propia base de datos del programa.\n"
                              "No se ha restaurado nada. Por favor, seleccione otra copia de seguridad");
    }

    void copiaNoValida()
    {
        QFETCH(QString, caso);
        QFETCH(QString, texto);
        EntornoPrueba e;
        QTemporaryDir otra;
        QString copia = otra.filePath(QStringLiteral("copia.mee"));
        if (caso == QLatin1String("danada")) {
            prepararBase(copia, 2000, 2, 31);
            danarClientes(copia);
        } else if (caso == QLatin1String("wal")) {
            prepararBase(copia, 100, 2, 32);
            sqlite3* h = nullptr;
            sqlite3_open(copia.toUtf8().constData(), &h);
            sqlite3_exec(h, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr);
            sqlite3_close(h);
        } else if (caso == QLatin1String("propia")) {
            copia = e.ficheroBD();
        }
        const QByteArray copiaAntes = contenido(copia);
        const QByteArray antes = contenido(e.ficheroBD());
        try {
            Almacen::restaurarBaseDatos(copia, e.ficheroBD());
            QFAIL("debía rechazarse");
        } catch (const Almacen::FicheroNoValido& err) {
            QCOMPARE(err.descripcion, texto);
        }
        QCOMPARE(contenido(e.ficheroBD()), antes);
        QCOMPARE(contenido(copia), copiaAntes);
        QCOMPARE(ficheros(e.carpetaDatos()), QStringList{QStringLiteral("Usuarios.qst")});
        Almacen::probarUsoExclusivo(e.ficheroBD());  // no queda ningún cerrojo
    }

    // Sin sitio para escribir (el proceso no puede hacer crecer ningún fichero): la operación falla
    // con un motivo en español, la base de datos queda como estaba y no queda ningún resto.
    void sinSitioParaEscribir_data()
    {
        QTest::addColumn<QString>("orden");
        QTest::newRow("compactar") << QStringLiteral("compactar");
        QTest::newRow("copiar") << QStringLiteral("copiar");
        QTest::newRow("restaurar") << QStringLiteral("restaurar");
    }

    void sinSitioParaEscribir()
    {
        QFETCH(QString, orden);
        EntornoPrueba e;
        prepararBase(e.ficheroBD(), 6000, 1, 51);
        QTemporaryDir otra;
        const QString copia = otra.filePath(QStringLiteral("copia.mee"));
        prepararBase(copia, 9000, 2, 52);
        const Huella antes = huella(e.ficheroBD());
        QStringList args{QString::fromLatin1(ARGUMENTO), QStringLiteral("--limite"), QString::number(256 * 1024), orden};
        if (orden == QLatin1String("compactar"))
            args << e.carpetaDatos();
        else if (orden == QLatin1String("copiar"))
            args << e.ficheroBD() << otra.filePath(QStringLiteral("nueva.mee"));
        else
            args << copia << e.ficheroBD();
        QProcess p;
        QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
        entorno.insert(QStringLiteral("SQLITE_TMPDIR"), otra.path());
        p.setProcessEnvironment(entorno);
        p.start(yo(), args);
        QVERIFY(p.waitForFinished(30000));
        const QString salida = QString::fromUtf8(p.readAllStandardOutput());
        QVERIFY2(salida.contains(QStringLiteral("fallo ")), qPrintable(salida));
        QVERIFY2(salida.contains(QStringLiteral("No queda espacio libre en el disco."))
                     || salida.contains(QStringLiteral("Se ha producido un error de lectura o escritura en el disco.")),
                 qPrintable(salida));
        QCOMPARE(integridad(e.ficheroBD()), QStringLiteral("ok"));
        QVERIFY(huella(e.ficheroBD()) == antes);
        QCOMPARE(ficheros(e.carpetaDatos()), QStringList{QStringLiteral("Usuarios.qst")});
        QCOMPARE(ficheros(otra.path()), QStringList{QStringLiteral("copia.mee")});
    }

    // Otro proceso guarda mientras este compacta o restaura: ningún guardado confirmado se pierde
    // (el banco bench_almacen repite lo mismo con más guardados).
    void guardadosDeOtroPuesto_data()
    {
        QTest::addColumn<bool>("restaurar");
        QTest::newRow("compactando") << false;
        QTest::newRow("restaurando") << true;
    }

    void guardadosDeOtroPuesto()
    {
        QFETCH(bool, restaurar);
        EntornoPrueba e;
        prepararBase(e.ficheroBD(), 8000, 1, 61);
        QTemporaryDir otra;
        const QString copia = otra.filePath(QStringLiteral("copia.mee"));
        prepararBase(copia, 6000, 1, 62);
        int generacion = 1;
        const Guardados g = guardarDurante(yo(), e.ficheroBD(), 60, [&] {
            try {
                if (restaurar) {
                    fijarGeneracion(copia, ++generacion);
                    Almacen::restaurarBaseDatos(copia, e.ficheroBD());
                } else {
                    Almacen::compactar(e.carpetaDatos());
                }
                return true;
            } catch (const ErrorPrograma& err) {
                if (err.numero != ERROR_BD_EN_USO)
                    throw;
                return false;
            }
        });
        QVERIFY2(g.fallo.isEmpty(), qPrintable(g.fallo));
        QVERIFY(g.operaciones > 0);
        QCOMPARE(g.confirmados + g.rechazados, 60);
        QCOMPARE(g.perdidos, 0);
        QCOMPARE(g.indebidos, 0);
        for (const QString& t : g.textosRechazo)
            QCOMPARE(t, EN_USO);
        QCOMPARE(integridad(e.ficheroBD()), QStringLiteral("ok"));
    }

    // Matar el proceso en cualquier momento deja la base de datos entera, con el contenido de
    // antes o el de después, y ningún .mee a medias (el banco hace más rondas con una base mayor).
    void procesoMatado_data()
    {
        QTest::addColumn<int>("operacion");
        QTest::newRow("compactar") << int(Operacion::Compactar);
        QTest::newRow("copiar") << int(Operacion::Copiar);
        QTest::newRow("restaurar") << int(Operacion::Restaurar);
    }

    void procesoMatado()
    {
        QFETCH(int, operacion);
        const Muertes m = matarDurante(yo(), Operacion(operacion), 4, 6000, 71 + quint32(operacion));
        QVERIFY2(m.problemas.isEmpty(), qPrintable(m.problemas.join(QLatin1Char('\n'))));
        QCOMPARE(m.rondas, 4);
        QCOMPARE(m.integras, 4);
        QCOMPARE(m.contenidoViejo + m.contenidoNuevo, 4);
    }

    // Una copia nueva al mismo destino se lleva los restos a medias que dejó un proceso matado;
    // los de otros destinos no son suyos y se quedan.
    void copiaBorraRestosAbandonados()
    {
        EntornoPrueba e;
        const QString destino = e.directorio() + QStringLiteral("/copia.mee");
        const QStringList suyos = {destino + ".parcial-1a2b3c4d", destino + ".parcial-1a2b3c4d-journal"};
        const QString ajeno = e.directorio() + QStringLiteral("/otra.mee.parcial-5e6f7a8b");
        for (const QString& f : suyos + QStringList{ajeno}) {
            QFile r(f);
            QVERIFY(r.open(QIODevice::WriteOnly));
            r.write("a medias");
        }
        Almacen::copiarBaseDatos(e.ficheroBD(), destino);
        QCOMPARE(integridad(destino), QStringLiteral("ok"));
        for (const QString& f : suyos)
            QVERIFY2(!QFile::exists(f), qPrintable(f));
        QVERIFY(QFile::exists(ajeno));
    }

    // inicio.ini tal como lo deja un editor de textos: se lee, y al escribir una clave el fichero
    // sigue entero en su codificación (o pasa entero a UTF-8 si el valor no cabe en ella).
    void ini_codificaciones_data()
    {
        QTest::addColumn<QByteArray>("original");
        QTest::addColumn<QString>("valor");      // valor nuevo de [Opciones] copia
        QTest::addColumn<QByteArray>("esperado");
        const QString texto = QStringLiteral("[BD]\r\nruta=/srv/Diseño/datos\r\n[Opciones]\r\ninicio=1\r\ncopia=0\r\n");
        const QString final = QStringLiteral("[BD]\r\nruta=/srv/Diseño/datos\r\n[Opciones]\r\ninicio=1\r\ncopia=%1\r\n");
        auto utf16 = [](const QString& t, QStringEncoder::Encoding c, bool marca) {
            QStringEncoder enc(c, marca ? QStringEncoder::Flag::WriteBom : QStringEncoder::Flag::Default);
            return QByteArray(enc(t));
        };
        QTest::newRow("UTF-8") << texto.toUtf8() << QStringLiteral("1") << final.arg(1).toUtf8();
        QTest::newRow("UTF-8 con marca") << QByteArray("\xEF\xBB\xBF") + texto.toUtf8() << QStringLiteral("1")
                                         << QByteArray("\xEF\xBB\xBF") + final.arg(1).toUtf8();
        QTest::newRow("UTF-16 del bloc de notas") << utf16(texto, QStringEncoder::Utf16LE, true) << QStringLiteral("1")
                                                  << utf16(final.arg(1), QStringEncoder::Utf16LE, true);
        QTest::newRow("UTF-16 big endian") << utf16(texto, QStringEncoder::Utf16BE, true) << QStringLiteral("1")
                                           << utf16(final.arg(1), QStringEncoder::Utf16BE, true);
        QTest::newRow("UTF-16 sin marca") << utf16(texto, QStringEncoder::Utf16LE, false) << QStringLiteral("1")
                                          << utf16(final.arg(1), QStringEncoder::Utf16LE, true);
        QTest::newRow("Latin-1") << texto.toLatin1() << QStringLiteral("1") << final.arg(1).toLatin1();
        QTest::newRow("Latin-1 con un valor que no cabe") << texto.toLatin1() << QStringLiteral("1 €")
                                                          << final.arg(QStringLiteral("1 €")).toUtf8();
    }

    void ini_codificaciones()
    {
        QFETCH(QByteArray, original);
        QFETCH(QString, valor);
        QFETCH(QByteArray, esperado);
        EntornoPrueba e(false);
        escribirContenido(e.ficheroIni(), original);
        QCOMPARE(leerIni(e.ficheroIni(), QStringLiteral("bd"), QStringLiteral("RUTA")), QStringLiteral("/srv/Diseño/datos"));
        // Una ruta sin separador final se acepta: se le añade.
        QCOMPARE(leerRutaBD(), QStringLiteral("/srv/Diseño/datos") + QDir::separator());
        QVERIFY(escribirAjuste(QStringLiteral("opciones"), QStringLiteral("copia"), valor));
        QCOMPARE(contenido(e.ficheroIni()), esperado);
        QCOMPARE(leerAjuste(QStringLiteral("Opciones"), QStringLiteral("copia")), valor);
    }
};

// El mismo ejecutable hace de segundo puesto cuando se lanza con el argumento de ProcesosAlmacen.
int main(int argc, char* argv[])
{
    if (esPuesto(argc, argv))
        return ejecutarPuesto(argc, argv);
    QApplication app(argc, argv);
    QTEST_SET_MAIN_SOURCE_PATH
    tst_almacen prueba;
    return QTest::qExec(&prueba, argc, argv);
}

#include "tst_almacen.moc"
