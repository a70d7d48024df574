// Motor de informes, conductor modInformes, listados y código de detalle.
#include "core/BaseDatos.h"
#include "reports/CodigoDetalle.h"
#include "reports/TablaImpresos.h"
#include "reports/TablasTemporales.h"
#include "reports/modInformes.h"
#include "tests/comun/EntornoPrueba.h"

#include <QProcess>
#include <QSqlQuery>
#include <QTest>

using namespace modInformes;

namespace {

const QString ESCRITURA = QStringLiteral("pruebas_escritura");

QSqlDatabase bd() { return QSqlDatabase::database(ESCRITURA, false); }

// Crea la tabla si falta y le añade las columnas que falten (las que ya hay dan error y se ignoran).
void asegurarTabla(const QString& tabla, const QStringList& columnas)
{
    QSqlQuery q(bd());
    q.exec(QStringLiteral("CREATE TABLE IF NOT EXISTS \"%1\" (\"%2\")").arg(tabla, columnas.join("\", \"")));
    for (const QString& c : columnas)
        q.exec(QStringLiteral("ALTER TABLE \"%1\" ADD COLUMN \"%2\"").arg(tabla, c));
}

void insertar(const QString& tabla, const QStringList& columnas, const QVariantList& valores)
{
    ejecutar(bd(), QStringLiteral("INSERT INTO \"%1\" (\"%2\") VALUES (%3)").arg(tabla, columnas.join("\", \""), QStringList(columnas.size(), "?").join(',')),
             valores);
}

const QStringList COLS_PERSONA = {"Codigo_Cli", "Nombre_Cli", "Ape_Cli", "NIF", "Dirección_Cli", "Municipio_Cli", "Provincia_Cli",
                                  "Tfno_Cli", "TelMovil", "Correo_Cli"};

void prepararTablas()
{
    asegurarTabla("Config", {"SocNom", "Arq1Nom"});
    asegurarTabla("Clientes", COLS_PERSONA + QStringList{"tf", "esR"});
    asegurarTabla("OTROS", COLS_PERSONA + QStringList{"Tfno_Cli1", "Categoria", "NumColegiado", "esS"});
    asegurarTabla("Proyectos_A", {"PryCod", "Trabajo", "Emplazamiento", "Municipio", "Provincia", "EXPNUM", "EXPFV", "EXPFFO", "CLINOM"});
    asegurarTabla("Costes", {"CODIGO", "TIPO", "DESCRIPCION", "CT", "CC"});
    ejecutar(bd(), QStringLiteral("DELETE FROM Config"));
}

void persona(const QString& tabla, int codigo, const QVariant& nombre, const QVariant& apellidos, const QString& categoria = {})
{
    const QVariantList v = {codigo, nombre, apellidos, QStringLiteral("1234567%1Z").arg(codigo % 10), QStringLiteral("C/ Mayor, %1").arg(codigo),
                            "Logroño", "La Rioja", QStringLiteral("941000%1").arg(codigo, 3, 10, QLatin1Char('0')), QVariant(), QVariant()};
    if (categoria.isEmpty())
        insertar(tabla, COLS_PERSONA, v);
    else
        insertar(tabla, COLS_PERSONA + QStringList{"Categoria", "NumColegiado"}, v + QVariantList{categoria, 1000 + codigo});
}

int lanzar(const QString& programa, const QStringList& args, QString* salida = nullptr)
{
    QProcess p;
    p.start(programa, args);
    p.waitForFinished(60000);
    if (salida)
        *salida = QString::fromUtf8(p.readAllStandardOutput());
    return p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
}

QString pdfTexto(const QString& pdf) { QString t; lanzar("pdftotext", {"-layout", pdf, "-"}, &t); return t; }

// Textos de todas las páginas compuestas, en orden.
QStringList textosCompuestos(DocumentoInforme& d)
{
    QStringList r;
    for (int i = 0; i < d.numeroPaginas(); ++i)
        for (const TrazoInforme& t : d.pagina(i).trazos)
            if (t.tipo == TrazoInforme::Texto)
                r << t.texto;
    return r;
}

// Comprueba que los textos aparecen en este orden.
void enOrden(const QString& texto, const QStringList& partes)
{
    qsizetype desde = 0;
    for (const QString& p : partes) {
        const qsizetype i = texto.indexOf(p, desde);
        QVERIFY2(i >= 0, qPrintable(QStringLiteral("falta o fuera de orden: ") + p));
        desde = i + p.size();
    }
}

}  // namespace

