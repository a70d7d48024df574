#include "forms/frmDatosImpreso_CertificadoFinObra.h"

#include "core/BaseDatos.h"
#include "core/Fechas.h"
#include "core/Mensajes.h"
#include "forms/BloquesImpreso.h"
#include "forms/frmSeleccionarTipoCertificado.h"
#include "ui_frmDatosImpreso_CertificadoFinObra.h"

namespace {

// Columnas de listas de FinObra con su par de avisos cuando pasan del máximo.
struct ColumnaLista {
    const char* columna;
    const char* excede;
    const char* cortada;
};

const ColumnaLista APACOL{"APACOL",
                          "Los códigos de los arquitectos técnicos exceden del máximo número de caracteres admitidos en la base de datos.",
                          "Los códigos de los arquitectos técnicos aparecerán cortados hasta el máximo número admitido"};
const ColumnaLista APANOM{"APANOM",
                          "Los nombres de los arquitectos técnicos exceden del máximo número de caracteres admitidos en la base de datos.",
                          "Los nombres de los arquitectos técnicos aparecerán cortados hasta el máximo número admitido"};
const ColumnaLista CONNOM{"CONNOM", "Los nombres de los constructores exceden del máximo número de caracteres admitidos en la base de datos.",
                          "Los nombres de los constructores aparecerán cortados hasta el máximo número admitido"};
const ColumnaLista ARQSNOM{"ARQSNOM", "Los nombres de los arquitectos exceden del máximo número de caracteres admitidos en la base de datos.",
                           "Los nombres de los arquitectos aparecerán cortados hasta el máximo número admitido"};
const ColumnaLista ARQSCOL{"ARQSCOL", "Los códigos de los arquitectos exceden del máximo número de caracteres admitidos en la base de datos.",
                           "Los códigos de los arquitectos aparecerán cortados hasta el máximo número admitido"};
const ColumnaLista AUTOR{"AUTOR",
                         "Los arquitectos autores del proyecto exceden del máximo número de caracteres admitidos en la base de datos.",
                         "Los arquitectos autores aparecerán cortados hasta el máximo número admitido"};

// Una lista cabe entera hasta el máximo; si pasa, su aviso y los primeros caracteres, aunque
// corten un nombre por la mitad.
void ponerLista(BloquesImpreso::FilaTemporal& fila, const ColumnaLista& c, const QString& texto)
{
    const int maximo = frmDatosImpreso_CertificadoFinObra::MAXIMO_LISTA;
    if (texto.size() > maximo)
        Mensajes::aviso(QString::fromUtf8(c.excede) + QLatin1Char('\n') + QString::fromUtf8(c.cortada));
    fila.poner(QString::fromLatin1(c.columna), texto.left(maximo));
}

// "Lugar, a fecha"; sin lugar nada, aunque haya fecha.
QString lugarExpedicion(const QString& lugar, const QString& fecha)
{
    if (lugar.isEmpty())
        return {};
    const QString t = fecha.isEmpty() ? lugar : lugar + QStringLiteral(", a ") + fecha;
    return t.left(frmDatosImpreso_CertificadoFinObra::MAXIMO_LISTA);
}

struct Personas {
    QStringList nombres, numeros;
};

// Personas de OTROS unidas al proyecto por una tabla de enlace, en el orden en que se añadieron.
Personas personasEnlazadas(const QString& enlace, const QString& codigo, const QString& categoria, qint64 pryCod)
{
    Personas p;
    Consulta c(QStringLiteral("SELECT OTROS.* FROM \"%1\" AS e, OTROS WHERE e.\"%2\" = OTROS.Codigo_Cli AND UCASE(OTROS.Categoria) = ? "
                              "AND e.PryCod = ? ORDER BY e.rowid")
                   .arg(enlace, codigo),
               {categoria, pryCod});
    while (c.siguiente()) {
        p.nombres << BloquesImpreso::nombreCompleto(c);
        p.numeros << c.texto(QStringLiteral("NumColegiado"));
    }
    return p;
}

// Arquitectos (o autores) del proyecto, cada uno leído en OTROS; los que ya no están no cuentan.
Personas arquitectosDe(const QString& tabla, qint64 pryCod)
{
    Personas p;
    Consulta c(QStringLiteral("SELECT Codigo_Arq FROM \"%1\" WHERE PryCod = ? ORDER BY rowid").arg(tabla), {pryCod});
    while (c.siguiente()) {
        if (c.nulo(QStringLiteral("Codigo_Arq")))
            continue;
        Consulta arq(SQL_OTROS_ARQUITECTO, {c.valor(QStringLiteral("Codigo_Arq"))});
        if (!arq.siguiente())
            continue;
        p.nombres << BloquesImpreso::nombreCompleto(arq);
        p.numeros << arq.texto(QStringLiteral("NumColegiado"));
    }
    return p;
}

const QString COMA = QStringLiteral(", ");

}  // namespace

