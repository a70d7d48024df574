#include "forms/frmDatosImpreso_A1.h"

#include "core/BaseDatos.h"
#include "forms/BloquesImpreso.h"
#include "ui_frmDatosImpreso_A1.h"

namespace {
QString marcaX(bool marcada) { return marcada ? QStringLiteral("X") : QString(); }
}  // namespace

frmDatosImpreso_A1::frmDatosImpreso_A1(QWidget* padre)
    : DatosImpreso(QStringLiteral("frmDatosImpreso_A1"), padre), ui(std::make_unique<Ui::frmDatosImpreso_A1>())
{
    ui->setupUi(this);
    enlazarControles();
}

frmDatosImpreso_A1::~frmDatosImpreso_A1() = default;

void frmDatosImpreso_A1::aplicarLimites() { ui->txt_Condiciones->setMaxLength(200); }

void frmDatosImpreso_A1::valoresPorDefecto()
{
    ui->opt_Si_GestionCobro->setChecked(true);
    ui->opt_Si_AutorizaEntrega->setChecked(true);
}

void frmDatosImpreso_A1::cargarCampos(const Consulta& c)
{
    txt_CodProyecto->setText(c.texto(QStringLiteral("PRYCOD")));
    txt_Proyecto->setText(c.texto(QStringLiteral("PRYNOM")));
    // "X" elige la primera opción del par; cualquier otra cosa, la segunda.
    const bool cobro = c.texto(QStringLiteral("OBS1SI")) == QLatin1String("X");
    ui->opt_Si_GestionCobro->setChecked(cobro);
    ui->opt_No_GestionCobro->setChecked(!cobro);
    const bool entrega = c.texto(QStringLiteral("OBS2SI")) == QLatin1String("X");
    ui->opt_Si_AutorizaEntrega->setChecked(entrega);
    ui->opt_No_AutorizaEntrega->setChecked(!entrega);
    ui->txt_Condiciones->setText(c.texto(QStringLiteral("CONDICIONES")));
    txt_Lugar->setText(c.texto(QStringLiteral("LUGAR_A1")));
    txt_Fecha->setText(c.texto(QStringLiteral("FECHA_A1")));
}

Campos frmDatosImpreso_A1::camposHistorico() const
{
    return {
        {QStringLiteral("PRYNOM"), recortado(txt_Proyecto)},
        {QStringLiteral("PRYCOD"), codigoProyecto()},
        {QStringLiteral("OBS1SI"), marcaX(ui->opt_Si_GestionCobro->isChecked())},
        {QStringLiteral("OBS1NO"), marcaX(!ui->opt_Si_GestionCobro->isChecked())},
        {QStringLiteral("OBS2SI"), marcaX(ui->opt_Si_AutorizaEntrega->isChecked())},
        {QStringLiteral("OBS2NO"), marcaX(!ui->opt_Si_AutorizaEntrega->isChecked())},
        {QStringLiteral("CONDICIONES"), recortado(ui->txt_Condiciones)},
        {QStringLiteral("LUGAR_A1"), recortado(txt_Lugar)},
        {QStringLiteral("FECHA_A1"), recortado(txt_Fecha)},
        {QStringLiteral("LUGAR_B2"), QString()},
        {QStringLiteral("FECHA_B2"), QString()},
    };
}

void frmDatosImpreso_A1::escribirTemporal()
{
    // Las columnas del impreso salen de la pantalla, no de la fila guardada.
    const Campos propias = camposHistorico();
    BloquesImpreso::escribirHojas(codigoProyecto(), definicion().tablaTemporal,
                                  [&](const Consulta& proyecto, BloquesImpreso::FilaTemporal& fila) {
                                      BloquesImpreso::columnasProyecto(proyecto, fila);
                                      for (const auto& [columna, valor] : propias)
                                          if (columna != QLatin1String("PRYNOM") && columna != QLatin1String("PRYCOD"))
                                              fila.poner(columna, valor);
                                  });
}

// La condición no entra en la copia: cambiarla sola no hace preguntar al salir.
QList<QWidget*> frmDatosImpreso_A1::controlesCopia() const
{
    return {txt_CodProyecto, txt_Proyecto, ui->opt_Si_GestionCobro, ui->opt_No_GestionCobro,
            ui->opt_Si_AutorizaEntrega, ui->opt_No_AutorizaEntrega, txt_Lugar, txt_Fecha};
}
