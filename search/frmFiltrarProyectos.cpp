#include "search/frmFiltrarProyectos.h"

#include "core/Fechas.h"
#include "core/modFunciones.h"
#include "core/CicloPantalla.h"
#include "core/Fichas.h"

#include <optional>
#include "reports/frmVisorCrystal.h"
#include "reports/modExcel.h"
#include "reports/modInformes.h"
#include "ui_frmFiltrarProyectos.h"

#include <QApplication>
#include <QTimer>

namespace {
const QString FORMULARIO = QStringLiteral("frmFiltrarProyectos");

QDate leerFecha(const QString& texto) { return QDate::fromString(texto, QStringLiteral("dd/MM/yyyy")); }
}  // namespace

frmFiltrarProyectos::frmFiltrarProyectos(QWidget* padre) : Pantalla(padre), ui(new Ui::frmFiltrarProyectos)
{
    ui->setupUi(this);
    setWindowIcon(QApplication::windowIcon());
    prepararCampoFecha(ui->msk_Fecha_1);
    prepararCampoFecha(ui->msk_Fecha_2);
    // Los desplegables empiezan sin elegir: la validación lo pide.
    ui->cbo_Fecha->setCurrentIndex(-1);
    ui->cbo_Operador->setCurrentIndex(-1);
    connect(ui->opt_Opcion_0, &QRadioButton::toggled, this, [this] { opt_Opcion_Click(); });
    connect(ui->cbo_Operador, &QComboBox::activated, this, [this] { cbo_Operador_Click(); });
    connect(ui->cmd_Ver, &QPushButton::clicked, this, &frmFiltrarProyectos::cmd_Ver_Click);
    connect(ui->cmd_Cerrar, &QPushButton::clicked, this, [this] { Pantallas::descargar(this); });
    for (QLineEdit* m : {ui->msk_Fecha_1, ui->msk_Fecha_2})
        m->installEventFilter(this);
    opt_Opcion_Click();
}

frmFiltrarProyectos::~frmFiltrarProyectos() { delete ui; }

frmFiltrarProyectos* frmFiltrarProyectos::abrir(int accion, const PantallaLlamadora& origen)
{
    Pantallas::descargar<frmFiltrarProyectos>();
    auto* f = new frmFiltrarProyectos;
    f->Accion = accion;
    f->Origen = origen;
    Pantallas::mostrar(f);
    return f;
}

bool frmFiltrarProyectos::eventFilter(QObject* o, QEvent* e)
{
    // Al entrar en una fecha se selecciona todo su texto.
    if (e->type() == QEvent::FocusIn)
        if (auto* campo = qobject_cast<QLineEdit*>(o))
            QTimer::singleShot(0, campo, [campo] { campo->selectAll(); });
    return Pantalla::eventFilter(o, e);
}

void frmFiltrarProyectos::opt_Opcion_Click()
{
    const bool porFecha = ui->opt_Opcion_1->isChecked();
    for (QWidget* w : std::initializer_list<QWidget*>{ui->cbo_Fecha, ui->cbo_Operador, ui->msk_Fecha_1})
        w->setEnabled(porFecha);
    if (!porFecha) {
        ui->cbo_Fecha->setCurrentIndex(-1);
        ui->cbo_Operador->setCurrentIndex(-1);
        ui->msk_Fecha_1->clear();
    }
    cbo_Operador_Click();
}

void frmFiltrarProyectos::cbo_Operador_Click()
{
    const bool entre = ui->cbo_Operador->currentText() == QLatin1String("Entre");
    ui->lbl_Y->setEnabled(entre);
    ui->msk_Fecha_2->setEnabled(entre);
    if (!entre)
        ui->msk_Fecha_2->clear();
}

