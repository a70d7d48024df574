#pragma once
#include "core/Almacen.h"

#include <QString>

// Copia de seguridad y restauración de un puesto que trabaja con el servidor PostgreSQL, en el
// mismo ".mee" que con el fichero (una base de datos del programa en el formato del fichero): una
// copia hecha con un motor se restaura con el otro, y así un estudio pasa del fichero al servidor
// (copia, cambio de motor, restauración) y vuelve.
namespace CopiaServidor {

// Cerrojo consultivo del servidor que tiene quien escribe una copia, hasta darle su nombre.
inline constexpr qint64 CERROJO_COPIAS = 0x504C414E4D4545;  // "PLANMEE"

// Escribe en `destino` (como Almacen::escribirFicheroNuevo: sólo toma su nombre al estar completo)
// las filas de cada tabla del servidor elegido en su orden de llegada, leídas todas en una misma
// instantánea que no detiene a los demás puestos. Los contadores de la copia siguen tras el último
// valor que dio el servidor. Si ningún otro puesto está escribiendo una copia, se lleva antes los
// restos a medias de ese destino.
void copiar(const QString& destino, const Almacen::Latido& latido = {});

// Comprueba la copia como con el fichero (Almacen::FicheroNoValido si no sirve, o si trae datos que
// el servidor no admite; no cambia nada) y, en una sola transacción del servidor elegido que deja
// fuera a los demás puestos, vacía todas las tablas, las llena con las filas de la copia en su
// orden y pasa los contadores más allá de la mayor clave. Si otro puesto no suelta las tablas en
// unos segundos, ERROR_BD_EN_USO; un fallo a medias deja el servidor como estaba.
void restaurar(const QString& copia, const Almacen::Latido& latido = {});

}  // namespace CopiaServidor
