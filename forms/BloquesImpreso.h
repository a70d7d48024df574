#pragma once
#include "core/BaseDatos.h"
#include "reports/TablasTemporales.h"

#include <QList>
#include <QString>
#include <QVariant>
#include <functional>

class QWidget;

// Bloques de las tablas temporales que comparten varios impresos (A1, B2, A4, CSS, CDC...):
// cliente y representante, sociedad, páginas de arquitectos de tres en tres y su domicilio.
namespace BloquesImpreso {

// Fila de una tabla temporal en construcción: columnas en el orden en que se escriben; poner una
// columna ya puesta la sobrescribe en su sitio.
class FilaTemporal {
public:
    void poner(const QString& columna, const QVariant& valor);
    QVariant valor(const QString& columna) const;
    bool tiene(const QString& columna) const;
    const Campos& campos() const { return m_campos; }
    void insertarEn(const QString& tabla) const { TablasTemporales::insertar(tabla, m_campos); }

private:
    Campos m_campos;
};

// Un texto vacío se guarda como "" y no como nulo (el enlace de Qt convierte en NULL el QString
// nulo); los nulos de verdad, leídos de otra tabla, se copian tal cual.
QVariant textoGuardable(const QVariant& v);

// Reglas de los campos: nulo como "", nombre completo recortado, casilla como "X" o "".
QString texto(const Consulta& c, const QString& campo);
QString nombreCompleto(const Consulta& c);
QString marca(const QVariant& v);
// Número guardado como texto en las tablas temporales (coma decimal, sin ceros sobrantes).
QString numeroTexto(const QVariant& v);

// "SELECT * FROM Proyectos_A WHERE PRYCOD = ?" ya en su primera fila; sin fila avisa
// "No se han podido cargar los datos del proyecto asociado al impreso" y devuelve false.
bool leerProyecto(Consulta& proyecto);

inline const QString AVISO_SIN_ARQUITECTOS = QStringLiteral(
    "El proyecto seleccionado no tiene arquitectos asignados.\n"
    "Por favor, antes de continuar edite el proyecto e incluya al menos un arquitecto");
inline const QString AVISO_ARQUITECTO_NO_HALLADO =
    QStringLiteral("No se han podido cargar los datos del arquitecto seleccionado [arquitectos del proyecto]");

// Numera los arquitectos del proyecto (no las sociedades propias) de tres en tres en
// Arquitectos_Proyecto.NumImpreso y devuelve el número de hojas. Sin arquitectos avisa y
// devuelve 0.
int numerarArquitectos(qint64 pryCod);

// Cliente del proyecto: solo, en las columnas REP* con REPRESNO = "X"; sociedad con
// representante, en CLI* y el representante del proyecto en REP*.
void bloqueCliente(const Consulta& proyecto, FilaTemporal& fila);
// Sociedad de arquitectos del proyecto (ARQREG): ARQREG, ARQSOC, SOCDOM y HAYSOC.
void bloqueSociedad(const Consulta& proyecto, FilaTemporal& fila);
// Hasta tres arquitectos de la hoja en ARQnNOM, ARQnCOL, ARQnPAR, ARQnPERTENECE_SOC y
// ARQnCOLEGIO, y ARQ1DOM: el domicilio de la primera persona hallada en la hoja 1, que se
// guarda en "domicilio" para las hojas siguientes.
void paginaArquitectos(qint64 pryCod, int pagina, FilaTemporal& fila, QString& domicilio);

// Columnas del proyecto: PRYNOM, PRYDOM, PRYMUN, PRYPRO y las marcas PRYF1 a PRYF4.
void columnasProyecto(const Consulta& proyecto, FilaTemporal& fila);

// Hojas de arquitectos de un impreso: numera, y por cada hoja lee el proyecto, pone cliente,
// sociedad y arquitectos de la hoja, deja al impreso sus columnas y añade la fila a la tabla.
// Sin arquitectos o sin proyecto avisa y no escribe nada. Devuelve las filas escritas.
using ColumnasImpreso = std::function<void(const Consulta& proyecto, FilaTemporal& fila)>;
int escribirHojas(qint64 pryCod, const QString& tablaTemporal, const ColumnasImpreso& columnas);

// ---------------------------------------------------------------- impresos de una sola fila (A2, A3)

inline const QString AVISO_SOCIEDAD_NO_HALLADA = QStringLiteral("No se han podido cargar los datos de la sociedad");

// Autores del trabajo tal como firman los impresos A2 y A3: la sociedad propia del proyecto,
// sola, si la tiene; si no, todos los arquitectos del proyecto separados por ", ".
QString lineaAutores(qint64 pryCod);

// Trabajo, emplazamiento (dirección, municipio y provincia del proyecto, no del cliente),
// cliente, expediente y autores: PRYNOM, PRYDOM, CLIMUN, CLIPRO, CLINOM, EXPNUM, EXPREF, EXPFV,
// EXPFFO y ARQ1NOM.
void columnasTrabajo(const Consulta& proyecto, FilaTemporal& fila);


// Columna de un impreso ligada a su control de la pantalla: un texto, un número (con el formato
// con que se enseña al cargarlo) o una casilla ("X" o "").
struct CampoImpreso {
    QString columna;
    QWidget* control = nullptr;
    bool numerico = false;
    QString formato{};
};
// Valor de la columna del histórico: texto recortado; número o nulo; "X" o "".
QVariant valorHistorico(const CampoImpreso& c);
// Valor de la columna de la tabla temporal: texto recortado (nulo si es un número vacío); "X" o "".
QVariant valorTemporal(const CampoImpreso& c);
// Lleva la columna de la fila del histórico a su control: nulo como vacío, números con su
// formato, y sólo "X" marca la casilla.
void cargarCampo(const CampoImpreso& c, const Consulta& fila);
Campos camposHistorico(const QList<CampoImpreso>& campos);

// Una sola fila en la tabla temporal: lee el proyecto (sin él avisa y no escribe nada), pone las
// columnas del trabajo y las del impreso, de la pantalla y no de la fila guardada (salvo el par
// del proyecto: el trabajo sale del propio proyecto). Devuelve las filas escritas.
int escribirFila(qint64 pryCod, const QString& tablaTemporal, const QList<CampoImpreso>& campos);

// Celda numérica de un impreso: el texto recortado, nulo si está vacío (nunca un cero). En las
// columnas numéricas del histórico va su valor; un texto que no es número se guarda tal cual.
QVariant numeroONulo(const QString& texto);
// ---------------------------------------------------------------- facturas y certificados

// Persona de una factura o de un certificado (emisor, cliente, perceptor, pagador) con el prefijo
// de sus columnas: NOM (nombre completo), COD, NIF, DOM, MUN, PRO, TEL y CP, un nulo como "".
// Las temporales de la factura no llevan el código.
enum class ConCodigo { No, Si };
void columnasPersona(const Consulta& persona, const QString& prefijo, FilaTemporal& fila, ConCodigo codigo = ConCodigo::Si);
// Una consulta ya en su primera fila; sin fila avisa con el texto dado y devuelve false.
bool leerFila(Consulta& consulta, const QString& avisoSinFila);

// AgenciaTributaria de Config; sin fila avisa "No se ha podido cargar la ubicación de la Agencia
// Tributaria" y la columna no se pone.
void columnaAgenciaTributaria(FilaTemporal& fila);


// ---- Comunicaciones de nombramiento (A4, CSS, comunicado de dirección) y hojas resumen (A5)

// Columnas del trabajo sin las marcas del alcance: PRYNOM, PRYDOM, PRYMUN y PRYPRO.
void columnasObra(const Consulta& proyecto, FilaTemporal& fila);

// Nombres completos de los arquitectos autores del proyecto (Autores_Proyecto), unidos por ", ".
QString nombresAutores(qint64 pryCod);

// Cabecera de las hojas resumen (A2, A3, A5): PRYNOM y PRYDOM del trabajo, CLIMUN y CLIPRO del
// municipio y la provincia del proyecto (no del cliente), CLINOM el nombre del cliente.
void cabeceraResumen(const Consulta& proyecto, FilaTemporal& fila);

// Quién firma una hoja resumen (ARQ1NOM): la sociedad que es arquitecto de su propio proyecto,
// sola; si no la hay, todos los arquitectos del proyecto unidos por ", ". Una sociedad que ya
// no está en OTROS da el aviso y deja el texto vacío.
QString firmaResumen(qint64 pryCod);

}  // namespace BloquesImpreso
