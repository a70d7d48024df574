#pragma once
#include "masterdata/FichaRegistro.h"

#include <memory>

namespace Ui {
class frmAddModCosteReferencia;
}

// Alta y modificación de un coste de referencia del Colegio (tabla Costes).
class frmAddModCosteReferencia : public FichaRegistro {
    Q_OBJECT
public:
    explicit frmAddModCosteReferencia(QWidget* padre = nullptr);
    ~frmAddModCosteReferencia() override;

    QString CodigoCoste;  // el código de texto del coste, en "MODIFICAR"

    bool validarDatos() override;

protected:
    void cargarDatos() override;
    QList<QWidget*> controlesCopia() const override;
    bool guardarRegistro() override;
    RegistroGuardado registroGuardado() const override;
    QString textoAlta() const override;
    QString textoModificado() const override;

private:
    std::unique_ptr<Ui::frmAddModCosteReferencia> ui;
};
