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
    // La temporal se escribe tras el histórico en la misma transacción: las sumas del histórico
    // valen para ella, y una base de muchas facturas no se recorre dos veces.
    if (destino == Destino::Historico || !m_sumas) {
        m_sumas.reset();
        // Sin condición de año: todas las facturas del par, como se decidió.
        Consulta sumas(SQL_CANTIDADES, {txt_CodPerceptor->text().trimmed().toLongLong(), txt_CodPagador->text().trimmed().toLongLong()});
        if (BloquesImpreso::leerFila(sumas, AVISO_CANTIDADES))
            m_sumas = QVariantList{sumas.valor(QStringLiteral("Rendimientos")), sumas.valor(QStringLiteral("Retencion")),
                                   sumas.valor(QStringLiteral("ImporteIntegro"))};
    }
    if (m_sumas) {
        const QStringList columnas{QStringLiteral("Rendimientos"), QStringLiteral("Retencion"), QStringLiteral("ImporteIntegro")};
        for (int i = 0; i < columnas.size(); ++i)
            ponerImporte(f, columnas[i], m_sumas->at(i), destino);
    }
    if (destino == Destino::Temporal)
        m_sumas.reset();
    return f;
}
