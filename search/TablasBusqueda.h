#pragma once
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantList>

// Descripción de cada clave de tabla de las pantallas de búsqueda: campos de búsqueda con su
// filtro y su orden, columnas de la lista, campo clave de la fila y familia del registro.
// frmBuscar y frmBuscarSeleccionar leen todo de aquí.
namespace TablasBusqueda {

enum class Familia { Proyectos, Arquitectos, Aparejadores, Contratistas, Clientes, Costes, Impresos };

// Cómo se compara el valor: por parte del texto, igual, o por parte de la fecha tal como se ve.
enum class Modo { Parecido, Igual, Fecha };

struct CampoBusqueda {
    QString titulo{};    // texto de la lista de campos
    QString columna{};   // columna en la que se busca
    Modo modo = Modo::Parecido;
    QString orden{};     // orden de la búsqueda por este campo ("" sin ORDER BY)
};

struct Columna {
    QString titulo{};
    int twips = 0;
    QString campo{};
    bool fecha = false;  // se guarda 'AAAA-MM-DD' y se enseña "dd/mm/aaaa"
};

struct Descripcion {
    QString tabla;             // clave de tabla
    Familia familia = Familia::Impresos;
    QString origen;            // tabla de la base de datos
    QString condicion;         // condición fija, con "?" para sus valores
    QVariantList valores;
    QString orden;             // orden sin campo elegido
    QList<CampoBusqueda> campos;  // desde el índice 1 de la lista
    QString campoClave;
    bool claveNumerica = true;
    QList<Columna> columnas;   // la primera es el texto de la fila, las demás sus subelementos
};

// Descripción de una clave y tipo de impreso; nullptr si la clave no existe.
const Descripcion* descripcion(const QString& tabla, const QString& tipoImpreso);

// Claves de la familia de los arquitectos (todas leen OTROS con categoría 'ARQUITECTO').
bool esFamiliaArquitectos(const QString& tabla);
// Claves de datos maestros: su lista se exporta; las demás sólo ofrecen el impreso en blanco.
bool esDatoMaestro(const QString& tabla);
// Listas de varias elecciones: llevan casillas.
bool llevaCasillas(const QString& tabla, const QString& claveRetorno);

// Partes de la sentencia, con sus valores enlazados.
struct Sentencia {
    QString sql;
    QVariantList valores;
};
// indice: el de la lista de campos (-1 y 0 son "sin campo"); valor: el texto tal como está.
Sentencia construirSentencia(const Descripcion& d, int indice, const QString& valor);

// "2008-02-01" -> "01/02/2008"; cualquier otro texto se deja igual.
QString fechaVisible(const QString& texto);

}  // namespace TablasBusqueda
