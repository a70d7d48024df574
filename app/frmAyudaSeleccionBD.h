#pragma once
#include <QDialog>

namespace Ui {
class frmAyudaSeleccionBD;
}

// Asistente de la primera vez: explica y, al cerrarse de cualquier manera, pide la carpeta de
// la base de datos. Si no se da una carpeta válida, el programa termina. Un puesto que trabaja
// con un servidor ([BD] de inicio.ini) no tiene carpeta que elegir: el asistente dice qué servidor
// usa y sólo deja anotada la instalación.
class frmAyudaSeleccionBD : public QDialog {
    Q_OBJECT
public:
    explicit frmAyudaSeleccionBD(QWidget* padre = nullptr);
    ~frmAyudaSeleccionBD() override;
    void done(int r) override;

private:
    void Form_Unload();
    Ui::frmAyudaSeleccionBD* ui;
    bool m_hecho = false;
    bool m_servidor = false;
};
