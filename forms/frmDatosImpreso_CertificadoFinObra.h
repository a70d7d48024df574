#pragma once
#include "forms/DatosImpreso.h"

#include <memory>

namespace Ui {
class frmDatosImpreso_CertificadoFinObra;
}

// Certificado fin de obra (CFO): las demarcaciones y lugares de expedición del arquitecto técnico
// y del arquitecto, las fechas de fin de obra y de licencia y la fecha del pie, sin lugar. Tras
// guardar pregunta cuál de sus cuatro diseños se imprime (frmSeleccionarTipoCertificado).
class frmDatosImpreso_CertificadoFinObra : public DatosImpreso {
    Q_OBJECT
public:
    explicit frmDatosImpreso_CertificadoFinObra(QWidget* padre = nullptr);
    ~frmDatosImpreso_CertificadoFinObra() override;

    void cargarInformacionImpresoCFO() { cargarInformacionImpreso(); }

    // Las listas de FinObra no pasan de 255 caracteres.
    static constexpr int MAXIMO_LISTA = 255;

protected:
    void aplicarLimites() override;
    void cargarCampos(const Consulta& fila) override;
    Campos camposHistorico() const override;
    void escribirFilasHijas(qint64 clave) override;
    bool validarPropios() override;
    void escribirTemporal() override;
    void mostrarVistaPrevia() override;
    void recibirProyecto(const Eleccion& e) override;
    QList<QWidget*> controlesCopia() const override;

private:
    std::unique_ptr<Ui::frmDatosImpreso_CertificadoFinObra> ui;
};
