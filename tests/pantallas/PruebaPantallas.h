#pragma once
// Principal de las pruebas de pantallas: la de QTEST_MAIN, con las pantallas de cada clave de
// tabla ya registradas como en el arranque del programa.
#include "app/Aplicacion.h"
#include "app/frmMenu.h"
#include "core/Pantallas.h"
#include "reports/modInformes.h"
#include "tests/comun/EntornoPrueba.h"

#include <QApplication>
#include <QMdiSubWindow>
#include <QPointer>
#include <QtTest>

// Cada caso empieza sin pantallas (salvo la principal) ni informe en curso, también tras uno
// que falla a medias. Se guardan punteros vigilados: borrar una puede llevarse otra.
inline void cerrarPantallas()
{
    QList<QPointer<QWidget>> abiertas;
    for (QWidget* w : Pantallas::cargadas())
        if (w != frmMenu::existente())
            abiertas << (qobject_cast<QMdiSubWindow*>(w->parentWidget()) ? w->parentWidget() : w);
    for (const QPointer<QWidget>& w : abiertas)
        delete w.data();
    procesarEventos();
    modInformes::cerrar();
}

#define PRUEBA_PANTALLAS(Clase)                      \
    int main(int argc, char* argv[])                 \
    {                                                \
        QApplication app(argc, argv);                \
        app.setAttribute(Qt::AA_Use96Dpi, true);     \
        Aplicacion::registrarPantallas();            \
        Clase prueba;                                \
        QTEST_SET_MAIN_SOURCE_PATH                   \
        return QTest::qExec(&prueba, argc, argv);    \
    }
