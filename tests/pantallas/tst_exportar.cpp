// Barra de exportación de las búsquedas y filtro de fechas de los proyectos.
#include "core/Fechas.h"
#include "core/modFunciones.h"
#include "masterdata/frmConfiguracion.h"
#include "reports/TablasTemporales.h"
#include "reports/frmVisorCrystal.h"
#include "reports/VisorPaginas.h"
#include "search/AbrirBusqueda.h"
#include "search/ExportarListados.h"
#include "search/frmBuscar.h"
#include "search/frmFiltrarProyectos.h"
#include "tests/comun/EntornoPrueba.h"
#include "tests/pantallas/PruebaPantallas.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QRadioButton>
#include <QTabWidget>
#include <QtTest>

using Mensajes::Respuesta;

namespace {

QString textoPdf(const QString& fichero)
{
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), fichero, QStringLiteral("-")});
    p.waitForFinished();
    return QString::fromUtf8(p.readAllStandardOutput());
}

void proyectos()
{
    UsoConexion uso;
    const struct {
        const char* exp;
        const char* trabajo;
        const char* visado;
    } filas[] = {{"101", "Vivienda unifamiliar en Tordesillas", "2007-03-15"},
                 {"102", "Nave agrícola en Medina", "2007-11-30"},
                 {"103", "Reforma de local en León", "2008-02-13"},
                 {"104", "Ampliación de colegio en Ávila", nullptr}};
    for (const auto& f : filas)
        ejecutar(QStringLiteral("INSERT INTO Proyectos_A (EXPNUM, Trabajo, EXPFV) VALUES (?, ?, ?)"),
                 {QString::fromLatin1(f.exp), QString::fromUtf8(f.trabajo),
                  f.visado ? QVariant(QString::fromLatin1(f.visado)) : QVariant(QMetaType(QMetaType::QString))});
}

// Elige "Por fecha" con el tipo de fecha, el operador y las fechas tecleadas.
void porFecha(QWidget* f, int fecha, const QString& operador, const QString& f1, const QString& f2)
{
    f->findChild<QRadioButton*>(QStringLiteral("opt_Opcion_1"))->setChecked(true);
    f->findChild<QComboBox*>(QStringLiteral("cbo_Fecha"))->setCurrentIndex(fecha);
    auto* op = f->findChild<QComboBox*>(QStringLiteral("cbo_Operador"));
    op->setCurrentIndex(op->findText(operador));
    emit op->activated(op->currentIndex());
    QTest::keyClicks(f->findChild<QLineEdit*>(QStringLiteral("msk_Fecha_1")), f1);
    QTest::keyClicks(f->findChild<QLineEdit*>(QStringLiteral("msk_Fecha_2")), f2);
}

}  // namespace

class tst_exportar : public QObject {
    Q_OBJECT

    QStringList m_estados;
    PantallaLlamadora llamador()
    {
        PantallaLlamadora l;
        l.nombre = QStringLiteral("frmBuscar");
        l.estado = [this](const QString& t) { m_estados << t; };
        l.registros = [] { return 7; };
        return l;
    }

private slots:
    void cleanup()
    {
        for (QWidget* w : Pantallas::cargadas())
            Pantallas::descargar(w);
        procesarEventos();
        m_estados.clear();
    }

    void carpetaSinConfigurar_data()
    {
        QTest::addColumn<int>("boton");
        QTest::addColumn<QString>("mensaje");
        QTest::newRow("excel") << 2
                               << QStringLiteral("No se ha establecido el directorio en el que se exportará el documento Excel.\n"
                                                 "Por favor, selecciónelo en la pantalla de configuración e intente de nuevo la operación");
        QTest::newRow("pdf") << 3
                             << QStringLiteral("No se ha establecido el directorio en el que se exportará el documento PDF.\n"
                                               "Por favor, selecciónelo en la pantalla de configuración e intente de nuevo la operación");
    }

    void carpetaSinConfigurar()
    {
        QFETCH(int, boton);
        QFETCH(QString, mensaje);
        EntornoPrueba e;
        e.conectar();
        {
            UsoConexion uso;
            ejecutar(QStringLiteral("INSERT INTO Config (IVA, IRPF, Modulo) VALUES (16, 15, 500)"));
        }
        Exportar::pulsarBotonExportar(llamador(), QStringLiteral("CLIENTES"), boton);
        QCOMPARE(e.textos(), QStringList{mensaje});
        auto* conf = Pantallas::cargada<frmConfiguracion>();
        QVERIFY(conf);
        QCOMPARE(conf->pestanas()->currentIndex(), 1);
    }

