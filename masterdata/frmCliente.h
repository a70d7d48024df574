#pragma once
#include "masterdata/FichaRegistro.h"

#include <memory>

namespace Ui {
class frmCliente;
}

// Ficha del cliente y, si es una sociedad, de su representante legal (dos filas en dos tablas).
class frmCliente : public FichaRegistro {
    Q_OBJECT
public:
    explicit frmCliente(QWidget* padre = nullptr);
    ~frmCliente() override;

    void opt_Tipo_Click(int indice);
    void img_Validar_Click();
    void img_Validar_Representante_Click();

    bool validarDatos() override;

    void ActualizarDatosCliente_Proyecto();
    void ActualizarDatosCliente_DatosB4();

    // La pestaña del representante habilitada es la señal de que el cliente lo tiene.
    bool tieneRepresentante() const;

protected:
    void cargarDatos() override;
    QList<QWidget*> controlesCopia() const override;
    bool guardarRegistro() override;
    void actualizarCopiasExternas() override;
    RegistroGuardado registroGuardado() const override;
    QString textoAlta() const override;
    QString textoModificado() const override;
    QString listaMenu() const override;

private:
    QList<QWidget*> controlesCliente() const;
    QList<QWidget*> controlesRepresentante() const;

    std::unique_ptr<Ui::frmCliente> ui;
    qint64 m_claveNueva = 0;
};
