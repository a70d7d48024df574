#include "core/Formato.h"

#include <QLocale>
#include <QTest>

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
