#include "forms/ImpresoNombramiento.h"

#include "core/Fechas.h"
#include "core/modFunciones.h"

#include <QLineEdit>

ImpresoNombramiento::ImpresoNombramiento(const QString& pantalla, QWidget* padre) : DatosImpreso(pantalla, padre) {}

void ImpresoNombramiento::enlazarNombramiento()
{
    enlazarControles();
    txt_LugarVisado = findChild<QLineEdit*>(QStringLiteral("txt_LugarVisado"));
    msk_FechaVisado = findChild<QLineEdit*>(QStringLiteral("msk_FechaVisado"));
    Q_ASSERT(txt_LugarVisado && msk_FechaVisado);
    prepararFechas({msk_FechaVisado});
}

void ImpresoNombramiento::aplicarLimites() { txt_LugarVisado->setMaxLength(20); }

void ImpresoNombramiento::cargarCampos(const Consulta& c)
{
    txt_CodProyecto->setText(c.texto(QStringLiteral("PRYCOD")));
    txt_Proyecto->setText(c.texto(QStringLiteral("PRYNOM")));
    txt_LugarVisado->setText(c.texto(QStringLiteral("LUGARVIS")));
    ponerFecha(msk_FechaVisado, c.valor(QStringLiteral("FECHAVIS")));
    txt_Lugar->setText(c.texto(columnaLugar()));
    txt_Fecha->setText(c.texto(columnaFecha()));
}

Campos ImpresoNombramiento::camposHistorico() const
{
    return {
        {QStringLiteral("PRYNOM"), recortado(txt_Proyecto)},
        {QStringLiteral("PRYCOD"), codigoProyecto()},
        {QStringLiteral("LUGARVIS"), recortado(txt_LugarVisado)},
        {QStringLiteral("FECHAVIS"), fechaHistorico(msk_FechaVisado)},
        {columnaLugar(), recortado(txt_Lugar)},
        {columnaFecha(), recortado(txt_Fecha)},
    };
}

bool ImpresoNombramiento::validarPropios() { return validarFecha(msk_FechaVisado); }

void ImpresoNombramiento::escribirFilasHijas(qint64)
{
    // La fecha de visado se escribe en el proyecto una sola vez: nunca sustituye a la que tenga.
    const QVariant fecha = fechaHistorico(msk_FechaVisado);
    if (!fecha.isNull())
        ejecutar(QStringLiteral("UPDATE Proyectos_A SET EXPFV = ? WHERE PryCod = ? AND EXPFV IS NULL"), {fecha, codigoProyecto()});
}

void ImpresoNombramiento::escribirTemporal()
{
    // Las columnas del impreso salen de la pantalla, no de la fila guardada.
    const Campos propias = {
        {QStringLiteral("LUGARVIS"), recortado(txt_LugarVisado)},
        {QStringLiteral("FECHAVIS"), fechaTemporal(msk_FechaVisado)},
        {QStringLiteral("LUGAR"), recortado(txt_Lugar)},
        {QStringLiteral("FECHA"), recortado(txt_Fecha)},
    };
    BloquesImpreso::escribirHojas(codigoProyecto(), definicion().tablaTemporal,
                                  [&](const Consulta& proyecto, BloquesImpreso::FilaTemporal& fila) {
                                      const QVariant p = persona(proyecto);
                                      if (!p.isNull())
                                          fila.poner(columnaPersona(), p);
                                      BloquesImpreso::columnasObra(proyecto, fila);
                                      for (const auto& [columna, valor] : propias)
                                          fila.poner(columna, valor);
                                  });
}

QList<QWidget*> ImpresoNombramiento::controlesCopia() const
{
    return {txt_CodProyecto, txt_Proyecto, txt_LugarVisado, msk_FechaVisado, txt_Lugar, txt_Fecha};
}

// El selector trae también la fecha de visado del proyecto (vacía: "__/__/____").
void ImpresoNombramiento::recibirProyecto(const Eleccion& e)
{
    DatosImpreso::recibirProyecto(e);
    ponerFecha(msk_FechaVisado, e.texto(5));
}

// Un proyecto dado de alta desde el selector: su fecha de visado, ya confirmada, se lee de él.
void ImpresoNombramiento::recibirProyectoNuevo(const RegistroGuardado& r)
{
    DatosImpreso::recibirProyectoNuevo(r);
    guardia(objectName(), QStringLiteral("recibirProyectoNuevo"), [&] {
        UsoConexion uso;
        ponerFecha(msk_FechaVisado, escalar(QStringLiteral("SELECT EXPFV FROM Proyectos_A WHERE PryCod = ?"), {r.codigo}));
    });
}
