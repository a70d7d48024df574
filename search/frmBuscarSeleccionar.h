#pragma once
#include "search/PantallaBusqueda.h"

namespace Ui {
class frmBuscarSeleccionar;
}

// Selector: la misma lista, abierta desde una ficha para elegir un registro y devolverlo.
class frmBuscarSeleccionar : public PantallaBusqueda {
    Q_OBJECT
public:
    explicit frmBuscarSeleccionar(QWidget* padre = nullptr);
    ~frmBuscarSeleccionar() override;

    // Descarga el selector que hubiera, fija tabla, clave de retorno, posición, clave de llamada
    // (Tag) y título, lo carga y lo enseña sin bloquear.
    static frmBuscarSeleccionar* abrir(const QString& tabla, const QString& claveLlamada, const QString& titulo,
                                       const QString& claveRetorno, short posicion = 0);

    void cmd_Seleccionar_Click();
    void cmd_Nuevo_Click();
    void lvw_Resultados_DblClick() override;
    void realizarOperacion();

    // Filas de la lista, en el orden en que se ven, con su marca (listas de varias elecciones).
    QList<FilaResultado> filasResultado() const;
    FilaResultado filaElegida() const;  // la seleccionada; vacía si la lista no tiene filas
    // Una ficha nueva que vuelve al selector de autores se añade marcada.
    void agregarFila(const FilaResultado& fila);

protected:
    QString nombreFormulario() const override { return QStringLiteral("frmBuscarSeleccionar"); }
    bool esSelector() const override { return true; }
    void habilitarOperaciones(bool habilitar) override;
    // Escribe la fila elegida en la pantalla que llamó y se descarga.
    virtual void devolverSeleccion();

private:
    Ui::frmBuscarSeleccionar* ui;
    bool m_fichaAbierta = false;
};
