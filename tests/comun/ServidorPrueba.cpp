#include "tests/comun/ServidorPrueba.h"

#include "core/EsquemaServidor.h"
#include "tests/comun/EntornoPrueba.h"

#include <QCoreApplication>
#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QTest>

namespace {

const QString CONEXION_ADMINISTRACION = QStringLiteral("administracion_pruebas");

// Conexión de administración para crear o borrar bases: se cierra y se olvida al salir.
template <class Cuerpo>
void comoAdministrador(const BaseDatos::DatosServidor& d, Cuerpo&& cuerpo)
{
    {
        QSqlDatabase db = BaseDatos::abrirServidor(CONEXION_ADMINISTRACION, d);
        cuerpo(db);
        db.close();
    }
    QSqlDatabase::removeDatabase(CONEXION_ADMINISTRACION);
}

void ejecutarEn(QSqlDatabase& db, const QString& sql)
{
    QSqlQuery q(db);
    if (!q.exec(sql))
        throw BaseDatos::errorDe(q.lastError(), db);
}

}  // namespace

QString ServidorPrueba::motivoSinServidor()
{
    const QString carpeta = qEnvironmentVariable("PLANORUM_PG_SERVIDOR");
    if (carpeta.isEmpty())
        return QStringLiteral("Sin servidor PostgreSQL de pruebas: se arranca al pasar las pruebas con ctest");
    QFile motivo(carpeta + QStringLiteral("/motivo.txt"));
    if (motivo.open(QIODevice::ReadOnly))
        return QString::fromUtf8(motivo.readAll()).trimmed();
    return {};
}

bool ServidorPrueba::pedido()
{
    return qEnvironmentVariable("PLANORUM_PRUEBAS_MOTOR").compare(QLatin1String("postgresql"), Qt::CaseInsensitive) == 0;
}

void ServidorPrueba::conectarAlPedido(EntornoPrueba& e, std::optional<ServidorPrueba>& s)
{
    if (pedido())
        s.emplace().elegirEn(e);
    else
        e.conectar();
}

ServidorPrueba::ServidorPrueba() : m_motivo(motivoSinServidor())
{
    if (!m_motivo.isEmpty())
        return;
    const QString carpeta = qEnvironmentVariable("PLANORUM_PG_SERVIDOR");
    m_datos.servidor = carpeta;
    m_datos.puerto = qEnvironmentVariable("PLANORUM_PG_PUERTO");
    m_datos.usuario = qEnvironmentVariable("PLANORUM_PG_USUARIO");
    m_datos.base = qEnvironmentVariable("PLANORUM_PG_BASE");
    m_administracion = m_datos.base;
    static int cuenta = 0;
    const QString propia = QStringLiteral("prueba_%1_%2").arg(QCoreApplication::applicationPid()).arg(++cuenta);
    comoAdministrador(m_datos, [&](QSqlDatabase& db) { ejecutarEn(db, QStringLiteral("CREATE DATABASE %1").arg(propia)); });
    m_datos.base = propia;
    comoAdministrador(m_datos, [](QSqlDatabase& db) {
        EsquemaServidor::crear(db);
        // Las pruebas leen listas con el group_concat del fichero; el programa no lo usa.
        for (const char* sql : {
                 "CREATE FUNCTION public.unir(text, anyelement, text) RETURNS text LANGUAGE sql IMMUTABLE "
                 "AS $$ SELECT CASE WHEN $2 IS NULL THEN $1 WHEN $1 IS NULL THEN $2::text ELSE $1 || $3 || $2::text END $$",
                 "CREATE FUNCTION public.unir(text, anyelement) RETURNS text LANGUAGE sql IMMUTABLE AS $$ SELECT public.unir($1, $2, ',') $$",
                 "CREATE AGGREGATE public.group_concat(anyelement, text) (SFUNC = public.unir, STYPE = text)",
                 "CREATE AGGREGATE public.group_concat(anyelement) (SFUNC = public.unir, STYPE = text)"})
            ejecutarEn(db, QString::fromLatin1(sql));
    });
}

ServidorPrueba::~ServidorPrueba()
{
    if (!disponible())
        return;
    BaseDatos::cerrar();
    BaseDatos::DatosServidor admin = m_datos;
    admin.base = m_administracion;
    try {
        comoAdministrador(admin, [&](QSqlDatabase& db) {
            ejecutarEn(db, QStringLiteral("DROP DATABASE IF EXISTS %1 WITH (FORCE)").arg(m_datos.base));
        });
    } catch (...) {
        // El clúster entero se borra al parar el servidor de pruebas.
    }
}

void ServidorPrueba::elegirEn(EntornoPrueba& e) const
{
    e.escribirIni(QStringLiteral("[BD]\r\nmotor=postgresql\r\nservidor=%1\r\npuerto=%2\r\nbase=%3\r\nusuario=%4\r\n"
                                 "[Opciones]\r\ninicio=1\r\ncopia=0\r\n")
                      .arg(m_datos.servidor, m_datos.puerto, m_datos.base, m_datos.usuario));
    e.conectar();
}

bool ServidorPrueba::otroPuestoPuedeGuardar() const
{
    bool bien = false;
    comoAdministrador(m_datos, [&](QSqlDatabase& db) {
        QSqlQuery q(db);
        QString tablas;
        if (q.exec(QStringLiteral("SELECT string_agg(quote_ident(tablename), ', ') FROM pg_tables WHERE schemaname = 'public'")) && q.next())
            tablas = q.value(0).toString();
        bien = !tablas.isEmpty() && q.exec(QStringLiteral("BEGIN"))
               && q.exec(QStringLiteral("LOCK TABLE %1 IN EXCLUSIVE MODE NOWAIT").arg(tablas));
        q.exec(QStringLiteral("ROLLBACK"));
    });
    return bien;
}

void ServidorPrueba::filasDeMotor()
{
    QTest::addColumn<bool>("servidor");
    QTest::newRow("fichero") << false;
    QTest::newRow("servidor") << true;
}

bool ServidorPrueba::elegirMotor(EntornoPrueba& e, std::optional<ServidorPrueba>& s)
{
    QFETCH(bool, servidor);
    if (!servidor) {
        e.conectar();
        return true;
    }
    s.emplace();
    if (!s->disponible())
        return false;
    s->elegirEn(e);
    return true;
}
