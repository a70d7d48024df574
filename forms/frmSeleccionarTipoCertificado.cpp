#include "forms/frmSeleccionarTipoCertificado.h"

#include "core/CicloPantalla.h"
#include "core/Guardia.h"
#include "reports/TablaImpresos.h"
#include "reports/VistaImpreso.h"
#include "ui_frmSeleccionarTipoCertificado.h"

#include <QApplication>

namespace {
const QString FORMULARIO = QStringLiteral("frmSeleccionarTipoCertificado");
}

frmSeleccionarTipoCertificado::frmSeleccionarTipoCertificado(QWidget* padre)
    : Dialogo(padre), ui(std::make_unique<Ui::frmSeleccionarTipoCertificado>())
{
    ui->setupUi(this);
    setObjectName(FORMULARIO);
    m_opciones = {ui->opt_Impreso_0, ui->opt_Impreso_1, ui->opt_Impreso_2, ui->opt_Impreso_3};
    connect(ui->cmd_Imprimir, &QPushButton::clicked, this, &frmSeleccionarTipoCertificado::cmd_Imprimir_Click);
    connect(ui->cmd_Cerrar, &QPushButton::clicked, this, &frmSeleccionarTipoCertificado::cmd_Cerrar_Click);
}

frmSeleccionarTipoCertificado::~frmSeleccionarTipoCertificado() = default;

bool frmSeleccionarTipoCertificado::elegir(const QString& claveRetorno)
{
    frmSeleccionarTipoCertificado f;
    f.ClaveRetorno = claveRetorno;
    f.Form_Load();
    // Quien la abre puede tener puesto el reloj de arena: mientras se elige, la flecha.
    QApplication::setOverrideCursor(Qt::ArrowCursor);
    f.exec();
    QApplication::restoreOverrideCursor();
    return f.informeMostrado();
}

void frmSeleccionarTipoCertificado::Form_Load()
{
    adjustSize();
    Pantallas::centrar(this);
    ui->opt_Impreso_0->setChecked(true);
}

int frmSeleccionarTipoCertificado::opcionElegida() const
{
    for (int i = 0; i < m_opciones.size(); ++i)
        if (m_opciones[i]->isChecked())
            return i;
    return 0;
}

void frmSeleccionarTipoCertificado::cmd_Imprimir_Click()
{
    // Las opciones van en el orden de los diseños del impreso; sin título, el visor conserva el suyo.
    const DefinicionImpreso& d = *TablaImpresos::porPantalla(QStringLiteral("frmDatosImpreso_CertificadoFinObra"));
    const VarianteImpreso& v = d.variantes.at(opcionElegida());
    // El impreso en blanco es el diseño sobre la tabla vacía.
    if (ClaveRetorno == RETORNO_EN_BLANCO)
        m_mostrado = mostrarImpresoEnBlanco(d, v, v.tituloVisor);
    else
        m_mostrado = guardia(FORMULARIO, QStringLiteral("cmd_Imprimir_Click"), [&] {
            CursorEspera espera;
            mostrarImpreso(v, v.tituloVisor);
        });
    accept();
}

void frmSeleccionarTipoCertificado::cmd_Cerrar_Click() { reject(); }
