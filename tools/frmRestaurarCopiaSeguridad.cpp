#include "tools/frmRestaurarCopiaSeguridad.h"

#include "core/Almacen.h"
#include "core/CopiaServidor.h"
#include "core/modFunciones.h"
#include "tools/TrabajoCopia.h"
#include "tools/frmCopiaSeguridad.h"
#include "ui_frmRestaurarCopiaSeguridad.h"

#include <QApplication>
#include <QDir>
#include <QShortcut>

namespace {
const QString FORMULARIO = QStringLiteral("frmRestaurarCopiaSeguridad");

// Carpeta de la copia, hasta su último separador incluido.
QString carpetaDe(const QString& copia)
{
    const qsizetype corte = qMax(copia.lastIndexOf(QDir::separator()), copia.lastIndexOf(QLatin1Char('/')));
    return copia.left(corte + 1);
}
}  // namespace

frmRestaurarCopiaSeguridad::frmRestaurarCopiaSeguridad(QWidget* padre) : Pantalla(padre), ui(new Ui::frmRestaurarCopiaSeguridad)
{
    ui->setupUi(this);
    setWindowIcon(QApplication::windowIcon());
    prepararBarra(ui->pb_Barra);
    ui->opt_Restaurar_1->setChecked(true);
    connect(ui->cmd_Buscar, &QPushButton::clicked, this, &frmRestaurarCopiaSeguridad::cmd_Buscar_Click);
    connect(ui->cmd_RestaurarCopia, &QPushButton::clicked, this, &frmRestaurarCopiaSeguridad::cmd_RestaurarCopia_Click);
    connect(ui->cmd_HacerCopia, &QPushButton::clicked, this, &frmRestaurarCopiaSeguridad::cmd_HacerCopia_Click);
    connect(ui->cmd_Salir, &QPushButton::clicked, this, [this] { Pantallas::descargar(this); });
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, ui->cmd_Salir, &QPushButton::click);
}

frmRestaurarCopiaSeguridad::~frmRestaurarCopiaSeguridad() { delete ui; }

frmRestaurarCopiaSeguridad* frmRestaurarCopiaSeguridad::abrir()
{
    frmRestaurarCopiaSeguridad* f = Pantallas::cargada<frmRestaurarCopiaSeguridad>();
    if (!f)
        f = new frmRestaurarCopiaSeguridad;
    Pantallas::mostrar(f);
    f->ui->opt_Restaurar_1->setFocus();
    return f;
}

int frmRestaurarCopiaSeguridad::opcionElegida() const
{
    if (ui->opt_Restaurar_0->isChecked())
        return 0;
    return ui->opt_Restaurar_2->isChecked() ? 2 : 1;
}

void frmRestaurarCopiaSeguridad::cmd_Buscar_Click()
{
    guardia(FORMULARIO, QStringLiteral("cmd_Buscar_Click"), [&] {
        const QString copia = Sistema::elegirFichero(QStringLiteral("Seleccione la copia de seguridad que desee restaurar"),
                                                     QStringLiteral("Copia de seguridad") + QStringLiteral(" (*.mee)"));
        // Cancelar el diálogo deja la copia que hubiera.
        if (!copia.isEmpty())
            ui->txt_NombreCopia->setText(copia);
        ui->cmd_RestaurarCopia->setFocus();
    });
}

void frmRestaurarCopiaSeguridad::cmd_HacerCopia_Click()
{
    guardia(FORMULARIO, QStringLiteral("cmd_HacerCopia_Click"), [&] {
        Pantallas::descargar(this);
        frmCopiaSeguridad::abrir(false);
    });
}

void frmRestaurarCopiaSeguridad::cmd_RestaurarCopia_Click()
{
    const QString procedimiento = QStringLiteral("cmd_RestaurarCopia_Click");
    guardia(FORMULARIO, procedimiento, [&] {
        const QString copia = ui->txt_NombreCopia->text().trimmed();
        if (copia.isEmpty()) {
            Mensajes::aviso(QStringLiteral("Debe seleccionar la copia de seguridad a restaurar"));
            ui->cmd_Buscar->setFocus();
            return;
        }
        // Con el servidor no hay fichero vivo ni cerrojo del fichero: la restauración aparta a los
        // demás puestos con los cerrojos de su propia transacción.
        const bool servidor = BaseDatos::enServidor();
        const QString ruta = leerRutaBD();
        if (!servidor && ruta.isEmpty())
            return;
        const int opcion = opcionElegida();
        const QString vivo = ruta + BaseDatos::NOMBRE_FICHERO;
        try {
            if (!trabajarSobreLaBase(this, ui->pb_Barra, [&](const Almacen::Latido& latido) {
                    if (opcion == 2) {
                        // Que nadie use el fichero; en el servidor no hay nada que apartar.
                        if (!servidor)
                            Almacen::probarUsoExclusivo(vivo);
                    } else if (servidor) {
                        CopiaServidor::restaurar(copia, latido);
                    } else {
                        Almacen::restaurarBaseDatos(copia, vivo, latido);
                    }
                }))
                return;
        } catch (const Almacen::FicheroNoValido& e) {
            // Lo elegido no es una copia de este programa: no se ha tocado nada.
            Mensajes::aviso(e.descripcion);
            escribirLog(e, NOMBRE_PROGRAMA, FORMULARIO, procedimiento, 0, Mostrar::No);
            ui->cmd_Buscar->setFocus();
            return;
        }
        // Un fallo aquí deja la base de datos restaurada y el fichero de inicio como estaba.
        if (opcion != 1)
            Almacen::sustituirFichero(carpetaDe(copia) + QStringLiteral("inicio.ini.bak"), Rutas::ficheroIni());
        Mensajes::informacion(QStringLiteral("Copia de seguridad restaurada correctamente"));
    });
}
