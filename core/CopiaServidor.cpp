#include "core/CopiaServidor.h"

#include "core/BaseDatos.h"
#include "core/EsquemaServidor.h"

#include <QHash>
#include <functional>
#include <QSqlError>
#include <QSqlQuery>
#include <sqlite3.h>

namespace CopiaServidor {

namespace {

const QString CONEXION_SERVIDOR = QStringLiteral("copia_servidor");
const QString CONEXION_COPIA = QStringLiteral("copia_fichero");
const QString SALTO = QStringLiteral("\n");

QString entreComillas(const QString& nombre) { return QLatin1Char('"') + nombre + QLatin1Char('"'); }

QString listaColumnas(const QStringList& columnas, bool servidor)
{
    QStringList r;
    for (const QString& c : columnas)
        r << entreComillas(servidor ? EsquemaServidor::nombre(c) : c);
    return r.join(QLatin1Char(','));
}

// Conexión propia del trabajo; al salir se cierra (lo no confirmado se deshace) y se olvida.
class Conexion {
public:
    Conexion(const QString& nombre, QSqlDatabase db) : m_nombre(nombre), m_db(db) {}
    ~Conexion()
    {
        m_db.close();
        m_db = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_nombre);
    }
    Conexion(const Conexion&) = delete;
    Conexion& operator=(const Conexion&) = delete;
    QSqlDatabase& db() { return m_db; }

private:
    QString m_nombre;
    QSqlDatabase m_db;
};

// Tablas del servidor (nombre del servidor): sus columnas, sin el orden de llegada, y su contador.
struct Catalogo {
    QHash<QString, QStringList> columnas;
    QHash<QString, QString> contador;
};

Catalogo catalogo(QSqlDatabase& db)
{
    Catalogo r;
    Consulta c(db, QStringLiteral("SELECT c.table_name, c.column_name, c.is_identity FROM information_schema.columns c "
                                  "JOIN information_schema.tables t ON t.table_schema = c.table_schema AND t.table_name = c.table_name "
                                  "WHERE c.table_schema = 'public' AND t.table_type = 'BASE TABLE' AND c.column_name <> 'rowid'"));
    while (c.siguiente()) {
        const QString tabla = c.valor(0).toString();
        r.columnas[tabla] << c.valor(1).toString();
        if (c.valor(2).toString() == QLatin1String("YES"))
            r.contador[tabla] = c.valor(1).toString();
    }
    return r;
}

// Una tabla del fichero con las columnas que tiene también el servidor.
struct Tabla {
    QString nombre;        // como en el fichero
    QStringList columnas;  // como en el fichero
    QString servidor() const { return EsquemaServidor::nombre(nombre); }
};

// Las tablas del fichero (nombre y columnas, en su orden) que están en el servidor. Lo que sólo
// está en un lado se queda fuera: una copia de otra versión del programa sirve igual.
QList<Tabla> comunes(const QList<QPair<QString, QStringList>>& fichero, const Catalogo& cat)
{
    QList<Tabla> r;
    for (const auto& [tabla, columnas] : fichero) {
        const QStringList enServidor = cat.columnas.value(EsquemaServidor::nombre(tabla));
        Tabla t{tabla, {}};
        for (const QString& c : columnas)
            if (enServidor.contains(EsquemaServidor::nombre(c)))
                t.columnas << c;
        if (!t.columnas.isEmpty())
            r << t;
    }
    return r;
}

// El controlador del servidor da los bigint positivos como enteros sin signo.
bool esEntero(const QVariant& v)
{
    switch (v.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return true;
    default:
        return false;
    }
}

// Conexión del motor del fichero que escribe la copia.
class Fichero {
public:
    explicit Fichero(sqlite3* h) : m_h(h) {}

    [[noreturn]] void fallo() const
    {
        throw BaseDatos::errorDeMotor(sqlite3_extended_errcode(m_h), QString::fromUtf8(sqlite3_errmsg(m_h)));
    }

