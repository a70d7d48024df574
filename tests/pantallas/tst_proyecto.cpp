// Ficha de proyecto: carga, validación, guardado con sus enlaces, copia de cambios, cierre
// y devoluciones.
#include "masterdata/FichaRegistro.h"
#include "masterdata/Porcentajes.h"
#include "masterdata/frmProyecto.h"
#include "tests/pantallas/tst_fichas_comun.h"

#include <QCheckBox>
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

// Textos de varios controles unidos por "|".
QString leerVarios(QWidget* f, const QStringList& nombres)
{
    QStringList l;
    for (const QString& n : nombres)
        l << leer(f, n);
    return l.join(QLatin1Char('|'));
}

QLineEdit* fecha(QWidget* f, const QString& nombre) { return qobject_cast<QLineEdit*>(control(f, nombre)); }
QCheckBox* casilla(QWidget* f, const QString& nombre) { return qobject_cast<QCheckBox*>(control(f, nombre)); }

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

// Ficha de proyecto abierta sobre un proyecto mínimo.
frmProyecto* modificarMinimo() { return abrirProyecto(QStringLiteral("MODIFICAR"), proyectoMinimo()); }

}  // namespace

class tst_proyecto : public QObject {
    Q_OBJECT

    std::unique_ptr<EntornoPrueba> m_e;

private slots:
    // Cada prueba: base con los datos de partida.
    void init()
    {
        m_e = std::make_unique<EntornoPrueba>();
        m_e->conectar();
        datos();
    }
    void cleanup()
    {
        while (QApplication::overrideCursor())
            QApplication::restoreOverrideCursor();
        limpiar();
        m_e.reset();
    }

    // Paradas de la validación: mensaje exacto, foco y pestaña; sin mensaje, sumas exactas que pasan.
    // Porcentajes: "S" es la propia sociedad (sin porcentaje); las filas tras la primera, marcadas.
    void paradas_data()
    {
        QTest::addColumn<QString>("trabajo");
        QTest::addColumn<QStringList>("porcentajes");
        QTest::addColumn<QString>("fecha");
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<QString>("foco");
        QTest::addColumn<int>("pestana");
        const QString cien = QStringLiteral("La suma de los porcentajes de participación ha de ser 100");
        const QString suma = cien + QStringLiteral(".\nLos porcentajes proporcionados suman: ");
        QTest::newRow("trabajo vacío") << "   " << QStringList{} << "" << "El campo 'Trabajo' es obligatorio.\nPor favor, escriba un valor"
                                       << "txt_Trabajo" << 1;
        QTest::newRow("ningún porcentaje") << "Obra" << QStringList{"", ""} << "" << cien << "lvw_Arquitectos" << 0;
        QTest::newRow("suma con decimales") << "Obra" << QStringList{"50,5", "40"} << "" << suma + "90,5" << "lvw_Arquitectos" << 0;
        // 6 x 2,03 + 87,82 es 100 en decimal, pero la suma en double queda un pelo por debajo.
        QTest::newRow("error de redondeo") << "Obra" << (QStringList(6, "2,03") << "87,82") << "" << suma + "100" << "lvw_Arquitectos" << 0;
        QTest::newRow("fecha mala") << "Obra" << QStringList{} << "32/01/2008"
                                    << "El día del mes no es válido. Inserte un día entre 1 y 31" << "msk_FechaVisado" << 1;
        QTest::newRow("pasa 33,33+33,33+33,34") << "Obra" << QStringList{"33,33", "33,33", "33,34"} << "" << "" << "" << 1;
        QTest::newRow("pasa con sociedad") << "Obra" << QStringList{"S", "100,00"} << "" << "" << "" << 1;
        QTest::newRow("pasa sin arquitectos") << "Obra" << QStringList{} << "" << "" << "" << 1;
    }
    void paradas()
    {
        QFETCH(QString, trabajo);
        QFETCH(QStringList, porcentajes);
        QFETCH(QString, fecha);
        QFETCH(QString, mensaje);
        QFETCH(QString, foco);
        QFETCH(int, pestana);
        EntornoPrueba& e = *m_e;
        sql(QStringLiteral("UPDATE Config SET CodSoc = NULL"));
        frmProyecto* f = abrirProyecto(QStringLiteral("MODIFICAR"), proyectoMinimo());
        activar(f);
        poner(f, QStringLiteral("txt_Trabajo"), trabajo);
        for (int i = 0; i < porcentajes.size(); ++i) {
            const bool soc = porcentajes[i] == QLatin1String("S");
            arquitecto(f, 11 + i, QStringLiteral("Arq %1").arg(i), soc ? QString() : porcentajes[i], i > 0, soc);
        }
        if (!fecha.isEmpty())
            ::fecha(f, QStringLiteral("msk_FechaVisado"))->setText(fecha);
        pestanas(f)->setCurrentIndex(1);
        f->findChild<QWidget*>(QStringLiteral("cmd_Cerrar"))->setFocus();
        e.limpiarCuadros();
        e.respuestas << Respuesta::Si;  // sólo llegaría la pregunta de miembros que no son del estudio
        f->cmd_Guardar_Click();
        QCOMPARE(pestanas(f)->currentIndex(), pestana);
        if (mensaje.isEmpty()) {
            QCOMPARE(e.textos().last(), MODIFICADO);
            QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Arquitectos_Proyecto")).toInt(), porcentajes.size());
            return;
        }
        QCOMPARE(e.textos(), QStringList{mensaje});
        QCOMPARE(e.cuadros[0].titulo, QStringLiteral("Aviso"));
        QVERIFY(f->cancelarCierre());
        QCOMPARE(QApplication::focusWidget(), control(f, foco));
        QCOMPARE(valor(QStringLiteral("SELECT Trabajo FROM Proyectos_A")).toString(), QStringLiteral("Vivienda"));
    }

