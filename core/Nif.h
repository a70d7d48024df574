#pragma once
#include <QString>

// Letra del NIF: el número módulo 23 en "TRWAGMYFPDXBNJZSQVHLCKE".
QString calcularLetraNIF(long numero);

// Comprueba un CIF ("A58818501" o "A-58818501"): longitud, letra de tipo (en mayúsculas) y
// carácter de control, que puede ser la cifra o la letra. Comprueba siempre las tres cosas, con
// un aviso por cada una que falla y en ese orden, y devuelve false si falló alguna.
bool validarCIF(const QString& cif);
