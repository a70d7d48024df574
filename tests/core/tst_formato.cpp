#include "core/Formato.h"

#include <QLocale>
#include <QTest>

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>

namespace {

// Referencia independiente del código probado: la forma de quince cifras que da printf ("%.14e")
// se lee como un entero de quince cifras y un exponente, y el redondeo a la mitad hacia fuera se
// hace con aritmética entera exacta. Sólo vale para valores por debajo de 1e13.
QString referencia(double x, int decimales)
{
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.14e", std::fabs(x));
    qint64 mantisa = 0;
    const char* p = buf;
    for (; *p != 'e'; ++p)
        if (*p != '.')
            mantisa = mantisa * 10 + (*p - '0');
    // x = mantisa × 10^(exponente - 14); en unidades de la última cifra: × 10^decimales.
    const int escala = std::atoi(p + 1) - 14 + decimales;
    qint64 unidades = mantisa;
    if (escala >= 0) {
        for (int i = 0; i < escala; ++i)
            unidades *= 10;
    } else if (escala < -16) {
        unidades = 0;
    } else {
        qint64 divisor = 1;
        for (int i = 0; i < -escala; ++i)
            divisor *= 10;
        unidades = mantisa / divisor + (2 * (mantisa % divisor) >= divisor ? 1 : 0);
    }
    QString cifras = QString::number(unidades).rightJustified(decimales + 1, QLatin1Char('0'));
    const QString fraccion = cifras.right(decimales);
    QString enteros = cifras.left(cifras.size() - decimales);
    for (qsizetype i = enteros.size() - 3; i > 0; i -= 3)
        enteros.insert(i, QLatin1Char('.'));
    return (x < 0 && unidades != 0 ? QStringLiteral("-") : QString()) + enteros
        + (decimales > 0 ? QLatin1Char(',') + fraccion : QString());
}

}  // namespace

