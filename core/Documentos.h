#pragma once
#include <QString>

class QWidget;

// Abre un PDF con el programa asociado. Si no se puede, avisa según el resultado (31: no hay
// visor; 2: no se encuentra) y deja en el registro, enseñada, una entrada de número 0.
void cargarPDF(const QString& ruta, QWidget* ventana);

// Lo que se dice y se anota cuando un documento no se abre con su programa.
struct AvisosApertura {
    // Lo que es, para el aviso sin programa ("el listado", "el documento", "la ayuda").
    QString documento = QStringLiteral("el documento");
    // Resultado 31, sin programa para su tipo: primera frase del aviso y comentario del registro.
    // Vacíos, los generales (el tipo de fichero en el aviso y la ruta en el comentario). Tras la
    // primera frase el aviso dice siempre dónde está el fichero.
    QString sinPrograma{};
    QString comentarioSinPrograma{};
    // Resultado 2, el fichero no está: aviso y comentario del registro. Sin aviso, el 2 se trata
    // como cualquier otro fallo.
    QString noEncontrado{};
    QString comentarioNoEncontrado{};
};

// Abre el fichero con el programa asociado a su tipo. Sin programa (31) o sin fichero (2) avisa y
// anota sin enseñar la entrada; cualquier otro resultado se anota y se enseña la entrada.
// Devuelve si se ha abierto.
bool abrirConSuPrograma(const QString& ruta, const AvisosApertura& avisos, const QString& formulario,
                        const QString& procedimiento);

// Un documento que está hecho pero que ningún programa del equipo abre (resultado 31): se dice
// dónde está y que no hay programa para abrirlo, y el registro guarda el detalle sin enseñarlo.
void avisarSinProgramaQueLoAbra(const QString& ruta, const AvisosApertura& avisos, const QString& formulario,
                                const QString& procedimiento);
