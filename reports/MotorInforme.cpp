#include "reports/MotorInforme.h"

#include "core/BaseDatos.h"
#include "core/Error.h"
#include "reports/FormatoInforme.h"

#include <QFileInfo>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTextLayout>

// ---------------------------------------------------------------- filas

ConjuntoFilas::ConjuntoFilas(QStringList campos, QList<QVariantList> filas)
    : m_campos(std::move(campos)), m_filas(std::move(filas))
{
    for (int i = 0; i < m_campos.size(); ++i)
        m_indices.insert(m_campos[i].toLower(), i);
}

ConjuntoFilas ConjuntoFilas::leer(QSqlDatabase db, const QString& sql, const QVariantList& valores)
{
    QSqlQuery q(db);
    q.setForwardOnly(true);
    if (!q.prepare(sql))
        throw BaseDatos::errorDe(q.lastError());
    for (const QVariant& v : valores)
        q.addBindValue(v);
    if (!q.exec())
        throw BaseDatos::errorDe(q.lastError());
    const QSqlRecord r = q.record();
    QStringList campos;
    for (int i = 0; i < r.count(); ++i)
        campos << r.fieldName(i);
    QList<QVariantList> filas;
    while (q.next()) {
        QVariantList f;
        f.reserve(campos.size());
        for (int i = 0; i < campos.size(); ++i)
            f << q.value(i);
        filas << std::move(f);
    }
    return ConjuntoFilas(campos, std::move(filas));
}

QVariant ConjuntoFilas::valor(int fila, const QString& campo) const
{
    const int i = indice(campo);
    if (i < 0 || fila < 0 || fila >= m_filas.size())
        return {};
    return m_filas[fila][i];
}

// ---------------------------------------------------------------- composición

namespace {

QFont fuenteQt(const FuenteInforme& f)
{
    QFont q(f.familia);
    q.setPointSizeF(f.tamano);
    q.setBold(f.negrita);
    q.setItalic(f.cursiva);
    q.setKerning(false);
    return q;
}

// Texto de un campo que crece, partido en las líneas que ocupa a su ancho.
struct LineasTexto {
    QStringList lineas;
    QList<bool> finParrafo;  // la última línea de cada párrafo no se justifica
    double alto = 0;         // de cada línea, en milímetros
};

LineasTexto partirEnLineas(QString texto, const FuenteInforme& fuente, double anchoMm)
{
    // Se mide a 1200 ppp, igual para la vista previa, la impresora y el PDF; la holgura cubre lo
    // que cada dispositivo redondea de más al dibujar.
    static const QImage medida = [] {
        QImage i(1, 1, QImage::Format_Mono);
        i.setDotsPerMeterX(47244);
        i.setDotsPerMeterY(47244);
        return i;
    }();
    const double k = medida.logicalDpiX() / 25.4;
    const QFont f = fuenteQt(fuente);
    LineasTexto r;
    r.alto = QFontMetricsF(f, &medida).lineSpacing() / k;
    if (texto.isEmpty())
        return r;
    texto.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    texto.replace(QLatin1Char('\t'), QStringLiteral("    "));
    QTextOption opcion;
    opcion.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    for (const QString& parrafo : texto.split(QLatin1Char('\n'))) {
        if (parrafo.isEmpty()) {  // renglón en blanco entre párrafos
            r.lineas << QString();
            r.finParrafo << true;
            continue;
        }
        QTextLayout capa(parrafo, f, &medida);
        capa.setTextOption(opcion);
        capa.beginLayout();
        for (QTextLine l = capa.createLine(); l.isValid(); l = capa.createLine()) {
            l.setLineWidth(anchoMm * k * 0.99);
            QString linea = parrafo.mid(l.textStart(), l.textLength());
            while (linea.endsWith(QLatin1Char(' ')))
                linea.chop(1);
            r.lineas << linea;
            r.finParrafo << false;
        }
        capa.endLayout();
        r.finParrafo.last() = true;
    }
    return r;
}

class Compositor {
public:
    Compositor(const DisenoInforme& d, const ConjuntoFilas& filas, const QHash<QString, ConjuntoFilas>& subs,
               const QHash<QString, QVariant>& parametros)
        : m_d(d), m_filas(filas), m_subs(subs), m_param(parametros)
    {
        const QSizeF papel = d.tamanoPapel();
        m_x0 = d.margenes.left();
        m_arriba = d.margenes.top();
        m_abajo = papel.height() - d.margenes.bottom();
        m_limite = m_abajo - d.piePagina.alto;
    }

