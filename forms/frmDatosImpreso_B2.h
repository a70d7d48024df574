#pragma once
#include "forms/DatosImpreso.h"

#include <memory>

namespace Ui {
class frmDatosImpreso_B2;
}

// Impreso B2: compromiso de aportar la licencia municipal de obras.
class frmDatosImpreso_B2 : public DatosImpreso {
    Q_OBJECT
public:
    explicit frmDatosImpreso_B2(QWidget* padre = nullptr);
    ~frmDatosImpreso_B2() override;

    void cargarInformacionImpresoB2() { cargarInformacionImpreso(); }

protected:
    void cargarCampos(const Consulta& fila) override;
    Campos camposHistorico() const override;
    void escribirTemporal() override;

private:
    std::unique_ptr<Ui::frmDatosImpreso_B2> ui;
};
