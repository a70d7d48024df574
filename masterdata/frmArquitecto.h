#pragma once
#include "masterdata/FichaOtros.h"

#include <memory>

namespace Ui {
class frmArquitecto;
}

// Ficha de un arquitecto (persona con número de colegiado) o de una sociedad de arquitectos
// (con número de registro). Sus cambios llegan a Config, a los proyectos y a dos históricos.
class frmArquitecto : public FichaOtros {
    Q_OBJECT
public:
    explicit frmArquitecto(QWidget* padre = nullptr);
    ~frmArquitecto() override;

    void ActualizarDatosArquitecto_Configuracion();
    void ActualizarDatosArquitecto_Proyecto();
    void ActualizarDatosArquitecto_DatosB1B3B4();
    void ActualizarDatosArquitecto_DatosB4();

protected:
    void actualizarCopiasExternas() override;
    QString listaMenu() const override;

private:
    std::unique_ptr<Ui::frmArquitecto> ui;
};
