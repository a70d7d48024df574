#include "masterdata/frmConfiguracion.h"

#include "core/Iconos.h"
#include <QPointer>
#include "core/modFunciones.h"
#include "masterdata/frmValidarNIFCIF.h"
#include "core/Programa.h"
#include "masterdata/FichaRegistro.h"
#include "masterdata/frmAddModCosteReferencia.h"
#include "masterdata/Porcentajes.h"
#include "reports/frmVisorCrystal.h"
#include "reports/modInformes.h"
#include "search/frmBuscarSeleccionar.h"
#include "ui_frmConfiguracion.h"

#include <QHeaderView>
#include <QToolBar>
#include <QTreeWidget>

namespace {

const QString FORMULARIO = QStringLiteral("frmConfiguracion");
const QString AVISO_OBLIGATORIO = QStringLiteral("\nPor favor, escriba un valor");

QString n(const char* prefijo, int i) { return QString::fromLatin1(prefijo) + QString::number(i); }

// Número guardado tal cual, con la coma decimal: 525,5 / 16.
QString textoNumero(const QVariant& v)
{
    if (v.isNull())
        return {};
    return QString::number(v.toDouble(), 'g', 15).replace(QLatin1Char('.'), QLatin1Char(','));
}

QString textoCodigo(const QVariant& v) { return v.isNull() ? QString() : QString::number(v.toLongLong()); }

QVariant codigoNumericoONulo(const QString& texto)
{
    bool ok = false;
    const qint64 c = texto.trimmed().toLongLong(&ok);
    return ok ? QVariant(c) : QVariant();
}

QVariant numeroONulo(const QString& texto)
{
    if (texto.trimmed().isEmpty())
        return {};
    return Formato::aNumero(texto);
}

QString textoCoeficiente(const QVariant& v) { return v.isNull() ? QString() : Formato::formatear(v.toDouble(), QStringLiteral("#,##0.00")); }

void escribirFilaCoste(QTreeWidgetItem* fila, const QString& codigo, const QString& tipo, const QString& descripcion,
                       const QVariant& ct, const QVariant& cc)
{
    ponerClaveFila(fila, QStringLiteral("K") + codigo);
    fila->setText(0, codigo);
    fila->setText(1, tipo);
    fila->setText(2, descripcion);
    fila->setText(3, textoCoeficiente(ct));
    fila->setText(4, textoCoeficiente(cc));
    fila->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
    fila->setTextAlignment(4, Qt::AlignRight | Qt::AlignVCenter);
}

}  // namespace

