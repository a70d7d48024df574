#pragma once
#include "core/Pantallas.h"

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
// Pestañas: 0 estudio, 1 "Parámetros", 2 carpetas, 3 costes de referencia.
class frmConfiguracion : public Pantalla {
    Q_OBJECT
public:
    explicit frmConfiguracion(QWidget* padre = nullptr);
    ~frmConfiguracion() override;

    static bool disponible();
    // Abre (o trae delante) la pantalla en la pestaña pedida.
    static frmConfiguracion* abrir(int pestana);
    QTabWidget* pestanas() const;

    void Form_Load();

    // Lo que abre el selector de arquitectos (frmBuscarSeleccionar).
    struct PeticionSelector {
        QString tabla;          // "ARQUITECTOS_SIMPLE" o "ARQUITECTOS_SOCIEDAD"
        QString tag;            // "SELECCIONAR_EN_CONFIGURACION"
        QString titulo;         // "Buscar arquitecto"
        QString claveRetorno;   // "FRMCONFIGURACION_ARQUITECTO_n" o "FRMCONFIGURACION_SOCIEDAD_PROFESIONAL"
        short posicion = 0;     // 1 a 4; 0 la sociedad
    };
    static PeticionSelector peticionSelector(int indice);
    // Sustituye la apertura de frmBuscarSeleccionar (pruebas); vacío, se abre el selector.
    static std::function<void(const PeticionSelector&)> abridorSelector;

    // Devolución del selector ("SELECCIONAR_EN_CONFIGURACION"): posición 1 a 4.
    void recibirArquitecto(int posicion, qint64 codigo, const QString& nombreCompleto, const QString& numero);
    void recibirSociedad(qint64 codigo, const QString& nombreCompleto, const QString& numeroRegistro);

    // Devolución de una ficha de arquitecto nueva (claves "FRMCONFIGURACION_..."): no escribe el código.
    struct DatosEstudio {
        QString domicilio, nif, codigoPostal, municipio, provincia, telefono, fax, movil, correo;
    };
    void recibirNuevoArquitecto(int posicion, const QString& nombre, const QString& numero, const DatosEstudio& datos);
    void recibirNuevaSociedad(const QString& nombre, const QString& numeroRegistro, const DatosEstudio& datos);

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
    bool PreguntarGuardarCambios() const;
    bool cancelarCierre() const { return m_cancelarCierre; }

protected:
    bool alDescargar() override;
    void showEvent(QShowEvent* e) override;

private:
    QLineEdit* caja(const QString& nombre) const;
    QList<QLineEdit*> cajasDomicilio() const;   // las nueve del domicilio y contacto
    QList<QWidget*> controlesCopia() const;
    void cargarDatosEstudio(qint64 codigo);
    void ponerDatosEstudio(const DatosEstudio& d);
    void tomarCopia();
    void abrirFichaCoste(const QString& operacion, const QString& codigo);

    std::unique_ptr<Ui::frmConfiguracion> ui;
    QToolBar* tlb_BotoneraCostes = nullptr;
    QToolBar* tlb_BotoneraImprimir = nullptr;
    QStringList m_copia;
    bool m_cargada = false;
    bool m_cancelarCierre = false;
    int m_columnaOrden = -1;
    Qt::SortOrder m_sentido = Qt::AscendingOrder;
};
