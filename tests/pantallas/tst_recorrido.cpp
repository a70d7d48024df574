// Recorrido de un estudio que empieza: configuración con dos arquitectos y la sociedad elegidos
// en el selector, un cliente con representante, un proyecto que los toma a todos, y el
// proyecto abierto de nuevo tal como se guardó.
#include "app/frmMenu.h"
#include "core/modFunciones.h"
#include "masterdata/FichaRegistro.h"
#include "masterdata/frmCliente.h"
#include "masterdata/frmConfiguracion.h"
#include "masterdata/frmProyecto.h"
#include "search/AperturaFichas.h"
#include "masterdata/frmArquitecto.h"
#include "search/frmBuscarSeleccionar.h"
#include "search/frmSeleccionarTipoPerceptor.h"
#include "search/ModeloResultados.h"
#include "forms/AbrirImpreso.h"
#include "tests/comun/EntornoPrueba.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QTreeWidget>
#include <QtTest>

using Mensajes::Respuesta;

namespace {

// Elige en el selector abierto la fila de ese código y pulsa "Seleccionar".
void elegir(qint64 codigo)
{
    frmBuscarSeleccionar* s = Pantallas::cargada<frmBuscarSeleccionar>();
    QVERIFY2(s, "el selector no se ha abierto");
    const QList<FilaResultado> filas = s->filasResultado();
    int fila = -1;
    for (int i = 0; i < filas.size(); ++i)
        if (filas[i].clave == QString::number(codigo))
            fila = i;
    QVERIFY(fila >= 0);
    s->seleccionarFila(fila);
    s->cmd_Seleccionar_Click();
    procesarEventos();
    QVERIFY(!Pantallas::cargada<frmBuscarSeleccionar>());
}

void escribir(QWidget* w, const char* control, const QString& texto)
{
    auto* c = w->findChild<QLineEdit*>(QString::fromLatin1(control));
    QVERIFY2(c, control);
    c->setText(texto);
}

QString texto(QWidget* w, const char* control) { return w->findChild<QLineEdit*>(QString::fromLatin1(control))->text(); }

}  // namespace

