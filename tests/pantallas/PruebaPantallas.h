#pragma once
// Principal de las pruebas de pantallas: la de QTEST_MAIN, con las pantallas de cada clave de
// tabla ya registradas como en el arranque del programa.
#include "app/Aplicacion.h"

#include <QApplication>
#include <QtTest>

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