    // Preguntas que el usuario puede pasar por alto: la que detiene se queda en la lista; la otra
    // sigue y guarda. En "no pertenece" detiene No (y es la de por defecto); en las demás, Sí.
    // Arquitectos: "código:porcentaje", con "+" si está marcado y "S" si es la propia sociedad.
    void preguntas_data()
    {
        QTest::addColumn<QStringList>("arquitectos");
        QTest::addColumn<QString>("pregunta");
        QTest::addColumn<bool>("guarda");
        const QList<std::tuple<const char*, QStringList, QString>> casos = {
            {"sin porcentaje", {"11:100", "12:"}, SIN_PORCENTAJE},
            {"sociedad sin marca", {"10:50", "11:50"}, SOCIEDAD_SIN_MARCA},
            {"sociedad sin miembros", {"10:S", "11:100"}, SOCIEDAD_SIN_MIEMBROS},
            {"no pertenece", {"10:S", "11:50+", "13:50+"}, NO_PERTENECE},
        };
        for (const auto& [nombre, arquitectos, texto] : casos) {
            QTest::addRow("%s, se detiene", nombre) << arquitectos << texto << false;
            QTest::addRow("%s, sigue", nombre) << arquitectos << texto << true;
        }
    }
    void preguntas()
    {
        QFETCH(QStringList, arquitectos);
        QFETCH(QString, pregunta);
        QFETCH(bool, guarda);
        const QStringList nombres = {"Estudio Mirvade SLP", "Ana Ruiz Soto", "Luis Gómez", "Eva Sanz"};
        EntornoPrueba& e = *m_e;
        frmProyecto* f = modificarMinimo();
        activar(f);
        for (const QString& a : arquitectos) {
            const qint64 cod = a.section(QLatin1Char(':'), 0, 0).toLongLong();
            QString por = a.section(QLatin1Char(':'), 1);
            const bool marcada = por.endsWith(QLatin1Char('+')), sociedad = por == QLatin1String("S");
            por.remove(QLatin1Char('+')).remove(QLatin1Char('S'));
            arquitecto(f, cod, nombres[cod - 10], por, marcada, sociedad);
        }
        pestanas(f)->setCurrentIndex(1);
        e.limpiarCuadros();
        const bool noPorDefecto = pregunta == NO_PERTENECE;
        e.respuestas << (guarda != noPorDefecto ? Respuesta::No : Respuesta::Si);
        f->cmd_Guardar_Click();
        QCOMPARE(e.cuadros[0].texto, pregunta);
        QCOMPARE(e.cuadros[0].porDefecto, noPorDefecto ? Respuesta::No : Respuesta::Si);
        QCOMPARE(e.textos().size(), guarda ? 2 : 1);
        QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Arquitectos_Proyecto")).toInt() > 0, guarda);
        if (guarda) {
            QCOMPARE(e.textos().last(), MODIFICADO);
        } else {
            QVERIFY(f->cancelarCierre());
            QCOMPARE(pestanas(f)->currentIndex(), 0);
            QCOMPARE(QApplication::focusWidget(), lista(f));
        }
    }

