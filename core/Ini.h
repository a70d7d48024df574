#pragma once
#include <QString>

// Fichero de ajustes al estilo de los ficheros de perfil: secciones entre corchetes y líneas
// clave=valor; secciones y claves sin distinguir mayúsculas; una sección que falta se crea al
// escribir y una clave que existe se sustituye en su sitio; el resto de líneas queda como estaba.
constexpr int INI_LONGITUD_LECTURA = 254;  // el búfer de 255 deja 254 caracteres útiles

// Devuelve el valor (como mucho 254 caracteres), o "" si falta el fichero, la sección o la clave.
QString leerIni(const QString& fichero, const QString& seccion, const QString& clave);
// Escribe el valor; devuelve false si el fichero no se ha podido escribir.
bool escribirIni(const QString& fichero, const QString& seccion, const QString& clave, const QString& valor);

// Atajos sobre el inicio.ini del programa.
QString leerAjuste(const QString& seccion, const QString& clave);
bool escribirAjuste(const QString& seccion, const QString& clave, const QString& valor);

// Ruta guardada en un ajuste, con el separador de la plataforma. Una ruta relativa ("datos/",
// "Contratos/Nota_encargo.doc") cuenta desde el directorio del programa, que así se puede copiar o
// mover entero; una absoluta sirve tal cual. "" si no hay ninguna.
QString leerRutaAjuste(const QString& seccion, const QString& clave);

// Carpeta de la base de datos guardada en [BD] ruta, con el separador de la plataforma y siempre
// con separador final (se añade si falta); "" si no hay ninguna.
QString leerRutaBD();
