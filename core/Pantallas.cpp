#include "core/Pantallas.h"

#include "core/Mensajes.h"

#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QHash>
#include <QPointer>
#include <QTimer>

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

// Quién estaba delante cuando se enseñó cada pantalla o diálogo: al cerrarse, vuelve al frente.
QHash<const QWidget*, QPointer<QWidget>>& abridores()
{
    static QHash<const QWidget*, QPointer<QWidget>> h;
    return h;
}
// Cuenta las pantallas enseñadas o activadas: si otra pasa al frente después de un cierre,
// la devolución del frente de ese cierre ya no se hace.
int& cambiosDeFrente()
{
    static int n = 0;
    return n;
}

QWidget* pantallaDelante()
{
    if (!area())
        return nullptr;
    QMdiSubWindow* sub = area()->activeSubWindow();
    return sub ? sub->widget() : nullptr;
}
}  // namespace

void recordarAbridor(const QWidget* w)
{
    QWidget* delante = pantallaDelante();
    if (delante && delante != w)
        abridores().insert(w, delante);
    ++cambiosDeFrente();
}

void devolverFrente(const QWidget* w)
{
    const QPointer<QWidget> abridor = abridores().take(w);
    if (!abridor)
        return;
    // Tras el cierre, el área activa la ventana que le toca a ella; se corrige después.
    const int n = cambiosDeFrente();
    QTimer::singleShot(0, abridor.data(), [abridor, n] {
        if (abridor && cambiosDeFrente() == n)
            activar(abridor.data());
    });
}

void registrar(QWidget* w)
{
    if (!lista().contains(w))
        lista().append(w);
}

void quitar(QWidget* w)
{
    lista().removeAll(w);
    abridores().remove(w);
}

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

void establecerAreaPrincipal(QMdiArea* a)
{
    area() = a;
    // Al cerrar una ventana pasa al frente la que estaba antes, no la siguiente en orden de creación.
    if (a)
        a->setActivationOrder(QMdiArea::ActivationHistoryOrder);
}

QMdiArea* areaPrincipal() { return area(); }

QWidget* ventanaPrincipal() { return area() ? area()->window() : nullptr; }

void mostrar(QWidget* w)
{
    recordarAbridor(w);
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

namespace {
void traerAlFrente(QWidget* w)
{
    if (auto* sub = qobject_cast<QMdiSubWindow*>(w->parentWidget())) {
        if (sub->mdiArea())
            sub->mdiArea()->setActiveSubWindow(sub);
        sub->raise();
    } else {
        w->raise();
        w->activateWindow();
    }
}
}  // namespace

void activar(QWidget* w)
{
    if (!w || !lista().contains(w))
        return;
    const int n = ++cambiosDeFrente();
    traerAlFrente(w);
    // Una ventana que se cierra a la vez se borra después y el área elige entonces otra: se repite
    // cuando ya lo ha hecho, si nadie ha pasado al frente entretanto.
    QTimer::singleShot(0, w, [w, n] {
        if (cambiosDeFrente() == n && lista().contains(w))
            traerAlFrente(w);
    });
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
        Pantallas::devolverFrente(this);
        Pantallas::quitar(this);
        e->accept();
    } else {
        e->ignore();
    }
}

Dialogo::Dialogo(QWidget* padre) : QDialog(padre ? padre : Pantallas::ventanaPrincipal())
{
    Pantallas::registrar(this);
    Pantallas::recordarAbridor(this);
}

Dialogo::~Dialogo()
{
    Pantallas::devolverFrente(this);
    Pantallas::quitar(this);
}

void Dialogo::done(int resultado)
{
    QDialog::done(resultado);
    Pantallas::devolverFrente(this);
}
