// Genera los documentos de consulta del menú (ficha de incompatibilidades y listas de
// chequeo) como PDF A4 a partir de sus textos.
//
// Uso: generar_documentos <carpeta_salida> <texto.txt>...
// Cada texto da <carpeta_salida>/<nombre>.pdf. Formato de los textos (UTF-8):
//   primera línea no vacía   título del documento
//   "# texto"                encabezado de apartado
//   "[ ] texto"              casilla de verificación
//   línea vacía              separación
//   cualquier otra           párrafo, con ajuste de línea

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QList>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <cstdio>

namespace {

const QString FAMILIA = QStringLiteral("Liberation Sans");

enum class Tipo { Titulo, Apartado, Casilla, Parrafo, Separacion };

struct Bloque {
    Tipo tipo;
    QString texto;
};

// Bloque ya medido y colocado en una página.
struct Colocado {
    Bloque bloque;
    qreal y = 0;
    qreal alto = 0;
};

QList<Bloque> leerTexto(const QString& ruta, QString& error)
{
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly | QIODevice::Text)) {
        error = QStringLiteral("No se puede leer ") + ruta;
        return {};
    }
    const QString contenido = QString::fromUtf8(f.readAll());
    QList<Bloque> bloques;
    bool hayTitulo = false;
    for (QString linea : contenido.split(QLatin1Char('\n'))) {
        linea = linea.trimmed();
        if (!hayTitulo) {
            if (linea.isEmpty())
                continue;
            bloques.append({Tipo::Titulo, linea});
            hayTitulo = true;
        } else if (linea.isEmpty()) {
            bloques.append({Tipo::Separacion, QString()});
        } else if (linea.startsWith(QLatin1String("# "))) {
            bloques.append({Tipo::Apartado, linea.mid(2).trimmed()});
        } else if (linea.startsWith(QLatin1String("[ ]"))) {
            bloques.append({Tipo::Casilla, linea.mid(3).trimmed()});
        } else {
            bloques.append({Tipo::Parrafo, linea});
        }
    }
    if (!hayTitulo)
        error = QStringLiteral("El texto está vacío: ") + ruta;
    return bloques;
}

QFont fuente(Tipo tipo)
{
    QFont f(FAMILIA);
    switch (tipo) {
    case Tipo::Titulo:
        f.setPointSizeF(15);
        f.setBold(true);
        break;
    case Tipo::Apartado:
        f.setPointSizeF(11);
        f.setBold(true);
        break;
    default:
        f.setPointSizeF(10);
        break;
    }
    return f;
}

class Maquetador {
public:
    explicit Maquetador(QPdfWriter& w) : m_w(w)
    {
        const QRect pagina = w.pageLayout().paintRectPixels(w.resolution());
        m_ancho = pagina.width();
        m_alto = pagina.height();
        m_mm = w.resolution() / 25.4;
        m_caja = 3.6 * m_mm;
        m_sangria = m_caja + 2.5 * m_mm;
        m_pie = 10 * m_mm;
    }

    // Reparte los bloques en páginas; devuelve una lista por página.
    QList<QList<Colocado>> paginar(const QList<Bloque>& bloques) const
    {
        QList<QList<Colocado>> paginas(1);
        qreal y = 0;
        const qreal limite = m_alto - m_pie;
        for (const Bloque& b : bloques) {
            const qreal alto = medir(b);
            // Un apartado no se queda solo al pie: necesita sitio para una línea más.
            const qreal reserva = b.tipo == Tipo::Apartado ? 3 * alto : alto;
            if (b.tipo == Tipo::Separacion && y == 0)
                continue;
            if (y + reserva > limite && y > 0) {
                paginas.append(QList<Colocado>());
                y = 0;
                if (b.tipo == Tipo::Separacion)
                    continue;
            }
            paginas.last().append({b, y, alto});
            y += alto;
        }
        return paginas;
    }

