#pragma once
#include "core/Error.h"

// Registro de fallos en \Logs\Log.txt: doce líneas por entrada, fin de línea CR LF,
// y el fichero empieza de nuevo cuando pasa de 2.000.000 de bytes.
constexpr qint64 LOG_TAMANO_MAXIMO = 2000000;

// Si la entrada, además de anotarse, se enseña al usuario.
enum class Mostrar { No, Si };

void escribirLog(const ErrorPrograma& error, const QString& comentario, const QString& formulario,
                 const QString& procedimiento, int linea, Mostrar mostrar);

// Texto de una entrada tal como se escribe en el fichero (sin el salto final que la separa).
// El texto del motor sólo va en la del fichero: al usuario se le enseña la descripción en español.
QString textoEntradaLog(const ErrorPrograma& error, const QString& comentario, const QString& formulario,
                        const QString& procedimiento, int linea, bool conTextoMotor = true);
