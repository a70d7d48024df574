#pragma once
#include "core/Pantallas.h"

#include <QTextCursor>

class QLineEdit;
class QPushButton;
class frmEditorRTF;

// Lo común de buscar y de reemplazar en el editor: no lo bloquean (se sigue escribiendo con ellas
// abiertas), la primera búsqueda sale del cursor y "Siguiente" sigue desde la última coincidencia.
class BusquedaEditor : public Dialogo {
    Q_OBJECT
public:
    // La enseña delante, con lo seleccionado en el editor como texto a buscar.
    void abrir();

protected:
    explicit BusquedaEditor(frmEditorRTF* editor);
    void preparar(QLineEdit* buscado, QPushButton* siguiente, QPushButton* cancelar);
    // Busca y selecciona la siguiente; sin más, avisa y la búsqueda vuelve a salir del cursor.
    bool buscarSiguiente();

    frmEditorRTF* m_editor;
    QTextCursor m_ultima;

private:
    QLineEdit* m_buscado = nullptr;
};