    QList<PaginaInforme> componer()
    {
        empezarPagina();
        bloque(m_d.cabeceraInforme, nullptr);
        bloque(m_d.cabeceraColumnas, nullptr);
        int n = m_filas.numero();
        const bool enBlanco = n == 0 && m_d.impreso;  // impreso en blanco: sus textos, sin datos
        if (enBlanco)
            n = 1;
        for (int i = 0; i < n; ++i) {
            const int fila = enBlanco ? -1 : i;
            FilaDetalle fd([this, fila](const QString& c) { return m_filas.valor(fila, c); });
            detalle(m_d.detalle, fd, i);
            if (m_d.detalle.saltoDespues && i + 1 < n)
                saltarPagina();
        }
        if (!m_d.pieInforme.vacia()) {
            if (m_y + m_d.pieInforme.alto > m_limite)
                saltarPagina();
            // El pie del informe ve los campos de la última fila (los totales de una factura tras sus líneas).
            const int ultima = enBlanco ? -1 : n - 1;
            FilaDetalle fd([this, ultima](const QString& c) { return m_filas.valor(ultima, c); });
            colocar(m_d.pieInforme, fd, m_x0, m_y);
            m_y += m_d.pieInforme.alto;
        }
        cerrarPagina();
        return m_paginas;
    }

private:
    void empezarPagina()
    {
        m_paginas.append(PaginaInforme());
        m_y = m_arriba;
        bloque(m_d.cabeceraPagina, nullptr);
        m_inicioCuerpo = m_y;
    }

    void cerrarPagina()
    {
        if (!m_d.piePagina.vacia()) {
            FilaDetalle vacia([](const QString&) { return QVariant(); });
            colocar(m_d.piePagina, vacia, m_x0, m_limite);
        }
    }

    void saltarPagina()
    {
        cerrarPagina();
        empezarPagina();
        bloque(m_d.cabeceraColumnas, nullptr);
        m_inicioCuerpo = m_y;
    }

    // Banda sin filas: cabeceras.
    void bloque(const BandaInforme& b, FilaDetalle* fd)
    {
        if (b.vacia())
            return;
        FilaDetalle vacia([](const QString&) { return QVariant(); });
        colocar(b, fd ? *fd : vacia, m_x0, m_y);
        m_y += b.alto;
    }

    static void ejecutarCodigo(const BandaInforme& b, FilaDetalle& fd)
    {
        for (const auto& [funcion, args] : b.codigos)
            if (const CodigoDetalle c = CodigosDetalle::buscar(funcion))
                c(fd, args);
    }

    double altoConSubtablas(const BandaInforme& b) const
    {
        double alto = b.alto;
        for (const ElementoInforme& e : b.elementos)
            if (e.tipo == TipoElemento::Subtabla) {
                const SubtablaInforme& s = m_d.subtablas[e.subtabla];
                const int n = m_subs.value(s.origen.toLower()).numero();
                alto = std::max(alto, s.y + s.cabecera.alto + n * s.fila.alto);
            }
        return alto;
    }

    void detalle(const BandaInforme& b, FilaDetalle& fd, int numeroFila)
    {
        ejecutarCodigo(b, fd);
        const double alto = altoConSubtablas(b);
        // Una banda que no cabe pasa entera a la página siguiente (salvo que no quepa en ninguna).
        if (m_y + std::min(alto, b.alto) > m_limite + 1e-6 && m_y > m_inicioCuerpo + 1e-6)
            saltarPagina();
        if (const ElementoInforme* c = creciente(b, fd)) {
            detalleCreciente(b, fd, *c);
            return;
        }
        if (b.cebra.isValid() && numeroFila % 2 == 1) {
            TrazoInforme t;
            t.tipo = TrazoInforme::Caja;
            t.rect = QRectF(m_x0, m_y, m_d.tamanoPapel().width() - m_d.margenes.left() - m_d.margenes.right(), b.alto);
            t.relleno = b.cebra;
            actual().trazos << t;
        }
        const double y0 = m_y;
        const auto paginaInicial = m_paginas.size();
        colocar(b, fd, m_x0, y0);
        double fin = y0 + b.alto;
        double anterior = 0;
        for (const ElementoInforme& e : b.elementos)
            if (e.tipo == TipoElemento::Subtabla) {
                // Donde la puso el diseño, o tras la anterior si ésta ha crecido o ha pasado de página.
                const bool otraPagina = m_paginas.size() != paginaInicial;
                const double inicio = otraPagina ? anterior : std::max(y0 + e.rect.y(), anterior);
                anterior = subtabla(m_d.subtablas[e.subtabla], inicio);
                fin = m_paginas.size() != paginaInicial ? anterior : std::max(fin, anterior);
            }
        m_y = m_paginas.size() != paginaInicial ? std::max(m_y, fin) : fin;
    }

