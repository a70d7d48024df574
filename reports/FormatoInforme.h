#pragma once
#include <QString>
#include <QVariant>

// Formatos de los campos de los informes: "#,##0.00", "0.00", "dd/mm/yyyy"...
namespace FormatoInforme {

// Número con un patrón al estilo histórico: miles con punto siempre, coma decimal,
// redondeo a la mitad lejos del cero sobre el valor decimal.
QString numero(double valor, const QString& patron);

// Texto de un valor para imprimir: nulo como vacío; números y fechas con su patrón si lo hay.
QString valor(const QVariant& valor, const QString& patron);

// Lee un número escrito por el programa ("1.234,56") o por el motor ("1234.56").
bool leerNumero(const QVariant& valor, double* resultado);

}  // namespace FormatoInforme
