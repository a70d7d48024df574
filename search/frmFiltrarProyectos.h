#pragma once
#include "core/Pantallas.h"
#include "search/ExportarListados.h"

namespace Ui {
class frmFiltrarProyectos;
}

// Antes de la vista, la hoja de cálculo o el PDF de proyectos: todos, o los de un intervalo de
// fechas de visado o de fin de obra.
class frmFiltrarProyectos : public Pantalla {
    Q_OBJECT
public:
    explicit frmFiltrarProyectos(QWidget* padre = nullptr);
    ~frmFiltrarProyectos() override;

    static frmFiltrarProyectos* abrir(int accion, const PantallaLlamadora& origen);

    int Accion = 1;              // 1 vista preliminar, 2 hoja de cálculo, 3 PDF
    PantallaLlamadora Origen;    // pantalla cuya barra de estado se escribe

    bool validarDatos();

public slots:
    void cmd_Ver_Click();

protected:
    bool eventFilter(QObject* o, QEvent* e) override;

private:
    void opt_Opcion_Click();
    void cbo_Operador_Click();
    Ui::frmFiltrarProyectos* ui;
};
