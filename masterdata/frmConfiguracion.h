#pragma once
#include "core/Pantallas.h"

class QTabWidget;

// Configuración del estudio (fila única de Config), con sus pestañas.
class frmConfiguracion : public Pantalla {
    Q_OBJECT
public:
    explicit frmConfiguracion(QWidget* padre = nullptr);
    static bool disponible();                 // ¿está ya construida la pantalla completa?
    static frmConfiguracion* abrir(int pestana);
    QTabWidget* pestanas() const { return mst_1; }

private:
    QTabWidget* mst_1;
};
