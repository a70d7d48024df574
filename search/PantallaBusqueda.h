#pragma once
#include "core/Pantallas.h"
#include "search/ModeloResultados.h"
#include "search/TablasBusqueda.h"

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStatusBar;
class QToolBar;
class QTreeView;

// Lo común de frmBuscar y frmBuscarSeleccionar: campos de búsqueda, lista, búsqueda,
// ordenación y barras. Cada pantalla pone sus botones y lo que hace una fila.
class PantallaBusqueda : public Pantalla {
    Q_OBJECT
public:
    // Campos públicos que fija quien abre la pantalla, antes de Form_Load.
    short Posicion = 0;
    QString Tabla;
    QString TipoImpreso;
    QString ClaveRetorno;
    bool BusquedaSilenciosa = false;

    // Carga: icono, barras, campos, columnas y la primera búsqueda, silenciosa.
    virtual void Form_Load();

    // Eventos (públicos para las pruebas y las demás pantallas).
    void tlb_BotoneraBuscar_Click();
    void cbo_CampoBusqueda_Click();
    void cbo_CampoBusqueda_KeyDown(int codigoTecla);
    void cbo_CampoBusqueda_LostFocus();
    void lvw_Resultados_ColumnClick(int columna);
    virtual void lvw_Resultados_DblClick() = 0;
    // Acciones de la barra de exportación (1 a 4): aún sin hacer.
    virtual void tlb_BotoneraExportar_ButtonClick(int boton);
    void cmd_Ayuda_Click();

    ModeloResultados* modelo() const { return m_modelo; }
    QTreeView* lista() const { return lvw_Resultados; }
    QString textoEstado() const;
    const TablasBusqueda::Descripcion* descripcionTabla() const { return m_descripcion; }
    // Fila seleccionada (la primera si no hay ninguna); -1 con la lista vacía.
    int filaSeleccionada() const;
    void seleccionarFila(int fila);

    QSize sizeHint() const override;

protected:
    explicit PantallaBusqueda(QWidget* padre = nullptr);
    // Tras setupUi: busca los controles por su nombre y los conecta.
    void enlazarControles();
    virtual QString nombreFormulario() const = 0;
    virtual bool esSelector() const = 0;
    // Botones que siguen a cada búsqueda (Editar y Eliminar, o Seleccionar).
    virtual void habilitarOperaciones(bool habilitar) = 0;

    void cargarCamposBusqueda();
    void ajustarColumnas();
    void crearEncabezadosLista();
    void obtenerDatos();
    void establecerEstado(const QString& texto);
    // Texto del valor como lo ve el usuario (con los caracteres de la máscara si la tiene).
    QString valorBusqueda() const;
    void vaciarValor();

    bool eventFilter(QObject* objeto, QEvent* evento) override;

    QLabel* lbl_Titulo1 = nullptr;
    QLabel* lbl_Titulo2 = nullptr;
    QComboBox* cbo_CampoBusqueda = nullptr;
    QLineEdit* msk_ValorBusqueda = nullptr;
    QToolBar* tlb_BotoneraBuscar = nullptr;
    QToolBar* tlb_BotoneraExportar = nullptr;
    QTreeView* lvw_Resultados = nullptr;
    QStatusBar* sta_1 = nullptr;
    QLabel* m_panel1 = nullptr;
    QPushButton* cmd_Ayuda = nullptr;
    QList<QAction*> m_exportar;

private:
    int reglaTeclas(int tecla) const;

    ModeloResultados* m_modelo = nullptr;
    const TablasBusqueda::Descripcion* m_descripcion = nullptr;
    bool m_ordenada = false;
    int m_columnaOrden = 0;
    Qt::SortOrder m_sentido = Qt::AscendingOrder;
    QSize m_tamano{900, 520};
};
