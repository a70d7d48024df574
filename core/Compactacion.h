#pragma once
#include <QString>
#include <functional>

// Operaciones sobre el fichero de la base de datos completo: prueba de uso exclusivo,
// compactación, copia y sustitución. El fichero vivo sólo se sustituye renombrando sobre él
// un fichero nuevo ya terminado y volcado a disco: un corte de luz deja el viejo o el nuevo.
namespace Compactacion {

// Cerrojo exclusivo sin espera sobre la base de datos. Si otro lo tiene, lanza ErrorPrograma
// con el número de base de datos en uso. Se mantiene mientras vive el objeto.
class CerrojoExclusivo {
public:
    explicit CerrojoExclusivo(const QString& fichero);
    ~CerrojoExclusivo();
    CerrojoExclusivo(const CerrojoExclusivo&) = delete;
    CerrojoExclusivo& operator=(const CerrojoExclusivo&) = delete;

private:
    QString m_conexion;
};

// Compacta rutaBD + "Usuarios.qst" a través de "PlanorumMirvade_COPY.mdb" y
// "PlanorumMirvade_TMP.mdb"; avisa de los valores 65, 75, 85 y 95 de la barra.
void compactar(const QString& rutaBD, const std::function<void(int)>& avance = {});

// Copia un fichero completo a su destino pasando por un temporal al lado y un renombrado.
void copiarAtomico(const QString& origen, const QString& destino);

// ¿Es este fichero una base de datos de este programa? (se abre, y tiene sus tablas)
bool esBaseDeDatosDelPrograma(const QString& fichero, QString* motivo = nullptr);

}  // namespace Compactacion
