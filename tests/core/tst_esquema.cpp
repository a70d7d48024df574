// Base de datos vacía que se entrega: tablas y columnas que leen las pantallas,
// listas de provincias, tablas vacías y contadores que no reutilizan números.

#include "core/BaseDatos.h"

#include <QFile>
#include <QSet>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QStringList numerados(const QString& prefijo, int desde, int hasta, int ancho = 1)
{
    QStringList r;
    for (int i = desde; i <= hasta; ++i)
        r << prefijo + QStringLiteral("%1").arg(i, ancho, 10, QLatin1Char('0'));
    return r;
}

QStringList arquitectosPorHoja()
{
    QStringList r;
    for (int n = 1; n <= 3; ++n)
        for (const char* s : {"NOM", "COL", "PAR", "PERTENECE_SOC", "COLEGIO"})
            r << QStringLiteral("ARQ%1").arg(n) + QLatin1String(s);
    return r;
}

const QStringList CLIENTE_IMPRESO = {"CLINOM", "CLINIF", "CLIDOM", "CLIMUN", "CLIPRO", "CLICP", "CLITEL", "CLIEMAIL"};
const QStringList REPRESENTANTE_IMPRESO = {"REPNOM", "REPNIF",  "REPDOM",  "REPMUN", "REPPRO",  "REPCP",
                                           "REPTEL", "REPEMAIL", "TIPOREP", "REPRES", "REPRESNO"};
const QStringList SOCIEDAD_IMPRESO = {"ARQREG", "ARQSOC", "SOCDOM", "HAYSOC"};

QStringList columnasA3()
{
    QStringList r = numerados("USO", 1, 6) + numerados("SUP", 1, 6) + numerados("CT", 1, 6) + numerados("CC", 1, 6)
                    + numerados("CR", 1, 6) + numerados("CREF", 1, 6) + numerados("COSTE", 1, 6);
    r << "MODULO" << "SUP" << "CREF" << "PEM" << "COSTE_TOTAL";
    return r;
}

QStringList columnasA2()
{
    QStringList r = numerados("NDOC", 1, 32, 2) + numerados("VBDOC", 1, 32, 2);
    for (int n : {4, 12, 18, 19, 22, 23, 25, 26, 27, 28, 30})
        r << QStringLiteral("TXTDOC%1").arg(n, 2, 10, QLatin1Char('0'));
    return r;
}

QStringList agente(const QString& prefijo)
{
    QStringList r;
    for (const char* s : {"NOM", "NIF", "DOM", "TEL", "MAIL", "MUN", "PRO", "CP"})
        r << prefijo + QLatin1String(s);
    return r;
}

QStringList persona(const QString& prefijo)
{
    QStringList r;
    for (const char* s : {"NOM", "COD", "NIF", "DOM", "MUN", "PRO", "TEL", "CP"})
        r << prefijo + QLatin1String(s);
    return r;
}

// Tablas maestras: la entrega las lleva vacías.
const QStringList TABLAS_NUCLEO = {"Config",
                                   "Clientes",
                                   "Representantes",
                                   "OTROS",
                                   "Proyectos_A",
                                   "Arquitectos_Proyecto",
                                   "Autores_Proyecto",
                                   "Aparejadores_Proyecto",
                                   "Constructores_Proyecto",
                                   "Costes",
                                   "Contratos"};

}  // namespace

class tst_esquema : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void columnas_data();
    void columnas();
    void provincias_data();
    void provincias();
    void tablasVacias();
    void contadoresNoReutilizan_data();
    void contadoresNoReutilizan();
    void clavesMayorMasUnoSinContador();

private:
    QSqlDatabase m_db;
    QTemporaryDir m_dir;
};

void tst_esquema::initTestCase()
{
    // Se trabaja sobre una copia: la prueba de contadores escribe y la plantilla no se toca.
    QVERIFY(m_dir.isValid());
    const QString copia = m_dir.filePath(BaseDatos::NOMBRE_FICHERO);
    QVERIFY2(QFile::copy(QStringLiteral(PLANTILLA_BD), copia), PLANTILLA_BD);
    m_db = BaseDatos::abrirConexion(QStringLiteral("prueba"), copia);
    QVERIFY(m_db.isOpen());
}

