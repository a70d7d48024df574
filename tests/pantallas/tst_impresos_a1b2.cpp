// Impresos A1 y B2 por su pantalla: hojas de arquitectos, bloques de cliente y sociedad,
// histórico, pregunta al salir y vista previa.
#include "reports/frmVisorCrystal.h"
#include "reports/TablasTemporales.h"
#include "search/frmBuscar.h"
#include "tests/pantallas/PruebaImpresos.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QRadioButton>

using namespace impresos;

namespace {

const QString SIN_PROYECTO = QStringLiteral("No se han podido cargar los datos del proyecto asociado al impreso");
const QString NO_HALLADO = QStringLiteral("No se ha podido hallar el impreso seleccionado para su modificación");

// Proyecto con cliente, representante, sociedad y n arquitectos (más una sociedad propia que no cuenta).
qint64 proyecto(int arquitectos, const QVariant& cliente = 1, const QVariant& representante = QVariant(),
                const QVariant& sociedad = QVariant(), const QVariant& arqsoc = QVariant())
{
    UsoConexion uso;
    insertar("Proyectos_A", {{"Trabajo", "Vivienda unifamiliar"}, {"Municipio", "Villanueva"}, {"PRYF1", 1}, {"PRYF2", 0},
                             {"Codigo_Cliente", cliente}, {"Codigo_Representante", representante}, {"ARQREG", sociedad}, {"ARQSOC", arqsoc}});
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

// Una fila del histórico; devuelve su clave.
qint64 historico(const Campos& c)
{
    UsoConexion uso;
    insertar("datosA1B2", c);
    return ultimoIdentificador();
}

QList<Fila> a1b2() { return filas(QStringLiteral("SELECT * FROM A1B2 ORDER BY rowid")); }

// A1 y B2 comparten su lista; el tipo dice cuál.
Impreso impreso(const QString& tipo) { return {QStringLiteral("DATOSA1B2"), tipo}; }

}  // namespace

class tst_impresos_a1b2 : public PruebaImpresos {
    Q_OBJECT

    // Datos de partida: práctica en "Villanueva", un cliente particular (1), una empresa (2), un
    // representante (1), seis arquitectos (11 a 16) y una sociedad (20).
    void poblar() override
    {
        UsoConexion uso;
        ejecutar(QStringLiteral("DELETE FROM Config"));
        ejecutar(QStringLiteral("INSERT INTO Config (Municipio, IVA, IRPF) VALUES ('Villanueva', 16, 15)"));
        ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, Dirección_Cli, Municipio_Cli, Provincia_Cli, "
                                "Tfno_Cli, cp, Correo_Cli, esR) VALUES "
                                "(1, 'Lucía', 'Ferrer Gil', '12345678Z', 'C/ Mayor 3', 'Villanueva', 'Huesca', '974000001', '22001', "
                                "'lucia@correo.es', -1), "
                                "(2, 'Construcciones', 'Ebro SA', 'A22000001', 'Pol. Sur 7', 'Monzón', 'Huesca', '974000002', '22400', "
                                "'ebro@correo.es', 1)"));
        ejecutar(QStringLiteral("INSERT INTO Representantes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, Dirección_Cli, Municipio_Cli, "
                                "Provincia_Cli, Tfno_Cli, cp, Correo_Cli, Representacion) VALUES "
                                "(1, 'Ana', 'Ebro Lax', '22222222J', 'C/ Río 1', 'Monzón', 'Huesca', '600000001', '22400', "
                                "'ana@correo.es', 'Administradora única')"));
        for (int i = 1; i <= 6; ++i)
            ejecutar(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Colegio, Nombre_Cli, Ape_Cli, "
                                    "Dirección_Cli, Municipio_Cli) VALUES (?, 'Arquitecto', 0, ?, 'COA Aragón', ?, ?, ?, ?)"),
                     {10 + i, 100 + i, QStringLiteral("Arq%1").arg(i), QStringLiteral("Apellido%1").arg(i),
                      QStringLiteral("Calle %1").arg(i), QStringLiteral("Ciudad%1").arg(i)});
        ejecutar(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli, Dirección_Cli, Municipio_Cli) "
                                "VALUES (20, 'ARQUITECTO', 1, 777, 'Estudio Norte SLP', NULL, 'Jaca')"));
    }

