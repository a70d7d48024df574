#include "reports/modExcel.h"

#include "core/BaseDatos.h"
#include "core/Documentos.h"
#include "core/Guardia.h"
#include "core/Mensajes.h"
#include "core/Rutas.h"
#include "core/Sistema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSaveFile>
#include <QSqlRecord>
#include <QTemporaryFile>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <zip.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <memory>

namespace {

const QString MODULO = QStringLiteral("modExcel");
constexpr int PRIMERA_FILA = 6;  // filas 1 a 5: cabecera de la plantilla
constexpr zip_uint32_t NIVEL_COMPRESION = 6;

// Números de error al estilo del motor de siempre
constexpr qint64 ERR_NO_ENCONTRADO = 53;
constexpr qint64 ERR_ACCESO = 75;
constexpr qint64 ERR_FORMATO = 31036;
constexpr qint64 ERR_CAMPO = 3265;

struct Columna {
    QString campo;
    bool fecha = false;
};

struct Listado {
    QString sql;
    QVariantList valores;
    QList<Columna> columnas;
};

QList<Columna> columnas(std::initializer_list<const char*> nombres)
{
    QList<Columna> r;
    for (const char* n : nombres)
        r.append({QString::fromUtf8(n), false});
    return r;
}

Listado listadoDe(const QString& tabla, const modInformes::FiltroFecha& filtro)
{
    const QList<Columna> personal = columnas({"Nombre_Cli", "Ape_Cli", "NIF", "NumColegiado", "Dirección_Cli", "cp",
                                              "Municipio_Cli", "Provincia_Cli", "Tfno_Cli", "Tfno_Cli1", "TelMovil",
                                              "Fax_Cli", "Correo_Cli"});
    const QString otros = QStringLiteral("SELECT * FROM OTROS WHERE UCASE(Categoria) = ?");
    const QString clave = tabla.toUpper();

    if (clave == u"ARQUITECTOS" || clave == u"ARQUITECTOS_AUTORES" || clave == u"COORDINADOR_SS")
        return {otros, {QStringLiteral("ARQUITECTO")}, personal};
    if (clave == u"ARQUITECTOS_SIMPLE")
        return {otros + QStringLiteral(" AND EsS = ?"), {QStringLiteral("ARQUITECTO"), 0}, personal};
    if (clave == u"ARQUITECTOS_SOCIEDAD")
        return {otros + QStringLiteral(" AND EsS = ?"), {QStringLiteral("ARQUITECTO"), 1}, personal};
    if (clave == u"APAREJADORES")
        return {otros, {QStringLiteral("ARQUITECTO TECNICO")}, personal};
    if (clave == u"CONTRATISTAS")
        return {otros, {QStringLiteral("CONSTRUCTOR")},
                columnas({"Nombre_Cli", "Ape_Cli", "NIF", "Dirección_Cli", "cp", "Municipio_Cli", "Provincia_Cli",
                          "Tfno_Cli", "Tfno_Cli1", "TelMovil", "Fax_Cli", "Correo_Cli"})};
    if (clave == u"CLIENTES")
        return {QStringLiteral("SELECT * FROM CLIENTES"), {},
                columnas({"Nombre_Cli", "Ape_Cli", "NIF", "Dirección_Cli", "cp", "Municipio_Cli", "Provincia_Cli",
                          "Tfno_Cli", "tf", "TelMovil", "Fax_Cli", "Correo_Cli"})};
    if (clave != u"PROYECTOS_A")
        lanzarError(ERR_FORMATO, QStringLiteral("Tabla desconocida para el listado: ") + tabla);

    Listado l{QStringLiteral("SELECT * FROM PROYECTOS_A"), {},
              columnas({"EXPNUM", "EXPREF", "Trabajo", "Emplazamiento", "Municipio", "Provincia", "CLINOM", "EXPFV",
                        "EXPFFO"})};
    l.columnas[7].fecha = true;
    l.columnas[8].fecha = true;
    if (filtro.vacio())
        return l;

    const bool entre = filtro.operador == modInformes::FiltroFecha::Operador::Entre;
    if (!filtro.fecha1.isValid() || (entre && !filtro.fecha2.isValid()))
        lanzarError(ERR_FORMATO, QStringLiteral("Filtro de proyectos sin fecha"));
    // La misma condición, con sus valores enlazados, que la del listado de proyectos.
    l.sql += QStringLiteral(" WHERE ") + filtro.condicion(&l.valores);
    return l;
}

QString letraColumna(int columna)
{
    QString r;
    while (columna > 0) {
        const int resto = (columna - 1) % 26;
        r.prepend(QChar(u'A' + resto));
        columna = (columna - 1) / 26;
    }
    return r;
}

int numeroColumna(QStringView referencia)  // "AB12" -> 28
{
    int n = 0;
    for (QChar c : referencia) {
        if (c < u'A' || c > u'Z')
            break;
        n = n * 26 + (c.unicode() - u'A' + 1);
    }
    return n;
}

// Caracteres que XML no admite (los de control salvo tabulador y saltos) se quitan.
QString textoXml(const QString& t)
{
    QString r;
    r.reserve(t.size());
    for (QChar c : t) {
        const char16_t u = c.unicode();
        if ((u >= 0x20 && u != 0xFFFE && u != 0xFFFF) || u == u'\t' || u == u'\n' || u == u'\r')
            r.append(c);
    }
    return r;
}

// ---- Paquete .xlsx ----

struct CerrarZip {
    void operator()(zip_t* z) const { zip_discard(z); }
};
using Zip = std::unique_ptr<zip_t, CerrarZip>;

[[noreturn]] void errorZip(const QString& que, zip_error_t* e)
{
    lanzarError(ERR_FORMATO, que + QStringLiteral(": ") + QString::fromUtf8(zip_error_strerror(e)));
}

QByteArray leerEntrada(zip_t* z, const QString& nombre)
{
    const QByteArray n = nombre.toUtf8();
    zip_stat_t st;
    zip_stat_init(&st);
    if (zip_stat(z, n.constData(), 0, &st) != 0 || !(st.valid & ZIP_STAT_SIZE))
        lanzarError(ERR_FORMATO, QStringLiteral("La plantilla no contiene ") + nombre);
    zip_file_t* f = zip_fopen(z, n.constData(), 0);
    if (!f)
        errorZip(QStringLiteral("No se puede leer ") + nombre, zip_get_error(z));
    QByteArray datos(static_cast<qsizetype>(st.size), Qt::Uninitialized);
    const zip_int64_t leidos = zip_fread(f, datos.data(), st.size);
    zip_fclose(f);
    if (leidos != static_cast<zip_int64_t>(st.size))
        lanzarError(ERR_FORMATO, QStringLiteral("No se puede leer ") + nombre);
    return datos;
}

// Ruta dentro del paquete de la primera hoja del libro.
QString rutaPrimeraHoja(zip_t* z)
{
    QString id;
    QXmlStreamReader libro(leerEntrada(z, QStringLiteral("xl/workbook.xml")));
    while (id.isEmpty() && !libro.atEnd()) {
        if (libro.readNext() == QXmlStreamReader::StartElement && libro.name() == u"sheet")
            id = libro.attributes().value(
                QStringLiteral("http://schemas.openxmlformats.org/officeDocument/2006/relationships"), QStringLiteral("id")).toString();
    }
    QXmlStreamReader rels(leerEntrada(z, QStringLiteral("xl/_rels/workbook.xml.rels")));
    while (!id.isEmpty() && !rels.atEnd()) {
        if (rels.readNext() == QXmlStreamReader::StartElement && rels.name() == u"Relationship"
            && rels.attributes().value(QStringLiteral("Id")) == id) {
            const QString destino = rels.attributes().value(QStringLiteral("Target")).toString();
            return destino.startsWith(u'/') ? destino.mid(1) : QDir::cleanPath(QStringLiteral("xl/") + destino);
        }
    }
    lanzarError(ERR_FORMATO, QStringLiteral("La plantilla no tiene ninguna hoja"));
}

// Estilos de celda del libro: cuáles muestran fechas.
class Estilos {
public:
    explicit Estilos(const QByteArray& xml)
    {
        QHash<int, QString> formatos;
        QXmlStreamReader r(xml);
        bool enCeldas = false;
        while (!r.atEnd()) {
            const auto t = r.readNext();
            if (t == QXmlStreamReader::StartElement) {
                if (r.name() == u"numFmt")
                    formatos.insert(r.attributes().value(QStringLiteral("numFmtId")).toInt(),
                                    r.attributes().value(QStringLiteral("formatCode")).toString());
                else if (r.name() == u"cellXfs")
                    enCeldas = true;
                else if (enCeldas && r.name() == u"xf")
                    m_fecha.append(esFormatoFecha(r.attributes().value(QStringLiteral("numFmtId")).toInt(), formatos));
            } else if (t == QXmlStreamReader::EndElement && r.name() == u"cellXfs") {
                enCeldas = false;
            }
        }
    }

