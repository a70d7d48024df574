#pragma once
#include <QString>
#include <string>
#include <string_view>

// Comparación española, como la hacía el motor original: sin distinguir mayúsculas en primera
// instancia, la "ñ" como letra propia tras la "n", los acentos como diferencia menor.
// Álvarez < Benítez < Muñoz < Murcia < Nuno < Nuñez.
namespace Cotejo {

// Compara dos textos UTF-8: negativo, cero o positivo.
int comparar(std::string_view a, std::string_view b);
int comparar(const QString& a, const QString& b);
// Clave binaria de ordenación: dos claves comparadas byte a byte dan el orden de comparar().
std::string claveOrden(std::string_view texto);

// Texto plegado para búsquedas: minúsculas y sin acentos (la "ñ" vale "n").
QString plegar(const QString& texto);

// LIKE sin distinguir mayúsculas ni acentos (ni "ñ" de "n"), con "%" y "_" como comodines.
bool parecido(std::string_view patron, std::string_view valor, char32_t escape = 0);

}  // namespace Cotejo
