#include "core/clsNumToText.h"

#include "core/Error.h"
#include "core/Formato.h"
#include "core/Guardia.h"

#include <QLocale>
#include <cmath>

namespace {

const QString FORMULARIO = QStringLiteral("clsNumToText");

// Separador decimal del sistema, como al formatear 25,5 con "#.#".
QString separadorDecimalSistema()
{
    return QLocale().decimalPoint() == QLatin1String(".") ? QStringLiteral(".") : QStringLiteral(",");
}

// Conversión numérica estricta de un texto; lo que no es número es un error de tipos.
double valorNumerico(const QString& texto)
{
    QString t = texto;
    if (separadorDecimalSistema() == QLatin1String(".")) {
        t.replace(QLatin1Char(','), QLatin1Char('\x01'));
        t.replace(QLatin1Char('.'), QLatin1Char(','));
        t.replace(QLatin1Char('\x01'), QLatin1Char('.'));
    }
    bool ok = false;
    const double v = Formato::aNumero(t, &ok);
    if (!ok)
        lanzarError(13, QStringLiteral("No coinciden los tipos"));
    return v;
}

// Valor de las cifras del principio del texto; lo demás no cuenta.
int valorCifras(const QString& t)
{
    int v = 0;
    for (const QChar c : t) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            break;
        v = v * 10 + (c.unicode() - '0');
    }
    return v;
}

// Texto decimal de un valor positivo, como lo escribiría el sistema.
QString textoDecimal(double valor)
{
    if (valor < 1e15) {
        if (valor == std::floor(valor))
            return QString::number(qint64(valor));
        QString t = QString::number(valor, 'g', 15);
        return t.replace(QLatin1Char('.'), separadorDecimalSistema());
    }
    QString t = QString::number(valor, 'E', 14);
    // Sin ceros de relleno en la mantisa: "1E+15".
    const qsizetype e = t.indexOf(QLatin1Char('E'));
    QString mantisa = t.left(e);
    while (mantisa.contains(QLatin1Char('.')) && (mantisa.endsWith(QLatin1Char('0')) || mantisa.endsWith(QLatin1Char('.'))))
        mantisa.chop(1);
    QString exponente = t.mid(e + 1);
    const QChar signo = exponente.at(0);
    exponente = exponente.mid(1);
    while (exponente.size() > 1 && exponente.startsWith(QLatin1Char('0')))
        exponente.remove(0, 1);
    return mantisa.replace(QLatin1Char('.'), separadorDecimalSistema()) + QLatin1Char('E') + signo + exponente;
}

bool empiezaPor(const QString& t, const QString& prefijo) { return t.startsWith(prefijo); }

// Reemplaza todas las apariciones hasta que no quede ninguna.
void reemplazarTodo(QString& t, const QString& de, const QString& a)
{
    while (t.contains(de))
        t.replace(de, a);
}

QString colocar(const QString& texto, int longitudFija)
{
    return longitudFija != 0 ? texto.leftJustified(longitudFija, QLatin1Char(' '), true) : texto;
}

QString recortarDerecha(QString t)
{
    while (t.endsWith(QLatin1Char(' ')))
        t.chop(1);
    return t;
}

}  // namespace

clsNumToText::clsNumToText() { InicializarArrays(); }

void clsNumToText::InicializarArrays()
{
    guardia(FORMULARIO, QStringLiteral("InicializarArrays"), [&] {
        static const char* const unidades[] = {"", "", "dos", "tres", "cuatro", "cinco", "seis", "siete", "ocho", "nueve"};
        static const char* const decenas[] = {"", "diez", "veinte", "treinta", "cuarenta", "cincuenta",
                                              "sesenta", "setenta", "ochenta", "noventa"};
        static const char* const centenas[] = {"", "ciento", "doscient", "trescient", "cuatrocient", "quinient",
                                               "seiscient", "setecient", "ochocient", "novecient", "cien"};
        static const char* const compuestas[] = {"", "dieci", "veinti", "treinta y ", "cuarenta y ", "cincuenta y ",
                                                 "sesenta y ", "setenta y ", "ochenta y ", "noventa y "};
        static const char* const especiales[] = {"", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10",
                                                 "once", "doce", "trece", "catorce", "quince"};
        for (int i = 0; i < 10; ++i) {
            arrUnidades[i] = QLatin1String(unidades[i]);
            arrDecenas[i] = QLatin1String(decenas[i]);
            arrDecenasCompuestas[i] = QLatin1String(compuestas[i]);
        }
        arrUnidades[1] = QStringLiteral("un") + genero;
        for (int i = 0; i < 11; ++i)
            arrCentenas[i] = QLatin1String(centenas[i]);
        for (int i = 2; i <= 9; ++i)
            arrCentenas[i] += plural;
        for (int i = 0; i < 16; ++i)
            arrEspeciales[i] = QLatin1String(especiales[i]);
    });
}

