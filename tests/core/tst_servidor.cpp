// Lo del almacenamiento que ha de ser igual con el fichero y con el servidor PostgreSQL: abrir,
// guardar en una transacción, claves "mayor más uno" de dos puestos a la vez, la clave nueva de
// un contador, el orden y las búsquedas en español, el esquema y un servidor que no se alcanza.
#include "core/EsquemaServidor.h"
#include "core/Guardia.h"
#include "core/Ini.h"
#include "core/Rutas.h"
#include "core/modFunciones.h"
#include "tests/comun/EntornoPrueba.h"
#include "tests/comun/ServidorPrueba.h"

#include <QProcess>
#include <QSet>
#include <QSqlError>
#include <QtTest>

#include <cstdio>
#include <functional>
#include <memory>
#include <optional>

namespace {

const char* const ARGUMENTO_PUESTO = "--puesto-servidor";

// Segundo puesto en otro proceso: guarda `cuantos` clientes con clave "mayor más uno" sobre la
// base del inicio.ini de `directorio`, y dice "ok <clave>" o "no <número> <texto>" por cada uno.
int puesto(const QString& directorio, int cuantos)
{
    Rutas::establecerDirectorioPrograma(directorio);
    rutaBD = leerRutaBD();
    BaseDatos::construirCadenaConexion();
    for (int i = 0; i < cuantos; ++i) {
        QString linea;
        try {
            UsoConexion uso;
            Transaccion t;
            const qint64 clave = siguienteClave(QStringLiteral("Clientes"), QStringLiteral("Codigo_Cli"));
            insertar(QStringLiteral("Clientes"), {{QStringLiteral("Codigo_Cli"), clave}, {QStringLiteral("Nombre_Cli"), QStringLiteral("Otro puesto")}});
            t.confirmar();
            linea = QStringLiteral("ok %1").arg(clave);
        } catch (const ErrorPrograma& e) {
            linea = QStringLiteral("no %1 %2").arg(e.numero).arg(e.descripcion.simplified());
        }
        std::fputs((linea + QLatin1Char('\n')).toUtf8().constData(), stdout);
        std::fflush(stdout);
    }
    return 0;
}

QStringList columna(const QString& sql, const QVariantList& v = {})
{
    QStringList r;
    Consulta c(sql, v);
    while (c.siguiente())
        r << c.valor(0).toString();
    return r;
}

}  // namespace

