#include "forms/frmAddModDetalleFacturaHonorarios.h"

#include "core/Formato.h"
#include "core/Guardia.h"
#include "core/Iconos.h"
#include "core/Mensajes.h"
#include "forms/CamposImporte.h"
#include "ui_frmAddModDetalleFacturaHonorarios.h"

namespace {
const QString FORMULARIO = QStringLiteral("frmAddModDetalleFacturaHonorarios");
}

frmAddModDetalleFacturaHonorarios::frmAddModDetalleFacturaHonorarios(QWidget* padre)
    : Dialogo(padre), ui(std::make_unique<Ui::frmAddModDetalleFacturaHonorarios>())
{
    ui->setupUi(this);
    setWindowIcon(Iconos::iconoPrograma());
    ui->txt_Concepto->setMaxLength(250);
    ui->txt_Importe->setMaxLength(20);
    CamposImporte::instalarFiltro(ui->txt_Importe);
    connect(ui->txt_Importe, &QLineEdit::editingFinished, this, [this] { txt_Importe_LostFocus(); });
    connect(ui->cmd_Aceptar, &QPushButton::clicked, this, [this] { cmd_Aceptar_Click(); });
    connect(ui->cmd_Cancelar, &QPushButton::clicked, this, [this] { reject(); });
}

frmAddModDetalleFacturaHonorarios::~frmAddModDetalleFacturaHonorarios() = default;

QList<QWidget*> frmAddModDetalleFacturaHonorarios::controlesCopia() const { return {ui->txt_Concepto, ui->txt_Importe}; }

void frmAddModDetalleFacturaHonorarios::ponerLinea(const QString& concepto, const QString& importe)
{
    ui->txt_Concepto->setText(concepto);
    ui->txt_Importe->setText(importe);
}

void frmAddModDetalleFacturaHonorarios::showEvent(QShowEvent* e)
{
    // Una línea que se edita se abre sin cambios.
    cargarInformacionDetalleFactura();
    Dialogo::showEvent(e);
}

void frmAddModDetalleFacturaHonorarios::txt_Importe_LostFocus()
{
    QString t = ui->txt_Importe->text();
    if (t.isEmpty())
        return;
    t = CamposImporte::ceroDelante(t);
    if (t.endsWith(QLatin1Char(',')))
        t.chop(1);
    ui->txt_Importe->setText(CamposImporte::formatearTexto(t, QStringLiteral("###0.00")));
}

bool frmAddModDetalleFacturaHonorarios::validarDatos()
{
    const auto avisar = [](QLineEdit* campo, const QString& texto) {
        Mensajes::aviso(texto);
        campo->setFocus();
        return false;
    };
    if (ui->txt_Concepto->text().trimmed().isEmpty())
        return avisar(ui->txt_Concepto, CONCEPTO_OBLIGATORIO);
    const QString importe = ui->txt_Importe->text().trimmed();
    if (importe.isEmpty())
        return avisar(ui->txt_Importe, IMPORTE_OBLIGATORIO);
    if (!Formato::esNumerico(importe))
        return avisar(ui->txt_Importe, FORMATO_NO_VALIDO);
    return true;
}

void frmAddModDetalleFacturaHonorarios::cmd_Aceptar_Click()
{
    guardia(FORMULARIO, QStringLiteral("cmd_Aceptar_Click"), [&] {
        if (!validarDatos())
            return;
        if (alAceptar)
            alAceptar(ui->txt_Concepto->text().trimmed(),
                      Formato::formatear(Formato::aNumero(ui->txt_Importe->text()), QStringLiteral("#,##0.00")));
        cargarInformacionDetalleFactura();
        accept();
    });
}

void frmAddModDetalleFacturaHonorarios::reject()
{
    bool cerrar = true;
    guardia(FORMULARIO, QStringLiteral("Form_Unload"), [&] {
        if (!PreguntarGuardarCambios())
            return;
        switch (Mensajes::preguntaCancelar(QStringLiteral("¿Desea guardar los cambios antes de salir?"))) {
        case Mensajes::Respuesta::Si:
            // Una línea que no pasa la validación no se pierde: el diálogo sigue abierto.
            cmd_Aceptar_Click();
            cerrar = false;  // si se aceptó, ya está cerrado
            break;
        case Mensajes::Respuesta::Cancelar:
            cerrar = false;
            break;
        default:
            break;
        }
    });
    if (cerrar)
        Dialogo::reject();
}
