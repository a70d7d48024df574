#include "core/Compactacion.h"

#include "core/BaseDatos.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QUuid>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace Compactacion {

namespace {

const QString NOMBRE_COPIA = QStringLiteral("PlanorumMirvade_COPY.mdb");
const QString NOMBRE_TEMPORAL = QStringLiteral("PlanorumMirvade_TMP.mdb");

void volcarADisco(const QString& fichero)
{
    const int fd = ::open(QFile::encodeName(fichero).constData(), O_RDONLY);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

void renombrarSobre(const QString& origen, const QString& destino)
{
    volcarADisco(origen);
    if (std::rename(QFile::encodeName(origen).constData(), QFile::encodeName(destino).constData()) != 0)
        lanzarError(-1, QStringLiteral("No se ha podido sustituir el fichero ") + QDir::toNativeSeparators(destino));
    volcarADisco(QFileInfo(destino).absolutePath());
}

void copiarFichero(const QString& origen, const QString& destino)
{
    QFile::remove(destino);
    if (!QFile::copy(origen, destino))
        lanzarError(-1, QStringLiteral("No se ha podido copiar el fichero ") + QDir::toNativeSeparators(origen)
                            + QStringLiteral(" en ") + QDir::toNativeSeparators(destino));
}

QString nombreUnico(const QString& prefijo)
{
    return prefijo + QUuid::createUuid().toString(QUuid::Id128).left(12);
}

bool integra(const QString& fichero)
{
    const QString nombre = nombreUnico(QStringLiteral("integridad_"));
    bool bien = false;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), nombre);
        db.setDatabaseName(fichero);
        db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        if (db.open()) {
            QSqlQuery q(db);
            bien = q.exec(QStringLiteral("PRAGMA quick_check")) && q.next() && q.value(0).toString() == QLatin1String("ok");
            q = QSqlQuery();
            db.close();
        }
    }
    QSqlDatabase::removeDatabase(nombre);
    return bien;
}

}  // namespace

CerrojoExclusivo::CerrojoExclusivo(const QString& fichero) : m_conexion(nombreUnico(QStringLiteral("exclusiva_")))
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_conexion);
    db.setDatabaseName(fichero);
    db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=0"));
    if (!QFileInfo::exists(fichero) || !db.open()) {
        const ErrorPrograma e = BaseDatos::errorDe(db.lastError());
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_conexion);
        throw e;
    }
    QSqlQuery q(db);
    if (!q.exec(QStringLiteral("BEGIN EXCLUSIVE"))) {
        ErrorPrograma e = BaseDatos::errorDe(q.lastError());
        q = QSqlQuery();
        db.close();
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_conexion);
        throw e;
    }
}

CerrojoExclusivo::~CerrojoExclusivo()
{
    {
        QSqlDatabase db = QSqlDatabase::database(m_conexion, false);
        if (db.isOpen()) {
            QSqlQuery(db).exec(QStringLiteral("ROLLBACK"));
            db.close();
        }
    }
    QSqlDatabase::removeDatabase(m_conexion);
}

void compactar(const QString& ruta, const std::function<void(int)>& avance)
{
    auto paso = [&](int v) {
        if (avance)
            avance(v);
    };
    const QString vivo = ruta + BaseDatos::NOMBRE_FICHERO;
    const QString copia = ruta + NOMBRE_COPIA;
    const QString temporal = ruta + NOMBRE_TEMPORAL;

    // Prueba de uso exclusivo: el cerrojo se mantiene hasta terminar la sustitución.
    CerrojoExclusivo cerrojo(vivo);
    QFile::remove(copia);
    QFile::remove(temporal);

    copiarFichero(vivo, copia);
    paso(65);

    {
        const QString nombre = nombreUnico(QStringLiteral("compactar_"));
        {
            QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), nombre);
            db.setDatabaseName(copia);
            if (!db.open())
                throw BaseDatos::errorDe(db.lastError());
            QSqlQuery q(db);
            q.prepare(QStringLiteral("VACUUM INTO ?"));
            q.addBindValue(temporal);
            const bool bien = q.exec();
            const ErrorPrograma e = BaseDatos::errorDe(q.lastError());
            q = QSqlQuery();
            db.close();
            if (!bien) {
                QSqlDatabase::removeDatabase(nombre);
                QFile::remove(temporal);
                throw e;
            }
        }
        QSqlDatabase::removeDatabase(nombre);
    }
    if (!integra(temporal)) {
        QFile::remove(temporal);
        lanzarError(-1, QStringLiteral("La copia compactada de la base de datos no ha superado la comprobación"));
    }
    paso(75);

    renombrarSobre(temporal, vivo);
    paso(85);

    QFile::remove(copia);
    QFile::remove(temporal);
    paso(95);
}

void copiarAtomico(const QString& origen, const QString& destino)
{
    const QString temporal = destino + QStringLiteral(".") + nombreUnico(QStringLiteral("tmp"));
    try {
        copiarFichero(origen, temporal);
        renombrarSobre(temporal, destino);
    } catch (...) {
        QFile::remove(temporal);
        throw;
    }
}

bool esBaseDeDatosDelPrograma(const QString& fichero, QString* motivo)
{
    const QString nombre = nombreUnico(QStringLiteral("comprobar_"));
    bool valida = false;
    {
        try {
            QSqlDatabase db = BaseDatos::abrirConexion(nombre, fichero, true);
            QSqlQuery q(db);
            valida = q.exec(QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type = 'table' AND lower(name) IN "
                                           "('config', 'clientes', 'otros', 'proyectos_a')"))
                     && q.next() && q.value(0).toInt() == 4;
            q = QSqlQuery();
            db.close();
            if (!valida && motivo)
                *motivo = QStringLiteral("El fichero no contiene las tablas del programa");
        } catch (const ErrorPrograma& e) {
            if (motivo)
                *motivo = e.descripcion;
        }
    }
    QSqlDatabase::removeDatabase(nombre);
    return valida;
}

}  // namespace Compactacion
