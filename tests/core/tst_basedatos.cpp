// Conexión compartida, orden español, búsquedas sin distinguir mayúsculas ni acentos y
// transacciones. Lo que toca el fichero entero está en tst_almacen.
#include "core/Cotejo.h"
#include "core/modFunciones.h"
#include "tests/comun/EntornoPrueba.h"

#include <QtTest>

class tst_basedatos : public QObject {
    Q_OBJECT

    static QStringList columna(const QString& sql, const QVariantList& v = {})
    {
        QStringList r;
        Consulta c(sql, v);
        while (c.siguiente())
            r << c.valor(0).toString();
        return r;
    }

private slots:
    void ordenEspanol()
    {
        QStringList nombres{QStringLiteral("Nuñez"), QStringLiteral("murcia"), QStringLiteral("Benítez"), QStringLiteral("Nuno"),
                            QStringLiteral("Muñoz"), QStringLiteral("Álvarez"), QStringLiteral("álvarez"), QStringLiteral("Zapata"),
                            QStringLiteral("alvarez"), QStringLiteral("12"), QStringLiteral("Ñandú")};
        std::sort(nombres.begin(), nombres.end(), [](const QString& a, const QString& b) { return Cotejo::comparar(a, b) < 0; });
        QCOMPARE(nombres, (QStringList{QStringLiteral("12"), QStringLiteral("alvarez"), QStringLiteral("álvarez"), QStringLiteral("Álvarez"),
                                       QStringLiteral("Benítez"), QStringLiteral("Muñoz"), QStringLiteral("murcia"), QStringLiteral("Nuno"),
                                       QStringLiteral("Nuñez"), QStringLiteral("Ñandú"), QStringLiteral("Zapata")}));
    }

    void parecido_data()
    {
        QTest::addColumn<QString>("patron");
        QTest::addColumn<QString>("valor");
        QTest::addColumn<bool>("casa");
        QTest::newRow("acentos") << QStringLiteral("%jose%") << QStringLiteral("JOSÉ MARÍA") << true;
        QTest::newRow("mayúsculas") << QStringLiteral("ga%") << QStringLiteral("García") << true;
        QTest::newRow("eñe sin tilde") << QStringLiteral("%nunez%") << QStringLiteral("Núñez O'Brien") << true;
        QTest::newRow("eñe en mayúsculas") << QStringLiteral("%NUÑEZ%") << QStringLiteral("Núñez") << true;
        QTest::newRow("eñe buscada sin tilde") << QStringLiteral("munoz%") << QStringLiteral("MUÑOZ") << true;
        QTest::newRow("lo que deja el filtro") << QStringLiteral("%nez%") << QStringLiteral("Núñez") << true;
        QTest::newRow("otra letra") << QStringLiteral("%nunez%") << QStringLiteral("Nuno") << false;
        QTest::newRow("comodín uno") << QStringLiteral("_ar%") << QStringLiteral("María") << true;
        QTest::newRow("comilla") << QStringLiteral("%o'd%") << QStringLiteral("O'Donnell") << true;
        QTest::newRow("sin casar") << QStringLiteral("%xyz%") << QStringLiteral("abc") << false;
        QTest::newRow("vacío") << QStringLiteral("%%") << QString() << true;
    }

    void parecido()
    {
        QFETCH(QString, patron);
        QFETCH(QString, valor);
        QFETCH(bool, casa);
        QCOMPARE(Cotejo::parecido(patron.toStdString(), valor.toStdString()), casa);
    }

    void consultasConFuncionesEspanolas()
    {
        EntornoPrueba e;
        e.conectar();
        UsoConexion uso;
        ejecutar(QStringLiteral("CREATE TEMP TABLE t (n TEXT)"));
        for (const char* n : {"Muñoz", "Nuno", "Álvarez", "O'Brien", "josé", "Murcia"})
            ejecutar(QStringLiteral("INSERT INTO t VALUES (?)"), {QString::fromUtf8(n)});
        QCOMPARE(columna(QStringLiteral("SELECT n FROM t ORDER BY n COLLATE ES")),
                 (QStringList{QStringLiteral("Álvarez"), QStringLiteral("josé"), QStringLiteral("Muñoz"), QStringLiteral("Murcia"),
                              QStringLiteral("Nuno"), QStringLiteral("O'Brien")}));
        QCOMPARE(columna(QStringLiteral("SELECT n FROM t WHERE n LIKE ?"), {QStringLiteral("%JOSE%")}), QStringList{QStringLiteral("josé")});
        QCOMPARE(columna(QStringLiteral("SELECT n FROM t WHERE n LIKE ?"), {QStringLiteral("%'%")}), QStringList{QStringLiteral("O'Brien")});
        QCOMPARE(columna(QStringLiteral("SELECT UCASE(n) FROM t WHERE n = 'josé'")), QStringList{QStringLiteral("JOSÉ")});
    }

    void conexionCerradaEnReposo()
    {
        EntornoPrueba e;
        e.conectar();
        QVERIFY(!BaseDatos::estaAbierta());
        {
            UsoConexion fuera;
            QVERIFY(BaseDatos::estaAbierta());
            {
                UsoConexion dentro;  // no la abrió: no la cierra
            }
            QVERIFY(BaseDatos::estaAbierta());
        }
        QVERIFY(!BaseDatos::estaAbierta());
    }

    void transaccionSeDeshaceSiNoSeConfirma()
    {
        EntornoPrueba e;
        e.conectar();
        try {
            Transaccion t;
            QVERIFY(transaccionEnCurso);
            insertar(QStringLiteral("Costes"), {{QStringLiteral("CODIGO"), QStringLiteral("A1")}, {QStringLiteral("TIPO"), QStringLiteral("x")}});
            ejecutar(QStringLiteral("INSERT INTO TablaQueNoExiste VALUES (1)"));
            QFAIL("debía fallar");
        } catch (const ErrorPrograma& err) {
            QVERIFY(err.descripcion.contains(QStringLiteral("TablaQueNoExiste")));
        }
        QVERIFY(!transaccionEnCurso);
        QVERIFY(!BaseDatos::estaAbierta());
        UsoConexion uso;
        QCOMPARE(escalar(QStringLiteral("SELECT count(*) FROM Costes")).toInt(), 0);
        {
            Transaccion t;
            insertar(QStringLiteral("Costes"), {{QStringLiteral("CODIGO"), QStringLiteral("B2")}});
            t.confirmar();
        }
        QCOMPARE(escalar(QStringLiteral("SELECT count(*) FROM Costes")).toInt(), 1);
        QCOMPARE(siguienteClave(QStringLiteral("Clientes"), QStringLiteral("Codigo_Cli")), 1);
        QVERIFY(textoONulo(QStringLiteral("   ")).isNull());
        QCOMPARE(textoONulo(QStringLiteral(" a ")).toString(), QStringLiteral("a"));
    }
};

QTEST_MAIN(tst_basedatos)
#include "tst_basedatos.moc"
