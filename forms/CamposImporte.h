#pragma once
#include <QString>
#include <QVariant>

class QLineEdit;

// Campos de importe de la factura de honorarios, de sus líneas y del certificado de retenciones
// propio, y el paso de sus textos a las tablas.
namespace CamposImporte {

// Teclas de un importe: el "." se escribe como ","; una sola ","; un solo "-"; lo demás, cifras.
// Lo pegado pasa por la misma regla.
void instalarFiltro(QLineEdit* campo);

// ",5" → "0,5" y "-,5" → "-0,5"; lo demás tal cual.
QString ceroDelante(const QString& texto);
// Formato de un texto numérico; el que no lo es se devuelve tal cual, como hacía Format.
QString formatearTexto(const QString& texto, const QString& patron);
// Valor de un texto numérico, redondeado al céntimo ("#,##0.00") como se guarda; nulo si el
// texto está vacío o no es un número.
QVariant importeGuardable(const QString& texto);
// El mismo valor escrito "#,##0.00" para las tablas temporales; nulo igual.
QVariant importeTexto(const QString& texto);

}  // namespace CamposImporte