    void pintar(QPainter& p, const QList<Colocado>& pagina, const QString& titulo, int numero, int total) const
    {
        for (const Colocado& c : pagina) {
            const Bloque& b = c.bloque;
            p.setFont(fuente(b.tipo));
            p.setPen(Qt::black);
            switch (b.tipo) {
            case Tipo::Titulo: {
                const QRectF r(0, c.y, m_ancho, c.alto);
                p.drawText(r, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, b.texto);
                const qreal yl = c.y + c.alto - 2 * m_mm;
                p.setPen(QPen(Qt::black, 0.4 * m_mm));
                p.drawLine(QPointF(0, yl), QPointF(m_ancho, yl));
                break;
            }
            case Tipo::Apartado:
                p.drawText(QRectF(0, c.y + espacioAntes(b.tipo), m_ancho, c.alto), Qt::TextWordWrap, b.texto);
                break;
            case Tipo::Casilla: {
                const QFontMetricsF fm(p.font(), p.device());
                const qreal yCaja = c.y + espacioAntes(b.tipo) + (fm.height() - m_caja) / 2;
                p.setPen(QPen(Qt::black, 0.25 * m_mm));
                p.drawRect(QRectF(0, yCaja, m_caja, m_caja));
                p.setPen(Qt::black);
                p.drawText(QRectF(m_sangria, c.y + espacioAntes(b.tipo), m_ancho - m_sangria, c.alto),
                           Qt::TextWordWrap, b.texto);
                break;
            }
            case Tipo::Parrafo:
                p.drawText(QRectF(0, c.y + espacioAntes(b.tipo), m_ancho, c.alto), Qt::TextWordWrap, b.texto);
                break;
            case Tipo::Separacion:
                break;
            }
        }
        // Pie: título y número de página.
        QFont f(FAMILIA);
        f.setPointSizeF(8);
        p.setFont(f);
        p.setPen(Qt::darkGray);
        const QRectF pie(0, m_alto - 6 * m_mm, m_ancho, 6 * m_mm);
        p.drawText(pie, Qt::AlignLeft | Qt::AlignBottom, titulo);
        p.drawText(pie, Qt::AlignRight | Qt::AlignBottom,
                   QStringLiteral("Página %1 de %2").arg(numero).arg(total));
    }

private:
    qreal espacioAntes(Tipo tipo) const
    {
        switch (tipo) {
        case Tipo::Apartado:
            return 3 * m_mm;
        case Tipo::Casilla:
            return 1.2 * m_mm;
        default:
            return 0;
        }
    }

    qreal medir(const Bloque& b) const
    {
        const QFontMetricsF fm(fuente(b.tipo), &m_w);
        switch (b.tipo) {
        case Tipo::Separacion:
            return 3 * m_mm;
        case Tipo::Titulo:
            return fm.boundingRect(QRectF(0, 0, m_ancho, 1e6), Qt::AlignHCenter | Qt::TextWordWrap, b.texto).height()
                   + 6 * m_mm;
        case Tipo::Casilla:
            return espacioAntes(b.tipo)
                   + fm.boundingRect(QRectF(0, 0, m_ancho - m_sangria, 1e6), Qt::TextWordWrap, b.texto).height();
        default:
            return espacioAntes(b.tipo)
                   + fm.boundingRect(QRectF(0, 0, m_ancho, 1e6), Qt::TextWordWrap, b.texto).height()
                   + (b.tipo == Tipo::Apartado ? 1 * m_mm : 0.8 * m_mm);
        }
    }

    QPdfWriter& m_w;
    qreal m_ancho = 0;
    qreal m_alto = 0;
    qreal m_mm = 0;
    qreal m_caja = 0;
    qreal m_sangria = 0;
    qreal m_pie = 0;
};

bool generar(const QString& entrada, const QString& salida, QString& error)
{
    const QList<Bloque> bloques = leerTexto(entrada, error);
    if (!error.isEmpty())
        return false;
    const QString titulo = bloques.first().texto;

    const QString temporal = salida + QStringLiteral(".tmp");
    {
        QPdfWriter w(temporal);
        w.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                    QMarginsF(20, 18, 20, 15), QPageLayout::Millimeter));
        w.setResolution(600);
        w.setTitle(titulo);
        w.setCreator(QStringLiteral("PLANORUM MIRVADE"));

        const Maquetador m(w);
        const QList<QList<Colocado>> paginas = m.paginar(bloques);
        QPainter p;
        if (!p.begin(&w)) {
            error = QStringLiteral("No se puede escribir ") + salida;
            return false;
        }
        p.setRenderHint(QPainter::Antialiasing);
        for (qsizetype i = 0; i < paginas.size(); ++i) {
            if (i > 0)
                w.newPage();
            m.pintar(p, paginas[i], titulo, static_cast<int>(i + 1), static_cast<int>(paginas.size()));
        }
        p.end();
    }
    // Se sustituye el PDF sólo cuando está completo.
    QFile::remove(salida);
    if (!QFile::rename(temporal, salida)) {
        error = QStringLiteral("No se puede crear ") + salida;
        return false;
    }
    return true;
}

}  // namespace

int main(int argc, char* argv[])
{
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 3) {
        std::fprintf(stderr, "Uso: generar_documentos <carpeta_salida> <texto.txt>...\n");
        return 2;
    }
    // Sin la fuente de los impresos el documento saldría con otra: mejor no generarlo.
    if (QFontInfo(QFont(FAMILIA)).family() != FAMILIA) {
        std::fprintf(stderr, "No se encuentra la fuente %s (paquete fonts-liberation2)\n", qPrintable(FAMILIA));
        return 1;
    }
    const QDir destino(args.at(1));
    if (!destino.exists() && !QDir().mkpath(destino.path())) {
        std::fprintf(stderr, "No se puede crear la carpeta %s\n", qPrintable(destino.path()));
        return 1;
    }
    for (qsizetype i = 2; i < args.size(); ++i) {
        const QString salida = destino.filePath(QFileInfo(args.at(i)).completeBaseName() + QStringLiteral(".pdf"));
        QString error;
        if (!generar(args.at(i), salida, error)) {
            std::fprintf(stderr, "%s\n", qPrintable(error));
            return 1;
        }
    }
    return 0;
}
