#include "search/AperturaFichas.h"

#include "core/Pantallas.h"
#include "forms/AbrirImpreso.h"
#include "masterdata/frmProyecto.h"
#include "masterdata/frmAddModCosteReferencia.h"
#include "masterdata/frmAparejador.h"
#include "masterdata/frmArquitecto.h"
#include "masterdata/frmCliente.h"
#include "masterdata/frmContratista.h"

namespace {

// Títulos de "ALTA" y "MODIFICAR" por clave de tabla; un título vacío es que no hay ficha que abrir.
struct Titulos {
    QString alta;
    QString modificar;
};

template <class T>
bool abrir(const PeticionFicha& p, const Titulos& titulos, int tipoFijo = -1)
{
    const bool alta = p.operacion == QLatin1String("ALTA");
    const QString titulo = alta ? titulos.alta : titulos.modificar;
    if (titulo.isEmpty())
        return true;  // la familia existe, pero esa operación no abre nada
    // La que hubiera abierta se descarga antes (pasa por su pregunta de salida).
    if (!Pantallas::descargar<T>())
        return true;
    auto* f = new T;
    if (!alta)
        f->Codigo = p.codigo;
    f->operacion = p.operacion;
    f->setTag(p.operacion);
    f->setWindowTitle(titulo);
    if (alta)
        f->ClaveRetorno = p.claveRetorno;
    if constexpr (std::is_same_v<T, frmAddModCosteReferencia>)
        f->CodigoCoste = p.codigoTexto;
    f->Form_Load();
    if constexpr (std::is_base_of_v<FichaOtros, T>)
        if (tipoFijo >= 0)
            f->fijarTipo(tipoFijo, true);
    Pantallas::mostrar(f);
    return true;
}

}  // namespace

bool abrirFicha(const PeticionFicha& p)
{
    const QString& t = p.tabla;
    const QString nuevoArq = QStringLiteral("Nuevo arquitecto");
    if (t == QLatin1String("ARQUITECTOS"))
        return abrir<frmArquitecto>(p, {nuevoArq, QStringLiteral("Modificar arquitecto")});
    if (t == QLatin1String("ARQUITECTOS_AUTORES") || t == QLatin1String("COORDINADOR_SS"))
        return abrir<frmArquitecto>(p, {nuevoArq, {}});
    if (t == QLatin1String("ARQUITECTOS_SIMPLE"))
        return abrir<frmArquitecto>(p, {nuevoArq, {}}, 0);
    if (t == QLatin1String("ARQUITECTOS_SOCIEDAD"))
        return abrir<frmArquitecto>(p, {nuevoArq, {}}, 1);
    if (t == QLatin1String("APAREJADORES"))
        return abrir<frmAparejador>(p, {QStringLiteral("Nuevo arquitecto técnico"), QStringLiteral("Modificar arquitecto técnico")});
    if (t == QLatin1String("CONTRATISTAS"))
        return abrir<frmContratista>(p, {QStringLiteral("Nuevo contratista"), QStringLiteral("Modificar contratista")});
    if (t == QLatin1String("CLIENTES"))
        return abrir<frmCliente>(p, {QStringLiteral("Nuevo cliente"), QStringLiteral("Modificar cliente")});
    if (t == QLatin1String("COSTES"))
        return abrir<frmAddModCosteReferencia>(p, {QStringLiteral("Nuevo coste"), {}});
    if (t == QLatin1String("PROYECTOS_A"))
        return abrirFichaProyecto(p);
    // Las tablas de impresos abren su pantalla de datos (false si aún no existe).
    return abrirImpreso(p);
}
