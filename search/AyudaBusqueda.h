#pragma once
#include "core/Pantallas.h"

// Lo común de las dos ayudas de las pantallas de búsqueda: textos por familia de registros.
class AyudaBusqueda : public Dialogo {
    Q_OBJECT
public:
    QString Tabla;

    // Centra, pone los dibujos y carga los textos.
    void Form_Load();
    void cmd_Cerrar_Click();

protected:
    explicit AyudaBusqueda(QWidget* padre = nullptr);
    void enlazarControles();
    void cargarTextos();
    virtual QString nombreFormulario() const = 0;
    virtual bool esSelector() const = 0;
};
