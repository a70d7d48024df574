#include "core/Log.h"

#include "core/Mensajes.h"
#include "core/Rutas.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
const QString ASTERISCOS(70, QLatin1Char('*'));
const QString FIN = QStringLiteral("\r\n");
QString ficheroInutilizable;  // registro que ya falló: no se vuelve a intentar

QString entrada(const ErrorPrograma& error, const QString& comentario, const QString& formulario, const QString& procedimiento,
                int linea, bool conTextoMotor, const QDateTime& ahora)
{
    QString descripcion = error.descripcion;
    if (conTextoMotor && !error.textoMotor.isEmpty() && error.textoMotor != descripcion)
        descripcion += QStringLiteral(" [") + error.textoMotor + QLatin1Char(']');
    QString t;
    t += ASTERISCOS + FIN;
    t += QStringLiteral("Se ha producido el siguiente error: ") + FIN;
    t += FIN;
    t += QStringLiteral("Formulario: ") + formulario + FIN;
    t += QStringLiteral("Procedimiento: ") + procedimiento + FIN;
    t += QStringLiteral("Linea: ") + QString::number(linea) + FIN;
    t += QStringLiteral("Número: ") + QString::number(error.numero) + FIN;
    t += QStringLiteral("Descripción: ") + descripcion + FIN;
    t += QStringLiteral("Día: ") + ahora.toString(QStringLiteral("dd/MM/yyyy")) + FIN;
    t += QStringLiteral("Hora: ") + ahora.toString(QStringLiteral("H:mm:ss")) + FIN;
    t += QStringLiteral("Comentario: ") + comentario + FIN;
    t += ASTERISCOS + FIN;
    return t;
}
}  // namespace

QString textoEntradaLog(const ErrorPrograma& error, const QString& comentario, const QString& formulario,
                        const QString& procedimiento, int linea, bool conTextoMotor)
{
    return entrada(error, comentario, formulario, procedimiento, linea, conTextoMotor, QDateTime::currentDateTime());
}

void escribirLog(const ErrorPrograma& error, const QString& comentario, const QString& formulario,
                 const QString& procedimiento, int linea, Mostrar mostrar)
{
    const QDateTime ahora = QDateTime::currentDateTime();
    const QString texto = entrada(error, comentario, formulario, procedimiento, linea, true, ahora);
    const QString fichero = Rutas::ficheroLog();

    if (fichero != ficheroInutilizable) {
        QFileInfo info(fichero);
        QFile f(fichero);
        const bool anadir = info.exists() && info.size() <= LOG_TAMANO_MAXIMO;
        const QIODevice::OpenMode modo =
            anadir ? (QIODevice::WriteOnly | QIODevice::Append) : (QIODevice::WriteOnly | QIODevice::Truncate);
        if (!f.open(modo) || f.write((texto + FIN).toUtf8()) < 0) {
            // Sin carpeta de registro no se insiste: se avisa una vez y el programa sigue.
            ficheroInutilizable = fichero;
            Mensajes::aviso(QStringLiteral("No se ha podido escribir en el registro de errores (")
                            + QDir::toNativeSeparators(fichero) + QStringLiteral(").") + QStringLiteral("\n")
                            + QStringLiteral("Compruebe que la carpeta Logs del programa existe y se puede escribir en ella"));
        }
    }
    if (mostrar == Mostrar::Si)
        Mensajes::mostrarEntradaLog(entrada(error, comentario, formulario, procedimiento, linea, false, ahora));
}
