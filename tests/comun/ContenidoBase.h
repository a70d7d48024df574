#pragma once
#include <QSqlDatabase>
#include <QStringList>

// Lo que guarda una base de datos del programa, comparable entre el fichero y el servidor: cada
// fila de cada tabla, tabla a tabla y en su orden de llegada (rowid), con el tipo de cada valor
// ("e:" entero, "r:" real con todas sus cifras, "t:" texto, "nulo").
QStringList contenidoBase(QSqlDatabase db);
QStringList contenidoBase(const QString& fichero);  // un .mee o un Usuarios.qst, abierto aparte
QStringList contenidoBaseViva();                     // la del motor elegido, por la conexión compartida

// Llena cada tabla del programa de un fichero con filas de toda clase: una de nulos, una de valores
// límite (enteros que no caben en un real, reales sin redondear, textos con comillas, barra
// invertida, salto de línea, eñes y emoji) y otra normal, en un orden distinto del de sus claves.
// El contador de Proyectos_A queda en 5000, por encima de su mayor clave (la 5000 se borró).
void llenarTodasLasTablas(const QString& fichero);
