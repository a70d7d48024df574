#include "contracts/RegistroContratos.h"

#include "core/BaseDatos.h"
#include "core/Documentos.h"

namespace RegistroContratos {

const QList<Tipo>& tipos()
{
    static const QList<Tipo> t = {
        {QStringLiteral("NO"), QStringLiteral("Nota de encargo"), QStringLiteral("[Plantilla] Nota de encargo"), QStringLiteral("1")},
        {QStringLiteral("TR"), QStringLiteral("Tiempo retribuido"), QStringLiteral("[Plantilla] Tiempo retribuido"), QStringLiteral("2")},
        {QStringLiteral("TE"), QStringLiteral("Trabajos de edificación"), QStringLiteral("[Plantilla] Trabajos de edificación"),
         QStringLiteral("3")},
        {QStringLiteral("TU"), QStringLiteral("Trabajos de urbanismo"), QStringLiteral("[Plantilla] Trabajos de urbanismo"),
         QStringLiteral("4")},
        {QStringLiteral("TS"), QStringLiteral("Trabajos especiales"), QStringLiteral("[Plantilla] Trabajos especiales"), QStringLiteral("5")},
    };
    return t;
}

QString tipoDeClave(const QString& clave)
{
    for (const Tipo& t : tipos())
        if (t.clave == clave)
            return t.documento;
    return clave == QLatin1String("CE") ? QStringLiteral("6") : QString();
}

const Tipo* tipoDeDocumento(const QString& documento)
{
    for (const Tipo& t : tipos())
        if (t.documento == documento)
            return &t;
    return nullptr;
}

namespace {
Contrato deFila(const Consulta& c)
{
    Contrato k;
    k.clave = c.valor(QStringLiteral("Clave")).toLongLong();
    k.nombre = c.texto(QStringLiteral("Nombre"));
    k.ruta = c.texto(QStringLiteral("RutaDocumento"));
    k.tipo = c.texto(QStringLiteral("TipoDocumento"));
    k.plantilla = c.texto(QStringLiteral("PlantillaEmpleada"));
    k.esPlantilla = c.valor(QStringLiteral("EsPlantilla")).toInt() != 0;
    return k;
}
}  // namespace

bool leer(qint64 clave, Contrato& contrato)
{
    UsoConexion uso;
    Consulta c(QStringLiteral("SELECT * FROM Contratos WHERE Clave = ?"), {clave});
    if (!c.siguiente())
        return false;
    contrato = deFila(c);
    return true;
}

QList<Contrato> deTipo(const QString& tipo)
{
    QList<Contrato> l;
    UsoConexion uso;
    Consulta c(QStringLiteral("SELECT * FROM Contratos WHERE TipoDocumento = ? ORDER BY Clave"), {tipo});
    while (c.siguiente())
        l << deFila(c);
    return l;
}

bool abrirDocumento(const QString& ruta, const QString& formulario, const QString& procedimiento)
{
    return abrirConSuPrograma(
        ruta,
        {.sinPrograma = QStringLiteral("No se ha podido mostrar el documento. Por favor, asegúrese de que tiene instalado un visor de "
                                       "documentos .DOC (por ejemplo, Microsoft Word)"),
         .comentarioSinPrograma = QStringLiteral("[Error 31]: No se tiene instalado un visor de documentos .DOC (Microsoft Word)"),
         .noEncontrado = QStringLiteral("Documento no encontrado. Ha podido existir un error durante su generación") + QStringLiteral("\n")
                         + QStringLiteral("Por favor, genere otra vez el documento e inténtelo de nuevo"),
         .comentarioNoEncontrado = QStringLiteral("[Error 2]: Documento no encontrado. Ha podido existir un error durante su generación "
                                                  "o bien haberlo borrado")},
        formulario, procedimiento);
}

}  // namespace RegistroContratos
