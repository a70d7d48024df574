// Motor de informes, conductor modInformes, listados, código de detalle y visor.
#include "core/BaseDatos.h"
#include "reports/CodigoDetalle.h"
#include "reports/FormatoInforme.h"
#include "reports/frmVisorCrystal.h"
#include "reports/modInformes.h"
#include "tests/comun/EntornoPrueba.h"

#include <QFile>
#include <QPrinter>
#include <QLabel>
#include <QToolButton>
#include <QPrintPreviewWidget>
#include <QProcess>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

using namespace modInformes;

namespace {

const QString ESCRITURA = QStringLiteral("pruebas_escritura");

QSqlDatabase bd() { return QSqlDatabase::database(ESCRITURA, false); }

// Crea la tabla si falta, o le añade las columnas que falten (el esquema entregado puede crecer).
void asegurarTabla(const QString& tabla, const QStringList& columnas)
{
    QSqlQuery q(bd());
    q.exec(QStringLiteral("PRAGMA table_info(\"%1\")").arg(tabla));
    QStringList hay;
    while (q.next())
        hay << q.value(1).toString().toLower();
    if (hay.isEmpty()) {
        QStringList defs;
        for (const QString& c : columnas)
            defs << QLatin1Char('"') + c + QLatin1Char('"');
        ejecutar(bd(), QStringLiteral("CREATE TABLE \"%1\" (%2)").arg(tabla, defs.join(QStringLiteral(", "))));
        return;
    }
    for (const QString& c : columnas)
        if (!hay.contains(c.toLower()))
            ejecutar(bd(), QStringLiteral("ALTER TABLE \"%1\" ADD COLUMN \"%2\"").arg(tabla, c));
}

void insertar(const QString& tabla, const QStringList& columnas, const QVariantList& valores)
{
    QStringList c, m;
    for (const QString& x : columnas) {
        c << QLatin1Char('"') + x + QLatin1Char('"');
        m << QStringLiteral("?");
    }
    ejecutar(bd(), QStringLiteral("INSERT INTO \"%1\" (%2) VALUES (%3)").arg(tabla, c.join(','), m.join(',')), valores);
}

const QStringList COLS_PERSONA = {QStringLiteral("Codigo_Cli"), QStringLiteral("Nombre_Cli"), QStringLiteral("Ape_Cli"),
                                  QStringLiteral("NIF"), QStringLiteral("Dirección_Cli"), QStringLiteral("Municipio_Cli"),
                                  QStringLiteral("Provincia_Cli"), QStringLiteral("Tfno_Cli"), QStringLiteral("TelMovil"),
                                  QStringLiteral("Correo_Cli")};

void prepararTablas()
{
    asegurarTabla(QStringLiteral("Config"), {QStringLiteral("SocNom"), QStringLiteral("Arq1Nom")});
    asegurarTabla(QStringLiteral("Clientes"), COLS_PERSONA + QStringList{QStringLiteral("tf"), QStringLiteral("esR")});
    asegurarTabla(QStringLiteral("OTROS"), COLS_PERSONA + QStringList{QStringLiteral("Tfno_Cli1"), QStringLiteral("Categoria"),
                                                                      QStringLiteral("NumColegiado"), QStringLiteral("esS")});
    asegurarTabla(QStringLiteral("Proyectos_A"),
                  {QStringLiteral("PryCod"), QStringLiteral("Trabajo"), QStringLiteral("Emplazamiento"), QStringLiteral("Municipio"),
                   QStringLiteral("Provincia"), QStringLiteral("EXPNUM"), QStringLiteral("EXPFV"), QStringLiteral("EXPFFO"),
                   QStringLiteral("CLINOM")});
    asegurarTabla(QStringLiteral("Costes"), {QStringLiteral("CODIGO"), QStringLiteral("TIPO"), QStringLiteral("DESCRIPCION"),
                                             QStringLiteral("CT"), QStringLiteral("CC")});
    ejecutar(bd(), QStringLiteral("DELETE FROM Config"));
}

void persona(const QString& tabla, int codigo, const QVariant& nombre, const QVariant& apellidos, const QString& categoria = {})
{
    QStringList c = COLS_PERSONA;
    QVariantList v = {codigo, nombre, apellidos, QStringLiteral("1234567%1Z").arg(codigo % 10), QStringLiteral("C/ Mayor, %1").arg(codigo),
                      QStringLiteral("Logroño"), QStringLiteral("La Rioja"), QStringLiteral("941000%1").arg(codigo, 3, 10, QLatin1Char('0')),
                      QVariant(), QVariant()};
    if (!categoria.isEmpty()) {
        c << QStringLiteral("Categoria") << QStringLiteral("NumColegiado");
        v << categoria << 1000 + codigo;
    }
    insertar(tabla, c, v);
}

QString pdfTexto(const QString& pdf)
{
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    p.waitForFinished(30000);
    return QString::fromUtf8(p.readAllStandardOutput());
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
        Pantallas::descargar<frmVisorCrystal>();
        procesarEventos();
        cerrar();
        QSqlDatabase::database(ESCRITURA, false).close();
        QSqlDatabase::removeDatabase(ESCRITURA);
        m_env.reset();
    }

