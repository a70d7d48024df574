#pragma once
#include "forms/BloquesImpreso.h"
#include "forms/DatosImpreso.h"

#include <array>
#include <memory>

namespace Ui {
class frmDatosImpreso_A3;
}

// Impreso A3: coste de referencia del proyecto. Hasta seis usos, cada uno con su superficie y sus
// coeficientes, multiplicados por el módulo del Colegio; los totales y el presupuesto declarado.
class frmDatosImpreso_A3 : public DatosImpreso {
    Q_OBJECT
public:
    static constexpr int LINEAS = 6;

    explicit frmDatosImpreso_A3(QWidget* padre = nullptr);
    ~frmDatosImpreso_A3() override;

    void cargarInformacionImpresoA3() { cargarInformacionImpreso(); }

    // Índice 0: el proyecto; 1 a 6: el coste de referencia de la línea Index - 1.
    void img_Buscar_Click(int Index);
    void img_Borrar_Click(int Index);

    // Salida de un campo numérico (su LostFocus): completa ",5" y "-,5", da el formato y recalcula.
    void salirDeCampo(QLineEdit* campo);

    void calcularValores();
    void calcularCosteReferencia(int i);
    void calcularTotalesResumen();

protected:
    void valoresPorDefecto() override;
    void cargarCampos(const Consulta& fila) override;
    Campos camposHistorico() const override;
    bool validarTrasPie() override;
    void escribirTemporal() override;
    QList<QWidget*> controlesCopia() const override;
    bool guardarAlSalir() override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    struct Linea {
        QLineEdit *usos, *superficie, *ct, *cc, *cr, *cref, *coste;
    };
    void recibirCoste(const Eleccion& e);
    void limpiarLinea(int i);
    int lineaDe(const QLineEdit* campo) const;

    std::unique_ptr<Ui::frmDatosImpreso_A3> ui;
    std::array<Linea, LINEAS> m_lineas{};
    std::array<QLineEdit*, LINEAS - 1> m_moduloFijo{};
    QList<QLineEdit*> m_numericos;                 // los que se completan y recalculan al salir
    QList<BloquesImpreso::CampoImpreso> m_campos;  // columnas del histórico, en su orden
};
