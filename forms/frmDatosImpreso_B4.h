#pragma once
#include "forms/CertificadoRetenciones.h"

#include <memory>
#include <optional>

namespace Ui {
class frmDatosImpreso_B4;
}

// Certificado anual de retenciones "ajeno": el arquitecto del estudio percibe, un cliente paga, y
// los importes son la suma de todas las facturas guardadas de ese arquitecto a ese cliente, de
// cualquier año: el ejercicio va en el certificado pero no filtra la suma.
class frmDatosImpreso_B4 : public CertificadoRetenciones {
    Q_OBJECT
public:
    explicit frmDatosImpreso_B4(QWidget* padre = nullptr);
    ~frmDatosImpreso_B4() override;

    void cargarInformacionImpresoB4() { cargarInformacionImpreso(); }

    static inline const QString AVISO_CANTIDADES = QStringLiteral("No se han podido obtener las cantidades del certificado de retenciones");
    // La suma de las facturas de un emisor (ARQCOD) a los proyectos de un cliente.
    static inline const QString SQL_CANTIDADES = QStringLiteral(
        "SELECT SUM(datosB1B3B4.IMPORTE) AS Rendimientos, SUM(datosB1B3B4.IRPF) AS Retencion, "
        "SUM(datosB1B3B4.IMPORTE) - SUM(datosB1B3B4.IRPF) AS ImporteIntegro "
        "FROM datosB1B3B4, Proyectos_A WHERE datosB1B3B4.PRYCOD = Proyectos_A.PRYCOD "
        "AND datosB1B3B4.ARQCOD = ? AND Proyectos_A.Codigo_Cliente = ?");

protected:
    BloquesImpreso::FilaTemporal columnas(Destino destino) const override;
    void buscarPerceptor() override;
    PeticionSelector peticionPagador() const override;
    QString sqlPerceptor() const override { return SQL_OTROS_ARQUITECTO; }
    QString sqlPagador() const override { return QStringLiteral("SELECT * FROM Clientes WHERE Codigo_Cli = ?"); }

private:
    std::unique_ptr<Ui::frmDatosImpreso_B4> ui;
    // Sumas del último histórico escrito, para la temporal que le sigue.
    mutable std::optional<QVariantList> m_sumas;
};
