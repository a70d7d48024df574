#include "core/Filtros.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>

int admitirNumeros(int& tecla, Admite admite)
{
    const bool admitida = tecla == TECLA_RETROCESO || (tecla >= '0' && tecla <= '9')
        || (tecla == '-' && admite.menos) || (tecla == ',' && admite.coma);
    if (!admitida)
        tecla = 0;
    return tecla;
}

int admitirLetrasNumeros(int& tecla, Admite admite)
{
    if ((tecla >= 'a' && tecla <= 'z') || (tecla >= 'A' && tecla <= 'Z'))
        return tecla;
    return admitirNumeros(tecla, admite);
}

int admitirTeclaNIF(int& tecla, const QString& textoActual)
{
    if (tecla == '-' && textoActual.contains(QLatin1Char('-'))) {
        tecla = 0;
        return 0;
    }
    return admitirLetrasNumeros(tecla, {.menos = true});
}

FiltroTeclas::FiltroTeclas(QLineEdit* campo, Regla regla) : QObject(campo), m_campo(campo), m_regla(std::move(regla))
{
    campo->installEventFilter(this);
    // Lo que se arrastra no pasaría por la regla.
    campo->setAcceptDrops(false);
}

void FiltroTeclas::pegarFiltrado(const QString& texto)
{
    // El texto seleccionado se sustituye: la regla ve el campo sin él.
    QString actual = m_campo->text();
    if (m_campo->hasSelectedText())
        actual.remove(m_campo->selectionStart(), m_campo->selectedText().size());
    QString admitido;
    for (const QChar c : texto) {
        const int codigo = c.unicode();
        if (codigo == TECLA_RETROCESO || m_regla(codigo, actual + admitido) == 0)
            continue;
        admitido += c;
    }
    if (!admitido.isEmpty() || m_campo->hasSelectedText())
        m_campo->insert(admitido);
}

bool FiltroTeclas::eventFilter(QObject* objeto, QEvent* evento)
{
    if (objeto != m_campo)
        return false;
    switch (evento->type()) {
    case QEvent::KeyPress: {
        auto* tecla = static_cast<QKeyEvent*>(evento);
        if (tecla->matches(QKeySequence::Paste)
            || (tecla->key() == Qt::Key_Insert && tecla->modifiers() == Qt::ShiftModifier)) {
            if (!m_campo->isReadOnly())
                pegarFiltrado(QApplication::clipboard()->text());
            return true;
        }
        if (tecla->modifiers() & (Qt::ControlModifier | Qt::MetaModifier))
            return false;
        switch (tecla->key()) {
        case Qt::Key_Backspace: case Qt::Key_Delete: case Qt::Key_Tab: case Qt::Key_Backtab:
        case Qt::Key_Return: case Qt::Key_Enter: case Qt::Key_Escape:
            return false;
        default:
            break;
        }
        const QString texto = tecla->text();
        if (texto.isEmpty())
            return false;  // flechas, Inicio, Fin, teclas de función
        QString actual = m_campo->text();
        if (m_campo->hasSelectedText())
            actual.remove(m_campo->selectionStart(), m_campo->selectedText().size());
        for (const QChar c : texto)
            if (m_regla(c.unicode(), actual) == 0)
                return true;
        return false;
    }
    case QEvent::ContextMenu: {
        // Menú normal del campo, con "Pegar" pasado por la regla.
        auto* ev = static_cast<QContextMenuEvent*>(evento);
        QMenu* menu = m_campo->createStandardContextMenu();
        if (QAction* pegar = menu->findChild<QAction*>(QStringLiteral("edit-paste"))) {
            disconnect(pegar, &QAction::triggered, nullptr, nullptr);
            connect(pegar, &QAction::triggered, this, [this] { pegarFiltrado(QApplication::clipboard()->text()); });
        }
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->popup(ev->globalPos());
        return true;
    }
    case QEvent::MouseButtonRelease: {
        auto* ev = static_cast<QMouseEvent*>(evento);
        if (ev->button() == Qt::MiddleButton && QApplication::clipboard()->supportsSelection()) {
            if (!m_campo->isReadOnly())
                pegarFiltrado(QApplication::clipboard()->text(QClipboard::Selection));
            return true;
        }
        return false;
    }
    default:
        return false;
    }
}

FiltroTeclas* instalarFiltroNumeros(QLineEdit* campo, Admite admite)
{
    return new FiltroTeclas(campo, [admite](int tecla, const QString&) {
        return admitirNumeros(tecla, admite);
    });
}

FiltroTeclas* instalarFiltroLetrasNumeros(QLineEdit* campo, Admite admite)
{
    return new FiltroTeclas(campo, [admite](int tecla, const QString&) {
        return admitirLetrasNumeros(tecla, admite);
    });
}

FiltroTeclas* instalarFiltroNIF(QLineEdit* campo)
{
    return new FiltroTeclas(campo, [](int tecla, const QString& actual) { return admitirTeclaNIF(tecla, actual); });
}

namespace {

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

void instalarPuntoComoComa(QLineEdit* campo) { new PuntoComoComa(campo); }
