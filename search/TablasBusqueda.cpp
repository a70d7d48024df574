#include "search/TablasBusqueda.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

namespace TablasBusqueda {

namespace {

constexpr Modo LIKE_ = Modo::Parecido;
constexpr Modo IGUAL = Modo::Igual;
constexpr Modo FECHA = Modo::Fecha;

const QList<Columna> COLUMNAS_ARQUITECTOS = {
    {.titulo = "Colegiado", .twips = 900, .campo = "NumColegiado"}, {.titulo = "Nombre", .twips = 2000, .campo = "Nombre_Cli"}, {.titulo = "Apellidos", .twips = 3200, .campo = "Ape_Cli"},
    {.titulo = "NIF/CIF", .twips = 1200, .campo = "NIF"}, {.titulo = "Domicilio", .twips = 4350, .campo = "Dirección_Cli"}, {.titulo = "Municipio", .twips = 1800, .campo = "Municipio_Cli"},
    {.titulo = "Provincia", .twips = 1950, .campo = "Provincia_Cli"}};

const QList<Columna> COLUMNAS_PERSONAS = {
    {.titulo = "Nombre", .twips = 2450, .campo = "Nombre_Cli"}, {.titulo = "Apellidos", .twips = 3650, .campo = "Ape_Cli"}, {.titulo = "NIF/CIF", .twips = 1200, .campo = "NIF"},
    {.titulo = "Domicilio", .twips = 4350, .campo = "Dirección_Cli"}, {.titulo = "Municipio", .twips = 1800, .campo = "Municipio_Cli"}, {.titulo = "Provincia", .twips = 1950, .campo = "Provincia_Cli"}};

const QList<CampoBusqueda> CAMPOS_ARQUITECTOS = {
    {.titulo = "Número de colegiado", .columna = "NumColegiado", .modo = IGUAL, .orden = "NumColegiado"},
    {.titulo = "Nombre", .columna = "Nombre_Cli", .modo = LIKE_, .orden = "Nombre_Cli, Ape_Cli, NumColegiado"},
    {.titulo = "Apellidos", .columna = "Ape_Cli", .modo = LIKE_, .orden = "Ape_Cli, Nombre_Cli, NumColegiado"},
    {.titulo = "NIF", .columna = "NIF", .modo = LIKE_, .orden = "NIF, NumColegiado"},
    {.titulo = "Municipio", .columna = "Municipio_Cli", .modo = LIKE_, .orden = "Municipio_Cli, NumColegiado"},
    {.titulo = "Provincia", .columna = "Provincia_Cli", .modo = LIKE_, .orden = "Provincia_Cli, NumColegiado"}};

const QList<CampoBusqueda> CAMPOS_PERSONAS = {
    {.titulo = "Nombre", .columna = "Nombre_Cli", .modo = LIKE_, .orden = "Nombre_Cli, Ape_Cli, Codigo_Cli"},
    {.titulo = "Apellidos", .columna = "Ape_Cli", .modo = LIKE_, .orden = "Ape_Cli, Nombre_Cli, Codigo_Cli"},
    {.titulo = "NIF", .columna = "NIF", .modo = LIKE_, .orden = "NIF, Codigo_Cli"},
    {.titulo = "Municipio", .columna = "Municipio_Cli", .modo = LIKE_, .orden = "Municipio_Cli, Codigo_Cli"},
    {.titulo = "Provincia", .columna = "Provincia_Cli", .modo = LIKE_, .orden = "Provincia_Cli, Codigo_Cli"}};

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

// Lista de un histórico de impresos: se busca por proyecto o por la fecha del pie.
struct ListaImpreso {
    QString tabla{};
    QString origen{};
    QString condicion{};        // el tipo fijo cuando la tabla es compartida
    QVariantList valores{};
    QString campoFecha{};
    QString ordenFecha{};       // vacío: la búsqueda por fecha va sin orden
    QList<Columna> columnas{};
};

Descripcion impreso(const ListaImpreso& l)
{
    Descripcion d;
    d.tabla = l.tabla;
    d.origen = l.origen;
    d.condicion = l.condicion;
    d.valores = l.valores;
    d.orden = QStringLiteral("PRYNOM");
    d.campos = {{.titulo = "Proyecto", .columna = "PRYNOM", .modo = LIKE_, .orden = "PRYNOM"},
                {.titulo = "Fecha", .columna = l.campoFecha, .modo = FECHA, .orden = l.ordenFecha}};
    d.campoClave = QStringLiteral("Clave");
    d.columnas = l.columnas;
    return d;
}

QList<Columna> proyectoLugarFecha(const QString& lugar, const QString& fecha)
{
    return {{.titulo = "Proyecto", .twips = 5000, .campo = "PRYNOM"},
            {.titulo = "Lugar", .twips = 2800, .campo = lugar},
            {.titulo = "Fecha", .twips = 1700, .campo = fecha, .fecha = true}};
}

Descripcion certificadoB4(const QString& tipo)
{
    Descripcion d;
    d.tabla = QStringLiteral("DATOSB4");
    d.origen = QStringLiteral("datosB4");
    d.condicion = QStringLiteral("TipoCertificado = ?");
    d.valores = {tipo};
    d.orden = QStringLiteral("PERNOM, Ejercicio, PAGNOM, ImporteIntegro");
    d.campos = {{.titulo = "Perceptor", .columna = "PERNOM", .modo = LIKE_, .orden = "PERNOM, Ejercicio, ImporteIntegro"},
                {.titulo = "Pagador", .columna = "PAGNOM", .modo = LIKE_, .orden = "PAGNOM, Ejercicio, ImporteIntegro"},
                {.titulo = "Ejercicio", .columna = "Ejercicio", .modo = LIKE_, .orden = "Ejercicio, PAGNOM, ImporteIntegro"},
                {.titulo = "Nº justificante", .columna = "NumJustificante", .modo = LIKE_, .orden = "NumJustificante, Ejercicio, PAGNOM, ImporteIntegro"}};
    d.campoClave = QStringLiteral("Clave");
    d.columnas = {{.titulo = "Perceptor", .twips = 3750, .campo = "PERNOM"}, {.titulo = "Pagador", .twips = 3750, .campo = "PAGNOM"}, {.titulo = "Ejercicio", .twips = 800, .campo = "Ejercicio"},
                  {.titulo = "Nº justificante", .twips = 1200, .campo = "NumJustificante"}};
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
    p.campos = {{.titulo = "Número de expediente", .columna = "EXPNUM", .modo = LIKE_, .orden = "EXPNUM, PRYCOD"},
                {.titulo = "Trabajo", .columna = "TRABAJO", .modo = LIKE_, .orden = "TRABAJO, EXPNUM, PRYCOD"},
                {.titulo = "Municipio", .columna = "MUNICIPIO", .modo = LIKE_, .orden = "MUNICIPIO, EXPNUM, PRYCOD"},
                {.titulo = "Provincia", .columna = "PROVINCIA", .modo = LIKE_, .orden = "PROVINCIA, EXPNUM, PRYCOD"},
                {.titulo = "Ubicación del proyecto", .columna = "EMPLAZAMIENTO", .modo = LIKE_, .orden = "EMPLAZAMIENTO, EXPNUM, PRYCOD"},
                {.titulo = "Fecha visado", .columna = "EXPFV", .modo = FECHA, .orden = "EXPFV, EXPNUM, PRYCOD"},
                {.titulo = "Fecha fin de obra", .columna = "EXPFFO", .modo = FECHA, .orden = "EXPFFO, EXPNUM, PRYCOD"}};
    p.campoClave = QStringLiteral("PRYCOD");
    p.columnas = {{.titulo = "Nº Exp", .twips = 900, .campo = "EXPNUM"}, {.titulo = "Trabajo", .twips = 5000, .campo = "TRABAJO"}, {.titulo = "Emplazamiento", .twips = 3050, .campo = "EMPLAZAMIENTO"},
                  {.titulo = "Municipio", .twips = 1800, .campo = "MUNICIPIO"}, {.titulo = "Provincia", .twips = 1950, .campo = "PROVINCIA"},
                  {.titulo = "F. Visado", .twips = 1500, .campo = "EXPFV", .fecha = true}, {.titulo = "F. Fin de obra", .twips = 1500, .campo = "EXPFFO", .fecha = true}};
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
    k.campos = {{.titulo = "Código", .columna = "CODIGO", .modo = LIKE_, .orden = "CODIGO"}, {.titulo = "Tipo", .columna = "TIPO", .modo = LIKE_, .orden = "TIPO, CODIGO"},
                {.titulo = "Descripción", .columna = "DESCRIPCION", .modo = LIKE_, .orden = "DESCRIPCION, CODIGO"}};
    k.campoClave = QStringLiteral("CODIGO");
    k.claveNumerica = false;
    k.columnas = {{.titulo = "Código", .twips = 750, .campo = "CODIGO"}, {.titulo = "Tipo", .twips = 3000, .campo = "TIPO"}, {.titulo = "Descripción", .twips = 3950, .campo = "DESCRIPCION"},
                  {.titulo = "Ct", .twips = 800, .campo = "CT"}, {.titulo = "Cc", .twips = 800, .campo = "CC"}};
    poner("*", k);

    const QString tipoDoc = QStringLiteral("TIPODOC = ?");
    for (const char* tipo : {"A1", "B2"}) {
        const QString t = QString::fromLatin1(tipo);
        poner(t, impreso({.tabla = "DATOSA1B2", .origen = "datosA1B2", .condicion = tipoDoc, .valores = {t},
                          .campoFecha = "FECHA_" + t, .ordenFecha = "FECHA_" + t + ", PRYNOM",
                          .columnas = proyectoLugarFecha("LUGAR_" + t, "FECHA_" + t)}));
    }
    for (const char* n : {"DATOSA2", "DATOSA3", "DATOSCOMUNICADO_DIRECCION_Y_COORDINADOR"}) {
        const QString tabla = QString::fromLatin1(n);
        poner("*", impreso({.tabla = tabla, .origen = "datos" + tabla.mid(5), .campoFecha = "FECHA", .ordenFecha = "FECHA, PRYNOM",
                            .columnas = proyectoLugarFecha("LUGAR", "FECHA")}));
    }
    poner("A4", impreso({.tabla = "DATOSA4A5", .origen = "datosA4A5", .condicion = tipoDoc, .valores = {"A4"},
                         .campoFecha = "FECHAA4", .ordenFecha = "FECHAA4, PRYNOM",
                         .columnas = {{.titulo = "Proyecto", .twips = 3500, .campo = "PRYNOM"},
                                      {.titulo = "Fecha visado", .twips = 1500, .campo = "FECHAVIS", .fecha = true},
                                      {.titulo = "Lugar", .twips = 3000, .campo = "LUGARA4"},
                                      {.titulo = "Fecha", .twips = 1500, .campo = "FECHAA4", .fecha = true}}}));
    poner("A5", impreso({.tabla = "DATOSA4A5", .origen = "datosA4A5", .condicion = tipoDoc, .valores = {"A5"},
                         .campoFecha = "FECHAA5", .ordenFecha = "FECHAA5, PRYNOM",
                         .columnas = {{.titulo = "Proyecto", .twips = 3500, .campo = "PRYNOM"},
                                      {.titulo = "Lugar", .twips = 3000, .campo = "LUGARA5"},
                                      {.titulo = "Fecha", .twips = 3000, .campo = "FECHAA5", .fecha = true}}}));
    // La búsqueda por fecha del CSS mira la fecha de su tabla y va sin orden, como siempre.
    poner("*", impreso({.tabla = "DATOSCOORDINADOR_SEGURIDAD_Y_SALUD", .origen = "datosCOORDINADOR_SEGURIDAD_Y_SALUD",
                        .campoFecha = "FECHA",
                        .columnas = {{.titulo = "Proyecto", .twips = 3500, .campo = "PRYNOM"},
                                     {.titulo = "Fecha visado", .twips = 1500, .campo = "FECHAVIS", .fecha = true},
                                     {.titulo = "Lugar", .twips = 3000, .campo = "LUGAR"},
                                     {.titulo = "Fecha", .twips = 1500, .campo = "FECHA", .fecha = true}}}));
    // Facturas (B1) y retenciones (B3) comparten tabla sin tipo: las dos listas ven las mismas filas.
    poner("*", impreso({.tabla = "DATOSB1B3B4", .origen = "datosB1B3B4", .campoFecha = "FECHA", .ordenFecha = "FECHA, PRYNOM",
                        .columnas = {{.titulo = "Proyecto", .twips = 4000, .campo = "PRYNOM"},
                                     {.titulo = "Nº Factura", .twips = 1500, .campo = "NUMFAC"},
                                     {.titulo = "Emisor", .twips = 4000, .campo = "ARQNOM"}}}));
    poner("B4_A", certificadoB4(QStringLiteral("A")));
    poner("B4_P", certificadoB4(QStringLiteral("P")));
    poner("*", impreso({.tabla = "DATOSFINOBRA", .origen = "datosFinObra", .campoFecha = "FECHA", .ordenFecha = "FECHA, PRYNOM",
                        .columnas = {{.titulo = "Proyecto", .twips = 5000, .campo = "PRYNOM"},
                                     {.titulo = "Fecha", .twips = 3000, .campo = "FECHA", .fecha = true}}}));

    Descripcion ce;
    ce.tabla = QStringLiteral("DATOSCERTIFICADO");
    ce.origen = QStringLiteral("datosCERTIFICADO");
    ce.orden = QStringLiteral("Fecha, NomArq");
    ce.campos = {{.titulo = "Arquitecto", .columna = "NomArq", .modo = LIKE_, .orden = "NomArq, Fecha"}, {.titulo = "Fecha", .columna = "Fecha", .modo = FECHA, .orden = "Fecha, NomArq"}};
    ce.campoClave = QStringLiteral("Clave");
    ce.columnas = {{.titulo = "Arquitecto", .twips = 6000, .campo = "NomArq"}, {.titulo = "Fecha", .twips = 3000, .campo = "Fecha", .fecha = true}};
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
        case Modo::Igual: {
            // Un número se compara como número; lo que no lo es, como texto: el servidor no admite
            // un número mal escrito, y así no halla nada en los dos motores.
            bool numero = false;
            valor.toLongLong(&numero);
            filtro << (numero ? col + QStringLiteral(" = ?") : QStringLiteral("CAST(%1 AS TEXT) = ?").arg(col));
            s.valores << valor;
            break;
        }
        case Modo::Parecido:
            filtro << col + QStringLiteral(" LIKE ? ESCAPE '\\'");
            s.valores << QStringLiteral("%") + literalLike(valor) + QStringLiteral("%");
            break;
        case Modo::Fecha:
            // La fecha se busca en el texto que ve el usuario, "dd/mm/aaaa".
            filtro << QStringLiteral("FECHA_VISIBLE(%1) LIKE ? ESCAPE '\\'").arg(col);
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
