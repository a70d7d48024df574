// Fichas de la tabla OTROS: arquitectos, arquitectos técnicos y contratistas.
#include "masterdata/frmAparejador.h"
#include "masterdata/frmArquitecto.h"
#include "masterdata/frmConfiguracion.h"
#include "masterdata/frmContratista.h"
#include "masterdata/frmProyecto.h"
#include "search/frmBuscarSeleccionar.h"
#include "tests/pantallas/tst_fichas_comun.h"

#include <QGroupBox>
#include <QtTest>

using Mensajes::Respuesta;
using namespace fichas;

namespace {

FichaOtros* abrirOtros(const QString& tabla, const QString& operacion, qint64 codigo = 0, const QString& clave = {})
{
    PeticionFicha p;
    p.tabla = tabla;
    p.operacion = operacion;
    p.codigo = codigo;
    p.claveRetorno = clave;
    if (!abrirFicha(p))
        return nullptr;
    if (tabla == QLatin1String("APAREJADORES"))
        return Pantallas::cargada<frmAparejador>();
    if (tabla == QLatin1String("CONTRATISTAS"))
        return Pantallas::cargada<frmContratista>();
    return Pantallas::cargada<frmArquitecto>();
}

void tipo(QWidget* f, int indice)
{
    qobject_cast<QAbstractButton*>(control(f, QStringLiteral("opt_Tipo_%1").arg(indice)))->setChecked(true);
}

void ponerSiHay(QWidget* f, const QString& nombre, const QString& texto)
{
    if (f->findChild<QWidget*>(nombre))
        poner(f, nombre, texto);
}

const QString OBLIGATORIO = QStringLiteral("\nPor favor, escriba un valor");
const QString REVISE = QStringLiteral("\nPor favor, revise el número proporcionado");

// Arquitecto 4 (número 123), sociedad 5 (registro 77), arquitecto técnico 6 (número 123).
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

