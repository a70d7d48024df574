#pragma once
#include "core/CicloPantalla.h"
#include "core/Fichas.h"

#include <QList>
#include <QString>
#include <functional>

class QComboBox;
class QLineEdit;
class QPlainTextEdit;

// Base de las fichas de alta y modificación (clientes, arquitectos, arquitectos técnicos,
// contratistas, costes...): modo en el Tag, código, devolución del registro guardado, pregunta
// al salir y el guardado dentro de una transacción que se confirma antes de cualquier mensaje.
class FichaRegistro : public PantallaEdicion {
    Q_OBJECT
public:
    explicit FichaRegistro(QWidget* padre = nullptr);

    // Lo que fija quien la abre antes de enseñarla.
    QString operacion;        // "ALTA" o "MODIFICAR" (lo mismo va en el Tag)
    qint64 Codigo = 0;        // registro en mano, en "MODIFICAR"
    QString ClaveRetorno;     // nombre de la ruta de devolución, cuando la abre un selector
    AlGuardar alGuardar;      // recibe el registro guardado; vacío: tras un alta se abre la lista del menú

    bool esAlta() const { return tag() == QLatin1String("ALTA"); }
    bool esModificar() const { return tag() == QLatin1String("MODIFICAR"); }

    virtual bool validarDatos() = 0;
    void cmd_Guardar_Click();
    void cmd_Cerrar_Click();

    // Reglas comunes de los campos.
    // La lista de provincias de un campo: texto libre sobre ella, 25 caracteres como mucho.
    enum class Provincias { Espanolas, Mirvade };  // PROVINCIAS en orden español; PROVINCIAS_MIRVADE tal cual
    static void prepararProvincia(QComboBox* cbo, Provincias lista = Provincias::Espanolas);
    static void limitarNotas(QPlainTextEdit* txt, int maximo); // límite de un cuadro de varias líneas
    static void alSalir(QWidget* w, std::function<void()> accion);  // al perder el foco
    // Las tres comprobaciones del correo; avisa y enfoca el campo si falla.
    bool comprobarCorreo(QLineEdit* txt_Correo);
    // Aviso de validación: mensaje, pestaña del campo a la vista y foco en él.
    void avisarCampo(QWidget* campo, const QString& texto);
    // Mensaje de campo obligatorio con la segunda línea "Por favor, escriba un valor".
    static QString obligatorio(const QString& primeraLinea);

    // Texto recortado de los controles, nombre completo recortado.
    static QString recortado(const QWidget* w);
    static QString nombreCompleto(const QWidget* nombre, const QWidget* apellidos);

protected:
    // Lo propio de cada ficha.
    virtual void cargarDatos() = 0;                 // límites, filtros, listas y, en "MODIFICAR", el registro
    virtual bool guardarRegistro() = 0;             // escribe la fila; false si no se halla (ya avisado)
    virtual void actualizarCopiasExternas() {}      // cascadas de "MODIFICAR"
    virtual RegistroGuardado registroGuardado() const = 0;  // lo que recibe quien la abrió
    virtual QString textoAlta() const = 0;
    virtual QString textoModificado() const = 0;
    virtual QString listaMenu() const { return {}; }  // clave de la lista que se abre tras un alta sin devolución

    // Clave de la fila a escribir: en "ALTA" la mayor más uno; en "MODIFICAR" la del registro si
    // sigue existiendo. Si ya no existe avisa con el texto dado y devuelve 0.
    qint64 claveAGuardar(const QString& tabla, const QString& campo, const QString& noHallado) const;

    bool cargar() override;
    bool guardarAlSalir() override;

    // Conecta cmd_Guardar y cmd_Cerrar (por su nombre) con sus manejadores.
    void conectarBotones();
};
