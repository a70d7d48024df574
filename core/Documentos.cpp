#include "core/Documentos.h"

#include "core/Error.h"
#include "core/Log.h"
#include "core/Mensajes.h"
#include "core/Sistema.h"

#include <QDir>
#include <QFileInfo>

void cargarPDF(const QString& ruta, QWidget*)
{
    const int resultado = Sistema::abrirDocumento(ruta);
    if (resultado > 32)
        return;
    if (resultado == 31) {
        Mensajes::aviso(QStringLiteral("No tiene ningún programa asociado con los ficheros de tipo '*.pdf'.") + QStringLiteral("\n")
                        + QStringLiteral("Por favor, instale uno (por ejemplo, Acrobat Reader) e inténtelo de nuevo."));
    } else if (resultado == 2) {
        Mensajes::aviso(QStringLiteral("No se ha podido encontrar el documento en la ruta indicada.") + QStringLiteral("\n")
                        + QStringLiteral("Puede que haya sido borrado o cambiado de ubicación.") + QStringLiteral("\n")
                        + QStringLiteral("Por favor, compruébelo e inténtelo de nuevo") + QStringLiteral("\n\n")
                        + QStringLiteral("También puede copiar el documento generado y pegarlo en un ordenador que si tenga instalado un visor de documentos de tipo '*.doc'"));
    }
    // Tras cualquier fallo el procedimiento sigue hasta su informe de error, sin número ni descripción.
    escribirLog(ErrorPrograma(0, QString()), NOMBRE_PROGRAMA, QStringLiteral("modFunciones"), QStringLiteral("cargarPDF"), 0, Mostrar::Si);
}

void avisarSinProgramaQueLoAbra(const QString& ruta, const AvisosApertura& avisos, const QString& formulario,
                                const QString& procedimiento)
{
    const QString nativa = QDir::toNativeSeparators(QFileInfo(ruta).absoluteFilePath());
    const QString extension = QFileInfo(ruta).suffix().toLower();
    const QString primera = !avisos.sinPrograma.isEmpty()
        ? avisos.sinPrograma
        : QStringLiteral("No se ha encontrado en su equipo ningún programa que abra los ficheros de tipo '*.%1', por lo que no se "
                         "ha podido mostrar %2.").arg(extension, avisos.documento);
    Mensajes::aviso(primera + QStringLiteral("\n\n") + QStringLiteral("El fichero está en:") + QStringLiteral("\n") + nativa
                    + QStringLiteral("\n\n")
                    + QStringLiteral("Puede abrirlo desde esa carpeta, o copiarlo a un ordenador que tenga un programa para ese tipo de ficheros."));
    const QString comentario = !avisos.comentarioSinPrograma.isEmpty()
        ? avisos.comentarioSinPrograma
        : QStringLiteral("[Error 31]: Ningún programa del equipo abre los ficheros de tipo '*.%1'; el fichero está en %2").arg(extension, nativa);
    escribirLog(ErrorPrograma(31, QString()), comentario, formulario, procedimiento, 0, Mostrar::No);
}

bool abrirConSuPrograma(const QString& ruta, const AvisosApertura& avisos, const QString& formulario, const QString& procedimiento)
{
    const int resultado = Sistema::abrirDocumento(ruta);
    if (resultado > 32)
        return true;
    if (resultado == 31) {
        avisarSinProgramaQueLoAbra(ruta, avisos, formulario, procedimiento);
    } else if (resultado == 2 && !avisos.noEncontrado.isEmpty()) {
        Mensajes::aviso(avisos.noEncontrado);
        escribirLog(ErrorPrograma(2, QString()), avisos.comentarioNoEncontrado, formulario, procedimiento, 0, Mostrar::No);
    } else {
        escribirLog(ErrorPrograma(resultado, QStringLiteral("No se ha podido abrir el documento ") + QDir::toNativeSeparators(ruta)),
                    NOMBRE_PROGRAMA, formulario, procedimiento, 0, Mostrar::Si);
    }
    return false;
}
