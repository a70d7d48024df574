#include "app/frmAyudaSeleccionBD.h"

#include "app/Aplicacion.h"
#include "core/modFunciones.h"
#include "core/Programa.h"
#include "ui_frmAyudaSeleccionBD.h"

#include <QDir>
#include <QFileInfo>

frmAyudaSeleccionBD::frmAyudaSeleccionBD(QWidget* padre) : QDialog(padre), ui(new Ui::frmAyudaSeleccionBD)
{
    ui->setupUi(this);
    BaseDatos::construirCadenaConexion();
    m_servidor = BaseDatos::enServidor();
    if (m_servidor)
        ui->lbl_Explicacion->setText(
            QStringLiteral("Es la primera vez que se ejecuta el programa en este equipo.\n\n")
            + QStringLiteral("Este puesto trabaja con la base de datos de un servidor, como indica la sección [BD] de inicio.ini:\n")
            + BaseDatos::servidorElegido().textoVisible()
            + QStringLiteral("\n\nNo hace falta seleccionar ningún directorio. Pulse «Continuar» para seguir."));
    connect(ui->cmd_Continuar, &QPushButton::clicked, this, &QDialog::accept);
}

frmAyudaSeleccionBD::~frmAyudaSeleccionBD() { delete ui; }

void frmAyudaSeleccionBD::done(int r)
{
    if (!m_hecho) {
        m_hecho = true;
        guardia(QStringLiteral("frmAyudaSeleccionBD"), QStringLiteral("Form_Unload"), [&] { Form_Unload(); });
    }
    QDialog::done(r);
}

void frmAyudaSeleccionBD::Form_Unload()
{
    // Con el servidor no se usa ningún fichero: no se pide carpeta y "ruta" queda como estaba.
    QString ruta;
    if (!m_servidor) {
        ruta = cambiarRuta(this, 1);
        if (ruta.isEmpty()) {
            Mensajes::aviso(QStringLiteral("Para que el programa funcione es necesario seleccionar la ubicación de la base de datos del programa"));
            Programa::terminar();
            return;
        }
        if (!QFileInfo::exists(ruta + BaseDatos::NOMBRE_FICHERO)) {
            Mensajes::aviso(QStringLiteral("El directorio seleccionado no contiene la base de datos del programa.") + QStringLiteral("\n")
                            + QStringLiteral("Por favor, seleccione la ruta en la que instaló la base de datos"));
            Programa::terminar();
            return;
        }
    }
    const QString programa = Rutas::directorioPrograma();
    escribirAjuste(QStringLiteral("BD"), QStringLiteral("ruta_instalacion"), programa + QDir::separator());
    if (!m_servidor)
        escribirAjuste(QStringLiteral("BD"), QStringLiteral("ruta"), ruta);
    escribirAjuste(QStringLiteral("Opciones"), QStringLiteral("inicio"), QStringLiteral("1"));
    rutaBD = leerAjuste(QStringLiteral("BD"), QStringLiteral("ruta"));
    const char* plantillas[] = {"Nota_encargo.doc", "Tiempo_retribuido.doc", "Trabajos_de_edificacion.doc",
                                "Trabajos_de_urbanismo.doc", "Trabajos_especiales.doc"};
    for (int i = 0; i < 5; ++i)
        escribirAjuste(QStringLiteral("PLANTILLAS_CONTRATOS"), QStringLiteral("P%1").arg(i + 1),
                       Rutas::enPrograma(QStringLiteral("Contratos/") + QLatin1String(plantillas[i])));
}
