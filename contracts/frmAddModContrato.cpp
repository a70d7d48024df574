#include "contracts/frmAddModContrato.h"

#include "contracts/RegistroContratos.h"
#include "contracts/frmContratos.h"
#include "core/Almacen.h"
#include "core/CicloPantalla.h"
#include "core/modFunciones.h"
#include "ui_frmAddModContrato.h"

#include <QApplication>
#include <QKeyEvent>

using RegistroContratos::Contrato;

namespace {
const QString FORMULARIO = QStringLiteral("frmAddModContrato");
// La ruta se guarda en un campo de 255 caracteres.
constexpr int LONGITUD_RUTA = 255;
const QString SE_ABORTA = QStringLiteral("Se aborta el proceso de creación del documento");

// Teclas con las que se despliega una lista, y las que cambian su elección sin desplegarla.
bool despliega(const QKeyEvent* tecla)
{
    const bool alt = tecla->modifiers() & Qt::AltModifier;
    return tecla->key() == Qt::Key_F4 || tecla->key() == Qt::Key_Space
           || (alt && (tecla->key() == Qt::Key_Down || tecla->key() == Qt::Key_Up));
}
bool cambiaEleccion(const QKeyEvent* tecla)
{
    switch (tecla->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End: return true;
    default: return !tecla->text().isEmpty() && tecla->text().at(0).isPrint();
    }
}
}  // namespace

frmAddModContrato::frmAddModContrato(QWidget* padre) : Pantalla(padre), ui(new Ui::frmAddModContrato)
{
    ui->setupUi(this);
    setWindowIcon(QApplication::windowIcon());
    connect(ui->cmd_Generar, &QPushButton::clicked, this, &frmAddModContrato::cmd_Generar_Click);
    connect(ui->cmd_Actualizar, &QPushButton::clicked, this, &frmAddModContrato::cmd_Actualizar_Click);
    connect(ui->cmd_Examinar, &QPushButton::clicked, this, &frmAddModContrato::cmd_Examinar_Click);
    connect(ui->cmd_Cerrar, &QPushButton::clicked, this, [this] { Pantallas::descargar(this); });
    ui->cbo_Plantilla->installEventFilter(this);
}

frmAddModContrato::~frmAddModContrato() { delete ui; }

frmAddModContrato* frmAddModContrato::crear(const QString& operacion, const QString& titulo, const QString& tipoDocumento)
{
    Pantallas::descargar<frmAddModContrato>();
    auto* f = new frmAddModContrato;
    f->setTag(operacion);
    f->setWindowTitle(titulo);
    f->TipoDocumento = tipoDocumento;
    f->Form_Load();
    return f;
}

frmAddModContrato* frmAddModContrato::alta(const QString& tipoDocumento)
{
    frmAddModContrato* f = crear(QStringLiteral("ALTA"), QStringLiteral("Nuevo documento"), tipoDocumento);
    Pantallas::mostrar(f);
    f->ui->txt_Nombre->setFocus();
    return f;
}

frmAddModContrato* frmAddModContrato::modificar(const Contrato& contrato)
{
    frmAddModContrato* f = crear(QStringLiteral("MODIFICAR"), QStringLiteral("Editar documento"), contrato.tipo);
    f->Clave = contrato.clave;
    f->ui->txt_Nombre->setText(contrato.nombre);
    f->ui->txt_Directorio->setText(contrato.ruta);
    f->ui->chk_EsPlantilla->setChecked(contrato.esPlantilla);
    // La plantilla con que se hizo, aunque ya no se ofrezca (una personal borrada).
    int i = f->ui->cbo_Plantilla->findText(contrato.plantilla, Qt::MatchExactly);
    if (i < 0 && !contrato.plantilla.isEmpty()) {
        f->ui->cbo_Plantilla->addItem(contrato.plantilla);
        i = f->ui->cbo_Plantilla->count() - 1;
    }
    f->ui->cbo_Plantilla->setCurrentIndex(i);
    Pantallas::mostrar(f);
    f->ui->txt_Nombre->setFocus();
    return f;
}

void frmAddModContrato::Form_Load()
{
    guardia(FORMULARIO, QStringLiteral("Form_Load"), [&] {
        ui->cmd_Generar->setVisible(!esModificar());
        ui->cmd_Actualizar->setVisible(esModificar());
        // En "MODIFICAR" la caja lleva la ruta entera del fichero, no la carpeta.
        ui->lbl_Directorio->setText(esModificar() ? QStringLiteral("Fichero") : QStringLiteral("Directorio"));
        cargarPlantillas();
    });
}