    void alta_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<int>("tipoElegido");
        QTest::addColumn<QString>("titulo");
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<QString>("categoria");
        QTest::addColumn<QVariant>("numero");
        QTest::addColumn<QVariant>("colegio");
        QTest::newRow("arquitecto") << "ARQUITECTOS" << 0 << "Nuevo arquitecto" << "Arquitecto dado de alta correctamente"
                                    << "ARQUITECTO" << QVariant(124) << QVariant("COA León");
        QTest::newRow("sociedad de arquitectos") << "ARQUITECTOS" << 1 << "Nuevo arquitecto" << "Arquitecto dado de alta correctamente"
                                                 << "ARQUITECTO" << QVariant(124) << QVariant("COA León");
        QTest::newRow("arquitecto técnico") << "APAREJADORES" << 0 << "Nuevo arquitecto técnico"
                                            << "Arquitecto técnico dado de alta correctamente" << "ARQUITECTO TECNICO"
                                            << QVariant(124) << QVariant();
        QTest::newRow("contratista") << "CONTRATISTAS" << 1 << "Nuevo contratista" << "Contratista dado de alta correctamente"
                                     << "CONSTRUCTOR" << QVariant() << QVariant();
    }

    // Una sola serie de códigos para todas las categorías; cada ficha escribe lo suyo.
    void alta()
    {
        QFETCH(QString, tabla);
        QFETCH(int, tipoElegido);
        QFETCH(QString, titulo);
        QFETCH(QString, mensaje);
        QFETCH(QString, categoria);
        QFETCH(QVariant, numero);
        QFETCH(QVariant, colegio);
        EntornoPrueba e;
        e.conectar();
        sembrar();
        FichaOtros* f = abrirOtros(tabla, QStringLiteral("ALTA"));
        QVERIFY(f);
        QCOMPARE(f->windowTitle(), titulo);
        QVERIFY(control(f, QStringLiteral("Frame2"))->isEnabled());
        tipo(f, tipoElegido);
        ponerSiHay(f, QStringLiteral("txt_NumColegiado"), QStringLiteral("0124"));
        ponerSiHay(f, QStringLiteral("txt_Colegio"), QStringLiteral("COA León"));
        poner(f, QStringLiteral("txt_Nombre"), QStringLiteral("Nombre"));
        poner(f, QStringLiteral("txt_Telefono2"), QStringLiteral("975 22 33 44"));
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(e.textos(), QStringList{mensaje});
        QVERIFY(!abierta(f));
        QCOMPARE(fila(QStringLiteral("SELECT Codigo_Cli, Categoria, esS, COALESCE(NumColegiado, 'nulo'), COALESCE(Colegio, 'nulo'), Tfno_Cli1, Ape_Cli IS NULL "
                                     "FROM OTROS WHERE Codigo_Cli = 8")),
                 (QVariantList{8, categoria, tipoElegido, numero.isValid() ? numero : QVariant("nulo"),
                               colegio.isValid() ? colegio : QVariant("nulo"),
                               QStringLiteral("975 22 33 44"), 1}));
        // Sin clave de devolución se abre la lista del menú.
        QVERIFY(frmMenu::existente());
    }

    void validacion_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<int>("tipoElegido");
        QTest::addColumn<QString>("numero");
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<QString>("correo");
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<QString>("foco");
        const QString altaArq = QStringLiteral("Arquitecto dado de alta correctamente");
        const QString altaApa = QStringLiteral("Arquitecto técnico dado de alta correctamente");
        QTest::newRow("arq: número") << "ARQUITECTOS" << 0 << " " << "" << "" << "El número de colegiado es obligatorio." + OBLIGATORIO << "txt_NumColegiado";
        QTest::newRow("arq: registro") << "ARQUITECTOS" << 1 << "" << "X" << "" << "El número de registro es obligatorio." + OBLIGATORIO << "txt_NumColegiado";
        QTest::newRow("arq: número repetido") << "ARQUITECTOS" << 0 << "00123" << "" << "" << "Ya existe un arquitecto con ese número de colegiado." + REVISE << "txt_NumColegiado";
        QTest::newRow("arq: registro repetido") << "ARQUITECTOS" << 1 << "77" << "X" << "" << "Ya existe una sociedad con ese número de registro." + REVISE << "txt_NumColegiado";
        QTest::newRow("arq: persona y sociedad comparten número") << "ARQUITECTOS" << 1 << "123" << "X" << "" << altaArq << "";
        QTest::newRow("arq: nombre") << "ARQUITECTOS" << 0 << "9" << "" << "" << "El nombre del arquitecto es obligatorio." + OBLIGATORIO << "txt_Nombre";
        QTest::newRow("arq: nombre de sociedad") << "ARQUITECTOS" << 1 << "9" << " " << "" << "El nombre de la sociedad es obligatorio." + OBLIGATORIO << "txt_Nombre";
        QTest::newRow("arq: correo") << "ARQUITECTOS" << 0 << "9" << "X" << "x@y." << "Dirección de correo incorrecta: No se ha proporcionado el dominio de la dirección (p.ej: '.com')" << "txt_Correo";
        QTest::newRow("apa: número") << "APAREJADORES" << 0 << "" << "" << "" << "El número de colegiado es obligatorio." + OBLIGATORIO << "txt_NumColegiado";
        QTest::newRow("apa: número repetido") << "APAREJADORES" << 0 << "123" << "X" << "" << "Ya existe un arquitecto técnico con ese número de colegiado." + REVISE << "txt_NumColegiado";
        QTest::newRow("apa: el de un arquitecto no choca") << "APAREJADORES" << 1 << "77" << "X" << "" << altaApa << "";
        QTest::newRow("apa: nombre") << "APAREJADORES" << 0 << "9" << "" << "" << "El nombre del arquitecto técnico es obligatorio." + OBLIGATORIO << "txt_Nombre";
        QTest::newRow("con: nombre") << "CONTRATISTAS" << 0 << "" << "" << "" << "El nombre del contratista es obligatorio." + OBLIGATORIO << "txt_Nombre";
        QTest::newRow("con: nombre de sociedad") << "CONTRATISTAS" << 1 << "" << "" << "" << "El nombre de la sociedad es obligatorio." + OBLIGATORIO << "txt_Nombre";
        QTest::newRow("con: correo") << "CONTRATISTAS" << 1 << "" << "X" << "xy" << "Dirección de correo incorrecta: No contiene la @" << "txt_Correo";
        QTest::newRow("con: repetido vale") << "CONTRATISTAS" << 1 << "" << "Obras SA" << "" << "Contratista dado de alta correctamente" << "";
    }

    void validacion()
    {
        QFETCH(QString, tabla);
        QFETCH(int, tipoElegido);
        QFETCH(QString, numero);
        QFETCH(QString, nombre);
        QFETCH(QString, correo);
        QFETCH(QString, mensaje);
        QFETCH(QString, foco);
        EntornoPrueba e;
        e.conectar();
        sembrar();
        FichaOtros* f = abrirOtros(tabla, QStringLiteral("ALTA"));
        tipo(f, tipoElegido);
        ponerSiHay(f, QStringLiteral("txt_NumColegiado"), numero);
        poner(f, QStringLiteral("txt_Nombre"), nombre);
        poner(f, QStringLiteral("txt_NIF"), QStringLiteral("A4"));
        poner(f, QStringLiteral("txt_Correo"), correo);
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{mensaje});
        const int filas = valor(QStringLiteral("SELECT count(*) FROM OTROS")).toInt();
        if (foco.isEmpty()) {
            QCOMPARE(filas, 5);
        } else {
            QCOMPARE(filas, 4);
            QCOMPARE(f->focusWidget(), control(f, foco));
            QVERIFY(abierta(f));
        }
    }

    void titulosPorTipo_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<int>("indice");
        QTest::addColumn<QStringList>("titulos");  // lbl_Titulo_0, _1, _5 ("-" si no existe)
        QTest::newRow("arq persona") << "ARQUITECTOS" << 0 << QStringList{"Nº Colegiado", "Nombre", "N.I.F."};
        QTest::newRow("arq sociedad") << "ARQUITECTOS" << 1 << QStringList{"Nº Registro", "Empresa", "C.I.F."};
        QTest::newRow("apa sociedad") << "APAREJADORES" << 1 << QStringList{"Nº Registro", "Empresa", "C.I.F."};
        QTest::newRow("con persona") << "CONTRATISTAS" << 0 << QStringList{"-", "Nombre", "N.I.F."};
        QTest::newRow("con sociedad") << "CONTRATISTAS" << 1 << QStringList{"-", "Empresa", "C.I.F."};
    }

    void titulosPorTipo()
    {
        QFETCH(QString, tabla);
        QFETCH(int, indice);
        QFETCH(QStringList, titulos);
        EntornoPrueba e;
        e.conectar();
        FichaOtros* f = abrirOtros(tabla, QStringLiteral("ALTA"));
        tipo(f, 1 - indice);
        tipo(f, indice);
        QStringList obtenidos;
        for (int n : {0, 1, 5})
            obtenidos << (f->findChild<QWidget*>(QStringLiteral("lbl_Titulo_%1").arg(n)) ? leer(f, QStringLiteral("lbl_Titulo_%1").arg(n))
                                                                                          : QStringLiteral("-"));
        QCOMPARE(obtenidos, titulos);
        QCOMPARE(control(f, QStringLiteral("txt_Apellidos"))->isEnabled(), indice == 0);
        QCOMPARE(control(f, QStringLiteral("lbl_Titulo_2"))->isEnabled(), indice == 0);
    }

    // El tipo de un arquitecto guardado no cambia; el de los demás, sí.
    void tipoEnModificar_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<int>("codigo");
        QTest::addColumn<QString>("titulo");
        QTest::addColumn<bool>("marcoHabilitado");
        QTest::addColumn<int>("tipoCargado");
        QTest::newRow("arquitecto") << "ARQUITECTOS" << 5 << "Modificar arquitecto" << false << 1;
        QTest::newRow("arquitecto técnico") << "APAREJADORES" << 6 << "Modificar arquitecto técnico" << true << 0;
        QTest::newRow("contratista") << "CONTRATISTAS" << 7 << "Modificar contratista" << true << 1;
    }

    void tipoEnModificar()
    {
        QFETCH(QString, tabla);
        QFETCH(int, codigo);
        QFETCH(QString, titulo);
        QFETCH(bool, marcoHabilitado);
        QFETCH(int, tipoCargado);
        EntornoPrueba e;
        e.conectar();
        sembrar();
        FichaOtros* f = abrirOtros(tabla, QStringLiteral("MODIFICAR"), codigo);
        QCOMPARE(f->windowTitle(), titulo);
        QCOMPARE(control(f, QStringLiteral("Frame2"))->isEnabled(), marcoHabilitado);
        QVERIFY(qobject_cast<QAbstractButton*>(control(f, QStringLiteral("opt_Tipo_%1").arg(tipoCargado)))->isChecked());
        QVERIFY(!f->hayCambios());
        QVERIFY(e.textos().isEmpty());
    }

    // Listas de sólo personas o sólo sociedades: el tipo viene fijado; y lo que no abre nada.
    void aperturaPorClave_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("operacion");
        QTest::addColumn<bool>("abre");
        QTest::addColumn<int>("tipoFijo");
        QTest::addColumn<bool>("marcoHabilitado");
        QTest::newRow("simple") << "ARQUITECTOS_SIMPLE" << "ALTA" << true << 0 << false;
        QTest::newRow("sociedad") << "ARQUITECTOS_SOCIEDAD" << "ALTA" << true << 1 << false;
        QTest::newRow("autores") << "ARQUITECTOS_AUTORES" << "ALTA" << true << 0 << true;
        QTest::newRow("coordinador") << "COORDINADOR_SS" << "ALTA" << true << 0 << true;
        QTest::newRow("autores no se editan") << "ARQUITECTOS_AUTORES" << "MODIFICAR" << false << 0 << true;
        QTest::newRow("sociedad no se edita") << "ARQUITECTOS_SOCIEDAD" << "MODIFICAR" << false << 0 << true;
    }

    void aperturaPorClave()
    {
        QFETCH(QString, tabla);
        QFETCH(QString, operacion);
        QFETCH(bool, abre);
        QFETCH(int, tipoFijo);
        QFETCH(bool, marcoHabilitado);
        EntornoPrueba e;
        e.conectar();
        sembrar();
        FichaOtros* f = abrirOtros(tabla, operacion, 4);
        QCOMPARE(f != nullptr, abre);
        if (!f)
            return;
        QCOMPARE(f->windowTitle(), QStringLiteral("Nuevo arquitecto"));
        QVERIFY(qobject_cast<QAbstractButton*>(control(f, QStringLiteral("opt_Tipo_%1").arg(tipoFijo)))->isChecked());
        QCOMPARE(control(f, QStringLiteral("Frame2"))->isEnabled(), marcoHabilitado);
        QCOMPARE(leer(f, QStringLiteral("lbl_Titulo_0")), tipoFijo ? QStringLiteral("Nº Registro") : QStringLiteral("Nº Colegiado"));
    }

    void cascadasArquitecto_data()
    {
        QTest::addColumn<int>("codigo");
        QTest::addColumn<QString>("arq1Col");
        QTest::addColumn<QString>("arq3Col");
        QTest::addColumn<QString>("socReg");
        QTest::addColumn<QVariant>("socNom");
        QTest::addColumn<QVariantList>("config");  // Arq1Nom, Arq1Col, Arq3Col, SocNom, SocReg, Domicilio
        QTest::addColumn<QString>("numColNuevo");  // NumCol de los enlaces que tenían el número anterior
        const QVariant nulo(QMetaType(QMetaType::QString));
        QTest::newRow("primer arquitecto sin sociedad")
            << 4 << "123" << "9" << "" << nulo
            << QVariantList{"Juan Ruiz Díaz", "124", "9", nulo, "", "Plaza Mayor, 3"} << "124";
        QTest::newRow("primer arquitecto con sociedad")
            << 4 << "123" << "9" << "" << QVariant("Estudio SLP")
            << QVariantList{"Juan Ruiz Díaz", "124", "9", "Estudio SLP", "", "antigua"} << "124";
        QTest::newRow("tercer arquitecto: Config no cambia")
            << 4 << "5" << "123" << "" << nulo << QVariantList{"viejo", "5", "123", nulo, "", "antigua"} << "124";
        QTest::newRow("ceros delante: no se halla en Config")
            << 4 << "0123" << "9" << "" << nulo << QVariantList{"viejo", "0123", "9", nulo, "", "antigua"} << "124";
        QTest::newRow("sociedad")
            << 5 << "123" << "9" << "77" << QVariant("Estudio")
            << QVariantList{"viejo", "123", "9", "Estudio SLP Nueva", "124", "Plaza Mayor, 3"} << "";
    }

    void cascadasArquitecto()
    {
        QFETCH(int, codigo);
        QFETCH(QString, arq1Col);
        QFETCH(QString, arq3Col);
        QFETCH(QString, socReg);
        QFETCH(QVariant, socNom);
        QFETCH(QVariantList, config);
        QFETCH(QString, numColNuevo);
        EntornoPrueba e;
        e.conectar();
        sembrar();
        sql(QStringLiteral("DELETE FROM Config"));
        sql(QStringLiteral("INSERT INTO Config (Arq1Nom, Arq1Col, Arq3Col, SocNom, SocReg, Domicilio) VALUES ('viejo', ?, ?, ?, ?, 'antigua')"),
            {arq1Col, arq3Col, socNom, socReg});
        // Enlaces por número: los dos con 123 cambian aunque uno sea de otro arquitecto.
        sql(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol) VALUES (1, 4, '123'), (2, 99, '123'), (3, 4, '12')"));
        sql(QStringLiteral("INSERT INTO Proyectos_A (PryCod, APACOL, CLINOM) VALUES (1, '123', 'nada')"));
        sql(QStringLiteral("INSERT INTO datosB1B3B4 (Clave, ARQCOD, ARQNOM) VALUES (1, ?, 'viejo'), (2, 99, 'ajeno')"), {codigo});
        sql(QStringLiteral("INSERT INTO datosB4 (Clave, PERCOD, PERNOM, PAGCOD, PAGNOM) VALUES (1, ?, 'viejo', ?, 'pagador'), (2, 98, 'ajeno', 0, '')"),
            {codigo, codigo});

        FichaOtros* f = abrirOtros(QStringLiteral("ARQUITECTOS"), QStringLiteral("MODIFICAR"), codigo);
        const bool esSociedad = codigo == 5;
        QCOMPARE(f->numeroAnterior(), esSociedad ? 77 : 123);
        poner(f, QStringLiteral("txt_NumColegiado"), QStringLiteral("124"));
        poner(f, QStringLiteral("txt_Nombre"), esSociedad ? QStringLiteral("Estudio SLP Nueva") : QStringLiteral("Juan"));
        if (!esSociedad)
            poner(f, QStringLiteral("txt_Apellidos"), QStringLiteral("Ruiz Díaz"));
        poner(f, QStringLiteral("txt_Domicilio"), QStringLiteral("Plaza Mayor, 3"));
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Datos del arquitecto modificados correctamente")});
        QVERIFY(abierta(f));

        QCOMPARE(fila(QStringLiteral("SELECT Arq1Nom, Arq1Col, Arq3Col, SocNom, SocReg, Domicilio FROM Config")), config);
        const QString nuevo = numColNuevo.isEmpty() ? QStringLiteral("123") : numColNuevo;
        QCOMPARE(fila(QStringLiteral("SELECT group_concat(NumCol, '|') FROM (SELECT NumCol FROM Arquitectos_Proyecto ORDER BY PryCod)")),
                 QVariantList{nuevo + QLatin1Char('|') + nuevo + QStringLiteral("|12")});
        const QString nombre = esSociedad ? QStringLiteral("Estudio SLP Nueva") : QStringLiteral("Juan Ruiz Díaz");
        QCOMPARE(fila(QStringLiteral("SELECT ARQNOM, ARQDOM FROM datosB1B3B4 WHERE Clave = 1")),
                 (QVariantList{nombre, QStringLiteral("Plaza Mayor, 3")}));
        QCOMPARE(valor(QStringLiteral("SELECT ARQNOM FROM datosB1B3B4 WHERE Clave = 2")).toString(), QStringLiteral("ajeno"));
        QCOMPARE(fila(QStringLiteral("SELECT PERNOM, PERDOM, PAGNOM FROM datosB4 WHERE Clave = 1")),
                 (QVariantList{nombre, QStringLiteral("Plaza Mayor, 3"), QStringLiteral("pagador")}));
        QCOMPARE(valor(QStringLiteral("SELECT PERNOM FROM datosB4 WHERE Clave = 2")).toString(), QStringLiteral("ajeno"));
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
        QCOMPARE(fila(QStringLiteral("SELECT APACOL, APANOM FROM Proyectos_A WHERE PryCod = 1")),
                 (QVariantList{QStringLiteral("321"), QStringLiteral("Rosa León")}));
        QCOMPARE(fila(QStringLiteral("SELECT APACOL, APANOM FROM Proyectos_A WHERE PryCod = 2")),
                 (QVariantList{QStringLiteral("12"), QStringLiteral("otra")}));

        e.limpiarCuadros();
        f = abrirOtros(QStringLiteral("CONTRATISTAS"), QStringLiteral("MODIFICAR"), 7);
        poner(f, QStringLiteral("txt_Nombre"), QStringLiteral("Obras y Reformas SA"));
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Datos del contratista modificados correctamente")});
        QCOMPARE(valor(QStringLiteral("SELECT CONNOM FROM Proyectos_A WHERE PryCod = 1")).toString(), QStringLiteral("Obras y Reformas SA"));
        QCOMPARE(valor(QStringLiteral("SELECT CONNOM FROM Proyectos_A WHERE PryCod = 2")).toString(), QStringLiteral("otro"));
    }

    void filaDesaparecida_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("carga");
        QTest::addColumn<QString>("guardado");
        QTest::newRow("arquitecto") << "ARQUITECTOS" << "No se han podido cargar los datos del arquitecto seleccionado"
                                    << "No se ha podido hallar el arquitecto seleccionado para su modificación";
        QTest::newRow("arquitecto técnico") << "APAREJADORES" << "No se han podido cargar los datos del arquitecto técnico seleccionado"
                                            << "No se ha podido hallar el arquitecto técnico seleccionado para su modificación";
        QTest::newRow("contratista") << "CONTRATISTAS" << "No se han podido cargar los datos del contratista seleccionado"
                                     << "No se ha podido hallar el contratista seleccionado para su modificación";
    }

    void filaDesaparecida()
    {
        QFETCH(QString, tabla);
        QFETCH(QString, carga);
        QFETCH(QString, guardado);
        EntornoPrueba e;
        e.conectar();
        FichaOtros* f = abrirOtros(tabla, QStringLiteral("MODIFICAR"), 40);
        ponerSiHay(f, QStringLiteral("txt_NumColegiado"), QStringLiteral("1"));
        poner(f, QStringLiteral("txt_Nombre"), QStringLiteral("X"));
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), (QStringList{carga, guardado}));
        QVERIFY(f->cancelarCierre());
    }

    void preguntaAlSalir_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("campo");
        QTest::addColumn<int>("respuesta");
        QTest::addColumn<bool>("sigueAbierta");
        QTest::addColumn<QString>("nombre");
        QTest::newRow("arq colegio, sí") << "ARQUITECTOS" << "txt_Colegio" << int(Respuesta::Si) << false << "Juan";
        QTest::newRow("arq número, cancelar") << "ARQUITECTOS" << "txt_NumColegiado" << int(Respuesta::Cancelar) << true << "Juan";
        QTest::newRow("apa fax, no") << "APAREJADORES" << "txt_Fax" << int(Respuesta::No) << false << "Rosa";
        QTest::newRow("con notas, sí") << "CONTRATISTAS" << "txt_Notas" << int(Respuesta::Si) << false << "Obras SA";
    }

    void preguntaAlSalir()
    {
        QFETCH(QString, tabla);
        QFETCH(QString, campo);
        QFETCH(int, respuesta);
        QFETCH(bool, sigueAbierta);
        QFETCH(QString, nombre);
        EntornoPrueba e;
        e.conectar();
        sembrar();
        const int codigo = tabla == QLatin1String("ARQUITECTOS") ? 4 : tabla == QLatin1String("APAREJADORES") ? 6 : 7;
        FichaOtros* f = abrirOtros(tabla, QStringLiteral("MODIFICAR"), codigo);
        poner(f, campo, QStringLiteral("99"));
        e.respuestas << Respuesta(respuesta);
        pulsar(f, QStringLiteral("cmd_Cerrar"));
        QCOMPARE(e.textos().value(0), QStringLiteral("¿Desea guardar los cambios antes de salir?"));
        QCOMPARE(abierta(f), sigueAbierta);
        const QString columna = campo == QLatin1String("txt_Colegio") ? QStringLiteral("Colegio")
                              : campo == QLatin1String("txt_Fax")     ? QStringLiteral("Fax_Cli")
                              : campo == QLatin1String("txt_Notas")   ? QStringLiteral("Otros")
                                                                      : QStringLiteral("NumColegiado");
        const QVariant guardado = valor(QStringLiteral("SELECT %1 FROM OTROS WHERE Codigo_Cli = ?").arg(columna), {codigo});
        QCOMPARE(guardado.toString() == QLatin1String("99"), respuesta == int(Respuesta::Si));
        QCOMPARE(valor(QStringLiteral("SELECT Nombre_Cli FROM OTROS WHERE Codigo_Cli = ?"), {codigo}).toString(), nombre);
    }

    void devolucion_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("clave");
        QTest::addColumn<QString>("receptor");
        QTest::addColumn<QStringList>("controles");
        QTest::addColumn<QStringList>("esperado");
        QTest::newRow("coordinador") << "COORDINADOR_SS" << "FRMPROYECTO_COORDINADOR" << "frmProyecto"
                                     << QStringList{"lbl_CodCoordinadorSyS", "txt_CoordinadorSyS"} << QStringList{"8", "Ana Gil"};
        QTest::newRow("perceptor B4") << "ARQUITECTOS" << "FRMDATOSIMPRESOB4_PERCEPTOR" << "frmDatosImpreso_B4"
                                      << QStringList{"txt_CodPerceptor", "txt_Perceptor"} << QStringList{"8", "Ana Gil"};
        QTest::newRow("emisor B1") << "ARQUITECTOS" << "FRMDATOSIMPRESOB1B3B4_EMISOR" << "frmDatosImpreso_B1_B3_B4"
                                   << QStringList{"txt_CodEmisor", "txt_Emisor"} << QStringList{"8", "Ana Gil"};
        QTest::newRow("certificado") << "ARQUITECTOS" << "FRMDATOSIMPRESO_CERTIFICADO" << "frmDatosImpreso_Certificado"
                                     << QStringList{"txt_CodArq", "txt_NomArq"} << QStringList{"8", "Ana Gil"};
        QTest::newRow("apa proyecto") << "APAREJADORES" << "FRMPROYECTO_APAREJADOR" << "frmProyecto"
                                      << QStringList{"lbl_CodAparejador", "txt_Aparejador", "lbl_ClaveAparejador"} << QStringList{"8", "Ana Gil", ""};
        QTest::newRow("apa B4 propio") << "APAREJADORES" << "FRMDATOSIMPRESOB4_PROPIO_PERCEPTOR" << "frmDatosImpreso_B4_Propio"
                                       << QStringList{"txt_CodPerceptor", "txt_Perceptor"} << QStringList{"8", "Ana Gil"};
        QTest::newRow("con proyecto") << "CONTRATISTAS" << "FRMPROYECTO_CONSTRUCTOR" << "frmProyecto"
                                      << QStringList{"lbl_CodConstructor", "txt_Constructor"} << QStringList{"8", "Ana Gil"};
    }

    void devolucion()
    {
        QFETCH(QString, tabla);
        QFETCH(QString, clave);
        QFETCH(QString, receptor);
        QFETCH(QStringList, controles);
        QFETCH(QStringList, esperado);
        EntornoPrueba e;
        e.conectar();
        sembrar();
        auto* r = new Receptor(receptor, controles);
        FichaOtros* f = abrirOtros(tabla, QStringLiteral("ALTA"), 0, clave);
        ponerSiHay(f, QStringLiteral("txt_NumColegiado"), QStringLiteral("321"));
        poner(f, QStringLiteral("txt_Nombre"), QStringLiteral("Ana"));
        poner(f, QStringLiteral("txt_Apellidos"), QStringLiteral("Gil"));
        poner(f, QStringLiteral("txt_Domicilio"), QStringLiteral("Real, 1"));
        poner(f, QStringLiteral("txt_CP"), QStringLiteral("42001"));
        poner(f, QStringLiteral("cbo_Provincia"), QStringLiteral("Soria"));
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QStringList obtenido;
        for (const QString& c : controles)
            obtenido << leer(r, c);
        QCOMPARE(obtenido, esperado);
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
        poner(f, QStringLiteral("txt_NumColegiado"), QStringLiteral("321"));
        poner(f, QStringLiteral("txt_Nombre"), sociedad ? QStringLiteral("Ana Gil") : QStringLiteral("Ana"));
        if (!sociedad)
            poner(f, QStringLiteral("txt_Apellidos"), QStringLiteral("Gil"));
        poner(f, QStringLiteral("txt_Domicilio"), QStringLiteral("Real, 1"));
        poner(f, QStringLiteral("txt_CP"), QStringLiteral("42001"));
        poner(f, QStringLiteral("txt_Municipio"), QStringLiteral("Soria"));
        poner(f, QStringLiteral("cbo_Provincia"), QStringLiteral("Soria"));
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Arquitecto dado de alta correctamente")});
        QStringList obtenido;
        for (const QString& c : controles)
            obtenido << leer(conf, c);
        QCOMPARE(obtenido, esperado);
    }

    void devolucionEnListas()
    {
        EntornoPrueba e;
        e.conectar();
        auto* proyecto = new frmProyecto;
        FichaOtros* f = abrirOtros(QStringLiteral("ARQUITECTOS"), QStringLiteral("ALTA"), 0, QStringLiteral("FRMPROYECTO_ARQUITECTO"));
        poner(f, QStringLiteral("txt_NumColegiado"), QStringLiteral("12"));
        poner(f, QStringLiteral("txt_Nombre"), QStringLiteral("Ana"));
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
        poner(f, QStringLiteral("txt_NumColegiado"), QStringLiteral("13"));
        poner(f, QStringLiteral("txt_Nombre"), QStringLiteral("Eva"));
        poner(f, QStringLiteral("txt_Apellidos"), QStringLiteral("Sanz"));
        poner(f, QStringLiteral("txt_NIF"), QStringLiteral("1X"));
        pulsar(f, QStringLiteral("cmd_Guardar"));
        // El selector de autores, abierto y vacío, recibe la fila marcada.
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
