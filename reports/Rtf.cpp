#include "reports/Rtf.h"

#include <QPageSize>
#include <QTextDocument>
#include <QTextFrame>

namespace Rtf {

namespace {

// Los bytes 0x80 a 0x9F de la 1252; el resto coincide con Latin-1. Cero donde no hay carácter.
constexpr char16_t CP1252_ALTOS[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
    0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

} // namespace

QChar deCp1252(unsigned char byte)
{
    if (byte >= 0x80 && byte < 0xA0)
        return QChar(CP1252_ALTOS[byte - 0x80]);
    return QChar(byte);
}

int aCp1252(QChar caracter)
{
    const char16_t c = caracter.unicode();
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return c;
    for (int i = 0; i < 32; ++i)
        if (CP1252_ALTOS[i] == c && c != 0)
            return 0x80 + i;
    return -1;
}

QString nombreFuente(const QString& nombre)
{
    QString r;
    for (const QChar c : nombre)
        if (c.unicode() >= 0x20 && !(c.unicode() >= 0x7F && c.unicode() < 0xA0) && c != u';')
            r += c;
    return r.trimmed();
}

std::optional<Pagina> pagina(const QTextDocument& documento)
{
    const QTextFrameFormat f = documento.rootFrame()->frameFormat();
    if (!f.hasProperty(PROPIEDAD_PAGINA))
        return std::nullopt;
    Pagina p;
    int* campos[] = {&p.ancho, &p.alto, &p.izquierdo, &p.derecho, &p.superior, &p.inferior};
    for (int i = 0; i < 6; ++i)
        *campos[i] = f.intProperty(PROPIEDAD_PAGINA + i);
    return p;
}

void ponerPagina(QTextDocument& documento, const Pagina& p)
{
    QTextFrameFormat f = documento.rootFrame()->frameFormat();
    const int campos[] = {p.ancho, p.alto, p.izquierdo, p.derecho, p.superior, p.inferior};
    for (int i = 0; i < 6; ++i)
        f.setProperty(PROPIEDAD_PAGINA + i, campos[i]);
    documento.rootFrame()->setFrameFormat(f);
}

QPageLayout disenoPagina(const QTextDocument& documento)
{
    const Pagina p = pagina(documento).value_or(Pagina());
    const auto puntos = [](int twips) { return twips / 20.0; };
    // QPageSize se define siempre en vertical; la orientación dice cómo se pone.
    const QPageSize tamano(QSizeF(puntos(qMin(p.ancho, p.alto)), puntos(qMax(p.ancho, p.alto))), QPageSize::Point);
    return QPageLayout(tamano, p.ancho > p.alto ? QPageLayout::Landscape : QPageLayout::Portrait,
                       QMarginsF(puntos(p.izquierdo), puntos(p.superior), puntos(p.derecho), puntos(p.inferior)),
                       QPageLayout::Point);
}

} // namespace Rtf
