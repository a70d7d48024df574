// Tiempos de la conversión de importes a letra y del formato de números.
// Se compila aparte: ninja bench_numeros; se ejecuta a mano.
#include "core/Formato.h"
#include "core/clsNumToText.h"

#include <QElapsedTimer>
#include <QLocale>
#include <QStringList>

#include <cstdio>

int main()
{
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    constexpr int N = 1000000;

    // Importes variados como los de las facturas: de céntimos a millones.
    QStringList importes;
    importes.reserve(1000);
    quint64 semilla = 12345;
    for (int i = 0; i < 1000; ++i) {
        semilla = semilla * 6364136223846793005ULL + 1442695040888963407ULL;
        const double v = double((semilla >> 20) % 1000000000ULL) / 100.0;
        importes << Formato::formatear(v, QStringLiteral("###0.00"));
    }

    clsNumToText conversor;
    QElapsedTimer reloj;
    reloj.start();
    qsizetype longitud = 0;
    for (int i = 0; i < N; ++i)
        longitud += conversor
                        .Numero2Letra(importes[i % 1000], 0, 2, QStringLiteral("euro"), QStringLiteral("céntimo"),
                                      clsNumToText::VERDADERO, clsNumToText::VERDADERO)
                        .size();
    const qint64 msLetra = reloj.elapsed();

    const QString patron = QStringLiteral("#,##0.00");
    reloj.restart();
    for (int i = 0; i < N; ++i)
        longitud += Formato::formatear(double(i) * 1.37 + 0.005, patron).size();
    const qint64 msFormato = reloj.elapsed();

    std::printf("Importes a letra: %d en %lld ms (%.2f us cada uno)\n", N, qint64(msLetra), msLetra * 1000.0 / N);
    std::printf("Formato #,##0.00: %d en %lld ms (%.3f us cada uno)\n", N, qint64(msFormato), msFormato * 1000.0 / N);
    std::printf("(comprobación: %lld)\n", qint64(longitud));
    return 0;
}