private slots:
    // Tres arquitectos por hoja, NumImpreso escrito en el proyecto; la sociedad propia no cuenta.
    void hojasDeArquitectos_data()
    {
        QTest::addColumn<QList<int>>("numeros");
        QTest::newRow("uno") << QList<int>{1};
        QTest::newRow("tres") << QList<int>{1, 1, 1};
        QTest::newRow("cuatro") << QList<int>{1, 1, 1, 2};
        QTest::newRow("seis") << QList<int>{1, 1, 1, 2, 2, 2};
    }
    void hojasDeArquitectos()
    {
        QFETCH(QList<int>, numeros);
        const qint64 cod = proyecto(int(numeros.size()));
        DatosImpreso* f = abrir(impreso("A1"), "ALTA");
        elegirProyecto(f, cod);
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList());
        const auto r = a1b2();
        QCOMPARE(r.size(), numeros.last());
        QList<int> n;
        for (const auto& a : filas("SELECT NumImpreso FROM Arquitectos_Proyecto WHERE PryCod = ? AND EsPropiaSociedad = 0 ORDER BY rowid", {cod}))
            n << a.value("NumImpreso").toInt();
        QCOMPARE(n, numeros);
        QVERIFY(filas("SELECT * FROM Arquitectos_Proyecto WHERE EsPropiaSociedad = 1")[0].value("NumImpreso").isNull());
        // El cuarto arquitecto abre la segunda hoja.
        QCOMPARE(t(r.last(), "ARQ1NOM"), numeros.size() > 3 ? "Arq4 Apellido4" : "Arq1 Apellido1");
        QCOMPARE(t(r[0], "ARQ1COL") + "|" + t(r[0], "ARQ1PAR"), "C1|33,33");
        QCOMPARE(modInformes::Informe->numeroPaginas(), numeros.last());
    }

    // Quien actúa solo va en las columnas REP* con REPRESNO; una empresa con representante llena ambas.
    void bloqueCliente_data()
    {
        QTest::addColumn<QVariant>("cliente");
        QTest::addColumn<QStringList>("esperado");  // CLINOM, CLINIF, REPNOM, REPNIF, REPDOM, REPEMAIL, TIPOREP, REPRES, REPRESNO
        QTest::newRow("persona sola") << QVariant(1)
                                      << QStringList{"", "", "Lucía Ferrer Gil", "12345678Z", "C/ Mayor 3", "lucia@correo.es", "", "", "X"};
        QTest::newRow("empresa con representante")
            << QVariant(2) << QStringList{"Construcciones Ebro SA", "A22000001", "Ana Ebro Lax", "22222222J", "C/ Río 1", "ana@correo.es",
                                          "Administradora única", "X", ""};
    }
    void bloqueCliente()
    {
        QFETCH(QVariant, cliente);
        QFETCH(QStringList, esperado);
        DatosImpreso* f = abrir(impreso("A1"), "ALTA");
        elegirProyecto(f, proyecto(1, cliente, 1));
        imprimir(f);
        const auto r = a1b2();
        QCOMPARE(r.size(), 1);
        QCOMPARE(columnas(r[0], {"CLINOM", "CLINIF", "REPNOM", "REPNIF", "REPDOM", "REPEMAIL", "TIPOREP", "REPRES", "REPRESNO"}), esperado);
    }

    // B2 toma ARQSOC del propio proyecto, tal cual, en lugar del nombre de la sociedad.
    void bloqueSociedad_data()
    {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QString>("arqsoc");
        QTest::newRow("A1") << "A1" << "Estudio Norte SLP";
        QTest::newRow("B2") << "B2" << "Sociedad del proyecto";
    }
    void bloqueSociedad()
    {
        QFETCH(QString, tipo);
        QFETCH(QString, arqsoc);
        DatosImpreso* f = abrir(impreso(tipo), "ALTA");
        elegirProyecto(f, proyecto(1, 1, QVariant(), 20, "Sociedad del proyecto"));
        control<QLineEdit>(f, "txt_Lugar")->setText("Jaca");
        control<QLineEdit>(f, "txt_Fecha")->setText("1 de abril de 2008");
        imprimir(f);
        const auto r = a1b2();
        QCOMPARE(r.size(), 1);
        QCOMPARE(columnas(r[0], {"HAYSOC", "ARQREG", "ARQSOC"}), (QStringList{"X", "777", arqsoc}));
        QCOMPARE(t(filas("SELECT * FROM datosA1B2")[0], "TIPODOC"), tipo);
    }

    // "ALTA": el impreso se guarda, se ve, la pantalla se cierra y se abre la lista del A1 con la fila.
    void altaCierraYAbreLista()
    {
        const qint64 cod = proyecto(2);
        DatosImpreso* f = abrir(impreso("A1"), "ALTA");
        elegirProyecto(f, cod, "  Vivienda unifamiliar  ");
        control<QRadioButton>(f, "opt_No_GestionCobro")->setChecked(true);
        imprimir(f);
        QVERIFY(!cargada("frmDatosImpreso_A1") && Pantallas::cargada<frmVisorCrystal>());
        auto* lista = Pantallas::cargada<frmBuscar>();
        QVERIFY(lista);
        QCOMPARE(lista->Tabla + lista->TipoImpreso, "DATOSA1B2A1");
        // La lista se abre detrás: delante queda la vista previa recién hecha.
        procesarEventos();
        QVERIFY(Pantallas::areaPrincipal()->activeSubWindow());
        QCOMPARE(Pantallas::areaPrincipal()->activeSubWindow()->widget(), Pantallas::cargada<frmVisorCrystal>());
        QVERIFY(!BaseDatos::estaAbierta() && !transaccionEnCurso);
        const auto h = filas("SELECT * FROM datosA1B2");
        QCOMPARE(h.size(), 1);
        // Con los valores de un impreso nuevo: el municipio de la práctica y la fecha de hoy en letra.
        QCOMPARE(columnas(h[0], {"PRYNOM", "PRYCOD", "OBS1SI", "OBS1NO", "OBS2SI", "OBS2NO", "LUGAR_A1", "FECHA_A1"}),
                 (QStringList{"Vivienda unifamiliar", QString::number(cod), "", "X", "X", "", "Villanueva", Formato::fechaPie(QDate::currentDate())}));
    }

    // "MODIFICAR": carga la fila, cada vista previa actualiza la misma y la pantalla sigue abierta.
    void modificarEditaLaMismaFila()
    {
        const qint64 cod = proyecto(1);
        const qint64 clave = historico({{"PRYNOM", "Vivienda unifamiliar"}, {"PRYCOD", cod}, {"OBS1NO", "X"}, {"OBS2SI", "x"},
                                        {"LUGAR_A1", "Jaca"}, {"FECHA_A1", "2 de mayo de 2008"}, {"TIPODOC", "A1"}});
        DatosImpreso* f = abrir(impreso("A1"), "MODIFICAR", clave);
        QCOMPARE(control<QLineEdit>(f, "txt_CodProyecto")->text(), QString::number(cod));
        QVERIFY(control<QRadioButton>(f, "opt_No_AutorizaEntrega")->isChecked());  // sólo "X" elige "Sí"
        QCOMPARE(control<QLineEdit>(f, "txt_Fecha")->text(), "2 de mayo de 2008");
        control<QLineEdit>(f, "txt_Lugar")->setText("Monzón");
        imprimir(f);
        QVERIFY(cargada("frmDatosImpreso_A1") && !Pantallas::cargada<frmBuscar>());
        const auto h = filas("SELECT * FROM datosA1B2");
        QCOMPARE(h.size(), 1);
        QCOMPARE(t(h[0], "Clave") + "|" + t(h[0], "LUGAR_A1") + "|" + t(h[0], "OBS2NO"), QString::number(clave) + "|Monzón|X");
    }

    // La pregunta de salida: "Sí" guarda el histórico sin vista previa, "No" cierra, "Cancelar" se queda.
    void preguntaAlSalir_data()
    {
        QTest::addColumn<int>("respuesta");
        QTest::addColumn<bool>("cerrada");
        QTest::addColumn<int>("historicos");
        QTest::newRow("Sí") << int(Respuesta::Si) << true << 1;
        QTest::newRow("No") << int(Respuesta::No) << true << 0;
        QTest::newRow("Cancelar") << int(Respuesta::Cancelar) << false << 0;
    }
    void preguntaAlSalir()
    {
        QFETCH(int, respuesta);
        QFETCH(bool, cerrada);
        QFETCH(int, historicos);
        DatosImpreso* f = abrir(impreso("A1"), "ALTA");
        elegirProyecto(f, proyecto(1));
        m_e->respuestas << Respuesta(respuesta);
        Pantallas::descargar(f);
        procesarEventos();
        QCOMPARE(m_e->textos(), QStringList{DatosImpreso::PREGUNTA_SALIR});
        QCOMPARE(!cargada("frmDatosImpreso_A1"), cerrada);
        QCOMPARE(filas("SELECT * FROM datosA1B2").size(), historicos);
        QVERIFY(a1b2().isEmpty() && !Pantallas::cargada<frmVisorCrystal>());
    }

    // Proyecto borrado entre tanto: el histórico se guarda, el aviso, y el informe sale vacío.
    void proyectoBorrado()
    {
        const qint64 cod = proyecto(4);
        sql("DELETE FROM Proyectos_A WHERE PryCod = ?", {cod});
        DatosImpreso* f = abrir(impreso("A1"), "ALTA");
        elegirProyecto(f, cod);
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList{SIN_PROYECTO});
        QCOMPARE(filas("SELECT * FROM datosA1B2").size(), 1);
        QVERIFY(a1b2().isEmpty() && Pantallas::cargada<frmVisorCrystal>());
        QCOMPARE(modInformes::Informe->datos().numero(), 0);
        QCOMPARE(modInformes::Informe->numeroPaginas(), 1);  // el impreso en blanco
    }

    // La fila del histórico borrada desde la lista: aviso, y aun así la vista previa con la pantalla.
    void historicoNoHallado()
    {
        const qint64 clave = historico({{"PRYCOD", proyecto(1)}, {"PRYNOM", "P"}, {"LUGAR_B2", "Jaca"}, {"FECHA_B2", "hoy"}, {"TIPODOC", "B2"}});
        DatosImpreso* f = abrir(impreso("B2"), "MODIFICAR", clave);
        sql("DELETE FROM datosA1B2");
        control<QLineEdit>(f, "txt_Fecha")->setText("mañana");
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList{NO_HALLADO});
        QVERIFY(filas("SELECT * FROM datosA1B2").isEmpty() && Pantallas::cargada<frmVisorCrystal>());
        const auto r = a1b2();
        QCOMPARE(r.size(), 1);
        QCOMPARE(t(r[0], "FECHA_B2"), "mañana");
    }

    // Dos puestos con la vista previa del mismo impreso a la vez: el puesto A confirma la suya, el
    // B la suya antes de que el informe de A lea, y aun así cada informe tiene su proyecto; una
    // vista previa nueva de A no toca las filas de B.
    void dosPuestosALaVez()
    {
        const auto trabajo = [](int arquitectos, const char* nombre) {
            const qint64 cod = proyecto(arquitectos);
            sql("UPDATE Proyectos_A SET Trabajo = ? WHERE PryCod = ?", {nombre, cod});
            return cod;
        };
        const qint64 codA = trabajo(1, "Casa de A"), codB = trabajo(4, "Nave de B"), otroA = trabajo(2, "Otra de A");
        const auto vistaPrevia = [&](const QString& puesto, qint64 cod) {
            TablasTemporales::fijarPuesto(puesto);
            DatosImpreso* f = abrir(impreso("A1"), "ALTA");
            elegirProyecto(f, cod);
            imprimir(f);
        };
        const auto informeDe = [](const QString& puesto) {
            TablasTemporales::fijarPuesto(puesto);
            modInformes::Informe = modInformes::crearInforme(QStringLiteral("crImpresoA1"));
            if (!modInformes::conectar() || !modInformes::iniciarInforme_Impreso(QStringLiteral("A1")))
                return QStringList{QStringLiteral("sin informe")};
            QStringList l;
            const ConjuntoFilas& d = modInformes::Informe->datos();
            for (int i = 0; i < d.numero(); ++i)
                l << d.valor(i, QStringLiteral("PRYNOM")).toString() + QLatin1Char('/') + d.valor(i, QStringLiteral("ARQ1NOM")).toString();
            return l;
        };
        vistaPrevia("puesto A", codA);
        vistaPrevia("puesto B", codB);
        QCOMPARE(informeDe("puesto A"), QStringList{"Casa de A/Arq1 Apellido1"});
        QCOMPARE(informeDe("puesto B"), (QStringList{"Nave de B/Arq1 Apellido1", "Nave de B/Arq4 Apellido4"}));
        vistaPrevia("puesto A", otroA);
        QCOMPARE(informeDe("puesto B"), (QStringList{"Nave de B/Arq1 Apellido1", "Nave de B/Arq4 Apellido4"}));
        QCOMPARE(informeDe("puesto A"), QStringList{"Otra de A/Arq1 Apellido1"});
        QCOMPARE(a1b2().size(), 3);  // la hoja de A y las dos de B
        TablasTemporales::fijarPuesto({});
        QCOMPARE(m_e->textos(), QStringList());
    }

    // Una base de datos de antes de la marca del puesto (una copia antigua restaurada): la primera
    // vista previa le pone la columna a las tablas temporales y tira sus filas sin dueño.
    void baseAnteriorAlPuesto()
    {
        if (ServidorPrueba::pedido())
            QSKIP("El esquema del servidor ya nace con la marca del puesto");
        {
            UsoConexion uso;
            for (const QString& tabla : TablasTemporales::todas())
                ejecutar(QStringLiteral("ALTER TABLE \"%1\" DROP COLUMN Puesto").arg(tabla));
            ejecutar(QStringLiteral("INSERT INTO A1B2 (PRYNOM) VALUES ('de una vista antigua')"));
            ejecutar(QStringLiteral("PRAGMA user_version = 1"));
        }
        DatosImpreso* f = abrir(impreso("A1"), "ALTA");
        elegirProyecto(f, proyecto(1));
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList());
        const auto r = a1b2();
        QCOMPARE(r.size(), 1);
        QCOMPARE(t(r[0], "PRYNOM") + "|" + t(r[0], "Puesto"), "Vivienda unifamiliar|" + TablasTemporales::puesto());
        QCOMPARE(modInformes::Informe->datos().numero(), 1);
        QCOMPARE(filas("PRAGMA user_version")[0].value("user_version").toInt(), 2);
    }
};

PRUEBA_PANTALLAS(tst_impresos_a1b2)
#include "tst_impresos_a1b2.moc"
#include "moc_PruebaImpresos.cpp"
