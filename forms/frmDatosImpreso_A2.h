#pragma once
#include "forms/BloquesImpreso.h"
#include "forms/DatosImpreso.h"

#include <memory>

class QScrollArea;

namespace Ui {
class frmDatosImpreso_A2;
}

// Impreso A2: presentación de documentos. Por cada uno de los 32 documentos posibles, los
// ejemplares que se entregan y el visto bueno; once de ellos llevan un título libre.
class frmDatosImpreso_A2 : public DatosImpreso {
    Q_OBJECT
public:
    static constexpr int LINEAS = 32;
    // Líneas (desde 0) de los once títulos libres, en el orden de txt_NombreDocumento_0 a _10.
    static constexpr int LINEAS_LIBRES[] = {3, 11, 17, 18, 21, 22, 24, 25, 26, 27, 29};

    explicit frmDatosImpreso_A2(QWidget* padre = nullptr);
    ~frmDatosImpreso_A2() override;

    void cargarInformacionImpresoA2() { cargarInformacionImpreso(); }

    // Desplazan la lista de su pestaña una línea: subir deja ver la siguiente por abajo. No tocan
    // ningún dato: cada línea guarda siempre en su número.
    void cmd_Arriba_Edificacion_Click();
    void cmd_Abajo_Edificacion_Click();
    void cmd_Arriba_Urbanismo_Click();
    void cmd_Abajo_Urbanismo_Click();

protected:
    void aplicarLimites() override;
    void cargarCampos(const Consulta& fila) override;
    Campos camposHistorico() const override;
    void escribirTemporal() override;
    QList<QWidget*> controlesCopia() const override;

private:
    std::unique_ptr<Ui::frmDatosImpreso_A2> ui;
    QList<BloquesImpreso::CampoImpreso> m_campos;  // columnas del histórico, en su orden
};
