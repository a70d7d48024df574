#include "forms/frmDatosImpreso_B2.h"

#include "core/BaseDatos.h"
#include "forms/BloquesImpreso.h"
#include "ui_frmDatosImpreso_B2.h"

frmDatosImpreso_B2::frmDatosImpreso_B2(QWidget* padre)
    : DatosImpreso(QStringLiteral("frmDatosImpreso_B2"), padre), ui(std::make_unique<Ui::frmDatosImpreso_B2>())
{
    ui->setupUi(this);
    enlazarControles();
}

frmDatosImpreso_B2::~frmDatosImpreso_B2() = default;

void frmDatosImpreso_B2::cargarCampos(const Consulta& c)
{
    txt_CodProyecto->setText(c.texto(QStringLiteral("PRYCOD")));
    txt_Proyecto->setText(c.texto(QStringLiteral("PRYNOM")));
    txt_Lugar->setText(c.texto(QStringLiteral("LUGAR_B2")));
    txt_Fecha->setText(c.texto(QStringLiteral("FECHA_B2")));
}

Campos frmDatosImpreso_B2::camposHistorico() const
{
    return {
        {QStringLiteral("PRYNOM"), recortado(txt_Proyecto)},
        {QStringLiteral("PRYCOD"), codigoProyecto()},
        {QStringLiteral("LUGAR_A1"), QString()},
        {QStringLiteral("FECHA_A1"), QString()},
        {QStringLiteral("LUGAR_B2"), recortado(txt_Lugar)},
        {QStringLiteral("FECHA_B2"), recortado(txt_Fecha)},
    };
}

void frmDatosImpreso_B2::escribirTemporal()
{
    const QString lugar = recortado(txt_Lugar), fecha = recortado(txt_Fecha);
    BloquesImpreso::escribirHojas(codigoProyecto(), definicion().tablaTemporal,
                                  [&](const Consulta& proyecto, BloquesImpreso::FilaTemporal& fila) {
                                      BloquesImpreso::columnasProyecto(proyecto, fila);
                                      // Sólo el B2: la sociedad que se imprime es la del propio proyecto.
                                      fila.poner(QStringLiteral("ARQSOC"), proyecto.valor(QStringLiteral("ARQSOC")));
                                      fila.poner(QStringLiteral("LUGAR_A1"), QString());
                                      fila.poner(QStringLiteral("FECHA_A1"), QString());
                                      fila.poner(QStringLiteral("LUGAR_B2"), lugar);
                                      fila.poner(QStringLiteral("FECHA_B2"), fecha);
                                  });
}