frmConfiguracion::frmConfiguracion(QWidget* padre) : PantallaEdicion(padre), ui(std::make_unique<Ui::frmConfiguracion>())
{
    ui->setupUi(this);
    for (int i = 1; i <= 4; ++i)
        caja(n("txt_CodArq_", i))->hide();
    ui->txt_CodSoc->hide();

    for (int i = 0; i <= 4; ++i) {
        auto* buscar = findChild<QToolButton*>(n("img_Buscar_", i));
        auto* borrar = findChild<QToolButton*>(n("img_Borrar_", i));
        buscar->setIcon(Iconos::icono(QStringLiteral("buscar")));
        borrar->setIcon(Iconos::icono(QStringLiteral("borrar")));
        connect(buscar, &QToolButton::clicked, this, [this, i] { img_Buscar_Click(i); });
        connect(borrar, &QToolButton::clicked, this, [this, i] { img_Borrar_Click(i); });
    }
    ui->img_Validar->setIcon(Iconos::icono(QStringLiteral("validar")));
    connect(ui->img_Validar, &QToolButton::clicked, this, [this] { img_Validar_Click(); });

    // Módulo con una coma decimal; IVA e IRPF enteros.
    instalarFiltroPorcentaje(ui->txt_ModuloM);
    FichaRegistro::alSalir(ui->txt_ModuloM, [this] {
        const QString t = completarDecimal(ui->txt_ModuloM->text());
        if (t != ui->txt_ModuloM->text())
            ui->txt_ModuloM->setText(t);
    });
    instalarFiltroNumeros(ui->txt_Iva);
    instalarFiltroNumeros(ui->txt_Irpf);

    connect(ui->cmd_Cambiar, &QPushButton::clicked, this, [this] { cmd_Cambiar_Click(); });
    connect(ui->cmd_CambiarRutaExcel, &QPushButton::clicked, this, [this] { cmd_CambiarRutaExcel_Click(); });
    connect(ui->cmd_CambiarRutaPdf, &QPushButton::clicked, this, [this] { cmd_CambiarRutaPdf_Click(); });
    connect(ui->cmd_Guardar, &QPushButton::clicked, this, [this] { cmd_Guardar_Click(); });
    connect(ui->cmd_Cerrar, &QPushButton::clicked, this, [this] { cmd_Cerrar_Click(); });

    // Barras de la lista de costes.
    tlb_BotoneraCostes = new QToolBar(this);
    tlb_BotoneraCostes->setObjectName(QStringLiteral("tlb_BotoneraCostes"));
    tlb_BotoneraCostes->setIconSize(QSize(24, 24));
    const struct {
        const char* icono;
        const char* texto;
    } botones[] = {{"nuevo", "Nuevo coste de referencia"}, {"editar", "Modificar coste de referencia"}, {"eliminar", "Eliminar coste de referencia"}};
    for (int b = 0; b < 3; ++b) {
        QAction* a = tlb_BotoneraCostes->addAction(Iconos::icono(QString::fromLatin1(botones[b].icono)), QString::fromUtf8(botones[b].texto));
        a->setObjectName(n("tlb_BotoneraCostes_", b + 1));
        connect(a, &QAction::triggered, this, [this, b] { tlb_BotoneraCostes_ButtonClick(b + 1); });
    }
    tlb_BotoneraImprimir = new QToolBar(this);
    tlb_BotoneraImprimir->setObjectName(QStringLiteral("tlb_BotoneraImprimir"));
    tlb_BotoneraImprimir->setIconSize(QSize(24, 24));
    QAction* imprimir = tlb_BotoneraImprimir->addAction(Iconos::icono(QStringLiteral("imprimir")),
                                                        QStringLiteral("Imprimir el listado de costes de referencia"));
    imprimir->setObjectName(QStringLiteral("tlb_BotoneraImprimir_1"));
    connect(imprimir, &QAction::triggered, this, [this] { tlb_BotoneraImprimir_ButtonClick(); });
    ui->lay_BarrasCostes->insertWidget(0, tlb_BotoneraCostes);
    ui->lay_BarrasCostes->addWidget(tlb_BotoneraImprimir);

    QTreeWidget* lvw = ui->lvw_CostesDeReferencia;
    lvw->header()->setSectionsClickable(true);
    lvw->header()->setSortIndicatorShown(false);
    lvw->setColumnWidth(0, 70);
    lvw->setColumnWidth(1, 170);
    lvw->setColumnWidth(2, 260);
    lvw->setColumnWidth(3, 70);
    lvw->headerItem()->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
    lvw->headerItem()->setTextAlignment(4, Qt::AlignRight | Qt::AlignVCenter);
    connect(lvw->header(), &QHeaderView::sectionClicked, this, [this](int c) { lvw_CostesDeReferencia_ColumnClick(c); });
    connect(lvw, &QTreeWidget::itemDoubleClicked, this, [this] { modificarCoste(); });
}

frmConfiguracion::~frmConfiguracion() = default;

bool frmConfiguracion::disponible() { return true; }

frmConfiguracion* frmConfiguracion::abrir(int pestana)
{
    frmConfiguracion* f = Pantallas::cargada<frmConfiguracion>();
    if (!f) {
        f = new frmConfiguracion;
        f->Form_Load();
    }
    Pantallas::mostrar(f);
    f->ui->mst_1->setCurrentIndex(pestana);
    return f;
}

QTabWidget* frmConfiguracion::pestanas() const { return ui->mst_1; }
QTreeWidget* frmConfiguracion::listaCostes() const { return ui->lvw_CostesDeReferencia; }
QLineEdit* frmConfiguracion::caja(const QString& nombre) const { return findChild<QLineEdit*>(nombre); }

