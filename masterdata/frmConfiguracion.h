#pragma once
#include "core/CicloPantalla.h"
#include "core/Fichas.h"
#include "search/frmBuscarSeleccionar.h"

#include <QStringList>
#include <QVariant>
#include <functional>
#include <memory>

class QLineEdit;
class QTabWidget;
class QToolBar;
class QTreeWidget;
namespace Ui {
class frmConfiguracion;
}

// Configuración del estudio: la fila única de Config (arquitectos, sociedad, domicilio,
// módulo, IVA, IRPF, Agencia Tributaria), las carpetas de inicio.ini y los costes de referencia.
// Pestañas: 0 estudio, 1 "Parámetros" (con las carpetas), 2 costes de referencia.
class frmConfiguracion : public PantallaEdicion {
    Q_OBJECT
public:
    explicit frmConfiguracion(QWidget* padre = nullptr);
    ~frmConfiguracion() override;

    static bool disponible();
    // Abre (o trae delante) la pantalla en la pestaña pedida.
    static frmConfiguracion* abrir(int pestana);
    QTabWidget* pestanas() const;

    // Lo que abre el selector de arquitectos de cada botón (0 a 3 los arquitectos, 4 la sociedad),
    // con la devolución de lo elegido y del registro nuevo a esta pantalla.
    PeticionSelector peticionSelector(int indice);

    // Lo elegido en el selector: posición 1 a 4.
    void recibirArquitecto(int posicion, qint64 codigo, const QString& nombreCompleto, const QString& numero);
    void recibirSociedad(qint64 codigo, const QString& nombreCompleto, const QString& numeroRegistro);

    // Una ficha de arquitecto nueva dada de alta desde el selector: no escribe el código.
    void recibirNuevoArquitecto(int posicion, const QString& nombre, const QString& numero, const DatosContacto& datos);
    void recibirNuevaSociedad(const QString& nombre, const QString& numeroRegistro, const DatosContacto& datos);

    // Lista de costes: la ficha de costes escribe en ella al dar de alta o modificar.
    QTreeWidget* listaCostes() const;
    void agregarCoste(const QString& codigo, const QString& tipo, const QString& descripcion, const QVariant& ct, const QVariant& cc);
    void reescribirCosteSeleccionado(const QString& codigo, const QString& tipo, const QString& descripcion, const QVariant& ct,
                                     const QVariant& cc);

    // Eventos (públicos para las pruebas).
    void img_Buscar_Click(int indice);
    void img_Borrar_Click(int indice);
    void img_Validar_Click();
    void cmd_Cambiar_Click();
    void cmd_CambiarRutaExcel_Click();
    void cmd_CambiarRutaPdf_Click();
    void cmd_Guardar_Click();
    void cmd_Cerrar_Click();
    void tlb_BotoneraCostes_ButtonClick(int boton);  // 1 nuevo, 2 modificar, 3 eliminar
    void tlb_BotoneraImprimir_ButtonClick();
    void lvw_CostesDeReferencia_ColumnClick(int columna);
    void modificarCoste();
    void CargarCostesDeReferencia();

    bool validarDatos();

protected:
    bool cargar() override;
    QList<QWidget*> controlesCopia() const override;
    bool guardarAlSalir() override;

private:
    QLineEdit* caja(const QString& nombre) const;
    QList<QLineEdit*> cajasDomicilio() const;   // las nueve del domicilio y contacto
    void cargarDatosEstudio(qint64 codigo);
    void ponerDatosEstudio(const DatosContacto& d);
    void abrirFichaCoste(const QString& operacion, const QString& codigo);

    std::unique_ptr<Ui::frmConfiguracion> ui;
    QToolBar* tlb_BotoneraCostes = nullptr;
    QToolBar* tlb_BotoneraImprimir = nullptr;
    int m_columnaOrden = -1;
    Qt::SortOrder m_sentido = Qt::AscendingOrder;
};
