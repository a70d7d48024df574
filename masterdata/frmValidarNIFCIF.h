#pragma once
#include "core/Pantallas.h"

#include <QLineEdit>
#include <QPointer>
#include <memory>

namespace Ui {
class frmValidarNIFCIF;
}

// Comprobación, a petición, del NIF o CIF de una ficha. Es sólo un consejo: un NIF con la letra
// mal se corrige en la ficha con una respuesta; un CIF mal sólo recibe un aviso.
class frmValidarNIFCIF : public Pantalla {
    Q_OBJECT
public:
    explicit frmValidarNIFCIF(QWidget* padre = nullptr);
    ~frmValidarNIFCIF() override;

    // Campo de la ficha que pidió la comprobación; recibe el NIF corregido.
    QPointer<QLineEdit> cajaIdentificador;

    // Valor a comprobar y tipo elegido (0 NIF, 1 CIF, -1 ninguno).
    void setIdentificador(const QString& valor);
    void setTipo(int indice);

    void cmd_Validar_Click();

private:
    std::unique_ptr<Ui::frmValidarNIFCIF> ui;
};

// img_Validar_Click de las fichas: si txt_NIF tiene valor abre (o reutiliza) frmValidarNIFCIF con
// él en mayúsculas y el tipo NIF o CIF; si está vacío avisa y devuelve el foco al campo.
frmValidarNIFCIF* validarIdentificador(QLineEdit* txt_NIF, bool esNIF);
