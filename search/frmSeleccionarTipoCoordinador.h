#pragma once
#include "search/SeleccionTipo.h"

// Familia del coordinador del comunicado de dirección antes de abrir el selector.
class frmSeleccionarTipoCoordinador : public SeleccionTipo {
    Q_OBJECT
public:
    explicit frmSeleccionarTipoCoordinador(QWidget* padre = nullptr);
};