QString clsNumToText::ConvDecimal(QString numero, QString* separadorDecimal, QString* separadorMiles)
{
    // Ante un fallo atrapado devuelve el texto vacío: el resultado sólo se da al final.
    QString resultado;
    guardia(FORMULARIO, QStringLiteral("ConvDecimal"), [&] {
        const QString decimal = separadorDecimalSistema();
        const QString miles = decimal == QLatin1String(".") ? QStringLiteral(",") : QStringLiteral(".");
        if (separadorDecimal)
            *separadorDecimal = decimal;
        if (separadorMiles)
            *separadorMiles = miles;

        numero = numero.trimmed();
        if (numero.startsWith(miles))
            numero.replace(0, 1, decimal);

        const qsizetype cuantos = numero.count(miles);
        if (cuantos == 1) {
            numero.replace(miles, numero.contains(decimal) ? QStringLiteral(" ") : decimal);
        } else if (cuantos > 1) {
            // Todos pasan a espacio menos el último, que queda como separador decimal.
            const qsizetype ultimo = numero.lastIndexOf(miles);
            for (qsizetype i = 0; i < numero.size(); ++i)
                if (numero.mid(i, miles.size()) == miles)
                    numero.replace(i, miles.size(), i == ultimo ? decimal : QStringLiteral(" "));
        }
        numero.remove(QLatin1Char(' '));
        resultado = numero;
    });
    return resultado;
}

QString clsNumToText::Pluralizar(QString cantidad, QString unidad, bool todasLasPalabras)
{
    // Una cantidad que no es número se anota y devuelve el texto vacío: quien llama sigue sin la
    // unidad (la llamada de longitud fija sin céntimos le pasa el relleno de espacios).
    QString resultado;
    guardia(FORMULARIO, QStringLiteral("Pluralizar"), [&] {
        if (unidad.trimmed().isEmpty()) {
            resultado = unidad;
            return;
        }
        if (cantidad.isEmpty())
            cantidad = QStringLiteral("0");
        if (valorNumerico(cantidad) == 1) {
            resultado = unidad;
            return;
        }
        unidad = unidad.trimmed();

        auto sufijo = [](QChar ultima) {
            return QStringLiteral("aeiou").contains(ultima, Qt::CaseInsensitive) ? QStringLiteral("s") : QStringLiteral("es");
        };
        if (!todasLasPalabras) {
            resultado = QLatin1Char(' ') + unidad + sufijo(unidad.back()) + QLatin1Char(' ');
            return;
        }

        // Cada palabra en plural: el sufijo va delante de cada espacio.
        const QString t = unidad + QLatin1Char(' ');
        QString r;
        for (qsizetype i = 0; i < t.size(); ++i) {
            if (t[i] == QLatin1Char(' ') && i > 0)
                r += sufijo(t[i - 1]);
            r += t[i];
        }
        resultado = QLatin1Char(' ') + r.trimmed() + QLatin1Char(' ');
    });
    return resultado;
}

