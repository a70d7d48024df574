// Seguridad de los datos de las fichas (valores tal cual, todo o nada, dos puestos a la vez),
// y la ficha de costes de referencia.
#include "masterdata/frmAddModCosteReferencia.h"
#include "masterdata/frmArquitecto.h"
#include "masterdata/frmCliente.h"
#include "tests/pantallas/tst_fichas_comun.h"

#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QThread>
#include <QtTest>

using namespace fichas;

namespace {

using Pares = QList<QPair<QString, QString>>;

// Otro puesto, en otro proceso, que toma la base de datos, escribe una fila y la retiene los
// segundos pedidos: en el fichero la orden sqlite3 con BEGIN IMMEDIATE; en el servidor psql con
// las tablas que tocan las fichas cerradas a la escritura. Vuelve cuando el cerrojo ya está tomado.
QString ordenOtroPuesto(const Entorno& e) { return e.servidor ? QStringLiteral("psql") : QStringLiteral("sqlite3"); }

void retenerBaseDatos(QProcess& p, const Entorno& e, int segundos)
{
    const bool servidor = e.servidor.has_value();
    const QString orden = ordenOtroPuesto(e);
    const QString escribir = QStringLiteral("INSERT INTO Costes (CODIGO, TIPO) VALUES ('OTRO', 'del otro puesto');\n");
    if (servidor) {
        const BaseDatos::DatosServidor& d = e.servidor->datos();
        p.start(orden, {QStringLiteral("-q"), QStringLiteral("-h"), d.servidor, QStringLiteral("-p"), d.puerto, QStringLiteral("-U"), d.usuario,
                        QStringLiteral("-d"), d.base, QStringLiteral("-v"), QStringLiteral("ON_ERROR_STOP=1")});
        p.write((QStringLiteral("BEGIN;\nLOCK TABLE clientes, representantes, otros, arquitectos_proyecto, costes IN EXCLUSIVE MODE;\n")
                 + escribir + QStringLiteral("SELECT pg_sleep(%1);\nCOMMIT;\n").arg(segundos))
                    .toUtf8());
    } else {
        p.start(orden, {e.ficheroBD()});
        p.write((QStringLiteral(".timeout 5000\nBEGIN IMMEDIATE;\n") + escribir + QStringLiteral(".shell sleep %1\nCOMMIT;\n").arg(segundos)).toUtf8());
    }
    QVERIFY(p.waitForStarted() && p.waitForBytesWritten(3000));
    p.closeWriteChannel();
    // Sonda sin espera: cuando no puede escribir, el otro proceso ya tiene el cerrojo.
    bool tomado = false;
    {
        QSqlDatabase sonda = servidor ? BaseDatos::abrirServidor(QStringLiteral("sonda"), e.servidor->datos())
                                      : QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("sonda"));
        if (!servidor) {
            sonda.setDatabaseName(e.ficheroBD());
            sonda.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=0"));
            QVERIFY(sonda.open());
        }
        const QString tomar = servidor ? QStringLiteral("LOCK TABLE costes IN ROW EXCLUSIVE MODE NOWAIT") : QStringLiteral("SELECT 1");
        for (int i = 0; i < 100 && !tomado; ++i, QThread::msleep(30)) {
            QSqlQuery q(sonda);
            tomado = !q.exec(servidor ? QStringLiteral("BEGIN") : QStringLiteral("BEGIN IMMEDIATE")) || !q.exec(tomar);
            q.exec(QStringLiteral("ROLLBACK"));
        }
    }
    QSqlDatabase::removeDatabase(QStringLiteral("sonda"));
    QVERIFY2(tomado, "el otro proceso no llegó a tomar la base de datos");
}

frmAddModCosteReferencia* altaCoste() { return abrir<frmAddModCosteReferencia>(QStringLiteral("COSTES"), QStringLiteral("ALTA")); }

// Todas las filas de las tablas que tocan las fichas, como texto.
QStringList foto()
{
    QStringList l;
    UsoConexion uso;
    for (const char* t : {"Clientes", "Representantes", "OTROS", "Config", "Proyectos_A", "Arquitectos_Proyecto", "datosB1B3B4", "datosB4"})
        for (Consulta c(QStringLiteral("SELECT * FROM \"%1\"").arg(QLatin1String(t))); c.siguiente();)
            for (int i = 0; i < c.query().record().count(); ++i)
                l << c.valor(i).toString();
    return l;
}

}  // namespace

