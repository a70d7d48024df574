#pragma once
#include "core/BaseDatos.h"
#include "core/Pantallas.h"
#include "forms/TablaImpresos.h"

#include <QStringList>

class QAction;
class QLineEdit;
class QToolBar;
class QToolButton;

// Esqueleto común de las pantallas de impresos (frmDatosImpreso_...): par del proyecto con su
// selector, pie (lugar y fecha), la copia para saber si hay cambios, la pregunta al salir y la
// barra con su único botón, que guarda el histórico, rehace la tabla temporal y abre la vista
// previa. Cada impreso pone sus campos, sus columnas y su tabla temporal.
class DatosImpreso : public Pantalla {
    Q_OBJECT
public:
    // Lo que fija quien la abre antes de Form_Load (el Tag lleva lo mismo que Operacion).
    QString Operacion;
    qint64 Clave = 0;

    const DefinicionImpreso& definicion() const { return *m_definicion; }
    // Variante en curso (código, informe, títulos); las pantallas de un solo impreso tienen una.
    virtual const VarianteImpreso& variante() const;

    // Se ejecuta una vez: quien abre la llama tras fijar Operacion, Tag y Clave; si no, al enseñarse.
    void Form_Load();
    void img_Buscar_Click();
    void img_Borrar_Click();
    void tlb_BotoneraImprimir_ButtonClick();

    bool validarDatos();
    void guardarDatosHistorico();
    void guardarDatosTemporal();
    bool PreguntarGuardarCambios() const;
    // Copia de los campos (cargarInformacionImpreso + código del impreso en cada pantalla).
    void cargarInformacionImpreso();
    bool cancelado() const { return m_cancelar; }

    static inline const QString PREGUNTA_SALIR = QStringLiteral("¿Desea guardar los cambios antes de salir?");
    static inline const QString AVISO_FALLO = QStringLiteral(
        "La operación no se ha podido realizar correctamente.\nPor favor, inténtelo de nuevo");

protected:
    DatosImpreso(const QString& pantalla, QWidget* padre);

    // Tras setupUi: busca los controles comunes por su nombre y los conecta.
    void enlazarControles();

    // Lo propio de cada impreso.
    virtual void aplicarLimites() {}
    virtual void valoresPorDefecto() {}                       // "ALTA"
    virtual void cargarCampos(const Consulta& fila) = 0;      // "MODIFICAR": sus columnas
    virtual Campos camposHistorico() const = 0;               // columnas en su orden, sin la marca de tipo
    virtual bool validarPropios() { return true; }            // entre el proyecto y el pie
    virtual void escribirTemporal() = 0;                      // filas de la tabla temporal
    virtual QList<QWidget*> controlesCopia() const;           // campos que entran en la copia

    // Valores comunes para las columnas.
    qint64 codigoProyecto() const;
    QString recortado(const QWidget* w) const;
    static QString textoControl(const QWidget* w);            // textos tal cual, opciones "1"/"0"
    // Aviso de validación con el foco en el campo.
    bool avisar(QWidget* campo, const QString& texto);

    bool alDescargar() override;
    void showEvent(QShowEvent* e) override;

    QLineEdit* txt_CodProyecto = nullptr;
    QLineEdit* txt_Proyecto = nullptr;
    QLineEdit* txt_Lugar = nullptr;
    QLineEdit* txt_Fecha = nullptr;
    QToolButton* img_Buscar = nullptr;
    QToolButton* img_Borrar = nullptr;
    QToolBar* tlb_BotoneraImprimir = nullptr;
    QAction* m_botonImprimir = nullptr;

private:
    QString m_pantalla;
    const DefinicionImpreso* m_definicion = nullptr;
    QStringList m_copia;
    bool m_cargada = false;
    bool m_cancelar = false;
};
