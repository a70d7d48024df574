// Ficha de proyecto: carga, validación, guardado con sus enlaces, copia de cambios, cierre
// y devoluciones.
#include "masterdata/FichaRegistro.h"
#include "masterdata/Porcentajes.h"
#include "masterdata/frmProyecto.h"
#include "tests/pantallas/tst_fichas_comun.h"

#include <QCheckBox>
#include <QDir>
#include <QTabWidget>
#include <QtTest>

using namespace fichas;
using Mensajes::Respuesta;

namespace {

const QString SIN_PORCENTAJE = QStringLiteral(
    "Se han hallado en la lista de arquitectos asociados al proyecto arquitectos sin porcentaje de participación.\n"
    "¿Desea incluir ahora el porcentaje de participación a estos arquitectos?");
const QString SOCIEDAD_SIN_MARCA = QStringLiteral(
    "Ha incluido su sociedad pero no la marcado como tal en la lista de arquitectos.\n¿Desea marcar ahora su sociedad en la lista?");
const QString SOCIEDAD_SIN_MIEMBROS = QStringLiteral(
    "Ha incluido su sociedad pero no ha seleccionado/incluido ningún arquitecto perteneciente a ella.\n"
    "¿Desea marcar/incluir ahora los arquitectos pertenecientes a su sociedad?");
const QString NO_PERTENECE = QStringLiteral(
    "Según los datos obtenidos de la Configuración, el arquitecto Eva Sanz no pertenece a la sociedad seleccionada.\n"
    "¿Desea continuar de todas maneras continuar con la operación?");
const QString MODIFICADO = QStringLiteral("Datos del proyecto modificados correctamente");

// Arquitectos, sociedad, técnicos, constructores, clientes y la configuración del estudio.
void datos()
{
    sql(QStringLiteral(
        "INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli, Ape_Cli) VALUES "
        "(10, 'ARQUITECTO', 1, 900, 'Estudio Mirvade SLP', NULL), (11, 'ARQUITECTO', 0, 1001, 'Ana', 'Ruiz Soto'), "
        "(12, 'ARQUITECTO', 0, 1002, 'Luis', 'Gómez'), (13, 'ARQUITECTO', 0, 1003, 'Eva', 'Sanz'), "
        "(20, 'ARQUITECTO TECNICO', 0, 2001, 'Pedro', 'Martín'), (21, 'ARQUITECTO TECNICO', 0, 2002, 'Rosa', 'Vidal'), "
        "(30, 'CONSTRUCTOR', 1, NULL, 'Construcciones Duero SA', NULL), (31, 'CONSTRUCTOR', 1, NULL, 'Obras Sil', 'SL')"));
    sql(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, esR) VALUES "
                       "(1, 'María', 'López', '11111111H', 5), (2, 'Juan', 'Pérez', '22222222J', -1), (3, 'Sin', 'Rep', 'X', 99)"));
    sql(QStringLiteral("INSERT INTO Representantes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, Representacion) VALUES "
                       "(5, 'Carlos', 'Díaz', '55555555K', 'Administrador')"));
    sql(QStringLiteral("DELETE FROM Config"));
    sql(QStringLiteral("INSERT INTO Config (CodSoc, CodArq1, CodArq2, CodArq3, IVA, IRPF) VALUES (10, 11, 12, 77, 21, 15)"));
}

frmProyecto* abrirProyecto(const QString& operacion, qint64 codigo = 0, const QString& retorno = {})
{
    PeticionFicha p;
    p.tabla = QStringLiteral("PROYECTOS_A");
    p.operacion = operacion;
    p.codigo = codigo;
    p.claveRetorno = retorno;
    abrirFichaProyecto(p);
    return Pantallas::cargada<frmProyecto>();
}

QTreeWidget* lista(QWidget* f) { return f->findChild<QTreeWidget*>(QStringLiteral("lvw_Arquitectos")); }
QTabWidget* pestanas(QWidget* f) { return f->findChild<QTabWidget*>(QStringLiteral("mst_1")); }

QTreeWidgetItem* arquitecto(QWidget* f, qint64 codigo, const QString& nombre, const QString& porcentaje, bool marcada = false,
                            bool sociedad = false)
{
    auto* fila = new QTreeWidgetItem(lista(f), {nombre, QString::number(1000 + codigo), porcentaje, QStringLiteral("NO")});
    ponerClaveFila(fila, QStringLiteral("K%1").arg(codigo));
    fila->setCheckState(0, marcada ? Qt::Checked : Qt::Unchecked);
    if (sociedad)
        pintarFila(fila, COLOR_PROPIA_SOCIEDAD);
    return fila;
}

// Filas de la lista como "clave|nombre|número|%|autor|marca|sociedad".
QStringList filas(QWidget* f)
{
    QStringList l;
    for (int i = 0; i < lista(f)->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* r = lista(f)->topLevelItem(i);
        l << QStringList{claveFila(r), r->text(0), r->text(1), r->text(2), r->text(3),
                         r->checkState(0) == Qt::Checked ? "1" : "0", r->foreground(0).color() == QColor(0, 0, 255) ? "S" : "-"}
                 .join(QLatin1Char('|'));
    }
    return l;
}

QStringList columna(const QString& sqlTexto, const QVariantList& valores = {})
{
    UsoConexion uso;
    Consulta c(sqlTexto, valores);
    QStringList l;
    while (c.siguiente()) {
        QStringList celdas;
        for (int i = 0; i < c.query().record().count(); ++i)
            celdas << (c.valor(i).isNull() ? QStringLiteral("null") : c.valor(i).toString());
        l << celdas.join(QLatin1Char('|'));
    }
    return l;
}

