#pragma once
#include "forms/BloquesImpreso.h"
#include "forms/DatosImpreso.h"

// Comunicaciones de nombramiento A4 (dirección de obra) y CSS (coordinador de Seguridad y
// Salud): un mismo impreso en dos tablas. Lugar y fecha de visado del proyecto, que el selector
// trae del proyecto y que el histórico deja en Proyectos_A.EXPFV si aún no la tenía; en la tabla
// temporal, las hojas de arquitectos del A1 (sin las marcas del alcance) y la persona nombrada.
class ImpresoNombramiento : public DatosImpreso {
    Q_OBJECT
protected:
    ImpresoNombramiento(const QString& pantalla, QWidget* padre);

    // Tras setupUi: los controles comunes y los del visado.
    void enlazarNombramiento();

    // Columnas del pie en el histórico (LUGARA4 y FECHAA4 en el A4).
    virtual QString columnaLugar() const { return QStringLiteral("LUGAR"); }
    virtual QString columnaFecha() const { return QStringLiteral("FECHA"); }
    // La persona nombrada en la tabla temporal (AUTOR o COORDINADOR_SYS); nula: no se escribe.
    virtual QString columnaPersona() const = 0;
    virtual QVariant persona(const Consulta& proyecto) const = 0;

    void aplicarLimites() override;
    void cargarCampos(const Consulta& fila) override;
    Campos camposHistorico() const override;
    bool validarPropios() override;
    // Con la fila de historial escrita: la fecha de visado pasa al proyecto si no tenía.
    void escribirFilasHijas(qint64 clave) override;
    void escribirTemporal() override;
    QList<QWidget*> controlesCopia() const override;
    void recibirProyecto(const Eleccion& e) override;
    void recibirProyectoNuevo(const RegistroGuardado& r) override;

    QLineEdit* txt_LugarVisado = nullptr;
    QLineEdit* msk_FechaVisado = nullptr;
};
