#pragma once
#include "core/Pantallas.h"

#include <QList>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <memory>

class AyudaFecha;
class QTreeWidget;
class QTreeWidgetItem;
class Transaccion;
class frmBuscarSeleccionar;
struct PeticionFicha;

namespace Ui {
class frmProyecto;
}

// Fila marcada de un selector de varias elecciones (autores, arquitectos técnicos,
// constructores): clave "K" + código, número de colegiado y nombre completo.
struct FilaMarcada {
    QString clave;
    QString numero;
    QString nombreCompleto;
};

// Ficha de un proyecto (Proyectos_A) con sus cuatro tablas de enlace: arquitectos con su
// participación, autores, arquitectos técnicos y constructores.
class frmProyecto : public Pantalla {
    Q_OBJECT
public:
    explicit frmProyecto(QWidget* padre = nullptr);
    ~frmProyecto() override;

    // Lo que fija quien la abre: el modo va en el Tag ("ALTA" o "MODIFICAR").
    qint64 PryCod = 0;
    QString ClaveRetorno;  // vacía si se abrió desde la lista de proyectos

    bool esAlta() const { return tag() == QLatin1String("ALTA"); }

    // Form_Load: una sola vez (la llama quien abre; si no, al enseñarse).
    void Form_Load();

    // Eventos.
    void cmd_Guardar_Click();
    void cmd_Cerrar_Click();
    void img_Buscar_Click(int index);
    void img_Borrar_Click(int index);
    void img_Porcentajes_Click();
    void lvw_Arquitectos_DblClick();

    // Devolución del selector (clave de llamada "SELECCIONAR_EN_PROYECTOS").
    // ARQUITECTOS: false si ya está en la lista (avisado; el selector sigue abierto).
    bool recibirArquitecto(qint64 codigo, const QString& nombreCompleto, const QString& numero);
    // ARQUITECTOS_AUTORES, APAREJADORES, CONTRATISTAS: sólo las filas marcadas, en su orden.
    void recibirAutores(const QList<FilaMarcada>& marcadas);
    void recibirAparejadores(const QList<FilaMarcada>& marcadas);
    void recibirConstructores(const QList<FilaMarcada>& marcadas);
    // CLIENTES: el cliente y, según su esR, su representante.
    void recibirCliente(qint64 codigo, const QString& nif, const QString& nombreCompleto);
    // COORDINADOR_SS, y también el arquitecto nuevo con "FRMPROYECTO_COORDINADOR".
    void recibirCoordinador(qint64 codigo, const QString& nombreCompleto);

    // Registros nuevos dados de alta desde un selector abierto por esta ficha.
    void recibirArquitectoNuevo(qint64 codigo, const QString& nombreCompleto, const QString& numero);  // FRMPROYECTO_ARQUITECTO
    void recibirClienteNuevo(qint64 codigo, const QString& nif, const QString& nombreCompleto,
                             const QString& codRepresentante, const QString& nifRepresentante,
                             const QString& nombreRepresentante, const QString& representacion);  // FRMPROYECTO_CLIENTE
    void recibirAparejadorNuevo(qint64 codigo, const QString& nombreCompleto);   // FRMPROYECTO_APAREJADOR
    void recibirConstructorNuevo(qint64 codigo, const QString& nombreCompleto);  // FRMPROYECTO_CONSTRUCTOR

    // ¿Algo difiere de la copia tomada al cargar o al guardar?
    bool PreguntarGuardarCambios() const;
    // Cierto si el último guardado no pasó la validación.
    bool cancelarCierre() const { return m_cancelarCierre; }

protected:
    bool alDescargar() override;
    void showEvent(QShowEvent* e) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    // Fila de la copia de la lista: clave, texto, columnas 1 a 3 y marca.
    struct CopiaFila {
        QString clave, texto, numero, porcentaje, autor, marcada;
    };

    void cargarDatosProyecto();
    void cargarInformacionProyecto();
    void seleccionarArquitectosAutores(frmBuscarSeleccionar* selector);
    void seleccionarAparejadores(frmBuscarSeleccionar* selector);
    void seleccionarConstructores(frmBuscarSeleccionar* selector);
    bool perteneceSociedad(qint64 codigo);
    bool validarDatos();
    bool guardar();
    void mostrarAyuda(int mostrar);
    void devolverAFormulario();
    void terminarSalidaPendiente();

    QTreeWidgetItem* agregarFilaArquitecto(qint64 codigo, const QString& nombre, const QString& numero,
                                           const QString& porcentaje, bool autor, bool marcada, bool sociedad);
    void enfocarLista();
    QList<QWidget*> controlesCopia() const;

    std::unique_ptr<Ui::frmProyecto> ui;
    AyudaFecha* m_ayuda = nullptr;
    bool m_cargada = false;
    bool m_cancelarCierre = false;
    bool m_descargando = false;

    QStringList m_copiaCampos;
    QList<CopiaFila> m_copiaLista;
    bool m_copiaListaVacia = true;

    // Salida del guardado sin el proyecto: la transacción queda abierta hasta que el usuario
    // vuelve a actuar (o se cierra la ficha), y entonces se deshace.
    std::unique_ptr<Transaccion> m_transaccionPendiente;
    bool m_cursorPendiente = false;
    QPointer<QObject> m_vigilante;  // espera la siguiente acción del usuario
};

// Abre la ficha desde la lista de proyectos ("Nuevo proyecto", "Modificar proyecto"),
// descargando antes la que hubiera abierta.
bool abrirFichaProyecto(const PeticionFicha& peticion);