QString clsNumToText::UnNumero(QString numero, const QString& generoRecibido)
{
    const QString generoGuardado = genero;
    const int longGuardada = longGenero;
    // Sólo la preparación tiene trampa propia; lo que falla después (un texto que no es número)
    // sube a Numero2Letra, que lo anota y devuelve el texto vacío.
    const bool preparado = guardia(FORMULARIO, QStringLiteral("UnNumero"), [&] {
        genero = generoRecibido;
        longGenero = int(genero.size());
        if (arrUnidades[1].compare(QStringLiteral("un") + genero, Qt::CaseInsensitive) != 0)
            InicializarArrays();
    });
    if (!preparado) {
        genero = generoGuardado;
        longGenero = longGuardada;
        return {};
    }

    if (numero.isEmpty())
        numero = QStringLiteral("0");
    const double convertido = valorNumerico(numero);
    const double valor = std::fabs(convertido);
    const bool negativo = convertido != valor;
    numero = textoDecimal(valor).remove(QLatin1Char(' '));
    if (valor < 1)
        return QStringLiteral("cero");  // sin devolver el género guardado

    const bool hayMillon = valor > 999999;
    const bool hayMillones = valor > 1999999;

    // Cuatro grupos de tres cifras: el 1 el de las unidades, el 4 el de los miles de millones.
    const QString relleno = (QStringLiteral("000000000000") + numero).right(12);
    QString grupos[5];
    for (int k = 1; k <= 4; ++k)
        grupos[k] = relleno.mid(12 - 3 * k, 3);

    int n = 4;
    while (n >= 1 && grupos[n] == QLatin1String("000"))
        --n;

    // El texto sale sólo de las tablas, en minúsculas: las comparaciones que siguen dan lo mismo
    // distinguiendo mayúsculas o no, y así son mucho más rápidas.
    QString texto;
    for (int k = 1; k <= n; ++k) {
        QString u, d, c;
        const QString& s = grupos[k];
        const int dos = valorCifras(s.right(2));
        const int ultima = valorCifras(s.right(1));
        if (s.right(1) == QLatin1String("0")) {
            d = arrDecenas[dos / 10];
        } else if (dos >= 11 && dos <= 15) {
            d = arrEspeciales[dos];
        } else {
            u = arrUnidades[ultima];
            d = arrDecenasCompuestas[valorCifras(s.mid(1, 1))];
        }
        int cifra = valorCifras(s.left(1));
        if (cifra == 1 && valorCifras(s) == 100)
            cifra = 10;
        c = arrCentenas[cifra] + QLatin1Char(' ');
        if (empiezaPor(texto, QStringLiteral(" mil")) && u.compare(QLatin1String("uno"), Qt::CaseSensitive) == 0)
            u.clear();
        texto = c + d + u + QLatin1Char(' ') + texto;
        if ((k == 1 || k == 3) && grupos[k + 1] != QLatin1String("000"))
            texto = QStringLiteral(" mil ") + texto;
        if (k == 2 && hayMillon)
            texto = (hayMillones ? QStringLiteral(" millones ") : QStringLiteral("un millón ")) + texto;
    }

    texto = texto.trimmed();
    if (texto.endsWith(QLatin1String("uno"), Qt::CaseSensitive))
        texto = texto.left(texto.size() - 1) + genero;
    reemplazarTodo(texto, QStringLiteral("  "), QStringLiteral(" "));

    // Simplificaciones del principio.
    const int L = longGenero;
    const QString un = QStringLiteral("un") + genero;
    if (empiezaPor(texto, un + QStringLiteral(" un")))
        texto.remove(0, L + 3);
    if (empiezaPor(texto, QStringLiteral("un un")))
        texto.remove(0, 3);
    if (empiezaPor(texto, un + QStringLiteral(" mil ")) || texto.compare(un + QStringLiteral(" mil"), Qt::CaseSensitive) == 0)
        texto.remove(0, L + 3);
    if (empiezaPor(texto, QStringLiteral("un mil ")))
        texto.remove(0, 3);

    for (const QString& buscado : {QStringLiteral("millones mil un") + genero, QStringLiteral("millones mil un")}) {
        const qsizetype q = texto.indexOf(buscado, 0, Qt::CaseSensitive);
        if (!texto.endsWith(buscado, Qt::CaseSensitive) && q >= 0)
            texto = texto.left(q + 9) + texto.mid(q + 13);
    }

    // En un número femenino los millones siguen siendo masculinos.
    if (hayMillones && genero.compare(QLatin1String("a"), Qt::CaseInsensitive) == 0) {
        for (;;) {
            const qsizetype as = texto.indexOf(QLatin1String("as "), 0, Qt::CaseSensitive);
            if (as < 0 || texto.lastIndexOf(QLatin1String(" millones"), -1, Qt::CaseSensitive) < as + 3)
                break;
            texto.replace(as, 3, QStringLiteral("os "));
        }
        for (qsizetype q; (q = texto.indexOf(QLatin1String("as millones"), 0, Qt::CaseSensitive)) >= 0;)
            texto.replace(q, 11, QStringLiteral("os millones"));
        const qsizetype q = texto.indexOf(QLatin1String("una mill"), 0, Qt::CaseSensitive);
        if (q >= 0)
            texto.remove(q + 2, 1);
    }

    // Acentos, sólo con un espacio detrás: la última palabra se queda sin él.
    reemplazarTodo(texto, QStringLiteral("veintiun "), QStringLiteral("veintiún "));
    reemplazarTodo(texto, QStringLiteral("veintidos "), QStringLiteral("veintidós "));
    reemplazarTodo(texto, QStringLiteral("veintitres "), QStringLiteral("veintitrés "));
    reemplazarTodo(texto, QStringLiteral("veintiseis "), QStringLiteral("veintiséis "));

    if (texto.endsWith(QLatin1String("ciento"), Qt::CaseSensitive))
        texto.chop(2);
    if (negativo)
        texto = QStringLiteral("menos ") + texto;
    texto = texto.trimmed();

    genero = generoGuardado;
    longGenero = longGuardada;
    return texto;
}

