#include "search/AbrirBusqueda.h"

#include "core/Pantallas.h"
#include "forms/TablaImpresos.h"
#include "search/frmBuscar.h"

bool busquedaDisponible() { return true; }

// Las entradas de impresos se habilitan cuando existen sus pantallas de datos.
bool impresoDisponible(const QString& entrada) { return pantallaImpresoExiste(entrada); }

void abrirBusqueda(const QString& tabla, const QString& tipoImpreso, const QString& titulo)
{
    // La lista se abre siempre de nuevo: la anterior se descarga con lo que mostrara.
    if (!Pantallas::descargar<frmBuscar>())
        return;
    auto* f = new frmBuscar;
    f->Tabla = tabla;
    f->TipoImpreso = tipoImpreso;
    f->setWindowTitle(titulo);
    f->Form_Load();
    Pantallas::mostrar(f);
}

void marcarActualizarLista()
{
    if (frmBuscar* f = Pantallas::cargada<frmBuscar>())
        f->ActualizarLista = true;
}