    // El campo que crece de una banda de detalle (el primero que no se suprime), si la banda no
    // lleva subtablas.
    const ElementoInforme* creciente(const BandaInforme& b, const FilaDetalle& fd) const
    {
        const ElementoInforme* c = nullptr;
        for (const ElementoInforme& e : b.elementos) {
            if (e.tipo == TipoElemento::Subtabla)
                return nullptr;
            if (!c && e.crecer && e.tipo == TipoElemento::Campo && !suprimido(e, fd))
                c = &e;
        }
        return c;
    }

    // Banda con un campo que crece: lo de encima del final del campo va donde lo puso el diseño;
    // las líneas del texto siguen en las páginas que hagan falta; lo de debajo va tras el texto, a
    // la distancia que tenía de su final, y pasa entero de página si no cabe.
    void detalleCreciente(const BandaInforme& b, FilaDetalle& fd, const ElementoInforme& c)
    {
        const LineasTexto t = partirEnLineas(textoCampo(c, fd), m_d.fuentes.value(c.fuente), c.rect.width());
        const double finCampo = c.rect.bottom();
        const double y0 = m_y;
        colocar(b, fd, m_x0, y0, [&](const ElementoInforme& e) { return &e != &c && e.rect.top() < finCampo; });
        double y = y0 + c.rect.top();
        bool otraPagina = false;
        for (int i = 0; i < t.lineas.size(); ++i) {
            if (y + t.alto > m_limite + 1e-6 && y > m_inicioCuerpo + 1e-6) {
                saltarPagina();
                y = m_y;
                otraPagina = true;
            }
            linea(c, m_x0 + c.rect.x(), y, t, i);
            y += t.alto;
        }
        double fin = otraPagina ? y : std::max(y, y0 + finCampo);
        const double resto = b.alto - finCampo;
        if (fin + resto > m_limite + 1e-6 && fin > m_inicioCuerpo + 1e-6) {
            saltarPagina();
            fin = m_y;
        }
        colocar(b, fd, m_x0, fin - finCampo, [&](const ElementoInforme& e) { return &e != &c && e.rect.top() >= finCampo; });
        m_y = fin + resto;
    }

    // Una línea de un campo que crece; la justificación no se aplica a la última de cada párrafo.
    void linea(const ElementoInforme& e, double x, double y, const LineasTexto& t, int i)
    {
        if (t.lineas[i].isEmpty())
            return;
        const Qt::Alignment horizontal = e.alineacion & Qt::AlignHorizontal_Mask;
        TrazoInforme tr;
        tr.tipo = TrazoInforme::Texto;
        tr.rect = QRectF(x, y, e.rect.width(), t.alto);
        tr.texto = t.lineas[i];
        tr.fuente = e.fuente;
        tr.color = e.color;
        tr.justificar = horizontal == Qt::AlignJustify && !t.finParrafo[i];
        tr.banderas = int((horizontal == Qt::AlignJustify ? Qt::AlignLeft : horizontal) | Qt::AlignTop) | Qt::TextSingleLine
                    | Qt::TextDontClip;
        actual().trazos << std::move(tr);
    }

    static bool suprimido(const ElementoInforme& e, const FilaDetalle& fd)
    {
        return (!e.nombre.isEmpty() && fd.suprimido(e.nombre)) || (!e.campo.isEmpty() && fd.suprimido(e.campo));
    }

    // Texto de un campo tal como se imprime: el que le dio el código de detalle, o su valor con
    // formato, prefijo y sufijo (nada si se suprime por cero o por vacío).
    QString textoCampo(const ElementoInforme& e, FilaDetalle& fd) const
    {
        if (!e.nombre.isEmpty() && fd.tieneTexto(e.nombre))
            return fd.texto(e.nombre);
        const QVariant v = valorDe(e, fd);
        if (e.suprimirSiCero && CodigosDetalle::esCero(v))
            return {};
        const QString t = FormatoInforme::valor(v, e.formato);
        if (t.trimmed().isEmpty() && e.suprimirSiVacio)
            return {};
        return e.prefijo + t + e.sufijo;
    }

