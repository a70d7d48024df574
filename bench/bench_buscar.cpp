// Medida de la lista de búsqueda: apertura de frmBuscar (de Form_Load a la lista pintada) y
// ordenación por columna con 1.000, 10.000 y 100.000 proyectos y clientes, frente a la orden
// sqlite3 volcando la misma consulta en el fichero y a psql volcando la de la lista en el servidor.
// Uso: bench_buscar [N ...]              medida con N filas (1.000, 10.000 y 100.000 si no se dice)
//      bench_buscar --llenar FICHERO N   llena una base de datos con N proyectos y N clientes
// El servidor se mide si hay uno de pruebas anunciado en PLANORUM_PG_SERVIDOR, _PUERTO, _USUARIO y
// _BASE (scripts/servidor-pruebas.sh arrancar CARPETA lo arranca); sin él, sólo el fichero.
#include "app/frmMenu.h"
#include "core/BaseDatos.h"
#include "core/Pantallas.h"
#include "search/AbrirBusqueda.h"
#include "search/TablasBusqueda.h"
#include "search/frmBuscar.h"
#include "tests/comun/EntornoPrueba.h"
#include "tests/comun/ServidorPrueba.h"

#include <QApplication>
#include <QDate>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSqlError>
#include <QSqlQuery>
#include <QTreeView>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <optional>
#include <random>

