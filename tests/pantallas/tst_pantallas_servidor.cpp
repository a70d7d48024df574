// Las pantallas contra el servidor PostgreSQL: el arranque con la fila de Config, la principal y
// el alta de un cliente; y los filtros de los listados, iguales en los dos motores.
#include "app/Aplicacion.h"
#include "app/frmInicio.h"
#include "core/Programa.h"
#include "masterdata/frmCliente.h"
#include "reports/modInformes.h"
#include "tests/comun/ServidorPrueba.h"
#include "tests/pantallas/tst_fichas_comun.h"

#include <QtTest>

using Mensajes::Respuesta;
using namespace fichas;

class tst_pantallas_servidor : public QObject {
    Q_OBJECT

    QPointer<frmInicio> m_inicio;  // se borra sola al abrir la principal

private slots:
    void init() { Aplicacion::reiniciar(); }
    void cleanup()
    {
        delete m_inicio;
        limpiar();
        Aplicacion::reiniciar();
    }

    // El arranque crea la fila de Config con los tipos por defecto, abre la principal, y una
    // ficha da de alta un cliente con su clave "mayor más uno".
    void arranqueYAltaDeUnCliente()
    {
        EntornoPrueba e;
        ServidorPrueba s;
        REQUIERE_SERVIDOR(s);
        s.elegirEn(e);
        e.respuestas << Respuesta::No;
        frmInicio* ini = m_inicio = new frmInicio;
        ini->Form_Load();
        QVERIFY2(!Programa::terminado() && ini->temporizadorActivo(), qPrintable(e.textos().join(QLatin1Char('\n'))));
        QCOMPARE(e.cuadros.size(), 1);
        QVERIFY(e.cuadros[0].texto.startsWith(QStringLiteral("No se han establecido valores para el IVA ni el IRPF.")));
        ini->tmr_1_Timer();
        frmMenu* menu = frmMenu::existente();
        QVERIFY(menu && menu->isVisible());
        QCOMPARE(fila(QStringLiteral("SELECT IVA, IRPF, (SELECT count(*) FROM Config) FROM Config")), (QVariantList{16, 15, 1}));

        sql(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli) VALUES (4, 'Previo')"));
        auto* f = abrir<frmCliente>(QStringLiteral("CLIENTES"), QStringLiteral("ALTA"));
        QVERIFY(f);
        poner(f, {{"txt_Nombre", "  Begoña  "}, {"txt_NIF", "12345678Z"}, {"txt_Municipio", "Soria"}, {"cbo_Provincia_Cliente", "Soria"}});
        pulsar(f, QStringLiteral("cmd_Guardar"));
        QCOMPARE(e.textos().last(), QStringLiteral("Cliente dado de alta correctamente"));
        QVERIFY(!abierta(f));
        QCOMPARE(fila(QStringLiteral("SELECT Codigo_Cli, Nombre_Cli, Provincia_Cli FROM Clientes WHERE Codigo_Cli > 4")),
                 (QVariantList{5, QStringLiteral("Begoña"), QStringLiteral("Soria")}));
    }

    // El filtro "LIKE" de los listados halla lo mismo en los dos motores: también en una columna
    // numérica, y con la barra invertida como una letra más.
    void parecidoDeLosListados_data() { ServidorPrueba::filasDeMotor(); }
    void parecidoDeLosListados()
    {
        MOTOR_DE_LA_FILA(e, s);
        sql(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, NumColegiado, Nombre_Cli) VALUES "
                           "(1, 'ARQUITECTO', 1234, 'Ana\\Luz'), (2, 'ARQUITECTO', 5678, 'Ana_Luz'), (3, 'ARQUITECTO', 230, 'Eva')"));
        const auto hallados = [](const QString& campo, const QString& patron) {
            QVariantList valores;
            const QString donde = modInformes::FiltroListado{.campo = campo, .operador = QStringLiteral("like"), .valores = {patron}}.condicion(&valores);
            QStringList r;
            UsoConexion uso;
            for (Consulta c(QStringLiteral("SELECT Codigo_Cli FROM OTROS WHERE ") + donde + QStringLiteral(" ORDER BY Codigo_Cli"), valores);
                 c.siguiente();)
                r << c.valor(0).toString();
            return r.join(QLatin1Char(','));
        };
        QCOMPARE(hallados(QStringLiteral("NumColegiado"), QStringLiteral("%23%")), QStringLiteral("1,3"));
        QCOMPARE(hallados(QStringLiteral("Nombre_Cli"), QStringLiteral("%\\_%")), QStringLiteral("1"));
        QCOMPARE(hallados(QStringLiteral("Nombre_Cli"), QStringLiteral("ana_luz")), QStringLiteral("1,2"));
    }
};

PRUEBA_PANTALLAS(tst_pantallas_servidor)

#include "tst_pantallas_servidor.moc"