    void ejecutar(const QString& sql) const
    {
        if (sqlite3_exec(m_h, sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
            fallo();
    }

    // Una sentencia preparada, con sus valores enlazados de nuevo en cada vuelta.
    class Sentencia {
    public:
        Sentencia(const Fichero& f, const QString& sql) : m_f(f)
        {
            if (sqlite3_prepare_v2(m_f.m_h, sql.toUtf8().constData(), -1, &m_s, nullptr) != SQLITE_OK)
                m_f.fallo();
        }
        ~Sentencia() { sqlite3_finalize(m_s); }
        Sentencia(const Sentencia&) = delete;
        Sentencia& operator=(const Sentencia&) = delete;

        void enlazar(int i, const QVariant& v)
        {
            int rc = SQLITE_OK;
            if (v.isNull())
                rc = sqlite3_bind_null(m_s, i);
            else if (esEntero(v))
                rc = sqlite3_bind_int64(m_s, i, v.toLongLong());
            else if (v.typeId() == QMetaType::Double)
                rc = sqlite3_bind_double(m_s, i, v.toDouble());
            else {
                const QByteArray t = v.toString().toUtf8();
                rc = sqlite3_bind_text(m_s, i, t.constData(), int(t.size()), SQLITE_TRANSIENT);
            }
            if (rc != SQLITE_OK)
                m_f.fallo();
        }
        // Ejecuta; devuelve true si hay una fila que leer.
        bool paso()
        {
            const int rc = sqlite3_step(m_s);
            if (rc == SQLITE_ROW)
                return true;
            if (rc != SQLITE_DONE)
                m_f.fallo();
            sqlite3_reset(m_s);
            return false;
        }
        QString texto(int i) const { return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(m_s, i))); }
        qint64 entero(int i) const { return sqlite3_column_int64(m_s, i); }

    private:
        const Fichero& m_f;
        sqlite3_stmt* m_s = nullptr;
    };

    // La primera columna de cada fila de una sentencia con un valor o ninguno.
    QStringList columna(const QString& sql, const QVariant& valor) const
    {
        Sentencia s(*this, sql);
        if (valor.isValid())
            s.enlazar(1, valor);
        QStringList r;
        while (s.paso())
            r << s.texto(0);
        return r;
    }

private:
    sqlite3* m_h;
};

// Tablas de un fichero del programa con sus columnas, en su orden, leídas con `columna` (la primera
// columna de una sentencia con un valor o ninguno): la copia escribe el fichero con el motor, la
// restauración lo lee con Qt.
QList<QPair<QString, QStringList>> tablasDe(const std::function<QStringList(const QString&, const QVariant&)>& columna)
{
    QList<QPair<QString, QStringList>> r;
    for (const QString& t : columna(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name <> 'sqlite_sequence' "
                                                   "ORDER BY rowid"), {}))
        r.append({t, columna(QStringLiteral("SELECT name FROM pragma_table_info(?)"), t)});
    return r;
}

qint64 contarFilas(QSqlDatabase& db, const QList<Tabla>& tablas, bool servidor)
{
    QStringList sumandos;
    for (const Tabla& t : tablas)
        sumandos << QStringLiteral("(SELECT count(*) FROM %1)").arg(entreComillas(servidor ? t.servidor() : t.nombre));
    if (sumandos.isEmpty())
        return 0;
    Consulta c(db, QStringLiteral("SELECT ") + sumandos.join(QStringLiteral(" + ")));
    return c.siguiente() ? c.valor(0).toLongLong() : 0;
}

// El último valor que ha dado un contador del servidor (0 si ninguno).
qint64 ultimoDelContador(QSqlDatabase& db, const QString& tabla, const QString& columna)
{
    Consulta s(db, QStringLiteral("SELECT pg_get_serial_sequence(?, ?)"), {entreComillas(tabla), columna});
    if (!s.siguiente() || s.valor(0).isNull())
        return 0;
    Consulta c(db, QStringLiteral("SELECT last_value, is_called FROM ") + s.valor(0).toString());
    if (!c.siguiente())
        return 0;
    return c.valor(1).toBool() ? c.valor(0).toLongLong() : c.valor(0).toLongLong() - 1;
}

// Lectura de una tabla entera en el orden de llegada de sus filas, fila a fila (sin cargarla toda).
QSqlQuery leerEnOrden(QSqlDatabase& db, const Tabla& t, bool servidor)
{
    QSqlQuery q(db);
    q.setForwardOnly(true);
    if (!q.exec(QStringLiteral("SELECT %1 FROM %2 ORDER BY rowid")
                    .arg(listaColumnas(t.columnas, servidor), entreComillas(servidor ? t.servidor() : t.nombre))))
        throw BaseDatos::errorDe(q.lastError(), db);
    return q;
}

void comprobarFinal(const QSqlQuery& q, QSqlDatabase& db)
{
    if (q.lastError().isValid())
        throw BaseDatos::errorDe(q.lastError(), db);
}

// Inserta en el servidor por tandas de varias filas en una misma sentencia: fila a fila, cada una
// sería un viaje de ida y vuelta. Un dato que el servidor no admite (un texto en una columna
// numérica, una clave repetida o nula) hace la copia inservible para él.
class Insercion {
public:
    Insercion(QSqlDatabase& db, const Tabla& t) : m_db(db), m_t(t), m_porTanda(qMax(1, 1000 / int(t.columnas.size()))) {}

    void anadir(const QSqlQuery& fila)
    {
        for (int i = 0; i < m_t.columnas.size(); ++i)
            m_valores << fila.value(i);
        if (++m_filas == m_porTanda)
            vaciar();
    }