namespace {

const char* const NOMBRES[] = {"José", "María", "Antonio", "Carmen", "Manuel", "Ana", "Francisco", "Isabel", "Javier",
                               "Lucía", "Jesús", "Pilar", "Ángel", "Begoña", "Íñigo", "Rocío", "Álvaro", "Nuria",
                               "Ramón", "Teresa", "Nuño", "Mercedes", "Luis", "Elena", "Sergio", "Raquel"};
const char* const APELLIDOS[] = {"García", "Fernández", "González", "Rodríguez", "López", "Martínez", "Sánchez",
                                 "Pérez", "Gómez", "Martín", "Jiménez", "Ruiz", "Hernández", "Díaz", "Moreno",
                                 "Muñoz", "Álvarez", "Romero", "Alonso", "Gutiérrez", "Navarro", "Torres",
                                 "Domínguez", "Vázquez", "Ramos", "Gil", "Ramírez", "Serrano", "Blanco", "Núñez",
                                 "Ibáñez", "Peña", "Sáez", "Benítez", "Ortiz", "Castaño", "Cuesta", "Villanueva"};
struct Provincia {
    const char* nombre;
    const char* municipios[6];
};
const Provincia PROVINCIAS[] = {
    {"Ávila", {"Ávila", "Arévalo", "Piedrahíta", "El Barco de Ávila", "Las Navas del Marqués", "Cebreros"}},
    {"Burgos", {"Burgos", "Miranda de Ebro", "Aranda de Duero", "Briviesca", "Lerma", "Medina de Pomar"}},
    {"León", {"León", "Ponferrada", "San Andrés del Rabanedo", "Astorga", "La Bañeza", "Villablino"}},
    {"Palencia", {"Palencia", "Aguilar de Campoo", "Guardo", "Venta de Baños", "Dueñas", "Carrión de los Condes"}},
    {"Salamanca", {"Salamanca", "Béjar", "Ciudad Rodrigo", "Santa Marta de Tormes", "Peñaranda de Bracamonte", "Alba de Tormes"}},
    {"Segovia", {"Segovia", "Cuéllar", "San Ildefonso", "El Espinar", "Cantalejo", "Riaza"}},
    {"Soria", {"Soria", "Almazán", "El Burgo de Osma", "Ólvega", "San Leonardo de Yagüe", "Ágreda"}},
    {"Valladolid", {"Valladolid", "Medina del Campo", "Laguna de Duero", "Tordesillas", "Peñafiel", "Íscar"}},
    {"Zamora", {"Zamora", "Benavente", "Toro", "Puebla de Sanabria", "Fuentesaúco", "Villalpando"}},
};
const char* const TRABAJOS[] = {"Vivienda unifamiliar aislada", "Vivienda unifamiliar entre medianeras",
                                "Rehabilitación de edificio de viviendas", "Edificio de %1 viviendas y garajes",
                                "Nave industrial sin uso definido", "Ampliación de bodega", "Reforma de local comercial",
                                "Centro de día para mayores", "Adecuación de local para oficinas", "Demolición de edificio",
                                "Legalización de almacén agrícola", "Reforma interior de vivienda", "Piscina cubierta municipal",
                                "Restauración de la iglesia parroquial", "Urbanización de calle", "Consultorio médico local"};
const char* const VIAS[] = {"C/ Mayor", "C/ Real", "Avda. de la Constitución", "Pza. de España", "C/ San Antón",
                            "Ctra. de Madrid", "C/ Santa María", "Paseo del Espolón", "C/ de la Iglesia", "Polígono El Prado"};

const char LETRAS_NIF[] = "TRWAGMYFPDXBNJZSQVHLCKE";

QString u(const char* t) { return QString::fromUtf8(t); }

// Llena Proyectos_A y Clientes con n filas cada una, de aspecto real, en el fichero o en el servidor.
void llenar(QSqlDatabase db, int n)
{
    {
        std::mt19937 azar(20080201);
        auto de = [&azar](int hasta) { return static_cast<int>(azar() % static_cast<unsigned>(hasta)); };
        ejecutar(db, QStringLiteral("BEGIN"));
        QSqlQuery p(db);
        p.prepare(QStringLiteral("INSERT INTO Proyectos_A (EXPNUM, Trabajo, Emplazamiento, Municipio, Provincia, EXPFV, EXPFFO, "
                                 "CLINOM) VALUES (?,?,?,?,?,?,?,?)"));
        QSqlQuery c(db);
        c.prepare(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, \"dirección_cli\", Municipio_Cli, "
                                 "Provincia_Cli, cp, esR) VALUES (?,?,?,?,?,?,?,?,-1)"));
        const int nNombres = std::size(NOMBRES), nApellidos = std::size(APELLIDOS), nProv = std::size(PROVINCIAS);
        const int nTrabajos = std::size(TRABAJOS), nVias = std::size(VIAS);
        for (int i = 1; i <= n; ++i) {
            const Provincia& pr = PROVINCIAS[de(nProv)];
            const QString municipio = u(pr.municipios[de(6)]);
            const QDate visado = QDate(1998, 1, 1).addDays(de(11 * 365));
            const int anyo = visado.year();
            QString trabajo = u(TRABAJOS[de(nTrabajos)]);
            trabajo.replace(QStringLiteral("%1"), QString::number(4 + de(40)));
            if (de(3) == 0)
                trabajo += QStringLiteral(" en ") + municipio;
            const QString cliente = u(NOMBRES[de(nNombres)]) + QLatin1Char(' ') + u(APELLIDOS[de(nApellidos)]) + QLatin1Char(' ')
                                  + u(APELLIDOS[de(nApellidos)]);
            p.addBindValue(QStringLiteral("%1/%2").arg(anyo % 100, 2, 10, QLatin1Char('0')).arg(i % 10000, 4, 10, QLatin1Char('0')));
            p.addBindValue(trabajo);
            p.addBindValue(u(VIAS[de(nVias)]) + QStringLiteral(", %1").arg(1 + de(120)));
            p.addBindValue(municipio);
            p.addBindValue(u(pr.nombre));
            p.addBindValue(de(10) ? QVariant(visado.toString(Qt::ISODate)) : QVariant());
            p.addBindValue(de(3) ? QVariant() : QVariant(visado.addDays(200 + de(700)).toString(Qt::ISODate)));
            p.addBindValue(cliente);
            if (!p.exec())
                throw BaseDatos::errorDe(p.lastError(), db);

            const int dni = 1000000 + static_cast<int>(azar() % 89000000u);
            const Provincia& pc = PROVINCIAS[de(nProv)];
            c.addBindValue(i);
            c.addBindValue(u(NOMBRES[de(nNombres)]));
            c.addBindValue(u(APELLIDOS[de(nApellidos)]) + QLatin1Char(' ') + u(APELLIDOS[de(nApellidos)]));
            c.addBindValue(QStringLiteral("%1%2").arg(dni, 8, 10, QLatin1Char('0')).arg(QLatin1Char(LETRAS_NIF[dni % 23])));
            c.addBindValue(u(VIAS[de(nVias)]) + QStringLiteral(", %1, %2º").arg(1 + de(90)).arg(1 + de(6)));
            c.addBindValue(u(pc.municipios[de(6)]));
            c.addBindValue(u(pc.nombre));
            c.addBindValue(QStringLiteral("%1").arg(5000 + de(45000), 5, 10, QLatin1Char('0')));
            if (!c.exec())
                throw BaseDatos::errorDe(c.lastError(), db);
        }
        ejecutar(db, QStringLiteral("COMMIT"));
    }
    db.close();
    db = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("generador"));
}

