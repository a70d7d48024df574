#pragma once
#include "masterdata/FichaOtros.h"

#include <memory>

namespace Ui {
class frmContratista;
}

// Ficha de un contratista (categoría CONSTRUCTOR de OTROS): sin número de colegiado.
class frmContratista : public FichaOtros {
    Q_OBJECT
public:
    explicit frmContratista(QWidget* padre = nullptr);
    ~frmContratista() override;

    void ActualizarDatosConstructor_Proyecto();

protected:
    void actualizarCopiasExternas() override { ActualizarDatosConstructor_Proyecto(); }
    QString listaMenu() const override;

private:
    std::unique_ptr<Ui::frmContratista> ui;
};