QList<QLineEdit*> frmConfiguracion::cajasDomicilio() const
{
    return {ui->txt_Domicilio, ui->txt_NIF,  ui->txt_CodigoPostal, ui->txt_Municipio,         ui->txt_Provincia,
            ui->txt_Telefono,  ui->txt_Fax, ui->txt_Movil,        ui->txt_CorreoElectronico};
}

QList<QWidget*> frmConfiguracion::controlesCopia() const
{
    QList<QWidget*> l;
    for (int i = 1; i <= 4; ++i)
        l << caja(n("txt_Arquitecto_", i));
    for (int i = 1; i <= 4; ++i)
        l << caja(n("txt_NumColegiado_", i));
    l << ui->txt_Sociedad << ui->txt_NumRegistro << ui->txt_NIF << ui->txt_Domicilio << ui->txt_CodigoPostal << ui->txt_Municipio
      << ui->txt_Provincia << ui->txt_Telefono << ui->txt_Fax << ui->txt_Movil << ui->txt_CorreoElectronico << ui->txt_PaginaWeb
      << ui->txt_ModuloM << ui->txt_Iva << ui->txt_Irpf << ui->txt_UbicacionAgenciaTributaria;
    return l;
}

bool frmConfiguracion::cargar()
{
    {
        {
            UsoConexion uso;
            Consulta c(QStringLiteral("SELECT * FROM Config"));
            if (!c.siguiente()) {
                Mensajes::aviso(QStringLiteral("No se han podido cargar los datos de la configuración"));
            } else {
                for (int i = 1; i <= 4; ++i) {
                    caja(n("txt_CodArq_", i))->setText(textoCodigo(c.valor(n("CodArq", i))));
                    caja(n("txt_Arquitecto_", i))->setText(c.texto(QStringLiteral("Arq%1Nom").arg(i)));
                    caja(n("txt_NumColegiado_", i))->setText(c.texto(QStringLiteral("Arq%1Col").arg(i)));
                }
                ui->txt_CodSoc->setText(textoCodigo(c.valor(QStringLiteral("CodSoc"))));
                ui->txt_Sociedad->setText(c.texto(QStringLiteral("SocNom")));
                ui->txt_NumRegistro->setText(c.texto(QStringLiteral("SocReg")));
                ui->txt_NIF->setText(c.texto(QStringLiteral("NIF")));
                ui->txt_Domicilio->setText(c.texto(QStringLiteral("Domicilio")));
                ui->txt_CodigoPostal->setText(c.texto(QStringLiteral("CP")));
                ui->txt_Municipio->setText(c.texto(QStringLiteral("Municipio")));
                ui->txt_Provincia->setText(c.texto(QStringLiteral("Provincia")));
                ui->txt_Telefono->setText(c.texto(QStringLiteral("Telefono")));
                ui->txt_Fax->setText(c.texto(QStringLiteral("Fax")));
                ui->txt_Movil->setText(c.texto(QStringLiteral("TfnMovil")));
                ui->txt_CorreoElectronico->setText(c.texto(QStringLiteral("CorreoElectronico")));
                ui->txt_PaginaWeb->setText(c.texto(QStringLiteral("PaginaWeb")));
                ui->txt_ModuloM->setText(textoNumero(c.valor(QStringLiteral("Modulo"))));
                ui->txt_Iva->setText(textoNumero(c.valor(QStringLiteral("IVA"))));
                ui->txt_Irpf->setText(textoNumero(c.valor(QStringLiteral("IRPF"))));
                ui->txt_UbicacionAgenciaTributaria->setText(c.texto(QStringLiteral("AgenciaTributaria")));
            }
        }
        // Con el servidor no hay carpeta que enseñar ni que cambiar: se dice qué servidor es.
        const bool enServidor = BaseDatos::enServidor();
        ui->txt_RutaBD->setText(enServidor ? BaseDatos::servidorElegido().textoVisible()
                                           : leerAjuste(QStringLiteral("BD"), QStringLiteral("ruta")));
        ui->txt_RutaBD->setToolTip(enServidor ? QStringLiteral("El servidor de la base de datos se elige en la sección [BD] de inicio.ini")
                                              : QString());
        ui->cmd_Cambiar->setEnabled(!enServidor);
        if (enServidor)
            ui->txt_RutaBD->setCursorPosition(0);  // que se lea desde "Servidor PostgreSQL"
        ui->txt_RutaExcel->setText(leerAjuste(QStringLiteral("EXPORTACION"), QStringLiteral("rutaExcel")));
        ui->txt_RutaPdf->setText(leerAjuste(QStringLiteral("EXPORTACION"), QStringLiteral("rutaPdf")));
        CargarCostesDeReferencia();
    }
    return true;
}