void tst_esquema::cleanupTestCase()
{
    m_db.close();
    m_db = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("prueba"));
}

void tst_esquema::columnas_data()
{
    QTest::addColumn<QString>("tabla");
    QTest::addColumn<QStringList>("requeridas");

    const QStringList personaOtros = {"Codigo_Cli",    "Nombre_Cli", "Ape_Cli",  "NIF",     "Dirección_Cli",
                                      "Municipio_Cli", "Provincia_Cli", "Tfno_Cli", "TelMovil", "Fax_Cli",
                                      "cp",            "Otros",      "Correo_Cli"};

    // Núcleo
    QTest::newRow("Config") << "Config"
                            << (numerados("CodArq", 1, 4)
                                + QStringList{"Arq1Nom", "Arq1Col", "Arq2Nom", "Arq2Col", "Arq3Nom", "Arq3Col",
                                              "Arq4Nom", "Arq4Col", "CodSoc", "SocNom", "SocReg", "NIF", "Domicilio",
                                              "CP", "Municipio", "Provincia", "Telefono", "Fax", "TfnMovil",
                                              "CorreoElectronico", "PaginaWeb", "Modulo", "IVA", "IRPF",
                                              "AgenciaTributaria"});
    QTest::newRow("Clientes") << "Clientes" << (personaOtros + QStringList{"tf", "esR"});
    QTest::newRow("Representantes") << "Representantes" << (personaOtros + QStringList{"tf", "Representacion"});
    QTest::newRow("OTROS") << "OTROS"
                           << (personaOtros + QStringList{"Categoria", "esS", "NumColegiado", "Colegio", "Tfno_Cli1"});
    QTest::newRow("Proyectos_A") << "Proyectos_A"
                                 << QStringList{"PryCod", "Trabajo", "Emplazamiento", "Municipio", "Provincia",
                                                "EXPNUM", "EXPREF", "EXPFV", "EXPFFO", "PRYF1", "PRYF2", "PRYF3",
                                                "PRYF4", "PRYNTS", "Codigo_Cliente", "Codigo_Representante",
                                                "Codigo_SeguridadSalud", "ARQREG", "ARQSOC", "CLINOM", "CLINIF",
                                                "CLIDOM", "CLIMUN", "CLIPRO", "CLITEL", "CLICP", "REPNOM", "REPNIF",
                                                "REPDOM", "REPMUN", "REPPRO", "REPTEL", "REPCP",
                                                "Codigo_Constructor", "CONNOM", "APACOL", "APANOM"};
    QTest::newRow("Arquitectos_Proyecto") << "Arquitectos_Proyecto"
                                          << QStringList{"PryCod", "Codigo_Arq", "NumCol", "PorPar_Arq",
                                                         "EsAutorProyecto", "PerteneceSociedad", "EsPropiaSociedad",
                                                         "NumImpreso"};
    QTest::newRow("Autores_Proyecto") << "Autores_Proyecto" << QStringList{"PryCod", "Codigo_Arq"};
    QTest::newRow("Aparejadores_Proyecto") << "Aparejadores_Proyecto" << QStringList{"PryCod", "Codigo_Apa"};
    QTest::newRow("Constructores_Proyecto") << "Constructores_Proyecto" << QStringList{"PryCod", "Codigo_Cons"};
    QTest::newRow("Costes") << "Costes" << QStringList{"CODIGO", "TIPO", "DESCRIPCION", "CT", "CC"};
    QTest::newRow("Contratos") << "Contratos"
                               << QStringList{"Clave", "Nombre", "TipoDocumento", "RutaDocumento",
                                              "PlantillaEmpleada", "EsPlantilla"};
    QTest::newRow("PROVINCIAS") << "PROVINCIAS" << QStringList{"descripción"};
    QTest::newRow("PROVINCIAS_MIRVADE") << "PROVINCIAS_MIRVADE" << QStringList{"descripción"};

    // A1 y B2
    QTest::newRow("datosA1B2") << "datosA1B2"
                               << QStringList{"Clave", "PRYNOM", "PRYCOD", "OBS1SI", "OBS1NO", "OBS2SI", "OBS2NO",
                                              "CONDICIONES", "LUGAR_A1", "FECHA_A1", "LUGAR_B2", "FECHA_B2",
                                              "TIPODOC"};
    QTest::newRow("A1B2") << "A1B2"
                          << (CLIENTE_IMPRESO + REPRESENTANTE_IMPRESO + SOCIEDAD_IMPRESO + arquitectosPorHoja()
                              + QStringList{"ARQ1DOM", "PRYNOM", "PRYDOM", "PRYMUN", "PRYPRO", "PRYF1", "PRYF2",
                                            "PRYF3", "PRYF4", "OBS1SI", "OBS1NO", "OBS2SI", "OBS2NO", "CONDICIONES",
                                            "LUGAR_A1", "FECHA_A1", "LUGAR_B2", "FECHA_B2"});
    // A2 y A3
    QTest::newRow("datosA2") << "datosA2"
                             << (QStringList{"Clave", "PRYNOM", "PRYCOD", "OBSDOC", "LUGAR", "FECHA", "TIPODOC"}
                                 + columnasA2());
    QTest::newRow("A2") << "A2"
                        << (QStringList{"PRYNOM", "PRYDOM", "CLIMUN", "CLIPRO", "CLINOM", "EXPNUM", "EXPREF", "EXPFV",
                                        "EXPFFO", "ARQ1NOM", "OBSDOC", "LUGAR", "FECHA"}
                            + columnasA2());
    QTest::newRow("datosA3") << "datosA3"
                             << (QStringList{"Clave", "PRYNOM", "PRYCOD", "LUGAR", "FECHA", "TIPODOC"} + columnasA3());
    QTest::newRow("A3") << "A3"
                        << (QStringList{"PRYNOM", "PRYDOM", "CLIMUN", "CLIPRO", "CLINOM", "EXPNUM", "EXPREF", "EXPFV",
                                        "EXPFFO", "ARQ1NOM", "LUGAR", "FECHA"}
                            + columnasA3());
    // A4, A5 y CSS
    const QStringList plan = numerados("PLAN", 1, 6) + numerados("PROY", 1, 6);
    QTest::newRow("datosA4A5") << "datosA4A5"
                               << (QStringList{"Clave", "PRYNOM", "PRYCOD", "LUGARVIS", "FECHAVIS", "LUGARA4",
                                               "FECHAA4", "PLAMUN", "FAPMUN", "PLAPAR", "FAPPAR", "OBS", "LUGARA5",
                                               "FECHAA5", "TIPODOC"}
                                   + plan);
    const QStringList bloquesA4 = CLIENTE_IMPRESO + REPRESENTANTE_IMPRESO + SOCIEDAD_IMPRESO + arquitectosPorHoja()
                                  + QStringList{"ARQ1DOM", "PRYNOM", "PRYDOM", "PRYMUN", "PRYPRO", "LUGARVIS",
                                                "FECHAVIS", "LUGAR", "FECHA"};
    QTest::newRow("A4") << "A4" << (bloquesA4 + QStringList{"AUTOR"});
    QTest::newRow("A5") << "A5"
                        << (QStringList{"PRYNOM", "PRYDOM", "CLIMUN", "CLIPRO", "CLINOM", "ARQ1NOM", "PLAMUN",
                                        "FAPMUN", "PLAPAR", "FAPPAR", "OBS", "LUGAR", "FECHA"}
                            + plan);
    QTest::newRow("datosCOORDINADOR_SEGURIDAD_Y_SALUD")
        << "datosCOORDINADOR_SEGURIDAD_Y_SALUD"
        << QStringList{"Clave", "PRYNOM", "PRYCOD", "LUGARVIS", "FECHAVIS", "LUGAR", "FECHA"};
    QTest::newRow("COORDINADOR_SEGURIDAD_Y_SALUD") << "COORDINADOR_SEGURIDAD_Y_SALUD"
                                                   << (bloquesA4 + QStringList{"COORDINADOR_SYS"});
    // Facturas y certificados de retenciones
    QTest::newRow("datosB1B3B4") << "datosB1B3B4"
                                 << QStringList{"Clave",  "PRYNOM", "PRYCOD", "NUMFAC", "REGCLI", "IMPORTE",
                                                "IVA",    "TOTAL",  "IRPF",   "EURABON", "TXTABON", "ARQNOM",
                                                "ARQCOD", "ARQNIF", "ARQDOM", "ARQMUN", "ARQPRO", "ARQTEL",
                                                "ARQCP",  "AgenciaTributaria", "LUGAR", "FECHA"};
    QTest::newRow("Detalle_Factura_Honorarios") << "Detalle_Factura_Honorarios"
                                                << QStringList{"Id_Factura", "Concepto", "Importe"};
    QTest::newRow("B1B3B4") << "B1B3B4"
                            << QStringList{"ARQ1NOM", "ARQ1NIF", "ARQ1DOM", "ARQ1CP", "ARQ1MUN", "ARQ1PRO", "ARQ1TEL",
                                           "CLINOM",  "CLINIF",  "CLIDOM",  "CLICP",  "CLIMUN",  "CLIPRO",  "CLITEL",
                                           "AgenciaTributaria", "NUMFAC", "REGCLI", "IMPORTE", "IVA", "TOTAL",
                                           "IRPF", "EURABON", "TXTABON", "LUGAR", "FECHA", "Id_Factura"};
    const QStringList b4 = QStringList{"Ejercicio", "FechaPresentacion", "NumJustificante", "AgenciaTributaria",
                                       "Rendimientos", "Retencion", "ImporteIntegro", "LUGAR", "FECHA"}
                           + persona("PER") + persona("PAG");
    QTest::newRow("datosB4") << "datosB4" << (b4 + QStringList{"Clave", "TipoCertificado", "TipoPerceptor"});
    QTest::newRow("B4") << "B4" << b4;
    // Certificados
    QTest::newRow("datosCERTIFICADO") << "datosCERTIFICADO"
                                      << QStringList{"Clave", "CodArq", "NomArq", "Texto", "Lugar", "Fecha"};
    QTest::newRow("CERTIFICADO") << "CERTIFICADO"
                                 << QStringList{"CodArq", "NomArq", "NumColegiado", "Colegio", "NIF", "Direccion",
                                                "Texto", "Lugar", "Fecha"};
    QTest::newRow("datosFinObra") << "datosFinObra"
                                  << QStringList{"Clave", "PRYNOM", "PRYCOD", "APADEM", "LUGAR1", "ARQDEM", "LUGAR2",
                                                 "FFIN", "FECHALICENCIA", "FECHA", "TIPODOC"};
    QTest::newRow("FinObra") << "FinObra"
                             << QStringList{"PRYNOM", "PRYDOM", "PRYMUN", "CLIPRO", "CLINOM", "APACOL",
                                            "APANOM", "CONNOM", "ARQSNOM", "ARQSCOL", "AUTOR", "APADEM",
                                            "LUGAR1", "ARQDEM", "LUGAR2", "FFIN", "FECHALICENCIA", "FECHA"};
    // Comunicado de dirección y coordinador
    QTest::newRow("datosCOMUNICADO_DIRECCION_Y_COORDINADOR") << "datosCOMUNICADO_DIRECCION_Y_COORDINADOR"
                                                             << QStringList{"Clave", "PRYNOM", "PRYCOD", "LUGAR",
                                                                            "FECHA"};
    QTest::newRow("DirectoresObra_Impreso") << "DirectoresObra_Impreso"
                                            << QStringList{"Id_Impreso", "Codigo_DirectorObra"};
    QTest::newRow("DirectoresDeEjecucion_Impreso") << "DirectoresDeEjecucion_Impreso"
                                                   << QStringList{"Id_Impreso", "Codigo_DirectorEjec"};
    QTest::newRow("CoordinadorSS_Impreso") << "CoordinadorSS_Impreso"
                                           << QStringList{"Id_Impreso", "Codigo_Coordinador", "TipoPerceptor"};
    QTest::newRow("COMUNICADO_DIRECCION_Y_COORDINADOR")
        << "COMUNICADO_DIRECCION_Y_COORDINADOR"
        << (CLIENTE_IMPRESO + REPRESENTANTE_IMPRESO
            + QStringList{"PRYNOM", "PRYDOM", "PRYMUN", "PRYPRO", "LUGAR", "FECHA"});
    QTest::newRow("DirectoresObra_Tmp") << "DirectoresObra_Tmp" << agente("DIROBRA");
    QTest::newRow("DirectoresDeEjecucion_Tmp") << "DirectoresDeEjecucion_Tmp" << agente("DIREJEC");
    QTest::newRow("CoordinadoresSS_Tmp") << "CoordinadoresSS_Tmp" << agente("COORSS");
}

