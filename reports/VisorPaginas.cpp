#include "reports/VisorPaginas.h"

#include <QPainter>
#include <QPaintEvent>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace {
constexpr int SEPARACION = 12;  // píxeles entre páginas y alrededor
constexpr double ESCALA_MINIMA = 0.5, ESCALA_MAXIMA = 12.0;
}  // namespace

VisorPaginas::VisorPaginas(QWidget* padre) : QAbstractScrollArea(padre)
{
    viewport()->setBackgroundRole(QPalette::Dark);
    viewport()->setAutoFillBackground(true);
    setFocusPolicy(Qt::StrongFocus);
    verticalScrollBar()->setSingleStep(24);
    horizontalScrollBar()->setSingleStep(24);
    // Unas pocas páginas ya dibujadas a la escala actual: volver atrás no las repinta.
    m_imagenes.setMaxCost(12);
}

void VisorPaginas::ponerOrigen(Origen origen)
{
    m_origen = std::move(origen);
    m_paginas = m_origen.numeroPaginas ? std::max(0, m_origen.numeroPaginas()) : 0;
    m_dibujadas = 0;
    m_imagenes.clear();
    if (m_ajustarAncho)
        ajustarAncho();
    else
        recolocar();
    verticalScrollBar()->setValue(0);
    viewport()->update();
    emit paginaCambiada();
}

QSize VisorPaginas::tamanoPagina() const
{
    return QSize(qRound(m_origen.tamanoMm.width() * m_escala), qRound(m_origen.tamanoMm.height() * m_escala));
}

int VisorPaginas::altoConSeparacion() const { return tamanoPagina().height() + SEPARACION; }

void VisorPaginas::recolocar()
{
    const QSize pagina = tamanoPagina();
    const int ancho = pagina.width() + 2 * SEPARACION;
    const int alto = m_paginas * altoConSeparacion() + SEPARACION;
    horizontalScrollBar()->setRange(0, std::max(0, ancho - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    verticalScrollBar()->setRange(0, std::max(0, alto - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
}

void VisorPaginas::cambiarEscala(double escala, bool ajustar)
{
    // Se conserva la página que se estaba viendo.
    const double posicion = altoConSeparacion() > 0 ? double(verticalScrollBar()->value()) / altoConSeparacion() : 0;
    m_ajustarAncho = ajustar;
    escala = std::clamp(escala, ESCALA_MINIMA, ESCALA_MAXIMA);
    if (std::abs(escala - m_escala) > 1e-6) {
        m_escala = escala;
        m_imagenes.clear();
    }
    recolocar();
    verticalScrollBar()->setValue(qRound(posicion * altoConSeparacion()));
    viewport()->update();
    emit paginaCambiada();
}

void VisorPaginas::acercar() { cambiarEscala(m_escala * 1.25, false); }

void VisorPaginas::alejar() { cambiarEscala(m_escala / 1.25, false); }

void VisorPaginas::ajustarAncho()
{
    if (m_origen.tamanoMm.width() <= 0)
        return;
    const int barra = verticalScrollBar()->sizeHint().width();
    const double disponible = std::max(100, viewport()->width() - 2 * SEPARACION - (verticalScrollBar()->isVisible() ? 0 : barra));
    cambiarEscala(disponible / m_origen.tamanoMm.width(), true);
}

int VisorPaginas::paginaActual() const
{
    if (m_paginas == 0)
        return 0;
    const int centro = verticalScrollBar()->value() + viewport()->height() / 2;
    return std::clamp(centro / std::max(1, altoConSeparacion()) + 1, 1, m_paginas);
}

void VisorPaginas::irAPagina(int pagina)
{
    if (m_paginas == 0)
        return;
    pagina = std::clamp(pagina, 1, m_paginas);
    verticalScrollBar()->setValue((pagina - 1) * altoConSeparacion());
    emit paginaCambiada();
}

QImage VisorPaginas::imagen(int indice)
{
    if (QImage* guardada = m_imagenes.object(indice))
        return *guardada;
    const QSize tamano = tamanoPagina();
    auto* img = new QImage(tamano, QImage::Format_RGB32);
    // La resolución de la imagen es la escala: las fuentes, en puntos, quedan en proporción.
    img->setDotsPerMeterX(qRound(m_escala * 1000));
    img->setDotsPerMeterY(qRound(m_escala * 1000));
    img->fill(Qt::white);
    {
        QPainter p(img);
        p.setRenderHint(QPainter::TextAntialiasing, true);
        if (m_origen.pintar)
            m_origen.pintar(p, indice, m_escala);
    }
    ++m_dibujadas;
    const QImage copia = *img;
    m_imagenes.insert(indice, img, 1);
    return copia;
}

void VisorPaginas::paintEvent(QPaintEvent* e)
{
    QPainter p(viewport());
    if (m_paginas == 0)
        return;
    const QSize pagina = tamanoPagina();
    const int paso = altoConSeparacion();
    const int arriba = verticalScrollBar()->value();
    const int x = std::max(SEPARACION, (viewport()->width() - pagina.width()) / 2) - horizontalScrollBar()->value();
    const int primera = std::max(0, (arriba + e->rect().top() - SEPARACION) / paso);
    const int ultima = std::min(m_paginas - 1, (arriba + e->rect().bottom()) / paso);
    for (int i = primera; i <= ultima; ++i) {
        const QRect r(QPoint(x, SEPARACION + i * paso - arriba), pagina);
        if (!r.intersects(e->rect()))
            continue;
        p.fillRect(r.translated(3, 3), QColor(0, 0, 0, 90));
        p.drawImage(r.topLeft(), imagen(i));
        p.setPen(QColor(120, 120, 120));
        p.drawRect(r.adjusted(0, 0, -1, -1));
    }
}

void VisorPaginas::resizeEvent(QResizeEvent* e)
{
    QAbstractScrollArea::resizeEvent(e);
    if (m_ajustarAncho)
        ajustarAncho();
    else
        recolocar();
}

void VisorPaginas::scrollContentsBy(int, int)
{
    viewport()->update();
    emit paginaCambiada();
}
