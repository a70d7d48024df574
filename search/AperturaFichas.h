#pragma once
#include <QString>

class QWidget;

// Lo que una lista pide al abrir la ficha de un registro ("Nuevo", "Editar", doble clic).
struct PeticionFicha {
    QString tabla;          // clave de tabla de la lista (PROYECTOS_A, CLIENTES, COSTES, DATOSA1B2...)
    QString tipoImpreso;    // tipo de impreso de las tablas de impresos
    QString operacion;      // "ALTA" o "MODIFICAR"
    qint64 codigo = 0;      // clave del registro en "MODIFICAR"
    QString codigoTexto;    // clave de texto (costes de referencia)
    QString claveRetorno;   // clave de devolución cuando la abre un selector
    QWidget* llamador = nullptr;
};

// Abre la ficha que corresponde (descargando antes la que hubiera abierta) con su título.
// Devuelve false si la pantalla de esa familia aún no existe.
bool abrirFicha(const PeticionFicha& peticion);
