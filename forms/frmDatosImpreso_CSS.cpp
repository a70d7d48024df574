#include "forms/frmDatosImpreso_CSS.h"

#include "ui_frmDatosImpreso_CSS.h"

frmDatosImpreso_CSS::frmDatosImpreso_CSS(QWidget* padre)
    : ImpresoNombramiento(QStringLiteral("frmDatosImpreso_CSS"), padre), ui(std::make_unique<Ui::frmDatosImpreso_CSS>())
{
    ui->setupUi(this);
    enlazarNombramiento();
}

frmDatosImpreso_CSS::~frmDatosImpreso_CSS() = default;

// El coordinador de Seguridad y Salud del proyecto; sin él (o ya borrado de OTROS) no se escribe.
QVariant frmDatosImpreso_CSS::persona(const Consulta& proyecto) const
{
    const QVariant codigo = proyecto.valor(QStringLiteral("Codigo_SeguridadSalud"));
    if (codigo.isNull())
        return {};
    Consulta c(QStringLiteral("SELECT * FROM Otros WHERE UCase(Categoria) = 'ARQUITECTO' AND Codigo_Cli = ?"), {codigo});
    return c.siguiente() ? QVariant(BloquesImpreso::nombreCompleto(c)) : QVariant();
}
