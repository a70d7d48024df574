#pragma once
#include <QString>
#include <functional>

class QWidget;

// Barra de exportación de las dos pantallas de búsqueda: vista preliminar, hoja de cálculo y
// PDF de toda la tabla del modo (no de lo encontrado por la búsqueda).
struct PantallaLlamadora {
    QWidget* pantalla = nullptr;                    // frmBuscar o frmBuscarSeleccionar
    QString nombre;                                 // "frmBuscar" o "frmBuscarSeleccionar", para el registro
    std::function<void(const QString&)> estado;     // texto del panel 1 de sta_1
    std::function<int()> registros;                 // filas de la lista en pantalla
};

namespace Exportar {

// Clase de listado de una clave de tabla: 1 arquitectos, 2 arquitectos técnicos,
// 3 contratistas, 4 clientes, 5 proyectos; 0 para las demás.
int tipoDeTabla(const QString& tabla);

void generarListado(const PantallaLlamadora& llamador, int tipo);
void exportarListadoExcel(const PantallaLlamadora& llamador, int tipo);
void exportarListadoPDF(const PantallaLlamadora& llamador, int tipo);

// Botones 1 a 3 de la barra para las claves de datos maestros (el 4, impreso en blanco, es de
// los impresos).
void pulsarBotonExportar(const PantallaLlamadora& llamador, const QString& tabla, int boton);

// Pregunta si se abre el documento creado y lo abre; avisa de los dos fallos conocidos y los
// anota sin enseñarlos, con el procedimiento que se da.
void ofrecerAbrirPDF(const QString& fichero, const QString& formulario, const QString& procedimiento);

}  // namespace Exportar
