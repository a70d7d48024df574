#pragma once
#include "core/Pantallas.h"
#include "search/frmBuscarSeleccionar.h"

#include <QList>
#include <functional>

// Pantallitas que preguntan de qué familia es la persona antes de abrir el selector: una opción
// por familia, cada una con la tabla, el título del selector y, en su caso, el tipo que recibe
// la pantalla que llamó.
class SeleccionTipo : public Pantalla {
    Q_OBJECT
public:
    struct Opcion {
        QString tabla;
        QString titulo;
        QString tipo;  // "AR", "AT", "CO", "CL" o vacío
    };
    // Lo que da quien la abre: las devoluciones del selector que se abrirá (tabla y título los
    // pone la opción elegida) y quién recibe el tipo elegido.
    void preparar(PeticionSelector destino, std::function<void(const QString& tipo)> alElegirTipo);
    void cmd_Seleccionar_Click();

protected:
    SeleccionTipo(QWidget* padre, QString claveLlamada, QString claveRetorno, QString prefijoOpciones, QList<Opcion> opciones);
    // Conecta los botones de la pantalla ya montada.
    void prepararPantalla();

private:
    QString m_llamada, m_retorno, m_prefijo;
    QList<Opcion> m_opciones;
    PeticionSelector m_destino;
    std::function<void(const QString&)> m_alElegirTipo;
};

// Abre una pantalla de elección de tipo (descargando la que hubiera) y la enseña.
template <class T>
T* abrirSeleccionTipo(const PeticionSelector& destino, std::function<void(const QString& tipo)> alElegirTipo = {})
{
    Pantallas::descargar<T>();
    auto* f = new T;
    f->preparar(destino, std::move(alElegirTipo));
    Pantallas::mostrar(f);
    return f;
}
