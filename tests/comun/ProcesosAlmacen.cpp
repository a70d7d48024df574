#include "tests/comun/ProcesosAlmacen.h"

#include "core/Almacen.h"
#include "core/BaseDatos.h"
#include "core/Guardia.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QProcess>
#include <QRandomGenerator>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QThread>
#include <QUuid>
#include <csignal>
#include <sqlite3.h>
#include <cstdio>
#include <sys/resource.h>

namespace ProcesosAlmacen {

namespace {

QString escapar(QString t) { return t.replace(QLatin1Char('\n'), QStringLiteral("\\n")); }

void decir(const QString& linea)
{
    std::fputs((linea + QLatin1Char('\n')).toUtf8().constData(), stdout);
    std::fflush(stdout);
}

// Conexión propia para preparar o leer una base de datos de prueba.
template <class Cuerpo>
void conBase(const QString& fichero, Cuerpo&& cuerpo)
{
    const QString nombre = QStringLiteral("prueba_") + QUuid::createUuid().toString(QUuid::Id128);
    {
        QSqlDatabase db = BaseDatos::abrirConexion(nombre, fichero);
        cuerpo(db);
        db.close();
    }
    QSqlDatabase::removeDatabase(nombre);
}

int escribir(const QString& fichero, int cuantos, qint64 primera)
{
    rutaBD = QFileInfo(fichero).absolutePath() + QDir::separator();
    BaseDatos::construirCadenaConexion();
    for (int i = 0; i < cuantos; ++i) {
        const qint64 clave = primera + i;
        try {
            UsoConexion uso;
            Transaccion t;
            const qint64 generacion = escalar(QStringLiteral("SELECT gen FROM Marca")).toLongLong();
            insertar(QStringLiteral("Clientes"), {{QStringLiteral("Codigo_Cli"), clave},
                                                  {QStringLiteral("Nombre_Cli"), QStringLiteral("Guardado por otro puesto")},
                                                  {QStringLiteral("Otros"), generacion}});
            t.confirmar();
            decir(QStringLiteral("ok %1 %2").arg(clave).arg(generacion));
        } catch (...) {
            const ErrorPrograma e = errorDesdeExcepcion(std::current_exception());
            decir(QStringLiteral("no %1 %2 %3").arg(clave).arg(e.numero).arg(escapar(e.descripcion)));
        }
        QThread::msleep(2);
    }
    return 0;
}

QStringList lineas(QProcess& p)
{
    return QString::fromUtf8(p.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

}  // namespace

bool esPuesto(int argc, char** argv) { return argc > 1 && qstrcmp(argv[1], ARGUMENTO) == 0; }

int ejecutarPuesto(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QStringList a = app.arguments().mid(2);
    if (a.value(0) == QLatin1String("--limite")) {
        // Disco casi lleno: ningún fichero puede crecer más allá del límite.
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit limite{};
        limite.rlim_cur = limite.rlim_max = a.value(1).toULongLong();
        setrlimit(RLIMIT_FSIZE, &limite);
        a = a.mid(2);
    }
    const QString orden = a.value(0);
    if (orden == QLatin1String("escribir"))
        return escribir(a.value(1), a.value(2).toInt(), a.value(3).toLongLong());
    try {
        decir(QStringLiteral("empiezo"));
        if (orden == QLatin1String("compactar"))
            Almacen::compactar(a.value(1));
        else if (orden == QLatin1String("copiar"))
            Almacen::copiarBaseDatos(a.value(1), a.value(2));
        else if (orden == QLatin1String("restaurar"))
            Almacen::restaurarBaseDatos(a.value(1), a.value(2));
        else
            return 2;
        decir(QStringLiteral("hecho"));
        return 0;
    } catch (...) {
        const ErrorPrograma e = errorDesdeExcepcion(std::current_exception());
        decir(QStringLiteral("fallo %1 %2").arg(e.numero).arg(escapar(e.descripcion)));
        return 1;
    }
}

void prepararBase(const QString& fichero, int filas, int generacion, quint32 semilla)
{
    QFile::remove(fichero);
    QFile::copy(QStringLiteral(PLANTILLA_BD), fichero);
    QFile::setPermissions(fichero, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::WriteGroup);
    QRandomGenerator azar(semilla);
    conBase(fichero, [&](QSqlDatabase& db) {
        QSqlQuery q(db);
        q.exec(QStringLiteral("CREATE TABLE Marca (gen INTEGER)"));
        q.prepare(QStringLiteral("INSERT INTO Marca VALUES (?)"));
        q.addBindValue(generacion);
        q.exec();
        db.transaction();
        q.prepare(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Otros) VALUES (?, ?, ?)"));
        for (int i = 1; i <= filas; ++i) {
            QByteArray relleno(120, Qt::Uninitialized);
            for (char& c : relleno)
                c = char('a' + azar.bounded(26));
            q.addBindValue(i);
            q.addBindValue(QStringLiteral("Cliente %1 de la generación %2").arg(i).arg(generacion));
            q.addBindValue(QString::fromLatin1(relleno));
            q.exec();
        }
        db.commit();
        // Huecos repartidos por el fichero: la compactación tiene páginas que mover.
        q.exec(QStringLiteral("DELETE FROM Clientes WHERE Codigo_Cli % 3 = 0"));
    });
}

void fijarGeneracion(const QString& fichero, int generacion)
{
    conBase(fichero, [&](QSqlDatabase& db) {
        QSqlQuery q(db);
        q.prepare(QStringLiteral("UPDATE Marca SET gen = ?"));
        q.addBindValue(generacion);
        q.exec();
    });
}

PuestoLeyendo::PuestoLeyendo(const QString& fichero)
{
    sqlite3_open_v2(fichero.toUtf8().constData(), &m_h, SQLITE_OPEN_READWRITE, nullptr);
    sqlite3_exec(m_h, "BEGIN; SELECT count(*) FROM Config;", nullptr, nullptr, nullptr);
}

PuestoLeyendo::~PuestoLeyendo() { sqlite3_close_v2(m_h); }

void danarClientes(const QString& fichero)
{
    int raiz = 0;
    int pagina = 4096;
    conBase(fichero, [&](QSqlDatabase& db) {
        QSqlQuery q(db);
        q.exec(QStringLiteral("SELECT rootpage FROM sqlite_master WHERE name = 'Clientes'"));
        raiz = q.next() ? q.value(0).toInt() : 0;
        q.exec(QStringLiteral("PRAGMA page_size"));
        pagina = q.next() ? q.value(0).toInt() : pagina;
    });
    QFile f(fichero);
    f.open(QIODevice::ReadWrite);
    f.seek(qint64(raiz - 1) * pagina);
    f.write(QByteArray(16, '\xFF'));
}

Huella huella(const QString& fichero)
{
    Huella h;
    try {
        conBase(fichero, [&](QSqlDatabase& db) {
            QSqlQuery q(db);
            q.setForwardOnly(true);
            QCryptographicHash suma(QCryptographicHash::Sha1);
            q.exec(QStringLiteral("SELECT Codigo_Cli, Nombre_Cli, Otros FROM Clientes ORDER BY Codigo_Cli"));
            h.filas = 0;
            while (q.next()) {
                ++h.filas;
                suma.addData((q.value(0).toString() + q.value(1).toString() + q.value(2).toString()).toUtf8());
            }
            q.exec(QStringLiteral("SELECT gen FROM Marca"));
            if (q.next())
                suma.addData(q.value(0).toByteArray());
            h.suma = suma.result();
        });
    } catch (const ErrorPrograma&) {
        h.filas = -1;
    }
    return h;
}

QString integridad(const QString& fichero)
{
    QString r;
    try {
        conBase(fichero, [&](QSqlDatabase& db) {
            QSqlQuery q(db);
            r = q.exec(QStringLiteral("PRAGMA integrity_check")) && q.next() ? q.value(0).toString() : q.lastError().text();
        });
    } catch (const ErrorPrograma& e) {
        r = e.descripcion + QStringLiteral(" ") + e.textoMotor;
    }
    return r;
}

QByteArray contenido(const QString& fichero)
{
    QFile f(fichero);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void escribirContenido(const QString& fichero, const QByteArray& bytes)
{
    QFile f(fichero);
    if (f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        f.write(bytes);
}

QStringList ficheros(const QString& carpeta)
{
    return QDir(carpeta).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

Guardados guardarDurante(const QString& ejecutable, const QString& ficheroBD, int guardados, const std::function<bool()>& operacion)
{
    Guardados r;
    QProcess puesto;
    puesto.start(ejecutable, {QString::fromLatin1(ARGUMENTO), QStringLiteral("escribir"), ficheroBD, QString::number(guardados),
                              QStringLiteral("1000000")});
    if (!puesto.waitForStarted()) {
        r.fallo = QStringLiteral("no arranca el segundo puesto");
        return r;
    }
    // Se empieza cuando el puesto ya guarda, y se sigue hasta que termina.
    puesto.waitForReadyRead(10000);
    // Entre una operación y otra se da un respiro para que los guardados que esperan entren.
    while (!puesto.waitForFinished(10)) {
        try {
            if (operacion())
                ++r.operaciones;
            else
                ++r.ocupadas;
        } catch (...) {
            r.fallo = errorDesdeExcepcion(std::current_exception()).descripcion;
            puesto.kill();
            puesto.waitForFinished();
            return r;
        }
    }
    QHash<qint64, qint64> confirmados;  // clave -> generación
    for (const QString& l : lineas(puesto)) {
        const QStringList p = l.split(QLatin1Char(' '));
        if (p.value(0) == QLatin1String("ok")) {
            confirmados.insert(p.value(1).toLongLong(), p.value(2).toLongLong());
        } else if (p.value(0) == QLatin1String("no")) {
            ++r.rechazados;
            if (p.value(2).toLongLong() != ERROR_BD_EN_USO)
                r.fallo = QStringLiteral("guardado rechazado por otro motivo: ") + l;
            r.textosRechazo << l.section(QLatin1Char(' '), 3).replace(QStringLiteral("\\n"), QStringLiteral("\n"));
        }
    }
    r.confirmados = confirmados.size();
    conBase(ficheroBD, [&](QSqlDatabase& db) {
        QSqlQuery q(db);
        q.exec(QStringLiteral("SELECT gen FROM Marca"));
        const qint64 ultima = q.next() ? q.value(0).toLongLong() : -1;
        QSet<qint64> presentes;
        q.exec(QStringLiteral("SELECT Codigo_Cli FROM Clientes WHERE Codigo_Cli >= 1000000"));
        while (q.next())
            presentes.insert(q.value(0).toLongLong());
        for (auto i = confirmados.cbegin(); i != confirmados.cend(); ++i) {
            if (i.value() == ultima && !presentes.contains(i.key()))
                ++r.perdidos;
            if (i.value() != ultima && presentes.contains(i.key()))
                ++r.indebidos;
        }
    });
    return r;
}

Muertes matarDurante(const QString& ejecutable, Operacion operacion, int rondas, int filas, quint32 semilla)
{
    Muertes m;
    QRandomGenerator azar(semilla);
    QTemporaryDir dir;
    const QString datos = dir.filePath(QStringLiteral("datos")) + QDir::separator();
    const QString copias = dir.filePath(QStringLiteral("copias")) + QDir::separator();
    const QString vivo = datos + BaseDatos::NOMBRE_FICHERO;
    const QString mee = copias + QStringLiteral("copia.mee");
    const QString nueva = dir.filePath(QStringLiteral("nueva.mee"));

    QDir().mkpath(datos);
    prepararBase(vivo, filas, 1, semilla);
    const QString plantillaVieja = dir.filePath(QStringLiteral("vieja.qst"));
    QFile::copy(vivo, plantillaVieja);
    prepararBase(nueva, filas + filas / 2, 2, semilla + 1);
    const Huella vieja = huella(plantillaVieja);
    m.bytes = QFileInfo(plantillaVieja).size();
    const Huella nuevaH = huella(nueva);

    auto argumentos = [&]() -> QStringList {
        const QString a = QString::fromLatin1(ARGUMENTO);
        switch (operacion) {
        case Operacion::Compactar: return {a, QStringLiteral("compactar"), datos};
        case Operacion::Copiar: return {a, QStringLiteral("copiar"), vivo, mee};
        case Operacion::Restaurar: return {a, QStringLiteral("restaurar"), nueva, vivo};
        }
        return {};
    };
    auto reponer = [&] {
        QDir(datos).removeRecursively();
        QDir(copias).removeRecursively();
        QDir().mkpath(datos);
        QDir().mkpath(copias);
        QFile::copy(plantillaVieja, vivo);
    };

    // Una pasada entera, sin matarla, da la duración de la operación.
    {
        reponer();
        QProcess p;
        p.start(ejecutable, argumentos());
        p.waitForReadyRead(10000);
        QElapsedTimer reloj;
        reloj.start();
        p.waitForFinished(60000);
        m.duracionMs = int(reloj.elapsed());
    }

    for (int ronda = 0; ronda < rondas; ++ronda) {
        reponer();
        QProcess p;
        p.start(ejecutable, argumentos());
        if (!p.waitForStarted() || !p.waitForReadyRead(10000)) {
            m.problemas << QStringLiteral("ronda %1: el proceso no empieza").arg(ronda);
            continue;
        }
        QThread::msleep(azar.bounded(quint32(m.duracionMs + m.duracionMs / 5 + 1)));
        p.kill();
        p.waitForFinished(10000);
        ++m.rondas;
        if (!p.readAllStandardOutput().contains("hecho"))
            ++m.muertos;

        // Un diario con cabecera es un cambio a medias que el siguiente en abrir deshace.
        const QByteArray diario = contenido(vivo + QStringLiteral("-journal"));
        if (!diario.isEmpty() && diario.at(0) != 0)
            ++m.diariosPorDeshacer;
        // Lo que deja un proceso muerto se ve como lo verá el siguiente puesto: por el motor.
        const QString estado = integridad(vivo);
        if (estado == QLatin1String("ok"))
            ++m.integras;
        else
            m.problemas << QStringLiteral("ronda %1: integridad: %2").arg(ronda).arg(estado);
        const Huella ahora = huella(vivo);
        if (ahora == vieja)
            ++m.contenidoViejo;
        else if (operacion == Operacion::Restaurar && ahora == nuevaH)
            ++m.contenidoNuevo;
        else
            m.problemas << QStringLiteral("ronda %1: contenido que no es ni el viejo ni el nuevo (%2 filas)").arg(ronda).arg(ahora.filas);
        // Tras una muerte puede quedar el diario del motor ya vacío; lo borra la siguiente escritura.
        QStringList enDatos = ficheros(datos);
        if (enDatos.removeAll(BaseDatos::NOMBRE_FICHERO + QStringLiteral("-journal")) > 0)
            ++m.diariosVacios;
        if (enDatos != QStringList{BaseDatos::NOMBRE_FICHERO})
            m.problemas << QStringLiteral("ronda %1: en la carpeta de datos queda %2").arg(ronda).arg(ficheros(datos).join(QStringLiteral(", ")));
        if (operacion == Operacion::Copiar) {
            for (const QString& f : ficheros(copias)) {
                if (Almacen::esFicheroParcial(f))
                    ++m.restosParciales;
                else if (f != QLatin1String("copia.mee"))
                    m.problemas << QStringLiteral("ronda %1: fichero inesperado %2").arg(ronda).arg(f);
            }
            if (QFile::exists(mee)) {
                if (integridad(mee) == QLatin1String("ok") && huella(mee) == vieja)
                    ++m.copiasCompletas;
                else
                    m.problemas << QStringLiteral("ronda %1: copia .mee a medias").arg(ronda);
            }
        }
    }
    return m;
}

}  // namespace ProcesosAlmacen
