#include "core/Cotejo.h"

#include <QList>

#include <vector>

namespace Cotejo {

namespace {

// Lee el siguiente carácter de un texto UTF-8 (los bytes inválidos valen por sí mismos).
char32_t siguiente(std::string_view s, size_t& i)
{
    const auto b = static_cast<unsigned char>(s[i]);
    if (b < 0x80) {
        ++i;
        return b;
    }
    const int n = (b >= 0xF0) ? 3 : (b >= 0xE0) ? 2 : (b >= 0xC0) ? 1 : 0;
    if (n == 0 || i + static_cast<size_t>(n) >= s.size()) {
        ++i;
        return b;
    }
    char32_t c = b & (0x3F >> n);
    for (int k = 1; k <= n; ++k)
        c = (c << 6) | (static_cast<unsigned char>(s[i + k]) & 0x3F);
    i += n + 1;
    return c;
}

struct Peso {
    uint32_t primario;
    uint8_t secundario;  // acento
    uint8_t terciario;   // 0 minúscula, 1 mayúscula
};

// Letra base (minúscula, sin acento) y acento de los caracteres latinos habituales.
bool descomponer(char32_t c, char32_t& base, uint8_t& acento, bool& mayuscula)
{
    mayuscula = false;
    acento = 0;
    if (c >= 'A' && c <= 'Z') {
        base = c + 32;
        mayuscula = true;
        return true;
    }
    if (c >= 'a' && c <= 'z') {
        base = c;
        return true;
    }
    if (c < 0xC0 || c > 0x17F)
        return false;
    // Tabla de Latin-1 y Latin Extended-A: letra base y tipo de acento.
    static const struct {
        char32_t desde, hasta;
        char base;
        uint8_t acento;
    } tabla[] = {
        {0xC0, 0xC0, 'a', 2}, {0xC1, 0xC1, 'a', 1}, {0xC2, 0xC2, 'a', 3}, {0xC3, 0xC3, 'a', 5},
        {0xC4, 0xC4, 'a', 4}, {0xC5, 0xC5, 'a', 6}, {0xC7, 0xC7, 'c', 7}, {0xC8, 0xC8, 'e', 2},
        {0xC9, 0xC9, 'e', 1}, {0xCA, 0xCA, 'e', 3}, {0xCB, 0xCB, 'e', 4}, {0xCC, 0xCC, 'i', 2},
        {0xCD, 0xCD, 'i', 1}, {0xCE, 0xCE, 'i', 3}, {0xCF, 0xCF, 'i', 4}, {0xD2, 0xD2, 'o', 2},
        {0xD3, 0xD3, 'o', 1}, {0xD4, 0xD4, 'o', 3}, {0xD5, 0xD5, 'o', 5}, {0xD6, 0xD6, 'o', 4},
        {0xD9, 0xD9, 'u', 2}, {0xDA, 0xDA, 'u', 1}, {0xDB, 0xDB, 'u', 3}, {0xDC, 0xDC, 'u', 4},
        {0xDD, 0xDD, 'y', 1},
    };
    char32_t mayus = c;
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) {
        mayus = c - 0x20;
    } else if (c >= 0xC0 && c <= 0xDE && c != 0xD7) {
        mayuscula = true;
    } else {
        return false;
    }
    if (mayus == 0xD1) {  // Ñ: letra propia, se trata en pesoDe
        base = 0xF1;
        return true;
    }
    for (const auto& t : tabla) {
        if (mayus >= t.desde && mayus <= t.hasta) {
            base = static_cast<char32_t>(t.base);
            acento = t.acento;
            return true;
        }
    }
    return false;
}

Peso pesoDe(char32_t c)
{
    char32_t base;
    uint8_t acento;
    bool mayuscula;
    if (descomponer(c, base, acento, mayuscula)) {
        uint32_t p;
        if (base == 0xF1)
            p = 1000 + 2 * ('n' - 'a') + 1;  // la ñ, justo después de la n
        else
            p = 1000 + 2 * (base - 'a');
        return {p, acento, static_cast<uint8_t>(mayuscula ? 1 : 0)};
    }
    if (c >= '0' && c <= '9')
        return {500 + (c - '0'), 0, 0};
    if (c < 0x80)
        return {static_cast<uint32_t>(c), 0, 0};  // espacios y signos, antes que cifras y letras
    return {100000 + static_cast<uint32_t>(c), 0, 0};
}

// Para buscar, la "ñ" se pliega como un acento más: quien escribe "nunez" busca a Núñez.
// El orden sigue tratándola como letra propia (pesoDe).
char32_t plegado(char32_t c)
{
    char32_t base;
    uint8_t acento;
    bool mayuscula;
    if (descomponer(c, base, acento, mayuscula))
        return base == 0xF1 ? U'n' : base;
    return c;
}

std::vector<char32_t> decodificar(std::string_view s)
{
    std::vector<char32_t> r;
    r.reserve(s.size());
    for (size_t i = 0; i < s.size();)
        r.push_back(siguiente(s, i));
    return r;
}

}  // namespace

