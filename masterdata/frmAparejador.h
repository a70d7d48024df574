#pragma once
#include "masterdata/FichaOtros.h"

#include <memory>

namespace Ui {
class frmAparejador;
}

// Ficha de un arquitecto técnico (categoría ARQUITECTO TECNICO de OTROS).
class frmAparejador : public FichaOtros {
    Q_OBJECT
public:
    explicit frmAparejador(QWidget* padre = nullptr);
    ~frmAparejador() override;

    void ActualizarDatosAparejador_Proyecto();

protected:
    void actualizarCopiasExternas() override { ActualizarDatosAparejador_Proyecto(); }
    QString listaMenu() const override;

private:
    std::unique_ptr<Ui::frmAparejador> ui;
};
