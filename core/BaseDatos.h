#pragma once
#include "core/Error.h"

#include <QList>
#include <QPair>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

struct sqlite3;

// Estado de todo el programa sobre la base de datos (se fija en el arranque).
extern QString rutaBD;            // carpeta de la base de datos, siempre con separador final
extern QString cadenaConexion;    // fichero (o servidor) que abre la conexión compartida
extern bool transaccionEnCurso;   // un guardado tiene una transacción abierta: no abrir ni cerrar

namespace BaseDatos {

inline const QString NOMBRE_FICHERO = QStringLiteral("Usuarios.qst");
inline const QString NOMBRE_CONEXION = QStringLiteral("conexionBD");

QString ficheroBD();                 // rutaBD + "Usuarios.qst"
// Lee el motor de [BD] en inicio.ini: con sqlite (o sin nada) cadenaConexion = ficheroBD(); con
// postgresql, la descripción del servidor.
void construirCadenaConexion();

// El motor de cada puesto: el fichero compartido (por defecto) o un servidor PostgreSQL. Del
// servidor, inicio.ini dice el servicio de libpq o servidor, puerto, base y usuario; la contraseña
// nunca: la dan el fichero de contraseñas o el de servicios de libpq.
enum class Motor { SQLite, PostgreSQL };
struct DatosServidor {
    QString servicio, servidor, puerto, base, usuario;
    QString descripcion() const;     // para los mensajes: "servicio x" o "usuario@servidor:puerto/base"
    // Para las pantallas: "Servidor PostgreSQL: base x en servidor:puerto (usuario u)" o
    // "Servidor PostgreSQL: servicio x"; lo que inicio.ini no dice no se enseña.
    QString textoVisible() const;
};
Motor motorElegido();
bool enServidor();  // el puesto trabaja con el servidor PostgreSQL
const DatosServidor& servidorElegido();
bool esServidor(const QSqlDatabase& db);

// La conexión compartida: cerrada en reposo, la abre quien la necesita.
QSqlDatabase conexionBD();
bool estaAbierta();
void abrir();                         // lanza ErrorPrograma si no se puede
void cerrar();

// Abre una conexión propia (informes, pruebas) con las mismas funciones registradas.
enum class Acceso { LecturaEscritura, SoloLectura };
QSqlDatabase abrirConexion(const QString& nombre, const QString& fichero, Acceso acceso = Acceso::LecturaEscritura);
QSqlDatabase abrirServidor(const QString& nombre, const DatosServidor& servidor, Acceso acceso = Acceso::LecturaEscritura);
// Otra conexión al motor elegido, aparte de la compartida (la del informe).
QSqlDatabase abrirOtraConexion(const QString& nombre, Acceso acceso);
void registrarFunciones(QSqlDatabase& db);  // cotejo ES, LIKE, UCASE y UPPER en español, FECHA_VISIBLE
void registrarFunciones(sqlite3* h);

// Fallo del motor como lo ve el usuario: los fallos del almacenamiento (en uso, dañada, no es una
// base de datos, sólo lectura, disco lleno, lectura o escritura, no se abre) llevan su texto en
// español y el del motor aparte, sólo para el registro. "En uso" lleva el número ERROR_BD_EN_USO.
ErrorPrograma errorDe(const QSqlError& e, const QSqlDatabase& db = {});
ErrorPrograma errorDeMotor(int codigo, const QString& textoMotor);

// El motor que hay debajo de una conexión abierta (lecturas masivas, copias del fichero).
// Lanza ErrorPrograma si la conexión no es del motor.
sqlite3* motor(const QSqlDatabase& db);

}  // namespace BaseDatos

// Abre la conexión compartida si está cerrada, y la cierra al salir del ámbito si la abrió
// ella y no hay transacción en curso. Se declara antes que las consultas del procedimiento.
class UsoConexion {
public:
    UsoConexion();
    ~UsoConexion();
    UsoConexion(const UsoConexion&) = delete;
    UsoConexion& operator=(const UsoConexion&) = delete;

private:
    bool m_abrio = false;
};

// Transacción sobre la conexión compartida (BEGIN IMMEDIATE: dos puestos que guardan a la vez
// esperan uno al otro en vez de fallar). Si no se confirma, se deshace al salir del ámbito.
class Transaccion {
public:
    explicit Transaccion(bool marcarEnCurso = true);
    ~Transaccion();
    void confirmar();
    void deshacer();
    bool activa() const { return m_activa; }
    Transaccion(const Transaccion&) = delete;
    Transaccion& operator=(const Transaccion&) = delete;

private:
    bool m_activa = false;
    bool m_marca = false;
    UsoConexion m_uso;
};

// Una consulta con sus valores enlazados ("?" en el texto). Lanza ErrorPrograma si falla.
class Consulta {
public:
    explicit Consulta(const QString& sql, const QVariantList& valores = {});
    Consulta(QSqlDatabase db, const QString& sql, const QVariantList& valores = {});

    bool siguiente();                     // pasa a la fila siguiente; false al final
    QVariant valor(const QString& campo) const;
    QVariant valor(int indice) const;
    QString texto(const QString& campo) const;  // nulo como texto vacío
    bool nulo(const QString& campo) const;
    QSqlQuery& query() { return m_q; }

private:
    QSqlQuery m_q;
};

using Campos = QList<QPair<QString, QVariant>>;

void ejecutar(const QString& sql, const QVariantList& valores = {});
void ejecutar(QSqlDatabase db, const QString& sql, const QVariantList& valores = {});
QVariant escalar(const QString& sql, const QVariantList& valores = {});
void insertar(const QString& tabla, const Campos& campos);
void actualizar(const QString& tabla, const Campos& campos, const QString& donde, const QVariantList& valoresDonde);
qint64 ultimoIdentificador();         // el "SELECT @@IDENTITY" de la misma conexión
// Inserta y devuelve el valor que el motor ha dado al contador de la fila (RETURNING).
qint64 insertarConContador(const QString& tabla, const Campos& campos, const QString& contador);
// MAX + 1, 1 con la tabla vacía. Dentro de una transacción, en el servidor, toma antes un cerrojo
// de la tabla que sólo excluye a otros escritores: dos puestos que guardan a la vez no sacan la
// misma clave (en el fichero ya lo hace BEGIN IMMEDIATE).
qint64 siguienteClave(const QString& tabla, const QString& campo);

// Texto a guardar: recortado, y nulo si queda vacío.
QVariant textoONulo(const QString& texto);

// Arquitecto (o sociedad de arquitectos) de OTROS por su código: lo leen la ficha del proyecto y
// los impresos.
inline const QString SQL_OTROS_ARQUITECTO =
    QStringLiteral("SELECT * FROM OTROS WHERE Codigo_Cli = ? AND UCASE(Categoria) = 'ARQUITECTO'");
