#include "forms/frmDatosImpreso_B1_B3_B4.h"

#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "forms/BloquesImpreso.h"
#include "forms/CamposImporte.h"
#include "forms/frmAddModDetalleFacturaHonorarios.h"
#include "ui_frmDatosImpreso_B1_B3_B4.h"

#include <QHeaderView>
#include <QTreeWidget>

using BloquesImpreso::FilaTemporal;

namespace {

const QString FORMULARIO = QStringLiteral("frmDatosImpreso_B1_B3_B4");
const QString PATRON = QStringLiteral("#,##0.00");
constexpr int COLUMNA_CONCEPTO = 0;
constexpr int COLUMNA_IMPORTE = 1;

double numero(const QLineEdit* campo) { return Formato::aNumero(campo->text()); }
QString importe(double valor) { return Formato::formatear(valor, PATRON); }

// Valor de un importe guardado (nulo como cero).
double valorGuardado(const QVariant& v) { return v.typeId() == QMetaType::QString ? Formato::aNumero(v.toString()) : v.toDouble(); }

// Importe guardado, como lo enseña la pantalla; nulo como vacío.
QString importeGuardado(const QVariant& v) { return v.isNull() ? QString() : importe(valorGuardado(v)); }

// Porcentaje de una etiqueta: el tipo por cien, con sus quince cifras ("16", "7,5").
QString porcentaje(double tipo) { return QString::number(tipo * 100, 'g', 15).replace(QLatin1Char('.'), QLatin1Char(',')); }

// Importe de las tablas temporales: el texto de la pantalla tal cual, nulo si está vacío.
QVariant textoONuloImporte(const QLineEdit* campo)
{
    const QString t = campo->text().trimmed();
    return t.isEmpty() ? QVariant(QMetaType(QMetaType::QString)) : QVariant(t);
}

}  // namespace

frmDatosImpreso_B1_B3_B4::frmDatosImpreso_B1_B3_B4(QWidget* padre)
    : DatosImpreso(QStringLiteral("frmDatosImpreso_B1_B3_B4"), padre), ui(std::make_unique<Ui::frmDatosImpreso_B1_B3_B4>())
{
    ui->setupUi(this);
    enlazarControles();
    ui->img_Buscar_1->setIcon(Iconos::icono(QStringLiteral("buscar"), 20));
    ui->img_Borrar_1->setIcon(Iconos::icono(QStringLiteral("borrar"), 20));
    ui->lvw_Concepto->header()->setStretchLastSection(false);
    ui->lvw_Concepto->header()->setSectionResizeMode(COLUMNA_CONCEPTO, QHeaderView::Stretch);
    ui->lvw_Concepto->header()->resizeSection(COLUMNA_IMPORTE, 120);
    ui->lvw_Concepto->headerItem()->setTextAlignment(COLUMNA_IMPORTE, Qt::AlignRight | Qt::AlignVCenter);
    CamposImporte::instalarFiltro(ui->txt_Importe);

    connect(ui->img_Buscar_1, &QToolButton::clicked, this, [this] { img_Buscar_Click(1); });
    connect(ui->img_Borrar_1, &QToolButton::clicked, this, [this] { img_Borrar_Click(1); });
    connect(ui->cmd_Anadir, &QPushButton::clicked, this, [this] { cmd_Anadir_Click(); });
    connect(ui->cmd_Editar, &QPushButton::clicked, this, [this] { cmd_Editar_Click(); });
    connect(ui->cmd_Borrar, &QPushButton::clicked, this, [this] { cmd_Borrar_Click(); });
    connect(ui->lvw_Concepto, &QTreeWidget::itemDoubleClicked, this, [this] { lvw_Concepto_DblClick(); });
    // Los cambios hechos por el programa (la suma, la carga) recalculan igual que los del usuario.
    connect(ui->txt_Importe, &QLineEdit::textChanged, this, [this] { txt_Change_KeyPress(); });
    connect(ui->txt_Importe, &QLineEdit::editingFinished, this, [this] { txt_Importe_LostFocus(); });
    connect(ui->txt_TotalAbonado, &QLineEdit::textChanged, this, [this] { txt_TotalAbonado_KeyPress(); });
    connect(ui->chk_Retencion, &QCheckBox::toggled, this, [this] { chk_Retencion_Click(); });
}

