#include "tools/frmEditor_Reemplazar.h"

#include "core/Guardia.h"
#include "core/Mensajes.h"
#include "tools/frmEditorRTF.h"
#include "ui_frmEditor_Reemplazar.h"

#include <QTextEdit>

frmEditor_Reemplazar::frmEditor_Reemplazar(frmEditorRTF* editor)
    : BusquedaEditor(editor), ui(std::make_unique<Ui::frmEditor_Reemplazar>())
{
    ui->setupUi(this);
    preparar(ui->txt_Buscar, ui->cmd_Siguiente, ui->cmd_Cancelar);
    connect(ui->cmd_Siguiente, &QPushButton::clicked, this, &frmEditor_Reemplazar::cmd_Siguiente_Click);
}

frmEditor_Reemplazar::~frmEditor_Reemplazar() = default;

void frmEditor_Reemplazar::cmd_Siguiente_Click()
{
    guardia(QStringLiteral("frmEditor_Reemplazar"), QStringLiteral("cmd_Siguiente_Click"), [&] {
        const QString nuevo = ui->txt_Reemplazar->text();
        // Sigue tras lo puesto: un reemplazo que contiene lo buscado no se vuelve a encontrar.
        while (buscarSiguiente()) {
            if (Mensajes::pregunta(QStringLiteral("¿Desea realizar el cambio?")) != Mensajes::Respuesta::Si)
                continue;
            m_ultima.insertText(nuevo);
            m_editor->editor()->setTextCursor(m_ultima);
        }
    });
}