class tst_servidor : public QObject {
    Q_OBJECT

private slots:
    void esquemaIgualEnLosDosMotores()
    {
        // Lo que dice el fichero entregado, en la forma en que ha de estar en el servidor.
        QStringList esperado;
        QStringList provinciasFichero;
        {
            QSqlDatabase db = BaseDatos::abrirConexion(QStringLiteral("plantilla"), QStringLiteral(PLANTILLA_BD), BaseDatos::Acceso::SoloLectura);
            Consulta tablas(db, QStringLiteral("SELECT name, sql FROM sqlite_master WHERE type = 'table' AND name <> 'sqlite_sequence' ORDER BY lower(name)"));
            while (tablas.siguiente()) {
                const QString tabla = tablas.texto(QStringLiteral("name"));
                const bool contador = tablas.texto(QStringLiteral("sql")).contains(QStringLiteral("AUTOINCREMENT"));
                Consulta c(db, QStringLiteral("SELECT name, type, pk FROM pragma_table_info(?)"), {tabla});
                while (c.siguiente()) {
                    const QString tipo = c.texto(QStringLiteral("type"));
                    const bool identidad = contador && c.valor(QStringLiteral("pk")).toInt() == 1;
                    esperado << QStringLiteral("%1.%2 %3%4").arg(tabla.toLower(), c.texto(QStringLiteral("name")).toLower(),
                                                                tipo == QLatin1String("INTEGER") ? QStringLiteral("bigint")
                                                                : tipo == QLatin1String("REAL")  ? QStringLiteral("double precision")
                                                                                                 : QStringLiteral("text"),
                                                                identidad ? QStringLiteral(" identity") : QString());
                }
            }
            provinciasFichero = [&] {
                QStringList r;
                Consulta p(db, QStringLiteral("SELECT descripción FROM PROVINCIAS ORDER BY descripción COLLATE ES"));
                while (p.siguiente())
                    r << p.valor(0).toString();
                return r;
            }();
            db.close();
        }
        QSqlDatabase::removeDatabase(QStringLiteral("plantilla"));
        QCOMPARE(esperado.filter(QStringLiteral(" identity")).size(), 12);
        // Y cada tabla, el orden de llegada de sus filas, que en el fichero es el rowid oculto.
        const QStringList tablasFichero = [&] {
            QSet<QString> r;
            for (const QString& c : esperado)
                r.insert(c.section(QLatin1Char('.'), 0, 0));
            return QStringList(r.begin(), r.end());
        }();
        for (const QString& tabla : tablasFichero)
            esperado << tabla + QStringLiteral(".rowid bigint identity");

        ServidorPrueba s;
        REQUIERE_SERVIDOR(s);
        EntornoPrueba e;
        s.elegirEn(e);
        UsoConexion uso;
        QStringList servidor;
        Consulta c(QStringLiteral("SELECT table_name, column_name, data_type, is_identity FROM information_schema.columns "
                                  "WHERE table_schema = 'public' ORDER BY table_name, ordinal_position"));
        while (c.siguiente())
            servidor << QStringLiteral("%1.%2 %3%4").arg(c.texto(QStringLiteral("table_name")), c.texto(QStringLiteral("column_name")),
                                                        c.texto(QStringLiteral("data_type")),
                                                        c.texto(QStringLiteral("is_identity")) == QLatin1String("YES") ? QStringLiteral(" identity") : QString());
        // Mismo orden de tablas en los dos lados (por nombre, con el cotejo del servidor las "_" pesan distinto).
        std::sort(esperado.begin(), esperado.end());
        std::sort(servidor.begin(), servidor.end());
        QCOMPARE(servidor, esperado);
        QCOMPARE(columna(QStringLiteral("SELECT descripción FROM PROVINCIAS ORDER BY descripción COLLATE ES")), provinciasFichero);
        QVERIFY(provinciasFichero.size() > 50);
        // El texto para psql lleva lo mismo, en una sola transacción.
        const QString sql = EsquemaServidor::sql();
        QVERIFY(sql.startsWith(QStringLiteral("BEGIN;")) && sql.trimmed().endsWith(QStringLiteral("COMMIT;")));
        QCOMPARE(sql.count(QStringLiteral("CREATE TABLE ")), 41);
    }

    void guardarEnTransaccion_data() { ServidorPrueba::filasDeMotor(); }
    void guardarEnTransaccion()
    {
        MOTOR_DE_LA_FILA(e, s);
        QVERIFY(!BaseDatos::estaAbierta());
        try {
            Transaccion t;
            insertar(QStringLiteral("Costes"), {{QStringLiteral("CODIGO"), QStringLiteral("A1")}, {QStringLiteral("TIPO"), QStringLiteral("x")}});
            ejecutar(QStringLiteral("INSERT INTO TablaQueNoExiste VALUES (1)"));
            QFAIL("debía fallar");
        } catch (const ErrorPrograma& err) {
            QVERIFY2(err.descripcion.contains(QStringLiteral("tablaquenoexiste"), Qt::CaseInsensitive), qPrintable(err.descripcion));
        }
        QVERIFY(!transaccionEnCurso);
        QVERIFY(!BaseDatos::estaAbierta());
        UsoConexion uso;
        QCOMPARE(escalar(QStringLiteral("SELECT count(*) FROM Costes")).toInt(), 0);
        {
            Transaccion t;
            insertar(QStringLiteral("Costes"), {{QStringLiteral("CODIGO"), QStringLiteral("B2")}, {QStringLiteral("CT"), 1.25}});
            actualizar(QStringLiteral("COSTES"), {{QStringLiteral("DESCRIPCION"), QStringLiteral("Vivienda")}}, QStringLiteral("CODIGO = ?"),
                       {QStringLiteral("B2")});
            t.confirmar();
        }
        // Nombres sin distinguir mayúsculas, también entre comillas; campos leídos por su nombre.
        Consulta c(QStringLiteral("SELECT \"codigo\", \"Descripcion\", CT FROM \"COSTES\" WHERE \"CODIGO\" = ?"), {QStringLiteral("B2")});
        QVERIFY(c.siguiente());
        QCOMPARE(c.texto(QStringLiteral("DESCRIPCION")), QStringLiteral("Vivienda"));
        QCOMPARE(c.valor(QStringLiteral("ct")).toDouble(), 1.25);
        QCOMPARE(c.texto(QStringLiteral("Codigo")), QStringLiteral("B2"));
        QCOMPARE(siguienteClave(QStringLiteral("Clientes"), QStringLiteral("Codigo_Cli")), 1);
    }

