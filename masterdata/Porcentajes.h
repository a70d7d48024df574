#pragma once
#include <QColor>
#include <QString>

class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

// Porcentajes de participación de los arquitectos de un proyecto (lista lvw_Arquitectos):
// columna 0 el nombre con la casilla "pertenece a la sociedad", 1 el número, 2 "% Part.",
// 3 "Es autor". El color azul del texto marca la propia sociedad; el negro, una fila normal.

inline const QColor COLOR_PROPIA_SOCIEDAD(0, 0, 255);
inline const QColor COLOR_FILA_NORMAL(0, 0, 0);
constexpr int COLUMNA_PORCENTAJE = 2;

bool esPropiaSociedad(const QTreeWidgetItem* fila);
// Pinta la fila y sus tres columnas de datos.
void pintarFila(QTreeWidgetItem* fila, const QColor& color);

// Cuota repartida entre "miembros" arquitectos: se formatea con "###0.00" y el texto se pasa a
// entero de 16 bits, redondeando la mitad al par (dos redondeos).
qint16 cuotaParticipacion(int miembros);

// Reparto automático: cada arquitecto la cuota, la sociedad vacía, y la última fila (si no es
// la sociedad) lo que falta hasta 100. Pisa lo que hubiera escrito el usuario.
void calcularPorcentajesParticipacion(QTreeWidget* lvw_Arquitectos);
// La lista de la ficha de proyecto cargada; sin ficha no hace nada.
void calcularPorcentajesParticipacion();

// Regla de teclas de los porcentajes y coeficientes (KeyPress): "." se convierte en ",", una
// sola "," salvo con todo el texto seleccionado, y cifras. Devuelve el carácter a escribir o 0.
int teclaPorcentaje(int tecla, const QString& texto, bool todoSeleccionado);
void instalarFiltroPorcentaje(QLineEdit* campo);
// Al salir del campo: ",5" pasa a "0,5" y "12," a "12".
QString completarDecimal(const QString& texto);
