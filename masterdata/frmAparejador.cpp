#include "masterdata/frmAparejador.h"

#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "ui_frmAparejador.h"

namespace {
FichaOtros::Textos textosAparejador()
{
    FichaOtros::Textos t;
    t.categoria = QStringLiteral("ARQUITECTO TECNICO");
    t.cargaFallida = QStringLiteral("No se han podido cargar los datos del arquitecto técnico seleccionado");
    t.nombrePersona = QStringLiteral("El nombre del arquitecto técnico es obligatorio.");
    t.existePersona = QStringLiteral("Ya existe un arquitecto técnico con ese número de colegiado.");
    t.noHallado = QStringLiteral("No se ha podido hallar el arquitecto técnico seleccionado para su modificación");
    t.alta = QStringLiteral("Arquitecto técnico dado de alta correctamente");
    t.modificado = QStringLiteral("Datos del arquitecto técnico modificados correctamente");
    return t;
}
}  // namespace

frmAparejador::frmAparejador(QWidget* padre) : FichaOtros(textosAparejador(), padre), ui(std::make_unique<Ui::frmAparejador>())
{
    ui->setupUi(this);
    setWindowIcon(Iconos::icono(QStringLiteral("aparejador")));
    iniciar();
}

frmAparejador::~frmAparejador() = default;

void frmAparejador::ActualizarDatosAparejador_Proyecto()
{
    UsoConexion uso;
    ejecutar(QStringLiteral("UPDATE Proyectos_A SET APACOL = ?, APANOM = ? WHERE APACOL = ?"),
             {numero(), nombre(), QString::number(numeroAnterior())});
}

QString frmAparejador::listaMenu() const { return QStringLiteral("APAREJADORES"); }