void activar(QWidget* f)
{
    f->show();
    f->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(f));
}

qint64 proyectoMinimo(const QString& trabajo = QStringLiteral("Vivienda"))
{
    sql(QStringLiteral("INSERT INTO Proyectos_A (Trabajo) VALUES (?)"), {trabajo});
    return valor(QStringLiteral("SELECT max(PryCod) FROM Proyectos_A")).toLongLong();
}

}  // namespace

class tst_proyecto : public QObject {
    Q_OBJECT

private slots:
    void cleanup()
    {
        while (QApplication::overrideCursor())
            QApplication::restoreOverrideCursor();
        limpiar();
    }

    // Paradas de la validación: mensaje exacto, foco y pestaña.
    void paradas_data()
    {
        QTest::addColumn<QString>("trabajo");
        QTest::addColumn<QStringList>("porcentajes");
        QTest::addColumn<QString>("fecha");
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<QString>("foco");
        QTest::addColumn<int>("pestana");
        const QString suma = QStringLiteral("La suma de los porcentajes de participación ha de ser 100.\nLos porcentajes proporcionados suman: ");
        QTest::newRow("trabajo vacío") << "   " << QStringList{} << "" << "El campo 'Trabajo' es obligatorio.\nPor favor, escriba un valor"
                                       << "txt_Trabajo" << 1;
        QTest::newRow("ningún porcentaje") << "Obra" << QStringList{"", ""} << ""
                                           << "La suma de los porcentajes de participación ha de ser 100" << "lvw_Arquitectos" << 0;
        QTest::newRow("un solo arquitecto sin porcentaje") << "Obra" << QStringList{""} << ""
                                                           << "La suma de los porcentajes de participación ha de ser 100"
                                                           << "lvw_Arquitectos" << 0;
        QTest::newRow("suma 99") << "Obra" << QStringList{"33,00", "33,00", "33,00"} << "" << suma + "99" << "lvw_Arquitectos" << 0;
        QTest::newRow("suma con decimales") << "Obra" << QStringList{"50,5", "40"} << "" << suma + "90,5" << "lvw_Arquitectos" << 0;
        // 6 x 2,03 + 87,82 es 100 en decimal, pero la suma en double queda un pelo por debajo.
        QTest::newRow("error de redondeo") << "Obra" << (QStringList(6, "2,03") << "87,82") << "" << suma + "100" << "lvw_Arquitectos" << 0;
        QTest::newRow("fecha mala") << "Obra" << QStringList{} << "32/01/2008"
                                    << "El día del mes no es válido. Inserte un día entre 1 y 31" << "msk_FechaVisado" << 1;
    }
    void paradas()
    {
        QFETCH(QString, trabajo);
        QFETCH(QStringList, porcentajes);
        QFETCH(QString, fecha);
        QFETCH(QString, mensaje);
        QFETCH(QString, foco);
        QFETCH(int, pestana);
        EntornoPrueba e;
        e.conectar();
        datos();
        const qint64 pry = proyectoMinimo();
        frmProyecto* f = abrirProyecto(QStringLiteral("MODIFICAR"), pry);
        activar(f);
        poner(f, QStringLiteral("txt_Trabajo"), trabajo);
        for (int i = 0; i < porcentajes.size(); ++i)
            arquitecto(f, 11 + i, QStringLiteral("Arq %1").arg(i), porcentajes[i]);
        if (!fecha.isEmpty())
            qobject_cast<QLineEdit*>(control(f, QStringLiteral("msk_FechaVisado")))->setText(fecha);
        pestanas(f)->setCurrentIndex(1);
        f->findChild<QWidget*>(QStringLiteral("cmd_Cerrar"))->setFocus();
        e.limpiarCuadros();

        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{mensaje});
        QCOMPARE(e.cuadros[0].titulo, QStringLiteral("Aviso"));
        QVERIFY(f->cancelarCierre());
        QCOMPARE(pestanas(f)->currentIndex(), pestana);
        QCOMPARE(QApplication::focusWidget(), control(f, foco));
        QCOMPARE(valor(QStringLiteral("SELECT Trabajo FROM Proyectos_A")).toString(), QStringLiteral("Vivienda"));
        QVERIFY(!transaccionEnCurso);
    }

    // Sumas exactas que pasan.
    void sumasQuePasan_data()
    {
        QTest::addColumn<QStringList>("porcentajes");
        QTest::newRow("33,33+33,33+33,34") << QStringList{"33,33", "33,33", "33,34"};
        QTest::newRow("reparto 34+33+33") << QStringList{"33,00", "33,00", "34,00"};
        QTest::newRow("con sociedad vacía") << QStringList{"", "100,00"};
        QTest::newRow("lista vacía") << QStringList{};
    }
    void sumasQuePasan()
    {
        QFETCH(QStringList, porcentajes);
        EntornoPrueba e;
        e.conectar();
        datos();
        sql(QStringLiteral("UPDATE Config SET CodSoc = NULL"));
        frmProyecto* f = abrirProyecto(QStringLiteral("MODIFICAR"), proyectoMinimo());
        for (int i = 0; i < porcentajes.size(); ++i)
            arquitecto(f, 11 + i, QStringLiteral("Arq %1").arg(i), porcentajes[i], i > 0, porcentajes[i].isEmpty());
        e.limpiarCuadros();
        e.respuestas << Respuesta::Si;  // sólo llegaría la pregunta de miembros que no son del estudio
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos().last(), MODIFICADO);
        QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Arquitectos_Proyecto")).toInt(), porcentajes.size());
    }

    // Preguntas que el usuario puede pasar por alto: Sí se queda, No sigue y guarda.
    void preguntas_data()
    {
        QTest::addColumn<int>("caso");
        QTest::addColumn<QString>("pregunta");
        QTest::addColumn<bool>("noPorDefecto");
        QTest::addColumn<int>("respuesta");
        QTest::addColumn<bool>("guarda");
        const QList<std::tuple<const char*, int, QString, bool>> casos = {
            {"sin porcentaje", 0, SIN_PORCENTAJE, false},
            {"sociedad sin marca", 1, SOCIEDAD_SIN_MARCA, false},
            {"sociedad sin miembros", 2, SOCIEDAD_SIN_MIEMBROS, false},
            {"no pertenece", 3, NO_PERTENECE, true},
        };
        for (const auto& [nombre, caso, texto, noPorDefecto] : casos) {
            // En "no pertenece" la respuesta que detiene es No; en las demás, Sí.
            const Respuesta para = caso == 3 ? Respuesta::No : Respuesta::Si;
            const Respuesta sigue = caso == 3 ? Respuesta::Si : Respuesta::No;
            QTest::addRow("%s, se detiene", nombre) << caso << texto << noPorDefecto << int(para) << false;
            QTest::addRow("%s, sigue", nombre) << caso << texto << noPorDefecto << int(sigue) << true;
        }
    }
    void preguntas()
    {
        QFETCH(int, caso);
        QFETCH(QString, pregunta);
        QFETCH(bool, noPorDefecto);
        QFETCH(int, respuesta);
        QFETCH(bool, guarda);
        EntornoPrueba e;
        e.conectar();
        datos();
        frmProyecto* f = abrirProyecto(QStringLiteral("MODIFICAR"), proyectoMinimo());
        activar(f);
        switch (caso) {
        case 0:
            arquitecto(f, 11, QStringLiteral("Ana Ruiz Soto"), QStringLiteral("100"));
            arquitecto(f, 12, QStringLiteral("Luis Gómez"), QString());
            break;
        case 1:
            arquitecto(f, 10, QStringLiteral("Estudio Mirvade SLP"), QStringLiteral("50"));
            arquitecto(f, 11, QStringLiteral("Ana Ruiz Soto"), QStringLiteral("50"));
            break;
        case 2:
            arquitecto(f, 10, QStringLiteral("Estudio Mirvade SLP"), QString(), false, true);
            arquitecto(f, 11, QStringLiteral("Ana Ruiz Soto"), QStringLiteral("100"));
            break;
        default:
            arquitecto(f, 10, QStringLiteral("Estudio Mirvade SLP"), QString(), false, true);
            arquitecto(f, 11, QStringLiteral("Ana Ruiz Soto"), QStringLiteral("50"), true);
            arquitecto(f, 13, QStringLiteral("Eva Sanz"), QStringLiteral("50"), true);
            break;
        }
        pestanas(f)->setCurrentIndex(1);
        e.limpiarCuadros();
        e.respuestas << Respuesta(respuesta);
        f->cmd_Guardar_Click();
        QCOMPARE(e.cuadros[0].texto, pregunta);
        QCOMPARE(e.cuadros[0].titulo, QStringLiteral("Pregunta"));
        QCOMPARE(e.cuadros[0].botones, Mensajes::Botones::SiNo);
        QCOMPARE(e.cuadros[0].porDefecto, noPorDefecto ? Respuesta::No : Respuesta::Si);
        QCOMPARE(e.textos().size(), guarda ? 2 : 1);
        QCOMPARE(f->cancelarCierre(), !guarda);
        QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Arquitectos_Proyecto")).toInt() > 0, guarda);
        if (guarda) {
            QCOMPARE(e.textos().last(), MODIFICADO);
        } else {
            QCOMPARE(pestanas(f)->currentIndex(), 0);
            QCOMPARE(QApplication::focusWidget(), lista(f));
        }
    }

    // Proyecto nuevo: la sociedad primero, en azul y sin marca; los arquitectos marcados; reparto.
    void altaDesdeConfiguracion()
    {
        EntornoPrueba e;
        e.conectar();
        datos();
        frmProyecto* f = abrirProyecto(QStringLiteral("ALTA"));
        QCOMPARE(f->windowTitle(), QStringLiteral("Nuevo proyecto"));
        QVERIFY(e.textos().isEmpty());  // el código 77 no existe: se pasa por alto
        QCOMPARE(filas(f), (QStringList{"K10|Estudio Mirvade SLP|900||NO|0|S", "K11|Ana Ruiz Soto|1001|50,00|NO|1|-",
                                        "K12|Luis Gómez|1002|50,00|NO|1|-"}));
        QCOMPARE(pestanas(f)->tabText(0), QStringLiteral("Arquitectos"));
        QCOMPARE(pestanas(f)->tabText(1), QStringLiteral("Otros agentes"));
        QVERIFY(!f->PreguntarGuardarCambios());

        // Sin fila de Config: aviso, lista vacía.
        limpiar();
        sql(QStringLiteral("DELETE FROM Config"));
        f = abrirProyecto(QStringLiteral("ALTA"));
        QCOMPARE(e.textos(), QStringList{"No se han podido cargar los arquitectos/sociedad desde la configuración del programa"});
        QCOMPARE(lista(f)->topLevelItemCount(), 0);
    }

    // Guardado completo, alta con devolución al impreso, recarga y modificación.
    void guardarYRecargar()
    {
        EntornoPrueba e;
        e.conectar();
        datos();
        Receptor impreso(QStringLiteral("frmDatosImpreso_A1"), {QStringLiteral("txt_CodProyecto"), QStringLiteral("txt_Proyecto")});
        frmProyecto* f = abrirProyecto(QStringLiteral("ALTA"), 0, QStringLiteral("FRMDATOSIMPRESOA1_PROYECTO"));
        poner(f, QStringLiteral("txt_Trabajo"), QStringLiteral("  Vivienda unifamiliar  "));
        poner(f, QStringLiteral("txt_Emplazamiento"), QStringLiteral("Calle Mayor 3"));
        poner(f, QStringLiteral("txt_Municipio"), QStringLiteral("Soria"));
        poner(f, QStringLiteral("cbo_Provincia"), QStringLiteral("Soria"));
        poner(f, QStringLiteral("txt_NumExpediente"), QStringLiteral("2008-15"));
        qobject_cast<QLineEdit*>(control(f, QStringLiteral("msk_FechaVisado")))->setText(QStringLiteral("01022008"));
        qobject_cast<QCheckBox*>(control(f, QStringLiteral("chk_Fase_0")))->setChecked(true);
        qobject_cast<QCheckBox*>(control(f, QStringLiteral("chk_Fase_3")))->setChecked(true);
        poner(f, QStringLiteral("txt_Notas"), QStringLiteral("Primera fase"));
        f->recibirCliente(1, QStringLiteral("11111111H"), QStringLiteral("María López"));
        f->recibirAutores({{"K11", "1001", "Ana Ruiz Soto"}, {"K12", "1002", "Luis Gómez"}});
        f->recibirAparejadores({{"K20", "2001", "Pedro Martín"}, {"K21", "2002", "Rosa Vidal"}});
        f->recibirConstructores({{"K30", "", "Construcciones Duero SA"}, {"K31", "", "Obras Sil SL"}});
        f->recibirCoordinador(13, QStringLiteral("Eva Sanz"));
        e.limpiarCuadros();
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{"Proyecto dado de alta correctamente"});
        QVERIFY(!abierta(f));
        QVERIFY(!frmMenu::existente());  // con devolución no se abre la lista
        const qint64 pry = valor(QStringLiteral("SELECT PryCod FROM Proyectos_A")).toLongLong();
        QCOMPARE(leer(&impreso, QStringLiteral("txt_CodProyecto")), QString::number(pry));
        QCOMPARE(leer(&impreso, QStringLiteral("txt_Proyecto")), QStringLiteral("Vivienda unifamiliar"));

        QCOMPARE(columna(QStringLiteral("SELECT Trabajo, Emplazamiento, Municipio, Provincia, EXPNUM, EXPFV, EXPFFO, PRYF1, PRYF2, PRYF3, "
                                        "PRYF4, PRYNTS, Codigo_Cliente, CLINOM, Codigo_Representante, Codigo_SeguridadSalud, ARQREG "
                                        "FROM Proyectos_A")),
                 QStringList{"Vivienda unifamiliar|Calle Mayor 3|Soria|Soria|2008-15|2008-02-01|null|1|0|0|1|Primera fase|1|"
                             "María López|5|13|10"});
        QCOMPARE(columna(QStringLiteral("SELECT Codigo_Arq, NumCol, PorPar_Arq, EsAutorProyecto, PerteneceSociedad, EsPropiaSociedad "
                                        "FROM Arquitectos_Proyecto ORDER BY rowid")),
                 (QStringList{"10|900|null|0|0|1", "11|1001|50|1|1|0", "12|1002|50|1|1|0"}));
        QCOMPARE(columna(QStringLiteral("SELECT Codigo_Arq FROM Autores_Proyecto ORDER BY rowid")), (QStringList{"11", "12"}));
        QCOMPARE(columna(QStringLiteral("SELECT Codigo_Apa FROM Aparejadores_Proyecto ORDER BY rowid")), (QStringList{"20", "21"}));
        QCOMPARE(columna(QStringLiteral("SELECT Codigo_Cons FROM Constructores_Proyecto ORDER BY rowid")), (QStringList{"30", "31"}));

        // Recarga en "MODIFICAR".
        f = abrirProyecto(QStringLiteral("MODIFICAR"), pry);
        QCOMPARE(f->windowTitle(), QStringLiteral("Modificar proyecto"));
        QCOMPARE(leer(f, QStringLiteral("txt_Trabajo")), QStringLiteral("Vivienda unifamiliar"));
        QCOMPARE(control(f, QStringLiteral("txt_Trabajo"))->toolTip(), QStringLiteral("Vivienda unifamiliar"));
        QCOMPARE(qobject_cast<QLineEdit*>(control(f, QStringLiteral("msk_FechaVisado")))->displayText(), QStringLiteral("01/02/2008"));
        QCOMPARE(qobject_cast<QLineEdit*>(control(f, QStringLiteral("msk_FechaFinDeObra")))->displayText(), FECHA_VACIA);
        QVERIFY(qobject_cast<QCheckBox*>(control(f, QStringLiteral("chk_Fase_3")))->isChecked());
        QCOMPARE(leer(f, QStringLiteral("txt_Cliente")), QStringLiteral("María López"));
        QCOMPARE(leer(f, QStringLiteral("lbl_NIFCliente")), QStringLiteral("11111111H"));
        QCOMPARE(leer(f, QStringLiteral("txt_Representante")), QStringLiteral("Carlos Díaz"));
        QCOMPARE(leer(f, QStringLiteral("txt_RepresentacionOstentada")), QStringLiteral("Administrador"));
        QCOMPARE(leer(f, QStringLiteral("lbl_ClaveAparejador")), QStringLiteral("20,21"));
        QCOMPARE(leer(f, QStringLiteral("lbl_CodAparejador")), QStringLiteral("2001,2002"));
        QCOMPARE(leer(f, QStringLiteral("txt_Aparejador")), QStringLiteral("Pedro Martín, Rosa Vidal"));
        QCOMPARE(leer(f, QStringLiteral("lbl_CodConstructor")), QStringLiteral("30,31"));
        QCOMPARE(leer(f, QStringLiteral("txt_Constructor")), QStringLiteral("Construcciones Duero SA, Obras Sil SL"));
        QCOMPARE(leer(f, QStringLiteral("txt_CoordinadorSyS")), QStringLiteral("Eva Sanz"));
        QCOMPARE(leer(f, QStringLiteral("txt_AutorProyecto")), QStringLiteral("Ana Ruiz Soto, Luis Gómez"));
        QCOMPARE(filas(f), (QStringList{"K10|Estudio Mirvade SLP|900||NO|0|S", "K11|Ana Ruiz Soto|1001|50,00|SI|1|-",
                                        "K12|Luis Gómez|1002|50,00|SI|1|-"}));
        QVERIFY(!f->PreguntarGuardarCambios());

        // Un solo técnico (sin ","), sin constructores, sin cliente, la sociedad desmarcada.
        f->img_Borrar_Click(2);
        f->recibirAparejadores({{"K21", "2002", "Rosa Vidal"}});
        f->img_Borrar_Click(5);
        pintarFila(lista(f)->topLevelItem(0), COLOR_FILA_NORMAL);
        lista(f)->topLevelItem(0)->setText(2, QStringLiteral("10"));
        lista(f)->topLevelItem(1)->setText(2, QStringLiteral("45"));
        lista(f)->topLevelItem(2)->setText(2, QStringLiteral("45"));
        e.limpiarCuadros();
        e.respuestas << Respuesta::No;  // la sociedad está pero sin marcar: se sigue
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), (QStringList{SOCIEDAD_SIN_MARCA, MODIFICADO}));
        QVERIFY(abierta(f));
        QCOMPARE(columna(QStringLiteral("SELECT Codigo_Cliente, CLINOM, Codigo_Representante, ARQREG FROM Proyectos_A")),
                 QStringList{"null|null|null|10"});  // ARQREG conserva la sociedad anterior
        QCOMPARE(columna(QStringLiteral("SELECT Codigo_Apa FROM Aparejadores_Proyecto")), QStringList{"21"});
        QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Constructores_Proyecto")).toInt(), 0);
        QCOMPARE(valor(QStringLiteral("SELECT sum(EsPropiaSociedad) FROM Arquitectos_Proyecto")).toInt(), 0);
        QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Arquitectos_Proyecto")).toInt(), 3);
        QVERIFY(!f->PreguntarGuardarCambios());
    }

    // Fallos de carga: se avisa y lo demás se carga.
    void cargaConFallos()
    {
        EntornoPrueba e;
        e.conectar();
        datos();
        sql(QStringLiteral("INSERT INTO Proyectos_A (PryCod, Trabajo, Codigo_Cliente, Codigo_Representante, Codigo_SeguridadSalud) "
                           "VALUES (7, 'Nave', 50, 60, 20)"));
        sql(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol, PorPar_Arq) VALUES (7, 99, '1', 50), (7, 11, '1001', 50)"));
        sql(QStringLiteral("INSERT INTO Autores_Proyecto (PryCod, Codigo_Arq) VALUES (7, 98), (7, 11)"));
        frmProyecto* f = abrirProyecto(QStringLiteral("MODIFICAR"), 7);
        QCOMPARE(e.textos(), (QStringList{"No se han podido cargar los datos del cliente", "No se han podido cargar los datos del representante",
                                          "No se han podido cargar los datos del coordinador de seguridad y salud",
                                          "No se han podido obtener los datos de uno de los arquitectos asociado al proyecto",
                                          "No se han podido obtener los datos de uno de los arquitectos autores del proyecto"}));
        QCOMPARE(filas(f), QStringList{"K11|Ana Ruiz Soto|1001|50,00|NO|0|-"});
        QCOMPARE(leer(f, QStringLiteral("txt_AutorProyecto")), QStringLiteral("Ana Ruiz Soto"));

        limpiar();
        e.limpiarCuadros();
        f = abrirProyecto(QStringLiteral("MODIFICAR"), 404);
        QCOMPARE(e.textos(), QStringList{"No se han podido cargar los datos del proyecto seleccionado"});
        QVERIFY(abierta(f));
        QVERIFY(!f->PreguntarGuardarCambios());
    }

    // Salida del guardado sin el proyecto: transacción abierta y cursor de espera hasta que el
    // usuario vuelve a actuar; después se puede guardar.
    void salidaSinProyecto()
    {
        EntornoPrueba e;
        e.conectar();
        datos();
        const qint64 pry = proyectoMinimo();
        frmProyecto* f = abrirProyecto(QStringLiteral("MODIFICAR"), pry);
        activar(f);
        sql(QStringLiteral("DELETE FROM Proyectos_A"));
        poner(f, QStringLiteral("txt_Trabajo"), QStringLiteral("Vivienda 2"));
        e.limpiarCuadros();
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{"No se han podido cargar los datos del proyecto"});
        QVERIFY(transaccionEnCurso);
        QVERIFY(QApplication::overrideCursor());
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        QVERIFY(abierta(f));
        QVERIFY(!f->cancelarCierre());

        // El usuario vuelve a actuar: se deshace y vuelve el cursor normal.
        QTest::keyClick(control(f, QStringLiteral("txt_Municipio")), Qt::Key_S);
        QVERIFY(!transaccionEnCurso);
        QVERIFY(!QApplication::overrideCursor());

        sql(QStringLiteral("INSERT INTO Proyectos_A (PryCod, Trabajo) VALUES (?, 'Vivienda')"), {pry});
        e.limpiarCuadros();
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{MODIFICADO});
        QCOMPARE(valor(QStringLiteral("SELECT Trabajo || '/' || Municipio FROM Proyectos_A")).toString(), QStringLiteral("Vivienda 2/s"));

        // Un segundo guardado sin proyecto y, sin más, otro guardado: el pendiente se deshace antes.
        sql(QStringLiteral("DELETE FROM Proyectos_A"));
        f->cmd_Guardar_Click();
        QVERIFY(transaccionEnCurso);
        f->cmd_Guardar_Click();
        QVERIFY(transaccionEnCurso);
        QCOMPARE(QApplication::overrideCursor() != nullptr, true);
        // Al cerrar la ficha no queda nada abierto.
        QVERIFY(Pantallas::descargar(f));
        QVERIFY(!transaccionEnCurso);
        QVERIFY(!QApplication::overrideCursor());
    }

    // Copia de cambios: las mayúsculas no cuentan; la lista sí.
    void copiaDeCambios_data()
    {
        QTest::addColumn<int>("cambio");
        QTest::addColumn<bool>("hayCambios");
        QTest::newRow("nada") << 0 << false;
        QTest::newRow("sólo mayúsculas") << 1 << false;
        QTest::newRow("texto") << 2 << true;
        QTest::newRow("fase") << 3 << true;
        QTest::newRow("fila nueva") << 4 << true;
        QTest::newRow("fila quitada") << 5 << true;
        QTest::newRow("marca") << 6 << true;
        QTest::newRow("porcentaje") << 7 << true;
        QTest::newRow("color y orden no cuentan") << 8 << false;
        QTest::newRow("otro agente") << 9 << true;
    }
    void copiaDeCambios()
    {
        QFETCH(int, cambio);
        QFETCH(bool, hayCambios);
        EntornoPrueba e;
        e.conectar();
        datos();
        frmProyecto* f = abrirProyecto(QStringLiteral("ALTA"));
        QTreeWidget* lvw = lista(f);
        switch (cambio) {
        case 1:
            poner(f, QStringLiteral("txt_Trabajo"), QString());
            break;
        case 2:
            poner(f, QStringLiteral("txt_Municipio"), QStringLiteral("Soria"));
            break;
        case 3:
            qobject_cast<QCheckBox*>(control(f, QStringLiteral("chk_Fase_2")))->setChecked(true);
            break;
        case 4:
            f->recibirArquitecto(13, QStringLiteral("Eva Sanz"), QStringLiteral("1003"));
            break;
        case 5:
            delete lvw->topLevelItem(2);
            break;
        case 6:
            lvw->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
            break;
        case 7:
            lvw->topLevelItem(1)->setText(2, QStringLiteral("60,00"));
            break;
        case 8:
            pintarFila(lvw->topLevelItem(0), COLOR_FILA_NORMAL);
            lvw->addTopLevelItem(lvw->takeTopLevelItem(0));
            break;
        case 9:
            f->recibirCoordinador(13, QStringLiteral("Eva Sanz"));
            break;
        default:
            break;
        }
        if (cambio == 1) {
            // Carga en modificación con un texto, y se cambia sólo de mayúsculas.
            limpiar();
            f = abrirProyecto(QStringLiteral("MODIFICAR"), proyectoMinimo(QStringLiteral("Vivienda")));
            poner(f, QStringLiteral("txt_Trabajo"), QStringLiteral("VIVIENDA"));
        }
        QCOMPARE(f->PreguntarGuardarCambios(), hayCambios);
    }

    // Pregunta al cerrar: Sí guarda y cierra, No cierra sin guardar, Cancelar se queda.
    void cierre_data()
    {
        QTest::addColumn<int>("respuesta");
        QTest::addColumn<bool>("cerrada");
        QTest::addColumn<QString>("trabajo");
        QTest::newRow("sí") << int(Respuesta::Si) << true << "Nave nueva";
        QTest::newRow("no") << int(Respuesta::No) << true << "Vivienda";
        QTest::newRow("cancelar") << int(Respuesta::Cancelar) << false << "Vivienda";
    }
    void cierre()
    {
        QFETCH(int, respuesta);
        QFETCH(bool, cerrada);
        QFETCH(QString, trabajo);
        EntornoPrueba e;
        e.conectar();
        datos();
        frmProyecto* f = abrirProyecto(QStringLiteral("MODIFICAR"), proyectoMinimo());
        poner(f, QStringLiteral("txt_Trabajo"), QStringLiteral("Nave nueva"));
        e.respuestas << Respuesta(respuesta);
        pulsar(f, QStringLiteral("cmd_Cerrar"));
        QCOMPARE(e.cuadros[0].texto, QStringLiteral("¿Desea guardar los cambios antes de salir?"));
        QCOMPARE(e.cuadros[0].botones, Mensajes::Botones::SiNoCancelar);
        QCOMPARE(!abierta(f), cerrada);
        QCOMPARE(valor(QStringLiteral("SELECT Trabajo FROM Proyectos_A")).toString(), trabajo);

        // Sí con una validación fallida: no se cierra.
        if (respuesta == int(Respuesta::Cancelar)) {
            poner(f, QStringLiteral("txt_Trabajo"), QString());
            e.limpiarCuadros();
            e.respuestas << Respuesta::Si;
            pulsar(f, QStringLiteral("cmd_Cerrar"));
            QCOMPARE(e.textos().last(), QStringLiteral("El campo 'Trabajo' es obligatorio.\nPor favor, escriba un valor"));
            QVERIFY(abierta(f));
        }
    }

    // Devoluciones del selector y de las fichas nuevas.
    void devoluciones()
    {
        EntornoPrueba e;
        e.conectar();
        datos();
        frmProyecto* f = abrirProyecto(QStringLiteral("ALTA"));
        QVERIFY(!f->recibirArquitecto(11, QStringLiteral("Ana Ruiz Soto"), QStringLiteral("1001")));
        QCOMPARE(e.textos(), QStringList{"El arquitecto seleccionado ya se encuentra incluido en la lista de arquitectos del proyecto"});
        QVERIFY(f->recibirArquitecto(13, QStringLiteral("Eva Sanz"), QStringLiteral("1003")));
        QCOMPARE(filas(f).last(), QStringLiteral("K13|Eva Sanz|1003||NO|0|-"));

        // Autores: marca "SI"; una nueva elección no devuelve el "SI" a "NO".
        f->recibirAutores({{"K12", "1002", "Luis Gómez"}});
        f->recibirAutores({{"K13", "1003", "Eva Sanz"}});
        QCOMPARE(leer(f, QStringLiteral("txt_AutorProyecto")), QStringLiteral("Eva Sanz"));
        QStringList autores;
        for (int i = 0; i < lista(f)->topLevelItemCount(); ++i)
            autores << lista(f)->topLevelItem(i)->text(3);
        QCOMPARE(autores, (QStringList{"NO", "NO", "SI", "SI"}));
        f->img_Borrar_Click(1);
        QCOMPARE(leer(f, QStringLiteral("txt_AutorProyecto")), QString());
        QCOMPARE(f->findChild<QTreeWidget*>(QStringLiteral("lvw_CodigosArquitectos"))->topLevelItemCount(), 0);
        QCOMPARE(lista(f)->topLevelItem(2)->text(3), QStringLiteral("NO"));

        // Cliente con representante, sin él, y con un representante que no existe.
        e.limpiarCuadros();
        f->recibirCliente(1, QStringLiteral("11111111H"), QStringLiteral("María López"));
        QCOMPARE(leer(f, QStringLiteral("lbl_CodRepresentante")) + "|" + leer(f, QStringLiteral("lbl_NIFRepresentante")) + "|"
                     + leer(f, QStringLiteral("txt_Representante")) + "|" + leer(f, QStringLiteral("txt_RepresentacionOstentada")),
                 QStringLiteral("5|55555555K|Carlos Díaz|Administrador"));
        f->recibirCliente(2, QStringLiteral("22222222J"), QStringLiteral("Juan Pérez"));
        QCOMPARE(leer(f, QStringLiteral("lbl_CodRepresentante")) + leer(f, QStringLiteral("txt_Representante")), QString());
        QCOMPARE(leer(f, QStringLiteral("lbl_CodCliente")), QStringLiteral("2"));
        f->recibirCliente(3, QStringLiteral("X"), QStringLiteral("Sin Rep"));
        f->recibirCliente(40, QStringLiteral("Y"), QStringLiteral("Nadie"));
        QCOMPARE(e.textos(), (QStringList{"No se han podido cargar los datos del representante del cliente seleccionado",
                                          "No se han podido cargar los datos del cliente seleccionado"}));
        QCOMPARE(leer(f, QStringLiteral("txt_Cliente")), QStringLiteral("Nadie"));

        // Técnicos y constructores: sin ninguno marcado se vacían.
        f->recibirAparejadores({{"K20", "2001", "Pedro Martín"}, {"K21", "2002", "Rosa Vidal"}});
        QCOMPARE(leer(f, QStringLiteral("lbl_ClaveAparejador")) + "|" + leer(f, QStringLiteral("lbl_CodAparejador")) + "|"
                     + leer(f, QStringLiteral("txt_Aparejador")),
                 QStringLiteral("20,21|2001,2002|Pedro Martín, Rosa Vidal"));
        f->recibirAparejadorNuevo(22, QStringLiteral("Nuevo Técnico"));
        QCOMPARE(leer(f, QStringLiteral("lbl_ClaveAparejador")) + "|" + leer(f, QStringLiteral("lbl_CodAparejador")) + "|"
                     + leer(f, QStringLiteral("txt_Aparejador")),
                 QStringLiteral("20,21|22|Nuevo Técnico"));
        f->recibirAparejadores({});
        QCOMPARE(leer(f, QStringLiteral("lbl_ClaveAparejador")) + leer(f, QStringLiteral("txt_Aparejador")), QString());
        f->recibirConstructores({{"K31", "", "Obras Sil SL"}});
        QCOMPARE(leer(f, QStringLiteral("lbl_CodConstructor")) + "|" + leer(f, QStringLiteral("txt_Constructor")),
                 QStringLiteral("31|Obras Sil SL"));
        f->recibirConstructorNuevo(32, QStringLiteral("Nueva SA"));
        QCOMPARE(leer(f, QStringLiteral("lbl_CodConstructor")), QStringLiteral("32"));

        // Una fila que llega por nombre (ficha nueva de arquitecto) también tiene casilla.
        Devolucion::agregarFila(f, QStringLiteral("lvw_Arquitectos"), QStringLiteral("K14"), {"Otro", "1004", "", "NO"});
        QCOMPARE(filas(f).last(), QStringLiteral("K14|Otro|1004||NO|0|-"));

        // Borrar arquitecto: lista vacía avisa; si no, pregunta por el seleccionado.
        e.limpiarCuadros();
        lista(f)->setCurrentItem(lista(f)->topLevelItem(1));
        e.respuestas << Respuesta::No << Respuesta::Si;
        f->img_Borrar_Click(0);
        f->img_Borrar_Click(0);
        QCOMPARE(e.textos(), (QStringList{"¿Realmente desea eliminar el arquitecto Ana Ruiz Soto?",
                                          "¿Realmente desea eliminar el arquitecto Ana Ruiz Soto?"}));
        QCOMPARE(lista(f)->topLevelItemCount(), 4);
        lista(f)->clear();
        e.limpiarCuadros();
        f->img_Borrar_Click(0);
        QCOMPARE(e.textos(), QStringList{"La lista de arquitectos está vacía"});

        // La propia sociedad no puede marcarse como miembro de sí misma.
        auto* s = arquitecto(f, 10, QStringLiteral("Estudio Mirvade SLP"), QString(), false, true);
        e.limpiarCuadros();
        s->setCheckState(0, Qt::Checked);
        QCOMPARE(e.textos(), QStringList{"No se puede incluir a la propia sociedad como arquitecto perteneciente a ella misma"});
        QCOMPARE(s->checkState(0), Qt::Unchecked);
    }

    // Fechas: normalización al salir, globo con su texto, y herramientas con su ayuda.
    void pantalla()
    {
        EntornoPrueba e;
        e.conectar();
        datos();
        frmProyecto* f = abrirProyecto(QStringLiteral("ALTA"));
        activar(f);
        auto* msk = qobject_cast<QLineEdit*>(control(f, QStringLiteral("msk_FechaVisado")));
        msk->setFocus();
        QVERIFY(control(f, QStringLiteral("lbl_AyudaFecha"))->isVisible());
        QCOMPARE(leer(f, QStringLiteral("lbl_AyudaFecha")),
                 QStringLiteral("  El formato de la fecha ha de ser dd/mm/aaaa.\n# Día: 2 dígitos (por ejemplo: 01, 15)\n"
                                "# Mes: 2 dígitos (por ejemplo: 02, 12)\n# Año: 4 dígitos (por ejemplo: 2005)"));
        msk->setText(QStringLiteral("1/2/2008"));
        control(f, QStringLiteral("txt_Municipio"))->setFocus();
        QCOMPARE(msk->displayText(), QStringLiteral("01/02/2008"));
        QVERIFY(!control(f, QStringLiteral("lbl_AyudaFecha"))->isVisible());

        const QStringList buscar = {"Añadir arquitecto", "Añadir autor del proyecto", "Añadir cliente", "Añadir representante",
                                    "Añadir aparejador", "Añadir constructor", "Añadir redactor del Estudio de Seguridad y Salud"};
        for (int i = 0; i < 7; ++i)
            QCOMPARE(control(f, QStringLiteral("img_Buscar_%1").arg(i))->toolTip(), buscar[i]);
        QVERIFY(control(f, QStringLiteral("img_Buscar_3"))->isHidden());
        QVERIFY(control(f, QStringLiteral("img_Borrar_3"))->isHidden());
        QCOMPARE(lista(f)->headerItem()->text(1), QStringLiteral("Nº Col. / Registro"));

        // Nº de expediente: cifras y un solo guion.
        teclear(control(f, QStringLiteral("txt_NumExpediente")), QStringLiteral("20a08-1-5"));
        QCOMPARE(leer(f, QStringLiteral("txt_NumExpediente")), QStringLiteral("2008-15"));
    }
    // Captura para la documentación (PLANORUM_CAPTURAS=1): la ficha dentro de la pantalla principal.
    void captura()
    {
        if (qEnvironmentVariableIsEmpty("PLANORUM_CAPTURAS"))
            QSKIP("Sólo con PLANORUM_CAPTURAS=1");
        EntornoPrueba e;
        e.conectar();
        datos();
        sql(QStringLiteral("INSERT INTO Proyectos_A (PryCod, Trabajo, Emplazamiento, Municipio, Provincia, EXPNUM, EXPFV, PRYF1, PRYF3, "
                           "PRYNTS, Codigo_Cliente, Codigo_Representante, Codigo_SeguridadSalud, ARQREG) VALUES (1, "
                           "'Vivienda unifamiliar aislada con garaje', 'C/ Mayor, 14', 'Soria', 'Soria', '2008-0153', '2008-03-05', 1, 1, "
                           "'Pendiente la licencia de obras', 1, 5, 13, 10)"));
        sql(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol, PorPar_Arq, EsAutorProyecto, PerteneceSociedad, "
                           "EsPropiaSociedad) VALUES (1, 10, '900', NULL, 0, 0, 1), (1, 11, '1001', 33, 1, 1, 0), "
                           "(1, 12, '1002', 33, 1, 1, 0), (1, 13, '1003', 34, 0, 0, 0)"));
        sql(QStringLiteral("INSERT INTO Autores_Proyecto (PryCod, Codigo_Arq) VALUES (1, 11), (1, 12)"));
        sql(QStringLiteral("INSERT INTO Aparejadores_Proyecto (PryCod, Codigo_Apa) VALUES (1, 20)"));
        sql(QStringLiteral("INSERT INTO Constructores_Proyecto (PryCod, Codigo_Cons) VALUES (1, 30)"));
        frmMenu* menu = frmMenu::instancia();
        menu->resize(1100, 860);
        menu->show();
        frmProyecto* f = abrirProyecto(QStringLiteral("MODIFICAR"), 1);
        pestanas(f)->setCurrentIndex(0);
        procesarEventos();
        QWidget* marco = f->parentWidget() ? f->parentWidget() : f;
        const QString carpeta = QStringLiteral(DIRECTORIO_FUENTES "/docs/capturas/");
        QVERIFY(marco->grab().save(carpeta + QStringLiteral("frmProyecto.png")));
        pestanas(f)->setCurrentIndex(1);
        procesarEventos();
        QVERIFY(marco->grab().save(QDir::tempPath() + QStringLiteral("/frmProyecto-otros.png")));
    }
};

QTEST_MAIN(tst_proyecto)
#include "tst_proyecto.moc"
