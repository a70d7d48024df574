#include "search/TablasBusqueda.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

namespace TablasBusqueda {

namespace {

using C = Columna;
using F = CampoBusqueda;
constexpr Modo LIKE_ = Modo::Parecido;
constexpr Modo IGUAL = Modo::Igual;
constexpr Modo FECHA = Modo::Fecha;

const QList<Columna> COLUMNAS_ARQUITECTOS = {
    {"Colegiado", 900, "NumColegiado"}, {"Nombre", 2000, "Nombre_Cli"}, {"Apellidos", 3200, "Ape_Cli"},
    {"NIF/CIF", 1200, "NIF"}, {"Domicilio", 4350, "Dirección_Cli"}, {"Municipio", 1800, "Municipio_Cli"},
    {"Provincia", 1950, "Provincia_Cli"}};

const QList<Columna> COLUMNAS_PERSONAS = {
    {"Nombre", 2450, "Nombre_Cli"}, {"Apellidos", 3650, "Ape_Cli"}, {"NIF/CIF", 1200, "NIF"},
    {"Domicilio", 4350, "Dirección_Cli"}, {"Municipio", 1800, "Municipio_Cli"}, {"Provincia", 1950, "Provincia_Cli"}};

const QList<CampoBusqueda> CAMPOS_ARQUITECTOS = {
    {"Número de colegiado", "NumColegiado", IGUAL, "NumColegiado"},
    {"Nombre", "Nombre_Cli", LIKE_, "Nombre_Cli, Ape_Cli, NumColegiado"},
    {"Apellidos", "Ape_Cli", LIKE_, "Ape_Cli, Nombre_Cli, NumColegiado"},
    {"NIF", "NIF", LIKE_, "NIF, NumColegiado"},
    {"Municipio", "Municipio_Cli", LIKE_, "Municipio_Cli, NumColegiado"},
    {"Provincia", "Provincia_Cli", LIKE_, "Provincia_Cli, NumColegiado"}};

const QList<CampoBusqueda> CAMPOS_PERSONAS = {
    {"Nombre", "Nombre_Cli", LIKE_, "Nombre_Cli, Ape_Cli, Codigo_Cli"},
    {"Apellidos", "Ape_Cli", LIKE_, "Ape_Cli, Nombre_Cli, Codigo_Cli"},
    {"NIF", "NIF", LIKE_, "NIF, Codigo_Cli"},
    {"Municipio", "Municipio_Cli", LIKE_, "Municipio_Cli, Codigo_Cli"},
    {"Provincia", "Provincia_Cli", LIKE_, "Provincia_Cli, Codigo_Cli"}};

Descripcion otros(const QString& tabla, Familia familia, const QString& categoria, const QString& extra)
{
    Descripcion d;
    d.tabla = tabla;
    d.familia = familia;
    d.origen = QStringLiteral("OTROS");
    d.condicion = QStringLiteral("UCASE(Categoria) = ?") + extra;
    d.valores = {categoria};
    d.campoClave = QStringLiteral("Codigo_Cli");
    if (familia == Familia::Contratistas) {
        d.orden = QStringLiteral("Ape_Cli, Nombre_Cli, Codigo_Cli");
        d.campos = CAMPOS_PERSONAS;
        d.columnas = COLUMNAS_PERSONAS;
    } else {
        d.orden = QStringLiteral("Ape_Cli, Nombre_Cli, NumColegiado");
        d.campos = CAMPOS_ARQUITECTOS;
        d.columnas = COLUMNAS_ARQUITECTOS;
    }
    return d;
}

// Impresos del histórico: proyecto, lugar y fecha, con el tipo fijo cuando la tabla es compartida.
Descripcion impreso(const QString& tabla, const QString& origen, const QString& condicion, const QVariantList& valores,
                    const QString& campoFecha, const QList<Columna>& columnas, const QString& ordenFecha)
{
    Descripcion d;
    d.tabla = tabla;
    d.origen = origen;
    d.condicion = condicion;
    d.valores = valores;
    d.orden = QStringLiteral("PRYNOM");
    d.campos = {{"Proyecto", "PRYNOM", LIKE_, "PRYNOM"}, {"Fecha", campoFecha, FECHA, ordenFecha}};
    d.campoClave = QStringLiteral("Clave");
    d.columnas = columnas;
    return d;
}

QList<Columna> proyectoLugarFecha(const QString& lugar, const QString& fecha)
{
    return {{"Proyecto", 5000, "PRYNOM"}, {"Lugar", 2800, lugar}, {"Fecha", 1700, fecha, true}};
}

Descripcion certificadoB4(const QString& tipo)
{
    Descripcion d;
    d.tabla = QStringLiteral("DATOSB4");
    d.origen = QStringLiteral("datosB4");
    d.condicion = QStringLiteral("TipoCertificado = ?");
    d.valores = {tipo};
    d.orden = QStringLiteral("PERNOM, Ejercicio, PAGNOM, ImporteIntegro");
    d.campos = {{"Perceptor", "PERNOM", LIKE_, "PERNOM, Ejercicio, ImporteIntegro"},
                {"Pagador", "PAGNOM", LIKE_, "PAGNOM, Ejercicio, ImporteIntegro"},
                {"Ejercicio", "Ejercicio", LIKE_, "Ejercicio, PAGNOM, ImporteIntegro"},
                {"Nº justificante", "NumJustificante", LIKE_, "NumJustificante, Ejercicio, PAGNOM, ImporteIntegro"}};
    d.campoClave = QStringLiteral("Clave");
    d.columnas = {{"Perceptor", 3750, "PERNOM"}, {"Pagador", 3750, "PAGNOM"}, {"Ejercicio", 800, "Ejercicio"},
                  {"Nº justificante", 1200, "NumJustificante"}};
    return d;
}

// Todas las descripciones, por clave de tabla y tipo de impreso ("*" cualquier tipo).
QHash<QString, Descripcion> construir()
{
    QHash<QString, Descripcion> t;
    auto poner = [&t](const QString& tipo, Descripcion d) { t.insert(d.tabla + QLatin1Char('|') + tipo, std::move(d)); };

    Descripcion p;
    p.tabla = QStringLiteral("PROYECTOS_A");
    p.familia = Familia::Proyectos;
    p.origen = QStringLiteral("Proyectos_A");
    p.orden = QStringLiteral("EXPNUM, TRABAJO, PRYCOD");
    p.campos = {{"Número de expediente", "EXPNUM", LIKE_, "EXPNUM, PRYCOD"},
                {"Trabajo", "TRABAJO", LIKE_, "TRABAJO, EXPNUM, PRYCOD"},
                {"Municipio", "MUNICIPIO", LIKE_, "MUNICIPIO, EXPNUM, PRYCOD"},
                {"Provincia", "PROVINCIA", LIKE_, "PROVINCIA, EXPNUM, PRYCOD"},
                {"Ubicación del proyecto", "EMPLAZAMIENTO", LIKE_, "EMPLAZAMIENTO, EXPNUM, PRYCOD"},
                {"Fecha visado", "EXPFV", FECHA, "EXPFV, EXPNUM, PRYCOD"},
                {"Fecha fin de obra", "EXPFFO", FECHA, "EXPFFO, EXPNUM, PRYCOD"}};
    p.campoClave = QStringLiteral("PRYCOD");
    p.columnas = {{"Nº Exp", 900, "EXPNUM"}, {"Trabajo", 5000, "TRABAJO"}, {"Emplazamiento", 3050, "EMPLAZAMIENTO"},
                  {"Municipio", 1800, "MUNICIPIO"}, {"Provincia", 1950, "PROVINCIA"},
                  {"F. Visado", 1500, "EXPFV", true}, {"F. Fin de obra", 1500, "EXPFFO", true}};
    poner("*", p);

    const QString arq = QStringLiteral("ARQUITECTO");
    poner("*", otros("ARQUITECTOS", Familia::Arquitectos, arq, {}));
    poner("*", otros("ARQUITECTOS_AUTORES", Familia::Arquitectos, arq, {}));
    poner("*", otros("COORDINADOR_SS", Familia::Arquitectos, arq, {}));
    poner("*", otros("ARQUITECTOS_SIMPLE", Familia::Arquitectos, arq, QStringLiteral(" AND esS = 0")));
    poner("*", otros("ARQUITECTOS_SOCIEDAD", Familia::Arquitectos, arq, QStringLiteral(" AND esS = 1")));
    poner("*", otros("APAREJADORES", Familia::Aparejadores, QStringLiteral("ARQUITECTO TECNICO"), {}));
    poner("*", otros("CONTRATISTAS", Familia::Contratistas, QStringLiteral("CONSTRUCTOR"), {}));

    Descripcion c;
    c.tabla = QStringLiteral("CLIENTES");
    c.familia = Familia::Clientes;
    c.origen = QStringLiteral("Clientes");
    c.orden = QStringLiteral("Ape_Cli, Nombre_Cli, Codigo_Cli");
    c.campos = CAMPOS_PERSONAS;
    c.campoClave = QStringLiteral("Codigo_Cli");
    c.columnas = COLUMNAS_PERSONAS;
    poner("*", c);

    Descripcion k;
    k.tabla = QStringLiteral("COSTES");
    k.familia = Familia::Costes;
    k.origen = QStringLiteral("Costes");
    k.orden = QStringLiteral("CODIGO, TIPO, DESCRIPCION");
    k.campos = {{"Código", "CODIGO", LIKE_, "CODIGO"}, {"Tipo", "TIPO", LIKE_, "TIPO, CODIGO"},
                {"Descripción", "DESCRIPCION", LIKE_, "DESCRIPCION, CODIGO"}};
    k.campoClave = QStringLiteral("CODIGO");
    k.claveNumerica = false;
    k.columnas = {{"Código", 750, "CODIGO"}, {"Tipo", 3000, "TIPO"}, {"Descripción", 3950, "DESCRIPCION"},
                  {"Ct", 800, "CT"}, {"Cc", 800, "CC"}};
    poner("*", k);

    const QString tipoDoc = QStringLiteral("TIPODOC = ?");
    poner("A1", impreso("DATOSA1B2", "datosA1B2", tipoDoc, {"A1"}, "FECHA_A1", proyectoLugarFecha("LUGAR_A1", "FECHA_A1"),
                        "FECHA_A1, PRYNOM"));
    poner("B2", impreso("DATOSA1B2", "datosA1B2", tipoDoc, {"B2"}, "FECHA_B2", proyectoLugarFecha("LUGAR_B2", "FECHA_B2"),
                        "FECHA_B2, PRYNOM"));
    for (const char* n : {"DATOSA2", "DATOSA3", "DATOSCOMUNICADO_DIRECCION_Y_COORDINADOR"}) {
        const QString tabla = QString::fromLatin1(n);
        poner("*", impreso(tabla, QStringLiteral("datos") + tabla.mid(5), {}, {}, "FECHA",
                           proyectoLugarFecha("LUGAR", "FECHA"), "FECHA, PRYNOM"));
    }
    poner("A4", impreso("DATOSA4A5", "datosA4A5", tipoDoc, {"A4"}, "FECHAA4",
                        {{"Proyecto", 3500, "PRYNOM"}, {"Fecha visado", 1500, "FECHAVIS", true},
                         {"Lugar", 3000, "LUGARA4"}, {"Fecha", 1500, "FECHAA4", true}},
                        "FECHAA4, PRYNOM"));
    poner("A5", impreso("DATOSA4A5", "datosA4A5", tipoDoc, {"A5"}, "FECHAA5",
                        {{"Proyecto", 3500, "PRYNOM"}, {"Lugar", 3000, "LUGARA5"}, {"Fecha", 3000, "FECHAA5", true}},
                        "FECHAA5, PRYNOM"));
    // La búsqueda por fecha del CSS mira la fecha de su tabla y va sin orden, como siempre.
    poner("*", impreso("DATOSCOORDINADOR_SEGURIDAD_Y_SALUD", "datosCOORDINADOR_SEGURIDAD_Y_SALUD", {}, {}, "FECHA",
                       {{"Proyecto", 3500, "PRYNOM"}, {"Fecha visado", 1500, "FECHAVIS", true},
                        {"Lugar", 3000, "LUGAR"}, {"Fecha", 1500, "FECHA", true}},
                       {}));
    // Facturas (B1) y retenciones (B3) comparten tabla sin tipo: las dos listas ven las mismas filas.
    poner("*", impreso("DATOSB1B3B4", "datosB1B3B4", {}, {}, "FECHA",
                       {{"Proyecto", 4000, "PRYNOM"}, {"Nº Factura", 1500, "NUMFAC"}, {"Emisor", 4000, "ARQNOM"}},
                       "FECHA, PRYNOM"));
    poner("B4_A", certificadoB4(QStringLiteral("A")));
    poner("B4_P", certificadoB4(QStringLiteral("P")));
    poner("*", impreso("DATOSFINOBRA", "datosFinObra", {}, {}, "FECHA",
                       {{"Proyecto", 5000, "PRYNOM"}, {"Fecha", 3000, "FECHA", true}}, "FECHA, PRYNOM"));

    Descripcion ce;
    ce.tabla = QStringLiteral("DATOSCERTIFICADO");
    ce.origen = QStringLiteral("datosCERTIFICADO");
    ce.orden = QStringLiteral("Fecha, NomArq");
    ce.campos = {{"Arquitecto", "NomArq", LIKE_, "NomArq, Fecha"}, {"Fecha", "Fecha", FECHA, "Fecha, NomArq"}};
    ce.campoClave = QStringLiteral("Clave");
    ce.columnas = {{"Arquitecto", 6000, "NomArq"}, {"Fecha", 3000, "Fecha", true}};
    poner("*", ce);
    return t;
}

// Columnas que no son texto: se ordenan por su valor y no por el cotejo español.
bool ordenSinCotejo(const QString& columna)
{
    static const QSet<QString> columnas = {"numcolegiado", "codigo_cli", "prycod", "clave", "ct", "cc",
                                           "importeintegro", "expfv", "expffo", "fecha", "fecha_a1", "fecha_b2",
                                           "fechaa4", "fechaa5", "fechavis"};
    return columnas.contains(columna.toLower());
}

QString ordenSql(const QString& orden)
{
    QStringList terminos;
    for (const QString& t : orden.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QString c = t.trimmed();
        terminos << (ordenSinCotejo(c) ? c : c + QStringLiteral(" COLLATE ES"));
    }
    return terminos.join(QStringLiteral(", "));
}

QString comillas(const QString& columna) { return QLatin1Char('"') + columna + QLatin1Char('"'); }

// El valor se busca tal cual: "%", "_" y "\" no son comodines.
QString literalLike(const QString& valor)
{
    QString r;
    r.reserve(valor.size() + 4);
    for (const QChar ch : valor) {
        if (ch == QLatin1Char('%') || ch == QLatin1Char('_') || ch == QLatin1Char('\\'))
            r += QLatin1Char('\\');
        r += ch;
    }
    return r;
}

}  // namespace

const Descripcion* descripcion(const QString& tabla, const QString& tipoImpreso)
{
    static const QHash<QString, Descripcion> tabla_ = construir();
    auto it = tabla_.constFind(tabla + QLatin1Char('|') + tipoImpreso);
    if (it == tabla_.constEnd())
        it = tabla_.constFind(tabla + QStringLiteral("|*"));
    return it == tabla_.constEnd() ? nullptr : &it.value();
}

bool esFamiliaArquitectos(const QString& tabla)
{
    static const QStringList claves = {"ARQUITECTOS", "ARQUITECTOS_SIMPLE", "ARQUITECTOS_SOCIEDAD",
                                       "ARQUITECTOS_AUTORES", "COORDINADOR_SS"};
    return claves.contains(tabla);
}

bool esDatoMaestro(const QString& tabla)
{
    static const QStringList claves = {"COORDINADOR_SS", "ARQUITECTOS_AUTORES", "ARQUITECTOS_SOCIEDAD",
                                       "ARQUITECTOS_SIMPLE", "CLIENTES", "CONTRATISTAS", "APAREJADORES",
                                       "ARQUITECTOS", "PROYECTOS_A"};
    return claves.contains(tabla);
}

bool llevaCasillas(const QString& tabla, const QString& claveRetorno)
{
    return tabla == QLatin1String("ARQUITECTOS_AUTORES")
        || (tabla == QLatin1String("APAREJADORES") && claveRetorno == QLatin1String("FRMPROYECTO_APAREJADOR"))
        || (tabla == QLatin1String("CONTRATISTAS") && claveRetorno == QLatin1String("FRMPROYECTO_CONSTRUCTOR"));
}

Sentencia construirSentencia(const Descripcion& d, int indice, const QString& valor)
{
    Sentencia s;
    QStringList columnas{comillas(d.campoClave)};
    for (const Columna& c : d.columnas)
        columnas << comillas(c.campo);
    s.sql = QStringLiteral("SELECT ") + columnas.join(QStringLiteral(", ")) + QStringLiteral(" FROM ") + d.origen;

    QStringList filtro;
    if (!d.condicion.isEmpty()) {
        filtro << d.condicion;
        s.valores << d.valores;
    }
    QString orden = d.orden;
    if (indice >= 1 && indice <= d.campos.size()) {
        const CampoBusqueda& campo = d.campos.at(indice - 1);
        const QString col = comillas(campo.columna);
        switch (campo.modo) {
        case Modo::Igual:
            filtro << col + QStringLiteral(" = ?");
            s.valores << valor;
            break;
        case Modo::Parecido:
            filtro << col + QStringLiteral(" LIKE ? ESCAPE '\\'");
            s.valores << QStringLiteral("%") + literalLike(valor) + QStringLiteral("%");
            break;
        case Modo::Fecha:
            // La fecha se busca en el texto que ve el usuario, "dd/mm/aaaa".
            filtro << QStringLiteral("(CASE WHEN %1 GLOB '[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]' "
                                     "THEN substr(%1, 9, 2) || '/' || substr(%1, 6, 2) || '/' || substr(%1, 1, 4) "
                                     "ELSE %1 END) LIKE ? ESCAPE '\\'")
                          .arg(col);
            s.valores << QStringLiteral("%") + literalLike(valor) + QStringLiteral("%");
            break;
        }
        orden = campo.orden;
    }
    if (!filtro.isEmpty())
        s.sql += QStringLiteral(" WHERE ") + filtro.join(QStringLiteral(" AND "));
    if (!orden.isEmpty())
        s.sql += QStringLiteral(" ORDER BY ") + ordenSql(orden);
    return s;
}

QString fechaVisible(const QString& texto)
{
    static const QRegularExpression iso(QStringLiteral("^(\\d{4})-(\\d{2})-(\\d{2})$"));
    const auto m = iso.match(texto);
    if (!m.hasMatch())
        return texto;
    return m.captured(3) + QLatin1Char('/') + m.captured(2) + QLatin1Char('/') + m.captured(1);
}

}  // namespace TablasBusqueda
