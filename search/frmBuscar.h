#pragma once
#include "search/PantallaBusqueda.h"

namespace Ui {
class frmBuscar;
}

// Lista de cada entrada del menú: proyectos, agentes, clientes e impresos guardados.
// Desde ella se crea, edita o borra un registro.
class frmBuscar : public PantallaBusqueda {
    Q_OBJECT
public:
    explicit frmBuscar(QWidget* padre = nullptr);
    ~frmBuscar() override;

    // La pantalla que guarda o imprime algo lo pone a true: la lista repite su búsqueda al activarse.
    bool ActualizarLista = false;

    void Form_Load() override;
    void Form_Activate();
    void cmd_Nuevo_Click();
    void cmd_Modificar_Click();
    void cmd_Eliminar_Click();
    void lvw_Resultados_DblClick() override;
    void realizarOperacion();

protected:
    QString nombreFormulario() const override { return QStringLiteral("frmBuscar"); }
    bool esSelector() const override { return false; }
    void habilitarOperaciones(bool habilitar) override;
    void showEvent(QShowEvent* e) override;
    bool event(QEvent* e) override;

private:
    void eliminarRegistro(int fila);

    Ui::frmBuscar* ui;
    bool m_activacionConectada = false;
};
