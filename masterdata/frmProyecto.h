#pragma once
#include "core/CicloPantalla.h"
#include "core/Fichas.h"
#include "search/frmBuscarSeleccionar.h"

#include <QList>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <memory>

class AyudaFecha;
class QTreeWidget;
class QTreeWidgetItem;

namespace Ui {
class frmProyecto;
}

// Ficha de un proyecto (Proyectos_A) con sus cuatro tablas de enlace: arquitectos con su
// participación, autores, arquitectos técnicos y constructores.
class frmProyecto : public PantallaEdicion {
    Q_OBJECT
public:
    explicit frmProyecto(QWidget* padre = nullptr);
    ~frmProyecto() override;

    // Lo que fija quien la abre: el modo va en el Tag ("ALTA" o "MODIFICAR").
    qint64 PryCod = 0;
    QString ClaveRetorno;  // nombre de la ruta de devolución; vacía si se abrió desde la lista
    AlGuardar alGuardar;   // recibe el proyecto nuevo (un impreso); vacío: se abre la lista tras el alta

    bool esAlta() const { return tag() == QLatin1String("ALTA"); }

    // Eventos.
    void cmd_Guardar_Click();
    void cmd_Cerrar_Click();
    void img_Buscar_Click(int index);
    void img_Borrar_Click(int index);
    void img_Porcentajes_Click();
    void lvw_Arquitectos_DblClick();

    // Lo que devuelven los selectores que abre cada botón.
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

protected:
    bool cargar() override;
    QList<QWidget*> controlesCopia() const override;
    bool guardarAlSalir() override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void cargarDatosProyecto();
    void seleccionarArquitectosAutores(frmBuscarSeleccionar* selector);
    void seleccionarAparejadores(frmBuscarSeleccionar* selector);
    void seleccionarConstructores(frmBuscarSeleccionar* selector);
    bool perteneceSociedad(qint64 codigo);
    bool validarDatos();
    bool guardar();
    void escribirProyecto();
    void mostrarAyuda(int mostrar);

    // Marcas de una fila de arquitecto: autor ("SI"), casilla de pertenecer a la sociedad y fila
    // de la propia sociedad (en azul).
    struct MarcasArquitecto {
        bool autor = false;
        bool perteneceSociedad = false;
        bool propiaSociedad = false;
    };
    QTreeWidgetItem* agregarFilaArquitecto(qint64 codigo, const QString& nombre, const QString& numero,
                                           const QString& porcentaje, MarcasArquitecto marcas);
    void enfocarLista();

    std::unique_ptr<Ui::frmProyecto> ui;
    AyudaFecha* m_ayuda = nullptr;
};

// Abre la ficha desde la lista de proyectos ("Nuevo proyecto", "Modificar proyecto"),
// descargando antes la que hubiera abierta.
bool abrirFichaProyecto(const PeticionFicha& peticion);
