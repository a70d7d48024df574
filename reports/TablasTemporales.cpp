#include "reports/TablasTemporales.h"

#include "core/Rutas.h"
#include "reports/TablaImpresos.h"

#include <QSysInfo>

namespace TablasTemporales {

namespace {

QString& otroPuesto()
{
    static QString p;
    return p;
}

// Versión del fichero desde la que las tablas temporales llevan la columna Puesto.
constexpr int VERSION_CON_PUESTO = 2;

// Una base de datos hecha antes de la columna (una copia antigua restaurada, por ejemplo): se le
// añade a cada tabla temporal, y sus filas, que no son de nadie, se tiran.
void ponerAlDia()
{
    if (BaseDatos::esServidor(BaseDatos::conexionBD()))
        return;
    if (escalar(QStringLiteral("PRAGMA user_version")).toInt() >= VERSION_CON_PUESTO)
        return;
    for (const QString& tabla : todas()) {
        bool tiene = false;
        Consulta columnas(QStringLiteral("SELECT name FROM pragma_table_info(?)"), {tabla});
        while (columnas.siguiente())
            tiene = tiene || columnas.texto(QStringLiteral("name")).compare(COLUMNA, Qt::CaseInsensitive) == 0;
        if (!tiene)
            ejecutar(QStringLiteral("ALTER TABLE \"%1\" ADD COLUMN %2 TEXT").arg(tabla, COLUMNA));
        ejecutar(QStringLiteral("DELETE FROM \"%1\" WHERE %2 IS NULL").arg(tabla, COLUMNA));
    }
    ejecutar(QStringLiteral("PRAGMA user_version = %1").arg(VERSION_CON_PUESTO));
}

void vaciarTabla(const QString& tabla)
{
    ejecutar(QStringLiteral("DELETE FROM \"%1\"").arg(tabla) + condicion(), {puesto()});
}

}  // namespace

QString puesto()
{
    if (!otroPuesto().isEmpty())
        return otroPuesto();
    static const QString propio = [] {
        QString usuario = qEnvironmentVariable("USER");
        if (usuario.isEmpty())
            usuario = qEnvironmentVariable("USERNAME");
        return QSysInfo::machineHostName() + QLatin1Char('/') + usuario + QLatin1Char('/') + Rutas::huellaInstalacion();
    }();
    return propio;
}

void fijarPuesto(const QString& marca) { otroPuesto() = marca; }

QStringList todas()
{
    static const QStringList tablas = [] {
        QStringList t;
        for (const DefinicionImpreso& d : TablaImpresos::todas()) {
            for (const QString& tabla : QStringList{d.tablaTemporal} + d.temporalesExtra)
                if (!tabla.isEmpty() && !t.contains(tabla))
                    t << tabla;
            for (const VarianteImpreso& v : d.variantes)
                if (!v.tablaInforme.isEmpty() && !t.contains(v.tablaInforme))
                    t << v.tablaInforme;
        }
        return t;
    }();
    return tablas;
}

bool esTemporal(const QString& tabla) { return todas().contains(tabla, Qt::CaseInsensitive); }

void vaciar(const DefinicionImpreso& d)
{
    ponerAlDia();
    vaciarTabla(d.tablaTemporal);
    for (const QString& extra : d.temporalesExtra)
        vaciarTabla(extra);
}

void insertar(const QString& tabla, Campos campos)
{
    campos.append({COLUMNA, puesto()});
    ::insertar(tabla, campos);
}

QString seleccion(const QString& tabla)
{
    return QStringLiteral("SELECT * FROM ") + tabla + condicion() + QStringLiteral(" ORDER BY rowid");
}

QString condicion() { return QStringLiteral(" WHERE ") + COLUMNA + QStringLiteral(" = ?"); }

}  // namespace TablasTemporales
