#pragma once
#include <QString>
#include <functional>

// Lo que el programa pide al sistema: elegir una carpeta o un fichero, abrir un fichero con su programa
// asociado, la carpeta de documentos. Las pruebas sustituyen cada cosa por un contestador.
namespace Sistema {

using ElectorCarpeta = std::function<QString(const QString& titulo)>;
void instalarElectorCarpeta(ElectorCarpeta e);
// Carpeta elegida (sin separador final), o "" si el usuario cancela.
QString elegirCarpeta(const QString& titulo);

using ElectorFichero = std::function<QString(const QString& titulo, const QString& filtro)>;
void instalarElectorFichero(ElectorFichero e);
// Fichero existente elegido para abrir, o "" si el usuario cancela. El filtro va al estilo de Qt:
// "Copia de seguridad (*.mee)".
QString elegirFichero(const QString& titulo, const QString& filtro);

// Nombre elegido para guardar un fichero (puede no existir), o "" si el usuario cancela. Las pruebas
// lo contestan con el mismo contestador que el de abrir.
void instalarElectorGuardar(ElectorFichero e);
QString elegirFicheroGuardar(const QString& titulo, const QString& filtro, const QString& propuesto);

// Resultado al estilo de la orden "abrir" del sistema: mayor que 32 si se ha abierto,
// 2 si el fichero no existe, 31 si no hay programa asociado a su tipo.
using Abridor = std::function<int(const QString& ruta)>;
void instalarAbridor(Abridor a);
int abrirDocumento(const QString& ruta);

QString carpetaDocumentos();

}  // namespace Sistema
