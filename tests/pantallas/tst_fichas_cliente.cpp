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
    poner(f, {{"txt_Nombre", nombre}, {"txt_NIF", nif}});
}

void rellenarRepresentante(QWidget* f)
{
    poner(f, {{"txt_Nombre_Representante", "Luis"}, {"txt_Apellidos_Representante", "Pérez Gil"},
              {"txt_NIF_Representante", "87654321X"}, {"txt_Representacion", "Administrador único"}});
}

void sociedad(QWidget* f) { tipo(f, 1); }

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
        rellenarCliente(f, QStringLiteral("  Ana  "));
        poner(f, {{"txt_Municipio", "Soria"}, {"cbo_Provincia_Cliente", "Soria"}});
        // Lo escrito en la pestaña deshabilitada no se guarda.
        poner(f, QStringLiteral("txt_Nombre_Representante"), QStringLiteral("Nadie"));
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Cliente dado de alta correctamente")});
        QVERIFY(!abierta(f));
        QCOMPARE(fila(QStringLiteral("SELECT Codigo_Cli, Nombre_Cli, Ape_Cli IS NULL, Municipio_Cli, Provincia_Cli, esR, "
                                     "Correo_Cli IS NULL, (SELECT count(*) FROM Representantes) FROM Clientes")),
                 (QVariantList{1, QStringLiteral("Ana"), 1, QStringLiteral("Soria"), QStringLiteral("Soria"), -1, 1, 0}));
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
        poner(f, {{"txt_Nombre", nombre}, {"txt_NIF", nif}, {"txt_Correo", correo},
                  {"txt_Nombre_Representante", nombreRep}, {"txt_Apellidos_Representante", apellidosRep}});
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{mensaje});
        if (foco.isEmpty()) {
            QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Clientes")).toInt(), 1);
            return;
        }
        QCOMPARE(e.cuadros[0].icono, Mensajes::Icono::Exclamacion);
        QCOMPARE(f->focusWidget(), control(f, foco));
        QCOMPARE(pestanas(f)->currentIndex(), pestana);
        QVERIFY(abierta(f));
        QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Clientes")).toInt(), 0);
    }

    void filtrosYLimites_data()
    {
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("tecleado");
        QTest::addColumn<QString>("queda");
        QTest::newRow("C.P. sólo cifras") << "txt_CP" << "28a-0,1.5x9" << "28015";
        QTest::newRow("NIF con un guion") << "txt_NIF" << "b-12-3ñ 4" << "b-1234";
        QTest::newRow("NIF del representante sin filtro") << "txt_NIF_Representante" << "x-1-ñ" << "x-1-ñ";
        QTest::newRow("nombre de 50") << "txt_Nombre" << QString(60, QChar(0xF1)) << QString(50, QChar(0xF1));
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

    // Modificar: el cliente y su representante, y las copias en proyectos (por Codigo_Cliente y
    // Codigo_Representante, vacío como texto vacío) y en los certificados B4 (sólo el pagador).
    void modificarYCascadas()
    {
        EntornoPrueba e;
        e.conectar();
        sembrarClienteConCopias();
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("MODIFICAR"), 3);
        QVERIFY(tipoMarcado(f, 1));
        QCOMPARE(leer(f, QStringList{"txt_Nombre", "cbo_Provincia_Cliente", "txt_Representacion", "lbl_CodRepresentante"}),
                 (QStringList{"Obras SL", "Soria", "Apoderada", "9"}));
        QVERIFY(!f->hayCambios());
        poner(f, {{"txt_Nombre", "Obras Nuevas SL "}, {"txt_Domicilio", "Mayor, 1"}, {"txt_Apellidos_Representante", "Sanz Ruiz"}});
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Datos del cliente modificados correctamente")});
        QVERIFY(abierta(f));
        QVERIFY(!f->hayCambios());
        QCOMPARE(fila(QStringLiteral("SELECT Nombre_Cli, Dirección_Cli, esR, (SELECT group_concat(Ape_Cli) FROM Representantes) "
                                     "FROM Clientes WHERE Codigo_Cli = 3")),
                 (QVariantList{QStringLiteral("Obras Nuevas SL"), QStringLiteral("Mayor, 1"), 9, QStringLiteral("Sanz Ruiz")}));
        QCOMPARE(fila(QStringLiteral("SELECT CLINOM, CLIDOM, CLIPRO, CLITEL, CLICP, REPNOM FROM Proyectos_A WHERE PryCod = 1")),
                 (QVariantList{QStringLiteral("Obras Nuevas SL"), QStringLiteral("Mayor, 1"), QStringLiteral("Soria"), QString(""),
                               QString(""), QStringLiteral("Eva Sanz Ruiz")}));
        QCOMPARE(valor(QStringLiteral("SELECT group_concat(CLINOM || '/' || REPNOM, '|') FROM (SELECT * FROM Proyectos_A ORDER BY PryCod)")).toString(),
                 QStringLiteral("Obras Nuevas SL/Eva Sanz Ruiz|Obras Nuevas SL/viejo|viejo/Eva Sanz Ruiz|ajeno/ajeno"));
        QCOMPARE(valor(QStringLiteral("SELECT REPNIF FROM Proyectos_A WHERE PryCod = 3")).toString(), QStringLiteral("111"));
        QCOMPARE(fila(QStringLiteral("SELECT PAGNOM, PAGNIF, PAGDOM, PERNOM FROM datosB4 WHERE Clave = 1")),
                 (QVariantList{QStringLiteral("Obras Nuevas SL"), QStringLiteral("B1"), QStringLiteral("Mayor, 1"), QStringLiteral("perceptor")}));
        QCOMPARE(valor(QStringLiteral("SELECT PAGNOM FROM datosB4 WHERE Clave = 2")).toString(), QStringLiteral("ajeno"));
    }

    // De sociedad a persona: esR -1, el representante se queda y los proyectos no ven el cambio de tipo.
    void sociedadAPersona()
    {
        EntornoPrueba e;
        e.conectar();
        sembrarClienteConCopias();
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("MODIFICAR"), 3);
        tipo(f, 0);
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(fila(QStringLiteral("SELECT c.esR, (SELECT count(*) FROM Representantes WHERE Codigo_Cli = 9), p.REPNOM, p.Codigo_Representante "
                                     "FROM Clientes c, Proyectos_A p WHERE c.Codigo_Cli = 3 AND p.PryCod = 1")),
                 (QVariantList{-1, 1, QStringLiteral("viejo"), 9}));
    }

    // Cliente o representante que ya no están: aviso al cargar y al guardar, y nada se escribe.
    void filasDesaparecidas()
    {
        EntornoPrueba e;
        e.conectar();
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("MODIFICAR"), 77);
        rellenarCliente(f);
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), (QStringList{QStringLiteral("No se han podido cargar los datos del cliente seleccionado"),
                                          QStringLiteral("No se ha podido hallar el cliente seleccionado para su modificación")}));
        QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Clientes")).toInt(), 0);

        delete f;
        sembrarClienteConCopias();
        sql(QStringLiteral("UPDATE Clientes SET esR = 12 WHERE Codigo_Cli = 3"));
        e.limpiarCuadros();
        f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("MODIFICAR"), 3);
        // Con el código del representante a mano, un representante borrado se echa en falta al guardar.
        qobject_cast<QLabel*>(control(f, QStringLiteral("lbl_CodRepresentante")))->setText(QStringLiteral("12"));
        rellenarRepresentante(f);
        poner(f, QStringLiteral("txt_Nombre"), QStringLiteral("Cambio"));
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), (QStringList{QStringLiteral("No se han podido cargar los datos del representante seleccionado"),
                                          QStringLiteral("No se ha podido hallar el reprentante del cliente seleccionado para su modificación")}));
        QCOMPARE(valor(QStringLiteral("SELECT Nombre_Cli FROM Clientes WHERE Codigo_Cli = 3")).toString(), QStringLiteral("Obras SL"));
    }

    void preguntaAlSalir_data()
    {
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<int>("respuesta");  // -1: no pregunta
        QTest::addColumn<bool>("sigueAbierta");
        QTest::addColumn<QString>("guardado");
        QTest::newRow("sin cambios") << "txt_Nombre" << "Obras SL" << -1 << false << "Obras SL";
        QTest::newRow("sólo mayúsculas no es cambio") << "txt_Nombre" << "OBRAS SL" << -1 << false << "Obras SL";
        QTest::newRow("sí guarda y cierra") << "txt_Nombre" << "Otra" << int(Respuesta::Si) << false << "Otra";
        QTest::newRow("no cierra sin guardar") << "txt_Nombre" << "Otra" << int(Respuesta::No) << false << "Obras SL";
        QTest::newRow("cancelar se queda") << "txt_Nombre" << "Otra" << int(Respuesta::Cancelar) << true << "Obras SL";
        QTest::newRow("sí con datos mal se queda") << "txt_Nombre" << "" << int(Respuesta::Si) << true << "Obras SL";
        QTest::newRow("cambio en el representante") << "txt_Notas_Representante" << "nota" << int(Respuesta::No) << false << "Obras SL";
    }

    void preguntaAlSalir()
    {
        QFETCH(QString, campo);
        QFETCH(QString, texto);
        QFETCH(int, respuesta);
        QFETCH(bool, sigueAbierta);
        QFETCH(QString, guardado);
        EntornoPrueba e;
        e.conectar();
        sembrarClienteConCopias();
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("MODIFICAR"), 3);
        poner(f, campo, texto);
        e.respuestas << Respuesta(respuesta < 0 ? int(Respuesta::Si) : respuesta);
        pulsar(f, QStringLiteral("cmd_Cerrar"));
        QCOMPARE(e.textos().value(0), respuesta < 0 ? QString() : QStringLiteral("¿Desea guardar los cambios antes de salir?"));
        if (respuesta >= 0)
            QCOMPARE(e.cuadros[0].botones, Mensajes::Botones::SiNoCancelar);
        QCOMPARE(abierta(f), sigueAbierta);
        QCOMPARE(valor(QStringLiteral("SELECT Nombre_Cli FROM Clientes WHERE Codigo_Cli = 3")).toString(), guardado);
    }

    void devolucion_data()
    {
        QTest::addColumn<QString>("clave");
        QTest::addColumn<QString>("receptor");
        QTest::addColumn<QStringList>("controles");
        QTest::addColumn<QStringList>("esperado");
        QTest::newRow("proyecto") << "FRMPROYECTO_CLIENTE" << "frmProyecto"
            << QStringList{"lbl_CodCliente", "lbl_NIFCliente", "txt_Cliente", "lbl_CodRepresentante", "lbl_NIFRepresentante", "txt_Representante", "txt_RepresentacionOstentada"}
            << QStringList{"1", "B12345678", "Obras del Duero", "1", "87654321X", "Luis Pérez Gil", "Administrador único"};
        QTest::newRow("pagador B4") << "FRMDATOSIMPRESOB4_PAGADOR" << "frmDatosImpreso_B4" << QStringList{"txt_CodPagador", "txt_Pagador"} << QStringList{"1", "Obras del Duero"};
        QTest::newRow("perceptor B4 propio") << "FRMDATOSIMPRESOB4_PROPIO_PERCEPTOR" << "frmDatosImpreso_B4_Propio" << QStringList{"txt_CodPerceptor", "txt_Perceptor"} << QStringList{"1", "Obras del Duero"};
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
        sociedad(f);
        rellenarCliente(f, QStringLiteral(" Obras del Duero "), QStringLiteral("B12345678"));
        rellenarRepresentante(f);
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(leer(r, controles), esperado);
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
        poner(f, {{"txt_Nombre", "Eva"}, {"txt_Apellidos", "Sanz"}, {"txt_NIF", "1X"}});
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(leer(proyecto, QStringList{"lbl_CodCliente", "lbl_NIFCliente", "txt_Cliente", "lbl_CodRepresentante"}),
                 (QStringList{"1", "1X", "Eva Sanz", ""}));
    }

    // img_Validar: el documento en mayúsculas y el tipo según la clase de cliente; vacío, aviso y foco.
    void validarDocumento_data()
    {
        QTest::addColumn<bool>("esSociedad");
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("valor");
        QTest::addColumn<QString>("aviso");
        QTest::addColumn<int>("tipo");  // -1: no se abre la validación
        QTest::newRow("persona vacío") << false << "txt_NIF" << " " << "Por favor, proporcione un valor para el NIF" << -1;
        QTest::newRow("sociedad vacío") << true << "txt_NIF" << "" << "Por favor, proporcione un valor para el CIF" << -1;
        QTest::newRow("persona") << false << "txt_NIF" << " 12345678z " << "" << 0;
        QTest::newRow("sociedad") << true << "txt_NIF" << "b-42123456" << "" << 1;
        QTest::newRow("representante, siempre NIF") << true << "txt_NIF_Representante" << "x1234567l" << "" << 0;
    }

    void validarDocumento()
    {
        QFETCH(bool, esSociedad);
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
        pulsar(f, campo == QLatin1String("txt_NIF") ? QStringLiteral("img_Validar") : QStringLiteral("img_Validar_Representante"));
        auto* v = Pantallas::cargada<frmValidarNIFCIF>();
        QCOMPARE(e.textos(), aviso.isEmpty() ? QStringList() : QStringList{aviso});
        QCOMPARE(v != nullptr, tipo >= 0);
        if (!v) {
            QCOMPARE(f->focusWidget(), control(f, campo));
            return;
        }
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
    }
};

QTEST_MAIN(tst_fichas_cliente)
#include "tst_fichas_cliente.moc"