// --- Arquitectos y sociedad ---

PeticionSelector frmConfiguracion::peticionSelector(int indice)
{
    QPointer<frmConfiguracion> yo(this);
    PeticionSelector p{.claveLlamada = QStringLiteral("SELECCIONAR_EN_CONFIGURACION"),
                       .titulo = QStringLiteral("Buscar arquitecto"),
                       .llamador = this};
    if (indice == 4) {
        p.tabla = QStringLiteral("ARQUITECTOS_SOCIEDAD");
        p.claveRetorno = QStringLiteral("FRMCONFIGURACION_SOCIEDAD_PROFESIONAL");
        p.alElegir = [yo](const Eleccion& e) {
            if (yo)
                yo->recibirSociedad(e.codigo, e.nombreCompleto, e.texto(0));
            return true;
        };
        p.alDarDeAlta = [yo](const RegistroGuardado& r) {
            if (yo)
                yo->recibirNuevaSociedad(r.nombre, r.numero, r.contacto);
        };
    } else {
        const int posicion = indice + 1;
        p.tabla = QStringLiteral("ARQUITECTOS_SIMPLE");
        p.claveRetorno = n("FRMCONFIGURACION_ARQUITECTO_", posicion);
        p.posicion = static_cast<short>(posicion);
        p.alElegir = [yo, posicion](const Eleccion& e) {
            if (yo)
                yo->recibirArquitecto(posicion, e.codigo, e.nombreCompleto, e.texto(0));
            return true;
        };
        p.alDarDeAlta = [yo, posicion](const RegistroGuardado& r) {
            if (yo)
                yo->recibirNuevoArquitecto(posicion, r.nombre, r.numero, r.contacto);
        };
    }
    return p;
}

void frmConfiguracion::img_Buscar_Click(int indice)
{
    guardia(FORMULARIO, QStringLiteral("img_Buscar_Click"), [&] {
        if (indice < 0 || indice > 4)
            return;
        // Los arquitectos se rellenan en orden.
        if (indice >= 1 && indice <= 3 && caja(n("txt_Arquitecto_", indice))->text().trimmed().isEmpty()) {
            Mensajes::aviso(QStringLiteral("Antes de incluir este arquitecto, debe completar primero los arquitectos anteriores"));
            return;
        }
        frmBuscarSeleccionar::abrir(peticionSelector(indice));
    });
}

void frmConfiguracion::img_Borrar_Click(int indice)
{
    guardia(FORMULARIO, QStringLiteral("img_Borrar_Click"), [&] {
        if (indice >= 0 && indice <= 3) {
            caja(n("txt_CodArq_", indice + 1))->clear();
            caja(n("txt_Arquitecto_", indice + 1))->clear();
            caja(n("txt_NumColegiado_", indice + 1))->clear();
            if (indice == 0 && ui->txt_Sociedad->text().trimmed().isEmpty())
                for (QLineEdit* t : cajasDomicilio())
                    t->clear();
            return;
        }
        if (indice != 4)
            return;
        ui->txt_Sociedad->clear();
        ui->txt_NumRegistro->clear();
        ui->txt_CodSoc->clear();
        for (QLineEdit* t : cajasDomicilio())
            t->clear();
        // Vuelven los datos del primer arquitecto.
        const QString numero = ui->txt_NumColegiado_1->text().trimmed();
        if (numero.isEmpty())
            return;
        UsoConexion uso;
        Consulta c(QStringLiteral("SELECT * FROM OTROS WHERE NumColegiado = ? AND UCASE(Categoria) = 'ARQUITECTO' AND esS = 0"),
                   {codigoNumericoONulo(numero).isNull() ? QVariant(numero) : codigoNumericoONulo(numero)});
        if (c.siguiente())
            ponerDatosEstudio({c.texto(QStringLiteral("Dirección_Cli")), c.texto(QStringLiteral("NIF")), c.texto(QStringLiteral("cp")),
                               c.texto(QStringLiteral("Municipio_Cli")), c.texto(QStringLiteral("Provincia_Cli")),
                               c.texto(QStringLiteral("Tfno_Cli")), c.texto(QStringLiteral("Fax_Cli")), c.texto(QStringLiteral("TelMovil")),
                               c.texto(QStringLiteral("Correo_Cli"))});
    });
}

