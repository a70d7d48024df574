#include "masterdata/frmArquitecto.h"

#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "ui_frmArquitecto.h"

namespace {
FichaOtros::Textos textosArquitecto()
{
    FichaOtros::Textos t;
    t.categoria = QStringLiteral("ARQUITECTO");
    t.cargaFallida = QStringLiteral("No se han podido cargar los datos del arquitecto seleccionado");
    t.nombrePersona = QStringLiteral("El nombre del arquitecto es obligatorio.");
    t.existePersona = QStringLiteral("Ya existe un arquitecto con ese número de colegiado.");
    t.noHallado = QStringLiteral("No se ha podido hallar el arquitecto seleccionado para su modificación");
    t.alta = QStringLiteral("Arquitecto dado de alta correctamente");
    t.modificado = QStringLiteral("Datos del arquitecto modificados correctamente");
    t.bloquearTipo = true;
    return t;
}
}  // namespace

frmArquitecto::frmArquitecto(QWidget* padre) : FichaOtros(textosArquitecto(), padre), ui(std::make_unique<Ui::frmArquitecto>())
{
    ui->setupUi(this);
    setWindowIcon(Iconos::icono(QStringLiteral("arquitecto")));
    iniciar();
}

frmArquitecto::~frmArquitecto() = default;

void frmArquitecto::actualizarCopiasExternas()
{
    ActualizarDatosArquitecto_Configuracion();
    ActualizarDatosArquitecto_Proyecto();
    ActualizarDatosArquitecto_DatosB1B3B4();
    ActualizarDatosArquitecto_DatosB4();
}

void frmArquitecto::ActualizarDatosArquitecto_Configuracion()
{
    UsoConexion uso;
    // Sólo el primer arquitecto, buscado por el número que tenía al abrir la ficha.
    const bool sociedad = opt_Tipo_1->isChecked();
    const QString anterior = QString::number(numeroAnterior());
    QVariant fila;
    bool sinSociedad = false;
    {
        Consulta c(sociedad ? QStringLiteral("SELECT rowid, SocNom FROM Config WHERE SocReg = ?")
                            : QStringLiteral("SELECT rowid, SocNom FROM Config WHERE Arq1Col = ?"),
                   {anterior});
        if (!c.siguiente())
            return;
        fila = c.valor(0);
        sinSociedad = c.texto(QStringLiteral("SocNom")).isEmpty();
    }
    if (sociedad)
        actualizar(QStringLiteral("Config"), {{QStringLiteral("SocNom"), recortado(txt_Nombre)}, {QStringLiteral("SocReg"), numero()}},
                   QStringLiteral("rowid = ?"), {fila});
    else
        actualizar(QStringLiteral("Config"), {{QStringLiteral("Arq1Nom"), nombre()}, {QStringLiteral("Arq1Col"), numero()}},
                   QStringLiteral("rowid = ?"), {fila});
    // Sin sociedad, la dirección del primer arquitecto es la del estudio.
    if (sociedad || sinSociedad)
        actualizar(QStringLiteral("Config"),
                   {{QStringLiteral("Domicilio"), texto("txt_Domicilio")},
                    {QStringLiteral("NIF"), texto("txt_NIF")},
                    {QStringLiteral("CP"), texto("txt_CP")},
                    {QStringLiteral("Municipio"), texto("txt_Municipio")},
                    {QStringLiteral("Provincia"), texto("cbo_Provincia")},
                    {QStringLiteral("Telefono"), texto("txt_Telefono1")},
                    {QStringLiteral("Fax"), texto("txt_Fax")},
                    {QStringLiteral("TfnMovil"), texto("txt_Movil")},
                    {QStringLiteral("CorreoElectronico"), texto("txt_Correo")}},
                   QStringLiteral("rowid = ?"), {fila});
}

void frmArquitecto::ActualizarDatosArquitecto_Proyecto()
{
    UsoConexion uso;
    // Por el número y no por el código: cambian también los de otro con el mismo número.
    ejecutar(QStringLiteral("UPDATE Arquitectos_Proyecto SET NumCol = ? WHERE NumCol = ?"),
             {numero(), QString::number(numeroAnterior())});
}

void frmArquitecto::ActualizarDatosArquitecto_DatosB1B3B4()
{
    UsoConexion uso;
    ejecutar(QStringLiteral("UPDATE datosB1B3B4 SET ARQNOM = ?, ARQNIF = ?, ARQDOM = ?, ARQMUN = ?, ARQPRO = ?, ARQTEL = ?, "
                            "ARQCP = ? WHERE ARQCOD = ?"),
             {nombre(), texto("txt_NIF"), texto("txt_Domicilio"), texto("txt_Municipio"), texto("cbo_Provincia"),
              texto("txt_Telefono1"), texto("txt_CP"), Codigo});
}

void frmArquitecto::ActualizarDatosArquitecto_DatosB4()
{
    UsoConexion uso;
    ejecutar(QStringLiteral("UPDATE datosB4 SET PERNOM = ?, PERNIF = ?, PERDOM = ?, PERMUN = ?, PERPRO = ?, PERTEL = ?, "
                            "PERCP = ? WHERE PERCOD = ?"),
             {nombre(), texto("txt_NIF"), texto("txt_Domicilio"), texto("txt_Municipio"), texto("cbo_Provincia"),
              texto("txt_Telefono1"), texto("txt_CP"), Codigo});
}

QString frmArquitecto::listaMenu() const { return QStringLiteral("ARQUITECTOS"); }
