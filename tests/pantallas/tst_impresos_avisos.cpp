// Comunicaciones de nombramiento (A4 y CSS), hoja urbanística (A5) y comunicado de dirección y
// coordinador, por sus pantallas: fecha de visado, persona nombrada, pestañas, listas de personas,
// vista previa y sus impresos en blanco.
#include "core/Fechas.h"
#include "forms/frmDatosImpreso_ComunicadoDireccionCoordinador.h"
#include "reports/VistaImpreso.h"
#include "reports/frmVisorCrystal.h"
#include "search/frmSeleccionarTipoCoordinador.h"
#include "tests/pantallas/PruebaImpresos.h"

#include <QDir>
#include <QFileInfo>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTreeWidget>

using namespace impresos;

namespace {

// Los impresos de la prueba, como los abre el menú.
const Impreso A4{"DATOSA4A5", "A4"}, A5{"DATOSA4A5", "A5"}, CSS{"DATOSCOORDINADOR_SEGURIDAD_Y_SALUD", "CSS"},
    CDC{"DATOSCOMUNICADO_DIRECCION_Y_COORDINADOR", ""};

struct DatosProyecto {
    int arquitectos = 1;
    QList<int> autores{};            // códigos de OTROS, en orden
    QVariant coordinador{};
    QVariant visado{};               // EXPFV
    bool sociedadPropia = false;
};

qint64 crearProyecto(const DatosProyecto& d)
{
    UsoConexion uso;
    insertar("Proyectos_A", {{"Trabajo", "Vivienda unifamiliar"}, {"Emplazamiento", "C/ Alta 4"}, {"Municipio", "Jaca"},
                             {"Provincia", "Huesca"}, {"Codigo_Cliente", 1}, {"Codigo_SeguridadSalud", d.coordinador}, {"EXPFV", d.visado}});
    const qint64 cod = ultimoIdentificador();
    if (d.sociedadPropia)
        insertar("Arquitectos_Proyecto", {{"PryCod", cod}, {"Codigo_Arq", 20}, {"NumCol", "777"}, {"EsPropiaSociedad", 1}});
    for (int i = 1; i <= d.arquitectos; ++i)
        insertar("Arquitectos_Proyecto", {{"PryCod", cod}, {"Codigo_Arq", 10 + i}, {"NumCol", 100 + i}, {"PorPar_Arq", 50}, {"EsPropiaSociedad", 0}});
    for (int a : d.autores)
        insertar("Autores_Proyecto", {{"PryCod", cod}, {"Codigo_Arq", a}});
    return cod;
}

// Abre el impreso con un proyecto ya puesto, como lo deja el selector.
DatosImpreso* abrirCon(const Impreso& i, qint64 proyecto)
{
    DatosImpreso* f = abrir(i);
    elegirProyecto(f, proyecto);
    return f;
}

QStringList filasLista(QWidget* f, const QString& lista)
{
    auto* l = control<QTreeWidget>(f, lista);
    QStringList r;
    for (int i = 0; i < l->topLevelItemCount(); ++i)
        r << l->topLevelItem(i)->text(1) + (l->columnCount() > 2 ? QLatin1Char('|') + l->topLevelItem(i)->text(2) : QString());
    return r;
}

// Un valor leído, con los nulos a la vista.
const QString NULO = QStringLiteral("(nulo)");
QString valor(const QVariant& v) { return v.isNull() ? NULO : v.toString(); }

int cuenta(const QString& tabla) { return int(filas(QStringLiteral("SELECT * FROM \"%1\"").arg(tabla)).size()); }

const QString LISTAS[] = {QStringLiteral("lvw_DirectorObra"), QStringLiteral("lvw_DirectorEjecucion"), QStringLiteral("lvw_CoordinadorSS")};

// Abre el selector de una lista del comunicado (el del coordinador, tras elegir su tipo, 0 o 1).
void abrirSelector(frmDatosImpreso_ComunicadoDireccionCoordinador* f, int lista, int tipoCoordinador = 0)
{
    f->img_Buscar_Click(lista);
    if (auto* t = Pantallas::cargada<frmSeleccionarTipoCoordinador>()) {
        control<QRadioButton>(t, QStringLiteral("opt_Coordinador_%1").arg(tipoCoordinador))->setChecked(true);
        t->cmd_Seleccionar_Click();
        procesarEventos();
    }
}

// Añade una persona a una lista por el selector; devuelve si el selector se ha cerrado.
bool anadir(frmDatosImpreso_ComunicadoDireccionCoordinador* f, int lista, qint64 codigo, int tipoCoordinador = 0)
{
    abrirSelector(f, lista, tipoCoordinador);
    return elegir(codigo);
}

}  // namespace

class tst_impresos_avisos : public PruebaImpresos {
    Q_OBJECT

