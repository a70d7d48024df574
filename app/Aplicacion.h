#pragma once

// Arranque del programa: traducción de Qt al español, configuración regional, recursos,
// pantalla de inicio y bucle de eventos.
namespace Aplicacion {
void prepararEntorno();  // locale español, traducciones de Qt, recursos (también en pruebas)
int ejecutar(int argc, char* argv[]);
}
