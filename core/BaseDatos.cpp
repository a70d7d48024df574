#include "core/BaseDatos.h"

#include "core/Cotejo.h"
#include "core/Mensajes.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlRecord>
#include <sqlite3.h>

QString rutaBD;
QString cadenaConexion;
bool transaccionEnCurso = false;

namespace BaseDatos {

namespace {

int cotejoES(void*, int la, const void* a, int lb, const void* b)
{
    return Cotejo::comparar(std::string_view(static_cast<const char*>(a), la),
                            std::string_view(static_cast<const char*>(b), lb));
}

std::string_view textoArg(sqlite3_value* v)
{
    const auto* t = reinterpret_cast<const char*>(sqlite3_value_text(v));
    return t ? std::string_view(t, sqlite3_value_bytes(v)) : std::string_view();
}

void funcionLike(sqlite3_context* ctx, int argc, sqlite3_value** argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL || sqlite3_value_type(argv[1]) == SQLITE_NULL) {
        sqlite3_result_null(ctx);
        return;
    }
    char32_t escape = 0;
    if (argc == 3) {
        const std::string_view e = textoArg(argv[2]);
        if (!e.empty())
            escape = static_cast<unsigned char>(e[0]);
    }
    sqlite3_result_int(ctx, Cotejo::parecido(textoArg(argv[0]), textoArg(argv[1]), escape) ? 1 : 0);
}

void funcionMayusculas(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL) {
        sqlite3_result_null(ctx);
        return;
    }
    const std::string_view t = textoArg(argv[0]);
    const QByteArray r = QString::fromUtf8(t.data(), static_cast<qsizetype>(t.size())).toUpper().toUtf8();
    sqlite3_result_text(ctx, r.constData(), static_cast<int>(r.size()), SQLITE_TRANSIENT);
}

}  // namespace

sqlite3* motor(const QSqlDatabase& db)
{
    const QVariant v = db.isValid() ? db.driver()->handle() : QVariant();
    if (v.isValid() && qstrcmp(v.typeName(), "sqlite3*") == 0)
        return *static_cast<sqlite3* const*>(v.constData());
    lanzarError(-1, QStringLiteral("No se ha podido acceder al motor de la base de datos"));
}

void registrarFunciones(QSqlDatabase& db)
{
    registrarFunciones(motor(db));
}

void registrarFunciones(sqlite3* h)
{
    sqlite3_create_collation(h, "ES", SQLITE_UTF8, nullptr, cotejoES);
    const int opciones = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    sqlite3_create_function(h, "like", 2, opciones, nullptr, funcionLike, nullptr, nullptr);
    sqlite3_create_function(h, "like", 3, opciones, nullptr, funcionLike, nullptr, nullptr);
    sqlite3_create_function(h, "ucase", 1, opciones, nullptr, funcionMayusculas, nullptr, nullptr);
    sqlite3_create_function(h, "upper", 1, opciones, nullptr, funcionMayusculas, nullptr, nullptr);
}

ErrorPrograma errorDeMotor(int codigo, const QString& textoMotor)
{
    const QString salto = QStringLiteral("\n");
    qint64 numero = codigo;
    QString texto;
    switch (codigo & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        numero = ERROR_BD_EN_USO;
        texto = QStringLiteral("La base de datos está siendo usada por otro puesto de trabajo.") + salto
                + QStringLiteral("Espere a que quede libre e inténtelo de nuevo");
        break;
    case SQLITE_READONLY:
        texto = QStringLiteral("No se puede escribir en la base de datos: el fichero o su carpeta son de sólo lectura.") + salto
                + QStringLiteral("Pida permiso de escritura a quien administre el equipo o la red");
        break;
    case SQLITE_FULL:
        texto = QStringLiteral("No queda espacio libre en el disco.") + salto + QStringLiteral("Libere espacio e inténtelo de nuevo");
        break;
    case SQLITE_IOERR:
        texto = QStringLiteral("Se ha producido un error de lectura o escritura en el disco.") + salto
                + QStringLiteral("Compruebe el disco o la conexión con la carpeta de red e inténtelo de nuevo");
        break;
    case SQLITE_CORRUPT:
        texto = QStringLiteral("La base de datos está dañada.") + salto
                + QStringLiteral("Restaure la última copia de seguridad");
        break;
    case SQLITE_NOTADB:
        texto = QStringLiteral("El fichero no es una base de datos de este programa.") + salto
                + QStringLiteral("Compruebe la ubicación de la base de datos");
        break;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
        texto = QStringLiteral("No se puede abrir el fichero de la base de datos.") + salto
                + QStringLiteral("Compruebe que existe y que tiene permiso para usarlo");
        break;
    default:
        // Una sentencia mal escrita es un fallo del programa: se enseña tal cual.
        return ErrorPrograma(codigo, textoMotor);
    }
    ErrorPrograma e(numero, texto);
    e.textoMotor = textoMotor;
    return e;
}

