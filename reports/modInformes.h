#pragma once
#include "reports/MotorInforme.h"

#include <QDate>
#include <QSqlDatabase>
#include <QString>
#include <memory>

// Conductor de los informes: el informe en curso, su conexión propia y las sentencias
// que le dan sus filas. Orden de llamada: descargar frmVisorCrystal, crear el informe,
// conectar, iniciarInforme_..., título del visor, mostrarlo.
namespace modInformes {

// Registra los diseños de los informes (recursos de la biblioteca estática).
void inicializarRecursos();

// El informe en curso, uno en todo el programa. Lo libera cerrar().
extern std::unique_ptr<DocumentoInforme> Informe;

// Conexión propia de los informes, de sólo lectura: ve lo confirmado, y dura lo que el visor.
inline const QString NOMBRE_CONEXION_INFORME = QStringLiteral("ConexionInforme");
QSqlDatabase ConexionInforme();
bool conexionAbierta();

// Crea un informe por su nombre ("crListadoClientes"): lee ":/informes/<nombre>.xml".
// Lanza ErrorPrograma si no existe.
std::unique_ptr<DocumentoInforme> crearInforme(const QString& nombre);
// Informe = crearInforme(nombre), con la guardia del módulo. Devuelve false si ha fallado.
bool nuevoInforme(const QString& nombre);

// Filtro de fechas del listado de proyectos: campo, operador y una o dos fechas.
struct FiltroFecha {
    enum class Campo { Ninguno, FechaVisado, FechaFinObra };  // todos, EXPFV, EXPFFO
    enum class Operador { Igual, Mayor, Menor, MayorIgual, MenorIgual, Entre };
    Campo campo = Campo::Ninguno;
    Operador operador = Operador::Igual;
    QDate fecha1, fecha2;

    bool vacio() const { return campo == Campo::Ninguno; }
    // Los textos de los desplegables: "Fecha de visado"/"Fecha fin de obra", "=", ">", ..., "Entre".
    static FiltroFecha desdeTextos(const QString& tipoFecha, const QString& operador, const QDate& f1, const QDate& f2 = {});
    // Condición con sus valores enlazados ("EXPFV >= ?"); vacía sin filtro.
    QString condicion(QVariantList* valores) const;
};

// Filtro de los demás listados: un campo (nombre simple), un operador y sus valores.
struct FiltroListado {
    QString campo;
    QString operador;  // "=", "<>", ">", "<", ">=", "<=", "LIKE", "BETWEEN"
    QVariantList valores;

    bool vacio() const { return campo.isEmpty(); }
    QString condicion(QVariantList* valores) const;  // lanza ErrorPrograma si no es válido
};

// Cada operación anota su fallo en el registro con "modInformes" y su nombre, sin mensaje,
// y devuelve false.
bool conectar();
bool iniciarInforme_CostesReferencia();
bool iniciarInforme_ListadoProyectos(const FiltroFecha& filtro = {});
bool iniciarInforme_ListadoArquitectos(const FiltroListado& filtro = {});
bool iniciarInforme_ListadoAparejadores();
bool iniciarInforme_ListadoContratistas();
bool iniciarInforme_ListadoClientes();
// "A1", "B2", "A2", "A3", "A4", "A5", "B1" (con Subreport1), "B3", "B4", "CFO", "CSS",
// "CERTIFICADO", "CDC" (con Subreport1 a 3).
bool iniciarInforme_Impreso(const QString& codigo);
void cerrar();

// Escribe el informe en curso en PDF, sin preguntar (la exportación de las búsquedas).
bool exportarPDF(const QString& ruta);

// Sentencias de cada operación, a la vista de las pruebas. Las de los impresos llevan un ? con el
// puesto (TablasTemporales::puesto()): cada puesto lee sólo sus filas.
QString sentenciaImpreso(const QString& codigo);
QStringList subinformesImpreso(const QString& codigo);  // sentencias de Subreport1, 2, 3

}  // namespace modInformes
