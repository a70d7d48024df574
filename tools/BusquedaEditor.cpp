#include "tools/BusquedaEditor.h"

#include "tools/frmEditorRTF.h"

#include <QLineEdit>
#include <QPushButton>

BusquedaEditor::BusquedaEditor(frmEditorRTF* editor) : Dialogo(editor), m_editor(editor)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(false);
}

void BusquedaEditor::preparar(QLineEdit* buscado, QPushButton* siguiente, QPushButton* cancelar)
{
    m_buscado = buscado;
    siguiente->setEnabled(false);
    connect(buscado, &QLineEdit::textChanged, this, [this, siguiente](const QString& texto) {
        // Otro texto es otra búsqueda: vuelve a salir del cursor.
        m_ultima = QTextCursor();
        siguiente->setEnabled(!texto.isEmpty());
    });
    connect(cancelar, &QPushButton::clicked, this, &QDialog::close);
}

void BusquedaEditor::abrir()
{
    const QString seleccion = m_editor->textoParaBuscar();
    if (!seleccion.isEmpty())
        m_buscado->setText(seleccion);
    if (!isVisible()) {
        adjustSize();
        Pantallas::centrar(this);
    }
    show();
    raise();
    activateWindow();
    m_buscado->setFocus();
    m_buscado->selectAll();
}

bool BusquedaEditor::buscarSiguiente() { return m_editor->buscarSiguiente(m_buscado->text(), m_ultima); }
