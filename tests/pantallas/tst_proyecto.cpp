// Ficha de proyecto: validación y preguntas, guardado con sus enlaces y recarga, alta desde la
// configuración, salida del guardado, copia de cambios y devoluciones.
#include "masterdata/FichaRegistro.h"
#include "masterdata/Porcentajes.h"
#include "masterdata/frmProyecto.h"
#include "tests/pantallas/tst_fichas_comun.h"

#include <QCheckBox>
#include <QRegularExpression>
#include <QTabWidget>
#include <QtTest>

using namespace fichas;
using Mensajes::Respuesta;
using L = QStringList;

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

// Arquitectos, sociedad, técnicos, constructores, cliente con representante y la configuración.
void datos()
{
    sql(QStringLiteral(
        "INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli, Ape_Cli) VALUES "
        "(10, 'ARQUITECTO', 1, 900, 'Estudio Mirvade SLP', NULL), (11, 'ARQUITECTO', 0, 1001, 'Ana', 'Ruiz Soto'), "
        "(12, 'ARQUITECTO', 0, 1002, 'Luis', 'Gómez'), (13, 'ARQUITECTO', 0, 1003, 'Eva', 'Sanz'), "
        "(20, 'ARQUITECTO TECNICO', 0, 2001, 'Pedro', 'Martín'), (21, 'ARQUITECTO TECNICO', 0, 2002, 'Rosa', 'Vidal'), "
        "(30, 'CONSTRUCTOR', 1, NULL, 'Construcciones Duero SA', NULL), (31, 'CONSTRUCTOR', 1, NULL, 'Obras Sil', 'SL')"));
    sql(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, esR) VALUES (1, 'María', 'López', '11111111H', 5)"));
    sql(QStringLiteral("INSERT INTO Representantes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, Representacion) VALUES "
                       "(5, 'Carlos', 'Díaz', '55555555K', 'Administrador')"));
    sql(QStringLiteral("DELETE FROM Config"));
    sql(QStringLiteral("INSERT INTO Config (CodSoc, CodArq1, CodArq2, CodArq3, IVA, IRPF) VALUES (10, 11, 12, 77, 21, 15)"));
}

frmProyecto* abrirProyecto(const QString& operacion, qint64 codigo = 0, const QString& retorno = {}, AlGuardar alGuardar = {})
{
    abrirFichaProyecto({.tabla = QStringLiteral("PROYECTOS_A"), .operacion = operacion, .codigo = codigo, .claveRetorno = retorno,
                        .alGuardar = alGuardar});
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
L filas(QWidget* f)
{
    L l;
    for (int i = 0; i < lista(f)->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* r = lista(f)->topLevelItem(i);
        l << L{claveFila(r), r->text(0), r->text(1), r->text(2), r->text(3), r->checkState(0) == Qt::Checked ? "1" : "0",
               r->foreground(0).color() == QColor(0, 0, 255) ? "S" : "-"}.join(QLatin1Char('|'));
    }
    return l;
}

// Filas de una consulta, con sus celdas unidas por "|".
L columna(const QString& sqlTexto)
{
    UsoConexion uso;
    Consulta c(sqlTexto);
    L l;
    while (c.siguiente()) {
        L celdas;
        for (int i = 0; i < c.query().record().count(); ++i)
            celdas << (c.valor(i).isNull() ? QStringLiteral("null") : c.valor(i).toString());
        l << celdas.join(QLatin1Char('|'));
    }
    return l;
}

QLineEdit* fecha(QWidget* f, const QString& nombre) { return qobject_cast<QLineEdit*>(control(f, nombre)); }
QCheckBox* casilla(QWidget* f, const QString& nombre) { return qobject_cast<QCheckBox*>(control(f, nombre)); }

// Ficha de proyecto visible y activa sobre un proyecto mínimo ("Vivienda").
frmProyecto* modificarMinimo()
{
    sql(QStringLiteral("INSERT INTO Proyectos_A (Trabajo) VALUES ('Vivienda')"));
    frmProyecto* f = abrirProyecto(QStringLiteral("MODIFICAR"), valor(QStringLiteral("SELECT max(PryCod) FROM Proyectos_A")).toLongLong());
    f->show();
    f->activateWindow();
    (void)QTest::qWaitForWindowActive(f);  // si no se activa, fallan las comprobaciones de foco
    return f;
}

// Parada de la validación: porcentajes ("S", la propia sociedad; las filas tras la primera, marcadas).
struct Parada { QString trabajo; L porcentajes; QString fecha, mensaje, foco; int pestana; };

}  // namespace

