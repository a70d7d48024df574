// Lector de RTF: recorre el fichero una vez, con una pila de grupos que guardan el formato de
// carácter y de párrafo y el destino (texto, tabla de fuentes, de colores, de listas, grupo que se
// salta...), y va escribiendo en el documento con un cursor. Lo admitido está en Rtf.h.
#include "reports/Rtf.h"

#include <QHash>
#include <QStringDecoder>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>

#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace Rtf {

namespace {

constexpr int LIMITE_GRUPOS = 500;       // anidamiento que se sigue; más hondo, formato de fuera
constexpr int LIMITE_TABLA = 4096;       // entradas de las tablas de fuentes, colores y listas
constexpr int LIMITE_TABULACIONES = 64;  // por párrafo
constexpr int LIMITE_TWIPS = 31680;      // 22 pulgadas: sangrías, espacios y tabulaciones

// Palabras de control con significado aquí; las demás se pasan por alto.
#define PALABRAS_RTF(X)                                                                            \
    X(ansicpg) X(mac) X(pc) X(pca) X(deff) X(uc) X(u)                                               \
    X(fonttbl) X(colortbl) X(listtable) X(listoverridetable) X(pn) X(pntext) X(listtext)            \
    X(field) X(fldinst) X(fldrslt) X(upr) X(ud)                                                     \
    X(f) X(fcharset) X(red) X(green) X(blue)                                                        \
    X(list) X(listlevel) X(listid) X(levelnfc) X(levelnfcn) X(leveltext) X(listoverride) X(ls)      \
    X(ilvl) X(pnlvlblt) X(pnlvlbody) X(pnlvl) X(pnlvlcont) X(pndec) X(pnucltr) X(pnlcltr)           \
    X(pnucrm) X(pnlcrm) X(pntxtb) X(pntxta)                                                         \
    X(plain) X(fs) X(b) X(i) X(ul) X(uld) X(uldash) X(uldashd) X(uldashdd) X(uldb) X(ulth) X(ulw)   \
    X(ulwave) X(ulhwave) X(ululdbwave) X(ulnone) X(strike) X(striked) X(caps) X(scaps) X(super)     \
    X(sub) X(nosupersub) X(v) X(cf) X(cb) X(highlight) X(chcbpat)                                   \
    X(pard) X(ql) X(qc) X(qr) X(qj) X(qd) X(li) X(lin) X(ri) X(rin) X(fi) X(sb) X(sa) X(sl)         \
    X(slmult) X(keep) X(pagebb) X(tx) X(tb) X(tqr) X(tqc) X(tqdec)                                  \
    X(paperw) X(paperh) X(margl) X(margr) X(margt) X(margb)                                         \
    X(pgwsxn) X(pghsxn) X(marglsxn) X(margrsxn) X(margtsxn) X(margbsxn)                             \
    X(par) X(line) X(tab) X(page) X(sect) X(cell) X(nestcell) X(row) X(nestrow)                     \
    X(emdash) X(endash) X(emspace) X(enspace) X(qmspace) X(bullet) X(lquote) X(rquote)              \
    X(ldblquote) X(rdblquote)

enum class Palabra {
    Otra,
#define PALABRA_ENUM(n) n,
    PALABRAS_RTF(PALABRA_ENUM)
#undef PALABRA_ENUM
};

Palabra palabra(std::string_view nombre)
{
    static const std::unordered_map<std::string_view, Palabra> tabla = {
#define PALABRA_TABLA(n) {#n, Palabra::n},
        PALABRAS_RTF(PALABRA_TABLA)
#undef PALABRA_TABLA
    };
    const auto it = tabla.find(nombre);
    return it == tabla.end() ? Palabra::Otra : it->second;
}

// Destinos que no son texto del cuerpo y se saltan enteros aunque no lleven \*.
bool destinoQueSeSalta(std::string_view nombre)
{
    static const std::unordered_set<std::string_view> saltar = {
        "info", "stylesheet", "pict", "object", "themedata", "colorschememapping", "datastore",
        "latentstyles", "rsidtbl", "generator", "header", "headerl", "headerr", "headerf", "footer",
        "footerl", "footerr", "footerf", "footnote", "annotation", "atnid", "atnauthor", "shp",
        "shpinst", "shppict", "nonshppict", "shprslt", "xmlnstbl", "filetbl", "revtbl", "pgdsctbl",
        "do", "xe", "tc", "txe", "bkmkstart", "bkmkend", "template", "docvar", "userprops",
        "ftnsep", "ftnsepc", "ftncn", "aftnsep", "aftnsepc", "aftncn", "pnseclvl", "levelnumbers",
        "listname", "objdata", "result", "mmathPr", "fchars", "lchars", "panose", "falt",
        "listpicture", "wgrffmtfilter", "defchp", "defpap", "private", "author", "operator",
        "title", "subject", "comment", "doccomm", "keywords", "company", "manager", "category",
        "buptim", "creatim", "revtim", "printim", "hlinkbase", "fontemb", "fontfile", "sp", "sn",
        "sv", "dptxbxtext", "blipuid"};
    return saltar.contains(nombre);
}

enum class Destino { Texto, Saltar, Fuentes, Colores, Listas, TextoNivel, Sustituciones, Pn, PnAntes, PnDespues, Upr };

struct Caracter {
    int fuente = -1;   // -1: la de \deff
    int medios = 24;   // \fs, en medios puntos
    bool negrita = false, cursiva = false, tachado = false, oculto = false;
    QTextCharFormat::UnderlineStyle subrayado = QTextCharFormat::NoUnderline;
    QTextCharFormat::VerticalAlignment vertical = QTextCharFormat::AlignNormal;
    QFont::Capitalization mayusculas = QFont::MixedCase;
    int color = -1, fondo = -1;  // índices de \colortbl; -1 sin color propio
    bool operator==(const Caracter&) const = default;
};

// Estilo de una lista, sacado de \listtable o de {\*\pn ...}.
struct EstiloLista {
    bool activa = false;
    int nivel = 0;
    QTextListFormat::Style estilo = QTextListFormat::ListDisc;
    QString prefijo, sufijo = QStringLiteral(".");
};

EstiloLista lista(int nivel, QTextListFormat::Style estilo)
{
    EstiloLista e;
    e.activa = true;
    e.nivel = nivel;
    e.estilo = estilo;
    return e;
}

QChar primero(const QString& s) { return s.isEmpty() ? QChar() : s.at(0); }

// Prefijo o sufijo del número de una lista sin lo que no se ve ni cabe en \leveltext: controles,
// tabuladores, saltos de línea y marcas internas de Qt.
QString textoDeNumero(QString texto)
{
    texto.removeIf([](QChar c) {
        const char16_t u = c.unicode();
        return u < 0x20 || (u >= 0x7F && u < 0xA0) || u == QChar::LineSeparator || u == QChar::ParagraphSeparator
               || u == QChar::ObjectReplacementCharacter || u == 0xFDD0 || u == 0xFDD1;
    });
    return texto;
}

struct Parrafo {
    Qt::Alignment alineacion = Qt::AlignLeft;
    int izquierda = 0, derecha = 0, primera = 0, antes = 0, despues = 0;  // twips
    int linea = 0;
    bool lineaMultiple = false, saltoPagina = false, juntas = false;
    int ls = 0, nivel = 0;  // lista de \listtable
    EstiloLista pn;         // lista antigua
    QList<QTextOption::Tab> tabulaciones;
    QTextOption::TabType tipoTabulacion = QTextOption::LeftTab;
};

struct Grupo {
    Caracter c;
    Parrafo p;
    Destino destino = Destino::Texto;
    Destino antesDeUpr = Destino::Texto;
    int uc = 1;
};

struct Nivel { int formato = 23; QString texto; };
struct ListaRtf { QList<Nivel> niveles; };

QTextListFormat::Style estiloVineta(QChar c)
{
    switch (c.unicode()) {
    case u'o': case 0x25CB: case 0x25E6: case 0xF06F:
        return QTextListFormat::ListCircle;
    case 0x25A0: case 0x25AA: case 0x25FE: case 0xA7: case 0xF0A7: case 0xF06E: case 0xF0A8:
        return QTextListFormat::ListSquare;
    default:
        return QTextListFormat::ListDisc;
    }
}

// Párrafo, sangría, espacio: twips del RTF a píxeles del documento, con un tope razonable.
double pixeles(int twips) { return qBound(-LIMITE_TWIPS, twips, LIMITE_TWIPS) / TWIPS_POR_PIXEL; }

// Sólo ASCII: el RTF no depende de la configuración regional.
bool letra(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool cifra(char c) { return c >= '0' && c <= '9'; }
int hexadecimal(char c)
{
    if (cifra(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

class Lector {
public:
    Lector(const QByteArray& rtf, QTextDocument& documento) : rtf_(rtf), documento_(documento), cursor_(&documento)
    {
        for (int b = 0; b < 256; ++b)
            tabla_[b] = deCp1252(uchar(b));
    }

    QStringList leer(qsizetype inicio);

private:
    void abrirGrupo();
    void cerrarGrupo(qsizetype i);
    qsizetype control(qsizetype i);
    void palabraControl(std::string_view nombre, bool hay, int valor);
    bool destino(std::string_view nombre, Palabra p, bool asterisco);
    void formato(Palabra p, bool hay, int valor);
    void caracter(QChar c);
    void texto(QChar c);
    void volcar();
    void terminarParrafo(bool otro);
    void ponerLista();
    EstiloLista estiloDe(int ls, int nivel) const;
    QTextCharFormat formatoCaracter(const Caracter& c) const;
    QTextBlockFormat formatoBloque(const Parrafo& p, bool enLista) const;
    void paginaDeCodigos(const QByteArray& nombre);
    void cerrarFuente();
    void cerrarColor();

    Grupo& g() { return pila_.back(); }

    const QByteArray& rtf_;
    QTextDocument& documento_;
    QTextCursor cursor_;
    QChar tabla_[256];
    QList<Grupo> pila_;
    Grupo raiz_;                 // el estado del documento al cerrarse, para su último párrafo
    int exceso_ = 0;             // grupos abiertos por encima del límite
    bool inicioGrupo_ = false;   // la palabra siguiente puede nombrar un destino
    bool asterisco_ = false;     // venía \*
    int saltar_ = 0;             // caracteres de sustitución que quedan tras un \u
    bool celdaPendiente_ = false;
    bool saltoPendiente_ = false;
    qsizetype ultimo_ = 0;       // posición tras el último byte que no es blanco

    // Texto pendiente de escribir, todo con el mismo formato.
    QString pendiente_;
    Caracter formatoPendiente_;

    int deff_ = 0;
    QHash<int, QString> fuentes_;
    int fuenteActual_ = 0;
    QString nombreFuente_;
    QList<QColor> colores_;
    int rojo_ = -1, verde_ = -1, azul_ = -1;
    QList<ListaRtf> listas_;
    QHash<int, int> idListas_;        // \listid -> índice en listas_
    QHash<int, int> sustituciones_;   // \ls -> \listid
    int sustitucionId_ = 0, sustitucionLs_ = 0;
    EstiloLista pnActual_;
    QString pnAntes_, pnDespues_;
    int serieAntigua_ = 0;            // cambia cuando se corta una lista antigua
    QHash<QPair<int, int>, int> listasQt_;  // (lista, nivel) -> objeto del documento

    Pagina pagina_{12240, 15840, 1800, 1800, 1440, 1440};  // los valores por defecto del RTF
    Pagina paginaSeccion_ = pagina_;
    bool hayPagina_ = false, hayPaginaSeccion_ = false;

    bool truncado_ = false, llavesDeMas_ = false, hondo_ = false, escapeMalo_ = false, unicodeMalo_ = false;
};

QStringList Lector::leer(qsizetype inicio)
{
    const char* d = rtf_.constData();
    const qsizetype n = rtf_.size();
    ultimo_ = n;
    while (ultimo_ > 0 && (d[ultimo_ - 1] == 0 || QChar::isSpace(uchar(d[ultimo_ - 1]))))
        --ultimo_;

    cursor_.beginEditBlock();
    for (qsizetype i = inicio; i < n;) {
        const uchar ch = uchar(d[i]);
        if (ch == '{') {
            ++i;
            abrirGrupo();
        } else if (ch == '}') {
            ++i;
            cerrarGrupo(i);
        } else if (ch == '\\') {
            i = control(i);
        } else {
            ++i;
            if (ch == '\r' || ch == '\n' || pila_.isEmpty())
                continue;
            inicioGrupo_ = asterisco_ = false;
            if (saltar_ > 0) {
                --saltar_;
                continue;
            }
            caracter(tabla_[ch]);
        }
    }
    if (!pila_.isEmpty() || exceso_ > 0)
        truncado_ = true;
    terminarParrafo(false);
    cursor_.endEditBlock();

    if (hayPagina_ || hayPaginaSeccion_)
        ponerPagina(documento_, hayPagina_ ? pagina_ : paginaSeccion_);

    QStringList faltas;
    if (truncado_)
        faltas << QStringLiteral("El documento está cortado: falta su final.");
    if (llavesDeMas_)
        faltas << QStringLiteral("Sobran llaves de cierre.");
    if (hondo_)
        faltas << QStringLiteral("Hay grupos anidados a más de %1 niveles; su contenido se ha leído con el formato de fuera.").arg(LIMITE_GRUPOS);
    if (escapeMalo_)
        faltas << QStringLiteral("Hay caracteres \\' sin sus dos cifras hexadecimales; se han saltado.");
    if (unicodeMalo_)
        faltas << QStringLiteral("Hay caracteres \\u fuera de rango; se han cambiado por \uFFFD.");
    return faltas;
}

void Lector::abrirGrupo()
{
    saltar_ = 0;
    if (pila_.size() >= LIMITE_GRUPOS || exceso_ > 0) {
        ++exceso_;
        hondo_ = true;
        inicioGrupo_ = asterisco_ = false;
        return;
    }
    if (pila_.isEmpty())
        pila_.append(Grupo());
    else
        pila_.append(pila_.back());
    inicioGrupo_ = true;
    asterisco_ = false;
}

void Lector::cerrarGrupo(qsizetype i)
{
    saltar_ = 0;
    inicioGrupo_ = asterisco_ = false;
    if (exceso_ > 0) {
        --exceso_;
        return;
    }
    if (pila_.size() <= 1) {
        // La llave que cierra el documento; si detrás queda algo, sobraba y se sigue leyendo.
        if (i < ultimo_ && !pila_.isEmpty()) {
            llavesDeMas_ = true;
        } else if (!pila_.isEmpty()) {
            raiz_ = pila_.takeLast();
        }
        return;
    }
    const Grupo cerrado = pila_.takeLast();
    const Destino fuera = g().destino;
    if (cerrado.destino == Destino::Fuentes && !nombreFuente_.trimmed().isEmpty())
        cerrarFuente();
    if (cerrado.destino == Destino::Pn && fuera != Destino::Pn) {
        EstiloLista pn = pnActual_;
        if (pn.estilo == QTextListFormat::ListDisc)
            pn.estilo = estiloVineta(primero(pnAntes_));
        else {
            pn.prefijo = pnAntes_;
            pn.sufijo = pnDespues_;
        }
        g().p.pn = pn;
    }
}

qsizetype Lector::control(qsizetype i)
{
    const char* d = rtf_.constData();
    const qsizetype n = rtf_.size();
    ++i;
    if (i >= n) {
        truncado_ = true;
        return n;
    }
    const uchar ch = uchar(d[i]);
    if (pila_.isEmpty())
        return i + 1;
    if (letra(char(ch))) {
        const qsizetype ini = i;
        while (i < n && letra(d[i]))
            ++i;
        // Más de 32 letras no es una palabra de RTF: se toman las primeras y no se reconoce.
        const std::string_view nombre(d + ini, size_t(qMin<qsizetype>(i - ini, 33)));
        bool negativo = false, hay = false;
        qint64 valor = 0;
        if (i + 1 < n && d[i] == '-' && cifra(d[i + 1])) {
            negativo = true;
            ++i;
        }
        for (; i < n && cifra(d[i]); ++i) {
            hay = true;
            if (valor < 10000000000LL)
                valor = valor * 10 + (d[i] - '0');
        }
        if (i < n && d[i] == ' ')
            ++i;
        valor = qBound(qint64(-2147483647), negativo ? -valor : valor, qint64(2147483647));
        if (nombre == "bin") {
            // Datos binarios dentro del RTF: se saltan sin mirarlos.
            inicioGrupo_ = asterisco_ = false;
            if (hay && valor > 0)
                i += qMin<qint64>(valor, n - i);
            return i;
        }
        palabraControl(nombre, hay, int(valor));
        return i;
    }
    ++i;
    if (ch == '\'') {
        int byte = -1;
        if (i + 1 < n && hexadecimal(d[i]) >= 0 && hexadecimal(d[i + 1]) >= 0) {
            byte = hexadecimal(d[i]) * 16 + hexadecimal(d[i + 1]);
            i += 2;
        } else if (i + 1 >= n) {
            truncado_ = true;
            i = n;
        } else {
            escapeMalo_ = true;
        }
        inicioGrupo_ = asterisco_ = false;
        if (saltar_ > 0) {
            --saltar_;
            return i;
        }
        if (byte >= 0)
            caracter(tabla_[byte]);
        return i;
    }
    if (ch == '*') {
        asterisco_ = true;
        return i;
    }
    inicioGrupo_ = asterisco_ = false;
    if (saltar_ > 0) {
        --saltar_;
        return i;
    }
    switch (ch) {
    case '\\': case '{': case '}':
        caracter(QChar(ch));
        break;
    case '~':
        caracter(QChar(0x00A0));
        break;
    case '-':
        caracter(QChar(0x00AD));
        break;
    case '_':
        caracter(QChar(0x2011));
        break;
    case '\r': case '\n':
        if (g().destino == Destino::Texto)
            terminarParrafo(true);
        break;
    default:
        break;
    }
    return i;
}

void Lector::palabraControl(std::string_view nombre, bool hay, int valor)
{
    const bool puedeSerDestino = inicioGrupo_ || asterisco_;
    const bool asterisco = asterisco_;
    inicioGrupo_ = asterisco_ = false;
    if (g().destino == Destino::Saltar)
        return;
    if (saltar_ > 0) {
        --saltar_;
        return;
    }
    const Palabra p = palabra(nombre);
    if (puedeSerDestino && exceso_ == 0) {
        if (destino(nombre, p, asterisco))
            return;
        if (asterisco) {  // un destino conocido fuera de su sitio: se salta como uno desconocido
            g().destino = Destino::Saltar;
            return;
        }
    }
    if (p == Palabra::u) {
        // Un carácter Unicode (con signo, en 16 bits) y detrás los \uc de sustitución, que se saltan.
        const int c = valor < 0 ? valor + 65536 : valor;
        if (c < 0 || c > 0xFFFF)
            unicodeMalo_ = true;
        caracter(c < 0 || c > 0xFFFF ? QChar(0xFFFD) : QChar(char16_t(c)));
        saltar_ = g().uc;
        return;
    }

    Grupo& grupo = g();
    switch (grupo.destino) {
    case Destino::Fuentes:
        if (p == Palabra::f && hay) {
            if (!nombreFuente_.trimmed().isEmpty())
                cerrarFuente();
            fuenteActual_ = valor;
        }
        return;
    case Destino::Colores:
        if (p == Palabra::red)
            rojo_ = qBound(0, valor, 255);
        else if (p == Palabra::green)
            verde_ = qBound(0, valor, 255);
        else if (p == Palabra::blue)
            azul_ = qBound(0, valor, 255);
        return;
    case Destino::Listas:
        if (p == Palabra::listid && !listas_.isEmpty())
            idListas_.insert(valor, int(listas_.size()) - 1);
        else if ((p == Palabra::levelnfc || p == Palabra::levelnfcn) && !listas_.isEmpty() && !listas_.back().niveles.isEmpty())
            listas_.back().niveles.back().formato = valor;
        return;
    case Destino::Sustituciones:
        if (p == Palabra::listid)
            sustitucionId_ = valor;
        else if (p == Palabra::ls)
            sustitucionLs_ = valor;
        else
            return;
        if (sustituciones_.size() < LIMITE_TABLA)
            sustituciones_.insert(sustitucionLs_, sustitucionId_);
        return;
    case Destino::Pn:
    case Destino::PnAntes:
    case Destino::PnDespues:
        switch (p) {
        case Palabra::pnlvlblt:
            pnActual_ = lista(0, QTextListFormat::ListDisc);
            break;
        case Palabra::pnlvlbody:
            pnActual_ = lista(0, QTextListFormat::ListDecimal);
            break;
        case Palabra::pnlvl:
            pnActual_ = lista(qBound(0, valor - 1, 8), QTextListFormat::ListDecimal);
            break;
        case Palabra::pnlvlcont:
            pnActual_.activa = false;
            break;
        case Palabra::pndec:
            pnActual_.estilo = QTextListFormat::ListDecimal;
            break;
        case Palabra::pnucltr:
            pnActual_.estilo = QTextListFormat::ListUpperAlpha;
            break;
        case Palabra::pnlcltr:
            pnActual_.estilo = QTextListFormat::ListLowerAlpha;
            break;
        case Palabra::pnucrm:
            pnActual_.estilo = QTextListFormat::ListUpperRoman;
            break;
        case Palabra::pnlcrm:
            pnActual_.estilo = QTextListFormat::ListLowerRoman;
            break;
        default:
            break;
        }
        return;
    case Destino::Texto:
    case Destino::Upr:
        if (exceso_ == 0)
            formato(p, hay, valor);
        // Lo que rompe o añade texto vale también dentro de los grupos de más.
        if (grupo.destino != Destino::Texto)
            return;
        switch (p) {
        case Palabra::par:
        case Palabra::sect:
            terminarParrafo(true);
            break;
        case Palabra::page:
            terminarParrafo(true);
            saltoPendiente_ = true;
            break;
        case Palabra::row:
        case Palabra::nestrow:
            celdaPendiente_ = false;
            terminarParrafo(true);
            break;
        case Palabra::cell:
        case Palabra::nestcell:
            if (celdaPendiente_)
                texto(QChar(u'\t'));
            celdaPendiente_ = true;
            break;
        case Palabra::line: caracter(QChar(QChar::LineSeparator)); break;
        case Palabra::tab: caracter(QChar(u'\t')); break;
        case Palabra::emdash: caracter(QChar(0x2014)); break;
        case Palabra::endash: caracter(QChar(0x2013)); break;
        case Palabra::emspace: caracter(QChar(0x2003)); break;
        case Palabra::enspace: caracter(QChar(0x2002)); break;
        case Palabra::qmspace: caracter(QChar(0x2005)); break;
        case Palabra::bullet: caracter(QChar(0x2022)); break;
        case Palabra::lquote: caracter(QChar(0x2018)); break;
        case Palabra::rquote: caracter(QChar(0x2019)); break;
        case Palabra::ldblquote: caracter(QChar(0x201C)); break;
        case Palabra::rdblquote: caracter(QChar(0x201D)); break;
        default:
            break;
        }
        return;
    default:
        return;
    }
}

// Una palabra al principio de un grupo (o tras \*) que puede cambiar su destino. Devuelve true si
// lo era.
bool Lector::destino(std::string_view nombre, Palabra p, bool asterisco)
{
    Grupo& grupo = g();
    const Destino actual = grupo.destino;
    Destino nuevo = actual;
    switch (p) {
    case Palabra::fonttbl:
        nuevo = Destino::Fuentes;
        break;
    case Palabra::colortbl:
        nuevo = Destino::Colores;
        colores_.clear();
        rojo_ = verde_ = azul_ = -1;
        break;
    case Palabra::listtable:
        nuevo = Destino::Listas;
        break;
    case Palabra::listoverridetable:
        nuevo = Destino::Sustituciones;
        break;
    case Palabra::list:
        if (actual != Destino::Listas)
            return false;
        if (listas_.size() < LIMITE_TABLA)
            listas_.append(ListaRtf());
        return true;
    case Palabra::listlevel:
        if (actual != Destino::Listas)
            return false;
        if (!listas_.isEmpty() && listas_.back().niveles.size() < 9)
            listas_.back().niveles.append(Nivel());
        return true;
    case Palabra::leveltext:
        if (actual != Destino::Listas)
            return false;
        nuevo = Destino::TextoNivel;
        break;
    case Palabra::listoverride:
        if (actual != Destino::Sustituciones)
            return false;
        sustitucionId_ = sustitucionLs_ = 0;
        return true;
    case Palabra::pn:
        if (actual != Destino::Texto)
            return false;
        nuevo = Destino::Pn;
        pnActual_ = lista(0, QTextListFormat::ListDisc);
        pnAntes_.clear();
        pnDespues_.clear();
        break;
    case Palabra::pntxtb:
        if (actual != Destino::Pn)
            return false;
        nuevo = Destino::PnAntes;
        break;
    case Palabra::pntxta:
        if (actual != Destino::Pn)
            return false;
        nuevo = Destino::PnDespues;
        break;
    case Palabra::pntext:
    case Palabra::listtext:
    case Palabra::fldinst:
        nuevo = Destino::Saltar;
        break;
    case Palabra::field:
    case Palabra::fldrslt:
        // Del campo se lee el resultado con el formato que traiga.
        return true;
    case Palabra::upr:
        grupo.antesDeUpr = actual;
        nuevo = Destino::Upr;
        break;
    case Palabra::ud:
        if (actual != Destino::Upr)
            return false;
        nuevo = grupo.antesDeUpr;
        break;
    default:
        if (asterisco || destinoQueSeSalta(nombre))
            nuevo = Destino::Saltar;
        else
            return false;
        break;
    }
    // Una tabla dentro de otra, o dentro de una lista, no tiene sentido: se salta.
    const bool tabla = nuevo == Destino::Fuentes || nuevo == Destino::Colores || nuevo == Destino::Listas
                       || nuevo == Destino::Sustituciones;
    grupo.destino = tabla && actual != Destino::Texto && actual != Destino::Upr ? Destino::Saltar : nuevo;
    return true;
}

void Lector::formato(Palabra p, bool hay, int valor)
{
    Caracter& c = g().c;
    Parrafo& q = g().p;
    const bool activo = !hay || valor != 0;
    switch (p) {
    case Palabra::ansicpg:
        paginaDeCodigos("windows-" + QByteArray::number(valor));
        break;
    case Palabra::mac: paginaDeCodigos("macintosh"); break;
    case Palabra::pc: paginaDeCodigos("IBM437"); break;
    case Palabra::pca: paginaDeCodigos("IBM850"); break;
    case Palabra::deff: deff_ = valor; break;
    case Palabra::uc: g().uc = qBound(0, valor, 8); break;

    case Palabra::plain: c = Caracter(); break;
    case Palabra::f: if (hay) c.fuente = valor; break;
    case Palabra::fs: c.medios = hay ? qBound(2, valor, 3276) : 24; break;
    case Palabra::b: c.negrita = activo; break;
    case Palabra::i: c.cursiva = activo; break;
    case Palabra::ul: case Palabra::uldb: case Palabra::ulth: case Palabra::ulw:
        c.subrayado = activo ? QTextCharFormat::SingleUnderline : QTextCharFormat::NoUnderline;
        break;
    case Palabra::uld:
        c.subrayado = activo ? QTextCharFormat::DotLine : QTextCharFormat::NoUnderline;
        break;
    case Palabra::uldash: case Palabra::uldashd: case Palabra::uldashdd:
        c.subrayado = activo ? QTextCharFormat::DashUnderline : QTextCharFormat::NoUnderline;
        break;
    case Palabra::ulwave: case Palabra::ulhwave: case Palabra::ululdbwave:
        c.subrayado = activo ? QTextCharFormat::WaveUnderline : QTextCharFormat::NoUnderline;
        break;
    case Palabra::ulnone: c.subrayado = QTextCharFormat::NoUnderline; break;
    case Palabra::strike: case Palabra::striked: c.tachado = activo; break;
    case Palabra::caps: c.mayusculas = activo ? QFont::AllUppercase : QFont::MixedCase; break;
    case Palabra::scaps: c.mayusculas = activo ? QFont::SmallCaps : QFont::MixedCase; break;
    case Palabra::super: c.vertical = QTextCharFormat::AlignSuperScript; break;
    case Palabra::sub: c.vertical = QTextCharFormat::AlignSubScript; break;
    case Palabra::nosupersub: c.vertical = QTextCharFormat::AlignNormal; break;
    case Palabra::v: c.oculto = activo; break;
    case Palabra::cf: c.color = valor > 0 ? valor : -1; break;  // el 0 es el color por defecto
    case Palabra::cb: case Palabra::highlight: case Palabra::chcbpat: c.fondo = valor > 0 ? valor : -1; break;

    case Palabra::pard: q = Parrafo(); break;
    case Palabra::ql: q.alineacion = Qt::AlignLeft; break;
    case Palabra::qc: q.alineacion = Qt::AlignHCenter; break;
    case Palabra::qr: q.alineacion = Qt::AlignRight; break;
    case Palabra::qj: case Palabra::qd: q.alineacion = Qt::AlignJustify; break;
    case Palabra::li: case Palabra::lin: q.izquierda = valor; break;
    case Palabra::ri: case Palabra::rin: q.derecha = valor; break;
    case Palabra::fi: q.primera = valor; break;
    case Palabra::sb: q.antes = valor; break;
    case Palabra::sa: q.despues = valor; break;
    case Palabra::sl: q.linea = valor; break;
    case Palabra::slmult: q.lineaMultiple = activo; break;
    case Palabra::keep: q.juntas = activo; break;
    case Palabra::pagebb: q.saltoPagina = activo; break;
    case Palabra::tqr: q.tipoTabulacion = QTextOption::RightTab; break;
    case Palabra::tqc: q.tipoTabulacion = QTextOption::CenterTab; break;
    case Palabra::tqdec: q.tipoTabulacion = QTextOption::DelimiterTab; break;
    case Palabra::tx: case Palabra::tb:
        if (q.tabulaciones.size() < LIMITE_TABULACIONES)
            q.tabulaciones.append(QTextOption::Tab(qMax(0.0, pixeles(valor)), q.tipoTabulacion,
                                                   q.tipoTabulacion == QTextOption::DelimiterTab ? QChar(u',') : QChar()));
        q.tipoTabulacion = QTextOption::LeftTab;
        break;
    case Palabra::ls: q.ls = qMax(0, valor); break;
    case Palabra::ilvl: q.nivel = qBound(0, valor, 8); break;

    case Palabra::paperw: pagina_.ancho = qBound(720, valor, 200000); hayPagina_ = true; break;
    case Palabra::paperh: pagina_.alto = qBound(720, valor, 200000); hayPagina_ = true; break;
    case Palabra::margl: pagina_.izquierdo = qBound(0, valor, 100000); hayPagina_ = true; break;
    case Palabra::margr: pagina_.derecho = qBound(0, valor, 100000); hayPagina_ = true; break;
    case Palabra::margt: pagina_.superior = qBound(0, valor, 100000); hayPagina_ = true; break;
    case Palabra::margb: pagina_.inferior = qBound(0, valor, 100000); hayPagina_ = true; break;
    case Palabra::pgwsxn: paginaSeccion_.ancho = qBound(720, valor, 200000); hayPaginaSeccion_ = true; break;
    case Palabra::pghsxn: paginaSeccion_.alto = qBound(720, valor, 200000); hayPaginaSeccion_ = true; break;
    case Palabra::marglsxn: paginaSeccion_.izquierdo = qBound(0, valor, 100000); hayPaginaSeccion_ = true; break;
    case Palabra::margrsxn: paginaSeccion_.derecho = qBound(0, valor, 100000); hayPaginaSeccion_ = true; break;
    case Palabra::margtsxn: paginaSeccion_.superior = qBound(0, valor, 100000); hayPaginaSeccion_ = true; break;
    case Palabra::margbsxn: paginaSeccion_.inferior = qBound(0, valor, 100000); hayPaginaSeccion_ = true; break;
    default:
        break;
    }
}

void Lector::paginaDeCodigos(const QByteArray& nombre)
{
    for (int b = 0; b < 256; ++b)
        tabla_[b] = deCp1252(uchar(b));
    if (nombre == "windows-1252")
        return;
    // Otra página, si Qt la conoce: se toma byte a byte (las de dos bytes no se leen bien).
    QStringDecoder decodificador(nombre.constData());
    if (!decodificador.isValid())
        return;
    for (int b = 0x80; b < 256; ++b) {
        const char byte = char(b);
        QStringDecoder uno(nombre.constData());
        const QString s = uno(QByteArrayView(&byte, 1));
        tabla_[b] = s.size() == 1 ? s.at(0) : QChar(0xFFFD);
    }
}

void Lector::caracter(QChar c)
{
    switch (g().destino) {
    case Destino::Texto:
        if (!g().c.oculto)
            texto(c);
        break;
    case Destino::Fuentes:
        if (c == u';')
            cerrarFuente();
        else if (nombreFuente_.size() < 256)
            nombreFuente_ += c;
        break;
    case Destino::Colores:
        if (c == u';')
            cerrarColor();
        break;
    case Destino::TextoNivel:
        if (!listas_.isEmpty() && !listas_.back().niveles.isEmpty() && listas_.back().niveles.back().texto.size() < 64)
            listas_.back().niveles.back().texto += c;
        break;
    case Destino::PnAntes:
        if (pnAntes_.size() < 32)
            pnAntes_ += c;
        break;
    case Destino::PnDespues:
        if (pnDespues_.size() < 32)
            pnDespues_ += c;
        break;
    default:
        break;
    }
}

// Un carácter del cuerpo, limpio de lo que el documento de Qt toma por saltos o marcas propias.
void Lector::texto(QChar c)
{
    char16_t u = c.unicode();
    if ((u < 0x20 && u != u'\t') || (u >= 0x7F && u < 0xA0))
        return;
    if (u == QChar::ParagraphSeparator)
        u = QChar::LineSeparator;
    else if (u == 0xFDD0 || u == 0xFDD1 || u == QChar::ObjectReplacementCharacter || u == 0xFFFE || u == 0xFFFF)
        u = 0xFFFD;
    if (celdaPendiente_) {
        celdaPendiente_ = false;
        texto(QChar(u'\t'));
    }
    if (!pendiente_.isEmpty() && !(formatoPendiente_ == g().c))
        volcar();
    formatoPendiente_ = g().c;
    pendiente_ += QChar(u);
}

void Lector::volcar()
{
    if (pendiente_.isEmpty())
        return;
    cursor_.insertText(pendiente_, formatoCaracter(formatoPendiente_));
    pendiente_.clear();
}

void Lector::terminarParrafo(bool otro)
{
    volcar();
    celdaPendiente_ = false;
    const Grupo& grupo = pila_.isEmpty() ? raiz_ : g();
    const Parrafo& p = grupo.p;
    const EstiloLista lista = p.ls > 0 ? estiloDe(p.ls, p.nivel) : p.pn;
    QTextBlockFormat formato = formatoBloque(p, lista.activa);
    if (std::exchange(saltoPendiente_, false))
        formato.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    cursor_.setBlockFormat(formato);
    cursor_.setBlockCharFormat(formatoCaracter(grupo.c));

    if (lista.activa) {
        // Las antiguas no tienen identidad: una lista por cada tanda de párrafos seguidos del mismo estilo.
        const QPair<int, int> clave = p.ls > 0 ? qMakePair(p.ls, lista.nivel)
                                               : qMakePair(-1 - serieAntigua_, (lista.estilo + 16) * 16 + lista.nivel);
        auto* qt = qobject_cast<QTextList*>(documento_.object(listasQt_.value(clave, -1)));
        if (qt) {
            qt->add(cursor_.block());
        } else {
            QTextListFormat f;
            f.setStyle(lista.estilo);
            f.setIndent(lista.nivel + 1);
            if (lista.estilo != QTextListFormat::ListDisc && lista.estilo != QTextListFormat::ListCircle
                && lista.estilo != QTextListFormat::ListSquare) {
                f.setNumberPrefix(textoDeNumero(lista.prefijo));
                f.setNumberSuffix(textoDeNumero(lista.sufijo));
            }
            listasQt_.insert(clave, cursor_.createList(f)->objectIndex());
        }
    } else {
        ++serieAntigua_;
    }
    if (otro)
        cursor_.insertBlock(QTextBlockFormat(), QTextCharFormat());
}

EstiloLista Lector::estiloDe(int ls, int nivel) const
{
    EstiloLista e = lista(nivel, QTextListFormat::ListDisc);
    const int indice = idListas_.value(sustituciones_.value(ls, -1), -1);
    if (indice < 0 || nivel >= listas_.at(indice).niveles.size())
        return e;
    const Nivel& n = listas_.at(indice).niveles.at(nivel);
    // \leveltext empieza por su longitud; los caracteres 0 a 8 son los números de cada nivel.
    QString t = n.texto;
    const int largo = t.isEmpty() ? 0 : t.at(0).unicode();
    t = t.mid(1);
    if (largo <= t.size())
        t.truncate(largo);
    else if (t.endsWith(u';'))
        t.chop(1);
    switch (n.formato) {
    case 0: e.estilo = QTextListFormat::ListDecimal; break;
    case 1: e.estilo = QTextListFormat::ListUpperRoman; break;
    case 2: e.estilo = QTextListFormat::ListLowerRoman; break;
    case 3: e.estilo = QTextListFormat::ListUpperAlpha; break;
    case 4: e.estilo = QTextListFormat::ListLowerAlpha; break;
    case 23: e.estilo = estiloVineta(primero(t)); return e;
    case 255: e.activa = false; return e;  // sin número ni viñeta: párrafo con sangría
    default: e.estilo = QTextListFormat::ListDecimal; break;
    }
    int primero = -1, ultimo = -1;
    for (int k = 0; k < t.size(); ++k)
        if (t.at(k).unicode() < 9) {
            if (primero < 0)
                primero = k;
            ultimo = k;
        }
    if (primero >= 0) {
        e.prefijo = t.left(primero);
        e.sufijo = t.mid(ultimo + 1);
    }
    return e;
}

QTextCharFormat Lector::formatoCaracter(const Caracter& c) const
{
    QTextCharFormat f;
    const QString fuente = fuentes_.value(c.fuente < 0 ? deff_ : c.fuente);
    if (!fuente.isEmpty())
        f.setFontFamilies({fuente});
    f.setFontPointSize(c.medios / 2.0);
    if (c.negrita)
        f.setFontWeight(QFont::Bold);
    if (c.cursiva)
        f.setFontItalic(true);
    if (c.subrayado != QTextCharFormat::NoUnderline)
        f.setUnderlineStyle(c.subrayado);
    if (c.tachado)
        f.setFontStrikeOut(true);
    if (c.vertical != QTextCharFormat::AlignNormal)
        f.setVerticalAlignment(c.vertical);
    if (c.mayusculas != QFont::MixedCase)
        f.setFontCapitalization(c.mayusculas);
    if (c.color >= 0 && c.color < colores_.size() && colores_.at(c.color).isValid())
        f.setForeground(colores_.at(c.color));
    if (c.fondo > 0 && c.fondo < colores_.size() && colores_.at(c.fondo).isValid())
        f.setBackground(colores_.at(c.fondo));
    return f;
}

QTextBlockFormat Lector::formatoBloque(const Parrafo& p, bool enLista) const
{
    QTextBlockFormat f;
    f.setAlignment(p.alineacion);
    // En una lista la sangría la pone la propia lista.
    if (!enLista && p.izquierda)
        f.setLeftMargin(pixeles(p.izquierda));
    if (!enLista && p.primera)
        f.setTextIndent(pixeles(p.primera));
    if (p.derecha)
        f.setRightMargin(pixeles(p.derecha));
    if (p.antes)
        f.setTopMargin(qMax(0.0, pixeles(p.antes)));
    if (p.despues)
        f.setBottomMargin(qMax(0.0, pixeles(p.despues)));
    if (p.linea != 0) {
        if (p.lineaMultiple && p.linea > 0)
            f.setLineHeight(qMin(p.linea, LIMITE_TWIPS) * 100.0 / 240.0, QTextBlockFormat::ProportionalHeight);
        else if (!p.lineaMultiple)
            f.setLineHeight(qAbs(pixeles(p.linea)), p.linea < 0 ? QTextBlockFormat::FixedHeight : QTextBlockFormat::MinimumHeight);
    }
    if (p.saltoPagina)
        f.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    if (p.juntas)
        f.setNonBreakableLines(true);
    if (!p.tabulaciones.isEmpty())
        f.setTabPositions(p.tabulaciones);
    return f;
}

void Lector::cerrarFuente()
{
    const QString nombre = nombreFuente(nombreFuente_);
    nombreFuente_.clear();
    if (fuentes_.size() >= LIMITE_TABLA && !fuentes_.contains(fuenteActual_))
        return;
    fuentes_.insert(fuenteActual_, nombre);
}

void Lector::cerrarColor()
{
    if (colores_.size() < LIMITE_TABLA)
        colores_.append(rojo_ < 0 && verde_ < 0 && azul_ < 0 ? QColor() : QColor(qMax(0, rojo_), qMax(0, verde_), qMax(0, azul_)));
    rojo_ = verde_ = azul_ = -1;
}

} // namespace

bool leer(const QByteArray& rtf, QTextDocument& documento, QString* aviso)
{
    if (aviso)
        aviso->clear();
    // Se admiten delante blancos y la marca de orden de bytes de UTF-8.
    qsizetype inicio = rtf.startsWith("\xEF\xBB\xBF") ? 3 : 0;
    while (inicio < rtf.size() && QChar::isSpace(uchar(rtf.at(inicio))))
        ++inicio;
    if (rtf.mid(inicio, 5) != "{\\rtf") {
        if (aviso)
            *aviso = QStringLiteral("El fichero no es un documento de texto enriquecido (RTF)");
        return false;
    }
    const bool deshacer = documento.isUndoRedoEnabled();
    documento.setUndoRedoEnabled(false);
    documento.clear();
    const QStringList faltas = Lector(rtf, documento).leer(inicio);
    documento.setUndoRedoEnabled(deshacer);
    documento.setModified(false);
    if (aviso && !faltas.isEmpty())
        *aviso = QStringLiteral("El documento RTF está dañado o incompleto; se ha leído hasta donde se ha podido.\n")
                 + faltas.join(u'\n');
    return true;
}

} // namespace Rtf
