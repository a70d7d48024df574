#include "search/AperturaFichas.h"

// Provisional: las fichas llegan con sus pantallas.
bool abrirFicha(const PeticionFicha&) { return false; }
