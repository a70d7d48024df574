#pragma once
#include "forms/DatosImpreso.h"

#include <memory>

namespace Ui {
class frmDatosImpreso_A1;
}

// Impreso A1: comunicación de encargo profesional.
class frmDatosImpreso_A1 : public DatosImpreso {
    Q_OBJECT
public:
    explicit frmDatosImpreso_A1(QWidget* padre = nullptr);
    ~frmDatosImpreso_A1() override;

    void cargarInformacionImpresoA1() { cargarInformacionImpreso(); }

protected:
    void aplicarLimites() override;
    void valoresPorDefecto() override;
    void cargarCampos(const Consulta& fila) override;
    Campos camposHistorico() const override;
    void escribirTemporal() override;
    QList<QWidget*> controlesCopia() const override;

private:
    std::unique_ptr<Ui::frmDatosImpreso_A1> ui;
};
