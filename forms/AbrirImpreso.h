#pragma once
#include "search/AperturaFichas.h"

class DatosImpreso;

// Apertura de las pantallas de impresos desde su lista: descarga la que hubiera abierta, fija
// Operacion, Tag, Clave y título, la carga y la enseña. False si la pantalla aún no existe.
bool abrirImpreso(const PeticionFicha& peticion);
// Crea la pantalla de un impreso por su nombre (nullptr si aún no existe), sin cargarla.
DatosImpreso* crearPantallaImpreso(const QString& pantalla);

// Impreso en blanco (códigos 1 a 13 de la barra de la lista): vacía la tabla temporal y abre
// el informe del impreso sobre ella. False si el código no tiene aún informe o ha fallado.
bool generarImpresoEnBlanco(int codigo);
