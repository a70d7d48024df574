#pragma once
#include "core/Pantallas.h"

namespace Ui {
class frmCopiaSeguridad;
}

// Copia de seguridad: la base de datos a un fichero ".mee" con el nombre que se elija, y
// inicio.ini a "inicio.ini.bak", en la carpeta elegida. Guarda también si se quiere el
// recordatorio de la copia al salir del programa.
class frmCopiaSeguridad : public Pantalla {
    Q_OBJECT
public:
    explicit frmCopiaSeguridad(QWidget* padre = nullptr);
    ~frmCopiaSeguridad() override;

    // Abre la pantalla, o trae delante la que ya esté abierta. Con salirAlTerminar el programa
    // termina al cerrarla (la salida con el recordatorio puesto).
    static frmCopiaSeguridad* abrir(bool salirAlTerminar);
    bool salirAlTerminar = false;

public slots:
    void cmd_IniciarCopia_Click();
    void cmd_Cambiar_Click();

protected:
    bool alDescargar() override;

private:
    void Form_Load();
    Ui::frmCopiaSeguridad* ui;
};
