#include "core/Formato.h"

#include <charconv>
#include <cmath>
#include <string>

namespace Formato {

namespace {

// Cifras decimales más cortas que reproducen el double, sin exponente.
std::string cifrasExactas(double v)
{
    char buf[400];
    const auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::fixed);
    return std::string(buf, r.ptr);
}

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

    const std::string exacto = cifrasExactas(std::fabs(valor));
    const auto sep = exacto.find('.');
    std::string enteros = sep == std::string::npos ? exacto : exacto.substr(0, sep);
    std::string fraccion = sep == std::string::npos ? std::string() : exacto.substr(sep + 1);

    // Redondeo a la mitad hacia fuera sobre las cifras decimales.
    bool subir = false;
    if (int(fraccion.size()) > decimales) {
        subir = fraccion[size_t(decimales)] >= '5';
        fraccion.resize(size_t(decimales));
    } else {
        fraccion.append(size_t(decimales) - fraccion.size(), '0');
    }
    std::string todo = enteros + fraccion;
    if (subir)
        incrementar(todo);
    enteros = todo.substr(0, todo.size() - size_t(decimales));
    fraccion = todo.substr(todo.size() - size_t(decimales));

    enteros.erase(0, std::min(enteros.find_first_not_of('0'), enteros.size()));
    if (int(enteros.size()) < minimoEnteras)
        enteros.insert(0, size_t(minimoEnteras) - enteros.size(), '0');

    const bool esCero = todo.find_first_not_of('0') == std::string::npos;
    QString r;
    r.reserve(int(enteros.size() + fraccion.size()) + 8);
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

}  // namespace

bool esNumerico(const QString& texto)
{
    std::string limpio;
    return analizar(texto, limpio);
}

double aNumero(const QString& texto, bool* ok)
{
    std::string limpio;
    double v = 0;
    const bool valido = analizar(texto, limpio)
        && std::from_chars(limpio.data(), limpio.data() + limpio.size(), v).ec == std::errc();
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
