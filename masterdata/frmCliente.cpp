#include "masterdata/frmCliente.h"

#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "masterdata/frmValidarNIFCIF.h"
#include "ui_frmCliente.h"

#include <QApplication>

frmCliente::frmCliente(QWidget* padre) : FichaRegistro(padre), ui(std::make_unique<Ui::frmCliente>())
{
    ui->setupUi(this);
    conectarBotones();
    connect(ui->opt_Tipo_0, &QRadioButton::toggled, this, [this](bool marcada) {
        if (marcada)
            guardia(objectName(), QStringLiteral("opt_Tipo_Click"), [&] { opt_Tipo_Click(0); });
    });
    connect(ui->opt_Tipo_1, &QRadioButton::toggled, this, [this](bool marcada) {
        if (marcada)
            guardia(objectName(), QStringLiteral("opt_Tipo_Click"), [&] { opt_Tipo_Click(1); });
    });
    connect(ui->img_Validar, &QToolButton::clicked, this, [this] { img_Validar_Click(); });
    connect(ui->img_Validar_Representante, &QToolButton::clicked, this, [this] { img_Validar_Representante_Click(); });
    opt_Tipo_Click(0);  // el estado del diseño: persona física
}

frmCliente::~frmCliente() = default;

QList<QWidget*> frmCliente::controlesCliente() const
{
    return {ui->txt_Nombre, ui->txt_Apellidos, ui->txt_Domicilio, ui->txt_CP, ui->txt_NIF, ui->txt_Municipio,
            ui->cbo_Provincia_Cliente, ui->txt_Correo, ui->txt_Telefono1, ui->txt_Telefono2, ui->txt_Movil, ui->txt_Fax,
            ui->txt_Notas};
}

QList<QWidget*> frmCliente::controlesRepresentante() const
{
    return {ui->txt_Nombre_Representante, ui->txt_Apellidos_Representante, ui->txt_Domicilio_Representante,
            ui->txt_CP_Representante, ui->txt_NIF_Representante, ui->txt_Municipio_Representante,
            ui->cbo_Provincia_Representante, ui->txt_Correo_Representante, ui->txt_Telefono1_Representante,
            ui->txt_Telefono2_Representante, ui->txt_Movil_Representante, ui->txt_Fax_Representante,
            ui->txt_Notas_Representante};
}

// La copia cubre las dos pestañas: un cambio en la del representante cuenta aunque esté apagada.
QList<QWidget*> frmCliente::controlesCopia() const { return controlesCliente() + controlesRepresentante(); }

RegistroGuardado frmCliente::registroGuardado() const
{
    RegistroGuardado r;
    r.codigo = m_claveNueva;
    r.nombre = nombreCompleto(ui->txt_Nombre, ui->txt_Apellidos);
    r.nif = recortado(ui->txt_NIF);
    const qint64 claveRep = ui->lbl_CodRepresentante->text().trimmed().toLongLong();
    r.codigoRepresentante = claveRep >= 1 ? QString::number(claveRep) : QString();
    r.nifRepresentante = recortado(ui->txt_NIF_Representante);
    r.nombreRepresentante = nombreCompleto(ui->txt_Nombre_Representante, ui->txt_Apellidos_Representante);
    r.representacion = recortado(ui->txt_Representacion);
    return r;
}

bool frmCliente::tieneRepresentante() const { return ui->mst_1->isTabEnabled(1); }

