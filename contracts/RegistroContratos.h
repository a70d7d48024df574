#pragma once
#include <QList>
#include <QPair>
#include <QString>

// Lo común del registro de contratos (tabla Contratos) y de la creación de documentos.
namespace RegistroContratos {

// Los tipos de contrato: el nodo del árbol, su clave, el TipoDocumento ("1" a "5") y la plantilla
// base que ofrece la creación, cuya ruta está en [PLANTILLAS_CONTRATOS] P1 a P5.
struct Tipo {
    QString clave;       // "NO", "TR", "TE", "TU", "TS"
    QString nodo;        // "Nota de encargo"...
    QString plantilla;   // "[Plantilla] Nota de encargo"...
    QString documento;   // "1" a "5"
};
const QList<Tipo>& tipos();
// TipoDocumento de una clave del árbol ("CE" es el "6", sin nodo); "" si no es ninguna.
QString tipoDeClave(const QString& clave);
// Tipo de un TipoDocumento, o nullptr.
const Tipo* tipoDeDocumento(const QString& documento);

// Una fila de la tabla.
struct Contrato {
    qint64 clave = 0;
    QString nombre;
    QString ruta;          // vacía si es nula
    QString tipo;
    QString plantilla;
    bool esPlantilla = false;
};
// Lee la fila de esa clave; false si no existe.
bool leer(qint64 clave, Contrato& contrato);
// Las filas de un tipo, en el orden en que se crearon.
QList<Contrato> deTipo(const QString& tipo);

// Abre un documento con su programa; sin programa para los .doc o sin el fichero, avisa y lo anota.
bool abrirDocumento(const QString& ruta, const QString& formulario, const QString& procedimiento);

}  // namespace RegistroContratos
