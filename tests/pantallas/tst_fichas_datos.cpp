// Seguridad de los datos de las fichas (valores tal cual, todo o nada, dos puestos a la vez),
// y la ficha de costes de referencia.
#include "masterdata/frmAddModCosteReferencia.h"
#include "masterdata/frmArquitecto.h"
#include "masterdata/frmCliente.h"
#include "masterdata/frmConfiguracion.h"
#include "tests/pantallas/tst_fichas_comun.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QThread>
#include <QtTest>

using Mensajes::Respuesta;
using namespace fichas;

namespace {

bool haySqlite3() { return !QStandardPaths::findExecutable(QStringLiteral("sqlite3")).isEmpty(); }

// Otro proceso (la orden sqlite3) que toma la base de datos con BEGIN IMMEDIATE, escribe una fila
// y la retiene los segundos pedidos. Vuelve cuando el cerrojo ya está tomado.
void retenerBaseDatos(QProcess& p, const QString& fichero, int segundos)
{
    p.start(QStringLiteral("sqlite3"), {fichero});
    QVERIFY(p.waitForStarted());
    p.write(QStringLiteral(".timeout 5000\nBEGIN IMMEDIATE;\nINSERT INTO Costes (CODIGO, TIPO) VALUES ('OTRO', 'del otro puesto');\n"
                           ".shell sleep %1\nCOMMIT;\n")
                .arg(segundos)
                .toUtf8());
    QVERIFY(p.waitForBytesWritten(3000));
    p.closeWriteChannel();
    // Sonda sin espera: cuando no puede tomar el cerrojo, el otro proceso ya lo tiene.
    QSqlDatabase sonda = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("sonda"));
    sonda.setDatabaseName(fichero);
    sonda.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=0"));
    QVERIFY(sonda.open());
    bool tomado = false;
    for (int i = 0; i < 100 && !tomado; ++i) {
        QSqlQuery q(sonda);
        if (q.exec(QStringLiteral("BEGIN IMMEDIATE"))) {
            q.exec(QStringLiteral("ROLLBACK"));
            QThread::msleep(30);
        } else {
            tomado = true;
        }
    }
    sonda.close();
    sonda = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("sonda"));
    QVERIFY2(tomado, "el otro proceso no llegó a tomar la base de datos");
}

frmAddModCosteReferencia* abrirCoste(const QString& operacion, const QString& codigo = {}, const QString& clave = {})
{
    if (operacion == QLatin1String("ALTA"))
        return abrir<frmAddModCosteReferencia>(QStringLiteral("COSTES"), operacion, 0, clave);
    // La modificación la abre la lista de la configuración.
    auto* f = new frmAddModCosteReferencia;
    f->setTag(operacion);
    f->setWindowTitle(QStringLiteral("Modificar coste"));
    f->CodigoCoste = codigo;
    f->Form_Load();
    Pantallas::mostrar(f);
    return f;
}

}  // namespace