    // Inserta lo que quede (al terminar la tabla, o con la tanda llena).
    void vaciar()
    {
        if (m_filas == 0)
            return;
        if (m_filas == m_porTanda) {
            if (!m_llenaPreparada)
                preparar(m_llena);
            m_llenaPreparada = true;
            ejecutar(m_llena);
        } else {
            QSqlQuery resto(m_db);
            preparar(resto);
            ejecutar(resto);
        }
        m_valores.clear();
        m_filas = 0;
    }

private:
    void preparar(QSqlQuery& q)
    {
        const QString fila = QLatin1Char('(') + QStringList(int(m_t.columnas.size()), QStringLiteral("?")).join(QLatin1Char(',')) + QLatin1Char(')');
        q = QSqlQuery(m_db);
        if (!q.prepare(QStringLiteral("INSERT INTO %1 (%2) VALUES %3")
                           .arg(entreComillas(m_t.servidor()), listaColumnas(m_t.columnas, true), QStringList(m_filas, fila).join(QLatin1Char(',')))))
            throw BaseDatos::errorDe(q.lastError(), m_db);
    }

    void ejecutar(QSqlQuery& q)
    {
        for (const QVariant& v : std::as_const(m_valores))
            q.addBindValue(v);
        if (q.exec())
            return;
        const QSqlError e = q.lastError();
        // La transacción ya no sirve: se deshace ahora, para que las sentencias preparadas se
        // puedan liberar antes de cerrar la conexión.
        QSqlQuery(m_db).exec(QStringLiteral("ROLLBACK"));
        const QString estado = e.nativeErrorCode();
        if (!estado.startsWith(QLatin1String("22")) && !estado.startsWith(QLatin1String("23")))
            throw BaseDatos::errorDe(e, m_db);
        Almacen::FicheroNoValido f(-1, QStringLiteral("La copia de seguridad seleccionada tiene datos que el servidor no admite (tabla %1).")
                                           .arg(m_t.nombre)
                                       + SALTO + QStringLiteral("No se ha restaurado nada. Por favor, seleccione otra copia de seguridad"));
        f.textoMotor = e.databaseText();
        throw f;
    }

private:
    QSqlDatabase& m_db;
    const Tabla& m_t;
    const int m_porTanda;
    QSqlQuery m_llena;  // la sentencia de una tanda llena, que se repite
    bool m_llenaPreparada = false;
    QVariantList m_valores;
    int m_filas = 0;
};

}  // namespace

void copiar(const QString& destino, const Almacen::Latido& latido)
{
    Almacen::Pulso pulso(latido);
    Conexion servidor(CONEXION_SERVIDOR, BaseDatos::abrirOtraConexion(CONEXION_SERVIDOR, BaseDatos::Acceso::SoloLectura));
    QSqlDatabase& db = servidor.db();
    // Todas las tablas en la instantánea que toma la primera lectura: los demás puestos siguen
    // guardando mientras tanto, y nada de lo que confirmen entra a medias en la copia.
    ejecutar(db, QStringLiteral("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"));
    // Quien tiene el cerrojo de las copias sabe que ningún otro puesto escribe una copia de este
    // servidor: puede llevarse los restos a medias de su destino. Sin él, la copia sigue igual.
    if (Consulta c(db, QStringLiteral("SELECT pg_try_advisory_xact_lock(?)"), {CERROJO_COPIAS}); c.siguiente() && c.valor(0).toBool())
        Almacen::borrarParcialesAbandonados(destino);
    const Catalogo cat = catalogo(db);
    Almacen::escribirFicheroNuevo(destino, [&](sqlite3* h) {
        const Fichero f(h);
        // Una base de datos nueva del programa, como la que se entrega, con su versión.
        f.ejecutar(EsquemaServidor::esquemaFichero());
        const QList<Tabla> tablas = comunes(tablasDe([&](const QString& sql, const QVariant& v) { return f.columna(sql, v); }), cat);
        const qint64 total = qMax<qint64>(1, contarFilas(db, tablas, true));
        qint64 hechas = 0;
        f.ejecutar(QStringLiteral("BEGIN"));
        for (const Tabla& t : tablas) {
            f.ejecutar(QStringLiteral("DELETE FROM ") + entreComillas(t.nombre));  // las provincias del esquema
            Fichero::Sentencia insertar(f, QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                               .arg(entreComillas(t.nombre), listaColumnas(t.columnas, false),
                                                    QStringList(int(t.columnas.size()), QStringLiteral("?")).join(QLatin1Char(','))));
            QSqlQuery q = leerEnOrden(db, t, true);
            while (q.next()) {
                for (int i = 0; i < t.columnas.size(); ++i)
                    insertar.enlazar(i + 1, q.value(i));
                insertar.paso();
                pulso(int(100 * ++hechas / total));
            }
            comprobarFinal(q, db);
            // El contador de la copia sigue tras el último valor dado, aunque su fila ya no esté:
            // una clave borrada no vuelve a darse.
            const QString contador = cat.contador.value(t.servidor());
            if (contador.isEmpty())
                continue;
            const qint64 ultimo = ultimoDelContador(db, t.servidor(), contador);
            for (const char* sql : {"UPDATE sqlite_sequence SET seq = ?2 WHERE name = ?1 AND seq < ?2",
                                    "INSERT INTO sqlite_sequence (name, seq) SELECT ?1, ?2 WHERE ?2 > 0 "
                                    "AND NOT EXISTS (SELECT 1 FROM sqlite_sequence WHERE name = ?1)"}) {
                Fichero::Sentencia secuencia(f, QString::fromLatin1(sql));
                secuencia.enlazar(1, t.nombre);
                secuencia.enlazar(2, ultimo);
                secuencia.paso();
            }
        }
        f.ejecutar(QStringLiteral("COMMIT"));
    });
}

