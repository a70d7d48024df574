// Impresos A1 y B2 por su pantalla: hojas de arquitectos, bloques de cliente y sociedad,
// histórico, pregunta al salir, vista previa e impreso en blanco.
#include "app/frmMenu.h"
#include "core/modFunciones.h"
#include "forms/AbrirImpreso.h"
#include "forms/DatosImpreso.h"
#include "forms/TablaImpresos.h"
#include "forms/frmDatosImpreso_A1.h"
#include "forms/frmDatosImpreso_B2.h"
#include "reports/frmVisorCrystal.h"
#include "reports/modInformes.h"
#include "search/frmBuscar.h"
#include "search/frmBuscarSeleccionar.h"
#include "tests/comun/EntornoPrueba.h"

#include <QAction>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QRadioButton>
#include <QSqlRecord>
#include <QToolButton>
#include <QtTest>

using Mensajes::Respuesta;

namespace {

const QString SIN_ARQUITECTOS = QStringLiteral(
    "El proyecto seleccionado no tiene arquitectos asignados.\n"
    "Por favor, antes de continuar edite el proyecto e incluya al menos un arquitecto");
const QString SIN_PROYECTO = QStringLiteral("No se han podido cargar los datos del proyecto asociado al impreso");
const QString NO_HALLADO = QStringLiteral("No se ha podido hallar el impreso seleccionado para su modificación");

// Datos de partida: práctica en "Villanueva", un cliente particular (1), una empresa (2) con su
// representante (1), seis arquitectos (11 a 16) y una sociedad (20).
void poblar()
{
    UsoConexion uso;
    ejecutar(QStringLiteral("DELETE FROM Config"));
    ejecutar(QStringLiteral("INSERT INTO Config (Municipio, IVA, IRPF) VALUES ('Villanueva', 16, 15)"));
    ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, Dirección_Cli, Municipio_Cli, Provincia_Cli, "
                            "Tfno_Cli, cp, Correo_Cli, esR) VALUES "
                            "(1, 'Lucía', 'Ferrer Gil', '12345678Z', 'C/ Mayor 3', 'Villanueva', 'Huesca', '974000001', '22001', "
                            "'lucia@correo.es', -1), "
                            "(2, 'Construcciones', 'Ebro SA', 'A22000001', 'Pol. Sur 7', 'Monzón', 'Huesca', '974000002', '22400', "
                            "'ebro@correo.es', 1), "
                            "(4, 'Hueca', 'SL', 'B22000002', NULL, NULL, NULL, NULL, NULL, NULL, 2)"));
    ejecutar(QStringLiteral("INSERT INTO Representantes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, Dirección_Cli, Municipio_Cli, "
                            "Provincia_Cli, Tfno_Cli, cp, Correo_Cli, Representacion) VALUES "
                            "(1, 'Ana', 'Ebro Lax', '22222222J', 'C/ Río 1', 'Monzón', 'Huesca', '600000001', '22400', "
                            "'ana@correo.es', 'Administradora única'), "
                            "(2, NULL, '  ', NULL, NULL, NULL, NULL, NULL, NULL, NULL, 'Apoderado')"));
    for (int i = 1; i <= 6; ++i)
        ejecutar(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Colegio, Nombre_Cli, Ape_Cli, "
                                "Dirección_Cli, Municipio_Cli) VALUES (?, 'Arquitecto', 0, ?, 'COA Aragón', ?, ?, ?, ?)"),
                 {10 + i, 100 + i, QStringLiteral("Arq%1").arg(i), QStringLiteral("Apellido%1").arg(i),
                  QStringLiteral("Calle %1").arg(i), QStringLiteral("Ciudad%1").arg(i)});
    ejecutar(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli, Dirección_Cli, Municipio_Cli) "
                            "VALUES (20, 'ARQUITECTO', 1, 777, 'Estudio Norte SLP', NULL, 'Jaca')"));
    // Un constructor con el código de un arquitecto no es un arquitecto.
    ejecutar(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, Nombre_Cli) VALUES (30, 'CONSTRUCTOR', 1, 'Obras SA')"));
}