class tst_recorrido : public QObject {
    Q_OBJECT

private slots:
    void estudioClienteYProyecto()
    {
        EntornoPrueba e;
        e.conectar();
        {
            UsoConexion uso;
            ejecutar(QStringLiteral("INSERT INTO Config (IVA, IRPF, Modulo) VALUES (16, 15, 500)"));
            const char* sql = "INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli, Ape_Cli, NIF, Dirección_Cli, Municipio_Cli) "
                              "VALUES (?, 'ARQUITECTO', ?, ?, ?, ?, ?, ?, ?)";
            ejecutar(QString::fromUtf8(sql), {1, 0, 1001, QStringLiteral("Ana"), QStringLiteral("Ruiz Soto"), QStringLiteral("12345678Z"),
                                                QStringLiteral("C/ Mayor, 1"), QStringLiteral("Soria")});
            ejecutar(QString::fromUtf8(sql), {2, 0, 1002, QStringLiteral("Luis"), QStringLiteral("Gómez Peña"), QStringLiteral("87654321X"),
                                                QStringLiteral("C/ Real, 2"), QStringLiteral("Burgos")});
            ejecutar(QString::fromUtf8(sql), {3, 1, 900, QStringLiteral("Estudio Mirvade SLP"), QVariant(), QStringLiteral("B12345678"),
                                                QStringLiteral("Plaza Mayor, 3"), QStringLiteral("Soria")});
        }
        frmMenu::instancia()->show();

        // 1. Configuración: los dos arquitectos y la sociedad, por el selector.
        frmConfiguracion* conf = frmConfiguracion::abrir(0);
        conf->img_Buscar_Click(0);
        elegir(1);
        conf->img_Buscar_Click(1);
        elegir(2);
        conf->img_Buscar_Click(4);
        elegir(3);
        QCOMPARE(texto(conf, "txt_Arquitecto_2"), QStringLiteral("Luis Gómez Peña"));
        QCOMPARE(texto(conf, "txt_Domicilio"), QStringLiteral("Plaza Mayor, 3"));  // la sociedad da los datos del estudio
        conf->cmd_Guardar_Click();
        QCOMPARE(e.textos().last(), QStringLiteral("La configuración se ha guardado correctamente"));
        Pantallas::descargar(conf);

        // 2. Un cliente que es una sociedad, con su representante.
        PeticionFicha nuevoCliente;
        nuevoCliente.tabla = QStringLiteral("CLIENTES");
        nuevoCliente.operacion = QStringLiteral("ALTA");
        QVERIFY(abrirFicha(nuevoCliente));
        frmCliente* cli = Pantallas::cargada<frmCliente>();
        cli->findChild<QRadioButton*>(QStringLiteral("opt_Tipo_1"))->click();
        escribir(cli, "txt_Nombre", QStringLiteral("Promociones O'Donnell S.L."));
        escribir(cli, "txt_NIF", QStringLiteral("B87654321"));
        escribir(cli, "txt_Nombre_Representante", QStringLiteral("Íñigo"));
        escribir(cli, "txt_Apellidos_Representante", QStringLiteral("Muñoz"));
        escribir(cli, "txt_Representacion", QStringLiteral("Administrador"));
        cli->cmd_Guardar_Click();
        procesarEventos();
        QCOMPARE(e.textos().last(), QStringLiteral("Cliente dado de alta correctamente"));
        QVERIFY(!Pantallas::cargada<frmCliente>());

        // 3. El proyecto nuevo toma la sociedad y los arquitectos de la configuración; el cliente, del selector.
        PeticionFicha nuevoProyecto;
        nuevoProyecto.tabla = QStringLiteral("PROYECTOS_A");
        nuevoProyecto.operacion = QStringLiteral("ALTA");
        QVERIFY(abrirFicha(nuevoProyecto));
        frmProyecto* p = Pantallas::cargada<frmProyecto>();
        auto* lvw = p->findChild<QTreeWidget*>(QStringLiteral("lvw_Arquitectos"));
        QCOMPARE(lvw->topLevelItemCount(), 3);
        escribir(p, "txt_Trabajo", QStringLiteral("Vivienda unifamiliar"));
        p->img_Buscar_Click(2);
        elegir(1);
        QCOMPARE(texto(p, "txt_Cliente"), QStringLiteral("Promociones O'Donnell S.L."));
        QCOMPARE(texto(p, "txt_Representante"), QStringLiteral("Íñigo Muñoz"));
        e.limpiarCuadros();
        p->cmd_Guardar_Click();
        procesarEventos();
        QCOMPARE(e.textos().value(0), QStringLiteral("Proyecto dado de alta correctamente"));

        // 4. Se abre de nuevo y está todo como se guardó.
        const qint64 clave = [] {
            UsoConexion uso;
            return escalar(QStringLiteral("SELECT MAX(PryCod) FROM Proyectos_A")).toLongLong();
        }();
        PeticionFicha editar = nuevoProyecto;
        editar.operacion = QStringLiteral("MODIFICAR");
        editar.codigo = clave;
        QVERIFY(abrirFicha(editar));
        p = Pantallas::cargada<frmProyecto>();
        QCOMPARE(texto(p, "txt_Trabajo"), QStringLiteral("Vivienda unifamiliar"));
        QCOMPARE(texto(p, "txt_Cliente"), QStringLiteral("Promociones O'Donnell S.L."));
        QCOMPARE(texto(p, "txt_RepresentacionOstentada"), QStringLiteral("Administrador"));
        lvw = p->findChild<QTreeWidget*>(QStringLiteral("lvw_Arquitectos"));
        QCOMPARE(lvw->topLevelItemCount(), 3);
        QStringList filas;
        for (int i = 0; i < lvw->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* it = lvw->topLevelItem(i);
            filas << QStringLiteral("%1|%2|%3|%4|%5")
                         .arg(it->text(0), it->text(1), it->text(2), it->checkState(0) == Qt::Checked ? QStringLiteral("x") : QString(),
                              it->foreground(0).color() == QColor(0, 0, 255) ? QStringLiteral("sociedad") : QString());
        }
        QCOMPARE(filas, (QStringList{QStringLiteral("Estudio Mirvade SLP|900|||sociedad"), QStringLiteral("Ana Ruiz Soto|1001|50,00|x|"),
                                     QStringLiteral("Luis Gómez Peña|1002|50,00|x|")}));
        UsoConexion uso;
        QCOMPARE(escalar(QStringLiteral("SELECT ARQREG FROM Proyectos_A WHERE PryCod = ?"), {clave}).toInt(), 3);
        QCOMPARE(escalar(QStringLiteral("SELECT Codigo_Representante FROM Proyectos_A WHERE PryCod = ?"), {clave}).toInt(), 1);
        Pantallas::descargar(p);
    }