void tst_esquema::columnas()
{
    QFETCH(QString, tabla);
    QFETCH(QStringList, requeridas);

    // Los nombres se comparan sin distinguir mayúsculas, como los escribe el código (PryCod, PRYCOD).
    const QSqlRecord registro = m_db.record(tabla);
    QVERIFY2(!registro.isEmpty(), qPrintable(QStringLiteral("Falta la tabla ") + tabla));
    QSet<QString> existentes;
    for (int i = 0; i < registro.count(); ++i)
        existentes.insert(registro.fieldName(i).toUpper());
    QStringList faltan;
    for (const QString& c : requeridas)
        if (!existentes.contains(c.toUpper()))
            faltan << c;
    QVERIFY2(faltan.isEmpty(), qPrintable(tabla + QStringLiteral(": faltan ") + faltan.join(QStringLiteral(", "))));

    // Y la consulta por nombre funciona de verdad, acentos incluidos.
    QSqlQuery q(m_db);
    QVERIFY2(q.exec(QStringLiteral("SELECT ") + requeridas.join(QStringLiteral(", ")) + QStringLiteral(" FROM ")
                    + tabla + QStringLiteral(" WHERE 0")),
             qPrintable(q.lastError().text()));
}

void tst_esquema::provincias_data()
{
    QTest::addColumn<QString>("tabla");
    QTest::addColumn<int>("filas");
    QTest::addColumn<QStringList>("algunas");

    QTest::newRow("PROVINCIAS") << "PROVINCIAS" << 52
                                << QStringList{"A Coruña", "Álava", "Alicante", "Ávila", "Ceuta", "Melilla",
                                               "Santa Cruz de Tenerife", "Valladolid", "Zaragoza"};
    QTest::newRow("PROVINCIAS_MIRVADE") << "PROVINCIAS_MIRVADE" << 9
                                        << QStringList{"Ávila", "Burgos", "León", "Palencia", "Salamanca", "Segovia",
                                                       "Soria", "Valladolid", "Zamora"};
}

