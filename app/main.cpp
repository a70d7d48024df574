#include "app/Aplicacion.h"

int main(int argc, char* argv[])
{
    return Aplicacion::ejecutar(argc, argv);
}