    // Práctica en Jaca; un cliente particular (1); arquitectos 11 a 16 y la sociedad 20; arquitectos
    // técnicos 31 a 33, cada uno con su domicilio y contacto.
    void poblar() override
    {
        UsoConexion uso;
        ejecutar(QStringLiteral("INSERT INTO Config (Municipio, IVA, IRPF) VALUES ('Jaca', 16, 15)"));
        insertar("Clientes", {{"Codigo_Cli", 1}, {"Nombre_Cli", "Lucía"}, {"Ape_Cli", "Ferrer Gil"}, {"NIF", "12345678Z"}, {"esR", -1}});
        const QString persona = QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli, Ape_Cli, NIF, "
                                               "Dirección_Cli, Municipio_Cli, Provincia_Cli, cp, Tfno_Cli, Correo_Cli) "
                                               "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, 'Huesca', '22700', ?, ?)");
        for (int i = 1; i <= 6; ++i)
            ejecutar(persona, {10 + i, "ARQUITECTO", 0, 100 + i, QStringLiteral("Arq%1").arg(i), QStringLiteral("Apellido%1").arg(i),
                               QStringLiteral("1000000%1A").arg(i), QStringLiteral("Calle %1").arg(i), "Jaca", QStringLiteral("97400000%1").arg(i),
                               QStringLiteral("arq%1@correo.es").arg(i)});
        for (int i = 1; i <= 3; ++i)
            ejecutar(persona, {30 + i, "ARQUITECTO TECNICO", 0, 300 + i, QStringLiteral("Apa%1").arg(i), QStringLiteral("Técnico%1").arg(i),
                               QStringLiteral("3000000%1B").arg(i), QStringLiteral("Plaza %1").arg(i), "Sabiñánigo",
                               QStringLiteral("97430000%1").arg(i), QStringLiteral("apa%1@correo.es").arg(i)});
        ejecutar(persona, {20, "ARQUITECTO", 1, 777, "Estudio Norte SLP", QVariant(), "B22000000", "Plaza Mayor 1", "Jaca", "974777777",
                           "estudio@correo.es"});
    }

