#pragma once
#include "core/BaseDatos.h"
#include "core/CicloPantalla.h"
#include "core/Fichas.h"
#include "reports/TablaImpresos.h"
#include "search/frmBuscarSeleccionar.h"

class AyudaFecha;
class QAction;
class QLineEdit;
class QToolBar;
class QToolButton;

// Esqueleto común de las pantallas de impresos (frmDatosImpreso_...): el par del proyecto con su
// selector (si el impreso lo tiene), el pie (lugar y fecha), la copia para saber si hay cambios,
// la pregunta al salir y la barra con su único botón, que guarda el histórico y sus filas hijas,
// rehace la tabla temporal, confirma y abre la vista previa. Cada impreso pone sus campos, sus
// columnas y su tabla temporal; la tabla de impresos (TablaImpresos) dice el resto.
class DatosImpreso : public PantallaEdicion {
    Q_OBJECT
public:
    // Lo que fija quien la abre antes de Form_Load (el Tag lleva lo mismo que Operacion).
    QString Operacion;
    qint64 Clave = 0;

    const DefinicionImpreso& definicion() const { return *m_definicion; }
    // Variante en curso (código, informe, títulos); las pantallas de un solo impreso tienen una.
    virtual const VarianteImpreso& variante() const;

    // El par del proyecto; una pantalla sin él pone aquí su propio selector.
    virtual void img_Buscar_Click();
    virtual void img_Borrar_Click();
    void tlb_BotoneraImprimir_ButtonClick();

    bool validarDatos();
    // Escribe la fila de historial (y sus filas hijas) y devuelve su clave; 0 si no se ha escrito.
    qint64 guardarDatosHistorico();
    void guardarDatosTemporal();
    // Copia de los campos (cargarInformacionImpreso + código del impreso en cada pantalla).
    void cargarInformacionImpreso() { tomarCopia(); }
    bool cancelado() const { return cancelarCierre(); }

    static inline const QString PREGUNTA_SALIR = QStringLiteral("¿Desea guardar los cambios antes de salir?");

protected:
    DatosImpreso(const QString& pantalla, QWidget* padre);

    // Tras setupUi: busca los controles comunes por su nombre y los conecta.
    void enlazarControles();

    // Lo propio de cada impreso.
    virtual void aplicarLimites() {}
    virtual void valoresPorDefecto() {}                       // "ALTA"
    virtual void cargarCampos(const Consulta& fila) = 0;      // "MODIFICAR": sus columnas
    virtual Campos camposHistorico() const = 0;               // columnas en su orden, sin la marca de tipo
    // Filas que cuelgan de la de historial (líneas de factura, listas de personas), escritas en la
    // misma transacción con la clave de la fila.
    virtual void escribirFilasHijas(qint64 /*clave*/) {}
    virtual bool validarPropios() { return true; }            // entre el proyecto y el pie
    virtual void escribirTemporal() = 0;                      // filas de la tabla temporal
    // Tras confirmar: la vista previa de la variante. El certificado fin de obra pregunta antes el diseño.
    virtual void mostrarVistaPrevia();
    // Lo que escribe el proyecto elegido en el selector o dado de alta desde él.
    virtual void recibirProyecto(const Eleccion& e);
    virtual void recibirProyectoNuevo(const RegistroGuardado& r);

    QList<QWidget*> controlesCopia() const override;
    bool cargar() override;
    bool guardarAlSalir() override;

    // Valores comunes para las columnas.
    qint64 codigoProyecto() const;
    QString recortado(const QWidget* w) const;
    // Aviso de validación con el foco en el campo.
    bool avisar(QWidget* campo, const QString& texto);
    // Abre el selector de una tabla con las claves de selección y de retorno del impreso; lo
    // elegido, o lo dado de alta desde él, llega a la pantalla si sigue abierta.
    void abrirSelector(const QString& tabla, const QString& titulo, std::function<void(const Eleccion&)> alElegir,
                       AlGuardar alDarDeAlta);

    // Campos de fecha con máscara "99/99/9999" y su globo de ayuda: al entrar en uno se enseña
    // bajo él y se selecciona su texto; al salir se oculta.
    void prepararFechas(const QList<QLineEdit*>& campos);
    void mostrarAyuda(int mostrar);
    // Fecha de un campo con máscara tal como se guarda: ISO, o nula si el campo está vacío.
    static QVariant fechaGuardable(const QLineEdit* msk);
    // Fecha guardada (ISO) como se escribe en el campo con máscara; vacía si es nula.
    static QString fechaEnCampo(const QString& iso);

    // El par del proyecto (nulos si el impreso no tiene proyecto).
    QLineEdit* txt_CodProyecto = nullptr;
    QLineEdit* txt_Proyecto = nullptr;
    QToolButton* img_Buscar = nullptr;
    QToolButton* img_Borrar = nullptr;
    QLineEdit* txt_Lugar = nullptr;  // nulo si el pie sólo lleva la fecha
    QLineEdit* txt_Fecha = nullptr;
    QToolBar* tlb_BotoneraImprimir = nullptr;
    QAction* m_botonImprimir = nullptr;

private:
    AyudaFecha* m_ayuda = nullptr;
    QString m_pantalla;
    const DefinicionImpreso* m_definicion = nullptr;
};
