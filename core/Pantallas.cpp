#include "core/Pantallas.h"

#include "core/Mensajes.h"

#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>

namespace Pantallas {

namespace {
QList<QWidget*>& lista()
{
    static QList<QWidget*> l;
    return l;
}
QPointer<QMdiArea>& area()
{
    static QPointer<QMdiArea> a;
    return a;
}
}  // namespace

void registrar(QWidget* w)
{
    if (!lista().contains(w))
        lista().append(w);
}

void quitar(QWidget* w) { lista().removeAll(w); }

QList<QWidget*> cargadas() { return lista(); }

bool descargar(QWidget* w)
{
    if (!w)
        return true;
    QPointer<QWidget> vigilada(w);
    if (auto* sub = qobject_cast<QMdiSubWindow*>(w->parentWidget())) {
        sub->close();
    } else {
        w->close();
    }
    // Una pantalla que acepta el cierre se borra (WA_DeleteOnClose) o se oculta.
    return vigilada.isNull() || !vigilada->isVisible() || !lista().contains(vigilada.data());
}

void establecerAreaPrincipal(QMdiArea* a) { area() = a; }

QMdiArea* areaPrincipal() { return area(); }

QWidget* ventanaPrincipal() { return area() ? area()->window() : nullptr; }

void mostrar(QWidget* w)
{
    if (area() && !qobject_cast<QDialog*>(w)) {
        QMdiSubWindow* sub = qobject_cast<QMdiSubWindow*>(w->parentWidget());
        if (!sub) {
            sub = area()->addSubWindow(w);
            sub->setAttribute(Qt::WA_DeleteOnClose);
            sub->setWindowIcon(w->windowIcon());
        }
        sub->adjustSize();
        // Una pantalla más alta o más ancha que el área se ajusta a ella para que sus botones se vean.
        const QSize libre = area()->viewport()->size();
        if (sub->width() > libre.width() || sub->height() > libre.height())
            sub->resize(sub->width() > libre.width() ? qMax(libre.width(), sub->minimumSizeHint().width()) : sub->width(),
                        sub->height() > libre.height() ? qMax(libre.height(), sub->minimumSizeHint().height()) : sub->height());
        centrar(sub);
        sub->show();
        w->show();
        area()->setActiveSubWindow(sub);
        return;
    }
    w->show();
}

void activar(QWidget* w)
{
    if (!w || !lista().contains(w))
        return;
    if (auto* sub = qobject_cast<QMdiSubWindow*>(w->parentWidget())) {
        if (sub->mdiArea())
            sub->mdiArea()->setActiveSubWindow(sub);
        sub->raise();
    } else {
        w->raise();
        w->activateWindow();
    }
}

void centrar(QWidget* w)
{
    if (auto* sub = qobject_cast<QMdiSubWindow*>(w->parentWidget()))
        w = sub;
    QWidget* referencia = nullptr;
    if (qobject_cast<QMdiSubWindow*>(w) && area())
        referencia = area()->viewport();
    else
        referencia = ventanaPrincipal();
    if (!referencia)
        return;
    const QSize r = referencia->size();
    int x = (r.width() - w->width()) / 2;
    int y = (r.height() - w->height()) / 2;
    if (!qobject_cast<QMdiSubWindow*>(w)) {
        const QPoint origen = referencia->mapToGlobal(QPoint(0, 0));
        x += origen.x();
        y += origen.y();
    }
    w->move(qMax(0, x), qMax(0, y));
}

bool preguntarGuardarAlSalir(bool hayCambios, const std::function<bool()>& guardar)
{
    if (!hayCambios)
        return true;
    switch (Mensajes::preguntaCancelar(QStringLiteral("¿Desea guardar los cambios antes de salir?"))) {
    case Mensajes::Respuesta::Si: return guardar();
    case Mensajes::Respuesta::Cancelar: return false;
    default: return true;
    }
}

}  // namespace Pantallas

Pantalla::Pantalla(QWidget* padre) : QWidget(padre)
{
    setAttribute(Qt::WA_DeleteOnClose);
    Pantallas::registrar(this);
}

Pantalla::~Pantalla() { Pantallas::quitar(this); }

void Pantalla::closeEvent(QCloseEvent* e)
{
    if (alDescargar()) {
        Pantallas::quitar(this);
        e->accept();
    } else {
        e->ignore();
    }
}

Dialogo::Dialogo(QWidget* padre) : QDialog(padre ? padre : Pantallas::ventanaPrincipal())
{
    Pantallas::registrar(this);
}

Dialogo::~Dialogo() { Pantallas::quitar(this); }