class tst_Formato : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain)); }

    void formatear_data()
    {
        QTest::addColumn<double>("valor");
        QTest::addColumn<QString>("patron");
        QTest::addColumn<QString>("esperado");
        const QString moneda = QStringLiteral("#,##0.00");
        // Redondeo a la mitad hacia fuera sobre el valor decimal, no sobre el binario.
        QTest::newRow("2,625") << 2.625 << moneda << "2,63";
        QTest::newRow("1,005") << 1.005 << moneda << "1,01";
        QTest::newRow("0,075") << 0.075 << moneda << "0,08";
        // El double queda por debajo de la mitad, su forma de quince cifras no.
        QTest::newRow("1,50 × 0,15") << 1.50 * 0.15 << moneda << "0,23";
        QTest::newRow("9,50 × 0,21") << 9.50 * 0.21 << moneda << "2,00";
        QTest::newRow("9,87 ÷ 0,08") << 9.87 / 0.08 << moneda << "123,38";
        QTest::newRow("-1,50 × 0,15") << -1.50 * 0.15 << moneda << "-0,23";
        QTest::newRow("-9,87 ÷ 0,08") << -9.87 / 0.08 << moneda << "-123,38";
        QTest::newRow("-1,005") << -1.005 << moneda << "-1,01";
        QTest::newRow("-0,075") << -0.075 << moneda << "-0,08";
        QTest::newRow("un decimal") << 2.25 << "#,##0.0" << "2,3";
        QTest::newRow("un decimal, mil") << -1234.45 << "#,##0.0" << "-1.234,5";
        QTest::newRow("sin decimales") << 1234.5 << "#,##0" << "1.235";
        QTest::newRow("cuatro decimales, producto") << 1.21 * 0.205 << "#,##0.0000" << "0,2481";
        QTest::newRow("0,1+0,2") << 0.1 + 0.2 << moneda << "0,30";
        QTest::newRow("-2,625") << -2.625 << moneda << "-2,63";
        // Agrupación de miles siempre, también con cuatro cifras.
        QTest::newRow("mil") << 1000.0 << moneda << "1.000,00";
        QTest::newRow("negativo") << -1234.5 << moneda << "-1.234,50";
        QTest::newRow("millones") << 1234567.891 << moneda << "1.234.567,89";
        QTest::newRow("acarreo con grupo") << 999.995 << moneda << "1.000,00";
        QTest::newRow("acarreo largo") << 999999.999 << moneda << "1.000.000,00";
        QTest::newRow("cero") << 0.0 << moneda << "0,00";
        QTest::newRow("menos cero") << -0.004 << moneda << "0,00";
        QTest::newRow("medio céntimo negativo") << -0.005 << moneda << "-0,01";
        QTest::newRow("grande") << 1e15 << moneda << "1.000.000.000.000.000,00";
        // Más de quince cifras: salen las quince primeras y ceros.
        QTest::newRow("diecisiete cifras") << 12345678901234567.0 << moneda << "12.345.678.901.234.600,00";
        QTest::newRow("dieciséis cifras con mitad") << 1234567890123.455 << moneda << "1.234.567.890.123,46";
        QTest::newRow("diminuto") << 1e-300 << moneda << "0,00";
        QTest::newRow("diminuto negativo") << -4.9e-324 << moneda << "0,00";
        QTest::newRow("no es número") << std::numeric_limits<double>::quiet_NaN() << moneda << "";
        QTest::newRow("infinito") << -std::numeric_limits<double>::infinity() << moneda << "";
        QTest::newRow("cuatro decimales") << 1.00005 << "#,##0.0000" << "1,0001";
        QTest::newRow("sin agrupar") << 12345.678 << "###0.00" << "12345,68";
        QTest::newRow("0.00") << 0.125 << "0.00" << "0,13";
        QTest::newRow("0.00 miles") << 4321.0 << "0.00" << "4321,00";
    }
    void formatear()
    {
        QFETCH(double, valor);
        QFETCH(QString, patron);
        QFETCH(QString, esperado);
        QCOMPARE(Formato::formatear(valor, patron), esperado);
    }

    // El mayor double: 309 cifras enteras, las quince primeras y ceros, agrupadas.
    void extremos()
    {
        const QString maximo = Formato::formatear(-DBL_MAX, QStringLiteral("#,##0.00"));
        QVERIFY(maximo.startsWith(QStringLiteral("-179.769.313.486.232.000.000.")));
        QVERIFY(maximo.endsWith(QStringLiteral(".000,00")));
        QCOMPARE(maximo.size(), 1 + 309 + 102 + 3);
        QCOMPARE(Formato::formatear(DBL_MAX, QStringLiteral("0.00")).size(), 309 + 3);
        QCOMPARE(Formato::formatear(DBL_TRUE_MIN, QStringLiteral("0.0000")), QStringLiteral("0,0000"));
    }

    // Productos y cocientes de importes de dos decimales, como los de las facturas y el coste de
    // referencia, contra la referencia exacta.
    void aleatorio()
    {
        std::mt19937_64 azar(20080305);
        auto centimos = [&](quint64 maximo) { return double(azar() % maximo + 1) / 100.0; };
        const double tipos[] = {4, 10, 15, 16, 19, 21};
        const QString moneda = QStringLiteral("#,##0.00");
        const QString cuatro = QStringLiteral("#,##0.0000");
        int comparados = 0;
        int distintos = 0;
        QStringList ejemplos;
        auto comparar = [&](double a, const char* operacion, double b, double x, const QString& patron, int decimales) {
            ++comparados;
            const QString obtenido = Formato::formatear(x, patron);
            const QString esperado = referencia(x, decimales);
            if (obtenido != esperado && ++distintos <= 10)
                ejemplos << QStringLiteral("%1 %2 %3 = %4: \"%5\", debería ser \"%6\"")
                                .arg(a, 0, 'g', 17).arg(QString::fromUtf8(operacion)).arg(b, 0, 'g', 17)
                                .arg(x, 0, 'g', 17).arg(obtenido, esperado);
        };
        for (int i = 0; i < 20000; ++i) {
            const double signo = azar() % 8 == 0 ? -1.0 : 1.0;
            const double importe = signo * centimos(azar() % 2 == 0 ? 100000 : 100000000);
            for (const double tipo : tipos)
                comparar(importe, "×", tipo / 100.0, importe * (tipo / 100.0), moneda, 2);
            const double otro = centimos(azar() % 2 == 0 ? 10000 : 1000000);
            comparar(importe, "×", otro, importe * otro, moneda, 2);
            comparar(importe, "÷", otro, importe / otro, moneda, 2);
            // Coeficientes de tres decimales en el patrón de cuatro.
            comparar(importe, "×", otro / 10.0, importe * (otro / 10.0), cuatro, 4);
        }
        QVERIFY(comparados >= 100000);
        QVERIFY2(distintos == 0, qPrintable(QStringLiteral("%1 de %2 distintos:\n").arg(distintos).arg(comparados)
                                            + ejemplos.join(QLatin1Char('\n'))));
    }

    void numerico_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<bool>("esNumero");
        QTest::addColumn<double>("valor");
        QTest::newRow("agrupado") << "1.234,56" << true << 1234.56;
        QTest::newRow("negativo") << "-0,50" << true << -0.5;
        QTest::newRow("coma delante") << ",5" << true << 0.5;
        QTest::newRow("entero") << "12" << true << 12.0;
        QTest::newRow("espacios") << " 7 " << true << 7.0;
        QTest::newRow("millones") << "1.234.567,8" << true << 1234567.8;
        QTest::newRow("sólo miles") << "1.234" << true << 1234.0;
        QTest::newRow("coma final") << "12," << true << 12.0;
        QTest::newRow("menos coma") << "-,5" << true << -0.5;
        QTest::newRow("vacío") << "" << false << 0.0;
        QTest::newRow("menos solo") << "-" << false << 0.0;
        QTest::newRow("coma sola") << "," << false << 0.0;
        QTest::newRow("letras") << "abc" << false << 0.0;
        QTest::newRow("dos comas") << "1,2,3" << false << 0.0;
        // El punto sólo agrupa, de tres en tres.
        QTest::newRow("punto decimal") << "1.5" << false << 0.0;
        QTest::newRow("primer grupo largo") << "1234.567" << false << 0.0;
        QTest::newRow("punto delante") << ".5" << false << 0.0;
        QTest::newRow("punto tras la coma") << "1,234.5" << false << 0.0;
        QTest::newRow("menos detrás") << "5-" << false << 0.0;
        QTest::newRow("espacio dentro") << "1 234" << false << 0.0;
        // Lo que no se puede leer como número tampoco es numérico; lo diminuto se lee como cero.
        QTest::newRow("400 cifras") << QString(400, QLatin1Char('9')) << false << 0.0;
        QTest::newRow("400 cifras agrupadas") << QStringLiteral("1") + QStringLiteral(".000").repeated(133) << false << 0.0;
        QTest::newRow("300 cifras") << QStringLiteral("1") + QString(300, QLatin1Char('0')) << true << 1e300;
        QTest::newRow("400 decimales") << QStringLiteral("-0,") + QString(400, QLatin1Char('0')) + QStringLiteral("1") << true
                                       << 0.0;
    }
    void numerico()
    {
        QFETCH(QString, texto);
        QFETCH(bool, esNumero);
        QFETCH(double, valor);
        QCOMPARE(Formato::esNumerico(texto), esNumero);
        bool ok = !esNumero;
        QCOMPARE(Formato::aNumero(texto, &ok), valor);
        QCOMPARE(ok, esNumero);
    }

    // El programa lee de vuelta sus propios textos formateados.
    void idaYVuelta_data()
    {
        QTest::addColumn<double>("valor");
        QTest::newRow("pequeño") << 0.07;
        QTest::newRow("miles") << 1234.56;
        QTest::newRow("negativo") << -98765.43;
        QTest::newRow("millones") << 123456789.01;
    }
    void idaYVuelta()
    {
        QFETCH(double, valor);
        for (const QString& patron : {QStringLiteral("#,##0.00"), QStringLiteral("###0.00"), QStringLiteral("#,##0.0000")}) {
            const QString texto = Formato::formatear(valor, patron);
            QVERIFY2(Formato::esNumerico(texto), qPrintable(texto));
            QCOMPARE(Formato::aNumero(texto), valor);
        }
    }

    void fechas_data()
    {
        QTest::addColumn<QDate>("fecha");
        QTest::addColumn<QString>("corta");
        QTest::addColumn<QString>("pie");
        QTest::addColumn<QString>("larga");
        QTest::newRow("marzo") << QDate(2008, 3, 5) << "05/03/2008" << "5 de marzo de 2008" << "miércoles, 5 de marzo de 2008";
        QTest::newRow("noviembre") << QDate(2008, 11, 24) << "24/11/2008" << "24 de noviembre de 2008"
                                   << "lunes, 24 de noviembre de 2008";
    }
    void fechas()
    {
        QFETCH(QDate, fecha);
        QFETCH(QString, corta);
        QFETCH(QString, pie);
        QFETCH(QString, larga);
        QCOMPARE(Formato::fechaCorta(fecha), corta);
        QCOMPARE(Formato::fechaPie(fecha), pie);
        QCOMPARE(Formato::fechaLarga(fecha), larga);
    }
};

QTEST_MAIN(tst_Formato)
#include "tst_formato.moc"