    void nuevoDesdeElSelectorDeAutores()
    {
        EntornoPrueba e;
        e.conectar();
        {
            UsoConexion uso;
            ejecutar(QStringLiteral("INSERT INTO Config (IVA, IRPF) VALUES (16, 15)"));
        }
        frmMenu::instancia()->show();
        PeticionFicha nuevo;
        nuevo.tabla = QStringLiteral("PROYECTOS_A");
        nuevo.operacion = QStringLiteral("ALTA");
        QVERIFY(abrirFicha(nuevo));
        frmProyecto* p = Pantallas::cargada<frmProyecto>();
        p->img_Buscar_Click(1);
        frmBuscarSeleccionar* s = Pantallas::cargada<frmBuscarSeleccionar>();
        QVERIFY(s && s->Tabla == QLatin1String("ARQUITECTOS_AUTORES"));
        s->cmd_Nuevo_Click();
        frmArquitecto* a = Pantallas::cargada<frmArquitecto>();
        QVERIFY(a);
        QCOMPARE(a->ClaveRetorno, QStringLiteral("FRMPROYECTO_AUTOR"));
        escribir(a, "txt_NumColegiado", QStringLiteral("4321"));
        escribir(a, "txt_Nombre", QStringLiteral("Marta"));
        a->cmd_Guardar_Click();
        procesarEventos();
        QCOMPARE(e.textos().last(), QStringLiteral("Arquitecto dado de alta correctamente"));
        // El selector de autores sigue abierto, con el arquitecto nuevo ya marcado.
        QCOMPARE(Pantallas::cargada<frmBuscarSeleccionar>(), s);
        const QList<FilaResultado> filas = s->filasResultado();
        QCOMPARE(filas.size(), 1);
        QVERIFY(filas[0].marcada);
        s->cmd_Seleccionar_Click();
        QCOMPARE(texto(p, "txt_AutorProyecto"), QStringLiteral("Marta"));
        Pantallas::descargar(p);
    }

    // Cada receptor construido recibe la fila elegida (o las marcadas) por el selector.
    void devolucionDelSelector_data()
    {
        QTest::addColumn<QString>("pantalla");
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("llamada");
        QTest::addColumn<QString>("retorno");
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("esperado");
        const QString enProyecto = QStringLiteral("SELECCIONAR_EN_PROYECTOS");
        QTest::newRow("aparejadores marcados") << "frmProyecto" << "APAREJADORES" << enProyecto << "FRMPROYECTO_APAREJADOR" << "txt_Aparejador"
                                               << "Pablo Ortega, Eva Sanz";  // en el orden de la lista: por apellidos
        QTest::newRow("constructores marcados") << "frmProyecto" << "CONTRATISTAS" << enProyecto << "FRMPROYECTO_CONSTRUCTOR" << "txt_Constructor"
                                                << "Obras Duero SA";
        QTest::newRow("coordinador") << "frmProyecto" << "COORDINADOR_SS" << enProyecto << "FRMPROYECTO_COORDINADOR" << "txt_CoordinadorSyS"
                                     << "Ana Ruiz";
        QTest::newRow("proyecto del A1") << "frmDatosImpreso_A1" << "PROYECTOS_A" << "SELECCIONAR_EN_IMPRESO_A1" << "FRMDATOSIMPRESOA1_PROYECTO"
                                         << "txt_Proyecto" << "Nave agrícola";
    }

