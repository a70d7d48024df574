#pragma once
// Lectura y escritura de texto enriquecido (RTF) sobre un QTextDocument: las plantillas de
// contratos, los documentos que hace el estudio y los que llegan escritos por Word o LibreOffice.
#include <QByteArray>
#include <QString>

class QTextDocument;

namespace Rtf {

// Lee un RTF en el documento (lo vacía antes). Devuelve false, con el motivo en español en
// `aviso`, si no es RTF; uno mal formado o truncado se lee hasta donde se puede, devuelve true y
// deja en `aviso` lo que faltó. Nunca se cae.
bool leer(const QByteArray& rtf, QTextDocument& documento, QString* aviso = nullptr);

// Escribe el documento como RTF (página ANSI 1252, con \u para lo que no cabe en ella).
QByteArray escribir(const QTextDocument& documento);

} // namespace Rtf
