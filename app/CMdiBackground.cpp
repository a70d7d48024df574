#include "app/CMdiBackground.h"

#include <QEvent>
#include <QMdiArea>
#include <QPainter>
#include <QPalette>

CMdiBackground::CMdiBackground(QObject* padre) : QObject(padre)
{
    const QColor espacio = QPalette().color(QPalette::Dark);
    m_Color[0] = espacio;
    m_Color[1] = espacio;
}

CMdiBackground::~CMdiBackground() { separar(); }

void CMdiBackground::separar()
{
    if (m_viewport)
        m_viewport->removeEventFilter(this);
    m_viewport = nullptr;
    m_Client = nullptr;
}

void CMdiBackground::setClient(QMdiArea* area)
{
    separar();
    m_Client = area;
    if (m_Client) {
        m_viewport = m_Client->viewport();
        m_viewport->installEventFilter(this);
    }
    repintarSiAutomatico();
}

void CMdiBackground::setAutoRefresh(bool v)
{
    m_AutoRefresh = v;
    repintarSiAutomatico();
}

void CMdiBackground::setBackStyle(int v)
{
    m_BackStyle = v;
    repintarSiAutomatico();
}

void CMdiBackground::setColor(int indice, const QColor& c)
{
    m_Color[indice == 0 ? 0 : 1] = c;
    repintarSiAutomatico();
}

void CMdiBackground::setGraphic(const QPixmap& p)
{
    m_Graphic = p;
    repintarSiAutomatico();
}

void CMdiBackground::setGraphicPosition(int v)
{
    m_GraphicPosition = v;
    repintarSiAutomatico();
}

void CMdiBackground::repintarSiAutomatico()
{
    if (m_AutoRefresh)
        Refresh();
}

QPixmap CMdiBackground::pintar(const QSize& t) const
{
    QPixmap pm(t.expandedTo(QSize(1, 1)));
    QPainter p(&pm);
    if (m_BackStyle != 0) {
        // 64 bandas horizontales; el paso de cada componente es la diferencia entre 64.
        const int pasoR = (m_Color[0].red() - m_Color[1].red()) / 64;
        const int pasoG = (m_Color[0].green() - m_Color[1].green()) / 64;
        const int pasoB = (m_Color[0].blue() - m_Color[1].blue()) / 64;
        const double alto = pm.height() / 64.0;
        for (int i = 0; i < 64; ++i) {
            const QColor c(qBound(0, m_Color[0].red() - pasoR * i, 255), qBound(0, m_Color[0].green() - pasoG * i, 255),
                           qBound(0, m_Color[0].blue() - pasoB * i, 255));
            p.fillRect(QRectF(0, i * alto, pm.width(), alto + 1), c);
        }
    } else {
        pm.fill(m_Color[0]);
    }
    if (!m_Graphic.isNull()) {
        const int gw = m_Graphic.width(), gh = m_Graphic.height();
        switch (m_GraphicPosition) {
        case 1:
            // Más estrecha la ventana que el dibujo: origen negativo, recortado por ambos lados.
            p.drawPixmap((pm.width() - gw) / 2, (pm.height() - gh) / 2, m_Graphic);
            break;
        case 2:
            for (int x = 0; x <= pm.width() / gw; ++x)
                for (int y = 0; y <= pm.height() / gh; ++y)
                    p.drawPixmap(x * gw, y * gh, m_Graphic);
            break;
        case 3: p.drawPixmap(pm.rect(), m_Graphic); break;
        default: break;
        }
    }
    return pm;
}

void CMdiBackground::Refresh()
{
    if (!m_Client)
        return;
    m_Client->setBackground(QBrush(pintar(m_Client->viewport()->size())));
}

bool CMdiBackground::eventFilter(QObject* o, QEvent* e)
{
    if (e->type() == QEvent::Resize && m_viewport && o == m_viewport.data() && m_Client && !m_viewport->window()->isMinimized())
        Refresh();
    return QObject::eventFilter(o, e);
}
