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
#include "tests/pantallas/tst_fichas_comun.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTreeView>
#include <QtTest>

#include <optional>

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
    if (T* c = f->findChild<T*>(QString::fromLatin1(nombre)))
        return c;
    qFatal("Falta el control %s", nombre);
}

// Textos de una columna de la lista, en orden y separados por '|'.
QString columna(PantallaBusqueda* f, int c = 0)
{
    QStringList r;
    for (int i = 0; i < f->modelo()->rowCount(); ++i)
        r << f->modelo()->texto(i, c);
    return r.join('|');
}

QString estadoExportar(PantallaBusqueda* f)
{
    QString r;
    for (int i = 1; i <= 4; ++i)
        r += f->findChild<QAction*>(QStringLiteral("tlb_BotoneraExportar_%1").arg(i))->isEnabled() ? '1' : '0';
    return r;
}

// Entorno de prueba conectado (al fichero o, si CTest lo pide, al servidor) y, si se pide, con los datos de llenar().
struct Entorno : fichas::Entorno {
    explicit Entorno(bool datos = true)
    {
        if (datos)
            llenar();
    }
};

frmBuscar* abrir(const QString& tabla, const QString& tipo = {})
{
    abrirBusqueda(tabla, tipo, QStringLiteral("Lista"));
    return Pantallas::cargada<frmBuscar>();
}

PantallaBusqueda* abrir(bool selector, const QString& tabla, const QString& tipo = {})
{
    if (!selector)
        return abrir(tabla, tipo);
    return frmBuscarSeleccionar::abrir(
        {.tabla = tabla, .claveLlamada = QStringLiteral("SELECCIONAR_EN_PROYECTOS"), .titulo = QStringLiteral("Buscar"), .claveRetorno = QStringLiteral("X")});
}

void buscar(PantallaBusqueda* f, int indice, const QString& valor)
{
    control<QComboBox>(f, "cbo_CampoBusqueda")->setCurrentIndex(indice);
    control<QLineEdit>(f, "msk_ValorBusqueda")->setText(valor);
    f->tlb_BotoneraBuscar_Click();
}