    bool esFecha(int estilo) const { return estilo >= 0 && estilo < m_fecha.size() && m_fecha[estilo]; }
    int primeroDeFecha() const { return int(m_fecha.indexOf(true)); }

private:
    static bool esFormatoFecha(int id, const QHash<int, QString>& formatos)
    {
        if ((id >= 14 && id <= 17) || id == 22)
            return true;
        if (!formatos.contains(id))
            return false;
        // Formato propio: lleva d o y fuera de literales y corchetes
        bool literal = false, corchete = false;
        for (QChar c : formatos.value(id)) {
            if (c == u'"')
                literal = !literal;
            else if (c == u'[')
                corchete = true;
            else if (c == u']')
                corchete = false;
            else if (!literal && !corchete && (c.toLower() == u'd' || c.toLower() == u'y'))
                return true;
        }
        return false;
    }

    QList<bool> m_fecha;
};

// La hoja de la plantilla y los puntos en que se le añaden filas.
struct Hoja {
    QString xml;
    qsizetype corteIni = -1;   // lo que hay entre corteIni y corteFin se sustituye por las filas
    qsizetype corteFin = -1;
    QString antes, despues;    // para <sheetData/> vacío
    QString prefijo;           // "x:" si la hoja usa prefijo para su espacio de nombres
    qsizetype dimIni = -1, dimFin = -1;
    QString dimNombre;
    int dimColumnas = 0;
    QList<std::array<int, 3>> columnas;  // min, max, estilo

