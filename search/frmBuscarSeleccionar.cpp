#include "search/frmBuscarSeleccionar.h"

#include "core/Iconos.h"
#include "core/modFunciones.h"
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

frmBuscarSeleccionar* frmBuscarSeleccionar::abrir(const PeticionSelector& p)
{
    if (!Pantallas::descargar<frmBuscarSeleccionar>())
        return nullptr;
    auto* f = new frmBuscarSeleccionar;
    f->m_peticion = p;
    f->m_llamador = p.llamador;
    f->Tabla = p.tabla;
    f->ClaveRetorno = p.claveRetorno;
    f->Posicion = p.posicion;
    f->setTag(p.claveLlamada);
    f->setWindowTitle(p.titulo);
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
        if (m_fichaAbierta && !m_peticion.altaEnLaLista)
            Pantallas::descargar(this);
    });
}

void frmBuscarSeleccionar::lvw_Resultados_DblClick()
{
    if (tag() == QLatin1String("ELIMINAR") || tag().isEmpty())
        setTag(QStringLiteral("MODIFICAR"));
    // En las listas con casillas el doble clic no elige: se confirma con el botón.
    if (TablasBusqueda::llevaCasillas(Tabla, ClaveRetorno))
        return;
    realizarOperacion();
}

void frmBuscarSeleccionar::realizarOperacion()
{
    guardia(nombreFormulario(), QStringLiteral("realizarOperacion"), [&] {
        if (tag() == QLatin1String("ALTA")) {
            PeticionFicha p{.tabla = Tabla, .tipoImpreso = TipoImpreso, .operacion = QStringLiteral("ALTA"), .claveRetorno = ClaveRetorno};
            if (m_peticion.altaEnLaLista) {
                QPointer<frmBuscarSeleccionar> yo(this);
                p.alGuardar = [yo](const RegistroGuardado& r) {
                    if (yo)
                        yo->agregarFila({QString::number(r.codigo), r.columnas, true});
                };
            } else {
                // Abierta desde un selector, la ficha nunca abre la lista del menú tras el alta.
                p.alGuardar = m_peticion.alDarDeAlta ? m_peticion.alDarDeAlta : [](const RegistroGuardado&) {};
            }
            m_fichaAbierta = Fichas::abrir(p);
            return;
        }
        if (filaSeleccionada() < 0) {
            Mensajes::aviso(QStringLiteral("No hay ningún registro en la lista"));
            return;
        }
        devolverSeleccion();
    });
}

Eleccion frmBuscarSeleccionar::eleccion() const
{
    Eleccion e;
    e.tabla = Tabla;
    e.posicion = Posicion;
    e.fila = filaElegida();
    if (descripcionTabla() && descripcionTabla()->claveNumerica)
        e.codigo = e.fila.clave.toLongLong();
    // Nombre y apellidos van en las columnas 1 y 2 en las familias de colegiados, y en la 0 y
    // la 1 en clientes y contratistas.
    const bool colegiados = TablasBusqueda::esFamiliaArquitectos(Tabla) || Tabla == QLatin1String("APAREJADORES");
    const int n = colegiados ? 1 : 0;
    const auto nombre = [n](const FilaResultado& f) { return (f.textos.value(n) + QLatin1Char(' ') + f.textos.value(n + 1)).trimmed(); };
    e.nombreCompleto = nombre(e.fila);
    for (const FilaResultado& f : filasResultado())
        if (f.marcada)
            e.marcadas << FilaMarcada{QStringLiteral("K") + f.clave, colegiados ? f.textos.value(0) : QString(), nombre(f)};
    return e;
}

void frmBuscarSeleccionar::devolverSeleccion()
{
    const bool aceptada = !m_peticion.alElegir || m_peticion.alElegir(eleccion());
    if (!aceptada)
        return;
    QPointer<QWidget> llamador = m_llamador;
    Pantallas::descargar(this);
    Pantallas::activar(llamador);
}

QList<FilaResultado> frmBuscarSeleccionar::filasResultado() const { return modelo()->filas(); }

FilaResultado frmBuscarSeleccionar::filaElegida() const
{
    const int f = filaSeleccionada();
    return f < 0 ? FilaResultado{} : modelo()->fila(f);
}

void frmBuscarSeleccionar::agregarFila(const FilaResultado& fila) { modelo()->agregarFila(fila); }