class tst_fichas_datos : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { limpiar(); }

    // Comillas, acentos, "ñ" y textos al límite se guardan y se leen tal como se escriben.
    void valoresTalCual_data()
    {
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("columna");
        QTest::addColumn<QString>("texto");
        QTest::newRow("apóstrofo") << "txt_Nombre" << "Nombre_Cli" << "O'Brien D'Ors";
        QTest::newRow("comillas dobles") << "txt_Apellidos" << "Ape_Cli" << "Peña \"la Vieja\"";
        QTest::newRow("nombre de 50 con eñes") << "txt_Nombre" << "Nombre_Cli" << QString(25, QChar(0xF1)) + QString(25, QChar(0xC1));
        QTest::newRow("apellidos de 40") << "txt_Apellidos" << "Ape_Cli" << QStringLiteral("Ñúñez-Álvarez de la Peña y Güell Ortíz ").left(39) + "z";
        QTest::newRow("notas de 255 en varias líneas") << "txt_Notas" << "Otros" << (QStringLiteral("línea 'uno'\n\"dos\"\n") + QString(255, QChar(0xE9))).left(255);
        QTest::newRow("correo") << "txt_Correo" << "Correo_Cli" << "josé.o'neil@estudio.es";
    }

    void valoresTalCual()
    {
        QFETCH(QString, campo);
        QFETCH(QString, columna);
        QFETCH(QString, texto);
        EntornoPrueba e;
        e.conectar();
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"));
        poner(f, {{"txt_Nombre", "Ana"}, {"txt_NIF", "1"}, {campo, texto}});
        QCOMPARE(leer(f, campo), texto);  // cabe entero en el campo
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Cliente dado de alta correctamente")});
        QCOMPARE(valor(QStringLiteral("SELECT %1 FROM Clientes WHERE Codigo_Cli = 1").arg(columna)).toString(), texto);
        // Se vuelve a ver igual en la ficha.
        auto* g = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("MODIFICAR"), 1);
        QCOMPARE(leer(g, campo), texto);
        QVERIFY(!g->hayCambios());
    }

    // Un fallo en cualquier punto del guardado deshace todo, cascadas incluidas.
    void fallaTodoONada_data()
    {
        QTest::addColumn<QString>("ficha");
        QTest::addColumn<QString>("tablaRota");
        QTest::newRow("cliente: falla la segunda cascada") << "cliente" << "Proyectos_A";
        QTest::newRow("arquitecto: falla la última cascada") << "arquitecto" << "datosB4";
        QTest::newRow("cliente nuevo: falla el representante") << "cliente nuevo" << "Representantes";
    }

    void fallaTodoONada()
    {
        QFETCH(QString, ficha);
        QFETCH(QString, tablaRota);
        EntornoPrueba e;
        e.conectar();
        sql(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, NIF, esR) VALUES (1, 'Cliente', 'N', 1)"));
        sql(QStringLiteral("INSERT INTO Representantes (Codigo_Cli, Nombre_Cli, Ape_Cli) VALUES (1, 'Rep', 'Uno')"));
        sql(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli) VALUES (1, 'ARQUITECTO', 0, 10, 'Arq')"));
        sql(QStringLiteral("DELETE FROM Config"));
        sql(QStringLiteral("INSERT INTO Config (Arq1Nom, Arq1Col, Domicilio) VALUES ('Arq', '10', 'vieja')"));
        sql(QStringLiteral("INSERT INTO Proyectos_A (PryCod, Codigo_Cliente, Codigo_Representante, CLINOM, REPNOM) VALUES (1, 1, 1, 'Cliente', 'Rep Uno')"));
        sql(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol) VALUES (1, 1, '10')"));
        sql(QStringLiteral("INSERT INTO datosB1B3B4 (ARQCOD, ARQNOM) VALUES (1, 'Arq')"));
        sql(QStringLiteral("INSERT INTO datosB4 (PAGCOD, PAGNOM, PERCOD, PERNOM) VALUES (1, 'Cliente', 1, 'Arq')"));
        const auto foto = [] {
            QStringList l;
            for (const char* t : {"Clientes", "Representantes", "OTROS", "Config", "Proyectos_A", "Arquitectos_Proyecto",
                                  "datosB1B3B4", "datosB4"}) {
                UsoConexion uso;
                Consulta c(QStringLiteral("SELECT * FROM \"%1\"").arg(QLatin1String(t)));
                while (c.siguiente())
                    for (int i = 0; i < c.query().record().count(); ++i)
                        l << c.valor(i).toString();
            }
            return l;
        };

        FichaRegistro* f = nullptr;
        if (ficha == QLatin1String("arquitecto")) {
            f = abrir<frmArquitecto>(QStringLiteral("ARQUITECTOS"), QStringLiteral("MODIFICAR"), 1);
            poner(f, {{"txt_NumColegiado", "11"}, {"txt_Nombre", "Arq Nuevo"}, {"txt_Domicilio", "nueva"}});
        } else if (ficha == QLatin1String("cliente")) {
            f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("MODIFICAR"), 1);
            poner(f, {{"txt_Nombre", "Cliente Nuevo"}, {"txt_Nombre_Representante", "Rep Nuevo"}});
        } else {
            f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"));
            tipo(f, 1);
            poner(f, {{"txt_Nombre", "Otra SL"}, {"txt_NIF", "B2"}, {"txt_Nombre_Representante", "R"}, {"txt_Apellidos_Representante", "S"}});
        }
        const QStringList antes = foto();
        sql(QStringLiteral("ALTER TABLE \"%1\" RENAME TO roto").arg(tablaRota));
        f->cmd_Guardar_Click();
        sql(QStringLiteral("ALTER TABLE roto RENAME TO \"%1\"").arg(tablaRota));

        QCOMPARE(foto(), antes);
        QCOMPARE(e.entradasLog(), 1);
        QVERIFY(e.leerLog().contains(f->objectName()));
        QCOMPARE(e.cuadros.size(), 1);  // la entrada del registro, y ningún "correctamente"
        QVERIFY(e.cuadros[0].texto.contains(tablaRota, Qt::CaseInsensitive));
        QVERIFY(abierta(f));
        QVERIFY(!transaccionEnCurso);
        QVERIFY(!BaseDatos::estaAbierta());
        // Con la tabla en su sitio, el mismo guardado sale bien.
        e.limpiarCuadros();
        f->cmd_Guardar_Click();
        QVERIFY(e.textos().value(0).endsWith(QStringLiteral("correctamente")));
        QVERIFY(foto() != antes);
    }

    // Otro puesto guarda a la vez: se espera a que termine y se guardan los dos.
    void otroPuestoBreve()
    {
        if (!haySqlite3())
            QSKIP("Falta la orden sqlite3 (paquete sqlite3), que hace de segundo puesto");
        EntornoPrueba e;
        e.conectar();
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"));
        poner(f, {{"txt_Nombre", "Ana"}, {"txt_NIF", "1"}});
        QProcess otro;
        retenerBaseDatos(otro, e.ficheroBD(), 2);
        QElapsedTimer reloj;
        reloj.start();
        f->cmd_Guardar_Click();
        QVERIFY(reloj.elapsed() >= 500);
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Cliente dado de alta correctamente")});
        QVERIFY(otro.waitForFinished(10000));
        QCOMPARE(otro.exitCode(), 0);
        QCOMPARE(fila(QStringLiteral("SELECT Nombre_Cli, (SELECT TIPO FROM Costes WHERE CODIGO = 'OTRO') FROM Clientes")),
                 (QVariantList{QStringLiteral("Ana"), QStringLiteral("del otro puesto")}));
        QCOMPARE(e.entradasLog(), 0);
    }

    // El otro puesto la retiene más de lo que se espera: aviso claro, registro, y nada escrito.
    void otroPuestoRetiene()
    {
        if (!haySqlite3())
            QSKIP("Falta la orden sqlite3 (paquete sqlite3), que hace de segundo puesto");
        EntornoPrueba e;
        e.conectar();
        sql(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli) VALUES (1, 'ARQUITECTO', 0, 10, 'Arq')"));
        sql(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, NumCol) VALUES (1, '10')"));
        auto* f = abrir<frmArquitecto>(QStringLiteral("ARQUITECTOS"), QStringLiteral("MODIFICAR"), 1);
        poner(f, QStringLiteral("txt_NumColegiado"), QStringLiteral("11"));
        QProcess otro;
        retenerBaseDatos(otro, e.ficheroBD(), 8);
        f->cmd_Guardar_Click();
        QCOMPARE(e.cuadros.size(), 1);
        QVERIFY2(e.cuadros[0].texto.contains(QStringLiteral(
                     "La base de datos está siendo utilizada por otro puesto y no se han podido guardar los datos.")),
                 qPrintable(e.cuadros[0].texto));
        QCOMPARE(e.entradasLog(), 1);
        QVERIFY(e.leerLog().contains(QStringLiteral("frmArquitecto")));
        QVERIFY(abierta(f));
        QVERIFY(!transaccionEnCurso);
        QVERIFY(otro.waitForFinished(15000));
        // Nada escrito por este puesto; lo del otro, entero.
        QCOMPARE(fila(QStringLiteral("SELECT o.NumColegiado, a.NumCol, (SELECT count(*) FROM Costes) FROM OTROS o, Arquitectos_Proyecto a")),
                 (QVariantList{10, QStringLiteral("10"), 1}));
        // Libre ya la base de datos, el mismo guardado sale bien.
        e.limpiarCuadros();
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Datos del arquitecto modificados correctamente")});
        QCOMPARE(valor(QStringLiteral("SELECT NumCol FROM Arquitectos_Proyecto")).toString(), QStringLiteral("11"));
    }

    void costeValidacion_data()
    {
        QTest::addColumn<QStringList>("valores");  // código, tipo, descripción, Ct, Cc
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<QString>("foco");
        const QString num = QStringLiteral("Formato numérico no válido.\nPor favor, revise el valor proporcionado");
        const QString esc = QStringLiteral("\nPor favor, escriba un valor");
        QTest::newRow("código") << QStringList{" ", "", "", "", ""} << "El código del coste de referencia es obligatorio." + esc << "txt_Codigo";
        QTest::newRow("descripción antes que tipo") << QStringList{"C1", "", "", "", ""} << "La descripción del coste de referencia es obligatoria." + esc << "txt_Descripcion";
        QTest::newRow("tipo") << QStringList{"C1", "", "D", "", ""} << "El tipo del coste de referencia es obligatorio." + esc << "txt_Tipo";
        QTest::newRow("Ct") << QStringList{"C1", "T", "D", "", "1"} << "El coeficiente Ct es obligatorio." + esc << "txt_Ct";
        QTest::newRow("Ct no numérico") << QStringList{"C1", "T", "D", "1,2,3", "1"} << num << "txt_Ct";
        QTest::newRow("Cc") << QStringList{"C1", "T", "D", "1", " "} << "El coeficiente Cc es obligatorio." + esc << "txt_Cc";
        QTest::newRow("código repetido") << QStringList{"K1.2", "T", "D", "1", "1"}
                                         << "Ya existe un coste de referencia con código K1.2.\nPor favor, cambie el código e inténtelo de nuevo" << "";
        QTest::newRow("bien") << QStringList{"C1", "Vivienda", "Unifamiliar", "1,25", "0,9"} << "Coste de referencia dado de alta correctamente" << "";
    }

    void costeValidacion()
    {
        QFETCH(QStringList, valores);
        QFETCH(QString, mensaje);
        QFETCH(QString, foco);
        EntornoPrueba e;
        e.conectar();
        sql(QStringLiteral("INSERT INTO Costes (CODIGO, TIPO, CT, CC) VALUES ('K1.2', 'viejo', 2, 3)"));
        auto* f = abrirCoste(QStringLiteral("ALTA"));
        const QStringList campos{"txt_Codigo", "txt_Tipo", "txt_Descripcion", "txt_Ct", "txt_Cc"};
        for (int i = 0; i < campos.size(); ++i)
            poner(f, campos[i], valores[i]);
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{mensaje});
        if (!foco.isEmpty())
            QCOMPARE(f->focusWidget(), control(f, foco));
        if (valores[0] == QLatin1String("C1") && foco.isEmpty())
            QCOMPARE(fila(QStringLiteral("SELECT TIPO, DESCRIPCION, CT, CC FROM Costes WHERE CODIGO = 'C1'")),
                     (QVariantList{QStringLiteral("Vivienda"), QStringLiteral("Unifamiliar"), 1.25, 0.9}));
        else
            QCOMPARE(valor(QStringLiteral("SELECT count(*) FROM Costes")).toInt(), 1);
    }

    void coeficientes_data()
    {
        QTest::addColumn<QString>("tecleado");
        QTest::addColumn<QString>("queda");
        QTest::addColumn<QString>("alSalir");
        QTest::newRow("punto como coma") << "1.5" << "1,5" << "1,5";
        QTest::newRow("una coma") << "1,2,3" << "1,23" << "1,23";
        QTest::newRow("sólo cifras") << "a-1x2" << "12" << "12";
        QTest::newRow("coma delante") << ",5" << ",5" << "0,5";
        QTest::newRow("coma detrás") << "7," << "7," << "7";
    }

    void coeficientes()
    {
        QFETCH(QString, tecleado);
        QFETCH(QString, queda);
        QFETCH(QString, alSalir);
        EntornoPrueba e;
        e.conectar();
        auto* f = abrirCoste(QStringLiteral("ALTA"));
        for (const char* campo : {"txt_Ct", "txt_Cc"}) {
            QWidget* w = control(f, QLatin1String(campo));
            teclear(w, tecleado);
            QCOMPARE(leer(f, QLatin1String(campo)), queda);
            QFocusEvent salida(QEvent::FocusOut);
            QCoreApplication::sendEvent(w, &salida);
            QCOMPARE(leer(f, QLatin1String(campo)), alSalir);
        }
    }

    void costeModificarYDevolver()
    {
        EntornoPrueba e;
        e.conectar();
        sql(QStringLiteral("INSERT INTO Costes (CODIGO, TIPO, DESCRIPCION, CT, CC) VALUES ('C1', 'Vivienda', 'Aislada', 1.5, 0.75)"));
        auto* conf = new frmConfiguracion;
        QTreeWidget* lvw = conf->listaCostes();
        lvw->clear();
        conf->agregarCoste(QStringLiteral("C1"), QStringLiteral("Vivienda"), QStringLiteral("Aislada"), 1.5, 0.75);
        lvw->setCurrentItem(lvw->topLevelItem(0));

        auto* f = abrirCoste(QStringLiteral("MODIFICAR"), QStringLiteral("C1"));
        QCOMPARE(leer(f, QStringList{"txt_Ct", "txt_Cc"}), (QStringList{"1,5", "0,75"}));
        QVERIFY(!f->hayCambios());
        poner(f, {{"txt_Descripcion", "Adosada"}, {"txt_Ct", "1,6"}});
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Datos del coste de referencia modificados correctamente")});
        QCOMPARE(fila(QStringLiteral("SELECT DESCRIPCION, CT FROM Costes")), (QVariantList{QStringLiteral("Adosada"), 1.6}));
        QCOMPARE((QStringList{lvw->topLevelItem(0)->text(2), lvw->topLevelItem(0)->text(3)}), (QStringList{"Adosada", "1,60"}));

        // El código cambiado en la ficha ya no se halla.
        e.limpiarCuadros();
        poner(f, QStringLiteral("txt_Codigo"), QStringLiteral("C9"));
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{QStringLiteral("No se ha podido hallar el coste de referencia seleccionado para su modificación")});
        delete f;

        // Alta desde la configuración: la fila entra en su lista.
        e.limpiarCuadros();
        f = abrirCoste(QStringLiteral("ALTA"));
        poner(f, {{"txt_Codigo", "C2"}, {"txt_Tipo", "Nave"}, {"txt_Descripcion", "Industrial"}, {"txt_Ct", "1"}, {"txt_Cc", "2"}});
        f->cmd_Guardar_Click();
        QCOMPARE(lvw->topLevelItemCount(), 2);
        QCOMPARE(claveFila(lvw->topLevelItem(1)), QStringLiteral("KC2"));
        QVERIFY(!abierta(f));

        // Alta pedida desde un uso del impreso A3: el tipo va a su txt_Usos.
        auto* a3 = new Receptor(QStringLiteral("frmDatosImpreso_A3"), {"txt_Usos_2", "txt_Ct_2"});
        f = abrirCoste(QStringLiteral("ALTA"), {}, QStringLiteral("FRMDATOSIMPRESOA3_USO_3"));
        poner(f, {{"txt_Codigo", "C3"}, {"txt_Tipo", "Local"}, {"txt_Descripcion", "Comercial"}, {"txt_Ct", "1"}, {"txt_Cc", "2"}});
        f->cmd_Guardar_Click();
        QCOMPARE(leer(a3, QStringList{"txt_Usos_2", "txt_Ct_2"}), (QStringList{"Local", ""}));
        QCOMPARE(lvw->topLevelItemCount(), 2);
    }
};

QTEST_MAIN(tst_fichas_datos)
#include "tst_fichas_datos.moc"