void frmConfiguracion::ponerDatosEstudio(const DatosContacto& d)
{
    ui->txt_Domicilio->setText(d.domicilio);
    ui->txt_NIF->setText(d.nif);
    ui->txt_CodigoPostal->setText(d.codigoPostal);
    ui->txt_Municipio->setText(d.municipio);
    ui->txt_Provincia->setText(d.provincia);
    ui->txt_Telefono->setText(d.telefono);
    ui->txt_Fax->setText(d.fax);
    ui->txt_Movil->setText(d.movil);
    ui->txt_CorreoElectronico->setText(d.correo);
}

void frmConfiguracion::cargarDatosEstudio(qint64 codigo)
{
    UsoConexion uso;
    Consulta c(QStringLiteral("SELECT * FROM OTROS WHERE Codigo_Cli = ? AND UCASE(Categoria) = 'ARQUITECTO'"), {codigo});
    if (!c.siguiente()) {
        Mensajes::aviso(QStringLiteral("No se han podido cargar los datos del arquitecto seleccionado"));
        return;
    }
    ponerDatosEstudio({c.texto(QStringLiteral("Dirección_Cli")), c.texto(QStringLiteral("NIF")), c.texto(QStringLiteral("cp")),
                       c.texto(QStringLiteral("Municipio_Cli")), c.texto(QStringLiteral("Provincia_Cli")), c.texto(QStringLiteral("Tfno_Cli")),
                       c.texto(QStringLiteral("Fax_Cli")), c.texto(QStringLiteral("TelMovil")), c.texto(QStringLiteral("Correo_Cli"))});
}

void frmConfiguracion::recibirArquitecto(int posicion, qint64 codigo, const QString& nombreCompleto, const QString& numero)
{
    guardia(FORMULARIO, QStringLiteral("recibirArquitecto"), [&] {
        if (posicion < 1 || posicion > 4)
            return;
        caja(n("txt_CodArq_", posicion))->setText(QString::number(codigo));
        caja(n("txt_Arquitecto_", posicion))->setText(nombreCompleto);
        caja(n("txt_NumColegiado_", posicion))->setText(numero);
        // El primero da los datos del estudio mientras no haya sociedad.
        if (posicion == 1 && ui->txt_Sociedad->text().trimmed().isEmpty())
            cargarDatosEstudio(codigo);
    });
}

void frmConfiguracion::recibirSociedad(qint64 codigo, const QString& nombreCompleto, const QString& numeroRegistro)
{
    guardia(FORMULARIO, QStringLiteral("recibirSociedad"), [&] {
        ui->txt_CodSoc->setText(QString::number(codigo));
        ui->txt_Sociedad->setText(nombreCompleto);
        ui->txt_NumRegistro->setText(numeroRegistro);
        cargarDatosEstudio(codigo);
    });
}

void frmConfiguracion::recibirNuevoArquitecto(int posicion, const QString& nombre, const QString& numero, const DatosContacto& datos)
{
    if (posicion < 1 || posicion > 4)
        return;
    caja(n("txt_Arquitecto_", posicion))->setText(nombre);
    caja(n("txt_NumColegiado_", posicion))->setText(numero);
    if (posicion == 1 && ui->txt_Sociedad->text().trimmed().isEmpty())
        ponerDatosEstudio(datos);
}

void frmConfiguracion::recibirNuevaSociedad(const QString& nombre, const QString& numeroRegistro, const DatosContacto& datos)
{
    ui->txt_Sociedad->setText(nombre);
    ui->txt_NumRegistro->setText(numeroRegistro);
    ponerDatosEstudio(datos);
}

