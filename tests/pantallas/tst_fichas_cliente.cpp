// Ficha de clientes: alta, modificación, validación, pregunta al salir, cascadas y devolución.
#include "core/frmValidarNIFCIF.h"
#include "masterdata/frmCliente.h"
#include "masterdata/frmProyecto.h"
#include "tests/pantallas/tst_fichas_comun.h"

#include <QTabWidget>
#include <QtTest>

using Mensajes::Respuesta;
using namespace fichas;

namespace {

void rellenarCliente(QWidget* f, const QString& nombre = QStringLiteral("Ana"), const QString& nif = QStringLiteral("12345678Z"))
{
    poner(f, QStringLiteral("txt_Nombre"), nombre);
    poner(f, QStringLiteral("txt_NIF"), nif);
}

void rellenarRepresentante(QWidget* f)
{
    poner(f, QStringLiteral("txt_Nombre_Representante"), QStringLiteral("Luis"));
    poner(f, QStringLiteral("txt_Apellidos_Representante"), QStringLiteral("Pérez Gil"));
    poner(f, QStringLiteral("txt_NIF_Representante"), QStringLiteral("87654321X"));
    poner(f, QStringLiteral("txt_Representacion"), QStringLiteral("Administrador único"));
}

void sociedad(QWidget* f) { qobject_cast<QAbstractButton*>(control(f, QStringLiteral("opt_Tipo_1")))->setChecked(true); }

QTabWidget* pestanas(QWidget* f) { return f->findChild<QTabWidget*>(QStringLiteral("mst_1")); }

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

}  // namespace