ErrorPrograma errorDe(const QSqlError& e)
{
    QString texto = e.databaseText();
    if (texto.isEmpty())
        texto = e.text();
    bool ok = false;
    const int codigo = e.nativeErrorCode().toInt(&ok);
    if (!ok)
        return ErrorPrograma(-1, texto);
    return errorDeMotor(codigo, texto);
}

QString ficheroBD() { return rutaBD + NOMBRE_FICHERO; }

void construirCadenaConexion() { cadenaConexion = ficheroBD(); }

QSqlDatabase abrirConexion(const QString& nombre, const QString& fichero, Acceso acceso)
{
    const bool soloLectura = acceso == Acceso::SoloLectura;
    QSqlDatabase db = QSqlDatabase::contains(nombre) ? QSqlDatabase::database(nombre, false)
                                                     : QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), nombre);
    if (db.isOpen())
        db.close();
    if (!QFileInfo::exists(fichero))
        lanzarError(-1, QStringLiteral("No se encuentra el fichero de la base de datos: ") + QDir::toNativeSeparators(fichero));
    db.setDatabaseName(fichero);
    QString opciones = QStringLiteral("QSQLITE_BUSY_TIMEOUT=5000");
    if (soloLectura)
        opciones += QStringLiteral(";QSQLITE_OPEN_READONLY");
    db.setConnectOptions(opciones);
    if (!db.open())
        throw errorDe(db.lastError());
    registrarFunciones(db);
    // Un fichero que no es una base de datos se descubre en la primera lectura.
    QSqlQuery q(db);
    if (!q.exec(QStringLiteral("SELECT count(*) FROM sqlite_master"))) {
        const ErrorPrograma e = errorDe(q.lastError());
        q = QSqlQuery();
        db.close();
        throw e;
    }
    return db;
}

QSqlDatabase conexionBD()
{
    if (QSqlDatabase::contains(NOMBRE_CONEXION))
        return QSqlDatabase::database(NOMBRE_CONEXION, false);
    return QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), NOMBRE_CONEXION);
}

bool estaAbierta() { return QSqlDatabase::contains(NOMBRE_CONEXION) && conexionBD().isOpen(); }

void abrir()
{
    if (estaAbierta())
        return;
    if (cadenaConexion.isEmpty())
        construirCadenaConexion();
    abrirConexion(NOMBRE_CONEXION, cadenaConexion);
}

void cerrar()
{
    if (estaAbierta())
        conexionBD().close();
}

}  // namespace BaseDatos

UsoConexion::UsoConexion()
{
    if (!BaseDatos::estaAbierta()) {
        BaseDatos::abrir();
        m_abrio = true;
    }
}

UsoConexion::~UsoConexion()
{
    if (m_abrio && !transaccionEnCurso)
        BaseDatos::cerrar();
}

Transaccion::Transaccion(bool marcarEnCurso)
{
    ejecutar(QStringLiteral("BEGIN IMMEDIATE"));
    m_activa = true;
    Mensajes::retener();
    if (marcarEnCurso) {
        m_marca = true;
        transaccionEnCurso = true;
    }
}

Transaccion::~Transaccion()
{
    try {
        deshacer();
    } catch (...) {
        // Al salir por un fallo no se puede hacer más que dejar la conexión como esté.
    }
}

