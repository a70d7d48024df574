// Fichas de la tabla OTROS: arquitectos, arquitectos técnicos y contratistas.
#include "masterdata/frmAparejador.h"
#include "masterdata/frmArquitecto.h"
#include "masterdata/frmConfiguracion.h"
#include "masterdata/frmContratista.h"
#include "tests/pantallas/tst_fichas_comun.h"

#include <QtTest>

using namespace fichas;

namespace {

FichaOtros* abrirOtros(const QString& tabla, const QString& operacion, qint64 codigo = 0, const QString& clave = {},
                       AlGuardar alGuardar = {})
{
    if (tabla == QLatin1String("APAREJADORES"))
        return abrir<frmAparejador>(tabla, operacion, codigo, clave, alGuardar);
    if (tabla == QLatin1String("CONTRATISTAS"))
        return abrir<frmContratista>(tabla, operacion, codigo, clave, alGuardar);
    return abrir<frmArquitecto>(tabla, operacion, codigo, clave, alGuardar);
}

const QString OBLIGATORIO = QStringLiteral("\nPor favor, escriba un valor");
const QString REVISE = QStringLiteral("\nPor favor, revise el número proporcionado");

// Arquitecto 4 (número 123), sociedad 5 (registro 77), arquitecto técnico 6 (número 123), contratista 7.
void sembrar()
{
    sql(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli, Ape_Cli, NIF) VALUES "
                       "(4, 'ARQUITECTO', 0, 123, 'Juan', 'Ruiz', '1A'), (5, 'ARQUITECTO', 1, 77, 'Estudio SLP', NULL, 'B2'), "
                       "(6, 'ARQUITECTO TECNICO', 0, 123, 'Rosa', 'León', '3C'), (7, 'CONSTRUCTOR', 1, NULL, 'Obras SA', NULL, 'A4')"));
}

// Alta: ficha, tipo, número y nombre escritos; el aviso, el campo con el foco ("" si se guarda)
// y, guardada, Categoria, esS, NumColegiado y Colegio.
struct Alta {
    QString tabla;
    int tipo;
    QString numero, nombre, mensaje, foco;
    QVariantList guardado = {};
};

// Cascadas del arquitecto: Config antes (Arq1Col, Arq3Col, SocNom, SocReg) y después (Arq1Nom,
// Arq1Col, Arq3Col, SocNom, SocReg, Domicilio), y el NumCol de los enlaces con el número anterior.
struct Cascada {
    int codigo;
    QVariantList previa, config;
    QString numColNuevo;
};

}  // namespace

Q_DECLARE_METATYPE(Alta)
Q_DECLARE_METATYPE(Cascada)

