#include "forms/CamposImporte.h"

#include "core/Filtros.h"
#include "core/Formato.h"

#include <QLineEdit>

namespace CamposImporte {

namespace {

const QString PATRON_TABLA = QStringLiteral("#,##0.00");

}  // namespace

void instalarFiltro(QLineEdit* campo)
{
    new FiltroTeclas(campo, [](int tecla, const QString& actual) {
        if (tecla == '.' || (tecla == ',' && actual.contains(QLatin1Char(','))) || (tecla == '-' && actual.contains(QLatin1Char('-'))))
            return 0;
        return admitirNumeros(tecla, {.menos = true, .coma = true});
    });
    instalarPuntoComoComa(campo);  // instalado después: se consulta antes
}

QString ceroDelante(const QString& texto)
{
    if (texto.startsWith(QLatin1Char(',')))
        return QLatin1Char('0') + texto;
    if (texto.startsWith(QLatin1String("-,")))
        return QStringLiteral("-0") + texto.mid(1);
    return texto;
}

QString formatearTexto(const QString& texto, const QString& patron)
{
    return Formato::esNumerico(texto) ? Formato::formatear(Formato::aNumero(texto), patron) : texto;
}

QVariant importeGuardable(const QString& texto)
{
    const QVariant t = importeTexto(texto);
    return t.isNull() ? t : QVariant(Formato::aNumero(t.toString()));
}

QVariant importeTexto(const QString& texto)
{
    const QString t = texto.trimmed();
    if (t.isEmpty() || !Formato::esNumerico(t))
        return QVariant(QMetaType(QMetaType::Double));
    return Formato::formatear(Formato::aNumero(t), PATRON_TABLA);
}

}  // namespace CamposImporte