void Transaccion::confirmar()
{
    if (!m_activa)
        return;
    ejecutar(QStringLiteral("COMMIT"));
    m_activa = false;
    if (m_marca)
        transaccionEnCurso = false;
    m_marca = false;
    Mensajes::soltar();
}

void Transaccion::deshacer()
{
    if (m_marca)
        transaccionEnCurso = false;
    m_marca = false;
    if (!m_activa)
        return;
    m_activa = false;
    // Los cuadros retenidos salen aunque el ROLLBACK falle.
    struct Soltar {
        ~Soltar() { Mensajes::soltar(); }
    } soltar;
    ejecutar(QStringLiteral("ROLLBACK"));
}

Consulta::Consulta(const QString& sql, const QVariantList& valores) : Consulta(BaseDatos::conexionBD(), sql, valores) {}

Consulta::Consulta(QSqlDatabase db, const QString& sql, const QVariantList& valores) : m_q(db)
{
    m_q.setForwardOnly(true);
    if (!m_q.prepare(sql))
        throw BaseDatos::errorDe(m_q.lastError());
    for (const QVariant& v : valores)
        m_q.addBindValue(v);
    if (!m_q.exec())
        throw BaseDatos::errorDe(m_q.lastError());
}

bool Consulta::siguiente() { return m_q.next(); }

QVariant Consulta::valor(const QString& campo) const
{
    const int i = m_q.record().indexOf(campo);
    if (i < 0)
        lanzarError(3265, QStringLiteral("No se encuentra el elemento en la colección: ") + campo);
    return m_q.value(i);
}

QVariant Consulta::valor(int indice) const { return m_q.value(indice); }

QString Consulta::texto(const QString& campo) const
{
    const QVariant v = valor(campo);
    return v.isNull() ? QString() : v.toString();
}

bool Consulta::nulo(const QString& campo) const { return valor(campo).isNull(); }

void ejecutar(const QString& sql, const QVariantList& valores) { ejecutar(BaseDatos::conexionBD(), sql, valores); }

void ejecutar(QSqlDatabase db, const QString& sql, const QVariantList& valores) { Consulta c(db, sql, valores); }

QVariant escalar(const QString& sql, const QVariantList& valores)
{
    Consulta c(sql, valores);
    return c.siguiente() ? c.valor(0) : QVariant();
}

void insertar(const QString& tabla, const Campos& campos)
{
    QStringList nombres, marcas;
    QVariantList valores;
    for (const auto& [nombre, valor] : campos) {
        nombres << QLatin1Char('"') + nombre + QLatin1Char('"');
        marcas << QStringLiteral("?");
        valores << valor;
    }
    ejecutar(QStringLiteral("INSERT INTO \"%1\" (%2) VALUES (%3)").arg(tabla, nombres.join(QLatin1Char(',')), marcas.join(QLatin1Char(','))),
             valores);
}

void actualizar(const QString& tabla, const Campos& campos, const QString& donde, const QVariantList& valoresDonde)
{
    QStringList asignaciones;
    QVariantList valores;
    for (const auto& [nombre, valor] : campos) {
        asignaciones << QLatin1Char('"') + nombre + QStringLiteral("\" = ?");
        valores << valor;
    }
    valores << valoresDonde;
    ejecutar(QStringLiteral("UPDATE \"%1\" SET %2 WHERE %3").arg(tabla, asignaciones.join(QStringLiteral(", ")), donde), valores);
}

qint64 ultimoIdentificador() { return escalar(QStringLiteral("SELECT last_insert_rowid()")).toLongLong(); }

qint64 siguienteClave(const QString& tabla, const QString& campo)
{
    const QVariant v = escalar(QStringLiteral("SELECT MAX(\"%1\") FROM \"%2\"").arg(campo, tabla));
    return v.isNull() ? 1 : v.toLongLong() + 1;
}

QVariant textoONulo(const QString& texto)
{
    const QString t = texto.trimmed();
    return t.isEmpty() ? QVariant(QMetaType(QMetaType::QString)) : QVariant(t);
}
