#pragma once
#include "core/BaseDatos.h"

#include <QString>
#include <QVariant>
#include <functional>

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
    void insertarEn(const QString& tabla) const { insertar(tabla, m_campos); }

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

// Un arquitecto (o sociedad de arquitectos) de OTROS por su código.
inline const QString SQL_ARQUITECTO = QStringLiteral("SELECT * FROM OTROS WHERE UCase(Categoria) = 'ARQUITECTO' AND Codigo_Cli = ?");

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

}  // namespace BloquesImpreso