class tst_fichas_cliente : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { limpiar(); }

    void altaPersona()
    {
        EntornoPrueba e;
        e.conectar();
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"));
        QVERIFY(f);
        QCOMPARE(f->windowTitle(), QStringLiteral("Nuevo cliente"));
        QCOMPARE(f->tag(), QStringLiteral("ALTA"));
        QVERIFY(qobject_cast<QAbstractButton*>(control(f, QStringLiteral("opt_Tipo_0")))->isChecked());
        QVERIFY(!pestanas(f)->isTabEnabled(1));
        QCOMPARE(pestanas(f)->tabText(0), QStringLiteral("Cliente"));
        QCOMPARE(pestanas(f)->tabText(1), QStringLiteral("Representante"));
        QCOMPARE(qobject_cast<QComboBox*>(control(f, QStringLiteral("cbo_Provincia_Cliente")))->count(),
                 valor(QStringLiteral("SELECT count(*) FROM PROVINCIAS")).toInt());

        rellenarCliente(f, QStringLiteral("  Ana  "));
        poner(f, QStringLiteral("txt_Municipio"), QStringLiteral("Soria"));
        poner(f, QStringLiteral("cbo_Provincia_Cliente"), QStringLiteral("Soria"));
        // Lo escrito en la pestaña deshabilitada no se guarda.
        poner(f, QStringLiteral("txt_Nombre_Representante"), QStringLiteral("Nadie"));
        pulsar(f, QStringLiteral("cmd_Guardar"));

        QCOMPARE(e.textos(), QStringList{QStringLiteral("Cliente dado de alta correctamente")});
        QCOMPARE(e.cuadros[0].titulo, QStringLiteral("Información"));
        QVERIFY(!abierta(f));
        const QVariantList r = fila(QStringLiteral("SELECT Codigo_Cli, Nombre_Cli, Ape_Cli IS NULL, Municipio_Cli, Provincia_Cli, esR, "
                                                   "Correo_Cli IS NULL, Otros IS NULL FROM Clientes"));
        QCOMPARE(r, (QVariantList{1, QStringLiteral("Ana"), 1, QStringLiteral("Soria"), QStringLiteral("Soria"), -1, 1, 1}));
        QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Representantes")).toInt(), 0);
        QVERIFY(!transaccionEnCurso);
    }

    // Cada tabla lleva su serie: el máximo más uno, también tras borrar el último.
    void seriesDeClaves()
    {
        EntornoPrueba e;
        e.conectar();
        sql(QStringLiteral("INSERT INTO Representantes (Codigo_Cli, Nombre_Cli) VALUES (6, 'suelto')"));
        const QList<QPair<int, int>> esperadas = {{1, 7}, {2, 8}};
        for (const auto& [cliente, representante] : esperadas) {
            auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"));
            rellenarCliente(f, QStringLiteral("Sociedad %1").arg(cliente));
            sociedad(f);
            rellenarRepresentante(f);
            pulsar(f, QStringLiteral("cmd_Guardar"));
            QCOMPARE(fila(QStringLiteral("SELECT esR FROM Clientes WHERE Codigo_Cli = ?"), {cliente}), QVariantList{representante});
            QCOMPARE(fila(QStringLiteral("SELECT Representacion, Ape_Cli FROM Representantes WHERE Codigo_Cli = ?"), {representante}),
                     (QVariantList{QStringLiteral("Administrador único"), QStringLiteral("Pérez Gil")}));
        }
        sql(QStringLiteral("DELETE FROM Clientes WHERE Codigo_Cli = 2"));
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"));
        rellenarCliente(f);
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(valor(QStringLiteral("SELECT max(Codigo_Cli) FROM Clientes")).toInt(), 2);
    }

    void validacion_data()
    {
        QTest::addColumn<bool>("esSociedad");
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<QString>("nif");
        QTest::addColumn<QString>("correo");
        QTest::addColumn<QString>("nombreRep");
        QTest::addColumn<QString>("apellidosRep");
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<QString>("foco");
        QTest::addColumn<int>("pestana");
        const QString ok = QStringLiteral("Cliente dado de alta correctamente");
        const QString sinArroba = QStringLiteral("Dirección de correo incorrecta: No contiene la @");
        const QString sinPunto = QStringLiteral("Dirección de correo incorrecta: No se ha proporcionado el '.' del dominio");
        const QString sinDominio =
            QStringLiteral("Dirección de correo incorrecta: No se ha proporcionado el dominio de la dirección (p.ej: '.com')");
        QTest::newRow("nombre de persona") << false << "  " << "1" << "" << "" << "" << "El nombre del cliente es obligatorio.\nPor favor, escriba un valor" << "txt_Nombre" << 0;
        QTest::newRow("nombre de sociedad") << true << "" << "1" << "" << "R" << "S" << "El nombre de la sociedad es obligatorio.\nPor favor, escriba un valor" << "txt_Nombre" << 0;
        QTest::newRow("NIF") << false << "Ana" << " " << "" << "" << "" << "El NIF del cliente es obligatorio.\nPor favor, escriba un valor" << "txt_NIF" << 0;
        QTest::newRow("el nombre va antes que el NIF") << false << "" << "" << "x" << "" << "" << "El nombre del cliente es obligatorio.\nPor favor, escriba un valor" << "txt_Nombre" << 0;
        QTest::newRow("correo ab") << false << "Ana" << "1" << "ab" << "" << "" << sinArroba << "txt_Correo" << 0;
        QTest::newRow("correo a@b") << false << "Ana" << "1" << "a@b" << "" << "" << sinPunto << "txt_Correo" << 0;
        QTest::newRow("correo a.b@c") << false << "Ana" << "1" << "a.b@c" << "" << "" << sinPunto << "txt_Correo" << 0;
        QTest::newRow("correo a@b.") << false << "Ana" << "1" << "a@b." << "" << "" << sinDominio << "txt_Correo" << 0;
        QTest::newRow("correo a@b.c") << false << "Ana" << "1" << "a@b.c" << "" << "" << ok << "" << 0;
        QTest::newRow("correo antes que el representante") << true << "Ana" << "1" << "ab" << "" << "" << sinArroba << "txt_Correo" << 0;
        QTest::newRow("nombre del representante") << true << "Obras" << "B1" << "" << " " << "Gil" << "El nombre del representante es obligatorio.\nPor favor, escriba un valor" << "txt_Nombre_Representante" << 1;
        QTest::newRow("apellidos del representante") << true << "Obras" << "B1" << "" << "Eva" << "" << "Los apellidos del representante son obligatorios.\nPor favor, escriba un valor" << "txt_Apellidos_Representante" << 1;
        QTest::newRow("sociedad sin apellidos") << true << "Obras" << "B1" << "" << "Eva" << "Gil" << ok << "" << 0;
    }

    void validacion()
    {
        QFETCH(bool, esSociedad);
        QFETCH(QString, nombre);
        QFETCH(QString, nif);
        QFETCH(QString, correo);
        QFETCH(QString, nombreRep);
        QFETCH(QString, apellidosRep);
        QFETCH(QString, mensaje);
        QFETCH(QString, foco);
        QFETCH(int, pestana);
        EntornoPrueba e;
        e.conectar();
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"));
        if (esSociedad)
            sociedad(f);
        rellenarCliente(f, nombre, nif);
        poner(f, QStringLiteral("txt_Correo"), correo);
        poner(f, QStringLiteral("txt_Nombre_Representante"), nombreRep);
        poner(f, QStringLiteral("txt_Apellidos_Representante"), apellidosRep);
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{mensaje});
        if (foco.isEmpty()) {
            QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Clientes")).toInt(), 1);
            return;
        }
        QCOMPARE(e.cuadros[0].titulo, QStringLiteral("Aviso"));
        QCOMPARE(e.cuadros[0].icono, Mensajes::Icono::Exclamacion);
        QCOMPARE(f->focusWidget(), control(f, foco));
        QCOMPARE(pestanas(f)->currentIndex(), pestana);
        QVERIFY(f->cancelarCierre());
        QVERIFY(abierta(f));
        QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Clientes")).toInt(), 0);
    }

    void tipoDeCliente()
    {
        EntornoPrueba e;
        e.conectar();
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"));
        poner(f, QStringLiteral("txt_Apellidos"), QStringLiteral("García"));
        sociedad(f);
        QCOMPARE(leer(f, QStringLiteral("lbl_Nombre")), QStringLiteral("Empresa"));
        QCOMPARE(leer(f, QStringLiteral("lbl_NIF")), QStringLiteral("C.I.F."));
        QVERIFY(!control(f, QStringLiteral("txt_Apellidos"))->isEnabled());
        QVERIFY(!control(f, QStringLiteral("lbl_Apellidos"))->isEnabled());
        QCOMPARE(control(f, QStringLiteral("txt_Apellidos"))->palette().color(QPalette::Disabled, QPalette::Base),
                 f->palette().color(QPalette::Disabled, QPalette::Button));
        QCOMPARE(leer(f, QStringLiteral("txt_Apellidos")), QStringLiteral("García"));  // el texto se queda
        QVERIFY(pestanas(f)->isTabEnabled(1));
        qobject_cast<QAbstractButton*>(control(f, QStringLiteral("opt_Tipo_0")))->setChecked(true);
        QCOMPARE(leer(f, QStringLiteral("lbl_Nombre")), QStringLiteral("Nombre"));
        QCOMPARE(leer(f, QStringLiteral("lbl_NIF")), QStringLiteral("N.I.F."));
        QVERIFY(control(f, QStringLiteral("txt_Apellidos"))->isEnabled());
        QVERIFY(!pestanas(f)->isTabEnabled(1));
    }

    void filtrosYLimites_data()
    {
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("tecleado");
        QTest::addColumn<QString>("queda");
        QTest::newRow("C.P. sólo cifras") << "txt_CP" << "28a-0,1.5x9" << "28015";
        QTest::newRow("C.P. del representante") << "txt_CP_Representante" << "4a2" << "42";
        QTest::newRow("NIF con un guion") << "txt_NIF" << "b-12-3ñ 4" << "b-1234";
        QTest::newRow("NIF del representante sin filtro") << "txt_NIF_Representante" << "x-1-ñ" << "x-1-ñ";
        QTest::newRow("provincia de 25") << "cbo_Provincia_Cliente" << QString(30, QLatin1Char('w')) << QString(25, QLatin1Char('w'));
        QTest::newRow("nombre de 50") << "txt_Nombre" << QString(60, QChar(0xF1)) << QString(50, QChar(0xF1));
        QTest::newRow("representación de 30") << "txt_Representacion" << QString(31, QLatin1Char('r')) << QString(30, QLatin1Char('r'));
        QTest::newRow("notas de 255") << "txt_Notas" << QString(300, QLatin1Char('n')) << QString(255, QLatin1Char('n'));
    }

    void filtrosYLimites()
    {
        QFETCH(QString, campo);
        QFETCH(QString, tecleado);
        QFETCH(QString, queda);
        EntornoPrueba e;
        e.conectar();
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"));
        sociedad(f);
        QWidget* w = control(f, campo);
        if (auto* c = qobject_cast<QComboBox*>(w))
            w = c->lineEdit();
        teclear(w, tecleado);
        QCOMPARE(leer(f, campo), queda);
    }

    void modificarYCascadas()
    {
        EntornoPrueba e;
        e.conectar();
        sembrarClienteConCopias();
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("MODIFICAR"), 3);
        QCOMPARE(f->windowTitle(), QStringLiteral("Modificar cliente"));
        QVERIFY(qobject_cast<QAbstractButton*>(control(f, QStringLiteral("opt_Tipo_1")))->isChecked());
        QCOMPARE(leer(f, QStringLiteral("txt_Nombre")), QStringLiteral("Obras SL"));
        QCOMPARE(leer(f, QStringLiteral("cbo_Provincia_Cliente")), QStringLiteral("Soria"));
        QCOMPARE(leer(f, QStringLiteral("txt_Representacion")), QStringLiteral("Apoderada"));
        QCOMPARE(leer(f, QStringLiteral("lbl_CodRepresentante")), QStringLiteral("9"));
        QVERIFY(!f->hayCambios());

        poner(f, QStringLiteral("txt_Nombre"), QStringLiteral("Obras Nuevas SL "));
        poner(f, QStringLiteral("txt_Domicilio"), QStringLiteral("Mayor, 1"));
        poner(f, QStringLiteral("txt_Apellidos_Representante"), QStringLiteral("Sanz Ruiz"));
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Datos del cliente modificados correctamente")});
        QVERIFY(abierta(f));
        QVERIFY(!f->hayCambios());
        QCOMPARE(fila(QStringLiteral("SELECT Nombre_Cli, Dirección_Cli, esR FROM Clientes WHERE Codigo_Cli = 3")),
                 (QVariantList{QStringLiteral("Obras Nuevas SL"), QStringLiteral("Mayor, 1"), 9}));
        QCOMPARE(fila(QStringLiteral("SELECT Ape_Cli FROM Representantes WHERE Codigo_Cli = 9")), QVariantList{QStringLiteral("Sanz Ruiz")});
        QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Representantes")).toInt(), 1);

        // Proyectos: el cliente por Codigo_Cliente, el representante por Codigo_Representante; vacío como texto vacío.
        QCOMPARE(fila(QStringLiteral("SELECT CLINOM, CLIDOM, CLIPRO, CLITEL, CLICP, REPNOM FROM Proyectos_A WHERE PryCod = 1")),
                 (QVariantList{QStringLiteral("Obras Nuevas SL"), QStringLiteral("Mayor, 1"), QStringLiteral("Soria"), QString(""),
                               QString(""), QStringLiteral("Eva Sanz Ruiz")}));
        QCOMPARE(fila(QStringLiteral("SELECT CLINOM, REPNOM FROM Proyectos_A WHERE PryCod = 2")),
                 (QVariantList{QStringLiteral("Obras Nuevas SL"), QStringLiteral("viejo")}));
        QCOMPARE(fila(QStringLiteral("SELECT CLINOM, REPNOM, REPNIF FROM Proyectos_A WHERE PryCod = 3")),
                 (QVariantList{QStringLiteral("viejo"), QStringLiteral("Eva Sanz Ruiz"), QStringLiteral("111")}));
        QCOMPARE(fila(QStringLiteral("SELECT CLINOM, REPNOM FROM Proyectos_A WHERE PryCod = 4")),
                 (QVariantList{QStringLiteral("ajeno"), QStringLiteral("ajeno")}));
        // Certificados B4: sólo el pagador con ese código.
        QCOMPARE(fila(QStringLiteral("SELECT PAGNOM, PAGNIF, PAGDOM, PERNOM FROM datosB4 WHERE Clave = 1")),
                 (QVariantList{QStringLiteral("Obras Nuevas SL"), QStringLiteral("B1"), QStringLiteral("Mayor, 1"), QStringLiteral("perceptor")}));
        QCOMPARE(fila(QStringLiteral("SELECT PAGNOM FROM datosB4 WHERE Clave = 2")), QVariantList{QStringLiteral("ajeno")});
    }

    // De sociedad a persona: esR -1, el representante se queda y los proyectos no ven el cambio de tipo.
    void sociedadAPersona()
    {
        EntornoPrueba e;
        e.conectar();
        sembrarClienteConCopias();
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("MODIFICAR"), 3);
        qobject_cast<QAbstractButton*>(control(f, QStringLiteral("opt_Tipo_0")))->setChecked(true);
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(valor(QStringLiteral("SELECT esR FROM Clientes WHERE Codigo_Cli = 3")).toInt(), -1);
        QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Representantes WHERE Codigo_Cli = 9")).toInt(), 1);
        QCOMPARE(valor(QStringLiteral("SELECT REPNOM FROM Proyectos_A WHERE PryCod = 1")).toString(), QStringLiteral("viejo"));
        QCOMPARE(valor(QStringLiteral("SELECT Codigo_Representante FROM Proyectos_A WHERE PryCod = 1")).toInt(), 9);
    }

    void filasDesaparecidas()
    {
        EntornoPrueba e;
        e.conectar();
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("MODIFICAR"), 77);
        QCOMPARE(e.textos(), QStringList{QStringLiteral("No se han podido cargar los datos del cliente seleccionado")});
        rellenarCliente(f);
        e.limpiarCuadros();
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{QStringLiteral("No se ha podido hallar el cliente seleccionado para su modificación")});
        QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Clientes")).toInt(), 0);

        delete f;
        sembrarClienteConCopias();
        sql(QStringLiteral("UPDATE Clientes SET esR = 12 WHERE Codigo_Cli = 3"));
        e.limpiarCuadros();
        f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("MODIFICAR"), 3);
        QCOMPARE(e.textos(), QStringList{QStringLiteral("No se han podido cargar los datos del representante seleccionado")});
        // Con el código del representante a mano, un representante borrado se echa en falta al guardar.
        qobject_cast<QLabel*>(control(f, QStringLiteral("lbl_CodRepresentante")))->setText(QStringLiteral("12"));
        rellenarRepresentante(f);
        poner(f, QStringLiteral("txt_Nombre"), QStringLiteral("Cambio"));
        e.limpiarCuadros();
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(),
                 QStringList{QStringLiteral("No se ha podido hallar el reprentante del cliente seleccionado para su modificación")});
        QCOMPARE(valor(QStringLiteral("SELECT Nombre_Cli FROM Clientes WHERE Codigo_Cli = 3")).toString(), QStringLiteral("Obras SL"));
    }

    void preguntaAlSalir_data()
    {
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<int>("respuesta");
        QTest::addColumn<bool>("pregunta");
        QTest::addColumn<bool>("sigueAbierta");
        QTest::addColumn<QString>("guardado");
        QTest::newRow("sin cambios") << "txt_Nombre" << "Obras SL" << int(Respuesta::Si) << false << false << "Obras SL";
        QTest::newRow("sólo mayúsculas no es cambio") << "txt_Nombre" << "OBRAS SL" << int(Respuesta::Si) << false << false << "Obras SL";
        QTest::newRow("sí guarda y cierra") << "txt_Nombre" << "Otra" << int(Respuesta::Si) << true << false << "Otra";
        QTest::newRow("no cierra sin guardar") << "txt_Nombre" << "Otra" << int(Respuesta::No) << true << false << "Obras SL";
        QTest::newRow("cancelar se queda") << "txt_Nombre" << "Otra" << int(Respuesta::Cancelar) << true << true << "Obras SL";
        QTest::newRow("sí con datos mal se queda") << "txt_Nombre" << "" << int(Respuesta::Si) << true << true << "Obras SL";
        QTest::newRow("cambio en el representante") << "txt_Notas_Representante" << "nota" << int(Respuesta::No) << true << false << "Obras SL";
        QTest::newRow("provincia") << "cbo_Provincia_Cliente" << "Teruel" << int(Respuesta::Cancelar) << true << true << "Obras SL";
    }

    void preguntaAlSalir()
    {
        QFETCH(QString, campo);
        QFETCH(QString, texto);
        QFETCH(int, respuesta);
        QFETCH(bool, pregunta);
        QFETCH(bool, sigueAbierta);
        QFETCH(QString, guardado);
        EntornoPrueba e;
        e.conectar();
        sembrarClienteConCopias();
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("MODIFICAR"), 3);
        poner(f, campo, texto);
        e.respuestas << Respuesta(respuesta);
        pulsar(f, QStringLiteral("cmd_Cerrar"));
        const QString texto0 = e.cuadros.isEmpty() ? QString() : e.cuadros[0].texto;
        QCOMPARE(texto0, pregunta ? QStringLiteral("¿Desea guardar los cambios antes de salir?") : QString());
        if (pregunta) {
            QCOMPARE(e.cuadros[0].titulo, QStringLiteral("Pregunta"));
            QCOMPARE(e.cuadros[0].botones, Mensajes::Botones::SiNoCancelar);
        }
        QCOMPARE(abierta(f), sigueAbierta);
        QCOMPARE(valor(QStringLiteral("SELECT Nombre_Cli FROM Clientes WHERE Codigo_Cli = 3")).toString(), guardado);
    }

    void devolucion_data()
    {
        QTest::addColumn<QString>("clave");
        QTest::addColumn<QString>("receptor");
        QTest::addColumn<QStringList>("controles");
        QTest::addColumn<QStringList>("esperado");
        QTest::newRow("proyecto")
            << "FRMPROYECTO_CLIENTE" << "frmProyecto"
            << QStringList{"lbl_CodCliente", "lbl_NIFCliente", "txt_Cliente", "lbl_CodRepresentante", "lbl_NIFRepresentante",
                           "txt_Representante", "txt_RepresentacionOstentada"}
            << QStringList{"1", "B12345678", "Obras del Duero", "1", "87654321X", "Luis Pérez Gil", "Administrador único"};
        QTest::newRow("pagador B4") << "FRMDATOSIMPRESOB4_PAGADOR" << "frmDatosImpreso_B4"
                                    << QStringList{"txt_CodPagador", "txt_Pagador"} << QStringList{"1", "Obras del Duero"};
        QTest::newRow("perceptor B4 propio") << "FRMDATOSIMPRESOB4_PROPIO_PERCEPTOR" << "frmDatosImpreso_B4_Propio"
                                             << QStringList{"txt_CodPerceptor", "txt_Perceptor"} << QStringList{"1", "Obras del Duero"};
    }

    void devolucion()
    {
        QFETCH(QString, clave);
        QFETCH(QString, receptor);
        QFETCH(QStringList, controles);
        QFETCH(QStringList, esperado);
        EntornoPrueba e;
        e.conectar();
        auto* r = new Receptor(receptor, controles);
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"), 0, clave);
        QCOMPARE(f->ClaveRetorno, clave);
        sociedad(f);
        rellenarCliente(f, QStringLiteral(" Obras del Duero "), QStringLiteral("B12345678"));
        rellenarRepresentante(f);
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QStringList obtenido;
        for (const QString& c : controles)
            obtenido << leer(r, c);
        QCOMPARE(obtenido, esperado);
        QVERIFY(!abierta(f));
        QVERIFY(!frmMenu::existente());  // con clave de devolución no se abre la lista
    }

    // La ficha de proyecto de verdad recibe el cliente nuevo en sus controles.
    void devolucionAlProyecto()
    {
        EntornoPrueba e;
        e.conectar();
        auto* proyecto = new frmProyecto;
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"), 0, QStringLiteral("FRMPROYECTO_CLIENTE"));
        rellenarCliente(f, QStringLiteral("Eva"), QStringLiteral("1X"));
        poner(f, QStringLiteral("txt_Apellidos"), QStringLiteral("Sanz"));
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE((QStringList{leer(proyecto, QStringLiteral("lbl_CodCliente")), leer(proyecto, QStringLiteral("lbl_NIFCliente")),
                              leer(proyecto, QStringLiteral("txt_Cliente")), leer(proyecto, QStringLiteral("lbl_CodRepresentante"))}),
                 (QStringList{"1", "1X", "Eva Sanz", ""}));
    }

    // img_Validar: el documento en mayúsculas y el tipo según la clase de cliente; vacío, aviso y foco.
    void validarDocumento_data()
    {
        QTest::addColumn<bool>("esSociedad");
        QTest::addColumn<QString>("boton");
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("valor");
        QTest::addColumn<QString>("aviso");
        QTest::addColumn<int>("tipo");
        QTest::newRow("persona vacío") << false << "img_Validar" << "txt_NIF" << " " << "Por favor, proporcione un valor para el NIF" << -1;
        QTest::newRow("sociedad vacío") << true << "img_Validar" << "txt_NIF" << "" << "Por favor, proporcione un valor para el CIF" << -1;
        QTest::newRow("representante vacío") << true << "img_Validar_Representante" << "txt_NIF_Representante" << "" << "Por favor, proporcione un valor para el NIF" << -1;
        QTest::newRow("persona") << false << "img_Validar" << "txt_NIF" << " 12345678z " << "" << 0;
        QTest::newRow("sociedad") << true << "img_Validar" << "txt_NIF" << "b-42123456" << "" << 1;
        QTest::newRow("representante, siempre NIF") << true << "img_Validar_Representante" << "txt_NIF_Representante" << "x1234567l" << "" << 0;
    }

    void validarDocumento()
    {
        QFETCH(bool, esSociedad);
        QFETCH(QString, boton);
        QFETCH(QString, campo);
        QFETCH(QString, valor);
        QFETCH(QString, aviso);
        QFETCH(int, tipo);
        EntornoPrueba e;
        e.conectar();
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"));
        if (esSociedad)
            sociedad(f);
        poner(f, campo, valor);
        pulsar(f, boton);
        auto* v = Pantallas::cargada<frmValidarNIFCIF>();
        if (tipo < 0) {
            QCOMPARE(e.textos(), QStringList{aviso});
            QCOMPARE(f->focusWidget(), control(f, campo));
            QVERIFY(!v);
            return;
        }
        QVERIFY(e.textos().isEmpty());
        QVERIFY(v);
        QCOMPARE(leer(v, QStringLiteral("lbl_Identificador")), valor.trimmed().toUpper());
        QVERIFY(qobject_cast<QAbstractButton*>(control(v, QStringLiteral("opt_Identificador_%1").arg(tipo)))->isChecked());
        QCOMPARE(v->cajaIdentificador.data(), control(f, campo));
    }

    // Intro en un campo no guarda ni cierra la ficha.
    void introNoCierra()
    {
        EntornoPrueba e;
        e.conectar();
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"));
        rellenarCliente(f);
        for (const char* campo : {"txt_Nombre", "txt_NIF", "txt_Correo"}) {
            QTest::keyClick(control(f, QLatin1String(campo)), Qt::Key_Return);
            QTest::keyClick(control(f, QLatin1String(campo)), Qt::Key_Enter);
        }
        QVERIFY(abierta(f));
        QVERIFY(e.textos().isEmpty());
        QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Clientes")).toInt(), 0);
    }

    // Un segundo "Nuevo" descarga la ficha abierta pasando por su pregunta.
    void segundaApertura()
    {
        EntornoPrueba e;
        e.conectar();
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"));
        poner(f, QStringLiteral("txt_Nombre"), QStringLiteral("a medias"));
        e.respuestas << Respuesta::Cancelar;
        QCOMPARE(abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA")), f);
        QCOMPARE(e.textos(), QStringList{QStringLiteral("¿Desea guardar los cambios antes de salir?")});
        e.respuestas << Respuesta::No;
        auto* g = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"));
        QVERIFY(g && g != f);
        QCOMPARE(Pantallas::cargadas().count(g), 1);
        PeticionFicha otra;
        otra.tabla = QStringLiteral("DATOSA2");  // sin pantalla todavía
        otra.operacion = QStringLiteral("ALTA");
        QVERIFY(!abrirFicha(otra));
    }
};

QTEST_MAIN(tst_fichas_cliente)
#include "tst_fichas_cliente.moc"
