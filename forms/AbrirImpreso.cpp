#include "forms/AbrirImpreso.h"

#include "core/Fichas.h"
#include "forms/DatosImpreso.h"
#include "forms/frmDatosImpreso_A1.h"
#include "forms/frmDatosImpreso_B2.h"
// Impresos A2 y A3.
#include "forms/frmDatosImpreso_A2.h"
#include "forms/frmDatosImpreso_A3.h"
// Facturas y certificados de retenciones.
#include "forms/frmDatosImpreso_B1_B3_B4.h"
#include "forms/frmDatosImpreso_B4.h"
#include "forms/frmDatosImpreso_B4_Propio.h"
#include "reports/TablaImpresos.h"
// Nombramientos, hoja urbanística y comunicado de dirección.
#include "forms/frmDatosImpreso_A4.h"
#include "forms/frmDatosImpreso_A5.h"
#include "forms/frmDatosImpreso_CSS.h"
#include "forms/frmDatosImpreso_ComunicadoDireccionCoordinador.h"
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
        // Impresos A2 y A3.
        {QStringLiteral("frmDatosImpreso_A2"), [] { return new frmDatosImpreso_A2; }},
        {QStringLiteral("frmDatosImpreso_A3"), [] { return new frmDatosImpreso_A3; }},
        // Facturas y certificados de retenciones.
        {QStringLiteral("frmDatosImpreso_B1_B3_B4"), [] { return new frmDatosImpreso_B1_B3_B4; }},
        {QStringLiteral("frmDatosImpreso_B4"), [] { return new frmDatosImpreso_B4; }},
        {QStringLiteral("frmDatosImpreso_B4_Propio"), [] { return new frmDatosImpreso_B4_Propio; }},
        // Nombramientos, hoja urbanística y comunicado de dirección.
        {QStringLiteral("frmDatosImpreso_A4"), [] { return new frmDatosImpreso_A4; }},
        {QStringLiteral("frmDatosImpreso_CSS"), [] { return new frmDatosImpreso_CSS; }},
        {QStringLiteral("frmDatosImpreso_A5"), [] { return new frmDatosImpreso_A5; }},
        {QStringLiteral("frmDatosImpreso_ComunicadoDireccionCoordinador"), [] { return new frmDatosImpreso_ComunicadoDireccionCoordinador; }},
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
    f->TipoImpreso = v->tipoImpreso;
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