frmDatosImpreso_B1_B3_B4::~frmDatosImpreso_B1_B3_B4() = default;

// ---------------------------------------------------------------- carga

void frmDatosImpreso_B1_B3_B4::aplicarLimites()
{
    ui->txt_NumFactura->setMaxLength(20);
    ui->txt_NumRegCliente->setMaxLength(20);
    ui->txt_TotalAbonado_Texto->setMaxLength(250);
    // txt_Importe no lleva límite: sólo lo escribe el programa, y un límite cortaría la suma.
}

bool frmDatosImpreso_B1_B3_B4::prepararCarga()
{
    Consulta c(QStringLiteral("SELECT IVA, IRPF FROM Config"));
    if (!c.siguiente()) {
        Mensajes::aviso(AVISO_SIN_TIPOS);
        return false;
    }
    m_tipoIva = c.nulo(QStringLiteral("IVA")) ? 0 : c.valor(QStringLiteral("IVA")).toDouble() / 100;
    m_tipoIrpf = c.nulo(QStringLiteral("IRPF")) ? 0 : c.valor(QStringLiteral("IRPF")).toDouble() / 100;
    ui->lbl_Iva->setText(QStringLiteral("I.V.A. (") + porcentaje(m_tipoIva) + QStringLiteral(" %)"));
    ui->lbl_Irpf->setText(QStringLiteral("RETENCIÓN I.R.P.F. (") + porcentaje(m_tipoIrpf) + QStringLiteral(" %) *"));
    return true;
}

void frmDatosImpreso_B1_B3_B4::cargarCampos(const Consulta& c)
{
    txt_CodProyecto->setText(c.texto(QStringLiteral("PRYCOD")));
    txt_Proyecto->setText(c.texto(QStringLiteral("PRYNOM")));
    ui->txt_CodEmisor->setText(c.texto(QStringLiteral("ARQCOD")));
    ui->txt_Emisor->setText(c.texto(QStringLiteral("ARQNOM")));
    ui->txt_NumFactura->setText(c.texto(QStringLiteral("NUMFAC")));
    ui->txt_NumRegCliente->setText(c.texto(QStringLiteral("REGCLI")));
    // La cadena corre con los tipos de hoy; los importes guardados la sustituyen hasta el primer cambio.
    ui->txt_Importe->setText(importeGuardado(c.valor(QStringLiteral("IMPORTE"))));
    ui->txt_TotalHonorarios->setText(ui->txt_Importe->text());
    ui->txt_Iva->setText(importeGuardado(c.valor(QStringLiteral("IVA"))));
    ui->txt_TotalFactura->setText(importeGuardado(c.valor(QStringLiteral("TOTAL"))));
    ui->txt_Irpf->setText(importeGuardado(c.valor(QStringLiteral("IRPF"))));
    ui->txt_TotalAbonado->setText(importeGuardado(c.valor(QStringLiteral("EURABON"))));
    // Marcar la casilla corre su ajuste, como al pulsarla: la retención queda en "0".
    ui->chk_Retencion->setChecked(valorGuardado(c.valor(QStringLiteral("IRPF"))) == 0.0);
    ui->txt_TotalAbonado_Texto->setText(c.texto(QStringLiteral("TXTABON")));
    txt_Lugar->setText(c.texto(QStringLiteral("LUGAR")));
    txt_Fecha->setText(c.texto(QStringLiteral("FECHA")));
    Consulta lineas(QStringLiteral("SELECT * FROM Detalle_Factura_Honorarios WHERE Id_Factura = ?"), {Clave});
    while (lineas.siguiente())
        agregarLinea(lineas.texto(QStringLiteral("Concepto")), importeGuardado(lineas.valor(QStringLiteral("Importe"))));
}