    int estiloColumna(int c) const
    {
        for (const auto& [min, max, estilo] : columnas)
            if (c >= min && c <= max)
                return estilo;
        return 0;
    }
};

Hoja analizarHoja(const QByteArray& datos)
{
    Hoja h;
    h.xml = QString::fromUtf8(datos);
    QXmlStreamReader r(h.xml);
    bool enDatos = false;
    int ultimaFila = 0;
    while (!r.atEnd()) {
        const qsizetype pos = r.characterOffset();
        const auto t = r.readNext();
        if (t == QXmlStreamReader::StartElement) {
            const auto nombre = r.name();
            if (nombre == u"dimension") {
                h.dimIni = pos;
                h.dimNombre = r.qualifiedName().toString();
                const QString ref = r.attributes().value(QStringLiteral("ref")).toString();
                h.dimColumnas = numeroColumna(QStringView(ref).mid(ref.indexOf(u':') + 1));
            } else if (nombre == u"col") {
                const auto a = r.attributes();
                h.columnas.append({a.value(QStringLiteral("min")).toInt(), a.value(QStringLiteral("max")).toInt(),
                                   a.value(QStringLiteral("style")).toInt()});
            } else if (nombre == u"sheetData") {
                if (!r.prefix().isEmpty())
                    h.prefijo = r.prefix().toString() + u':';
                const qsizetype fin = r.characterOffset();
                if (QStringView(h.xml).mid(fin - 2, 2) == u"/>") {
                    const QString q = r.qualifiedName().toString();
                    h.corteIni = pos;
                    h.corteFin = fin;
                    h.antes = u'<' + q + u'>';
                    h.despues = QStringLiteral("</") + q + u'>';
                } else {
                    enDatos = true;
                }
            } else if (enDatos && nombre == u"row") {
                const int fila = r.attributes().hasAttribute(QStringLiteral("r"))
                                     ? r.attributes().value(QStringLiteral("r")).toInt()
                                     : ultimaFila + 1;
                ultimaFila = fila;
                if (fila >= PRIMERA_FILA && h.corteIni < 0)
                    h.corteIni = pos;  // filas sobrantes de la plantilla: se quitan
            }
        } else if (t == QXmlStreamReader::EndElement) {
            if (r.name() == u"dimension") {
                h.dimFin = r.characterOffset();
            } else if (enDatos && r.name() == u"sheetData") {
                enDatos = false;
                h.corteFin = h.xml.lastIndexOf(QStringLiteral("</"), r.characterOffset() - 1);
                if (h.corteIni < 0)
                    h.corteIni = h.corteFin;
            }
        }
    }
    if (r.hasError())
        lanzarError(ERR_FORMATO, QStringLiteral("Hoja de la plantilla ilegible: ") + r.errorString());
    if (h.corteFin < 0)
        lanzarError(ERR_FORMATO, QStringLiteral("La hoja de la plantilla no tiene zona de datos"));
    return h;
}

// ---- Filas de datos ----

class EscritorFilas {
public:
    EscritorFilas(const Hoja& hoja, const Estilos& estilos, int columnas) : m_w(&m_xml), m_p(hoja.prefijo)
    {
        for (int c = 1; c <= columnas; ++c) {
            const int e = hoja.estiloColumna(c);
            m_letras.append(letraColumna(c));
            m_estilo.append(e);
            m_estiloFecha.append(estilos.esFecha(e) ? e : estilos.primeroDeFecha());
        }
    }

