#pragma once
#include "core/CicloPantalla.h"

#include <functional>
#include <memory>

namespace Ui {
class frmAddModDetalleFacturaHonorarios;
}

// Una línea de la factura de honorarios: concepto e importe. Lo aceptado se entrega a quien abrió
// el diálogo (alAceptar), que lo pone en su lista y suma.
class frmAddModDetalleFacturaHonorarios : public Dialogo {
    Q_OBJECT
public:
    explicit frmAddModDetalleFacturaHonorarios(QWidget* padre = nullptr);
    ~frmAddModDetalleFacturaHonorarios() override;

    QString Operacion;  // "ALTA" o "MODIFICAR"
    // Concepto recortado e importe con "#,##0.00".
    std::function<void(const QString& concepto, const QString& importe)> alAceptar;

    // La línea que se edita, con su importe ya escrito "#,##0.00".
    void ponerLinea(const QString& concepto, const QString& importe);

    void cmd_Aceptar_Click();
    void txt_Importe_LostFocus();
    bool validarDatos();
    void cargarInformacionDetalleFactura() { m_copia.tomar(controlesCopia()); }
    bool PreguntarGuardarCambios() const { return m_copia.difiere(controlesCopia()); }

    static inline const QString CONCEPTO_OBLIGATORIO =
        QStringLiteral("El concepto del detalle de la factura es obligatorio.\nPor favor, escriba un valor");
    static inline const QString IMPORTE_OBLIGATORIO = QStringLiteral("El importe es obligatorio.\nPor favor, escriba un valor");
    static inline const QString FORMATO_NO_VALIDO =
        QStringLiteral("Formato numérico no válido.\nPor favor, revise el valor proporcionado");

    void reject() override;  // Form_Unload: la pregunta si hay cambios

protected:
    void showEvent(QShowEvent* e) override;  // Form_Activate: la copia

private:
    QList<QWidget*> controlesCopia() const;

    std::unique_ptr<Ui::frmAddModDetalleFacturaHonorarios> ui;
    Instantanea m_copia;
};
