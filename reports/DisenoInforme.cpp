#include "reports/DisenoInforme.h"

#include "core/Error.h"

#include <QFile>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

QSizeF DisenoInforme::tamanoPapel() const
{
    QSizeF s = QPageSize(tamano).size(QPageSize::Millimeter);
    if (orientacion == QPageLayout::Landscape)
        s.transpose();
    return s;
}

namespace {

class Lector {
public:
    Lector(const QByteArray& xml, QString origen) : m_x(xml), m_origen(std::move(origen)) {}

    std::shared_ptr<DisenoInforme> leer()
    {
        auto d = std::make_shared<DisenoInforme>();
        m_d = d.get();
        if (!m_x.readNextStartElement() || m_x.name() != QLatin1String("informe"))
            fallar(QStringLiteral("falta el elemento <informe>"));
        const auto a = m_x.attributes();
        d->nombre = a.value(QLatin1String("nombre")).toString();
        d->titulo = a.value(QLatin1String("titulo")).toString();
        d->datos = a.value(QLatin1String("datos")).toString();
        d->impreso = a.value(QLatin1String("tipo")) == QLatin1String("impreso");
        m_base.familia = a.hasAttribute(QLatin1String("fuente")) ? a.value(QLatin1String("fuente")).toString()
                                                                 : QStringLiteral("Liberation Sans");
        m_base.tamano = numero(a, "tamano", 9);
        d->fuentes << m_base;
        while (m_x.readNextStartElement()) {
            const QString n = m_x.name().toString();
            if (n == QLatin1String("pagina"))
                leerPagina();
            else if (n == QLatin1String("cabeceraPagina"))
                leerBanda(d->cabeceraPagina);
            else if (n == QLatin1String("cabeceraInforme"))
                leerBanda(d->cabeceraInforme);
            else if (n == QLatin1String("cabeceraColumnas"))
                leerBanda(d->cabeceraColumnas);
            else if (n == QLatin1String("detalle"))
                leerBanda(d->detalle);
            else if (n == QLatin1String("pieInforme"))
                leerBanda(d->pieInforme);
            else if (n == QLatin1String("piePagina"))
                leerBanda(d->piePagina);
            else
                fallar(QStringLiteral("elemento desconocido <%1>").arg(n));
        }
        if (m_x.hasError())
            fallar(m_x.errorString());
        return d;
    }

private:
    [[noreturn]] void fallar(const QString& motivo)
    {
        lanzarError(-1, QStringLiteral("Diseño de informe no válido (%1, línea %2): %3")
                            .arg(m_origen).arg(m_x.lineNumber()).arg(motivo));
    }

    double numero(const QXmlStreamAttributes& a, const char* nombre, double omision)
    {
        const QString t = a.value(QLatin1String(nombre)).toString().trimmed();
        if (t.isEmpty())
            return omision;
        bool ok = false;
        const double v = t.toDouble(&ok);
        if (!ok)
            fallar(QStringLiteral("valor no numérico en %1=\"%2\"").arg(QLatin1String(nombre), t));
        return v;
    }

    static bool logico(const QXmlStreamAttributes& a, const char* nombre, bool omision)
    {
        const QString t = a.value(QLatin1String(nombre)).toString();
        return t.isEmpty() ? omision : (t == QLatin1String("true") || t == QLatin1String("si") || t == QLatin1String("1"));
    }

    void leerPagina()
    {
        const auto a = m_x.attributes();
        if (a.value(QLatin1String("orientacion")) == QLatin1String("horizontal"))
            m_d->orientacion = QPageLayout::Landscape;
        const QStringList m = a.value(QLatin1String("margenes")).toString().split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (m.size() == 4)  // arriba derecha abajo izquierda, como en CSS
            m_d->margenes = QMarginsF(m[3].toDouble(), m[0].toDouble(), m[1].toDouble(), m[2].toDouble());
        else if (!m.isEmpty())
            fallar(QStringLiteral("margenes pide cuatro medidas"));
        m_x.skipCurrentElement();
    }

