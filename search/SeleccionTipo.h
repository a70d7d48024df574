#pragma once
#include "core/Pantallas.h"

#include <QList>

// Pantallitas que preguntan de qué familia es la persona antes de abrir el selector: una opción
// por familia, cada una con la tabla, el título del selector y, en su caso, el tipo que se
// escribe en la pantalla que llamó.
class SeleccionTipo : public Pantalla {
    Q_OBJECT
public:
    struct Opcion {
        QString tabla;
        QString titulo;
        QString tipo;  // "AR", "AT", "CO", "CL" o vacío
    };
    void cmd_Seleccionar_Click();

protected:
    SeleccionTipo(QWidget* padre, QString claveLlamada, QString claveRetorno, QString receptor, QString campoTipo,
                  QString prefijoOpciones, QList<Opcion> opciones);
    // Conecta los botones de la pantalla ya montada y la centra.
    void prepararPantalla();

private:
    QString m_llamada, m_retorno, m_receptor, m_campoTipo, m_prefijo;
    QList<Opcion> m_opciones;
};
