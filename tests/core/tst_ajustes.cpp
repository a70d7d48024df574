// Ajustes de inicio.ini, registro de fallos y elección de carpetas.
#include "core/modFunciones.h"
#include "tests/comun/EntornoPrueba.h"

#include <QDir>
#include <QFile>
#include <QtTest>

class tst_ajustes : public QObject {
    Q_OBJECT

    static QString leerTodo(const QString& f)
    {
        QFile fi(f);
        fi.open(QIODevice::ReadOnly);
        return QString::fromUtf8(fi.readAll());
    }

private slots:
    void ini_lecturaSinDistinguirMayusculas()
    {
        EntornoPrueba e(false);
        e.escribirIni(QStringLiteral("; comentario\r\n[Opciones]\r\n  Inicio = 1 \r\nruta=\"C:\\datos\\\"\r\n[BD]\r\nruta=/srv/x/\r\n"));
        QCOMPARE(leerIni(e.ficheroIni(), QStringLiteral("opciones"), QStringLiteral("INICIO")), QStringLiteral("1"));
        QCOMPARE(leerIni(e.ficheroIni(), QStringLiteral("OPCIONES"), QStringLiteral("ruta")), QStringLiteral("C:\\datos\\"));
        QCOMPARE(leerIni(e.ficheroIni(), QStringLiteral("bd"), QStringLiteral("RUTA")), QStringLiteral("/srv/x/"));
        QCOMPARE(leerIni(e.ficheroIni(), QStringLiteral("BD"), QStringLiteral("falta")), QString());
        QCOMPARE(leerIni(e.ficheroIni(), QStringLiteral("NoHay"), QStringLiteral("ruta")), QString());
        QCOMPARE(leerIni(e.directorio() + QStringLiteral("/noexiste.ini"), QStringLiteral("BD"), QStringLiteral("ruta")), QString());
    }

    void ini_limiteDeLectura()
    {
        EntornoPrueba e(false);
        const QString largo(300, QLatin1Char('a'));
        QVERIFY(escribirIni(e.ficheroIni(), QStringLiteral("BD"), QStringLiteral("ruta"), largo));
        QCOMPARE(leerIni(e.ficheroIni(), QStringLiteral("BD"), QStringLiteral("ruta")).size(), 254);
        QVERIFY(leerTodo(e.ficheroIni()).contains(largo));  // se escribe entero
    }

    void ini_escrituraConservaElResto()
    {
        EntornoPrueba e(false);
        e.escribirIni(QStringLiteral("[BD]\r\n; nota del instalador\r\nruta=/a/\r\nruta_instalacion=/p/\r\n\r\n[opciones]\r\ninicio=1\r\n"));
        // Clave existente, escrita con otra caja de sección: se sustituye en su sitio.
        QVERIFY(escribirIni(e.ficheroIni(), QStringLiteral("Opciones"), QStringLiteral("INICIO"), QStringLiteral("0")));
        // Clave nueva en sección existente: tras la última línea de la sección.
        QVERIFY(escribirIni(e.ficheroIni(), QStringLiteral("bd"), QStringLiteral("otra"), QStringLiteral("x")));
        // Sección nueva: se crea al final.
        QVERIFY(escribirIni(e.ficheroIni(), QStringLiteral("EXPORTACION"), QStringLiteral("rutaPdf"), QStringLiteral("/pdf/")));
        QCOMPARE(leerTodo(e.ficheroIni()),
                 QStringLiteral("[BD]\r\n; nota del instalador\r\nruta=/a/\r\nruta_instalacion=/p/\r\notra=x\r\n\r\n[opciones]\r\nINICIO=0\r\n"
                                "[EXPORTACION]\r\nrutaPdf=/pdf/\r\n"));
        QCOMPARE(leerIni(e.ficheroIni(), QStringLiteral("OPCIONES"), QStringLiteral("inicio")), QStringLiteral("0"));
    }

