#pragma once
#include <QString>

class QWidget;

// Abre un PDF con el programa asociado. Si no se puede, avisa según el resultado (31: no hay
// visor; 2: no se encuentra) y deja en el registro, enseñada, una entrada de número 0.
void cargarPDF(const QString& ruta, QWidget* ventana);

// Un documento que está hecho pero que ningún programa del equipo abre (resultado 31): se dice
// dónde está y que no hay programa para abrirlo, y el registro guarda el detalle sin enseñarlo.
// tipo: lo que es, para el aviso ("el listado", "el documento", "la ayuda").
void avisarSinProgramaQueLoAbra(const QString& ruta, const QString& tipo, const QString& formulario, const QString& procedimiento);
