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

    void cargarInformacionCliente();
    void cargarInformacionRepresentante();
    bool PreguntarGuardarCambios() const;
    bool PreguntarGuardarCambiosRepresentante() const;
    bool validarDatos() override;
    bool hayCambios() const override;

    void ActualizarDatosCliente_Proyecto();
    void ActualizarDatosCliente_DatosB4();

    // La pestaña del representante habilitada es la señal de que el cliente lo tiene.
    bool tieneRepresentante() const;

protected:
    void cargarDatos() override;
    void tomarCopias() override;
    bool guardarRegistro() override;
    void actualizarCopiasExternas() override;
    void devolverAlta() override;
    QString textoAlta() const override;
    QString textoModificado() const override;
    void abrirListaMenu() override;

private:
    QList<QWidget*> controlesCliente() const;
    QList<QWidget*> controlesRepresentante() const;

    std::unique_ptr<Ui::frmCliente> ui;
    QStringList m_copiaCliente;
    QStringList m_copiaRepresentante;
    qint64 m_claveNueva = 0;
};