QString clsNumToText::Numero2Letra(const QString& numeroRecibido, int longitudFija, int decimales,
                                   const QString& unidadRecibida, const QString& centimosRecibidos, int masculino,
                                   int centimosMasculino)
{
    QString resultado;
    guardia(FORMULARIO, QStringLiteral("Numero2Letra"), [&] {
        const QString generoCentimos = centimosMasculino != 0 ? QStringLiteral("os") : QStringLiteral("as");
        genero = masculino != 0 ? QString() : QStringLiteral("a");
        plural = masculino != 0 ? QStringLiteral("os") : QStringLiteral("as");
        if (masculino != masculinoAnterior) {
            arrUnidades[1].clear();
            masculinoAnterior = masculino;
        }
        longGenero = int(genero.size());

        auto conEspacios = [](const QString& u) {
            const QString t = u.trimmed();
            return t.isEmpty() ? QStringLiteral(" ") : QLatin1Char(' ') + t + QLatin1Char(' ');
        };
        QString unidad = conEspacios(unidadRecibida);
        QString centimos = conEspacios(centimosRecibidos);
        const bool hayUnidad = !unidad.trimmed().isEmpty();
        const bool hayCentimos = !centimos.trimmed().isEmpty();

        QString texto = longitudFija != 0 ? QString(longitudFija, QLatin1Char(' ')) : QString();
        QString separador;
        const QString numero = ConvDecimal(numeroRecibido, &separador);
        const qsizetype pos = numero.indexOf(separador);

        if (pos >= 0) {
            QString enteros = numero.left(pos);
            QString fraccion = (numero.mid(pos + 1) + QString(decimales, QLatin1Char('0'))).left(decimales);
            if (valorNumerico(fraccion) < 1) {
                // La cantidad que se pasa es el propio resultado, no los enteros: con longitud libre
                // vale 0 y la unidad sale siempre en plural; con longitud fija son espacios, Pluralizar
                // anota su fallo y devuelve "", y el importe sale sin unidad.
                if (hayUnidad)
                    unidad = Pluralizar(texto, unidad, false);
                resultado = colocar(recortarDerecha(UnNumero(enteros, genero) + unidad), longitudFija);
                return;
            }
            if (hayUnidad)
                unidad = Pluralizar(enteros, unidad, false);
            enteros = UnNumero(enteros, genero);
            if (hayCentimos)
                centimos = Pluralizar(fraccion, centimos, false);
            plural = generoCentimos;
            fraccion = UnNumero(fraccion, centimosMasculino == 1 ? QString() : QStringLiteral("a"));
            texto = colocar(recortarDerecha(enteros + unidad + QStringLiteral("con ") + fraccion + centimos), longitudFija);
        } else {
            if (hayUnidad)
                unidad = Pluralizar(numero, unidad, false);
            texto = colocar(recortarDerecha(UnNumero(numero, genero) + unidad), longitudFija);
        }

        texto.replace(QStringLiteral("dieci "), QStringLiteral("diez "), Qt::CaseInsensitive);
        texto.replace(QStringLiteral("veinti "), QStringLiteral("veinte "), Qt::CaseInsensitive);
        texto.replace(QStringLiteral(" una "), QStringLiteral(" un "), Qt::CaseInsensitive);
        resultado = texto;
    });
    return resultado;
}