frmDatosImpreso_CertificadoFinObra::frmDatosImpreso_CertificadoFinObra(QWidget* padre)
    : DatosImpreso(QStringLiteral("frmDatosImpreso_CertificadoFinObra"), padre),
      ui(std::make_unique<Ui::frmDatosImpreso_CertificadoFinObra>())
{
    ui->setupUi(this);
    enlazarControles();
    prepararFechas({ui->msk_FechaFinObra, ui->msk_FechaLicenciaObras});
}

frmDatosImpreso_CertificadoFinObra::~frmDatosImpreso_CertificadoFinObra() = default;

void frmDatosImpreso_CertificadoFinObra::aplicarLimites()
{
    ui->txt_Apa_Demarcacion->setMaxLength(20);
    ui->txt_Apa_LugarExpedicion->setMaxLength(50);
    ui->txt_Arq_Demarcacion->setMaxLength(20);
    ui->txt_Arq_LugarExpedicion->setMaxLength(50);
}

// La fecha de la licencia no se vuelve a enseñar: el campo queda vacío y un guardado posterior
// la sustituye por lo que tenga.
void frmDatosImpreso_CertificadoFinObra::cargarCampos(const Consulta& c)
{
    txt_CodProyecto->setText(c.texto(QStringLiteral("PRYCOD")));
    txt_Proyecto->setText(c.texto(QStringLiteral("PRYNOM")));
    ui->txt_Apa_Demarcacion->setText(c.texto(QStringLiteral("APADEM")));
    ui->txt_Apa_LugarExpedicion->setText(c.texto(QStringLiteral("LUGAR1")));
    ui->txt_Arq_Demarcacion->setText(c.texto(QStringLiteral("ARQDEM")));
    ui->txt_Arq_LugarExpedicion->setText(c.texto(QStringLiteral("LUGAR2")));
    ponerFecha(ui->msk_FechaFinObra, c.valor(QStringLiteral("FFIN")));
    txt_Fecha->setText(c.texto(QStringLiteral("FECHA")));
}

Campos frmDatosImpreso_CertificadoFinObra::camposHistorico() const
{
    return {
        {QStringLiteral("PRYNOM"), recortado(txt_Proyecto)},
        {QStringLiteral("PRYCOD"), codigoProyecto()},
        {QStringLiteral("APADEM"), recortado(ui->txt_Apa_Demarcacion)},
        {QStringLiteral("LUGAR1"), recortado(ui->txt_Apa_LugarExpedicion)},
        {QStringLiteral("ARQDEM"), recortado(ui->txt_Arq_Demarcacion)},
        {QStringLiteral("LUGAR2"), recortado(ui->txt_Arq_LugarExpedicion)},
        {QStringLiteral("FFIN"), fechaHistorico(ui->msk_FechaFinObra)},
        {QStringLiteral("FECHALICENCIA"), fechaHistorico(ui->msk_FechaLicenciaObras)},
        {QStringLiteral("FECHA"), recortado(txt_Fecha)},
    };
}

// No cuelgan filas del histórico: lo que escribe además, en la misma transacción, es la fecha fin
// de obra del proyecto, una sola vez (la que ya tenga no se toca).
void frmDatosImpreso_CertificadoFinObra::escribirFilasHijas(qint64)
{
    const QVariant fin = fechaHistorico(ui->msk_FechaFinObra);
    if (!fin.isNull())
        ejecutar(QStringLiteral("UPDATE Proyectos_A SET EXPFFO = ? WHERE PryCod = ? AND EXPFFO IS NULL"), {fin, codigoProyecto()});
}

// La fecha de la licencia también se comprueba: a medio escribir se perdería al guardarla.
bool frmDatosImpreso_CertificadoFinObra::validarPropios()
{
    return validarFecha(ui->msk_FechaFinObra) && validarFecha(ui->msk_FechaLicenciaObras);
}