// ---------------------------------------------------------------- selectores

void frmDatosImpreso_B1_B3_B4::img_Buscar_Click(int index)
{
    if (index == 0) {
        img_Buscar_Click();
        return;
    }
    guardia(FORMULARIO, QStringLiteral("img_Buscar_Click"), [&] {
        buscarPar({.tabla = QStringLiteral("ARQUITECTOS"),
                   .claveLlamada = definicion().claveSeleccion,
                   .titulo = QStringLiteral("Buscar arquitecto"),
                   .claveRetorno = QStringLiteral("FRMDATOSIMPRESOB1B3B4_EMISOR")},
                  ui->txt_CodEmisor, ui->txt_Emisor);
    });
}

void frmDatosImpreso_B1_B3_B4::img_Borrar_Click(int index)
{
    if (index == 0) {
        img_Borrar_Click();
        return;
    }
    ui->txt_CodEmisor->clear();
    ui->txt_Emisor->clear();
}

qint64 frmDatosImpreso_B1_B3_B4::codigoEmisor() const { return ui->txt_CodEmisor->text().trimmed().toLongLong(); }

// ---------------------------------------------------------------- líneas

void frmDatosImpreso_B1_B3_B4::agregarLinea(const QString& concepto, const QString& importe)
{
    auto* fila = new QTreeWidgetItem(ui->lvw_Concepto);
    fila->setText(COLUMNA_CONCEPTO, concepto);
    fila->setText(COLUMNA_IMPORTE, importe);
    fila->setTextAlignment(COLUMNA_IMPORTE, Qt::AlignRight | Qt::AlignVCenter);
    ui->lvw_Concepto->setCurrentItem(fila);
}

void frmDatosImpreso_B1_B3_B4::sumarConceptos()
{
    double suma = 0;
    for (int i = 0; i < ui->lvw_Concepto->topLevelItemCount(); ++i) {
        const QString t = ui->lvw_Concepto->topLevelItem(i)->text(COLUMNA_IMPORTE).trimmed();
        if (!t.isEmpty() && Formato::esNumerico(t))
            suma += Formato::aNumero(t);
    }
    ui->txt_Importe->setText(importe(suma));
}

void frmDatosImpreso_B1_B3_B4::abrirDetalle(const QString& operacion, QTreeWidgetItem* fila)
{
    frmAddModDetalleFacturaHonorarios d;
    d.Operacion = operacion;
    if (fila)
        d.ponerLinea(fila->text(COLUMNA_CONCEPTO), CamposImporte::formatearTexto(fila->text(COLUMNA_IMPORTE), PATRON));
    d.alAceptar = [this, fila](const QString& concepto, const QString& importe) {
        if (fila) {
            fila->setText(COLUMNA_CONCEPTO, concepto);
            fila->setText(COLUMNA_IMPORTE, importe);
        } else {
            agregarLinea(concepto, importe);
        }
        sumarConceptos();
    };
    d.adjustSize();
    Pantallas::centrar(&d);
    d.exec();
}

QTreeWidgetItem* frmDatosImpreso_B1_B3_B4::lineaElegida(const QString& avisoVacia, const QString& avisoSinElegir)
{
    if (ui->lvw_Concepto->topLevelItemCount() == 0) {
        Mensajes::informacion(avisoVacia);
        return nullptr;
    }
    const QList<QTreeWidgetItem*> sel = ui->lvw_Concepto->selectedItems();
    if (sel.isEmpty()) {
        Mensajes::aviso(avisoSinElegir);
        return nullptr;
    }
    return sel.first();
}

void frmDatosImpreso_B1_B3_B4::cmd_Anadir_Click()
{
    guardia(FORMULARIO, QStringLiteral("cmd_Anadir_Click"), [&] { abrirDetalle(QStringLiteral("ALTA"), nullptr); });
}

