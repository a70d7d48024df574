#pragma once
// Lectura y escritura de texto enriquecido (RTF) sobre un QTextDocument: las plantillas de
// contratos, los documentos que hace el estudio y los que llegan escritos por Word o LibreOffice.
//
// Lo que se admite (al leer y al escribir, salvo donde se dice):
// - Caracteres: fuentes (\fonttbl, \f, \deff), tamaño (\fs), negrita, cursiva, subrayado (\ul y
//   sus variantes punteada, de rayas y ondulada; \ulnone y \ul0), tachado (\strike), versalitas y
//   mayúsculas (\scaps, \caps), superíndice y subíndice (\super, \sub, \nosupersub), color del
//   texto (\colortbl, \cf) y del fondo (\highlight; al leer también \cb y \chcbpat), \plain.
// - Párrafos: \pard, \par, alineación (\ql \qc \qr \qj), sangrías (\li \ri \fi y \lin \rin),
//   espacio antes y después (\sb \sa), interlineado (\sl con \slmult), tabulaciones (\tx con
//   \tqr \tqc \tqdec), salto de página antes (\pagebb; al leer, \page), líneas juntas (\keep),
//   \line, \tab y los símbolos \~ \- \_ \emdash \endash \bullet \lquote \rquote \ldblquote
//   \rdblquote.
// - Listas: se escriben como Word y LibreOffice (\listtable, \listoverridetable, \ls e \ilvl en
//   cada párrafo, con su {\listtext ...} para quien no las entienda), una lista por cada lista
//   del documento y su nivel por la sangría de la lista. Al leer se admiten esas y las antiguas
//   ({\*\pn ...} con \pnlvlblt, \pnlvlbody, \pnlvlN y su {\pntext ...}): viñeta (círculo, aro o
//   cuadrado según el carácter), números, letras y romanos, con su prefijo y sufijo. El texto de
//   \listtext y \pntext no se lee: lo pone la lista.
// - Página: \paperw \paperh \margl \margr \margt \margb (al leer, también los de sección si el
//   documento no trae los suyos). Quedan en el formato del marco raíz (ver `pagina`).
// - Texto: \'xx en la página de \ansicpg (la 1252 siempre; otras si Qt las conoce), \uN con los
//   \ucN caracteres de sustitución que le siguen, \{ \} \\; al escribir, \'xx para lo que cabe en
//   la 1252 y \uN? para lo demás.
// - Se saltan sin leer su contenido los grupos \* desconocidos y los destinos que no son texto
//   del cuerpo: \info, \stylesheet, \pict, \object, \themedata, \datastore, \latentstyles,
//   \rsidtbl, \generator, cabeceras y pies, notas al pie, formas (\shp), \bin con sus bytes...
//   De un campo (\field) se lee su resultado (\fldrslt) como texto; de {\upr ...} la parte \ud.
// - Tablas: al leer, las celdas de una fila van separadas por tabuladores y cada fila es un
//   párrafo; al escribir, los párrafos de las celdas salen seguidos. El texto oculto (\v) no se lee.
//
// Un RTF mal formado o truncado se lee hasta donde se puede: llaves de más o de menos, grupos
// anidados por encima de un límite (su contenido se lee con el formato de fuera), \' sin sus dos
// cifras, números enormes en los parámetros (se recortan a lo razonable).
#include <QByteArray>
#include <QPageLayout>
#include <QString>

#include <optional>

class QTextDocument;

namespace Rtf {

// 1440 twips por pulgada y 96 píxeles por pulgada.
inline constexpr double TWIPS_POR_PIXEL = 15.0;

// Lee un RTF en el documento (lo vacía antes, sin historia de deshacer y sin marca de
// modificado). Devuelve false, con el motivo en español en `aviso`, si no es RTF: entonces el
// documento no se toca. Uno mal formado o truncado se lee hasta donde se puede, devuelve true y
// deja en `aviso` lo que faltó (vacío si todo estaba bien). Nunca se cae. No enseña nada ni
// escribe en el registro: quien abre el fichero enseña `aviso` y lo anota, con su nombre.
bool leer(const QByteArray& rtf, QTextDocument& documento, QString* aviso = nullptr);

// Escribe el documento como RTF (página ANSI 1252, con \u para lo que no cabe en ella).
QByteArray escribir(const QTextDocument& documento);

// Tamaño de página y márgenes, en twips (1/1440 de pulgada) como en RTF. `leer` los deja como
// propiedades propias (PROPIEDAD_PAGINA y las cinco siguientes) del formato del marco raíz del
// documento, que Qt no usa para dibujar; `escribir` los escribe de vuelta, y si el documento no
// trae los suyos, los de este valor por defecto (A4 con márgenes de 3 y 2,5 cm).
struct Pagina {
    int ancho = 11906, alto = 16838;
    int izquierdo = 1701, derecho = 1701, superior = 1417, inferior = 1417;
    bool operator==(const Pagina&) const = default;
};
inline constexpr int PROPIEDAD_PAGINA = 0x100000 + 0x5254;  // QTextFormat::UserProperty + ...

// La página guardada en el documento, si la tiene.
std::optional<Pagina> pagina(const QTextDocument& documento);
void ponerPagina(QTextDocument& documento, const Pagina& pagina);
// La página del documento (o la de por defecto) para la impresora.
QPageLayout disenoPagina(const QTextDocument& documento);

// Página de códigos 1252 (la de Windows en España), la de \'xx: el carácter de un byte (nulo si
// el byte no tiene carácter) y el byte de un carácter (-1 si no cabe).
QChar deCp1252(unsigned char byte);
int aCp1252(QChar caracter);
// Nombre de una fuente como va en \fonttbl: sin caracteres de control, sin ';' y sin blancos
// alrededor (puede quedar vacío).
QString nombreFuente(const QString& nombre);

} // namespace Rtf
