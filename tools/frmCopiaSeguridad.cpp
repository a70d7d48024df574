#include "tools/frmCopiaSeguridad.h"

#include "core/Almacen.h"
#include "core/CopiaServidor.h"
#include "core/modFunciones.h"
#include "core/Programa.h"
#include "tools/TrabajoCopia.h"
#include "ui_frmCopiaSeguridad.h"

#include <QApplication>
#include <QDate>
#include <QDir>
#include <QLocale>
#include <QShortcut>

namespace {
const QString FORMULARIO = QStringLiteral("frmCopiaSeguridad");
}

frmCopiaSeguridad::frmCopiaSeguridad(QWidget* padre) : Pantalla(padre), ui(new Ui::frmCopiaSeguridad)
{
    ui->setupUi(this);
    prepararBarra(ui->pb_Barra);
    connect(ui->cmd_IniciarCopia, &QPushButton::clicked, this, &frmCopiaSeguridad::cmd_IniciarCopia_Click);
    connect(ui->cmd_Cambiar, &QPushButton::clicked, this, &frmCopiaSeguridad::cmd_Cambiar_Click);
    connect(ui->cmd_Salir, &QPushButton::clicked, this, [this] { Pantallas::descargar(this); });
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, ui->cmd_Salir, &QPushButton::click);
    Form_Load();
}

frmCopiaSeguridad::~frmCopiaSeguridad() { delete ui; }

frmCopiaSeguridad* frmCopiaSeguridad::abrir(bool salir)
{
    frmCopiaSeguridad* f = Pantallas::cargada<frmCopiaSeguridad>();
    if (!f)
        f = new frmCopiaSeguridad;
    // Abierta ya desde el menú y pedida al salir: al cerrarla también termina el programa.
    f->salirAlTerminar = f->salirAlTerminar || salir;
    Pantallas::mostrar(f);
    f->ui->txt_NombreCopia->setFocus();
    return f;
}

void frmCopiaSeguridad::Form_Load()
{
    guardia(FORMULARIO, QStringLiteral("Form_Load"), [&] {
        setWindowIcon(QApplication::windowIcon());
        const QString documentos = obtenerCarpetaEspecial(5);
        ui->lbl_RutaCopia->setText(documentos.isEmpty() ? Rutas::nativa(QDir::rootPath()) : Rutas::conSeparadorFinal(documentos));
        ui->txt_NombreCopia->setText(QStringLiteral("PlanorumMirvade - ")
                                     + QLocale().toString(QDate::currentDate(), QLocale::LongFormat));
        ui->chk_RecordarCopia->setChecked(leerAjuste(QStringLiteral("opciones"), QStringLiteral("copia")) == QLatin1String("1"));
    });
}

void frmCopiaSeguridad::cmd_Cambiar_Click()
{
    guardia(FORMULARIO, QStringLiteral("cmd_Cambiar_Click"), [&] {
        const QString ruta = cambiarRuta(this, 4);
        if (!ruta.isEmpty())
            ui->lbl_RutaCopia->setText(ruta);
    });
}

void frmCopiaSeguridad::cmd_IniciarCopia_Click()
{
    guardia(FORMULARIO, QStringLiteral("cmd_IniciarCopia_Click"), [&] {
        const QString carpeta = ui->lbl_RutaCopia->text();
        if (carpeta.isEmpty()) {
            Mensajes::aviso(QStringLiteral("Debe seleccionar el directorio donde realizar la copia de seguridad"));
            ui->cmd_Cambiar->setFocus();
            return;
        }
        const QString nombre = ui->txt_NombreCopia->text().trimmed();
        if (nombre.isEmpty()) {
            Mensajes::aviso(QStringLiteral("Debe proporcionar un nombre para la copia de seguridad"));
            ui->txt_NombreCopia->setFocus();
            return;
        }
        // Con el servidor no hay fichero vivo: la copia lee el servidor sin detener a nadie.
        const bool servidor = BaseDatos::enServidor();
        const QString ruta = leerRutaBD();
        if (!servidor && ruta.isEmpty())
            return;
        const QString mee = carpeta + nombre + QStringLiteral(".mee");
        if (!trabajarSobreLaBase(this, ui->pb_Barra, [&](const Almacen::Latido& latido) {
                if (servidor)
                    CopiaServidor::copiar(mee, latido);
                else
                    Almacen::copiarBaseDatos(ruta + BaseDatos::NOMBRE_FICHERO, mee, latido);
            }))
            return;
        Almacen::sustituirFichero(Rutas::ficheroIni(), carpeta + QStringLiteral("inicio.ini.bak"));
        Mensajes::informacion(QStringLiteral("Copia de seguridad realizada correctamente en: ") + carpeta);
    });
}

bool frmCopiaSeguridad::alDescargar()
{
    guardia(FORMULARIO, QStringLiteral("Form_Unload"), [&] {
        if (!escribirAjuste(QStringLiteral("Opciones"), QStringLiteral("copia"),
                            ui->chk_RecordarCopia->isChecked() ? QStringLiteral("1") : QStringLiteral("0")))
            lanzarError(-1, QStringLiteral("No se ha podido guardar el recordatorio de la copia de seguridad en ")
                                + Rutas::nativa(Rutas::ficheroIni()));
    });
    // Es la salida del programa pedida al cerrar la principal, haya copia o no.
    if (salirAlTerminar)
        Programa::terminar();
    return true;
}