    void clavesDeDosPuestosALaVez_data() { ServidorPrueba::filasDeMotor(); }
    void clavesDeDosPuestosALaVez()
    {
        MOTOR_DE_LA_FILA(e, s);
        const int cuantos = 40;
        QProcess uno, dos;
        for (QProcess* p : {&uno, &dos})
            p->start(QCoreApplication::applicationFilePath(),
                     {QString::fromLatin1(ARGUMENTO_PUESTO), e.directorio(), QString::number(cuantos)});
        QStringList lineas;
        for (QProcess* p : {&uno, &dos}) {
            QVERIFY(p->waitForFinished(120000));
            lineas << QString::fromUtf8(p->readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        }
        QCOMPARE(lineas.filter(QRegularExpression(QStringLiteral("^no "))), QStringList());
        QSet<QString> claves;
        for (const QString& l : lineas)
            claves.insert(l.mid(3));
        QCOMPARE(claves.size(), 2 * cuantos);
        UsoConexion uso;
        QCOMPARE(escalar(QStringLiteral("SELECT count(*) FROM Clientes")).toInt(), 2 * cuantos);
        QCOMPARE(escalar(QStringLiteral("SELECT MAX(Codigo_Cli) FROM Clientes")).toInt(), 2 * cuantos);
    }

    void claveNuevaDelContador_data() { ServidorPrueba::filasDeMotor(); }
    void claveNuevaDelContador()
    {
        MOTOR_DE_LA_FILA(e, s);
        UsoConexion uso;
        Transaccion t;
        const Campos proyecto{{QStringLiteral("Trabajo"), QStringLiteral("Vivienda unifamiliar")}};
        const qint64 primera = insertarConContador(QStringLiteral("Proyectos_A"), proyecto, QStringLiteral("PryCod"));
        QCOMPARE(primera, 1);
        const qint64 segunda = insertarConContador(QStringLiteral("Proyectos_A"), proyecto, QStringLiteral("PRYCOD"));
        QCOMPARE(segunda, 2);
        QCOMPARE(ultimoIdentificador(), 2);
        // Los contadores no reutilizan la clave de la última fila borrada.
        ejecutar(QStringLiteral("DELETE FROM Proyectos_A WHERE PryCod = ?"), {segunda});
        QCOMPARE(insertarConContador(QStringLiteral("Proyectos_A"), proyecto, QStringLiteral("PryCod")), 3);
        // Cada contador lleva su serie.
        QCOMPARE(insertarConContador(QStringLiteral("datosA1B2"), {{QStringLiteral("PRYCOD"), 3}}, QStringLiteral("Clave")), 1);
        t.confirmar();
    }

    void ordenYBusquedasEnEspanol_data() { ServidorPrueba::filasDeMotor(); }
    void ordenYBusquedasEnEspanol()
    {
        MOTOR_DE_LA_FILA(e, s);
        UsoConexion uso;
        const QStringList nombres{QStringLiteral("Nuñez"), QStringLiteral("murcia"), QStringLiteral("Benítez"), QStringLiteral("Nuno"),
                                  QStringLiteral("Muñoz"), QStringLiteral("Álvarez"), QStringLiteral("álvarez"), QStringLiteral("Zapata"),
                                  QStringLiteral("alvarez"), QStringLiteral("12"), QStringLiteral("Ñandú"), QStringLiteral("JOSÉ MARÍA"),
                                  QStringLiteral("O'Brien"), QStringLiteral("María"), QStringLiteral("Murcia")};
        {
            Transaccion t;
            for (const QString& n : nombres)
                insertar(QStringLiteral("Clientes"), {{QStringLiteral("Codigo_Cli"), siguienteClave(QStringLiteral("Clientes"), QStringLiteral("Codigo_Cli"))},
                                                      {QStringLiteral("Nombre_Cli"), n}});
            t.confirmar();
        }
        QCOMPARE(columna(QStringLiteral("SELECT Nombre_Cli FROM Clientes ORDER BY Nombre_Cli COLLATE ES")),
                 (QStringList{QStringLiteral("12"), QStringLiteral("alvarez"), QStringLiteral("álvarez"), QStringLiteral("Álvarez"),
                              QStringLiteral("Benítez"), QStringLiteral("JOSÉ MARÍA"), QStringLiteral("María"), QStringLiteral("Muñoz"),
                              QStringLiteral("murcia"), QStringLiteral("Murcia"), QStringLiteral("Nuno"), QStringLiteral("Nuñez"),
                              QStringLiteral("Ñandú"), QStringLiteral("O'Brien"), QStringLiteral("Zapata")}));
        // Búsquedas: sin mayúsculas ni acentos, con la "ñ" plegada en "n".
        const QList<QPair<QString, QStringList>> busquedas{
            {QStringLiteral("%jose%"), {QStringLiteral("JOSÉ MARÍA")}},
            {QStringLiteral("%nunez%"), {QStringLiteral("Nuñez")}},
            {QStringLiteral("%NUÑEZ%"), {QStringLiteral("Nuñez")}},
            {QStringLiteral("munoz%"), {QStringLiteral("Muñoz")}},
            {QStringLiteral("_ar%"), {QStringLiteral("María")}},
            {QStringLiteral("%o'b%"), {QStringLiteral("O'Brien")}},
            {QStringLiteral("ALVAREZ"), {QStringLiteral("alvarez"), QStringLiteral("álvarez"), QStringLiteral("Álvarez")}},
            {QStringLiteral("%xyz%"), {}},
        };
        for (const auto& [patron, esperado] : busquedas)
            QCOMPARE(columna(QStringLiteral("SELECT Nombre_Cli FROM Clientes WHERE Nombre_Cli LIKE ? ORDER BY Nombre_Cli COLLATE ES"), {patron}),
                     esperado);
        QCOMPARE(escalar(QStringLiteral("SELECT count(*) FROM Clientes WHERE Nombre_Cli NOT LIKE ?"), {QStringLiteral("%u%")}).toInt(), 9);
        QCOMPARE(columna(QStringLiteral("SELECT UCASE(Nombre_Cli) FROM Clientes WHERE UPPER(Nombre_Cli) = ?"), {QStringLiteral("ÑANDÚ")}),
                 QStringList{QStringLiteral("ÑANDÚ")});
    }

    // Las filas de enlace se leen en el orden en que llegaron, también tras cambiar una; la fila
    // se señala por su rowid; y una sentencia sin lista de columnas no ve el rowid del servidor.
    void ordenDeLlegada_data() { ServidorPrueba::filasDeMotor(); }
    void ordenDeLlegada()
    {
        MOTOR_DE_LA_FILA(e, s);
        UsoConexion uso;
        for (const int arquitecto : {30, 10, 20})
            ejecutar(QStringLiteral("INSERT INTO Autores_Proyecto VALUES (?, ?)"), {7, arquitecto});
        ejecutar(QStringLiteral("UPDATE Autores_Proyecto SET PryCod = 7 WHERE Codigo_Arq = 30"));
        const QString enOrden = QStringLiteral("SELECT Codigo_Arq FROM Autores_Proyecto WHERE PryCod = ? ORDER BY rowid");
        QCOMPARE(columna(enOrden, {7}), (QStringList{QStringLiteral("30"), QStringLiteral("10"), QStringLiteral("20")}));
        const QVariant segunda = escalar(QStringLiteral("SELECT rowid FROM Autores_Proyecto ORDER BY rowid LIMIT 1 OFFSET 1"));
        ejecutar(QStringLiteral("UPDATE Autores_Proyecto SET Codigo_Arq = 11 WHERE rowid = ?"), {segunda});
        QCOMPARE(columna(enOrden, {7}), (QStringList{QStringLiteral("30"), QStringLiteral("11"), QStringLiteral("20")}));
        Consulta todo(QStringLiteral("SELECT * FROM Autores_Proyecto ORDER BY rowid"));
        QVERIFY(todo.siguiente());
        QCOMPARE((QVariantList{todo.valor(0).toInt(), todo.valor(1).toInt()}), (QVariantList{7, 30}));
        // Una consulta dentro del recorrido de otra (el arquitecto de cada fila de enlace) no le
        // quita filas a la de fuera.
        QStringList vistos;
        for (Consulta fuera(enOrden, {7}); fuera.siguiente();)
            vistos << fuera.valor(0).toString() + QLatin1Char('/') + escalar(QStringLiteral("SELECT count(*) FROM Autores_Proyecto")).toString();
        QCOMPARE(vistos, (QStringList{QStringLiteral("30/3"), QStringLiteral("11/3"), QStringLiteral("20/3")}));
    }

    // Un motor mal escrito o un servidor que no se alcanza: mensaje en español, una entrada en el
    // registro y nada más.
    void motorQueNoSeAbre_data()
    {
        QTest::addColumn<QString>("bd");
        QTest::addColumn<QString>("mensaje");
        QTest::newRow("motor desconocido") << QStringLiteral("motor=oracle\r\n")
                                          << QStringLiteral("El motor de base de datos de inicio.ini (motor=oracle) no se conoce.");
        QTest::newRow("servidor que no está") << QStringLiteral("motor=postgresql\r\nservidor=/nonexistent/planorum\r\nbase=estudio\r\nusuario=ana\r\n")
                                             << QStringLiteral("No se puede conectar con el servidor de la base de datos (ana@/nonexistent/planorum/estudio).");
        QTest::newRow("servicio que no está") << QStringLiteral("motor=PostgreSQL\r\nservicio=planorum_no_esta\r\n")
                                             << QStringLiteral("No se encuentra el servicio de la base de datos (servicio planorum_no_esta).");
    }
    void motorQueNoSeAbre()
    {
        QFETCH(QString, bd);
        QFETCH(QString, mensaje);
        EntornoPrueba e;
        e.escribirIni(QStringLiteral("[BD]\r\nruta=%1\r\n%2[Opciones]\r\ninicio=1\r\n").arg(e.carpetaDatos(), bd));
        e.conectar();
        QVERIFY(!guardia(QStringLiteral("frmInicio"), QStringLiteral("Form_Load"), [] { UsoConexion uso; }));
        QCOMPARE(e.cuadros.size(), 1);
        QVERIFY2(e.cuadros[0].texto.contains(QStringLiteral("Descripción: ") + mensaje), qPrintable(e.cuadros[0].texto));
        QCOMPARE(e.entradasLog(), 1);
        QVERIFY(!BaseDatos::estaAbierta());
    }

    // El esquema que se entrega para psql se carga tal cual, con ON_ERROR_STOP, en una base nueva
    // de un rol sin privilegios de administrador (el dueño de la base, como lo monta un estudio), y
    // ese rol trabaja luego con el programa: orden, búsquedas y contadores en español.
    void esquemaParaPsqlConUnRolCorriente()
    {
        const QString sinServidor = ServidorPrueba::motivoSinServidor();
        if (!sinServidor.isEmpty())
            QSKIP(qPrintable(sinServidor));
        const QString servidor = qEnvironmentVariable("PLANORUM_PG_SERVIDOR"), puerto = qEnvironmentVariable("PLANORUM_PG_PUERTO");
        const QString sufijo = QString::number(QCoreApplication::applicationPid());
        const QString rol = QStringLiteral("estudio_") + sufijo, base = QStringLiteral("estudio_") + sufijo;
        const auto psql = [&](const QString& usuario, const QString& enBase, const QStringList& argumentos, const QByteArray& entrada = {}) {
            QProcess p;
            p.start(QStringLiteral("psql"), QStringList{QStringLiteral("-X"), QStringLiteral("-q"), QStringLiteral("-v"), QStringLiteral("ON_ERROR_STOP=1"),
                                                        QStringLiteral("-h"), servidor, QStringLiteral("-p"), puerto, QStringLiteral("-U"), usuario,
                                                        QStringLiteral("-d"), enBase}
                                                << argumentos);
            p.write(entrada);
            p.closeWriteChannel();
            p.waitForFinished(-1);
            return p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0 ? QString() : QString::fromUtf8(p.readAllStandardError());
        };
        const QString admin = qEnvironmentVariable("PLANORUM_PG_USUARIO"), adminBase = qEnvironmentVariable("PLANORUM_PG_BASE");
        QCOMPARE(psql(admin, adminBase, {QStringLiteral("-c"), QStringLiteral("CREATE ROLE %1 LOGIN").arg(rol),
                                         QStringLiteral("-c"), QStringLiteral("CREATE DATABASE %1 OWNER %2 ENCODING 'UTF8' TEMPLATE template0").arg(base, rol)}),
                 QString());
        struct Borrar {
            std::function<void()> f;
            ~Borrar() { f(); }
        } borrar{[&] {
            BaseDatos::cerrar();
            psql(admin, adminBase, {QStringLiteral("-c"), QStringLiteral("DROP DATABASE IF EXISTS %1 WITH (FORCE)").arg(base),
                                    QStringLiteral("-c"), QStringLiteral("DROP ROLE IF EXISTS %1").arg(rol)});
        }};
        QCOMPARE(psql(rol, base, {QStringLiteral("-f"), QStringLiteral("-")}, EsquemaServidor::sql().toUtf8()), QString());

        EntornoPrueba e;
        e.escribirIni(QStringLiteral("[BD]\r\nmotor=postgresql\r\nservidor=%1\r\npuerto=%2\r\nbase=%3\r\nusuario=%4\r\n")
                          .arg(servidor, puerto, base, rol));
        e.conectar();
        UsoConexion uso;
        QCOMPARE(escalar(QStringLiteral("SELECT count(*) FROM PROVINCIAS")).toInt() > 50, true);
        const qint64 uno = insertarConContador(QStringLiteral("Proyectos_A"), {{QStringLiteral("Trabajo"), QStringLiteral("Vivienda en Begoña")}},
                                               QStringLiteral("PryCod"));
        const qint64 dos = insertarConContador(QStringLiteral("Proyectos_A"), {{QStringLiteral("Trabajo"), QStringLiteral("Nave en Soria")}},
                                               QStringLiteral("PryCod"));
        QCOMPARE(dos, uno + 1);
        QCOMPARE(columna(QStringLiteral("SELECT Trabajo FROM Proyectos_A WHERE Trabajo LIKE ? ORDER BY Trabajo COLLATE ES"), {QStringLiteral("%BEGONA%")}),
                 QStringList{QStringLiteral("Vivienda en Begoña")});
    }

    // Lo que ven las pantallas del servidor elegido: sólo lo que dice inicio.ini, y el servicio
    // de libpq en vez de servidor y base.
    void servidorComoLoVeElUsuario_data()
    {
        QTest::addColumn<QString>("bd");
        QTest::addColumn<QString>("texto");
        QTest::newRow("completo") << QStringLiteral("servidor=oficina\r\npuerto=5433\r\nbase=estudio\r\nusuario=ana\r\n")
                                  << QStringLiteral("Servidor PostgreSQL: base estudio en oficina:5433 (usuario ana)");
        QTest::newRow("sin servidor ni puerto") << QStringLiteral("base=estudio\r\n")
                                                << QStringLiteral("Servidor PostgreSQL: base estudio en localhost");
        QTest::newRow("sin base") << QStringLiteral("servidor= 10.0.0.5 \r\nusuario=ana\r\n")
                                  << QStringLiteral("Servidor PostgreSQL: en 10.0.0.5 (usuario ana)");
        QTest::newRow("servicio") << QStringLiteral("servicio=planorum\r\nservidor=oficina\r\nbase=estudio\r\n")
                                  << QStringLiteral("Servidor PostgreSQL: servicio planorum");
    }
    void servidorComoLoVeElUsuario()
    {
        QFETCH(QString, bd);
        QFETCH(QString, texto);
        EntornoPrueba e;
        e.escribirIni(QStringLiteral("[BD]\r\nmotor=postgresql\r\n") + bd);
        BaseDatos::construirCadenaConexion();
        QCOMPARE(BaseDatos::motorElegido(), BaseDatos::Motor::PostgreSQL);
        QCOMPARE(BaseDatos::servidorElegido().textoVisible(), texto);
    }

    void sinMotorEsElFichero()
    {
        EntornoPrueba e;
        e.conectar();
        QCOMPARE(BaseDatos::motorElegido(), BaseDatos::Motor::SQLite);
        QCOMPARE(cadenaConexion, e.ficheroBD());
        e.escribirIni(QStringLiteral("[bd]\r\nruta=%1\r\nMOTOR=SQLite\r\n").arg(e.carpetaDatos()));
        e.conectar();
        QCOMPARE(BaseDatos::motorElegido(), BaseDatos::Motor::SQLite);
        UsoConexion uso;
        QCOMPARE(escalar(QStringLiteral("SELECT count(*) FROM PROVINCIAS")).toInt() > 50, true);
    }
};

int main(int argc, char* argv[])
{
    if (argc == 4 && qstrcmp(argv[1], ARGUMENTO_PUESTO) == 0) {
        QCoreApplication app(argc, argv);
        return puesto(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]).toInt());
    }
    QCoreApplication app(argc, argv);
    tst_servidor prueba;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&prueba, argc, argv);
}

#include "tst_servidor.moc"
