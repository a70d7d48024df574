// Impresos A3 (coste de referencia) y A2 (presentación de documentos) por su pantalla: el cálculo
// al céntimo, las reglas de salida de los campos, el selector de costes, histórico y tabla
// temporal con nulos, la línea de autores, el desplazamiento de la lista del A2 y sus diseños.
#include "forms/frmDatosImpreso_A2.h"
#include "forms/frmDatosImpreso_A3.h"
#include "reports/VistaImpreso.h"
#include "reports/frmVisorCrystal.h"
#include "search/frmBuscar.h"
#include "tests/pantallas/PruebaImpresos.h"

#include <QCheckBox>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QToolButton>

using namespace impresos;

namespace {

const QString FORMATO_NO_VALIDO = QStringLiteral("Formato numérico no válido.\nPor favor, revise el valor proporcionado");

// Proyecto con n arquitectos y, si se pide, la sociedad propia (con o sin su ficha en OTROS).
qint64 proyecto(int arquitectos = 1, bool sociedadPropia = false, const QVariant& codigoSociedad = 20,
                const QVariant& emplazamiento = QStringLiteral("C/ Mayor, 1"))
{
    UsoConexion uso;
    insertar("Proyectos_A", {{"Trabajo", "Vivienda unifamiliar"}, {"Emplazamiento", emplazamiento}, {"Municipio", "Jaca"},
                             {"Provincia", "Huesca"}, {"EXPNUM", "2008/0042"}, {"EXPREF", "R-7"}, {"EXPFV", "2008-05-02"},
                             {"Codigo_Cliente", 1}});
    const qint64 cod = ultimoIdentificador();
    for (int i = 1; i <= arquitectos; ++i)
        ejecutar(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol, EsPropiaSociedad) VALUES (?, ?, ?, 0)"),
                 {cod, 10 + i, QString::number(100 + i)});
    if (sociedadPropia)
        ejecutar(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol, EsPropiaSociedad) VALUES (?, ?, '777', 1)"),
                 {cod, codigoSociedad});
    return cod;
}

// Teclear como el usuario (por los filtros de teclas) y salir del campo.
void teclear(QWidget* w, const QString& nombre, const QString& t)
{
    QLineEdit* c = control(w, nombre);
    c->selectAll();
    if (t.isEmpty())
        QTest::keyClick(c, Qt::Key_Delete);
    else
        QTest::keyClicks(c, t);
}

void salir(QWidget* w, const QString& nombre)
{
    QFocusEvent fuera(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(control(w, nombre), &fuera);
}

void escribirYSalir(QWidget* w, const QString& nombre, const QString& t)
{
    teclear(w, nombre, t);
    salir(w, nombre);
}

frmDatosImpreso_A3* abrirA3(const QString& operacion = QStringLiteral("ALTA"), qint64 clave = 0)
{
    return abrir<frmDatosImpreso_A3>({QStringLiteral("DATOSA3")}, operacion, clave);
}

frmDatosImpreso_A2* abrirA2(const QString& operacion = QStringLiteral("ALTA"), qint64 clave = 0)
{
    return abrir<frmDatosImpreso_A2>({QStringLiteral("DATOSA2")}, operacion, clave);
}

QString n(const char* base, int i) { return QStringLiteral("%1_%2").arg(QLatin1String(base)).arg(i); }

// Una línea del A3: uso, superficie, Ct, Cc y Cr, cada uno dejado como lo deja el usuario.
void linea(QWidget* f, int i, const QString& uso, const QString& sup, const QString& ct, const QString& cc, const QString& cr)
{
    control(f, n("txt_Usos", i))->setText(uso);
    escribirYSalir(f, n("txt_Superficie", i), sup);
    escribirYSalir(f, n("txt_Ct", i), ct);
    escribirYSalir(f, n("txt_Cc", i), cc);
    escribirYSalir(f, n("txt_Cr", i), cr);
}

}  // namespace

class tst_impresos_a2a3 : public PruebaImpresos {
    Q_OBJECT

    // Práctica en "Jaca" con su módulo; un cliente; cuatro arquitectos (11 a 14) y una sociedad (20).
    void poblar() override
    {
        UsoConexion uso;
        ejecutar(QStringLiteral("DELETE FROM Config"));
        ejecutar(QStringLiteral("INSERT INTO Config (Municipio, Modulo, IVA, IRPF) VALUES ('Jaca', ?, 21, 15)"), {547.35});
        ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, esR) VALUES (1, 'Lucía', 'Ferrer Gil', -1)"));
        for (int i = 1; i <= 4; ++i)
            ejecutar(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli, Ape_Cli) "
                                    "VALUES (?, 'ARQUITECTO', 0, ?, ?, ?)"),
                     {10 + i, 100 + i, QStringLiteral("Arq%1").arg(i), QStringLiteral("Apellido%1").arg(i)});
        ejecutar(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli) "
                                "VALUES (20, 'ARQUITECTO', 1, 777, '  Estudio Norte SLP ')"));
        ejecutar(QStringLiteral("INSERT INTO Costes (CODIGO, TIPO, DESCRIPCION, CT, CC) VALUES "
                                "('1.2', 'Residencial', 'Vivienda unifamiliar aislada', 1.2, 1.05), "
                                "('3', 'Industrial', 'Nave sin uso definido', 0.6, 0.9)"));
    }

