// Base de datos vacía que se entrega: columnas que leen las pantallas, listas de provincias,
// tablas vacías y contadores que no reutilizan números.

#include "core/BaseDatos.h"

#include <QFile>
#include <QSet>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// Una fila por tabla con las columnas más fáciles de escribir mal (acentos, mayúsculas, numeradas).
void tabla(const char* nombre, const char* columnas)
{
    QTest::newRow(nombre) << QString::fromLatin1(nombre) << QString::fromUtf8(columnas).split(QLatin1Char(' '));
}

}  // namespace

class tst_esquema : public QObject {
    Q_OBJECT
    QSqlDatabase m_db;
    QTemporaryDir m_dir;

private slots:
    void initTestCase()
    {
        // Se trabaja sobre una copia: la prueba de contadores escribe y la plantilla no se toca.
        const QString copia = m_dir.filePath(BaseDatos::NOMBRE_FICHERO);
        QVERIFY2(QFile::copy(QStringLiteral(PLANTILLA_BD), copia), PLANTILLA_BD);
        m_db = BaseDatos::abrirConexion(QStringLiteral("prueba"), copia);
        QVERIFY(m_db.isOpen());
    }
    void cleanupTestCase()
    {
        m_db.close();
        m_db = QSqlDatabase();
        QSqlDatabase::removeDatabase(QStringLiteral("prueba"));
    }
    void columnas_data();
    void columnas();
    void provincias();
    void tablasVacias();
    void contadoresNoReutilizan_data();
    void contadoresNoReutilizan();
    void clavesMayorMasUnoSinContador();
};

void tst_esquema::columnas_data()
{
    QTest::addColumn<QString>("tabla");
    QTest::addColumn<QStringList>("requeridas");

    tabla("Config", "CodArq4 Arq4Col CodSoc SocReg TfnMovil CorreoElectronico PaginaWeb AgenciaTributaria");
    tabla("Clientes", "Codigo_Cli Ape_Cli Dirección_Cli Municipio_Cli Tfno_Cli TelMovil cp Correo_Cli tf esR");
    tabla("Representantes", "Codigo_Cli Dirección_Cli Representacion");
    tabla("OTROS", "Codigo_Cli Dirección_Cli Categoria esS NumColegiado Colegio Tfno_Cli1");
    tabla("Proyectos_A", "PryCod EXPFFO PRYF4 PRYNTS Codigo_SeguridadSalud Codigo_Representante CONNOM APACOL");
    tabla("Arquitectos_Proyecto", "NumCol PorPar_Arq EsAutorProyecto PerteneceSociedad EsPropiaSociedad NumImpreso");
    tabla("Autores_Proyecto", "PryCod Codigo_Arq");
    tabla("Aparejadores_Proyecto", "PryCod Codigo_Apa");
    tabla("Constructores_Proyecto", "PryCod Codigo_Cons");
    tabla("Costes", "CODIGO TIPO DESCRIPCION CT CC");
    tabla("Contratos", "Clave TipoDocumento RutaDocumento PlantillaEmpleada EsPlantilla");
    tabla("datosA1B2", "Clave PRYCOD OBS2NO CONDICIONES LUGAR_A1 FECHA_B2 TIPODOC");
    tabla("A1B2", "CLIEMAIL TIPOREP REPRESNO HAYSOC SOCDOM ARQ3PERTENECE_SOC ARQ3COLEGIO ARQ1DOM FECHA_B2");
    tabla("datosA2", "OBSDOC NDOC01 NDOC32 VBDOC32 TXTDOC04 TXTDOC30 TIPODOC");
    tabla("A2", "EXPFFO ARQ1NOM OBSDOC NDOC32 VBDOC01 TXTDOC30");
    tabla("datosA3", "USO6 SUP6 CT6 CC6 CR6 CREF6 COSTE6 MODULO PEM COSTE_TOTAL");
    tabla("A3", "CREF1 COSTE6 SUP CREF COSTE_TOTAL");
    tabla("datosA4A5", "LUGARVIS FECHAVIS LUGARA4 FECHAA5 PLAMUN FAPMUN PLAPAR FAPPAR PLAN6 PROY6");
    tabla("A4", "REPRESNO ARQ2PERTENECE_SOC LUGARVIS AUTOR");
    tabla("A5", "PLAMUN FAPPAR OBS PLAN1 PROY6");
    tabla("datosCOORDINADOR_SEGURIDAD_Y_SALUD", "Clave PRYCOD LUGARVIS FECHAVIS");
    tabla("COORDINADOR_SEGURIDAD_Y_SALUD", "ARQ3COLEGIO HAYSOC COORDINADOR_SYS");
    tabla("datosB1B3B4", "NUMFAC REGCLI EURABON TXTABON ARQCOD ARQCP AgenciaTributaria");
    tabla("Detalle_Factura_Honorarios", "Id_Factura Concepto Importe");
    tabla("B1B3B4", "ARQ1NIF ARQ1CP CLICP AgenciaTributaria EURABON TXTABON Id_Factura");
    tabla("datosB4", "TipoCertificado TipoPerceptor FechaPresentacion NumJustificante ImporteIntegro PERCOD PAGCP");
    tabla("B4", "FechaPresentacion NumJustificante Rendimientos Retencion PERNIF PAGCOD");
    tabla("datosCERTIFICADO", "Clave CodArq NomArq Texto Lugar Fecha");
    tabla("CERTIFICADO", "NumColegiado Colegio Direccion");
    tabla("datosFinObra", "APADEM LUGAR1 ARQDEM LUGAR2 FFIN FECHALICENCIA TIPODOC");
    tabla("FinObra", "APACOL ARQSNOM ARQSCOL AUTOR FFIN FECHALICENCIA");
    tabla("datosCOMUNICADO_DIRECCION_Y_COORDINADOR", "Clave PRYCOD LUGAR FECHA");
    tabla("DirectoresObra_Impreso", "Id_Impreso Codigo_DirectorObra");
    tabla("DirectoresDeEjecucion_Impreso", "Id_Impreso Codigo_DirectorEjec");
    tabla("CoordinadorSS_Impreso", "Id_Impreso Codigo_Coordinador TipoPerceptor");
    tabla("COMUNICADO_DIRECCION_Y_COORDINADOR", "CLIEMAIL REPRESNO TIPOREP PRYPRO");
    tabla("DirectoresObra_Tmp", "DIROBRANOM DIROBRAMAIL DIROBRACP");
    tabla("DirectoresDeEjecucion_Tmp", "DIREJECNOM DIREJECMAIL DIREJECCP");
    tabla("CoordinadoresSS_Tmp", "COORSSNOM COORSSMAIL COORSSCP");
}

