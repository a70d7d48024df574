// Pantallas de búsqueda: carga por clave de tabla, búsquedas, orden, borrado, barras,
// teclas, apertura desde el menú y ayudas.
#include "app/Aplicacion.h"
#include "app/frmMenu.h"
#include "core/Cotejo.h"
#include "core/modFunciones.h"
#include "search/AbrirBusqueda.h"
#include "search/frmAyudaBuscar.h"
#include "search/frmAyudaBuscarSeleccionar.h"
#include "search/frmBuscar.h"
#include "search/frmBuscarSeleccionar.h"
#include "tests/comun/EntornoPrueba.h"

#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTreeView>
#include <QtTest>

using Mensajes::Respuesta;

namespace {

const QString NO_HALLADO = QStringLiteral("No se han encontrado datos que cumplan el criterio de búsqueda");

void llenar()
{
    UsoConexion uso;
    const QStringList sql = {
        "INSERT INTO Proyectos_A (PryCod, EXPNUM, Trabajo, Emplazamiento, Municipio, Provincia, EXPFV, EXPFFO) VALUES "
        "(1, '2007/001', 'Vivienda unifamiliar', 'C/ Mayor 1', 'Ávila', 'Ávila', '2007-03-15', NULL),"
        "(2, '2008/002', 'Reforma de nave', 'Polígono 3', 'León', 'León', '2008-02-01', '2009-05-20'),"
        "(3, '2008/003', 'Casa d''Ana', 'C/ Sol 4', 'Segovia', 'Segovia', '2007-11-30', NULL)",
        "INSERT INTO Arquitectos_Proyecto (PryCod) VALUES (2)",
        "INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli, Ape_Cli, NIF, \"Dirección_Cli\", "
        "Municipio_Cli, Provincia_Cli) VALUES "
        "(1, 'ARQUITECTO', 0, 1234, 'José', 'Muñoz Sáez', '12345678Z', 'C/ Real 2', 'Segovia', 'Segovia'),"
        "(2, 'ARQUITECTO', 1, 2000, 'Estudio', 'O''Donnell SLP', 'B1234567', 'Plaza 1', 'Burgos', 'Burgos'),"
        "(3, 'ARQUITECTO TECNICO', 0, 77, 'Ana', 'Álvarez Gil', '22222222J', 'C/ Luna', 'Soria', 'Soria'),"
        "(4, 'CONSTRUCTOR', 1, NULL, 'Construcciones', 'Pérez SA', 'A7654321', 'Nave 5', 'Zamora', 'Zamora')",
        "INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, \"Dirección_Cli\", Municipio_Cli, Provincia_Cli, esR) "
        "VALUES (1, 'María', 'Benítez Ortiz', '11111111H', 'C/ Pez 1', 'Palencia', 'Palencia', 1),"
        "(2, 'Luis', 'Nuño', '33333333P', 'C/ Río 2', 'Valladolid', 'Valladolid', -1)",
        "INSERT INTO Representantes (Codigo_Cli, Nombre_Cli, Ape_Cli) VALUES (1, 'Pedro', 'Benítez')",
        "INSERT INTO Costes (CODIGO, TIPO, DESCRIPCION, CT, CC) VALUES ('1.2', 'Vivienda', 'Unifamiliar aislada', 650.5, 1.2)",
        "INSERT INTO datosA1B2 (PRYNOM, LUGAR_A1, FECHA_A1, LUGAR_B2, FECHA_B2, TIPODOC) VALUES "
        "('Vivienda unifamiliar', 'Ávila', '2007-05-03', NULL, NULL, 'A1'),"
        "('Reforma de nave', NULL, NULL, 'León', '2008-02-01', 'B2')",
        "INSERT INTO datosA2 (PRYNOM, LUGAR, FECHA) VALUES ('Proyecto X', 'Ávila', '2007-06-01'), ('Proyecto Y', 'León', '2008-02-01')",
        "INSERT INTO datosA3 (PRYNOM, LUGAR, FECHA) VALUES ('Proyecto Z', 'Soria', '2008-04-04')",
        "INSERT INTO datosA4A5 (PRYNOM, FECHAVIS, LUGARA4, FECHAA4, LUGARA5, FECHAA5, TIPODOC) VALUES "
        "('Obra A4', '2008-01-10', 'Burgos', '2008-01-12', NULL, NULL, 'A4'),"
        "('Obra A5', NULL, NULL, NULL, 'Zamora', '2007-09-09', 'A5')",
        "INSERT INTO datosCOORDINADOR_SEGURIDAD_Y_SALUD (PRYNOM, FECHAVIS, LUGAR, FECHA) VALUES "
        "('Obra CSS', '2008-03-01', 'León', '2008-03-05'), ('Obra CSS vieja', '2006-03-01', 'León', '2006-03-05')",
        "INSERT INTO datosB1B3B4 (PRYNOM, NUMFAC, ARQNOM, FECHA) VALUES ('Factura uno', '7/2008', 'José Muñoz Sáez', '2008-06-06')",
        "INSERT INTO datosB4 (PERNOM, PAGNOM, Ejercicio, NumJustificante, TipoCertificado) VALUES "
        "('José Muñoz', 'María Benítez', '2007', 'J-1', 'A'), ('José Muñoz', 'Estudio', '2008', 'J-2', 'P')",
        "INSERT INTO datosFinObra (PRYNOM, FECHA) VALUES ('Fin de obra uno', '2009-05-20')",
        "INSERT INTO datosCERTIFICADO (NomArq, Fecha) VALUES ('José Muñoz Sáez', '2007-12-24')",
        "INSERT INTO datosCOMUNICADO_DIRECCION_Y_COORDINADOR (PRYNOM, LUGAR, FECHA) VALUES ('Comunicado uno', 'Ávila', '2008-08-08')",
    };
    for (const QString& s : sql)
        ejecutar(s);
}

template <class T>
T* control(QWidget* f, const char* nombre)
{
    T* c = f->findChild<T*>(QString::fromLatin1(nombre));
    if (!c)
        qFatal("Falta el control %s", nombre);
    return c;
}

QStringList columna(PantallaBusqueda* f, int c = 0)
{
    QStringList r;
    for (int i = 0; i < f->modelo()->rowCount(); ++i)
        r << f->modelo()->texto(i, c);
    return r;
}

QStringList titulos(PantallaBusqueda* f)
{
    QStringList r;
    for (int i = 0; i < f->modelo()->columnCount(); ++i)
        r << f->modelo()->headerData(i, Qt::Horizontal).toString();
    return r;
}

QStringList campos(PantallaBusqueda* f)
{
    auto* cbo = control<QComboBox>(f, "cbo_CampoBusqueda");
    QStringList r;
    for (int i = 0; i < cbo->count(); ++i)
        r << cbo->itemText(i);
    return r;
}

QString estadoExportar(PantallaBusqueda* f)
{
    QString r;
    for (int i = 1; i <= 4; ++i)
        r += f->findChild<QAction*>(QStringLiteral("tlb_BotoneraExportar_%1").arg(i))->isEnabled() ? '1' : '0';
    return r;
}

frmBuscar* abrir(const QString& tabla, const QString& tipo = {})
{
    abrirBusqueda(tabla, tipo, QStringLiteral("Lista"));
    return Pantallas::cargada<frmBuscar>();
}

frmBuscarSeleccionar* abrirSelector(const QString& tabla, const QString& claveRetorno = QStringLiteral("X"))
{
    return frmBuscarSeleccionar::abrir(tabla, QStringLiteral("SELECCIONAR_EN_PROYECTOS"), QStringLiteral("Buscar"), claveRetorno);
}

void buscar(PantallaBusqueda* f, int indice, const QString& valor)
{
    control<QComboBox>(f, "cbo_CampoBusqueda")->setCurrentIndex(indice);
    control<QLineEdit>(f, "msk_ValorBusqueda")->setText(valor);
    f->tlb_BotoneraBuscar_Click();
}

}  // namespace

