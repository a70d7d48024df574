#pragma once
#include <QSqlDatabase>
#include <QString>
#include <QStringList>

// El esquema del servidor sale del mismo resources/esquema.sql que el fichero: mismas tablas,
// columnas y nombres (en minúsculas, como los guarda el servidor), contadores como columnas
// identity, y delante las funciones españolas (resources/funciones-servidor.sql). Cada tabla lleva
// al final la columna identity "rowid": el orden de llegada de las filas, que el fichero guarda
// oculto con ese mismo nombre, para que las mismas sentencias ordenen igual en los dos motores.
namespace EsquemaServidor {

// El esquema del fichero (resources/esquema.sql), el de una base de datos nueva del programa.
QString esquemaFichero();
// Un nombre de tabla o de columna del fichero como lo guarda el servidor.
QString nombre(const QString& nombreFichero);

// Traduce el esquema del fichero al dialecto del servidor.
QString traducir(const QString& esquemaFichero);
// El esquema completo del servidor, sentencia a sentencia: funciones españolas y tablas con las
// provincias; y todo junto en una transacción, para cargarlo con psql.
QStringList sentencias();
QString sql();
// Crea el esquema en una base vacía del servidor, en una transacción. Lanza ErrorPrograma.
void crear(QSqlDatabase db);

}  // namespace EsquemaServidor
