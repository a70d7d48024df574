#include "forms/frmDatosImpreso_Certificado.h"

#include "core/BaseDatos.h"
#include "core/Guardia.h"
#include "core/Iconos.h"
#include "core/Log.h"
#include "core/Mensajes.h"
#include "forms/BloquesImpreso.h"
#include "ui_frmDatosImpreso_Certificado.h"

#include <QTextCursor>
#include <QTextDocument>
#include <QTimer>

frmDatosImpreso_Certificado::frmDatosImpreso_Certificado(QWidget* padre)
    : DatosImpreso(QStringLiteral("frmDatosImpreso_Certificado"), padre), ui(std::make_unique<Ui::frmDatosImpreso_Certificado>())
{
    ui->setupUi(this);
    enlazarControles();
    ui->txt_CodArq->setReadOnly(true);
    ui->txt_NomArq->setReadOnly(true);
    ui->img_Buscar->setIcon(Iconos::icono(QStringLiteral("buscar"), 20));
    ui->img_Borrar->setIcon(Iconos::icono(QStringLiteral("borrar"), 20));
    connect(ui->img_Buscar, &QToolButton::clicked, this, [this] { img_Buscar_Click(); });
    connect(ui->img_Borrar, &QToolButton::clicked, this, [this] { img_Borrar_Click(); });
    ui->txt_Texto->setTabChangesFocus(true);
    connect(ui->txt_Texto->document(), &QTextDocument::contentsChange, this,
            [this](int posicion, int, int anadidos) { limitarTexto(posicion, anadidos); });
}

frmDatosImpreso_Certificado::~frmDatosImpreso_Certificado() = default;

void frmDatosImpreso_Certificado::img_Buscar_Click()
{
    guardia(QStringLiteral("frmDatosImpreso_Certificado"), QStringLiteral("img_Buscar_Click"), [&] {
        abrirSelector({.tabla = QStringLiteral("ARQUITECTOS"),
                       .titulo = QStringLiteral("Buscar arquitecto"),
                       .claveRetorno = definicion().claveRetorno},
                      [this](const Eleccion& e) { ponerArquitecto(e.codigo, e.nombreCompleto); },
                      [this](const RegistroGuardado& r) { ponerArquitecto(r.codigo, r.nombre); });
    });
}

void frmDatosImpreso_Certificado::img_Borrar_Click()
{
    ui->txt_CodArq->clear();
    ui->txt_NomArq->clear();
}

void frmDatosImpreso_Certificado::ponerArquitecto(qint64 codigo, const QString& nombre)
{
    ui->txt_CodArq->setText(QString::number(codigo));
    ui->txt_NomArq->setText(nombre);
}

// Como el tope de una caja de texto: lo que entra de más se quita del final de lo añadido, y
// quien escribe o pega lo sabe.
void frmDatosImpreso_Certificado::limitarTexto(int posicion, int anadidos)
{
    if (m_limitando)
        return;
    const int largo = ui->txt_Texto->document()->characterCount() - 1;  // sin el fin de párrafo final
    if (largo <= MAXIMO_TEXTO)
        return;
    const int sobran = largo - MAXIMO_TEXTO;
    const int fin = std::min(posicion + anadidos, largo);
    QTextCursor c(ui->txt_Texto->document());
    c.setPosition(std::max(0, fin - sobran));
    c.setPosition(fin, QTextCursor::KeepAnchor);
    m_limitando = true;
    c.removeSelectedText();
    m_limitando = false;
    escribirLog(ErrorPrograma(-1, QStringLiteral("Texto del certificado de más de %1 caracteres: se han quitado %2")
                                      .arg(MAXIMO_TEXTO)
                                      .arg(sobran)),
                NOMBRE_PROGRAMA, objectName(), QStringLiteral("txt_Texto_Change"), 0, Mostrar::No);
    // El cuadro, fuera del cambio que aún está deshaciendo el documento.
    QTimer::singleShot(0, this, [] { Mensajes::aviso(AVISO_TEXTO_LARGO); });
}

void frmDatosImpreso_Certificado::cargarCampos(const Consulta& c)
{
    ui->txt_CodArq->setText(c.texto(QStringLiteral("CodArq")));
    ui->txt_Texto->setPlainText(c.texto(QStringLiteral("Texto")));
    txt_Lugar->setText(c.texto(QStringLiteral("Lugar")));
    txt_Fecha->setText(c.texto(QStringLiteral("Fecha")));
    // El nombre se lee de nuevo del arquitecto, no de la copia guardada; si ya no está, vacío.
    const QVariant codigo = c.valor(QStringLiteral("CodArq"));
    if (codigo.isNull())
        return;
    Consulta arq(SQL_OTROS_ARQUITECTO, {codigo});
    ui->txt_NomArq->setText(arq.siguiente() ? BloquesImpreso::nombreCompleto(arq) : QString());
}

Campos frmDatosImpreso_Certificado::camposHistorico() const
{
    return {
        {QStringLiteral("CodArq"), ui->txt_CodArq->text().trimmed().toLongLong()},
        {QStringLiteral("NomArq"), recortado(ui->txt_NomArq)},
        {QStringLiteral("Texto"), recortado(ui->txt_Texto)},
        {QStringLiteral("Lugar"), recortado(txt_Lugar)},
        {QStringLiteral("Fecha"), recortado(txt_Fecha)},
    };
}

bool frmDatosImpreso_Certificado::validarPropios()
{
    if (ui->txt_CodArq->text().trimmed().isEmpty())
        return avisar(ui->txt_NomArq, QStringLiteral("Por favor, seleccione un arquitecto"));
    return true;
}

void frmDatosImpreso_Certificado::escribirTemporal()
{
    Consulta arq(SQL_OTROS_ARQUITECTO, {ui->txt_CodArq->text().trimmed().toLongLong()});
    if (!arq.siguiente()) {
        Mensajes::aviso(QStringLiteral("No se han podido cargar los datos del arquitecto emisor del certificado"));
        return;
    }
    // Cada parte que no es nula entra tras ", ": sin dirección, el texto empieza por la coma.
    QString direccion = arq.texto(QStringLiteral("Dirección_Cli"));
    for (const char* campo : {"cp", "Municipio_Cli", "Provincia_Cli"})
        if (!arq.nulo(QString::fromLatin1(campo)))
            direccion += QStringLiteral(", ") + arq.texto(QString::fromLatin1(campo));
    BloquesImpreso::FilaTemporal fila;
    fila.poner(QStringLiteral("CodArq"), arq.valor(QStringLiteral("Codigo_Cli")));
    fila.poner(QStringLiteral("NomArq"), BloquesImpreso::nombreCompleto(arq));
    fila.poner(QStringLiteral("NumColegiado"), arq.texto(QStringLiteral("NumColegiado")));
    fila.poner(QStringLiteral("Colegio"), arq.texto(QStringLiteral("Colegio")));
    fila.poner(QStringLiteral("NIF"), arq.texto(QStringLiteral("NIF")));
    fila.poner(QStringLiteral("Direccion"), direccion);
    fila.poner(QStringLiteral("Texto"), recortado(ui->txt_Texto));
    fila.poner(QStringLiteral("Lugar"), recortado(txt_Lugar));
    fila.poner(QStringLiteral("Fecha"), recortado(txt_Fecha));
    fila.insertarEn(definicion().tablaTemporal);
}

QList<QWidget*> frmDatosImpreso_Certificado::controlesCopia() const
{
    return {ui->txt_CodArq, ui->txt_NomArq, ui->txt_Texto, txt_Lugar, txt_Fecha};
}
