#pragma once
// Ayudas de las pruebas de las fichas: abrir por la lista, escribir y leer controles por su
// nombre, leer filas de la base de datos y receptores de prueba con nombre de pantalla.
#include "app/frmMenu.h"
#include "core/modFunciones.h"
#include "core/Fichas.h"
#include "search/frmBuscar.h"
#include "tests/comun/EntornoPrueba.h"
#include "tests/comun/ServidorPrueba.h"
#include "tests/pantallas/PruebaPantallas.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSqlRecord>
#include <QTest>
#include <QTreeWidget>

#include <optional>

namespace fichas {

// Entorno de prueba ya conectado a su base de datos (la del servidor si CTest la pide).
struct Entorno : EntornoPrueba {
    std::optional<ServidorPrueba> servidor;
    Entorno() { ServidorPrueba::conectarAlPedido(*this, servidor); }
    // Otro puesto podría guardar ahora mismo, en el motor de la prueba.
    bool otroPuestoPuedeGuardar() const { return servidor ? servidor->otroPuestoPuedeGuardar() : ::otroPuestoPuedeGuardar(ficheroBD()); }
};

// Abre la ficha como lo hace la lista ("ALTA", "MODIFICAR") o, con quien recibe el registro
// guardado, como lo hace un selector.
template <class T>
T* abrir(const QString& tabla, const QString& operacion, qint64 codigo = 0, const QString& claveRetorno = {}, AlGuardar alGuardar = {})
{
    return Fichas::abrir({.tabla = tabla, .operacion = operacion, .codigo = codigo, .claveRetorno = claveRetorno, .alGuardar = alGuardar})
               ? Pantallas::cargada<T>()
               : nullptr;
}

inline QWidget* control(QWidget* f, const QString& nombre)
{
    QWidget* w = f->findChild<QWidget*>(nombre);
    if (!w)
        qFatal("No existe el control %s", qPrintable(nombre));
    return w;
}

// Propiedad del texto de cada clase de control.
inline const char* propiedad(QWidget* w)
{
    return qobject_cast<QComboBox*>(w) ? "currentText" : qobject_cast<QPlainTextEdit*>(w) ? "plainText" : "text";
}

inline void poner(QWidget* f, const QString& nombre, const QString& texto)
{
    control(f, nombre)->setProperty(propiedad(control(f, nombre)), texto);
}

// Varios controles de una vez: {{"txt_Nombre", "Ana"}, ...}.
inline void poner(QWidget* f, const QList<QPair<QString, QString>>& pares)
{
    for (const auto& [nombre, texto] : pares)
        poner(f, nombre, texto);
}

inline QString leer(QWidget* f, const QString& nombre)
{
    return control(f, nombre)->property(propiedad(control(f, nombre))).toString();
}

inline QStringList leer(QWidget* f, const QStringList& nombres)
{
    QStringList r;
    for (const QString& n : nombres)
        r << leer(f, n);
    return r;
}

// Teclea carácter a carácter, también los que no son ASCII ("ñ", acentos).
inline void teclear(QWidget* w, const QString& texto)
{
    for (const QChar c : texto)
        for (const auto accion : {QTest::Press, QTest::Release})
            QTest::sendKeyEvent(accion, w, c.unicode() < 128 ? QTest::asciiToKey(c.toLatin1()) : Qt::Key_unknown, QString(c), Qt::NoModifier);
}

inline QAbstractButton* boton(QWidget* f, const QString& nombre) { return qobject_cast<QAbstractButton*>(control(f, nombre)); }
inline void pulsar(QWidget* f, const QString& nombre) { boton(f, nombre)->click(); }
// Persona (0) o sociedad (1).
inline QAbstractButton* tipo(QWidget* f, int indice) { return boton(f, QStringLiteral("opt_Tipo_%1").arg(indice)); }

// ¿Está abierta la lista de búsqueda de esa clave de tabla?
inline bool listaAbierta(const QString& tabla)
{
    frmBuscar* l = Pantallas::cargada<frmBuscar>();
    return l && l->Tabla == tabla;
}

inline bool abierta(QWidget* f)
{
    procesarEventos();
    return Pantallas::cargadas().contains(f);
}

// Una fila de una consulta, como lista de valores (vacía si no hay fila).
inline QVariantList fila(const QString& sql, const QVariantList& valores = {})
{
    UsoConexion uso;
    Consulta c(sql, valores);
    QVariantList r;
    if (c.siguiente())
        for (int i = 0; i < c.query().record().count(); ++i)
            r << c.valor(i);
    return r;
}

inline QVariant valor(const QString& sql, const QVariantList& valores = {})
{
    UsoConexion uso;
    return escalar(sql, valores);
}

inline void sql(const QString& texto, const QVariantList& valores = {})
{
    UsoConexion uso;
    ejecutar(texto, valores);
}

// Limpieza común tras cada prueba: sin pantallas ni menú, y sin transacción pendiente.
inline void limpiar()
{
    const QList<QWidget*> cargadas = Pantallas::cargadas();
    for (const QPointer<QWidget>& w : QList<QPointer<QWidget>>(cargadas.begin(), cargadas.end()))
        delete w.data();
    delete frmMenu::existente();
    procesarEventos();
    transaccionEnCurso = false;
}

}  // namespace fichas