// Filas de las tablas de datos. campos: elementos de la lista de campos; hallados: primera columna en orden
// (vacío: ninguno); contar e intacta: SQL de las filas de la tabla y de lo que no se borra en cascada.
struct Carga { QString tabla, tipo; bool selector; int campos; QString primeraFila; int filas; };
struct Busqueda { QString tabla, tipo; int indice; QString valor, hallados; };
struct Borrado { QString tabla, tipo; int fila; QString pregunta, contar, intacta; int intactas; };
struct Ayuda { bool selector; QString tabla, etiqueta, texto; };

}  // namespace
Q_DECLARE_METATYPE(Carga)
Q_DECLARE_METATYPE(Busqueda)
Q_DECLARE_METATYPE(Borrado)
Q_DECLARE_METATYPE(Ayuda)

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
        qDeleteAll(quedan);  // las que sigan vivas
        procesarEventos();
        Aplicacion::reiniciar();
    }

    void carga_data()
    {
        QTest::addColumn<Carga>("c");
        const QString jose = "1234|José|Muñoz Sáez|12345678Z|C/ Real 2|Segovia|Segovia";
        QTest::newRow("proyectos") << Carga{"PROYECTOS_A", "", false, 8, "2007/001|Vivienda unifamiliar|C/ Mayor 1|Ávila|Ávila|15/03/2007|", 3};
        QTest::newRow("arquitectos") << Carga{"ARQUITECTOS", "", false, 7, jose, 2};
        QTest::newRow("simples") << Carga{"ARQUITECTOS_SIMPLE", "", true, 7, jose, 1};
        QTest::newRow("sociedades") << Carga{"ARQUITECTOS_SOCIEDAD", "", true, 7, "2000|Estudio|O'Donnell SLP|B1234567|Plaza 1|Burgos|Burgos", 1};
        QTest::newRow("autores") << Carga{"ARQUITECTOS_AUTORES", "", true, 7, jose, 2};
        QTest::newRow("coordinador") << Carga{"COORDINADOR_SS", "", true, 7, jose, 2};
        QTest::newRow("aparejadores") << Carga{"APAREJADORES", "", false, 7, "77|Ana|Álvarez Gil|22222222J|C/ Luna|Soria|Soria", 1};
        QTest::newRow("contratistas") << Carga{"CONTRATISTAS", "", false, 6, "Construcciones|Pérez SA|A7654321|Nave 5|Zamora|Zamora", 1};
        QTest::newRow("clientes") << Carga{"CLIENTES", "", false, 6, "María|Benítez Ortiz|11111111H|C/ Pez 1|Palencia|Palencia", 2};
        QTest::newRow("costes") << Carga{"COSTES", "", true, 4, "1.2|Vivienda|Unifamiliar aislada|650,5|1,2", 1};
        QTest::newRow("A1") << Carga{"DATOSA1B2", "A1", false, 3, "Vivienda unifamiliar|Ávila|03/05/2007", 1};
        QTest::newRow("A2") << Carga{"DATOSA2", "A2", false, 3, "Proyecto X|Ávila|01/06/2007", 2};
        QTest::newRow("A3") << Carga{"DATOSA3", "A3", false, 3, "Proyecto Z|Soria|04/04/2008", 1};
        QTest::newRow("A4") << Carga{"DATOSA4A5", "A4", false, 3, "Obra A4|10/01/2008|Burgos|12/01/2008", 1};
        QTest::newRow("CSS") << Carga{"DATOSCOORDINADOR_SEGURIDAD_Y_SALUD", "CSS", false, 3, "Obra CSS|01/03/2008|León|05/03/2008", 2};
        QTest::newRow("B1") << Carga{"DATOSB1B3B4", "B1", false, 3, "Factura uno|7/2008|José Muñoz Sáez", 1};
        QTest::newRow("B4 ajeno") << Carga{"DATOSB4", "B4_A", false, 5, "José Muñoz|María Benítez|2007|J-1", 1};
        QTest::newRow("fin de obra") << Carga{"DATOSFINOBRA", "FINOBRA", false, 3, "Fin de obra uno|20/05/2009", 1};
        QTest::newRow("certificado") << Carga{"DATOSCERTIFICADO", "", false, 3, "José Muñoz Sáez|24/12/2007", 1};
        QTest::newRow("comunicado") << Carga{"DATOSCOMUNICADO_DIRECCION_Y_COORDINADOR", "CDC", false, 3, "Comunicado uno|Ávila|08/08/2008", 1};
    }

    void carga()
    {
        QFETCH(Carga, c);
        Entorno e;
        PantallaBusqueda* f = abrir(c.selector, c.tabla, c.tipo);
        QVERIFY(f);
        QCOMPARE(control<QComboBox>(f, "cbo_CampoBusqueda")->count(), c.campos);
        QCOMPARE(f->modelo()->fila(0).textos.join('|'), c.primeraFila);
        QCOMPARE(f->textoEstado(), QStringLiteral("Número de registros hallados: %1").arg(c.filas));
        QVERIFY(e.cuadros.isEmpty());
    }

    void busqueda_data()
    {
        QTest::addColumn<Busqueda>("b");
        QTest::newRow("expediente") << Busqueda{"PROYECTOS_A", "", 1, "2008", "2008/002|2008/003"};
        QTest::newRow("comilla") << Busqueda{"PROYECTOS_A", "", 2, "d'Ana", "2008/003"};
        QTest::newRow("provincia no hallada") << Busqueda{"PROYECTOS_A", "", 4, "Cuenca", ""};
        QTest::newRow("fecha visado por año") << Busqueda{"PROYECTOS_A", "", 6, "2007", "2007/001|2008/003"};
        QTest::newRow("fecha visado por día") << Busqueda{"PROYECTOS_A", "", 6, "01/02/2008", "2008/002"};
        QTest::newRow("fecha fin de obra por año") << Busqueda{"PROYECTOS_A", "", 7, "2009", "2008/002"};
        QTest::newRow("colegiado con letra") << Busqueda{"ARQUITECTOS", "", 1, "12a", ""};
        QTest::newRow("NIF") << Busqueda{"ARQUITECTOS", "", 4, "B12", "2000"};
        QTest::newRow("cliente por apellido") << Busqueda{"CLIENTES", "", 2, "nuño", "Luis"};
        QTest::newRow("B2 por fecha") << Busqueda{"DATOSA1B2", "B2", 2, "2008", "Reforma de nave"};
        QTest::newRow("B4 propio por pagador") << Busqueda{"DATOSB4", "B4_P", 2, "Estudio", "José Muñoz"};
    }

    void busqueda()
    {
        QFETCH(Busqueda, b);
        Entorno e;
        frmBuscar* f = abrir(b.tabla, b.tipo);
        buscar(f, b.indice, b.valor);
        QCOMPARE(columna(f), b.hallados);
        QCOMPARE(e.textos(), b.hallados.isEmpty() ? QStringList{NO_HALLADO} : QStringList());
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
        QCOMPARE(columna(f, 1), espanol);
        // Primer clic: descendente; segundo: ascendente.
        f->lvw_Resultados_ColumnClick(2);
        QCOMPARE(columna(f, 1), QStringLiteral("Nuño|Nuno|Murcia|Muñoz|Benítez|Álvarez"));
        f->lvw_Resultados_ColumnClick(2);
        QCOMPARE(columna(f, 1), espanol);
    }

    // La "ñ" se busca como una "n" (también lo que deja el filtro de teclas de "núñez"); el orden no cambia.
    void eneSinTilde()
    {
        Entorno e(false);
        {
            UsoConexion uso;
            int i = 0;
            for (const char* a : {"Núñez O'Brien", "Murcia", "Nuno", "Muñoz"})
                ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF) VALUES (?, ?, ?, ?)"),
                         {++i, QStringLiteral("N%1").arg(i), QString::fromUtf8(a), QStringLiteral("%1").arg(10 - i)});
        }
        frmBuscar* f = abrir(QStringLiteral("CLIENTES"));
        QCOMPARE(columna(f, 1), QStringLiteral("Muñoz|Murcia|Nuno|Núñez O'Brien"));
        for (const auto& [valor, hallados] : {std::pair{"nunez", "Núñez O'Brien"}, std::pair{"NUÑEZ", "Núñez O'Brien"},
                                               std::pair{"munoz", "Muñoz"}, std::pair{"mu", "Muñoz|Murcia"}}) {
            buscar(f, 2, QString::fromUtf8(valor));
            QCOMPARE(columna(f, 1), QString::fromUtf8(hallados));
        }
        auto* valor = control<QLineEdit>(f, "msk_ValorBusqueda");
        control<QComboBox>(f, "cbo_CampoBusqueda")->setCurrentIndex(2);
        valor->clear();
        // Como lo teclea alguien: el filtro de teclas de la caja quita lo que no admite.
        for (const QChar c : QStringLiteral("núñez")) {
            QKeyEvent pulsada(QEvent::KeyPress, c.isLetter() && c.unicode() < 128 ? Qt::Key_A + (c.unicode() - 'a') : 0, Qt::NoModifier, QString(c));
            QApplication::sendEvent(valor, &pulsada);
        }
        QCOMPARE(valor->text(), QStringLiteral("nez"));
        f->tlb_BotoneraBuscar_Click();
        QCOMPARE(columna(f, 1), QStringLiteral("Núñez O'Brien"));
        QVERIFY(e.textos().isEmpty());
    }

    void claveDeOrden()
    {
        // La clave binaria con la que se ordena la lista da el mismo orden que el cotejo español.
        const QStringList textos = {"", " ", "a", "A", "á", "Á", "ab", "aB", "ñ", "Ñ", "n", "nz", "o", "Muñoz", "Murcia", "Nuno",
                                    "Nuño", "NUÑO", "Álvarez", "alvarez", "10", "9", "1-2", "1.2", "Casa d'Ana", "ü", "u", "€", "z"};
        const auto clave = [](const QString& t) {
            const QByteArray u = t.toUtf8();
            return Cotejo::claveOrden(std::string_view(u.constData(), u.size()));
        };
        for (const QString& a : textos)
            for (const QString& b : textos) {
                const int esperado = Cotejo::comparar(a, b);
                if ((esperado > 0) - (esperado < 0) != (clave(a) < clave(b) ? -1 : (clave(b) < clave(a) ? 1 : 0)))
                    QFAIL(qPrintable(QStringLiteral("%1 frente a %2").arg(a, b)));
            }
    }

    void borrado_data()
    {
        QTest::addColumn<Borrado>("b");
        QTest::newRow("proyecto") << Borrado{"PROYECTOS_A", "", 1, "¿Está seguro de eliminar el proyecto con expediente número 2008/002?",
                                             "SELECT COUNT(*) FROM Proyectos_A", "SELECT COUNT(*) FROM Arquitectos_Proyecto WHERE PryCod = 2", 1};
        QTest::newRow("cliente") << Borrado{"CLIENTES", "", 0, "¿Está seguro de eliminar el cliente María Benítez Ortiz?",
                                            "SELECT COUNT(*) FROM Clientes", "SELECT COUNT(*) FROM Representantes", 1};
        QTest::newRow("impreso B4") << Borrado{"DATOSB4", "B4_A", 0, "¿Está seguro de eliminar el impreso seleccionado?",
                                               "SELECT COUNT(*) FROM datosB4", "SELECT COUNT(*) FROM datosB4 WHERE TipoCertificado = 'P'", 1};
    }

    void borrado()
    {
        QFETCH(Borrado, b);
        for (const bool si : {false, true}) {
            Entorno e;
            frmBuscar* f = abrir(b.tabla, b.tipo);
            const int antes = f->modelo()->rowCount();
            const int filasTabla = [&] { UsoConexion u; return escalar(b.contar).toInt(); }();
            const QString clave = f->modelo()->clave(b.fila);
            f->seleccionarFila(b.fila);
            e.respuestas << (si ? Respuesta::Si : Respuesta::No);
            f->cmd_Eliminar_Click();
            QCOMPARE(e.cuadros.value(0).porDefecto, Respuesta::No);
            QCOMPARE(e.textos(), si ? QStringList({b.pregunta, "Operación de borrado realizada correctamente"}) : QStringList({b.pregunta}));
            UsoConexion u;
            QCOMPARE(escalar(b.contar).toInt(), filasTabla - si);
            QCOMPARE(f->modelo()->rowCount(), antes - si);
            for (int i = 0; si && i < f->modelo()->rowCount(); ++i)
                QVERIFY(f->modelo()->clave(i) != clave);
            QCOMPARE(escalar(b.intacta).toInt(), b.intactas);
        }
    }

    void exportar()
    {
        // Maestro: tres botones; impreso: sólo el último. Tras una búsqueda vacía se apagan y siguen así.
        for (const QStringList& c : {QStringList{"PROYECTOS_A", "", "1110"}, QStringList{"DATOSA1B2", "A1", "0001"}}) {
            {
                Entorno e;
                frmBuscar* f = abrir(c[0], c[1]);
                QCOMPARE(estadoExportar(f), c[2]);
                buscar(f, 1, QStringLiteral("nada"));
                const QString apagada = QStringLiteral("000") + c[2].right(1);
                QCOMPARE(estadoExportar(f), apagada);
                control<QComboBox>(f, "cbo_CampoBusqueda")->setCurrentIndex(0);
                QCOMPARE(estadoExportar(f), apagada);
            }
            cleanup();
            init();
        }
    }

    // Tabla vacía: se abre en silencio y sin exportación.
    void tablaVacia()
    {
        Entorno e(false);
        frmBuscar* f = abrir(QStringLiteral("PROYECTOS_A"));
        QCOMPARE(estadoExportar(f), QStringLiteral("0000"));
        QVERIFY(e.cuadros.isEmpty());
    }

    void suprimirVuelveATodo()
    {
        Entorno e;
        frmBuscar* f = abrir(QStringLiteral("PROYECTOS_A"));
        auto* cbo = control<QComboBox>(f, "cbo_CampoBusqueda");
        buscar(f, 2, QStringLiteral("nave"));
        QCOMPARE(f->modelo()->rowCount(), 1);
        QTest::keyClick(cbo, Qt::Key_Delete);
        QCOMPARE(control<QLineEdit>(f, "msk_ValorBusqueda")->text(), QString());
        QCOMPARE(f->modelo()->rowCount(), 3);
    }

    void menu()
    {
        Entorno e;
        frmMenu::instancia()->show();
        frmMenu::instancia()->mnu_Clientes_Click();
        QPointer<frmBuscar> primera = Pantallas::cargada<frmBuscar>();
        QCOMPARE(primera->Tabla, QStringLiteral("CLIENTES"));
        buscar(primera, 1, QStringLiteral("luis"));
        frmMenu::instancia()->mnu_Clientes_Click();
        procesarEventos();
        QVERIFY(primera.isNull());
        QCOMPARE(Pantallas::cargada<frmBuscar>()->modelo()->rowCount(), 2);  // empieza de nuevo
    }

    void actualizarLista()
    {
        Entorno e;
        frmMenu::instancia()->show();
        frmBuscar* f = abrir(QStringLiteral("CLIENTES"));
        buscar(f, 2, QStringLiteral("o"));
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
        QCOMPARE(columna(f), QStringLiteral("María|Luis|Eva"));
        delete otra;
    }

    void ayuda_data()
    {
        QTest::addColumn<Ayuda>("a");
        QTest::newRow("técnicos nuevo") << Ayuda{false, "APAREJADORES", "lbl_Mensaje_2", "Botón NUEVO: Haga clic en él si desea crear un nuevo arquitecto técnico."};
        QTest::newRow("impresos listado") << Ayuda{false, "DATOSA2", "lbl_Botonera_1", "Permite ver en pantalla un listado con los impresos del tipo seleccionado que tenga creados."};
        QTest::newRow("selector impresos listado") << Ayuda{true, "DATOSA2", "lbl_Botonera_1", "Permite ver en pantalla un listado con los impresos que tenga creados."};
    }

    void ayuda()
    {
        QFETCH(Ayuda, a);
        Entorno e(false);
        abrir(a.selector, a.tabla)->cmd_Ayuda_Click();
        QWidget* v = a.selector ? static_cast<QWidget*>(Pantallas::cargada<frmAyudaBuscarSeleccionar>())
                                : static_cast<QWidget*>(Pantallas::cargada<frmAyudaBuscar>());
        QVERIFY(v);
        QCOMPARE(control<QLabel>(v, a.etiqueta.toLatin1().constData())->text(), a.texto);
    }
};

PRUEBA_PANTALLAS(tst_buscar)
#include "tst_buscar.moc"
