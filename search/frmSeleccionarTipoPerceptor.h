#pragma once
#include "search/SeleccionTipo.h"

// Familia del perceptor del certificado de retenciones propio antes de abrir el selector.
class frmSeleccionarTipoPerceptor : public SeleccionTipo {
    Q_OBJECT
public:
    explicit frmSeleccionarTipoPerceptor(QWidget* padre = nullptr);
};
