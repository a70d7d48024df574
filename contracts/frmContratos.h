#pragma once
#include "core/Pantallas.h"

namespace Ui {
class frmContratos;
}
namespace RegistroContratos {
struct Contrato;
}

// Registro de los documentos de contrato: a la izquierda los tipos, a la derecha los documentos
// del tipo elegido, y los botones para crear, abrir, editar y borrar. Los ficheros están donde
// los puso el usuario; el registro sólo guarda su ruta.
class frmContratos : public Pantalla {
    Q_OBJECT
public:
    explicit frmContratos(QWidget* padre = nullptr);
    ~frmContratos() override;

    // Abre la pantalla, o trae delante la que ya esté abierta.
    static frmContratos* abrir();

    // TipoDocumento del nodo elegido ("1" a "5"); "" sin nodo.
    QString tipoElegido() const;

    QSize sizeHint() const override;

public slots:
    // Llena la lista con los documentos del tipo del nodo elegido (también al cambiar de nodo, y
    // tras crear, editar o borrar un documento).
    void tre_1_DblClick();
    void cmd_Nuevo_Click();
    void cmd_Abrir_Click();
    void cmd_Editar_Click();
    void cmd_Borrar_Click();
    void lvw_Documentos_Click();
    void lvw_Documentos_DblClick();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void cargarArbol();
    // Los avisos de una lista vacía o sin fila elegida; la clave de la fila, o 0.
    qint64 claveElegida();
    // La fila elegida, leída de la base de datos con sus avisos (no está, no tiene ruta); false
    // si falta algo (ya avisado).
    bool leerElegido(RegistroContratos::Contrato& contrato);

    Ui::frmContratos* ui;
};