private slots:
    // La fecha de visado: nula sin fecha; en el proyecto sólo si no tenía, nunca sustituye la suya.
    void fechaDeVisado_data()
    {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QVariant>("visadoProyecto");
        QTest::addColumn<QString>("tecleada");
        QTest::addColumn<QString>("historico");   // FECHAVIS guardada
        QTest::addColumn<QString>("temporal");    // FECHAVIS impresa
        QTest::addColumn<QString>("expfv");       // la del proyecto después
        for (const char* tipo : {"A4", "CSS"}) {
            const QString t = QString::fromLatin1(tipo);
            QTest::newRow(qPrintable(t + " sin fecha")) << t << QVariant() << "" << NULO << NULO << NULO;
            QTest::newRow(qPrintable(t + " fecha nueva")) << t << QVariant() << "5_/03/2008" << "2008-03-05" << "05/03/2008" << "2008-03-05";
            QTest::newRow(qPrintable(t + " proyecto ya visado"))
                << t << QVariant("2007-01-31") << "05/03/2008" << "2008-03-05" << "05/03/2008" << "2007-01-31";
        }
    }
    void fechaDeVisado()
    {
        QFETCH(QString, tipo);
        QFETCH(QVariant, visadoProyecto);
        QFETCH(QString, tecleada);
        QFETCH(QString, historico);
        QFETCH(QString, temporal);
        QFETCH(QString, expfv);
        const bool a4 = tipo == QLatin1String("A4");
        const qint64 cod = crearProyecto({.visado = visadoProyecto});
        DatosImpreso* f = abrirCon(a4 ? A4 : CSS, cod);
        escribir(f, "txt_LugarVisado", "Huesca");
        escribir(f, "msk_FechaVisado", tecleada);
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList());
        const auto h = filas(a4 ? "SELECT * FROM datosA4A5" : "SELECT * FROM datosCOORDINADOR_SEGURIDAD_Y_SALUD");
        QCOMPARE(h.size(), 1);
        QCOMPARE(valor(h[0]["FECHAVIS"]), historico);
        QCOMPARE(h[0]["LUGARVIS"].toString(), "Huesca");
        // El pie va a las columnas de su tabla; el A4 lleva su marca y deja las del A5 sin escribir.
        QCOMPARE(h[0][a4 ? "LUGARA4" : "LUGAR"].toString() + h[0][a4 ? "FECHAA4" : "FECHA"].toString(),
                 "Jaca" + Formato::fechaPie(QDate::currentDate()));
        if (a4)
            QVERIFY(h[0]["TIPODOC"] == "A4" && h[0]["LUGARA5"].isNull() && h[0]["PLAN1"].isNull());
        const auto r = filas(a4 ? "SELECT * FROM A4" : "SELECT * FROM COORDINADOR_SEGURIDAD_Y_SALUD");
        QCOMPARE(r.size(), 1);
        QCOMPARE(valor(r[0]["FECHAVIS"]), temporal);
        QCOMPARE(valor(filas("SELECT EXPFV FROM Proyectos_A")[0]["EXPFV"]), expfv);
    }

    // El selector de proyectos trae la fecha de visado, o deja la máscara vacía.
    void selectorTraeLaFechaDeVisado_data()
    {
        QTest::addColumn<QVariant>("visado");
        QTest::addColumn<QString>("mascara");
        QTest::newRow("visado") << QVariant("2008-03-05") << "05/03/2008";
        QTest::newRow("sin visar") << QVariant() << FECHA_VACIA;
    }
    void selectorTraeLaFechaDeVisado()
    {
        QFETCH(QVariant, visado);
        QFETCH(QString, mascara);
        const qint64 cod = crearProyecto({.visado = visado});
        for (const Impreso& i : {A4, CSS}) {
            DatosImpreso* f = abrir(i);
            escribir(f, "msk_FechaVisado", "01/01/2001");
            f->img_Buscar_Click();
            QVERIFY(elegir(cod));
            QCOMPARE(control(f, "txt_CodProyecto")->text(), QString::number(cod));
            QCOMPARE(control(f, "msk_FechaVisado")->displayText(), mascara);
            m_e->respuestas << Respuesta::No;  // se cierra sin guardar
            QVERIFY(Pantallas::descargar(f));
        }
    }

    // La persona nombrada en cada hoja: los autores del A4 (cortados a 255 sin aviso) y el
    // coordinador del CSS (vacío si el proyecto no tiene).
    void personaNombrada_data()
    {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QList<int>>("autores");
        QTest::addColumn<QVariant>("coordinador");
        QTest::addColumn<QString>("esperada");
        QList<int> muchos;
        for (int i = 0; i < 30; ++i)
            muchos << 11 + i % 6;
        QString larga;
        for (int a : muchos)
            larga += QStringLiteral("Arq%1 Apellido%1, ").arg(a - 10);
        QTest::newRow("A4 dos autores") << "A4" << QList<int>{12, 20} << QVariant() << "Arq2 Apellido2, Estudio Norte SLP";
        QTest::newRow("A4 sin autores") << "A4" << QList<int>{} << QVariant() << "";
        QTest::newRow("A4 muchos autores") << "A4" << muchos << QVariant() << larga.left(255);
        QTest::newRow("CSS con coordinador") << "CSS" << QList<int>{} << QVariant(13) << "Arq3 Apellido3";
        QTest::newRow("CSS sin coordinador") << "CSS" << QList<int>{12} << QVariant() << "";
    }
    void personaNombrada()
    {
        QFETCH(QString, tipo);
        QFETCH(QList<int>, autores);
        QFETCH(QVariant, coordinador);
        QFETCH(QString, esperada);
        const bool a4 = tipo == QLatin1String("A4");
        // Cuatro arquitectos: dos hojas, y la persona en las dos.
        DatosImpreso* f = abrirCon(a4 ? A4 : CSS, crearProyecto({.arquitectos = 4, .autores = autores, .coordinador = coordinador}));
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList());
        const auto r = filas(a4 ? "SELECT * FROM A4" : "SELECT * FROM COORDINADOR_SEGURIDAD_Y_SALUD");
        QCOMPARE(r.size(), 2);
        for (const auto& fila : r)
            QCOMPARE(fila[a4 ? "AUTOR" : "COORDINADOR_SYS"].toString(), esperada);
        QCOMPARE(r[0]["ARQ3NOM"].toString() + "|" + r[1]["ARQ1NOM"].toString(), "Arq3 Apellido3|Arq4 Apellido4");
        QCOMPARE(r[1]["PRYNOM"].toString() + "|" + r[1]["PRYPRO"].toString() + "|" + r[1]["REPNOM"].toString(),
                 "Vivienda unifamiliar|Huesca|Lucía Ferrer Gil");
        QCOMPARE(modInformes::Informe->numeroPaginas(), 2);
    }

    // Un A4 guardado se abre tal cual y su vista previa actualiza la misma fila.
    void modificarA4()
    {
        const qint64 cod = crearProyecto({});
        sql("INSERT INTO datosA4A5 (PRYCOD, PRYNOM, LUGARVIS, FECHAVIS, LUGARA4, FECHAA4, TIPODOC) "
                    "VALUES (?, 'Vivienda', 'Huesca', '2008-03-05', 'Jaca', '1 de abril de 2008', 'A4')",
                    {cod});
        DatosImpreso* f = abrir(A4, "MODIFICAR", 1);
        QCOMPARE(control(f, "msk_FechaVisado")->displayText() + "|" + control(f, "txt_Fecha")->text(), "05/03/2008|1 de abril de 2008");
        QVERIFY(!f->hayCambios());
        escribir(f, "msk_FechaVisado", "");
        imprimir(f);
        const auto h = filas("SELECT * FROM datosA4A5");
        QVERIFY(h.size() == 1 && h[0]["FECHAVIS"].isNull());
        QVERIFY(Pantallas::cargada<DatosImpreso>() == f);
    }

    // Las pestañas del A5: el proyecto y el pie llevan a la primera; una fecha mal escrita no,
    // se queda en la suya.
    void pestanasA5_data()
    {
        QTest::addColumn<int>("pestanaInicial");
        QTest::addColumn<QStringList>("campos");   // "control=texto"
        QTest::addColumn<QString>("aviso");
        QTest::addColumn<int>("pestana");
        QTest::addColumn<QString>("foco");
        const QString proyecto = QStringLiteral("Por favor, seleccione un proyecto");
        const QString mes = QStringLiteral("El mes no es válido. Inserte un mes entre 1 y 12");
        QTest::newRow("sin proyecto") << 1 << QStringList{"txt_CodProyecto="} << proyecto << 0 << "txt_Proyecto";
        QTest::newRow("fecha del municipio") << 1 << QStringList{"msk_FechaAprobacionMunicipio=01/13/2008"} << mes << 1
                                             << "msk_FechaAprobacionMunicipio";
        QTest::newRow("fecha de la parcela, desde la primera")
            << 0 << QStringList{"msk_FechaAprobacionParcela=01/13/2008"} << mes << 1 << "msk_FechaAprobacionParcela";
        QTest::newRow("sin lugar") << 1 << QStringList{"txt_Lugar= "} << "Por favor, escriba el lugar (necesario para el pie del impreso)" << 0
                                   << "txt_Lugar";
        QTest::newRow("sin fecha del pie") << 1 << QStringList{"txt_Fecha="}
                                           << "Por favor, escriba la fecha (necesaria para el pie del impreso)" << 0 << "txt_Fecha";
    }
    void pestanasA5()
    {
        QFETCH(int, pestanaInicial);
        QFETCH(QStringList, campos);
        QFETCH(QString, aviso);
        QFETCH(int, pestana);
        QFETCH(QString, foco);
        DatosImpreso* f = abrirCon(A5, crearProyecto({}));
        Pantallas::activar(f);
        for (const QString& c : campos)
            escribir(f, c.section('=', 0, 0), c.section('=', 1));
        auto* mst = control<QTabWidget>(f, "mst_1");
        mst->setCurrentIndex(pestanaInicial);
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList{aviso});
        QCOMPARE(mst->currentIndex(), pestana);
        QCOMPARE(f->focusWidget(), static_cast<QWidget*>(control(f, foco)));
        QVERIFY(filas("SELECT * FROM datosA4A5").isEmpty());
    }

    // A5: sólo sus columnas en el histórico; en la tabla temporal, el municipio y la provincia del
    // proyecto, el cliente y quien firma: la sociedad propia sola, o todos los arquitectos.
    void hojaUrbanistica_data()
    {
        QTest::addColumn<bool>("sociedadPropia");
        QTest::addColumn<bool>("sociedadBorrada");
        QTest::addColumn<QString>("firma");
        QTest::addColumn<QStringList>("avisos");
        QTest::newRow("arquitectos") << false << false << "Arq1 Apellido1, Arq2 Apellido2" << QStringList{};
        QTest::newRow("sociedad propia") << true << false << "Estudio Norte SLP" << QStringList{};
        QTest::newRow("sociedad borrada") << true << true << "" << QStringList{"No se han podido cargar los datos de la sociedad"};
    }
    void hojaUrbanistica()
    {
        QFETCH(bool, sociedadPropia);
        QFETCH(bool, sociedadBorrada);
        QFETCH(QString, firma);
        QFETCH(QStringList, avisos);
        DatosImpreso* f = abrirCon(A5, crearProyecto({.arquitectos = 2, .sociedadPropia = sociedadPropia}));
        if (sociedadBorrada)
            sql("DELETE FROM OTROS WHERE Codigo_Cli = 20");
        escribir(f, "txt_PlaneamientoMunicipio", "PGOU de Jaca");
        escribir(f, "msk_FechaAprobacionMunicipio", "12/05/1998");
        escribir(f, "txt_Ocu_Pla", "  60 %  ");
        escribir(f, "txt_Sit_Pro", "Aislada");
        escribir(f, "txt_Observaciones", "Sin observaciones");
        imprimir(f);
        QCOMPARE(m_e->textos(), avisos);
        const auto h = filas("SELECT * FROM datosA4A5");
        QCOMPARE(h.size(), 1);
        QCOMPARE(columnas(h[0], {"TIPODOC", "FAPMUN", "PLAN2", "PROY6", "LUGARA5"}), (QStringList{"A5", "1998-05-12", "60 %", "Aislada", "Jaca"}));
        QVERIFY(h[0]["FAPPAR"].isNull() && h[0]["LUGARVIS"].isNull() && h[0]["FECHAA4"].isNull());
        const auto r = filas("SELECT * FROM A5");
        QCOMPARE(r.size(), 1);
        QCOMPARE(columnas(r[0], {"PRYNOM", "PRYDOM", "CLIMUN", "CLIPRO", "CLINOM", "ARQ1NOM", "FAPMUN", "PLAN2", "OBS", "LUGAR"}),
                 (QStringList{"Vivienda unifamiliar", "C/ Alta 4", "Jaca", "Huesca", "Lucía Ferrer Gil", firma, "12/05/1998", "60 %",
                                 "Sin observaciones", "Jaca"}));
        QVERIFY(r[0]["FAPPAR"].isNull());

        // Abierto de nuevo, cada campo vuelve a su sitio y no hay cambios.
        Pantallas::descargar(Pantallas::cargada<frmVisorCrystal>());
        DatosImpreso* g = abrir(A5, "MODIFICAR", h[0]["Clave"].toLongLong());
        QCOMPARE(control(g, "msk_FechaAprobacionMunicipio")->displayText() + "|" + control(g, "msk_FechaAprobacionParcela")->displayText() + "|"
                     + control(g, "txt_Ocu_Pla")->text(),
                 "12/05/1998|" + FECHA_VACIA + "|60 %");
        QVERIFY(!g->hayCambios());
    }

    // Emplazamiento unido en la hoja (sin ningún dato, en el impreso en blanco, no sale un separador suelto).
    void emplazamientoDeLaHoja()
    {
        imprimir(abrirCon(A5, crearProyecto({})));
        QVERIFY(textosInforme(0).contains("C/ Alta 4 - Jaca - Huesca"));
    }

    // Comunicado con sus listas: enlaces con el tipo de coordinador, una fila temporal por persona
    // con sus datos; con las listas vacías, una fila principal y ninguna de personas.
    void comunicado_data()
    {
        QTest::addColumn<QList<QList<int>>>("personas");  // por lista: códigos (coordinadores: 31.. técnicos)
        QTest::addColumn<QStringList>("coordinadores");   // enlaces: código|tipo
        QTest::newRow("listas vacías") << QList<QList<int>>{{}, {}, {}} << QStringList{};
        QTest::newRow("dos en cada lista") << QList<QList<int>>{{11, 12}, {31, 32}, {13, 33}} << QStringList{"13|AR", "33|AT"};
    }
    void comunicado()
    {
        QFETCH(QList<QList<int>>, personas);
        QFETCH(QStringList, coordinadores);
        auto* f = qobject_cast<frmDatosImpreso_ComunicadoDireccionCoordinador*>(abrirCon(CDC, crearProyecto({})));
        for (int l = 0; l < 3; ++l)
            for (int codigo : personas[l])
                QVERIFY(anadir(f, l + 1, codigo, codigo > 30 ? 1 : 0));
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList());
        QCOMPARE(cuenta("COMUNICADO_DIRECCION_Y_COORDINADOR"), 1);
        const QStringList temporales{"DirectoresObra_Tmp", "DirectoresDeEjecucion_Tmp", "CoordinadoresSS_Tmp"};
        const QStringList enlaces{"DirectoresObra_Impreso", "DirectoresDeEjecucion_Impreso", "CoordinadorSS_Impreso"};
        for (int l = 0; l < 3; ++l) {
            QCOMPARE(cuenta(temporales[l]), personas[l].size());
            QCOMPARE(cuenta(enlaces[l]), personas[l].size());
        }
        QStringList tipos;
        for (const auto& c : filas("SELECT * FROM CoordinadorSS_Impreso WHERE Id_Impreso = 1 ORDER BY rowid"))
            tipos << c["Codigo_Coordinador"].toString() + "|" + c["TipoPerceptor"].toString();
        QCOMPARE(tipos, coordinadores);
        const auto p = filas("SELECT * FROM COMUNICADO_DIRECCION_Y_COORDINADOR")[0];
        QCOMPARE(columnas(p, {"PRYNOM", "PRYMUN", "REPNOM", "LUGAR"}), (QStringList{"Vivienda unifamiliar", "Jaca", "Lucía Ferrer Gil", "Jaca"}));
        if (!personas[1].isEmpty()) {
            const auto d = filas("SELECT * FROM DirectoresDeEjecucion_Tmp ORDER BY rowid")[1];
            QStringList t;
            for (const char* c : {"NOM", "NIF", "DOM", "TEL", "MAIL", "MUN", "PRO", "CP"})
                t << d[QStringLiteral("DIREJEC") + QLatin1String(c)].toString();
            QCOMPARE(t, (QStringList{"Apa2 Técnico2", "30000002B", "Plaza 2", "974300002", "apa2@correo.es", "Sabiñánigo", "Huesca", "22700"}));
        }
        // Guardado y abierto de nuevo: las listas vuelven como estaban.
        Pantallas::descargar(Pantallas::cargada<frmVisorCrystal>());
        DatosImpreso* g = abrir(CDC, "MODIFICAR", 1);
        QCOMPARE(filasLista(g, LISTAS[2]).size(), personas[2].size());
        if (!coordinadores.isEmpty())
            QCOMPARE(filasLista(g, LISTAS[2]), (QStringList{"Arq3 Apellido3|AR", "Apa3 Técnico3|AT"}));
    }

    // La misma persona dos veces en una lista: aviso, el selector sigue abierto y la lista igual.
    void personaRepetida_data()
    {
        QTest::addColumn<int>("lista");
        QTest::addColumn<int>("tipo");
        QTest::addColumn<int>("codigo");
        QTest::addColumn<QString>("aviso");
        QTest::newRow("director de obra") << 1 << 0 << 11
                                          << "El arquitecto seleccionado ya se encuentra incluido en la lista de directores de Obra del impreso";
        QTest::newRow("director de ejecución")
            << 2 << 0 << 31
            << "El arquitecto técnico seleccionado ya se encuentra incluido en la lista de directores de ejecución de la Obra del impreso";
        QTest::newRow("coordinador arquitecto")
            << 3 << 0 << 11
            << "El arquitecto seleccionado ya se encuentra incluido en la lista de coordinadores de Seguridad y Salud de obra del impreso";
        QTest::newRow("coordinador técnico")
            << 3 << 1 << 31
            << "El arquitecto técnico seleccionado ya se encuentra incluido en la lista de coordinadores de Seguridad y Salud del impreso";
    }
    void personaRepetida()
    {
        QFETCH(int, lista);
        QFETCH(int, tipo);
        QFETCH(int, codigo);
        QFETCH(QString, aviso);
        auto* f = qobject_cast<frmDatosImpreso_ComunicadoDireccionCoordinador*>(abrir(CDC));
        QVERIFY(anadir(f, lista, codigo, tipo));
        QVERIFY(!anadir(f, lista, codigo, tipo));
        QCOMPARE(m_e->textos(), QStringList{aviso});
        QVERIFY(Pantallas::cargada<frmBuscarSeleccionar>());
        QCOMPARE(filasLista(f, LISTAS[lista - 1]).size(), 1);
        // Otra persona sí entra por el mismo selector, que se cierra.
        QVERIFY(elegir(codigo + 1));
        QCOMPARE(filasLista(f, LISTAS[lista - 1]).size(), 2);
    }

    // "Nuevo" en el selector de una lista: la persona dada de alta entra en ella, con su tipo.
    void personaNueva_data()
    {
        QTest::addColumn<int>("lista");
        QTest::addColumn<int>("tipo");
        QTest::addColumn<QString>("fila");
        QTest::newRow("director de obra") << 1 << 0 << "Marta Vidal";
        QTest::newRow("director de ejecución") << 2 << 0 << "Marta Vidal";
        QTest::newRow("coordinador técnico") << 3 << 1 << "Marta Vidal|AT";
    }
    void personaNueva()
    {
        QFETCH(int, lista);
        QFETCH(int, tipo);
        QFETCH(QString, fila);
        auto* f = qobject_cast<frmDatosImpreso_ComunicadoDireccionCoordinador*>(abrir(CDC));
        abrirSelector(f, lista, tipo);
        QVERIFY(Pantallas::cargada<frmBuscarSeleccionar>());
        Pantallas::cargada<frmBuscarSeleccionar>()->cmd_Nuevo_Click();
        QWidget* ficha = nullptr;
        for (QWidget* w : Pantallas::cargadas())
            if (w->inherits("FichaRegistro"))
                ficha = w;
        QVERIFY(ficha);
        for (const QString c : {"txt_NumColegiado=555", "txt_Nombre=Marta", "txt_Apellidos=Vidal"})
            escribir(ficha, c.section('=', 0, 0), c.section('=', 1));
        control<QPushButton>(ficha, "cmd_Guardar")->click();
        procesarEventos();
        QCOMPARE(filasLista(f, LISTAS[lista - 1]), QStringList{fila});
    }

    // Quitar de una lista: vacía avisa; si no, pregunta por el nombre y sólo "Sí" la quita.
    void quitarDeLaLista_data()
    {
        QTest::addColumn<int>("lista");
        QTest::addColumn<bool>("vacia");
        QTest::addColumn<int>("respuesta");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<int>("quedan");
        QTest::newRow("directores vacía") << 1 << true << int(Respuesta::Si) << "La lista de directores de Obra está vacía" << 0;
        QTest::newRow("ejecución vacía") << 2 << true << int(Respuesta::Si) << "La lista de directores de ejecución de la Obra está vacía" << 0;
        QTest::newRow("coordinadores vacía") << 3 << true << int(Respuesta::Si) << "La lista de coordinadores de Seguridad y Salud está vacía" << 0;
        QTest::newRow("director, no") << 1 << false << int(Respuesta::No) << "¿Realmente desea eliminar el director de Obra Arq1 Apellido1?" << 1;
        QTest::newRow("ejecución, sí") << 2 << false << int(Respuesta::Si)
                                       << "¿Realmente desea eliminar el director de ejecución de la Obra Apa1 Técnico1?" << 0;
        QTest::newRow("coordinador, sí") << 3 << false << int(Respuesta::Si)
                                         << "¿Realmente desea eliminar el coordinador de Seguridad y Salud Arq1 Apellido1?" << 0;
    }
    void quitarDeLaLista()
    {
        QFETCH(int, lista);
        QFETCH(bool, vacia);
        QFETCH(int, respuesta);
        QFETCH(QString, texto);
        QFETCH(int, quedan);
        auto* f = qobject_cast<frmDatosImpreso_ComunicadoDireccionCoordinador*>(abrir(CDC));
        if (!vacia)
            QVERIFY(anadir(f, lista, lista == 2 ? 31 : 11));
        m_e->respuestas << Respuesta(respuesta);
        f->img_Borrar_Click(lista);
        QCOMPARE(m_e->textos(), QStringList{texto});
        QCOMPARE(filasLista(f, LISTAS[lista - 1]).size(), quedan);
    }

    // Una persona borrada de OTROS tras guardar el comunicado: aviso al abrirlo, fuera de la
    // lista, y el siguiente guardado quita su enlace.
    void personaBorrada()
    {
        auto* f = qobject_cast<frmDatosImpreso_ComunicadoDireccionCoordinador*>(abrirCon(CDC, crearProyecto({})));
        QVERIFY(anadir(f, 1, 11) && anadir(f, 1, 12) && anadir(f, 3, 32, 1));
        imprimir(f);
        sql("DELETE FROM OTROS WHERE Codigo_Cli IN (11, 32)");
        Pantallas::descargar(Pantallas::cargada<frmVisorCrystal>());
        DatosImpreso* g = abrir(CDC, "MODIFICAR", 1);
        QCOMPARE(m_e->textos(), (QStringList{"No se han podido obtener los datos del director de Obra",
                                              "No se han podido obtener los datos del coordinador de Seguridad y Salud"}));
        QCOMPARE(filasLista(g, LISTAS[0]), QStringList{"Arq2 Apellido2"});
        QVERIFY(filasLista(g, LISTAS[2]).isEmpty());
        imprimir(g);
        QCOMPARE(filas("SELECT Codigo_DirectorObra FROM DirectoresObra_Impreso")[0]["Codigo_DirectorObra"].toInt(), 12);
        QCOMPARE(cuenta("DirectoresObra_Impreso") + cuenta("CoordinadorSS_Impreso") + cuenta("DirectoresObra_Tmp"), 1 + 0 + 1);
    }

    // Salir del comunicado nunca pregunta: lo no visto en la vista previa se pierde.
    void comunicadoSaleSinPreguntar()
    {
        auto* f = qobject_cast<frmDatosImpreso_ComunicadoDireccionCoordinador*>(abrirCon(CDC, crearProyecto({})));
        QVERIFY(anadir(f, 1, 11));
        escribir(f, "txt_Lugar", "Huesca");
        QVERIFY(Pantallas::descargar(f));
        QCOMPARE(m_e->textos(), QStringList());
        QCOMPARE(cuenta("datosCOMUNICADO_DIRECCION_Y_COORDINADOR"), 0);
    }

    // Los impresos en blanco desde la lista: una hoja, sin filas (el comunicado con sus líneas en
    // blanco), sin separadores sueltos ni ceros; con CAPTURAS_IMPRESOS, además, su PDF allí.
    void enBlanco_data()
    {
        QTest::addColumn<int>("codigo");
        QTest::addColumn<QString>("informe");
        QTest::addColumn<QString>("titulo");  // el del visor, si se comprueba
        QTest::newRow("A2") << 3 << "crImpresoA2" << "Presentación de documentos";
        QTest::newRow("A3") << 4 << "crImpresoA3" << "Costes de referencia. CR.";
        QTest::newRow("A4") << 5 << "crImpresoA4" << "";
        QTest::newRow("A5") << 6 << "crImpresoA5" << "";
        QTest::newRow("CSS") << 7 << "crImpresoCSS" << "";
        QTest::newRow("comunicado") << 13 << "crImpresoComunicadoDireccionCoordinador" << "";
    }
    void enBlanco()
    {
        QFETCH(int, codigo);
        QFETCH(QString, informe);
        QFETCH(QString, titulo);
        QVERIFY(generarImpresoEnBlanco(codigo));
        QCOMPARE(modInformes::Informe->nombre(), informe);
        QCOMPARE(modInformes::Informe->datos().numero(), 0);
        QCOMPARE(modInformes::Informe->numeroPaginas(), 1);
        if (!titulo.isEmpty())
            QCOMPARE(Pantallas::cargada<frmVisorCrystal>()->windowTitle(), titulo);
        for (const QString& t : textosInforme(0))
            QVERIFY2(!t.trimmed().startsWith('-') && !t.trimmed().endsWith('-') && !t.contains("0,00"), qPrintable(t));
        exportar(informe + QStringLiteral("_blanco"));
    }

    // Los cuatro impresos rellenos, hasta el PDF (con dos personas en cada lista del comunicado).
    void rellenos()
    {
        const qint64 cod = crearProyecto({.arquitectos = 3, .autores = {11, 12}, .coordinador = 13, .visado = "2008-03-05"});
        sql("UPDATE Proyectos_A SET ARQREG = 20 WHERE PryCod = ?", {cod});
        for (const Impreso& i : {A4, CSS, A5}) {
            DatosImpreso* f = abrir(i);
            f->img_Buscar_Click();
            QVERIFY(elegir(cod));
            if (i.tipo == A5.tipo) {
                for (const QString c : {"txt_PlaneamientoMunicipio=Plan General de Ordenación Urbana",
                                         "msk_FechaAprobacionMunicipio=12/05/1998", "txt_PlaneamientoParcela=Suelo urbano consolidado",
                                         "msk_FechaAprobacionParcela=03/02/2004", "txt_Par_Pla=Parcela mínima 300 m²",
                                         "txt_Par_Pro=Parcela de 512 m²", "txt_Ocu_Pla=60 % máximo", "txt_Ocu_Pro=34 %",
                                         "txt_Uso_Pla=Residencial unifamiliar (grado 2)", "txt_Uso_Pro=Vivienda unifamiliar aislada",
                                         "txt_Vol_Pla=0,8 m²/m²", "txt_Vol_Pro=0,52 m²/m²", "txt_Alt_Pla=B+1 (7,50 m)",
                                         "txt_Alt_Pro=B+1 (6,90 m)", "txt_Sit_Pla=Retranqueos de 3 m a linderos",
                                         "txt_Sit_Pro=Retranqueos de 4 m a linderos y 5 m a vial",
                                         "txt_Observaciones=Se cumplen todas las condiciones del planeamiento vigente."})
                    escribir(f, c.section('=', 0, 0), c.section('=', 1));
            } else {
                escribir(f, "txt_LugarVisado", "Huesca");
            }
            captura(f, i.tipo);
            if (auto* mst = f->findChild<QTabWidget*>("mst_1")) {
                mst->setCurrentIndex(1);
                captura(f, "A5_planeamiento");
            }
            imprimir(f);
            QCOMPARE(m_e->textos(), QStringList());
            exportar(modInformes::Informe->nombre());
        }
        auto* f = qobject_cast<frmDatosImpreso_ComunicadoDireccionCoordinador*>(abrir(CDC));
        f->img_Buscar_Click(0);
        QVERIFY(elegir(cod));
        QVERIFY(anadir(f, 1, 11) && anadir(f, 1, 12) && anadir(f, 2, 31) && anadir(f, 2, 32) && anadir(f, 3, 13) && anadir(f, 3, 33, 1));
        captura(f, "CDC");
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList());
        QCOMPARE(modInformes::Informe->numeroPaginas(), 1);
        exportar(modInformes::Informe->nombre());
    }

