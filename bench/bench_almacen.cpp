// Dos puestos sobre una misma base de datos: guardados perdidos mientras otro puesto compacta o
// restaura, y compactación, copia y restauración matadas en un momento al azar.
// Se compila aparte (ninja bench_almacen) y se ejecuta a mano:
//   bench_almacen [--guardados N] [--rondas R] [--filas F] [--arranques A] [--semilla S] [--sin-antigua]
// "--sin-antigua" se salta la medida de la compactación de antes (copia del fichero y renombrado).
// "--arranques" es el número de veces que dos instalaciones arrancan a la vez sobre la misma base.
// Como root prueba además el disco lleno de verdad en un tmpfs pequeño.
#include "app/Aplicacion.h"
#include "app/frmInicio.h"
#include "core/Almacen.h"
#include "core/BaseDatos.h"
#include "core/Guardia.h"
#include "core/Mensajes.h"
#include "core/Rutas.h"
#include "tests/comun/ProcesosAlmacen.h"

#include <QApplication>
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
    escribir(QStringLiteral("%1 (%13 MB): %2 rondas (duración sin matar %3 ms), %4 matados a medias; íntegras %5; contenido viejo %6, nuevo %7; "
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
                 .arg(m.problemas.size())
                 .arg(double(m.bytes) / 1e6, 0, 'f', 1));
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

// Un arranque de verdad (frmInicio con su compactación) en la instalación dada; los cuadros que
// habría visto el usuario salen por la salida estándar.
const char* const ARRANQUE = "--arranque-instalacion";

int arrancarInstalacion(int argc, char* argv[])
{
    QApplication app(argc, argv);
    Aplicacion::prepararEntorno();
    Rutas::establecerDirectorioPrograma(QString::fromLocal8Bit(argv[2]));
    Mensajes::instalarContestador([](const Mensajes::Cuadro& c) {
        escribir(QStringLiteral("caja ") + QString(c.texto).replace(QLatin1Char('\n'), QStringLiteral(" / ")));
        return c.porDefecto;
    });
    auto* inicio = new frmInicio;
    inicio->Form_Load();
    if (inicio->temporizadorActivo())
        inicio->tmr_1_Timer();
    escribir(QStringLiteral("fin"));
    return 0;
}

// Dos instalaciones (dos carpetas del programa) sobre una misma base de datos arrancan a la vez.
void arranquesALaVez(const QString& ejecutable, int veces, int filas, quint32 semilla)
{
    QTemporaryDir dir;
    const QString datos = dir.filePath(QStringLiteral("compartida")) + QDir::separator();
    QDir().mkpath(datos);
    const QString vivo = datos + BaseDatos::NOMBRE_FICHERO;
    prepararBase(vivo, filas, 1, semilla);
    {
        sqlite3* h = nullptr;
        sqlite3_open(vivo.toUtf8().constData(), &h);
        sqlite3_exec(h, "INSERT INTO Config (IVA, IRPF) VALUES (16, 15)", nullptr, nullptr, nullptr);
        sqlite3_close(h);
    }
    const Huella antes = huella(vivo);
    QStringList instalaciones;
    for (const char* nombre : {"ana", "luis"}) {
        const QString d = dir.filePath(QString::fromLatin1(nombre));
        QDir().mkpath(d + QStringLiteral("/Logs"));
        QFile ini(d + QStringLiteral("/inicio.ini"));
        ini.open(QIODevice::WriteOnly);
        ini.write(QStringLiteral("[BD]\r\nruta=%1\r\n[Opciones]\r\ninicio=1\r\ncopia=0\r\n").arg(datos).toUtf8());
        instalaciones << d;
    }
    int cajas = 0, silenciosas = 0, restos = 0, malas = 0;
    QStringList textos;
    for (int vez = 0; vez < veces; ++vez) {
        QProcess a, b;
        a.start(ejecutable, {QString::fromLatin1(ARRANQUE), instalaciones[0]});
        b.start(ejecutable, {QString::fromLatin1(ARRANQUE), instalaciones[1]});
        a.waitForFinished(60000);
        b.waitForFinished(60000);
        for (QProcess* p : {&a, &b})
            for (const QString& l : QString::fromUtf8(p->readAllStandardOutput()).split(QLatin1Char('\n')))
                if (l.startsWith(QStringLiteral("caja "))) {
                    ++cajas;
                    textos << l.mid(5);
                }
        if (ficheros(datos) != QStringList{BaseDatos::NOMBRE_FICHERO})
            ++restos;
        if (integridad(vivo) != QLatin1String("ok") || !(huella(vivo) == antes))
            ++malas;
    }
    for (const QString& d : instalaciones) {
        QFile log(d + QStringLiteral("/Logs/Log.txt"));
        if (log.open(QIODevice::ReadOnly))
            silenciosas += QString::fromUtf8(log.readAll()).count(QStringLiteral("abierta por otro usuario"));
    }
    textos.removeDuplicates();
    escribir(QStringLiteral("dos arranques a la vez, %1 veces: %2 cuadros de error, %3 compactaciones saltadas en silencio por estar "
                            "la base en uso, %4 veces con ficheros de más en la carpeta, %5 veces con la base dañada o cambiada")
                 .arg(veces)
                 .arg(cajas)
                 .arg(silenciosas)
                 .arg(restos)
                 .arg(malas));
    for (const QString& t : textos)
        escribir(QStringLiteral("    cuadro: ") + t.left(300));
}

}  // namespace

int main(int argc, char* argv[])
{
    if (esPuesto(argc, argv))
        return ejecutarPuesto(argc, argv);
    if (argc > 2 && qstrcmp(argv[1], ARRANQUE) == 0)
        return arrancarInstalacion(argc, argv);
    QCoreApplication app(argc, argv);
    const QStringList a = app.arguments();
    auto opcion = [&](const char* nombre, int defecto) {
        const int i = a.indexOf(QString::fromLatin1(nombre));
        return i > 0 && i + 1 < a.size() ? a[i + 1].toInt() : defecto;
    };
    const int guardados = opcion("--guardados", 300);
    const int rondas = opcion("--rondas", 30);
    const int filas = opcion("--filas", 120000);
    const int arranques = opcion("--arranques", 20);
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

    escribir(QStringLiteral("== Dos instalaciones arrancan a la vez (base de %1 clientes) ==").arg(filas));
    arranquesALaVez(yo, arranques, filas, semilla);

    escribir(QStringLiteral("== Disco lleno =="));
    discoLleno(yo);
    return 0;
}
