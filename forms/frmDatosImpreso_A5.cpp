#include "forms/frmDatosImpreso_A5.h"

#include "core/Fechas.h"
#include "core/modFunciones.h"
#include "forms/BloquesImpreso.h"
#include "ui_frmDatosImpreso_A5.h"

namespace {
// Filas de la tabla de condiciones, en el orden de las columnas PLAN1..PLAN6 y PROY1..PROY6.
const char* const FILAS[] = {"Par", "Ocu", "Uso", "Vol", "Alt", "Sit"};
}  // namespace

frmDatosImpreso_A5::frmDatosImpreso_A5(QWidget* padre)
    : DatosImpreso(QStringLiteral("frmDatosImpreso_A5"), padre), ui(std::make_unique<Ui::frmDatosImpreso_A5>())
{
    ui->setupUi(this);
    enlazarControles();
    prepararFechas({ui->msk_FechaAprobacionMunicipio, ui->msk_FechaAprobacionParcela});
}

frmDatosImpreso_A5::~frmDatosImpreso_A5() = default;

QList<QLineEdit*> frmDatosImpreso_A5::celdasPlaneamiento() const
{
    QList<QLineEdit*> l;
    for (const char* f : FILAS)
        l << findChild<QLineEdit*>(QStringLiteral("txt_%1_Pla").arg(QLatin1String(f)));
    return l;
}

QList<QLineEdit*> frmDatosImpreso_A5::celdasProyecto() const
{
    QList<QLineEdit*> l;
    for (const char* f : FILAS)
        l << findChild<QLineEdit*>(QStringLiteral("txt_%1_Pro").arg(QLatin1String(f)));
    return l;
}

void frmDatosImpreso_A5::aplicarLimites()
{
    ui->txt_PlaneamientoMunicipio->setMaxLength(40);
    ui->txt_PlaneamientoParcela->setMaxLength(40);
    for (QLineEdit* t : celdasPlaneamiento() + celdasProyecto())
        t->setMaxLength(100);
    ui->txt_Observaciones->setMaxLength(250);
}

void frmDatosImpreso_A5::cargarCampos(const Consulta& c)
{
    txt_CodProyecto->setText(c.texto(QStringLiteral("PRYCOD")));
    txt_Proyecto->setText(c.texto(QStringLiteral("PRYNOM")));
    ui->txt_PlaneamientoMunicipio->setText(c.texto(QStringLiteral("PLAMUN")));
    ponerFecha(ui->msk_FechaAprobacionMunicipio, c.valor(QStringLiteral("FAPMUN")));
    ui->txt_PlaneamientoParcela->setText(c.texto(QStringLiteral("PLAPAR")));
    ponerFecha(ui->msk_FechaAprobacionParcela, c.valor(QStringLiteral("FAPPAR")));
    ui->txt_Observaciones->setText(c.texto(QStringLiteral("OBS")));
    const QList<QLineEdit*> pla = celdasPlaneamiento(), pro = celdasProyecto();
    for (int i = 0; i < pla.size(); ++i) {
        pla[i]->setText(c.texto(QStringLiteral("PLAN%1").arg(i + 1)));
        pro[i]->setText(c.texto(QStringLiteral("PROY%1").arg(i + 1)));
    }
    txt_Lugar->setText(c.texto(QStringLiteral("LUGARA5")));
    txt_Fecha->setText(c.texto(QStringLiteral("FECHAA5")));
}

Campos frmDatosImpreso_A5::columnasPlaneamiento(bool paraHistorico) const
{
    const auto fecha = [paraHistorico](const QLineEdit* msk) { return paraHistorico ? fechaHistorico(msk) : fechaTemporal(msk); };
    Campos c = {
        {QStringLiteral("PLAMUN"), recortado(ui->txt_PlaneamientoMunicipio)},
        {QStringLiteral("FAPMUN"), fecha(ui->msk_FechaAprobacionMunicipio)},
        {QStringLiteral("PLAPAR"), recortado(ui->txt_PlaneamientoParcela)},
        {QStringLiteral("FAPPAR"), fecha(ui->msk_FechaAprobacionParcela)},
        {QStringLiteral("OBS"), recortado(ui->txt_Observaciones)},
    };
    const QList<QLineEdit*> pla = celdasPlaneamiento(), pro = celdasProyecto();
    for (int i = 0; i < pla.size(); ++i)
        c.append({QStringLiteral("PLAN%1").arg(i + 1), recortado(pla[i])});
    for (int i = 0; i < pro.size(); ++i)
        c.append({QStringLiteral("PROY%1").arg(i + 1), recortado(pro[i])});
    return c;
}

Campos frmDatosImpreso_A5::camposHistorico() const
{
    Campos c = {{QStringLiteral("PRYNOM"), recortado(txt_Proyecto)}, {QStringLiteral("PRYCOD"), codigoProyecto()}};
    c += columnasPlaneamiento(true);
    c += Campos{{QStringLiteral("LUGARA5"), recortado(txt_Lugar)}, {QStringLiteral("FECHAA5"), recortado(txt_Fecha)}};
    return c;
}

// Las dos fechas de aprobación, tras el proyecto y antes del pie. Una fecha mal escrita no lleva
// a la primera pestaña, como el proyecto o el pie: se enseña la suya para que el foco se vea.
bool frmDatosImpreso_A5::validarPropios()
{
    for (QLineEdit* msk : {ui->msk_FechaAprobacionMunicipio, ui->msk_FechaAprobacionParcela})
        if (!validarFecha(msk)) {
            mostrarPestana(msk);
            msk->setFocus();
            return false;
        }
    return true;
}

void frmDatosImpreso_A5::escribirTemporal()
{
    const qint64 cod = codigoProyecto();
    Consulta proyecto(QStringLiteral("SELECT * FROM Proyectos_A WHERE PRYCOD = ?"), {cod});
    if (!BloquesImpreso::leerProyecto(proyecto))
        return;
    BloquesImpreso::FilaTemporal fila;
    BloquesImpreso::cabeceraResumen(proyecto, fila);
    fila.poner(QStringLiteral("ARQ1NOM"), BloquesImpreso::firmaResumen(cod));
    for (const auto& [columna, valor] : columnasPlaneamiento(false))
        fila.poner(columna, valor);
    fila.poner(QStringLiteral("LUGAR"), recortado(txt_Lugar));
    fila.poner(QStringLiteral("FECHA"), recortado(txt_Fecha));
    fila.insertarEn(definicion().tablaTemporal);
}

QList<QWidget*> frmDatosImpreso_A5::controlesCopia() const
{
    QList<QWidget*> l{txt_CodProyecto,
                      txt_Proyecto,
                      ui->txt_PlaneamientoMunicipio,
                      ui->msk_FechaAprobacionMunicipio,
                      ui->txt_PlaneamientoParcela,
                      ui->msk_FechaAprobacionParcela};
    for (QLineEdit* t : celdasPlaneamiento() + celdasProyecto())
        l << t;
    return l << ui->txt_Observaciones << txt_Lugar << txt_Fecha;
}
