#pragma once

// Registra las fichas de datos maestros (y la configuración) para las claves de tabla de las
// listas y los selectores.
void registrarFichasMaestras();