private slots:
    // ------------------------------------------------------------------ A3: cálculo

    // El producto en su orden sobre los números como se ven, redondeado sólo por el formato (la
    // mitad del céntimo hacia fuera sobre quince cifras), y el coste por superficie desde el
    // coste de referencia ya redondeado.
    void calculoDeUnaLinea_data()
    {
        QTest::addColumn<QStringList>("entrada");  // superficie, Ct, Cc, Cr, módulo
        QTest::addColumn<QStringList>("esperado");  // CRef, coste, total superficie, total CRef, total coste
        QTest::newRow("caso del Colegio") << QStringList{"100", "1", "1", "1", "500"}
                                          << QStringList{"50.000,00", "500,00", "100,00", "50.000,00", "500,00"};
        // 10 × 0,95 × 547,35 es 5199,824999... en binario y 5199,825 con quince cifras.
        QTest::newRow("medio céntimo hacia fuera") << QStringList{"10", "0,95", "1", "1", "547,35"}
                                                   << QStringList{"5.199,83", "519,98", "10,00", "5.199,83", "519,98"};
        QTest::newRow("medio céntimo en el coste") << QStringList{"10,07", "1,15", "0,9", "1", "500"}
                                                   << QStringList{"5.211,23", "517,50", "10,07", "5.211,23", "517,50"};
        QTest::newRow("Cr con cuatro decimales") << QStringList{"123,45", "1,2", "1,05", "0,8765", "612,5"}
                                                 << QStringList{"83.506,38", "676,44", "123,45", "83.506,38", "676,44"};
        QTest::newRow("valores negativos") << QStringList{"-,5", "1", "1", "1", "100"}
                                           << QStringList{"-50,00", "100,00", "-0,50", "-50,00", "100,00"};
    }
    void calculoDeUnaLinea()
    {
        QFETCH(QStringList, entrada);
        QFETCH(QStringList, esperado);
        frmDatosImpreso_A3* f = abrirA3();
        escribirYSalir(f, "txt_Modulo", entrada[4]);
        linea(f, 2, QStringLiteral("Vivienda"), entrada[0], entrada[1], entrada[2], entrada[3]);
        QCOMPARE(textos(f, {"txt_CRef_2", "txt_Coste_2", "txt_TotalSuperficie", "txt_TotalCRef", "txt_TotalCoste"}), esperado);
        // El eco del módulo en las líneas 2 a 6.
        QCOMPARE(texto(f, "txt_ModuloFijo_4"), texto(f, "txt_Modulo"));
        QVERIFY(m_e->textos().isEmpty());
    }

    // Varias líneas: los totales suman lo que se ve, la superficie cuenta aunque la línea no tenga
    // uso, y la media sale de los totales redondeados.
    void totalesDeVariasLineas()
    {
        frmDatosImpreso_A3* f = abrirA3();
        QCOMPARE(texto(f, "txt_Modulo"), "547,35");  // el de la configuración, con su formato
        linea(f, 0, "Vivienda", "10", "0,95", "1", "");
        escribirYSalir(f, "txt_Modulo", "500");
        linea(f, 1, "Garaje", "10,07", "1,15", "0,9", "1");
        linea(f, 3, "", "5", "1", "1", "");  // sin uso: ni coste de referencia ni Cr
        QCOMPARE(textos(f, {"txt_CRef_0", "txt_CRef_1", "txt_CRef_3", "txt_Cr_0", "txt_Cr_3"}),
                 (QStringList{"4.750,00", "5.211,23", "", "1,0000", ""}));
        QCOMPARE(textos(f, {"txt_TotalSuperficie", "txt_TotalCRef", "txt_TotalCoste"}),
                 (QStringList{"25,07", "9.961,23", "397,34"}));
    }

    // Lo que deja cada campo al salir: completa ",5" y "-,5", cambia "." por ",", una sola coma,
    // no pasa de su longitud al teclear pero no corta el formato, y Cr sólo en una línea con uso.
    void salidaDeCampo_data()
    {
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("uso");
        QTest::addColumn<QString>("tecleado");
        QTest::addColumn<QString>("esperado");
        QTest::newRow(",5") << "txt_Superficie_0" << "" << ",5" << "0,50";
        QTest::newRow("-,5") << "txt_Coste_1" << "" << "-,5" << "-0,50";
        QTest::newRow("punto como coma") << "txt_Superficie_0" << "" << "12.5" << "12,50";
        QTest::newRow("una sola coma") << "txt_Cc_0" << "" << "1,2,5" << "1,25";
        QTest::newRow("letras fuera") << "txt_Superficie_0" << "" << "a1b" << "1,00";
        QTest::newRow("Ct: cuatro al teclear, más al formatear") << "txt_Ct_0" << "" << "12345" << "1.234,00";
        QTest::newRow("superficie larga") << "txt_Superficie_0" << "" << "12345678901,50" << "12.345.678.901,50";
        QTest::newRow("vacío sigue vacío") << "txt_Superficie_0" << "" << "" << "";
        QTest::newRow("Cr vacío con uso") << "txt_Cr_0" << "Oficinas" << "" << "1,0000";
        QTest::newRow("Cr vacío sin uso") << "txt_Cr_0" << "" << "" << "";
        QTest::newRow("Cr con uso") << "txt_Cr_0" << "Oficinas" << ",75" << "0,7500";
        QTest::newRow("Cr sin uso, sin formato") << "txt_Cr_0" << "" << ",75" << "0,75";
        QTest::newRow("módulo") << "txt_Modulo" << "" << "612.5" << "612,50";
        QTest::newRow("presupuesto") << "txt_PEM" << "" << "1234567,891" << "1.234.567,89";
    }
    void salidaDeCampo()
    {
        QFETCH(QString, campo);
        QFETCH(QString, uso);
        QFETCH(QString, tecleado);
        QFETCH(QString, esperado);
        frmDatosImpreso_A3* f = abrirA3();
        control(f, "txt_Usos_0")->setText(uso);
        escribirYSalir(f, campo, tecleado);
        QCOMPARE(texto(f, campo), esperado);
    }

    // El presupuesto no entra en ningún cálculo: dejarlo no recalcula.
    void presupuestoNoRecalcula()
    {
        frmDatosImpreso_A3* f = abrirA3();
        linea(f, 0, "Vivienda", "100", "1", "1", "1");
        QCOMPARE(texto(f, "txt_CRef_0"), "54.735,00");
        control(f, "txt_Modulo")->setText("1");  // sin dejar el campo
        escribirYSalir(f, "txt_PEM", "1000");
        QCOMPARE(textos(f, {"txt_PEM", "txt_CRef_0"}), (QStringList{"1.000,00", "54.735,00"}));
    }

    // Superficie cero en una línea: se anota sin mensaje, esa línea conserva su coste por
    // superficie, las demás se calculan y el programa sigue.
    void superficieCero()
    {
        frmDatosImpreso_A3* f = abrirA3();
        control(f, "txt_Coste_0")->setText("7,00");
        linea(f, 1, "Garaje", "10", "1", "1", "1");
        const int antes = m_e->entradasLog();
        linea(f, 0, "Vivienda", "0", "1", "1", "1");
        QCOMPARE(textos(f, {"txt_CRef_0", "txt_Coste_0", "txt_CRef_1", "txt_Coste_1", "txt_TotalCoste"}),
                 (QStringList{"0,00", "7,00", "5.473,50", "547,35", "547,35"}));
        QVERIFY(m_e->textos().isEmpty());
        QVERIFY(m_e->entradasLog() > antes);
        QVERIFY(m_e->leerLog().contains("calcularCosteReferencia"));
        QVERIFY(m_e->leerLog().contains("División por cero"));
        // Y el impreso se guarda igual.
        elegirProyecto(f, proyecto());
        imprimir(f);
        QCOMPARE(filas("SELECT SUP1, CREF1, COSTE1 FROM datosA3")[0].value("COSTE1").toDouble(), 7.0);
    }

    // Borrar la línea 1 vacía también el módulo (sus ecos guardan el texto) y ninguna línea se
    // recalcula después; borrar otra línea vacía su eco y no el módulo; los totales se quedan.
    void borrarLineas()
    {
        frmDatosImpreso_A3* f = abrirA3();
        linea(f, 0, "Vivienda", "100", "1", "1", "1");
        linea(f, 2, "Garaje", "10", "1", "1", "1");
        const QStringList totales = textos(f, {"txt_TotalSuperficie", "txt_TotalCRef", "txt_TotalCoste"});
        f->img_Borrar_Click(3);
        QCOMPARE(textos(f, {"txt_Usos_2", "txt_Superficie_2", "txt_Cr_2", "txt_CRef_2", "txt_Coste_2", "txt_ModuloFijo_1",
                            "txt_Modulo", "txt_ModuloFijo_0"}),
                 (QStringList{"", "", "", "", "", "", "547,35", "547,35"}));
        f->img_Borrar_Click(1);
        QCOMPARE(textos(f, {"txt_Usos_0", "txt_Superficie_0", "txt_Ct_0", "txt_Cc_0", "txt_Cr_0", "txt_CRef_0", "txt_Coste_0",
                            "txt_Modulo", "txt_ModuloFijo_0", "txt_ModuloFijo_4"}),
                 (QStringList{"", "", "", "", "", "", "", "", "547,35", "547,35"}));
        QCOMPARE(textos(f, {"txt_TotalSuperficie", "txt_TotalCRef", "txt_TotalCoste"}), totales);
        // Sin módulo no hay producto: la línea 2 cambia de superficie y su coste de referencia se queda.
        linea(f, 1, "Oficinas", "20", "1", "1", "1");
        QCOMPARE(textos(f, {"txt_CRef_1", "txt_TotalSuperficie"}), (QStringList{"", "20,00"}));
        // El proyecto: img_Borrar_0 vacía sólo su par.
        elegirProyecto(f, 5);
        f->img_Borrar_Click(0);
        QCOMPARE(textos(f, {"txt_CodProyecto", "txt_Proyecto", "txt_Usos_1"}), (QStringList{"", "", "Oficinas"}));
    }

    // ------------------------------------------------------------------ A3: selector de costes

    // El coste elegido da el uso (la descripción), Ct y Cc con su formato y Cr 1 si estaba vacío;
    // un Cr escrito se queda; y se calcula.
    void selectorDeCostes_data()
    {
        QTest::addColumn<QString>("codigo");
        QTest::addColumn<QString>("cr");
        QTest::addColumn<QStringList>("esperado");  // uso, Ct, Cc, Cr, CRef
        QTest::newRow("Cr vacío") << "1.2" << "" << QStringList{"Vivienda unifamiliar aislada", "1,20", "1,05", "1,0000", "68.966,10"};
        QTest::newRow("Cr escrito") << "3" << "0,5" << QStringList{"Nave sin uso definido", "0,60", "0,90", "0,5", "14.778,45"};
    }
    void selectorDeCostes()
    {
        QFETCH(QString, codigo);
        QFETCH(QString, cr);
        QFETCH(QStringList, esperado);
        frmDatosImpreso_A3* f = abrirA3();
        escribirYSalir(f, "txt_Superficie_1", "100");
        control(f, "txt_Cr_1")->setText(cr);
        control<QToolButton>(f, "img_Buscar_2")->click();
        QVERIFY(elegir(codigo));  // la clave de un coste es texto ("1.2"), nunca un número
        QCOMPARE(textos(f, {"txt_Usos_1", "txt_Ct_1", "txt_Cc_1", "txt_Cr_1", "txt_CRef_1"}), esperado);
        QCOMPARE(texto(f, "txt_Usos_0"), "");
    }

    // "Nuevo" en el selector: el coste dado de alta sólo escribe su tipo en el uso de su línea.
    void costeNuevoDesdeElSelector()
    {
        frmDatosImpreso_A3* f = abrirA3();
        control(f, "txt_Ct_4")->setText("2,00");
        f->img_Buscar_Click(5);
        frmBuscarSeleccionar* s = Pantallas::cargada<frmBuscarSeleccionar>();
        QVERIFY(s);
        s->cmd_Nuevo_Click();
        QWidget* ficha = nullptr;
        for (QWidget* w : Pantallas::cargadas())
            if (w->objectName() == QLatin1String("frmAddModCosteReferencia"))
                ficha = w;
        QVERIFY(ficha);
        control(ficha, "txt_Codigo")->setText("9");
        control(ficha, "txt_Tipo")->setText("Docente");
        control(ficha, "txt_Descripcion")->setText("Escuela infantil");
        control(ficha, "txt_Ct")->setText("1,4");
        control(ficha, "txt_Cc")->setText("1,1");
        QMetaObject::invokeMethod(control<QPushButton>(ficha, "cmd_Guardar"), "click");
        procesarEventos();
        QCOMPARE(textos(f, {"txt_Usos_4", "txt_Ct_4", "txt_Cc_4", "txt_Cr_4"}), (QStringList{"Docente", "2,00", "", ""}));
    }

    // ------------------------------------------------------------------ A3: carga, validación, guardado

    // "ALTA": módulo y lugar de la configuración; el histórico con nulos en las celdas vacías y la
    // tabla temporal con los textos vistos; la pantalla se cierra y se abre su lista.
    void altaGuardaConNulos()
    {
        const qint64 cod = proyecto(2);
        frmDatosImpreso_A3* f = abrirA3();
        QCOMPARE(textos(f, {"txt_Lugar", "txt_Modulo", "txt_ModuloFijo_0", "txt_TotalCoste"}),
                 (QStringList{"Jaca", "547,35", "547,35", "0,00"}));
        QVERIFY(!f->hayCambios());
        elegirProyecto(f, cod);
        linea(f, 0, "Vivienda", "100", "1", "1", "1");
        linea(f, 5, "Trastero", "3,5", "0,5", "1", "");
        escribirYSalir(f, "txt_PEM", "60000");
        imprimir(f);
        QVERIFY(m_e->textos().isEmpty());
        QVERIFY(!Pantallas::cargada<frmDatosImpreso_A3>() && Pantallas::cargada<frmVisorCrystal>());
        QCOMPARE(Pantallas::cargada<frmBuscar>()->Tabla, "DATOSA3");

        const Fila h = filas("SELECT * FROM datosA3")[0];
        QCOMPARE(columnas(h, {"TIPODOC", "USO1", "USO2"}), (QStringList{"A3", "Vivienda", ""}));
        QCOMPARE(h.value("CREF1").toDouble(), 54735.0);
        QCOMPARE(h.value("CR6").toDouble(), 1.0);
        QCOMPARE(h.value("COSTE_TOTAL").toDouble(), 538.1);
        for (const char* c : {"SUP2", "CT2", "CR2", "CREF2", "COSTE5"})
            QVERIFY2(h.value(c).isNull(), c);
        QCOMPARE(h.value("MODULO").toDouble(), 547.35);
        QCOMPARE(h.value("PEM").toDouble(), 60000.0);

        const Fila t = filas("SELECT * FROM A3")[0];
        QCOMPARE(columnas(t, {"PRYNOM", "PRYDOM", "CLIMUN", "CLIPRO", "CLINOM", "EXPNUM", "EXPFV", "ARQ1NOM", "LUGAR", "SUP1", "CR1",
                              "CREF6", "SUP", "CREF", "COSTE_TOTAL", "PEM", "MODULO"}),
                 (QStringList{"Vivienda unifamiliar", "C/ Mayor, 1", "Jaca", "Huesca", "Lucía Ferrer Gil", "2008/0042",
                                        "2008-05-02", "Arq1 Apellido1, Arq2 Apellido2", "Jaca", "100,00", "1,0000", "957,86",
                                        "103,50", "55.692,86", "538,10", "60.000,00", "547,35"}));
        for (const char* c : {"SUP2", "CT3", "CR4", "CREF5", "COSTE2"})
            QVERIFY2(t.value(c).isNull(), c);
        QCOMPARE(t.value("USO2").toString(), "");
        QCOMPARE(modInformes::Informe->numeroPaginas(), 1);
    }

    // "MODIFICAR": carga por los formatos, sin recalcular; un módulo nulo se ve vacío y llega nulo al
    // informe, que imprime la celda vacía; la vista previa actualiza la misma fila.
    void modificarSinRecalcular()
    {
        const qint64 cod = proyecto();
        qint64 clave = 0;
        {
            UsoConexion uso;
            insertar("datosA3", {{"PRYNOM", "Vivienda unifamiliar"}, {"PRYCOD", cod}, {"USO1", "Vivienda"}, {"SUP1", 100},
                                 {"CT1", 1.2}, {"CC1", 1}, {"CR1", 1.25}, {"CREF1", 999}, {"COSTE1", 9.99}, {"SUP", 100},
                                 {"CREF", 999}, {"COSTE_TOTAL", 9.99}, {"LUGAR", "Jaca"}, {"FECHA", "2 de mayo de 2008"},
                                 {"TIPODOC", "A3"}});
            clave = ultimoIdentificador();
        }
        frmDatosImpreso_A3* f = abrirA3("MODIFICAR", clave);
        QCOMPARE(textos(f, {"txt_Superficie_0", "txt_Ct_0", "txt_Cr_0", "txt_CRef_0", "txt_Coste_0", "txt_Modulo", "txt_ModuloFijo_2",
                            "txt_TotalCRef", "txt_PEM", "txt_Superficie_1"}),
                 (QStringList{"100,00", "1,20", "1,2500", "999,00", "9,99", "", "", "999,00", "", ""}));
        QVERIFY(!f->hayCambios());
        control(f, "txt_Fecha")->setText("3 de mayo de 2008");
        imprimir(f);
        QVERIFY(Pantallas::cargada<frmDatosImpreso_A3>());
        const auto h = filas("SELECT * FROM datosA3");
        QCOMPARE(h.size(), 1);
        QCOMPARE(h[0].value("FECHA").toString() + "|" + h[0].value("CREF1").toString(), "3 de mayo de 2008|999");
        QVERIFY(h[0].value("MODULO").isNull());
        QVERIFY(filas("SELECT MODULO FROM A3")[0].value("MODULO").isNull());
        // La celda del módulo queda vacía en todas las líneas, y las vacías no imprimen ceros.
        const QStringList impreso = textosInforme(0);
        QVERIFY(impreso.contains("999,00") && impreso.contains("1,2500"));
        QVERIFY(!impreso.contains("0,00") && !impreso.contains("0,0000"));
    }

    // validarDatos: proyecto, lugar, fecha, y luego cada línea en el orden superficie, Ct, Cc, Cr,
    // coste, después el módulo y el presupuesto; el foco va al campo.
    void validacion_data()
    {
        QTest::addColumn<QStringList>("valores");  // "control=valor"
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<QString>("foco");
        const QStringList base{"txt_CodProyecto=1", "txt_Proyecto=P", "txt_Lugar=Jaca", "txt_Fecha=hoy"};
        QTest::newRow("sin proyecto") << QStringList{"txt_Lugar=Jaca", "txt_Ct_0=x"} << "Por favor, seleccione un proyecto"
                                      << "txt_Proyecto";
        QTest::newRow("sin lugar") << QStringList{"txt_CodProyecto=1", "txt_Proyecto=P", "txt_Lugar= ", "txt_Ct_0=x"}
                                   << "Por favor, escriba el lugar (necesario para el pie del impreso)" << "txt_Lugar";
        QTest::newRow("línea antes que campo") << base + QStringList{"txt_Superficie_3=1.5", "txt_Coste_1=-"} << FORMATO_NO_VALIDO
                                               << "txt_Coste_1";
        QTest::newRow("Cr antes que coste") << base + QStringList{"txt_Cr_2=1,2,3", "txt_Coste_2=a"} << FORMATO_NO_VALIDO << "txt_Cr_2";
        QTest::newRow("módulo tras las líneas") << base + QStringList{"txt_Modulo=m", "txt_PEM=p", "txt_Cc_5=c"} << FORMATO_NO_VALIDO
                                                << "txt_Cc_5";
        QTest::newRow("presupuesto") << base + QStringList{"txt_PEM=1,2,3"} << FORMATO_NO_VALIDO << "txt_PEM";
        QTest::newRow("todo vacío es válido") << base << "" << "";
    }
    void validacion()
    {
        QFETCH(QStringList, valores);
        QFETCH(QString, mensaje);
        QFETCH(QString, foco);
        frmDatosImpreso_A3* f = abrirA3();
        control(f, "txt_Fecha")->clear();
        for (const QString& v : valores)
            control(f, v.section('=', 0, 0))->setText(v.section('=', 1));
        QCOMPARE(f->validarDatos(), mensaje.isEmpty());
        QCOMPARE(m_e->textos(), mensaje.isEmpty() ? QStringList() : QStringList{mensaje});
        if (!foco.isEmpty())
            QCOMPARE(f->focusWidget()->objectName(), foco);
    }

    // La copia sigue los campos escritos, no los calculados: cambiar sólo mayúsculas no pregunta.
    void preguntaAlSalir()
    {
        frmDatosImpreso_A3* f = abrirA3();
        control(f, "txt_Usos_0")->setText("vivienda");
        f->cargarInformacionImpresoA3();
        control(f, "txt_Usos_0")->setText("VIVIENDA");
        control(f, "txt_CRef_0")->setText("1,00");
        control(f, "txt_TotalCoste")->setText("2,00");
        QVERIFY(!f->hayCambios());
        control(f, "txt_Cr_3")->setText("2");
        QVERIFY(f->hayCambios());
        // "Sí" guarda el histórico, con el campo que tenía el foco ya dejado.
        elegirProyecto(f, proyecto());
        control(f, "txt_Usos_3")->setText("Garaje");
        control(f, "txt_Superficie_3")->setText("10");
        control(f, "txt_Ct_3")->setText("1");
        control(f, "txt_Cc_3")->setText("1");
        control(f, "txt_Cr_3")->setFocus();
        m_e->respuestas << Respuesta::Si;
        Pantallas::descargar(f);
        procesarEventos();
        QCOMPARE(m_e->textos(), QStringList{DatosImpreso::PREGUNTA_SALIR});
        QVERIFY(!Pantallas::cargada<frmDatosImpreso_A3>());
        const auto h = filas("SELECT CR4, CREF4 FROM datosA3");
        QCOMPARE(h.size(), 1);
        QCOMPARE(h[0].value("CR4").toDouble(), 2.0);
        QCOMPARE(h[0].value("CREF4").toDouble(), 10947.0);
        QVERIFY(filas("SELECT * FROM A3").isEmpty());
    }

    // ------------------------------------------------------------------ línea de autores (A2 y A3)

    void lineaDeAutores_data()
    {
        QTest::addColumn<QString>("impreso");
        QTest::addColumn<int>("arquitectos");
        QTest::addColumn<bool>("sociedad");
        QTest::addColumn<QVariant>("codigoSociedad");
        QTest::addColumn<QString>("esperado");
        QTest::addColumn<QStringList>("mensajes");
        for (const char* i : {"A2", "A3"}) {
            const QString imp = QString::fromLatin1(i);
            QTest::newRow(qPrintable(imp + " todos, sin límite de tres"))
                << imp << 4 << false << QVariant(20) << "Arq1 Apellido1, Arq2 Apellido2, Arq3 Apellido3, Arq4 Apellido4" << QStringList{};
            QTest::newRow(qPrintable(imp + " la sociedad propia firma sola"))
                << imp << 2 << true << QVariant(20) << "Estudio Norte SLP" << QStringList{};
            QTest::newRow(qPrintable(imp + " sociedad sin ficha")) << imp << 2 << true << QVariant(99) << ""
                                                                   << QStringList{"No se han podido cargar los datos de la sociedad"};
            QTest::newRow(qPrintable(imp + " sociedad sin código")) << imp << 2 << true << QVariant() << "" << QStringList{};
            QTest::newRow(qPrintable(imp + " sin arquitectos")) << imp << 0 << false << QVariant(20) << "" << QStringList{};
        }
    }
    void lineaDeAutores()
    {
        QFETCH(QString, impreso);
        QFETCH(int, arquitectos);
        QFETCH(bool, sociedad);
        QFETCH(QVariant, codigoSociedad);
        QFETCH(QString, esperado);
        QFETCH(QStringList, mensajes);
        const qint64 cod = proyecto(arquitectos, sociedad, codigoSociedad);
        DatosImpreso* f = impreso == "A2" ? static_cast<DatosImpreso*>(abrirA2()) : abrirA3();
        elegirProyecto(f, cod);
        imprimir(f);
        QCOMPARE(m_e->textos(), mensajes);
        QCOMPARE(filas("SELECT ARQ1NOM FROM " + impreso)[0].value("ARQ1NOM").toString(), esperado);
    }

    // ------------------------------------------------------------------ A2

    // Desplazar la lista no cambia los números: lo guardado con la lista movida es lo mismo que
    // sin moverla.
    void desplazarGuardaLasMismasLineas_data()
    {
        QTest::addColumn<int>("pulsaciones");
        QTest::newRow("sin mover") << 0;
        QTest::newRow("movida") << 5;
    }
    void desplazarGuardaLasMismasLineas()
    {
        QFETCH(int, pulsaciones);
        frmMenu::instancia()->show();
        frmDatosImpreso_A2* f = abrirA2();
        control<QTabWidget>(f, "mst_Documentos")->setCurrentIndex(1);
        QApplication::processEvents();
        QScrollBar* barra = control<QScrollArea>(f, "scr_Urbanismo")->verticalScrollBar();
        for (int i = 0; i < pulsaciones; ++i)
            f->cmd_Arriba_Urbanismo_Click();
        f->cmd_Abajo_Urbanismo_Click();
        QCOMPARE(barra->value() > 0, pulsaciones > 1);
        elegirProyecto(f, proyecto());
        teclear(f, "txt_NumEjemplares_20", "2");
        control<QCheckBox>(f, "chk_VB_20")->setChecked(true);
        control(f, "txt_NombreDocumento_4")->setText("Anexo de accesibilidad");  // línea 22
        teclear(f, "txt_NumEjemplares_31", "3");
        imprimir(f);
        const Fila h = filas("SELECT * FROM datosA2")[0];
        QCOMPARE(h.value("NDOC21").toInt(), 2);
        QCOMPARE(h.value("VBDOC21").toString() + "|" + h.value("TXTDOC22").toString() + "|" + h.value("NDOC32").toString(),
                 "X|Anexo de accesibilidad|3");
        int conEjemplares = 0;
        for (int i = 1; i <= 32; ++i)
            conEjemplares += h.value(QStringLiteral("NDOC%1").arg(i, 2, 10, QLatin1Char('0'))).isNull() ? 0 : 1;
        QCOMPARE(conEjemplares, 2);
        const Fila t = filas("SELECT * FROM A2")[0];
        QCOMPARE(t.value("NDOC21").toString() + "|" + t.value("VBDOC21").toString() + "|" + t.value("TXTDOC22").toString(),
                 "2|X|Anexo de accesibilidad");
    }

    // Una línea marcada sin ejemplares: VBDOC "X" y NDOC nulo; un título libre sin ejemplares ni
    // marca se guarda y se imprime; los ejemplares, sólo cifras y tres como mucho.
    void lineasSinEjemplares()
    {
        frmDatosImpreso_A2* f = abrirA2();
        elegirProyecto(f, proyecto());
        control<QCheckBox>(f, "chk_VB_0")->setChecked(true);
        control(f, "txt_NombreDocumento_1")->setText("Separata de instalaciones");  // línea 12
        teclear(f, "txt_NumEjemplares_5", "1a-2,34");
        QCOMPARE(texto(f, "txt_NumEjemplares_5"), "123");
        teclear(f, "txt_NumEjemplares_6", "0");
        control(f, "txt_Observaciones")->setText("Se entrega en soporte digital");
        imprimir(f);
        for (const QString& tabla : {QStringLiteral("datosA2"), QStringLiteral("A2")}) {
            const Fila r = filas("SELECT * FROM " + tabla)[0];
            QVERIFY(r.value("NDOC01").isNull());
            QCOMPARE(columnas(r, {"VBDOC01", "VBDOC02", "TXTDOC12", "NDOC06", "OBSDOC"}),
                     (QStringList{"X", "", "Separata de instalaciones", "123", "Se entrega en soporte digital"}));
            QVERIFY(r.value("NDOC12").isNull() && r.value("VBDOC12").toString().isEmpty());
        }
        const QStringList impreso = textosInforme(0);
        QVERIFY(impreso.contains("Separata de instalaciones"));
        QVERIFY(impreso.contains("123"));
        QVERIFY(!impreso.contains("0"));  // una línea con cero ejemplares se imprime en blanco
        QVERIFY(impreso.contains("Se entrega en soporte digital"));
        QVERIFY(impreso.contains("C/ Mayor, 1 - Jaca - Huesca"));
    }

    // "MODIFICAR" carga números, marcas ("X" y nada más) y títulos sin que la pantalla quede con cambios.
    void modificarA2()
    {
        qint64 clave = 0;
        {
            UsoConexion uso;
            insertar("datosA2", {{"PRYNOM", "P"}, {"PRYCOD", proyecto()}, {"NDOC03", 4}, {"VBDOC03", "X"}, {"VBDOC04", "x"},
                                 {"TXTDOC30", "Plano de situación"}, {"OBSDOC", "Nada"}, {"LUGAR", "Jaca"}, {"FECHA", "hoy"},
                                 {"TIPODOC", "A2"}});
            clave = ultimoIdentificador();
        }
        frmDatosImpreso_A2* f = abrirA2("MODIFICAR", clave);
        QCOMPARE(textos(f, {"txt_NumEjemplares_2", "txt_NombreDocumento_10", "txt_Observaciones", "txt_NumEjemplares_3"}),
                 (QStringList{"4", "Plano de situación", "Nada", ""}));
        QVERIFY(control<QCheckBox>(f, "chk_VB_2")->isChecked() && !control<QCheckBox>(f, "chk_VB_3")->isChecked());
        QVERIFY(!f->hayCambios());
        control<QCheckBox>(f, "chk_VB_31")->setChecked(true);
        QVERIFY(f->hayCambios());
    }

    // ------------------------------------------------------------------ diseños

    // Emplazamiento del proyecto (no del cliente) unido con " - ". Como en el sistema, un campo que
    // falta no se salta su separador: sin dirección la línea empieza por "- "; sólo una línea de
    // separadores se queda en blanco (los impresos en blanco, en tst_impresos_avisos).
    void emplazamientoUnido_data()
    {
        QTest::addColumn<QString>("impreso");
        QTest::addColumn<QVariant>("direccion");
        QTest::addColumn<QString>("esperado");
        for (const char* i : {"A2", "A3"}) {
            QTest::newRow(qPrintable(QLatin1String(i) + QLatin1String(" completo")))
                << QString::fromLatin1(i) << QVariant("C/ Mayor, 1") << "C/ Mayor, 1 - Jaca - Huesca";
            QTest::newRow(qPrintable(QLatin1String(i) + QLatin1String(" sin dirección")))
                << QString::fromLatin1(i) << QVariant() << "- Jaca - Huesca";
        }
    }
    void emplazamientoUnido()
    {
        QFETCH(QString, impreso);
        QFETCH(QVariant, direccion);
        QFETCH(QString, esperado);
        DatosImpreso* f = impreso == "A2" ? static_cast<DatosImpreso*>(abrirA2()) : abrirA3();
        elegirProyecto(f, proyecto(1, false, 20, direccion));
        imprimir(f);
        QVERIFY(textosInforme(0).contains(esperado));
    }
};

PRUEBA_PANTALLAS(tst_impresos_a2a3)
#include "tst_impresos_a2a3.moc"
#include "moc_PruebaImpresos.cpp"