void tst_esquema::columnas()
{
    QFETCH(QString, tabla);
    QFETCH(QStringList, requeridas);
    // La consulta por nombre falla si falta la tabla o alguna columna (acentos incluidos).
    QSqlQuery q(m_db);
    QVERIFY2(q.exec(QStringLiteral("SELECT %1 FROM %2 WHERE 0").arg(requeridas.join(QStringLiteral(", ")), tabla)),
             qPrintable(tabla + QStringLiteral(": ") + q.lastError().text()));
}

void tst_esquema::provincias()
{
    // Cuántas hay, sin repetidas, y algunas con acentos y eñes.
    const struct {
        const char* tabla;
        int filas;
        QStringList algunas;
    } casos[] = {{"PROVINCIAS", 52, {"A Coruña", "Álava", "Ceuta", "Santa Cruz de Tenerife"}},
                 {"PROVINCIAS_MIRVADE", 9, {"Ávila", "León", "Zamora"}}};
    QSqlQuery q(m_db);
    for (const auto& c : casos) {
        QVERIFY(q.exec(QStringLiteral("SELECT descripción FROM ") + QLatin1String(c.tabla)));
        QSet<QString> leidas;
        while (q.next())
            leidas.insert(q.value(0).toString());
        QCOMPARE(leidas.size(), c.filas);
        for (const QString& p : c.algunas)
            QVERIFY2(leidas.contains(p), qPrintable(p));
    }
}

void tst_esquema::tablasVacias()
{
    // Ni maestros ni impresos guardados: ninguna tabla lleva filas salvo las provincias.
    QSqlQuery q(m_db);
    QVERIFY(q.exec(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%' "
                                  "AND name NOT LIKE 'PROVINCIAS%'")));
    QStringList tablas;
    while (q.next())
        tablas << q.value(0).toString();
    for (const QString& t : tablas)
        QVERIFY2(q.exec(QStringLiteral("SELECT count(*) FROM ") + t) && q.next() && q.value(0).toInt() == 0, qPrintable(t));
}

void tst_esquema::contadoresNoReutilizan_data()
{
    QTest::addColumn<QString>("tabla");
    QTest::addColumn<QString>("clave");
    QTest::addColumn<QString>("campo");
    QTest::newRow("Proyectos_A") << "Proyectos_A" << "PryCod" << "Trabajo";
    QTest::newRow("Contratos") << "Contratos" << "Clave" << "Nombre";
    for (const char* t : {"datosA1B2", "datosA2", "datosA3", "datosA4A5", "datosCOORDINADOR_SEGURIDAD_Y_SALUD",
                          "datosB1B3B4", "datosFinObra", "datosCOMUNICADO_DIRECCION_Y_COORDINADOR"})
        QTest::newRow(t) << t << "Clave" << "PRYNOM";
    QTest::newRow("datosB4") << "datosB4" << "Clave" << "PERNOM";
    QTest::newRow("datosCERTIFICADO") << "datosCERTIFICADO" << "Clave" << "NomArq";
}

void tst_esquema::contadoresNoReutilizan()
{
    QFETCH(QString, tabla);
    QFETCH(QString, clave);
    QFETCH(QString, campo);
    QSqlQuery q(m_db);
    auto alta = [&] {
        return q.exec(QStringLiteral("INSERT INTO %1 (%2) VALUES ('x')").arg(tabla, campo)) ? q.lastInsertId().toLongLong()
                                                                                            : qint64(-1);
    };
    QCOMPARE(alta(), qint64(1));
    QCOMPARE(alta(), qint64(2));
    QVERIFY(q.exec(QStringLiteral("DELETE FROM %1 WHERE %2 = 2").arg(tabla, clave)));
    QCOMPARE(alta(), qint64(3));
    // Ni vaciando la tabla vuelve a empezar.
    QVERIFY(q.exec(QStringLiteral("DELETE FROM ") + tabla));
    QCOMPARE(alta(), qint64(4));
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
}

QTEST_GUILESS_MAIN(tst_esquema)
#include "tst_esquema.moc"
