// Recorrido de un estudio que empieza: configuración con dos arquitectos y la sociedad elegidos
// en el selector, un cliente con representante, un proyecto que los toma a todos, y el
// proyecto abierto de nuevo tal como se guardó.
#include "masterdata/FichaRegistro.h"
#include "masterdata/frmArquitecto.h"
#include "masterdata/frmCliente.h"
#include "masterdata/frmConfiguracion.h"
#include "masterdata/frmProyecto.h"
#include "masterdata/frmValidarNIFCIF.h"
#include "reports/TablaImpresos.h"
#include "search/AbrirBusqueda.h"
#include "search/ModeloResultados.h"
#include "search/frmBuscar.h"
#include "tests/pantallas/PruebaImpresos.h"

#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QTreeWidget>

using namespace impresos;

namespace {

QWidget* delante()
{
    QMdiSubWindow* sub = Pantallas::areaPrincipal()->activeSubWindow();
    return sub ? sub->widget() : nullptr;
}

// Texto de un control: cajas y etiquetas tal cual; una lista, sus filas con las columnas unidas por "|".
QString leerControl(QWidget* w, const QString& nombre)
{
    QWidget* c = w->findChild<QWidget*>(nombre);
    if (auto* t = qobject_cast<QLineEdit*>(c))
        return t->text();
    if (auto* l = qobject_cast<QLabel*>(c))
        return l->text();
    if (auto* lista = qobject_cast<QTreeWidget*>(c)) {
        QStringList filas;
        for (int i = 0; i < lista->topLevelItemCount(); ++i) {
            QStringList columnas;
            for (int j = 0; j < lista->columnCount(); ++j)
                columnas << lista->topLevelItem(i)->text(j);
            filas << columnas.join(QLatin1Char('|'));
        }
        return filas.join(QLatin1Char('\n'));
    }
    return QStringLiteral("(no existe %1)").arg(nombre);
}

}  // namespace

class tst_recorrido : public QObject {
    Q_OBJECT

private slots:
    // Cada caso empieza sin pantallas abiertas, también tras uno que falla a medias.
    void cleanup()
    {
        const QList<QWidget*> abiertas = Pantallas::cargadas();
        for (const QPointer<QWidget>& w : QList<QPointer<QWidget>>(abiertas.begin(), abiertas.end()))
            if (w && w != frmMenu::existente())
                delete w.data();
        delete frmMenu::existente();
        procesarEventos();
    }

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
        QVERIFY(elegir(1));
        conf->img_Buscar_Click(1);
        QVERIFY(elegir(2));
        conf->img_Buscar_Click(4);
        QVERIFY(elegir(3));
        QCOMPARE(texto(conf, "txt_Arquitecto_2"), QStringLiteral("Luis Gómez Peña"));
        QCOMPARE(texto(conf, "txt_Domicilio"), QStringLiteral("Plaza Mayor, 3"));  // la sociedad da los datos del estudio
        conf->cmd_Guardar_Click();
        QCOMPARE(e.textos().last(), QStringLiteral("La configuración se ha guardado correctamente"));
        Pantallas::descargar(conf);

        // 2. Un cliente que es una sociedad, con su representante.
        QVERIFY(Fichas::abrir({.tabla = QStringLiteral("CLIENTES"), .operacion = QStringLiteral("ALTA")}));
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
        QVERIFY(Fichas::abrir({.tabla = QStringLiteral("PROYECTOS_A"), .operacion = QStringLiteral("ALTA")}));
        frmProyecto* p = Pantallas::cargada<frmProyecto>();
        auto* lvw = p->findChild<QTreeWidget*>(QStringLiteral("lvw_Arquitectos"));
        QCOMPARE(lvw->topLevelItemCount(), 3);
        escribir(p, "txt_Trabajo", QStringLiteral("Vivienda unifamiliar"));
        p->img_Buscar_Click(2);
        QVERIFY(elegir(1));
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
        QVERIFY(Fichas::abrir({.tabla = QStringLiteral("PROYECTOS_A"), .operacion = QStringLiteral("MODIFICAR"), .codigo = clave}));
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
        QVERIFY(Fichas::abrir({.tabla = QStringLiteral("PROYECTOS_A"), .operacion = QStringLiteral("ALTA")}));
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