// Proyecto con cliente, representante, sociedad y n arquitectos (más una sociedad propia que no cuenta).
qint64 proyecto(int arquitectos, const QVariant& cliente = 1, const QVariant& representante = QVariant(),
                const QVariant& sociedad = QVariant(), const QVariant& arqsoc = QVariant())
{
    UsoConexion uso;
    insertar(QStringLiteral("Proyectos_A"), {{QStringLiteral("Trabajo"), QStringLiteral("Vivienda unifamiliar")},
                                             {QStringLiteral("Emplazamiento"), QStringLiteral("Camino Alto 4")},
                                             {QStringLiteral("Municipio"), QStringLiteral("Villanueva")},
                                             {QStringLiteral("Provincia"), QStringLiteral("Huesca")},
                                             {QStringLiteral("PRYF1"), 1}, {QStringLiteral("PRYF2"), 0},
                                             {QStringLiteral("PRYF3"), 1}, {QStringLiteral("PRYF4"), QVariant()},
                                             {QStringLiteral("Codigo_Cliente"), cliente},
                                             {QStringLiteral("Codigo_Representante"), representante},
                                             {QStringLiteral("ARQREG"), sociedad}, {QStringLiteral("ARQSOC"), arqsoc}});
    const qint64 cod = ultimoIdentificador();
    ejecutar(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol, PorPar_Arq, PerteneceSociedad, "
                            "EsPropiaSociedad) VALUES (?, 20, '777', 0, NULL, 1)"),
             {cod});
    for (int i = 1; i <= arquitectos; ++i)
        ejecutar(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol, PorPar_Arq, PerteneceSociedad, "
                                "EsPropiaSociedad, NumImpreso) VALUES (?, ?, ?, ?, ?, 0, 9)"),
                 {cod, 10 + i, QStringLiteral("C%1").arg(i), i == 1 ? 33.33 : 10.0, i % 2});
    return cod;
}

QList<QVariantMap> filas(const QString& sql, const QVariantList& valores = {})
{
    UsoConexion uso;
    Consulta c(sql, valores);
    QList<QVariantMap> r;
    while (c.siguiente()) {
        QVariantMap m;
        const QSqlRecord rec = c.query().record();
        for (int i = 0; i < rec.count(); ++i)
            m.insert(rec.fieldName(i), c.valor(i));
        r << m;
    }
    return r;
}

QList<QVariantMap> a1b2() { return filas(QStringLiteral("SELECT * FROM A1B2 ORDER BY rowid")); }

QString t(const QVariantMap& m, const char* c) { return m.value(QString::fromLatin1(c)).toString(); }

template <class T>
T* control(QWidget* w, const char* nombre)
{
    T* c = w->findChild<T*>(QString::fromLatin1(nombre));
    if (!c)
        qFatal("falta el control %s", nombre);
    return c;
}

DatosImpreso* abrir(const QString& tipo, const QString& operacion, qint64 clave = 0)
{
    PeticionFicha p;
    p.tabla = QStringLiteral("DATOSA1B2");
    p.tipoImpreso = tipo;
    p.operacion = operacion;
    p.codigo = clave;
    if (!abrirImpreso(p))
        return nullptr;
    const QList<QWidget*> l = Pantallas::cargadas();
    for (auto it = l.rbegin(); it != l.rend(); ++it)
        if (auto* f = qobject_cast<DatosImpreso*>(*it))
            return f;
    return nullptr;
}

// Lo que devuelve el selector de proyectos, escrito por nombre como lo hará él.
void elegirProyecto(QWidget* f, qint64 codigo, const QString& nombre = QStringLiteral("Vivienda unifamiliar"))
{
    control<QLineEdit>(f, "txt_CodProyecto")->setText(QString::number(codigo));
    control<QLineEdit>(f, "txt_Proyecto")->setText(nombre);
}

void imprimir(QWidget* f)
{
    QAction* boton = f->findChild<QAction*>(QStringLiteral("tlb_BotoneraImprimir_1"));
    QVERIFY(boton);
    boton->trigger();
    procesarEventos();
}

