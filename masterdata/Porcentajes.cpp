#include "masterdata/Porcentajes.h"

#include "core/modFunciones.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeWidget>
#include <cmath>

namespace {

const QString MODULO = QStringLiteral("modFunciones");

// Antes del filtro de cifras: el "." se escribe como "," y la segunda "," se rechaza.
class FiltroComa : public QObject {
public:
    explicit FiltroComa(QLineEdit* campo) : QObject(campo), m_campo(campo) { campo->installEventFilter(this); }

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override
    {
        if (objeto != m_campo || evento->type() != QEvent::KeyPress)
            return false;
        auto* k = static_cast<QKeyEvent*>(evento);
        const QString t = k->text();
        if (t.size() != 1 || (t[0] != QLatin1Char('.') && t[0] != QLatin1Char(',')))
            return false;
        const bool todo = m_campo->hasSelectedText() && m_campo->selectedText() == m_campo->text();
        const int c = teclaPorcentaje(t[0].unicode(), m_campo->text(), todo);
        if (c == 0)
            return true;
        if (c != t[0].unicode()) {
            m_campo->insert(QString(QChar(c)));
            return true;
        }
        return false;
    }

private:
    QLineEdit* m_campo;
};

}  // namespace

bool esPropiaSociedad(const QTreeWidgetItem* fila) { return fila && fila->foreground(0).color() == COLOR_PROPIA_SOCIEDAD; }

void pintarFila(QTreeWidgetItem* fila, const QColor& color)
{
    for (int c = 0; c <= 3; ++c)
        fila->setForeground(c, color);
}

qint16 cuotaParticipacion(int miembros)
{
    if (miembros < 1)
        return 0;
    const QString texto = Formato::formatear(100.0 / miembros, QStringLiteral("###0.00"));
    // Paso a entero como CInt: al más próximo, la mitad al par.
    return static_cast<qint16>(std::nearbyint(Formato::aNumero(texto)));
}

void calcularPorcentajesParticipacion(QTreeWidget* lvw)
{
    guardia(MODULO, QStringLiteral("calcularPorcentajesParticipacion"), [&] {
        if (!lvw)
            return;
        const int n = lvw->topLevelItemCount();
        if (n < 1)
            return;
        bool haySociedad = false;
        for (int i = 0; i < n && !haySociedad; ++i)
            haySociedad = esPropiaSociedad(lvw->topLevelItem(i));
        const int miembros = haySociedad ? n - 1 : n;
        qint16 cuota = (haySociedad && n < 2) ? qint16(0) : cuotaParticipacion(miembros);
        for (int i = 0; i < n; ++i) {
            QTreeWidgetItem* fila = lvw->topLevelItem(i);
            if (esPropiaSociedad(fila)) {
                fila->setText(COLUMNA_PORCENTAJE, QString());
            } else if (i < n - 1) {
                fila->setText(COLUMNA_PORCENTAJE, Formato::formatear(cuota, QStringLiteral("###0.00")));
            } else {
                // La última fila se lleva el resto.
                cuota = static_cast<qint16>(100 - (miembros - 1) * cuota);
                fila->setText(COLUMNA_PORCENTAJE, Formato::formatear(cuota, QStringLiteral("###0.00")));
            }
        }
    });
}

void calcularPorcentajesParticipacion()
{
    for (QWidget* w : Pantallas::cargadas())
        if (w->objectName() == QLatin1String("frmProyecto")) {
            if (auto* lvw = w->findChild<QTreeWidget*>(QStringLiteral("lvw_Arquitectos")))
                calcularPorcentajesParticipacion(lvw);
            return;
        }
}

int teclaPorcentaje(int tecla, const QString& texto, bool todoSeleccionado)
{
    if (tecla == '.')
        tecla = ',';
    if (tecla == ',' && texto.contains(QLatin1Char(',')) && !todoSeleccionado)
        return 0;
    return admitirNumeros(tecla, {.coma = true});
}

void instalarFiltroPorcentaje(QLineEdit* campo)
{
    // Las cifras (y lo pegado) por el filtro común; la coma, antes, por el propio.
    new FiltroTeclas(campo, [](int tecla, const QString& actual) {
        if (tecla == '.' || (tecla == ',' && actual.contains(QLatin1Char(','))))
            return 0;
        return admitirNumeros(tecla, {.coma = true});
    });
    new FiltroComa(campo);
}

QString completarDecimal(const QString& texto)
{
    QString t = texto.trimmed();
    if (t.isEmpty())
        return texto;
    if (t.startsWith(QLatin1Char(',')))
        t.prepend(QLatin1Char('0'));
    if (t.endsWith(QLatin1Char(',')))
        t.chop(1);
    return t;
}