    void empezarFila(int fila)
    {
        m_fila = QString::number(fila);
        m_w.writeStartElement(m_p + QStringLiteral("row"));
        m_w.writeAttribute(QStringLiteral("r"), m_fila);
    }
    void terminarFila() { m_w.writeEndElement(); }

    void celda(int indice, const QVariant& v, bool fecha)
    {
        if (v.isNull())
            return;  // nulo: celda vacía
        if (fecha) {
            QDate d = v.typeId() == QMetaType::QDate       ? v.toDate()
                      : v.typeId() == QMetaType::QDateTime ? v.toDateTime().date()
                                                           : QDate::fromString(v.toString().left(10), Qt::ISODate);
            if (d.isValid() && m_estiloFecha[indice] >= 0) {
                // Número de serie de la hoja: días desde el 30/12/1899
                numero(indice, QString::number(QDate(1899, 12, 30).daysTo(d)), m_estiloFecha[indice]);
                return;
            }
            if (d.isValid()) {
                texto(indice, d.toString(QStringLiteral("dd/MM/yyyy")));
                return;
            }
        }
        switch (v.typeId()) {
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
            numero(indice, v.toString(), m_estilo[indice]);
            return;
        case QMetaType::Bool:
            numero(indice, v.toBool() ? QStringLiteral("1") : QStringLiteral("0"), m_estilo[indice]);
            return;
        case QMetaType::Double:
            if (std::isfinite(v.toDouble())) {
                numero(indice, QString::number(v.toDouble(), 'g', QLocale::FloatingPointShortest), m_estilo[indice]);
                return;
            }
            break;
        default:
            break;
        }
        const QString t = v.typeId() == QMetaType::QByteArray ? QString::fromUtf8(v.toByteArray()) : v.toString();
        if (!t.isEmpty())
            texto(indice, t);
    }

    QString resultado() const { return m_xml; }

private:
    void abrirCelda(int indice, int estilo)
    {
        m_w.writeStartElement(m_p + QStringLiteral("c"));
        m_w.writeAttribute(QStringLiteral("r"), m_letras[indice] + m_fila);
        if (estilo > 0)
            m_w.writeAttribute(QStringLiteral("s"), QString::number(estilo));
    }
    void numero(int indice, const QString& valor, int estilo)
    {
        abrirCelda(indice, estilo);
        m_w.writeTextElement(m_p + QStringLiteral("v"), valor);
        m_w.writeEndElement();
    }
    void texto(int indice, const QString& valor)
    {
        const QString limpio = textoXml(valor);
        abrirCelda(indice, m_estilo[indice]);
        m_w.writeAttribute(QStringLiteral("t"), QStringLiteral("inlineStr"));
        m_w.writeStartElement(m_p + QStringLiteral("is"));
        m_w.writeStartElement(m_p + QStringLiteral("t"));
        if (!limpio.isEmpty() && (limpio.front().isSpace() || limpio.back().isSpace()))
            m_w.writeAttribute(QStringLiteral("xml:space"), QStringLiteral("preserve"));
        m_w.writeCharacters(limpio);
        m_w.writeEndElement();
        m_w.writeEndElement();
        m_w.writeEndElement();
    }

