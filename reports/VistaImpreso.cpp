#include "reports/VistaImpreso.h"

#include "core/BaseDatos.h"
#include "core/CicloPantalla.h"
#include "core/Guardia.h"
#include "core/Mensajes.h"
#include "reports/TablaImpresos.h"
#include "reports/TablasTemporales.h"
#include "reports/frmVisorCrystal.h"
#include "reports/modInformes.h"

#include <QFile>
#include <QHash>

namespace {

// Columna del nombre en cada lista del comunicado de dirección y coordinador.
QString columnaListaBlanco(const QString& tabla)
{
    if (tabla == QLatin1String("DirectoresObra_Tmp"))
        return QStringLiteral("DIROBRANOM");
    if (tabla == QLatin1String("DirectoresDeEjecucion_Tmp"))
        return QStringLiteral("DIREJECNOM");
    return QStringLiteral("COORSSNOM");
}

QHash<int, std::function<bool()>>& impresosEnBlancoRegistrados()
{
    static QHash<int, std::function<bool()>> r;
    return r;
}

}  // namespace

void registrarImpresoEnBlanco(int codigo, std::function<bool()> generar)
{
    impresosEnBlancoRegistrados().insert(codigo, std::move(generar));
}

void mostrarImpreso(const VarianteImpreso& v, const QString& tituloVisor)
{
    QString titulo = tituloVisor;
    if (titulo.isEmpty())
        if (const frmVisorCrystal* anterior = Pantallas::cargada<frmVisorCrystal>())
            titulo = anterior->windowTitle();
    Pantallas::descargar<frmVisorCrystal>();
    modInformes::Informe = modInformes::crearInforme(v.informe);
    modInformes::conectar();
    modInformes::iniciarInforme_Impreso(v.codigo);
    frmVisorCrystal::mostrarInforme(titulo);
}

bool generarImpresoEnBlanco(int codigo)
{
    if (const auto it = impresosEnBlancoRegistrados().constFind(codigo); it != impresosEnBlancoRegistrados().cend())
        return (*it)();
    const DefinicionImpreso* d = nullptr;
    const VarianteImpreso* v = TablaImpresos::porCodigoBlanco(codigo, &d);
    // Sólo los impresos cuyo diseño ya existe.
    if (!v || v->informe.isEmpty() || !QFile::exists(QStringLiteral(":/informes/") + v->informe + QStringLiteral(".xml")))
        return false;
    return mostrarImpresoEnBlanco(*d, *v, v->tituloBlanco);
}

bool mostrarImpresoEnBlanco(const DefinicionImpreso& d, const VarianteImpreso& v, const QString& tituloVisor)
{
    bool enTransaccion = false;
    const bool ok = guardia(QStringLiteral("frmBuscar"), QStringLiteral("generarImpresoEnBlanco"), [&] {
        CursorEspera espera;
        {
            Transaccion t;
            enTransaccion = true;
            TablasTemporales::vaciar(d);
            // Listas del comunicado: dos filas en blanco en cada una, las líneas vacías del impreso.
            for (const QString& extra : d.temporalesExtra)
                for (int i = 0; i < 2; ++i)
                    TablasTemporales::insertar(extra, {{columnaListaBlanco(extra), QStringLiteral("")}});
            t.confirmar();
            enTransaccion = false;
        }
        mostrarImpreso(v, tituloVisor);
    });
    if (!ok && enTransaccion)
        Mensajes::aviso(TablaImpresos::AVISO_FALLO);
    return ok;
}
