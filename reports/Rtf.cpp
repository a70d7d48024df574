#include "reports/Rtf.h"

#include <QTextDocument>

// Provisional: sólo el texto, sin formato. Se sustituye por el lector y el escritor completos.
namespace Rtf {

bool leer(const QByteArray& rtf, QTextDocument& documento, QString* aviso)
{
    documento.clear();
    if (!rtf.startsWith("{\\rtf")) {
        if (aviso)
            *aviso = QStringLiteral("El fichero no es un documento de texto enriquecido (RTF)");
        return false;
    }
    documento.setPlainText(QString::fromLatin1(rtf));
    return true;
}

QByteArray escribir(const QTextDocument& documento)
{
    return "{\\rtf1\\ansi\\ansicpg1252\\deff0 " + documento.toPlainText().toLatin1() + "}";
}

} // namespace Rtf
