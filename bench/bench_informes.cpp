// Medida de los informes: listado de 10.000 clientes, tiempo hasta la primera página de la
// vista previa y hasta escribir el PDF entero. Uso: bench_informes [carpeta para dejar los PDF]
#include "core/BaseDatos.h"
#include "reports/frmVisorCrystal.h"
#include "reports/VisorPaginas.h"
#include "reports/modInformes.h"
#include "tests/comun/EntornoPrueba.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QSqlQuery>
#include <cstdio>

namespace {

void asegurarColumnas(QSqlDatabase db, const QString& tabla, const QStringList& columnas)
{
    QSqlQuery q(db);
    q.exec(QStringLiteral("PRAGMA table_info(\"%1\")").arg(tabla));
    QStringList hay;
    while (q.next())
        hay << q.value(1).toString().toLower();
    if (hay.isEmpty()) {
        ejecutar(db, QStringLiteral("CREATE TABLE \"%1\" (\"%2\")").arg(tabla, columnas.join(QStringLiteral("\", \""))));
        return;
    }
    for (const QString& c : columnas)
        if (!hay.contains(c.toLower()))
            ejecutar(db, QStringLiteral("ALTER TABLE \"%1\" ADD COLUMN \"%2\"").arg(tabla, c));
}

const QStringList NOMBRES = {"José", "María", "Íñigo", "Begoña", "Álvaro", "Nuño", "Lucía", "Ramón", "Ángela", "Jesús"};
const QStringList APELLIDOS = {"Muñoz Sáez", "Benítez Ortiz", "Álvarez Gil", "Núñez Peña", "Martínez Ruiz", "Ibáñez López"};
const QStringList MUNICIPIOS = {"Logroño", "Haro", "Calahorra", "Santo Domingo de la Calzada", "Arnedo", "Nájera"};

void llenar(QSqlDatabase db, int clientes)
{
    asegurarColumnas(db, "Config", {"SocNom", "Arq1Nom"});
    asegurarColumnas(db, "Clientes", {"Codigo_Cli", "Nombre_Cli", "Ape_Cli", "NIF", "Dirección_Cli", "Municipio_Cli", "Provincia_Cli",
                                      "Tfno_Cli", "tf", "TelMovil", "Correo_Cli"});
    asegurarColumnas(db, "Proyectos_A", {"PryCod", "Trabajo", "Emplazamiento", "Municipio", "Provincia", "EXPNUM", "EXPFV", "EXPFFO", "CLINOM"});
    ejecutar(db, "DELETE FROM Config");
    ejecutar(db, "INSERT INTO Config (SocNom, Arq1Nom) VALUES (?, ?)", {"Estudio de Arquitectura Peña y Ibáñez, S.L.P.", "Ana Ruiz"});
    ejecutar(db, "BEGIN");
    for (int i = 1; i <= clientes; ++i) {
        const QString nombre = NOMBRES[i % NOMBRES.size()];
        ejecutar(db,
                 "INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, \"Dirección_Cli\", Municipio_Cli, Provincia_Cli, Tfno_Cli, tf, "
                 "TelMovil, Correo_Cli) VALUES (?,?,?,?,?,?,?,?,?,?,?)",
                 {i, nombre, i % 7 == 0 ? QVariant() : QVariant(APELLIDOS[i % APELLIDOS.size()]), QString::asprintf("%08dX", i * 37),
                  QStringLiteral("C/ San Antón, %1, %2º").arg(i % 90 + 1).arg(i % 5 + 1), MUNICIPIOS[i % MUNICIPIOS.size()],
                  QStringLiteral("La Rioja"), QString::asprintf("941%06d", i), i % 3 ? QVariant() : QVariant("941 22 33 44"),
                  i % 2 ? QVariant(QString::asprintf("6%08d", i)) : QVariant(),
                  i % 4 ? QVariant(nombre.toLower().replace("í", "i").replace("ñ", "n").replace("á", "a").replace("é", "e") +
                                   QString::number(i) + "@correo.es")
                        : QVariant()});
    }
    const QStringList trabajos = {"Vivienda unifamiliar aislada", "Rehabilitación de edificio de viviendas", "Nave industrial",
                                  "Ampliación de bodega", "Reforma de local comercial", "Centro de día para mayores"};
    for (int i = 1; i <= 45; ++i)
        ejecutar(db, "INSERT INTO Proyectos_A (PryCod, Trabajo, Emplazamiento, Municipio, Provincia, EXPNUM, EXPFV, EXPFFO, CLINOM) "
                     "VALUES (?,?,?,?,?,?,?,?,?)",
                 {i, trabajos[i % trabajos.size()] + QStringLiteral(" nº %1").arg(i), QStringLiteral("Avda. de la Paz, %1").arg(i * 3),
                  MUNICIPIOS[i % MUNICIPIOS.size()], "La Rioja", i % 5 ? QVariant(QString::number(20230000 + i)) : QVariant(),
                  i % 3 ? QVariant(QDate(2023, 1, 1).addDays(i * 7).toString(Qt::ISODate)) : QVariant(),
                  i % 4 ? QVariant() : QVariant(QDate(2024, 2, 1).addDays(i * 5).toString(Qt::ISODate)),
                  NOMBRES[i % NOMBRES.size()] + " " + APELLIDOS[i % APELLIDOS.size()]});
    ejecutar(db, "COMMIT");
}

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen") : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    modInformes::inicializarRecursos();
    const QString salida = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    EntornoPrueba env;
    env.conectar();
    {
        QSqlDatabase db = BaseDatos::abrirConexion("bench", env.ficheroBD());
        llenar(db, 10000);
        db.close();
    }
    QSqlDatabase::removeDatabase("bench");

