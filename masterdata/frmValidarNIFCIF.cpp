#include "masterdata/frmValidarNIFCIF.h"
#include "ui_frmValidarNIFCIF.h"

#include "core/Guardia.h"
#include "core/Mensajes.h"
#include "core/Nif.h"

namespace {
const QString FORMULARIO = QStringLiteral("frmValidarNIFCIF");
}

frmValidarNIFCIF::frmValidarNIFCIF(QWidget* padre) : Pantalla(padre), ui(std::make_unique<Ui::frmValidarNIFCIF>())
{
    ui->setupUi(this);
    setObjectName(FORMULARIO);
    connect(ui->cmd_Validar, &QPushButton::clicked, this, &frmValidarNIFCIF::cmd_Validar_Click);
    connect(ui->cmd_Cerrar, &QPushButton::clicked, this, &QWidget::close);
}

frmValidarNIFCIF::~frmValidarNIFCIF() = default;

void frmValidarNIFCIF::setIdentificador(const QString& valor) { ui->lbl_Identificador->setText(valor); }

void frmValidarNIFCIF::setTipo(int indice)
{
    if (indice == 0) {
        ui->opt_Identificador_0->setChecked(true);
    } else if (indice == 1) {
        ui->opt_Identificador_1->setChecked(true);
    } else {
        ui->opt_Identificador_0->setAutoExclusive(false);
        ui->opt_Identificador_1->setAutoExclusive(false);
        ui->opt_Identificador_0->setChecked(false);
        ui->opt_Identificador_1->setChecked(false);
        ui->opt_Identificador_0->setAutoExclusive(true);
        ui->opt_Identificador_1->setAutoExclusive(true);
    }
}

void frmValidarNIFCIF::cmd_Validar_Click()
{
    bool cerrar = false;
    guardia(FORMULARIO, QStringLiteral("cmd_Validar_Click"), [&] {
        const QString valor = ui->lbl_Identificador->text();
        if (valor.trimmed().isEmpty()) {
            Mensajes::aviso(QStringLiteral("No se ha proporcionado un valor para el NIF o CIF.") + QStringLiteral("\n")
                            + QStringLiteral("Por favor, inténtelo de nuevo"));
            return;
        }

        if (ui->opt_Identificador_0->isChecked()) {
            // Sólo cuentan las cifras: las letras, también las de delante, se ignoran.
            QString dni;
            for (const QChar c : valor)
                if (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
                    dni += c;
            if (dni.isEmpty()) {
                Mensajes::aviso(QStringLiteral("El DNI obtenido no es numérico. ") + QStringLiteral("\n")
                                + QStringLiteral(" Por favor, inténtelo de nuevo"));
                return;
            }
            if (dni.size() > 9) {
                Mensajes::aviso(QStringLiteral("El mayor valor de DNI admitido es 999999999. ") + QStringLiteral("\n")
                                + QStringLiteral(" Por favor, revise el valor introducido"));
                return;
            }
            const QString letra = calcularLetraNIF(dni.toLong());
            const QString correcto = dni + letra;
            if (valor.right(1).toUpper() != letra) {
                const auto r = Mensajes::pregunta(
                    QStringLiteral("La letra del NIF proporcionado no coincide con la que debería aparecer.") + QStringLiteral("\n")
                    + QStringLiteral("El NIF correcto sería ") + correcto + QStringLiteral("\n\n")
                    + QStringLiteral(" ¿Desea sustituir el valor original ") + valor + QStringLiteral(" por este nuevo?"));
                if (r == Mensajes::Respuesta::Si && cajaIdentificador)
                    cajaIdentificador->setText(correcto);
            } else {
                Mensajes::informacion(QStringLiteral("El NIF es correcto"));
            }
            cerrar = true;
        } else if (ui->opt_Identificador_1->isChecked()) {
            QString cif = valor;
            if (!cif.contains(QLatin1Char('-')))
                cif.insert(1, QLatin1Char('-'));
            if (validarCIF(cif))
                Mensajes::informacion(QStringLiteral("El CIF es correcto"));
            cerrar = true;
        } else {
            Mensajes::aviso(QStringLiteral("Por favor, seleccione el tipo de identificador: NIF o CIF"));
        }
    });
    if (cerrar)
        Pantallas::descargar(this);
}

frmValidarNIFCIF* validarIdentificador(QLineEdit* txt_NIF, bool esNIF)
{
    frmValidarNIFCIF* pantalla = nullptr;
    guardia(QStringLiteral("modFunciones"), QStringLiteral("img_Validar_Click"), [&] {
        const QString valor = txt_NIF->text().trimmed();
        if (valor.isEmpty()) {
            Mensajes::aviso(esNIF ? QStringLiteral("Por favor, proporcione un valor para el NIF")
                                  : QStringLiteral("Por favor, proporcione un valor para el CIF"));
            txt_NIF->setFocus();
            return;
        }
        // La pantalla se carga al primer uso y se enseña sola, sin bloquear la principal.
        pantalla = Pantallas::cargada<frmValidarNIFCIF>();
        if (!pantalla)
            pantalla = new frmValidarNIFCIF;
        pantalla->cajaIdentificador = txt_NIF;
        pantalla->setIdentificador(valor.toUpper());
        pantalla->setTipo(esNIF ? 0 : 1);
        Pantallas::mostrar(pantalla);
    });
    return pantalla;
}
