#include "core/Fechas.h"

#include "core/Guardia.h"
#include "core/Mensajes.h"

#include <QDate>
#include <QLineEdit>
#include <QStringList>

namespace {

// Lectura numérica al estilo de Val: espacios delante, cifras hasta el primer carácter que no lo es.
int valorInicial(const QString& t)
{
    qsizetype i = 0;
    while (i < t.size() && t[i] == QLatin1Char(' '))
        ++i;
    int v = 0;
    while (i < t.size() && t[i] >= QLatin1Char('0') && t[i] <= QLatin1Char('9')) {
        v = v * 10 + (t[i].unicode() - '0');
        ++i;
    }
    return v;
}

bool comprobarFecha(const QString& fecha)
{
    if (fecha.size() != 10) {
        Mensajes::aviso(QStringLiteral("Por favor, complete todos los datos de la fecha"));
        return false;
    }
    const int dia = valorInicial(fecha.mid(0, 2));
    const int mes = valorInicial(fecha.mid(3, 2));
    const int anio = valorInicial(fecha.mid(6, 4));

    if (anio < 1950 || anio > 2100) {
        Mensajes::aviso(QStringLiteral("El año ha de estar comprendido entre 1950 y 2100"));
        return false;
    }
    if (mes < 1 || mes > 12) {
        Mensajes::aviso(QStringLiteral("El mes no es válido. Inserte un mes entre 1 y 12"));
        return false;
    }
    int maximo = 31;
    switch (mes) {
    case 4: case 6: case 9: case 11:
        maximo = 30;
        break;
    case 2:
        // Bisiesto según el calendario: días entre el 28 de febrero y el 1 de marzo.
        maximo = QDate(anio, 2, 28).daysTo(QDate(anio, 3, 1)) == 2 ? 29 : 28;
        break;
    default:
        break;
    }
    if (dia < 1 || dia > maximo) {
        Mensajes::aviso(QStringLiteral("El día del mes no es válido. Inserte un día entre 1 y %1").arg(maximo));
        return false;
    }
    return true;
}

}  // namespace

void prepararCampoFecha(QLineEdit* campo)
{
    campo->setInputMask(MASCARA_FECHA);
}

bool isFecha(const QString& fecha)
{
    bool resultado = false;
    guardia(QStringLiteral("modFunciones"), QStringLiteral("isFecha"), [&] { resultado = comprobarFecha(fecha); });
    return resultado;
}

bool validarFecha(QLineEdit* campo)
{
    bool resultado = true;
    guardia(QStringLiteral("modFunciones"), QStringLiteral("validarFecha"), [&] {
        // Con máscara, text() quita los "_": el texto visible es el del campo histórico.
        const QString texto = campo->displayText();
        if (texto.trimmed() != FECHA_VACIA && !isFecha(texto)) {
            campo->setSelection(0, int(texto.size()));
            campo->setFocus();
            resultado = false;
        }
    });
    return resultado;
}

QString textoFechaNormalizado(const QString& texto)
{
    QString t = texto;
    t.remove(QLatin1Char('_'));
    t = t.trimmed();
    const QStringList partes = t.split(QLatin1Char('/'));
    if (partes.size() == 3) {
        bool okD = false, okM = false, okA = false;
        const int d = partes[0].toInt(&okD);
        const int m = partes[1].toInt(&okM);
        const int a = partes[2].toInt(&okA);
        const QDate f(a, m, d);
        if (okD && okM && okA && partes[2].size() == 4 && f.isValid())
            return f.toString(QStringLiteral("dd/MM/yyyy"));
    }
    return t;
}

void normalizarFecha(QLineEdit* campo)
{
    const QString texto = campo->displayText();
    if (texto.trimmed() == FECHA_VACIA)
        return;
    const QString normal = textoFechaNormalizado(texto);
    if (QDate::fromString(normal, QStringLiteral("dd/MM/yyyy")).isValid())
        campo->setText(normal);
}
