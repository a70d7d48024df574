#include "tools/frmEditor_Buscar.h"

#include "core/Guardia.h"
#include "ui_frmEditor_Buscar.h"

frmEditor_Buscar::frmEditor_Buscar(frmEditorRTF* editor) : BusquedaEditor(editor), ui(std::make_unique<Ui::frmEditor_Buscar>())
{
    ui->setupUi(this);
    preparar(ui->txt_Buscar, ui->cmd_Siguiente, ui->cmd_Cancelar);
    connect(ui->cmd_Siguiente, &QPushButton::clicked, this, &frmEditor_Buscar::cmd_Siguiente_Click);
}

frmEditor_Buscar::~frmEditor_Buscar() = default;

void frmEditor_Buscar::cmd_Siguiente_Click()
{
    guardia(QStringLiteral("frmEditor_Buscar"), QStringLiteral("cmd_Siguiente_Click"), [&] { buscarSiguiente(); });
}