void frmDatosImpreso_B1_B3_B4::lvw_Concepto_DblClick()
{
    guardia(FORMULARIO, QStringLiteral("lvw_Concepto_DblClick"), [&] {
        if (QTreeWidgetItem* fila = lineaElegida(QStringLiteral("No hay líneas de detalle en la lista"),
                                                 QStringLiteral("Por favor, seleccione una línea de detalle para modificar")))
            abrirDetalle(QStringLiteral("MODIFICAR"), fila);
    });
}

void frmDatosImpreso_B1_B3_B4::cmd_Borrar_Click()
{
    guardia(FORMULARIO, QStringLiteral("cmd_Borrar_Click"), [&] {
        // Sin línea elegida no hay qué borrar: se dice, en lugar de fallar.
        QTreeWidgetItem* fila = lineaElegida(QStringLiteral("La lista de detalles de la factura está vacía"),
                                             QStringLiteral("Por favor, seleccione una línea de detalle para eliminar"));
        if (!fila || Mensajes::pregunta(QStringLiteral("¿Realmente desea eliminar la línea de detalle seleccionada?")) != Mensajes::Respuesta::Si)
            return;
        delete fila;
        sumarConceptos();
    });
}

// ---------------------------------------------------------------- importes

void frmDatosImpreso_B1_B3_B4::txt_Change_KeyPress()
{
    guardia(FORMULARIO, QStringLiteral("txt_Change_KeyPress"), [&] {
        const QString t = ui->txt_Importe->text().trimmed();
        if (t.isEmpty() || t == QLatin1String("-") || t == QLatin1String(",") || !Formato::esNumerico(t)) {
            for (QLineEdit* c : {ui->txt_TotalHonorarios, ui->txt_Iva, ui->txt_TotalFactura, ui->txt_Irpf, ui->txt_TotalAbonado})
                c->clear();
            return;
        }
        ui->txt_TotalHonorarios->setText(importe(Formato::aNumero(t)));
        ui->txt_Iva->setText(importe(numero(ui->txt_TotalHonorarios) * m_tipoIva));
        ui->txt_TotalFactura->setText(importe(numero(ui->txt_TotalHonorarios) + numero(ui->txt_Iva)));
        ui->txt_Irpf->setText(ui->chk_Retencion->isChecked() ? QStringLiteral("0")
                                                             : importe(numero(ui->txt_TotalHonorarios) * m_tipoIrpf));
        ui->txt_TotalAbonado->setText(importe(numero(ui->txt_TotalFactura) - numero(ui->txt_Irpf)));
    });
}

void frmDatosImpreso_B1_B3_B4::txt_Importe_LostFocus()
{
    const QString t = ui->txt_Importe->text();
    if (!t.isEmpty())
        ui->txt_Importe->setText(CamposImporte::ceroDelante(t));
}

void frmDatosImpreso_B1_B3_B4::chk_Retencion_Click()
{
    guardia(FORMULARIO, QStringLiteral("chk_Retencion_Click"), [&] {
        for (const QLineEdit* c : {ui->txt_TotalHonorarios, ui->txt_TotalAbonado, ui->txt_Irpf})
            if (c->text().trimmed().isEmpty())
                return;
        if (ui->chk_Retencion->isChecked()) {
            ui->txt_TotalAbonado->setText(importe(numero(ui->txt_TotalAbonado) + numero(ui->txt_Irpf)));
            ui->txt_Irpf->setText(QStringLiteral("0"));
        } else {
            ui->txt_Irpf->setText(importe(numero(ui->txt_TotalHonorarios) * m_tipoIrpf));
            ui->txt_TotalAbonado->setText(importe(numero(ui->txt_TotalAbonado) - numero(ui->txt_Irpf)));
        }
    });
}

