#include "search/frmSeleccionarTipoCoordinador.h"

#include "ui_frmSeleccionarTipoCoordinador.h"

frmSeleccionarTipoCoordinador::frmSeleccionarTipoCoordinador(QWidget* padre)
    : SeleccionTipo(padre, QStringLiteral("SELECCIONAR_EN_IMPRESO_CDC"), QStringLiteral("FRMDATOSIMPRESOCDC_COORDINADOR"),
                    QStringLiteral("opt_Coordinador"),
                    {{QStringLiteral("ARQUITECTOS"), QStringLiteral("Buscar arquitecto"), {}},
                     {QStringLiteral("APAREJADORES"), QStringLiteral("Buscar arquitecto técnico"), {}}})
{
    Ui::frmSeleccionarTipoCoordinador ui;
    ui.setupUi(this);
    prepararPantalla();
}
