#pragma once
#include <QString>

// Final del programa (el "End" de las rutinas): cualquier pantalla puede pedirlo sin conocer el
// arranque. Cierra la conexión compartida y sale del bucle de eventos si ya corre.
namespace Programa {

void terminar();
bool terminado();
// El arranque dice si el bucle principal está en marcha (sólo entonces se sale de él).
void bucleEnMarcha(bool enMarcha);
// Pruebas: vuelve al estado de un programa recién lanzado.
void reiniciar();

// Lo que sigue al ejecutable en la línea de mandatos, con los argumentos unidos por un espacio: el
// nombre de un fichero para el editor. El arranque la fija; las pruebas, la que quieran.
void fijarLineaMandatos(const QString& linea);
QString lineaMandatos();

}  // namespace Programa