    int fuente(const QXmlStreamAttributes& a)
    {
        FuenteInforme f = m_base;
        f.tamano = numero(a, "tamano", f.tamano);
        f.negrita = logico(a, "negrita", false);
        f.cursiva = logico(a, "cursiva", false);
        if (a.hasAttribute(QLatin1String("fuente")))
            f.familia = a.value(QLatin1String("fuente")).toString();
        int i = m_d->fuentes.indexOf(f);
        if (i < 0) {
            m_d->fuentes << f;
            i = int(m_d->fuentes.size()) - 1;
        }
        return i;
    }

    Qt::Alignment alineacion(const QXmlStreamAttributes& a, bool ajuste)
    {
        Qt::Alignment h = Qt::AlignLeft;
        const auto t = a.value(QLatin1String("alineacion"));
        if (t == QLatin1String("centro"))
            h = Qt::AlignHCenter;
        else if (t == QLatin1String("derecha"))
            h = Qt::AlignRight;
        else if (t == QLatin1String("justificado"))
            h = Qt::AlignJustify;
        Qt::Alignment v = ajuste ? Qt::AlignTop : Qt::AlignVCenter;
        const auto u = a.value(QLatin1String("vertical"));
        if (u == QLatin1String("arriba"))
            v = Qt::AlignTop;
        else if (u == QLatin1String("abajo"))
            v = Qt::AlignBottom;
        else if (u == QLatin1String("medio"))
            v = Qt::AlignVCenter;
        return h | v;
    }

    QColor color(const QXmlStreamAttributes& a, const char* nombre, const QColor& omision)
    {
        const QString t = a.value(QLatin1String(nombre)).toString();
        if (t.isEmpty())
            return omision;
        const QColor c = QColor::fromString(t);
        if (!c.isValid())
            fallar(QStringLiteral("color no válido \"%1\"").arg(t));
        return c;
    }

    void leerBanda(BandaInforme& b)
    {
        const auto a = m_x.attributes();
        b.alto = numero(a, "alto", 0);
        b.cebra = color(a, "cebra", QColor());
        b.saltoDespues = a.value(QLatin1String("saltoPagina")) == QLatin1String("despues");
        while (m_x.readNextStartElement())
            leerElemento(b);
    }

