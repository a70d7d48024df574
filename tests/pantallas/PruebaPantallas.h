#pragma once
// Principal de las pruebas de pantallas: la de QTEST_MAIN, con las pantallas de cada clave de
// tabla ya registradas como en el arranque del programa.
#include "app/Aplicacion.h"
#include "app/frmMenu.h"
#include "core/Pantallas.h"
#include "reports/modInformes.h"
#include "tests/comun/EntornoPrueba.h"
#include "tests/comun/ServidorPrueba.h"

#include <QApplication>
#include <QMdiSubWindow>
#include <QPointer>
#include <QTimer>
#include <QtTest>

#include <cstdio>
#include <functional>

// Lo que devuelve una prueba repetida contra el servidor cuando no lo hay (SKIP_RETURN_CODE).
constexpr int PRUEBA_SALTADA = 77;

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

// Un diálogo modal se contesta en cuanto aparece: mientras vive el vigía, la primera vez que se
// ve una ventana con ese nombre se le pasa a `contestar`.
class VigiaDialogo : public QTimer {
public:
    VigiaDialogo(const QString& nombre, std::function<void(QWidget*)> contestar)
    {
        setInterval(10);
        connect(this, &QTimer::timeout, this, [this, nombre, contestar] {
            for (QWidget* w : QApplication::topLevelWidgets())
                if (w->objectName() == nombre && w->isVisible()) {
                    stop();
                    contestar(w);
                    return;
                }
        });
        start();
    }
};

#define PRUEBA_PANTALLAS(Clase)                      \
    int main(int argc, char* argv[])                 \
    {                                                \
        QApplication app(argc, argv);                \
        app.setAttribute(Qt::AA_Use96Dpi, true);     \
        Aplicacion::registrarPantallas();            \
        if (ServidorPrueba::pedido() && !ServidorPrueba::motivoSinServidor().isEmpty()) { \
            std::puts(qPrintable(ServidorPrueba::motivoSinServidor())); \
            return PRUEBA_SALTADA;                   \
        }                                            \
        Clase prueba;                                \
        QTEST_SET_MAIN_SOURCE_PATH                   \
        return QTest::qExec(&prueba, argc, argv);    \
    }
