#include "core/Almacen.h"

#include "core/BaseDatos.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QUuid>
#include <cstdio>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Almacen {

namespace {

const QString SALTO = QStringLiteral("\n");
const QString MARCA_PARCIAL = QStringLiteral(".parcial-");

// Tablas sin las que un fichero no es una base de datos de este programa.
const char* const TABLAS_DEL_PROGRAMA[] = {"config", "clientes", "representantes", "otros", "costes",
                                           "proyectos_a", "arquitectos_proyecto", "provincias"};

QString nativa(const QString& ruta) { return QDir::toNativeSeparators(ruta); }

int latidoMotor(void* pulso)
{
    (*static_cast<Pulso*>(pulso))(-1);
    return 0;
}

}  // namespace

Pulso::Pulso(const Latido& latido) : m_latido(latido) { m_reloj.start(); }

void Pulso::operator()(int porcentaje)
{
    if (!m_latido || m_reloj.elapsed() < 50)
        return;
    m_reloj.restart();
    try {
        m_latido(porcentaje);
    } catch (...) {
        // Repintar nunca detiene una operación del motor.
    }
}

// Conexión del motor sin capa de Qt: la necesitan el modo de bloqueo exclusivo, el volcado entre
// bases de datos y el latido durante VACUUM. Se cierra al destruirse.
class Motor {
public:
    Motor(const QString& fichero, int modo, int esperaMs)
    {
        const int rc = sqlite3_open_v2(fichero.toUtf8().constData(), &m_h, modo, nullptr);
        if (m_h)
            sqlite3_extended_result_codes(m_h, 1);
        if (rc != SQLITE_OK) {
            const ErrorPrograma e = error(rc);
            cerrar();
            throw e;
        }
        sqlite3_busy_timeout(m_h, esperaMs);
        BaseDatos::registrarFunciones(m_h);
    }
    ~Motor() { cerrar(); }
    Motor(const Motor&) = delete;
    Motor& operator=(const Motor&) = delete;

    sqlite3* h() const { return m_h; }

    ErrorPrograma error(int rc) const
    {
        const char* texto = m_h ? sqlite3_errmsg(m_h) : sqlite3_errstr(rc);
        return BaseDatos::errorDeMotor(rc, QString::fromUtf8(texto ? texto : sqlite3_errstr(rc)));
    }

    void ejecutar(const char* sql)
    {
        const int rc = sqlite3_exec(m_h, sql, nullptr, nullptr, nullptr);
        if (rc != SQLITE_OK)
            throw error(rc);
    }

    // Primera columna de todas las filas.
    QStringList columna(const char* sql)
    {
        sqlite3_stmt* s = nullptr;
        int rc = sqlite3_prepare_v2(m_h, sql, -1, &s, nullptr);
        QStringList filas;
        if (rc == SQLITE_OK) {
            while ((rc = sqlite3_step(s)) == SQLITE_ROW)
                filas << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(s, 0)));
            if (rc == SQLITE_DONE)
                rc = SQLITE_OK;
        }
        sqlite3_finalize(s);
        if (rc != SQLITE_OK)
            throw error(rc);
        return filas;
    }

private:
    void cerrar()
    {
        if (m_h)
            sqlite3_close_v2(m_h);
        m_h = nullptr;
    }

    sqlite3* m_h = nullptr;
};