int comparar(std::string_view a, std::string_view b)
{
    size_t i = 0, j = 0;
    int secundario = 0, terciario = 0;
    while (i < a.size() && j < b.size()) {
        const Peso pa = pesoDe(siguiente(a, i));
        const Peso pb = pesoDe(siguiente(b, j));
        if (pa.primario != pb.primario)
            return pa.primario < pb.primario ? -1 : 1;
        if (secundario == 0 && pa.secundario != pb.secundario)
            secundario = pa.secundario < pb.secundario ? -1 : 1;
        if (terciario == 0 && pa.terciario != pb.terciario)
            terciario = pa.terciario < pb.terciario ? -1 : 1;
    }
    if (i < a.size())
        return 1;
    if (j < b.size())
        return -1;
    if (secundario)
        return secundario;
    if (terciario)
        return terciario;
    return a.compare(b) < 0 ? -1 : (a.compare(b) > 0 ? 1 : 0);
}

std::string claveOrden(std::string_view texto)
{
    // Pesos primarios (3 bytes), secundarios y terciarios, cada tramo cerrado con ceros, y el texto.
    std::string primario;
    primario.reserve(texto.size() * 3 + 3);
    std::string secundario, terciario;
    for (size_t i = 0; i < texto.size();) {
        const Peso p = pesoDe(siguiente(texto, i));
        const uint32_t w = p.primario + 1;
        primario += static_cast<char>((w >> 16) & 0xFF);
        primario += static_cast<char>((w >> 8) & 0xFF);
        primario += static_cast<char>(w & 0xFF);
        secundario += static_cast<char>(p.secundario + 1);
        terciario += static_cast<char>(p.terciario + 1);
    }
    primario.append(3, '\0');
    primario += secundario;
    primario += '\0';
    primario += terciario;
    primario += '\0';
    primario.append(texto.data(), texto.size());
    return primario;
}

int comparar(const QString& a, const QString& b)
{
    const QByteArray ua = a.toUtf8();
    const QByteArray ub = b.toUtf8();
    return comparar(std::string_view(ua.constData(), ua.size()), std::string_view(ub.constData(), ub.size()));
}

QString plegar(const QString& texto)
{
    QString r;
    r.reserve(texto.size());
    const QList<uint> puntos = texto.toUcs4();
    for (const uint u : puntos) {
        const char32_t c = u;
        const char32_t p = plegado(c);
        if (p == c && c > 0x7F) {
            r += QString::fromUcs4(&c, 1).toLower();
        } else {
            r += QString::fromUcs4(&p, 1);
        }
    }
    return r;
}

bool parecido(std::string_view patron, std::string_view valor, char32_t escape)
{
    const std::vector<char32_t> p = decodificar(patron);
    const std::vector<char32_t> v = decodificar(valor);
    // Comparación con vuelta atrás sobre el último "%", lineal en la práctica.
    size_t ip = 0, iv = 0, marcaP = SIZE_MAX, marcaV = 0;
    while (iv < v.size()) {
        if (ip < p.size()) {
            char32_t c = p[ip];
            bool literal = false;
            if (escape && c == escape && ip + 1 < p.size()) {
                c = p[ip + 1];
                literal = true;
            }
            if (!literal && c == U'%') {
                marcaP = ++ip;
                marcaV = iv;
                continue;
            }
            if ((!literal && c == U'_') || plegado(c) == plegado(v[iv])) {
                ip += literal ? 2 : 1;
                ++iv;
                continue;
            }
        }
        if (marcaP == SIZE_MAX)
            return false;
        ip = marcaP;
        iv = ++marcaV;
    }
    while (ip < p.size() && p[ip] == U'%')
        ++ip;
    return ip == p.size();
}

}  // namespace Cotejo
