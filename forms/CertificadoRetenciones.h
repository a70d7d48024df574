#pragma once
#include "forms/BloquesImpreso.h"
#include "forms/DatosImpreso.h"

class AyudaFecha;

// Lo común de los dos certificados anuales de retenciones (ajeno y propio): el perceptor y el
// pagador con sus selectores, el ejercicio, la fecha de presentación con máscara y su globo, el
// número de justificante, el pie, y una misma fila para el histórico datosB4 y la temporal B4.
// Cada certificado dice de dónde salen sus personas y sus importes, y el orden de sus columnas.
class CertificadoRetenciones : public DatosImpreso {
    Q_OBJECT
public:
    void img_Buscar_Click(int index);  // 0 perceptor, 1 pagador
    void img_Borrar_Click(int index);
    void mostrarAyuda(int mostrar);

    static inline const QString AVISO_PERCEPTOR = QStringLiteral("No se han podido cargar los datos del perceptor");
    static inline const QString AVISO_PAGADOR = QStringLiteral("No se han podido cargar los datos del pagador");

protected:
    CertificadoRetenciones(const QString& pantalla, QWidget* padre);
    // Tras setupUi: busca los controles comunes por su nombre y los prepara.
    void enlazarCertificado();

    enum class Destino { Historico, Temporal };
    // Columnas de la fila en el orden en que se escriben: las mismas para el histórico y la
    // temporal, salvo los importes (número o texto "#,##0.00") y las marcas del histórico.
    virtual BloquesImpreso::FilaTemporal columnas(Destino destino) const = 0;
    virtual void buscarPerceptor() = 0;
    virtual PeticionSelector peticionPagador() const = 0;
    // Sentencias de las personas, con un "?" para el código; vacía si no se sabe de dónde sale.
    virtual QString sqlPerceptor() const = 0;
    virtual QString sqlPagador() const = 0;
    virtual void borrarPerceptor();
    // Tras la fecha de presentación, antes del pie.
    virtual bool validarImportes() { return true; }

    // Piezas de las columnas.
    void ponerDatosCertificado(BloquesImpreso::FilaTemporal& f) const;  // Ejercicio, FechaPresentacion, NumJustificante
    void ponerPersonas(BloquesImpreso::FilaTemporal& f) const;          // PER* y PAG*
    void ponerPie(BloquesImpreso::FilaTemporal& f) const;               // LUGAR y FECHA
    // Un importe: número al céntimo en el histórico, "#,##0.00" en la temporal; nulo si falta.
    static void ponerImporte(BloquesImpreso::FilaTemporal& f, const QString& columna, const QVariant& valor, Destino destino);

    void aplicarLimites() override;
    void cargarCampos(const Consulta& fila) override;
    Campos camposHistorico() const override { return columnas(Destino::Historico).campos(); }
    void escribirTemporal() override { columnas(Destino::Temporal).insertarEn(definicion().tablaTemporal); }
    bool validarPropios() override;
    QList<QWidget*> controlesCopia() const override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

    QLineEdit* txt_CodPerceptor = nullptr;
    QLineEdit* txt_Perceptor = nullptr;
    QLineEdit* txt_CodPagador = nullptr;
    QLineEdit* txt_Pagador = nullptr;
    QLineEdit* txt_Ejercicio = nullptr;
    QLineEdit* msk_FechaPresentacion = nullptr;
    QLineEdit* txt_NumJustificante = nullptr;

private:
    AyudaFecha* m_ayuda = nullptr;
};