    // Coloca la subtabla desde y; devuelve dónde acaba (en la página en que acaba).
    double subtabla(const SubtablaInforme& s, double y)
    {
        const ConjuntoFilas sub = m_subs.value(s.origen.toLower());
        const double x = m_x0 + s.x;
        FilaDetalle vacia([](const QString&) { return QVariant(); });
        if (!s.cabecera.vacia()) {
            colocar(s.cabecera, vacia, x, y);
            y += s.cabecera.alto;
        }
        for (int i = 0; i < sub.numero(); ++i) {
            if (y + s.fila.alto > m_limite + 1e-6) {
                saltarPagina();
                y = m_y;
                if (!s.cabecera.vacia()) {
                    colocar(s.cabecera, vacia, x, y);
                    y += s.cabecera.alto;
                }
            }
            FilaDetalle fd([&sub, i](const QString& c) { return sub.valor(i, c); });
            ejecutarCodigo(s.fila, fd);
            colocar(s.fila, fd, x, y);
            y += s.fila.alto;
            m_y = std::max(m_y, y);
        }
        return y;
    }

    PaginaInforme& actual() { return m_paginas.last(); }

    QVariant valorDe(const ElementoInforme& e, FilaDetalle& fd) const
    {
        if (!e.parametro.isEmpty())
            return m_param.value(e.parametro.toLower());
        if (!e.campos.isEmpty()) {
            QStringList partes;
            for (const QString& c : e.campos) {
                const QString t = FormatoInforme::valor(fd.valor(c), e.formato).trimmed();
                if (!t.isEmpty())
                    partes << t;
            }
            return partes.isEmpty() ? QVariant() : QVariant(partes.join(e.separador));
        }
        return fd.valor(e.campo);
    }

    void texto(const ElementoInforme& e, double x, double y, const QString& t)
    {
        if (e.relleno.isValid() || e.borde > 0) {
            TrazoInforme c;
            c.tipo = TrazoInforme::Caja;
            c.rect = e.rect.translated(x, y);
            c.relleno = e.relleno;
            c.grosor = e.borde;
            c.color = e.color;
            actual().trazos << c;
        }
        if (t.isEmpty())
            return;
        TrazoInforme tr;
        tr.tipo = TrazoInforme::Texto;
        tr.rect = e.rect.translated(x, y);
        tr.texto = t;
        tr.fuente = e.fuente;
        tr.color = e.color;
        tr.banderas = int(e.alineacion) | (e.ajuste ? Qt::TextWordWrap : Qt::TextSingleLine);
        tr.recortar = !e.ajuste;
        actual().trazos << std::move(tr);
    }

