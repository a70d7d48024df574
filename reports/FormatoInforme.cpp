#include "reports/FormatoInforme.h"

#include "core/Formato.h"

#include <QDate>
#include <QDateTime>
#include <QLocale>

namespace FormatoInforme {

namespace {

// Único punto de paso al formateo de números: el del núcleo, el mismo de las pantallas.
QString formatearNumero(double valor, const QString& patron) { return Formato::formatear(valor, patron); }

QString patronFechaQt(QString patron)
{
    // En los patrones históricos "mm" es el mes cuando no hay horas.
    if (!patron.contains(QLatin1Char('h'), Qt::CaseInsensitive))
        patron.replace(QStringLiteral("mm"), QStringLiteral("MM"));
    return patron;
}

bool esPatronFecha(const QString& patron)
{
    return patron.contains(QStringLiteral("yy")) || patron.contains(QStringLiteral("dd"));
}

}  // namespace

QString numero(double valor, const QString& patron) { return formatearNumero(valor, patron); }

bool leerNumero(const QVariant& valor, double* resultado)
{
    if (valor.isNull() || !valor.isValid())
        return false;
    switch (valor.typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
        *resultado = valor.toDouble();
        return true;
    default:
        break;
    }
    const QString t = valor.toString().trimmed();
    if (t.isEmpty())
        return false;
    // Primero como lo escriben las pantallas ("1.234,56"), luego como lo deja el motor ("1234.56").
    bool ok = false;
    double d = Formato::aNumero(t, &ok);
    if (!ok)
        d = t.toDouble(&ok);
    if (ok)
        *resultado = d;
    return ok;
}

QString valor(const QVariant& v, const QString& patron)
{
    if (v.isNull() || !v.isValid())
        return {};
    if (patron.isEmpty()) {
        // Un número sin patrón sale con sus quince cifras significativas, como lo escribía el sistema.
        if (v.typeId() == QMetaType::Double)
            return QString::number(v.toDouble(), 'g', 15).replace(QLatin1Char('.'), QLatin1Char(','));
        return v.toString();
    }
    if (esPatronFecha(patron)) {
        QDate f;
        if (v.typeId() == QMetaType::QDate)
            f = v.toDate();
        else if (v.typeId() == QMetaType::QDateTime)
            f = v.toDateTime().date();
        else {
            const QString t = v.toString().trimmed();
            f = QDate::fromString(t.left(10), Qt::ISODate);
            if (!f.isValid())
                return t;  // ya viene escrito como se imprime
        }
        return f.isValid() ? f.toString(patronFechaQt(patron)) : QString();
    }
    double d = 0;
    if (!leerNumero(v, &d))
        return v.toString();
    return formatearNumero(d, patron);
}

}  // namespace FormatoInforme