    // Cada ruta de devolución: lo elegido en el selector, o el registro dado de alta con "Nuevo"
    // desde él, llega a los controles de la pantalla que lo abrió.
    void rutasDeDevolucion_data()
    {
        QTest::addColumn<QString>("pantalla");     // quien abre el selector
        QTest::addColumn<int>("boton");            // índice de su img_Buscar (-1: el único)
        QTest::addColumn<QString>("accion");       // "elegir" el código dado (marcando todas) o "nuevo"
        QTest::addColumn<QStringList>("alta");     // campos de la ficha nueva: "control=valor"
        QTest::addColumn<QStringList>("controles");
        QTest::addColumn<QStringList>("esperado");
        const QStringList arquitecto{"txt_NumColegiado=555", "txt_Nombre=Marta", "txt_Apellidos=Vidal"};
        const QString proyecto = QStringLiteral("frmProyecto");
        const QString conf = QStringLiteral("frmConfiguracion");
        QTest::newRow("arquitecto del proyecto") << proyecto << 0 << "elegir 1" << QStringList{} << QStringList{"lvw_Arquitectos"}
                                                 << QStringList{"Ana Ruiz|11||NO"};
        QTest::newRow("arquitecto nuevo del proyecto") << proyecto << 0 << "nuevo" << arquitecto << QStringList{"lvw_Arquitectos"}
                                                       << QStringList{"Marta Vidal|555||NO"};
        QTest::newRow("autores marcados") << proyecto << 1 << "elegir 1" << QStringList{} << QStringList{"txt_AutorProyecto"}
                                          << QStringList{"Estudio SLP, Ana Ruiz"};  // en el orden de la lista: por apellidos
        QTest::newRow("cliente") << proyecto << 2 << "elegir 1" << QStringList{}
                                 << QStringList{"lbl_CodCliente", "lbl_NIFCliente", "txt_Cliente", "txt_Representante"}
                                 << QStringList{"1", "11111111H", "María López", ""};
        QTest::newRow("cliente nuevo") << proyecto << 2 << "nuevo" << QStringList{"txt_Nombre=Rosa", "txt_Apellidos=Gil", "txt_NIF=22222222J"}
                                       << QStringList{"lbl_CodCliente", "lbl_NIFCliente", "txt_Cliente"}
                                       << QStringList{"2", "22222222J", "Rosa Gil"};
        QTest::newRow("aparejadores marcados") << proyecto << 4 << "elegir 2" << QStringList{}
                                               << QStringList{"lbl_ClaveAparejador", "lbl_CodAparejador", "txt_Aparejador"}
                                               << QStringList{"3,2", "23,22", "Pablo Ortega, Eva Sanz"};
        QTest::newRow("aparejador nuevo") << proyecto << 4 << "nuevo" << arquitecto << QStringList{"lbl_CodAparejador", "txt_Aparejador"}
                                          << QStringList{"6", "Marta Vidal"};
        QTest::newRow("constructores marcados") << proyecto << 5 << "elegir 4" << QStringList{}
                                                << QStringList{"lbl_CodConstructor", "txt_Constructor"} << QStringList{"4", "Obras Duero SA"};
        QTest::newRow("constructor nuevo") << proyecto << 5 << "nuevo" << QStringList{"txt_Nombre=Obras Sil SL"}
                                           << QStringList{"lbl_CodConstructor", "txt_Constructor"} << QStringList{"6", "Obras Sil SL"};
        QTest::newRow("coordinador") << proyecto << 6 << "elegir 1" << QStringList{}
                                     << QStringList{"lbl_CodCoordinadorSyS", "txt_CoordinadorSyS"} << QStringList{"1", "Ana Ruiz"};
        QTest::newRow("coordinador nuevo") << proyecto << 6 << "nuevo" << arquitecto
                                           << QStringList{"lbl_CodCoordinadorSyS", "txt_CoordinadorSyS"} << QStringList{"6", "Marta Vidal"};
        QTest::newRow("arquitecto 1 del estudio") << conf << 0 << "elegir 1" << QStringList{}
                                                  << QStringList{"txt_CodArq_1", "txt_Arquitecto_1", "txt_NumColegiado_1", "txt_Municipio"}
                                                  << QStringList{"1", "Ana Ruiz", "11", "Soria"};
        QTest::newRow("arquitecto 1 nuevo del estudio") << conf << 0 << "nuevo" << (arquitecto + QStringList{"txt_Municipio=Ávila"})
                                                        << QStringList{"txt_CodArq_1", "txt_Arquitecto_1", "txt_NumColegiado_1", "txt_Municipio"}
                                                        << QStringList{"", "Marta Vidal", "555", "Ávila"};
        QTest::newRow("sociedad del estudio") << conf << 4 << "elegir 5" << QStringList{}
                                              << QStringList{"txt_CodSoc", "txt_Sociedad", "txt_NumRegistro", "txt_Municipio"}
                                              << QStringList{"5", "Estudio SLP", "77", "Burgos"};
        QTest::newRow("sociedad nueva del estudio") << conf << 4 << "nuevo"
                                                    << QStringList{"txt_NumColegiado=88", "txt_Nombre=Taller SLP", "txt_Municipio=León"}
                                                    << QStringList{"txt_CodSoc", "txt_Sociedad", "txt_NumRegistro", "txt_Municipio"}
                                                    << QStringList{"", "Taller SLP", "88", "León"};
        for (const char* impreso : {"A1", "B2", "A2", "A3", /* nombramientos, hoja urbanística y comunicado: */ "A4", "CSS", "A5", "CDC"}) {
            const int boton = impreso == QLatin1String("A3") ? 0 : -1;
            QTest::newRow(qPrintable(QStringLiteral("proyecto del %1").arg(QLatin1String(impreso))))
                << QStringLiteral("impreso %1").arg(QLatin1String(impreso)) << boton << "elegir 7" << QStringList{}
                << QStringList{"txt_CodProyecto", "txt_Proyecto"} << QStringList{"7", "Nave agrícola"};
            QTest::newRow(qPrintable(QStringLiteral("proyecto nuevo del %1").arg(QLatin1String(impreso))))
                << QStringLiteral("impreso %1").arg(QLatin1String(impreso)) << boton << "nuevo" << QStringList{"txt_Trabajo=Almacén"}
                << QStringList{"txt_CodProyecto", "txt_Proyecto"} << QStringList{"8", "Almacén"};
        }
        // Facturas y certificados de retenciones: sus botones de búsqueda por índice.
        const QStringList emisor{"txt_CodEmisor", "txt_Emisor"}, perceptor{"txt_CodPerceptor", "txt_Perceptor"},
            pagador{"txt_CodPagador", "txt_Pagador"};
        QTest::newRow("proyecto de la factura") << "impreso B1" << 0 << "elegir 7" << QStringList{}
                                                << QStringList{"txt_CodProyecto", "txt_Proyecto"} << QStringList{"7", "Nave agrícola"};
        QTest::newRow("emisor de la factura") << "impreso B1" << 1 << "elegir 1" << QStringList{} << emisor << QStringList{"1", "Ana Ruiz"};
        QTest::newRow("emisor nuevo de la factura") << "impreso B1" << 1 << "nuevo" << arquitecto << emisor << QStringList{"6", "Marta Vidal"};
        QTest::newRow("perceptor del certificado ajeno") << "impreso B4_A" << 0 << "elegir 1" << QStringList{} << perceptor
                                                         << QStringList{"1", "Ana Ruiz"};
        QTest::newRow("perceptor nuevo del certificado ajeno") << "impreso B4_A" << 0 << "nuevo" << arquitecto << perceptor
                                                               << QStringList{"6", "Marta Vidal"};
        QTest::newRow("pagador del certificado ajeno") << "impreso B4_A" << 1 << "elegir 1" << QStringList{} << pagador
                                                       << QStringList{"1", "María López"};
        QTest::newRow("pagador nuevo del certificado ajeno") << "impreso B4_A" << 1 << "nuevo"
                                                             << QStringList{"txt_Nombre=Rosa", "txt_Apellidos=Gil", "txt_NIF=22222222J"}
                                                             << pagador << QStringList{"2", "Rosa Gil"};
        QTest::newRow("pagador del certificado propio") << "impreso B4_P" << 1 << "elegir 1" << QStringList{} << pagador
                                                        << QStringList{"1", "Ana Ruiz"};
        QTest::newRow("pagador nuevo del certificado propio") << "impreso B4_P" << 1 << "nuevo" << arquitecto << pagador
                                                              << QStringList{"6", "Marta Vidal"};
        // Certificados: la lista de cada uno abre su pantalla.
        QTest::newRow("arquitecto del certificado") << "impreso DATOSCERTIFICADO" << -1 << "elegir 1" << QStringList{}
                                                    << QStringList{"txt_CodArq", "txt_NomArq"} << QStringList{"1", "Ana Ruiz"};
        QTest::newRow("arquitecto nuevo del certificado") << "impreso DATOSCERTIFICADO" << -1 << "nuevo" << arquitecto
                                                          << QStringList{"txt_CodArq", "txt_NomArq"} << QStringList{"6", "Marta Vidal"};
        QTest::newRow("proyecto del fin de obra") << "impreso DATOSFINOBRA" << -1 << "elegir 7" << QStringList{}
                                                  << QStringList{"txt_CodProyecto", "txt_Proyecto"} << QStringList{"7", "Nave agrícola"};
        QTest::newRow("proyecto nuevo del fin de obra") << "impreso DATOSFINOBRA" << -1 << "nuevo" << QStringList{"txt_Trabajo=Almacén"}
                                                        << QStringList{"txt_CodProyecto", "txt_Proyecto"} << QStringList{"8", "Almacén"};
    }