    QString m_xml;
    QXmlStreamWriter m_w;
    QString m_p;
    QString m_fila;
    QStringList m_letras;
    QList<int> m_estilo, m_estiloFecha;
};

QByteArray leerFichero(const QString& ruta)
{
    QFile f(ruta);
    if (!f.exists())
        lanzarError(ERR_NO_ENCONTRADO, QStringLiteral("No se encuentra el fichero ") + QDir::toNativeSeparators(ruta));
    if (!f.open(QIODevice::ReadOnly))
        lanzarError(ERR_ACCESO, QStringLiteral("No se puede leer el fichero ") + QDir::toNativeSeparators(ruta) + QStringLiteral(": ")
                                    + f.errorString());
    return f.readAll();
}

Zip abrirZip(const QString& ruta, int modo)
{
    int codigo = 0;
    zip_t* z = zip_open(QFile::encodeName(ruta).constData(), modo, &codigo);
    if (!z) {
        zip_error_t e;
        zip_error_init_with_code(&e, codigo);
        const QString texto = QString::fromUtf8(zip_error_strerror(&e));
        zip_error_fini(&e);
        lanzarError(ERR_FORMATO, QStringLiteral("No se puede abrir el libro ") + QDir::toNativeSeparators(ruta) + QStringLiteral(": ") + texto);
    }
    return Zip(z);
}

// El libro con la hoja nueva se compone en un temporal junto al fichero y después se cambia
// por él de una vez: si algo falla a medias, el fichero sigue como estaba.
void sustituirHoja(const QString& fichero, const QString& rutaHoja, const QByteArray& hoja)
{
    const QFileInfo info(fichero);
    QTemporaryFile temporal(info.absolutePath() + QStringLiteral("/~") + info.completeBaseName() + QStringLiteral("_XXXXXX.tmp"));
    const QByteArray original = leerFichero(fichero);
    if (!temporal.open() || temporal.write(original) != original.size() || !temporal.flush())
        lanzarError(ERR_ACCESO, QStringLiteral("No se puede escribir junto a ") + QDir::toNativeSeparators(fichero)
                                    + QStringLiteral(": ") + temporal.errorString());
    temporal.close();
    QFile::setPermissions(temporal.fileName(), info.permissions());  // los del listado, no los del temporal

    Zip zip = abrirZip(temporal.fileName(), 0);
    const zip_int64_t indice = zip_name_locate(zip.get(), rutaHoja.toUtf8().constData(), 0);
    zip_source_t* s = zip_source_buffer(zip.get(), hoja.constData(), static_cast<zip_uint64_t>(hoja.size()), 0);
    if (!s)
        errorZip(QStringLiteral("No se puede preparar la hoja"), zip_get_error(zip.get()));
    if (indice < 0 || zip_file_replace(zip.get(), static_cast<zip_uint64_t>(indice), s, ZIP_FL_ENC_UTF_8) < 0) {
        zip_source_free(s);
        errorZip(QStringLiteral("No se puede sustituir la hoja"), zip_get_error(zip.get()));
    }
    // Compresión normal: la máxima, que es la de libzip, tarda el triple y apenas gana
    // (con ZIP_CM_DEFLATE la libzip 1.7 no hace caso del nivel; con ZIP_CM_DEFAULT sí)
    zip_set_file_compression(zip.get(), static_cast<zip_uint64_t>(indice), ZIP_CM_DEFAULT, NIVEL_COMPRESION);
    if (zip_close(zip.get()) < 0)
        errorZip(QStringLiteral("No se puede componer el libro"), zip_get_error(zip.get()));
    zip.release();  // zip_close ya lo ha liberado

    std::error_code ec;
    std::filesystem::rename(std::filesystem::path(temporal.fileName().toStdU16String()),
                            std::filesystem::path(fichero.toStdU16String()), ec);
    if (ec)
        lanzarError(ERR_ACCESO, QStringLiteral("No se puede sustituir el fichero ") + QDir::toNativeSeparators(fichero)
                                    + QStringLiteral(": ") + QString::fromLocal8Bit(ec.message()));
}

// Escribe el fichero entero de una vez: se crea al lado y se cambia por el anterior al final.
void guardarFichero(const QString& ruta, const QByteArray& datos)
{
    const bool nuevo = !QFileInfo::exists(ruta);
    QSaveFile f(ruta);
    if (!f.open(QIODevice::WriteOnly) || f.write(datos) != datos.size() || !f.commit())
        lanzarError(ERR_ACCESO, QStringLiteral("No se puede escribir el fichero ") + QDir::toNativeSeparators(ruta)
                                    + QStringLiteral(": ") + f.errorString());
    if (nuevo)  // el temporal nace sólo para su dueño; un listado lo leen todos
        QFile::setPermissions(ruta, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser
                                        | QFile::ReadGroup | QFile::ReadOther);
}

}  // namespace

