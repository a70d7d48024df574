#include "masterdata/frmAddModCosteReferencia.h"

#include "core/modFunciones.h"
#include "ui_frmAddModCosteReferencia.h"


namespace {

void prepararCoeficiente(QLineEdit* campo)
{
    new FiltroTeclas(campo, [](int tecla, const QString& actual) {
        if (tecla == ',' && actual.contains(QLatin1Char(',')))
            return 0;
        return admitirNumeros(tecla, {.coma = true});
    });
    instalarPuntoComoComa(campo);  // se consulta antes que el anterior
    FichaRegistro::alSalir(campo, [campo] {
        QString t = campo->text().trimmed();
        if (t.isEmpty())
            return;
        if (t.startsWith(QLatin1Char(',')))
            t.prepend(QLatin1Char('0'));
        if (t.endsWith(QLatin1Char(',')))
            t.chop(1);
        campo->setText(t);
    });
}

QString textoCoeficiente(const QVariant& v)
{
    return v.isNull() ? QString() : QString::number(v.toDouble(), 'g', 12).replace(QLatin1Char('.'), QLatin1Char(','));
}

}  // namespace

frmAddModCosteReferencia::frmAddModCosteReferencia(QWidget* padre)
    : FichaRegistro(padre), ui(std::make_unique<Ui::frmAddModCosteReferencia>())
{
    ui->setupUi(this);
    conectarBotones();
}

frmAddModCosteReferencia::~frmAddModCosteReferencia() = default;

QList<QWidget*> frmAddModCosteReferencia::controlesCopia() const
{
    return {ui->txt_Codigo, ui->txt_Tipo, ui->txt_Descripcion, ui->txt_Ct, ui->txt_Cc};
}

RegistroGuardado frmAddModCosteReferencia::registroGuardado() const
{
    RegistroGuardado r;
    r.codigoTexto = ui->txt_Codigo->text().trimmed();
    r.nombre = ui->txt_Tipo->text().trimmed();
    r.columnas = {r.codigoTexto, r.nombre, ui->txt_Descripcion->text().trimmed()};
    r.valores = {Formato::aNumero(ui->txt_Ct->text()), Formato::aNumero(ui->txt_Cc->text())};
    return r;
}

void frmAddModCosteReferencia::cargarDatos()
{
    prepararCoeficiente(ui->txt_Ct);
    prepararCoeficiente(ui->txt_Cc);
    if (!esModificar())
        return;
    UsoConexion uso;
    Consulta c(QStringLiteral("SELECT * FROM Costes WHERE CODIGO = ?"), {CodigoCoste});
    if (!c.siguiente())
        return;
    ui->txt_Codigo->setText(c.texto(QStringLiteral("CODIGO")));
    ui->txt_Tipo->setText(c.texto(QStringLiteral("TIPO")));
    ui->txt_Descripcion->setText(c.texto(QStringLiteral("DESCRIPCION")));
    ui->txt_Ct->setText(textoCoeficiente(c.valor(QStringLiteral("CT"))));
    ui->txt_Cc->setText(textoCoeficiente(c.valor(QStringLiteral("CC"))));
}

bool frmAddModCosteReferencia::validarDatos()
{
    const struct {
        QLineEdit* campo;
        const char* texto;
        bool numerico;
    } reglas[] = {
        {ui->txt_Codigo, "El código del coste de referencia es obligatorio.", false},
        {ui->txt_Descripcion, "La descripción del coste de referencia es obligatoria.", false},
        {ui->txt_Tipo, "El tipo del coste de referencia es obligatorio.", false},
        {ui->txt_Ct, "El coeficiente Ct es obligatorio.", true},
        {ui->txt_Cc, "El coeficiente Cc es obligatorio.", true},
    };
    for (const auto& r : reglas) {
        const QString valor = r.campo->text().trimmed();
        if (valor.isEmpty()) {
            avisarCampo(r.campo, obligatorio(QString::fromUtf8(r.texto)));
            return false;
        }
        if (r.numerico && !Formato::esNumerico(valor)) {
            avisarCampo(r.campo, QStringLiteral("Formato numérico no válido.\nPor favor, revise el valor proporcionado"));
            return false;
        }
    }
    return true;
}

bool frmAddModCosteReferencia::guardarRegistro()
{
    const QString codigo = ui->txt_Codigo->text().trimmed();
    const bool existe = !escalar(QStringLiteral("SELECT CODIGO FROM Costes WHERE CODIGO = ?"), {codigo}).isNull();
    const Campos campos = {
        {QStringLiteral("TIPO"), textoONulo(ui->txt_Tipo->text())},
        {QStringLiteral("DESCRIPCION"), textoONulo(ui->txt_Descripcion->text())},
        {QStringLiteral("CT"), Formato::aNumero(ui->txt_Ct->text())},
        {QStringLiteral("CC"), Formato::aNumero(ui->txt_Cc->text())},
    };
    if (esAlta()) {
        if (existe) {
            Mensajes::aviso(QStringLiteral("Ya existe un coste de referencia con código ") + codigo
                            + QStringLiteral(".\nPor favor, cambie el código e inténtelo de nuevo"));
            return false;
        }
        insertar(QStringLiteral("Costes"), Campos{{QStringLiteral("CODIGO"), codigo}} + campos);
        return true;
    }
    if (!existe) {
        Mensajes::aviso(QStringLiteral("No se ha podido hallar el coste de referencia seleccionado para su modificación"));
        return false;
    }
    actualizar(QStringLiteral("Costes"), campos, QStringLiteral("CODIGO = ?"), {codigo});
    return true;
}

QString frmAddModCosteReferencia::textoAlta() const { return QStringLiteral("Coste de referencia dado de alta correctamente"); }
QString frmAddModCosteReferencia::textoModificado() const
{
    return QStringLiteral("Datos del coste de referencia modificados correctamente");
}
