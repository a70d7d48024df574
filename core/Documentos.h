#pragma once
#include <QString>

class QWidget;

// Abre un PDF con el programa asociado. Si no se puede, avisa según el resultado (31: no hay
// visor; 2: no se encuentra) y deja en el registro, enseñada, una entrada de número 0.
void cargarPDF(const QString& ruta, QWidget* ventana);
