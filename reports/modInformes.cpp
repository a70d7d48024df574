#include "reports/modInformes.h"

#include "core/BaseDatos.h"
#include "core/Guardia.h"
#include "reports/TablaImpresos.h"
#include "reports/TablasTemporales.h"

#include <QFile>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QSqlRecord>

static void registrarRecursosInformes() { Q_INIT_RESOURCE(informes); }

namespace modInformes {

std::unique_ptr<DocumentoInforme> Informe;

namespace {

const QString MODULO = QStringLiteral("modInformes");

QHash<QString, std::shared_ptr<const DisenoInforme>>& disenos()
{
    static QHash<QString, std::shared_ptr<const DisenoInforme>> d;
    return d;
}

void exigirInforme()
{
    if (!Informe)
        lanzarError(-1, QStringLiteral("No hay ningún informe creado"));
    if (!conexionAbierta())
        lanzarError(-1, QStringLiteral("La conexión de los informes no está abierta"));
}

// Nombre del estudio para la cabecera: la sociedad, o el arquitecto 1 si no hay sociedad.
void ponerDatosEstudio()
{
    QString nombre;
    try {
        const ConjuntoFilas c = ConjuntoFilas::leer(ConexionInforme(), QStringLiteral("SELECT * FROM Config"));
        if (c.numero() > 0) {
            nombre = c.valor(0, QStringLiteral("SocNom")).toString().trimmed();
            if (nombre.isEmpty())
                nombre = c.valor(0, QStringLiteral("Arq1Nom")).toString().trimmed();
        }
    } catch (const ErrorPrograma&) {
        // Sin Config el listado sale igual, sin el nombre en la cabecera.
    }
    Informe->ponerParametro(QStringLiteral("NombreEstudio"), nombre);
}

bool listado(const QString& procedimiento, const QString& sql, const QVariantList& valores = {})
{
    return guardia(MODULO, procedimiento, [&] {
        exigirInforme();
        Informe->asignarDatos(ConjuntoFilas::leer(ConexionInforme(), sql, valores));
        ponerDatosEstudio();
    }, Mostrar::No);
}

const QString ORDEN_PERSONAS = QStringLiteral(" ORDER BY Nombre_Cli COLLATE ES, Ape_Cli COLLATE ES, Codigo_Cli");

QString sentenciaOtros(const QString& categoria)
{
    return QStringLiteral("SELECT * FROM OTROS WHERE UCASE(categoria) = '%1'").arg(categoria);
}

}  // namespace

void inicializarRecursos() { registrarRecursosInformes(); }

QSqlDatabase ConexionInforme()
{
    if (QSqlDatabase::contains(NOMBRE_CONEXION_INFORME))
        return QSqlDatabase::database(NOMBRE_CONEXION_INFORME, false);
    return {};
}

bool conexionAbierta() { return ConexionInforme().isOpen(); }

std::unique_ptr<DocumentoInforme> crearInforme(const QString& nombre)
{
    auto& cache = disenos();
    auto it = cache.find(nombre);
    if (it == cache.end()) {
        const QString ruta = QStringLiteral(":/informes/") + nombre + QStringLiteral(".xml");
        if (!QFile::exists(ruta))
            lanzarError(-1, QStringLiteral("No existe el informe ") + nombre);
        it = cache.insert(nombre, leerDiseno(ruta));
    }
    return std::make_unique<DocumentoInforme>(*it);
}

bool nuevoInforme(const QString& nombre)
{
    return guardia(MODULO, QStringLiteral("crearInforme"), [&] { Informe = crearInforme(nombre); }, Mostrar::No);
}

// ---------------------------------------------------------------- filtros

FiltroFecha FiltroFecha::desdeTextos(const QString& tipoFecha, const QString& operador, const QDate& f1, const QDate& f2)
{
    FiltroFecha f;
    f.campo = tipoFecha == QLatin1String("Fecha fin de obra") ? Campo::FechaFinObra : Campo::FechaVisado;
    static const QHash<QString, Operador> ops = {
        {QStringLiteral("="), Operador::Igual},       {QStringLiteral(">"), Operador::Mayor},
        {QStringLiteral("<"), Operador::Menor},       {QStringLiteral(">="), Operador::MayorIgual},
        {QStringLiteral("<="), Operador::MenorIgual}, {QStringLiteral("Entre"), Operador::Entre},
    };
    f.operador = ops.value(operador, Operador::Igual);
    f.fecha1 = f1;
    f.fecha2 = f2;
    return f;
}

QString FiltroFecha::condicion(QVariantList* valores) const
{
    if (vacio())
        return {};
    const QString c = campo == Campo::FechaFinObra ? QStringLiteral("EXPFFO") : QStringLiteral("EXPFV");
    // Las fechas se guardan como texto ISO: se comparan como texto.
    valores->append(fecha1.toString(Qt::ISODate));
    switch (operador) {
    case Operador::Igual: return c + QStringLiteral(" = ?");
    case Operador::Mayor: return c + QStringLiteral(" > ?");
    case Operador::Menor: return c + QStringLiteral(" < ?");
    case Operador::MayorIgual: return c + QStringLiteral(" >= ?");
    case Operador::MenorIgual: return c + QStringLiteral(" <= ?");
    case Operador::Entre:
        valores->append(fecha2.toString(Qt::ISODate));
        return c + QStringLiteral(" BETWEEN ? AND ?");
    }
    return {};
}

QString FiltroListado::condicion(QVariantList* v) const
{
    if (vacio())
        return {};
    static const QRegularExpression nombre(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    static const QStringList ops = {QStringLiteral("="), QStringLiteral("<>"), QStringLiteral(">"), QStringLiteral("<"),
                                    QStringLiteral(">="), QStringLiteral("<="), QStringLiteral("LIKE"), QStringLiteral("BETWEEN")};
    const QString op = operador.trimmed().toUpper();
    if (!nombre.match(campo).hasMatch() || !ops.contains(op))
        lanzarError(-1, QStringLiteral("Filtro de listado no válido: ") + campo + QLatin1Char(' ') + operador);
    const int necesarios = op == QLatin1String("BETWEEN") ? 2 : 1;
    if (valores.size() != necesarios)
        lanzarError(-1, QStringLiteral("Filtro de listado no válido: faltan valores"));
    v->append(valores);
    if (op == QLatin1String("LIKE"))
        // Igual en los dos motores: como texto también un número, y la barra invertida es una
        // letra más (el servidor la tomaría por escape si no se le dice otro, que aquí no hay).
        return QStringLiteral("CAST(%1 AS TEXT) LIKE ? ESCAPE ''").arg(campo);
    return op == QLatin1String("BETWEEN") ? campo + QStringLiteral(" BETWEEN ? AND ?") : campo + QLatin1Char(' ') + op + QStringLiteral(" ?");
}

// ---------------------------------------------------------------- operaciones

bool conectar()
{
    return guardia(MODULO, QStringLiteral("conectar"), [] {
        if (conexionAbierta())
            ConexionInforme().close();
        BaseDatos::abrirOtraConexion(NOMBRE_CONEXION_INFORME, BaseDatos::Acceso::SoloLectura);
    }, Mostrar::No);
}

bool iniciarInforme_CostesReferencia()
{
    return listado(QStringLiteral("iniciarInforme_CostesReferencia"),
                   QStringLiteral("SELECT * FROM Costes ORDER BY CODIGO COLLATE ES"));
}

bool iniciarInforme_ListadoProyectos(const FiltroFecha& filtro)
{
    QVariantList valores;
    const QString donde = filtro.condicion(&valores);
    QString sql = QStringLiteral("SELECT * FROM Proyectos_A");
    if (!donde.isEmpty())
        sql += QStringLiteral(" WHERE ") + donde;
    sql += QStringLiteral(" ORDER BY Trabajo COLLATE ES, PryCod");
    return listado(QStringLiteral("iniciarInforme_ListadoProyectos"), sql, valores);
}

bool iniciarInforme_ListadoArquitectos(const FiltroListado& filtro)
{
    QVariantList valores;
    QString sql = sentenciaOtros(QStringLiteral("ARQUITECTO"));
    bool ok = guardia(MODULO, QStringLiteral("iniciarInforme_ListadoArquitectos"), [&] {
        const QString donde = filtro.condicion(&valores);
        if (!donde.isEmpty())
            sql += QStringLiteral(" AND ") + donde;
    }, Mostrar::No);
    return ok && listado(QStringLiteral("iniciarInforme_ListadoArquitectos"), sql + ORDEN_PERSONAS, valores);
}

bool iniciarInforme_ListadoAparejadores()
{
    return listado(QStringLiteral("iniciarInforme_ListadoAparejadores"),
                   sentenciaOtros(QStringLiteral("ARQUITECTO TECNICO")) + ORDEN_PERSONAS);
}

bool iniciarInforme_ListadoContratistas()
{
    return listado(QStringLiteral("iniciarInforme_ListadoContratistas"),
                   sentenciaOtros(QStringLiteral("CONSTRUCTOR")) + ORDEN_PERSONAS);
}

bool iniciarInforme_ListadoClientes()
{
    return listado(QStringLiteral("iniciarInforme_ListadoClientes"), QStringLiteral("SELECT * FROM Clientes") + ORDEN_PERSONAS);
}

QString sentenciaImpreso(const QString& codigo)
{
    const QString tabla = TablaImpresos::origenInforme(codigo).tabla;
    return tabla.isEmpty() ? QString() : TablasTemporales::seleccion(tabla);
}

QStringList subinformesImpreso(const QString& codigo)
{
    const TablaImpresos::OrigenInforme o = TablaImpresos::origenInforme(codigo);
    QStringList l;
    for (const QString& tabla : o.subinformes) {
        if (TablasTemporales::esTemporal(tabla))
            l << TablasTemporales::seleccion(tabla);
        else  // las líneas de la factura: las del impreso de este puesto
            l << QStringLiteral("SELECT * FROM %1 WHERE %2 IN (SELECT %2 FROM %3%4) ORDER BY rowid")
                     .arg(tabla, o.enlace, o.tabla, TablasTemporales::condicion());
    }
    return l;
}

bool iniciarInforme_Impreso(const QString& codigo)
{
    return guardia(MODULO, QStringLiteral("iniciarInforme_Impreso"), [&] {
        exigirInforme();
        const QString sql = sentenciaImpreso(codigo);
        if (sql.isEmpty())
            lanzarError(-1, QStringLiteral("Código de impreso desconocido: ") + codigo);
        const QVariantList puesto = {TablasTemporales::puesto()};
        Informe->asignarDatos(ConjuntoFilas::leer(ConexionInforme(), sql, puesto));
        const QStringList subs = subinformesImpreso(codigo);
        for (int i = 0; i < subs.size(); ++i)
            Informe->asignarDatosSubinforme(QStringLiteral("Subreport%1").arg(i + 1), ConjuntoFilas::leer(ConexionInforme(), subs[i], puesto));
        ponerDatosEstudio();
    }, Mostrar::No);
}

void cerrar()
{
    guardia(MODULO, QStringLiteral("cerrar"), [] {
        Informe.reset();
        if (QSqlDatabase::contains(NOMBRE_CONEXION_INFORME)) {
            ConexionInforme().close();
            QSqlDatabase::removeDatabase(NOMBRE_CONEXION_INFORME);
        }
    }, Mostrar::No);
}

bool exportarPDF(const QString& ruta)
{
    return guardia(MODULO, QStringLiteral("exportarPDF"), [&] {
        if (!Informe)
            lanzarError(-1, QStringLiteral("No hay ningún informe creado"));
        Informe->exportarPDF(ruta);
    }, Mostrar::No);
}

}  // namespace modInformes