    void leerElemento(BandaInforme& b)
    {
        const QString n = m_x.name().toString();
        const auto a = m_x.attributes();
        if (n == QLatin1String("codigo")) {
            ArgumentosCodigo args;
            for (const auto& at : a)
                args.insert(at.name().toString(), at.value().toString());
            const QString funcion = args.take(QStringLiteral("funcion"));
            if (!CodigosDetalle::buscar(funcion))
                fallar(QStringLiteral("código de detalle desconocido \"%1\"").arg(funcion));
            b.codigos.append({funcion, args});
            m_x.skipCurrentElement();
            return;
        }
        ElementoInforme e;
        e.nombre = a.value(QLatin1String("nombre")).toString();
        e.rect = QRectF(numero(a, "x", 0), numero(a, "y", 0), numero(a, "ancho", 0), numero(a, "alto", 0));
        e.fuente = fuente(a);
        e.crecer = logico(a, "crecer", false);
        e.ajuste = logico(a, "ajuste", false) || e.crecer;
        e.alineacion = alineacion(a, e.ajuste);
        e.formato = a.value(QLatin1String("formato")).toString();
        e.prefijo = a.value(QLatin1String("prefijo")).toString();
        e.sufijo = a.value(QLatin1String("sufijo")).toString();
        e.suprimirSiCero = logico(a, "suprimirSiCero", false);
        e.suprimirSiVacio = logico(a, "suprimirSiVacio", false);
        e.grosor = numero(a, "grosor", 0.2);
        e.borde = numero(a, "borde", 0);
        e.color = color(a, "color", Qt::black);
        e.relleno = color(a, "relleno", QColor());
        e.campo = a.value(QLatin1String("campo")).toString();
        e.parametro = a.value(QLatin1String("parametro")).toString();
        if (a.hasAttribute(QLatin1String("separador")))
            e.separador = a.value(QLatin1String("separador")).toString();
        for (const QString& c : a.value(QLatin1String("campos")).toString().split(QLatin1Char(','), Qt::SkipEmptyParts))
            e.campos << c.trimmed();

        if (n == QLatin1String("texto")) {
            e.tipo = TipoElemento::Texto;
            e.texto = m_x.readElementText(QXmlStreamReader::IncludeChildElements);
        } else if (n == QLatin1String("campo")) {
            e.tipo = TipoElemento::Campo;
            if (e.campo.isEmpty() && e.campos.isEmpty() && e.parametro.isEmpty())
                fallar(QStringLiteral("<campo> sin campo, campos ni parametro"));
            m_x.skipCurrentElement();
        } else if (n == QLatin1String("caja")) {
            e.tipo = TipoElemento::Caja;
            m_x.skipCurrentElement();
        } else if (n == QLatin1String("linea")) {
            e.tipo = TipoElemento::Linea;
            e.rect = QRectF(QPointF(numero(a, "x1", 0), numero(a, "y1", 0)), QPointF(numero(a, "x2", 0), numero(a, "y2", 0)));
            m_x.skipCurrentElement();
        } else if (n == QLatin1String("marca")) {
            e.tipo = TipoElemento::Marca;
            e.caja = logico(a, "caja", true);
            m_x.skipCurrentElement();
        } else if (n == QLatin1String("imagen")) {
            e.tipo = TipoElemento::Imagen;
            e.imagen = a.value(QLatin1String("fichero")).toString();
            m_x.skipCurrentElement();
        } else if (n == QLatin1String("numeroPagina")) {
            e.tipo = TipoElemento::NumeroPagina;
            e.texto = a.hasAttribute(QLatin1String("formato")) ? e.formato : QStringLiteral("Página {N} de {M}");
            e.formato.clear();
            m_x.skipCurrentElement();
        } else if (n == QLatin1String("fechaImpresion")) {
            e.tipo = TipoElemento::FechaImpresion;
            if (e.formato.isEmpty())
                e.formato = QStringLiteral("dd/mm/yyyy");
            m_x.skipCurrentElement();
        } else if (n == QLatin1String("subtabla")) {
            e.tipo = TipoElemento::Subtabla;
            SubtablaInforme s;
            s.origen = a.value(QLatin1String("origen")).toString();
            s.x = e.rect.x();
            s.y = e.rect.y();
            while (m_x.readNextStartElement()) {
                if (m_x.name() == QLatin1String("cabecera"))
                    leerBanda(s.cabecera);
                else if (m_x.name() == QLatin1String("fila"))
                    leerBanda(s.fila);
                else
                    fallar(QStringLiteral("en <subtabla> sólo caben <cabecera> y <fila>"));
            }
            if (s.origen.isEmpty() || s.fila.alto <= 0)
                fallar(QStringLiteral("<subtabla> pide origen y una <fila> con alto"));
            m_d->subtablas << s;
            e.subtabla = int(m_d->subtablas.size()) - 1;
        } else {
            fallar(QStringLiteral("elemento desconocido <%1>").arg(n));
        }
        b.elementos << e;
    }

    QXmlStreamReader m_x;
    QString m_origen;
    DisenoInforme* m_d = nullptr;
    FuenteInforme m_base;
};

// Bloques compartidos: <incluir bloque="cliente" y="30.5" numero="1"/> pone en su sitio los
// elementos de ":/informes/bloques/cliente.xml", desplazados x e y, con cada {parametro} del
// bloque sustituido por el atributo del mismo nombre. Los impresos repiten así, igual, los
// bloques del cliente, la sociedad, los arquitectos, el proyecto, el pie y las firmas.
class Expansor {
public:
    explicit Expansor(QString origen) : m_origen(std::move(origen)) {}