// La plantilla base del tipo y, detrás, los documentos del mismo tipo que sirven de plantilla.
void frmAddModContrato::cargarPlantillas()
{
    ui->cbo_Plantilla->clear();
    if (const RegistroContratos::Tipo* t = RegistroContratos::tipoDeDocumento(TipoDocumento))
        ui->cbo_Plantilla->addItem(t->plantilla);
    for (const Contrato& k : RegistroContratos::deTipo(TipoDocumento))
        if (k.esPlantilla)
            ui->cbo_Plantilla->addItem(QStringLiteral("[Personal] ") + k.nombre, k.clave);
    ui->cbo_Plantilla->setCurrentIndex(-1);
}

bool frmAddModContrato::validarDatos()
{
    if (ui->txt_Nombre->text().trimmed().isEmpty()) {
        Mensajes::aviso(QStringLiteral("El nombre del documento es obligatorio.") + QStringLiteral("\n")
                        + QStringLiteral("Por favor, escriba un valor"));
        ui->txt_Nombre->setFocus();
        return false;
    }
    if (ui->cbo_Plantilla->currentIndex() < 0) {
        Mensajes::aviso(QStringLiteral("La plantilla en la que se basa el documento es obligatoria.") + QStringLiteral("\n")
                        + QStringLiteral("Por favor, seleccione una plantilla"));
        ui->cbo_Plantilla->setFocus();
        return false;
    }
    if (ui->txt_Directorio->text().trimmed().isEmpty()) {
        Mensajes::aviso(QStringLiteral("El directorio donde se creará el documento es obligatorio.") + QStringLiteral("\n")
                        + QStringLiteral("Por favor, seleccione un valor"));
        ui->txt_Directorio->setFocus();
        return false;
    }
    return true;
}

void frmAddModContrato::buscarPlantilla(QString& origen, QString& tipo) const
{
    const QVariant personal = ui->cbo_Plantilla->currentData();
    if (personal.isValid()) {
        Contrato plantilla;
        if (RegistroContratos::leer(personal.toLongLong(), plantilla)) {
            origen = plantilla.ruta.trimmed();
            tipo = plantilla.tipo;
        }
        return;
    }
    if (const RegistroContratos::Tipo* t = RegistroContratos::tipoDeDocumento(TipoDocumento)) {
        origen = leerRutaAjuste(QStringLiteral("PLANTILLAS_CONTRATOS"), QStringLiteral("P") + t->documento);
        tipo = t->documento;
    }
}

bool frmAddModContrato::rutaAdmitida(const QString& ruta)
{
    if (ruta.size() <= LONGITUD_RUTA)
        return true;
    Mensajes::aviso(QStringLiteral("La ruta de creación es mayor de 255 caracteres.") + QStringLiteral("\n")
                    + QStringLiteral("Por favor, seleccione otra ubicación para el fichero a crear"));
    ui->txt_Directorio->setFocus();
    return false;
}

void frmAddModContrato::refrescarRegistro() const
{
    if (frmContratos* registro = Pantallas::cargada<frmContratos>())
        registro->tre_1_DblClick();
}

