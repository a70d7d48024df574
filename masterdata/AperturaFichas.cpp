#include "masterdata/AperturaFichas.h"

#include "core/Fichas.h"
#include "core/Pantallas.h"
#include "masterdata/frmAddModCosteReferencia.h"
#include "masterdata/frmAparejador.h"
#include "masterdata/frmArquitecto.h"
#include "masterdata/frmCliente.h"
#include "masterdata/frmConfiguracion.h"
#include "masterdata/frmContratista.h"
#include "masterdata/frmProyecto.h"

namespace {

// Títulos de "ALTA" y "MODIFICAR"; un título vacío es que esa operación no abre nada.
struct Titulos {
    QString alta;
    QString modificar;
};

// Tipo fijo de la persona en las listas de sólo personas o sólo sociedades.
enum class TipoFijo { Ninguno, Persona, Sociedad };

template <class T>
bool abrir(const PeticionFicha& p, const Titulos& titulos, TipoFijo tipoFijo = TipoFijo::Ninguno)
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
    f->alGuardar = p.alGuardar;
    if constexpr (std::is_same_v<T, frmAddModCosteReferencia>)
        f->CodigoCoste = p.codigoTexto;
    f->Form_Load();
    if constexpr (std::is_base_of_v<FichaOtros, T>)
        if (tipoFijo != TipoFijo::Ninguno)
            f->fijarTipo(tipoFijo == TipoFijo::Persona ? 0 : 1, true);
    Pantallas::mostrar(f);
    return true;
}

}  // namespace

void registrarFichasMaestras()
{
    const Titulos arquitecto{QStringLiteral("Nuevo arquitecto"), QStringLiteral("Modificar arquitecto")};
    const Titulos sinModificar{arquitecto.alta, {}};
    Fichas::registrar(QStringLiteral("ARQUITECTOS"), [=](const PeticionFicha& p) { return abrir<frmArquitecto>(p, arquitecto); });
    for (const char* clave : {"ARQUITECTOS_AUTORES", "COORDINADOR_SS"})
        Fichas::registrar(QString::fromLatin1(clave), [=](const PeticionFicha& p) { return abrir<frmArquitecto>(p, sinModificar); });
    Fichas::registrar(QStringLiteral("ARQUITECTOS_SIMPLE"),
                      [=](const PeticionFicha& p) { return abrir<frmArquitecto>(p, sinModificar, TipoFijo::Persona); });
    Fichas::registrar(QStringLiteral("ARQUITECTOS_SOCIEDAD"),
                      [=](const PeticionFicha& p) { return abrir<frmArquitecto>(p, sinModificar, TipoFijo::Sociedad); });
    Fichas::registrar(QStringLiteral("APAREJADORES"), [](const PeticionFicha& p) {
        return abrir<frmAparejador>(p, {QStringLiteral("Nuevo arquitecto técnico"), QStringLiteral("Modificar arquitecto técnico")});
    });
    Fichas::registrar(QStringLiteral("CONTRATISTAS"), [](const PeticionFicha& p) {
        return abrir<frmContratista>(p, {QStringLiteral("Nuevo contratista"), QStringLiteral("Modificar contratista")});
    });
    Fichas::registrar(QStringLiteral("CLIENTES"), [](const PeticionFicha& p) {
        return abrir<frmCliente>(p, {QStringLiteral("Nuevo cliente"), QStringLiteral("Modificar cliente")});
    });
    Fichas::registrar(QStringLiteral("COSTES"), [](const PeticionFicha& p) {
        return abrir<frmAddModCosteReferencia>(p, {QStringLiteral("Nuevo coste"), {}});
    });
    Fichas::registrar(QStringLiteral("PROYECTOS_A"), [](const PeticionFicha& p) { return abrirFichaProyecto(p); });
    Fichas::registrar(Fichas::CONFIGURACION, [](const PeticionFicha& p) {
        frmConfiguracion::abrir(p.pestana);
        return true;
    });
}
