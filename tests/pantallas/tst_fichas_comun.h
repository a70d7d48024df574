#pragma once
// Ayudas de las pruebas de las fichas: abrir por la lista, escribir en los controles por su
// nombre, leer filas de la base de datos y receptores de prueba con nombre de pantalla.
#include "app/frmMenu.h"
#include "core/modFunciones.h"
#include "search/AperturaFichas.h"
#include "tests/comun/EntornoPrueba.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSqlRecord>
#include <QTest>
#include <QTreeWidget>

namespace fichas {

// Abre la ficha como lo hace la lista ("Nuevo", "Editar").
template <class T>
T* abrir(const QString& tabla, const QString& operacion, qint64 codigo = 0, const QString& claveRetorno = {})
{
    PeticionFicha p;
    p.tabla = tabla;
    p.operacion = operacion;
    p.codigo = codigo;
    p.claveRetorno = claveRetorno;
    if (!abrirFicha(p))
        return nullptr;
    return Pantallas::cargada<T>();
}

inline QWidget* control(QWidget* f, const QString& nombre)
{
    QWidget* w = f->findChild<QWidget*>(nombre);
    if (!w)
        qFatal("No existe el control %s", qPrintable(nombre));
    return w;
}

inline void poner(QWidget* f, const QString& nombre, const QString& texto)
{
    QWidget* w = control(f, nombre);
    if (auto* t = qobject_cast<QLineEdit*>(w))
        t->setText(texto);
    else if (auto* c = qobject_cast<QComboBox*>(w))
        c->setEditText(texto);
    else if (auto* p = qobject_cast<QPlainTextEdit*>(w))
        p->setPlainText(texto);
}

// Varios controles de una vez: {{"txt_Nombre", "Ana"}, ...}.
inline void poner(QWidget* f, const QList<QPair<QString, QString>>& pares)
{
    for (const auto& [nombre, texto] : pares)
        poner(f, nombre, texto);
}

inline QString leer(QWidget* f, const QString& nombre)
{
    QWidget* w = control(f, nombre);
    if (auto* t = qobject_cast<QLineEdit*>(w))
        return t->text();
    if (auto* c = qobject_cast<QComboBox*>(w))
        return c->currentText();
    if (auto* p = qobject_cast<QPlainTextEdit*>(w))
        return p->toPlainText();
    if (auto* l = qobject_cast<QLabel*>(w))
        return l->text();
    return {};
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
    for (const QChar c : texto) {
        if (c.unicode() < 128) {
            QTest::keyClick(w, c.toLatin1());
        } else {
            QTest::sendKeyEvent(QTest::Press, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
            QTest::sendKeyEvent(QTest::Release, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
        }
    }
}

// Persona (0) o sociedad (1).
inline void tipo(QWidget* f, int indice) { qobject_cast<QAbstractButton*>(control(f, QStringLiteral("opt_Tipo_%1").arg(indice)))->setChecked(true); }
inline bool tipoMarcado(QWidget* f, int indice) { return qobject_cast<QAbstractButton*>(control(f, QStringLiteral("opt_Tipo_%1").arg(indice)))->isChecked(); }

inline void pulsar(QWidget* f, const QString& nombre) { qobject_cast<QAbstractButton*>(control(f, nombre))->click(); }

inline bool abierta(QWidget* f)
{
    procesarEventos();
    for (QWidget* w : Pantallas::cargadas())
        if (w == f)
            return true;
    return false;
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

// Receptor de prueba de las pantallas que aún no existen: el nombre de la real y sus cajas.
class Receptor : public Pantalla {
public:
    Receptor(const QString& nombre, const QStringList& cajas)
    {
        setObjectName(nombre);
        for (const QString& c : cajas)
            (new QLineEdit(this))->setObjectName(c);
    }
};

// Limpieza común tras cada prueba: sin pantallas ni menú, y sin transacción pendiente.
inline void limpiar()
{
    QList<QPointer<QWidget>> abiertas;
    for (QWidget* w : Pantallas::cargadas())
        abiertas << w;
    for (const QPointer<QWidget>& w : abiertas)
        delete w.data();
    delete frmMenu::existente();
    procesarEventos();
    transaccionEnCurso = false;
}

}  // namespace fichas
