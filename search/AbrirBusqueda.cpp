#include "search/AbrirBusqueda.h"

// Provisional hasta que existan las pantallas de búsqueda: las entradas quedan deshabilitadas.
bool busquedaDisponible() { return false; }
bool impresoDisponible(const QString&) { return false; }
void abrirBusqueda(const QString&, const QString&, const QString&) {}
void marcarActualizarLista() {}
