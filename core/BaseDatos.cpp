#include "core/BaseDatos.h"

#include "core/Cotejo.h"
#include "core/Ini.h"
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

const QString DRIVER_FICHERO = QStringLiteral("QSQLITE");
const QString DRIVER_SERVIDOR = QStringLiteral("QPSQL");
// Lo que un guardado espera al cerrojo de otro puesto antes de darse por "en uso", en los dos motores.
constexpr int ESPERA_CERROJO_MS = 5000;

Motor s_motor = Motor::SQLite;
DatosServidor s_servidor;
QString s_motorDesconocido;  // lo que ponía inicio.ini si no era un motor conocido
bool s_enTransaccion = false;

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

// FECHA_VISIBLE(x): una fecha "AAAA-MM-DD" como la ve el usuario, "dd/mm/aaaa"; lo demás, tal cual.
void funcionFechaVisible(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    const std::string_view t = sqlite3_value_type(argv[0]) == SQLITE_TEXT ? textoArg(argv[0]) : std::string_view();
    const auto digitos = [&](std::initializer_list<int> posiciones) {
        for (const int i : posiciones)
            if (t[i] < '0' || t[i] > '9')
                return false;
        return true;
    };
    if (t.size() != 10 || t[4] != '-' || t[7] != '-' || !digitos({0, 1, 2, 3, 5, 6, 8, 9})) {
        sqlite3_result_value(ctx, argv[0]);
        return;
    }
    const char visible[] = {t[8], t[9], '/', t[5], t[6], '/', t[0], t[1], t[2], t[3]};
    sqlite3_result_text(ctx, visible, 10, SQLITE_TRANSIENT);
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
    sqlite3_create_function(h, "fecha_visible", 1, opciones, nullptr, funcionFechaVisible, nullptr, nullptr);
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

namespace {

ErrorPrograma conTextoMotor(qint64 numero, const QString& texto, const QString& textoMotor)
{
    ErrorPrograma e(numero, texto);
    e.textoMotor = textoMotor;
    return e;
}

// Fallos del servidor por su código SQLSTATE; los que no son del almacenamiento son fallos del
// programa y se enseñan tal cual.
ErrorPrograma errorDeServidor(const QString& estado, const QString& textoMotor)
{
    const QString salto = QStringLiteral("\n");
    if (estado == QLatin1String("55P03") || estado == QLatin1String("40P01") || estado == QLatin1String("40001"))
        return conTextoMotor(ERROR_BD_EN_USO,
                             QStringLiteral("La base de datos está siendo usada por otro puesto de trabajo.") + salto
                                 + QStringLiteral("Espere a que quede libre e inténtelo de nuevo"),
                             textoMotor);
    if (estado == QLatin1String("25006"))
        return conTextoMotor(-1,
                             QStringLiteral("No se puede escribir en la base de datos: el servidor sólo permite leerla.") + salto
                                 + QStringLiteral("Pida permiso de escritura a quien administre el servidor"),
                             textoMotor);
    if (estado == QLatin1String("53100"))
        return conTextoMotor(-1, QStringLiteral("No queda espacio libre en el disco del servidor.") + salto
                                     + QStringLiteral("Avise a quien administre el servidor"),
                             textoMotor);
    if (estado.startsWith(QLatin1String("08")) || estado.startsWith(QLatin1String("57P")))
        return conTextoMotor(-1, QStringLiteral("Se ha perdido la conexión con el servidor de la base de datos.") + salto
                                     + QStringLiteral("Compruebe la red y que el servidor está en marcha, e inténtelo de nuevo"),
                             textoMotor);
    if (estado == QLatin1String("58030") || estado.startsWith(QLatin1String("XX")))
        return conTextoMotor(-1, QStringLiteral("El servidor no ha podido leer o escribir la base de datos.") + salto
                                     + QStringLiteral("Avise a quien administre el servidor"),
                             textoMotor);
    return ErrorPrograma(-1, textoMotor);
}

// Un servidor que no se alcanza o no deja entrar: lo que ha de mirar el usuario, en español.
ErrorPrograma errorDeConexion(const DatosServidor& s, const QString& textoMotor)
{
    const QString salto = QStringLiteral("\n");
    const QString donde = s.descripcion();
    QString texto;
    if (textoMotor.contains(QLatin1String("password")) || textoMotor.contains(QLatin1String("authentication"))
        || textoMotor.contains(QLatin1String("role")))
        texto = QStringLiteral("El servidor de la base de datos (%1) no acepta al usuario.").arg(donde) + salto
                + QStringLiteral("Compruebe el usuario de [BD] en inicio.ini y su contraseña en el fichero de contraseñas de PostgreSQL");
    else if (textoMotor.contains(QLatin1String("service")))
        texto = QStringLiteral("No se encuentra el servicio de la base de datos (%1).").arg(donde) + salto
                + QStringLiteral("Compruebe el nombre del servicio de [BD] en inicio.ini y el fichero de servicios de PostgreSQL");
    else if (textoMotor.contains(QLatin1String("database")) && textoMotor.contains(QLatin1String("does not exist")))
        texto = QStringLiteral("La base de datos no existe en el servidor (%1).").arg(donde) + salto
                + QStringLiteral("Compruebe la base de [BD] en inicio.ini");
    else
        texto = QStringLiteral("No se puede conectar con el servidor de la base de datos (%1).").arg(donde) + salto
                + QStringLiteral("Compruebe que el servidor está en marcha y que la red y los datos de [BD] en inicio.ini son correctos");
    return conTextoMotor(-1, texto, textoMotor);
}

}  // namespace

ErrorPrograma errorDe(const QSqlError& e, const QSqlDatabase& db)
{
    QString texto = e.databaseText();
    if (texto.isEmpty())
        texto = e.text();
    if (esServidor(db))
        return errorDeServidor(e.nativeErrorCode(), texto);
    bool ok = false;
    const int codigo = e.nativeErrorCode().toInt(&ok);
    if (!ok)
        return ErrorPrograma(-1, texto);
    return errorDeMotor(codigo, texto);
}

QString ficheroBD() { return rutaBD + NOMBRE_FICHERO; }

void construirCadenaConexion()
{
    const QString motor = leerAjuste(QStringLiteral("BD"), QStringLiteral("motor")).trimmed().toLower();
    s_motorDesconocido.clear();
    s_servidor = {};
    if (motor == QLatin1String("postgresql")) {
        s_motor = Motor::PostgreSQL;
        auto clave = [](const char* c) { return leerAjuste(QStringLiteral("BD"), QString::fromLatin1(c)).trimmed(); };
        s_servidor = {clave("servicio"), clave("servidor"), clave("puerto"), clave("base"), clave("usuario")};
        cadenaConexion = s_servidor.descripcion();
        return;
    }
    s_motor = Motor::SQLite;
    if (!motor.isEmpty() && motor != QLatin1String("sqlite"))
        s_motorDesconocido = motor;
    cadenaConexion = ficheroBD();
}

QString DatosServidor::descripcion() const
{
    if (!servicio.isEmpty())
        return QStringLiteral("servicio ") + servicio;
    QString r = usuario.isEmpty() ? QString() : usuario + QLatin1Char('@');
    r += servidor.isEmpty() ? QStringLiteral("localhost") : servidor;
    if (!puerto.isEmpty())
        r += QLatin1Char(':') + puerto;
    return r + QLatin1Char('/') + base;
}

QString DatosServidor::textoVisible() const
{
    QString r = QStringLiteral("Servidor PostgreSQL: ");
    if (!servicio.isEmpty()) {
        r += QStringLiteral("servicio ") + servicio;
    } else {
        if (!base.isEmpty())
            r += QStringLiteral("base ") + base + QLatin1Char(' ');
        // Sin servidor, libpq va al de este mismo equipo.
        r += QStringLiteral("en ") + (servidor.isEmpty() ? QStringLiteral("localhost") : servidor);
        if (!puerto.isEmpty())
            r += QLatin1Char(':') + puerto;
    }
    if (!usuario.isEmpty())
        r += QStringLiteral(" (usuario %1)").arg(usuario);
    return r;
}

Motor motorElegido() { return s_motor; }

bool enServidor() { return s_motor == Motor::PostgreSQL; }

const DatosServidor& servidorElegido() { return s_servidor; }

bool esServidor(const QSqlDatabase& db) { return db.isValid() && db.driverName() == DRIVER_SERVIDOR; }

namespace {

// La conexión de ese nombre con el controlador pedido; si existía con otro motor, se sustituye.
QSqlDatabase conexionCon(const QString& nombre, const QString& driver)
{
    if (QSqlDatabase::contains(nombre)) {
        if (QSqlDatabase::database(nombre, false).driverName() == driver)
            return QSqlDatabase::database(nombre, false);
        QSqlDatabase::removeDatabase(nombre);
    }
    return QSqlDatabase::addDatabase(driver, nombre);
}

void comprobarMotorConocido()
{
    if (!s_motorDesconocido.isEmpty())
        lanzarError(-1, QStringLiteral("El motor de base de datos de inicio.ini (motor=%1) no se conoce.").arg(s_motorDesconocido)
                            + QStringLiteral("\nEscriba motor=sqlite o motor=postgresql en la sección [BD]"));
}

}  // namespace

QSqlDatabase abrirConexion(const QString& nombre, const QString& fichero, Acceso acceso)
{
    const bool soloLectura = acceso == Acceso::SoloLectura;
    QSqlDatabase db = conexionCon(nombre, DRIVER_FICHERO);
    if (db.isOpen())
        db.close();
    if (!QFileInfo::exists(fichero))
        lanzarError(-1, QStringLiteral("No se encuentra el fichero de la base de datos: ") + QDir::toNativeSeparators(fichero));
    db.setDatabaseName(fichero);
    QString opciones = QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(ESPERA_CERROJO_MS);
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

QSqlDatabase abrirServidor(const QString& nombre, const DatosServidor& s, Acceso acceso)
{
    if (!QSqlDatabase::isDriverAvailable(DRIVER_SERVIDOR))
        lanzarError(-1, QStringLiteral("Falta el controlador de PostgreSQL (paquete libqt6sql6-psql).")
                            + QStringLiteral("\nInstálelo, o vuelva a motor=sqlite en la sección [BD] de inicio.ini"));
    QSqlDatabase db = conexionCon(nombre, DRIVER_SERVIDOR);
    if (db.isOpen())
        db.close();
    db.setHostName(s.servidor);
    db.setDatabaseName(s.base);
    db.setUserName(s.usuario);
    db.setPassword(QString());
    bool ok = false;
    const int puerto = s.puerto.toInt(&ok);
    db.setPort(ok ? puerto : -1);
    // La contraseña la ponen el fichero de contraseñas o el de servicios de libpq, nunca el programa.
    QString opciones = QStringLiteral("connect_timeout=10;application_name=planorum-mirvade");
    if (!s.servicio.isEmpty())
        opciones += QStringLiteral(";service=") + s.servicio;
    db.setConnectOptions(opciones);
    if (!db.open()) {
        const ErrorPrograma e = errorDeConexion(s, db.lastError().databaseText().isEmpty() ? db.lastError().text()
                                                                                          : db.lastError().databaseText());
        db = QSqlDatabase();  // sin copias vivas, la conexión se olvida sin aviso
        QSqlDatabase::removeDatabase(nombre);
        throw e;
    }
    // Las funciones españolas del esquema (LIKE, UPPER) van antes que las del sistema. Un cerrojo
    // de otro puesto se espera lo mismo que en el fichero y luego es "en uso".
    QSqlQuery q(db);
    QString preparar = QStringLiteral("SET search_path = public, pg_catalog; SET lock_timeout = %1").arg(ESPERA_CERROJO_MS);
    if (acceso == Acceso::SoloLectura)
        preparar += QStringLiteral("; SET default_transaction_read_only = on");
    if (!q.exec(preparar)) {
        const ErrorPrograma e = errorDe(q.lastError(), db);
        q = QSqlQuery();
        db.close();
        throw e;
    }
    return db;
}

QSqlDatabase abrirOtraConexion(const QString& nombre, Acceso acceso)
{
    comprobarMotorConocido();
    if (enServidor())
        return abrirServidor(nombre, s_servidor, acceso);
    return abrirConexion(nombre, ficheroBD(), acceso);
}

QSqlDatabase conexionBD()
{
    if (QSqlDatabase::contains(NOMBRE_CONEXION))
        return QSqlDatabase::database(NOMBRE_CONEXION, false);
    return QSqlDatabase::addDatabase(enServidor() ? DRIVER_SERVIDOR : DRIVER_FICHERO, NOMBRE_CONEXION);
}

bool estaAbierta() { return QSqlDatabase::contains(NOMBRE_CONEXION) && conexionBD().isOpen(); }

void abrir()
{
    if (estaAbierta())
        return;
    if (cadenaConexion.isEmpty())
        construirCadenaConexion();
    comprobarMotorConocido();
    if (enServidor())
        abrirServidor(NOMBRE_CONEXION, s_servidor);
    else
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
    // En el servidor cada fila se bloquea al escribirla; en el fichero, el puesto entero.
    ejecutar(BaseDatos::esServidor(BaseDatos::conexionBD()) ? QStringLiteral("BEGIN") : QStringLiteral("BEGIN IMMEDIATE"));
    m_activa = true;
    BaseDatos::s_enTransaccion = true;
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
    BaseDatos::s_enTransaccion = false;
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
    BaseDatos::s_enTransaccion = false;
    // Los cuadros retenidos salen aunque el ROLLBACK falle.
    struct Soltar {
        ~Soltar() { Mensajes::soltar(); }
    } soltar;
    ejecutar(QStringLiteral("ROLLBACK"));
}

Consulta::Consulta(const QString& sql, const QVariantList& valores) : Consulta(BaseDatos::conexionBD(), sql, valores) {}

namespace {

// El programa escribe los nombres sin distinguir mayúsculas ("PryCod", "PRYCOD"). El servidor
// guarda los nombres sin comillas en minúsculas y respeta los que van entre comillas: éstos se
// pasan a minúsculas (sólo las letras ASCII, como hace el servidor), fuera de los textos.
QString nombresDelServidor(const QString& sql)
{
    QString r = sql;
    QChar dentro;  // '"' o '\'' mientras se está dentro de un nombre o de un texto
    for (QChar& c : r) {
        if (dentro.isNull()) {
            if (c == QLatin1Char('"') || c == QLatin1Char('\''))
                dentro = c;
        } else if (c == dentro) {
            dentro = QChar();
        } else if (dentro == QLatin1Char('"') && c >= QLatin1Char('A') && c <= QLatin1Char('Z')) {
            c = QChar(c.unicode() + 32);
        }
    }
    return r;
}

}  // namespace

Consulta::Consulta(QSqlDatabase db, const QString& sql, const QVariantList& valores) : m_q(db)
{
    // En el servidor, de sólo avance el controlador lee fila a fila y una consulta anidada en la
    // misma conexión (leer el arquitecto de cada fila de enlace) deja a la de fuera sin sus
    // filas restantes: allí se lee el resultado entero.
    m_q.setForwardOnly(!BaseDatos::esServidor(db));
    if (BaseDatos::esServidor(db) && valores.isEmpty()) {
        // El servidor no prepara BEGIN, COMMIT ni LOCK; sin valores que enlazar no hace falta.
        if (!m_q.exec(nombresDelServidor(sql)))
            throw BaseDatos::errorDe(m_q.lastError(), db);
        return;
    }
    if (!m_q.prepare(BaseDatos::esServidor(db) ? nombresDelServidor(sql) : sql))
        throw BaseDatos::errorDe(m_q.lastError(), db);
    for (const QVariant& v : valores)
        m_q.addBindValue(v);
    if (!m_q.exec())
        throw BaseDatos::errorDe(m_q.lastError(), db);
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

namespace {

QString sentenciaInsertar(const QString& tabla, const Campos& campos, QVariantList& valores)
{
    QStringList nombres, marcas;
    for (const auto& [nombre, valor] : campos) {
        nombres << QLatin1Char('"') + nombre + QLatin1Char('"');
        marcas << QStringLiteral("?");
        valores << valor;
    }
    return QStringLiteral("INSERT INTO \"%1\" (%2) VALUES (%3)").arg(tabla, nombres.join(QLatin1Char(',')), marcas.join(QLatin1Char(',')));
}

}  // namespace

void insertar(const QString& tabla, const Campos& campos)
{
    QVariantList valores;
    const QString sql = sentenciaInsertar(tabla, campos, valores);
    ejecutar(sql, valores);
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

qint64 ultimoIdentificador()
{
    return escalar(BaseDatos::esServidor(BaseDatos::conexionBD()) ? QStringLiteral("SELECT lastval()")
                                                                  : QStringLiteral("SELECT last_insert_rowid()"))
        .toLongLong();
}

qint64 insertarConContador(const QString& tabla, const Campos& campos, const QString& contador)
{
    QVariantList valores;
    const QString sql = sentenciaInsertar(tabla, campos, valores) + QStringLiteral(" RETURNING \"%1\"").arg(contador);
    Consulta c(sql, valores);
    return c.siguiente() ? c.valor(0).toLongLong() : 0;
}

qint64 siguienteClave(const QString& tabla, const QString& campo)
{
    if (BaseDatos::s_enTransaccion && BaseDatos::esServidor(BaseDatos::conexionBD()))
        ejecutar(QStringLiteral("LOCK TABLE \"%1\" IN SHARE ROW EXCLUSIVE MODE").arg(tabla));
    const QVariant v = escalar(QStringLiteral("SELECT MAX(\"%1\") FROM \"%2\"").arg(campo, tabla));
    return v.isNull() ? 1 : v.toLongLong() + 1;
}

QVariant textoONulo(const QString& texto)
{
    const QString t = texto.trimmed();
    return t.isEmpty() ? QVariant(QMetaType(QMetaType::QString)) : QVariant(t);
}
