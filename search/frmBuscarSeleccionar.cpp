#include "search/frmBuscarSeleccionar.h"

#include "search/DevolucionSelector.h"

#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "search/AperturaFichas.h"
#include "ui_frmBuscarSeleccionar.h"

frmBuscarSeleccionar::frmBuscarSeleccionar(QWidget* padre) : PantallaBusqueda(padre), ui(new Ui::frmBuscarSeleccionar)
{
    ui->setupUi(this);
    enlazarControles();
    ui->cmd_Seleccionar->setIcon(Iconos::icono(QStringLiteral("seleccionar"), 16));
    ui->cmd_Nuevo->setIcon(Iconos::icono(QStringLiteral("nuevo"), 16));
    ui->cmd_Ayuda->setIcon(Iconos::icono(QStringLiteral("ayuda"), 16));
    connect(ui->cmd_Seleccionar, &QPushButton::clicked, this, &frmBuscarSeleccionar::cmd_Seleccionar_Click);
    connect(ui->cmd_Nuevo, &QPushButton::clicked, this, &frmBuscarSeleccionar::cmd_Nuevo_Click);
}

frmBuscarSeleccionar::~frmBuscarSeleccionar() { delete ui; }

frmBuscarSeleccionar* frmBuscarSeleccionar::abrir(const QString& tabla, const QString& claveLlamada,
                                                  const QString& titulo, const QString& claveRetorno, short posicion)
{
    if (!Pantallas::descargar<frmBuscarSeleccionar>())
        return nullptr;
    auto* f = new frmBuscarSeleccionar;
    f->Tabla = tabla;
    f->ClaveRetorno = claveRetorno;
    f->Posicion = posicion;
    f->setTag(claveLlamada);
    f->setWindowTitle(titulo);
    f->Form_Load();
    Pantallas::mostrar(f);
    return f;
}

void frmBuscarSeleccionar::habilitarOperaciones(bool habilitar) { ui->cmd_Seleccionar->setEnabled(habilitar); }

void frmBuscarSeleccionar::cmd_Seleccionar_Click() { realizarOperacion(); }

void frmBuscarSeleccionar::cmd_Nuevo_Click()
{
    guardia(nombreFormulario(), QStringLiteral("cmd_Nuevo_Click"), [&] {
        const QString llamada = tag();
        setTag(QStringLiteral("ALTA"));
        m_fichaAbierta = false;
        realizarOperacion();
        setTag(llamada);
        // El selector de autores se queda abierto: el arquitecto nuevo se le añade marcado.
        if (m_fichaAbierta && ClaveRetorno != QLatin1String("FRMPROYECTO_AUTOR"))
            Pantallas::descargar(this);
    });
}

void frmBuscarSeleccionar::lvw_Resultados_DblClick()
{
    if (tag() == QLatin1String("ELIMINAR") || tag().isEmpty())
        setTag(QStringLiteral("MODIFICAR"));
    // En las listas con casillas el doble clic no elige: se confirma con el botón.
    if (Tabla == QLatin1String("ARQUITECTOS_AUTORES"))
        return;
    if (Tabla == QLatin1String("APAREJADORES") && ClaveRetorno == QLatin1String("FRMPROYECTO_APAREJADOR"))
        return;
    if (Tabla == QLatin1String("CONTRATISTAS") && ClaveRetorno == QLatin1String("FRMPROYECTO_CONSTRUCTOR"))
        return;
    realizarOperacion();
}

void frmBuscarSeleccionar::realizarOperacion()
{
    guardia(nombreFormulario(), QStringLiteral("realizarOperacion"), [&] {
        if (tag() == QLatin1String("ALTA")) {
            PeticionFicha p;
            p.tabla = Tabla;
            p.tipoImpreso = TipoImpreso;
            p.operacion = QStringLiteral("ALTA");
            p.claveRetorno = ClaveRetorno;
            p.llamador = this;
            m_fichaAbierta = abrirFicha(p);
            return;
        }
        if (filaSeleccionada() < 0) {
            Mensajes::aviso(QStringLiteral("No hay ningún registro en la lista"));
            return;
        }
        devolverSeleccion();
    });
}

void frmBuscarSeleccionar::devolverSeleccion()
{
    // Tras devolver, el selector se descarga; si la pantalla lo rechaza, se queda abierto.
    if (devolverSeleccionA(this))
        Pantallas::descargar(this);
}

QList<FilaResultado> frmBuscarSeleccionar::filasResultado() const { return modelo()->filas(); }

FilaResultado frmBuscarSeleccionar::filaElegida() const
{
    const int f = filaSeleccionada();
    return f < 0 ? FilaResultado{} : modelo()->fila(f);
}

void frmBuscarSeleccionar::agregarFila(const FilaResultado& fila) { modelo()->agregarFila(fila); }
