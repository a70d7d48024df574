#include "tests/comun/ServidorPrueba.h"

#include "core/EsquemaServidor.h"
#include "tests/comun/EntornoPrueba.h"

#include <QCoreApplication>
#include <QFile>
#include <QSqlError>
#include <QSqlQuery>

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

ServidorPrueba::ServidorPrueba()
{
    const QString carpeta = qEnvironmentVariable("PLANORUM_PG_SERVIDOR");
    if (carpeta.isEmpty()) {
        m_motivo = QStringLiteral("Sin servidor PostgreSQL de pruebas: se arranca al pasar las pruebas con ctest");
        return;
    }
    QFile motivo(carpeta + QStringLiteral("/motivo.txt"));
    if (motivo.open(QIODevice::ReadOnly)) {
        m_motivo = QString::fromUtf8(motivo.readAll()).trimmed();
        return;
    }
    m_datos.servidor = carpeta;
    m_datos.puerto = qEnvironmentVariable("PLANORUM_PG_PUERTO");
    m_datos.usuario = qEnvironmentVariable("PLANORUM_PG_USUARIO");
    m_datos.base = qEnvironmentVariable("PLANORUM_PG_BASE");
    m_administracion = m_datos.base;
    static int cuenta = 0;
    const QString propia = QStringLiteral("prueba_%1_%2").arg(QCoreApplication::applicationPid()).arg(++cuenta);
    comoAdministrador(m_datos, [&](QSqlDatabase& db) { ejecutarEn(db, QStringLiteral("CREATE DATABASE %1").arg(propia)); });
    m_datos.base = propia;
    comoAdministrador(m_datos, [](QSqlDatabase& db) { EsquemaServidor::crear(db); });
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
