#pragma once
#include <QString>

// Directorio del programa y rutas de la instalación. El directorio del programa no lleva
// separador final; cada ruta de la instalación se forma poniendo uno delante.
namespace Rutas {
QString directorioPrograma();
void establecerDirectorioPrograma(const QString& directorio);
QString enPrograma(const QString& relativa);  // directorioPrograma() + separador + relativa
QString ficheroIni();
QString ficheroLog();
QString nativa(const QString& ruta);          // con el separador de la plataforma
QString conSeparadorFinal(const QString& ruta);
// 16 cifras hexadecimales propias del directorio del programa: dos instalaciones, dos huellas.
QString huellaInstalacion();
}
