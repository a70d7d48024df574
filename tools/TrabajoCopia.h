#pragma once
#include "core/Almacen.h"

#include <functional>

class QProgressBar;
class QWidget;

// La barra de una pantalla de copia: oculta en reposo, sin mover lo demás al aparecer.
void prepararBarra(QProgressBar* barra);

// Cierra la conexión compartida y hace el trabajo sobre la base de datos con la pantalla ocupada:
// cursor de espera, pantalla deshabilitada y la barra avanzando. La pantalla se repinta; lo que el
// usuario teclee o pulse espera a que termine, así nadie cierra nada ni abre un cuadro con el
// cerrojo de la base de datos tomado.
// Si otro puesto usa la base de datos da el aviso de la restauración (también en la copia, de la
// que se heredó), lo anota en silencio a nombre de la restauración y devuelve false. Cualquier otro
// fallo sigue hacia la guardia del manejador.
bool trabajarSobreLaBase(QWidget* pantalla, QProgressBar* barra, const std::function<void(const Almacen::Latido&)>& trabajo);
