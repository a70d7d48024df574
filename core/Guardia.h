#pragma once
#include "core/Error.h"
#include "core/Log.h"

#include <QApplication>
#include <QString>
#include <exception>

// Guardia de cada manejador de eventos: lo que falla dentro se anota en el registro con la
// pantalla y el procedimiento, se enseña al usuario, y el manejador termina en su final común.
// Las transacciones abiertas dentro se deshacen solas (Transaccion es RAII). Nada llega al
// bucle de eventos de Qt: el programa nunca se cae por un fallo.
ErrorPrograma errorDesdeExcepcion(std::exception_ptr e);

template <class Cuerpo>
bool guardia(const QString& formulario, const QString& procedimiento, Cuerpo&& cuerpo, Mostrar mostrar = Mostrar::Si)
{
    try {
        cuerpo();
        return true;
    } catch (...) {
        // Los cursores de espera del cuerpo (CursorEspera) ya se han restaurado al salir de su ámbito.
        const ErrorPrograma e = errorDesdeExcepcion(std::current_exception());
        escribirLog(e, NOMBRE_PROGRAMA, formulario, procedimiento, e.linea, mostrar);
        return false;
    }
}
