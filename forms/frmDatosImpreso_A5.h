#pragma once
#include "forms/DatosImpreso.h"

#include <memory>

namespace Ui {
class frmDatosImpreso_A5;
}

// Impreso A5: hoja resumen de características urbanísticas. Comparte el histórico datosA4A5 con
// el A4 y sólo escribe sus propias columnas.
class frmDatosImpreso_A5 : public DatosImpreso {
    Q_OBJECT
public:
    explicit frmDatosImpreso_A5(QWidget* padre = nullptr);
    ~frmDatosImpreso_A5() override;

    void cargarInformacionImpresoA5() { cargarInformacionImpreso(); }

protected:
    void aplicarLimites() override;
    void cargarCampos(const Consulta& fila) override;
    Campos camposHistorico() const override;
    bool validarPropios() override;
    void escribirTemporal() override;
    QList<QWidget*> controlesCopia() const override;

private:
    // Las celdas de la tabla de condiciones, fila a fila: planeamiento (PLANn) y proyecto (PROYn).
    QList<QLineEdit*> celdasPlaneamiento() const;
    QList<QLineEdit*> celdasProyecto() const;
    // Columnas propias del impreso, sin el proyecto ni el pie.
    Campos columnasPlaneamiento(bool paraHistorico) const;

    std::unique_ptr<Ui::frmDatosImpreso_A5> ui;
};
