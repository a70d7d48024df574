#include "forms/frmDatosImpreso_B4_Propio.h"

#include "core/modFunciones.h"
#include "forms/CamposImporte.h"
#include "search/SeleccionTipo.h"
#include "search/frmSeleccionarTipoPerceptor.h"
#include "ui_frmDatosImpreso_B4_Propio.h"

#include <QPointer>

using BloquesImpreso::FilaTemporal;

namespace {
const QString PATRON_PANTALLA = QStringLiteral("0.00");
}

frmDatosImpreso_B4_Propio::frmDatosImpreso_B4_Propio(QWidget* padre)
    : CertificadoRetenciones(QStringLiteral("frmDatosImpreso_B4_Propio"), padre), ui(std::make_unique<Ui::frmDatosImpreso_B4_Propio>())
{
    ui->setupUi(this);
    enlazarCertificado();
    ui->txt_TipoPerceptor->hide();
    for (QLineEdit* c : {ui->txt_Rendimientos, ui->txt_Retencion, ui->txt_ImporteIntegro}) {
        c->setMaxLength(14);
        CamposImporte::instalarFiltro(c);
    }
    connect(ui->txt_Rendimientos, &QLineEdit::editingFinished, this, [this] { txt_Rendimientos_LostFocus(); });
    connect(ui->txt_Retencion, &QLineEdit::editingFinished, this, [this] { txt_Retencion_LostFocus(); });
    connect(ui->txt_ImporteIntegro, &QLineEdit::editingFinished, this, [this] { txt_ImporteIntegro_LostFocus(); });
}

frmDatosImpreso_B4_Propio::~frmDatosImpreso_B4_Propio() = default;

// ---------------------------------------------------------------- perceptor y pagador

void frmDatosImpreso_B4_Propio::buscarPerceptor()
{
    // Primero la familia del perceptor. El tipo se escribe cuando llega la persona elegida: un
    // selector cerrado sin elegir no deja un tipo que no es el de la persona que hay.
    auto tipo = std::make_shared<QString>();
    QPointer<QLineEdit> txtTipo(ui->txt_TipoPerceptor);
    const PeticionSelector p = peticionPar({}, txt_CodPerceptor, txt_Perceptor, [tipo, txtTipo] {
        if (txtTipo)
            txtTipo->setText(*tipo);
    });
    abrirSeleccionTipo<frmSeleccionarTipoPerceptor>(p, [tipo](const QString& elegido) { *tipo = elegido; });
}

PeticionSelector frmDatosImpreso_B4_Propio::peticionPagador() const
{
    return {.tabla = QStringLiteral("ARQUITECTOS"),
            .claveLlamada = definicion().claveSeleccion,
            .titulo = QStringLiteral("Buscar arquitecto"),
            .claveRetorno = QStringLiteral("FRMDATOSIMPRESOB4_PROPIO_PAGADOR")};
}

QString frmDatosImpreso_B4_Propio::sqlPerceptor() const
{
    const QString tipo = ui->txt_TipoPerceptor->text().trimmed();
    if (tipo == QLatin1String("AR"))
        return SQL_OTROS_ARQUITECTO;
    if (tipo == QLatin1String("AT"))
        return QStringLiteral("SELECT * FROM OTROS WHERE Codigo_Cli = ? AND UCASE(Categoria) = 'ARQUITECTO TECNICO'");
    if (tipo == QLatin1String("CO"))
        return QStringLiteral("SELECT * FROM OTROS WHERE Codigo_Cli = ? AND UCASE(Categoria) = 'CONSTRUCTOR'");
    if (tipo == QLatin1String("CL"))
        return QStringLiteral("SELECT * FROM CLIENTES WHERE Codigo_Cli = ?");
    return {};
}

void frmDatosImpreso_B4_Propio::borrarPerceptor()
{
    CertificadoRetenciones::borrarPerceptor();
    ui->txt_TipoPerceptor->clear();
}

// ---------------------------------------------------------------- importes

void frmDatosImpreso_B4_Propio::txt_Rendimientos_LostFocus()
{
    ui->txt_Rendimientos->setText(CamposImporte::formatearTexto(ui->txt_Rendimientos->text(), PATRON_PANTALLA));
    calcularImporteIntegro();
}

void frmDatosImpreso_B4_Propio::txt_Retencion_LostFocus()
{
    ui->txt_Retencion->setText(CamposImporte::formatearTexto(ui->txt_Retencion->text(), PATRON_PANTALLA));
    calcularImporteIntegro();
}

void frmDatosImpreso_B4_Propio::txt_ImporteIntegro_LostFocus()
{
    // Sólo este importe repara la coma delante; los otros dos llegan al formato tal cual.
    ui->txt_ImporteIntegro->setText(
        CamposImporte::formatearTexto(CamposImporte::ceroDelante(ui->txt_ImporteIntegro->text()), PATRON_PANTALLA));
}

void frmDatosImpreso_B4_Propio::calcularImporteIntegro()
{
    const QString r = ui->txt_Rendimientos->text().trimmed(), t = ui->txt_Retencion->text().trimmed();
    if (r.isEmpty() || t.isEmpty() || !Formato::esNumerico(r) || !Formato::esNumerico(t))
        return;
    ui->txt_ImporteIntegro->setText(Formato::formatear(Formato::aNumero(r) - Formato::aNumero(t), PATRON_PANTALLA));
}

bool frmDatosImpreso_B4_Propio::validarImportes()
{
    for (QLineEdit* c : {ui->txt_Rendimientos, ui->txt_Retencion, ui->txt_ImporteIntegro}) {
        const QString t = c->text().trimmed();
        if (!t.isEmpty() && !Formato::esNumerico(t))
            return avisar(c, QStringLiteral("Formato numérico no válido.\nPor favor, revise el valor proporcionado"));
    }
    return true;
}

// ---------------------------------------------------------------- carga, copia y columnas

void frmDatosImpreso_B4_Propio::cargarCampos(const Consulta& c)
{
    CertificadoRetenciones::cargarCampos(c);
    const auto importe = [&c](const char* columna) {
        const QVariant v = c.valor(QString::fromLatin1(columna));
        return v.isNull() ? QString() : Formato::formatear(v.toDouble(), PATRON_PANTALLA);
    };
    ui->txt_Rendimientos->setText(importe("Rendimientos"));
    ui->txt_Retencion->setText(importe("Retencion"));
    ui->txt_ImporteIntegro->setText(importe("ImporteIntegro"));
    ui->txt_TipoPerceptor->setText(c.texto(QStringLiteral("TipoPerceptor")));
}

QList<QWidget*> frmDatosImpreso_B4_Propio::controlesCopia() const
{
    return CertificadoRetenciones::controlesCopia() << ui->txt_Rendimientos << ui->txt_Retencion << ui->txt_ImporteIntegro;
}

FilaTemporal frmDatosImpreso_B4_Propio::columnas(Destino destino) const
{
    FilaTemporal f;
    ponerPersonas(f);
    BloquesImpreso::columnaAgenciaTributaria(f);
    ponerDatosCertificado(f);
    ponerImporte(f, QStringLiteral("Rendimientos"), ui->txt_Rendimientos->text(), destino);
    ponerImporte(f, QStringLiteral("Retencion"), ui->txt_Retencion->text(), destino);
    ponerImporte(f, QStringLiteral("ImporteIntegro"), ui->txt_ImporteIntegro->text(), destino);
    ponerPie(f);
    if (destino == Destino::Historico)
        f.poner(QStringLiteral("TipoPerceptor"), ui->txt_TipoPerceptor->text().trimmed());
    return f;
}
