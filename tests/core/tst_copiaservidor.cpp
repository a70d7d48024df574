// Copia de seguridad y restauración con el servidor PostgreSQL: el mismo ".mee" que con el
// fichero, en los dos sentidos, sin perder filas, orden, tipos ni contadores; y lo que no sirve
// no cambia nada.
#include "core/Almacen.h"
#include "core/CopiaServidor.h"
#include "tests/comun/ContenidoBase.h"
#include "tests/comun/EntornoPrueba.h"
#include "tests/comun/ProcesosAlmacen.h"
#include "tests/comun/ServidorPrueba.h"

#include <QProcess>
#include <QtTest>

#include <optional>

namespace {

const QString INI_FICHERO = QStringLiteral("[BD]\r\nruta=%1\r\n[Opciones]\r\ninicio=1\r\ncopia=0\r\n");

qint64 altaDeProyecto()
{
    UsoConexion uso;
    return insertarConContador(QStringLiteral("Proyectos_A"), {{QStringLiteral("Trabajo"), QStringLiteral("Reforma")}}, QStringLiteral("PryCod"));
}

QByteArray versionDe(const QString& fichero)
{
    QProcess p;
    p.start(QStringLiteral("sqlite3"), {fichero, QStringLiteral("PRAGMA user_version")});
    p.waitForFinished();
    return p.readAllStandardOutput().trimmed();
}

// Una base de datos del programa en `fichero` con filas de toda clase en todas sus tablas.
QString copiaLlena(const QTemporaryDir& dir, const QString& nombre)
{
    const QString f = dir.filePath(nombre);
    QFile::copy(QStringLiteral(PLANTILLA_BD), f);
    QFile::setPermissions(f, QFile::ReadOwner | QFile::WriteOwner);
    llenarTodasLasTablas(f);
    return f;
}

}  // namespace

class tst_copiaservidor : public QObject {
    Q_OBJECT

private slots:
    // Fichero -> .mee -> servidor -> .mee -> fichero: las mismas filas en todas las tablas, en su
    // orden y con sus tipos; y un alta tras cada restauración no repite ninguna clave que ya se
    // diera, aunque su fila se borrara.
    void idaYVuelta()
    {
        ServidorPrueba s;
        REQUIERE_SERVIDOR(s);
        EntornoPrueba e;
        QTemporaryDir dir;
        const QString original = copiaLlena(dir, QStringLiteral("original.mee"));
        const QStringList filas = contenidoBase(original);
        QVERIFY(filas.size() > 41 * 3);
        // Las filas de enlace, en el orden en que llegaron y no en el de sus valores.
        QCOMPARE(filas.filter(QStringLiteral("Autores_Proyecto: ")),
                 (QStringList{QStringLiteral("Autores_Proyecto: e:3000 | e:3001"), QStringLiteral("Autores_Proyecto: nulo | nulo"),
                              QStringLiteral("Autores_Proyecto: e:9007199254740993 | e:9007199254740994")}));
        s.elegirEn(e);
        CopiaServidor::restaurar(original);
        QCOMPARE(contenidoBaseViva(), filas);
        QCOMPARE(altaDeProyecto(), 5001);

        // Y de vuelta, con lo dado de alta en el servidor y un contador por delante de su mayor clave.
        {
            UsoConexion uso;
            ejecutar(QStringLiteral("DELETE FROM Proyectos_A WHERE PryCod = 5001"));
            ejecutar(QStringLiteral("INSERT INTO Autores_Proyecto VALUES (1, 2)"));
        }
        const QStringList enServidor = contenidoBaseViva();
        QCOMPARE(enServidor.size(), filas.size() + 1);
        const QString vuelta = dir.filePath(QStringLiteral("vuelta.mee"));
        CopiaServidor::copiar(vuelta);
        Almacen::comprobarBaseDatos(vuelta, Almacen::Uso::CopiaElegida);
        QCOMPARE(contenidoBase(vuelta), enServidor);
        QCOMPARE(ProcesosAlmacen::ficheros(dir.path()), (QStringList{QStringLiteral("original.mee"), QStringLiteral("vuelta.mee")}));
        // La versión del esquema, la de la base de datos que se entrega.
        QCOMPARE(versionDe(vuelta), versionDe(QStringLiteral(PLANTILLA_BD)));

        e.escribirIni(INI_FICHERO.arg(e.carpetaDatos()));
        e.conectar();
        Almacen::restaurarBaseDatos(vuelta, e.ficheroBD());
        QCOMPARE(contenidoBaseViva(), enServidor);
        QCOMPARE(altaDeProyecto(), 5002);
    }