namespace {

// Vuelca todas las páginas de una base de datos en otra con la copia en caliente del motor.
// La escritura en el destino es una sola transacción: o queda entera o no queda nada.
void volcar(sqlite3* origen, sqlite3* destino, const Latido& latido)
{
    Pulso pulso(latido);
    sqlite3_backup* copia = sqlite3_backup_init(destino, "main", origen, "main");
    if (!copia)
        throw BaseDatos::errorDeMotor(sqlite3_extended_errcode(destino), QString::fromUtf8(sqlite3_errmsg(destino)));
    int rc = SQLITE_OK;
    do {
        rc = sqlite3_backup_step(copia, 512);
        const int total = sqlite3_backup_pagecount(copia);
        if (total > 0)
            pulso(100 * (total - sqlite3_backup_remaining(copia)) / total);
    } while (rc == SQLITE_OK);
    // Al terminar, el código y el texto de un fallo de cualquiera de los dos lados quedan en el destino.
    if (sqlite3_backup_finish(copia) != SQLITE_OK || rc != SQLITE_DONE)
        throw BaseDatos::errorDeMotor(rc != SQLITE_DONE ? rc : sqlite3_extended_errcode(destino),
                                      QString::fromUtf8(sqlite3_errmsg(destino)));
}

void volcarADisco(const QString& ruta)
{
    const int fd = ::open(QFile::encodeName(ruta).constData(), O_RDONLY);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

void renombrar(const QString& origen, const QString& destino)
{
    if (std::rename(QFile::encodeName(origen).constData(), QFile::encodeName(destino).constData()) != 0)
        lanzarError(-1, QStringLiteral("No se ha podido dar su nombre al fichero ") + nativa(destino) + SALTO
                            + QStringLiteral("Compruebe que tiene permiso para escribir en su carpeta"));
    volcarADisco(QFileInfo(destino).absolutePath());
}

QString nombreParcial(const QString& destino)
{
    return destino + MARCA_PARCIAL + QUuid::createUuid().toString(QUuid::Id128).left(8);
}

// Fallo al crear o escribir un fichero de destino: se dice de qué carpeta se trata.
ErrorPrograma errorDestino(const ErrorPrograma& e, const QString& destino)
{
    const qint64 primario = e.numero & 0xFF;
    if (e.numero == ERROR_BD_EN_USO || (primario != SQLITE_CANTOPEN && primario != SQLITE_READONLY && primario != SQLITE_PERM))
        return e;
    ErrorPrograma r(e.numero, QStringLiteral("No se puede crear el fichero en la carpeta ") + nativa(QFileInfo(destino).absolutePath())
                                  + QStringLiteral(".") + SALTO
                                  + QStringLiteral("Compruebe que la carpeta existe y que tiene permiso para escribir en ella"));
    r.textoMotor = e.textoMotor;
    return r;
}

bool mismoFichero(const QString& a, const QString& b)
{
    struct stat sa {}, sb {};
    if (::stat(QFile::encodeName(a).constData(), &sa) != 0 || ::stat(QFile::encodeName(b).constData(), &sb) != 0)
        return false;
    return sa.st_dev == sb.st_dev && sa.st_ino == sb.st_ino;
}

FicheroNoValido noValido(qint64 numero, const QString& texto, const QString& textoMotor)
{
    FicheroNoValido e(numero, texto);
    e.textoMotor = textoMotor;
    return e;
}

}  // namespace

CerrojoExclusivo::CerrojoExclusivo(const QString& fichero)
{
    if (!QFileInfo::exists(fichero))
        lanzarError(53, QStringLiteral("No se encuentra el fichero de la base de datos: ") + nativa(fichero));
    m_motor = std::make_unique<Motor>(fichero, SQLITE_OPEN_READWRITE, 0);
    // En modo exclusivo la conexión no suelta el cerrojo al terminar la transacción: lo guarda
    // hasta cerrarse. Nadie puede escribir ni leer entre la prueba y el final de la operación.
    m_motor->ejecutar("PRAGMA locking_mode=EXCLUSIVE");
    m_motor->ejecutar("BEGIN EXCLUSIVE");
    m_motor->ejecutar("COMMIT");
}

CerrojoExclusivo::~CerrojoExclusivo() = default;

sqlite3* CerrojoExclusivo::conexion() const { return m_motor->h(); }

void comprobarBaseDatos(const QString& fichero, Uso uso)
{
    const bool copia = uso == Uso::CopiaElegida;
    const QString repetir = QStringLiteral("No se ha restaurado nada. Por favor, seleccione otra copia de seguridad");
    const QString noEs = copia ? QStringLiteral("El fichero seleccionado no es una copia de seguridad de este programa.") + SALTO + repetir
                               : QStringLiteral("El fichero ") + nativa(fichero) + QStringLiteral(" no es una base de datos de este programa.")
                                     + SALTO + QStringLiteral("Compruebe la ubicación de la base de datos");
    const QString danada = copia ? QStringLiteral("La copia de seguridad seleccionada está dañada.") + SALTO + repetir
                                 : QStringLiteral("La base de datos ") + nativa(fichero) + QStringLiteral(" está dañada.") + SALTO
                                       + QStringLiteral("Restaure la última copia de seguridad");

    if (!QFileInfo(fichero).isFile())
        throw noValido(53, copia ? QStringLiteral("No se encuentra la copia de seguridad seleccionada.") + SALTO + repetir
                                 : QStringLiteral("No se encuentra el fichero de la base de datos: ") + nativa(fichero),
                       {});
    try {
        Motor m(fichero, copia ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE, 5000);
        const QStringList resultado = m.columna("PRAGMA integrity_check");
        if (resultado.value(0) != QLatin1String("ok"))
            throw noValido(SQLITE_CORRUPT, danada, resultado.mid(0, 5).join(QStringLiteral("; ")));
        // Una copia del programa nunca lleva el diario WAL, que no sirve en una carpeta de red y
        // que el volcado pasaría a la base de datos viva.
        if (copia && m.columna("PRAGMA journal_mode").value(0).compare(QLatin1String("wal"), Qt::CaseInsensitive) == 0)
            throw noValido(SQLITE_NOTADB, noEs, QStringLiteral("journal_mode=wal"));
        QSet<QString> tablas;
        for (const QString& t : m.columna("SELECT name FROM sqlite_master WHERE type = 'table'"))
            tablas.insert(t.toLower());
        for (const char* t : TABLAS_DEL_PROGRAMA)
            if (!tablas.contains(QLatin1String(t)))
                throw noValido(SQLITE_NOTADB, noEs, QStringLiteral("no such table: ") + QLatin1String(t));
    } catch (const FicheroNoValido&) {
        throw;
    } catch (const ErrorPrograma& e) {
        switch (e.numero & 0xFF) {
        case SQLITE_NOTADB: throw noValido(e.numero, noEs, e.textoMotor);
        case SQLITE_CORRUPT: throw noValido(e.numero, danada, e.textoMotor);
        default: break;
        }
        if (!copia)
            throw;
        throw noValido(e.numero,
                       QStringLiteral("No se ha podido leer la copia de seguridad seleccionada.") + SALTO
                           + QStringLiteral("No se ha restaurado nada. Compruebe que el fichero existe y que tiene permiso para leerlo"),
                       e.textoMotor.isEmpty() ? e.descripcion : e.textoMotor);
    }
}

void probarUsoExclusivo(const QString& ficheroBD) { CerrojoExclusivo cerrojo(ficheroBD); }

void compactar(const QString& ruta, const std::function<void(int)>& avance, const Latido& latido)
{
    auto paso = [&](int v) {
        if (avance)
            avance(v);
    };
    {
        CerrojoExclusivo cerrojo(ruta + BaseDatos::NOMBRE_FICHERO);
        paso(65);
        // VACUUM reescribe el fichero en su sitio dentro de una transacción del motor: si algo
        // falla (disco lleno, corte) el diario deja la base de datos como estaba.
        Pulso pulso(latido);
        sqlite3_progress_handler(cerrojo.conexion(), 20000, latidoMotor, &pulso);
        const int rc = sqlite3_exec(cerrojo.conexion(), "VACUUM", nullptr, nullptr, nullptr);
        sqlite3_progress_handler(cerrojo.conexion(), 0, nullptr, nullptr);
        if (rc != SQLITE_OK)
            throw BaseDatos::errorDeMotor(sqlite3_extended_errcode(cerrojo.conexion()),
                                          QString::fromUtf8(sqlite3_errmsg(cerrojo.conexion())));
        paso(75);
    }
    paso(85);
    paso(95);
}

void copiarBaseDatos(const QString& ficheroBD, const QString& destino, const Latido& latido)
{
    CerrojoExclusivo cerrojo(ficheroBD);
    borrarParcialesAbandonados(destino);  // con el cerrojo, ninguna otra copia se está escribiendo
    escribirFicheroNuevo(destino, [&](sqlite3* copia) { volcar(cerrojo.conexion(), copia, latido); });
}

void escribirFicheroNuevo(const QString& destino, const std::function<void(sqlite3*)>& llenar)
{
    const QString parcial = nombreParcial(destino);
    try {
        {
            std::unique_ptr<Motor> copia;
            try {
                copia = std::make_unique<Motor>(parcial, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, 0);
                // Nadie más ve este fichero hasta que esté completo: no necesita diario.
                copia->ejecutar("PRAGMA journal_mode=OFF");
            } catch (const ErrorPrograma& e) {
                throw errorDestino(e, destino);
            }
            try {
                llenar(copia->h());
            } catch (const ErrorPrograma& e) {
                throw errorDestino(e, destino);
            }
        }
        volcarADisco(parcial);
        renombrar(parcial, destino);
    } catch (...) {
        QFile::remove(parcial);
        QFile::remove(parcial + QStringLiteral("-journal"));
        throw;
    }
}

void restaurarBaseDatos(const QString& copia, const QString& ficheroBD, const Latido& latido)
{
    if (mismoFichero(copia, ficheroBD))
        throw noValido(-1,
                       QStringLiteral("La copia de seguridad seleccionada es la propia base de datos del programa.") + SALTO
                           + QStringLiteral("No se ha restaurado nada. Por favor, seleccione otra copia de seguridad"),
                       {});
    comprobarBaseDatos(copia, Uso::CopiaElegida);
    CerrojoExclusivo cerrojo(ficheroBD);
    Motor origen(copia, SQLITE_OPEN_READONLY, 5000);
    // El destino es la conexión que tiene el cerrojo; la escritura es una transacción del motor.
    volcar(origen.h(), cerrojo.conexion(), latido);
}

void sustituirFichero(const QString& origen, const QString& destino)
{
    if (!QFileInfo(origen).isFile())
        lanzarError(53, QStringLiteral("No se encuentra el fichero ") + nativa(origen));
    const QString parcial = nombreParcial(destino);
    try {
        if (!QFile::copy(origen, parcial))
            lanzarError(-1, QStringLiteral("No se ha podido copiar el fichero ") + nativa(origen) + QStringLiteral(" en la carpeta ")
                                + nativa(QFileInfo(destino).absolutePath()) + QStringLiteral(".") + SALTO
                                + QStringLiteral("Compruebe que la carpeta existe, que tiene permiso para escribir en ella y que hay espacio libre"));
        if (QFileInfo::exists(destino))
            QFile::setPermissions(parcial, QFile::permissions(destino));
        volcarADisco(parcial);
        renombrar(parcial, destino);
    } catch (...) {
        QFile::remove(parcial);
        throw;
    }
}

bool esFicheroParcial(const QString& nombre) { return nombre.contains(MARCA_PARCIAL); }

void borrarParcialesAbandonados(const QString& destino)
{
    const QFileInfo d(destino);
    const QStringList restos =
        QDir(d.absolutePath()).entryList({d.fileName() + MARCA_PARCIAL + QLatin1Char('*')}, QDir::Files | QDir::Hidden);
    for (const QString& r : restos)
        QFile::remove(d.absoluteDir().filePath(r));
}

}  // namespace Almacen
