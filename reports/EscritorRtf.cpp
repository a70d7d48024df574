// Escritor de RTF: primero el cuerpo, párrafo a párrafo, reuniendo fuentes, colores y listas; luego
// la cabecera con sus tablas. Cada párrafo empieza con \pard y el formato de su marca de párrafo, y
// cada trozo de texto va en su grupo con \plain y su formato entero: así cada uno se lee solo, sin
// depender de lo de antes. Lo admitido está en Rtf.h.
#include "reports/Rtf.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

namespace Rtf {

namespace {

constexpr int SANGRIA_LISTA = 720;        // twips por nivel de lista
constexpr int SANGRIA_VINETA = 360;       // lo que sale la viñeta a la izquierda del texto

QByteArray twips(double pixeles) { return QByteArray::number(qRound(pixeles * TWIPS_POR_PIXEL)); }

bool esVineta(QTextListFormat::Style estilo)
{
    return estilo == QTextListFormat::ListDisc || estilo == QTextListFormat::ListCircle
           || estilo == QTextListFormat::ListSquare;
}

// Texto con sus escapes: \'xx lo que cabe en la 1252 y \uN? lo demás.
void escapar(QByteArray& salida, QStringView texto)
{
    for (const QChar c : texto) {
        const char16_t u = c.unicode();
        switch (u) {
        case u'\\': case u'{': case u'}':
            salida += '\\';
            salida += char(u);
            continue;
        case u'\t': salida += "\\tab "; continue;
        case QChar::LineSeparator: salida += "\\line "; continue;
        case 0x00A0: salida += "\\~"; continue;
        case 0x00AD: salida += "\\-"; continue;
        case 0x2011: salida += "\\_"; continue;
        default:
            break;
        }
        // Controles, imágenes y marcas internas del documento no son texto.
        if (u < 0x20 || (u >= 0x7F && u < 0xA0) || u == QChar::ObjectReplacementCharacter || u == 0xFDD0 || u == 0xFDD1)
            continue;
        if (u < 0x80) {
            salida += char(u);
            continue;
        }
        const int byte = aCp1252(c);
        if (byte >= 0x80) {
            salida += "\\'";
            salida += QByteArray::number(byte, 16).rightJustified(2, '0');
        } else {
            salida += "\\u" + QByteArray::number(u > 0x7FFF ? int(u) - 0x10000 : int(u)) + '?';
        }
    }
}

class Escritor {
public:
    explicit Escritor(const QTextDocument& documento) : documento_(documento)
    {
        fuente(documento.defaultFont().family());
    }
    QByteArray escribir();

private:
    int fuente(const QString& familia);
    int color(const QColor& color);
    QByteArray caracter(const QTextCharFormat& formato);
    void parrafo(const QTextBlock& bloque, bool ultimo);
    QByteArray tablaListas() const;

