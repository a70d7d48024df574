#pragma once
#include "core/Pantallas.h"

#include <QList>
#include <QString>
#include <QStringList>

// Cursor de espera mientras dura un ámbito: se restaura solo, también si el ámbito sale por un
// fallo, de modo que ninguna pantalla se queda con el reloj de arena.
class CursorEspera {
public:
    CursorEspera();
    ~CursorEspera();
    CursorEspera(const CursorEspera&) = delete;
    CursorEspera& operator=(const CursorEspera&) = delete;
};

// Copia de los campos de una pantalla para saber, al salir, si hay cambios sin guardar. Los
// textos se comparan en mayúsculas (cambiar sólo mayúsculas no cuenta), las casillas y opciones
// como "1"/"0", y las listas por el contenido de sus filas, busquen donde busquen su sitio.
class Instantanea {
public:
    void tomar(const QList<QWidget*>& controles);
    bool difiere(const QList<QWidget*>& controles) const;
    void vaciar() { m_textos.clear(); }

    // Texto de un control tal como entra en la copia.
    static QString texto(const QWidget* w);

private:
    QStringList m_textos;
};

// Vida común de las pantallas de edición (fichas, impresos, proyecto, configuración): se cargan
// una sola vez, toman su copia tras cargar y tras guardar, y al cerrarse con cambios preguntan
// "¿Desea guardar los cambios antes de salir?" (Sí guarda y cierra si el guardado lo permite,
// Cancelar deja la pantalla abierta, No cierra sin guardar).
class PantallaEdicion : public Pantalla {
    Q_OBJECT
public:
    explicit PantallaEdicion(QWidget* padre = nullptr);

    // Form_Load: quien abre la pantalla la llama tras fijar sus propiedades; si no, la primera
    // vez que se enseña. Las siguientes llamadas no hacen nada.
    void Form_Load();
    bool estaCargada() const { return m_cargada; }

    // ¿Difiere algún campo de la última copia?
    virtual bool hayCambios() const;
    bool PreguntarGuardarCambios() const { return hayCambios(); }
    // Cierto si el último guardado pidió no cerrar (validación fallida o fallo al guardar).
    bool cancelarCierre() const { return m_cancelarCierre; }

protected:
    // Lo propio de cada pantalla. cargar() devuelve si se toma la copia al terminar (una carga
    // que se interrumpe la deja sin tomar).
    virtual bool cargar() = 0;
    virtual QList<QWidget*> controlesCopia() const = 0;
    // El "Sí" de la pregunta al salir: devuelve si la pantalla puede cerrarse.
    virtual bool guardarAlSalir() = 0;

    void tomarCopia();
    // Cierto mientras se guarda desde la pregunta al salir: el guardado no cierra la pantalla
    // por su cuenta, ya se está cerrando.
    bool descargando() const { return m_descargando; }

    bool alDescargar() override;
    void showEvent(QShowEvent* e) override;

    bool m_cancelarCierre = false;

private:
    Instantanea m_copia;
    bool m_cargada = false;
    bool m_descargando = false;
};
