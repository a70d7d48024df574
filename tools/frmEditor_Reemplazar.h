#pragma once
#include "tools/BusquedaEditor.h"

#include <memory>

namespace Ui {
class frmEditor_Reemplazar;
}

// Reemplazar en el editor de texto enriquecido: pregunta en cada coincidencia y sigue hasta la última.
class frmEditor_Reemplazar : public BusquedaEditor {
    Q_OBJECT
public:
    explicit frmEditor_Reemplazar(frmEditorRTF* editor);
    ~frmEditor_Reemplazar() override;

public slots:
    void cmd_Siguiente_Click();

private:
    std::unique_ptr<Ui::frmEditor_Reemplazar> ui;
};