void frmConfiguracion::img_Validar_Click()
{
    guardia(FORMULARIO, QStringLiteral("img_Validar_Click"), [&] {
        if (ui->txt_NIF->text().trimmed().isEmpty()) {
            Mensajes::aviso(QStringLiteral("Por favor, proporcione un valor para el NIF/CIF"));
            ui->txt_NIF->setFocus();
            return;
        }
        // NIF del arquitecto sin sociedad; CIF con ella.
        validarIdentificador(ui->txt_NIF, ui->txt_Sociedad->text().trimmed().isEmpty());
    });
}

// --- Carpetas ---

void frmConfiguracion::cmd_Cambiar_Click()
{
    guardia(FORMULARIO, QStringLiteral("cmd_Cambiar_Click"), [&] {
        const QString ruta = moverBaseDatos(this);
        if (ruta.isEmpty())
            return;
        ui->txt_RutaBD->setText(ruta);
        Programa::terminar();
    });
}

void frmConfiguracion::cmd_CambiarRutaExcel_Click()
{
    guardia(FORMULARIO, QStringLiteral("cmd_CambiarRutaExcel_Click"), [&] {
        const QString ruta = cambiarRuta(this, 2);
        if (ruta.isEmpty())
            return;
        ui->txt_RutaExcel->setText(ruta);
        escribirAjuste(QStringLiteral("EXPORTACION"), QStringLiteral("rutaExcel"), ruta);
    });
}

void frmConfiguracion::cmd_CambiarRutaPdf_Click()
{
    guardia(FORMULARIO, QStringLiteral("cmd_CambiarRutaPdf_Click"), [&] {
        const QString ruta = cambiarRuta(this, 3);
        if (ruta.isEmpty())
            return;
        ui->txt_RutaPdf->setText(ruta);
        escribirAjuste(QStringLiteral("EXPORTACION"), QStringLiteral("rutaPdf"), ruta);
    });
}

// --- Validación, guardado y salida ---

bool frmConfiguracion::validarDatos()
{
    for (int i = 1; i <= 3; ++i) {
        const QString codigo = caja(n("txt_CodArq_", i))->text().trimmed();
        if (codigo.isEmpty())
            continue;
        for (int j = i + 1; j <= 4; ++j)
            if (codigo == caja(n("txt_CodArq_", j))->text().trimmed()) {
                ui->mst_1->setCurrentIndex(0);
                Mensajes::aviso(QStringLiteral("No se puede incluir dos veces al arquitecto ") + caja(n("txt_Arquitecto_", i))->text().trimmed()
                                + QStringLiteral(".\nPor favor, elimine los arquitectos repetidos"));
                return false;
            }
    }
    const struct {
        QLineEdit* caja;
        const char* texto;
    } obligatorios[] = {{ui->txt_ModuloM, "El módulo M es obligatorio."},
                        {ui->txt_Iva, "El porcentaje de IVA es obligatorio."},
                        {ui->txt_Irpf, "El porcentaje de IRPF es obligatorio."}};
    for (const auto& o : obligatorios)
        if (o.caja->text().trimmed().isEmpty()) {
            ui->mst_1->setCurrentIndex(1);
            Mensajes::aviso(QString::fromUtf8(o.texto) + AVISO_OBLIGATORIO);
            o.caja->setFocus();
            return false;
        }
    return true;
}

