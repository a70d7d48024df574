#pragma once
#include <QString>

// Apertura de la lista de búsqueda desde el menú: descarga la que hubiera, fija la clave de
// tabla, el tipo de impreso y el título, y la enseña.
bool busquedaDisponible();
bool impresoDisponible(const QString& entradaMenu);  // p. ej. "mnu_A1": ¿existe ya su pantalla?
void abrirBusqueda(const QString& tabla, const QString& tipoImpreso, const QString& titulo);
// Las pantallas que guardan o imprimen piden que la lista repita su búsqueda al activarse.
void marcarActualizarLista();