void llenar(const QString& fichero, int n) { llenar(BaseDatos::abrirConexion(QStringLiteral("generador"), fichero), n); }

// Memoria del proceso en KB: "VmRSS" la actual, "VmHWM" la máxima.
long memoriaKB(const char* campo = "VmRSS:")
{
    QFile f(QStringLiteral("/proc/self/status"));
    f.open(QIODevice::ReadOnly);
    for (const QByteArray& l : f.readAll().split('\n'))
        if (l.startsWith(campo))
            return l.mid(static_cast<qsizetype>(qstrlen(campo))).trimmed().split(' ').first().toLong();
    return 0;
}

double mediana(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

// Tiempo de una orden volcando una consulta al dispositivo nulo: el suelo de la lista.
double volcado(const QString& orden, const QStringList& argumentos)
{
    std::vector<double> t;
    for (int i = 0; i < 3; ++i) {
        QElapsedTimer r;
        r.start();
        QProcess p;
        p.setStandardOutputFile(QProcess::nullDevice());
        p.start(orden, argumentos);
        p.waitForFinished(-1);
        if (p.exitCode() != 0)
            std::fprintf(stderr, "%s: %s\n", qPrintable(orden), p.readAllStandardError().constData());
        t.push_back(r.nsecsElapsed() / 1e6);
    }
    return mediana(t);
}

double volcadoSqlite3(const QString& fichero, const QString& sql) { return volcado(QStringLiteral("sqlite3"), {fichero, sql}); }

// En el servidor, la misma sentencia que lee la lista (con sus nombres en minúsculas, como los
// escribe Consulta y con el mismo search_path que fija cada conexión del programa).
double psql(const BaseDatos::DatosServidor& d, const QString& tabla)
{
    QString sql = TablasBusqueda::construirSentencia(*TablasBusqueda::descripcion(tabla, {}), 0, {}).sql;
    static const QRegularExpression nombre(QStringLiteral("\"[^\"]*\""));
    for (auto it = nombre.globalMatch(sql); it.hasNext();) {
        const auto m = it.next();
        sql.replace(m.capturedStart(), m.capturedLength(), m.captured().toLower());
    }
    return volcado(QStringLiteral("psql"), {QStringLiteral("-X"), QStringLiteral("-q"), QStringLiteral("-A"), QStringLiteral("-t"),
                                            QStringLiteral("-h"), d.servidor, QStringLiteral("-p"), d.puerto, QStringLiteral("-U"),
                                            d.usuario, QStringLiteral("-d"), d.base, QStringLiteral("-c"),
                                            QStringLiteral("SET search_path = public, pg_catalog"), QStringLiteral("-c"), sql});
}

struct Medida {
    double abrir, primerOrden, ordenar, suelo;
    double picoMB;
    size_t datosMB;
};

Medida medir(const QString& tabla, const std::function<double()>& suelo, int columnaOrden)
{
    std::vector<double> abrir, primerOrden, ordenar;
    size_t datos = 0;
    for (int vuelta = 0; vuelta < 3; ++vuelta) {
        Pantallas::descargar<frmBuscar>();
        QApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QElapsedTimer r;
        r.start();
        abrirBusqueda(tabla, {}, QStringLiteral("Lista"));
        frmBuscar* f = Pantallas::cargada<frmBuscar>();
        f->lista()->viewport()->grab();  // la lista pintada
        abrir.push_back(r.nsecsElapsed() / 1e6);
        // Primer clic en la columna (calcula sus claves) y los siguientes (cambian el sentido).
        for (int k = 0; k < 3; ++k) {
            r.restart();
            f->lvw_Resultados_ColumnClick(columnaOrden);
            f->lista()->viewport()->grab();
            (k == 0 ? primerOrden : ordenar).push_back(r.nsecsElapsed() / 1e6);
        }
        datos = f->modelo()->bytesOcupados();
    }
    Pantallas::descargar<frmBuscar>();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return {mediana(abrir), mediana(primerOrden), mediana(ordenar), suelo(), memoriaKB("VmHWM:") / 1024.0, datos / (1024 * 1024)};
}

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen") : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    if (argc == 4 && qstrcmp(argv[1], "--llenar") == 0) {
        llenar(QString::fromLocal8Bit(argv[2]), QByteArray(argv[3]).toInt());
        return 0;
    }

    const QString sueloProyectos = QStringLiteral(
        "SELECT PryCod, EXPNUM, TRABAJO, EMPLAZAMIENTO, MUNICIPIO, PROVINCIA, EXPFV, EXPFFO FROM Proyectos_A "
        "ORDER BY EXPNUM COLLATE NOCASE, TRABAJO COLLATE NOCASE, PRYCOD");
    const QString sueloClientes = QStringLiteral(
        "SELECT Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, \"Dirección_Cli\", Municipio_Cli, Provincia_Cli FROM Clientes "
        "ORDER BY Ape_Cli COLLATE NOCASE, Nombre_Cli COLLATE NOCASE, Codigo_Cli");

    std::vector<int> tamanos;
    for (int i = 1; i < argc; ++i)
        tamanos.push_back(QByteArray(argv[i]).toInt());
    if (tamanos.empty())
        tamanos = {1000, 10000, 100000};
    const QString sinServidor = ServidorPrueba::motivoSinServidor();
    if (!sinServidor.isEmpty())
        std::printf("Sólo el fichero: %s\n", qPrintable(sinServidor));

    std::printf("%-10s %-8s %-7s %9s %12s %12s %9s %7s %12s %9s\n", "lista", "motor", "filas", "abrir ms", "1er orden ms",
                "otro orden ms", "suelo ms", "razón", "pico RSS MB", "datos MB");
    for (int n : tamanos) {
        for (const bool enServidor : {false, true}) {
            if (enServidor && !sinServidor.isEmpty())
                continue;
            EntornoPrueba e;
            std::optional<ServidorPrueba> s;
            if (enServidor) {
                s.emplace().elegirEn(e);
                llenar(BaseDatos::abrirServidor(QStringLiteral("generador"), s->datos()), n);
            } else {
                e.conectar();
                llenar(e.ficheroBD(), n);
            }
            frmMenu* menu = frmMenu::instancia();
            menu->resize(1400, 900);
            menu->show();
            QApplication::processEvents();
            struct {
                const char* nombre;
                QString tabla, suelo;
                int columna;
            } listas[] = {{"proyectos", QStringLiteral("PROYECTOS_A"), sueloProyectos, 2},
                          {"clientes", QStringLiteral("CLIENTES"), sueloClientes, 1}};
            for (const auto& l : listas) {
                const auto suelo = [&] { return enServidor ? psql(s->datos(), l.tabla) : volcadoSqlite3(e.ficheroBD(), l.suelo); };
                const Medida m = medir(l.tabla, suelo, l.columna);
                std::printf("%-10s %-8s %-7d %9.1f %12.1f %12.1f %9.1f %7.2f %12.1f %9zu\n", l.nombre,
                            enServidor ? "servidor" : "fichero", n, m.abrir, m.primerOrden, m.ordenar, m.suelo, m.abrir / m.suelo,
                            m.picoMB, m.datosMB);
                std::fflush(stdout);
            }
            delete menu;
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
    std::printf("Memoria del proceso al terminar: %.1f MB (pico %.1f MB)\n", memoriaKB() / 1024.0, memoriaKB("VmHWM:") / 1024.0);
    return 0;
}