void restaurar(const QString& copia, const Almacen::Latido& latido)
{
    Almacen::comprobarBaseDatos(copia, Almacen::Uso::CopiaElegida);
    Almacen::Pulso pulso(latido);
    Conexion origen(CONEXION_COPIA, BaseDatos::abrirConexion(CONEXION_COPIA, copia, BaseDatos::Acceso::SoloLectura));
    Conexion servidor(CONEXION_SERVIDOR, BaseDatos::abrirOtraConexion(CONEXION_SERVIDOR, BaseDatos::Acceso::LecturaEscritura));
    QSqlDatabase& db = servidor.db();
    // Todo en una transacción: si algo falla, al cerrar la conexión sin confirmar el servidor
    // queda como estaba.
    ejecutar(db, QStringLiteral("BEGIN"));
    const Catalogo cat = catalogo(db);
    const QList<Tabla> tablas = comunes(tablasDe([&](const QString& sql, const QVariant& v) {
                                            QStringList r;
                                            for (Consulta c(origen.db(), sql, v.isValid() ? QVariantList{v} : QVariantList{}); c.siguiente();)
                                                r << c.valor(0).toString();
                                            return r;
                                        }),
                                        cat);
    QStringList todas;
    for (auto it = cat.columnas.cbegin(); it != cat.columnas.cend(); ++it)
        todas << entreComillas(it.key());
    // Nadie lee ni escribe a medias lo que se restaura: las tablas son de esta transacción hasta
    // confirmarla. Al guardado de otro puesto se le espera lo que espera la conexión a un cerrojo;
    // si no termina, la base de datos está en uso.
    ejecutar(db, QStringLiteral("LOCK TABLE %1 IN ACCESS EXCLUSIVE MODE").arg(todas.join(QLatin1Char(','))));
    // Vaciar reinicia también el orden de llegada, que las filas de la copia toman en su orden.
    ejecutar(db, QStringLiteral("TRUNCATE %1 RESTART IDENTITY").arg(todas.join(QLatin1Char(','))));

    const qint64 total = qMax<qint64>(1, contarFilas(origen.db(), tablas, false));
    qint64 hechas = 0;
    for (const Tabla& t : tablas) {
        Insercion insercion(db, t);
        QSqlQuery q = leerEnOrden(origen.db(), t, false);
        while (q.next()) {
            insercion.anadir(q);
            pulso(int(100 * ++hechas / total));
        }
        comprobarFinal(q, origen.db());
        insercion.vaciar();
    }

    // Cada contador, tras la mayor clave y tras el último valor que dio el fichero de la copia.
    QHash<QString, qint64> secuencias;  // por nombre del servidor
    Consulta hay(origen.db(), QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name = 'sqlite_sequence'"));
    if (hay.siguiente() && hay.valor(0).toInt() > 0) {
        Consulta s(origen.db(), QStringLiteral("SELECT name, seq FROM sqlite_sequence"));
        while (s.siguiente())
            secuencias[EsquemaServidor::nombre(s.valor(0).toString())] = s.valor(1).toLongLong();
    }
    for (auto it = cat.contador.cbegin(); it != cat.contador.cend(); ++it) {
        Consulta mayor(db, QStringLiteral("SELECT max(%1) FROM %2").arg(entreComillas(it.value()), entreComillas(it.key())));
        const qint64 siguiente = qMax(mayor.siguiente() ? mayor.valor(0).toLongLong() : 0, secuencias.value(it.key())) + 1;
        ejecutar(db, QStringLiteral("ALTER TABLE %1 ALTER COLUMN %2 RESTART WITH %3").arg(entreComillas(it.key()), entreComillas(it.value())).arg(siguiente));
    }
    ejecutar(db, QStringLiteral("COMMIT"));
}

}  // namespace CopiaServidor
