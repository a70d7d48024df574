#include "search/DevolucionSelector.h"

#include "core/Formato.h"
#include "core/Listas.h"
#include "core/modFunciones.h"
#include "masterdata/FichaRegistro.h"
#include "masterdata/frmConfiguracion.h"
#include "masterdata/frmProyecto.h"
#include "search/frmBuscarSeleccionar.h"

#include <QTreeWidget>

namespace {

const QString MASCARA_VACIA = QStringLiteral("__/__/____");

// El selector guarda la clave del registro; la de una fila de lista es "K" y la clave.
qint64 codigoDe(const FilaResultado& f) { return f.clave.toLongLong(); }
QString claveFilaDe(const FilaResultado& f) { return QStringLiteral("K") + f.clave; }

bool esFamiliaArquitectos(const QString& tabla)
{
    return tabla == QLatin1String("ARQUITECTOS") || tabla == QLatin1String("ARQUITECTOS_SIMPLE")
           || tabla == QLatin1String("ARQUITECTOS_SOCIEDAD") || tabla == QLatin1String("ARQUITECTOS_AUTORES")
           || tabla == QLatin1String("COORDINADOR_SS") || tabla == QLatin1String("APAREJADORES");
}

// Nombre completo de una fila: nombre y apellidos van en las columnas 1 y 2 en las familias de
// colegiados, y en la 0 y la 1 en clientes y contratistas.
QString nombreCompleto(const QString& tabla, const FilaResultado& f)
{
    const int n = esFamiliaArquitectos(tabla) ? 1 : 0;
    return (f.textos.value(n) + QLatin1Char(' ') + f.textos.value(n + 1)).trimmed();
}

FilaMarcada marcada(const QString& tabla, const FilaResultado& f)
{
    return {claveFilaDe(f), esFamiliaArquitectos(tabla) ? f.textos.value(0) : QString(), nombreCompleto(tabla, f)};
}

QList<FilaMarcada> marcadas(frmBuscarSeleccionar* s)
{
    QList<FilaMarcada> r;
    for (const FilaResultado& f : s->filasResultado())
        if (f.marcada)
            r << marcada(s->Tabla, f);
    return r;
}

// Proyecto elegido para un impreso: código y trabajo, y en su caso la fecha de visado o de fin de obra.
void proyectoAImpreso(const QString& pantalla, const FilaResultado& f, const QString& campoFecha = {}, int columnaFecha = 0,
                      bool vaciaComoMascara = false)
{
    QWidget* r = Devolucion::receptor(pantalla);
    if (!r)
        return;
    Devolucion::escribir(r, QStringLiteral("txt_Proyecto"), f.textos.value(1));
    if (!campoFecha.isEmpty()) {
        const QString fecha = f.textos.value(columnaFecha).trimmed();
        if (!fecha.isEmpty())
            Devolucion::escribir(r, campoFecha, fecha);
        else if (vaciaComoMascara)
            Devolucion::escribir(r, campoFecha, MASCARA_VACIA);
    }
    Devolucion::escribir(r, QStringLiteral("txt_CodProyecto"), QString::number(codigoDe(f)));
}

// Una persona a una de las listas del comunicado de dirección; rechazada si ya está.
bool personaALista(const QString& lista, const FilaResultado& f, const QString& nombre, const QString& tipo, const QString& rechazo)
{
    QWidget* r = Devolucion::receptor(QStringLiteral("frmDatosImpreso_ComunicadoDireccionCoordinador"));
    if (!r)
        return true;
    auto* lvw = r->findChild<QTreeWidget*>(lista);
    if (!lvw)
        return true;
    if (estaEnListview(lvw, claveFilaDe(f))) {
        Mensajes::aviso(rechazo);
        return false;
    }
    QStringList columnas{nombre};
    if (!tipo.isEmpty())
        columnas << tipo;
    Devolucion::agregarFila(r, lista, claveFilaDe(f), QStringList{f.clave} + columnas);
    return true;
}

void costeAImpreso(int posicion, const FilaResultado& f)
{
    QWidget* r = Devolucion::receptor(QStringLiteral("frmDatosImpreso_A3"));
    if (!r || posicion < 1 || posicion > 6)
        return;
    const int n = posicion - 1;
    Devolucion::escribir(r, QStringLiteral("txt_Usos_%1").arg(n), f.textos.value(2));
    Devolucion::escribir(r, QStringLiteral("txt_Ct_%1").arg(n), Formato::formatear(Formato::aNumero(f.textos.value(3)), QStringLiteral("#,##0.00")));
    Devolucion::escribir(r, QStringLiteral("txt_Cc_%1").arg(n), Formato::formatear(Formato::aNumero(f.textos.value(4)), QStringLiteral("#,##0.00")));
    // Un Cr que el usuario ya ha escrito se queda.
    if (Devolucion::leer(r, QStringLiteral("txt_Cr_%1").arg(n)).trimmed().isEmpty())
        Devolucion::escribir(r, QStringLiteral("txt_Cr_%1").arg(n), Formato::formatear(1, QStringLiteral("#,##0.0000")));
}

}  // namespace