bool cargada(const QString& pantalla)
{
    for (QWidget* w : Pantallas::cargadas())
        if (w->objectName() == pantalla)
            return true;
    return false;
}

}  // namespace

class tst_impresos_a1b2 : public QObject {
    Q_OBJECT

    std::unique_ptr<EntornoPrueba> m_e;

private slots:
    // Una sola pantalla principal para todas las pruebas; cada una cierra lo que abrió dentro.
    void initTestCase()
    {
        modInformes::inicializarRecursos();
        frmMenu::instancia();
    }

    void init()
    {
        m_e = std::make_unique<EntornoPrueba>();
        m_e->conectar();
        poblar();
    }

    void cleanup()
    {
        for (QWidget* w : Pantallas::cargadas()) {
            if (w == frmMenu::existente())
                continue;
            auto* sub = qobject_cast<QMdiSubWindow*>(w->parentWidget());
            delete (sub ? static_cast<QWidget*>(sub) : w);
        }
        procesarEventos();
        modInformes::cerrar();
        m_e.reset();
    }

    void validacion_data()
    {
        QTest::addColumn<QString>("codigo");
        QTest::addColumn<QString>("lugar");
        QTest::addColumn<QString>("fecha");
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<QString>("foco");
        QTest::newRow("sin proyecto") << "" << "" << "" << "Por favor, seleccione un proyecto" << "txt_Proyecto";
        QTest::newRow("sin lugar") << "1" << "  " << "" << "Por favor, escriba el lugar (necesario para el pie del impreso)"
                                   << "txt_Lugar";
        QTest::newRow("sin fecha") << "1" << "Jaca" << " " << "Por favor, escriba la fecha (necesaria para el pie del impreso)"
                                   << "txt_Fecha";
    }