class tst_buscar : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        Aplicacion::reiniciar();
        frmMenu::instancia();
    }

    void cleanup()
    {
        delete frmMenu::existente();
        QList<QPointer<QWidget>> quedan;
        for (QWidget* w : Pantallas::cargadas())
            quedan << w;
        for (const QPointer<QWidget>& w : quedan)
            delete w.data();
        procesarEventos();
        Aplicacion::reiniciar();
    }

    void carga_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<bool>("selector");
        QTest::addColumn<QString>("columnas");
        QTest::addColumn<int>("ancho0");
        QTest::addColumn<QString>("listaCampos");
        QTest::addColumn<QString>("primeraFila");
        QTest::addColumn<int>("filas");

        const QString arq = "Colegiado|Nombre|Apellidos|NIF/CIF|Domicilio|Municipio|Provincia";
        const QString camposArq = "|Número de colegiado|Nombre|Apellidos|NIF|Municipio|Provincia";
        const QString per = "Nombre|Apellidos|NIF/CIF|Domicilio|Municipio|Provincia";
        const QString camposPer = "|Nombre|Apellidos|NIF|Municipio|Provincia";
        const QString plf = "Proyecto|Lugar|Fecha";
        const QString pf = "|Proyecto|Fecha";
        QTest::newRow("proyectos") << "PROYECTOS_A" << "" << false
                                   << "Nº Exp|Trabajo|Emplazamiento|Municipio|Provincia|F. Visado|F. Fin de obra" << 60
                                   << "|Número de expediente|Trabajo|Municipio|Provincia|Ubicación del proyecto|Fecha visado|Fecha fin de obra"
                                   << "2007/001|Vivienda unifamiliar|C/ Mayor 1|Ávila|Ávila|15/03/2007|" << 3;
        QTest::newRow("arquitectos") << "ARQUITECTOS" << "" << false << arq << 60 << camposArq
                                     << "1234|José|Muñoz Sáez|12345678Z|C/ Real 2|Segovia|Segovia" << 2;
        QTest::newRow("simples") << "ARQUITECTOS_SIMPLE" << "" << true << arq << 60 << camposArq
                                 << "1234|José|Muñoz Sáez|12345678Z|C/ Real 2|Segovia|Segovia" << 1;
        QTest::newRow("sociedades") << "ARQUITECTOS_SOCIEDAD" << "" << true << arq << 60 << camposArq
                                    << "2000|Estudio|O'Donnell SLP|B1234567|Plaza 1|Burgos|Burgos" << 1;
        QTest::newRow("autores") << "ARQUITECTOS_AUTORES" << "" << true << arq << 60 << camposArq
                                 << "1234|José|Muñoz Sáez|12345678Z|C/ Real 2|Segovia|Segovia" << 2;
        QTest::newRow("coordinador") << "COORDINADOR_SS" << "" << true << arq << 60 << camposArq
                                     << "1234|José|Muñoz Sáez|12345678Z|C/ Real 2|Segovia|Segovia" << 2;
        QTest::newRow("aparejadores") << "APAREJADORES" << "" << false << arq << 60 << camposArq
                                      << "77|Ana|Álvarez Gil|22222222J|C/ Luna|Soria|Soria" << 1;
        QTest::newRow("contratistas") << "CONTRATISTAS" << "" << false << per << 163 << camposPer
                                      << "Construcciones|Pérez SA|A7654321|Nave 5|Zamora|Zamora" << 1;
        QTest::newRow("clientes") << "CLIENTES" << "" << false << per << 163 << camposPer
                                  << "María|Benítez Ortiz|11111111H|C/ Pez 1|Palencia|Palencia" << 2;
        QTest::newRow("costes") << "COSTES" << "" << true << "Código|Tipo|Descripción|Ct|Cc" << 50 << "|Código|Tipo|Descripción"
                                << "1.2|Vivienda|Unifamiliar aislada|650,5|1,2" << 1;
        QTest::newRow("A1") << "DATOSA1B2" << "A1" << false << plf << 333 << pf << "Vivienda unifamiliar|Ávila|03/05/2007" << 1;
        QTest::newRow("B2") << "DATOSA1B2" << "B2" << false << plf << 333 << pf << "Reforma de nave|León|01/02/2008" << 1;
        QTest::newRow("A2") << "DATOSA2" << "A2" << false << plf << 333 << pf << "Proyecto X|Ávila|01/06/2007" << 2;
        QTest::newRow("A3") << "DATOSA3" << "A3" << false << plf << 333 << pf << "Proyecto Z|Soria|04/04/2008" << 1;
        QTest::newRow("A4") << "DATOSA4A5" << "A4" << false << "Proyecto|Fecha visado|Lugar|Fecha" << 233 << pf
                            << "Obra A4|10/01/2008|Burgos|12/01/2008" << 1;
        QTest::newRow("A5") << "DATOSA4A5" << "A5" << false << plf << 233 << pf << "Obra A5|Zamora|09/09/2007" << 1;
        QTest::newRow("CSS") << "DATOSCOORDINADOR_SEGURIDAD_Y_SALUD" << "CSS" << false << "Proyecto|Fecha visado|Lugar|Fecha"
                             << 233 << pf << "Obra CSS|01/03/2008|León|05/03/2008" << 2;
        QTest::newRow("B1") << "DATOSB1B3B4" << "B1" << false << "Proyecto|Nº Factura|Emisor" << 266 << pf
                            << "Factura uno|7/2008|José Muñoz Sáez" << 1;
        QTest::newRow("B3 ve las mismas filas") << "DATOSB1B3B4" << "B3" << false << "Proyecto|Nº Factura|Emisor" << 266 << pf
                                                << "Factura uno|7/2008|José Muñoz Sáez" << 1;
        QTest::newRow("B4 ajeno") << "DATOSB4" << "B4_A" << false << "Perceptor|Pagador|Ejercicio|Nº justificante" << 250
                                  << "|Perceptor|Pagador|Ejercicio|Nº justificante" << "José Muñoz|María Benítez|2007|J-1" << 1;
        QTest::newRow("B4 propio") << "DATOSB4" << "B4_P" << false << "Perceptor|Pagador|Ejercicio|Nº justificante" << 250
                                   << "|Perceptor|Pagador|Ejercicio|Nº justificante" << "José Muñoz|Estudio|2008|J-2" << 1;
        QTest::newRow("fin de obra") << "DATOSFINOBRA" << "FINOBRA" << false << "Proyecto|Fecha" << 333 << pf
                                     << "Fin de obra uno|20/05/2009" << 1;
        QTest::newRow("certificado") << "DATOSCERTIFICADO" << "" << false << "Arquitecto|Fecha" << 400 << "|Arquitecto|Fecha"
                                     << "José Muñoz Sáez|24/12/2007" << 1;
        QTest::newRow("comunicado") << "DATOSCOMUNICADO_DIRECCION_Y_COORDINADOR" << "CDC" << false << plf << 333 << pf
                                    << "Comunicado uno|Ávila|08/08/2008" << 1;
        QTest::newRow("comunicado en el selector, sin campos") << "DATOSCOMUNICADO_DIRECCION_Y_COORDINADOR" << "" << true << plf
                                                               << 333 << "" << "Comunicado uno|Ávila|08/08/2008" << 1;
    }

    void carga()
    {
        QFETCH(QString, tabla);
        QFETCH(QString, tipo);
        QFETCH(bool, selector);
        QFETCH(QString, columnas);
        QFETCH(int, ancho0);
        QFETCH(QString, listaCampos);
        QFETCH(QString, primeraFila);
        QFETCH(int, filas);
        EntornoPrueba e;
        e.conectar();
        llenar();
        PantallaBusqueda* f = selector ? static_cast<PantallaBusqueda*>(abrirSelector(tabla)) : abrir(tabla, tipo);
        QVERIFY(f);
        QCOMPARE(titulos(f).join('|'), columnas);
        QCOMPARE(f->lista()->columnWidth(0), ancho0);
        QCOMPARE(campos(f).join('|'), listaCampos);
        QCOMPARE(control<QComboBox>(f, "cbo_CampoBusqueda")->currentIndex(), -1);
        QVERIFY(!control<QLineEdit>(f, "msk_ValorBusqueda")->isEnabled());
        QCOMPARE(f->modelo()->rowCount(), filas);
        QCOMPARE(f->modelo()->fila(0).textos.join('|'), primeraFila);
        QCOMPARE(f->textoEstado(), QStringLiteral("Número de registros hallados: %1").arg(filas));
        QVERIFY(e.cuadros.isEmpty());
        QCOMPARE(e.entradasLog(), 0);
    }

    void busqueda_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("valor");
        QTest::addColumn<QString>("hallados");  // primera columna, en orden; vacío: ninguno

        QTest::newRow("expediente") << "PROYECTOS_A" << "" << 1 << "2008" << "2008/002|2008/003";
        QTest::newRow("trabajo sin mayúsculas") << "PROYECTOS_A" << "" << 2 << "VIVIENDA" << "2007/001";
        QTest::newRow("comilla") << "PROYECTOS_A" << "" << 2 << "d'Ana" << "2008/003";
        QTest::newRow("municipio sin acento") << "PROYECTOS_A" << "" << 3 << "avila" << "2007/001";
        QTest::newRow("provincia no hallada") << "PROYECTOS_A" << "" << 4 << "Cuenca" << "";
        QTest::newRow("ubicación") << "PROYECTOS_A" << "" << 5 << "Polígono" << "2008/002";
        QTest::newRow("fecha visado por año") << "PROYECTOS_A" << "" << 6 << "2007" << "2007/001|2008/003";
        QTest::newRow("fecha visado por día") << "PROYECTOS_A" << "" << 6 << "01/02/2008" << "2008/002";
        QTest::newRow("fin de obra") << "PROYECTOS_A" << "" << 7 << "2009" << "2008/002";
        QTest::newRow("comodín tomado tal cual") << "PROYECTOS_A" << "" << 2 << "%" << "";
        QTest::newRow("colegiado") << "ARQUITECTOS" << "" << 1 << "1234" << "1234";
        QTest::newRow("colegiado con letra") << "ARQUITECTOS" << "" << 1 << "12a" << "";
        QTest::newRow("nombre") << "ARQUITECTOS" << "" << 2 << "jose" << "1234";
        QTest::newRow("apellido con comilla") << "ARQUITECTOS" << "" << 3 << "O'Donnell" << "2000";
        QTest::newRow("NIF") << "ARQUITECTOS" << "" << 4 << "B12" << "2000";
        QTest::newRow("municipio") << "ARQUITECTOS" << "" << 5 << "burgos" << "2000";
        QTest::newRow("provincia") << "ARQUITECTOS" << "" << 6 << "Segovia" << "1234";
        QTest::newRow("técnico") << "APAREJADORES" << "" << 2 << "ana" << "77";
        QTest::newRow("técnico: no ve arquitectos") << "APAREJADORES" << "" << 2 << "José" << "";
        QTest::newRow("contratista") << "CONTRATISTAS" << "" << 1 << "constru" << "Construcciones";
        QTest::newRow("cliente por apellido") << "CLIENTES" << "" << 2 << "nuño" << "Luis";
        QTest::newRow("cliente por NIF") << "CLIENTES" << "" << 3 << "11111111" << "María";
        QTest::newRow("cliente por municipio") << "CLIENTES" << "" << 4 << "valla" << "Luis";
        QTest::newRow("cliente por provincia") << "CLIENTES" << "" << 5 << "Palencia" << "María";
        QTest::newRow("A1 por fecha de otro año") << "DATOSA1B2" << "A1" << 2 << "2008" << "";
        QTest::newRow("B2 por fecha") << "DATOSA1B2" << "B2" << 2 << "2008" << "Reforma de nave";
        QTest::newRow("A2 por año") << "DATOSA2" << "A2" << 2 << "2007" << "Proyecto X";
        QTest::newRow("A2 por día") << "DATOSA2" << "A2" << 2 << "01/02/2008" << "Proyecto Y";
        QTest::newRow("A2 por proyecto") << "DATOSA2" << "A2" << 1 << "proyecto" << "Proyecto X|Proyecto Y";
        QTest::newRow("A4 por fecha") << "DATOSA4A5" << "A4" << 2 << "12/01" << "Obra A4";
        QTest::newRow("A5 no ve A4") << "DATOSA4A5" << "A5" << 1 << "Obra" << "Obra A5";
        QTest::newRow("CSS por su fecha") << "DATOSCOORDINADOR_SEGURIDAD_Y_SALUD" << "CSS" << 2 << "2008" << "Obra CSS";
        QTest::newRow("B4 ajeno por pagador") << "DATOSB4" << "B4_A" << 2 << "Estudio" << "";
        QTest::newRow("B4 propio por pagador") << "DATOSB4" << "B4_P" << 2 << "Estudio" << "José Muñoz";
        QTest::newRow("B4 por ejercicio") << "DATOSB4" << "B4_A" << 3 << "2007" << "José Muñoz";
        QTest::newRow("B4 por justificante") << "DATOSB4" << "B4_P" << 4 << "J-2" << "José Muñoz";
        QTest::newRow("certificado por fecha") << "DATOSCERTIFICADO" << "" << 2 << "24/12/2007" << "José Muñoz Sáez";
        QTest::newRow("fin de obra por fecha") << "DATOSFINOBRA" << "FINOBRA" << 2 << "1999" << "";
    }

    void busqueda()
    {
        QFETCH(QString, tabla);
        QFETCH(QString, tipo);
        QFETCH(int, indice);
        QFETCH(QString, valor);
        QFETCH(QString, hallados);
        EntornoPrueba e;
        e.conectar();
        llenar();
        frmBuscar* f = abrir(tabla, tipo);
        buscar(f, indice, valor);
        QCOMPARE(columna(f).join('|'), hallados);
        const int n = hallados.isEmpty() ? 0 : int(hallados.count('|')) + 1;
        QCOMPARE(f->textoEstado(), QStringLiteral("Número de registros hallados: %1").arg(n));
        QCOMPARE(e.textos(), n ? QStringList() : QStringList{NO_HALLADO});
        QCOMPARE(e.entradasLog(), 0);
        QCOMPARE(control<QPushButton>(f, "cmd_Modificar")->isEnabled(), n > 0);
        QCOMPARE(control<QPushButton>(f, "cmd_Eliminar")->isEnabled(), n > 0);
    }

    void valorVacio()
    {
        EntornoPrueba e;
        e.conectar();
        llenar();
        frmBuscar* f = abrir(QStringLiteral("CLIENTES"));
        buscar(f, 2, QStringLiteral("   "));
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Por favor, inserte el valor a buscar")});
        QCOMPARE(f->modelo()->rowCount(), 2);  // la lista no se ha tocado
    }

    void orden()
    {
        EntornoPrueba e;
        e.conectar();
        {
            UsoConexion uso;
            int i = 0;
            for (const char* a : {"Nuño", "Murcia", "Álvarez", "Nuno", "Benítez", "Muñoz"})
                ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF) VALUES (?, ?, ?, ?)"),
                         {++i, QStringLiteral("N%1").arg(i), QString::fromUtf8(a), QStringLiteral("%1").arg(10 - i)});
        }
        frmBuscar* f = abrir(QStringLiteral("CLIENTES"));
        const QString espanol = QStringLiteral("Álvarez|Benítez|Muñoz|Murcia|Nuno|Nuño");
        QCOMPARE(columna(f, 1).join('|'), espanol);
        // Primer clic: descendente; segundo: ascendente; por el texto que se ve.
        f->lvw_Resultados_ColumnClick(2);
        QCOMPARE(columna(f, 1).join('|'), QStringLiteral("Nuño|Nuno|Murcia|Muñoz|Benítez|Álvarez"));
        // Una búsqueda nueva conserva el orden puesto.
        f->tlb_BotoneraBuscar_Click();
        QCOMPARE(columna(f, 1).join('|'), QStringLiteral("Nuño|Nuno|Murcia|Muñoz|Benítez|Álvarez"));
        f->lvw_Resultados_ColumnClick(2);
        QCOMPARE(columna(f, 1).join('|'), espanol);
        // El sentido es uno para todas las columnas: cambia también al pasar a otra.
        f->lvw_Resultados_ColumnClick(3);
        QCOMPARE(columna(f, 2).join('|'), QStringLiteral("9|8|7|6|5|4"));
    }

    void claveDeOrden()
    {
        // La clave binaria con la que se ordena la lista da el mismo orden que el cotejo español.
        const QStringList textos = {"", " ", "a", "A", "á", "Á", "ab", "Ab", "aB", "ñ", "Ñ", "n", "nz", "o", "Muñoz",
                                    "Murcia", "Nuno", "Nuño", "NUÑO", "nuño", "Álvarez", "alvarez", "Alvarez",
                                    "Benítez", "10", "9", "1-2", "1.2", "Casa d'Ana", "casa", "Casa", "ü", "u",
                                    "Vivienda unifamiliar", "Vivienda unifamiliar aislada", "€", "日本", "z"};
        for (const QString& a : textos)
            for (const QString& b : textos) {
                const QByteArray ua = a.toUtf8(), ub = b.toUtf8();
                const int esperado = Cotejo::comparar(a, b);
                const std::string ka = Cotejo::claveOrden(std::string_view(ua.constData(), ua.size()));
                const std::string kb = Cotejo::claveOrden(std::string_view(ub.constData(), ub.size()));
                const int hallado = ka < kb ? -1 : (kb < ka ? 1 : 0);
                if ((esperado > 0) - (esperado < 0) != hallado)
                    QFAIL(qPrintable(QStringLiteral("%1 frente a %2").arg(a, b)));
            }
    }

    void ordenFechasComoTexto()
    {
        EntornoPrueba e;
        e.conectar();
        llenar();
        frmBuscar* f = abrir(QStringLiteral("PROYECTOS_A"));
        f->lvw_Resultados_ColumnClick(6);
        f->lvw_Resultados_ColumnClick(6);
        QCOMPARE(columna(f, 5).join('|'), QStringLiteral("01/02/2008|15/03/2007|30/11/2007"));
    }

    void borrado_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<int>("fila");
        QTest::addColumn<QString>("pregunta");
        QTest::addColumn<QString>("contar");   // SQL que cuenta las filas de la tabla
        QTest::addColumn<QString>("intacta");  // SQL de lo que no se borra en cascada
        QTest::addColumn<int>("intactas");

        QTest::newRow("proyecto") << "PROYECTOS_A" << "" << 1 << "¿Está seguro de eliminar el proyecto con expediente número 2008/002?"
                                  << "SELECT COUNT(*) FROM Proyectos_A" << "SELECT COUNT(*) FROM Arquitectos_Proyecto WHERE PryCod = 2" << 1;
        QTest::newRow("arquitecto") << "ARQUITECTOS" << "" << 0 << "¿Está seguro de eliminar el arquitecto José Muñoz Sáez?"
                                    << "SELECT COUNT(*) FROM OTROS" << "SELECT COUNT(*) FROM Proyectos_A" << 3;
        QTest::newRow("técnico") << "APAREJADORES" << "" << 0 << "¿Está seguro de eliminar el arquitecto técnico Ana Álvarez Gil?"
                                 << "SELECT COUNT(*) FROM OTROS" << "SELECT COUNT(*) FROM OTROS WHERE Categoria = 'ARQUITECTO'" << 2;
        QTest::newRow("contratista") << "CONTRATISTAS" << "" << 0 << "¿Está seguro de eliminar el contratista Construcciones Pérez SA?"
                                     << "SELECT COUNT(*) FROM OTROS" << "SELECT 1" << 1;
        QTest::newRow("cliente") << "CLIENTES" << "" << 0 << "¿Está seguro de eliminar el cliente María Benítez Ortiz?"
                                 << "SELECT COUNT(*) FROM Clientes" << "SELECT COUNT(*) FROM Representantes" << 1;
        QTest::newRow("impreso") << "DATOSA2" << "A2" << 1 << "¿Está seguro de eliminar el impreso seleccionado?"
                                 << "SELECT COUNT(*) FROM datosA2" << "SELECT 1" << 1;
        QTest::newRow("impreso B4") << "DATOSB4" << "B4_A" << 0 << "¿Está seguro de eliminar el impreso seleccionado?"
                                    << "SELECT COUNT(*) FROM datosB4" << "SELECT COUNT(*) FROM datosB4 WHERE TipoCertificado = 'P'" << 1;
    }

    void borrado()
    {
        QFETCH(QString, tabla);
        QFETCH(QString, tipo);
        QFETCH(int, fila);
        QFETCH(QString, pregunta);
        QFETCH(QString, contar);
        QFETCH(QString, intacta);
        QFETCH(int, intactas);
        for (const Respuesta r : {Respuesta::No, Respuesta::Si}) {
            EntornoPrueba e;
            e.conectar();
            llenar();
            frmBuscar* f = abrir(tabla, tipo);
            const int antes = f->modelo()->rowCount();
            const int filasTabla = [&] { UsoConexion u; return escalar(contar).toInt(); }();
            const QString clave = f->modelo()->clave(fila);
            f->seleccionarFila(fila);
            e.respuestas << r;
            f->cmd_Eliminar_Click();
            QCOMPARE(e.cuadros.value(0).texto, pregunta);
            QCOMPARE(e.cuadros.value(0).porDefecto, Respuesta::No);
            UsoConexion u;
            if (r == Respuesta::No) {
                QCOMPARE(e.textos(), QStringList{pregunta});
                QCOMPARE(escalar(contar).toInt(), filasTabla);
                QCOMPARE(f->modelo()->rowCount(), antes);
            } else {
                QCOMPARE(e.textos(), (QStringList{pregunta, QStringLiteral("Operación de borrado realizada correctamente")}));
                QCOMPARE(escalar(contar).toInt(), filasTabla - 1);
                QCOMPARE(f->modelo()->rowCount(), antes - 1);
                QVERIFY(!columna(f).isEmpty() || antes == 1);
                for (int i = 0; i < f->modelo()->rowCount(); ++i)
                    QVERIFY(f->modelo()->clave(i) != clave);
                QCOMPARE(control<QComboBox>(f, "cbo_CampoBusqueda")->currentIndex(), -1);
                QCOMPARE(f->tag(), QStringLiteral("ELIMINAR"));
            }
            QCOMPARE(escalar(intacta).toInt(), intactas);
            QCOMPARE(e.entradasLog(), 0);
        }
    }

    void operacionesConListaVacia()
    {
        EntornoPrueba e;
        e.conectar();
        frmBuscar* f = abrir(QStringLiteral("CLIENTES"));
        QVERIFY(e.cuadros.isEmpty());  // tabla vacía: se abre en silencio
        f->cmd_Modificar_Click();
        f->cmd_Eliminar_Click();
        QCOMPARE(e.textos(), QStringList(2, QStringLiteral("No hay ningún registro en la lista")));
        // Sin fichas todavía, "Nuevo" no hace nada más.
        f->cmd_Nuevo_Click();
        QCOMPARE(e.cuadros.size(), 2);
        QCOMPARE(Pantallas::cargada<frmBuscar>(), f);
    }

    void exportar_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QString>("alAbrir");
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("valor");

        QTest::newRow("proyectos") << "PROYECTOS_A" << "" << "1110" << 2 << "nada";
        QTest::newRow("clientes") << "CLIENTES" << "" << "1110" << 1 << "nadie";
        QTest::newRow("arquitectos") << "ARQUITECTOS" << "" << "1110" << 2 << "nadie";
        QTest::newRow("A1") << "DATOSA1B2" << "A1" << "0001" << 1 << "nada";
        QTest::newRow("certificado") << "DATOSCERTIFICADO" << "" << "0001" << 1 << "nadie";
    }

    void exportar()
    {
        QFETCH(QString, tabla);
        QFETCH(QString, tipo);
        QFETCH(QString, alAbrir);
        QFETCH(int, indice);
        QFETCH(QString, valor);
        EntornoPrueba e;
        e.conectar();
        llenar();
        frmBuscar* f = abrir(tabla, tipo);
        QCOMPARE(estadoExportar(f), alAbrir);
        const QStringList consejos = {"Ver listado", "Exportar a Excel", "Exportar a PDF", "Impreso en blanco"};
        for (int i = 0; i < 4; ++i)
            QCOMPARE(f->findChild<QAction*>(QStringLiteral("tlb_BotoneraExportar_%1").arg(i + 1))->toolTip(), consejos[i]);
        buscar(f, indice, valor);
        const QString apagada = QStringLiteral("000") + alAbrir.right(1);
        QCOMPARE(estadoExportar(f), apagada);
        // La siguiente búsqueda halla filas, pero la exportación sigue apagada.
        control<QComboBox>(f, "cbo_CampoBusqueda")->setCurrentIndex(0);
        QVERIFY(f->modelo()->rowCount() > 0);
        QVERIFY(control<QPushButton>(f, "cmd_Modificar")->isEnabled());
        QCOMPARE(estadoExportar(f), apagada);
    }

    void exportarTablaVacia()
    {
        EntornoPrueba e;
        e.conectar();
        frmBuscar* f = abrir(QStringLiteral("PROYECTOS_A"));
        QCOMPARE(estadoExportar(f), QStringLiteral("0000"));
        QVERIFY(e.cuadros.isEmpty());
        QVERIFY(!control<QPushButton>(f, "cmd_Modificar")->isEnabled());
    }

    void suprimirVuelveATodo()
    {
        EntornoPrueba e;
        e.conectar();
        llenar();
        frmBuscar* f = abrir(QStringLiteral("PROYECTOS_A"));
        auto* cbo = control<QComboBox>(f, "cbo_CampoBusqueda");
        auto* msk = control<QLineEdit>(f, "msk_ValorBusqueda");
        auto* valor = control<QLabel>(f, "lbl_Titulo2");
        buscar(f, 2, QStringLiteral("nave"));
        QVERIFY(msk->isEnabled() && valor->isEnabled());
        QCOMPARE(f->modelo()->rowCount(), 1);
        QTest::keyClick(cbo, Qt::Key_Delete);
        QCOMPARE(cbo->currentIndex(), -1);
        QCOMPARE(msk->text(), QString());
        QVERIFY(!msk->isEnabled() && !valor->isEnabled());
        QCOMPARE(f->modelo()->rowCount(), 3);
        // El elemento vacío hace lo mismo.
        buscar(f, 2, QStringLiteral("nave"));
        cbo->setCurrentIndex(0);
        QCOMPARE(cbo->currentIndex(), -1);
        QCOMPARE(f->modelo()->rowCount(), 3);
        QVERIFY(e.cuadros.isEmpty());
    }

    void mascaraDeFecha()
    {
        EntornoPrueba e;
        e.conectar();
        llenar();
        frmBuscar* f = abrir(QStringLiteral("PROYECTOS_A"));
        auto* cbo = control<QComboBox>(f, "cbo_CampoBusqueda");
        auto* msk = control<QLineEdit>(f, "msk_ValorBusqueda");
        cbo->setCurrentIndex(6);
        QCOMPARE(msk->inputMask(), QString());  // al elegir no cambia; al salir de la lista sí
        f->cbo_CampoBusqueda_LostFocus();
        QCOMPARE(msk->inputMask(), QStringLiteral("99/99/9999;_"));
        // Sin rellenar busca los caracteres de la máscara tal cual: nada.
        f->tlb_BotoneraBuscar_Click();
        QCOMPARE(e.textos(), QStringList{NO_HALLADO});
        msk->setText(QStringLiteral("15032007"));
        QCOMPARE(msk->displayText(), QStringLiteral("15/03/2007"));
        f->tlb_BotoneraBuscar_Click();
        QCOMPARE(columna(f).join('|'), QStringLiteral("2007/001"));
        cbo->setCurrentIndex(2);
        f->cbo_CampoBusqueda_LostFocus();
        QCOMPARE(msk->inputMask(), QString());
        QCOMPARE(msk->text(), QString());
    }

    void teclasDelValor_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("escrito");
        QTest::addColumn<QString>("queda");
        QTest::newRow("apellidos de arquitectos") << "ARQUITECTOS" << 3 << "Ab-1 ,." << "Ab-1";
        QTest::newRow("NIF de arquitectos sin filtro") << "ARQUITECTOS" << 4 << "Ab-1 ," << "Ab-1 ,";
        QTest::newRow("apellidos de técnicos") << "APAREJADORES" << 3 << "x y" << "xy";
        QTest::newRow("apellidos de clientes") << "CLIENTES" << 2 << "Gil 2," << "Gil2";
        QTest::newRow("nombre de clientes sin filtro") << "CLIENTES" << 1 << "Gil 2," << "Gil 2,";
        QTest::newRow("colegiado sin filtro") << "ARQUITECTOS" << 1 << "12a" << "12a";
    }

    void teclasDelValor()
    {
        QFETCH(QString, tabla);
        QFETCH(int, indice);
        QFETCH(QString, escrito);
        QFETCH(QString, queda);
        EntornoPrueba e;
        e.conectar();
        llenar();
        frmBuscar* f = abrir(tabla);
        control<QComboBox>(f, "cbo_CampoBusqueda")->setCurrentIndex(indice);
        auto* msk = control<QLineEdit>(f, "msk_ValorBusqueda");
        QTest::keyClicks(msk, escrito);
        QCOMPARE(msk->text(), queda);
    }

    void intro()
    {
        EntornoPrueba e;
        e.conectar();
        llenar();
        frmBuscar* f = abrir(QStringLiteral("CLIENTES"));
        control<QComboBox>(f, "cbo_CampoBusqueda")->setCurrentIndex(1);
        auto* msk = control<QLineEdit>(f, "msk_ValorBusqueda");
        QTest::keyClicks(msk, QStringLiteral("luis"));
        QTest::keyClick(msk, Qt::Key_Return);
        QCOMPARE(columna(f).join('|'), QStringLiteral("Luis"));
    }

    void menu()
    {
        EntornoPrueba e;
        e.conectar();
        llenar();
        QVERIFY(busquedaDisponible());
        QVERIFY(impresoDisponible(QStringLiteral("mnu_A1")));
        QVERIFY(!impresoDisponible(QStringLiteral("mnu_A2")));  // su pantalla aún no existe
        frmMenu::instancia()->show();
        frmMenu::instancia()->mnu_Clientes_Click();
        QPointer<frmBuscar> primera = Pantallas::cargada<frmBuscar>();
        QVERIFY(primera);
        QCOMPARE(primera->windowTitle(), QStringLiteral("Gestión de clientes"));
        QCOMPARE(primera->Tabla, QStringLiteral("CLIENTES"));
        QVERIFY(qobject_cast<QMdiSubWindow*>(primera->parentWidget()));
        QVERIFY(primera->isVisible());
        buscar(primera, 1, QStringLiteral("luis"));
        frmMenu::instancia()->mnu_Clientes_Click();
        procesarEventos();
        QVERIFY(primera.isNull());
        frmBuscar* segunda = Pantallas::cargada<frmBuscar>();
        QCOMPARE(segunda->modelo()->rowCount(), 2);  // empieza de nuevo
        frmMenu::instancia()->mnu_B4_Propio_Click();
        procesarEventos();
        int abiertas = 0;
        for (QWidget* w : Pantallas::cargadas())
            abiertas += qobject_cast<frmBuscar*>(w) ? 1 : 0;
        QCOMPARE(abiertas, 1);
        frmBuscar* b4 = Pantallas::cargada<frmBuscar>();
        QCOMPARE(b4->Tabla, QStringLiteral("DATOSB4"));
        QCOMPARE(b4->TipoImpreso, QStringLiteral("B4_P"));
        QCOMPARE(b4->windowTitle(),
                 QStringLiteral("Impresos encontrados de la categoría 'Certificado de retenciones a cuenta del I.R.P.F. (propio)'"));
    }

    void actualizarLista()
    {
        EntornoPrueba e;
        e.conectar();
        llenar();
        frmMenu::instancia()->show();
        frmBuscar* f = abrir(QStringLiteral("CLIENTES"));
        QVERIFY(!f->ActualizarLista);
        buscar(f, 2, QStringLiteral("o"));
        QCOMPARE(f->modelo()->rowCount(), 2);
        {
            UsoConexion u;
            ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli) VALUES (9, 'Eva', 'Soto')"));
        }
        QMdiArea* area = Pantallas::areaPrincipal();
        auto* otra = area->addSubWindow(new QWidget);
        otra->show();
        area->setActiveSubWindow(otra);
        marcarActualizarLista();
        QVERIFY(f->ActualizarLista);
        area->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(f->parentWidget()));
        QVERIFY(!f->ActualizarLista);
        // Se repite la última búsqueda, con su campo y su valor.
        QCOMPARE(columna(f).join('|'), QStringLiteral("María|Luis|Eva"));
        delete otra;
    }

    void selector()
    {
        EntornoPrueba e;
        e.conectar();
        llenar();
        frmBuscarSeleccionar* s = abrirSelector(QStringLiteral("ARQUITECTOS_AUTORES"), QStringLiteral("FRMPROYECTO_AUTOR"));
        QVERIFY(s->modelo()->casillas());
        QVERIFY(s->findChild<QPushButton*>(QStringLiteral("cmd_Seleccionar")));
        QVERIFY(!s->findChild<QPushButton*>(QStringLiteral("cmd_Modificar")));
        QCOMPARE(s->tag(), QStringLiteral("SELECCIONAR_EN_PROYECTOS"));
        s->modelo()->setData(s->modelo()->index(1, 0), Qt::Checked, Qt::CheckStateRole);
        const QList<FilaResultado> filas = s->filasResultado();
        QCOMPARE(filas.size(), 2);
        QCOMPARE(filas[0].clave, QStringLiteral("1"));
        QVERIFY(!filas[0].marcada);
        QVERIFY(filas[1].marcada);
        QCOMPARE(filas[1].textos.value(2), QStringLiteral("O'Donnell SLP"));
        s->agregarFila({QStringLiteral("9"), {QStringLiteral("55"), QStringLiteral("Eva"), QStringLiteral("Soto")}, true});
        QCOMPARE(s->filasResultado().size(), 3);
        QVERIFY(s->filasResultado().last().marcada);
        s->lvw_Resultados_DblClick();  // con casillas no hace nada
        QCOMPARE(Pantallas::cargada<frmBuscarSeleccionar>(), s);

        struct Caso {
            const char* tabla;
            const char* retorno;
            bool casillas;
        } casos[] = {{"APAREJADORES", "FRMPROYECTO_APAREJADOR", true}, {"APAREJADORES", "FRMDATOSIMPRESOCDC_COORDINADOR", false},
                     {"CONTRATISTAS", "FRMPROYECTO_CONSTRUCTOR", true}, {"CLIENTES", "FRMPROYECTO_CLIENTE", false}};
        for (const Caso& c : casos) {
            frmBuscarSeleccionar* t = abrirSelector(QString::fromLatin1(c.tabla), QString::fromLatin1(c.retorno));
            procesarEventos();
            QCOMPARE(t->modelo()->casillas(), c.casillas);
            QCOMPARE(t->filaElegida().clave.isEmpty(), false);
        }
    }

    void ayuda_data()
    {
        QTest::addColumn<bool>("selector");
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("etiqueta");
        QTest::addColumn<QString>("texto");

        QTest::newRow("proyectos lista") << false << "PROYECTOS_A" << "lbl_Mensaje_1"
                                         << "En la lista de la pantalla se muestran todos los proyectos que tenga actualmente dados de alta en el programa.";
        QTest::newRow("proyectos editar") << false << "PROYECTOS_A" << "lbl_Mensaje_3"
                                          << "Botón EDITAR: Si desea modificar los datos de un determinado proyecto, selecciónelo en la lista de proyectos (para ello hay que hacer clic sobre él) y haga clic sobre este botón. También puede hacer doble clic sobre el proyecto que desee editar.";
        QTest::newRow("proyectos eliminar") << false << "PROYECTOS_A" << "lbl_Mensaje_4"
                                            << "Botón ELIMINAR: Si desea eliminar un proyecto en concreto, selecciónelo en la lista y, a continuación, haga clic sobre este botón. Se le pedirá una confirmación de la acción de borrado.";
        QTest::newRow("proyectos botón 4") << false << "PROYECTOS_A" << "lbl_Botonera_4"
                                           << "En este caso este botón aparece deshabilitado, pues sólo es válido para los impresos.";
        QTest::newRow("técnicos nuevo") << false << "APAREJADORES" << "lbl_Mensaje_2"
                                        << "Botón NUEVO: Haga clic en él si desea crear un nuevo arquitecto técnico.";
        QTest::newRow("contratistas excel") << false << "CONTRATISTAS" << "lbl_Botonera_2"
                                            << "Permite exportar a Excel el listado de los contratistas que tenga creados.";
        QTest::newRow("clientes pdf") << false << "CLIENTES" << "lbl_Botonera_3"
                                      << "Permite exportar a PDF el listado de los clientes que tenga creados.";
        QTest::newRow("arquitectos eliminar") << false << "ARQUITECTOS" << "lbl_Mensaje_4"
                                              << "Botón ELIMINAR: Si desea eliminar un arquitecto en concreto, selecciónelo en la lista y, a continuación, haga clic sobre este botón. Se le pedirá una confirmación de la acción de borrado.";
        QTest::newRow("impresos lista") << false << "DATOSB4" << "lbl_Mensaje_1"
                                        << "En la lista de la pantalla se muestran todos los impresos del tipo seleccionado que tenga actualmente dados de alta en el programa.";
        QTest::newRow("impresos listado") << false << "DATOSA2" << "lbl_Botonera_1"
                                          << "Permite ver en pantalla un listado con los impresos del tipo seleccionado que tenga creados.";
        QTest::newRow("impresos en blanco") << false << "DATOSCOMUNICADO_DIRECCION_Y_COORDINADOR" << "lbl_Botonera_4"
                                            << "Permite generar la vista previa y posterior impresión de un impreso en blanco del tipo seleccionado.";
        QTest::newRow("selector proyectos") << true << "PROYECTOS_A" << "lbl_Mensaje_1"
                                            << "En la lista de la pantalla se muestran todos los proyectos que tenga actualmente dados de alta en el programa de forma que se pueda seleccionar el deseado.";
        QTest::newRow("selector seleccionar") << true << "PROYECTOS_A" << "lbl_Mensaje_2"
                                              << "Botón SELECCIONAR: Cuando haya localizado el proyecto deseado, selecciónelo en la lista (para ello hay que hacer clic sobre él) y a continuación haga clic sobre este botón. También puede hacer doble clic sobre el proyecto que desee seleccionar.";
        QTest::newRow("selector nuevo coste") << true << "COSTES" << "lbl_Mensaje_3"
                                              << "Botón NUEVO: Si el coste de referencia que busca no existe en el programa, puede crearlo haciendo clic sobre este botón.";
        QTest::newRow("selector autores") << true << "ARQUITECTOS_AUTORES" << "lbl_Mensaje_3"
                                          << "Botón NUEVO: Si el arquitecto que busca no existe en el programa, puede crearlo haciendo clic sobre este botón.";
        QTest::newRow("selector impresos listado") << true << "DATOSA2" << "lbl_Botonera_1"
                                                   << "Permite ver en pantalla un listado con los impresos que tenga creados.";
    }

    void ayuda()
    {
        QFETCH(bool, selector);
        QFETCH(QString, tabla);
        QFETCH(QString, etiqueta);
        QFETCH(QString, texto);
        EntornoPrueba e;
        e.conectar();
        PantallaBusqueda* f = selector ? static_cast<PantallaBusqueda*>(abrirSelector(tabla)) : abrir(tabla);
        f->cmd_Ayuda_Click();
        AyudaBusqueda* a = selector ? static_cast<AyudaBusqueda*>(Pantallas::cargada<frmAyudaBuscarSeleccionar>())
                                    : static_cast<AyudaBusqueda*>(Pantallas::cargada<frmAyudaBuscar>());
        QVERIFY(a);
        QCOMPARE(control<QLabel>(a, etiqueta.toLatin1().constData())->text(), texto);
        control<QPushButton>(a, "cmd_Cerrar")->click();
        procesarEventos();
        QVERIFY(!Pantallas::cargada<frmAyudaBuscar>() && !Pantallas::cargada<frmAyudaBuscarSeleccionar>());
    }

    void claveDesconocida()
    {
        EntornoPrueba e;
        e.conectar();
        frmBuscar* f = abrir(QStringLiteral("NO_EXISTE"));
        QCOMPARE(f->modelo()->rowCount(), 0);
        QCOMPARE(f->textoEstado(), QStringLiteral("Número de registros hallados: 0"));
        QCOMPARE(e.entradasLog(), 1);
        QVERIFY(e.leerLog().contains(QStringLiteral("obtenerDatos")));
    }
};

QTEST_MAIN(tst_buscar)
#include "tst_buscar.moc"
