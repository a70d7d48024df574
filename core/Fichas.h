#pragma once
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <functional>

// Registro de las pantallas que se abren por una clave de tabla ("CLIENTES", "PROYECTOS_A",
// "DATOSA1B2"...): las listas y los selectores piden "abre la ficha de esta clave" sin conocer
// la pantalla; el arranque registra qué pantalla responde a cada clave.

// Domicilio y contacto de un registro (los que un arquitecto o una sociedad dan al estudio).
struct DatosContacto {
    QString domicilio{}, nif{}, codigoPostal{}, municipio{}, provincia{}, telefono{}, fax{}, movil{}, correo{};
};

// Lo que una ficha entrega, tras guardar, a quien la abrió.
struct RegistroGuardado {
    QString operacion{};       // "ALTA" o "MODIFICAR"
    qint64 codigo = 0;       // clave numérica del registro
    QString codigoTexto{};     // clave de texto (costes de referencia)
    QString nombre{};          // nombre completo; el trabajo de un proyecto; el tipo de un coste
    QString numero{};          // número de colegiado o de registro
    QString nif{};
    QStringList columnas{};    // la fila tal como la enseña la lista de su familia
    QVariantList valores{};    // números del registro (Ct y Cc de un coste)
    DatosContacto contacto{};
    // Cliente: su representante (código vacío si no tiene).
    QString codigoRepresentante{}, nifRepresentante{}, nombreRepresentante{}, representacion{};
};

using AlGuardar = std::function<void(const RegistroGuardado&)>;

// Lo que pide quien abre una ficha ("Nuevo", "Editar", doble clic, "Nuevo" en un selector).
struct PeticionFicha {
    QString tabla{};           // clave de tabla de la lista
    QString tipoImpreso{};     // tipo de impreso de las tablas de impresos
    QString operacion{};       // "ALTA" o "MODIFICAR"
    qint64 codigo = 0;       // clave del registro en "MODIFICAR"
    QString codigoTexto{};     // clave de texto (costes)
    QString claveRetorno{};    // nombre de la ruta de devolución, cuando la abre un selector
    int pestana = 0;         // pestaña inicial (configuración)
    AlGuardar alGuardar{};     // recibe el registro guardado; vacío: la ficha sigue su camino
};

namespace Fichas {

// Devuelve false si la pantalla de esa clave aún no existe.
using Abridor = std::function<bool(const PeticionFicha&)>;

void registrar(const QString& tabla, Abridor abridor);
bool registrada(const QString& tabla);
// Abre la pantalla de p.tabla; false si ninguna responde a esa clave.
bool abrir(const PeticionFicha& p);

// Claves que no son tablas de una lista.
inline const QString CONFIGURACION = QStringLiteral("CONFIGURACION");

}  // namespace Fichas
