#include "forms/CamposImporte.h"

#include "core/Filtros.h"
#include "core/Formato.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace CamposImporte {

namespace {

const QString PATRON_TABLA = QStringLiteral("#,##0.00");

// El "." del teclado numérico escribe la coma, si el campo aún no tiene una.
class PuntoComoComa : public QObject {
public:
    explicit PuntoComoComa(QLineEdit* campo) : QObject(campo), m_campo(campo) { campo->installEventFilter(this); }

protected:
    bool eventFilter(QObject*, QEvent* e) override
    {
        if (e->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(e)->text() != QLatin1String("."))
            return false;
        QString resto = m_campo->text();
        if (m_campo->hasSelectedText())
            resto.remove(m_campo->selectionStart(), m_campo->selectedText().size());
        if (!m_campo->isReadOnly() && !resto.contains(QLatin1Char(',')))
            m_campo->insert(QStringLiteral(","));
        return true;
    }

private:
    QLineEdit* m_campo;
};

}  // namespace

void instalarFiltro(QLineEdit* campo)
{
    new FiltroTeclas(campo, [](int tecla, const QString& actual) {
        if (tecla == '.' || (tecla == ',' && actual.contains(QLatin1Char(','))) || (tecla == '-' && actual.contains(QLatin1Char('-'))))
            return 0;
        return admitirNumeros(tecla, {.menos = true, .coma = true});
    });
    new PuntoComoComa(campo);  // instalado después: se consulta antes
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
