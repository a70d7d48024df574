#include "contracts/frmContratos.h"

#include "contracts/RegistroContratos.h"
#include "contracts/frmAddModContrato.h"
#include "core/modFunciones.h"
#include "ui_frmContratos.h"

#include <QApplication>
#include <QFileInfo>
#include <QHeaderView>
#include <QMdiArea>
#include <QScrollBar>
#include <QMouseEvent>

using RegistroContratos::Contrato;

namespace {
const QString FORMULARIO = QStringLiteral("frmContratos");
constexpr int ROL_CLAVE_NODO = Qt::UserRole;
}  // namespace

frmContratos::frmContratos(QWidget* padre) : Pantalla(padre), ui(new Ui::frmContratos)
{
    ui->setupUi(this);
    setWindowIcon(QApplication::windowIcon());
    connect(ui->cmd_Nuevo, &QPushButton::clicked, this, &frmContratos::cmd_Nuevo_Click);
    connect(ui->cmd_Abrir, &QPushButton::clicked, this, &frmContratos::cmd_Abrir_Click);
    connect(ui->cmd_Editar, &QPushButton::clicked, this, &frmContratos::cmd_Editar_Click);
    connect(ui->cmd_Borrar, &QPushButton::clicked, this, &frmContratos::cmd_Borrar_Click);
    // Las pulsaciones de la lista llegan también sobre su parte vacía, como en la lista de siempre.
    ui->lvw_Documentos->viewport()->installEventFilter(this);
    cargarArbol();
    connect(ui->tre_1, &QTreeWidget::currentItemChanged, this, &frmContratos::tre_1_DblClick);
    connect(ui->tre_1, &QTreeWidget::itemDoubleClicked, this, &frmContratos::tre_1_DblClick);
    // El primer tipo queda elegido: la lista enseña sus documentos desde el principio.
    ui->tre_1->setCurrentItem(ui->tre_1->topLevelItem(0));
}

frmContratos::~frmContratos() { delete ui; }

frmContratos* frmContratos::abrir()
{
    frmContratos* f = Pantallas::cargada<frmContratos>();
    // La que ya estaba abierta vuelve a leer su lista: otro puesto puede haber cambiado algo.
    if (f)
        f->tre_1_DblClick();
    else
        f = new frmContratos;
    Pantallas::mostrar(f);
    return f;
}

void frmContratos::cargarArbol()
{
    guardia(FORMULARIO, QStringLiteral("cargarArbol"), [&] {
        ui->tre_1->clear();
        for (const RegistroContratos::Tipo& t : RegistroContratos::tipos()) {
            auto* nodo = new QTreeWidgetItem(ui->tre_1, {t.nodo});
            nodo->setData(0, ROL_CLAVE_NODO, t.clave);
        }
    });
}

QString frmContratos::tipoElegido() const
{
    const QTreeWidgetItem* nodo = ui->tre_1->currentItem();
    return nodo ? RegistroContratos::tipoDeClave(nodo->data(0, ROL_CLAVE_NODO).toString()) : QString();
}

void frmContratos::tre_1_DblClick()
{
    guardia(FORMULARIO, QStringLiteral("tre_1_DblClick"), [&] {
        ui->lvw_Documentos->clear();
        const QString tipo = tipoElegido();
        if (tipo.isEmpty())
            return;
        for (const Contrato& k : RegistroContratos::deTipo(tipo)) {
            auto* fila = new QTreeWidgetItem(ui->lvw_Documentos, {k.nombre, k.ruta, k.plantilla});
            ponerClaveFila(fila, QStringLiteral("K") + QString::number(k.clave));
        }
        ajustarColumnas(ui->lvw_Documentos);
    });
}

// Las columnas de la lista enteras a la vista al abrirse, sin salirse de la principal.
QSize frmContratos::sizeHint() const
{
    const QSize diseno = Pantalla::sizeHint();
    const QTreeWidget* lista = ui->lvw_Documentos;
    const int necesario = ui->tre_1->maximumWidth() + lista->header()->length() + 2 * lista->frameWidth()
                          + lista->verticalScrollBar()->sizeHint().width() + 40;
    int ancho = std::max(diseno.width(), necesario);
    if (QMdiArea* area = Pantallas::areaPrincipal())
        ancho = std::min(ancho, std::max(diseno.width(), area->viewport()->width() - 20));
    return {ancho, diseno.height()};
}

qint64 frmContratos::claveElegida()
{
    if (ui->lvw_Documentos->topLevelItemCount() == 0) {
        Mensajes::informacion(QStringLiteral("No hay documentos en la lista"));
        return 0;
    }
    const QList<QTreeWidgetItem*> elegidas = ui->lvw_Documentos->selectedItems();
    if (elegidas.isEmpty()) {
        Mensajes::aviso(QStringLiteral("Por favor, seleccione un documento en la lista"));
        return 0;
    }
    return claveFila(elegidas.first()).mid(1).toLongLong();
}

