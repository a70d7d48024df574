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
    // Tipo de impreso que da la lista ("B1", "B3"...): elige la variante en las pantallas que dan
    // varios impresos; vacío, la primera.
    QString TipoImpreso;

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

    // Tras setupUi: busca los controles comunes por su nombre y los conecta. Los botones del
    // proyecto pueden ser el índice 0 de una matriz de botones ("img_Buscar_0").
    void enlazarControles(const QString& buscarProyecto = QStringLiteral("img_Buscar"),
                          const QString& borrarProyecto = QStringLiteral("img_Borrar"));

    // Lo propio de cada impreso.
    virtual void aplicarLimites() {}
    // Tras abrir la conexión, antes de los valores por omisión o de leer la fila: false detiene
    // la carga (y la pantalla queda sin copia), como la factura sin tipos de IVA e IRPF.
    virtual bool prepararCarga() { return true; }
    virtual void valoresPorDefecto() {}                       // "ALTA"
    virtual void cargarCampos(const Consulta& fila) = 0;      // "MODIFICAR": sus columnas
    virtual Campos camposHistorico() const = 0;               // columnas en su orden, sin la marca de tipo
    // Filas que cuelgan de la de historial (líneas de factura, listas de personas), escritas en la
    // misma transacción con la clave de la fila.
    virtual void escribirFilasHijas(qint64 /*clave*/) {}
    virtual bool validarPropios() { return true; }            // entre el proyecto y el pie
    virtual bool validarTrasPie() { return true; }            // tras el lugar y la fecha
    virtual void escribirTemporal() = 0;                      // filas de la tabla temporal
    // Tras confirmar: la vista previa de la variante. El certificado fin de obra pregunta antes el diseño.
    virtual void mostrarVistaPrevia();
    // Lo que escribe el proyecto elegido en el selector o dado de alta desde él.
    virtual void recibirProyecto(const Eleccion& e);
    virtual void recibirProyectoNuevo(const RegistroGuardado& r);

    QList<QWidget*> controlesCopia() const override;
    bool cargar() override;
    bool guardarAlSalir() override;

    // Abre el selector para esta pantalla: lo elegido y lo dado de alta llegan a las funciones dadas
    // mientras la pantalla siga abierta, y ella vuelve al frente. Sin clave de llamada, la del impreso.
    void abrirSelector(PeticionSelector p, const std::function<void(const Eleccion&)>& alElegir, const AlGuardar& alDarDeAlta = {});

    // Valores comunes para las columnas.
    qint64 codigoProyecto() const;
    QString recortado(const QWidget* w) const;
    // Aviso de validación con el foco en el campo.
    bool avisar(QWidget* campo, const QString& texto);

    // El par del proyecto (nulos si el impreso no tiene proyecto).
    QLineEdit* txt_CodProyecto = nullptr;
    QLineEdit* txt_Proyecto = nullptr;
    QToolButton* img_Buscar = nullptr;
    QToolButton* img_Borrar = nullptr;
    QLineEdit* txt_Lugar = nullptr;  // nulo si el pie sólo lleva la fecha
    QLineEdit* txt_Fecha = nullptr;
    QToolBar* tlb_BotoneraImprimir = nullptr;
    QAction* m_botonImprimir = nullptr;

    // Petición de un selector que devuelve un registro (nombre completo y código) a un par de la
    // pantalla, elegido o dado de alta desde él; "recibido" corre tras escribirlo. buscarPar la abre.
    PeticionSelector peticionPar(PeticionSelector peticion, QLineEdit* codigo, QLineEdit* nombre, std::function<void()> recibido = {});
    void buscarPar(const PeticionSelector& peticion, QLineEdit* codigo, QLineEdit* nombre);
    // ---- Campos de fecha con máscara y pestañas (A4, CSS, A5...)
    // Máscara "99/99/9999" y globo de ayuda de la fecha: al entrar se enseña (mostrarAyuda(1)) y
    // se selecciona el contenido; al salir se oculta.
    void prepararFechas(const QList<QLineEdit*>& campos);
    void mostrarAyuda(int mostrar);
    // La fecha del campo, nula con la máscara vacía: ISO para el histórico y el proyecto,
    // "dd/mm/aaaa" para la tabla temporal (lo que se imprime).
    static QVariant fechaHistorico(const QLineEdit* campo);
    static QVariant fechaTemporal(const QLineEdit* campo);
    // Pone en el campo una fecha guardada (ISO o "dd/mm/aaaa"); nula o ilegible lo deja vacío.
    static void ponerFecha(QLineEdit* campo, const QVariant& guardada);
    // Trae al frente las pestañas que contienen el campo: avisar() lo hace antes de darle el foco.
    static void mostrarPestana(QWidget* campo);

private:
    QString m_pantalla;
    const DefinicionImpreso* m_definicion = nullptr;
    AyudaFecha* m_ayudaFecha = nullptr;
};
