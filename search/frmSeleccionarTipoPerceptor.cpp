#include "search/frmSeleccionarTipoPerceptor.h"

#include "ui_frmSeleccionarTipoPerceptor.h"

frmSeleccionarTipoPerceptor::frmSeleccionarTipoPerceptor(QWidget* padre)
    : SeleccionTipo(padre, QStringLiteral("SELECCIONAR_EN_IMPRESO_B4_PROPIO"), QStringLiteral("FRMDATOSIMPRESOB4_PROPIO_PERCEPTOR"),
                    QStringLiteral("opt_Perceptor"),
                    {{QStringLiteral("ARQUITECTOS"), QStringLiteral("Buscar arquitecto"), QStringLiteral("AR")},
                     {QStringLiteral("APAREJADORES"), QStringLiteral("Buscar arquitecto técnico"), QStringLiteral("AT")},
                     {QStringLiteral("CONTRATISTAS"), QStringLiteral("Buscar constructor"), QStringLiteral("CO")},
                     {QStringLiteral("CLIENTES"), QStringLiteral("Buscar cliente"), QStringLiteral("CL")}})
{
    Ui::frmSeleccionarTipoPerceptor ui;
    ui.setupUi(this);
    prepararPantalla();
}