private:
    // PDF del informe en curso en la carpeta temporal y, si se pide, en CAPTURAS_IMPRESOS.
    void exportar(const QString& nombre)
    {
        const QString ruta = QDir(m_e->directorio()).filePath(nombre + ".pdf");
        QVERIFY(modInformes::exportarPDF(ruta));
        QVERIFY(QFileInfo(ruta).size() > 1000);
        const QString capturas = qEnvironmentVariable("CAPTURAS_IMPRESOS");
        if (!capturas.isEmpty())
            QVERIFY(modInformes::exportarPDF(QDir(capturas).filePath(nombre + ".pdf")));
    }

    static void captura(QWidget* f, const QString& nombre)
    {
        const QString capturas = qEnvironmentVariable("CAPTURAS_IMPRESOS");
        if (capturas.isEmpty())
            return;
        // En la pantalla principal del tamaño más pequeño admitido, como la vería el usuario.
        if (frmMenu::instancia()->size() != QSize(1366, 768)) {
            frmMenu::instancia()->resize(1366, 768);
            procesarEventos();
        }
        Pantallas::mostrar(f);
        procesarEventos();
        QWidget* ventana = f->parentWidget() ? f->parentWidget() : f;
        ventana->grab().save(QDir(capturas).filePath(QStringLiteral("pantalla_%1.png").arg(nombre)));
    }
};

PRUEBA_PANTALLAS(tst_impresos_avisos)
#include "tst_impresos_avisos.moc"
#include "moc_PruebaImpresos.cpp"