    // Una copia del programa con datos que el servidor no admite (el fichero sí): el mensaje de
    // una copia que no sirve y el servidor como estaba, contadores incluidos (vaciar, llenar y
    // mover los contadores se deshacen juntos). Lo que no es una copia lo prueba tst_copia_servidor.
    void datosQueElServidorNoAdmite_data()
    {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<QString>("tabla");
        QTest::newRow("texto en un número") << QStringLiteral("UPDATE Clientes SET esR = 'no' WHERE Codigo_Cli = 2000") << QStringLiteral("Clientes");
        QTest::newRow("clave nula") << QStringLiteral("INSERT INTO Costes (CODIGO) VALUES (NULL)") << QStringLiteral("Costes");
    }
    void datosQueElServidorNoAdmite()
    {
        QFETCH(QString, sql);
        QFETCH(QString, tabla);
        ServidorPrueba s;
        REQUIERE_SERVIDOR(s);
        EntornoPrueba e;
        QTemporaryDir dir;
        const QString copia = copiaLlena(dir, QStringLiteral("mala.mee"));
        QCOMPARE(QProcess::execute(QStringLiteral("sqlite3"), {copia, sql}), 0);
        s.elegirEn(e);
        CopiaServidor::restaurar(copiaLlena(dir, QStringLiteral("buena.mee")));
        const QStringList antes = contenidoBaseViva();
        try {
            CopiaServidor::restaurar(copia);
            QFAIL("la copia no debía servir");
        } catch (const Almacen::FicheroNoValido& f) {
            QCOMPARE(f.descripcion, QStringLiteral("La copia de seguridad seleccionada tiene datos que el servidor no admite (tabla %1).\n"
                                                   "No se ha restaurado nada. Por favor, seleccione otra copia de seguridad")
                                        .arg(tabla));
        }
        QCOMPARE(contenidoBaseViva(), antes);
        QCOMPARE(altaDeProyecto(), 5001);
    }

    // La copia lee una sola instantánea y no detiene a nadie: otro puesto guarda y borra mientras
    // tanto, y la copia sale con lo que había al empezar.
    void copiaSinDetenerANadie()
    {
        ServidorPrueba s;
        REQUIERE_SERVIDOR(s);
        EntornoPrueba e;
        s.elegirEn(e);
        {
            UsoConexion uso;
            ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli) SELECT g, 'Cliente ' || g FROM generate_series(1, 30000) g"));
        }
        const QStringList antes = contenidoBaseViva();
        QTemporaryDir dir;
        const QString mee = dir.filePath(QStringLiteral("durante.mee"));
        int latidos = 0;
        QString otroPuesto = QStringLiteral("sin latido");
        CopiaServidor::copiar(mee, [&](int) {
            if (latidos++ > 0)
                return;
            try {
                QSqlDatabase db = BaseDatos::abrirOtraConexion(QStringLiteral("otro_puesto"), BaseDatos::Acceso::LecturaEscritura);
                ejecutar(db, QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli) VALUES (40000, 'Durante la copia')"));
                ejecutar(db, QStringLiteral("DELETE FROM Clientes WHERE Codigo_Cli IN (1, 30000)"));
                ejecutar(db, QStringLiteral("INSERT INTO Proyectos_A (Trabajo) VALUES ('Durante la copia')"));
                otroPuesto = QStringLiteral("guardado");
            } catch (const ErrorPrograma& err) {
                otroPuesto = err.descripcion;
            }
            QSqlDatabase::removeDatabase(QStringLiteral("otro_puesto"));
        });
        QCOMPARE(otroPuesto, QStringLiteral("guardado"));
        QCOMPARE(contenidoBase(mee), antes);
        QCOMPARE(contenidoBaseViva().size(), antes.size());  // uno más y dos menos en Clientes, un proyecto más
    }

    // Una copia se lleva los restos a medias de su destino que dejó un proceso matado, salvo si
    // otro puesto está escribiendo una copia (podrían ser suyos); los de otro destino se quedan.
    void copiaBorraRestosAbandonados()
    {
        ServidorPrueba s;
        REQUIERE_SERVIDOR(s);
        EntornoPrueba e;
        s.elegirEn(e);
        const QString destino = e.directorio() + QStringLiteral("/copia.mee");
        const QString suyo = destino + QStringLiteral(".parcial-1a2b3c4d"), ajeno = e.directorio() + QStringLiteral("/otra.mee.parcial-5e6f7a8b");
        for (const QString& f : {suyo, ajeno}) {
            QFile r(f);
            QVERIFY(r.open(QIODevice::WriteOnly) && r.write("a medias") > 0);
        }
        {
            QSqlDatabase otro = BaseDatos::abrirOtraConexion(QStringLiteral("otro_puesto"), BaseDatos::Acceso::LecturaEscritura);
            ejecutar(otro, QStringLiteral("BEGIN"));
            ejecutar(otro, QStringLiteral("SELECT pg_advisory_xact_lock(?)"), {CopiaServidor::CERROJO_COPIAS});
            CopiaServidor::copiar(destino);
            QVERIFY(QFile::exists(suyo));
            ejecutar(otro, QStringLiteral("ROLLBACK"));
        }
        QSqlDatabase::removeDatabase(QStringLiteral("otro_puesto"));
        CopiaServidor::copiar(destino);
        QVERIFY(!QFile::exists(suyo) && QFile::exists(ajeno));
        QCOMPARE(contenidoBase(destino), contenidoBaseViva());
    }
};

QTEST_GUILESS_MAIN(tst_copiaservidor)
#include "tst_copiaservidor.moc"
