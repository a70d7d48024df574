#include "core/CicloPantalla.h"

#include "core/Guardia.h"
#include "core/Listas.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QTreeWidget>

CursorEspera::CursorEspera() { QApplication::setOverrideCursor(Qt::WaitCursor); }

CursorEspera::~CursorEspera() { QApplication::restoreOverrideCursor(); }

namespace {

// Una fila de lista en la copia: su clave, sus columnas y su casilla.
QString textoFila(const QTreeWidgetItem* f)
{
    QStringList partes{claveFila(f)};
    for (int c = 0; c < f->columnCount(); ++c)
        partes << f->text(c);
    partes << (f->checkState(0) == Qt::Checked ? QStringLiteral("1") : QStringLiteral("0"));
    return partes.join(QChar(0x1F));
}

// Las filas se comparan como conjunto: cada fila copiada ha de seguir en la lista, igual, y la
// lista no puede tener ni más ni menos filas.
QString textoLista(const QTreeWidget* l)
{
    QStringList filas;
    for (int i = 0; i < l->topLevelItemCount(); ++i)
        filas << textoFila(l->topLevelItem(i));
    filas.sort();
    return filas.join(QChar(0x1E));
}

}  // namespace

QString Instantanea::texto(const QWidget* w)
{
    if (auto* t = qobject_cast<const QLineEdit*>(w))
        return t->text();
    if (auto* c = qobject_cast<const QComboBox*>(w))
        return c->currentText();
    if (auto* p = qobject_cast<const QPlainTextEdit*>(w))
        return p->toPlainText();
    if (auto* x = qobject_cast<const QTextEdit*>(w))
        return x->toPlainText();
    if (auto* b = qobject_cast<const QAbstractButton*>(w); b && b->isCheckable())
        return b->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
    if (auto* l = qobject_cast<const QLabel*>(w))
        return l->text();
    if (auto* l = qobject_cast<const QTreeWidget*>(w))
        return textoLista(l);
    return {};
}

void Instantanea::tomar(const QList<QWidget*>& controles)
{
    m_textos.clear();
    for (const QWidget* w : controles)
        m_textos << texto(w);
}

bool Instantanea::difiere(const QList<QWidget*>& controles) const
{
    for (int i = 0; i < controles.size(); ++i)
        if (texto(controles[i]).toUpper() != m_textos.value(i).toUpper())
            return true;
    return false;
}

PantallaEdicion::PantallaEdicion(QWidget* padre) : Pantalla(padre) {}

void PantallaEdicion::Form_Load()
{
    if (m_cargada)
        return;
    m_cargada = true;
    guardia(objectName(), QStringLiteral("Form_Load"), [&] {
        if (cargar())
            tomarCopia();
    });
}

void PantallaEdicion::showEvent(QShowEvent* e)
{
    Form_Load();
    Pantalla::showEvent(e);
}

void PantallaEdicion::tomarCopia() { m_copia.tomar(controlesCopia()); }

bool PantallaEdicion::hayCambios() const { return m_copia.difiere(controlesCopia()); }

bool PantallaEdicion::alDescargar()
{
    if (m_descargando)
        return true;
    bool cerrar = true;
    guardia(objectName(), QStringLiteral("Form_Unload"), [&] {
        cerrar = Pantallas::preguntarGuardarAlSalir(hayCambios(), [&] {
            m_descargando = true;
            const bool puede = guardarAlSalir();
            m_descargando = false;
            return puede;
        });
    });
    return cerrar;
}