bool frmContratos::leerElegido(Contrato& contrato)
{
    const qint64 clave = claveElegida();
    if (clave == 0)
        return false;
    if (!RegistroContratos::leer(clave, contrato)) {
        Mensajes::aviso(QStringLiteral("No se ha podido encontrar el documento seleccionado en la base de datos"));
        return false;
    }
    if (contrato.ruta.trimmed().isEmpty()) {
        Mensajes::aviso(QStringLiteral("No se tiene definida la ruta al documento seleccionado"));
        return false;
    }
    return true;
}

void frmContratos::cmd_Nuevo_Click()
{
    guardia(FORMULARIO, QStringLiteral("cmd_Nuevo_Click"), [&] { frmAddModContrato::alta(tipoElegido()); });
}

void frmContratos::cmd_Abrir_Click()
{
    const QString procedimiento = QStringLiteral("cmd_Abrir_Click");
    guardia(FORMULARIO, procedimiento, [&] {
        Contrato k;
        if (!leerElegido(k))
            return;
        if (!QFileInfo(k.ruta).isFile()) {
            // Movido o borrado a mano, o una copia que falló tras anotar el documento.
            Mensajes::aviso(QStringLiteral("No se ha podido encontrar el fichero asociado al documento que está abriendo"));
            escribirLog(ErrorPrograma(53, QStringLiteral("No se encuentra el fichero ") + Rutas::nativa(k.ruta)), NOMBRE_PROGRAMA,
                        FORMULARIO, procedimiento, 0, Mostrar::No);
            return;
        }
        RegistroContratos::abrirDocumento(k.ruta, FORMULARIO, procedimiento);
    });
}

void frmContratos::cmd_Editar_Click()
{
    const QString procedimiento = QStringLiteral("cmd_Editar_Click");
    guardia(FORMULARIO, procedimiento, [&] {
        Contrato k;
        if (!leerElegido(k))
            return;
        if (!QFileInfo(k.ruta).isFile())
            Mensajes::aviso(QStringLiteral("No se ha podido encontrar el fichero asociado al documento que se está editando.")
                            + QStringLiteral("\n") + QStringLiteral("Deberá establecerlo a continuación desde la pantalla de edición"));
        frmAddModContrato::modificar(k);
    });
}

void frmContratos::cmd_Borrar_Click()
{
    guardia(FORMULARIO, QStringLiteral("cmd_Borrar_Click"), [&] {
        const qint64 clave = claveElegida();
        if (clave == 0)
            return;
        if (Mensajes::pregunta(QStringLiteral("¿Realmente desea borrar del programa la referencia al documento seleccionado?")
                               + QStringLiteral("\n\n") + QStringLiteral("NOTA: El fichero físico NO será eliminado de su ordenador"))
            != Mensajes::Respuesta::Si)
            return;
        // Sólo la fila del registro: el fichero se queda donde está.
        bool hallado = false;
        {
            UsoConexion uso;
            hallado = !escalar(QStringLiteral("SELECT Clave FROM Contratos WHERE Clave = ?"), {clave}).isNull();
            if (hallado)
                ejecutar(QStringLiteral("DELETE FROM Contratos WHERE Clave = ?"), {clave});
        }
        tre_1_DblClick();
        if (!hallado) {
            Mensajes::aviso(QStringLiteral("No se ha podido encontrar el documento seleccionado en la base de datos"));
            return;
        }
        Mensajes::informacion(QStringLiteral("Referencia al documento eliminada correctamente de la base de datos"));
    });
}

void frmContratos::lvw_Documentos_Click()
{
    guardia(FORMULARIO, QStringLiteral("lvw_Documentos_Click"), [&] {
        if (ui->lvw_Documentos->selectedItems().isEmpty())
            Mensajes::aviso(QStringLiteral("Por favor, seleccione un documento en la lista"));
    });
}

void frmContratos::lvw_Documentos_DblClick()
{
    guardia(FORMULARIO, QStringLiteral("lvw_Documentos_DblClick"), [&] {
        if (ui->lvw_Documentos->topLevelItemCount() == 0) {
            Mensajes::informacion(QStringLiteral("No hay documentos en la lista"));
            return;
        }
        if (ui->lvw_Documentos->selectedItems().isEmpty()) {
            Mensajes::aviso(QStringLiteral("Por favor, seleccione un documento para abrir"));
            return;
        }
        cmd_Abrir_Click();
    });
}

bool frmContratos::eventFilter(QObject* objeto, QEvent* evento)
{
    const QEvent::Type tipo = evento->type();
    if (objeto == ui->lvw_Documentos->viewport() && (tipo == QEvent::MouseButtonRelease || tipo == QEvent::MouseButtonDblClick)
        && static_cast<QMouseEvent*>(evento)->button() == Qt::LeftButton) {
        if (tipo == QEvent::MouseButtonRelease)
            lvw_Documentos_Click();
        else
            lvw_Documentos_DblClick();
    }
    return Pantalla::eventFilter(objeto, evento);
}