    void devolucionDelSelector()
    {
        QFETCH(QString, pantalla);
        QFETCH(QString, tabla);
        QFETCH(QString, llamada);
        QFETCH(QString, retorno);
        QFETCH(QString, control);
        QFETCH(QString, esperado);
        EntornoPrueba e;
        e.conectar();
        {
            UsoConexion uso;
            ejecutar(QStringLiteral("INSERT INTO Config (IVA, IRPF) VALUES (16, 15)"));
            const QString sql = QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli, Ape_Cli) VALUES (?, ?, 0, ?, ?, ?)");
            ejecutar(sql, {1, QStringLiteral("ARQUITECTO"), 11, QStringLiteral("Ana"), QStringLiteral("Ruiz")});
            ejecutar(sql, {2, QStringLiteral("ARQUITECTO TECNICO"), 22, QStringLiteral("Eva"), QStringLiteral("Sanz")});
            ejecutar(sql, {3, QStringLiteral("ARQUITECTO TECNICO"), 23, QStringLiteral("Pablo"), QStringLiteral("Ortega")});
            ejecutar(sql, {4, QStringLiteral("CONSTRUCTOR"), 0, QStringLiteral("Obras Duero SA"), QVariant()});
            ejecutar(QStringLiteral("INSERT INTO Proyectos_A (PryCod, EXPNUM, Trabajo) VALUES (7, '2008/1', 'Nave agrícola')"));
        }
        frmMenu::instancia()->show();
        PeticionFicha nueva;
        nueva.tabla = pantalla == QLatin1String("frmProyecto") ? QStringLiteral("PROYECTOS_A") : QStringLiteral("DATOSA1B2");
        nueva.tipoImpreso = QStringLiteral("A1");
        nueva.operacion = QStringLiteral("ALTA");
        QVERIFY(abrirFicha(nueva));
        QWidget* receptor = Devolucion::receptor(pantalla);
        QVERIFY(receptor);
        frmBuscarSeleccionar* s = frmBuscarSeleccionar::abrir(tabla, llamada, QStringLiteral("Buscar"), retorno);
        // En las listas con casillas se marcan todas; en las demás se elige la primera fila.
        for (int i = 0; i < s->modelo()->rowCount(); ++i)
            s->modelo()->setMarcada(i, true);
        s->seleccionarFila(0);
        s->cmd_Seleccionar_Click();
        procesarEventos();
        QVERIFY(!Pantallas::cargada<frmBuscarSeleccionar>());
        QCOMPARE(texto(receptor, control.toLatin1().constData()), esperado);
        if (pantalla != QLatin1String("frmProyecto"))
            QCOMPARE(texto(receptor, "txt_CodProyecto"), QStringLiteral("7"));
        e.respuestas << Respuesta::No;  // salir sin guardar
        Pantallas::descargar(receptor);
    }

    void eleccionDelTipoDePerceptor()
    {
        EntornoPrueba e;
        e.conectar();
        Pantalla receptor;  // hace de frmDatosImpreso_B4_Propio
        receptor.setObjectName(QStringLiteral("frmDatosImpreso_B4_Propio"));
        auto* tipo = new QLineEdit(&receptor);
        tipo->setObjectName(QStringLiteral("txt_TipoPerceptor"));
        frmSeleccionarTipoPerceptor* t = frmSeleccionarTipoPerceptor::abrir();
        t->findChild<QRadioButton*>(QStringLiteral("opt_Perceptor_2"))->setChecked(true);
        t->cmd_Seleccionar_Click();
        procesarEventos();
        QVERIFY(!Pantallas::cargada<frmSeleccionarTipoPerceptor>());
        QCOMPARE(tipo->text(), QStringLiteral("CO"));
        frmBuscarSeleccionar* s = Pantallas::cargada<frmBuscarSeleccionar>();
        QVERIFY(s);
        QCOMPARE(s->Tabla, QStringLiteral("CONTRATISTAS"));
        QCOMPARE(s->tag(), QStringLiteral("SELECCIONAR_EN_IMPRESO_B4_PROPIO"));
        QCOMPARE(s->ClaveRetorno, QStringLiteral("FRMDATOSIMPRESOB4_PROPIO_PERCEPTOR"));
        QCOMPARE(s->windowTitle(), QStringLiteral("Buscar constructor"));
        Pantallas::descargar(s);
    }
};

QTEST_MAIN(tst_recorrido)
#include "tst_recorrido.moc"