void frmDatosImpreso_B1_B3_B4::txt_TotalAbonado_KeyPress()
{
    guardia(FORMULARIO, QStringLiteral("txt_TotalAbonado_KeyPress"), [&] {
        QString total = ui->txt_TotalAbonado->text();
        if (total.trimmed().isEmpty()) {
            ui->txt_TotalAbonado_Texto->clear();
            return;
        }
        QString letra = m_letra.Numero2Letra(total.remove(QLatin1Char('.')), 0, 2, QStringLiteral("euro"), QStringLiteral("céntimo"),
                                             clsNumToText::VERDADERO, clsNumToText::VERDADERO);
        if (!letra.trimmed().isEmpty())
            letra[0] = letra[0].toUpper();
        if (letra.size() >= 250) {
            Mensajes::aviso(AVISO_LETRA);
            ui->txt_TotalAbonado_Texto->clear();
            return;
        }
        ui->txt_TotalAbonado_Texto->setText(letra);
    });
}

// ---------------------------------------------------------------- validación y escritura

bool frmDatosImpreso_B1_B3_B4::validarPropios()
{
    if (ui->txt_CodEmisor->text().trimmed().isEmpty() || ui->txt_Emisor->text().trimmed().isEmpty())
        return avisar(ui->txt_Emisor, QStringLiteral("Por favor, seleccione el emisor de la factura"));
    return true;
}

bool frmDatosImpreso_B1_B3_B4::validarTrasPie()
{
    const QString t = ui->txt_Importe->text().trimmed();
    if (!t.isEmpty() && !Formato::esNumerico(t))
        return avisar(ui->txt_Importe, frmAddModDetalleFacturaHonorarios::FORMATO_NO_VALIDO);
    QTreeWidget* lvw = ui->lvw_Concepto;
    if (lvw->topLevelItemCount() == 0)
        return avisar(lvw, QStringLiteral("Por favor, incluya al menos un concepto para la factura de honorarios"));
    for (int i = 0; i < lvw->topLevelItemCount(); ++i) {
        if (lvw->topLevelItem(i)->text(COLUMNA_CONCEPTO).trimmed().isEmpty())
            return avisar(lvw, QStringLiteral("Por favor, rellene todos los conceptos de las líneas de detalle que ha incluido"));
        if (lvw->topLevelItem(i)->text(COLUMNA_IMPORTE).trimmed().isEmpty())
            return avisar(lvw, QStringLiteral("Por favor, rellene todos los importes de las líneas de detalle que ha incluido"));
    }
    return true;
}

Campos frmDatosImpreso_B1_B3_B4::camposHistorico() const
{
    FilaTemporal f;
    f.poner(QStringLiteral("PRYNOM"), recortado(txt_Proyecto));
    f.poner(QStringLiteral("PRYCOD"), codigoProyecto());
    f.poner(QStringLiteral("NUMFAC"), recortado(ui->txt_NumFactura));
    f.poner(QStringLiteral("REGCLI"), recortado(ui->txt_NumRegCliente));
    f.poner(QStringLiteral("IMPORTE"), CamposImporte::importeGuardable(ui->txt_Importe->text()));
    f.poner(QStringLiteral("IVA"), CamposImporte::importeGuardable(ui->txt_Iva->text()));
    f.poner(QStringLiteral("TOTAL"), CamposImporte::importeGuardable(ui->txt_TotalFactura->text()));
    f.poner(QStringLiteral("IRPF"), CamposImporte::importeGuardable(ui->txt_Irpf->text()));
    f.poner(QStringLiteral("EURABON"), CamposImporte::importeGuardable(ui->txt_TotalAbonado->text()));
    f.poner(QStringLiteral("TXTABON"), recortado(ui->txt_TotalAbonado_Texto));
    Consulta emisor(SQL_OTROS_ARQUITECTO, {codigoEmisor()});
    if (BloquesImpreso::leerFila(emisor, AVISO_EMISOR))
        BloquesImpreso::columnasPersona(emisor, QStringLiteral("ARQ"), f);
    BloquesImpreso::columnaAgenciaTributaria(f);
    f.poner(QStringLiteral("LUGAR"), recortado(txt_Lugar));
    f.poner(QStringLiteral("FECHA"), recortado(txt_Fecha));
    return f.campos();
}

