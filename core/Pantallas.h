#pragma once
#include <QDialog>
#include <QList>
#include <QWidget>
#include <functional>

class QMdiArea;

// Registro de las pantallas cargadas: responde "la instancia cargada de frmX" y "descarga frmX",
// que es lo que necesita la devolución de datos entre pantallas.
namespace Pantallas {

void registrar(QWidget* w);
void quitar(QWidget* w);
QList<QWidget*> cargadas();

template <class T>
T* cargada()
{
    for (QWidget* w : cargadas())
        if (T* t = qobject_cast<T*>(w))
            return t;
    return nullptr;
}

// Cierra la pantalla (pasa por su pregunta de salida). Devuelve true si se ha cerrado.
bool descargar(QWidget* w);

template <class T>
bool descargar()
{
    while (T* t = cargada<T>())
        if (!descargar(t))
            return false;
    return true;
}

// Área de ventanas hijas de la pantalla principal (la fija frmMenu al crearse).
void establecerAreaPrincipal(QMdiArea* area);
QMdiArea* areaPrincipal();
QWidget* ventanaPrincipal();

// Enseña una pantalla como ventana hija de la principal, sin bloquearla.
void mostrar(QWidget* w);
// Centra una pantalla en la principal.
void centrar(QWidget* w);
// Trae al frente y da el foco a una pantalla (la que pidió algo a otra que ya se ha cerrado).
void activar(QWidget* w);
// La pantalla que estaba delante al enseñar w vuelve al frente cuando w se cierra, salvo que
// entretanto se haya enseñado o activado otra. mostrar() y los diálogos lo hacen solos.
void recordarAbridor(const QWidget* w);
void devolverFrente(const QWidget* w);

// Pregunta común al cerrar una pantalla con cambios: "¿Desea guardar los cambios antes de
// salir?" con Sí, No y Cancelar. Sí llama a guardar(), que devuelve si la pantalla puede cerrarse
// (una validación fallida la deja abierta); Cancelar la deja abierta; No la cierra sin guardar.
// Devuelve si la pantalla se cierra.
bool preguntarGuardarAlSalir(bool hayCambios, const std::function<bool()>& guardar);

}  // namespace Pantallas

// Base de las pantallas hijas: se registran al nacer, se borran al cerrarse, y su cierre pasa
// por alDescargar(), que equivale a Form_Unload: devolver false cancela el cierre.
class Pantalla : public QWidget {
    Q_OBJECT
public:
    explicit Pantalla(QWidget* padre = nullptr);
    ~Pantalla() override;

    // Texto de la operación ("ALTA", "MODIFICAR", una clave de llamada...), como el Tag.
    QString tag() const { return m_tag; }
    void setTag(const QString& t) { m_tag = t; }

protected:
    virtual bool alDescargar() { return true; }
    void closeEvent(QCloseEvent* e) override;

private:
    QString m_tag;
};

// Base de los diálogos modales del programa (centrados, registrados).
class Dialogo : public QDialog {
    Q_OBJECT
public:
    explicit Dialogo(QWidget* padre = nullptr);
    ~Dialogo() override;
    void done(int resultado) override;
};