    // Orden común de las comprobaciones; nada se escribe si fallan.
    void validacion()
    {
        QFETCH(QString, codigo);
        QFETCH(QString, lugar);
        QFETCH(QString, fecha);
        QFETCH(QString, mensaje);
        QFETCH(QString, foco);
        DatosImpreso* f = abrir(QStringLiteral("B2"), QStringLiteral("ALTA"));
        Pantallas::mostrar(f);
        control<QLineEdit>(f, "txt_CodProyecto")->setText(codigo);
        control<QLineEdit>(f, "txt_Proyecto")->setText(codigo.isEmpty() ? QString() : QStringLiteral("P"));
        control<QLineEdit>(f, "txt_Lugar")->setText(lugar);
        control<QLineEdit>(f, "txt_Fecha")->setText(fecha);
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList{mensaje});
        QVERIFY(f->cancelado());
        QCOMPARE(f->focusWidget() ? f->focusWidget()->objectName() : QString(), foco);
        QVERIFY(filas(QStringLiteral("SELECT * FROM datosA1B2")).isEmpty());
    }

    void hojasDeArquitectos_data()
    {
        QTest::addColumn<int>("arquitectos");
        QTest::addColumn<int>("hojas");
        QTest::addColumn<QList<int>>("numeros");
        QTest::newRow("uno") << 1 << 1 << QList<int>{1};
        QTest::newRow("tres") << 3 << 1 << QList<int>{1, 1, 1};
        QTest::newRow("cuatro") << 4 << 2 << QList<int>{1, 1, 1, 2};
        QTest::newRow("seis") << 6 << 2 << QList<int>{1, 1, 1, 2, 2, 2};
    }

    // Tres arquitectos por hoja, NumImpreso escrito en el proyecto; la sociedad propia no cuenta.
    void hojasDeArquitectos()
    {
        QFETCH(int, arquitectos);
        QFETCH(int, hojas);
        QFETCH(QList<int>, numeros);
        const qint64 cod = proyecto(arquitectos);
        DatosImpreso* f = abrir(QStringLiteral("A1"), QStringLiteral("ALTA"));
        elegirProyecto(f, cod);
        control<QRadioButton>(f, "opt_No_AutorizaEntrega")->setChecked(true);
        control<QLineEdit>(f, "txt_Condiciones")->setText(QStringLiteral("  Pago a 30 días "));
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList());

        const auto r = a1b2();
        QCOMPARE(r.size(), hojas);
        QList<int> n;
        for (const auto& a : filas(QStringLiteral("SELECT NumImpreso FROM Arquitectos_Proyecto WHERE PryCod = ? AND "
                                                  "EsPropiaSociedad = 0 ORDER BY rowid"), {cod}))
            n << a.value(QStringLiteral("NumImpreso")).toInt();
        QCOMPARE(n, numeros);
        QVERIFY(filas(QStringLiteral("SELECT * FROM Arquitectos_Proyecto WHERE EsPropiaSociedad = 1"))[0]
                    .value(QStringLiteral("NumImpreso")).isNull());

        for (int h = 0; h < hojas; ++h) {
            const auto& a = r[h];
            for (int s = 1; s <= 3; ++s) {
                const int i = h * 3 + s;
                const QString nombre = a.value(QStringLiteral("ARQ%1NOM").arg(s)).toString();
                QCOMPARE(nombre, i <= arquitectos ? QStringLiteral("Arq%1 Apellido%1").arg(i) : QString());
                if (i <= arquitectos)
                    QCOMPARE(t(a, qPrintable(QStringLiteral("ARQ%1COL").arg(s))) + "|" + t(a, qPrintable(QStringLiteral("ARQ%1PAR").arg(s)))
                                 + "|" + t(a, qPrintable(QStringLiteral("ARQ%1PERTENECE_SOC").arg(s))),
                             QStringLiteral("C%1|%2|%3").arg(i).arg(i == 1 ? "33,33" : "10", i % 2 ? "X" : ""));
            }
            // El domicilio es el de la primera persona de la hoja 1, en todas las hojas.
            QCOMPARE(t(a, "ARQ1DOM"), QStringLiteral("Calle 1, Ciudad1"));
            QCOMPARE(t(a, "PRYF1") + "|" + t(a, "PRYF2") + "|" + t(a, "PRYF3") + "|" + t(a, "PRYF4"), QStringLiteral("X||X|"));
            QCOMPARE(t(a, "OBS1SI") + "|" + t(a, "OBS2NO") + "|" + t(a, "CONDICIONES"), QStringLiteral("X|X|Pago a 30 días"));
        }
        // Una página por hoja.
        QCOMPARE(modInformes::Informe->numeroPaginas(), hojas);
    }

    // Sin arquitectos (sólo la sociedad propia): aviso y nada en la tabla temporal; el histórico sí.
    void sinArquitectos()
    {
        DatosImpreso* f = abrir(QStringLiteral("A1"), QStringLiteral("ALTA"));
        elegirProyecto(f, proyecto(0));
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList{SIN_ARQUITECTOS});
        QVERIFY(a1b2().isEmpty());
        QCOMPARE(filas(QStringLiteral("SELECT * FROM datosA1B2")).size(), 1);
    }

    void bloqueCliente_data()
    {
        QTest::addColumn<QVariant>("cliente");
        QTest::addColumn<QVariant>("representante");
        QTest::addColumn<QStringList>("esperado");  // CLINOM, CLINIF, REPNOM, REPNIF, REPDOM, REPEMAIL, TIPOREP, REPRES, REPRESNO
        QTest::newRow("persona sola") << QVariant(1) << QVariant(1)
                                      << QStringList{"", "", "Lucía Ferrer Gil", "12345678Z", "C/ Mayor 3", "lucia@correo.es", "", "", "X"};
        QTest::newRow("empresa con representante")
            << QVariant(2) << QVariant(1)
            << QStringList{"Construcciones Ebro SA", "A22000001", "Ana Ebro Lax", "22222222J", "C/ Río 1", "ana@correo.es",
                           "Administradora única", "X", ""};
        QTest::newRow("representante sin nombre") << QVariant(4) << QVariant(2)
                                                  << QStringList{"Hueca SL", "B22000002", "", "", "", "", "Apoderado", "", "X"};
        QTest::newRow("empresa sin representante en el proyecto")
            << QVariant(2) << QVariant() << QStringList{"Construcciones Ebro SA", "A22000001", "", "", "", "", "", "", ""};
        QTest::newRow("sin cliente") << QVariant() << QVariant() << QStringList{"", "", "", "", "", "", "", "", ""};
    }

    void bloqueCliente()
    {
        QFETCH(QVariant, cliente);
        QFETCH(QVariant, representante);
        QFETCH(QStringList, esperado);
        const qint64 cod = proyecto(1, cliente, representante);
        DatosImpreso* f = abrir(QStringLiteral("A1"), QStringLiteral("ALTA"));
        elegirProyecto(f, cod);
        imprimir(f);
        const auto r = a1b2();
        QCOMPARE(r.size(), 1);
        QStringList obtenido;
        for (const char* c : {"CLINOM", "CLINIF", "REPNOM", "REPNIF", "REPDOM", "REPEMAIL", "TIPOREP", "REPRES", "REPRESNO"})
            obtenido << t(r[0], c);
        QCOMPARE(obtenido, esperado);
        // Quien actúa solo no deja nada en las columnas del cliente.
        if (esperado[8] == QLatin1String("X") && esperado[0].isEmpty())
            QVERIFY(r[0].value(QStringLiteral("CLIDOM")).isNull());
    }

    void bloqueSociedad_data()
    {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QVariant>("sociedad");
        QTest::addColumn<QStringList>("esperado");  // HAYSOC, ARQREG, ARQSOC, SOCDOM
        QTest::newRow("A1 con sociedad") << "A1" << QVariant(20) << QStringList{"X", "777", "Estudio Norte SLP", ", Jaca"};
        QTest::newRow("A1 sociedad que no es arquitecto") << "A1" << QVariant(30) << QStringList{"", "", "", ""};
        // B2 toma ARQSOC del propio proyecto, tal cual, en lugar del nombre de la sociedad.
        QTest::newRow("B2 con sociedad") << "B2" << QVariant(20) << QStringList{"X", "777", "Sociedad del proyecto", ", Jaca"};
        QTest::newRow("B2 sin sociedad") << "B2" << QVariant() << QStringList{"", "", "Sociedad del proyecto", ""};
    }

    void bloqueSociedad()
    {
        QFETCH(QString, tipo);
        QFETCH(QVariant, sociedad);
        QFETCH(QStringList, esperado);
        const qint64 cod = proyecto(1, 1, QVariant(), sociedad, QStringLiteral("Sociedad del proyecto"));
        DatosImpreso* f = abrir(tipo, QStringLiteral("ALTA"));
        elegirProyecto(f, cod);
        control<QLineEdit>(f, "txt_Lugar")->setText(QStringLiteral(" Jaca "));
        control<QLineEdit>(f, "txt_Fecha")->setText(QStringLiteral("1 de abril de 2008"));
        imprimir(f);
        const auto r = a1b2();
        QCOMPARE(r.size(), 1);
        QCOMPARE((QStringList{t(r[0], "HAYSOC"), t(r[0], "ARQREG"), t(r[0], "ARQSOC"), t(r[0], "SOCDOM")}), esperado);
        const auto h = filas(QStringLiteral("SELECT * FROM datosA1B2"));
        QCOMPARE(t(h[0], "TIPODOC"), tipo);
        if (tipo == QLatin1String("B2")) {
            QCOMPARE(t(h[0], "LUGAR_B2") + "|" + t(h[0], "FECHA_B2") + "|" + t(h[0], "LUGAR_A1"), QStringLiteral("Jaca|1 de abril de 2008|"));
            QVERIFY(h[0].value(QStringLiteral("OBS1SI")).isNull() && r[0].value(QStringLiteral("OBS1SI")).isNull());
            QCOMPARE(modInformes::Informe->nombre(), QStringLiteral("crImpresoB2"));
        }
    }

    // "ALTA": el impreso se guarda, se ve, la pantalla se cierra y se abre la lista del A1.
    void altaCierraYAbreLista()
    {
        const qint64 cod = proyecto(2);
        DatosImpreso* f = abrir(QStringLiteral("A1"), QStringLiteral("ALTA"));
        elegirProyecto(f, cod, QStringLiteral("  Vivienda unifamiliar  "));
        control<QRadioButton>(f, "opt_No_GestionCobro")->setChecked(true);
        imprimir(f);
        QVERIFY(!cargada(QStringLiteral("frmDatosImpreso_A1")));
        QVERIFY(Pantallas::cargada<frmVisorCrystal>());
        auto* lista = Pantallas::cargada<frmBuscar>();
        QVERIFY(lista);
        QCOMPARE(lista->Tabla + lista->TipoImpreso, QStringLiteral("DATOSA1B2A1"));
        QVERIFY(!BaseDatos::estaAbierta() && !transaccionEnCurso);

        const auto h = filas(QStringLiteral("SELECT * FROM datosA1B2"));
        QCOMPARE(h.size(), 1);
        QCOMPARE(t(h[0], "PRYNOM"), QStringLiteral("Vivienda unifamiliar"));
        QCOMPARE(h[0].value(QStringLiteral("PRYCOD")).toLongLong(), cod);
        QCOMPARE(t(h[0], "OBS1SI") + "|" + t(h[0], "OBS1NO") + "|" + t(h[0], "OBS2SI") + "|" + t(h[0], "OBS2NO"),
                 QStringLiteral("|X|X|"));
        // Valores de un impreso nuevo: el municipio de la práctica y la fecha de hoy en letra.
        QCOMPARE(t(h[0], "LUGAR_A1") + "|" + t(h[0], "FECHA_A1"), "Villanueva|" + Formato::fechaPie(QDate::currentDate()));
    }

    // "MODIFICAR": carga la fila, cada vista previa actualiza la misma y la pantalla sigue abierta.
    void modificarEditaLaMismaFila()
    {
        const qint64 cod = proyecto(1);
        {
            UsoConexion uso;
            insertar(QStringLiteral("datosA1B2"), {{QStringLiteral("PRYNOM"), QStringLiteral("Vivienda unifamiliar")},
                                                   {QStringLiteral("PRYCOD"), cod}, {QStringLiteral("OBS1SI"), QString()},
                                                   {QStringLiteral("OBS1NO"), QStringLiteral("X")}, {QStringLiteral("OBS2SI"), QStringLiteral("x")},
                                                   {QStringLiteral("CONDICIONES"), QStringLiteral("Ninguna")},
                                                   {QStringLiteral("LUGAR_A1"), QStringLiteral("Jaca")},
                                                   {QStringLiteral("FECHA_A1"), QStringLiteral("2 de mayo de 2008")},
                                                   {QStringLiteral("TIPODOC"), QStringLiteral("A1")}});
        }
        const qint64 clave = filas(QStringLiteral("SELECT Clave FROM datosA1B2"))[0].value(QStringLiteral("Clave")).toLongLong();
        DatosImpreso* f = abrir(QStringLiteral("A1"), QStringLiteral("MODIFICAR"), clave);
        QCOMPARE(control<QLineEdit>(f, "txt_CodProyecto")->text(), QString::number(cod));
        QVERIFY(control<QRadioButton>(f, "opt_No_AutorizaEntrega")->isChecked());  // sólo "X" elige "Sí"
        QCOMPARE(control<QLineEdit>(f, "txt_Fecha")->text(), QStringLiteral("2 de mayo de 2008"));
        QVERIFY(!f->PreguntarGuardarCambios());
        control<QLineEdit>(f, "txt_Lugar")->setText(QStringLiteral("Monzón"));
        imprimir(f);
        QVERIFY(cargada(QStringLiteral("frmDatosImpreso_A1")));
        const auto h = filas(QStringLiteral("SELECT * FROM datosA1B2"));
        QCOMPARE(h.size(), 1);
        QCOMPARE(h[0].value(QStringLiteral("Clave")).toLongLong(), clave);
        QCOMPARE(t(h[0], "LUGAR_A1") + "|" + t(h[0], "OBS2NO"), QStringLiteral("Monzón|X"));
        QVERIFY(!Pantallas::cargada<frmBuscar>());
        QCOMPARE(m_e->textos(), QStringList());
    }

    void preguntaAlSalir_data()
    {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<int>("respuesta");
        QTest::addColumn<QStringList>("mensajes");
        QTest::addColumn<bool>("cerrada");
        QTest::addColumn<int>("historicos");
        const QStringList pregunta{DatosImpreso::PREGUNTA_SALIR};
        QTest::newRow("Sí guarda sin vista previa") << "A1" << "txt_CodProyecto" << "" << int(Respuesta::Si) << pregunta << true << 1;
        QTest::newRow("No cierra sin guardar") << "A1" << "txt_CodProyecto" << "" << int(Respuesta::No) << pregunta << true << 0;
        QTest::newRow("Cancelar se queda") << "A1" << "txt_CodProyecto" << "" << int(Respuesta::Cancelar) << pregunta << false << 0;
        QTest::newRow("Sí con datos incompletos") << "B2" << "txt_Lugar" << "Jaca" << int(Respuesta::Si)
                                                  << (pregunta + QStringList{QStringLiteral("Por favor, seleccione un proyecto")}) << false << 0;
    }

    // La pregunta de salida y sus tres respuestas; "Sí" guarda el histórico sin vista previa.
    void preguntaAlSalir()
    {
        QFETCH(QString, tipo);
        QFETCH(QString, control);
        QFETCH(QString, texto);
        QFETCH(int, respuesta);
        QFETCH(QStringList, mensajes);
        QFETCH(bool, cerrada);
        QFETCH(int, historicos);
        DatosImpreso* f = abrir(tipo, QStringLiteral("ALTA"));
        if (control == QLatin1String("txt_CodProyecto"))
            elegirProyecto(f, proyecto(1));
        else
            f->findChild<QLineEdit*>(control)->setText(texto);
        m_e->respuestas << Respuesta(respuesta);
        Pantallas::descargar(f);
        procesarEventos();
        QCOMPARE(m_e->textos(), mensajes);
        QCOMPARE(!cargada(QStringLiteral("frmDatosImpreso_") + tipo), cerrada);
        QCOMPARE(filas(QStringLiteral("SELECT * FROM datosA1B2")).size(), historicos);
        QVERIFY(a1b2().isEmpty());  // nunca toca la tabla temporal ni abre nada
        QVERIFY(!Pantallas::cargada<frmVisorCrystal>() && !Pantallas::cargada<frmBuscar>());
    }

    // Proyecto borrado entre tanto: el histórico se guarda, el aviso, y el informe sale vacío.
    void proyectoBorrado()
    {
        const qint64 cod = proyecto(4);
        {
            UsoConexion uso;
            ejecutar(QStringLiteral("DELETE FROM Proyectos_A WHERE PryCod = ?"), {cod});
        }
        DatosImpreso* f = abrir(QStringLiteral("A1"), QStringLiteral("ALTA"));
        elegirProyecto(f, cod);
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList{SIN_PROYECTO});
        QCOMPARE(filas(QStringLiteral("SELECT * FROM datosA1B2")).size(), 1);
        QVERIFY(a1b2().isEmpty());
        QCOMPARE(modInformes::Informe->datos().numero(), 0);
        QCOMPARE(modInformes::Informe->numeroPaginas(), 1);  // el impreso en blanco
        QVERIFY(Pantallas::cargada<frmVisorCrystal>());
    }

    // La fila del histórico borrada desde la lista: aviso, y aun así la vista previa con la pantalla.
    void historicoNoHallado()
    {
        const qint64 cod = proyecto(1);
        {
            UsoConexion uso;
            insertar(QStringLiteral("datosA1B2"), {{QStringLiteral("PRYCOD"), cod}, {QStringLiteral("PRYNOM"), QStringLiteral("P")},
                                                   {QStringLiteral("LUGAR_B2"), QStringLiteral("Jaca")},
                                                   {QStringLiteral("FECHA_B2"), QStringLiteral("hoy")},
                                                   {QStringLiteral("TIPODOC"), QStringLiteral("B2")}});
        }
        const qint64 clave = filas(QStringLiteral("SELECT Clave FROM datosA1B2"))[0].value(QStringLiteral("Clave")).toLongLong();
        DatosImpreso* f = abrir(QStringLiteral("B2"), QStringLiteral("MODIFICAR"), clave);
        QCOMPARE(control<QLineEdit>(f, "txt_Lugar")->text(), QStringLiteral("Jaca"));
        {
            UsoConexion uso;
            ejecutar(QStringLiteral("DELETE FROM datosA1B2"));
        }
        control<QLineEdit>(f, "txt_Fecha")->setText(QStringLiteral("mañana"));
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList{NO_HALLADO});
        QVERIFY(filas(QStringLiteral("SELECT * FROM datosA1B2")).isEmpty());
        const auto r = a1b2();
        QCOMPARE(r.size(), 1);
        QCOMPARE(t(r[0], "FECHA_B2"), QStringLiteral("mañana"));
        QVERIFY(Pantallas::cargada<frmVisorCrystal>());
    }

    // Un fallo de la propia barra lo deshace todo: ni histórico ni transacción abierta.
    void fallos()
    {
        const qint64 cod = proyecto(1);
        {
            UsoConexion uso;
            ejecutar(QStringLiteral("DROP TABLE A1B2"));
        }
        DatosImpreso* f = abrir(QStringLiteral("A1"), QStringLiteral("ALTA"));
        elegirProyecto(f, cod);
        // La entrada del registro, el aviso y, al cerrarse el "ALTA" fallido, su pregunta de salida.
        m_e->respuestas << Respuesta::Aceptar << Respuesta::Aceptar << Respuesta::No;
        imprimir(f);
        QVERIFY(m_e->leerLog().contains(QStringLiteral("tlb_BotoneraImprimir_ButtonClick")));
        const QStringList textos = m_e->textos();
        QCOMPARE(textos.mid(textos.size() - 2), (QStringList{DatosImpreso::AVISO_FALLO, DatosImpreso::PREGUNTA_SALIR}));
        QVERIFY(filas(QStringLiteral("SELECT * FROM datosA1B2")).isEmpty());
        QVERIFY(!transaccionEnCurso);
        QVERIFY(!cargada(QStringLiteral("frmDatosImpreso_A1")));  // un "ALTA" se cierra igual
    }

    // Impreso en blanco: la tabla temporal vacía y el informe con sus textos, en una hoja.
    void impresoEnBlanco()
    {
        const qint64 cod = proyecto(4);
        DatosImpreso* f = abrir(QStringLiteral("A1"), QStringLiteral("ALTA"));
        elegirProyecto(f, cod);
        imprimir(f);
        QCOMPARE(a1b2().size(), 2);
        for (int codigo : {1, 2}) {
            QVERIFY(generarImpresoEnBlanco(codigo));
            procesarEventos();
            QVERIFY(a1b2().isEmpty());
            QCOMPARE(modInformes::Informe->nombre(), codigo == 1 ? QStringLiteral("crImpresoA1") : QStringLiteral("crImpresoB2"));
            QCOMPARE(modInformes::Informe->numeroPaginas(), 1);
        }

        // Si no se puede vaciar la tabla: se deshace y se avisa.
        {
            UsoConexion uso;
            ejecutar(QStringLiteral("DROP TABLE A1B2"));
        }
        m_e->limpiarCuadros();
        QVERIFY(!generarImpresoEnBlanco(1));
        QCOMPARE(m_e->textos().last(), QStringLiteral("La operación no se ha podido realizar correctamente.\nPor favor, inténtelo de nuevo"));
        QVERIFY(!transaccionEnCurso);
    }
};

QTEST_MAIN(tst_impresos_a1b2)
#include "tst_impresos_a1b2.moc"