    QByteArray expandir(const QByteArray& xml)
    {
        QXmlStreamReader r(xml);
        QByteArray salida;
        QXmlStreamWriter w(&salida);
        while (!r.atEnd()) {
            r.readNext();
            if (r.isStartElement() && r.name() == QLatin1String("incluir")) {
                incluir(r.attributes(), w, r.lineNumber());
                r.skipCurrentElement();
                continue;
            }
            if (!r.hasError())
                w.writeCurrentToken(r);
        }
        if (r.hasError())
            fallar(r.lineNumber(), r.errorString());
        return salida;
    }

private:
    [[noreturn]] void fallar(qint64 linea, const QString& motivo)
    {
        lanzarError(-1, QStringLiteral("Diseño de informe no válido (%1, línea %2): %3").arg(m_origen).arg(linea).arg(motivo));
    }

    void incluir(const QXmlStreamAttributes& a, QXmlStreamWriter& w, qint64 linea)
    {
        const QString nombre = a.value(QLatin1String("bloque")).toString();
        QFile f(QStringLiteral(":/informes/bloques/") + nombre + QStringLiteral(".xml"));
        if (nombre.isEmpty() || !f.open(QIODevice::ReadOnly))
            fallar(linea, QStringLiteral("no existe el bloque \"%1\"").arg(nombre));
        const double dx = a.value(QLatin1String("x")).toDouble(), dy = a.value(QLatin1String("y")).toDouble();
        QList<std::pair<QString, QString>> parametros;
        for (const auto& at : a)
            if (at.name() != QLatin1String("bloque") && at.name() != QLatin1String("x") && at.name() != QLatin1String("y"))
                parametros.append({QLatin1Char('{') + at.name().toString() + QLatin1Char('}'), at.value().toString()});
        const auto sustituir = [&parametros](QString t) {
            for (const auto& [marca, valor] : parametros)
                t.replace(marca, valor);
            return t;
        };

        QXmlStreamReader b(f.readAll());
        if (!b.readNextStartElement() || b.name() != QLatin1String("bloque"))
            fallar(linea, QStringLiteral("el bloque \"%1\" no empieza por <bloque>").arg(nombre));
        int nivel = 0;
        while (!b.atEnd()) {
            b.readNext();
            if (b.isStartElement()) {
                ++nivel;
                w.writeStartElement(b.name().toString());
                for (const auto& at : b.attributes()) {
                    QString valor = sustituir(at.value().toString());
                    // Sólo los elementos de primer nivel se desplazan: lo de dentro es relativo a ellos.
                    const QString n = at.name().toString();
                    const double desplazamiento = nivel > 1 ? 0
                        : (n == QLatin1String("x") || n == QLatin1String("x1") || n == QLatin1String("x2")) ? dx
                        : (n == QLatin1String("y") || n == QLatin1String("y1") || n == QLatin1String("y2")) ? dy
                                                                                                          : 0;
                    if (desplazamiento != 0)
                        valor = QString::number(valor.toDouble() + desplazamiento, 'g', 12);
                    w.writeAttribute(n, valor);
                }
            } else if (b.isEndElement()) {
                if (nivel == 0)
                    break;  // </bloque>
                --nivel;
                w.writeEndElement();
            } else if (b.isCharacters() && nivel > 0) {
                w.writeCharacters(sustituir(b.text().toString()));
            }
        }
        if (b.hasError())
            fallar(linea, QStringLiteral("bloque \"%1\": %2").arg(nombre, b.errorString()));
    }

    QString m_origen;
};

}  // namespace

std::shared_ptr<const DisenoInforme> leerDisenoXml(const QByteArray& xml, const QString& origen)
{
    const QByteArray completo = xml.contains("<incluir") ? Expansor(origen).expandir(xml) : xml;
    return Lector(completo, origen).leer();
}

std::shared_ptr<const DisenoInforme> leerDiseno(const QString& ruta)
{
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly))
        lanzarError(-1, QStringLiteral("No se encuentra el diseño del informe: ") + ruta);
    return leerDisenoXml(f.readAll(), ruta);
}
