#pragma once
#include <QString>

// Letra del NIF: el número módulo 23 en "TRWAGMYFPDXBNJZSQVHLCKE".
QString calcularLetraNIF(long numero);

// Comprueba un CIF ("A58818501" o "A-58818501"): longitud, letra de tipo (en mayúsculas) y
// carácter de control, que puede ser la cifra o la letra. Avisa de lo que falla y devuelve false.
bool validarCIF(const QString& cif);
