#include "forms/frmDatosImpreso_A4.h"

#include "ui_frmDatosImpreso_A4.h"

frmDatosImpreso_A4::frmDatosImpreso_A4(QWidget* padre)
    : ImpresoNombramiento(QStringLiteral("frmDatosImpreso_A4"), padre), ui(std::make_unique<Ui::frmDatosImpreso_A4>())
{
    ui->setupUi(this);
    enlazarNombramiento();
}

frmDatosImpreso_A4::~frmDatosImpreso_A4() = default;

// Los autores del proyecto, cortados a lo que cabe en la columna.
QVariant frmDatosImpreso_A4::persona(const Consulta& proyecto) const
{
    return BloquesImpreso::nombresAutores(proyecto.valor(QStringLiteral("PryCod")).toLongLong()).left(MAXIMO_AUTOR);
}