    void formatos_data()
    {
        QTest::addColumn<QVariant>("valor");
        QTest::addColumn<QString>("patron");
        QTest::addColumn<QString>("esperado");
        QTest::newRow("miles siempre") << QVariant(1000.0) << "#,##0.00" << "1.000,00";
        QTest::newRow("mitad arriba 1,005") << QVariant(1.005) << "#,##0.00" << "1,01";
        QTest::newRow("negativo") << QVariant(-1234.5) << "#,##0.00" << "-1.234,50";
        QTest::newRow("acarreo") << QVariant(999.995) << "#,##0.00" << "1.000,00";
        QTest::newRow("texto del programa") << QVariant(QStringLiteral("1.234,5")) << "#,##0.00" << "1.234,50";
        QTest::newRow("nulo") << QVariant() << "#,##0.00" << "";
        QTest::newRow("fecha ISO") << QVariant(QStringLiteral("2024-03-05")) << "dd/mm/yyyy" << "05/03/2024";
    }
    void formatos()
    {
        QFETCH(QVariant, valor);
        QFETCH(QString, patron);
        QFETCH(QString, esperado);
        QCOMPARE(FormatoInforme::valor(valor, patron), esperado);
    }

    void unidor_data()
    {
        QTest::addColumn<QVariantList>("campos");
        QTest::addColumn<QString>("esperado");
        const QVariant n;
        const QVariant v(QStringLiteral(""));
        QTest::newRow("tres nulos (impreso en blanco)") << QVariantList{n, n, n} << "";
        QTest::newRow("dos vacíos y un nulo") << QVariantList{v, n, v} << "";
        QTest::newRow("completo") << QVariantList{QStringLiteral(" C/ Real 3 "), QStringLiteral("Haro"), QStringLiteral("La Rioja")}
                                  << "C/ Real 3 - Haro - La Rioja";
        QTest::newRow("primero nulo") << QVariantList{n, QStringLiteral("Haro"), QStringLiteral("La Rioja")} << "- Haro - La Rioja";
        QTest::newRow("sólo el último") << QVariantList{n, n, QStringLiteral("Soria")} << "- Soria";
        QTest::newRow("dos: uno") << QVariantList{QStringLiteral("Haro"), n} << "Haro";
        QTest::newRow("dos: completo") << QVariantList{QStringLiteral("Haro"), QStringLiteral("La Rioja")} << "Haro - La Rioja";
    }
    void unidor()
    {
        QFETCH(QVariantList, campos);
        QFETCH(QString, esperado);
        const QString r = campos.size() == 3 ? CodigosDetalle::unirTres(campos[0], campos[1], campos[2])
                                             : CodigosDetalle::unirDos(campos[0], campos[1]);
        QCOMPARE(r, esperado);
    }