    // Coloca los elementos de la banda (los que deje pasar el filtro) con su origen en x, y.
    void colocar(const BandaInforme& b, FilaDetalle& fd, double x, double y,
                 const std::function<bool(const ElementoInforme&)>& filtro = {})
    {
        for (const ElementoInforme& e : b.elementos) {
            if (suprimido(e, fd) || (filtro && !filtro(e)))
                continue;
            switch (e.tipo) {
            case TipoElemento::Texto:
                texto(e, x, y, !e.nombre.isEmpty() && fd.tieneTexto(e.nombre) ? fd.texto(e.nombre) : e.texto);
                break;
            case TipoElemento::Campo:
                if (e.crecer) {
                    // Fuera del detalle no hay hacia dónde crecer: sus líneas desde el principio de la caja.
                    const LineasTexto t = partirEnLineas(textoCampo(e, fd), m_d.fuentes.value(e.fuente), e.rect.width());
                    for (int i = 0; i < t.lineas.size(); ++i)
                        linea(e, x + e.rect.x(), y + e.rect.y() + i * t.alto, t, i);
                } else {
                    texto(e, x, y, textoCampo(e, fd));
                }
                break;
            case TipoElemento::FechaImpresion:
                texto(e, x, y, e.prefijo + FormatoInforme::valor(m_param.value(QStringLiteral("fechaimpresion")), e.formato) + e.sufijo);
                break;
            case TipoElemento::NumeroPagina: {
                TrazoInforme t;
                t.tipo = TrazoInforme::NumeroPagina;
                t.rect = e.rect.translated(x, y);
                t.texto = e.texto;
                t.fuente = e.fuente;
                t.color = e.color;
                t.banderas = int(e.alineacion) | Qt::TextSingleLine;
                actual().trazos << t;
                break;
            }
            case TipoElemento::Caja: {
                TrazoInforme t;
                t.tipo = TrazoInforme::Caja;
                t.rect = e.rect.translated(x, y);
                t.grosor = e.grosor;
                t.color = e.color;
                t.relleno = e.relleno;
                actual().trazos << t;
                break;
            }
            case TipoElemento::Linea: {
                TrazoInforme t;
                t.tipo = TrazoInforme::Linea;
                t.rect = e.rect.translated(x, y);
                t.grosor = e.grosor;
                t.color = e.color;
                actual().trazos << t;
                break;
            }
            case TipoElemento::Marca: {
                TrazoInforme t;
                t.rect = e.rect.translated(x, y);
                t.grosor = e.grosor;
                t.color = e.color;
                if (e.caja) {
                    t.tipo = TrazoInforme::Caja;
                    actual().trazos << t;
                }
                const QVariant v = valorDe(e, fd);
                if (!v.isNull() && v.toString().trimmed().compare(QLatin1String("X"), Qt::CaseInsensitive) == 0) {
                    t.tipo = TrazoInforme::MarcaX;
                    actual().trazos << t;
                }
                break;
            }
            case TipoElemento::Imagen: {
                TrazoInforme t;
                t.tipo = TrazoInforme::Imagen;
                t.rect = e.rect.translated(x, y);
                t.texto = e.imagen;
                actual().trazos << t;
                break;
            }
            case TipoElemento::Subtabla:
                break;  // la coloca detalle()
            }
        }
    }

    const DisenoInforme& m_d;
    const ConjuntoFilas& m_filas;
    const QHash<QString, ConjuntoFilas>& m_subs;
    const QHash<QString, QVariant>& m_param;
    QList<PaginaInforme> m_paginas;
    double m_x0 = 0, m_arriba = 0, m_abajo = 0, m_limite = 0, m_y = 0, m_inicioCuerpo = 0;
};

}  // namespace

// ---------------------------------------------------------------- documento

DocumentoInforme::DocumentoInforme(std::shared_ptr<const DisenoInforme> diseno) : m_diseno(std::move(diseno))
{
    ponerParametro(QStringLiteral("FechaImpresion"), QDate::currentDate());
    ponerParametro(QStringLiteral("Titulo"), m_diseno->titulo);
}

void DocumentoInforme::asignarDatos(ConjuntoFilas filas)
{
    m_filas = std::move(filas);
    m_conDatos = true;
    m_compuesto = false;
}

void DocumentoInforme::asignarDatosSubinforme(const QString& subinforme, ConjuntoFilas filas)
{
    m_subinformes.insert(subinforme.toLower(), std::move(filas));
    m_compuesto = false;
}

void DocumentoInforme::ponerParametro(const QString& nombre, const QVariant& valor)
{
    m_parametros.insert(nombre.toLower(), valor);
    m_compuesto = false;
}

void DocumentoInforme::componer()
{
    if (m_compuesto)
        return;
    m_paginas = Compositor(*m_diseno, m_filas, m_subinformes, m_parametros).componer();
    m_compuesto = true;
}

int DocumentoInforme::numeroPaginas()
{
    componer();
    return int(m_paginas.size());
}

const PaginaInforme& DocumentoInforme::pagina(int indice)
{
    componer();
    return m_paginas.at(indice);
}

QPageLayout DocumentoInforme::disenoPagina() const
{
    return QPageLayout(QPageSize(m_diseno->tamano), m_diseno->orientacion, QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter);
}

