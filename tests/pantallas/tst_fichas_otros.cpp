// Fichas de la tabla OTROS: arquitectos, arquitectos técnicos y contratistas.
#include "masterdata/frmAparejador.h"
#include "masterdata/frmArquitecto.h"
#include "masterdata/frmContratista.h"
#include "masterdata/frmConfiguracion.h"
#include "masterdata/frmProyecto.h"
#include "search/frmBuscarSeleccionar.h"
#include "tests/pantallas/tst_fichas_comun.h"

#include <QtTest>

using Mensajes::Respuesta;
using namespace fichas;

namespace {

FichaOtros* abrirOtros(const QString& tabla, const QString& operacion, qint64 codigo = 0, const QString& clave = {})
{
    if (tabla == QLatin1String("APAREJADORES"))
        return abrir<frmAparejador>(tabla, operacion, codigo, clave);
    if (tabla == QLatin1String("CONTRATISTAS"))
        return abrir<frmContratista>(tabla, operacion, codigo, clave);
    return abrir<frmArquitecto>(tabla, operacion, codigo, clave);
}

void ponerSiHay(QWidget* f, const QString& nombre, const QString& texto)
{
    if (f->findChild<QWidget*>(nombre))
        poner(f, nombre, texto);
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

}  // namespace

class tst_fichas_otros : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { limpiar(); }

