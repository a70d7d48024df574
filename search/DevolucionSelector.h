#pragma once

class frmBuscarSeleccionar;

// Escribe la fila elegida en el selector dentro de la pantalla que lo abrió, según la clave de
// llamada (Tag) y la tabla. Devuelve false si la pantalla la rechaza (el selector sigue abierto).
bool devolverSeleccionA(frmBuscarSeleccionar* selector);
