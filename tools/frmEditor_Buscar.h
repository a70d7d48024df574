#pragma once
#include "tools/BusquedaEditor.h"

#include <memory>

namespace Ui {
class frmEditor_Buscar;
}

// Buscar en el editor de texto enriquecido, sin distinguir mayúsculas.
class frmEditor_Buscar : public BusquedaEditor {
    Q_OBJECT
public:
    explicit frmEditor_Buscar(frmEditorRTF* editor);
    ~frmEditor_Buscar() override;

public slots:
    void cmd_Siguiente_Click();

private:
    std::unique_ptr<Ui::frmEditor_Buscar> ui;
};