void frmDatosImpreso_CertificadoFinObra::escribirTemporal()
{
    const qint64 pryCod = codigoProyecto();
    Consulta proyecto(QStringLiteral("SELECT * FROM Proyectos_A WHERE PryCod = ?"), {pryCod});
    if (!proyecto.siguiente()) {
        Mensajes::aviso(QStringLiteral("No se han podido cargar los datos del proyecto asociado al certificado fin de obra"));
        return;
    }
    BloquesImpreso::FilaTemporal fila;
    fila.poner(QStringLiteral("PRYNOM"), proyecto.texto(QStringLiteral("Trabajo")));
    fila.poner(QStringLiteral("PRYDOM"), proyecto.texto(QStringLiteral("Emplazamiento")));
    fila.poner(QStringLiteral("PRYMUN"), proyecto.texto(QStringLiteral("Municipio")));
    fila.poner(QStringLiteral("CLIPRO"), proyecto.texto(QStringLiteral("Provincia")));
    if (!proyecto.nulo(QStringLiteral("Codigo_Cliente"))) {
        Consulta cli(QStringLiteral("SELECT * FROM Clientes WHERE Codigo_Cli = ?"), {proyecto.valor(QStringLiteral("Codigo_Cliente"))});
        if (cli.siguiente())
            fila.poner(QStringLiteral("CLINOM"), BloquesImpreso::nombreCompleto(cli));
    }

    // Los números de los arquitectos técnicos van unidos por "," sin blanco; todo lo demás por ", ".
    const Personas apa = personasEnlazadas(QStringLiteral("Aparejadores_Proyecto"), QStringLiteral("Codigo_Apa"),
                                           QStringLiteral("ARQUITECTO TECNICO"), pryCod);
    const Personas con = personasEnlazadas(QStringLiteral("Constructores_Proyecto"), QStringLiteral("Codigo_Cons"),
                                           QStringLiteral("CONSTRUCTOR"), pryCod);
    const Personas arq = arquitectosDe(QStringLiteral("Arquitectos_Proyecto"), pryCod);
    const Personas aut = arquitectosDe(QStringLiteral("Autores_Proyecto"), pryCod);
    ponerLista(fila, APACOL, apa.numeros.join(QLatin1Char(',')));
    ponerLista(fila, APANOM, apa.nombres.join(COMA));
    ponerLista(fila, CONNOM, con.nombres.join(COMA));
    ponerLista(fila, ARQSNOM, arq.nombres.join(COMA));
    ponerLista(fila, ARQSCOL, arq.numeros.join(COMA));
    ponerLista(fila, AUTOR, aut.nombres.join(COMA));

    const QString fecha = recortado(txt_Fecha);
    fila.poner(QStringLiteral("APADEM"), recortado(ui->txt_Apa_Demarcacion));
    fila.poner(QStringLiteral("LUGAR1"), lugarExpedicion(recortado(ui->txt_Apa_LugarExpedicion), fecha));
    fila.poner(QStringLiteral("ARQDEM"), recortado(ui->txt_Arq_Demarcacion));
    fila.poner(QStringLiteral("LUGAR2"), lugarExpedicion(recortado(ui->txt_Arq_LugarExpedicion), fecha));
    fila.poner(QStringLiteral("FFIN"), fechaHistorico(ui->msk_FechaFinObra));
    fila.poner(QStringLiteral("FECHALICENCIA"), fechaHistorico(ui->msk_FechaLicenciaObras));
    fila.poner(QStringLiteral("FECHA"), fecha);
    fila.insertarEn(definicion().tablaTemporal);
}

// Tras confirmar no se abre el informe: se pregunta antes cuál de los cuatro.
void frmDatosImpreso_CertificadoFinObra::mostrarVistaPrevia()
{
    frmSeleccionarTipoCertificado::elegir(frmSeleccionarTipoCertificado::RETORNO_IMPRESO);
}

// El proyecto elegido trae también su fecha fin de obra, si la tiene; si no, la escrita se queda.
void frmDatosImpreso_CertificadoFinObra::recibirProyecto(const Eleccion& e)
{
    DatosImpreso::recibirProyecto(e);
    const QString finObra = e.texto(6).trimmed();
    if (!finObra.isEmpty())
        ui->msk_FechaFinObra->setText(finObra);
}

// La fecha de la licencia no entra en la copia: cambiarla sola no hace preguntar al salir.
QList<QWidget*> frmDatosImpreso_CertificadoFinObra::controlesCopia() const
{
    return {txt_CodProyecto,
            txt_Proyecto,
            ui->txt_Apa_Demarcacion,
            ui->txt_Apa_LugarExpedicion,
            ui->txt_Arq_Demarcacion,
            ui->txt_Arq_LugarExpedicion,
            ui->msk_FechaFinObra,
            txt_Fecha};
}