    void pdfDeClientesYApertura_data()
    {
        QTest::addColumn<int>("resultado");
        QTest::addColumn<QString>("aviso");
        QTest::addColumn<QString>("comentario");
        QTest::newRow("abierto") << 42 << QString() << QString();
        // Sin visor el documento está hecho: el aviso dice dónde (%1), no que falló.
        QTest::newRow("sin visor") << 31
                                   << QStringLiteral("No se ha encontrado en su equipo ningún programa que abra los ficheros de tipo '*.pdf', por lo "
                                                     "que no se ha podido mostrar el documento.\n\nEl fichero está en:\n%1\n\nPuede abrirlo desde "
                                                     "esa carpeta, o copiarlo a un ordenador que tenga un programa para ese tipo de ficheros.")
                                   << QStringLiteral("Comentario: [Error 31]: Ningún programa del equipo abre los ficheros de tipo '*.pdf'; el fichero está en %1");
        QTest::newRow("no encontrado") << 2
                                       << QStringLiteral("Documento PDF no encontrado. Ha podido existir un error durante su generación\n"
                                                         "Por favor, genere otra vez el documento e inténtelo de nuevo")
                                       << QStringLiteral("Comentario: [Error 2]: Documento PDF no encontrado. Ha podido existir un error durante su generación o bien haberlo borrado");
    }