    for (int vuelta = 0; vuelta < 3; ++vuelta) {
        QElapsedTimer t;
        t.start();
        Pantallas::descargar<frmVisorCrystal>();
        modInformes::nuevoInforme("crListadoClientes");
        modInformes::conectar();
        modInformes::iniciarInforme_ListadoClientes();
        const qint64 datos = t.elapsed();
        if (getenv("BENCH_COMPONER")) {
            QElapsedTimer c;
            c.start();
            const int n = modInformes::Informe->numeroPaginas();
            std::printf("composición de %d páginas: %lld ms\n", n, c.elapsed());
        }
        auto* v = frmVisorCrystal::mostrarInforme("Listado de clientes");
        v->resize(1000, 800);
        QApplication::processEvents();
        const qint64 primera = t.elapsed();
        const int paginas = v->numeroPaginas();
        std::printf("páginas dibujadas para enseñar la primera: %d\n", v->visor()->paginasDibujadas());
        if (!salida.isEmpty() && vuelta == 0)
            v->grab().save(salida + "/visor.png");

        t.restart();
        const QString pdf = (salida.isEmpty() ? env.directorio() : salida) + "/ListadoDeClientes_10000.pdf";
        modInformes::exportarPDF(pdf);
        const qint64 escritura = t.elapsed();
        std::printf("vuelta %d: %d páginas; filas leídas en %lld ms; primera página de la vista previa en %lld ms; "
                    "PDF entero en %lld ms (%lld KB)\n",
                    vuelta + 1, paginas, datos, primera, escritura, QFileInfo(pdf).size() / 1024);
    }
    Pantallas::descargar<frmVisorCrystal>();

    if (!salida.isEmpty()) {
        // Muestras para mirarlas: las primeras páginas de clientes y el listado de proyectos.
        modInformes::nuevoInforme("crListadoProyectos");
        modInformes::conectar();
        modInformes::iniciarInforme_ListadoProyectos();
        modInformes::exportarPDF(salida + "/ListadoDeProyectos.pdf");
        modInformes::cerrar();
    }
    return 0;
}