void frmConfiguracion::cmd_Guardar_Click()
{
    m_cancelarCierre = false;
    const bool sinFallo = guardia(FORMULARIO, QStringLiteral("cmd_Guardar_Click"), [&] {
        if (!validarDatos()) {
            m_cancelarCierre = true;
            return;
        }
        {
            // La fila única se borra y se escribe de nuevo.
            Transaccion t;
            ejecutar(QStringLiteral("DELETE FROM Config"));
            Campos campos;
            for (int i = 1; i <= 4; ++i)
                campos << qMakePair(n("CodArq", i), codigoNumericoONulo(caja(n("txt_CodArq_", i))->text()));
            campos << qMakePair(QStringLiteral("CodSoc"), codigoNumericoONulo(ui->txt_CodSoc->text()));
            for (int i = 1; i <= 4; ++i) {
                campos << qMakePair(QStringLiteral("Arq%1Nom").arg(i), textoONulo(caja(n("txt_Arquitecto_", i))->text()));
                campos << qMakePair(QStringLiteral("Arq%1Col").arg(i), textoONulo(caja(n("txt_NumColegiado_", i))->text()));
            }
            const QList<QPair<const char*, QLineEdit*>> textos = {
                {"SocNom", ui->txt_Sociedad},     {"SocReg", ui->txt_NumRegistro},
                {"NIF", ui->txt_NIF},             {"Domicilio", ui->txt_Domicilio},
                {"CP", ui->txt_CodigoPostal},     {"Municipio", ui->txt_Municipio},
                {"Provincia", ui->txt_Provincia}, {"Telefono", ui->txt_Telefono},
                {"Fax", ui->txt_Fax},             {"TfnMovil", ui->txt_Movil},
                {"CorreoElectronico", ui->txt_CorreoElectronico}, {"PaginaWeb", ui->txt_PaginaWeb}};
            for (const auto& [campo, control] : textos)
                campos << qMakePair(QString::fromLatin1(campo), textoONulo(control->text()));
            campos << qMakePair(QStringLiteral("Modulo"), numeroONulo(ui->txt_ModuloM->text()))
                   << qMakePair(QStringLiteral("IVA"), numeroONulo(ui->txt_Iva->text()))
                   << qMakePair(QStringLiteral("IRPF"), numeroONulo(ui->txt_Irpf->text()))
                   << qMakePair(QStringLiteral("AgenciaTributaria"), textoONulo(ui->txt_UbicacionAgenciaTributaria->text()));
            insertar(QStringLiteral("Config"), campos);
            t.confirmar();
        }
        if (!BaseDatos::enServidor())
            escribirAjuste(QStringLiteral("BD"), QStringLiteral("ruta"), ui->txt_RutaBD->text());
        tomarCopia();
        Mensajes::informacion(QStringLiteral("La configuración se ha guardado correctamente"));
    });
    if (!sinFallo)
        m_cancelarCierre = true;
}

bool frmConfiguracion::guardarAlSalir()
{
    cmd_Guardar_Click();
    return !m_cancelarCierre;
}

void frmConfiguracion::cmd_Cerrar_Click()
{
    guardia(FORMULARIO, QStringLiteral("cmd_Cerrar_Click"), [&] { Pantallas::descargar(this); });
}

// --- Costes de referencia ---

void frmConfiguracion::CargarCostesDeReferencia()
{
    QTreeWidget* lvw = ui->lvw_CostesDeReferencia;
    lvw->clear();
    UsoConexion uso;
    Consulta c(QStringLiteral("SELECT * FROM Costes"));
    while (c.siguiente()) {
        auto* fila = new QTreeWidgetItem(lvw);
        escribirFilaCoste(fila, c.texto(QStringLiteral("CODIGO")), c.texto(QStringLiteral("TIPO")), c.texto(QStringLiteral("DESCRIPCION")),
                          c.valor(QStringLiteral("CT")), c.valor(QStringLiteral("CC")));
    }
}

void frmConfiguracion::agregarCoste(const QString& codigo, const QString& tipo, const QString& descripcion, const QVariant& ct,
                                    const QVariant& cc)
{
    auto* fila = new QTreeWidgetItem(ui->lvw_CostesDeReferencia);
    escribirFilaCoste(fila, codigo, tipo, descripcion, ct, cc);
}

void frmConfiguracion::reescribirCosteSeleccionado(const QString& codigo, const QString& tipo, const QString& descripcion,
                                                   const QVariant& ct, const QVariant& cc)
{
    if (QTreeWidgetItem* fila = ui->lvw_CostesDeReferencia->currentItem())
        escribirFilaCoste(fila, codigo, tipo, descripcion, ct, cc);
}

