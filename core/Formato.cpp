#include "core/Formato.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

namespace Formato {

namespace {

// Suma uno a la última cifra de la cadena, con acarreo; puede crecer por la izquierda.
void incrementar(std::string& cifras)
{
    for (auto i = cifras.size(); i-- > 0;) {
        if (cifras[i] != '9') {
            ++cifras[i];
            return;
        }
        cifras[i] = '0';
    }
    cifras.insert(cifras.begin(), '1');
}

// Cifras del valor en unidades de la última posición decimal (valor × 10^decimales), redondeadas
// a la mitad hacia fuera sobre su forma de quince cifras significativas: así escribía el sistema
// los números antes de darles formato. 0,22499999999999998 es "2.25000000000000e-01" y da 0,23;
// sobre las cifras exactas del double daría 0,22.
std::string unidadesRedondeadas(double positivo, int decimales)
{
    char buf[32];
    const auto r = std::to_chars(buf, buf + sizeof buf, positivo, std::chars_format::scientific, 14);
    // buf: "d.dddddddddddddde±x..." (quince cifras, exponente de dos o tres).
    std::string cifras;
    cifras.reserve(15);
    cifras += buf[0];
    cifras.append(buf + 2, 14);
    int exponente = 0;
    for (const char* p = buf + 18; p < r.ptr; ++p)
        exponente = exponente * 10 + (*p - '0');
    if (buf[17] == '-')
        exponente = -exponente;

    // La primera cifra vale 10^exponente; se conservan las que valen 10^-decimales o más.
    const long conservadas = long(exponente) + decimales + 1;
    if (conservadas >= 15) {
        cifras.append(size_t(conservadas - 15), '0');
        return cifras;
    }
    if (conservadas < 0)
        return "0";
    const bool subir = cifras[size_t(conservadas)] >= '5';
    if (conservadas == 0)
        return std::string(1, subir ? '1' : '0');
    cifras.resize(size_t(conservadas));
    if (subir)
        incrementar(cifras);
    return cifras;
}

}  // namespace

QString formatear(double valor, const QString& patron)
{
    if (!std::isfinite(valor))
        return {};
    const qsizetype punto = patron.indexOf(QLatin1Char('.'));
    const QString parteEntera = punto < 0 ? patron : patron.left(punto);
    const bool agrupar = parteEntera.contains(QLatin1Char(','));
    const int decimales = punto < 0 ? 0 : int(patron.size() - punto - 1);
    const int minimoEnteras = int(std::max<qsizetype>(1, parteEntera.count(QLatin1Char('0'))));

    std::string todo = unidadesRedondeadas(std::fabs(valor), decimales);
    const bool esCero = todo.find_first_not_of('0') == std::string::npos;
    if (todo.size() <= size_t(decimales))
        todo.insert(0, size_t(decimales) + 1 - todo.size(), '0');
    std::string enteros = todo.substr(0, todo.size() - size_t(decimales));
    const std::string fraccion = todo.substr(todo.size() - size_t(decimales));

    enteros.erase(0, std::min(enteros.find_first_not_of('0'), enteros.size()));
    if (int(enteros.size()) < minimoEnteras)
        enteros.insert(0, size_t(minimoEnteras) - enteros.size(), '0');

    QString r;
    r.reserve(qsizetype(enteros.size() + enteros.size() / 3 + fraccion.size()) + 2);
    if (valor < 0 && !esCero)
        r += QLatin1Char('-');
    for (size_t i = 0; i < enteros.size(); ++i) {
        if (agrupar && i > 0 && (enteros.size() - i) % 3 == 0)
            r += QLatin1Char('.');
        r += QLatin1Char(enteros[i]);
    }
    if (decimales > 0) {
        r += QLatin1Char(',');
        r += QLatin1String(fraccion.data(), qsizetype(fraccion.size()));
    }
    return r;
}

namespace {

// Analiza el texto; deja en "limpio" la forma "-1234.56" que entiende from_chars.
bool analizar(const QString& texto, std::string& limpio)
{
    const QString t = texto.trimmed();
    qsizetype i = 0;
    const qsizetype n = t.size();
    limpio.clear();
    if (i < n && (t[i] == QLatin1Char('-') || t[i] == QLatin1Char('+'))) {
        if (t[i] == QLatin1Char('-'))
            limpio += '-';
        ++i;
    }
    auto esCifra = [&](qsizetype k) { return k < n && t[k] >= QLatin1Char('0') && t[k] <= QLatin1Char('9'); };

    // Parte entera: cifras seguidas, o grupos de tres separados por puntos.
    int cifras = 0;
    int enGrupo = 0;
    bool agrupada = false;
    while (i < n) {
        if (esCifra(i)) {
            limpio += char(t[i].unicode());
            ++cifras;
            ++enGrupo;
            ++i;
        } else if (t[i] == QLatin1Char('.')) {
            if (enGrupo == 0 || (agrupada ? enGrupo != 3 : enGrupo > 3))
                return false;
            agrupada = true;
            enGrupo = 0;
            ++i;
        } else {
            break;
        }
    }
    if (agrupada && enGrupo != 3)
        return false;
    if (cifras == 0)
        limpio += '0';
    if (i < n && t[i] == QLatin1Char(',')) {
        ++i;
        limpio += '.';
        while (esCifra(i)) {
            limpio += char(t[i].unicode());
            ++cifras;
            ++i;
        }
        if (limpio.back() == '.')
            limpio.pop_back();
    }
    return i == n && cifras > 0;
}

// Lectura del texto ya analizado. Lo que desborda el double (cientos de cifras enteras) no se
// puede leer; lo que se queda por debajo del menor double vale cero.
bool leer(const std::string& limpio, double& v)
{
    const auto r = std::from_chars(limpio.data(), limpio.data() + limpio.size(), v);
    if (r.ec == std::errc() && std::isfinite(v))
        return true;
    if (r.ec != std::errc::result_out_of_range)
        return false;
    const size_t inicio = limpio.front() == '-' ? 1 : 0;
    const size_t fin = std::min(limpio.find('.'), limpio.size());
    if (limpio.find_first_not_of('0', inicio) < fin)
        return false;
    v = inicio == 1 ? -0.0 : 0.0;
    return true;
}

}  // namespace

// Las dos respuestas salen de la misma lectura: lo que es numérico siempre se puede leer.
bool esNumerico(const QString& texto)
{
    bool ok = false;
    aNumero(texto, &ok);
    return ok;
}

double aNumero(const QString& texto, bool* ok)
{
    std::string limpio;
    double v = 0;
    const bool valido = analizar(texto, limpio) && leer(limpio, v);
    if (ok)
        *ok = valido;
    return valido ? v : 0.0;
}

QString nombreMes(int mes)
{
    static const char* const meses[] = {"enero", "febrero", "marzo", "abril", "mayo", "junio", "julio",
                                        "agosto", "septiembre", "octubre", "noviembre", "diciembre"};
    return mes >= 1 && mes <= 12 ? QString::fromLatin1(meses[mes - 1]) : QString();
}

QString fechaCorta(const QDate& fecha) { return fecha.toString(QStringLiteral("dd/MM/yyyy")); }

QString fechaPie(const QDate& fecha)
{
    if (!fecha.isValid())
        return {};
    return QString::number(fecha.day()) + QStringLiteral(" de ") + nombreMes(fecha.month()) + QStringLiteral(" de ")
        + QString::number(fecha.year());
}

QString fechaLarga(const QDate& fecha)
{
    static const QString dias[] = {QStringLiteral("lunes"),  QStringLiteral("martes"), QStringLiteral("miércoles"),
                                   QStringLiteral("jueves"), QStringLiteral("viernes"), QStringLiteral("sábado"),
                                   QStringLiteral("domingo")};
    if (!fecha.isValid())
        return {};
    return dias[fecha.dayOfWeek() - 1] + QStringLiteral(", ") + fechaPie(fecha);
}

}  // namespace Formato
