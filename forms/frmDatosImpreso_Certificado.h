#pragma once
#include "forms/DatosImpreso.h"

#include <memory>

namespace Ui {
class frmDatosImpreso_Certificado;
}

// Certificado libre: un texto que firma un arquitecto del estudio, sin proyecto.
class frmDatosImpreso_Certificado : public DatosImpreso {
    Q_OBJECT
public:
    explicit frmDatosImpreso_Certificado(QWidget* padre = nullptr);
    ~frmDatosImpreso_Certificado() override;

    static constexpr int MAXIMO_TEXTO = 65000;
    static inline const QString AVISO_TEXTO_LARGO = QStringLiteral(
        "El texto del certificado admite como máximo 65.000 caracteres.\n"
        "Se ha quitado lo que sobraba del final de lo último que se ha escrito o pegado");

    // El selector de arquitectos en lugar del de proyectos.
    void img_Buscar_Click() override;
    void img_Borrar_Click() override;
    void cargarInformacionImpresoCertificado() { cargarInformacionImpreso(); }

protected:
    void cargarCampos(const Consulta& fila) override;
    Campos camposHistorico() const override;
    bool validarPropios() override;
    void escribirTemporal() override;
    QList<QWidget*> controlesCopia() const override;

private:
    void ponerArquitecto(qint64 codigo, const QString& nombre);
    void limitarTexto(int posicion, int anadidos);

    std::unique_ptr<Ui::frmDatosImpreso_Certificado> ui;
    bool m_limitando = false;
};