void frmConfiguracion::lvw_CostesDeReferencia_ColumnClick(int columna)
{
    // Un segundo clic en la misma columna invierte el orden.
    m_sentido = (columna == m_columnaOrden && m_sentido == Qt::AscendingOrder) ? Qt::DescendingOrder : Qt::AscendingOrder;
    m_columnaOrden = columna;
    ui->lvw_CostesDeReferencia->sortItems(columna, m_sentido);
}

void frmConfiguracion::abrirFichaCoste(const QString& operacion, const QString& codigo)
{
    // La ficha que hubiera abierta pasa antes por su pregunta de salida.
    if (!Pantallas::descargar<frmAddModCosteReferencia>())
        return;
    auto* f = new frmAddModCosteReferencia;
    f->operacion = operacion;
    f->setTag(operacion);
    f->setWindowTitle(operacion == QLatin1String("ALTA") ? QStringLiteral("Nuevo coste") : QStringLiteral("Modificar coste"));
    f->CodigoCoste = codigo;
    // La lista de costes recibe la fila guardada sin releer la tabla.
    QPointer<frmConfiguracion> yo(this);
    f->alGuardar = [yo](const RegistroGuardado& r) {
        if (!yo)
            return;
        const QVariant ct = r.valores.value(0), cc = r.valores.value(1);
        if (r.operacion == QLatin1String("ALTA"))
            yo->agregarCoste(r.codigoTexto, r.nombre, r.columnas.value(2), ct, cc);
        else
            yo->reescribirCosteSeleccionado(r.codigoTexto, r.nombre, r.columnas.value(2), ct, cc);
    };
    f->Form_Load();
    Pantallas::mostrar(f);
}

void frmConfiguracion::modificarCoste()
{
    guardia(FORMULARIO, QStringLiteral("modificarCoste"), [&] {
        QTreeWidget* lvw = ui->lvw_CostesDeReferencia;
        if (lvw->topLevelItemCount() == 0) {
            Mensajes::aviso(QStringLiteral("No hay costes de referencia en la lista"));
            return;
        }
        QTreeWidgetItem* fila = lvw->currentItem();
        if (!fila || !fila->isSelected()) {
            Mensajes::aviso(QStringLiteral("Por favor, seleccione un coste de referencia para modificar"));
            return;
        }
        abrirFichaCoste(QStringLiteral("MODIFICAR"), claveFila(fila).mid(1));
    });
}

void frmConfiguracion::tlb_BotoneraCostes_ButtonClick(int boton)
{
    switch (boton) {
    case 1:
        guardia(FORMULARIO, QStringLiteral("tlb_BotoneraCostes_ButtonClick"), [&] { abrirFichaCoste(QStringLiteral("ALTA"), QString()); });
        break;
    case 2:
        modificarCoste();
        break;
    case 3:
        guardia(FORMULARIO, QStringLiteral("tlb_BotoneraCostes_ButtonClick"), [&] {
            QTreeWidgetItem* fila = ui->lvw_CostesDeReferencia->currentItem();
            if (!fila || !fila->isSelected()) {
                Mensajes::aviso(QStringLiteral("Por favor, seleccione un coste de referencia para eliminar"));
                return;
            }
            const QString codigo = claveFila(fila).mid(1);
            if (Mensajes::pregunta(QStringLiteral("¿Realmente desea eliminar de la lista el coste de referencia con código ") + codigo
                                   + QStringLiteral("?"))
                != Mensajes::Respuesta::Si)
                return;
            UsoConexion uso;
            ejecutar(QStringLiteral("DELETE FROM Costes WHERE Codigo = ?"), {codigo});
            delete fila;
        });
        break;
    default:
        break;
    }
}

void frmConfiguracion::tlb_BotoneraImprimir_ButtonClick()
{
    guardia(FORMULARIO, QStringLiteral("tlb_BotoneraImprimir_ButtonClick"), [&] {
        if (!Pantallas::descargar<frmVisorCrystal>())
            return;
        if (!modInformes::nuevoInforme(QStringLiteral("crListadoCostesDeReferencia")))
            return;
        if (!modInformes::conectar() || !modInformes::iniciarInforme_CostesReferencia()) {
            modInformes::cerrar();
            return;
        }
        frmVisorCrystal::mostrarInforme(QStringLiteral("Listado de Costes de referencia"));
    });
}