void DocumentoInforme::pintarPagina(QPainter& p, int indice, double k)
{
    componer();
    const PaginaInforme& pag = m_paginas.at(indice);
    const QString total = QString::number(m_paginas.size());
    QList<QFont> fuentes;
    for (const FuenteInforme& f : m_diseno->fuentes)
        fuentes << fuenteQt(f);
    auto px = [k](const QRectF& r) { return QRectF(r.x() * k, r.y() * k, r.width() * k, r.height() * k); };
    int fuenteActual = -1;
    p.save();
    p.setRenderHint(QPainter::Antialiasing, true);
    for (const TrazoInforme& t : pag.trazos) {
        switch (t.tipo) {
        case TrazoInforme::Texto:
        case TrazoInforme::NumeroPagina: {
            if (t.fuente != fuenteActual) {
                p.setFont(fuentes.value(t.fuente));
                fuenteActual = t.fuente;
            }
            p.setPen(t.color);
            QString texto = t.texto;
            if (t.tipo == TrazoInforme::NumeroPagina)
                texto.replace(QStringLiteral("{N}"), QString::number(indice + 1)).replace(QStringLiteral("{M}"), total);
            const QRectF r = px(t.rect);
            if (t.recortar) {
                const QFontMetricsF fm(p.font(), p.device());
                if (fm.horizontalAdvance(texto) > r.width())
                    texto = fm.elidedText(texto, Qt::ElideRight, r.width());
            }
            if (t.justificar) {
                // El hueco que queda hasta el ancho se reparte entre los espacios de la línea.
                const qsizetype espacios = texto.count(QLatin1Char(' '));
                const double natural = QFontMetricsF(p.font(), p.device()).horizontalAdvance(texto);
                if (espacios > 0 && natural < r.width()) {
                    QFont f = p.font();
                    f.setWordSpacing((r.width() - natural) / double(espacios));
                    p.setFont(f);
                    fuenteActual = -1;
                }
            }
            p.drawText(r, t.banderas, texto);
            break;
        }
        case TrazoInforme::Caja: {
            const QRectF r = px(t.rect);
            if (t.relleno.isValid())
                p.fillRect(r, t.relleno);
            if (t.grosor > 0) {
                p.setPen(QPen(t.color, t.grosor * k));
                p.setBrush(Qt::NoBrush);
                p.drawRect(r);
            }
            break;
        }
        case TrazoInforme::Linea:
            p.setPen(QPen(t.color, t.grosor * k));
            p.drawLine(QPointF(t.rect.left() * k, t.rect.top() * k), QPointF(t.rect.right() * k, t.rect.bottom() * k));
            break;
        case TrazoInforme::MarcaX: {
            const QRectF r = px(t.rect).adjusted(t.rect.width() * k * 0.15, t.rect.height() * k * 0.15,
                                                 -t.rect.width() * k * 0.15, -t.rect.height() * k * 0.15);
            p.setPen(QPen(t.color, std::max(0.3, t.grosor * 1.5) * k));
            p.drawLine(r.topLeft(), r.bottomRight());
            p.drawLine(r.topRight(), r.bottomLeft());
            break;
        }
        case TrazoInforme::Imagen: {
            auto it = m_imagenes.find(t.texto);
            if (it == m_imagenes.end())
                it = m_imagenes.insert(t.texto, QImage(t.texto));
            if (!it->isNull())
                p.drawImage(px(t.rect), *it);
            break;
        }
        }
    }
    p.restore();
}

void DocumentoInforme::pintar(QPagedPaintDevice* d, int desde, int hasta)
{
    const int n = numeroPaginas();
    const int primera = desde > 0 ? std::min(desde, n) : 1;
    const int ultima = hasta > 0 ? std::min(hasta, n) : n;
    QPainter p;
    if (!p.begin(d))
        lanzarError(-1, QStringLiteral("No se ha podido empezar a dibujar el informe"));
    const double k = d->logicalDpiX() / 25.4;
    for (int i = primera; i <= ultima; ++i) {
        if (i > primera)
            d->newPage();
        pintarPagina(p, i - 1, k);
    }
    p.end();
}

void DocumentoInforme::imprimir(QPrinter* impresora)
{
    impresora->setFullPage(true);
    int desde = 0, hasta = 0;
    if (impresora->printRange() == QPrinter::PageRange) {
        desde = impresora->fromPage();
        hasta = impresora->toPage();
    }
    pintar(impresora, desde, hasta);
}

void DocumentoInforme::exportarPDF(const QString& ruta)
{
    {
        QPdfWriter w(ruta);
        w.setPageLayout(disenoPagina());
        w.setResolution(600);
        w.setTitle(m_diseno->titulo);
        w.setCreator(QStringLiteral("PLANORUM MIRVADE"));
        pintar(&w);
    }
    if (QFileInfo(ruta).size() <= 0)
        lanzarError(-1, QStringLiteral("No se ha podido escribir el documento PDF: ") + ruta);
}
