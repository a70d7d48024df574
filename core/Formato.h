#pragma once
#include <QDate>
#include <QString>

// Formatos históricos de números y fechas. Los números no pasan por QLocale::toString: el
// patrón "#,##0.00" agrupa siempre los miles ("1.000,00"). El valor se escribe primero con
// quince cifras significativas y esa forma decimal se redondea a la mitad hacia fuera: 2,625 →
// "2,63" y 1,50 × 0,15 (0,22499999999999998, "0.225000000000000") → "0,23". Todo importe del
// programa pasa por aquí; nadie más redondea dinero.
namespace Formato {

// Patrones admitidos: "#,##0.00", "#,##0.0000", "###0.00", "0.00" (y cualquiera de esa forma:
// "," en la parte entera agrupa con ".", las cifras tras el "." son los decimales, con ",").
// Más allá de quince cifras salen ceros (12345678901234567 → "12.345.678.901.234.600,00"). Un no
// finito (NaN, infinito) da el texto vacío.
QString formatear(double valor, const QString& patron);

// Texto numérico como lo escriben las pantallas y los usuarios: espacios alrededor, signo
// opcional, parte entera sin puntos ("1234") o con puntos de miles en grupos de tres
// ("1.234.567"), y decimales tras una coma. "1.5" no es numérico: el punto sólo agrupa.
// Un número que desborda el double (cientos de cifras) no es numérico: se dice que sí sólo de
// lo que aNumero puede leer.
bool esNumerico(const QString& texto);
// Valor de un texto numérico (incluidos los que produce formatear); 0 y ok = false si no lo es.
// Lo que queda por debajo del menor double se lee como cero.
double aNumero(const QString& texto, bool* ok = nullptr);

// "dd/mm/yyyy".
QString fechaCorta(const QDate& fecha);
// Fecha del pie de los impresos: "5 de marzo de 2008".
QString fechaPie(const QDate& fecha);
// Fecha larga del sistema: "lunes, 24 de noviembre de 2008".
QString fechaLarga(const QDate& fecha);
// Nombre del mes en minúsculas (1 a 12).
QString nombreMes(int mes);

}  // namespace Formato
