#pragma once
// Cabecera principal de las rutinas compartidas del programa.
#include "core/AyudaFecha.h"
#include "core/BaseDatos.h"
#include "core/Documentos.h"
#include "core/Error.h"
#include "core/Fechas.h"
#include "core/Filtros.h"
#include "core/Formato.h"
#include "core/Guardia.h"
#include "core/Ini.h"
#include "core/Listas.h"
#include "core/Log.h"
#include "core/Mensajes.h"
#include "core/Nif.h"
#include "core/Pantallas.h"
#include "core/Rutas.h"
#include "core/Sistema.h"

class QWidget;

// Títulos del diálogo de carpetas, por tipo (1 a 5).
QString tituloCambiarRuta(int tipo);
// Pide una carpeta con el título del tipo y la devuelve con separador final; "" si se cancela
// o si el tipo no está entre 1 y 5 (entonces no se abre nada).
QString cambiarRuta(QWidget* ventana, int tipo);
// Carpeta especial del sistema; sólo se usa la 5, los documentos del usuario. "" si falla.
QString obtenerCarpetaEspecial(int carpeta);
// Cambio de ubicación de la base de datos desde la configuración: pregunta, comprueba que no
// haya otras pantallas abiertas, pide la carpeta y la guarda. Devuelve la nueva ruta o "".
QString moverBaseDatos(QWidget* ventana);
