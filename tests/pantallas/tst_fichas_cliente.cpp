// Ficha de clientes: alta, modificación, validación, pregunta al salir, cascadas y devolución.
#include "masterdata/frmCliente.h"
#include "masterdata/frmProyecto.h"
#include "search/frmBuscarSeleccionar.h"
#include "tests/pantallas/tst_fichas_comun.h"

#include <QTabWidget>
#include <QtTest>

using Mensajes::Respuesta;
using namespace fichas;

namespace {

frmCliente* abrirCliente(const QString& operacion = QStringLiteral("ALTA"), qint64 codigo = 0, const QString& clave = {})
{
    return abrir<frmCliente>(QStringLiteral("CLIENTES"), operacion, codigo, clave);
}

void rellenarRepresentante(QWidget* f)
{
    poner(f, {{"txt_Nombre_Representante", "Luis"}, {"txt_Apellidos_Representante", "Pérez Gil"},
              {"txt_NIF_Representante", "87654321X"}, {"txt_Representacion", "Administrador único"}});
}

// Cliente 3, sociedad con representante 9, y copias suyas en proyectos y certificados.
void sembrarClienteConCopias()
{
    sql(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, NIF, Provincia_Cli, esR) VALUES (3, 'Obras SL', 'B1', 'Soria', 9)"));
    sql(QStringLiteral("INSERT INTO Representantes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, Representacion) "
                       "VALUES (9, 'Eva', 'Sanz', '111', 'Apoderada')"));
    sql(QStringLiteral("INSERT INTO Proyectos_A (PryCod, Codigo_Cliente, Codigo_Representante, CLINOM, REPNOM) VALUES "
                       "(1, 3, 9, 'viejo', 'viejo'), (2, 3, 4, 'viejo', 'viejo'), (3, 5, 9, 'viejo', 'viejo'), "
                       "(4, 5, 4, 'ajeno', 'ajeno')"));
    sql(QStringLiteral("INSERT INTO datosB4 (Clave, PAGCOD, PAGNOM, PERCOD, PERNOM) VALUES "
                       "(1, 3, 'viejo', 3, 'perceptor'), (2, 8, 'ajeno', 3, 'perceptor')"));
}

QString nombreCliente3() { return valor(QStringLiteral("SELECT Nombre_Cli FROM Clientes WHERE Codigo_Cli = 3")).toString(); }

// Un caso de validación: lo escrito, el aviso, y el campo y la pestaña con el foco ("" si se guarda).
struct Validacion {
    bool sociedad;
    QString nombre, nif, correo, nombreRep, apellidosRep, mensaje, foco;
    int pestana = 0;
};

// Al salir: lo escrito en el nombre, la respuesta (-1: no pregunta), si sigue abierta y lo guardado.
struct Salida {
    QString nombre;
    int respuesta;
    bool sigueAbierta;
    QString guardado;
};

}  // namespace

Q_DECLARE_METATYPE(Validacion)
Q_DECLARE_METATYPE(Salida)

