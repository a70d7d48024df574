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

QString estadoExportar(PantallaBusqueda* f)
{
    QString r;
    for (int i = 1; i <= 4; ++i)
        r += f->findChild<QAction*>(QStringLiteral("tlb_BotoneraExportar_%1").arg(i))->isEnabled() ? '1' : '0';
    return r;
}

// Entorno de prueba conectado y, si se pide, con los datos de llenar().
struct Entorno : EntornoPrueba {
    explicit Entorno(bool datos = true)
    {
        conectar();
        if (datos)
            llenar();
    }
};

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
        QTest::addColumn<int>("campos");  // elementos de la lista de campos
        QTest::addColumn<QString>("primeraFila");
        QTest::addColumn<int>("filas");
        const QString jose = "1234|José|Muñoz Sáez|12345678Z|C/ Real 2|Segovia|Segovia";
        QTest::newRow("proyectos") << "PROYECTOS_A" << "" << false << 8 << "2007/001|Vivienda unifamiliar|C/ Mayor 1|Ávila|Ávila|15/03/2007|" << 3;
        QTest::newRow("arquitectos") << "ARQUITECTOS" << "" << false << 7 << jose << 2;
        QTest::newRow("simples") << "ARQUITECTOS_SIMPLE" << "" << true << 7 << jose << 1;
        QTest::newRow("sociedades") << "ARQUITECTOS_SOCIEDAD" << "" << true << 7 << "2000|Estudio|O'Donnell SLP|B1234567|Plaza 1|Burgos|Burgos" << 1;
        QTest::newRow("autores") << "ARQUITECTOS_AUTORES" << "" << true << 7 << jose << 2;
        QTest::newRow("coordinador") << "COORDINADOR_SS" << "" << true << 7 << jose << 2;
        QTest::newRow("aparejadores") << "APAREJADORES" << "" << false << 7 << "77|Ana|Álvarez Gil|22222222J|C/ Luna|Soria|Soria" << 1;
        QTest::newRow("contratistas") << "CONTRATISTAS" << "" << false << 6 << "Construcciones|Pérez SA|A7654321|Nave 5|Zamora|Zamora" << 1;
        QTest::newRow("clientes") << "CLIENTES" << "" << false << 6 << "María|Benítez Ortiz|11111111H|C/ Pez 1|Palencia|Palencia" << 2;
        QTest::newRow("costes") << "COSTES" << "" << true << 4 << "1.2|Vivienda|Unifamiliar aislada|650,5|1,2" << 1;
        QTest::newRow("A1") << "DATOSA1B2" << "A1" << false << 3 << "Vivienda unifamiliar|Ávila|03/05/2007" << 1;
        QTest::newRow("B2") << "DATOSA1B2" << "B2" << false << 3 << "Reforma de nave|León|01/02/2008" << 1;
        QTest::newRow("A2") << "DATOSA2" << "A2" << false << 3 << "Proyecto X|Ávila|01/06/2007" << 2;
        QTest::newRow("A3") << "DATOSA3" << "A3" << false << 3 << "Proyecto Z|Soria|04/04/2008" << 1;
        QTest::newRow("A4") << "DATOSA4A5" << "A4" << false << 3 << "Obra A4|10/01/2008|Burgos|12/01/2008" << 1;
        QTest::newRow("A5") << "DATOSA4A5" << "A5" << false << 3 << "Obra A5|Zamora|09/09/2007" << 1;
        QTest::newRow("CSS") << "DATOSCOORDINADOR_SEGURIDAD_Y_SALUD" << "CSS" << false << 3 << "Obra CSS|01/03/2008|León|05/03/2008" << 2;
        QTest::newRow("B1") << "DATOSB1B3B4" << "B1" << false << 3 << "Factura uno|7/2008|José Muñoz Sáez" << 1;
        QTest::newRow("B3 ve las mismas filas") << "DATOSB1B3B4" << "B3" << false << 3 << "Factura uno|7/2008|José Muñoz Sáez" << 1;
        QTest::newRow("B4 ajeno") << "DATOSB4" << "B4_A" << false << 5 << "José Muñoz|María Benítez|2007|J-1" << 1;
        QTest::newRow("B4 propio") << "DATOSB4" << "B4_P" << false << 5 << "José Muñoz|Estudio|2008|J-2" << 1;
        QTest::newRow("fin de obra") << "DATOSFINOBRA" << "FINOBRA" << false << 3 << "Fin de obra uno|20/05/2009" << 1;
        QTest::newRow("certificado") << "DATOSCERTIFICADO" << "" << false << 3 << "José Muñoz Sáez|24/12/2007" << 1;
        QTest::newRow("comunicado") << "DATOSCOMUNICADO_DIRECCION_Y_COORDINADOR" << "CDC" << false << 3 << "Comunicado uno|Ávila|08/08/2008" << 1;
        QTest::newRow("comunicado en el selector, sin campos") << "DATOSCOMUNICADO_DIRECCION_Y_COORDINADOR" << "" << true << 1 << "Comunicado uno|Ávila|08/08/2008" << 1;
    }

    void carga()
    {
        QFETCH(QString, tabla);
        QFETCH(QString, tipo);
        QFETCH(bool, selector);
        QFETCH(int, campos);
        QFETCH(QString, primeraFila);
        QFETCH(int, filas);
        Entorno e;
        PantallaBusqueda* f = selector ? static_cast<PantallaBusqueda*>(abrirSelector(tabla)) : abrir(tabla, tipo);
        QVERIFY(f);
        QCOMPARE(control<QComboBox>(f, "cbo_CampoBusqueda")->count(), campos);
        QVERIFY(!control<QLineEdit>(f, "msk_ValorBusqueda")->isEnabled());
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
        QTest::newRow("comilla") << "PROYECTOS_A" << "" << 2 << "d'Ana" << "2008/003";
        QTest::newRow("provincia no hallada") << "PROYECTOS_A" << "" << 4 << "Cuenca" << "";
        QTest::newRow("fecha visado por año") << "PROYECTOS_A" << "" << 6 << "2007" << "2007/001|2008/003";
        QTest::newRow("fecha visado por día") << "PROYECTOS_A" << "" << 6 << "01/02/2008" << "2008/002";
        QTest::newRow("fecha fin de obra por año") << "PROYECTOS_A" << "" << 7 << "2009" << "2008/002";
        QTest::newRow("comodín tomado tal cual") << "PROYECTOS_A" << "" << 2 << "%" << "";
        QTest::newRow("colegiado con letra") << "ARQUITECTOS" << "" << 1 << "12a" << "";
        QTest::newRow("apellido con comilla") << "ARQUITECTOS" << "" << 3 << "O'Donnell" << "2000";
        QTest::newRow("NIF") << "ARQUITECTOS" << "" << 4 << "B12" << "2000";
        QTest::newRow("técnico") << "APAREJADORES" << "" << 2 << "ana" << "77";
        QTest::newRow("técnico: no ve arquitectos") << "APAREJADORES" << "" << 2 << "José" << "";
        QTest::newRow("contratista") << "CONTRATISTAS" << "" << 1 << "constru" << "Construcciones";
        QTest::newRow("cliente por apellido") << "CLIENTES" << "" << 2 << "nuño" << "Luis";
        QTest::newRow("A1 por fecha de otro año") << "DATOSA1B2" << "A1" << 2 << "2008" << "";
        QTest::newRow("B2 por fecha") << "DATOSA1B2" << "B2" << 2 << "2008" << "Reforma de nave";
        QTest::newRow("A2 por año") << "DATOSA2" << "A2" << 2 << "2007" << "Proyecto X";
        QTest::newRow("A2 por día") << "DATOSA2" << "A2" << 2 << "01/02/2008" << "Proyecto Y";
        QTest::newRow("A4 por fecha") << "DATOSA4A5" << "A4" << 2 << "12/01" << "Obra A4";
        QTest::newRow("A5 no ve A4") << "DATOSA4A5" << "A5" << 1 << "Obra" << "Obra A5";
        QTest::newRow("CSS por su fecha") << "DATOSCOORDINADOR_SEGURIDAD_Y_SALUD" << "CSS" << 2 << "2008" << "Obra CSS";
        QTest::newRow("B4 ajeno por pagador") << "DATOSB4" << "B4_A" << 2 << "Estudio" << "";
        QTest::newRow("B4 propio por pagador") << "DATOSB4" << "B4_P" << 2 << "Estudio" << "José Muñoz";
        QTest::newRow("B4 por ejercicio") << "DATOSB4" << "B4_A" << 3 << "2007" << "José Muñoz";
        QTest::newRow("fin de obra por fecha") << "DATOSFINOBRA" << "FINOBRA" << 2 << "1999" << "";
    }

    void busqueda()
    {
        QFETCH(QString, tabla);
        QFETCH(QString, tipo);
        QFETCH(int, indice);
        QFETCH(QString, valor);
        QFETCH(QString, hallados);
        Entorno e;
        frmBuscar* f = abrir(tabla, tipo);
        buscar(f, indice, valor);
        QCOMPARE(columna(f).join('|'), hallados);
        const int n = hallados.isEmpty() ? 0 : int(hallados.count('|')) + 1;
        QCOMPARE(f->textoEstado(), QStringLiteral("Número de registros hallados: %1").arg(n));
        QCOMPARE(e.textos(), n ? QStringList() : QStringList{NO_HALLADO});
        QCOMPARE(control<QPushButton>(f, "cmd_Modificar")->isEnabled(), n > 0);
    }

    void valorVacio()
    {
        Entorno e;
        frmBuscar* f = abrir(QStringLiteral("CLIENTES"));
        buscar(f, 2, QStringLiteral("   "));
        QCOMPARE(e.textos(), QStringList{QStringLiteral("Por favor, inserte el valor a buscar")});
        QCOMPARE(f->modelo()->rowCount(), 2);  // la lista no se ha tocado
    }

    void orden()
    {
        Entorno e(false);
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
        Entorno e;
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
        for (const bool si : {false, true}) {
            Entorno e;
            frmBuscar* f = abrir(tabla, tipo);
            const int antes = f->modelo()->rowCount();
            const int filasTabla = [&] { UsoConexion u; return escalar(contar).toInt(); }();
            const QString clave = f->modelo()->clave(fila);
            f->seleccionarFila(fila);
            e.respuestas << (si ? Respuesta::Si : Respuesta::No);
            f->cmd_Eliminar_Click();
            QCOMPARE(e.cuadros.value(0).porDefecto, Respuesta::No);
            const QString hecho = QStringLiteral("Operación de borrado realizada correctamente");
            QCOMPARE(e.textos(), si ? QStringList({pregunta, hecho}) : QStringList({pregunta}));
            UsoConexion u;
            QCOMPARE(escalar(contar).toInt(), filasTabla - si);
            QCOMPARE(f->modelo()->rowCount(), antes - si);
            for (int i = 0; si && i < f->modelo()->rowCount(); ++i)
                QVERIFY(f->modelo()->clave(i) != clave);
            QCOMPARE(escalar(intacta).toInt(), intactas);
        }
    }

    void operacionesConListaVacia()
    {
        Entorno e(false);
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
        QTest::newRow("A1") << "DATOSA1B2" << "A1" << "0001" << 1 << "nada";
    }

    void exportar()
    {
        QFETCH(QString, tabla);
        QFETCH(QString, tipo);
        QFETCH(QString, alAbrir);
        QFETCH(int, indice);
        QFETCH(QString, valor);
        Entorno e;
        frmBuscar* f = abrir(tabla, tipo);
        QCOMPARE(estadoExportar(f), alAbrir);
        buscar(f, indice, valor);
        const QString apagada = QStringLiteral("000") + alAbrir.right(1);
        QCOMPARE(estadoExportar(f), apagada);
        // La siguiente búsqueda halla filas, pero la exportación sigue apagada.
        control<QComboBox>(f, "cbo_CampoBusqueda")->setCurrentIndex(0);
        QVERIFY(f->modelo()->rowCount() > 0);
        QCOMPARE(estadoExportar(f), apagada);
    }

    void exportarTablaVacia()
    {
        Entorno e(false);
        frmBuscar* f = abrir(QStringLiteral("PROYECTOS_A"));
        QCOMPARE(estadoExportar(f), QStringLiteral("0000"));
    }

    void suprimirVuelveATodo()
    {
        Entorno e;
        frmBuscar* f = abrir(QStringLiteral("PROYECTOS_A"));
        auto* cbo = control<QComboBox>(f, "cbo_CampoBusqueda");
        auto* msk = control<QLineEdit>(f, "msk_ValorBusqueda");
        auto* valor = control<QLabel>(f, "lbl_Titulo2");
        buscar(f, 2, QStringLiteral("nave"));
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
    }

    void mascaraDeFecha()
    {
        Entorno e;
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
        QTest::newRow("apellidos de técnicos") << "APAREJADORES" << 3 << "x y" << "xy";
        QTest::newRow("apellidos de clientes") << "CLIENTES" << 2 << "Gil 2," << "Gil2";
        QTest::newRow("colegiado sin filtro") << "ARQUITECTOS" << 1 << "12a" << "12a";
    }

    void teclasDelValor()
    {
        QFETCH(QString, tabla);
        QFETCH(int, indice);
        QFETCH(QString, escrito);
        QFETCH(QString, queda);
        Entorno e;
        frmBuscar* f = abrir(tabla);
        control<QComboBox>(f, "cbo_CampoBusqueda")->setCurrentIndex(indice);
        auto* msk = control<QLineEdit>(f, "msk_ValorBusqueda");
        QTest::keyClicks(msk, escrito);
        QCOMPARE(msk->text(), queda);
    }

    void intro()
    {
        Entorno e;
        frmBuscar* f = abrir(QStringLiteral("CLIENTES"));
        control<QComboBox>(f, "cbo_CampoBusqueda")->setCurrentIndex(1);
        auto* msk = control<QLineEdit>(f, "msk_ValorBusqueda");
        QTest::keyClicks(msk, QStringLiteral("luis"));
        QTest::keyClick(msk, Qt::Key_Return);
        QCOMPARE(columna(f).join('|'), QStringLiteral("Luis"));
    }

    void menu()
    {
        Entorno e;
        QVERIFY(busquedaDisponible());
        QVERIFY(impresoDisponible(QStringLiteral("mnu_A1")));
        QVERIFY(!impresoDisponible(QStringLiteral("mnu_A2")));  // su pantalla aún no existe
        frmMenu::instancia()->show();
        frmMenu::instancia()->mnu_Clientes_Click();
        QPointer<frmBuscar> primera = Pantallas::cargada<frmBuscar>();
        QCOMPARE(primera->Tabla, QStringLiteral("CLIENTES"));
        QVERIFY(qobject_cast<QMdiSubWindow*>(primera->parentWidget()));
        buscar(primera, 1, QStringLiteral("luis"));
        frmMenu::instancia()->mnu_Clientes_Click();
        procesarEventos();
        QVERIFY(primera.isNull());
        QCOMPARE(Pantallas::cargada<frmBuscar>()->modelo()->rowCount(), 2);  // empieza de nuevo
        frmMenu::instancia()->mnu_B4_Propio_Click();
        procesarEventos();
        int abiertas = 0;
        for (QWidget* w : Pantallas::cargadas())
            abiertas += qobject_cast<frmBuscar*>(w) ? 1 : 0;
        QCOMPARE(abiertas, 1);
        QCOMPARE(Pantallas::cargada<frmBuscar>()->TipoImpreso, QStringLiteral("B4_P"));
    }

    void actualizarLista()
    {
        Entorno e;
        frmMenu::instancia()->show();
        frmBuscar* f = abrir(QStringLiteral("CLIENTES"));
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
        Entorno e;
        frmBuscarSeleccionar* s = abrirSelector(QStringLiteral("ARQUITECTOS_AUTORES"), QStringLiteral("FRMPROYECTO_AUTOR"));
        QVERIFY(s->modelo()->casillas());
        s->modelo()->setData(s->modelo()->index(1, 0), Qt::Checked, Qt::CheckStateRole);
        const QList<FilaResultado> filas = s->filasResultado();
        QCOMPARE(filas.size(), 2);
        QVERIFY(!filas[0].marcada && filas[1].marcada);
        QCOMPARE(filas[1].textos.value(2), QStringLiteral("O'Donnell SLP"));
        s->agregarFila({QStringLiteral("9"), {QStringLiteral("55"), QStringLiteral("Eva"), QStringLiteral("Soto")}, true});
        QVERIFY(s->filasResultado().size() == 3 && s->filasResultado().last().marcada);
        s->lvw_Resultados_DblClick();  // con casillas no hace nada
        QCOMPARE(Pantallas::cargada<frmBuscarSeleccionar>(), s);

        // Con casillas o con una sola fila elegida, según quién pide la selección.
        const struct {
            const char* tabla;
            const char* retorno;
            bool casillas;
        } casos[] = {{"APAREJADORES", "FRMPROYECTO_APAREJADOR", true}, {"APAREJADORES", "FRMDATOSIMPRESOCDC_COORDINADOR", false},
                     {"CONTRATISTAS", "FRMPROYECTO_CONSTRUCTOR", true}, {"CLIENTES", "FRMPROYECTO_CLIENTE", false}};
        for (const auto& c : casos) {
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

        QTest::newRow("proyectos editar") << false << "PROYECTOS_A" << "lbl_Mensaje_3"
                                          << "Botón EDITAR: Si desea modificar los datos de un determinado proyecto, selecciónelo en la lista de proyectos (para ello hay que hacer clic sobre él) y haga clic sobre este botón. También puede hacer doble clic sobre el proyecto que desee editar.";
        QTest::newRow("técnicos nuevo") << false << "APAREJADORES" << "lbl_Mensaje_2"
                                        << "Botón NUEVO: Haga clic en él si desea crear un nuevo arquitecto técnico.";
        QTest::newRow("impresos lista") << false << "DATOSB4" << "lbl_Mensaje_1"
                                        << "En la lista de la pantalla se muestran todos los impresos del tipo seleccionado que tenga actualmente dados de alta en el programa.";
        QTest::newRow("impresos listado") << false << "DATOSA2" << "lbl_Botonera_1"
                                          << "Permite ver en pantalla un listado con los impresos del tipo seleccionado que tenga creados.";
        QTest::newRow("selector nuevo coste") << true << "COSTES" << "lbl_Mensaje_3"
                                              << "Botón NUEVO: Si el coste de referencia que busca no existe en el programa, puede crearlo haciendo clic sobre este botón.";
        QTest::newRow("selector impresos listado") << true << "DATOSA2" << "lbl_Botonera_1"
                                                   << "Permite ver en pantalla un listado con los impresos que tenga creados.";
    }

    void ayuda()
    {
        QFETCH(bool, selector);
        QFETCH(QString, tabla);
        QFETCH(QString, etiqueta);
        QFETCH(QString, texto);
        Entorno e(false);
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
        Entorno e(false);
        frmBuscar* f = abrir(QStringLiteral("NO_EXISTE"));
        QCOMPARE(f->modelo()->rowCount(), 0);
        QCOMPARE(f->textoEstado(), QStringLiteral("Número de registros hallados: 0"));
        QCOMPARE(e.entradasLog(), 1);
        QVERIFY(e.leerLog().contains(QStringLiteral("obtenerDatos")));
    }
};

QTEST_MAIN(tst_buscar)
#include "tst_buscar.moc"