class tst_fichas_datos : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { limpiar(); }

    // Comillas, acentos, "ñ" y textos al límite se guardan y se leen tal como se escriben.
    void valoresTalCual_data()
    {
        QTest::addColumn<QStringList>("caso");  // campo, columna, texto
        QTest::newRow("comillas") << QStringList{"txt_Nombre", "Nombre_Cli", "O'Brien \"la Vieja\""};
        QTest::newRow("nombre de 50 con eñes") << QStringList{"txt_Nombre", "Nombre_Cli", QString(25, QChar(0xF1)) + QString(25, QChar(0xC1))};
        QTest::newRow("apellidos de 40") << QStringList{"txt_Apellidos", "Ape_Cli", QStringLiteral("Ñúñez-Álvarez de la Peña y Güell Ortíz z")};
        QTest::newRow("notas de 255 en varias líneas")
            << QStringList{"txt_Notas", "Otros", (QStringLiteral("línea 'uno'\n\"dos\"\n") + QString(255, QChar(0xE9))).left(255)};
    }

    void valoresTalCual()
    {
        QFETCH(QStringList, caso);
        Entorno e;
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"));
        poner(f, {{"txt_Nombre", "Ana"}, {"txt_NIF", "1"}, {caso[0], caso[2]}});
        QCOMPARE(leer(f, caso[0]), caso[2]);  // cabe entero en el campo
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Cliente dado de alta correctamente")});
        QCOMPARE(valor(QStringLiteral("SELECT %1 FROM Clientes WHERE Codigo_Cli = 1").arg(caso[1])).toString(), caso[2]);
        // Se vuelve a ver igual en la ficha.
        auto* g = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("MODIFICAR"), 1);
        QCOMPARE(leer(g, caso[0]), caso[2]);
        QVERIFY(!g->hayCambios());
    }

    // Un fallo en cualquier punto del guardado deshace todo, cascadas incluidas.
    void fallaTodoONada_data()
    {
        QTest::addColumn<QString>("tablaRota");
        QTest::addColumn<Pares>("campos");  // en la ficha de cliente, o de arquitecto con número
        QTest::newRow("cliente: falla la segunda cascada")
            << "Proyectos_A" << Pares{{"txt_Nombre", "Cliente Nuevo"}, {"txt_Nombre_Representante", "Rep Nuevo"}};
        QTest::newRow("arquitecto: falla la última cascada")
            << "datosB4" << Pares{{"txt_NumColegiado", "11"}, {"txt_Nombre", "Arq Nuevo"}, {"txt_Domicilio", "nueva"}};
    }

    void fallaTodoONada()
    {
        QFETCH(QString, tablaRota);
        QFETCH(Pares, campos);
        Entorno e;
        sql(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, NIF, esR) VALUES (1, 'Cliente', 'N', 1)"));
        sql(QStringLiteral("INSERT INTO Representantes (Codigo_Cli, Nombre_Cli, Ape_Cli) VALUES (1, 'Rep', 'Uno')"));
        sql(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli) VALUES (1, 'ARQUITECTO', 0, 10, 'Arq')"));
        sql(QStringLiteral("DELETE FROM Config"));
        sql(QStringLiteral("INSERT INTO Config (Arq1Nom, Arq1Col, Domicilio) VALUES ('Arq', '10', 'vieja')"));
        sql(QStringLiteral("INSERT INTO Proyectos_A (PryCod, Codigo_Cliente, Codigo_Representante, CLINOM, REPNOM) VALUES (1, 1, 1, 'Cliente', 'Rep Uno')"));
        sql(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol) VALUES (1, 1, '10')"));
        sql(QStringLiteral("INSERT INTO datosB1B3B4 (ARQCOD, ARQNOM) VALUES (1, 'Arq')"));
        sql(QStringLiteral("INSERT INTO datosB4 (PAGCOD, PAGNOM, PERCOD, PERNOM) VALUES (1, 'Cliente', 1, 'Arq')"));
        FichaRegistro* f = campos[0].first == QLatin1String("txt_NumColegiado")
                               ? static_cast<FichaRegistro*>(abrir<frmArquitecto>(QStringLiteral("ARQUITECTOS"), QStringLiteral("MODIFICAR"), 1))
                               : abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("MODIFICAR"), 1);
        poner(f, campos);
        const QStringList antes = foto();
        sql(QStringLiteral("ALTER TABLE \"%1\" RENAME TO roto").arg(tablaRota));
        f->cmd_Guardar_Click();
        sql(QStringLiteral("ALTER TABLE roto RENAME TO \"%1\"").arg(tablaRota));
        QCOMPARE(foto(), antes);
        QVERIFY(e.entradasLog() == 1 && e.leerLog().contains(f->objectName()));
        // Un solo aviso, el del registro, y ningún "correctamente".
        QVERIFY(e.cuadros.size() == 1 && e.cuadros[0].texto.contains(tablaRota, Qt::CaseInsensitive));
        QVERIFY(abierta(f) && !transaccionEnCurso && !BaseDatos::estaAbierta());
        // Con la tabla en su sitio, el mismo guardado sale bien.
        e.limpiarCuadros();
        f->cmd_Guardar_Click();
        QVERIFY(e.textos().value(0).endsWith(QStringLiteral("correctamente")));
        QVERIFY(foto() != antes);
    }

    // Otro puesto guarda a la vez: se espera a que termine y se guardan los dos.
    void otroPuestoBreve()
    {
        Entorno e;
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"));
        poner(f, {{"txt_Nombre", "Ana"}, {"txt_NIF", "1"}});
        QProcess otro;
        if (QStandardPaths::findExecutable(ordenOtroPuesto(e)).isEmpty())
            QSKIP(qPrintable(QStringLiteral("Falta la orden %1, que hace de segundo puesto").arg(ordenOtroPuesto(e))));
        retenerBaseDatos(otro, e, 2);
        const qint64 inicio = QDateTime::currentMSecsSinceEpoch();
        f->cmd_Guardar_Click();
        QVERIFY(QDateTime::currentMSecsSinceEpoch() - inicio >= 500);
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Cliente dado de alta correctamente")});
        QVERIFY(otro.waitForFinished(10000) && otro.exitCode() == 0);
        QCOMPARE(fila(QStringLiteral("SELECT Nombre_Cli, (SELECT TIPO FROM Costes WHERE CODIGO = 'OTRO') FROM Clientes")),
                 (QVariantList{QStringLiteral("Ana"), QStringLiteral("del otro puesto")}));
        QCOMPARE(e.entradasLog(), 0);
    }

    // El otro puesto la retiene más de lo que se espera: aviso claro, registro, y nada escrito.
    void otroPuestoRetiene()
    {
        Entorno e;
        sql(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli) VALUES (1, 'ARQUITECTO', 0, 10, 'Arq')"));
        sql(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, NumCol) VALUES (1, '10')"));
        auto* f = abrir<frmArquitecto>(QStringLiteral("ARQUITECTOS"), QStringLiteral("MODIFICAR"), 1);
        poner(f, QStringLiteral("txt_NumColegiado"), QStringLiteral("11"));
        QProcess otro;
        if (QStandardPaths::findExecutable(ordenOtroPuesto(e)).isEmpty())
            QSKIP(qPrintable(QStringLiteral("Falta la orden %1, que hace de segundo puesto").arg(ordenOtroPuesto(e))));
        retenerBaseDatos(otro, e, 8);
        f->cmd_Guardar_Click();
        QVERIFY(e.cuadros.size() == 1 && e.cuadros[0].texto.contains(
                     QStringLiteral("La base de datos está siendo utilizada por otro puesto y no se han podido guardar los datos.")));
        QVERIFY(e.entradasLog() == 1 && e.leerLog().contains(QStringLiteral("frmArquitecto")));
        QVERIFY(abierta(f) && !transaccionEnCurso);
        QVERIFY(otro.waitForFinished(15000));
        // Nada escrito por este puesto; lo del otro, entero.
        QCOMPARE(fila(QStringLiteral("SELECT o.NumColegiado, a.NumCol, (SELECT count(*) FROM Costes) FROM OTROS o, Arquitectos_Proyecto a")),
                 (QVariantList{10, QStringLiteral("10"), 1}));
    }

    void costeValidacion_data()
    {
        QTest::addColumn<QStringList>("caso");  // código, tipo, descripción, Ct, Cc, mensaje, foco
        const QString esc = QStringLiteral("\nPor favor, escriba un valor");
        QTest::newRow("código") << QStringList{" ", "", "", "", "", "El código del coste de referencia es obligatorio." + esc, "txt_Codigo"};
        QTest::newRow("descripción antes que tipo") << QStringList{"C1", "", "", "", "", "La descripción del coste de referencia es obligatoria." + esc, "txt_Descripcion"};
        QTest::newRow("tipo") << QStringList{"C1", "", "D", "", "", "El tipo del coste de referencia es obligatorio." + esc, "txt_Tipo"};
        QTest::newRow("Ct") << QStringList{"C1", "T", "D", "", "1", "El coeficiente Ct es obligatorio." + esc, "txt_Ct"};
        QTest::newRow("Ct no numérico") << QStringList{"C1", "T", "D", "1,2,3", "1", "Formato numérico no válido.\nPor favor, revise el valor proporcionado", "txt_Ct"};
        QTest::newRow("Cc") << QStringList{"C1", "T", "D", "1", " ", "El coeficiente Cc es obligatorio." + esc, "txt_Cc"};
        QTest::newRow("código repetido") << QStringList{"K1.2", "T", "D", "1", "1", "Ya existe un coste de referencia con código K1.2.\nPor favor, cambie el código e inténtelo de nuevo", ""};
        QTest::newRow("bien") << QStringList{"C1", "Vivienda", "Unifamiliar", "1,25", "0,9", "Coste de referencia dado de alta correctamente", ""};
    }

    void costeValidacion()
    {
        QFETCH(QStringList, caso);
        Entorno e;
        sql(QStringLiteral("INSERT INTO Costes (CODIGO, TIPO, CT, CC) VALUES ('K1.2', 'viejo', 2, 3)"));
        auto* f = altaCoste();
        poner(f, {{"txt_Codigo", caso[0]}, {"txt_Tipo", caso[1]}, {"txt_Descripcion", caso[2]}, {"txt_Ct", caso[3]}, {"txt_Cc", caso[4]}});
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{caso[5]});
        if (!caso[6].isEmpty())
            QCOMPARE(f->focusWidget(), control(f, caso[6]));
        QStringList costes;
        {
            UsoConexion uso;
            for (Consulta c(QStringLiteral("SELECT * FROM Costes ORDER BY rowid")); c.siguiente();)
                costes << QStringList{c.texto(QStringLiteral("CODIGO")), c.texto(QStringLiteral("TIPO")), c.texto(QStringLiteral("DESCRIPCION")),
                                      QString::number(c.valor(QStringLiteral("CT")).toDouble()),
                                      QString::number(c.valor(QStringLiteral("CC")).toDouble())}.join(QLatin1Char('/'));
        }
        QCOMPARE(costes.join(QLatin1Char('|')),
                 QStringLiteral("K1.2/viejo//2/3") + (caso[5].endsWith(QLatin1String("correctamente")) ? "|C1/Vivienda/Unifamiliar/1.25/0.9" : ""));
    }

    // Modificar: la carga con coma decimal y lo guardado.
    void costeModificar()
    {
        Entorno e;
        sql(QStringLiteral("INSERT INTO Costes (CODIGO, TIPO, DESCRIPCION, CT, CC) VALUES ('C1', 'Vivienda', 'Aislada', 1.5, 0.75)"));
        // La modificación la abre la lista de la configuración.
        auto* f = new frmAddModCosteReferencia;
        f->setTag(QStringLiteral("MODIFICAR"));
        f->CodigoCoste = QStringLiteral("C1");
        f->Form_Load();
        Pantallas::mostrar(f);
        QCOMPARE(leer(f, QStringList{"txt_Ct", "txt_Cc"}), (QStringList{"1,5", "0,75"}));
        poner(f, {{"txt_Descripcion", "Adosada"}, {"txt_Ct", "1,6"}});
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Datos del coste de referencia modificados correctamente")});
        QCOMPARE(fila(QStringLiteral("SELECT DESCRIPCION, CT FROM Costes")), (QVariantList{QStringLiteral("Adosada"), 1.6}));
    }
};

PRUEBA_PANTALLAS(tst_fichas_datos)
#include "tst_fichas_datos.moc"