void frmAddModContrato::cmd_Generar_Click()
{
    const QString procedimiento = QStringLiteral("cmd_Generar_Click");
    guardia(FORMULARIO, procedimiento, [&] {
        if (!validarDatos())
            return;
        QString origen;
        QString tipo;
        {
            CursorEspera espera;
            buscarPlantilla(origen, tipo);
        }
        if (origen.isEmpty()) {
            Mensajes::aviso(QStringLiteral("No se ha podido establecer el directorio en el que se encuentra la plantilla a emplear.")
                            + QStringLiteral("\n") + SE_ABORTA);
            return;
        }
        if (tipo.isEmpty()) {
            Mensajes::aviso(QStringLiteral("No se ha podido establecer el tipo de documento a crear.") + QStringLiteral("\n") + SE_ABORTA);
            return;
        }
        // La carpeta tal como está escrita y el nombre sin espacios detrás, sin separador en medio.
        const QString destino = ui->txt_Directorio->text().trimmed()
                                + ui->txt_Nombre->text().trimmed().remove(QLatin1Char(' ')) + QStringLiteral(".doc");
        if (!rutaAdmitida(destino))
            return;
        {
            CursorEspera espera;
            // Primero la fila y luego la copia: si la copia falla, la fila queda y abrirla lo dice.
            {
                UsoConexion uso;
                insertar(QStringLiteral("Contratos"), {{QStringLiteral("Nombre"), ui->txt_Nombre->text().trimmed()},
                                                       {QStringLiteral("RutaDocumento"), destino},
                                                       {QStringLiteral("TipoDocumento"), tipo},
                                                       {QStringLiteral("PlantillaEmpleada"), ui->cbo_Plantilla->currentText()},
                                                       {QStringLiteral("EsPlantilla"), ui->chk_EsPlantilla->isChecked() ? 1 : 0}});
            }
            // Un fichero que ya existe con ese nombre se sustituye sin preguntar.
            Almacen::sustituirFichero(origen, destino);
        }
        Mensajes::informacion(QStringLiteral("Documento creado correctamente en: ") + QStringLiteral("\n") + destino);
        refrescarRegistro();
        if (Mensajes::pregunta(QStringLiteral("¿Desea abrir el documento creado?")) == Mensajes::Respuesta::Si)
            RegistroContratos::abrirDocumento(destino, FORMULARIO, procedimiento);
    });
}

void frmAddModContrato::cmd_Actualizar_Click()
{
    guardia(FORMULARIO, QStringLiteral("cmd_Actualizar_Click"), [&] {
        if (!validarDatos())
            return;
        const QString ruta = ui->txt_Directorio->text().trimmed();
        if (!rutaAdmitida(ruta))
            return;
        bool hallado = false;
        {
            UsoConexion uso;
            hallado = !escalar(QStringLiteral("SELECT Clave FROM Contratos WHERE Clave = ?"), {Clave}).isNull();
            // Sólo la anotación: el fichero no se renombra ni se mueve.
            if (hallado)
                actualizar(QStringLiteral("Contratos"),
                           {{QStringLiteral("Nombre"), ui->txt_Nombre->text().trimmed()},
                            {QStringLiteral("RutaDocumento"), ruta},
                            {QStringLiteral("EsPlantilla"), ui->chk_EsPlantilla->isChecked() ? 1 : 0}},
                           QStringLiteral("Clave = ?"), {Clave});
        }
        if (!hallado) {
            Mensajes::aviso(QStringLiteral("No se ha podido hallar el contrato seleccionado para su modificación"));
            return;
        }
        refrescarRegistro();
        Mensajes::informacion(QStringLiteral("El documento se ha actualizado correctamente"));
    });
}

void frmAddModContrato::cmd_Examinar_Click()
{
    guardia(FORMULARIO, QStringLiteral("cmd_Examinar_Click"), [&] {
        const QString elegido = esModificar()
            ? Sistema::elegirFichero(QStringLiteral("Seleccione el archivo asociado al documento"), QStringLiteral("Documentos de Word (*.doc)"))
            : cambiarRuta(this, 5);
        if (!elegido.isEmpty())
            ui->txt_Directorio->setText(elegido);
    });
}

void frmAddModContrato::cbo_Plantilla_DropDown()
{
    guardia(FORMULARIO, QStringLiteral("cbo_Plantilla_DropDown"), [&] {
        if (esModificar())
            Mensajes::aviso(QStringLiteral("No se puede cambiar el tipo de la plantilla"));
    });
}

// En "MODIFICAR" la plantilla con que se hizo el documento no cambia: desplegar la lista avisa, y
// la rueda y las teclas no mueven su elección.
bool frmAddModContrato::eventFilter(QObject* objeto, QEvent* evento)
{
    if (objeto == ui->cbo_Plantilla && esModificar()) {
        switch (evento->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            cbo_Plantilla_DropDown();
            return true;
        case QEvent::KeyPress: {
            const auto* tecla = static_cast<QKeyEvent*>(evento);
            if (despliega(tecla)) {
                cbo_Plantilla_DropDown();
                return true;
            }
            if (cambiaEleccion(tecla))
                return true;
            break;
        }
        case QEvent::Wheel: return true;
        default: break;
        }
    }
    return Pantalla::eventFilter(objeto, evento);
}