Q_DECLARE_METATYPE(Parada)

class tst_proyecto : public QObject {
    Q_OBJECT

    std::unique_ptr<Entorno> m_e;

private slots:
    void init()
    {
        m_e = std::make_unique<Entorno>();
        datos();
    }
    void cleanup()
    {
        while (QApplication::overrideCursor())
            QApplication::restoreOverrideCursor();
        limpiar();
        m_e.reset();
    }

    // Paradas de la validación en orden: mensaje exacto, foco y pestaña; sin mensaje, guarda.
    void paradas_data()
    {
        QTest::addColumn<Parada>("p");
        const QString cien = QStringLiteral("La suma de los porcentajes de participación ha de ser 100");
        const QString suma = cien + QStringLiteral(".\nLos porcentajes proporcionados suman: ");
        QTest::newRow("trabajo vacío") << Parada{"   ", {"", ""}, "32/01/2008", "El campo 'Trabajo' es obligatorio.\nPor favor, escriba un valor",
                                                 "txt_Trabajo", 1};
        QTest::newRow("ningún porcentaje") << Parada{"Obra", {"", ""}, "32/01/2008", cien, "lvw_Arquitectos", 0};
        QTest::newRow("suma con decimales") << Parada{"Obra", {"50,5", "40"}, "", suma + "90,5", "lvw_Arquitectos", 0};
        // 6 x 2,03 + 87,82 es 100 en decimal, pero la suma en double queda un pelo por debajo.
        QTest::newRow("error de redondeo") << Parada{"Obra", L(6, "2,03") << "87,82", "", suma + "100", "lvw_Arquitectos", 0};
        QTest::newRow("fecha mala") << Parada{"Obra", {}, "32/01/2008", "El día del mes no es válido. Inserte un día entre 1 y 31",
                                              "msk_FechaVisado", 1};
        QTest::newRow("pasa 33,33+33,33+33,34") << Parada{"Obra", {"33,33", "33,33", "33,34"}, "", "", "", 1};
    }
    void paradas()
    {
        QFETCH(Parada, p);
        EntornoPrueba& e = *m_e;
        sql(QStringLiteral("UPDATE Config SET CodSoc = NULL"));
        frmProyecto* f = modificarMinimo();
        poner(f, QStringLiteral("txt_Trabajo"), p.trabajo);
        for (int i = 0; i < p.porcentajes.size(); ++i) {
            const bool soc = p.porcentajes[i] == QLatin1String("S");
            arquitecto(f, 11 + i, QStringLiteral("Arq %1").arg(i), soc ? QString() : p.porcentajes[i], i > 0, soc);
        }
        if (!p.fecha.isEmpty())
            fecha(f, QStringLiteral("msk_FechaVisado"))->setText(p.fecha);
        pestanas(f)->setCurrentIndex(1);
        control(f, QStringLiteral("cmd_Cerrar"))->setFocus();
        e.limpiarCuadros();
        e.respuestas << Respuesta::Si;  // sólo llegaría la pregunta de miembros que no son del estudio
        f->cmd_Guardar_Click();
        QCOMPARE(pestanas(f)->currentIndex(), p.pestana);
        if (p.mensaje.isEmpty()) {
            QCOMPARE(e.textos().last(), MODIFICADO);
            QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Arquitectos_Proyecto")).toInt(), p.porcentajes.size());
            return;
        }
        QCOMPARE(e.textos(), L{p.mensaje});
        QVERIFY(f->cancelarCierre());
        QCOMPARE(QApplication::focusWidget(), control(f, p.foco));
        QCOMPARE(valor(QStringLiteral("SELECT Trabajo FROM Proyectos_A")).toString(), QStringLiteral("Vivienda"));
    }

