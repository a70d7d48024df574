#pragma once
#include "core/BaseDatos.h"

#include <QString>
#include <QStringList>

struct DefinicionImpreso;

// Filas de las tablas temporales de los impresos, cada puesto las suyas: cada fila lleva en la
// columna Puesto la marca del puesto que la escribió, cada vista previa vacía sólo las de su
// puesto y el informe sólo lee ésas. Así dos puestos que sacan a la vez la vista previa del mismo
// impreso imprimen cada uno su proyecto, en el fichero y en el servidor.
namespace TablasTemporales {

inline const QString COLUMNA = QStringLiteral("Puesto");

// Equipo, usuario del sistema y huella de la instalación: el programa no se abre dos veces en
// el mismo puesto, así que la marca sólo es de un programa vivo, y el mismo puesto al volver a
// entrar pisa sus propias filas en vez de ir dejando restos.
QString puesto();
// Sólo para las pruebas: hacerse pasar por otro puesto en el mismo proceso. Vacío: el propio.
void fijarPuesto(const QString& marca);

// Las tablas temporales de todos los impresos, sin repetir.
QStringList todas();
bool esTemporal(const QString& tabla);

// Vacía las filas de este puesto en la tabla temporal del impreso y en las suyas de más. Dentro
// de la transacción de la vista previa. Una base de datos anterior a la columna Puesto la recibe
// aquí (en el fichero; el esquema del servidor ya la trae).
void vaciar(const DefinicionImpreso& d);
// Inserta una fila con la marca de este puesto.
void insertar(const QString& tabla, Campos campos);

// "SELECT * FROM tabla" de las filas de este puesto, en su orden de llegada; un ? con puesto().
QString seleccion(const QString& tabla);
// " WHERE Puesto = ?": lo que añade cualquier otra lectura de una tabla temporal.
QString condicion();

}  // namespace TablasTemporales
