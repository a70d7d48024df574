#pragma once
#include "core/Fichas.h"
#include "search/PantallaBusqueda.h"

#include <QPointer>
#include <functional>

namespace Ui {
class frmBuscarSeleccionar;
}

// Fila marcada de un selector de varias elecciones (autores, arquitectos técnicos,
// constructores): clave "K" + código, número de colegiado y nombre completo.
struct FilaMarcada {
    QString clave;
    QString numero;
    QString nombreCompleto;
};

// Lo que el selector entrega a quien lo abrió al pulsar "Seleccionar".
struct Eleccion {
    QString tabla{};
    short posicion = 0;
    FilaResultado fila{};              // la seleccionada: clave sin la "K" y sus columnas
    qint64 codigo = 0;               // la clave como número (los costes la tienen de texto)
    QString nombreCompleto{};          // nombre y apellidos según la familia de la lista
    QList<FilaMarcada> marcadas{};     // listas con casillas: las marcadas, en el orden en que se ven

    QString texto(int columna) const { return fila.textos.value(columna); }
};

// Cómo se abre el selector y a quién devuelve lo elegido.
struct PeticionSelector {
    QString tabla{};
    QString claveLlamada{};           // Tag del selector ("SELECCIONAR_EN_PROYECTOS"...)
    QString titulo{};
    QString claveRetorno{};           // nombre de la ruta ("FRMPROYECTO_CLIENTE"...)
    short posicion = 0;             // botón o campo de quien llama, si tiene varios iguales
    QWidget* llamador = nullptr;    // recupera el frente y el foco tras la devolución
    // Devuelve false si quien llamó rechaza la fila (ya avisado): el selector sigue abierto.
    std::function<bool(const Eleccion&)> alElegir{};
    // Registro nuevo dado de alta con "Nuevo" desde el selector.
    AlGuardar alDarDeAlta{};
    // El registro nuevo entra marcado en la lista de este mismo selector, que sigue abierto.
    bool altaEnLaLista = false;
};

// Selector: la misma lista, abierta desde una ficha para elegir un registro y devolverlo.
class frmBuscarSeleccionar : public PantallaBusqueda {
    Q_OBJECT
public:
    explicit frmBuscarSeleccionar(QWidget* padre = nullptr);
    ~frmBuscarSeleccionar() override;

    // Descarga el selector que hubiera, fija tabla, clave de retorno, posición, clave de llamada
    // (Tag) y título, lo carga y lo enseña sin bloquear.
    static frmBuscarSeleccionar* abrir(const PeticionSelector& peticion);

    void cmd_Seleccionar_Click();
    void cmd_Nuevo_Click();
    void lvw_Resultados_DblClick() override;
    void realizarOperacion();

    // Filas de la lista, en el orden en que se ven, con su marca (listas de varias elecciones).
    QList<FilaResultado> filasResultado() const;
    FilaResultado filaElegida() const;  // la seleccionada; vacía si la lista no tiene filas
    Eleccion eleccion() const;
    // Una ficha nueva que vuelve al selector de autores se añade marcada.
    void agregarFila(const FilaResultado& fila);

protected:
    QString nombreFormulario() const override { return QStringLiteral("frmBuscarSeleccionar"); }
    bool esSelector() const override { return true; }
    void habilitarOperaciones(bool habilitar) override;

private:
    // Entrega la elección a quien llamó y se descarga; si la rechaza, se queda abierto.
    void devolverSeleccion();

    Ui::frmBuscarSeleccionar* ui;
    PeticionSelector m_peticion;
    QPointer<QWidget> m_llamador;
    bool m_fichaAbierta = false;
};
