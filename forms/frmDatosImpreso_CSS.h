#pragma once
#include "forms/ImpresoNombramiento.h"

#include <memory>

namespace Ui {
class frmDatosImpreso_CSS;
}

// Impreso CSS: comunicación de nombramiento de coordinador de Seguridad y Salud.
class frmDatosImpreso_CSS : public ImpresoNombramiento {
    Q_OBJECT
public:
    explicit frmDatosImpreso_CSS(QWidget* padre = nullptr);
    ~frmDatosImpreso_CSS() override;

    void cargarInformacionImpresoCSS() { cargarInformacionImpreso(); }

protected:
    QString columnaPersona() const override { return QStringLiteral("COORDINADOR_SYS"); }
    QVariant persona(const Consulta& proyecto) const override;

private:
    std::unique_ptr<Ui::frmDatosImpreso_CSS> ui;
};