    void codigosDeDetalle()
    {
        using namespace CodigosDetalle;
        // Certificado final de obra: singular, plural, sin lista.
        QCOMPARE(textoArquitectosCFO(QStringLiteral("Ana Ruiz"), QStringLiteral("Estudio")).toString(), QStringLiteral("Estudio, Arquitecto"));
        QCOMPARE(textoArquitectosCFO(QStringLiteral("Ana Ruiz, Luis Peña"), QStringLiteral("Estudio")).toString(),
                 QStringLiteral("Estudio, Arquitectos"));
        QVERIFY(textoArquitectosCFO(QStringLiteral("   "), QStringLiteral("Estudio")).isNull());
        // B3: año de la fecha del pie, importes con "€" y su diferencia.
        TextosB3 b = textosB3(QStringLiteral("Logroño, 3 de marzo de 2024 "), QStringLiteral("1.500,00"), QStringLiteral("225,00"));
        QCOMPARE(b.anio, QStringLiteral("2024"));
        QCOMPARE(b.importe2.toString(), QStringLiteral("225,00€"));
        QCOMPARE(b.diferencia.toString(), QStringLiteral("1.275,00€"));
        // Cero exacto: un nulo o un vacío no lo son.
        QVERIFY(esCero(0) && esCero(0.0) && esCero(QStringLiteral("0,00")));
        QVERIFY(!esCero(QVariant()) && !esCero(QStringLiteral("")) && !esCero(0.001));
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
    <marca campo="MARCA" x="0" y="40" ancho="4" alto="4"/>
  </detalle>
</informe>)";
        DocumentoInforme d(leerDisenoXml(xml));
        d.asignarDatos(ConjuntoFilas({"PRYDOM", "CLIMUN", "CLIPRO", "N1", "N2", "LISTA", "NOMBRE", "MARCA"},
                                     {{QVariant(), "Haro", "La Rioja", 0, 0, "A, B", "Estudio", "X"},
                                      {"C/ Real", QVariant(), QVariant(), 3, 1, "A", "Estudio", ""}}));
        QCOMPARE(d.numeroPaginas(), 2);
        QCOMPARE(textosCompuestos(d), (QStringList{"- Haro - La Rioja", "Estudio, Arquitectos", "C/ Real", "N1=3", "segundo",
                                                   "Estudio, Arquitecto"}));
        QVERIFY_THROWS_EXCEPTION(ErrorPrograma, leerDisenoXml(R"(<informe><detalle><codigo funcion="noExiste"/></detalle></informe>)"));
    }

    // Cada listado en PDF: título, cabeceras, filas en orden español, nulos en blanco, formatos.
    void listados_data()
    {
        QTest::addColumn<QString>("informe");
        QTest::addColumn<QStringList>("esperado");
        QTest::newRow("clientes") << "crListadoClientes"
                                  << QStringList{"Estudio Peña y Asociados", "Listado de clientes", "Nombre", "Apellidos", "NIF", "Dirección",
                                                 "Municipio", "Provincia", "Teléfonos", "Correo electrónico", "Álvaro",
                                                 "Benítez", "Íñigo", "Muñoz", "Nuno", "Nuñez", "Página 1 de 1"};
        QTest::newRow("arquitectos") << "crListadoArquitectos"
                                     << QStringList{"Listado de arquitectos", "Nº Col.", "Álvaro", "1002", "Muñoz", "1001", "Página 1 de 1"};
        QTest::newRow("aparejadores") << "crListadoAparejadores"
                                      << QStringList{"Listado de arquitectos técnicos", "Íñigo", "Nuño", "Página 1 de 1"};
        QTest::newRow("contratistas") << "crListadoContratistas"
                                      << QStringList{"Listado de contratistas", "Construcciones Ébano", "Página 1 de 1"};
        QTest::newRow("proyectos") << "crListadoProyectos"
                                   << QStringList{"Listado de proyectos", "Nº Exp.", "Trabajo", "Emplazamiento", "Cliente", "F. Visado",
                                                  "F. Fin de obra", "Ampliación", "05/03/2024", "Nave", "31/12/2023", "Vivienda en Ñora",
                                                  "Página 1 de 1"};
        QTest::newRow("costes") << "crListadoCostesDeReferencia"
                                << QStringList{"Listado de costes de referencia", "Código", "Tipo", "Descripción", "Ct", "Cc", "A01",
                                               "Unifamiliar", "1.234,50", "0,80", "B02", "Almacén", "Página 1 de 1"};
    }
    void listados()
    {
        QFETCH(QString, informe);
        QFETCH(QStringList, esperado);
        insertar(QStringLiteral("Config"), {QStringLiteral("SocNom"), QStringLiteral("Arq1Nom")},
                 {QStringLiteral("Estudio Peña y Asociados"), QStringLiteral("Ana Ruiz")});
        // Desordenados a propósito, con nulos.
        persona(QStringLiteral("Clientes"), 1, QStringLiteral("Nuno"), QVariant());
        persona(QStringLiteral("Clientes"), 2, QStringLiteral("Muñoz"), QStringLiteral("Gil"));
        persona(QStringLiteral("Clientes"), 3, QStringLiteral("Álvaro"), QStringLiteral("Benítez"));
        persona(QStringLiteral("Clientes"), 4, QStringLiteral("Nuñez"), QStringLiteral("Sáez"));
        persona(QStringLiteral("Clientes"), 5, QStringLiteral("Íñigo"), QStringLiteral("Ortiz"));
        persona(QStringLiteral("OTROS"), 1, QStringLiteral("Muñoz"), QStringLiteral("Gil"), QStringLiteral("ARQUITECTO"));
        persona(QStringLiteral("OTROS"), 2, QStringLiteral("Álvaro"), QStringLiteral("Benítez"), QStringLiteral("Arquitecto"));
        persona(QStringLiteral("OTROS"), 3, QStringLiteral("Nuño"), QVariant(), QStringLiteral("ARQUITECTO TECNICO"));
        persona(QStringLiteral("OTROS"), 4, QStringLiteral("Íñigo"), QStringLiteral("Sáez"), QStringLiteral("ARQUITECTO TECNICO"));
        persona(QStringLiteral("OTROS"), 5, QStringLiteral("Construcciones Ébano"), QVariant(), QStringLiteral("CONSTRUCTOR"));
        const QStringList cp = {QStringLiteral("PryCod"), QStringLiteral("Trabajo"), QStringLiteral("Emplazamiento"), QStringLiteral("Municipio"),
                                QStringLiteral("Provincia"), QStringLiteral("EXPNUM"), QStringLiteral("EXPFV"), QStringLiteral("EXPFFO"),
                                QStringLiteral("CLINOM")};
        insertar(QStringLiteral("Proyectos_A"), cp, {1, QStringLiteral("Vivienda en Ñora"), QVariant(), QStringLiteral("Haro"), QStringLiteral("La Rioja"),
                                                     QVariant(), QVariant(), QVariant(), QVariant()});
        insertar(QStringLiteral("Proyectos_A"), cp, {2, QStringLiteral("Nave"), QStringLiteral("Polígono El Sequero"), QStringLiteral("Arrúbal"),
                                                     QStringLiteral("La Rioja"), QStringLiteral("1234"), QStringLiteral("2023-12-31"), QVariant(),
                                                     QStringLiteral("Íñigo Ortiz")});
        insertar(QStringLiteral("Proyectos_A"), cp, {3, QStringLiteral("Ampliación"), QStringLiteral("C/ Mayor 1"), QStringLiteral("Logroño"),
                                                     QStringLiteral("La Rioja"), QStringLiteral("77"), QStringLiteral("2024-03-05"), QStringLiteral("2024-06-01"),
                                                     QStringLiteral("Muñoz Gil")});
        const QStringList cc = {QStringLiteral("CODIGO"), QStringLiteral("TIPO"), QStringLiteral("DESCRIPCION"), QStringLiteral("CT"), QStringLiteral("CC")};
        insertar(QStringLiteral("Costes"), cc, {QStringLiteral("B02"), QStringLiteral("Almacén"), QVariant(), 1.0, QVariant()});
        insertar(QStringLiteral("Costes"), cc, {QStringLiteral("A01"), QStringLiteral("Unifamiliar"), QStringLiteral("Vivienda aislada"), 1234.5, 0.8});

        QVERIFY(nuevoInforme(informe));
        QVERIFY(conectar());
        bool ok = false;
        if (informe == QLatin1String("crListadoClientes"))
            ok = iniciarInforme_ListadoClientes();
        else if (informe == QLatin1String("crListadoArquitectos"))
            ok = iniciarInforme_ListadoArquitectos();
        else if (informe == QLatin1String("crListadoAparejadores"))
            ok = iniciarInforme_ListadoAparejadores();
        else if (informe == QLatin1String("crListadoContratistas"))
            ok = iniciarInforme_ListadoContratistas();
        else if (informe == QLatin1String("crListadoProyectos"))
            ok = iniciarInforme_ListadoProyectos();
        else
            ok = iniciarInforme_CostesReferencia();
        QVERIFY(ok);
        const QString pdf = m_env->directorio() + QStringLiteral("/") + informe + QStringLiteral(".pdf");
        QVERIFY(exportarPDF(pdf));
        const QString texto = pdfTexto(pdf);
        enOrden(texto, esperado);
        QVERIFY(texto.contains(QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy"))));
        QVERIFY(!texto.contains(QStringLiteral("NULL"), Qt::CaseInsensitive));
        if (informe == QLatin1String("crListadoArquitectos"))
            QVERIFY(!texto.contains(QStringLiteral("Nuño")) && !texto.contains(QStringLiteral("Ébano")));
        QCOMPARE(m_env->entradasLog(), 0);
    }

    // Lista larga: cabeceras en cada página, "Página N de M", fuentes incrustadas, PDF válido;
    // sin sociedad el nombre del estudio es el del arquitecto 1.
    void listadoLargo()
    {
        insertar(QStringLiteral("Config"), {QStringLiteral("SocNom"), QStringLiteral("Arq1Nom")}, {QVariant(), QStringLiteral("Ana Ruiz Sáez")});
        for (int i = 1; i <= 40; ++i)
            persona(QStringLiteral("Clientes"), i, QStringLiteral("Cliente %1").arg(i, 3, 10, QLatin1Char('0')), QStringLiteral("Ñandú"));
        QVERIFY(nuevoInforme(QStringLiteral("crListadoClientes")));
        QVERIFY(conectar());
        QVERIFY(iniciarInforme_ListadoClientes());
        QCOMPARE(Informe->numeroPaginas(), 2);
        const QString pdf = m_env->directorio() + QStringLiteral("/largo.pdf");
        QVERIFY(exportarPDF(pdf));
        const QString texto = pdfTexto(pdf);
        QCOMPARE(texto.count(QStringLiteral("Correo electrónico")), 2);
        QCOMPARE(texto.count(QStringLiteral("Ana Ruiz Sáez")), 2);
        QCOMPARE(texto.count(QStringLiteral("Listado de clientes")), 3);  // título y pie de cada página
        enOrden(texto, {QStringLiteral("Cliente 001"), QStringLiteral("Página 1 de 2"), QStringLiteral("Correo electrónico"),
                        QStringLiteral("Cliente 040"), QStringLiteral("Página 2 de 2")});

        QString fuentes;
        QCOMPARE(lanzar(QStringLiteral("pdffonts"), {pdf}, &fuentes), 0);
        const QStringList lineas = fuentes.split(QLatin1Char('\n'), Qt::SkipEmptyParts).mid(2);
        QVERIFY(!lineas.isEmpty());
        for (const QString& l : lineas) {
            QVERIFY2(l.contains(QStringLiteral("LiberationSans")), qPrintable(l));
            QVERIFY2(l.contains(QStringLiteral(" yes yes ")) || l.contains(QStringLiteral(" yes no ")), qPrintable(l));  // incrustada
        }
        QCOMPARE(lanzar(QStringLiteral("qpdf"), {QStringLiteral("--check"), pdf}), 0);
    }

    // Filtro estructurado de proyectos: campo, operador y fechas enlazadas.
    void filtroProyectos_data()
    {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QString>("operador");
        QTest::addColumn<QDate>("f1");
        QTest::addColumn<QDate>("f2");
        QTest::addColumn<int>("filas");
        QTest::newRow("todos") << "" << "" << QDate() << QDate() << 3;
        QTest::newRow("igual") << "Fecha de visado" << "=" << QDate(2024, 3, 5) << QDate() << 1;
        QTest::newRow("día mayor que 12") << "Fecha de visado" << ">=" << QDate(2023, 12, 31) << QDate() << 2;
        QTest::newRow("entre") << "Fecha de visado" << "Entre" << QDate(2023, 1, 1) << QDate(2024, 1, 1) << 1;
        QTest::newRow("fin de obra") << "Fecha fin de obra" << ">" << QDate(2020, 1, 1) << QDate() << 1;
    }
    void filtroProyectos()
    {
        QFETCH(QString, tipo);
        QFETCH(QString, operador);
        QFETCH(QDate, f1);
        QFETCH(QDate, f2);
        QFETCH(int, filas);
        const QStringList c = {QStringLiteral("PryCod"), QStringLiteral("Trabajo"), QStringLiteral("EXPFV"), QStringLiteral("EXPFFO")};
        insertar(QStringLiteral("Proyectos_A"), c, {1, QStringLiteral("A"), QStringLiteral("2023-12-31"), QVariant()});
        insertar(QStringLiteral("Proyectos_A"), c, {2, QStringLiteral("B"), QStringLiteral("2024-03-05"), QStringLiteral("2024-06-01")});
        insertar(QStringLiteral("Proyectos_A"), c, {3, QStringLiteral("C' o \"D\""), QVariant(), QVariant()});
        const FiltroFecha filtro = tipo.isEmpty() ? FiltroFecha() : FiltroFecha::desdeTextos(tipo, operador, f1, f2);
        QVERIFY(nuevoInforme(QStringLiteral("crListadoProyectos")));
        QVERIFY(conectar());
        QVERIFY(iniciarInforme_ListadoProyectos(filtro));
        QCOMPARE(Informe->datos().numero(), filas);
    }

    // Un filtro de listado con un nombre de campo que no es un nombre se rechaza y se anota.
    void filtroListadoNoValido()
    {
        QVERIFY(nuevoInforme(QStringLiteral("crListadoArquitectos")));
        QVERIFY(conectar());
        QVERIFY(iniciarInforme_ListadoArquitectos({QStringLiteral("NIF"), QStringLiteral("LIKE"), {QStringLiteral("%Z")}}));
        QVERIFY(!iniciarInforme_ListadoArquitectos({QStringLiteral("1=1; DROP TABLE OTROS; --"), QStringLiteral("="), {1}}));
        QCOMPARE(m_env->entradasLog(), 1);
    }

    // conectar dos veces cierra y reabre; la conexión es de sólo lectura y ve sólo lo confirmado;
    // cerrar libera informe y conexión.
    void conexionPropia()
    {
        QVERIFY(conectar());
        QVERIFY(conectar());
        QVERIFY(conexionAbierta());
        QSqlQuery q(ConexionInforme());
        QVERIFY(!q.exec(QStringLiteral("INSERT INTO Costes (CODIGO) VALUES ('X')")));

        persona(QStringLiteral("Clientes"), 1, QStringLiteral("Confirmado"), QVariant());
        ejecutar(bd(), QStringLiteral("BEGIN"));
        persona(QStringLiteral("Clientes"), 2, QStringLiteral("Pendiente"), QVariant());
        QVERIFY(nuevoInforme(QStringLiteral("crListadoClientes")));
        QVERIFY(iniciarInforme_ListadoClientes());
        QCOMPARE(Informe->datos().numero(), 1);
        ejecutar(bd(), QStringLiteral("ROLLBACK"));

        cerrar();
        QVERIFY(!Informe);
        QVERIFY(!conexionAbierta());
        // Sin conexión ni informe, las operaciones fallan al registro sin mensaje.
        QVERIFY(!iniciarInforme_ListadoClientes());
        QVERIFY(!exportarPDF(m_env->directorio() + QStringLiteral("/nada.pdf")));
        QVERIFY(!nuevoInforme(QStringLiteral("crNoExiste")));
        QCOMPARE(m_env->entradasLog(), 3);
        QVERIFY(m_env->cuadros.isEmpty());
    }

    // Subtabla repetida en cada fila principal; una larga pasa de página con su cabecera.
    void subtablaRepetida()
    {
        const QByteArray xml = R"(<informe nombre="crFactura" tipo="impreso">
  <pagina margenes="10 10 10 10"/>
  <piePagina alto="6"><numeroPagina x="0" y="0" ancho="50" alto="5"/></piePagina>
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
        d.asignarDatosSubinforme(QStringLiteral("Subreport1"),
                                 ConjuntoFilas({"CONCEPTO", "IMPORTE"}, {{"Proyecto", 1500.0}, {"Dirección", 0.0}, {"Visado", 75.5}}));
        QCOMPARE(d.numeroPaginas(), 2);
        QCOMPARE(textosCompuestos(d), (QStringList{"Factura 1", "Concepto", "Proyecto", "1.500,00", "Dirección", "Visado", "75,50",
                                                   "Factura 2", "Concepto", "Proyecto", "1.500,00", "Dirección", "Visado", "75,50"}));

        QList<QVariantList> muchas;
        for (int i = 1; i <= 70; ++i)
            muchas << QVariantList{QStringLiteral("Línea %1").arg(i), i};
        d.asignarDatos(ConjuntoFilas({"NUMERO"}, {{"9"}}));
        d.asignarDatosSubinforme(QStringLiteral("Subreport1"), ConjuntoFilas({"CONCEPTO", "IMPORTE"}, muchas));
        QCOMPARE(d.numeroPaginas(), 2);
        const QString pdf = m_env->directorio() + QStringLiteral("/factura.pdf");
        d.exportarPDF(pdf);
        const QString texto = pdfTexto(pdf);
        QCOMPARE(texto.count(QStringLiteral("Concepto")), 2);
        enOrden(texto, {QStringLiteral("Factura 9"), QStringLiteral("Línea 1 "), QStringLiteral("Página 1 de 2"), QStringLiteral("Concepto"),
                        QStringLiteral("Línea 70"), QStringLiteral("Página 2 de 2")});
    }

    // Impreso en blanco: tabla vacía, una página con sus textos fijos, marcas sin "X",
    // campos vacíos; los subinformes de "CDC" se cargan de sus tablas.
    void impresoEnBlanco()
    {
        for (const QString& t : {QStringLiteral("COMUNICADO_DIRECCION_Y_COORDINADOR"), QStringLiteral("DirectoresObra_Tmp"),
                                 QStringLiteral("DirectoresDeEjecucion_Tmp"), QStringLiteral("CoordinadoresSS_Tmp")})
            asegurarTabla(t, {QStringLiteral("PRYDOM"), QStringLiteral("DIROBRANOM"), QStringLiteral("DIREJECNOM"), QStringLiteral("COORSSNOM"),
                              QStringLiteral("MARCA")});
        for (const QString& t : {QStringLiteral("COMUNICADO_DIRECCION_Y_COORDINADOR"), QStringLiteral("DirectoresObra_Tmp"),
                                 QStringLiteral("DirectoresDeEjecucion_Tmp"), QStringLiteral("CoordinadoresSS_Tmp")})
            ejecutar(bd(), QStringLiteral("DELETE FROM ") + t);
        for (int i = 0; i < 2; ++i)
            insertar(QStringLiteral("DirectoresObra_Tmp"), {QStringLiteral("DIROBRANOM")}, {QStringLiteral(" ")});
        const QByteArray xml = R"(<informe nombre="crImpresoPrueba" tipo="impreso" tamano="9">
  <detalle alto="270">
    <codigo funcion="unirTres" campos="PRYDOM,CLIMUN,CLIPRO" objeto="txtLugar"/>
    <texto x="0" y="0" ancho="190" alto="8" tamano="12" negrita="true" alineacion="centro">COMUNICADO DE DIRECCIÓN Y COORDINACIÓN</texto>
    <texto x="0" y="10" ancho="40" alto="5">Emplazamiento:</texto>
    <texto nombre="txtLugar" x="40" y="10" ancho="150" alto="5" borde="0.2"/>
    <marca campo="MARCA" x="0" y="20" ancho="4" alto="4"/>
    <texto x="6" y="20" ancho="100" alto="4">Dirección de obra</texto>
    <subtabla origen="Subreport1" x="0" y="30">
      <cabecera alto="6"><texto x="0" y="0" ancho="100" alto="6">Directores de obra</texto></cabecera>
      <fila alto="6"><caja x="0" y="0" ancho="100" alto="6"/><campo campo="DIROBRANOM" x="1" y="0" ancho="98" alto="6"/></fila>
    </subtabla>
  </detalle>
</informe>)";
        Informe = std::make_unique<DocumentoInforme>(leerDisenoXml(xml));
        QVERIFY(conectar());
        QVERIFY(iniciarInforme_Impreso(QStringLiteral("CDC")));
        QCOMPARE(Informe->datos().numero(), 0);
        QCOMPARE(Informe->numeroPaginas(), 1);
        int cajas = 0, marcas = 0;
        for (const TrazoInforme& t : Informe->pagina(0).trazos) {
            cajas += t.tipo == TrazoInforme::Caja;
            marcas += t.tipo == TrazoInforme::MarcaX;
        }
        QCOMPARE(marcas, 0);
        QCOMPARE(cajas, 4);  // borde del lugar, caja de la marca y las dos líneas en blanco
        const QStringList esperado = {"COMUNICADO DE DIRECCIÓN Y COORDINACIÓN", "Emplazamiento:", "Dirección de obra",
                                      "Directores de obra", " ", " "};
        QCOMPARE(textosCompuestos(*Informe), esperado);
        // Un código que no existe falla al registro.
        QVERIFY(!iniciarInforme_Impreso(QStringLiteral("Z9")));
        QCOMPARE(m_env->entradasLog(), 1);
    }

    // El visor: páginas del informe, navegación, PDF, y al cerrarse libera el informe.
    void visor()
    {
        for (int i = 1; i <= 70; ++i)
            persona(QStringLiteral("Clientes"), i, QStringLiteral("Cliente %1").arg(i), QVariant());
        QVERIFY(nuevoInforme(QStringLiteral("crListadoClientes")));
        QVERIFY(conectar());
        QVERIFY(iniciarInforme_ListadoClientes());
        frmVisorCrystal* v = frmVisorCrystal::mostrarInforme(QStringLiteral("Listado de clientes"));
        QCOMPARE(Pantallas::cargada<frmVisorCrystal>(), v);
        auto* etiqueta = v->findChild<QLabel*>(QStringLiteral("lbl_Pagina"));
        QCOMPARE(etiqueta->text(), QStringLiteral("Página 1 de 3"));
        v->findChild<QToolButton*>(QStringLiteral("cmd_Ultima"))->click();
        QCOMPARE(etiqueta->text(), QStringLiteral("Página 3 de 3"));
        v->findChild<QToolButton*>(QStringLiteral("cmd_Anterior"))->click();
        QCOMPARE(v->paginaActual(), 2);
        const QString pdf = m_env->directorio() + QStringLiteral("/visor.pdf");
        QVERIFY(v->guardarPDF(pdf));
        QVERIFY(pdfTexto(pdf).contains(QStringLiteral("Página 3 de 3")));
        // Impresión de un intervalo de páginas (a una impresora PDF).
        QPrinter impresora(QPrinter::HighResolution);
        impresora.setOutputFormat(QPrinter::PdfFormat);
        impresora.setOutputFileName(m_env->directorio() + QStringLiteral("/impresa.pdf"));
        impresora.setPageLayout(Informe->disenoPagina());
        impresora.setPrintRange(QPrinter::PageRange);
        impresora.setFromTo(2, 2);
        Informe->imprimir(&impresora);
        const QString impresa = pdfTexto(impresora.outputFileName());
        QVERIFY(impresa.contains(QStringLiteral("Página 2 de 3")));
        QVERIFY(!impresa.contains(QStringLiteral("Página 1 de 3")) && !impresa.contains(QStringLiteral("Página 3 de 3")));
        QVERIFY(Pantallas::descargar<frmVisorCrystal>());
        procesarEventos();
        QVERIFY(!Informe);
        QVERIFY(!conexionAbierta());
    }

private:
    std::unique_ptr<EntornoPrueba> m_env;
};

QTEST_MAIN(TstInformes)
#include "tst_informes.moc"
