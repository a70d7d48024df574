#pragma once
#include <QString>
#include <exception>

// Fallo de un procedimiento: número y descripción, como los da el motor o el propio programa.
// Sube hasta la guardia del manejador de eventos, que lo anota en el registro y lo enseña.
struct ErrorPrograma : std::exception {
    qint64 numero = 0;
    QString descripcion;
    int linea = 0;
    // Texto original del motor de la base de datos (en inglés): va al registro, nunca al usuario.
    QString textoMotor;

    ErrorPrograma() = default;
    ErrorPrograma(qint64 n, QString d, int l = 0) : numero(n), descripcion(std::move(d)), linea(l) {}
    const char* what() const noexcept override { return "ErrorPrograma"; }
};

// Número con el que el motor dice que otro usuario tiene abierta la base de datos.
constexpr qint64 ERROR_BD_EN_USO = -2147467259;  // &H80004005
// Nombre del programa, que va como comentario en cada entrada del registro.
inline const QString NOMBRE_PROGRAMA = QStringLiteral("PlanorumMirvade");

[[noreturn]] inline void lanzarError(qint64 numero, const QString& descripcion, int linea = 0)
{
    throw ErrorPrograma(numero, descripcion, linea);
}
