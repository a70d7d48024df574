#pragma once
#include <QString>
#include <QStringList>
#include <functional>

struct sqlite3;

// Dos puestos sobre una misma base de datos, en dos procesos: el ejecutable de la prueba (o del
// banco) se lanza otra vez a sí mismo con ARGUMENTO delante y hace de segundo puesto. Sirve para
// comprobar que compactar, copiar y restaurar no pierden lo que guarda otro puesto, y que matar el
// proceso en cualquier momento deja la base de datos entera.
namespace ProcesosAlmacen {

inline const char* const ARGUMENTO = "--puesto-almacen";

// ¿Se ha lanzado este proceso como segundo puesto? Entonces main llama a ejecutarPuesto.
bool esPuesto(int argc, char** argv);
// Órdenes (tras ARGUMENTO; "--limite N" delante limita el tamaño de los ficheros que escribe):
//   escribir <bd> <cuántos> <primera clave>   guarda clientes uno a uno, como una ficha
//   compactar <carpeta> | copiar <bd> <destino> | restaurar <copia> <bd>
// Escribe "empiezo" justo antes de la operación y "hecho" o "fallo <número> <descripción>" después.
int ejecutarPuesto(int argc, char** argv);

// Base de datos del programa con `filas` clientes de relleno (y huecos, para que compactar tenga
// trabajo) y una tabla Marca con la generación, que distingue una copia de otra.
void prepararBase(const QString& fichero, int filas, int generacion, quint32 semilla);
void fijarGeneracion(const QString& fichero, int generacion);

// Otro puesto en mitad de una lectura: tiene la base de datos abierta con un cerrojo compartido.
class PuestoLeyendo {
public:
    explicit PuestoLeyendo(const QString& fichero);
    ~PuestoLeyendo();
    PuestoLeyendo(const PuestoLeyendo&) = delete;
    PuestoLeyendo& operator=(const PuestoLeyendo&) = delete;

private:
    sqlite3* m_h = nullptr;
};

// Daña la página raíz de Clientes: el fichero se abre, pero su contenido no es válido.
void danarClientes(const QString& fichero);

// Contenido de la base de datos, leído a través del motor (que deshace un cambio a medias).
struct Huella {
    qint64 filas = -1;
    QByteArray suma;
    bool operator==(const Huella& o) const { return filas == o.filas && suma == o.suma; }
};
Huella huella(const QString& fichero);
QString integridad(const QString& fichero);  // "ok" o el primer problema

// Un segundo puesto guarda `guardados` clientes mientras este proceso repite `operacion` (que
// devuelve false si no pudo hacerse por estar la base en uso). Cada guardado lee dentro de su
// transacción la generación de Marca: al final, los de la última generación tienen que estar y
// los de generaciones anteriores (borrados por una restauración posterior) no.
struct Guardados {
    int confirmados = 0;
    int rechazados = 0;      // rechazados con el aviso de base de datos en uso
    int perdidos = 0;        // confirmados al puesto y ausentes al final
    int indebidos = 0;       // de una generación anterior y presentes al final
    int operaciones = 0;     // operaciones hechas mientras guardaba
    int ocupadas = 0;        // operaciones no hechas por estar la base en uso
    QStringList textosRechazo;
    QString fallo;           // un fallo que no debía ocurrir
};
Guardados guardarDurante(const QString& ejecutable, const QString& ficheroBD, int guardados,
                         const std::function<bool()>& operacion);

// Una operación en un proceso aparte, matado en un momento al azar mientras trabaja.
enum class Operacion { Compactar, Copiar, Restaurar };
struct Muertes {
    int rondas = 0;
    int muertos = 0;         // matados antes de terminar
    int integras = 0;        // base de datos que pasa integrity_check
    int contenidoViejo = 0;
    int contenidoNuevo = 0;
    int copiasCompletas = 0; // .mee presente (siempre completo y con el contenido de la base)
    int restosParciales = 0; // ficheros parciales que quedan junto al destino tras una muerte
    int diariosPorDeshacer = 0; // muerto con un cambio a medias: el motor lo deshizo al abrir
    int diariosVacios = 0;   // diario del motor ya sin nada que deshacer junto a la base de datos
    int duracionMs = 0;      // duración de la operación sin matarla
    qint64 bytes = 0;        // tamaño de la base de datos antes de la operación
    QStringList problemas;
};
Muertes matarDurante(const QString& ejecutable, Operacion operacion, int rondas, int filas, quint32 semilla);

// Ficheros de una carpeta, sin "." ni "..".
QStringList ficheros(const QString& carpeta);
// Bytes de un fichero entero ("" si no se puede leer), y un fichero escrito de nuevo con estos bytes.
QByteArray contenido(const QString& fichero);
void escribirContenido(const QString& fichero, const QByteArray& bytes);

}  // namespace ProcesosAlmacen
