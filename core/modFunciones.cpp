#include "core/modFunciones.h"

#include <QDir>

QString tituloCambiarRuta(int tipo)
{
    switch (tipo) {
    case 1: return QStringLiteral("Por favor, seleccione el directorio en el que se encuentra la base de datos a emplear");
    case 2: return QStringLiteral("Por favor, seleccione el directorio en el que se exportarán los documentos Excel");
    case 3: return QStringLiteral("Por favor, seleccione el directorio en el que se exportarán los documentos PDF");
    case 4: return QStringLiteral("Por favor, seleccione el directorio en el que se creará la copia de seguridad");
    case 5: return QStringLiteral("Por favor, seleccione el directorio en el que se creará el documento");
    default: return {};
    }
}

QString cambiarRuta(QWidget*, int tipo)
{
    if (tipo < 1 || tipo > 5)
        return {};
    QString ruta = Sistema::elegirCarpeta(tituloCambiarRuta(tipo));
    if (ruta.isEmpty())
        return {};
    ruta = QDir::toNativeSeparators(ruta);
    // Una raíz ("/" o "D:\") conserva su único separador.
    if (!ruta.endsWith(QDir::separator()))
        ruta += QDir::separator();
    return ruta;
}

QString obtenerCarpetaEspecial(int carpeta)
{
    if (carpeta != 5)
        return {};
    return Sistema::carpetaDocumentos();
}

QString moverBaseDatos(QWidget* ventana)
{
    const QString pregunta =
        QStringLiteral("Si cambia la ubicación de la base de datos, el programa se cerrará y deberá abrirlo de nuevo para que los cambios tengan efecto. "
                       "Para poder llevar a cabo esta operación ha de cerrar todas las ventanas que tenga abiertas del programa (excepto la de configuración y la propia del programa).")
        + QStringLiteral("\n") + QStringLiteral("¿Desea continuar con la operación?");
    if (Mensajes::pregunta(pregunta) != Mensajes::Respuesta::Si)
        return {};
    for (QWidget* w : Pantallas::cargadas()) {
        const QString nombre = w->objectName();
        if (nombre != QLatin1String("frmConfiguracion") && nombre != QLatin1String("frmMenu")) {
            Mensajes::aviso(QStringLiteral("La operación no se puede llevar a cabo porque tiene ventanas del programa abiertas. "
                                           "Antes de llevar a cabo de nuevo esta operación, por favor cierre todas las pantallas abiertas del programa (excepto la de configuración y la propia del programa)"));
            return {};
        }
    }
    const QString ruta = cambiarRuta(ventana, 1);
    if (ruta.isEmpty())
        return {};
    escribirAjuste(QStringLiteral("BD"), QStringLiteral("ruta"), ruta);
    Mensajes::informacion(QStringLiteral("La ubicación de la base de datos se ha cambiado satisfactoriamente.") + QStringLiteral("\n")
                          + QStringLiteral("A continuación se cerrará el programa para que los cambios tengan efecto."));
    return ruta;
}
