#include "forms/frmDatosImpreso_A2.h"

#include "core/Filtros.h"
#include "ui_frmDatosImpreso_A2.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>

using BloquesImpreso::CampoImpreso;

namespace {

// Una línea arriba o abajo: el paso es lo que ocupa una línea con su separación.
void desplazar(QScrollArea* lista, int lineas)
{
    const auto* rejilla = qobject_cast<const QGridLayout*>(lista->widget()->layout());
    const QLayoutItem* celda = rejilla ? rejilla->itemAtPosition(0, 2) : nullptr;
    const int alto = celda ? celda->sizeHint().height() + rejilla->verticalSpacing() : 28;
    QScrollBar* barra = lista->verticalScrollBar();
    barra->setValue(barra->value() + lineas * alto);
}

QString numeroColumna(int linea) { return QStringLiteral("%1").arg(linea + 1, 2, 10, QLatin1Char('0')); }

}  // namespace

frmDatosImpreso_A2::frmDatosImpreso_A2(QWidget* padre)
    : DatosImpreso(QStringLiteral("frmDatosImpreso_A2"), padre), ui(std::make_unique<Ui::frmDatosImpreso_A2>())
{
    ui->setupUi(this);
    enlazarControles();
    connect(ui->cmd_Arriba_Edificacion, &QToolButton::clicked, this, &frmDatosImpreso_A2::cmd_Arriba_Edificacion_Click);
    connect(ui->cmd_Abajo_Edificacion, &QToolButton::clicked, this, &frmDatosImpreso_A2::cmd_Abajo_Edificacion_Click);
    connect(ui->cmd_Arriba_Urbanismo, &QToolButton::clicked, this, &frmDatosImpreso_A2::cmd_Arriba_Urbanismo_Click);
    connect(ui->cmd_Abajo_Urbanismo, &QToolButton::clicked, this, &frmDatosImpreso_A2::cmd_Abajo_Urbanismo_Click);

    // Columnas del histórico en su orden; la columna n es la línea n - 1.
    m_campos << CampoImpreso{.columna = QStringLiteral("PRYNOM"), .control = txt_Proyecto}
             << CampoImpreso{.columna = QStringLiteral("PRYCOD"), .control = txt_CodProyecto, .numerico = true};
    for (int i = 0; i < LINEAS; ++i) {
        auto* ejemplares = findChild<QLineEdit*>(QStringLiteral("txt_NumEjemplares_%1").arg(i));
        Q_ASSERT(ejemplares);
        instalarFiltroNumeros(ejemplares);
        m_campos << CampoImpreso{.columna = QStringLiteral("NDOC") + numeroColumna(i), .control = ejemplares, .numerico = true};
    }
    for (int i = 0; i < LINEAS; ++i) {
        auto* vb = findChild<QCheckBox*>(QStringLiteral("chk_VB_%1").arg(i));
        Q_ASSERT(vb);
        m_campos << CampoImpreso{.columna = QStringLiteral("VBDOC") + numeroColumna(i), .control = vb};
    }
    for (int j = 0; j < int(std::size(LINEAS_LIBRES)); ++j) {
        auto* titulo = findChild<QLineEdit*>(QStringLiteral("txt_NombreDocumento_%1").arg(j));
        Q_ASSERT(titulo);
        m_campos << CampoImpreso{.columna = QStringLiteral("TXTDOC") + numeroColumna(LINEAS_LIBRES[j]), .control = titulo};
    }
    m_campos << CampoImpreso{.columna = QStringLiteral("OBSDOC"), .control = ui->txt_Observaciones}
             << CampoImpreso{.columna = QStringLiteral("LUGAR"), .control = txt_Lugar}
             << CampoImpreso{.columna = QStringLiteral("FECHA"), .control = txt_Fecha};
}

frmDatosImpreso_A2::~frmDatosImpreso_A2() = default;

void frmDatosImpreso_A2::aplicarLimites()
{
    for (const CampoImpreso& c : m_campos) {
        auto* t = qobject_cast<QLineEdit*>(c.control);
        if (t && c.columna.startsWith(QLatin1String("NDOC")))
            t->setMaxLength(3);
        else if (t && c.columna.startsWith(QLatin1String("TXTDOC")))
            t->setMaxLength(50);
    }
    ui->txt_Observaciones->setMaxLength(250);
}

void frmDatosImpreso_A2::cargarCampos(const Consulta& fila)
{
    for (const CampoImpreso& c : m_campos)
        BloquesImpreso::cargarCampo(c, fila);
}

Campos frmDatosImpreso_A2::camposHistorico() const { return BloquesImpreso::camposHistorico(m_campos); }

void frmDatosImpreso_A2::escribirTemporal() { BloquesImpreso::escribirFila(codigoProyecto(), definicion().tablaTemporal, m_campos); }

// Todos los campos de la pantalla cuentan para la pregunta al salir.
QList<QWidget*> frmDatosImpreso_A2::controlesCopia() const
{
    QList<QWidget*> l;
    for (const CampoImpreso& c : m_campos)
        l << c.control;
    return l;
}

void frmDatosImpreso_A2::cmd_Arriba_Edificacion_Click() { desplazar(ui->scr_Edificacion, 1); }
void frmDatosImpreso_A2::cmd_Abajo_Edificacion_Click() { desplazar(ui->scr_Edificacion, -1); }
void frmDatosImpreso_A2::cmd_Arriba_Urbanismo_Click() { desplazar(ui->scr_Urbanismo, 1); }
void frmDatosImpreso_A2::cmd_Abajo_Urbanismo_Click() { desplazar(ui->scr_Urbanismo, -1); }