    // Proyecto nuevo: la sociedad primero, en azul y sin marca; los arquitectos marcados; reparto.
    void altaDesdeConfiguracion()
    {
        EntornoPrueba& e = *m_e;
        frmProyecto* f = abrirProyecto(QStringLiteral("ALTA"));
        QVERIFY(e.textos().isEmpty());  // el código 77 no existe: se pasa por alto
        QCOMPARE(filas(f), (QStringList{"K10|Estudio Mirvade SLP|900||NO|0|S", "K11|Ana Ruiz Soto|1001|50,00|NO|1|-",
                                        "K12|Luis Gómez|1002|50,00|NO|1|-"}));
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
        EntornoPrueba& e = *m_e;
        Receptor impreso(QStringLiteral("frmDatosImpreso_A1"), {QStringLiteral("txt_CodProyecto"), QStringLiteral("txt_Proyecto")});
        frmProyecto* f = abrirProyecto(QStringLiteral("ALTA"), 0, QStringLiteral("FRMDATOSIMPRESOA1_PROYECTO"));
        const QStringList campos = {"txt_Trabajo", "  Vivienda unifamiliar  ", "txt_Emplazamiento", "Calle Mayor 3", "txt_Municipio",
                                    "Soria", "cbo_Provincia", "Soria", "txt_NumExpediente", "2008-15", "txt_Notas", "Primera fase"};
        for (int i = 0; i < campos.size(); i += 2)
            poner(f, campos[i], campos[i + 1]);
        fecha(f, QStringLiteral("msk_FechaVisado"))->setText(QStringLiteral("01022008"));
        casilla(f, QStringLiteral("chk_Fase_0"))->setChecked(true);
        casilla(f, QStringLiteral("chk_Fase_3"))->setChecked(true);
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
        QCOMPARE(leerVarios(&impreso, {"txt_CodProyecto", "txt_Proyecto"}), QString::number(pry) + "|Vivienda unifamiliar");
        QCOMPARE(columna(QStringLiteral("SELECT Trabajo, Emplazamiento, Municipio, Provincia, EXPNUM, EXPFV, EXPFFO, PRYF1, PRYF2, PRYF3, "
                                        "PRYF4, PRYNTS, Codigo_Cliente, CLINOM, Codigo_Representante, Codigo_SeguridadSalud, ARQREG "
                                        "FROM Proyectos_A")),
                 QStringList{"Vivienda unifamiliar|Calle Mayor 3|Soria|Soria|2008-15|2008-02-01|null|1|0|0|1|Primera fase|1|"
                             "María López|5|13|10"});
        QCOMPARE(columna(QStringLiteral("SELECT Codigo_Arq, NumCol, PorPar_Arq, EsAutorProyecto, PerteneceSociedad, EsPropiaSociedad "
                                        "FROM Arquitectos_Proyecto ORDER BY rowid")),
                 (QStringList{"10|900|null|0|0|1", "11|1001|50|1|1|0", "12|1002|50|1|1|0"}));
        QCOMPARE(columna(QStringLiteral("SELECT group_concat(Codigo_Arq) FROM Autores_Proyecto")) + columna("SELECT group_concat(Codigo_Apa) "
                     "FROM Aparejadores_Proyecto") + columna("SELECT group_concat(Codigo_Cons) FROM Constructores_Proyecto"),
                 (QStringList{"11,12", "20,21", "30,31"}));

        // Recarga en "MODIFICAR".
        f = abrirProyecto(QStringLiteral("MODIFICAR"), pry);
        QCOMPARE(fecha(f, QStringLiteral("msk_FechaVisado"))->displayText(), QStringLiteral("01/02/2008"));
        QCOMPARE(fecha(f, QStringLiteral("msk_FechaFinDeObra"))->displayText(), FECHA_VACIA);
        QVERIFY(casilla(f, QStringLiteral("chk_Fase_3"))->isChecked());
        QCOMPARE(leerVarios(f, {"txt_Trabajo", "txt_Cliente", "lbl_NIFCliente", "txt_Representante", "txt_RepresentacionOstentada",
                                "lbl_ClaveAparejador", "lbl_CodAparejador", "txt_Aparejador", "lbl_CodConstructor", "txt_Constructor",
                                "txt_CoordinadorSyS", "txt_AutorProyecto"}),
                 QStringLiteral("Vivienda unifamiliar|María López|11111111H|Carlos Díaz|Administrador|20,21|2001,2002|Pedro Martín, Rosa Vidal|"
                                "30,31|Construcciones Duero SA, Obras Sil SL|Eva Sanz|Ana Ruiz Soto, Luis Gómez"));
        QCOMPARE(filas(f), (QStringList{"K10|Estudio Mirvade SLP|900||NO|0|S", "K11|Ana Ruiz Soto|1001|50,00|SI|1|-",
                                        "K12|Luis Gómez|1002|50,00|SI|1|-"}));
        QVERIFY(!f->PreguntarGuardarCambios());

        // Un solo técnico (sin ","), sin constructores, sin cliente, la sociedad desmarcada.
        f->img_Borrar_Click(2);
        f->recibirAparejadores({{"K21", "2002", "Rosa Vidal"}});
        f->img_Borrar_Click(5);
        pintarFila(lista(f)->topLevelItem(0), COLOR_FILA_NORMAL);
        for (int i = 0; i < 3; ++i)
            lista(f)->topLevelItem(i)->setText(2, i ? QStringLiteral("45") : QStringLiteral("10"));
        e.limpiarCuadros();
        e.respuestas << Respuesta::No;  // la sociedad está pero sin marcar: se sigue
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), (QStringList{SOCIEDAD_SIN_MARCA, MODIFICADO}));
        QVERIFY(abierta(f));
        QCOMPARE(columna(QStringLiteral("SELECT Codigo_Cliente, CLINOM, Codigo_Representante, ARQREG FROM Proyectos_A")),
                 QStringList{"null|null|null|10"});  // ARQREG conserva la sociedad anterior
        QCOMPARE(columna(QStringLiteral("SELECT (SELECT group_concat(Codigo_Apa) FROM Aparejadores_Proyecto), (SELECT count(*) FROM "
                                        "Constructores_Proyecto), sum(EsPropiaSociedad), count(*) FROM Arquitectos_Proyecto")),
                 QStringList{"21|0|0|3"});
        QVERIFY(!f->PreguntarGuardarCambios());
    }

    // Fallos de carga: se avisa y lo demás se carga.
    void cargaConFallos()
    {
        EntornoPrueba& e = *m_e;
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
        EntornoPrueba& e = *m_e;
        frmProyecto* f = modificarMinimo();
        const qint64 pry = valor(QStringLiteral("SELECT PryCod FROM Proyectos_A")).toLongLong();
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
        f->cmd_Guardar_Click();
        QVERIFY(transaccionEnCurso);
        QVERIFY(QApplication::overrideCursor());
        // Al cerrar la ficha no queda nada abierto.
        QVERIFY(Pantallas::descargar(f));
        QVERIFY(!transaccionEnCurso);
        QVERIFY(!QApplication::overrideCursor());
    }

    // Copia de cambios: las mayúsculas no cuentan; la lista sí (no su color ni su orden).
    void copiaDeCambios_data()
    {
        QTest::addColumn<int>("cambio");
        QTest::addColumn<bool>("hayCambios");
        const bool esperado[] = {false, false, true, true, true, true, true, false, true};
        const char* nombres[] = {"nada", "sólo mayúsculas", "texto", "fase", "fila nueva", "marca", "porcentaje", "color y orden",
                                 "otro agente"};
        for (int i = 0; i < 9; ++i)
            QTest::newRow(nombres[i]) << i << esperado[i];
    }
    void copiaDeCambios()
    {
        QFETCH(int, cambio);
        QFETCH(bool, hayCambios);
        frmProyecto* f = abrirProyecto(QStringLiteral("ALTA"));
        QTreeWidget* lvw = lista(f);
        switch (cambio) {
        case 1:  // carga en modificación con un texto, y se cambia sólo de mayúsculas
            limpiar();
            f = abrirProyecto(QStringLiteral("MODIFICAR"), proyectoMinimo(QStringLiteral("Vivienda")));
            poner(f, QStringLiteral("txt_Trabajo"), QStringLiteral("VIVIENDA"));
            break;
        case 2: poner(f, QStringLiteral("txt_Municipio"), QStringLiteral("Soria")); break;
        case 3: casilla(f, QStringLiteral("chk_Fase_2"))->setChecked(true); break;
        case 4: f->recibirArquitecto(13, QStringLiteral("Eva Sanz"), QStringLiteral("1003")); break;
        case 5: lvw->topLevelItem(1)->setCheckState(0, Qt::Unchecked); break;
        case 6: lvw->topLevelItem(1)->setText(2, QStringLiteral("60,00")); break;
        case 7:
            pintarFila(lvw->topLevelItem(0), COLOR_FILA_NORMAL);
            lvw->addTopLevelItem(lvw->takeTopLevelItem(0));
            break;
        case 8: f->recibirCoordinador(13, QStringLiteral("Eva Sanz")); break;
        default: break;
        }
        QCOMPARE(f->PreguntarGuardarCambios(), hayCambios);
    }

    // Cerrar con cambios y Sí: guarda y cierra; con la validación fallida no cierra.
    void cierre()
    {
        EntornoPrueba& e = *m_e;
        frmProyecto* f = modificarMinimo();
        poner(f, QStringLiteral("txt_Trabajo"), QString());
        e.respuestas << Respuesta::Si;
        pulsar(f, QStringLiteral("cmd_Cerrar"));
        QCOMPARE(e.textos(), (QStringList{"¿Desea guardar los cambios antes de salir?",
                                          "El campo 'Trabajo' es obligatorio.\nPor favor, escriba un valor"}));
        QVERIFY(abierta(f));
        poner(f, QStringLiteral("txt_Trabajo"), QStringLiteral("Nave nueva"));
        e.respuestas << Respuesta::Si;
        pulsar(f, QStringLiteral("cmd_Cerrar"));
        QVERIFY(!abierta(f));
        QCOMPARE(valor(QStringLiteral("SELECT Trabajo FROM Proyectos_A")).toString(), QStringLiteral("Nave nueva"));
    }

    // Devoluciones del selector y de las fichas nuevas.
    void devoluciones()
    {
        EntornoPrueba& e = *m_e;
        frmProyecto* f = abrirProyecto(QStringLiteral("ALTA"));
        QVERIFY(!f->recibirArquitecto(11, QStringLiteral("Ana Ruiz Soto"), QStringLiteral("1001")));
        QCOMPARE(e.textos(), QStringList{"El arquitecto seleccionado ya se encuentra incluido en la lista de arquitectos del proyecto"});
        QVERIFY(f->recibirArquitecto(13, QStringLiteral("Eva Sanz"), QStringLiteral("1003")));
        QCOMPARE(filas(f).last(), QStringLiteral("K13|Eva Sanz|1003||NO|0|-"));

        // Autores: marca "SI"; una nueva elección no devuelve el "SI" a "NO".
        f->recibirAutores({{"K12", "1002", "Luis Gómez"}});
        f->recibirAutores({{"K13", "1003", "Eva Sanz"}});
        QCOMPARE(leer(f, QStringLiteral("txt_AutorProyecto")), QStringLiteral("Eva Sanz"));
        QCOMPARE(lista(f)->topLevelItem(2)->text(3) + lista(f)->topLevelItem(3)->text(3), QStringLiteral("SISI"));
        f->img_Borrar_Click(1);
        QCOMPARE(leer(f, QStringLiteral("txt_AutorProyecto")), QString());
        QCOMPARE(f->findChild<QTreeWidget*>(QStringLiteral("lvw_CodigosArquitectos"))->topLevelItemCount(), 0);
        QCOMPARE(lista(f)->topLevelItem(2)->text(3), QStringLiteral("NO"));

        // Cliente con representante, sin él, y con un representante que no existe.
        const QStringList rep = {"lbl_CodRepresentante", "lbl_NIFRepresentante", "txt_Representante", "txt_RepresentacionOstentada"};
        e.limpiarCuadros();
        f->recibirCliente(1, QStringLiteral("11111111H"), QStringLiteral("María López"));
        QCOMPARE(leerVarios(f, rep), QStringLiteral("5|55555555K|Carlos Díaz|Administrador"));
        f->recibirCliente(2, QStringLiteral("22222222J"), QStringLiteral("Juan Pérez"));
        QCOMPARE(leerVarios(f, rep + QStringList{"lbl_CodCliente"}), QStringLiteral("||||2"));
        f->recibirCliente(3, QStringLiteral("X"), QStringLiteral("Sin Rep"));
        f->recibirCliente(40, QStringLiteral("Y"), QStringLiteral("Nadie"));
        QCOMPARE(e.textos(), (QStringList{"No se han podido cargar los datos del representante del cliente seleccionado",
                                          "No se han podido cargar los datos del cliente seleccionado"}));
        QCOMPARE(leer(f, QStringLiteral("txt_Cliente")), QStringLiteral("Nadie"));

        // Técnicos y constructores: sin ninguno marcado se vacían.
        const QStringList apa = {"lbl_ClaveAparejador", "lbl_CodAparejador", "txt_Aparejador"};
        f->recibirAparejadores({{"K20", "2001", "Pedro Martín"}, {"K21", "2002", "Rosa Vidal"}});
        QCOMPARE(leerVarios(f, apa), QStringLiteral("20,21|2001,2002|Pedro Martín, Rosa Vidal"));
        f->recibirAparejadorNuevo(22, QStringLiteral("Nuevo Técnico"));
        QCOMPARE(leerVarios(f, apa), QStringLiteral("20,21|22|Nuevo Técnico"));
        f->recibirAparejadores({});
        QCOMPARE(leerVarios(f, apa), QStringLiteral("||"));
        f->recibirConstructores({{"K31", "", "Obras Sil SL"}});
        QCOMPARE(leerVarios(f, {"lbl_CodConstructor", "txt_Constructor"}), QStringLiteral("31|Obras Sil SL"));
        f->recibirConstructorNuevo(32, QStringLiteral("Nueva SA"));
        QCOMPARE(leer(f, QStringLiteral("lbl_CodConstructor")), QStringLiteral("32"));

        // Una fila que llega por nombre (ficha nueva de arquitecto) también tiene casilla.
        Devolucion::agregarFila(f, QStringLiteral("lvw_Arquitectos"), QStringLiteral("K14"), {"Otro", "1004", "", "NO"});
        QCOMPARE(filas(f).last(), QStringLiteral("K14|Otro|1004||NO|0|-"));

        // Borrar arquitecto: lista vacía avisa; si no, pregunta por el seleccionado.
        e.limpiarCuadros();
        lista(f)->setCurrentItem(lista(f)->topLevelItem(1));
        e.respuestas << Respuesta::Si;
        f->img_Borrar_Click(0);
        QCOMPARE(e.textos(), QStringList{"¿Realmente desea eliminar el arquitecto Ana Ruiz Soto?"});
        QCOMPARE(lista(f)->topLevelItemCount(), 4);
        lista(f)->clear();
        e.limpiarCuadros();
        f->img_Borrar_Click(0);
        QCOMPARE(e.textos(), QStringList{"La lista de arquitectos está vacía"});

        // La ficha conecta la casilla de la propia sociedad, que no puede ser miembro de sí misma.
        auto* s = arquitecto(f, 10, QStringLiteral("Estudio Mirvade SLP"), QString(), false, true);
        s->setCheckState(0, Qt::Checked);
        QCOMPARE(s->checkState(0), Qt::Unchecked);
    }

    // Fechas: normalización al salir y globo de ayuda; filtro del nº de expediente.
    void pantalla()
    {
        frmProyecto* f = abrirProyecto(QStringLiteral("ALTA"));
        activar(f);
        auto* msk = fecha(f, QStringLiteral("msk_FechaVisado"));
        msk->setFocus();
        QVERIFY(control(f, QStringLiteral("lbl_AyudaFecha"))->isVisible());
        msk->setText(QStringLiteral("1/2/2008"));
        control(f, QStringLiteral("txt_Municipio"))->setFocus();
        QCOMPARE(msk->displayText(), QStringLiteral("01/02/2008"));
        QVERIFY(!control(f, QStringLiteral("lbl_AyudaFecha"))->isVisible());
        // Nº de expediente: cifras y un solo guion.
        teclear(control(f, QStringLiteral("txt_NumExpediente")), QStringLiteral("20a08-1-5"));
        QCOMPARE(leer(f, QStringLiteral("txt_NumExpediente")), QStringLiteral("2008-15"));
    }
};

QTEST_MAIN(tst_proyecto)
#include "tst_proyecto.moc"