class TstInformes : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { inicializarRecursos(); }

    void init()
    {
        m_env = std::make_unique<EntornoPrueba>();
        m_env->conectar();
        BaseDatos::abrirConexion(ESCRITURA, m_env->ficheroBD());
        prepararTablas();
    }

    void cleanup()
    {
        cerrar();
        QSqlDatabase::database(ESCRITURA, false).close();
        QSqlDatabase::removeDatabase(ESCRITURA);
        m_env.reset();
    }

    // Unión de domicilios: nunca un separador suelto entre nulos o vacíos.
    void unidor_data()
    {
        QTest::addColumn<QVariantList>("campos");
        QTest::addColumn<QString>("esperado");
        const QVariant n;
        QTest::newRow("nulos y vacíos") << QVariantList{"", n, ""} << "";
        QTest::newRow("completo") << QVariantList{" C/ Real 3 ", "Haro", "La Rioja"} << "C/ Real 3 - Haro - La Rioja";
        QTest::newRow("sólo el último") << QVariantList{n, n, "Soria"} << "- Soria";
        QTest::newRow("dos: uno") << QVariantList{"Haro", n} << "Haro";
    }
    void unidor()
    {
        QFETCH(QVariantList, campos);
        QFETCH(QString, esperado);
        QCOMPARE(campos.size() == 3 ? CodigosDetalle::unirTres(campos[0], campos[1], campos[2]) : CodigosDetalle::unirDos(campos[0], campos[1]),
                 esperado);
    }

    // Los demás códigos de detalle, una vez cada uno.
    void codigosDeDetalle()
    {
        const auto b = CodigosDetalle::textosB3("Logroño, 3 de marzo de 2024 ", "1.500,00", "225,00");
        QCOMPARE(b.anio + "|" + b.importe2.toString() + "|" + b.diferencia.toString(), "2024|225,00€|1.275,00€");
        QVERIFY(CodigosDetalle::esCero(QStringLiteral("0,00")) && !CodigosDetalle::esCero(QVariant()) && !CodigosDetalle::esCero(QStringLiteral("")));
    }

    // El código de detalle actúa sobre los objetos con nombre de un diseño.
    void codigoEnDiseno()
    {
        const QByteArray xml = R"(<informe nombre="crPrueba" tipo="impreso">
  <detalle alto="100" saltoPagina="despues">
    <codigo funcion="unirTres" campos="PRYDOM,CLIMUN,CLIPRO" objeto="txtLugar"/>
    <codigo funcion="suprimirCeros" campos="N1,N2>txtN2"/>
    <codigo funcion="arquitectosCFO" lista="LISTA" campo="NOMBRE" objeto="txtArq"/>
    <texto nombre="txtLugar" x="0" y="0" ancho="100" alto="5"/>
    <campo campo="N1" x="0" y="10" ancho="20" alto="5" prefijo="N1=" formato="0"/>
    <texto nombre="txtN2" x="0" y="20" ancho="20" alto="5">segundo</texto>
    <texto nombre="txtArq" x="0" y="30" ancho="100" alto="5"/>
  </detalle>
</informe>)";
        DocumentoInforme d(leerDisenoXml(xml));
        d.asignarDatos(ConjuntoFilas({"PRYDOM", "CLIMUN", "CLIPRO", "N1", "N2", "LISTA", "NOMBRE"},
                                     {{QVariant(), "Haro", "La Rioja", 0, 0, "A, B", "Estudio"},
                                      {"C/ Real", QVariant(), QVariant(), 3, 1, "A", "Estudio"}}));
        QCOMPARE(textosCompuestos(d), (QStringList{"- Haro - La Rioja", "Estudio, Arquitectos", "C/ Real", "N1=3", "segundo",
                                                   "Estudio, Arquitecto"}));
    }

    // Un bloque compartido entra en su sitio (desplazado) con sus parámetros puestos; los
    // elementos de dentro de una subtabla no se desplazan; un bloque que no existe es un error.
    void bloquesIncluidos()
    {
        const QByteArray xml = R"(<informe nombre="crPrueba" tipo="impreso">
  <detalle alto="100">
    <incluir bloque="lugarFecha" x="10" y="50" lugar="LUGAR_A1" fecha="FECHA_A1"/>
    <texto x="0" y="0" ancho="10" alto="5">propio</texto>
  </detalle>
</informe>)";
        const auto d = leerDisenoXml(xml);
        const QList<ElementoInforme>& e = d->detalle.elementos;
        QCOMPARE(e.size(), 7);
        QCOMPARE(e[0].texto, QStringLiteral("En"));
        QCOMPARE(e[0].rect.topLeft(), QPointF(10, 50));
        QCOMPARE(e[1].campo, QStringLiteral("LUGAR_A1"));
        QCOMPARE(e[2].rect.top(), 55.6);  // la línea, con y1 desplazado
        QCOMPARE(e[4].campo, QStringLiteral("FECHA_A1"));
        QCOMPARE(e[6].texto, QStringLiteral("propio"));
        bool fallo = false;
        try {
            leerDisenoXml(R"(<informe nombre="x"><detalle alto="1"><incluir bloque="noExiste"/></detalle></informe>)", "x.xml");
        } catch (const ErrorPrograma& err) {
            fallo = err.descripcion.contains(QStringLiteral("no existe el bloque \"noExiste\""));
        }
        QVERIFY(fallo);
    }

    // Cada diseño de impreso dice de qué tabla salen sus filas, y es la que le da el conductor.
    void origenDeLosImpresos()
    {
        for (const DefinicionImpreso& d : TablaImpresos::todas())
            for (const VarianteImpreso& v : d.variantes) {
                const QString ruta = QStringLiteral(":/informes/") + v.informe + QStringLiteral(".xml");
                if (!QFile::exists(ruta))
                    continue;  // impreso aún sin diseño
                QCOMPARE(leerDiseno(ruta)->datos, TablaImpresos::origenInforme(v.codigo).tabla);
                QVERIFY(sentenciaImpreso(v.codigo).startsWith(QStringLiteral("SELECT * FROM ") + leerDiseno(ruta)->datos + QLatin1Char(' ')));
            }
    }

    // Cada listado en PDF: título, estudio, cabeceras, filas en orden español, nulos en blanco, formatos.
    void listados_data()
    {
        QTest::addColumn<QString>("informe");
        QTest::addColumn<QStringList>("esperado");
        QTest::newRow("clientes") << "crListadoClientes"
                                  << QStringList{"Estudio Peña y Asociados", "Listado de clientes", "Nombre", "Correo electrónico", "Álvaro",
                                                 "Benítez", "Íñigo", "Muñoz", "Nuno", "Nuñez", "Página 1 de 1"};
        QTest::newRow("arquitectos") << "crListadoArquitectos"
                                     << QStringList{"Estudio Peña y Asociados", "Listado de arquitectos", "Nº Col.", "Álvaro", "1002", "Muñoz", "1001"};
        QTest::newRow("aparejadores") << "crListadoAparejadores"
                                      << QStringList{"Estudio Peña y Asociados", "Listado de arquitectos técnicos", "Íñigo", "Nuño"};
        QTest::newRow("contratistas") << "crListadoContratistas"
                                      << QStringList{"Estudio Peña y Asociados", "Listado de contratistas", "Construcciones Ébano"};
        QTest::newRow("proyectos") << "crListadoProyectos"
                                   << QStringList{"Estudio Peña y Asociados", "Listado de proyectos", "Nº Exp.", "F. Visado", "F. Fin de obra",
                                                  "Ampliación", "05/03/2024", "Nave", "31/12/2023", "Vivienda en Ñora"};
        QTest::newRow("costes") << "crListadoCostesDeReferencia"
                                << QStringList{"Estudio Peña y Asociados", "Listado de costes de referencia", "Código", "Descripción", "A01",
                                               "Unifamiliar", "1.234,50", "0,80", "B02", "Almacén"};
    }
    void listados()
    {
        QFETCH(QString, informe);
        QFETCH(QStringList, esperado);
        insertar("Config", {"SocNom", "Arq1Nom"}, {"Estudio Peña y Asociados", "Ana Ruiz"});
        // Desordenados a propósito, con nulos.
        int i = 0;
        for (const auto& [n, a] : QList<std::pair<QString, QVariant>>{{"Nuno", {}}, {"Muñoz", "Gil"}, {"Álvaro", "Benítez"},
                                                                       {"Nuñez", "Sáez"}, {"Íñigo", "Ortiz"}})
            persona("Clientes", ++i, n, a);
        i = 0;
        for (const auto& [n, a, c] : QList<std::tuple<QString, QVariant, QString>>{
                 {"Muñoz", "Gil", "ARQUITECTO"}, {"Álvaro", "Benítez", "Arquitecto"}, {"Nuño", {}, "ARQUITECTO TECNICO"},
                 {"Íñigo", "Sáez", "ARQUITECTO TECNICO"}, {"Construcciones Ébano", {}, "CONSTRUCTOR"}})
            persona("OTROS", ++i, n, a, c);
        const QStringList cp = {"PryCod", "Trabajo", "Emplazamiento", "Municipio", "EXPNUM", "EXPFV", "EXPFFO", "CLINOM"};
        const QVariant x;
        insertar("Proyectos_A", cp, {1, "Vivienda en Ñora", x, "Haro", x, x, x, x});
        insertar("Proyectos_A", cp, {2, "Nave", "Polígono El Sequero", "Arrúbal", "1234", "2023-12-31", x, "Íñigo Ortiz"});
        insertar("Proyectos_A", cp, {3, "Ampliación", "C/ Mayor 1", "Logroño", "77", "2024-03-05", "2024-06-01", "Muñoz Gil"});
        const QStringList cc = {"CODIGO", "TIPO", "DESCRIPCION", "CT", "CC"};
        insertar("Costes", cc, {"B02", "Almacén", x, 1.0, x});
        insertar("Costes", cc, {"A01", "Unifamiliar", "Vivienda aislada", 1234.5, 0.8});

        QVERIFY(nuevoInforme(informe) && conectar());
        QVERIFY(informe == "crListadoClientes"       ? iniciarInforme_ListadoClientes()
                : informe == "crListadoArquitectos"  ? iniciarInforme_ListadoArquitectos()
                : informe == "crListadoAparejadores" ? iniciarInforme_ListadoAparejadores()
                : informe == "crListadoContratistas" ? iniciarInforme_ListadoContratistas()
                : informe == "crListadoProyectos"    ? iniciarInforme_ListadoProyectos()
                                                     : iniciarInforme_CostesReferencia());
        const QString pdf = m_env->directorio() + "/" + informe + ".pdf";
        QVERIFY(exportarPDF(pdf));
        const QString texto = pdfTexto(pdf);
        enOrden(texto, esperado);
        QVERIFY(!texto.contains("NULL", Qt::CaseInsensitive));
        if (informe == "crListadoArquitectos")
            QVERIFY(!texto.contains("Nuño") && !texto.contains("Ébano"));
    }

    // Lista larga: cabeceras en cada página, "Página N de M", fuentes incrustadas, PDF válido;
    // sin sociedad el nombre del estudio es el del arquitecto 1.
    void listadoLargo()
    {
        insertar("Config", {"SocNom", "Arq1Nom"}, {QVariant(), "Ana Ruiz Sáez"});
        for (int i = 1; i <= 40; ++i)
            persona("Clientes", i, QStringLiteral("Cliente %1").arg(i, 3, 10, QLatin1Char('0')), "Ñandú");
        QVERIFY(nuevoInforme("crListadoClientes") && conectar() && iniciarInforme_ListadoClientes());
        const QString pdf = m_env->directorio() + "/largo.pdf";
        QVERIFY(exportarPDF(pdf));
        const QString texto = pdfTexto(pdf);
        QCOMPARE(texto.count("Correo electrónico"), 2);
        enOrden(texto, {"Cliente 001", "Página 1 de 2", "Correo electrónico", "Cliente 040", "Página 2 de 2"});

        QString fuentes;
        QCOMPARE(lanzar("pdffonts", {pdf}, &fuentes), 0);
        const QStringList lineas = fuentes.split('\n', Qt::SkipEmptyParts).mid(2);
        QVERIFY(!lineas.isEmpty());
        for (const QString& l : lineas)  // incrustada
            QVERIFY2(l.contains("LiberationSans") && (l.contains(" yes yes ") || l.contains(" yes no ")), qPrintable(l));
        QCOMPARE(lanzar("qpdf", {"--check", pdf}), 0);
    }

    // Filtro de proyectos por fecha de visado (día mayor que 12: sin confusión día/mes).
    void filtroProyectos_data()
    {
        QTest::addColumn<QString>("operador");
        QTest::addColumn<QList<QDate>>("fechas");
        QTest::addColumn<int>("filas");
        QTest::newRow("igual") << "=" << QList<QDate>{QDate(2024, 3, 5)} << 1;
        QTest::newRow("día mayor que 12") << ">=" << QList<QDate>{QDate(2023, 12, 31)} << 2;
        QTest::newRow("entre") << "Entre" << QList<QDate>{QDate(2023, 1, 1), QDate(2024, 1, 1)} << 1;
    }
    void filtroProyectos()
    {
        QFETCH(QString, operador);
        QFETCH(QList<QDate>, fechas);
        QFETCH(int, filas);
        int n = 0;
        for (const QVariant& f : {QVariant("2023-12-31"), QVariant("2024-03-05"), QVariant()})
            insertar("Proyectos_A", {"PryCod", "EXPFV"}, {++n, f});
        QVERIFY(nuevoInforme("crListadoProyectos") && conectar());
        QVERIFY(iniciarInforme_ListadoProyectos(FiltroFecha::desdeTextos("Fecha de visado", operador, fechas.value(0), fechas.value(1))));
        QCOMPARE(Informe->datos().numero(), filas);
    }

    // conectar dos veces cierra y reabre, en sólo lectura; cerrar libera informe y conexión.
    void conexionPropia()
    {
        QVERIFY(conectar() && conectar() && conexionAbierta());
        QVERIFY(!QSqlQuery(ConexionInforme()).exec("INSERT INTO Costes (CODIGO) VALUES ('X')"));
        QVERIFY(nuevoInforme("crListadoClientes") && iniciarInforme_ListadoClientes());
        cerrar();
        QVERIFY(!Informe && !conexionAbierta());
    }

    // Subtabla repetida en cada fila principal, con ceros suprimidos.
    void subtablaRepetida()
    {
        const QByteArray xml = R"(<informe nombre="crFactura" tipo="impreso">
  <detalle alto="40" saltoPagina="despues">
    <campo campo="NUMERO" x="0" y="0" ancho="50" alto="6" prefijo="Factura "/>
    <subtabla origen="Subreport1" x="0" y="10">
      <cabecera alto="6"><texto x="0" y="0" ancho="80" alto="6">Concepto</texto></cabecera>
      <fila alto="5"><campo campo="CONCEPTO" x="0" y="0" ancho="80" alto="5"/>
        <campo campo="IMPORTE" x="80" y="0" ancho="30" alto="5" formato="#,##0.00" suprimirSiCero="true"/></fila>
    </subtabla>
  </detalle>
</informe>)";
        DocumentoInforme d(leerDisenoXml(xml));
        d.asignarDatos(ConjuntoFilas({"NUMERO"}, {{"1"}, {"2"}}));
        d.asignarDatosSubinforme("Subreport1", ConjuntoFilas({"CONCEPTO", "IMPORTE"}, {{"Proyecto", 1500.0}, {"Dirección", 0.0}}));
        QCOMPARE(d.numeroPaginas(), 2);
        QCOMPARE(textosCompuestos(d), (QStringList{"Factura 1", "Concepto", "Proyecto", "1.500,00", "Dirección",
                                                   "Factura 2", "Concepto", "Proyecto", "1.500,00", "Dirección"}));
    }

    // Impreso en blanco: tabla vacía, una página con sus textos fijos, marcas sin "X",
    // campos vacíos; los subinformes de "CDC" se cargan de sus tablas.
    void impresoEnBlanco()
    {
        for (const char* t : {"COMUNICADO_DIRECCION_Y_COORDINADOR", "DirectoresObra_Tmp", "DirectoresDeEjecucion_Tmp", "CoordinadoresSS_Tmp"}) {
            asegurarTabla(t, {"PRYDOM", "DIROBRANOM", "DIREJECNOM", "COORSSNOM", "MARCA", "Puesto"});
            ejecutar(bd(), QStringLiteral("DELETE FROM ") + t);
        }
        for (int i = 0; i < 2; ++i)
            insertar("DirectoresObra_Tmp", {"DIROBRANOM", "Puesto"}, {" ", TablasTemporales::puesto()});
        insertar("DirectoresObra_Tmp", {"DIROBRANOM", "Puesto"}, {"De otro puesto", "otro"});  // no sale
        const QByteArray xml = R"(<informe nombre="crImpresoPrueba" tipo="impreso" tamano="9">
  <detalle alto="270">
    <codigo funcion="unirTres" campos="PRYDOM,CLIMUN,CLIPRO" objeto="txtLugar"/>
    <texto x="0" y="0" ancho="190" alto="8" tamano="12" negrita="true" alineacion="centro">COMUNICADO DE DIRECCIÓN Y COORDINACIÓN</texto>
    <texto nombre="txtLugar" x="40" y="10" ancho="150" alto="5" borde="0.2"/>
    <marca campo="MARCA" x="0" y="20" ancho="4" alto="4"/>
    <subtabla origen="Subreport1" x="0" y="30">
      <cabecera alto="6"><texto x="0" y="0" ancho="100" alto="6">Directores de obra</texto></cabecera>
      <fila alto="6"><caja x="0" y="0" ancho="100" alto="6"/><campo campo="DIROBRANOM" x="1" y="0" ancho="98" alto="6"/></fila>
    </subtabla>
  </detalle>
</informe>)";
        Informe = std::make_unique<DocumentoInforme>(leerDisenoXml(xml));
        QVERIFY(conectar() && iniciarInforme_Impreso("CDC"));
        QCOMPARE(Informe->datos().numero(), 0);
        QCOMPARE(Informe->numeroPaginas(), 1);
        QList<int> tipos;  // sin "X"; cajas: borde del lugar, caja de la marca y las dos líneas en blanco
        for (const TrazoInforme& t : Informe->pagina(0).trazos)
            tipos << t.tipo;
        QVERIFY(tipos.count(TrazoInforme::Caja) == 4 && !tipos.contains(TrazoInforme::MarcaX));
        QCOMPARE(textosCompuestos(*Informe), (QStringList{"COMUNICADO DE DIRECCIÓN Y COORDINACIÓN", "Directores de obra", " ", " "}));
    }

private:
    std::unique_ptr<EntornoPrueba> m_env;
};

QTEST_MAIN(TstInformes)
#include "tst_informes.moc"