    const QTextDocument& documento_;
    QStringList fuentes_;
    QList<QColor> colores_;
    QList<const QTextList*> listas_;
    QByteArray cuerpo_;
};

int Escritor::fuente(const QString& familia)
{
    QString nombre = nombreFuente(familia);
    if (nombre.isEmpty())
        nombre = QStringLiteral("Arial");
    const int i = int(fuentes_.indexOf(nombre));
    if (i >= 0)
        return i;
    fuentes_ << nombre;
    return int(fuentes_.size()) - 1;
}

int Escritor::color(const QColor& c)
{
    const QColor rgb = c.toRgb();
    const int i = int(colores_.indexOf(rgb));
    if (i >= 0)
        return i + 1;  // la entrada 0 de \colortbl es el color automático
    colores_ << rgb;
    return int(colores_.size());
}

// Formato entero de un trozo de texto, desde \plain.
QByteArray Escritor::caracter(const QTextCharFormat& f)
{
    const QFont porDefecto = documento_.defaultFont();
    QByteArray r = "\\plain";
    const QString familia = f.fontFamilies().toStringList().value(0);
    r += "\\f" + QByteArray::number(fuente(familia.isEmpty() ? porDefecto.family() : familia));
    double puntos = f.fontPointSize();
    if (puntos <= 0 && f.hasProperty(QTextFormat::FontPixelSize))
        puntos = f.intProperty(QTextFormat::FontPixelSize) * 0.75;
    if (puntos <= 0)
        puntos = porDefecto.pointSizeF() > 0 ? porDefecto.pointSizeF() : 12;
    r += "\\fs" + QByteArray::number(qBound(2, qRound(puntos * 2), 3276));
    if (f.fontWeight() >= QFont::DemiBold)
        r += "\\b";
    if (f.fontItalic())
        r += "\\i";
    switch (f.underlineStyle()) {
    case QTextCharFormat::NoUnderline:
    case QTextCharFormat::SpellCheckUnderline:
        if (f.fontUnderline())
            r += "\\ul";
        break;
    case QTextCharFormat::DotLine: r += "\\uld"; break;
    case QTextCharFormat::DashUnderline:
    case QTextCharFormat::DashDotLine:
    case QTextCharFormat::DashDotDotLine: r += "\\uldash"; break;
    case QTextCharFormat::WaveUnderline: r += "\\ulwave"; break;
    default: r += "\\ul"; break;
    }
    if (f.fontStrikeOut())
        r += "\\strike";
    if (f.fontCapitalization() == QFont::AllUppercase)
        r += "\\caps";
    else if (f.fontCapitalization() == QFont::SmallCaps)
        r += "\\scaps";
    if (f.verticalAlignment() == QTextCharFormat::AlignSuperScript)
        r += "\\super";
    else if (f.verticalAlignment() == QTextCharFormat::AlignSubScript)
        r += "\\sub";
    if (f.foreground().style() != Qt::NoBrush)
        r += "\\cf" + QByteArray::number(color(f.foreground().color()));
    if (f.background().style() != Qt::NoBrush && f.background().color().alpha() > 0)
        r += "\\highlight" + QByteArray::number(color(f.background().color()));
    return r;
}

void Escritor::parrafo(const QTextBlock& bloque, bool ultimo)
{
    const QTextBlockFormat f = bloque.blockFormat();
    QByteArray& r = cuerpo_;
    r += "\\pard";
    switch (f.alignment() & Qt::AlignHorizontal_Mask) {
    case Qt::AlignHCenter: r += "\\qc"; break;
    case Qt::AlignRight: r += "\\qr"; break;
    case Qt::AlignJustify: r += "\\qj"; break;
    default: r += "\\ql"; break;
    }
    const QTextList* lista = bloque.textList();
    int nivel = 0;
    if (lista) {
        nivel = qBound(0, lista->format().indent() - 1, 8);
        r += "\\fi-" + QByteArray::number(SANGRIA_VINETA) + "\\li" + QByteArray::number(SANGRIA_LISTA * (nivel + 1));
    } else {
        const double izquierda = f.leftMargin() + f.indent() * documento_.indentWidth();
        if (izquierda != 0)
            r += "\\li" + twips(izquierda);
        if (f.textIndent() != 0)
            r += "\\fi" + twips(f.textIndent());
    }
    if (f.rightMargin() != 0)
        r += "\\ri" + twips(f.rightMargin());
    if (f.topMargin() != 0)
        r += "\\sb" + twips(f.topMargin());
    if (f.bottomMargin() != 0)
        r += "\\sa" + twips(f.bottomMargin());
    switch (f.lineHeightType()) {
    case QTextBlockFormat::ProportionalHeight:
        r += "\\sl" + QByteArray::number(qRound(f.lineHeight() * 240 / 100)) + "\\slmult1";
        break;
    case QTextBlockFormat::FixedHeight:
        r += "\\sl-" + twips(f.lineHeight()) + "\\slmult0";
        break;
    case QTextBlockFormat::MinimumHeight:
        r += "\\sl" + twips(f.lineHeight()) + "\\slmult0";
        break;
    default:
        break;
    }
    if (f.nonBreakableLines())
        r += "\\keep";
    if (f.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore)
        r += "\\pagebb";
    for (const QTextOption::Tab& t : f.tabPositions()) {
        if (t.type == QTextOption::RightTab)
            r += "\\tqr";
        else if (t.type == QTextOption::CenterTab)
            r += "\\tqc";
        else if (t.type == QTextOption::DelimiterTab)
            r += "\\tqdec";
        r += "\\tx" + twips(t.position);
    }
    // El formato de la marca de párrafo: el que toma lo que se escriba en un párrafo vacío.
    const QByteArray marca = caracter(bloque.charFormat());
    if (lista) {
        int indice = int(listas_.indexOf(lista));
        if (indice < 0) {
            listas_ << lista;
            indice = int(listas_.size()) - 1;
        }
        r += "\\ls" + QByteArray::number(indice + 1) + "\\ilvl" + QByteArray::number(nivel);
        // Para quien no entienda las listas, su viñeta o su número como texto.
        const QTextListFormat::Style estilo = lista->format().style();
        const QString rotulo = esVineta(estilo) ? QString(QChar(estilo == QTextListFormat::ListCircle ? 0x25E6
                                                                : estilo == QTextListFormat::ListSquare ? 0x25AA : 0x2022))
                                                : lista->itemText(bloque);
        r += "{\\listtext" + marca + ' ';
        escapar(r, rotulo);
        r += "\\tab}";
    }
    r += marca + ' ';
    for (auto it = bloque.begin(); !it.atEnd(); ++it) {
        const QTextFragment trozo = it.fragment();
        if (!trozo.isValid())
            continue;
        r += '{' + caracter(trozo.charFormat()) + ' ';
        escapar(r, trozo.text());
        r += '}';
    }
    if (!ultimo)
        r += "\\par";
    r += "\r\n";
}

QByteArray Escritor::tablaListas() const
{
    if (listas_.isEmpty())
        return {};
    QByteArray tabla = "{\\*\\listtable";
    QByteArray sustituciones = "{\\*\\listoverridetable";
    for (int k = 1; k <= listas_.size(); ++k) {
        const QTextListFormat f = listas_.at(k - 1)->format();
        const QByteArray id = QByteArray::number(k);
        int nfc = 23;
        switch (f.style()) {
        case QTextListFormat::ListDecimal: nfc = 0; break;
        case QTextListFormat::ListUpperRoman: nfc = 1; break;
        case QTextListFormat::ListLowerRoman: nfc = 2; break;
        case QTextListFormat::ListUpperAlpha: nfc = 3; break;
        case QTextListFormat::ListLowerAlpha: nfc = 4; break;
        default: break;
        }
        tabla += "\r\n{\\list\\listtemplateid" + id;
        // Los nueve niveles con el mismo estilo: el nivel de cada párrafo es el de su lista.
        for (int nivel = 0; nivel < 9; ++nivel) {
            const QByteArray n = QByteArray::number(nfc);
            tabla += "{\\listlevel\\levelnfc" + n + "\\levelnfcn" + n
                     + "\\leveljc0\\leveljcn0\\levelfollow0\\levelstartat1{\\leveltext";
            if (nfc == 23) {
                const int vineta = f.style() == QTextListFormat::ListCircle ? 0x25E6
                                   : f.style() == QTextListFormat::ListSquare ? 0x25AA : 0x2022;
                tabla += "\\'01\\u" + QByteArray::number(vineta) + " ?;}{\\levelnumbers;}";
            } else {
                // Longitud, prefijo, el número del nivel (\'0N) y sufijo; \levelnumbers dice dónde va.
                const QString prefijo = f.numberPrefix(), sufijo = f.numberSuffix();
                const qsizetype largo = prefijo.size() + 1 + sufijo.size();
                tabla += "\\'" + QByteArray::number(qMin<qsizetype>(largo, 255), 16).rightJustified(2, '0');
                escapar(tabla, prefijo);
                tabla += "\\'0" + QByteArray::number(nivel);
                escapar(tabla, sufijo);
                tabla += ";}{\\levelnumbers\\'" + QByteArray::number(qMin<qsizetype>(prefijo.size() + 1, 255), 16).rightJustified(2, '0') + ";}";
            }
            tabla += "\\fi-" + QByteArray::number(SANGRIA_VINETA) + "\\li" + QByteArray::number(SANGRIA_LISTA * (nivel + 1)) + '}';
        }
        tabla += "{\\listname ;}\\listid" + id + '}';
        sustituciones += "\r\n{\\listoverride\\listid" + id + "\\listoverridecount0\\ls" + id + '}';
    }
    return tabla + "}\r\n" + sustituciones + "}\r\n";
}

QByteArray Escritor::escribir()
{
    for (QTextBlock b = documento_.begin(); b.isValid(); b = b.next())
        parrafo(b, !b.next().isValid());

    QByteArray r = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang3082\r\n{\\fonttbl";
    for (int i = 0; i < fuentes_.size(); ++i) {
        r += "{\\f" + QByteArray::number(i) + "\\fnil\\fcharset0 ";
        escapar(r, fuentes_.at(i));
        r += ";}";
    }
    r += "}\r\n{\\colortbl;";
    for (const QColor& c : colores_)
        r += "\\red" + QByteArray::number(c.red()) + "\\green" + QByteArray::number(c.green()) + "\\blue"
             + QByteArray::number(c.blue()) + ';';
    r += "}\r\n" + tablaListas() + "{\\*\\generator PLANORUM MIRVADE;}\r\n";
    const Pagina p = pagina(documento_).value_or(Pagina());
    r += "\\paperw" + QByteArray::number(p.ancho) + "\\paperh" + QByteArray::number(p.alto) + "\\margl"
         + QByteArray::number(p.izquierdo) + "\\margr" + QByteArray::number(p.derecho) + "\\margt"
         + QByteArray::number(p.superior) + "\\margb" + QByteArray::number(p.inferior) + "\r\n\\viewkind4\\uc1\r\n";
    return r + cuerpo_ + "}\r\n";
}

} // namespace

QByteArray escribir(const QTextDocument& documento)
{
    return Escritor(documento).escribir();
}

} // namespace Rtf
