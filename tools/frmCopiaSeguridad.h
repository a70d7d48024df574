#pragma once
#include "core/Pantallas.h"

class QCheckBox;

// Copia de seguridad. Provisional: sólo guarda el recordatorio y, al salir del programa con el
// recordatorio puesto, termina el programa al cerrarse.
class frmCopiaSeguridad : public Pantalla {
    Q_OBJECT
public:
    explicit frmCopiaSeguridad(QWidget* padre = nullptr);
    static bool disponible();
    static frmCopiaSeguridad* abrir(bool salirAlTerminar);
    static void abrirRestaurar();
    bool salirAlTerminar = false;

protected:
    bool alDescargar() override;

private:
    QCheckBox* chk_RecordarCopia;
};
