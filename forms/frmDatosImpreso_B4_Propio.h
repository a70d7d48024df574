#pragma once
#include "forms/CertificadoRetenciones.h"

#include <memory>

namespace Ui {
class frmDatosImpreso_B4_Propio;
}

// Certificado anual de retenciones "propio": el arquitecto paga y percibe un arquitecto, un
// arquitecto técnico, un contratista o un cliente (txt_TipoPerceptor "AR", "AT", "CO", "CL"). Los
// importes se escriben a mano: "0.00" en pantalla, "#,##0.00" en las tablas.
class frmDatosImpreso_B4_Propio : public CertificadoRetenciones {
    Q_OBJECT
public:
    explicit frmDatosImpreso_B4_Propio(QWidget* padre = nullptr);
    ~frmDatosImpreso_B4_Propio() override;

    void txt_Rendimientos_LostFocus();
    void txt_Retencion_LostFocus();
    void txt_ImporteIntegro_LostFocus();
    void calcularImporteIntegro();
    void cargarInformacionImpresoB4Propio() { cargarInformacionImpreso(); }

protected:
    BloquesImpreso::FilaTemporal columnas(Destino destino) const override;
    void buscarPerceptor() override;
    PeticionSelector peticionPagador() const override;
    QString sqlPerceptor() const override;
    QString sqlPagador() const override { return SQL_OTROS_ARQUITECTO; }
    void borrarPerceptor() override;
    bool validarImportes() override;
    void cargarCampos(const Consulta& fila) override;
    QList<QWidget*> controlesCopia() const override;

private:
    std::unique_ptr<Ui::frmDatosImpreso_B4_Propio> ui;
};
