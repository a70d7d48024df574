#include "masterdata/frmOpcionesArquitecto.h"

#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "masterdata/Porcentajes.h"
#include "ui_frmOpcionesArquitecto.h"

#include <QSignalBlocker>
#include <QTreeWidget>

namespace {
const QString FORMULARIO = QStringLiteral("frmOpcionesArquitecto");
}

frmOpcionesArquitecto::frmOpcionesArquitecto(QTreeWidget* lvw, QTreeWidgetItem* fila, QWidget* padre)
    : Dialogo(padre), ui(std::make_unique<Ui::frmOpcionesArquitecto>()), m_lista(lvw), m_fila(fila)
{
    ui->setupUi(this);
    setWindowIcon(Iconos::icono(QStringLiteral("porcentajes")));
    instalarFiltroPorcentaje(ui->txt_Porcentaje);
    connect(ui->chk_Sociedad, &QCheckBox::toggled, this, [this] { chk_Sociedad_Click(); });
    connect(ui->cmd_Aceptar, &QPushButton::clicked, this, [this] { cmd_Aceptar_Click(); });
    if (m_fila) {
        ui->txt_Porcentaje->setText(m_fila->text(COLUMNA_PORCENTAJE));
        ui->chk_Sociedad->setChecked(esPropiaSociedad(m_fila));
        porcentajeOriginal = m_fila->text(COLUMNA_PORCENTAJE);
    }
    chk_Sociedad_Click();
}

frmOpcionesArquitecto::~frmOpcionesArquitecto() = default;

void frmOpcionesArquitecto::chk_Sociedad_Click()
{
    ui->txt_Porcentaje->setEnabled(!ui->chk_Sociedad->isChecked());
}

void frmOpcionesArquitecto::cmd_Aceptar_Click()
{
    guardia(FORMULARIO, QStringLiteral("cmd_Aceptar_Click"), [&] {
        QTreeWidget* lvw = m_lista;
        if (!lvw || !m_fila)
            return;
        // Los cambios hechos aquí no son clics del usuario en la casilla.
        const QSignalBlocker bloqueo(lvw);
        const bool sociedad = ui->chk_Sociedad->isChecked();
        if (!sociedad) {
            const QString t = ui->txt_Porcentaje->text().trimmed();
            m_fila->setText(COLUMNA_PORCENTAJE, t.isEmpty() ? QString() : Formato::formatear(Formato::aNumero(t), QStringLiteral("###0.00")));
            pintarFila(m_fila, COLOR_FILA_NORMAL);
        } else {
            // Sólo una propia sociedad; se compara por el porcentaje que tenía la fila editada.
            for (int i = 0; i < lvw->topLevelItemCount(); ++i) {
                QTreeWidgetItem* f = lvw->topLevelItem(i);
                if (esPropiaSociedad(f) && f->text(COLUMNA_PORCENTAJE) != porcentajeOriginal) {
                    Mensajes::aviso(QStringLiteral("Ya ha incluido una sociedad como su propia sociedad y sólo puede existir una como tal.\n"
                                                   "Por favor, desmárquela como su propia sociedad antes de continuar"));
                    return;
                }
            }
            bool esSociedad = false;
            bool hallado = false;
            {
                UsoConexion uso;
                Consulta c(QStringLiteral("SELECT * FROM OTROS WHERE UCASE(Categoria) = 'ARQUITECTO' AND Codigo_Cli = ?"),
                           {claveFila(m_fila).mid(1).toLongLong()});
                if (c.siguiente()) {
                    hallado = true;
                    esSociedad = !c.nulo(QStringLiteral("esS")) && c.valor(QStringLiteral("esS")).toInt() != 0;
                }
            }
            if (!hallado) {
                Mensajes::aviso(QStringLiteral("No se ha podido obtener los datos del arquitecto para comprobar si es sociedad o no"));
            } else if (!esSociedad) {
                Mensajes::aviso(QStringLiteral("El arquitecto seleccionado no es una sociedad.\n"
                                               "Se trata de una persona física, por lo que no se puede establecer como la propia sociedad"));
            } else {
                for (int i = 0; i < lvw->topLevelItemCount(); ++i)
                    pintarFila(lvw->topLevelItem(i), COLOR_FILA_NORMAL);
                pintarFila(m_fila, COLOR_PROPIA_SOCIEDAD);
                m_fila->setCheckState(0, Qt::Unchecked);
                m_fila->setText(COLUMNA_PORCENTAJE, QString());
            }
        }
        for (int i = 0; i < lvw->topLevelItemCount(); ++i) {
            QTreeWidgetItem* f = lvw->topLevelItem(i);
            if (f->text(COLUMNA_PORCENTAJE).trimmed().isEmpty() && !esPropiaSociedad(f)) {
                if (Mensajes::pregunta(QStringLiteral("Se han hallado en la lista de arquitectos asociados al proyecto arquitectos sin porcentaje de participación.\n"
                                                      "¿Desea que el programa reparta proporcionalmente el porcentaje de participación entre todos los arquitectos presentes en dicha lista?"))
                    == Mensajes::Respuesta::Si)
                    calcularPorcentajesParticipacion(lvw);
                break;
            }
        }
        lvw->viewport()->update();
        accept();
    });
}

frmOpcionesArquitecto* prepararOpcionesArquitecto(QTreeWidget* lvw)
{
    frmOpcionesArquitecto* f = nullptr;
    guardia(FORMULARIO, QStringLiteral("lvw_Arquitectos_DblClick"), [&] {
        if (!lvw)
            return;
        if (lvw->topLevelItemCount() == 0) {
            Mensajes::informacion(QStringLiteral("No hay arquitectos en la lista"));
            return;
        }
        const QList<QTreeWidgetItem*> sel = lvw->selectedItems();
        if (sel.isEmpty()) {
            Mensajes::aviso(QStringLiteral("Por favor, seleccione un arquitecto para modificar su porcentaje de participación"));
            return;
        }
        f = new frmOpcionesArquitecto(lvw, sel.first());
    });
    return f;
}

void abrirOpcionesArquitecto(QTreeWidget* lvw)
{
    std::unique_ptr<frmOpcionesArquitecto> f(prepararOpcionesArquitecto(lvw));
    if (!f)
        return;
    f->adjustSize();
    Pantallas::centrar(f.get());
    f->exec();
}

bool lvw_Arquitectos_ItemCheck(QTreeWidgetItem* fila)
{
    if (!fila || !esPropiaSociedad(fila) || fila->checkState(0) != Qt::Checked)
        return true;
    guardia(FORMULARIO, QStringLiteral("lvw_Arquitectos_ItemCheck"), [&] {
        Mensajes::aviso(QStringLiteral("No se puede incluir a la propia sociedad como arquitecto perteneciente a ella misma"));
        fila->setCheckState(0, Qt::Unchecked);
    });
    return false;
}

void conectarItemCheckArquitectos(QTreeWidget* lvw)
{
    QObject::connect(lvw, &QTreeWidget::itemChanged, lvw, [](QTreeWidgetItem* fila, int columna) {
        if (columna == 0)
            lvw_Arquitectos_ItemCheck(fila);
    });
}
