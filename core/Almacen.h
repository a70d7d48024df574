#pragma once
#include "core/Error.h"

#include <QElapsedTimer>
#include <QString>
#include <functional>
#include <memory>

struct sqlite3;

// Operaciones sobre el fichero de la base de datos entero: prueba de uso exclusivo, compactación,
// copia de seguridad, restauración y comprobación.
//
// Otros puestos pueden tener abierto el fichero vivo en cualquier momento, y en Linux y macOS
// cerrar cualquier otro descriptor que un proceso tenga sobre un fichero suelta todos los cerrojos
// de ese proceso sobre él. Por eso el fichero vivo sólo se toca a través del motor: aquí no se
// abre, ni se copia, ni se renombra, ni se borra por fuera. Conserva su nodo, su dueño, su grupo y
// sus permisos, y el diario del motor hace atómico cada cambio aunque el programa muera a medias.
namespace Almacen {

// Avance de una operación larga: porcentaje (0 a 100), o -1 si no se sabe. Sirve para repintar
// la pantalla; se llama como mucho unas veinte veces por segundo.
using Latido = std::function<void(int porcentaje)>;

// Reparte el latido: como mucho cada 50 ms, para repintar sin frenar la operación. Un fallo al
// repintar no detiene la operación.
class Pulso {
public:
    explicit Pulso(const Latido& latido);
    void operator()(int porcentaje);

private:
    const Latido& m_latido;
    QElapsedTimer m_reloj;
};

class Motor;

// Cerrojo exclusivo sin espera sobre la base de datos, en una conexión propia que pasa a modo de
// bloqueo exclusivo: toma el cerrojo con una transacción vacía y lo conserva, ya sin transacción
// abierta (así admite VACUUM y el volcado del motor), hasta que se destruye el objeto.
// Si otro puesto usa la base de datos lanza ErrorPrograma con ERROR_BD_EN_USO.
class CerrojoExclusivo {
public:
    explicit CerrojoExclusivo(const QString& fichero);
    ~CerrojoExclusivo();
    CerrojoExclusivo(const CerrojoExclusivo&) = delete;
    CerrojoExclusivo& operator=(const CerrojoExclusivo&) = delete;
    sqlite3* conexion() const;

private:
    std::unique_ptr<Motor> m_motor;
};

// El fichero no sirve como base de datos de este programa: no lo es, está dañado o no se puede
// leer. La descripción es el texto para el usuario; no se ha cambiado nada.
struct FicheroNoValido : ErrorPrograma {
    using ErrorPrograma::ErrorPrograma;
};

// Comprueba que el fichero es una base de datos de este programa: se abre, pasa
// "PRAGMA integrity_check" y tiene las tablas del programa. Si no, lanza FicheroNoValido.
// Una copia elegida por el usuario se abre sólo para leer; la base de datos viva se abre para
// escribir, para que el motor pueda deshacer un cambio que quedó a medias.
enum class Uso { BaseViva, CopiaElegida };
void comprobarBaseDatos(const QString& fichero, Uso uso);

// Sólo prueba que nadie más usa la base de datos (ERROR_BD_EN_USO si no).
void probarUsoExclusivo(const QString& ficheroBD);

// Compacta rutaBD + "Usuarios.qst" en su sitio (VACUUM bajo el cerrojo exclusivo); avisa de los
// valores 65, 75, 85 y 95 de la barra del arranque.
void compactar(const QString& rutaBD, const std::function<void(int)>& avance = {}, const Latido& latido = {});

// Copia de seguridad: el motor lee la base de datos, bajo el cerrojo exclusivo, y la escribe en un
// fichero nuevo junto al destino, que sólo al estar completo y en disco toma el nombre del destino
// (y sustituye al que hubiera con ese nombre).
void copiarBaseDatos(const QString& ficheroBD, const QString& destino, const Latido& latido = {});

// Escribe un fichero de base de datos nuevo junto al destino: `llenar` recibe su conexión (sin
// diario: nadie más lo ve) y el fichero sólo toma el nombre del destino al estar completo y en
// disco. Si algo falla no queda nada, ni a medias.
void escribirFicheroNuevo(const QString& destino, const std::function<void(sqlite3*)>& llenar);

// Restauración: comprueba la copia (FicheroNoValido si no sirve, y entonces no cambia nada) y
// escribe sus páginas en la base de datos viva a través del motor, bajo el cerrojo exclusivo.
void restaurarBaseDatos(const QString& copia, const QString& ficheroBD, const Latido& latido = {});

// Sustituye un fichero que no es la base de datos viva (inicio.ini, su copia): escribe el nuevo
// completo junto al destino, lo vuelca a disco y lo renombra sobre él.
void sustituirFichero(const QString& origen, const QString& destino);

// Nombre del fichero a medio escribir junto a un destino (las pruebas buscan restos).
bool esFicheroParcial(const QString& nombre);

// Borra los restos a medio escribir de copias a ese destino que dejó un proceso matado. Sólo la
// llama quien sabe que ninguna otra copia de la misma base se está escribiendo.
void borrarParcialesAbandonados(const QString& destino);

}  // namespace Almacen