bool copiarFicheroExcel(const QString& plantilla, const QString& destino)
{
    return guardia(MODULO, QStringLiteral("copiarFicheroExcel"), [&] {
        guardarFichero(destino, leerFichero(Rutas::enPrograma(QStringLiteral("Excel/") + plantilla)));
    });
}

int escribirExcel(const QString& fichero, const QString& tabla, const modInformes::FiltroFecha& filtro)
{
    int filas = -1;
    guardia(MODULO, QStringLiteral("escribirExcel"), [&] {
        if (!QFileInfo::exists(fichero))
            lanzarError(ERR_NO_ENCONTRADO, QStringLiteral("No se encuentra el fichero ") + QDir::toNativeSeparators(fichero));
        Zip zip(abrirZip(fichero, ZIP_RDONLY));
        const QString rutaHoja = rutaPrimeraHoja(zip.get());
        Hoja hoja = analizarHoja(leerEntrada(zip.get(), rutaHoja));
        const Estilos estilos(leerEntrada(zip.get(), QStringLiteral("xl/styles.xml")));

        const Listado listado = listadoDe(tabla, filtro);
        EscritorFilas escritor(hoja, estilos, int(listado.columnas.size()));
        int n = 0;
        {
            UsoConexion uso;
            Consulta c(listado.sql, listado.valores);
            QList<int> indices;
            for (const Columna& col : listado.columnas) {
                const int i = c.query().record().indexOf(col.campo);
                if (i < 0)
                    lanzarError(ERR_CAMPO, QStringLiteral("No se encuentra el elemento en la colección: ") + col.campo);
                indices.append(i);
            }
            while (c.siguiente()) {
                escritor.empezarFila(PRIMERA_FILA + n);
                for (int k = 0; k < indices.size(); ++k)
                    escritor.celda(k, c.valor(indices[k]), listado.columnas[k].fecha);
                escritor.terminarFila();
                ++n;
            }
        }

        // Sin filas y sin nada que quitar, la copia de la plantilla se queda como está.
        if (n > 0 || hoja.corteFin > hoja.corteIni) {
            QString xml = hoja.xml;
            xml.replace(hoja.corteIni, hoja.corteFin - hoja.corteIni, hoja.antes + escritor.resultado() + hoja.despues);
            if (hoja.dimIni >= 0 && hoja.dimFin > hoja.dimIni) {
                const int ultimaFila = n > 0 ? PRIMERA_FILA + n - 1 : PRIMERA_FILA - 1;
                const int ultimaColumna = std::max(hoja.dimColumnas, int(listado.columnas.size()));
                xml.replace(hoja.dimIni, hoja.dimFin - hoja.dimIni,
                            QStringLiteral("<%1 ref=\"A1:%2%3\"/>").arg(hoja.dimNombre, letraColumna(ultimaColumna)).arg(ultimaFila));
            }
            zip.reset();
            sustituirHoja(fichero, rutaHoja, xml.toUtf8());
        }
        filas = n;

        // Se abre para el usuario, que es quien lo cierra.
        // El listado ya está escrito: sin programa que lo abra se dice dónde está, no que falta.
        abrirConSuPrograma(fichero, {.documento = QStringLiteral("el listado")}, MODULO, QStringLiteral("escribirExcel"));
    });
    return filas;
}
