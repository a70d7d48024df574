#include "core/Programa.h"

#include "core/BaseDatos.h"

#include <QCoreApplication>

namespace Programa {

namespace {
bool finPedido = false;
bool bucle = false;
QString linea;
}  // namespace

void terminar()
{
    finPedido = true;
    BaseDatos::cerrar();
    if (bucle)
        QCoreApplication::exit(0);
}

bool terminado() { return finPedido; }

void bucleEnMarcha(bool enMarcha) { bucle = enMarcha; }

void reiniciar()
{
    finPedido = false;
    linea.clear();
}

void fijarLineaMandatos(const QString& l) { linea = l; }

QString lineaMandatos() { return linea; }

}  // namespace Programa
