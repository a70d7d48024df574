#include "forms/AbrirImpreso.h"

#include "core/Fichas.h"
#include "forms/DatosImpreso.h"
#include "forms/frmDatosImpreso_A1.h"
#include "forms/frmDatosImpreso_B2.h"
#include "reports/TablaImpresos.h"
// Certificados
#include "forms/frmDatosImpreso_Certificado.h"
#include "forms/frmDatosImpreso_CertificadoFinObra.h"
#include "forms/frmSeleccionarTipoCertificado.h"
#include "reports/VistaImpreso.h"

#include <QHash>
#include <functional>

namespace {

using Fabrica = std::function<DatosImpreso*()>;

// Pantallas de impresos ya hechas.
const QHash<QString, Fabrica>& fabricas()
{
    static const QHash<QString, Fabrica> f = {
        {QStringLiteral("frmDatosImpreso_A1"), [] { return new frmDatosImpreso_A1; }},
        {QStringLiteral("frmDatosImpreso_B2"), [] { return new frmDatosImpreso_B2; }},
        // Certificados
        {QStringLiteral("frmDatosImpreso_Certificado"), [] { return new frmDatosImpreso_Certificado; }},
        {QStringLiteral("frmDatosImpreso_CertificadoFinObra"), [] { return new frmDatosImpreso_CertificadoFinObra; }},
    };
    return f;
}

bool abrirImpreso(const PeticionFicha& p)
{
    const VarianteImpreso* v = nullptr;
    const DefinicionImpreso* d = TablaImpresos::porLista(p.tabla, p.tipoImpreso, &v);
    if (!d || !fabricas().contains(d->pantalla))
        return false;
    const bool alta = p.operacion == QLatin1String("ALTA");
    if (!alta && p.operacion != QLatin1String("MODIFICAR"))
        return false;
    // Se descarga antes la que hubiera abierta (con su pregunta de salida).
    for (QWidget* w : Pantallas::cargadas())
        if (w->objectName() == d->pantalla && !Pantallas::descargar(w))
            return true;
    DatosImpreso* f = crearPantallaImpreso(d->pantalla);
    f->Operacion = p.operacion;
    f->setTag(p.operacion);
    if (!alta)
        f->Clave = p.codigo;
    f->setWindowTitle(alta ? v->tituloAlta : v->tituloModificar);
    f->Form_Load();
    Pantallas::mostrar(f);
    return true;
}

}  // namespace

DatosImpreso* crearPantallaImpreso(const QString& pantalla)
{
    const auto it = fabricas().find(pantalla);
    return it == fabricas().end() ? nullptr : (*it)();
}

bool pantallaImpresoExiste(const QString& entradaMenu)
{
    const DefinicionImpreso* d = nullptr;
    return TablaImpresos::porEntradaMenu(entradaMenu, &d) && fabricas().contains(d->pantalla);
}

void registrarImpresos()
{
    // Cada lista de impresos abre la pantalla de su tipo; las que no existen aún no abren nada.
    for (const DefinicionImpreso& d : TablaImpresos::todas())
        Fichas::registrar(d.tablaBusqueda, abrirImpreso);
    Fichas::registrar(QStringLiteral("DATOSA4A5"), abrirImpreso);

    // Certificados: el impreso en blanco del fin de obra pregunta antes cuál de sus cuatro diseños.
    if (const DefinicionImpreso* cfo = TablaImpresos::porPantalla(QStringLiteral("frmDatosImpreso_CertificadoFinObra")))
        registrarImpresoEnBlanco(cfo->variantes.constFirst().codigoBlanco, [] {
            return frmSeleccionarTipoCertificado::elegir(frmSeleccionarTipoCertificado::RETORNO_EN_BLANCO);
        });
}
