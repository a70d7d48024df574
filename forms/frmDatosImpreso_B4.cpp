#include "forms/frmDatosImpreso_B4.h"

#include "core/Mensajes.h"
#include "ui_frmDatosImpreso_B4.h"

using BloquesImpreso::FilaTemporal;

frmDatosImpreso_B4::frmDatosImpreso_B4(QWidget* padre)
    : CertificadoRetenciones(QStringLiteral("frmDatosImpreso_B4"), padre), ui(std::make_unique<Ui::frmDatosImpreso_B4>())
{
    ui->setupUi(this);
    enlazarCertificado();
}

frmDatosImpreso_B4::~frmDatosImpreso_B4() = default;

void frmDatosImpreso_B4::buscarPerceptor()
{
    buscarPar({.tabla = QStringLiteral("ARQUITECTOS"),
               .claveLlamada = definicion().claveSeleccion,
               .titulo = QStringLiteral("Buscar arquitecto"),
               .claveRetorno = QStringLiteral("FRMDATOSIMPRESOB4_PERCEPTOR")},
              txt_CodPerceptor, txt_Perceptor);
}

PeticionSelector frmDatosImpreso_B4::peticionPagador() const
{
    return {.tabla = QStringLiteral("CLIENTES"),
            .claveLlamada = definicion().claveSeleccion,
            .titulo = QStringLiteral("Buscar cliente"),
            .claveRetorno = QStringLiteral("FRMDATOSIMPRESOB4_PAGADOR")};
}

FilaTemporal frmDatosImpreso_B4::columnas(Destino destino) const
{
    FilaTemporal f;
    ponerDatosCertificado(f);
    ponerPersonas(f);
    BloquesImpreso::columnaAgenciaTributaria(f);
    ponerPie(f);
    // Sin condición de año: todas las facturas del par, como se decidió.
    Consulta sumas(SQL_CANTIDADES, {txt_CodPerceptor->text().trimmed().toLongLong(), txt_CodPagador->text().trimmed().toLongLong()});
    if (BloquesImpreso::leerFila(sumas, AVISO_CANTIDADES))
        for (const QString& c : {QStringLiteral("Rendimientos"), QStringLiteral("Retencion"), QStringLiteral("ImporteIntegro")})
            ponerImporte(f, c, sumas.valor(c), destino);
    return f;
}