    // Alta de las tres fichas: los fallos, por orden y con el foco en su campo; las que se
    // guardan comparten una sola serie de códigos (la siguiente es 8) y cada ficha escribe lo suyo.
    void alta_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<int>("tipoElegido");
        QTest::addColumn<QString>("numero");
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<QString>("foco");
        QTest::addColumn<QVariantList>("guardado");  // Categoria, esS, NumColegiado, Colegio
        const QVariantList no;
        QTest::newRow("arq: número") << "ARQUITECTOS" << 0 << " " << "" << "El número de colegiado es obligatorio." + OBLIGATORIO << "txt_NumColegiado" << no;
        QTest::newRow("arq: registro") << "ARQUITECTOS" << 1 << "" << "X" << "El número de registro es obligatorio." + OBLIGATORIO << "txt_NumColegiado" << no;
        QTest::newRow("arq: número repetido") << "ARQUITECTOS" << 0 << "00123" << "" << "Ya existe un arquitecto con ese número de colegiado." + REVISE << "txt_NumColegiado" << no;
        QTest::newRow("arq: registro repetido") << "ARQUITECTOS" << 1 << "77" << "X" << "Ya existe una sociedad con ese número de registro." + REVISE << "txt_NumColegiado" << no;
        QTest::newRow("arq: nombre") << "ARQUITECTOS" << 0 << "9" << "" << "El nombre del arquitecto es obligatorio." + OBLIGATORIO << "txt_Nombre" << no;
        QTest::newRow("arq: nombre de sociedad") << "ARQUITECTOS" << 1 << "9" << " " << "El nombre de la sociedad es obligatorio." + OBLIGATORIO << "txt_Nombre" << no;
        QTest::newRow("apa: número repetido") << "APAREJADORES" << 0 << "123" << "X" << "Ya existe un arquitecto técnico con ese número de colegiado." + REVISE << "txt_NumColegiado" << no;
        QTest::newRow("apa: nombre") << "APAREJADORES" << 0 << "9" << "" << "El nombre del arquitecto técnico es obligatorio." + OBLIGATORIO << "txt_Nombre" << no;
        QTest::newRow("con: nombre") << "CONTRATISTAS" << 0 << "" << "" << "El nombre del contratista es obligatorio." + OBLIGATORIO << "txt_Nombre" << no;
        QTest::newRow("arq: alta") << "ARQUITECTOS" << 0 << "0124" << "X" << "Arquitecto dado de alta correctamente" << "" << QVariantList{"ARQUITECTO", 0, 124, "COA León"};
        QTest::newRow("arq: persona y sociedad comparten número") << "ARQUITECTOS" << 1 << "123" << "X" << "Arquitecto dado de alta correctamente" << "" << QVariantList{"ARQUITECTO", 1, 123, "COA León"};
        QTest::newRow("apa: el de un arquitecto no choca") << "APAREJADORES" << 1 << "77" << "X" << "Arquitecto técnico dado de alta correctamente" << "" << QVariantList{"ARQUITECTO TECNICO", 1, 77, "nulo"};
        QTest::newRow("con: repetido vale") << "CONTRATISTAS" << 1 << "" << "Obras SA" << "Contratista dado de alta correctamente" << "" << QVariantList{"CONSTRUCTOR", 1, "nulo", "nulo"};
    }

    void alta()
    {
        QFETCH(QString, tabla);
        QFETCH(int, tipoElegido);
        QFETCH(QString, numero);
        QFETCH(QString, nombre);
        QFETCH(QString, mensaje);
        QFETCH(QString, foco);
        QFETCH(QVariantList, guardado);
        EntornoPrueba e;
        e.conectar();
        sembrar();
        FichaOtros* f = abrirOtros(tabla, QStringLiteral("ALTA"));
        tipo(f, tipoElegido);
        ponerSiHay(f, QStringLiteral("txt_NumColegiado"), numero);
        ponerSiHay(f, QStringLiteral("txt_Colegio"), QStringLiteral("COA León"));
        poner(f, {{"txt_Nombre", nombre}, {"txt_NIF", "A4"}, {"txt_Telefono2", "975 22 33 44"}});
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(e.textos(), QStringList{mensaje});
        QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM OTROS")).toInt(), foco.isEmpty() ? 5 : 4);
        if (!foco.isEmpty()) {
            QCOMPARE(f->focusWidget(), control(f, foco));
            QVERIFY(abierta(f));
            return;
        }
        QVERIFY(!abierta(f));
        QCOMPARE(fila(QStringLiteral("SELECT Categoria, esS, COALESCE(NumColegiado, 'nulo'), COALESCE(Colegio, 'nulo'), Tfno_Cli1 "
                                     "FROM OTROS WHERE Codigo_Cli = 8")),
                 guardado + QVariantList{QStringLiteral("975 22 33 44")});
        QVERIFY(frmMenu::existente());  // sin clave de devolución se abre la lista
    }

    // Tipo al abrir: el de un arquitecto guardado queda fijo; las listas de sólo personas o
    // sólo sociedades lo fijan; autores y sociedades no se editan desde su lista.
    void apertura_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("operacion");
        QTest::addColumn<int>("codigo");
        QTest::addColumn<int>("tipoCargado");  // -1: no abre
        QTest::addColumn<bool>("marcoHabilitado");
        QTest::newRow("arquitecto guardado") << "ARQUITECTOS" << "MODIFICAR" << 5 << 1 << false;
        QTest::newRow("arquitecto técnico guardado") << "APAREJADORES" << "MODIFICAR" << 6 << 0 << true;
        QTest::newRow("contratista guardado") << "CONTRATISTAS" << "MODIFICAR" << 7 << 1 << true;
        QTest::newRow("lista simple") << "ARQUITECTOS_SIMPLE" << "ALTA" << 0 << 0 << false;
        QTest::newRow("lista de sociedades") << "ARQUITECTOS_SOCIEDAD" << "ALTA" << 0 << 1 << false;
        QTest::newRow("lista de autores") << "ARQUITECTOS_AUTORES" << "ALTA" << 0 << 0 << true;
        QTest::newRow("autores no se editan") << "ARQUITECTOS_AUTORES" << "MODIFICAR" << 4 << -1 << true;
        QTest::newRow("sociedad no se edita") << "ARQUITECTOS_SOCIEDAD" << "MODIFICAR" << 4 << -1 << true;
    }

    void apertura()
    {
        QFETCH(QString, tabla);
        QFETCH(QString, operacion);
        QFETCH(int, codigo);
        QFETCH(int, tipoCargado);
        QFETCH(bool, marcoHabilitado);
        EntornoPrueba e;
        e.conectar();
        sembrar();
        FichaOtros* f = abrirOtros(tabla, operacion, codigo);
        QCOMPARE(f != nullptr, tipoCargado >= 0);
        if (!f)
            return;
        QVERIFY(tipoMarcado(f, tipoCargado));
        QCOMPARE(control(f, QStringLiteral("Frame2"))->isEnabled(), marcoHabilitado);
        QVERIFY(!f->hayCambios());
        QVERIFY(e.textos().isEmpty());
    }

    void cascadasArquitecto_data()
    {
        QTest::addColumn<int>("codigo");
        QTest::addColumn<QVariantList>("previa");  // Arq1Col, Arq3Col, SocNom, SocReg
        QTest::addColumn<QVariantList>("config");  // Arq1Nom, Arq1Col, Arq3Col, SocNom, SocReg, Domicilio
        QTest::addColumn<QString>("numColNuevo");  // NumCol de los enlaces que tenían el número anterior
        const QVariant nulo(QMetaType(QMetaType::QString));
        QTest::newRow("primer arquitecto sin sociedad") << 4 << QVariantList{"123", "9", nulo, ""} << QVariantList{"Juan Ruiz Díaz", "124", "9", nulo, "", "Plaza Mayor, 3"} << "124";
        QTest::newRow("primer arquitecto con sociedad") << 4 << QVariantList{"123", "9", "Estudio SLP", ""} << QVariantList{"Juan Ruiz Díaz", "124", "9", "Estudio SLP", "", "antigua"} << "124";
        QTest::newRow("tercer arquitecto: Config no cambia") << 4 << QVariantList{"5", "123", nulo, ""} << QVariantList{"viejo", "5", "123", nulo, "", "antigua"} << "124";
        QTest::newRow("ceros delante: no se halla en Config") << 4 << QVariantList{"0123", "9", nulo, ""} << QVariantList{"viejo", "0123", "9", nulo, "", "antigua"} << "124";
        QTest::newRow("sociedad") << 5 << QVariantList{"123", "9", "Estudio", "77"} << QVariantList{"viejo", "123", "9", "Estudio SLP Nueva", "124", "Plaza Mayor, 3"} << "123";
    }

    void cascadasArquitecto()
    {
        QFETCH(int, codigo);
        QFETCH(QVariantList, previa);
        QFETCH(QVariantList, config);
        QFETCH(QString, numColNuevo);
        EntornoPrueba e;
        e.conectar();
        sembrar();
        sql(QStringLiteral("DELETE FROM Config"));
        sql(QStringLiteral("INSERT INTO Config (Arq1Nom, Arq1Col, Arq3Col, SocNom, SocReg, Domicilio) VALUES ('viejo', ?, ?, ?, ?, 'antigua')"),
            previa);
        // Enlaces por número: los dos con 123 cambian aunque uno sea de otro arquitecto.
        sql(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol) VALUES (1, 4, '123'), (2, 99, '123'), (3, 4, '12')"));
        sql(QStringLiteral("INSERT INTO Proyectos_A (PryCod, APACOL, CLINOM) VALUES (1, '123', 'nada')"));
        sql(QStringLiteral("INSERT INTO datosB1B3B4 (Clave, ARQCOD, ARQNOM) VALUES (1, ?, 'viejo'), (2, 99, 'ajeno')"), {codigo});
        sql(QStringLiteral("INSERT INTO datosB4 (Clave, PERCOD, PERNOM, PAGCOD, PAGNOM) VALUES (1, ?, 'viejo', ?, 'pagador'), (2, 98, 'ajeno', 0, '')"),
            {codigo, codigo});

        FichaOtros* f = abrirOtros(QStringLiteral("ARQUITECTOS"), QStringLiteral("MODIFICAR"), codigo);
        const bool esSociedad = codigo == 5;
        poner(f, {{"txt_NumColegiado", "124"}, {"txt_Nombre", esSociedad ? "Estudio SLP Nueva" : "Juan"},
                  {"txt_Apellidos", esSociedad ? "" : "Ruiz Díaz"}, {"txt_Domicilio", "Plaza Mayor, 3"}});
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Datos del arquitecto modificados correctamente")});

        QCOMPARE(fila(QStringLiteral("SELECT Arq1Nom, Arq1Col, Arq3Col, SocNom, SocReg, Domicilio FROM Config")), config);
        QCOMPARE(valor(QStringLiteral("SELECT group_concat(NumCol, '|') FROM (SELECT NumCol FROM Arquitectos_Proyecto ORDER BY PryCod)")).toString(),
                 numColNuevo + QLatin1Char('|') + numColNuevo + QStringLiteral("|12"));
        const QString nombre = esSociedad ? QStringLiteral("Estudio SLP Nueva") : QStringLiteral("Juan Ruiz Díaz");
        QCOMPARE(fila(QStringLiteral("SELECT b.ARQNOM, b.ARQDOM, c.PERNOM, c.PERDOM, c.PAGNOM FROM datosB1B3B4 b, datosB4 c WHERE b.Clave = 1 AND c.Clave = 1")),
                 (QVariantList{nombre, QStringLiteral("Plaza Mayor, 3"), nombre, QStringLiteral("Plaza Mayor, 3"), QStringLiteral("pagador")}));
        QCOMPARE(fila(QStringLiteral("SELECT b.ARQNOM, c.PERNOM FROM datosB1B3B4 b, datosB4 c WHERE b.Clave = 2 AND c.Clave = 2")),
                 (QVariantList{QStringLiteral("ajeno"), QStringLiteral("ajeno")}));
        // Proyectos_A no es cosa de los arquitectos.
        QCOMPARE(fila(QStringLiteral("SELECT APACOL, CLINOM FROM Proyectos_A")), (QVariantList{QStringLiteral("123"), QStringLiteral("nada")}));
    }

    // Número en blanco al cargar: el anterior es -1 y las cascadas buscan el texto "-1".
    void numeroAnteriorEnBlanco()
    {
        EntornoPrueba e;
        e.conectar();
        sql(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, Nombre_Cli) VALUES (1, 'ARQUITECTO', 0, 'Sin número')"));
        sql(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, NumCol) VALUES (1, '-1')"));
        FichaOtros* f = abrirOtros(QStringLiteral("ARQUITECTOS"), QStringLiteral("MODIFICAR"), 1);
        QCOMPARE(f->numeroAnterior(), -1);
        poner(f, QStringLiteral("txt_NumColegiado"), QStringLiteral("55"));
        f->cmd_Guardar_Click();
        QCOMPARE(valor(QStringLiteral("SELECT NumCol FROM Arquitectos_Proyecto")).toString(), QStringLiteral("55"));
    }

    // Proyectos_A: el arquitecto técnico por su número anterior, el contratista por su código.
    void cascadasAparejadorYContratista()
    {
        EntornoPrueba e;
        e.conectar();
        sembrar();
        sql(QStringLiteral("INSERT INTO Proyectos_A (PryCod, APACOL, APANOM, Codigo_Constructor, CONNOM) VALUES "
                           "(1, '123', 'Rosa', 7, 'Obras SA'), (2, '12', 'otra', 8, 'otro')"));
        FichaOtros* f = abrirOtros(QStringLiteral("APAREJADORES"), QStringLiteral("MODIFICAR"), 6);
        poner(f, QStringLiteral("txt_NumColegiado"), QStringLiteral("321"));
        tipo(f, 1);  // de persona a sociedad: se admite y conserva el número
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Datos del arquitecto técnico modificados correctamente")});
        QCOMPARE(fila(QStringLiteral("SELECT esS, NumColegiado FROM OTROS WHERE Codigo_Cli = 6")), (QVariantList{1, 321}));

        e.limpiarCuadros();
        f = abrirOtros(QStringLiteral("CONTRATISTAS"), QStringLiteral("MODIFICAR"), 7);
        poner(f, QStringLiteral("txt_Nombre"), QStringLiteral("Obras y Reformas SA"));
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Datos del contratista modificados correctamente")});
        QCOMPARE(fila(QStringLiteral("SELECT group_concat(APACOL || '/' || APANOM || '/' || CONNOM, '|') FROM (SELECT * FROM Proyectos_A ORDER BY PryCod)")),
                 QVariantList{QStringLiteral("321/Rosa León/Obras y Reformas SA|12/otra/otro")});
    }

    // Sin fila al cargar ni al guardar (común a las tres fichas): dos avisos y la ficha no se cierra.
    void filaDesaparecida()
    {
        EntornoPrueba e;
        e.conectar();
        FichaOtros* f = abrirOtros(QStringLiteral("APAREJADORES"), QStringLiteral("MODIFICAR"), 40);
        poner(f, {{"txt_NumColegiado", "1"}, {"txt_Nombre", "X"}});
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), (QStringList{QStringLiteral("No se han podido cargar los datos del arquitecto técnico seleccionado"),
                                          QStringLiteral("No se ha podido hallar el arquitecto técnico seleccionado para su modificación")}));
        QVERIFY(f->cancelarCierre());
    }

    void preguntaAlSalir_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<int>("codigo");
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("columna");
        QTest::addColumn<int>("respuesta");
        QTest::newRow("arq número, cancelar") << "ARQUITECTOS" << 4 << "txt_NumColegiado" << "NumColegiado" << int(Respuesta::Cancelar);
        QTest::newRow("apa fax, no") << "APAREJADORES" << 6 << "txt_Fax" << "Fax_Cli" << int(Respuesta::No);
        QTest::newRow("con notas, sí") << "CONTRATISTAS" << 7 << "txt_Notas" << "Otros" << int(Respuesta::Si);
    }

    void preguntaAlSalir()
    {
        QFETCH(QString, tabla);
        QFETCH(int, codigo);
        QFETCH(QString, campo);
        QFETCH(QString, columna);
        QFETCH(int, respuesta);
        EntornoPrueba e;
        e.conectar();
        sembrar();
        FichaOtros* f = abrirOtros(tabla, QStringLiteral("MODIFICAR"), codigo);
        poner(f, campo, QStringLiteral("99"));
        e.respuestas << Respuesta(respuesta);
        pulsar(f, QStringLiteral("cmd_Cerrar"));
        QCOMPARE(e.textos().value(0), QStringLiteral("¿Desea guardar los cambios antes de salir?"));
        QCOMPARE(abierta(f), respuesta == int(Respuesta::Cancelar));
        QCOMPARE(valor(QStringLiteral("SELECT %1 FROM OTROS WHERE Codigo_Cli = ?").arg(columna), {codigo}).toString() == QLatin1String("99"),
                 respuesta == int(Respuesta::Si));
    }

    void devolucion_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("clave");
        QTest::addColumn<QString>("receptor");
        QTest::addColumn<QStringList>("controles");  // código y nombre
        QTest::newRow("coordinador") << "COORDINADOR_SS" << "FRMPROYECTO_COORDINADOR" << "frmProyecto" << QStringList{"lbl_CodCoordinadorSyS", "txt_CoordinadorSyS"};
        QTest::newRow("perceptor B4") << "ARQUITECTOS" << "FRMDATOSIMPRESOB4_PERCEPTOR" << "frmDatosImpreso_B4" << QStringList{"txt_CodPerceptor", "txt_Perceptor"};
        QTest::newRow("emisor B1") << "ARQUITECTOS" << "FRMDATOSIMPRESOB1B3B4_EMISOR" << "frmDatosImpreso_B1_B3_B4" << QStringList{"txt_CodEmisor", "txt_Emisor"};
        QTest::newRow("certificado") << "ARQUITECTOS" << "FRMDATOSIMPRESO_CERTIFICADO" << "frmDatosImpreso_Certificado" << QStringList{"txt_CodArq", "txt_NomArq"};
        QTest::newRow("apa proyecto") << "APAREJADORES" << "FRMPROYECTO_APAREJADOR" << "frmProyecto" << QStringList{"lbl_CodAparejador", "txt_Aparejador"};
        QTest::newRow("apa B4 propio") << "APAREJADORES" << "FRMDATOSIMPRESOB4_PROPIO_PERCEPTOR" << "frmDatosImpreso_B4_Propio" << QStringList{"txt_CodPerceptor", "txt_Perceptor"};
        QTest::newRow("con proyecto") << "CONTRATISTAS" << "FRMPROYECTO_CONSTRUCTOR" << "frmProyecto" << QStringList{"lbl_CodConstructor", "txt_Constructor"};
    }

    void devolucion()
    {
        QFETCH(QString, tabla);
        QFETCH(QString, clave);
        QFETCH(QString, receptor);
        QFETCH(QStringList, controles);
        EntornoPrueba e;
        e.conectar();
        sembrar();
        auto* r = new Receptor(receptor, controles);
        FichaOtros* f = abrirOtros(tabla, QStringLiteral("ALTA"), 0, clave);
        ponerSiHay(f, QStringLiteral("txt_NumColegiado"), QStringLiteral("321"));
        poner(f, {{"txt_Nombre", "Ana"}, {"txt_Apellidos", "Gil"}});
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(leer(r, controles), (QStringList{"8", "Ana Gil"}));
        QVERIFY(!abierta(f));
        QVERIFY(!frmMenu::existente());
    }

    // Alta pedida desde la configuración: nombre y número, sin código; los datos del estudio
    // sólo en el primer arquitecto sin sociedad, y siempre en la sociedad.
    void devolucionConfiguracion_data()
    {
        QTest::addColumn<QString>("clave");
        QTest::addColumn<QString>("sociedadPrevia");
        QTest::addColumn<QStringList>("controles");
        QTest::addColumn<QStringList>("esperado");
        QTest::newRow("primero sin sociedad") << "FRMCONFIGURACION_ARQUITECTO_1" << ""
            << QStringList{"txt_Arquitecto_1", "txt_NumColegiado_1", "txt_CodArq_1", "txt_Domicilio", "txt_CodigoPostal", "txt_Provincia"}
            << QStringList{"Ana Gil", "321", "", "Real, 1", "42001", "Soria"};
        QTest::newRow("primero con sociedad") << "FRMCONFIGURACION_ARQUITECTO_1" << "Estudio SLP"
            << QStringList{"txt_Arquitecto_1", "txt_NumColegiado_1", "txt_Domicilio"} << QStringList{"Ana Gil", "321", ""};
        QTest::newRow("tercero") << "FRMCONFIGURACION_ARQUITECTO_3" << ""
            << QStringList{"txt_Arquitecto_3", "txt_NumColegiado_3", "txt_CodArq_3", "txt_Domicilio"} << QStringList{"Ana Gil", "321", "", ""};
        QTest::newRow("sociedad") << "FRMCONFIGURACION_SOCIEDAD_PROFESIONAL" << "Vieja SLP"
            << QStringList{"txt_Sociedad", "txt_NumRegistro", "txt_CodSoc", "txt_Municipio"} << QStringList{"Ana Gil", "321", "", "Soria"};
    }

    void devolucionConfiguracion()
    {
        QFETCH(QString, clave);
        QFETCH(QString, sociedadPrevia);
        QFETCH(QStringList, controles);
        QFETCH(QStringList, esperado);
        EntornoPrueba e;
        e.conectar();
        auto* conf = new frmConfiguracion;
        poner(conf, QStringLiteral("txt_Sociedad"), sociedadPrevia);
        const bool sociedad = clave.endsWith(QLatin1String("SOCIEDAD_PROFESIONAL"));
        FichaOtros* f = abrirOtros(sociedad ? QStringLiteral("ARQUITECTOS_SOCIEDAD") : QStringLiteral("ARQUITECTOS_SIMPLE"),
                                   QStringLiteral("ALTA"), 0, clave);
        poner(f, {{"txt_NumColegiado", "321"}, {"txt_Nombre", sociedad ? "Ana Gil" : "Ana"}, {"txt_Apellidos", sociedad ? "" : "Gil"},
                  {"txt_Domicilio", "Real, 1"}, {"txt_CP", "42001"}, {"txt_Municipio", "Soria"}, {"cbo_Provincia", "Soria"}});
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Arquitecto dado de alta correctamente")});
        QCOMPARE(leer(conf, controles), esperado);
    }

    // Receptores de verdad: la lista de arquitectos del proyecto y el selector de autores.
    void devolucionEnListas()
    {
        EntornoPrueba e;
        e.conectar();
        auto* proyecto = new frmProyecto;
        FichaOtros* f = abrirOtros(QStringLiteral("ARQUITECTOS"), QStringLiteral("ALTA"), 0, QStringLiteral("FRMPROYECTO_ARQUITECTO"));
        poner(f, {{"txt_NumColegiado", "12"}, {"txt_Nombre", "Ana"}});
        pulsar(f, QStringLiteral("cmd_Guardar"));
        auto* lvw = proyecto->findChild<QTreeWidget*>(QStringLiteral("lvw_Arquitectos"));
        QCOMPARE(lvw->topLevelItemCount(), 1);
        QTreeWidgetItem* i = lvw->topLevelItem(0);
        QCOMPARE((QStringList{i->text(0), i->text(1), i->text(2), i->text(3)}), (QStringList{"Ana", "12", "", "NO"}));
        QCOMPARE(claveFila(i), QStringLiteral("K1"));

        sql(QStringLiteral("DELETE FROM OTROS"));  // la lista del selector empieza vacía
        frmBuscarSeleccionar::abrir(QStringLiteral("ARQUITECTOS_AUTORES"), QStringLiteral("SELECCIONAR_EN_PROYECTOS"),
                                    QStringLiteral("Seleccionar arquitectos autores del proyecto"), QStringLiteral("FRMPROYECTO_AUTOR"));
        f = abrirOtros(QStringLiteral("ARQUITECTOS_AUTORES"), QStringLiteral("ALTA"), 0, QStringLiteral("FRMPROYECTO_AUTOR"));
        poner(f, {{"txt_NumColegiado", "13"}, {"txt_Nombre", "Eva"}, {"txt_Apellidos", "Sanz"}, {"txt_NIF", "1X"}});
        pulsar(f, QStringLiteral("cmd_Guardar"));
        auto* selector = Pantallas::cargada<frmBuscarSeleccionar>();
        QVERIFY(selector);
        const QList<FilaResultado> filas = selector->filasResultado();
        QCOMPARE(filas.size(), 1);
        QCOMPARE(filas[0].clave, QStringLiteral("1"));  // tras vaciar OTROS la serie vuelve a empezar
        QVERIFY(filas[0].marcada);
        QCOMPARE(filas[0].textos.mid(0, 4), (QStringList{"13", "Eva", "Sanz", "1X"}));
    }
};

QTEST_MAIN(tst_fichas_otros)
#include "tst_fichas_otros.moc"