    void ini_ficheroNuevo()
    {
        EntornoPrueba e(false);
        QVERIFY(escribirAjuste(QStringLiteral("Opciones"), QStringLiteral("copia"), QStringLiteral("1")));
        QCOMPARE(leerTodo(e.ficheroIni()), QStringLiteral("[Opciones]\r\ncopia=1\r\n"));
        QCOMPARE(leerAjuste(QStringLiteral("opciones"), QStringLiteral("COPIA")), QStringLiteral("1"));
    }

    // La ruta de la base relativa cuenta desde el programa (la carpeta se puede mover); la absoluta
    // del asistente sirve tal cual.
    void ini_rutaDeLaBase()
    {
        EntornoPrueba e;
        e.escribirIni(QStringLiteral("[BD]\r\nruta=datos/\r\n"));
        QCOMPARE(leerRutaBD(), QDir::toNativeSeparators(e.directorio() + QStringLiteral("/datos/")));
        e.escribirIni(QStringLiteral("[BD]\r\nruta=/srv/estudio/\r\n"));
        QCOMPARE(leerRutaBD(), QDir::toNativeSeparators(QStringLiteral("/srv/estudio/")));
        e.escribirIni(QStringLiteral("[BD]\r\nruta=\r\n"));
        QCOMPARE(leerRutaBD(), QString());
    }

    void log_formatoDeLaEntrada()
    {
        EntornoPrueba e;
        escribirLog(ErrorPrograma(-2147467259, QStringLiteral("Descripción del fallo")), QStringLiteral("PlanorumMirvade"),
                    QStringLiteral("frmCliente"), QStringLiteral("cmd_Guardar_Click"), 0, Mostrar::No);
        QVERIFY(e.cuadros.isEmpty());
        const QStringList l = e.leerLog().split(QStringLiteral("\r\n"));
        QCOMPARE(l.size(), 14);  // 12 líneas, la línea en blanco que separa y el resto vacío
        QCOMPARE(l[0], QString(70, QLatin1Char('*')));
        QCOMPARE(l[1], QStringLiteral("Se ha producido el siguiente error: "));
        QCOMPARE(l[2], QString());
        QCOMPARE(l[3], QStringLiteral("Formulario: frmCliente"));
        QCOMPARE(l[4], QStringLiteral("Procedimiento: cmd_Guardar_Click"));
        QCOMPARE(l[5], QStringLiteral("Linea: 0"));
        QCOMPARE(l[6], QStringLiteral("Número: -2147467259"));
        QCOMPARE(l[7], QStringLiteral("Descripción: Descripción del fallo"));
        QVERIFY(l[8].startsWith(QStringLiteral("Día: ")));
        QVERIFY(l[9].startsWith(QStringLiteral("Hora: ")));
        QCOMPARE(l[10], QStringLiteral("Comentario: PlanorumMirvade"));
        QCOMPARE(l[11], QString(70, QLatin1Char('*')));
        QCOMPARE(l[12], QString());
        QVERIFY(!e.leerLog().contains(QRegularExpression(QStringLiteral("[^\\r]\\n"))));

        escribirLog(ErrorPrograma(5, QStringLiteral("otro")), QStringLiteral("c"), QStringLiteral("f"), QStringLiteral("p"), 7, Mostrar::Si);
        QCOMPARE(e.entradasLog(), 2);
        QCOMPARE(e.cuadros.size(), 1);
        QCOMPARE(e.cuadros[0].titulo, QStringLiteral("Aviso"));
        QCOMPARE(e.cuadros[0].icono, Mensajes::Icono::Ninguno);
        QVERIFY(e.cuadros[0].texto.contains(QStringLiteral("Linea: 7")));
    }

    void log_reglaDelTamano_data()
    {
        QTest::addColumn<qint64>("tamano");
        QTest::addColumn<bool>("seAnade");
        QTest::newRow("justo el límite") << qint64(2000000) << true;
        QTest::newRow("un byte más") << qint64(2000001) << false;
    }

