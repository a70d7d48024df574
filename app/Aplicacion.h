#pragma once
#include <QString>

// Arranque del programa: traducción de Qt al español, configuración regional, recursos,
// pantalla de inicio y bucle de eventos; y el final del programa.
namespace Aplicacion {

void prepararEntorno();  // locale español, traducciones de Qt, recursos (también en pruebas)
void registrarPantallas();  // la pantalla de cada clave de tabla (lo hace prepararEntorno)
int ejecutar(int argc, char* argv[]);
// "planorum-mirvade --esquema-servidor" escribe en la salida el esquema del servidor PostgreSQL
// (el de EsquemaServidor::sql) y termina, sin pantallas.
inline constexpr const char* OPCION_ESQUEMA_SERVIDOR = "--esquema-servidor";

void reiniciar();  // pruebas: vuelve al estado de un programa recién lanzado

// Una sola instancia por instalación: true si otro programa de este directorio ya corre.
bool hayOtraInstancia();
QString ficheroCerrojo();  // cerrojo de la instancia de este directorio del programa
void liberarInstancia();

}  // namespace Aplicacion
