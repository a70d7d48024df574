#pragma once
#include <QString>

// Apertura de las listas de búsqueda: la del menú (descarga la que hubiera, fija la clave de
// tabla, el tipo de impreso y el título, y la enseña), por su clave. Las fichas y los impresos
// abren así su lista tras un alta, sin conocer la pantalla principal.
void abrirBusqueda(const QString& tabla, const QString& tipoImpreso, const QString& titulo);

// Lista de datos maestros por su clave ("PROYECTOS_A", "ARQUITECTOS", "APAREJADORES",
// "CONTRATISTAS", "CLIENTES"), con su título del menú. False si la clave no es de ninguna.
bool abrirListaMaestra(const QString& tabla);
// Lista de los impresos de una entrada del menú ("mnu_A1"), con su tabla, tipo y título.
bool abrirListaImpreso(const QString& entradaMenu);

// Las pantallas que guardan o imprimen piden que la lista repita su búsqueda al activarse.
void marcarActualizarLista();
