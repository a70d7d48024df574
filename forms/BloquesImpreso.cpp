#include "forms/BloquesImpreso.h"

#include "core/CicloPantalla.h"
#include "core/Formato.h"
#include "core/Mensajes.h"
#include "reports/FormatoInforme.h"

#include <QAbstractButton>
#include <QLineEdit>


namespace BloquesImpreso {

QVariant textoGuardable(const QVariant& v)
{
    if (!v.isNull() && v.typeId() == QMetaType::QString && v.toString().isNull())
        return QStringLiteral("");
    return v;
}

void FilaTemporal::poner(const QString& columna, const QVariant& valor)
{
    for (auto& [nombre, v] : m_campos)
        if (nombre.compare(columna, Qt::CaseInsensitive) == 0) {
            v = textoGuardable(valor);
            return;
        }
    m_campos.append({columna, textoGuardable(valor)});
}

QVariant FilaTemporal::valor(const QString& columna) const
{
    for (const auto& [nombre, v] : m_campos)
        if (nombre.compare(columna, Qt::CaseInsensitive) == 0)
            return v;
    return {};
}

bool FilaTemporal::tiene(const QString& columna) const
{
    for (const auto& c : m_campos)
        if (c.first.compare(columna, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

QString texto(const Consulta& c, const QString& campo) { return c.texto(campo); }

QString nombreCompleto(const Consulta& c)
{
    return (c.texto(QStringLiteral("Nombre_Cli")) + QLatin1Char(' ') + c.texto(QStringLiteral("Ape_Cli"))).trimmed();
}

QString marca(const QVariant& v) { return !v.isNull() && v.toLongLong() != 0 ? QStringLiteral("X") : QString(); }

QString numeroTexto(const QVariant& v)
{
    if (v.isNull())
        return {};
    bool ok = false;
    const double d = v.toDouble(&ok);
    if (!ok)
        return v.toString();
    // Redondeado como todo número del programa, a cuatro decimales, sin los ceros que sobran.
    QString t = Formato::formatear(d, QStringLiteral("###0.0000"));
    while (t.contains(QLatin1Char(',')) && (t.endsWith(QLatin1Char('0')) || t.endsWith(QLatin1Char(','))))
        t.chop(1);
    return t;
}

bool leerProyecto(Consulta& proyecto)
{
    if (proyecto.siguiente())
        return true;
    Mensajes::aviso(QStringLiteral("No se han podido cargar los datos del proyecto asociado al impreso"));
    return false;
}

int numerarArquitectos(qint64 pryCod)
{
    QList<qint64> filas;
    {
        Consulta c(QStringLiteral("SELECT rowid FROM Arquitectos_Proyecto WHERE PRYCOD = ? AND EsPropiaSociedad = 0 ORDER BY rowid"),
                   {pryCod});
        while (c.siguiente())
            filas << c.valor(0).toLongLong();
    }
    if (filas.isEmpty()) {
        Mensajes::aviso(AVISO_SIN_ARQUITECTOS);
        return 0;
    }
    const int n = int(filas.size());
    int hojas = n / 3;
    if (hojas == 0)
        hojas = 1;
    else if (n % 3 != 0)
        hojas += 1;
    for (int i = 0; i < n; ++i)
        ejecutar(QStringLiteral("UPDATE Arquitectos_Proyecto SET NumImpreso = ? WHERE rowid = ?"), {i / 3 + 1, filas[i]});
    return hojas;
}

void bloqueCliente(const Consulta& proyecto, FilaTemporal& fila)
{
    const QVariant codigo = proyecto.valor(QStringLiteral("Codigo_Cliente"));
    if (codigo.isNull())
        return;
    Consulta cli(QStringLiteral("SELECT * FROM Clientes WHERE Codigo_Cli = ?"), {codigo});
    if (!cli.siguiente())
        return;
    const auto datosPersona = [&fila](const Consulta& c, const QString& prefijo) {
        columnasPersona(c, prefijo, fila, ConCodigo::No);
        fila.poner(prefijo + QStringLiteral("EMAIL"), texto(c, QStringLiteral("Correo_Cli")));
    };
    // esR nulo o -1 (también 0): persona que actúa sola; otro valor: sociedad con representante.
    const QVariant esR = cli.valor(QStringLiteral("esR"));
    const bool conRepresentante = !esR.isNull() && esR.toLongLong() != -1 && esR.toLongLong() != 0;
    if (!conRepresentante) {
        // Quien actúa solo va en el recuadro del representante, que es el que sale en el impreso.
        datosPersona(cli, QStringLiteral("REP"));
        fila.poner(QStringLiteral("REPRES"), QString());
        fila.poner(QStringLiteral("REPRESNO"), QStringLiteral("X"));
        return;
    }
    datosPersona(cli, QStringLiteral("CLI"));
    const QVariant codRep = proyecto.valor(QStringLiteral("Codigo_Representante"));
    if (codRep.isNull())
        return;
    Consulta rep(QStringLiteral("SELECT * FROM REPRESENTANTES WHERE Codigo_Cli = ?"), {codRep});
    if (!rep.siguiente())
        return;
    datosPersona(rep, QStringLiteral("REP"));
    fila.poner(QStringLiteral("TIPOREP"), texto(rep, QStringLiteral("Representacion")));
    const bool sinNombre = nombreCompleto(rep).isEmpty();
    fila.poner(QStringLiteral("REPRES"), sinNombre ? QString() : QStringLiteral("X"));
    fila.poner(QStringLiteral("REPRESNO"), sinNombre ? QStringLiteral("X") : QString());
}

void bloqueSociedad(const Consulta& proyecto, FilaTemporal& fila)
{
    const QVariant codigo = proyecto.valor(QStringLiteral("ARQREG"));
    if (codigo.isNull()) {
        fila.poner(QStringLiteral("HAYSOC"), QString());
        return;
    }
    Consulta soc(SQL_OTROS_ARQUITECTO, {codigo});
    if (!soc.siguiente())
        return;
    // O inclusivo, como siempre: una dirección vacía deja la coma delante del municipio.
    QString domicilio = texto(soc, QStringLiteral("Dirección_Cli")).trimmed();
    const QVariant municipio = soc.valor(QStringLiteral("Municipio_Cli"));
    if (!municipio.isNull() || !municipio.toString().trimmed().isEmpty())
        domicilio += QStringLiteral(", ") + municipio.toString();
    fila.poner(QStringLiteral("ARQREG"), texto(soc, QStringLiteral("NumColegiado")));
    fila.poner(QStringLiteral("ARQSOC"), texto(soc, QStringLiteral("Nombre_Cli")));
    fila.poner(QStringLiteral("SOCDOM"), domicilio);
    fila.poner(QStringLiteral("HAYSOC"), QStringLiteral("X"));
}

void paginaArquitectos(qint64 pryCod, int pagina, FilaTemporal& fila, QString& domicilio)
{
    Consulta arq(QStringLiteral("SELECT * FROM Arquitectos_Proyecto WHERE PryCod = ? AND NumImpreso = ? ORDER BY rowid"),
                 {pryCod, pagina});
    int hueco = 0;
    bool domicilioEscrito = false;
    while (arq.siguiente()) {
        const QVariant propia = arq.valor(QStringLiteral("EsPropiaSociedad"));
        const QVariant codigo = arq.valor(QStringLiteral("Codigo_Arq"));
        if (propia.isNull() || propia.toLongLong() != 0 || codigo.isNull())
            continue;
        Consulta otros(SQL_OTROS_ARQUITECTO, {codigo});
        if (!otros.siguiente()) {
            Mensajes::aviso(AVISO_ARQUITECTO_NO_HALLADO);
            continue;
        }
        if (hueco <= 2) {
            const QString p = QStringLiteral("ARQ%1").arg(hueco + 1);
            fila.poner(p + QStringLiteral("NOM"), nombreCompleto(otros));
            fila.poner(p + QStringLiteral("COL"), texto(arq, QStringLiteral("NumCol")));
            fila.poner(p + QStringLiteral("PAR"), numeroTexto(arq.valor(QStringLiteral("PorPar_Arq"))));
            const QVariant pertenece = arq.valor(QStringLiteral("PerteneceSociedad"));
            if (!pertenece.isNull())
                fila.poner(p + QStringLiteral("PERTENECE_SOC"), marca(pertenece));
            fila.poner(p + QStringLiteral("COLEGIO"), texto(otros, QStringLiteral("Colegio")));
        }
        const QVariant esS = otros.valor(QStringLiteral("esS"));
        const bool persona = !esS.isNull() && esS.toLongLong() == 0;
        if (!domicilioEscrito && persona) {
            const QVariant direccion = otros.valor(QStringLiteral("Dirección_Cli"));
            if (domicilio.isEmpty() && !direccion.isNull()) {
                domicilio = direccion.toString();
                const QVariant municipio = otros.valor(QStringLiteral("Municipio_Cli"));
                if (!municipio.isNull() && !municipio.toString().trimmed().isEmpty())
                    domicilio += QStringLiteral(", ") + municipio.toString();
                fila.poner(QStringLiteral("ARQ1DOM"), domicilio);
                domicilioEscrito = true;
            } else if (!domicilio.isEmpty()) {
                fila.poner(QStringLiteral("ARQ1DOM"), domicilio);  // hojas siguientes
            }
        }
        ++hueco;
    }
}

void columnasProyecto(const Consulta& proyecto, FilaTemporal& fila)
{
    columnasObra(proyecto, fila);
    for (int i = 1; i <= 4; ++i) {
        const QString c = QStringLiteral("PRYF%1").arg(i);
        fila.poner(c, marca(proyecto.valor(c)));
    }
}

int escribirHojas(qint64 pryCod, const QString& tablaTemporal, const ColumnasImpreso& columnas)
{
    const int hojas = numerarArquitectos(pryCod);
    QString domicilio;  // se fija una vez, no por hoja
    int escritas = 0;
    for (int p = 1; p <= hojas; ++p) {
        Consulta proyecto(QStringLiteral("SELECT * FROM Proyectos_A WHERE PRYCOD = ?"), {pryCod});
        if (!leerProyecto(proyecto))
            break;
        FilaTemporal fila;
        bloqueCliente(proyecto, fila);
        bloqueSociedad(proyecto, fila);
        paginaArquitectos(pryCod, p, fila, domicilio);
        columnas(proyecto, fila);
        fila.insertarEn(tablaTemporal);
        ++escritas;
    }
    return escritas;
}

// ---------------------------------------------------------------- impresos de una sola fila (A2, A3)

QString lineaAutores(qint64 pryCod)
{
    {
        Consulta propia(QStringLiteral("SELECT * FROM Arquitectos_Proyecto WHERE PryCod = ? AND EsPropiaSociedad <> 0 ORDER BY rowid"),
                        {pryCod});
        if (propia.siguiente()) {
            const QVariant codigo = propia.valor(QStringLiteral("Codigo_Arq"));
            if (codigo.isNull())
                return {};
            Consulta soc(QStringLiteral("SELECT * FROM OTROS WHERE Codigo_Cli = ?"), {codigo});
            if (!soc.siguiente()) {
                Mensajes::aviso(AVISO_SOCIEDAD_NO_HALLADA);
                return {};
            }
            // La sociedad firma sola.
            return texto(soc, QStringLiteral("Nombre_Cli")).trimmed();
        }
    }
    // Sin límite de tres: todos los del proyecto, en su orden.
    QString linea;
    Consulta arq(QStringLiteral("SELECT * FROM Arquitectos_Proyecto WHERE PryCod = ? ORDER BY rowid"), {pryCod});
    while (arq.siguiente()) {
        Consulta otros(QStringLiteral("SELECT * FROM OTROS WHERE Codigo_Cli = ?"), {arq.valor(QStringLiteral("Codigo_Arq"))});
        if (otros.siguiente())
            linea += nombreCompleto(otros) + QStringLiteral(", ");
    }
    if (!linea.trimmed().isEmpty())
        linea.chop(2);
    return linea;
}

void columnasTrabajo(const Consulta& proyecto, FilaTemporal& fila)
{
    cabeceraResumen(proyecto, fila);
    for (const char* c : {"EXPNUM", "EXPREF", "EXPFV", "EXPFFO"})
        fila.poner(QString::fromLatin1(c), texto(proyecto, QString::fromLatin1(c)));
    fila.poner(QStringLiteral("ARQ1NOM"), lineaAutores(proyecto.valor(QStringLiteral("PRYCOD")).toLongLong()));
}

QVariant numeroONulo(const QString& texto)
{
    const QString t = texto.trimmed();
    if (t.isEmpty())
        return {};
    bool ok = false;
    const double v = Formato::aNumero(t, &ok);
    return ok ? QVariant(v) : QVariant(t);
}

namespace {
QAbstractButton* casilla(const CampoImpreso& c)
{
    auto* b = qobject_cast<QAbstractButton*>(c.control);
    return b && b->isCheckable() ? b : nullptr;
}
}  // namespace

QVariant valorHistorico(const CampoImpreso& c)
{
    if (const QAbstractButton* b = casilla(c))
        return marca(b->isChecked());
    const QString t = Instantanea::texto(c.control);
    return c.numerico ? numeroONulo(t) : QVariant(t.trimmed());
}

QVariant valorTemporal(const CampoImpreso& c)
{
    if (const QAbstractButton* b = casilla(c))
        return marca(b->isChecked());
    const QString t = Instantanea::texto(c.control);
    return c.numerico ? textoONulo(t) : QVariant(t.trimmed());
}

void cargarCampo(const CampoImpreso& c, const Consulta& fila)
{
    const QVariant v = fila.valor(c.columna);
    if (QAbstractButton* b = casilla(c)) {
        b->setChecked(v.toString() == QLatin1String("X"));
        return;
    }
    const QString t = c.numerico ? FormatoInforme::valor(v, c.formato) : (v.isNull() ? QString() : v.toString());
    if (auto* l = qobject_cast<QLineEdit*>(c.control))
        l->setText(t);
}

Campos camposHistorico(const QList<CampoImpreso>& campos)
{
    Campos r;
    r.reserve(campos.size());
    for (const CampoImpreso& c : campos)
        r.append({c.columna, valorHistorico(c)});
    return r;
}

int escribirFila(qint64 pryCod, const QString& tablaTemporal, const QList<CampoImpreso>& campos)
{
    Consulta proyecto(QStringLiteral("SELECT * FROM Proyectos_A WHERE PRYCOD = ?"), {pryCod});
    if (!leerProyecto(proyecto))
        return 0;
    FilaTemporal fila;
    columnasTrabajo(proyecto, fila);
    for (const CampoImpreso& c : campos)
        if (c.columna != QLatin1String("PRYNOM") && c.columna != QLatin1String("PRYCOD"))
            fila.poner(c.columna, valorTemporal(c));
    fila.insertarEn(tablaTemporal);
    return 1;
}

// ---------------------------------------------------------------- facturas y certificados

void columnasPersona(const Consulta& c, const QString& prefijo, FilaTemporal& fila, ConCodigo codigo)
{
    fila.poner(prefijo + QStringLiteral("NOM"), nombreCompleto(c));
    if (codigo == ConCodigo::Si)
        fila.poner(prefijo + QStringLiteral("COD"), c.valor(QStringLiteral("Codigo_Cli")));
    fila.poner(prefijo + QStringLiteral("NIF"), texto(c, QStringLiteral("NIF")));
    fila.poner(prefijo + QStringLiteral("DOM"), texto(c, QStringLiteral("Dirección_Cli")));
    fila.poner(prefijo + QStringLiteral("MUN"), texto(c, QStringLiteral("Municipio_Cli")));
    fila.poner(prefijo + QStringLiteral("PRO"), texto(c, QStringLiteral("Provincia_Cli")));
    fila.poner(prefijo + QStringLiteral("TEL"), texto(c, QStringLiteral("Tfno_Cli")));
    fila.poner(prefijo + QStringLiteral("CP"), texto(c, QStringLiteral("cp")));
}

bool leerFila(Consulta& consulta, const QString& avisoSinFila)
{
    if (consulta.siguiente())
        return true;
    Mensajes::aviso(avisoSinFila);
    return false;
}

void columnaAgenciaTributaria(FilaTemporal& fila)
{
    Consulta c(QStringLiteral("SELECT AgenciaTributaria FROM Config"));
    if (leerFila(c, QStringLiteral("No se ha podido cargar la ubicación de la Agencia Tributaria")))
        fila.poner(QStringLiteral("AgenciaTributaria"), texto(c, QStringLiteral("AgenciaTributaria")));
}

// ---------------------------------------------------------------- nombramientos y hojas resumen

void columnasObra(const Consulta& proyecto, FilaTemporal& fila)
{
    fila.poner(QStringLiteral("PRYNOM"), texto(proyecto, QStringLiteral("Trabajo")));
    fila.poner(QStringLiteral("PRYDOM"), texto(proyecto, QStringLiteral("Emplazamiento")));
    fila.poner(QStringLiteral("PRYMUN"), texto(proyecto, QStringLiteral("Municipio")));
    fila.poner(QStringLiteral("PRYPRO"), texto(proyecto, QStringLiteral("Provincia")));
}

namespace {

// Nombres de las filas de un enlace del proyecto que están en OTROS como arquitectos, unidos por
// ", "; las que no están se saltan.
QString unirArquitectos(const QString& sql, qint64 pryCod)
{
    QStringList nombres;
    for (Consulta c(sql, {pryCod}); c.siguiente();) {
        const QVariant codigo = c.valor(QStringLiteral("Codigo_Arq"));
        if (codigo.isNull())
            continue;
        Consulta otros(SQL_OTROS_ARQUITECTO, {codigo});
        if (otros.siguiente())
            nombres << nombreCompleto(otros);
    }
    return nombres.join(QStringLiteral(", "));
}

}  // namespace

QString nombresAutores(qint64 pryCod)
{
    return unirArquitectos(QStringLiteral("SELECT * FROM Autores_Proyecto WHERE PryCod = ? ORDER BY rowid"), pryCod);
}

void cabeceraResumen(const Consulta& proyecto, FilaTemporal& fila)
{
    fila.poner(QStringLiteral("PRYNOM"), texto(proyecto, QStringLiteral("Trabajo")));
    fila.poner(QStringLiteral("PRYDOM"), texto(proyecto, QStringLiteral("Emplazamiento")));
    fila.poner(QStringLiteral("CLIMUN"), texto(proyecto, QStringLiteral("Municipio")));
    fila.poner(QStringLiteral("CLIPRO"), texto(proyecto, QStringLiteral("Provincia")));
    const QVariant cliente = proyecto.valor(QStringLiteral("Codigo_Cliente"));
    if (cliente.isNull())
        return;
    Consulta cli(QStringLiteral("SELECT * FROM Clientes WHERE Codigo_Cli = ?"), {cliente});
    if (cli.siguiente())
        fila.poner(QStringLiteral("CLINOM"), nombreCompleto(cli));
}

QString firmaResumen(qint64 pryCod)
{
    Consulta propia(QStringLiteral("SELECT * FROM Arquitectos_Proyecto WHERE PryCod = ? AND EsPropiaSociedad <> 0 ORDER BY rowid"),
                    {pryCod});
    if (!propia.siguiente())
        return unirArquitectos(QStringLiteral("SELECT * FROM Arquitectos_Proyecto WHERE PryCod = ? ORDER BY rowid"), pryCod);
    const QVariant codigo = propia.valor(QStringLiteral("Codigo_Arq"));
    if (codigo.isNull())
        return {};
    Consulta soc(SQL_OTROS_ARQUITECTO, {codigo});
    if (!soc.siguiente()) {
        Mensajes::aviso(AVISO_SOCIEDAD_NO_HALLADA);
        return {};
    }
    return texto(soc, QStringLiteral("Nombre_Cli")).trimmed();
}

}  // namespace BloquesImpreso
