// Dos puestos sobre una misma base de datos: guardados perdidos mientras otro puesto compacta o
// restaura, y compactación, copia y restauración matadas en un momento al azar.
// Se compila aparte (ninja bench_almacen) y se ejecuta a mano:
//   bench_almacen [--guardados N] [--rondas R] [--filas F] [--semilla S] [--sin-antigua]
// "--sin-antigua" se salta la medida de la compactación de antes (copia del fichero y renombrado).
// Como root prueba además el disco lleno de verdad en un tmpfs pequeño.
#include "core/Almacen.h"
#include "core/BaseDatos.h"
#include "core/Guardia.h"
#include "tests/comun/ProcesosAlmacen.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdio>
#include <sqlite3.h>
#include <unistd.h>

using namespace ProcesosAlmacen;

namespace {

void escribir(const QString& t) { std::printf("%s\n", t.toUtf8().constData()); std::fflush(stdout); }

// La compactación de antes, para medir lo que perdía: cerrojo del motor, copia del fichero vivo
// con un descriptor propio (cuyo cierre suelta los cerrojos del proceso), VACUUM INTO de la copia
// y renombrado sobre el fichero vivo.
bool compactarPorCopia(const QString& carpeta)
{
    const QString vivo = carpeta + BaseDatos::NOMBRE_FICHERO;
    const QString copia = carpeta + QStringLiteral("PlanorumMirvade_COPY.mdb");
    const QString temporal = carpeta + QStringLiteral("PlanorumMirvade_TMP.mdb");
    sqlite3* cerrojo = nullptr;
    sqlite3_open_v2(vivo.toUtf8().constData(), &cerrojo, SQLITE_OPEN_READWRITE, nullptr);
    sqlite3_busy_timeout(cerrojo, 0);
    if (sqlite3_exec(cerrojo, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) != SQLITE_OK) {
        sqlite3_close(cerrojo);
        return false;
    }
    QFile::remove(copia);
    QFile::remove(temporal);
    QFile::copy(vivo, copia);
    sqlite3* c = nullptr;
    sqlite3_open_v2(copia.toUtf8().constData(), &c, SQLITE_OPEN_READWRITE, nullptr);
    sqlite3_exec(c, QStringLiteral("VACUUM INTO '%1'").arg(temporal).toUtf8().constData(), nullptr, nullptr, nullptr);
    sqlite3_close(c);
    std::rename(temporal.toUtf8().constData(), vivo.toUtf8().constData());
    QFile::remove(copia);
    sqlite3_exec(cerrojo, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(cerrojo);
    return true;
}

bool enUso(const std::function<void()>& f)
{
    try {
        f();
        return true;
    } catch (const ErrorPrograma& e) {
        if (e.numero == ERROR_BD_EN_USO)
            return false;
        throw;
    }
}

void informeGuardados(const QString& titulo, const Guardados& g)
{
    escribir(QStringLiteral("%1: %2 perdidos de %3 confirmados; %4 rechazados por base en uso; %5 indebidos; %6 operaciones (%7 en uso)%8")
                 .arg(titulo)
                 .arg(g.perdidos)
                 .arg(g.confirmados)
                 .arg(g.rechazados)
                 .arg(g.indebidos)
                 .arg(g.operaciones)
                 .arg(g.ocupadas)
                 .arg(g.fallo.isEmpty() ? QString() : QStringLiteral(" FALLO: ") + g.fallo));
    QStringList distintos = g.textosRechazo;
    distintos.removeDuplicates();
    for (const QString& t : distintos)
        escribir(QStringLiteral("    texto del rechazo: ") + QString(t).replace(QLatin1Char('\n'), QStringLiteral(" / ")));
}

void informeMuertes(const QString& titulo, const Muertes& m)
{
    escribir(QStringLiteral("%1: %2 rondas (duración sin matar %3 ms), %4 matados a medias; íntegras %5; contenido viejo %6, nuevo %7; "
                            ".mee completos %8, parciales que quedan %9; cambios a medias deshechos %10, diarios vacíos %11; problemas %12")
                 .arg(titulo)
                 .arg(m.rondas)
                 .arg(m.duracionMs)
                 .arg(m.muertos)
                 .arg(m.integras)
                 .arg(m.contenidoViejo)
                 .arg(m.contenidoNuevo)
                 .arg(m.copiasCompletas)
                 .arg(m.restosParciales)
                 .arg(m.diariosPorDeshacer)
                 .arg(m.diariosVacios)
                 .arg(m.problemas.size()));
    for (const QString& p : m.problemas)
        escribir(QStringLiteral("    ") + p);
}

// Disco lleno de verdad: un tmpfs más pequeño de lo que necesita la operación.
void discoLleno(const QString& ejecutable)
{
    if (geteuid() != 0) {
        escribir(QStringLiteral("disco lleno: se salta (hace falta root para montar un tmpfs)"));
        return;
    }
    QTemporaryDir dir;
    const QString montaje = dir.filePath(QStringLiteral("lleno"));
    QDir().mkpath(montaje);
    for (const char* orden : {"compactar", "copiar", "restaurar"}) {
        if (QProcess::execute(QStringLiteral("mount"), {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"),
                                                        QStringLiteral("size=3m"), QStringLiteral("tmpfs"), montaje}) != 0) {
            escribir(QStringLiteral("disco lleno: no se puede montar el tmpfs"));
            return;
        }
        const QString datos = montaje + QStringLiteral("/");
        const QString vivo = datos + BaseDatos::NOMBRE_FICHERO;
        prepararBase(vivo, 9000, 1, 7);
        const QString nueva = dir.filePath(QStringLiteral("nueva.mee"));
        prepararBase(nueva, 20000, 2, 8);
        const Huella antes = huella(vivo);
        const QStringList ficherosAntes = ficheros(datos);
        QStringList args{QString::fromLatin1(ARGUMENTO), QString::fromLatin1(orden)};
        if (qstrcmp(orden, "compactar") == 0)
            args << datos;
        else if (qstrcmp(orden, "copiar") == 0)
            args << vivo << datos + QStringLiteral("copia.mee");
        else
            args << nueva << vivo;
        QProcess p;
        // Los temporales del motor van al mismo disco lleno.
        QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
        entorno.insert(QStringLiteral("SQLITE_TMPDIR"), montaje);
        p.setProcessEnvironment(entorno);
        p.start(ejecutable, args);
        p.waitForFinished(60000);
        const QString salida = QString::fromUtf8(p.readAllStandardOutput()).trimmed().replace(QLatin1Char('\n'), QStringLiteral(" | "));
        const bool intacta = integridad(vivo) == QLatin1String("ok") && huella(vivo) == antes;
        escribir(QStringLiteral("disco lleno, %1: %2; base intacta: %3; ficheros antes %4, después %5")
                     .arg(QString::fromLatin1(orden), salida, intacta ? QStringLiteral("sí") : QStringLiteral("NO"),
                          ficherosAntes.join(QLatin1Char(',')), ficheros(datos).join(QLatin1Char(','))));
        QProcess::execute(QStringLiteral("umount"), {montaje});
    }
}

}  // namespace

int main(int argc, char* argv[])
{
    if (esPuesto(argc, argv))
        return ejecutarPuesto(argc, argv);
    QCoreApplication app(argc, argv);
    const QStringList a = app.arguments();
    auto opcion = [&](const char* nombre, int defecto) {
        const int i = a.indexOf(QString::fromLatin1(nombre));
        return i > 0 && i + 1 < a.size() ? a[i + 1].toInt() : defecto;
    };
    const int guardados = opcion("--guardados", 300);
    const int rondas = opcion("--rondas", 30);
    const int filas = opcion("--filas", 120000);
    const quint32 semilla = quint32(opcion("--semilla", 2026));
    const QString yo = QCoreApplication::applicationFilePath();

    QTemporaryDir dir;
    const QString datos = dir.filePath(QStringLiteral("datos")) + QDir::separator();
    QDir().mkpath(datos);
    const QString vivo = datos + BaseDatos::NOMBRE_FICHERO;

    escribir(QStringLiteral("== Guardados de otro puesto mientras este compacta (%1 guardados, base de 20000 clientes) ==").arg(guardados));
    if (!a.contains(QStringLiteral("--sin-antigua"))) {
        prepararBase(vivo, 20000, 1, semilla);
        informeGuardados(QStringLiteral("compactación de antes (copia y renombrado)"),
                         guardarDurante(yo, vivo, guardados, [&] { return compactarPorCopia(datos); }));
    }
    prepararBase(vivo, 20000, 1, semilla);
    informeGuardados(QStringLiteral("compactación en su sitio"),
                     guardarDurante(yo, vivo, guardados, [&] { return enUso([&] { Almacen::compactar(datos); }); }));

    escribir(QStringLiteral("== Guardados de otro puesto mientras este restaura (%1 guardados) ==").arg(guardados));
    prepararBase(vivo, 20000, 1, semilla);
    const QString copia = dir.filePath(QStringLiteral("copia.mee"));
    prepararBase(copia, 15000, 1, semilla + 1);
    int generacion = 1;
    informeGuardados(QStringLiteral("restauración por el motor"), guardarDurante(yo, vivo, guardados, [&] {
                         fijarGeneracion(copia, ++generacion);
                         return enUso([&] { Almacen::restaurarBaseDatos(copia, vivo); });
                     }));

    escribir(QStringLiteral("== Procesos matados a medias (%1 rondas por operación, base de %2 clientes) ==").arg(rondas).arg(filas));
    QElapsedTimer reloj;
    reloj.start();
    informeMuertes(QStringLiteral("compactar"), matarDurante(yo, Operacion::Compactar, rondas, filas, semilla));
    informeMuertes(QStringLiteral("copiar"), matarDurante(yo, Operacion::Copiar, rondas, filas, semilla));
    informeMuertes(QStringLiteral("restaurar"), matarDurante(yo, Operacion::Restaurar, rondas, filas, semilla));
    escribir(QStringLiteral("(%1 s)").arg(reloj.elapsed() / 1000));

    escribir(QStringLiteral("== Disco lleno =="));
    discoLleno(yo);
    return 0;
}