class tst_fichas_cliente : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { limpiar(); }

    void altaPersona()
    {
        Entorno e;
        auto* f = abrirCliente();
        poner(f, {{"txt_Nombre", "  Ana  "}, {"txt_NIF", "12345678Z"}, {"txt_Municipio", "Soria"}, {"cbo_Provincia_Cliente", "Soria"}});
        // Lo escrito en la pestaña deshabilitada no se guarda.
        poner(f, QStringLiteral("txt_Nombre_Representante"), QStringLiteral("Nadie"));
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Cliente dado de alta correctamente")});
        QVERIFY(!abierta(f));
        QCOMPARE(fila(QStringLiteral("SELECT Codigo_Cli, Nombre_Cli, Ape_Cli IS NULL, Municipio_Cli, Provincia_Cli, esR, "
                                     "Correo_Cli IS NULL, (SELECT count(*) FROM Representantes) FROM Clientes")),
                 (QVariantList{1, QStringLiteral("Ana"), 1, QStringLiteral("Soria"), QStringLiteral("Soria"), -1, 1, 0}));
    }

    // Cada tabla lleva su serie: el máximo más uno, también tras borrar el último.
    void seriesDeClaves()
    {
        Entorno e;
        sql(QStringLiteral("INSERT INTO Representantes (Codigo_Cli, Nombre_Cli) VALUES (6, 'suelto')"));
        for (const auto& [cliente, representante] : QList<QPair<int, int>>{{1, 7}, {2, 8}}) {
            auto* f = abrirCliente();
            tipo(f, 1)->setChecked(true);
            poner(f, {{"txt_Nombre", QStringLiteral("Sociedad %1").arg(cliente)}, {"txt_NIF", "B1"}});
            rellenarRepresentante(f);
            pulsar(f, QStringLiteral("cmd_Guardar"));
            QCOMPARE(fila(QStringLiteral("SELECT esR, (SELECT Ape_Cli FROM Representantes WHERE Codigo_Cli = esR) FROM Clientes "
                                         "WHERE Codigo_Cli = ?"), {cliente}),
                     (QVariantList{representante, QStringLiteral("Pérez Gil")}));
        }
        sql(QStringLiteral("DELETE FROM Clientes WHERE Codigo_Cli = 2"));
        auto* f = abrirCliente();
        poner(f, {{"txt_Nombre", "Ana"}, {"txt_NIF", "1"}});
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(valor(QStringLiteral("SELECT max(Codigo_Cli) FROM Clientes")).toInt(), 2);
    }

    void validacion_data()
    {
        QTest::addColumn<Validacion>("caso");
        const QString ok = QStringLiteral("Cliente dado de alta correctamente");
        const QString escriba = QStringLiteral("\nPor favor, escriba un valor");
        const QString sinArroba = QStringLiteral("Dirección de correo incorrecta: No contiene la @");
        QTest::newRow("nombre de persona") << Validacion{false, "  ", "1", "", "", "", "El nombre del cliente es obligatorio." + escriba, "txt_Nombre"};
        QTest::newRow("nombre de sociedad") << Validacion{true, "", "1", "", "R", "S", "El nombre de la sociedad es obligatorio." + escriba, "txt_Nombre"};
        QTest::newRow("NIF") << Validacion{false, "Ana", " ", "", "", "", "El NIF del cliente es obligatorio." + escriba, "txt_NIF"};
        QTest::newRow("el nombre va antes que el NIF") << Validacion{false, "", "", "x", "", "", "El nombre del cliente es obligatorio." + escriba, "txt_Nombre"};
        QTest::newRow("correo ab") << Validacion{false, "Ana", "1", "ab", "", "", sinArroba, "txt_Correo"};
        QTest::newRow("correo a@b") << Validacion{false, "Ana", "1", "a@b", "", "",
                                                  "Dirección de correo incorrecta: No se ha proporcionado el '.' del dominio", "txt_Correo"};
        QTest::newRow("correo a@b.") << Validacion{false, "Ana", "1", "a@b.", "", "",
            "Dirección de correo incorrecta: No se ha proporcionado el dominio de la dirección (p.ej: '.com')", "txt_Correo"};
        QTest::newRow("correo a@b.c") << Validacion{false, "Ana", "1", "a@b.c", "", "", ok, ""};
        QTest::newRow("correo antes que el representante") << Validacion{true, "Ana", "1", "ab", "", "", sinArroba, "txt_Correo"};
        QTest::newRow("nombre del representante") << Validacion{true, "Obras", "B1", "", " ", "Gil",
            "El nombre del representante es obligatorio." + escriba, "txt_Nombre_Representante", 1};
        QTest::newRow("apellidos del representante") << Validacion{true, "Obras", "B1", "", "Eva", "",
            "Los apellidos del representante son obligatorios." + escriba, "txt_Apellidos_Representante", 1};
        QTest::newRow("sociedad sin apellidos") << Validacion{true, "Obras", "B1", "", "Eva", "Gil", ok, ""};
    }

    void validacion()
    {
        QFETCH(Validacion, caso);
        Entorno e;
        auto* f = abrirCliente();
        tipo(f, caso.sociedad ? 1 : 0)->setChecked(true);
        poner(f, {{"txt_Nombre", caso.nombre}, {"txt_NIF", caso.nif}, {"txt_Correo", caso.correo},
                  {"txt_Nombre_Representante", caso.nombreRep}, {"txt_Apellidos_Representante", caso.apellidosRep}});
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{caso.mensaje});
        QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Clientes")).toInt(), caso.foco.isEmpty() ? 1 : 0);
        if (caso.foco.isEmpty())
            return;
        QCOMPARE(e.cuadros[0].icono, Mensajes::Icono::Exclamacion);
        QCOMPARE(f->focusWidget(), control(f, caso.foco));
        QCOMPARE(f->findChild<QTabWidget*>(QStringLiteral("mst_1"))->currentIndex(), caso.pestana);
        QVERIFY(abierta(f));
    }

    // Filtros al teclear: C.P. sólo cifras; NIF sin espacios y con un solo guion.
    void filtros_data()
    {
        QTest::addColumn<QStringList>("caso");  // campo, tecleado, queda
        QTest::newRow("C.P.") << QStringList{"txt_CP", "28a-0,1.5x9", "28015"};
        QTest::newRow("NIF con un guion") << QStringList{"txt_NIF", "b-12-3ñ 4", "b-1234"};
        QTest::newRow("NIF del representante sin filtro") << QStringList{"txt_NIF_Representante", "x-1-ñ", "x-1-ñ"};
    }

    void filtros()
    {
        QFETCH(QStringList, caso);
        Entorno e;
        auto* f = abrirCliente();
        tipo(f, 1)->setChecked(true);
        teclear(control(f, caso[0]), caso[1]);
        QCOMPARE(leer(f, caso[0]), caso[2]);
    }

    // Modificar: el cliente y su representante, y las copias en proyectos (por Codigo_Cliente y
    // Codigo_Representante, vacío como texto vacío) y en los certificados B4 (sólo el pagador).
    // El mensaje de guardado sale con la transacción ya confirmada: mientras se lee, otro puesto
    // puede guardar.
    void guardadoConfirmadoAntesDelMensaje_data()
    {
        QTest::addColumn<QString>("operacion");
        QTest::newRow("alta") << "ALTA";
        QTest::newRow("modificación") << "MODIFICAR";
    }

    void guardadoConfirmadoAntesDelMensaje()
    {
        QFETCH(QString, operacion);
        Entorno e;
        sembrarClienteConCopias();
        auto* f = abrirCliente(operacion, 3);
        poner(f, {{"txt_Nombre", "Obras Nuevas SL"}, {"txt_NIF", "B2"}});
        QStringList vistos;
        bool otroPuestoGuarda = false;
        Mensajes::instalarContestador([&](const Mensajes::Cuadro& c) {
            vistos << c.texto;
            otroPuestoGuarda = e.otroPuestoPuedeGuardar();
            return c.porDefecto;
        });
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(vistos, QStringList{operacion == QLatin1String("ALTA") ? QStringLiteral("Cliente dado de alta correctamente")
                                                                        : QStringLiteral("Datos del cliente modificados correctamente")});
        QVERIFY(otroPuestoGuarda);
    }

    void modificarYCascadas()
    {
        Entorno e;
        sembrarClienteConCopias();
        auto* f = abrirCliente(QStringLiteral("MODIFICAR"), 3);
        QVERIFY(tipo(f, 1)->isChecked());
        QCOMPARE(leer(f, QStringList{"txt_Nombre", "cbo_Provincia_Cliente", "txt_Representacion", "lbl_CodRepresentante"}),
                 (QStringList{"Obras SL", "Soria", "Apoderada", "9"}));
        poner(f, {{"txt_Nombre", "Obras Nuevas SL "}, {"txt_Domicilio", "Mayor, 1"}, {"txt_Apellidos_Representante", "Sanz Ruiz"}});
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Datos del cliente modificados correctamente")});
        QVERIFY(abierta(f) && !f->hayCambios());
        QCOMPARE(fila(QStringLiteral("SELECT Nombre_Cli, Dirección_Cli, esR, (SELECT group_concat(Ape_Cli) FROM Representantes) "
                                     "FROM Clientes WHERE Codigo_Cli = 3")),
                 (QVariantList{QStringLiteral("Obras Nuevas SL"), QStringLiteral("Mayor, 1"), 9, QStringLiteral("Sanz Ruiz")}));
        QCOMPARE(fila(QStringLiteral("SELECT CLIDOM, CLIPRO, CLITEL, CLICP FROM Proyectos_A WHERE PryCod = 1")),
                 (QVariantList{QStringLiteral("Mayor, 1"), QStringLiteral("Soria"), QString(""), QString("")}));
        QCOMPARE(valor(QStringLiteral("SELECT group_concat(CLINOM || '/' || REPNOM || '/' || COALESCE(REPNIF, ''), '|') "
                                      "FROM (SELECT * FROM Proyectos_A ORDER BY PryCod) AS s")).toString(),
                 QStringLiteral("Obras Nuevas SL/Eva Sanz Ruiz/111|Obras Nuevas SL/viejo/|viejo/Eva Sanz Ruiz/111|ajeno/ajeno/"));
        QCOMPARE(valor(QStringLiteral("SELECT group_concat(PAGNOM || '/' || COALESCE(PAGDOM, '') || '/' || PERNOM, '|') "
                                      "FROM (SELECT * FROM datosB4 ORDER BY Clave) AS s")).toString(),
                 QStringLiteral("Obras Nuevas SL/Mayor, 1/perceptor|ajeno//perceptor"));
    }

    // De sociedad a persona: esR -1, el representante se queda y los proyectos no ven el cambio de tipo.
    void sociedadAPersona()
    {
        Entorno e;
        sembrarClienteConCopias();
        auto* f = abrirCliente(QStringLiteral("MODIFICAR"), 3);
        tipo(f, 0)->setChecked(true);
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(fila(QStringLiteral("SELECT c.esR, (SELECT count(*) FROM Representantes WHERE Codigo_Cli = 9), p.REPNOM, p.Codigo_Representante "
                                     "FROM Clientes c, Proyectos_A p WHERE c.Codigo_Cli = 3 AND p.PryCod = 1")),
                 (QVariantList{-1, 1, QStringLiteral("viejo"), 9}));
    }

    void preguntaAlSalir_data()
    {
        QTest::addColumn<Salida>("caso");
        QTest::newRow("sin cambios") << Salida{"Obras SL", -1, false, "Obras SL"};
        QTest::newRow("sólo mayúsculas no es cambio") << Salida{"OBRAS SL", -1, false, "Obras SL"};
        QTest::newRow("sí guarda y cierra") << Salida{"Otra", int(Respuesta::Si), false, "Otra"};
        QTest::newRow("no cierra sin guardar") << Salida{"Otra", int(Respuesta::No), false, "Obras SL"};
        QTest::newRow("cancelar se queda") << Salida{"Otra", int(Respuesta::Cancelar), true, "Obras SL"};
        QTest::newRow("sí con datos mal se queda") << Salida{"", int(Respuesta::Si), true, "Obras SL"};
    }

    void preguntaAlSalir()
    {
        QFETCH(Salida, caso);
        Entorno e;
        sembrarClienteConCopias();
        auto* f = abrirCliente(QStringLiteral("MODIFICAR"), 3);
        poner(f, QStringLiteral("txt_Nombre"), caso.nombre);
        e.respuestas << Respuesta(caso.respuesta < 0 ? int(Respuesta::Si) : caso.respuesta);
        pulsar(f, QStringLiteral("cmd_Cerrar"));
        QCOMPARE(e.textos().value(0), caso.respuesta < 0 ? QString() : QStringLiteral("¿Desea guardar los cambios antes de salir?"));
        if (caso.respuesta >= 0)
            QCOMPARE(e.cuadros[0].botones, Mensajes::Botones::SiNoCancelar);
        QCOMPARE(abierta(f), caso.sigueAbierta);
        QCOMPARE(nombreCliente3(), caso.guardado);
    }

    // Devolución a la ficha de proyecto por "Nuevo" en su selector de clientes: código, NIF y
    // nombre del cliente y de su representante; con quien recibe no se abre la lista.
    void devolucion()
    {
        Entorno e;
        QStringList controles{"lbl_CodCliente", "lbl_NIFCliente", "txt_Cliente", "lbl_CodRepresentante", "lbl_NIFRepresentante",
                              "txt_Representante", "txt_RepresentacionOstentada"};
        auto* r = abrir<frmProyecto>(QStringLiteral("PROYECTOS_A"), QStringLiteral("ALTA"));
        r->img_Buscar_Click(2);
        auto* selector = Pantallas::cargada<frmBuscarSeleccionar>();
        QVERIFY(selector);
        selector->cmd_Nuevo_Click();
        auto* f = Pantallas::cargada<frmCliente>();
        QVERIFY(f);
        QCOMPARE(f->ClaveRetorno, QStringLiteral("FRMPROYECTO_CLIENTE"));
        tipo(f, 1)->setChecked(true);
        poner(f, {{"txt_Nombre", " Obras del Duero "}, {"txt_NIF", "B12345678"}});
        rellenarRepresentante(f);
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(leer(r, controles), (QStringList{"1", "B12345678", "Obras del Duero", "1", "87654321X", "Luis Pérez Gil", "Administrador único"}));
        QVERIFY(!abierta(f));
        QVERIFY(!Pantallas::cargada<frmBuscar>());
    }
};

PRUEBA_PANTALLAS(tst_fichas_cliente)
#include "tst_fichas_cliente.moc"