class tst_fichas_otros : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { limpiar(); }

    // Los fallos, por orden y con el foco en su campo; las que se guardan comparten una sola
    // serie de códigos (la siguiente es 8) y cada ficha escribe lo suyo.
    void alta_data()
    {
        QTest::addColumn<Alta>("caso");
        const QString arq = QStringLiteral("ARQUITECTOS"), apa = QStringLiteral("APAREJADORES"), con = QStringLiteral("CONTRATISTAS");
        const QString altaArq = QStringLiteral("Arquitecto dado de alta correctamente");
        QTest::newRow("arq: número") << Alta{arq, 0, " ", "", "El número de colegiado es obligatorio." + OBLIGATORIO, "txt_NumColegiado"};
        QTest::newRow("arq: registro") << Alta{arq, 1, "", "X", "El número de registro es obligatorio." + OBLIGATORIO, "txt_NumColegiado"};
        QTest::newRow("arq: número repetido") << Alta{arq, 0, "00123", "", "Ya existe un arquitecto con ese número de colegiado." + REVISE, "txt_NumColegiado"};
        QTest::newRow("arq: registro repetido") << Alta{arq, 1, "77", "X", "Ya existe una sociedad con ese número de registro." + REVISE, "txt_NumColegiado"};
        QTest::newRow("arq: nombre") << Alta{arq, 0, "9", "", "El nombre del arquitecto es obligatorio." + OBLIGATORIO, "txt_Nombre"};
        QTest::newRow("arq: nombre de sociedad") << Alta{arq, 1, "9", " ", "El nombre de la sociedad es obligatorio." + OBLIGATORIO, "txt_Nombre"};
        QTest::newRow("apa: número repetido") << Alta{apa, 0, "123", "X", "Ya existe un arquitecto técnico con ese número de colegiado." + REVISE, "txt_NumColegiado"};
        QTest::newRow("apa: nombre") << Alta{apa, 0, "9", "", "El nombre del arquitecto técnico es obligatorio." + OBLIGATORIO, "txt_Nombre"};
        QTest::newRow("con: nombre") << Alta{con, 0, "", "", "El nombre del contratista es obligatorio." + OBLIGATORIO, "txt_Nombre"};
        QTest::newRow("arq: alta") << Alta{arq, 0, "0124", "X", altaArq, "", {"ARQUITECTO", 0, "124", "COA León"}};
        QTest::newRow("arq: persona y sociedad comparten número") << Alta{arq, 1, "123", "X", altaArq, "", {"ARQUITECTO", 1, "123", "COA León"}};
        QTest::newRow("apa: el de un arquitecto no choca")
            << Alta{apa, 1, "77", "X", "Arquitecto técnico dado de alta correctamente", "", {"ARQUITECTO TECNICO", 1, "77", "nulo"}};
        QTest::newRow("con: repetido vale") << Alta{con, 1, "", "Obras SA", "Contratista dado de alta correctamente", "", {"CONSTRUCTOR", 1, "nulo", "nulo"}};
    }

    void alta()
    {
        QFETCH(Alta, caso);
        Entorno e;
        sembrar();
        FichaOtros* f = abrirOtros(caso.tabla, QStringLiteral("ALTA"));
        tipo(f, caso.tipo)->setChecked(true);
        if (caso.tabla != QLatin1String("CONTRATISTAS"))
            poner(f, QStringLiteral("txt_NumColegiado"), caso.numero);
        if (caso.tabla == QLatin1String("ARQUITECTOS"))
            poner(f, QStringLiteral("txt_Colegio"), QStringLiteral("COA León"));
        poner(f, {{"txt_Nombre", caso.nombre}, {"txt_NIF", "A4"}, {"txt_Telefono2", "975 22 33 44"}});
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(e.textos(), QStringList{caso.mensaje});
        QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM OTROS")).toInt(), caso.foco.isEmpty() ? 5 : 4);
        QCOMPARE(abierta(f), !caso.foco.isEmpty());
        if (!caso.foco.isEmpty()) {
            QCOMPARE(f->focusWidget(), control(f, caso.foco));
            return;
        }
        QCOMPARE(fila(QStringLiteral("SELECT Categoria, esS, COALESCE(CAST(NumColegiado AS TEXT), 'nulo'), COALESCE(Colegio, 'nulo'), Tfno_Cli1 "
                                     "FROM OTROS WHERE Codigo_Cli = 8")),
                 caso.guardado + QVariantList{QStringLiteral("975 22 33 44")});
        QVERIFY(listaAbierta(caso.tabla));  // sin quien reciba el alta se abre la lista
    }

    // Tipo al abrir: el de un arquitecto guardado queda fijo; las listas de sólo personas o
    // sólo sociedades lo fijan; autores y sociedades no se editan desde su lista.
    void apertura_data()
    {
        QTest::addColumn<QStringList>("caso");  // tabla, operación, código, tipo cargado (-1: no abre), marco habilitado
        QTest::newRow("arquitecto guardado") << QStringList{"ARQUITECTOS", "MODIFICAR", "5", "1", ""};
        QTest::newRow("contratista guardado") << QStringList{"CONTRATISTAS", "MODIFICAR", "7", "1", "1"};
        QTest::newRow("lista simple") << QStringList{"ARQUITECTOS_SIMPLE", "ALTA", "0", "0", ""};
        QTest::newRow("lista de sociedades") << QStringList{"ARQUITECTOS_SOCIEDAD", "ALTA", "0", "1", ""};
        QTest::newRow("lista de autores") << QStringList{"ARQUITECTOS_AUTORES", "ALTA", "0", "0", "1"};
        QTest::newRow("autores no se editan") << QStringList{"ARQUITECTOS_AUTORES", "MODIFICAR", "4", "-1", ""};
    }

    void apertura()
    {
        QFETCH(QStringList, caso);
        Entorno e;
        sembrar();
        FichaOtros* f = abrirOtros(caso[0], caso[1], caso[2].toInt());
        QCOMPARE(f != nullptr, caso[3] != QLatin1String("-1"));
        if (!f)
            return;
        QVERIFY(tipo(f, caso[3].toInt())->isChecked());
        QCOMPARE(control(f, QStringLiteral("Frame2"))->isEnabled(), !caso[4].isEmpty());
        QVERIFY(!f->hayCambios());
    }

    void cascadasArquitecto_data()
    {
        QTest::addColumn<Cascada>("caso");
        const QVariant nulo(QMetaType(QMetaType::QString));
        QTest::newRow("primer arquitecto sin sociedad")
            << Cascada{4, {"123", "9", nulo, ""}, {"Juan Ruiz Díaz", "124", "9", nulo, "", "Plaza Mayor, 3"}, "124"};
        QTest::newRow("primer arquitecto con sociedad")
            << Cascada{4, {"123", "9", "Estudio SLP", ""}, {"Juan Ruiz Díaz", "124", "9", "Estudio SLP", "", "antigua"}, "124"};
        QTest::newRow("tercer arquitecto: Config no cambia") << Cascada{4, {"5", "123", nulo, ""}, {"viejo", "5", "123", nulo, "", "antigua"}, "124"};
        QTest::newRow("ceros delante: no se halla en Config") << Cascada{4, {"0123", "9", nulo, ""}, {"viejo", "0123", "9", nulo, "", "antigua"}, "124"};
        QTest::newRow("sociedad") << Cascada{5, {"123", "9", "Estudio", "77"}, {"viejo", "123", "9", "Estudio SLP Nueva", "124", "Plaza Mayor, 3"}, "123"};
    }

    void cascadasArquitecto()
    {
        QFETCH(Cascada, caso);
        Entorno e;
        sembrar();
        sql(QStringLiteral("DELETE FROM Config"));
        sql(QStringLiteral("INSERT INTO Config (Arq1Nom, Arq1Col, Arq3Col, SocNom, SocReg, Domicilio) VALUES ('viejo', ?, ?, ?, ?, 'antigua')"),
            caso.previa);
        // Enlaces por número: los dos con 123 cambian aunque uno sea de otro arquitecto.
        sql(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol) VALUES (1, 4, '123'), (2, 99, '123'), (3, 4, '12')"));
        sql(QStringLiteral("INSERT INTO Proyectos_A (PryCod, APACOL, CLINOM) VALUES (1, '123', 'nada')"));
        sql(QStringLiteral("INSERT INTO datosB1B3B4 (Clave, ARQCOD, ARQNOM) VALUES (1, ?, 'viejo'), (2, 99, 'ajeno')"), {caso.codigo});
        sql(QStringLiteral("INSERT INTO datosB4 (Clave, PERCOD, PERNOM, PAGCOD, PAGNOM) VALUES (1, ?, 'viejo', ?, 'pagador'), (2, 98, 'ajeno', 0, '')"),
            {caso.codigo, caso.codigo});

        FichaOtros* f = abrirOtros(QStringLiteral("ARQUITECTOS"), QStringLiteral("MODIFICAR"), caso.codigo);
        const bool esSociedad = caso.codigo == 5;
        const QString nombre = esSociedad ? QStringLiteral("Estudio SLP Nueva") : QStringLiteral("Juan Ruiz Díaz");
        poner(f, {{"txt_NumColegiado", "124"}, {"txt_Nombre", esSociedad ? nombre : "Juan"}, {"txt_Apellidos", esSociedad ? "" : "Ruiz Díaz"},
                  {"txt_Domicilio", "Plaza Mayor, 3"}});
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Datos del arquitecto modificados correctamente")});
        QCOMPARE(fila(QStringLiteral("SELECT Arq1Nom, Arq1Col, Arq3Col, SocNom, SocReg, Domicilio FROM Config")), caso.config);
        QCOMPARE(valor(QStringLiteral("SELECT group_concat(NumCol, '|') FROM (SELECT NumCol FROM Arquitectos_Proyecto ORDER BY PryCod) AS s")).toString(),
                 caso.numColNuevo + QLatin1Char('|') + caso.numColNuevo + QStringLiteral("|12"));
        // Certificados: sólo las filas de este arquitecto; el pagador no es cosa suya.
        QCOMPARE(valor(QStringLiteral("SELECT group_concat(t, '|') FROM (SELECT b.ARQNOM || '/' || COALESCE(b.ARQDOM, '') || '/' || c.PERNOM || '/' || "
                                      "COALESCE(c.PERDOM, '') || '/' || c.PAGNOM AS t FROM datosB1B3B4 b JOIN datosB4 c USING (Clave) "
                                      "ORDER BY Clave) AS s")).toString(),
                 nombre + "/Plaza Mayor, 3/" + nombre + "/Plaza Mayor, 3/pagador|ajeno//ajeno//");
        // Proyectos_A no es cosa de los arquitectos.
        QCOMPARE(fila(QStringLiteral("SELECT APACOL, CLINOM FROM Proyectos_A")), (QVariantList{QStringLiteral("123"), QStringLiteral("nada")}));
    }

    // Proyectos_A: el arquitecto técnico por su número anterior, el contratista por su código.
    void cascadasAparejadorYContratista()
    {
        Entorno e;
        sembrar();
        sql(QStringLiteral("INSERT INTO Proyectos_A (PryCod, APACOL, APANOM, Codigo_Constructor, CONNOM) VALUES "
                           "(1, '123', 'Rosa', 7, 'Obras SA'), (2, '12', 'otra', 8, 'otro')"));
        FichaOtros* f = abrirOtros(QStringLiteral("APAREJADORES"), QStringLiteral("MODIFICAR"), 6);
        poner(f, QStringLiteral("txt_NumColegiado"), QStringLiteral("321"));
        tipo(f, 1)->setChecked(true);  // de persona a sociedad: se admite y conserva el número
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Datos del arquitecto técnico modificados correctamente")});
        QCOMPARE(fila(QStringLiteral("SELECT esS, NumColegiado FROM OTROS WHERE Codigo_Cli = 6")), (QVariantList{1, 321}));
        e.limpiarCuadros();
        f = abrirOtros(QStringLiteral("CONTRATISTAS"), QStringLiteral("MODIFICAR"), 7);
        poner(f, QStringLiteral("txt_Nombre"), QStringLiteral("Obras y Reformas SA"));
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Datos del contratista modificados correctamente")});
        QCOMPARE(valor(QStringLiteral("SELECT group_concat(APACOL || '/' || APANOM || '/' || CONNOM, '|') FROM (SELECT * FROM Proyectos_A ORDER BY PryCod) AS s")),
                 QStringLiteral("321/Rosa León/Obras y Reformas SA|12/otra/otro"));
    }

    // Devolución: quien pidió el alta recibe código, nombre, número y la fila de su lista, ya
    // confirmado el alta; la lista del menú no se abre.
    void devolucion_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("numero");
        QTest::newRow("coordinador") << "COORDINADOR_SS" << "321";
        QTest::newRow("arquitecto") << "ARQUITECTOS" << "321";
        QTest::newRow("arquitecto técnico") << "APAREJADORES" << "321";
        QTest::newRow("contratista") << "CONTRATISTAS" << "";
    }

    void devolucion()
    {
        QFETCH(QString, tabla);
        QFETCH(QString, numero);
        Entorno e;
        sembrar();
        QList<RegistroGuardado> recibidos;
        QStringList filasAlRecibir;
        FichaOtros* f = abrirOtros(tabla, QStringLiteral("ALTA"), 0, QStringLiteral("RUTA"), [&](const RegistroGuardado& r) {
            recibidos << r;
            filasAlRecibir << valor(QStringLiteral("SELECT Nombre_Cli FROM OTROS WHERE Codigo_Cli = ?"), {r.codigo}).toString();
        });
        if (!numero.isEmpty())
            poner(f, QStringLiteral("txt_NumColegiado"), numero);
        poner(f, {{"txt_Nombre", "Ana"}, {"txt_Apellidos", "Gil"}, {"txt_Municipio", "Soria"}});
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(recibidos.size(), 1);
        const RegistroGuardado& r = recibidos[0];
        QCOMPARE((QStringList{r.operacion, QString::number(r.codigo), r.nombre, r.numero}),
                 (QStringList{"ALTA", "8", "Ana Gil", numero}));
        QCOMPARE(r.columnas, (QStringList{numero, "Ana", "Gil", "", "", "Soria", ""}));
        QCOMPARE(filasAlRecibir, QStringList{"Ana"});  // ya guardada al recibirla
        QVERIFY(!abierta(f));
        QVERIFY(!Pantallas::cargada<frmBuscar>());
    }

    // Alta pedida desde la configuración: nombre y número, sin código; los datos del estudio
    // sólo en el primer arquitecto sin sociedad.
    void devolucionConfiguracion_data()
    {
        QTest::addColumn<QString>("sociedadPrevia");
        QTest::addColumn<QStringList>("esperado");  // nombre, número, código, domicilio
        QTest::newRow("sin sociedad") << "" << QStringList{"Ana Gil", "321", "", "Real, 1"};
        QTest::newRow("con sociedad") << "Estudio SLP" << QStringList{"Ana Gil", "321", "", ""};
    }

    void devolucionConfiguracion()
    {
        QFETCH(QString, sociedadPrevia);
        QFETCH(QStringList, esperado);
        Entorno e;
        auto* conf = new frmConfiguracion;
        poner(conf, QStringLiteral("txt_Sociedad"), sociedadPrevia);
        FichaOtros* f = abrirOtros(QStringLiteral("ARQUITECTOS_SIMPLE"), QStringLiteral("ALTA"), 0, QStringLiteral("FRMCONFIGURACION_ARQUITECTO_1"),
                                   conf->peticionSelector(0).alDarDeAlta);
        poner(f, {{"txt_NumColegiado", "321"}, {"txt_Nombre", "Ana"}, {"txt_Apellidos", "Gil"}, {"txt_Domicilio", "Real, 1"}});
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Arquitecto dado de alta correctamente")});
        QCOMPARE(leer(conf, QStringList{"txt_Arquitecto_1", "txt_NumColegiado_1", "txt_CodArq_1", "txt_Domicilio"}), esperado);
    }
};

PRUEBA_PANTALLAS(tst_fichas_otros)
#include "tst_fichas_otros.moc"
