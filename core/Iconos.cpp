#include "core/Iconos.h"

#include <QPainter>
#include <QPainterPath>
#include <QLinearGradient>

namespace Iconos {

namespace {

const QColor AZUL(38, 92, 160);
const QColor VERDE(33, 128, 71);
const QColor ROJO(184, 50, 45);
const QColor OCRE(196, 135, 30);
const QColor GRIS_OSCURO(70, 70, 70);

void persona(QPainter& p, const QRectF& r, const QColor& c)
{
    p.setBrush(c);
    p.setPen(Qt::NoPen);
    const double w = r.width();
    p.drawEllipse(QRectF(r.center().x() - w * 0.17, r.top() + w * 0.08, w * 0.34, w * 0.34));
    QPainterPath cuerpo;
    cuerpo.moveTo(r.left() + w * 0.15, r.bottom() - w * 0.05);
    cuerpo.cubicTo(r.left() + w * 0.15, r.top() + w * 0.45, r.right() - w * 0.15, r.top() + w * 0.45,
                   r.right() - w * 0.15, r.bottom() - w * 0.05);
    cuerpo.closeSubpath();
    p.drawPath(cuerpo);
}

void hoja(QPainter& p, const QRectF& r, const QColor& borde)
{
    QPainterPath h;
    const double w = r.width();
    h.moveTo(r.left() + w * 0.2, r.top() + w * 0.06);
    h.lineTo(r.right() - w * 0.32, r.top() + w * 0.06);
    h.lineTo(r.right() - w * 0.18, r.top() + w * 0.2);
    h.lineTo(r.right() - w * 0.18, r.bottom() - w * 0.06);
    h.lineTo(r.left() + w * 0.2, r.bottom() - w * 0.06);
    h.closeSubpath();
    p.setPen(QPen(borde, w / 24.0));
    p.setBrush(Qt::white);
    p.drawPath(h);
    p.setPen(QPen(borde.lighter(140), w / 32.0));
    for (int i = 0; i < 4; ++i) {
        const double y = r.top() + w * (0.34 + i * 0.13);
        p.drawLine(QPointF(r.left() + w * 0.3, y), QPointF(r.right() - w * 0.28, y));
    }
}

void letrero(QPainter& p, const QRectF& r, const QColor& fondo, const QString& texto)
{
    p.setPen(Qt::NoPen);
    p.setBrush(fondo);
    p.drawRoundedRect(r.adjusted(r.width() * 0.08, r.height() * 0.08, -r.width() * 0.08, -r.height() * 0.08),
                      r.width() * 0.14, r.width() * 0.14);
    QFont f(QStringLiteral("Liberation Sans"));
    f.setBold(true);
    f.setPixelSize(static_cast<int>(r.height() * (texto.size() > 2 ? 0.32 : 0.5)));
    p.setFont(f);
    p.setPen(Qt::white);
    p.drawText(r, Qt::AlignCenter, texto);
}

// Letra de las órdenes de formato (negrita, cursiva...), en negro sobre fondo transparente.
void letraFormato(QPainter& p, const QRectF& r, const QString& texto, const QFont& base)
{
    QFont f = base;
    f.setPixelSize(static_cast<int>(r.height() * (texto.size() > 1 ? 0.5 : 0.72)));
    p.setFont(f);
    p.setPen(GRIS_OSCURO.darker(160));
    p.drawText(r, Qt::AlignCenter, texto);
}

// Renglones de un párrafo alineados a un lado o al centro.
void renglones(QPainter& p, const QRectF& r, Qt::Alignment alineacion)
{
    const double w = r.width();
    p.setPen(QPen(GRIS_OSCURO, w / 14.0, Qt::SolidLine, Qt::FlatCap));
    const double largos[] = {0.76, 0.5, 0.76, 0.6, 0.76};
    for (int i = 0; i < 5; ++i) {
        const double largo = w * largos[i];
        double x = r.left() + w * 0.12;
        if (alineacion == Qt::AlignHCenter)
            x = r.center().x() - largo / 2;
        else if (alineacion == Qt::AlignRight)
            x = r.right() - w * 0.12 - largo;
        const double y = r.top() + w * (0.18 + i * 0.16);
        p.drawLine(QPointF(x, y), QPointF(x + largo, y));
    }
}

void dibujar(QPainter& p, const QString& n, const QRectF& r)
{
    const double w = r.width();
    if (n == QLatin1String("proyecto")) {
        hoja(p, r, AZUL);
        p.setPen(QPen(ROJO, w / 14.0));
        p.drawLine(QPointF(r.left() + w * 0.45, r.bottom() - w * 0.12), QPointF(r.right() - w * 0.05, r.top() + w * 0.35));
    } else if (n == QLatin1String("arquitecto")) {
        persona(p, r, AZUL);
    } else if (n == QLatin1String("aparejador")) {
        persona(p, r, VERDE);
    } else if (n == QLatin1String("contratista")) {
        persona(p, r, OCRE);
        p.setBrush(OCRE.darker(140));
        p.drawChord(QRectF(r.center().x() - w * 0.22, r.top() + w * 0.02, w * 0.44, w * 0.3), 0, 180 * 16);
    } else if (n == QLatin1String("cliente")) {
        persona(p, r, QColor(120, 60, 140));
    } else if (n == QLatin1String("ayuda")) {
        letrero(p, r, AZUL, QStringLiteral("?"));
    } else if (n == QLatin1String("informacion")) {
        letrero(p, r, AZUL, QStringLiteral("i"));
    } else if (n == QLatin1String("salir")) {
        p.setPen(QPen(ROJO, w / 10.0, Qt::SolidLine, Qt::RoundCap));
        p.setBrush(Qt::NoBrush);
        p.drawArc(r.adjusted(w * 0.18, w * 0.2, -w * 0.18, -w * 0.14), 120 * 16, 300 * 16);
        p.drawLine(QPointF(r.center().x(), r.top() + w * 0.1), QPointF(r.center().x(), r.center().y()));
    } else if (n == QLatin1String("buscar") || n == QLatin1String("seleccionar")) {
        p.setPen(QPen(GRIS_OSCURO, w / 10.0, Qt::SolidLine, Qt::RoundCap));
        p.setBrush(QColor(200, 225, 250));
        p.drawEllipse(QRectF(r.left() + w * 0.12, r.top() + w * 0.12, w * 0.5, w * 0.5));
        p.drawLine(QPointF(r.left() + w * 0.56, r.top() + w * 0.56), QPointF(r.right() - w * 0.12, r.bottom() - w * 0.12));
    } else if (n == QLatin1String("listado")) {
        hoja(p, r, GRIS_OSCURO);
    } else if (n == QLatin1String("excel")) {
        letrero(p, r, VERDE, QStringLiteral("X"));
    } else if (n == QLatin1String("pdf")) {
        letrero(p, r, ROJO, QStringLiteral("PDF"));
    } else if (n == QLatin1String("impresoBlanco")) {
        hoja(p, r, QColor(150, 150, 150));
    } else if (n == QLatin1String("imprimir")) {
        p.setPen(QPen(GRIS_OSCURO, w / 20.0));
        p.setBrush(QColor(215, 215, 215));
        p.drawRect(QRectF(r.left() + w * 0.1, r.top() + w * 0.4, w * 0.8, w * 0.35));
        p.setBrush(Qt::white);
        p.drawRect(QRectF(r.left() + w * 0.25, r.top() + w * 0.1, w * 0.5, w * 0.3));
        p.drawRect(QRectF(r.left() + w * 0.25, r.top() + w * 0.65, w * 0.5, w * 0.25));
    } else if (n == QLatin1String("nuevo")) {
        hoja(p, r, AZUL);
        p.setPen(QPen(VERDE, w / 8.0));
        p.drawLine(QPointF(r.right() - w * 0.25, r.bottom() - w * 0.42), QPointF(r.right() - w * 0.25, r.bottom() - w * 0.08));
        p.drawLine(QPointF(r.right() - w * 0.42, r.bottom() - w * 0.25), QPointF(r.right() - w * 0.08, r.bottom() - w * 0.25));
    } else if (n == QLatin1String("editar")) {
        hoja(p, r, AZUL);
        p.setPen(QPen(OCRE, w / 9.0, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(r.left() + w * 0.4, r.bottom() - w * 0.2), QPointF(r.right() - w * 0.1, r.top() + w * 0.3));
    } else if (n == QLatin1String("eliminar") || n == QLatin1String("borrar")) {
        p.setPen(QPen(ROJO, w / 8.0, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(r.left() + w * 0.25, r.top() + w * 0.25), QPointF(r.right() - w * 0.25, r.bottom() - w * 0.25));
        p.drawLine(QPointF(r.right() - w * 0.25, r.top() + w * 0.25), QPointF(r.left() + w * 0.25, r.bottom() - w * 0.25));
    } else if (n == QLatin1String("validar")) {
        p.setPen(QPen(VERDE, w / 8.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.drawPolyline(QPolygonF({QPointF(r.left() + w * 0.18, r.center().y()),
                                  QPointF(r.left() + w * 0.42, r.bottom() - w * 0.22),
                                  QPointF(r.right() - w * 0.15, r.top() + w * 0.2)}));
    } else if (n == QLatin1String("porcentajes")) {
        letrero(p, r, OCRE, QStringLiteral("%"));
    } else if (n == QLatin1String("fecha")) {
        letrero(p, r, AZUL, QStringLiteral("31"));
    } else if (n == QLatin1String("abrir")) {
        p.setPen(QPen(OCRE.darker(130), w / 24.0));
        p.setBrush(OCRE.lighter(130));
        p.drawRect(QRectF(r.left() + w * 0.08, r.top() + w * 0.22, w * 0.8, w * 0.6));
        p.setBrush(OCRE);
        p.drawPolygon(QPolygonF({QPointF(r.left() + w * 0.08, r.bottom() - w * 0.18), QPointF(r.left() + w * 0.24, r.top() + w * 0.42),
                                 QPointF(r.right() - w * 0.02, r.top() + w * 0.42), QPointF(r.right() - w * 0.14, r.bottom() - w * 0.18)}));
    } else if (n == QLatin1String("guardar")) {
        p.setPen(QPen(AZUL.darker(140), w / 24.0));
        p.setBrush(AZUL);
        p.drawRoundedRect(QRectF(r.left() + w * 0.12, r.top() + w * 0.12, w * 0.76, w * 0.76), w * 0.06, w * 0.06);
        p.setBrush(Qt::white);
        p.drawRect(QRectF(r.left() + w * 0.26, r.top() + w * 0.12, w * 0.48, w * 0.3));
        p.setBrush(QColor(200, 200, 200));
        p.drawRect(QRectF(r.left() + w * 0.3, r.top() + w * 0.58, w * 0.4, w * 0.3));
    } else if (n == QLatin1String("cortar")) {
        p.setPen(QPen(GRIS_OSCURO, w / 14.0, Qt::SolidLine, Qt::RoundCap));
        p.setBrush(Qt::NoBrush);
        p.drawLine(QPointF(r.left() + w * 0.3, r.top() + w * 0.1), QPointF(r.left() + w * 0.62, r.top() + w * 0.62));
        p.drawLine(QPointF(r.right() - w * 0.3, r.top() + w * 0.1), QPointF(r.right() - w * 0.62, r.top() + w * 0.62));
        p.setPen(QPen(ROJO, w / 14.0));
        p.drawEllipse(QRectF(r.left() + w * 0.14, r.top() + w * 0.6, w * 0.26, w * 0.26));
        p.drawEllipse(QRectF(r.right() - w * 0.4, r.top() + w * 0.6, w * 0.26, w * 0.26));
    } else if (n == QLatin1String("copiar")) {
        hoja(p, QRectF(r.left() - w * 0.12, r.top() - w * 0.08, w * 0.8, w * 0.8), AZUL);
        hoja(p, QRectF(r.left() + w * 0.28, r.top() + w * 0.24, w * 0.8, w * 0.8), AZUL);
    } else if (n == QLatin1String("pegar")) {
        p.setPen(QPen(OCRE.darker(150), w / 24.0));
        p.setBrush(OCRE.darker(120));
        p.drawRoundedRect(QRectF(r.left() + w * 0.14, r.top() + w * 0.12, w * 0.62, w * 0.8), w * 0.06, w * 0.06);
        p.setBrush(QColor(200, 200, 200));
        p.drawRect(QRectF(r.left() + w * 0.32, r.top() + w * 0.06, w * 0.26, w * 0.12));
        hoja(p, QRectF(r.left() + w * 0.34, r.top() + w * 0.3, w * 0.66, w * 0.66), AZUL);
    } else if (n == QLatin1String("deshacer")) {
        p.setPen(QPen(AZUL, w / 9.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.setBrush(Qt::NoBrush);
        p.drawArc(QRectF(r.left() + w * 0.2, r.top() + w * 0.3, w * 0.62, w * 0.52), 180 * 16, -200 * 16);
        p.drawPolyline(QPolygonF({QPointF(r.left() + w * 0.08, r.top() + w * 0.38), QPointF(r.left() + w * 0.2, r.top() + w * 0.58),
                                  QPointF(r.left() + w * 0.4, r.top() + w * 0.46)}));
    } else if (n == QLatin1String("negrita") || n == QLatin1String("cursiva") || n == QLatin1String("subrayada")
               || n == QLatin1String("tachada")) {
        // Las letras de los procesadores de texto en español: N, K, S.
        QFont f(QStringLiteral("Liberation Serif"));
        f.setBold(n == QLatin1String("negrita"));
        f.setItalic(n == QLatin1String("cursiva"));
        f.setUnderline(n == QLatin1String("subrayada"));
        f.setStrikeOut(n == QLatin1String("tachada"));
        const char* letra = f.bold() ? "N" : f.italic() ? "K" : f.underline() ? "S" : "abc";
        letraFormato(p, r, QString::fromLatin1(letra), f);
    } else if (n == QLatin1String("izquierda")) {
        renglones(p, r, Qt::AlignLeft);
    } else if (n == QLatin1String("centrado")) {
        renglones(p, r, Qt::AlignHCenter);
    } else if (n == QLatin1String("derecha")) {
        renglones(p, r, Qt::AlignRight);
    } else if (n == QLatin1String("vinetas")) {
        for (int i = 0; i < 3; ++i) {
            const double y = r.top() + w * (0.24 + i * 0.26);
            p.setPen(Qt::NoPen);
            p.setBrush(AZUL);
            p.drawEllipse(QPointF(r.left() + w * 0.18, y), w * 0.07, w * 0.07);
            p.setPen(QPen(GRIS_OSCURO, w / 14.0));
            p.drawLine(QPointF(r.left() + w * 0.36, y), QPointF(r.right() - w * 0.1, y));
        }
    } else {
        letrero(p, r, GRIS_OSCURO, n.left(1).toUpper());
    }
}

QPixmap aGris(const QPixmap& pm)
{
    QImage img = pm.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < img.height(); ++y) {
        auto* linea = reinterpret_cast<QRgb*>(img.scanLine(y));
        for (int x = 0; x < img.width(); ++x) {
            const int g = qGray(linea[x]);
            const int claro = 90 + g * 120 / 255;
            linea[x] = qRgba(claro, claro, claro, qAlpha(linea[x]));
        }
    }
    return QPixmap::fromImage(img);
}

}  // namespace

QPixmap pixmap(const QString& nombre, int lado, Tinta tinta)
{
    const bool gris = tinta == Tinta::Gris;
    QPixmap pm(lado, lado);
    pm.fill(Qt::transparent);
    {
        QPainter p(&pm);
        p.setRenderHint(QPainter::Antialiasing);
        dibujar(p, nombre, QRectF(0, 0, lado, lado));
    }
    return gris ? aGris(pm) : pm;
}

QIcon icono(const QString& nombre, int lado)
{
    QIcon i;
    i.addPixmap(pixmap(nombre, lado));
    i.addPixmap(pixmap(nombre, lado, Tinta::Gris), QIcon::Disabled);
    return i;
}

QIcon iconoGrisColor(const QString& nombre, int lado)
{
    QIcon i;
    i.addPixmap(pixmap(nombre, lado, Tinta::Gris), QIcon::Normal);
    i.addPixmap(pixmap(nombre, lado), QIcon::Active);
    i.addPixmap(pixmap(nombre, lado, Tinta::Gris), QIcon::Disabled);
    return i;
}

QPixmap logotipo(const QSize& t, Fondo fondo)
{
    const bool conFondo = fondo == Fondo::Pintado;
    QPixmap pm(t);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    const double w = t.width(), h = t.height();
    if (conFondo) {
        QLinearGradient g(0, 0, 0, h);
        g.setColorAt(0, QColor(236, 240, 245));
        g.setColorAt(1, QColor(196, 208, 222));
        p.fillRect(pm.rect(), g);
        p.setPen(QPen(QColor(120, 130, 140), 2));
        p.drawRect(pm.rect().adjusted(1, 1, -2, -2));
    }
    // Alzado de un edificio con un compás: el oficio de la casa.
    const QColor trazo = conFondo ? QColor(38, 70, 110) : QColor(215, 220, 225);
    p.setPen(QPen(trazo, qMax(1.5, w / 220.0)));
    p.setBrush(Qt::NoBrush);
    const QRectF edificio(w * 0.08, h * 0.22, w * 0.26, h * 0.5);
    p.drawRect(edificio);
    p.drawLine(QPointF(edificio.left() - w * 0.02, edificio.top()), QPointF(edificio.center().x(), h * 0.1));
    p.drawLine(QPointF(edificio.center().x(), h * 0.1), QPointF(edificio.right() + w * 0.02, edificio.top()));
    for (int fila = 0; fila < 3; ++fila)
        for (int col = 0; col < 3; ++col)
            p.drawRect(QRectF(edificio.left() + edificio.width() * (0.12 + col * 0.3), edificio.top() + edificio.height() * (0.1 + fila * 0.28),
                              edificio.width() * 0.16, edificio.height() * 0.14));
    p.drawLine(QPointF(w * 0.04, edificio.bottom()), QPointF(w * 0.4, edificio.bottom()));
    QFont f(QStringLiteral("Liberation Sans"));
    f.setBold(true);
    f.setPixelSize(static_cast<int>(h * 0.16));
    p.setFont(f);
    p.setPen(trazo);
    p.drawText(QRectF(w * 0.42, h * 0.2, w * 0.56, h * 0.24), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("PLANORUM"));
    p.drawText(QRectF(w * 0.42, h * 0.42, w * 0.56, h * 0.24), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("MIRVADE"));
    f.setBold(false);
    f.setPixelSize(static_cast<int>(h * 0.06));
    p.setFont(f);
    p.drawText(QRectF(w * 0.42, h * 0.66, w * 0.56, h * 0.1), Qt::AlignLeft | Qt::AlignVCenter,
               QStringLiteral("Gestión del estudio de arquitectura"));
    return pm;
}

QIcon iconoPrograma()
{
    QIcon i;
    for (int lado : {16, 32, 64}) {
        QPixmap pm(lado, lado);
        pm.fill(Qt::transparent);
        QPainter p(&pm);
        p.setRenderHint(QPainter::Antialiasing);
        letrero(p, QRectF(0, 0, lado, lado), QColor(38, 70, 110), QStringLiteral("PM"));
        i.addPixmap(pm);
    }
    return i;
}

}  // namespace Iconos
