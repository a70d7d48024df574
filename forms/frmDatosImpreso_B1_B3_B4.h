#pragma once
#include "core/clsNumToText.h"
#include "forms/DatosImpreso.h"

#include <memory>

class QTreeWidgetItem;
namespace Ui {
class frmDatosImpreso_B1_B3_B4;
}

// Factura de honorarios profesionales y sus otros dos impresos, la retención a cuenta del
// I.R.P.F. (B3) y el certificado anual (B4): unos mismos datos y una misma cadena de importes
// (líneas → honorarios H → I.V.A. I → total F → retención R → abonado T → en letra). El tipo que
// da la lista elige el informe, el título del visor y la lista que se abre tras un "ALTA".
class frmDatosImpreso_B1_B3_B4 : public DatosImpreso {
    Q_OBJECT
public:
    explicit frmDatosImpreso_B1_B3_B4(QWidget* padre = nullptr);
    ~frmDatosImpreso_B1_B3_B4() override;

    // Tipos de Config leídos al cargar, en fracciones (0,16); 0 si el campo es nulo.
    double tipoIva() const { return m_tipoIva; }
    double tipoIrpf() const { return m_tipoIrpf; }

    using DatosImpreso::img_Borrar_Click;
    using DatosImpreso::img_Buscar_Click;
    void img_Buscar_Click(int index);  // 0 proyecto, 1 emisor
    void img_Borrar_Click(int index);
    void cmd_Anadir_Click();
    void cmd_Editar_Click() { lvw_Concepto_DblClick(); }
    void cmd_Borrar_Click();
    void lvw_Concepto_DblClick();
    // Cambio de txt_Importe: toda la cadena, cada paso desde el texto ya formateado del anterior.
    void txt_Change_KeyPress();
    void txt_Importe_LostFocus();
    // "Sin retención": ajusta el abonado desde el que había, no desde el total de la factura.
    void chk_Retencion_Click();
    // Cambio de txt_TotalAbonado: el importe en letra.
    void txt_TotalAbonado_KeyPress();
    void cargarInformacionImpresoB1B3B4() { cargarInformacionImpreso(); }

    static inline const QString AVISO_SIN_TIPOS = QStringLiteral("No se han podido cargar los valores del IVA y del IRPF");
    static inline const QString AVISO_EMISOR = QStringLiteral("No se han podido cargar los datos del emisor de la factura de honorarios");
    static inline const QString AVISO_CLIENTE =
        QStringLiteral("No se han podido cargar los datos del cliente (destinatario) de la factura de honorarios");
    static inline const QString AVISO_LETRA = QStringLiteral(
        "No se puede convertir el importe a texto pues excede del número de caracteres permitidos.\n"
        "Deberá escribirlo manualmente en la factura");

protected:
    bool prepararCarga() override;
    void aplicarLimites() override;
    void cargarCampos(const Consulta& fila) override;
    Campos camposHistorico() const override;
    void escribirFilasHijas(qint64 clave) override;
    bool validarPropios() override;
    bool validarTrasPie() override;
    void escribirTemporal() override;
    QList<QWidget*> controlesCopia() const override;

private:
    // El diálogo de una línea, modal: "ALTA" añade, "MODIFICAR" escribe en la fila dada.
    void abrirDetalle(const QString& operacion, QTreeWidgetItem* fila);
    void agregarLinea(const QString& concepto, const QString& importe);
    void sumarConceptos();
    // La línea elegida de la lista; sin líneas, o sin ninguna elegida, avisa y da nulo.
    QTreeWidgetItem* lineaElegida(const QString& avisoVacia, const QString& avisoSinElegir);
    qint64 codigoEmisor() const;

    std::unique_ptr<Ui::frmDatosImpreso_B1_B3_B4> ui;
    double m_tipoIva = 0, m_tipoIrpf = 0;
    clsNumToText m_letra;
};