    void log_reglaDelTamano()
    {
        QFETCH(qint64, tamano);
        QFETCH(bool, seAnade);
        EntornoPrueba e;
        {
            QFile f(Rutas::ficheroLog());
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write(QByteArray(tamano, 'x'));
        }
        escribirLog(ErrorPrograma(1, QStringLiteral("d")), QStringLiteral("c"), QStringLiteral("f"), QStringLiteral("p"), 0, Mostrar::No);
        const qint64 nuevo = QFileInfo(Rutas::ficheroLog()).size();
        if (seAnade)
            QVERIFY(nuevo > tamano);
        else
            QVERIFY(nuevo < 2000);
        QCOMPARE(e.entradasLog(), 1);
    }

    void log_sinCarpetaSeAvisaUnaVez()
    {
        EntornoPrueba e;
        QDir(e.directorio() + QStringLiteral("/Logs")).removeRecursively();
        escribirLog(ErrorPrograma(1, QStringLiteral("d")), QStringLiteral("c"), QStringLiteral("f"), QStringLiteral("p"), 0, Mostrar::No);
        escribirLog(ErrorPrograma(1, QStringLiteral("d")), QStringLiteral("c"), QStringLiteral("f"), QStringLiteral("p"), 0, Mostrar::No);
        QCOMPARE(e.cuadros.size(), 1);
        QVERIFY(e.cuadros[0].texto.startsWith(QStringLiteral("No se ha podido escribir en el registro de errores")));
    }

    void guardia_anotaYEnsena()
    {
        EntornoPrueba e;
        bool siguio = false;
        const bool bien = guardia(QStringLiteral("frmPrueba"), QStringLiteral("cmd_Probar_Click"), [&] {
            lanzarError(94, QStringLiteral("Uso no válido de Null"));
            siguio = true;
        });
        QVERIFY(!bien);
        QVERIFY(!siguio);
        QCOMPARE(e.cuadros.size(), 1);
        QVERIFY(e.leerLog().contains(QStringLiteral("Procedimiento: cmd_Probar_Click")));
        QVERIFY(e.leerLog().contains(QStringLiteral("Número: 94")));
    }

    void cambiarRuta_titulosYRaiz_data()
    {
        QTest::addColumn<int>("tipo");
        QTest::addColumn<QString>("elegida");
        QTest::addColumn<QString>("resultado");
        QTest::addColumn<QString>("titulo");
        const QString s = QDir::separator();
        QTest::newRow("base de datos") << 1 << QStringLiteral("/srv/datos") << QStringLiteral("/srv/datos") + s
                                       << QStringLiteral("Por favor, seleccione el directorio en el que se encuentra la base de datos a emplear");
        QTest::newRow("excel") << 2 << QStringLiteral("/tmp/x/") << QStringLiteral("/tmp/x/")
                               << QStringLiteral("Por favor, seleccione el directorio en el que se exportarán los documentos Excel");
        QTest::newRow("pdf") << 3 << QStringLiteral("/") << QStringLiteral("/")
                             << QStringLiteral("Por favor, seleccione el directorio en el que se exportarán los documentos PDF");
        QTest::newRow("copia") << 4 << QStringLiteral("/c") << QStringLiteral("/c") + s
                               << QStringLiteral("Por favor, seleccione el directorio en el que se creará la copia de seguridad");
        QTest::newRow("documento") << 5 << QString() << QString()
                                   << QStringLiteral("Por favor, seleccione el directorio en el que se creará el documento");
        QTest::newRow("fuera de rango") << 6 << QStringLiteral("/x") << QString() << QString();
    }

    void cambiarRuta_titulosYRaiz()
    {
        QFETCH(int, tipo);
        QFETCH(QString, elegida);
        QFETCH(QString, resultado);
        QFETCH(QString, titulo);
        EntornoPrueba e;
        e.carpetas << elegida;
        QCOMPARE(cambiarRuta(nullptr, tipo), resultado);
        if (titulo.isEmpty())
            QVERIFY(e.titulosCarpeta.isEmpty());
        else
            QCOMPARE(e.titulosCarpeta, QStringList{titulo});
    }
};

QTEST_MAIN(tst_ajustes)
#include "tst_ajustes.moc"
