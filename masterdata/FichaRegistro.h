#pragma once
#include "core/Pantallas.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>

class QComboBox;
class QLineEdit;
class QPlainTextEdit;

// Base de las fichas de alta y modificación (clientes, arquitectos, arquitectos técnicos,
// contratistas, costes...): modo en el Tag, código, clave de devolución, copia de los campos
// para saber si hay cambios, pregunta al salir y el guardado dentro de una transacción.
class FichaRegistro : public Pantalla {
    Q_OBJECT
public:
    explicit FichaRegistro(QWidget* padre = nullptr);

    // Lo que fija quien la abre antes de enseñarla.
    QString operacion;        // "ALTA" o "MODIFICAR" (lo mismo va en el Tag)
    qint64 Codigo = 0;        // registro en mano, en "MODIFICAR"
    QString ClaveRetorno;     // a quién se devuelve el registro nuevo

    bool esAlta() const { return tag() == QLatin1String("ALTA"); }
    bool esModificar() const { return tag() == QLatin1String("MODIFICAR"); }

    // Form_Load: se ejecuta una sola vez (quien abre la llama tras fijar las propiedades;
    // si no, la primera vez que se enseña).
    void Form_Load();
    bool cargada() const { return m_cargada; }

    virtual bool validarDatos() = 0;
    void cmd_Guardar_Click();
    void cmd_Cerrar_Click();

    // ¿Algún campo difiere de su copia? (comparación en mayúsculas)
    virtual bool hayCambios() const;
    // Cierto si el último guardado pidió no cerrar (validación fallida o fallo al guardar).
    bool cancelarCierre() const { return m_cancelarCierre; }

    // Texto de cada control para la copia: textos tal cual, casillas "1"/"0".
    static QString textoControl(const QWidget* w);
    static QStringList instantanea(const QList<QWidget*>& controles);
    static bool difiere(const QList<QWidget*>& controles, const QStringList& copia);

    // Reglas comunes de los campos.
    static void prepararProvincia(QComboBox* cbo);           // lista de PROVINCIAS, 25 caracteres
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
    virtual void tomarCopias() = 0;                 // copia de los campos tras cargar y guardar
    virtual bool guardarRegistro() = 0;             // escribe la fila; false si no se halla (ya avisado)
    virtual void actualizarCopiasExternas() {}      // cascadas de "MODIFICAR"
    virtual void devolverAlta() {}                  // escribe el registro nuevo en quien lo pidió
    virtual QString textoAlta() const = 0;
    virtual QString textoModificado() const = 0;
    virtual void abrirListaMenu() {}                // la lista del menú, tras un alta sin devolución

    bool alDescargar() override;
    void showEvent(QShowEvent* e) override;

    // Conecta cmd_Guardar y cmd_Cerrar (por su nombre) con sus manejadores.
    void conectarBotones();

private:
    bool m_cargada = false;
    bool m_cancelarCierre = false;
    bool m_descargando = false;
};

// Devolución de un registro nuevo a la pantalla que lo pidió: se busca por su nombre entre las
// cargadas y sus controles también por nombre, de modo que sirve para cualquier receptor.
namespace Devolucion {

QWidget* receptor(const QString& pantalla);
// Escribe el texto en el control (cuadro de texto, etiqueta, lista desplegable...). False si no está.
bool escribir(QWidget* receptor, const QString& control, const QString& texto);
QString leer(QWidget* receptor, const QString& control);
// Añade una fila a una lista QTreeWidget: clave ("K" y código), columnas y, si se pide, la marca.
bool agregarFila(QWidget* receptor, const QString& lista, const QString& clave, const QStringList& columnas,
                 bool marcable = false);

}  // namespace Devolucion
