// Medida: listado de 10.000 proyectos a hoja de cálculo (objetivo: menos de 1 s).
// Uso: bench_excel [carpeta]   con carpeta, deja allí el .xlsx y un .csv con los mismos datos.
#include "core/BaseDatos.h"
#include "core/Rutas.h"
#include "core/Sistema.h"
#include "reports/modExcel.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    constexpr int PROYECTOS = 10000;

    QTemporaryDir dir;
    const QString programa = dir.filePath(QStringLiteral("programa"));
    QDir().mkpath(programa + QStringLiteral("/Excel"));
    QDir().mkpath(programa + QStringLiteral("/Logs"));
    QDir().mkpath(dir.filePath(QStringLiteral("datos")));
    QFile::copy(QStringLiteral(DIRECTORIO_FUENTES "/resources/Excel/Plantilla_ListadoProyectos.xlsx"),
                programa + QStringLiteral("/Excel/Plantilla_ListadoProyectos.xlsx"));
    Rutas::establecerDirectorioPrograma(programa);
    QFile::copy(QStringLiteral(PLANTILLA_BD), dir.filePath(QStringLiteral("datos/Usuarios.qst")));
    QFile::setPermissions(dir.filePath(QStringLiteral("datos/Usuarios.qst")), QFile::ReadOwner | QFile::WriteOwner);
    rutaBD = dir.filePath(QStringLiteral("datos")) + u'/';
    BaseDatos::construirCadenaConexion();
    Sistema::instalarAbridor([](const QString&) { return 42; });

    const QString salida = argc > 1 ? QString::fromLocal8Bit(argv[1]) : dir.path();
    QFile csv(salida + QStringLiteral("/ListadoDeProyectos.csv"));
    if (argc > 1 && !csv.open(QIODevice::WriteOnly)) {
        std::fprintf(stderr, "no se puede escribir %s\n", qPrintable(csv.fileName()));
        return 1;
    }
    {
        Transaccion t;
        const QStringList municipios = {QStringLiteral("Logroño"), QStringLiteral("Haro"), QStringLiteral("Calahorra"),
                                        QStringLiteral("Nájera")};
        for (int i = 1; i <= PROYECTOS; ++i) {
            const QString expnum = QString::number(100000 + i);
            const QString trabajo = QStringLiteral("Reforma de vivienda unifamiliar nº %1, \"fase\" %2").arg(i).arg(i % 4 + 1);
            const QString emplazamiento = QStringLiteral("C/ Mayor, %1").arg(i % 300);
            const QString cliente = QStringLiteral("Cliente Muñoz Peña %1").arg(i % 977);
            const QDate fv = QDate(2015, 1, 1).addDays(i % 3000);
            const QVariant ffo = i % 3 ? QVariant(fv.addDays(400).toString(Qt::ISODate)) : QVariant();
            insertar(QStringLiteral("PROYECTOS_A"),
                     {{QStringLiteral("EXPNUM"), expnum}, {QStringLiteral("EXPREF"), QStringLiteral("R-%1").arg(i)},
                      {QStringLiteral("Trabajo"), trabajo}, {QStringLiteral("Emplazamiento"), emplazamiento},
                      {QStringLiteral("Municipio"), municipios[i % 4]}, {QStringLiteral("Provincia"), QStringLiteral("La Rioja")},
                      {QStringLiteral("CLINOM"), cliente}, {QStringLiteral("EXPFV"), fv.toString(Qt::ISODate)},
                      {QStringLiteral("EXPFFO"), ffo}});
            if (csv.isOpen()) {
                const QString f2 = ffo.isNull() ? QString() : QDate::fromString(ffo.toString(), Qt::ISODate).toString(QStringLiteral("dd/MM/yyyy"));
                QString t2 = trabajo;
                t2.replace(u'"', QStringLiteral("\"\""));
                csv.write(QStringLiteral("%1,R-%2,\"%3\",\"%4\",%5,La Rioja,%6,%7,%8\n")
                              .arg(expnum).arg(i).arg(t2, emplazamiento, municipios[i % 4], cliente,
                                                       fv.toString(QStringLiteral("dd/MM/yyyy")), f2)
                              .toUtf8());
            }
        }
        t.confirmar();
    }
    csv.close();
    BaseDatos::cerrar();

    const QString destino = salida + QStringLiteral("/ListadoDeProyectos.xlsx");
    double mejor = 1e9;
    int filas = 0;
    for (int vuelta = 0; vuelta < 5; ++vuelta) {
        QElapsedTimer reloj;
        reloj.start();
        if (!copiarFicheroExcel(QStringLiteral("Plantilla_ListadoProyectos.xlsx"), destino))
            return 1;
        filas = escribirExcel(destino, QStringLiteral("PROYECTOS_A"));
        const double ms = double(reloj.nsecsElapsed()) / 1e6;
        mejor = std::min(mejor, ms);
        std::printf("vuelta %d: %d filas en %.1f ms\n", vuelta + 1, filas, ms);
    }
    std::printf("escribirExcel, %d proyectos: mejor %.1f ms (%lld bytes)\n", filas, mejor,
                static_cast<long long>(QFileInfo(destino).size()));
    return filas == PROYECTOS ? 0 : 1;
}
