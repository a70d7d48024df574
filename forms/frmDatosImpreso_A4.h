#pragma once
#include "forms/ImpresoNombramiento.h"

#include <memory>

namespace Ui {
class frmDatosImpreso_A4;
}

// Impreso A4: comunicación de nombramiento de dirección de obra.
class frmDatosImpreso_A4 : public ImpresoNombramiento {
    Q_OBJECT
public:
    explicit frmDatosImpreso_A4(QWidget* padre = nullptr);
    ~frmDatosImpreso_A4() override;

    void cargarInformacionImpresoA4() { cargarInformacionImpreso(); }

    // Lo que cabe en la columna AUTOR: el resto se corta sin aviso.
    static constexpr int MAXIMO_AUTOR = 255;

protected:
    QString columnaLugar() const override { return QStringLiteral("LUGARA4"); }
    QString columnaFecha() const override { return QStringLiteral("FECHAA4"); }
    QString columnaPersona() const override { return QStringLiteral("AUTOR"); }
    QVariant persona(const Consulta& proyecto) const override;

private:
    std::unique_ptr<Ui::frmDatosImpreso_A4> ui;
};
