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
// "validar", "seleccionar", "borrar", "porcentajes", "imprimir", "informacion", "fecha".
QPixmap pixmap(const QString& nombre, int lado = 32, bool gris = false);
QIcon icono(const QString& nombre, int lado = 32);             // en color
QIcon iconoGrisColor(const QString& nombre, int lado = 32);    // gris, en color al pasar por encima

QPixmap logotipo(const QSize& tamano, bool conFondo);   // dibujo del arranque y del fondo
QIcon iconoPrograma();

}  // namespace Iconos
