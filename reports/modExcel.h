#pragma once
#include "reports/modInformes.h"

#include <QDate>
#include <QString>

// Hoja de cálculo de los listados: las plantillas .xlsx de la carpeta Excel del programa
// (filas 1 a 5 de cabecera) se copian al destino y escribirExcel las rellena desde la fila 6.
//
// Uso desde la barra de exportación:
//     if (copiarFicheroExcel("Plantilla_ListadoClientes.xlsx", destino))
//         escribirExcel(destino, "CLIENTES");
// Proyectos, con el filtro de fechas de frmFiltrarProyectos (el mismo que el del listado):
//     escribirExcel(destino, "PROYECTOS_A", modInformes::FiltroFecha::desdeTextos("Fecha de visado", "Entre", desde, hasta));

// Copia directorio del programa + "/Excel/" + plantilla sobre destino, reemplazándolo
// de una vez (nunca queda un fichero a medias). Un fallo se anota en el registro y da false.
bool copiarFicheroExcel(const QString& plantilla, const QString& destino);

// Rellena la copia de la plantilla con la tabla de la clave (ARQUITECTOS, ARQUITECTOS_SIMPLE,
// ARQUITECTOS_SOCIEDAD, ARQUITECTOS_AUTORES, COORDINADOR_SS, APAREJADORES, CONTRATISTAS,
// CLIENTES, PROYECTOS_A; el filtro sólo cuenta con PROYECTOS_A), la guarda sustituyendo el
// fichero de una vez y la abre con su programa. Devuelve las filas escritas, o -1 si no se ha
// podido escribir (el fallo queda en el registro con "escribirExcel" y "modExcel"). Sin programa
// que abra el libro avisa al usuario; el fichero queda escrito igualmente.
int escribirExcel(const QString& fichero, const QString& tabla, const modInformes::FiltroFecha& filtro = {});
