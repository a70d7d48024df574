#include "masterdata/frmContratista.h"

#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "ui_frmContratista.h"

namespace {
FichaOtros::Textos textosContratista()
{
    FichaOtros::Textos t;
    t.categoria = QStringLiteral("CONSTRUCTOR");
    t.cargaFallida = QStringLiteral("No se han podido cargar los datos del contratista seleccionado");
    t.nombrePersona = QStringLiteral("El nombre del contratista es obligatorio.");
    t.noHallado = QStringLiteral("No se ha podido hallar el contratista seleccionado para su modificación");
    t.alta = QStringLiteral("Contratista dado de alta correctamente");
    t.modificado = QStringLiteral("Datos del contratista modificados correctamente");
    t.conUnicidad = false;
    return t;
}
}  // namespace

frmContratista::frmContratista(QWidget* padre)
    : FichaOtros(textosContratista(), padre), ui(std::make_unique<Ui::frmContratista>())
{
    ui->setupUi(this);
    setWindowIcon(Iconos::icono(QStringLiteral("contratista")));
    iniciar();
}

frmContratista::~frmContratista() = default;

void frmContratista::ActualizarDatosConstructor_Proyecto()
{
    UsoConexion uso;
    ejecutar(QStringLiteral("UPDATE Proyectos_A SET CONNOM = ? WHERE Codigo_Constructor = ?"), {nombre(), Codigo});
}

QString frmContratista::listaMenu() const { return QStringLiteral("CONTRATISTAS"); }
