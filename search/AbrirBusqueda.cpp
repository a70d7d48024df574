#include "search/AbrirBusqueda.h"

#include "core/Pantallas.h"
#include "reports/TablaImpresos.h"
#include "search/frmBuscar.h"

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

bool abrirListaMaestra(const QString& tabla)
{
    static const struct {
        const char* tabla;
        const char* titulo;
    } listas[] = {
        {"PROYECTOS_A", "Gestión de proyectos"},
        {"ARQUITECTOS", "Gestión de arquitectos"},
        {"APAREJADORES", "Gestión de arquitectos técnicos"},
        {"CONTRATISTAS", "Gestión de contratistas"},
        {"CLIENTES", "Gestión de clientes"},
    };
    for (const auto& l : listas)
        if (tabla == QLatin1String(l.tabla)) {
            abrirBusqueda(tabla, {}, QString::fromUtf8(l.titulo));
            return true;
        }
    return false;
}

bool abrirListaImpreso(const QString& entradaMenu)
{
    const DefinicionImpreso* d = nullptr;
    const VarianteImpreso* v = TablaImpresos::porEntradaMenu(entradaMenu, &d);
    if (!v || v->tituloLista.isEmpty())
        return false;
    abrirBusqueda(d->tablaBusqueda, v->tipoImpreso, v->tituloLista);
    return true;
}

void marcarActualizarLista()
{
    if (frmBuscar* f = Pantallas::cargada<frmBuscar>())
        f->ActualizarLista = true;
}