void frmDatosImpreso_B1_B3_B4::escribirFilasHijas(qint64 clave)
{
    // Tras un "ALTA" la clave nueva es la de la factura: la de sus líneas y la de la tabla temporal.
    Clave = clave;
    // Borrar y volver a escribir es la modificación: las líneas no conservan su identidad.
    ejecutar(QStringLiteral("DELETE FROM Detalle_Factura_Honorarios WHERE Id_Factura = ?"), {Clave});
    for (int i = 0; i < ui->lvw_Concepto->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* fila = ui->lvw_Concepto->topLevelItem(i);
        insertar(QStringLiteral("Detalle_Factura_Honorarios"),
                 {{QStringLiteral("Id_Factura"), Clave},
                  {QStringLiteral("Concepto"), textoONulo(fila->text(COLUMNA_CONCEPTO))},
                  {QStringLiteral("Importe"), CamposImporte::importeGuardable(fila->text(COLUMNA_IMPORTE))}});
    }
}

void frmDatosImpreso_B1_B3_B4::escribirTemporal()
{
    FilaTemporal f;
    {
        Consulta emisor(SQL_OTROS_ARQUITECTO, {codigoEmisor()});
        if (BloquesImpreso::leerFila(emisor, AVISO_EMISOR))
            BloquesImpreso::columnasPersona(emisor, QStringLiteral("ARQ1"), f, BloquesImpreso::ConCodigo::No);
    }
    {
        // El cliente del proyecto, sin mirar si tiene representante.
        Consulta proyecto(QStringLiteral("SELECT * FROM Proyectos_A WHERE PryCod = ?"), {codigoProyecto()});
        if (BloquesImpreso::leerFila(proyecto, AVISO_CLIENTE) && !proyecto.nulo(QStringLiteral("Codigo_Cliente"))) {
            Consulta cliente(QStringLiteral("SELECT * FROM CLIENTES WHERE Codigo_Cli = ?"), {proyecto.valor(QStringLiteral("Codigo_Cliente"))});
            if (cliente.siguiente())
                BloquesImpreso::columnasPersona(cliente, QStringLiteral("CLI"), f, BloquesImpreso::ConCodigo::No);
        }
    }
    BloquesImpreso::columnaAgenciaTributaria(f);
    f.poner(QStringLiteral("NUMFAC"), recortado(ui->txt_NumFactura));
    f.poner(QStringLiteral("REGCLI"), recortado(ui->txt_NumRegCliente));
    f.poner(QStringLiteral("IMPORTE"), textoONuloImporte(ui->txt_Importe));
    f.poner(QStringLiteral("IVA"), textoONuloImporte(ui->txt_Iva));
    f.poner(QStringLiteral("TOTAL"), textoONuloImporte(ui->txt_TotalFactura));
    f.poner(QStringLiteral("IRPF"), textoONuloImporte(ui->txt_Irpf));
    f.poner(QStringLiteral("EURABON"), textoONuloImporte(ui->txt_TotalAbonado));
    f.poner(QStringLiteral("TXTABON"), recortado(ui->txt_TotalAbonado_Texto));
    f.poner(QStringLiteral("LUGAR"), recortado(txt_Lugar));
    f.poner(QStringLiteral("FECHA"), recortado(txt_Fecha));
    f.poner(QStringLiteral("Id_Factura"), Clave);
    f.insertarEn(definicion().tablaTemporal);
}

QList<QWidget*> frmDatosImpreso_B1_B3_B4::controlesCopia() const
{
    return {txt_CodProyecto, txt_Proyecto, ui->txt_CodEmisor, ui->txt_Emisor, ui->txt_NumFactura, ui->txt_NumRegCliente,
            ui->txt_Importe, ui->txt_Irpf, ui->txt_TotalAbonado_Texto, txt_Lugar, txt_Fecha, ui->lvw_Concepto};
}
