#pragma once
#include "search/AyudaBusqueda.h"

namespace Ui {
class frmAyudaBuscar;
}

// Ayuda de frmBuscar en su modo actual.
class frmAyudaBuscar : public AyudaBusqueda {
    Q_OBJECT
public:
    explicit frmAyudaBuscar(QWidget* padre = nullptr);
    ~frmAyudaBuscar() override;

protected:
    QString nombreFormulario() const override { return QStringLiteral("frmAyudaBuscar"); }
    bool esSelector() const override { return false; }

private:
    Ui::frmAyudaBuscar* ui;
};