    void rutasDeDevolucion()
    {
        QFETCH(QString, pantalla);
        QFETCH(int, boton);
        QFETCH(QString, accion);
        QFETCH(QStringList, alta);
        QFETCH(QStringList, controles);
        QFETCH(QStringList, esperado);
        EntornoPrueba e;
        e.conectar();
        {
            UsoConexion uso;
            ejecutar(QStringLiteral("INSERT INTO Config (IVA, IRPF) VALUES (16, 15)"));
            const QString sql = QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli, Ape_Cli, Municipio_Cli) "
                                               "VALUES (?, ?, ?, ?, ?, ?, ?)");
            ejecutar(sql, {1, QStringLiteral("ARQUITECTO"), 0, 11, QStringLiteral("Ana"), QStringLiteral("Ruiz"), QStringLiteral("Soria")});
            ejecutar(sql, {2, QStringLiteral("ARQUITECTO TECNICO"), 0, 22, QStringLiteral("Eva"), QStringLiteral("Sanz"), QVariant()});
            ejecutar(sql, {3, QStringLiteral("ARQUITECTO TECNICO"), 0, 23, QStringLiteral("Pablo"), QStringLiteral("Ortega"), QVariant()});
            ejecutar(sql, {4, QStringLiteral("CONSTRUCTOR"), 0, 0, QStringLiteral("Obras Duero SA"), QVariant(), QVariant()});
            ejecutar(sql, {5, QStringLiteral("ARQUITECTO"), 1, 77, QStringLiteral("Estudio SLP"), QVariant(), QStringLiteral("Burgos")});
            ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF) VALUES (1, 'María', 'López', '11111111H')"));
            ejecutar(QStringLiteral("INSERT INTO Proyectos_A (PryCod, EXPNUM, Trabajo) VALUES (7, '2008/1', 'Nave agrícola')"));
        }
        frmMenu::instancia()->show();

        // La pantalla que pide, abierta como la abre su lista o el menú, y su botón de búsqueda.
        QWidget* receptor = nullptr;
        if (pantalla == QLatin1String("frmProyecto")) {
            QVERIFY(Fichas::abrir({.tabla = QStringLiteral("PROYECTOS_A"), .operacion = QStringLiteral("ALTA")}));
            auto* p = Pantallas::cargada<frmProyecto>();
            receptor = p;
            p->img_Buscar_Click(boton);
        } else if (pantalla == QLatin1String("frmConfiguracion")) {
            frmConfiguracion* c = frmConfiguracion::abrir(0);
            receptor = c;
            c->img_Buscar_Click(boton);
        } else {
            // "impreso B4_P": la pantalla de ese tipo, abierta desde su lista; su botón por índice.
            // "impreso X": el impreso de tipo X, abierto desde su lista; "impreso DATOS...": la
            // pantalla de esa lista, que no distingue tipos.
            const QString tipo = pantalla.mid(8);
            QString lista;
            if (tipo.startsWith(QLatin1String("DATOS")))
                lista = tipo;
            else
                for (const DefinicionImpreso& d : TablaImpresos::todas())
                    for (const VarianteImpreso& v : d.variantes)
                        if (v.tipoImpreso == tipo)
                            lista = d.tablaBusqueda;
            QVERIFY(Fichas::abrir({.tabla = lista, .tipoImpreso = lista == tipo ? QString() : tipo,
                                   .operacion = QStringLiteral("ALTA")}));
            auto* d = Pantallas::cargada<DatosImpreso>();
            receptor = d;
            if (boton < 0)
                d->img_Buscar_Click();
            else
                d->findChild<QToolButton*>(QStringLiteral("img_Buscar_%1").arg(boton))->click();
        }
        QPointer<frmBuscarSeleccionar> s = Pantallas::cargada<frmBuscarSeleccionar>();
        QVERIFY(s);

        if (accion == QLatin1String("nuevo")) {
            s->cmd_Nuevo_Click();
            QWidget* ficha = nullptr;
            for (QWidget* w : Pantallas::cargadas())
                if (w->inherits("FichaRegistro") || (w != receptor && w->inherits("frmProyecto")))
                    ficha = w;
            QVERIFY2(ficha, "no se ha abierto la ficha del alta");
            for (const QString& par : alta)
                escribir(ficha, par.section(QLatin1Char('='), 0, 0), par.section(QLatin1Char('='), 1));
            QMetaObject::invokeMethod(ficha->findChild<QPushButton*>(QStringLiteral("cmd_Guardar")), "click");
            procesarEventos();
            QVERIFY(!Pantallas::cargadas().contains(ficha));
            QVERIFY(!s);  // el selector se cerró al abrir la ficha
        } else {
            for (int i = 0; i < s->modelo()->rowCount(); ++i)
                s->modelo()->setMarcada(i, true);
            QVERIFY(elegir(accion.section(QLatin1Char(' '), 1)));
        }
        QStringList leidos;
        for (const QString& c : controles)
            leidos << leerControl(receptor, c);
        QCOMPARE(leidos, esperado);
        // Nadie escribe en otra pantalla por su nombre: la lista del menú sigue sin abrirse.
        QVERIFY(!Pantallas::cargada<frmBuscar>());
    }

    // La pantalla que pidió algo vuelve al frente cuando se cierra lo que abrió, aunque su lista
    // esté abierta detrás; y el menú "Ventana" alcanza cualquier pantalla abierta.
    void laQuePideVuelveAlFrente()
    {
        EntornoPrueba e;
        e.conectar();
        {
            UsoConexion uso;
            ejecutar(QStringLiteral("INSERT INTO Proyectos_A (PryCod, EXPNUM, Trabajo) VALUES (7, '2008/1', 'Nave agrícola')"));
            ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF) VALUES (1, 'María', 'López', '11111111H')"));
        }
        frmMenu::instancia()->show();
        procesarEventos();

        QVERIFY(abrirListaImpreso(QStringLiteral("mnu_A1")));
        auto* lista = Pantallas::cargada<frmBuscar>();
        QVERIFY(lista);
        lista->cmd_Nuevo_Click();
        procesarEventos();
        auto* impreso = Pantallas::cargada<DatosImpreso>();
        QVERIFY(impreso);
        impreso->img_Buscar_Click();
        procesarEventos();
        QVERIFY(elegir(7));
        procesarEventos();
        QCOMPARE(delante(), impreso);

        QVERIFY(abrirListaMaestra(QStringLiteral("CLIENTES")));
        auto* clientes = Pantallas::cargada<frmBuscar>();
        QVERIFY(Fichas::abrir({.tabla = QStringLiteral("CLIENTES"), .operacion = QStringLiteral("ALTA")}));
        auto* cliente = Pantallas::cargada<frmCliente>();
        escribir(cliente, "txt_NIF", QStringLiteral("11111111H"));
        cliente->img_Validar_Click();
        procesarEventos();
        auto* comprobacion = Pantallas::cargada<frmValidarNIFCIF>();
        QVERIFY(comprobacion);
        QCOMPARE(delante(), comprobacion);
        QVERIFY(Pantallas::descargar(comprobacion));
        procesarEventos();
        QCOMPARE(delante(), cliente);

        // Cada pantalla abierta tiene su entrada; elegirla la trae al frente.
        auto* ventana = frmMenu::instancia()->findChild<QMenu*>(QStringLiteral("mnu_Ventana"));
        QVERIFY(ventana);
        emit ventana->aboutToShow();
        QStringList entradas;
        QAction* entradaImpreso = nullptr;
        for (QAction* a : ventana->actions())
            if (a->property("pantallaAbierta").toBool()) {
                entradas << a->text().section(QLatin1Char(' '), 1);
                if (a->text().endsWith(impreso->windowTitle()))
                    entradaImpreso = a;
            }
        QCOMPARE(entradas.size(), 3);  // el impreso, la lista (una sola, ahora la de clientes) y el cliente
        QVERIFY(entradas.contains(clientes->windowTitle()) && entradas.contains(cliente->windowTitle()));
        QVERIFY(entradaImpreso);
        entradaImpreso->trigger();
        procesarEventos();
        QCOMPARE(delante(), impreso);
    }
};

PRUEBA_PANTALLAS(tst_recorrido)
#include "tst_recorrido.moc"
#include "moc_PruebaImpresos.cpp"
