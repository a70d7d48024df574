#pragma once
#include "core/Pantallas.h"

namespace Ui {
class frmRestaurarCopiaSeguridad;
}

// Restauración de una copia de seguridad: la base de datos desde un fichero ".mee", el fichero de
// inicio desde el "inicio.ini.bak" de su carpeta, o los dos.
class frmRestaurarCopiaSeguridad : public Pantalla {
    Q_OBJECT
public:
    explicit frmRestaurarCopiaSeguridad(QWidget* padre = nullptr);
    ~frmRestaurarCopiaSeguridad() override;

    static frmRestaurarCopiaSeguridad* abrir();

public slots:
    void cmd_Buscar_Click();
    void cmd_RestaurarCopia_Click();
    void cmd_HacerCopia_Click();

private:
    int opcionElegida() const;  // 0 BD y fichero de inicio, 1 sólo BD, 2 sólo fichero de inicio
    Ui::frmRestaurarCopiaSeguridad* ui;
};
