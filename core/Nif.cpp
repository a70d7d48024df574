#include "core/Nif.h"

#include "core/Formato.h"
#include "core/Guardia.h"
#include "core/Mensajes.h"

namespace {

// Valor numérico de un carácter: una letra cuenta como 0.
int cifra(const QString& texto, int posicion)
{
    const QChar c = posicion >= 1 && posicion <= texto.size() ? texto[posicion - 1] : QChar();
    return c >= QLatin1Char('0') && c <= QLatin1Char('9') ? c.unicode() - '0' : 0;
}

// Cada paso que falla pone el resultado a falso y avisa, y se sigue con el siguiente: el usuario
// ve de una vez todo lo que está mal, cuadro a cuadro, en el orden de la regla.
void comprobarCIF(const QString& cif, bool& resultado)
{
    // Sin el separador entre la letra y el número.
    const QString valor = Formato::esNumerico(cif.mid(1, 1)) ? cif : cif.left(1) + cif.mid(2);

    if (valor.size() < 9) {
        resultado = false;
        Mensajes::aviso(QStringLiteral("\n  - La longitud del CIF no es válida.\n")
                        + QStringLiteral("      * Ha de tener 9 caracteres (sin el separador entre la letra y el número)\n")
                        + QStringLiteral("      * O bien 10 caracteres (si se incluye el guión separador entre la letra y el número)"));
    }

    // Sin primer carácter no hay letra que valga.
    if (valor.isEmpty() || !QStringLiteral("ABCDEFGHKLMNPQS").contains(valor.at(0), Qt::CaseSensitive)) {
        resultado = false;
        Mensajes::aviso(QStringLiteral("\n  - La primera letra no corresponde a un CIF válido o no es una letra.\n\n")
                        + QStringLiteral("  - Los caracteres válidos son:\n")
                        + QStringLiteral("      * A - Sociedad Anónima\n")
                        + QStringLiteral("      * B - Sociedad de responsabilidad limitada\n")
                        + QStringLiteral("      * C - Sociedad colectiva\n")
                        + QStringLiteral("      * D - Sociedad comanditaria\n")
                        + QStringLiteral("      * E - Comunidad de bienes\n")
                        + QStringLiteral("      * F - Sociedad cooperativa\n")
                        + QStringLiteral("      * G - Asociación\n")
                        + QStringLiteral("      * H - Comunidad de propietarios\n")
                        + QStringLiteral("      * K - Formato antiguo\n")
                        + QStringLiteral("      * L - Formato antiguo\n")
                        + QStringLiteral("      * M - Formato antiguo\n")
                        + QStringLiteral("      * N - Formato antiguo\n")
                        + QStringLiteral("      * P - Corporación local\n")
                        + QStringLiteral("      * Q - Organismo autónomo\n")
                        + QStringLiteral("      * S - Órgano de la administración"));
    }

    // Suma de control: en las posiciones pares la suma de cifras del doble, en las impares la cifra.
    static const int dobles[] = {0, 2, 4, 6, 8, 1, 3, 5, 7, 9};
    int suma = 0;
    for (int i = 2; i <= 6; i += 2)
        suma += dobles[cifra(valor, i)] + cifra(valor, i + 1);
    suma += dobles[cifra(valor, 8)];

    const int r = suma % 10;
    const QString digito = r == 0 ? QStringLiteral("0") : QString::number(10 - r);
    const QString letra = r == 0 ? QStringLiteral("J") : QString(QChar(74 - r));
    const QString ultimo = valor.right(1);
    if (ultimo != digito && ultimo != letra) {
        resultado = false;
        Mensajes::aviso(QStringLiteral("\n  - El dígito de control (último carácter del CIF) no es válido.\n")
                        + QStringLiteral("      * Aparece '") + ultimo + QStringLiteral("' y debería ser '") + digito
                        + QStringLiteral("' ó '") + letra + QStringLiteral("'"));
    }
}

}  // namespace

QString calcularLetraNIF(long numero)
{
    static const QString letras = QStringLiteral("TRWAGMYFPDXBNJZSQVHLCKE");
    QString letra;
    guardia(QStringLiteral("modFunciones"), QStringLiteral("calcularLetraNIF"), [&] {
        const long resto = numero % 23;
        if (resto < 0)
            lanzarError(5, QStringLiteral("Llamada a procedimiento o argumento no válidos"));
        letra = letras.at(resto);
    });
    return letra;
}

bool validarCIF(const QString& cif)
{
    // Ante un fallo atrapado se devuelve el resultado que llevaba: falso si algún paso ya había
    // fallado, cierto si no.
    bool resultado = true;
    guardia(QStringLiteral("modFunciones"), QStringLiteral("validarCIF"), [&] { comprobarCIF(cif, resultado); });
    return resultado;
}
