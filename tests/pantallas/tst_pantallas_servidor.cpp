// Las pantallas contra el servidor PostgreSQL: el arranque con la fila de Config, la principal y
// el alta de un cliente; el asistente y la configuración, que dicen qué servidor y no piden
// carpeta; un servidor que no responde; y los filtros de los listados, iguales en los dos motores.
#include "app/Aplicacion.h"
#include "app/frmInicio.h"
#include "core/Programa.h"
#include "masterdata/frmCliente.h"
#include "masterdata/frmConfiguracion.h"
#include "reports/modInformes.h"
#include "tests/comun/ServidorPrueba.h"
#include "tests/pantallas/tst_fichas_comun.h"

#include <QLabel>
#include <QPushButton>
#include <QtTest>

using Mensajes::Respuesta;
using namespace fichas;

class tst_pantallas_servidor : public QObject {
    Q_OBJECT

    QPointer<frmInicio> m_inicio;  // se borra sola al abrir la principal

    static QString ajuste(const EntornoPrueba& e, const char* seccion, const char* clave)
    {
        return leerIni(e.ficheroIni(), QString::fromLatin1(seccion), QString::fromLatin1(clave));
    }
    // El servidor que dice el arranque, entero (la línea lo recorta si no cabe).
    QString motorDelArranque() const { return m_inicio->findChild<QLabel*>(QStringLiteral("lbl_Motor"))->toolTip(); }

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
        QVERIFY(m_inicio->findChild<QLabel*>(QStringLiteral("lbl_Motor"))->isVisibleTo(ini));
        QVERIFY(ini->width() <= 520);  // un nombre largo no ensancha la pantalla
        QCOMPARE(motorDelArranque(), QStringLiteral("Servidor PostgreSQL: base %1 en %2:%3 (usuario %4)")
                                         .arg(s.datos().base, s.datos().servidor, s.datos().puerto, s.datos().usuario));
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

    // Un servidor que no responde: el arranque dice cuál en español, lo anota una vez y se queda
    // parado sin caerse; no marca el puesto para volver a preguntar por la carpeta.
    void servidorQueNoResponde()
    {
        EntornoPrueba e;
        e.escribirIni(QStringLiteral("[BD]\r\nmotor=postgresql\r\nservidor=/nonexistent/planorum\r\npuerto=5433\r\n"
                                     "base=estudio\r\nusuario=ana\r\n[Opciones]\r\ninicio=1\r\n"));
        frmInicio* ini = m_inicio = new frmInicio;
        ini->Form_Load();
        QVERIFY(!Programa::terminado());
        QVERIFY(!ini->temporizadorActivo());
        QCOMPARE(e.cuadros.size(), 1);
        QVERIFY2(e.cuadros[0].texto.contains(QStringLiteral(
                     "No se puede conectar con el servidor de la base de datos (ana@/nonexistent/planorum:5433/estudio).")),
                 qPrintable(e.cuadros[0].texto));
        QCOMPARE(e.entradasLog(), 1);
        QCOMPARE(motorDelArranque(), QStringLiteral("Servidor PostgreSQL: base estudio en /nonexistent/planorum:5433 (usuario ana)"));
        QCOMPARE(ini->findChild<QLabel*>(QStringLiteral("lbl_Motor"))->text(), motorDelArranque());
        QCOMPARE(ajuste(e, "Opciones", "inicio"), QStringLiteral("1"));
        QVERIFY(!BaseDatos::estaAbierta());
        // Un clic cierra la pantalla de arranque.
        QTest::mouseClick(ini, Qt::LeftButton);
        QVERIFY(Programa::terminado());
    }

    // La primera vez en un puesto del servidor el asistente dice cuál es y no pide carpeta:
    // anota la instalación y deja "ruta" como estaba, y el arranque sigue contra el servidor.
    void asistenteSinCarpeta()
    {
        EntornoPrueba e;
        ServidorPrueba s;
        REQUIERE_SERVIDOR(s);
        s.elegirEn(e);
        sql(QStringLiteral("INSERT INTO Config (IVA, IRPF) VALUES (21, 15)"));
        BaseDatos::cerrar();
        escribirAjuste(QStringLiteral("Opciones"), QStringLiteral("inicio"), QStringLiteral("0"));
        escribirAjuste(QStringLiteral("BD"), QStringLiteral("ruta"), QStringLiteral("/antes/"));
        e.carpetas << e.carpetaDatos();  // si lo pidiera, una carpeta buena
        QString explicacion;
        VigiaDialogo vigia(QStringLiteral("frmAyudaSeleccionBD"), [&](QWidget* w) {
            explicacion = w->findChild<QLabel*>(QStringLiteral("lbl_Explicacion"))->text();
            w->findChild<QPushButton*>(QStringLiteral("cmd_Continuar"))->click();
        });
        frmInicio* ini = m_inicio = new frmInicio;
        ini->Form_Load();
        QVERIFY2(explicacion.contains(s.datos().textoVisible()), qPrintable(explicacion));
        QVERIFY(!explicacion.contains(QStringLiteral("Usuarios.qst")));
        QVERIFY(e.titulosCarpeta.isEmpty());
        QVERIFY2(!Programa::terminado() && ini->temporizadorActivo(), qPrintable(e.textos().join(QLatin1Char('\n'))));
        QVERIFY(e.cuadros.isEmpty());
        QCOMPARE(ajuste(e, "Opciones", "inicio"), QStringLiteral("1"));
        QCOMPARE(ajuste(e, "BD", "ruta"), QStringLiteral("/antes/"));
        QCOMPARE(ajuste(e, "BD", "motor"), QStringLiteral("postgresql"));
        QVERIFY(ajuste(e, "BD", "ruta_instalacion").startsWith(e.directorio()));
        QVERIFY(ajuste(e, "PLANTILLAS_CONTRATOS", "P5").endsWith(QStringLiteral("Trabajos_especiales.doc")));
    }

    // La configuración enseña el servidor donde el fichero enseña su carpeta, no deja cambiarla,
    // y al guardar no escribe ese texto como carpeta en inicio.ini.
    void configuracionDiceElServidor()
    {
        EntornoPrueba e;
        ServidorPrueba s;
        REQUIERE_SERVIDOR(s);
        s.elegirEn(e);
        escribirAjuste(QStringLiteral("BD"), QStringLiteral("ruta"), QStringLiteral("/antes/"));
        sql(QStringLiteral("INSERT INTO Config (Arq1Nom, Modulo, IVA, IRPF) VALUES ('Ana', 500, 21, 15)"));
        frmConfiguracion* f = frmConfiguracion::abrir(2);
        QVERIFY(f);
        QCOMPARE(leer(f, QStringLiteral("txt_RutaBD")), s.datos().textoVisible());
        QVERIFY(!boton(f, QStringLiteral("cmd_Cambiar"))->isEnabled());
        poner(f, QStringLiteral("txt_Iva"), QStringLiteral("10"));
        f->cmd_Guardar_Click();
        QCOMPARE(e.textos(), QStringList{QStringLiteral("La configuración se ha guardado correctamente")});
        QCOMPARE(ajuste(e, "BD", "ruta"), QStringLiteral("/antes/"));
        QCOMPARE(fila(QStringLiteral("SELECT Arq1Nom, IVA, (SELECT count(*) FROM Config) FROM Config")),
                 (QVariantList{QStringLiteral("Ana"), 10, 1}));
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
