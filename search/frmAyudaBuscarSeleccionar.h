#pragma once
#include "search/AyudaBusqueda.h"

namespace Ui {
class frmAyudaBuscarSeleccionar;
}

// Ayuda de frmBuscarSeleccionar en su modo actual.
class frmAyudaBuscarSeleccionar : public AyudaBusqueda {
    Q_OBJECT
public:
    explicit frmAyudaBuscarSeleccionar(QWidget* padre = nullptr);
    ~frmAyudaBuscarSeleccionar() override;

protected:
    QString nombreFormulario() const override { return QStringLiteral("frmAyudaBuscarSeleccionar"); }
    bool esSelector() const override { return true; }

private:
    Ui::frmAyudaBuscarSeleccionar* ui;
};
