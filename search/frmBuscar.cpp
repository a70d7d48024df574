#include "search/frmBuscar.h"

#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "core/Fichas.h"
#include "ui_frmBuscar.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTreeView>

namespace {

// Pregunta antes de borrar, por clave de tabla: principio y columnas de la fila que la completan.
struct PreguntaBorrado {
    const char* tabla;  // "DATOS" vale para todas las tablas de impresos
    const char* texto;
    int columnas[2];    // -1: sin columna
};
const PreguntaBorrado PREGUNTAS[] = {
    {"PROYECTOS_A", "¿Está seguro de eliminar el proyecto con expediente número ", {0, -1}},
    {"ARQUITECTOS", "¿Está seguro de eliminar el arquitecto ", {1, 2}},
    {"APAREJADORES", "¿Está seguro de eliminar el arquitecto técnico ", {1, 2}},
    {"CONTRATISTAS", "¿Está seguro de eliminar el contratista ", {0, 1}},
    {"CLIENTES", "¿Está seguro de eliminar el cliente ", {0, 1}},
    {"DATOS", "¿Está seguro de eliminar el impreso seleccionado", {-1, -1}},
};

}  // namespace

frmBuscar::frmBuscar(QWidget* padre) : PantallaBusqueda(padre), ui(new Ui::frmBuscar)
{
    ui->setupUi(this);
    enlazarControles();
    ui->cmd_Nuevo->setIcon(Iconos::icono(QStringLiteral("nuevo"), 16));
    ui->cmd_Modificar->setIcon(Iconos::icono(QStringLiteral("editar"), 16));
    ui->cmd_Eliminar->setIcon(Iconos::icono(QStringLiteral("eliminar"), 16));
    ui->cmd_Ayuda->setIcon(Iconos::icono(QStringLiteral("ayuda"), 16));
    connect(ui->cmd_Nuevo, &QPushButton::clicked, this, &frmBuscar::cmd_Nuevo_Click);
    connect(ui->cmd_Modificar, &QPushButton::clicked, this, &frmBuscar::cmd_Modificar_Click);
    connect(ui->cmd_Eliminar, &QPushButton::clicked, this, &frmBuscar::cmd_Eliminar_Click);
}

frmBuscar::~frmBuscar() { delete ui; }

void frmBuscar::Form_Load()
{
    ActualizarLista = false;
    PantallaBusqueda::Form_Load();
}

void frmBuscar::habilitarOperaciones(bool habilitar)
{
    ui->cmd_Modificar->setEnabled(habilitar);
    ui->cmd_Eliminar->setEnabled(habilitar);
}

void frmBuscar::showEvent(QShowEvent* e)
{
    PantallaBusqueda::showEvent(e);
    if (m_activacionConectada)
        return;
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
        if (QMdiArea* area = sub->mdiArea()) {
            connect(area, &QMdiArea::subWindowActivated, this, [this, sub](QMdiSubWindow* activa) {
                if (activa == sub)
                    Form_Activate();
            });
            m_activacionConectada = true;
        }
}

bool frmBuscar::event(QEvent* e)
{
    // Fuera del área de ventanas hijas, la activación llega como la de cualquier ventana.
    if (e->type() == QEvent::WindowActivate && !qobject_cast<QMdiSubWindow*>(parentWidget()))
        Form_Activate();
    return PantallaBusqueda::event(e);
}

void frmBuscar::Form_Activate()
{
    guardia(nombreFormulario(), QStringLiteral("Form_Activate"), [&] {
        if (!ActualizarLista)
            return;
        BusquedaSilenciosa = false;
        tlb_BotoneraBuscar_Click();
        ActualizarLista = false;
    });
}

void frmBuscar::cmd_Nuevo_Click()
{
    setTag(QStringLiteral("ALTA"));
    realizarOperacion();
}

void frmBuscar::cmd_Modificar_Click()
{
    setTag(QStringLiteral("MODIFICAR"));
    realizarOperacion();
}

void frmBuscar::cmd_Eliminar_Click()
{
    setTag(QStringLiteral("ELIMINAR"));
    realizarOperacion();
    BusquedaSilenciosa = true;
    tlb_BotoneraBuscar_Click();
    BusquedaSilenciosa = false;
}

void frmBuscar::lvw_Resultados_DblClick()
{
    // Tras "Nuevo" el doble clic sigue dando de alta, hasta que se pulse Editar o Eliminar.
    if (tag() == QLatin1String("ELIMINAR") || tag().isEmpty())
        setTag(QStringLiteral("MODIFICAR"));
    realizarOperacion();
}

void frmBuscar::realizarOperacion()
{
    guardia(nombreFormulario(), QStringLiteral("realizarOperacion"), [&] {
        const QString operacion = tag();
        int fila = -1;
        PeticionFicha p{.tabla = Tabla, .tipoImpreso = TipoImpreso, .operacion = operacion, .claveRetorno = ClaveRetorno};
        if (operacion != QLatin1String("ALTA")) {
            fila = filaSeleccionada();
            if (fila < 0) {
                Mensajes::aviso(QStringLiteral("No hay ningún registro en la lista"));
                return;
            }
            p.codigoTexto = modelo()->clave(fila);
            if (!descripcionTabla() || descripcionTabla()->claveNumerica)
                p.codigo = p.codigoTexto.toLongLong();
        }
        if (operacion == QLatin1String("ALTA")) {
            if (!Fichas::abrir(p))
                return;
            if (Tabla == QLatin1String("ARQUITECTOS_AUTORES"))
                Pantallas::descargar(this);
        } else if (operacion == QLatin1String("MODIFICAR")) {
            Fichas::abrir(p);
        } else if (operacion == QLatin1String("ELIMINAR")) {
            eliminarRegistro(fila);
        }
    });
}

void frmBuscar::eliminarRegistro(int fila)
{
    const PreguntaBorrado* pregunta = nullptr;
    for (const PreguntaBorrado& p : PREGUNTAS)
        if (Tabla == QLatin1String(p.tabla)
            || (qstrcmp(p.tabla, "DATOS") == 0 && Tabla.startsWith(QLatin1String("DATOS"))))
            pregunta = &p;
    if (!pregunta || !descripcionTabla())
        return;
    QStringList partes;
    for (int c : pregunta->columnas)
        if (c >= 0)
            partes << modelo()->texto(fila, c);
    const QString texto = QString::fromUtf8(pregunta->texto) + partes.join(QLatin1Char(' ')) + QStringLiteral("?");
    if (Mensajes::pregunta(texto, Mensajes::Respuesta::No) != Mensajes::Respuesta::Si)
        return;

    const TablasBusqueda::Descripcion& d = *descripcionTabla();
    const QString clave = modelo()->clave(fila);
    {
        // Sin transacción ni cascada: sólo la fila del registro.
        UsoConexion uso;
        ejecutar(QStringLiteral("DELETE FROM %1 WHERE \"%2\" = ?").arg(d.origen, d.campoClave),
                 {d.claveNumerica ? QVariant(clave.toLongLong()) : QVariant(clave)});
    }
    cbo_CampoBusqueda->blockSignals(true);
    cbo_CampoBusqueda->setCurrentIndex(-1);
    cbo_CampoBusqueda->blockSignals(false);
    lbl_Titulo2->setEnabled(false);
    msk_ValorBusqueda->setEnabled(false);
    vaciarValor();
    modelo()->vaciar();
    establecerEstado(QString());
    Mensajes::informacion(QStringLiteral("Operación de borrado realizada correctamente"));
}
