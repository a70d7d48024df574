#pragma once
#include <QString>

class QLineEdit;

// Campos de fecha con máscara "99/99/9999", día primero; vacíos se ven "__/__/____".
inline const QString MASCARA_FECHA = QStringLiteral("99/99/9999;_");
inline const QString FECHA_VACIA = QStringLiteral("__/__/____");

// Pone la máscara de fecha a un campo.
void prepararCampoFecha(QLineEdit* campo);

// Comprueba una fecha "dd/mm/aaaa"; si no vale, avisa (longitud, año, mes, día) y devuelve false.
bool isFecha(const QString& fecha);

// true si el campo está vacío ("__/__/____") o tiene una fecha válida; si no, tras el aviso
// de isFecha selecciona todo el texto, le da el foco y devuelve false.
bool validarFecha(QLineEdit* campo);

// Normalización al salir de un campo de fecha: quita los "_" y escribe "dd/mm/yyyy",
// de modo que "1/2/2008" queda "01/02/2008". Un texto que no es fecha se devuelve sin "_".
QString textoFechaNormalizado(const QString& texto);
// Lo mismo sobre el campo; un campo vacío o con algo que no es fecha se deja como está.
void normalizarFecha(QLineEdit* campo);
