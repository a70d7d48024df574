#pragma once
#include "forms/DatosImpreso.h"

#include <memory>

class QTreeWidget;

namespace Ui {
class frmDatosImpreso_ComunicadoDireccionCoordinador;
}

// Comunicado de dirección de obra y coordinador: las personas nombradas se guardan en tres listas
// del propio impreso (directores de obra, directores de ejecución y coordinadores de Seguridad y
// Salud), cada una con su tabla de enlace y su tabla temporal para el informe.
class frmDatosImpreso_ComunicadoDireccionCoordinador : public DatosImpreso {
    Q_OBJECT
public:
    explicit frmDatosImpreso_ComunicadoDireccionCoordinador(QWidget* padre = nullptr);
    ~frmDatosImpreso_ComunicadoDireccionCoordinador() override;

    // Índice 0: el proyecto; 1 a 3: las listas.
    using DatosImpreso::img_Borrar_Click;
    using DatosImpreso::img_Buscar_Click;
    void img_Buscar_Click(int index);
    void img_Borrar_Click(int index);

    // La copia se llama como la del A4; la pregunta al salir nunca sale en este impreso: lo no
    // visto en la vista previa se pierde al cerrar.
    void cargarInformacionImpresoA4() { cargarInformacionImpreso(); }
    bool hayCambios() const override { return false; }

    // Añade una persona a una lista (1 a 3) con su tipo ("AR" o "AT"); si ya está, avisa y
    // devuelve false (el selector sigue abierto).
    bool recibirPersona(int lista, qint64 codigo, const QString& nombre, const QString& tipo);

protected:
    void cargarCampos(const Consulta& fila) override;
    Campos camposHistorico() const override;
    void escribirFilasHijas(qint64 clave) override;
    void escribirTemporal() override;
    QList<QWidget*> controlesCopia() const override;

private:
    QTreeWidget* lista(int index) const;
    void recibirPersonaNueva(int lista, const RegistroGuardado& r);

    std::unique_ptr<Ui::frmDatosImpreso_ComunicadoDireccionCoordinador> ui;
};