    // Preguntas que se pueden pasar por alto: la que detiene se queda en la lista; la otra
    // sigue y guarda. En "no pertenece" detiene No (y es la de por defecto); en las demás, Sí.
    // Arquitectos: "código:porcentaje", con "+" si está marcado y "S" si es la propia sociedad.
    void preguntas_data()
    {
        QTest::addColumn<L>("arquitectos");
        QTest::addColumn<QString>("pregunta");
        QTest::addColumn<bool>("guarda");
        const QList<std::tuple<const char*, L, QString>> casos = {
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
        QFETCH(L, arquitectos);
        QFETCH(QString, pregunta);
        QFETCH(bool, guarda);
        const L nombres = {"Estudio Mirvade SLP", "Ana Ruiz Soto", "Luis Gómez", "Eva Sanz"};
        EntornoPrueba& e = *m_e;
        frmProyecto* f = modificarMinimo();
        for (const QString& a : arquitectos) {
            const qint64 cod = a.section(QLatin1Char(':'), 0, 0).toLongLong();
            const QString por = a.section(QLatin1Char(':'), 1);
            arquitecto(f, cod, nombres[cod - 10], QString(por).remove(QRegularExpression("[+S]")), por.endsWith('+'), por == "S");
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
        frmProyecto* f = abrirProyecto(QStringLiteral("ALTA"));
        QVERIFY(m_e->textos().isEmpty());  // el código 77 no existe: se pasa por alto
        QCOMPARE(filas(f), (L{"K10|Estudio Mirvade SLP|900||NO|0|S", "K11|Ana Ruiz Soto|1001|50,00|NO|1|-", "K12|Luis Gómez|1002|50,00|NO|1|-"}));
        QVERIFY(!f->PreguntarGuardarCambios());
    }

    // Guardado completo, alta con devolución al impreso, recarga y modificación.
    void guardarYRecargar()
    {
        EntornoPrueba& e = *m_e;
        L recibido;  // lo que recibe el impreso que pidió el alta
        frmProyecto* f = abrirProyecto(QStringLiteral("ALTA"), 0, QStringLiteral("FRMDATOSIMPRESOA1_PROYECTO"),
                                       [&](const RegistroGuardado& r) { recibido = {QString::number(r.codigo), r.nombre}; });
        poner(f, {{"txt_Trabajo", "  Vivienda unifamiliar  "}, {"txt_Emplazamiento", "Calle Mayor 3"}, {"txt_Municipio", "Soria"},
                  {"cbo_Provincia", "Soria"}, {"txt_NumExpediente", "2008-15"}, {"txt_Notas", "Primera fase"}});
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
        QCOMPARE(e.textos(), L{"Proyecto dado de alta correctamente"});
        QVERIFY(!abierta(f));
        QVERIFY(!Pantallas::cargada<frmBuscar>());  // con devolución no se abre la lista
        const qint64 pry = valor(QStringLiteral("SELECT PryCod FROM Proyectos_A")).toLongLong();
        QCOMPARE(recibido, (L{QString::number(pry), "Vivienda unifamiliar"}));
        QCOMPARE(columna(QStringLiteral("SELECT Trabajo, Emplazamiento, Municipio, Provincia, EXPNUM, EXPFV, EXPFFO, PRYF1, PRYF2, PRYF3, "
                                        "PRYF4, PRYNTS, Codigo_Cliente, CLINOM, Codigo_Representante, Codigo_SeguridadSalud, ARQREG "
                                        "FROM Proyectos_A")),
                 L{"Vivienda unifamiliar|Calle Mayor 3|Soria|Soria|2008-15|2008-02-01|null|1|0|0|1|Primera fase|1|"
                             "María López|5|13|10"});
        QCOMPARE(columna(QStringLiteral("SELECT Codigo_Arq, NumCol, PorPar_Arq, EsAutorProyecto, PerteneceSociedad, EsPropiaSociedad "
                                        "FROM Arquitectos_Proyecto ORDER BY rowid")),
                 (L{"10|900|null|0|0|1", "11|1001|50|1|1|0", "12|1002|50|1|1|0"}));
        QCOMPARE(columna(QStringLiteral("SELECT group_concat(Codigo_Arq) FROM Autores_Proyecto")) + columna("SELECT group_concat(Codigo_Apa) "
                     "FROM Aparejadores_Proyecto") + columna("SELECT group_concat(Codigo_Cons) FROM Constructores_Proyecto"),
                 (L{"11,12", "20,21", "30,31"}));

        // Recarga en "MODIFICAR".
        f = abrirProyecto(QStringLiteral("MODIFICAR"), pry);
        QCOMPARE(fecha(f, QStringLiteral("msk_FechaVisado"))->displayText(), QStringLiteral("01/02/2008"));
        QCOMPARE(leer(f, L{"txt_Trabajo", "txt_Cliente", "lbl_NIFCliente", "txt_Representante", "txt_RepresentacionOstentada",
                                "lbl_ClaveAparejador", "lbl_CodAparejador", "txt_Aparejador", "lbl_CodConstructor", "txt_Constructor",
                                "txt_CoordinadorSyS", "txt_AutorProyecto"}).join('|'),
                 QStringLiteral("Vivienda unifamiliar|María López|11111111H|Carlos Díaz|Administrador|20,21|2001,2002|Pedro Martín, Rosa Vidal|"
                                "30,31|Construcciones Duero SA, Obras Sil SL|Eva Sanz|Ana Ruiz Soto, Luis Gómez"));
        QCOMPARE(filas(f), (L{"K10|Estudio Mirvade SLP|900||NO|0|S", "K11|Ana Ruiz Soto|1001|50,00|SI|1|-",
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
        QCOMPARE(e.textos(), (L{SOCIEDAD_SIN_MARCA, MODIFICADO}));
        QVERIFY(abierta(f));
        QCOMPARE(columna(QStringLiteral("SELECT Codigo_Cliente, CLINOM, Codigo_Representante, ARQREG FROM Proyectos_A")),
                 L{"null|null|null|10"});  // ARQREG conserva la sociedad anterior
        QCOMPARE(columna(QStringLiteral("SELECT (SELECT group_concat(Codigo_Apa) FROM Aparejadores_Proyecto), (SELECT count(*) FROM "
                                        "Constructores_Proyecto), sum(EsPropiaSociedad), count(*) FROM Arquitectos_Proyecto")),
                 L{"21|0|0|3"});
        QVERIFY(!f->PreguntarGuardarCambios());
    }

    // Salida del guardado sin el proyecto: el aviso sale con la transacción ya deshecha y sin
    // cursor de espera, otro puesto puede guardar mientras se lee, y después se puede guardar.
    void salidaSinProyecto()
    {
        EntornoPrueba& e = *m_e;
        frmProyecto* f = modificarMinimo();
        const qint64 pry = valor(QStringLiteral("SELECT PryCod FROM Proyectos_A")).toLongLong();
        sql(QStringLiteral("DELETE FROM Proyectos_A"));
        poner(f, QStringLiteral("txt_Trabajo"), QStringLiteral("Vivienda 2"));
        e.limpiarCuadros();
        bool otroPuestoGuarda = false;
        Mensajes::instalarContestador([&](const Mensajes::Cuadro& c) {
            e.cuadros << c;
            otroPuestoGuarda = m_e->otroPuestoPuedeGuardar();
            return c.porDefecto;
        });
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), L{"No se han podido cargar los datos del proyecto"});
        QVERIFY(otroPuestoGuarda);
        QVERIFY(!transaccionEnCurso);
        QVERIFY(!QApplication::overrideCursor());
        QVERIFY(abierta(f) && !f->cancelarCierre());
        QTest::keyClick(control(f, QStringLiteral("txt_Municipio")), Qt::Key_S);
        sql(QStringLiteral("INSERT INTO Proyectos_A (PryCod, Trabajo) VALUES (?, 'Vivienda')"), {pry});
        e.limpiarCuadros();
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), L{MODIFICADO});
        QCOMPARE(valor(QStringLiteral("SELECT Trabajo || '/' || Municipio FROM Proyectos_A")).toString(), QStringLiteral("Vivienda 2/s"));
    }

    // Copia de cambios: un cambio sólo de mayúsculas no cuenta; uno en la lista, sí.
    void copiaDeCambios()
    {
        frmProyecto* f = modificarMinimo();
        poner(f, QStringLiteral("txt_Trabajo"), QStringLiteral("VIVIENDA"));
        QVERIFY(!f->PreguntarGuardarCambios());
        QVERIFY(f->recibirArquitecto(13, QStringLiteral("Eva Sanz"), QStringLiteral("1003")));
        QVERIFY(f->PreguntarGuardarCambios());
    }

    // Devolución del selector: un arquitecto repetido se rechaza; otro entra sin marca.
    void devoluciones()
    {
        frmProyecto* f = abrirProyecto(QStringLiteral("ALTA"));
        QVERIFY(!f->recibirArquitecto(11, QStringLiteral("Ana Ruiz Soto"), QStringLiteral("1001")));
        QCOMPARE(m_e->textos(), L{"El arquitecto seleccionado ya se encuentra incluido en la lista de arquitectos del proyecto"});
        QVERIFY(f->recibirArquitecto(13, QStringLiteral("Eva Sanz"), QStringLiteral("1003")));
        QCOMPARE(filas(f).last(), QStringLiteral("K13|Eva Sanz|1003||NO|0|-"));
    }
};

PRUEBA_PANTALLAS(tst_proyecto)
#include "tst_proyecto.moc"