void frmCliente::opt_Tipo_Click(int indice)
{
    const bool persona = indice == 0;
    ui->lbl_Nombre->setText(persona ? QStringLiteral("Nombre") : QStringLiteral("Empresa"));
    ui->lbl_NIF->setText(persona ? QStringLiteral("N.I.F.") : QStringLiteral("C.I.F."));
    ui->lbl_Apellidos->setEnabled(persona);
    ui->txt_Apellidos->setEnabled(persona);
    // Caja deshabilitada con el gris de los botones; habilitada, con el color de ventana.
    QPalette p = QApplication::palette(ui->txt_Apellidos);
    if (!persona)
        for (auto grupo : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            p.setColor(grupo, QPalette::Base, p.color(grupo, QPalette::Button));
    ui->txt_Apellidos->setPalette(p);
    ui->mst_1->setTabEnabled(1, !persona);
}

void frmCliente::img_Validar_Click() { validarIdentificador(ui->txt_NIF, ui->opt_Tipo_0->isChecked()); }

void frmCliente::img_Validar_Representante_Click() { validarIdentificador(ui->txt_NIF_Representante, true); }

void frmCliente::cargarDatos()
{
    ui->img_Validar->setIcon(Iconos::icono(QStringLiteral("validar")));
    ui->img_Validar_Representante->setIcon(Iconos::icono(QStringLiteral("validar")));
    setWindowIcon(Iconos::icono(QStringLiteral("cliente")));
    prepararProvincia(ui->cbo_Provincia_Cliente);
    prepararProvincia(ui->cbo_Provincia_Representante);
    instalarFiltroNumeros(ui->txt_CP);
    instalarFiltroNumeros(ui->txt_CP_Representante);
    instalarFiltroNIF(ui->txt_NIF);
    limitarNotas(ui->txt_Notas, 255);
    limitarNotas(ui->txt_Notas_Representante, 255);

    if (esAlta()) {
        ui->opt_Tipo_0->setChecked(true);
        opt_Tipo_Click(0);
        return;
    }
    if (!esModificar())
        return;

    UsoConexion uso;
    QVariant esR;
    {
        Consulta c(QStringLiteral("SELECT * FROM CLIENTES WHERE Codigo_Cli = ?"), {Codigo});
        if (!c.siguiente()) {
            Mensajes::aviso(QStringLiteral("No se han podido cargar los datos del cliente seleccionado"));
            return;
        }
        esR = c.valor(QStringLiteral("esR"));
        const bool sociedad = !esR.isNull() && esR.toLongLong() != -1;
        ui->opt_Tipo_0->setChecked(!sociedad);
        ui->opt_Tipo_1->setChecked(sociedad);
        opt_Tipo_Click(sociedad ? 1 : 0);
        ui->txt_Nombre->setText(c.texto(QStringLiteral("Nombre_Cli")));
        ui->txt_Apellidos->setText(c.texto(QStringLiteral("Ape_Cli")));
        ui->txt_NIF->setText(c.texto(QStringLiteral("NIF")));
        ui->txt_Domicilio->setText(c.texto(QStringLiteral("Dirección_Cli")));
        ui->txt_Municipio->setText(c.texto(QStringLiteral("Municipio_Cli")));
        ui->cbo_Provincia_Cliente->setEditText(c.texto(QStringLiteral("Provincia_Cli")));
        ui->txt_Telefono1->setText(c.texto(QStringLiteral("Tfno_Cli")));
        ui->txt_Telefono2->setText(c.texto(QStringLiteral("tf")));
        ui->txt_Movil->setText(c.texto(QStringLiteral("TelMovil")));
        ui->txt_Fax->setText(c.texto(QStringLiteral("Fax_Cli")));
        ui->txt_CP->setText(c.texto(QStringLiteral("cp")));
        ui->txt_Notas->setPlainText(c.texto(QStringLiteral("Otros")));
        ui->txt_Correo->setText(c.texto(QStringLiteral("Correo_Cli")));
    }
    if (esR.isNull() || esR.toLongLong() == -1)
        return;
    Consulta r(QStringLiteral("SELECT * FROM REPRESENTANTES WHERE Codigo_Cli = ?"), {esR});
    if (!r.siguiente()) {
        Mensajes::aviso(QStringLiteral("No se han podido cargar los datos del representante seleccionado"));
        return;
    }
    ui->txt_Nombre_Representante->setText(r.texto(QStringLiteral("Nombre_Cli")));
    ui->txt_Apellidos_Representante->setText(r.texto(QStringLiteral("Ape_Cli")));
    ui->txt_NIF_Representante->setText(r.texto(QStringLiteral("NIF")));
    ui->txt_Domicilio_Representante->setText(r.texto(QStringLiteral("Dirección_Cli")));
    ui->txt_Municipio_Representante->setText(r.texto(QStringLiteral("Municipio_Cli")));
    ui->cbo_Provincia_Representante->setEditText(r.texto(QStringLiteral("Provincia_Cli")));
    ui->txt_Telefono1_Representante->setText(r.texto(QStringLiteral("Tfno_Cli")));
    ui->txt_Telefono2_Representante->setText(r.texto(QStringLiteral("tf")));
    ui->txt_Movil_Representante->setText(r.texto(QStringLiteral("TelMovil")));
    ui->txt_Fax_Representante->setText(r.texto(QStringLiteral("Fax_Cli")));
    ui->txt_CP_Representante->setText(r.texto(QStringLiteral("cp")));
    ui->txt_Notas_Representante->setPlainText(r.texto(QStringLiteral("Otros")));
    ui->txt_Correo_Representante->setText(r.texto(QStringLiteral("Correo_Cli")));
    ui->txt_Representacion->setText(r.texto(QStringLiteral("Representacion")));
    ui->lbl_CodRepresentante->setText(esR.toString());
}

bool frmCliente::validarDatos()
{
    const bool persona = ui->opt_Tipo_0->isChecked();
    if (recortado(ui->txt_Nombre).isEmpty()) {
        avisarCampo(ui->txt_Nombre, obligatorio(persona ? QStringLiteral("El nombre del cliente es obligatorio.")
                                                        : QStringLiteral("El nombre de la sociedad es obligatorio.")));
        return false;
    }
    if (recortado(ui->txt_NIF).isEmpty()) {
        avisarCampo(ui->txt_NIF, obligatorio(QStringLiteral("El NIF del cliente es obligatorio.")));
        return false;
    }
    if (!comprobarCorreo(ui->txt_Correo))
        return false;
    if (tieneRepresentante()) {
        if (recortado(ui->txt_Nombre_Representante).isEmpty()) {
            avisarCampo(ui->txt_Nombre_Representante, obligatorio(QStringLiteral("El nombre del representante es obligatorio.")));
            return false;
        }
        if (recortado(ui->txt_Apellidos_Representante).isEmpty()) {
            avisarCampo(ui->txt_Apellidos_Representante,
                        obligatorio(QStringLiteral("Los apellidos del representante son obligatorios.")));
            return false;
        }
    }
    return true;
}

bool frmCliente::guardarRegistro()
{
    const qint64 clave = claveAGuardar(QStringLiteral("Clientes"), QStringLiteral("Codigo_Cli"),
                                       QStringLiteral("No se ha podido hallar el cliente seleccionado para su modificación"));
    if (clave == 0)
        return false;
    Campos campos = {
        {QStringLiteral("Nombre_Cli"), textoONulo(ui->txt_Nombre->text())},
        {QStringLiteral("Ape_Cli"), textoONulo(ui->txt_Apellidos->text())},
        {QStringLiteral("NIF"), textoONulo(ui->txt_NIF->text())},
        {QStringLiteral("Dirección_Cli"), textoONulo(ui->txt_Domicilio->text())},
        {QStringLiteral("Municipio_Cli"), textoONulo(ui->txt_Municipio->text())},
        {QStringLiteral("Provincia_Cli"), textoONulo(ui->cbo_Provincia_Cliente->currentText())},
        {QStringLiteral("Tfno_Cli"), textoONulo(ui->txt_Telefono1->text())},
        {QStringLiteral("tf"), textoONulo(ui->txt_Telefono2->text())},
        {QStringLiteral("TelMovil"), textoONulo(ui->txt_Movil->text())},
        {QStringLiteral("Fax_Cli"), textoONulo(ui->txt_Fax->text())},
        {QStringLiteral("cp"), textoONulo(ui->txt_CP->text())},
        {QStringLiteral("Otros"), textoONulo(ui->txt_Notas->toPlainText())},
        {QStringLiteral("Correo_Cli"), textoONulo(ui->txt_Correo->text())},
    };
    qint64 esR = -1;

    if (tieneRepresentante()) {
        qint64 claveRep = 0;
        const bool nuevo = ui->lbl_CodRepresentante->text().trimmed().isEmpty();
        if (nuevo) {
            claveRep = siguienteClave(QStringLiteral("REPRESENTANTES"), QStringLiteral("Codigo_Cli"));
        } else {
            claveRep = ui->lbl_CodRepresentante->text().trimmed().toLongLong();
            if (escalar(QStringLiteral("SELECT Codigo_Cli FROM REPRESENTANTES WHERE Codigo_Cli = ?"), {claveRep}).isNull()) {
                Mensajes::aviso(
                    QStringLiteral("No se ha podido hallar el reprentante del cliente seleccionado para su modificación"));
                return false;
            }
        }
        Campos rep = {
            {QStringLiteral("Nombre_Cli"), textoONulo(ui->txt_Nombre_Representante->text())},
            {QStringLiteral("Ape_Cli"), textoONulo(ui->txt_Apellidos_Representante->text())},
            {QStringLiteral("NIF"), textoONulo(ui->txt_NIF_Representante->text())},
            {QStringLiteral("Dirección_Cli"), textoONulo(ui->txt_Domicilio_Representante->text())},
            {QStringLiteral("Municipio_Cli"), textoONulo(ui->txt_Municipio_Representante->text())},
            {QStringLiteral("Provincia_Cli"), textoONulo(ui->cbo_Provincia_Representante->currentText())},
            {QStringLiteral("Tfno_Cli"), textoONulo(ui->txt_Telefono1_Representante->text())},
            {QStringLiteral("tf"), textoONulo(ui->txt_Telefono2_Representante->text())},
            {QStringLiteral("TelMovil"), textoONulo(ui->txt_Movil_Representante->text())},
            {QStringLiteral("Fax_Cli"), textoONulo(ui->txt_Fax_Representante->text())},
            {QStringLiteral("cp"), textoONulo(ui->txt_CP_Representante->text())},
            {QStringLiteral("Otros"), textoONulo(ui->txt_Notas_Representante->toPlainText())},
            {QStringLiteral("Correo_Cli"), textoONulo(ui->txt_Correo_Representante->text())},
            {QStringLiteral("Representacion"), textoONulo(ui->txt_Representacion->text())},
        };
        if (nuevo) {
            rep.prepend({QStringLiteral("Codigo_Cli"), claveRep});
            insertar(QStringLiteral("REPRESENTANTES"), rep);
        } else {
            actualizar(QStringLiteral("REPRESENTANTES"), rep, QStringLiteral("Codigo_Cli = ?"), {claveRep});
        }
        esR = claveRep;
        ui->lbl_CodRepresentante->setText(QString::number(claveRep));
    }

    campos << qMakePair(QStringLiteral("esR"), QVariant(esR));
    if (esAlta()) {
        campos.prepend({QStringLiteral("Codigo_Cli"), clave});
        insertar(QStringLiteral("CLIENTES"), campos);
    } else {
        actualizar(QStringLiteral("CLIENTES"), campos, QStringLiteral("Codigo_Cli = ?"), {clave});
    }
    m_claveNueva = clave;
    return true;
}

void frmCliente::actualizarCopiasExternas()
{
    ActualizarDatosCliente_DatosB4();
    ActualizarDatosCliente_Proyecto();
}

void frmCliente::ActualizarDatosCliente_Proyecto()
{
    UsoConexion uso;  // sin transacción en curso, abre y cierra ella misma
    ejecutar(QStringLiteral("UPDATE Proyectos_A SET CLINOM = ?, CLINIF = ?, CLIDOM = ?, CLIMUN = ?, CLIPRO = ?, CLITEL = ?, "
                            "CLICP = ? WHERE Codigo_Cliente = ?"),
             {nombreCompleto(ui->txt_Nombre, ui->txt_Apellidos), recortado(ui->txt_NIF), recortado(ui->txt_Domicilio),
              recortado(ui->txt_Municipio), recortado(ui->cbo_Provincia_Cliente), recortado(ui->txt_Telefono1),
              recortado(ui->txt_CP), Codigo});
    if (!tieneRepresentante())
        return;
    ejecutar(QStringLiteral("UPDATE Proyectos_A SET REPNOM = ?, REPNIF = ?, REPDOM = ?, REPMUN = ?, REPPRO = ?, REPTEL = ?, "
                            "REPCP = ? WHERE Codigo_Representante = ?"),
             {nombreCompleto(ui->txt_Nombre_Representante, ui->txt_Apellidos_Representante),
              recortado(ui->txt_NIF_Representante), recortado(ui->txt_Domicilio_Representante),
              recortado(ui->txt_Municipio_Representante), recortado(ui->cbo_Provincia_Representante),
              recortado(ui->txt_Telefono1_Representante), recortado(ui->txt_CP_Representante),
              ui->lbl_CodRepresentante->text().trimmed().toLongLong()});
}

void frmCliente::ActualizarDatosCliente_DatosB4()
{
    UsoConexion uso;
    ejecutar(QStringLiteral("UPDATE datosB4 SET PAGNOM = ?, PAGNIF = ?, PAGDOM = ?, PAGMUN = ?, PAGPRO = ?, PAGTEL = ?, "
                            "PAGCP = ? WHERE PAGCOD = ?"),
             {nombreCompleto(ui->txt_Nombre, ui->txt_Apellidos), recortado(ui->txt_NIF), recortado(ui->txt_Domicilio),
              recortado(ui->txt_Municipio), recortado(ui->cbo_Provincia_Cliente), recortado(ui->txt_Telefono1),
              recortado(ui->txt_CP), Codigo});
}

QString frmCliente::textoAlta() const { return QStringLiteral("Cliente dado de alta correctamente"); }
QString frmCliente::textoModificado() const { return QStringLiteral("Datos del cliente modificados correctamente"); }
QString frmCliente::listaMenu() const { return QStringLiteral("CLIENTES"); }