    void pdfDeClientesYApertura()
    {
        QFETCH(int, resultado);
        QFETCH(QString, aviso);
        QFETCH(QString, comentario);
        EntornoPrueba e;
        e.conectar();
        {
            UsoConexion uso;
            ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli) VALUES (1, 'Íñigo', 'Muñoz Peña')"));
        }
        escribirAjuste(QStringLiteral("EXPORTACION"), QStringLiteral("rutaPdf"), e.directorio() + QStringLiteral("/"));
        e.resultadoAbrir = resultado;
        e.respuestas << Respuesta::Si;
        Exportar::pulsarBotonExportar(llamador(), QStringLiteral("CLIENTES"), 3);
        const QString fichero = e.directorio() + QStringLiteral("/ListadoDeClientes.pdf");
        QVERIFY(textoPdf(fichero).contains(QStringLiteral("Muñoz Peña")));
        QCOMPARE(e.cuadros.value(0).texto, QStringLiteral("¿Desea abrir el documento creado?"));
        QCOMPARE(e.abiertos, QStringList{fichero});
        QCOMPARE(m_estados, (QStringList{QStringLiteral("Generando el fichero PDF..."), QStringLiteral("Número de registros hallados: 7")}));
        if (aviso.isEmpty()) {
            QCOMPARE(e.cuadros.size(), 1);
            QCOMPARE(e.entradasLog(), 0);
        } else {
            QCOMPARE(e.cuadros.size(), 2);
            const QString nativo = QDir::toNativeSeparators(QFileInfo(fichero).absoluteFilePath());
            QCOMPARE(e.cuadros[1].texto, aviso.contains(QLatin1String("%1")) ? aviso.arg(nativo) : aviso);
            QVERIFY(e.leerLog().contains(comentario.contains(QLatin1String("%1")) ? comentario.arg(nativo) : comentario));
            QVERIFY(textoPdf(fichero).contains(QStringLiteral("Muñoz Peña")));
            QVERIFY(e.leerLog().contains(QStringLiteral("Procedimiento: exportarListadoPDF")));
        }
    }

    void validacionDelFiltro_data()
    {
        QTest::addColumn<int>("fecha");
        QTest::addColumn<QString>("operador");
        QTest::addColumn<QString>("f1");
        QTest::addColumn<QString>("f2");
        QTest::addColumn<QString>("mensaje");
        QTest::newRow("sin tipo de fecha") << -1 << QString() << QString() << QString()
                                           << QStringLiteral("Por favor, seleccione el tipo de fecha por la que filtrar");
        QTest::newRow("sin operador") << 0 << QString() << QString() << QString()
                                      << QStringLiteral("Por favor, seleccione un operador de la lista");
        QTest::newRow("sin primera fecha") << 0 << QStringLiteral("=") << QString() << QString()
                                           << QStringLiteral("Por favor, proporcione el valor de la primera fecha");
        QTest::newRow("primera fecha mala") << 0 << QStringLiteral("=") << QStringLiteral("31022008") << QString()
                                            << QStringLiteral("El día del mes no es válido. Inserte un día entre 1 y 29");
        QTest::newRow("sin segunda fecha") << 1 << QStringLiteral("Entre") << QStringLiteral("01012008") << QString()
                                           << QStringLiteral("Por favor, proporcione el valor de la segunda fecha");
        QTest::newRow("fechas iguales") << 1 << QStringLiteral("Entre") << QStringLiteral("01012008") << QStringLiteral("01012008")
                                        << QStringLiteral("La primera fecha ha de ser menor que la segunda.\nPor favor, cambie el valor proporcionado");
    }

    void validacionDelFiltro()
    {
        QFETCH(int, fecha);
        QFETCH(QString, operador);
        QFETCH(QString, f1);
        QFETCH(QString, f2);
        QFETCH(QString, mensaje);
        EntornoPrueba e;
        e.conectar();
        auto* f = frmFiltrarProyectos::abrir(1, llamador());
        porFecha(f, fecha, operador, f1, f2);
        f->cmd_Ver_Click();
        QCOMPARE(e.textos(), QStringList{mensaje});
        QVERIFY(Pantallas::cargada<frmFiltrarProyectos>());  // se queda abierta
        QVERIFY(!Pantallas::cargada<frmVisorCrystal>());
    }

    void filtroDeFechasEnElPdf_data()
    {
        QTest::addColumn<QString>("operador");
        QTest::addColumn<QString>("f1");
        QTest::addColumn<QString>("f2");
        QTest::addColumn<QStringList>("estan");
        QTest::addColumn<QStringList>("noEstan");
        const QString t = QStringLiteral("Tordesillas"), m = QStringLiteral("Medina"), l = QStringLiteral("León"), a = QStringLiteral("Ávila");
        QTest::newRow("todos") << QString() << QString() << QString() << QStringList{t, m, l, a} << QStringList{};
        QTest::newRow("igual, día mayor que 12") << QStringLiteral("=") << QStringLiteral("30112007") << QString() << QStringList{m}
                                                 << QStringList{t, l, a};
        QTest::newRow("entre") << QStringLiteral("Entre") << QStringLiteral("01032007") << QStringLiteral("31122007") << QStringList{t, m}
                               << QStringList{l, a};
    }

    void filtroDeFechasEnElPdf()
    {
        QFETCH(QString, operador);
        QFETCH(QString, f1);
        QFETCH(QString, f2);
        QFETCH(QStringList, estan);
        QFETCH(QStringList, noEstan);
        EntornoPrueba e;
        e.conectar();
        proyectos();
        escribirAjuste(QStringLiteral("EXPORTACION"), QStringLiteral("rutaPdf"), e.directorio() + QStringLiteral("/"));
        e.respuestas << Respuesta::No;
        auto* f = frmFiltrarProyectos::abrir(3, llamador());
        if (!operador.isEmpty())
            porFecha(f, 0, operador, f1, f2);
        f->cmd_Ver_Click();
        QCOMPARE(e.textos(), QStringList{QStringLiteral("¿Desea abrir el documento creado?")});
        const QString texto = textoPdf(e.directorio() + QStringLiteral("/ListadoDeProyectos.pdf"));
        for (const QString& s : estan)
            QVERIFY2(texto.contains(s), qPrintable(s));
        for (const QString& s : noEstan)
            QVERIFY2(!texto.contains(s), qPrintable(s));
        QCOMPARE(m_estados.last(), QStringLiteral("Número de registros hallados: 7"));
        procesarEventos();
        QVERIFY(!Pantallas::cargada<frmFiltrarProyectos>());
    }

    // Un listado largo: la vista previa dibuja sólo lo que se ve, cuenta todas las páginas, va a la
    // última, y el PDF las da todas.
    void vistaPreviaDeUnListadoLargo()
    {
        EntornoPrueba e;
        e.conectar();
        {
            UsoConexion uso;
            for (int i = 1; i <= 400; ++i)
                ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli) VALUES (?, ?, ?)"),
                         {i, QStringLiteral("Cliente %1").arg(i), QStringLiteral("Núñez")});
        }
        Exportar::pulsarBotonExportar(llamador(), QStringLiteral("CLIENTES"), 1);
        auto* visor = Pantallas::cargada<frmVisorCrystal>();
        QVERIFY(visor);
        VisorPaginas* paginas = visor->visor();
        paginas->resize(900, 700);
        paginas->viewport()->grab();
        const int n = visor->numeroPaginas();
        QVERIFY(n > 5);
        QVERIFY2(paginas->paginasDibujadas() <= 2, qPrintable(QString::number(paginas->paginasDibujadas())));
        visor->irAPagina(n);
        QCOMPARE(visor->paginaActual(), n);
        QVERIFY(visor->findChild<QLabel*>(QStringLiteral("lbl_Pagina"))->text() == QStringLiteral("Página %1 de %1").arg(n));
        const QString pdf = e.directorio() + QStringLiteral("/largo.pdf");
        QVERIFY(visor->guardarPDF(pdf));
        QCOMPARE(int(textoPdf(pdf).count(QLatin1Char('\f'))), n);
        QVERIFY(e.cuadros.isEmpty());
    }

    // El cuarto botón de la lista de un impreso: el informe sobre su tabla temporal vacía.
    void impresoEnBlanco()
    {
        EntornoPrueba e;
        e.conectar();
        {
            UsoConexion uso;
            TablasTemporales::insertar(QStringLiteral("A1B2"), {{QStringLiteral("PRYNOM"), QStringLiteral("de la vista anterior")}});
        }
        abrirBusqueda(QStringLiteral("DATOSA1B2"), QStringLiteral("A1"), QStringLiteral("Impresos"));
        frmBuscar* b = Pantallas::cargada<frmBuscar>();
        QVERIFY(b);
        b->tlb_BotoneraExportar_ButtonClick(4);
        auto* visor = Pantallas::cargada<frmVisorCrystal>();
        QVERIFY(visor);
        QCOMPARE(visor->windowTitle(), QStringLiteral("Comunicación de encargo profesional"));
        QVERIFY(visor->numeroPaginas() >= 1);
        UsoConexion uso;
        QCOMPARE(escalar(QStringLiteral("SELECT count(*) FROM A1B2")).toInt(), 0);
        QVERIFY(e.cuadros.isEmpty());
    }
};

PRUEBA_PANTALLAS(tst_exportar)
#include "tst_exportar.moc"
