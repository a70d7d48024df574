#pragma once
#include <QString>

class DatosImpreso;

// Registra las pantallas de impresos que existen para las claves de sus listas: se abren desde
// su lista descargando la que hubiera abierta, con Operacion, Tag, Clave y título.
void registrarImpresos();
// Crea la pantalla de un impreso por su nombre (nullptr si aún no existe), sin cargarla.
DatosImpreso* crearPantallaImpreso(const QString& pantalla);
// ¿Está hecha la pantalla del impreso de esa entrada del menú ("mnu_A1")?
bool pantallaImpresoExiste(const QString& entradaMenu);