bool frmFiltrarProyectos::validarDatos()
{
    if (!ui->opt_Opcion_1->isChecked())
        return true;
    auto falla = [](const QString& texto, QWidget* foco) {
        Mensajes::aviso(texto);
        foco->setFocus();
        return false;
    };
    if (ui->cbo_Fecha->currentText().trimmed().isEmpty())
        return falla(QStringLiteral("Por favor, seleccione el tipo de fecha por la que filtrar"), ui->cbo_Fecha);
    if (ui->cbo_Operador->currentText().trimmed().isEmpty())
        return falla(QStringLiteral("Por favor, seleccione un operador de la lista"), ui->cbo_Operador);
    if (ui->msk_Fecha_1->displayText() == FECHA_VACIA)
        return falla(QStringLiteral("Por favor, proporcione el valor de la primera fecha"), ui->msk_Fecha_1);
    if (!validarFecha(ui->msk_Fecha_1))
        return false;
    if (ui->cbo_Operador->currentText() == QLatin1String("Entre")) {
        if (ui->msk_Fecha_2->displayText() == FECHA_VACIA)
            return falla(QStringLiteral("Por favor, proporcione el valor de la segunda fecha"), ui->msk_Fecha_2);
        if (!validarFecha(ui->msk_Fecha_2))
            return false;
        if (leerFecha(ui->msk_Fecha_1->displayText()) >= leerFecha(ui->msk_Fecha_2->displayText()))
            return falla(QStringLiteral("La primera fecha ha de ser menor que la segunda.") + QStringLiteral("\n")
                             + QStringLiteral("Por favor, cambie el valor proporcionado"),
                         ui->msk_Fecha_1);
    }
    return true;
}

void frmFiltrarProyectos::cmd_Ver_Click()
{
    bool terminado = false;
    guardia(FORMULARIO, QStringLiteral("cmd_Ver_Click"), [&] {
        if (!validarDatos())
            return;
        std::optional<CursorEspera> espera(std::in_place);
        // El filtro va como valores enlazados: las fechas se comparan como fechas.
        modInformes::FiltroFecha filtro;
        if (ui->opt_Opcion_1->isChecked()) {
            const QDate f1 = leerFecha(ui->msk_Fecha_1->displayText());
            const QDate f2 = leerFecha(ui->msk_Fecha_2->displayText());
            filtro = modInformes::FiltroFecha::desdeTextos(ui->cbo_Fecha->currentText(), ui->cbo_Operador->currentText(), f1, f2);
        }
        auto estado = [this](const QString& t) {
            if (Origen.estado)
                Origen.estado(t);
        };
        switch (Accion) {
        case 1:
            estado(QStringLiteral("Generando vista preliminar..."));
            Pantallas::descargar<frmVisorCrystal>();
            break;
        case 2: estado(QStringLiteral("Generando el fichero Excel...")); break;
        default: estado(QStringLiteral("Generando el fichero PDF...")); break;
        }
        if (Accion == 1 || Accion == 3) {
            modInformes::nuevoInforme(QStringLiteral("crListadoProyectos"));
            modInformes::conectar();
            modInformes::iniciarInforme_ListadoProyectos(filtro);
        }
        espera.reset();
        if (Accion == 1) {
            frmVisorCrystal::mostrarInforme(QStringLiteral("Listado de proyectos"));
        } else if (Accion == 2) {
            const QString destino = leerAjuste(QStringLiteral("EXPORTACION"), QStringLiteral("rutaExcel")) + QStringLiteral("ListadoDeProyectos.xlsx");
            escribirExcel(destino, QStringLiteral("PROYECTOS_A"), filtro);
        } else {
            const QString ruta = leerAjuste(QStringLiteral("EXPORTACION"), QStringLiteral("rutaPdf"));
            if (ruta.isEmpty()) {
                modInformes::cerrar();
                Mensajes::aviso(QStringLiteral("No se ha establecido el directorio en el que se exportará el documento PDF.") + QStringLiteral("\n")
                                + QStringLiteral("Por favor, selecciónelo en la pantalla de configuración e intente de nuevo la operación"));
                Fichas::abrir({.tabla = Fichas::CONFIGURACION, .pestana = 1});
                return;
            }
            const QString fichero = ruta + QStringLiteral("ListadoDeProyectos.pdf");
            const bool bien = modInformes::exportarPDF(fichero);
            modInformes::cerrar();
            if (!bien)
                lanzarError(-1, QStringLiteral("No se ha podido generar el documento PDF ") + fichero);
            // Anota con el nombre de la rutina de la que se copió.
            Exportar::ofrecerAbrirPDF(fichero, FORMULARIO, QStringLiteral("exportarListadoPDF"));
        }
        if (Origen.estado)
            Origen.estado(QStringLiteral("Número de registros hallados: ") + QString::number(Origen.registros ? Origen.registros() : 0));
        terminado = true;
    });
    if (terminado)
        Pantallas::descargar(this);
}
