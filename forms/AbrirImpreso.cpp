#include "forms/AbrirImpreso.h"

#include "core/modFunciones.h"
#include "forms/DatosImpreso.h"
#include "forms/TablaImpresos.h"
#include "forms/frmDatosImpreso_A1.h"
#include "forms/frmDatosImpreso_B2.h"
#include "reports/frmVisorCrystal.h"
#include "reports/modInformes.h"

#include <QApplication>
#include <QFile>
#include <functional>

namespace {

using Fabrica = std::function<DatosImpreso*()>;

// Pantallas de impresos ya hechas.
const QHash<QString, Fabrica>& fabricas()
{
    static const QHash<QString, Fabrica> f = {
        {QStringLiteral("frmDatosImpreso_A1"), [] { return new frmDatosImpreso_A1; }},
        {QStringLiteral("frmDatosImpreso_B2"), [] { return new frmDatosImpreso_B2; }},
    };
    return f;
}

// Columna del nombre en cada lista del comunicado de dirección y coordinador.
QString columnaListaBlanco(const QString& tabla)
{
    if (tabla == QLatin1String("DirectoresObra_Tmp"))
        return QStringLiteral("DIROBRANOM");
    if (tabla == QLatin1String("DirectoresDeEjecucion_Tmp"))
        return QStringLiteral("DIREJECNOM");
    return QStringLiteral("COORSSNOM");
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

bool generarImpresoEnBlanco(int codigo)
{
    const DefinicionImpreso* d = nullptr;
    const VarianteImpreso* v = TablaImpresos::porCodigoBlanco(codigo, &d);
    // Sólo los impresos cuyo diseño ya existe.
    if (!v || v->informe.isEmpty() || !QFile::exists(QStringLiteral(":/informes/") + v->informe + QStringLiteral(".xml")))
        return false;
    bool enTransaccion = false;
    const bool ok = guardia(QStringLiteral("frmBuscar"), QStringLiteral("generarImpresoEnBlanco"), [&] {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        Pantallas::descargar<frmVisorCrystal>();
        {
            Transaccion t;
            enTransaccion = true;
            Pantallas::descargar<frmVisorCrystal>();
            ejecutar(QStringLiteral("DELETE FROM \"%1\"").arg(d->tablaTemporal));
            // Listas del comunicado: dos filas en blanco en cada una, las líneas vacías del impreso.
            for (const QString& extra : d->temporalesExtra) {
                ejecutar(QStringLiteral("DELETE FROM \"%1\"").arg(extra));
                for (int i = 0; i < 2; ++i)
                    insertar(extra, {{columnaListaBlanco(extra), QStringLiteral("")}});
            }
            modInformes::Informe = modInformes::crearInforme(v->informe);
            t.confirmar();
            enTransaccion = false;
        }
        modInformes::conectar();
        modInformes::iniciarInforme_Impreso(v->codigo);
        frmVisorCrystal::mostrarInforme(v->tituloBlanco);
    });
    if (!ok && enTransaccion)
        Mensajes::aviso(DatosImpreso::AVISO_FALLO);
    if (!transaccionEnCurso && BaseDatos::estaAbierta())
        BaseDatos::cerrar();
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
    return ok;
}