bool devolverSeleccionA(frmBuscarSeleccionar* s)
{
    const QString llamada = s->tag();
    const QString& tabla = s->Tabla;
    const FilaResultado f = s->filaElegida();
    const QString nombre = nombreCompleto(tabla, f);

    if (llamada == QLatin1String("SELECCIONAR_EN_PROYECTOS")) {
        frmProyecto* p = Pantallas::cargada<frmProyecto>();
        if (!p)
            return true;
        if (tabla == QLatin1String("ARQUITECTOS"))
            return p->recibirArquitecto(codigoDe(f), nombre, f.textos.value(0));
        if (tabla == QLatin1String("ARQUITECTOS_AUTORES"))
            p->recibirAutores(marcadas(s));
        else if (tabla == QLatin1String("CLIENTES"))
            p->recibirCliente(codigoDe(f), f.textos.value(2), nombre);
        else if (tabla == QLatin1String("APAREJADORES"))
            p->recibirAparejadores(marcadas(s));
        else if (tabla == QLatin1String("CONTRATISTAS"))
            p->recibirConstructores(marcadas(s));
        else if (tabla == QLatin1String("COORDINADOR_SS"))
            p->recibirCoordinador(codigoDe(f), nombre);
        return true;
    }
    if (llamada == QLatin1String("SELECCIONAR_EN_CONFIGURACION")) {
        frmConfiguracion* c = Pantallas::cargada<frmConfiguracion>();
        if (!c)
            return true;
        if (tabla == QLatin1String("ARQUITECTOS_SIMPLE"))
            c->recibirArquitecto(s->Posicion, codigoDe(f), nombre, f.textos.value(0));
        else if (tabla == QLatin1String("ARQUITECTOS_SOCIEDAD"))
            c->recibirSociedad(codigoDe(f), nombre, f.textos.value(0));
        return true;
    }

    // Impresos: el proyecto, y las personas de cada uno.
    static const QHash<QString, QString> proyectoDe = {
        {QStringLiteral("SELECCIONAR_EN_IMPRESO_A1"), QStringLiteral("frmDatosImpreso_A1")},
        {QStringLiteral("SELECCIONAR_EN_IMPRESO_A2"), QStringLiteral("frmDatosImpreso_A2")},
        {QStringLiteral("SELECCIONAR_EN_IMPRESO_A5"), QStringLiteral("frmDatosImpreso_A5")},
        {QStringLiteral("SELECCIONAR_EN_IMPRESO_B2"), QStringLiteral("frmDatosImpreso_B2")},
        {QStringLiteral("SELECCIONAR_EN_IMPRESO_A3"), QStringLiteral("frmDatosImpreso_A3")},
        {QStringLiteral("SELECCIONAR_EN_IMPRESO_B1_B3_B4"), QStringLiteral("frmDatosImpreso_B1_B3_B4")},
        {QStringLiteral("SELECCIONAR_EN_IMPRESO_CDC"), QStringLiteral("frmDatosImpreso_ComunicadoDireccionCoordinador")},
    };
    const bool esProyecto = tabla == QLatin1String("PROYECTOS_A");
    if (esProyecto && proyectoDe.contains(llamada)) {
        proyectoAImpreso(proyectoDe.value(llamada), f);
        return true;
    }
    if (llamada == QLatin1String("SELECCIONAR_EN_IMPRESO_A4")) {
        proyectoAImpreso(QStringLiteral("frmDatosImpreso_A4"), f, QStringLiteral("msk_FechaVisado"), 5, true);
        return true;
    }
    if (llamada == QLatin1String("SELECCIONAR_EN_IMPRESO_CSS")) {
        proyectoAImpreso(QStringLiteral("frmDatosImpreso_CSS"), f, QStringLiteral("msk_FechaVisado"), 5, true);
        return true;
    }
    if (llamada == QLatin1String("SELECCIONAR_EN_IMPRESO_CERTIFICADO")) {
        // Sólo si hay fecha: una ya escrita se queda.
        proyectoAImpreso(QStringLiteral("frmDatosImpreso_CertificadoFinObra"), f, QStringLiteral("msk_FechaFinObra"), 6, false);
        return true;
    }
    if (llamada == QLatin1String("SELECCIONAR_EN_IMPRESO_A3") && tabla == QLatin1String("COSTES")) {
        costeAImpreso(s->Posicion, f);
        return true;
    }
    auto pareja = [&](const QString& pantalla, const QString& codigo, const QString& texto) {
        if (QWidget* r = Devolucion::receptor(pantalla)) {
            Devolucion::escribir(r, texto, nombre);
            Devolucion::escribir(r, codigo, QString::number(codigoDe(f)));
        }
        return true;
    };
    if (llamada == QLatin1String("SELECCIONAR_EN_IMPRESO_B1_B3_B4") && tabla == QLatin1String("ARQUITECTOS"))
        return pareja(QStringLiteral("frmDatosImpreso_B1_B3_B4"), QStringLiteral("txt_CodEmisor"), QStringLiteral("txt_Emisor"));
    if (llamada == QLatin1String("SELECCIONAR_EN_IMPRESO_B4") && tabla == QLatin1String("ARQUITECTOS"))
        return pareja(QStringLiteral("frmDatosImpreso_B4"), QStringLiteral("txt_CodPerceptor"), QStringLiteral("txt_Perceptor"));
    if (llamada == QLatin1String("SELECCIONAR_EN_IMPRESO_B4") && tabla == QLatin1String("CLIENTES"))
        return pareja(QStringLiteral("frmDatosImpreso_B4"), QStringLiteral("txt_CodPagador"), QStringLiteral("txt_Pagador"));
    if (llamada == QLatin1String("SELECCIONAR_EN_IMPRESO_B4_PROPIO")) {
        if (s->ClaveRetorno == QLatin1String("FRMDATOSIMPRESOB4_PROPIO_PAGADOR"))
            return pareja(QStringLiteral("frmDatosImpreso_B4_Propio"), QStringLiteral("txt_CodPagador"), QStringLiteral("txt_Pagador"));
        return pareja(QStringLiteral("frmDatosImpreso_B4_Propio"), QStringLiteral("txt_CodPerceptor"), QStringLiteral("txt_Perceptor"));
    }
    if (llamada == QLatin1String("SELECCIONAR_EN_IMPRESO_CERTIFICADO_ARQ"))
        return pareja(QStringLiteral("frmDatosImpreso_Certificado"), QStringLiteral("txt_CodArq"), QStringLiteral("txt_NomArq"));
    if (llamada == QLatin1String("SELECCIONAR_EN_IMPRESO_CDC")) {
        const QString& retorno = s->ClaveRetorno;
        if (tabla == QLatin1String("ARQUITECTOS") && retorno == QLatin1String("FRMDATOSIMPRESOCDC_DIRECTOROBRA"))
            return personaALista(QStringLiteral("lvw_DirectorObra"), f, nombre, {},
                                 QStringLiteral("El arquitecto seleccionado ya se encuentra incluido en la lista de directores de Obra del impreso"));
        if (tabla == QLatin1String("ARQUITECTOS") && retorno == QLatin1String("FRMDATOSIMPRESOCDC_COORDINADOR"))
            return personaALista(QStringLiteral("lvw_CoordinadorSS"), f, nombre, QStringLiteral("AR"),
                                 QStringLiteral("El arquitecto seleccionado ya se encuentra incluido en la lista de coordinadores de Seguridad y Salud de obra del impreso"));
        if (tabla == QLatin1String("APAREJADORES") && retorno == QLatin1String("FRMDATOSIMPRESOCDC_DIRECTOREJECUCIONOBRA"))
            return personaALista(QStringLiteral("lvw_DirectorEjecucion"), f, nombre, {},
                                 QStringLiteral("El arquitecto técnico seleccionado ya se encuentra incluido en la lista de directores de ejecución de la Obra del impreso"));
        if (tabla == QLatin1String("APAREJADORES") && retorno == QLatin1String("FRMDATOSIMPRESOCDC_COORDINADOR"))
            return personaALista(QStringLiteral("lvw_CoordinadorSS"), f, nombre, QStringLiteral("AT"),
                                 QStringLiteral("El arquitecto técnico seleccionado ya se encuentra incluido en la lista de coordinadores de Seguridad y Salud del impreso"));
    }
    return true;
}
