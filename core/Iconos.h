#pragma once
#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>

// Dibujos del propio programa: iconos de las barras (en color y en gris) y el logotipo del
// arranque y del fondo. Se pintan al vuelo para no depender de ficheros de imagen.
namespace Iconos {

// Nombres: "proyecto", "arquitecto", "aparejador", "contratista", "cliente", "ayuda", "salir",
// "buscar", "listado", "excel", "pdf", "impresoBlanco", "nuevo", "editar", "eliminar",
// "validar", "seleccionar", "borrar", "porcentajes", "imprimir", "informacion", "fecha"; los del
// editor: "abrir", "guardar", "cortar", "copiar", "pegar", "deshacer", "negrita", "cursiva",
// "subrayada", "tachada", "izquierda", "centrado", "derecha", "vinetas".
enum class Tinta { Color, Gris };
QPixmap pixmap(const QString& nombre, int lado = 32, Tinta tinta = Tinta::Color);
QIcon icono(const QString& nombre, int lado = 32);             // en color
QIcon iconoGrisColor(const QString& nombre, int lado = 32);    // gris, en color al pasar por encima

enum class Fondo { Transparente, Pintado };
QPixmap logotipo(const QSize& tamano, Fondo fondo);   // dibujo del arranque (con fondo) y del de la principal
QIcon iconoPrograma();

}  // namespace Iconos