void tst_esquema::provincias()
{
    QFETCH(QString, tabla);
    QFETCH(int, filas);
    QFETCH(QStringList, algunas);

    QSqlQuery q(m_db);
    QVERIFY(q.exec(QStringLiteral("SELECT descripción FROM ") + tabla));
    QStringList leidas;
    while (q.next())
        leidas << q.value(0).toString();
    QCOMPARE(leidas.size(), filas);
    QCOMPARE(QSet<QString>(leidas.begin(), leidas.end()).size(), filas);  // sin repetidas
    for (const QString& p : algunas)
        QVERIFY2(leidas.contains(p), qPrintable(tabla + QStringLiteral(": falta ") + p));
    // Caben en los campos de provincia de las pantallas (25 caracteres).
    for (const QString& p : leidas)
        QVERIFY2(p.size() <= 25 && p == p.trimmed(), qPrintable(p));
}

void tst_esquema::tablasVacias()
{
    QSqlQuery q(m_db);
    for (const QString& tabla : TABLAS_NUCLEO) {
        QVERIFY2(q.exec(QStringLiteral("SELECT count(*) FROM ") + tabla) && q.next(), qPrintable(tabla));
        QVERIFY2(q.value(0).toInt() == 0, qPrintable(tabla + QStringLiteral(" no está vacía")));
    }
    // Tampoco hay impresos guardados.
    QVERIFY(q.exec(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name LIKE 'datos%'")));
    QStringList historicos;
    while (q.next())
        historicos << q.value(0).toString();
    QCOMPARE(historicos.size(), 10);
    for (const QString& tabla : historicos) {
        QVERIFY(q.exec(QStringLiteral("SELECT count(*) FROM ") + tabla) && q.next());
        QVERIFY2(q.value(0).toInt() == 0, qPrintable(tabla + QStringLiteral(" no está vacía")));
    }
}

void tst_esquema::contadoresNoReutilizan_data()
{
    QTest::addColumn<QString>("tabla");
    QTest::addColumn<QString>("clave");
    QTest::addColumn<QString>("campo");

    QTest::newRow("Proyectos_A") << "Proyectos_A" << "PryCod" << "Trabajo";
    QTest::newRow("Contratos") << "Contratos" << "Clave" << "Nombre";
    QTest::newRow("datosA1B2") << "datosA1B2" << "Clave" << "PRYNOM";
    QTest::newRow("datosA2") << "datosA2" << "Clave" << "PRYNOM";
    QTest::newRow("datosA3") << "datosA3" << "Clave" << "PRYNOM";
    QTest::newRow("datosA4A5") << "datosA4A5" << "Clave" << "PRYNOM";
    QTest::newRow("datosCOORDINADOR_SEGURIDAD_Y_SALUD") << "datosCOORDINADOR_SEGURIDAD_Y_SALUD" << "Clave"
                                                        << "PRYNOM";
    QTest::newRow("datosB1B3B4") << "datosB1B3B4" << "Clave" << "PRYNOM";
    QTest::newRow("datosB4") << "datosB4" << "Clave" << "PERNOM";
    QTest::newRow("datosCERTIFICADO") << "datosCERTIFICADO" << "Clave" << "NomArq";
    QTest::newRow("datosFinObra") << "datosFinObra" << "Clave" << "PRYNOM";
    QTest::newRow("datosCOMUNICADO_DIRECCION_Y_COORDINADOR") << "datosCOMUNICADO_DIRECCION_Y_COORDINADOR" << "Clave"
                                                             << "PRYNOM";
}

void tst_esquema::contadoresNoReutilizan()
{
    QFETCH(QString, tabla);
    QFETCH(QString, clave);
    QFETCH(QString, campo);

    QSqlQuery q(m_db);
    const QString insertar = QStringLiteral("INSERT INTO %1 (%2) VALUES (?)").arg(tabla, campo);
    auto alta = [&](const QString& valor) {
        q.prepare(insertar);
        q.addBindValue(valor);
        if (!q.exec())
            return qint64(-1);
        return q.lastInsertId().toLongLong();
    };
    QCOMPARE(alta(QStringLiteral("uno")), qint64(1));
    QCOMPARE(alta(QStringLiteral("dos")), qint64(2));
    QVERIFY(q.exec(QStringLiteral("DELETE FROM %1 WHERE %2 = 2").arg(tabla, clave)));
    QCOMPARE(alta(QStringLiteral("tres")), qint64(3));
    // Ni vaciando la tabla vuelve a empezar.
    QVERIFY(q.exec(QStringLiteral("DELETE FROM ") + tabla));
    QCOMPARE(alta(QStringLiteral("cuatro")), qint64(4));
    QVERIFY(q.exec(QStringLiteral("DELETE FROM ") + tabla));
}

void tst_esquema::clavesMayorMasUnoSinContador()
{
    // Clientes, Representantes y OTROS llevan la clave que calcula el programa (mayor más uno);
    // Costes, el código que escribe el usuario. Ninguna tiene contador propio.
    QSqlQuery q(m_db);
    QVERIFY(q.exec(QStringLiteral("SELECT name, sql FROM sqlite_master WHERE type = 'table'")));
    QSet<QString> conContador;
    while (q.next())
        if (q.value(1).toString().contains(QLatin1String("AUTOINCREMENT"), Qt::CaseInsensitive))
            conContador.insert(q.value(0).toString());
    for (const char* t : {"Clientes", "Representantes", "OTROS", "Costes"})
        QVERIFY2(!conContador.contains(QString::fromLatin1(t)), t);
    QCOMPARE(conContador.size(), 12);  // Proyectos_A, Contratos y los diez históricos

    // Un código repetido de cliente o de coste se rechaza.
    QVERIFY(q.exec(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli) VALUES (7, 'A')")));
    QVERIFY(!q.exec(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli) VALUES (7, 'B')")));
    QVERIFY(q.exec(QStringLiteral("INSERT INTO Costes (CODIGO, TIPO) VALUES ('R1', 'Vivienda')")));
    QVERIFY(!q.exec(QStringLiteral("INSERT INTO Costes (CODIGO, TIPO) VALUES ('R1', 'Otro')")));
    QVERIFY(q.exec(QStringLiteral("DELETE FROM Clientes")));
    QVERIFY(q.exec(QStringLiteral("DELETE FROM Costes")));
}

QTEST_GUILESS_MAIN(tst_esquema)
#include "tst_esquema.moc"
