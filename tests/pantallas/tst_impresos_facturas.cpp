// Facturas de honorarios (B1, B3, B4) y certificados anuales de retenciones (ajeno y propio) por
// sus pantallas: la cadena de importes al céntimo y en letra, las líneas y su diálogo, el
// histórico y la tabla temporal, los certificados sumados o escritos a mano, y sus informes.
#include "core/clsNumToText.h"
#include "forms/frmAddModDetalleFacturaHonorarios.h"
#include "forms/frmDatosImpreso_B1_B3_B4.h"
#include "reports/VistaImpreso.h"
#include "reports/frmVisorCrystal.h"
#include "search/frmBuscar.h"
#include "search/frmSeleccionarTipoPerceptor.h"
#include "tests/pantallas/PruebaImpresos.h"

#include <QCheckBox>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QRandomGenerator>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

using namespace impresos;

namespace {

const QString FORMATO_NO_VALIDO = QStringLiteral("Formato numérico no válido.\nPor favor, revise el valor proporcionado");
const QString NOTA_RETENCION =
    QStringLiteral("* Sólo en caso de existir obligación de retención   (art. 101, T.R. de la Ley de la R.P.F., \"R.D.L. 3/2004\")");

frmDatosImpreso_B1_B3_B4* factura(const QString& tipo = QStringLiteral("B1"), const QString& operacion = QStringLiteral("ALTA"),
                                  qint64 clave = 0)
{
    return qobject_cast<frmDatosImpreso_B1_B3_B4*>(abrir({QStringLiteral("DATOSB1B3B4"), tipo}, operacion, clave));
}

// Lo que hará el usuario con el diálogo de la línea que se abrirá a continuación (modal).
void conDialogo(std::function<void(frmAddModDetalleFacturaHonorarios*)> accion)
{
    QTimer::singleShot(0, [accion] {
        auto* d = Pantallas::cargada<frmAddModDetalleFacturaHonorarios>();
        QVERIFY2(d, "no se ha abierto el diálogo de la línea");
        accion(d);
    });
}

void escribirLinea(frmAddModDetalleFacturaHonorarios* d, const QString& concepto, const QString& importe)
{
    control(d, "txt_Concepto")->setText(concepto);
    control(d, "txt_Importe")->setText(importe);
    emit control(d, "txt_Importe")->editingFinished();
}

// "Añadir", el diálogo y "Aceptar".
void anadirLinea(frmDatosImpreso_B1_B3_B4* f, const QString& concepto, const QString& importe)
{
    conDialogo([=](frmAddModDetalleFacturaHonorarios* d) {
        escribirLinea(d, concepto, importe);
        d->cmd_Aceptar_Click();
    });
    f->cmd_Anadir_Click();
    QVERIFY(!Pantallas::cargada<frmAddModDetalleFacturaHonorarios>());
}

// Proyecto, emisor y líneas: una factura lista para imprimir.
void rellenarFactura(frmDatosImpreso_B1_B3_B4* f, const QStringList& importes, qint64 proyecto = 101, qint64 emisor = 11)
{
    elegirProyecto(f, proyecto);
    control(f, "txt_CodEmisor")->setText(QString::number(emisor));
    control(f, "txt_Emisor")->setText(QStringLiteral("Ana Ruiz Peña"));
    control(f, "txt_NumFactura")->setText(QStringLiteral("17/2008"));
    control(f, "txt_Fecha")->setText(QStringLiteral("5 de marzo de 2008"));
    for (int i = 0; i < importes.size(); ++i)
        anadirLinea(f, QStringLiteral("Concepto %1").arg(i + 1), importes[i]);
}

QStringList totales(QWidget* f)
{
    return textos(f, {"txt_TotalHonorarios", "txt_Iva", "txt_TotalFactura", "txt_Irpf", "txt_TotalAbonado", "txt_TotalAbonado_Texto"});
}

QStringList lineas(QWidget* f)
{
    auto* lvw = control<QTreeWidget>(f, "lvw_Concepto");
    QStringList r;
    for (int i = 0; i < lvw->topLevelItemCount(); ++i)
        r << lvw->topLevelItem(i)->text(0) + QLatin1Char('|') + lvw->topLevelItem(i)->text(1);
    return r;
}

// Un certificado de retenciones nuevo con quien percibe, quien paga y el ejercicio escritos.
DatosImpreso* certificado(const QString& tipo, qint64 perceptor = 11, qint64 pagador = 1)
{
    DatosImpreso* f = abrir({QStringLiteral("DATOSB4"), tipo});
    escribir(f, "txt_CodPerceptor", QString::number(perceptor));
    escribir(f, "txt_Perceptor", QStringLiteral("Quien percibe"));
    escribir(f, "txt_CodPagador", QString::number(pagador));
    escribir(f, "txt_Pagador", QStringLiteral("Quien paga"));
    escribir(f, "txt_Ejercicio", QStringLiteral("2009"));
    return f;
}

void seleccionarLinea(QWidget* f, int fila)
{
    auto* lvw = control<QTreeWidget>(f, "lvw_Concepto");
    lvw->clearSelection();
    if (fila >= 0)
        lvw->topLevelItem(fila)->setSelected(true);
}

// ---------------------------------------------------------------- cálculo exacto, aparte

// Céntimos redondeados a la mitad lejos del cero de c × porcentaje / 100.
qint64 porcentajeExacto(qint64 centimos, int porcentaje)
{
    const qint64 q = centimos * porcentaje;
    return q >= 0 ? (q + 50) / 100 : -((-q + 50) / 100);
}

// "#,##0.00" escrito desde los céntimos, sin pasar por ningún double.
QString textoExacto(qint64 centimos, bool miles = true)
{
    const bool negativo = centimos < 0;
    const quint64 a = negativo ? quint64(-centimos) : quint64(centimos);
    QString entero = QString::number(a / 100);
    if (miles)
        for (qsizetype i = entero.size() - 3; i > 0; i -= 3)
            entero.insert(i, QLatin1Char('.'));
    return (negativo ? QStringLiteral("-") : QString()) + entero + QLatin1Char(',') + QStringLiteral("%1").arg(a % 100, 2, 10, QLatin1Char('0'));
}

QString enLetraExacta(qint64 centimos)
{
    clsNumToText n;
    QString r = n.Numero2Letra(textoExacto(centimos, false), 0, 2, QStringLiteral("euro"), QStringLiteral("céntimo"), clsNumToText::VERDADERO,
                               clsNumToText::VERDADERO);
    r[0] = r[0].toUpper();
    return r;
}

}  // namespace

class tst_impresos_facturas : public PruebaImpresos {
    Q_OBJECT

    // Facturas guardadas directamente: emisor, proyecto, importe, retención y fecha del pie.
    static qint64 facturaGuardada(qint64 emisor, qint64 proyecto, const QVariant& importe, const QVariant& irpf,
                                  const QString& fecha = QStringLiteral("5 de marzo de 2008"))
    {
        UsoConexion uso;
        insertar(QStringLiteral("datosB1B3B4"), {{"ARQCOD", emisor}, {"PRYCOD", proyecto}, {"IMPORTE", importe}, {"IRPF", irpf}, {"FECHA", fecha}});
        return ultimoIdentificador();
    }

    // Estudio en Jaca con IVA 16 e IRPF 15; arquitectos 11 y 12, un contratista (30), dos clientes y
    // cuatro proyectos: 101 y 103 del cliente 1, 102 del cliente 2, 104 sin cliente.
    void poblar() override
    {
        UsoConexion uso;
        ejecutar(QStringLiteral("DELETE FROM Config"));
        ejecutar(QStringLiteral("INSERT INTO Config (Municipio, IVA, IRPF, AgenciaTributaria) VALUES ('Jaca', 16, 15, 'Huesca')"));
        const QString otros = QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli, Ape_Cli, NIF, "
                                             "Dirección_Cli, Municipio_Cli, Provincia_Cli, Tfno_Cli, cp) VALUES (?,?,0,?,?,?,?,?,?,?,?,?)");
        ejecutar(otros, {11, "ARQUITECTO", 1011, "Ana", "Ruiz Peña", "11111111H", "C/ Mayor 3", "Jaca", "Huesca", "974000011", "22700"});
        ejecutar(otros, {12, "Arquitecto", 1012, "Luis", "Gil", "22222222J", "C/ Baja 1", "Sabiñánigo", "Huesca", "974000012", "22600"});
        ejecutar(otros, {30, "CONSTRUCTOR", 0, "Obras Duero SA", QVariant(), "A33333333", "Pol. Sur", "Soria", "Soria", QVariant(), "42001"});
        ejecutar(otros, {31, "ARQUITECTO TECNICO", 77, "Eva", "Sanz", "44444444A", QVariant(), "Huesca", "Huesca", QVariant(), QVariant()});
        ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, Dirección_Cli, Municipio_Cli, Provincia_Cli, "
                                "Tfno_Cli, cp, esR) VALUES (1, 'Lucía', 'Ferrer Gil', '12345678Z', 'C/ Río 2', 'Jaca', 'Huesca', "
                                "'974111111', '22700', -1), (2, 'Construcciones', 'Ebro SA', 'A22000001', NULL, 'Monzón', NULL, NULL, "
                                "NULL, 1)"));
        ejecutar(QStringLiteral("INSERT INTO Proyectos_A (PryCod, Trabajo, Codigo_Cliente) VALUES (101, 'Vivienda unifamiliar', 1), "
                                "(102, 'Nave agrícola', 2), (103, 'Reforma de local', 1), (104, 'Refugio', NULL)"));
    }

private slots:
    // ------------------------------------------------------------ cadena de importes

    // Líneas → H → I → F → R → T → en letra, con los tipos de Config; "Sin retención" ajusta el
    // abonado desde el que había; borrar la última línea deja todo a cero.
    void cadenaDeImportes_data()
    {
        QTest::addColumn<int>("iva");
        QTest::addColumn<int>("irpf");
        QTest::addColumn<QStringList>("importes");
        QTest::addColumn<QString>("accion");
        QTest::addColumn<QStringList>("esperado");  // H, I, F, R, T, en letra
        QTest::newRow("mil al 16 y al 15") << 16 << 15 << QStringList{"1000"} << ""
                                           << QStringList{"1.000,00", "160,00", "1.160,00", "150,00", "1.010,00", "Mil diez euros"};
        QTest::newRow("sin retención") << 16 << 15 << QStringList{"1000"} << "sin retención"
                                       << QStringList{"1.000,00", "160,00", "1.160,00", "0", "1.160,00", "Mil ciento sesenta euros"};
        QTest::newRow("con retención otra vez") << 16 << 15 << QStringList{"1000"} << "con retención otra vez"
                                                << QStringList{"1.000,00", "160,00", "1.160,00", "150,00", "1.010,00", "Mil diez euros"};
        QTest::newRow("dos líneas") << 16 << 15 << QStringList{"600", "400,00"} << ""
                                    << QStringList{"1.000,00", "160,00", "1.160,00", "150,00", "1.010,00", "Mil diez euros"};
        // 1,50 × 0,21 = 0,315 y 1,50 × 0,15 = 0,225: la mitad sube, aunque el double quede por debajo.
        QTest::newRow("medio céntimo") << 21 << 15 << QStringList{",5", "1"} << ""
                                       << QStringList{"1,50", "0,32", "1,82", "0,23", "1,59", "Un euro con cincuenta y nueve céntimos"};
        QTest::newRow("borrar la última línea") << 16 << 15 << QStringList{"1000"} << "borrar"
                                                << QStringList{"0,00", "0,00", "0,00", "0,00", "0,00", "Cero euros"};
    }
    void cadenaDeImportes()
    {
        QFETCH(int, iva);
        QFETCH(int, irpf);
        QFETCH(QStringList, importes);
        QFETCH(QString, accion);
        QFETCH(QStringList, esperado);
        sql("UPDATE Config SET IVA = ?, IRPF = ?", {iva, irpf});
        auto* f = factura();
        QCOMPARE(control<QLabel>(f, "lbl_Iva")->text(), QStringLiteral("I.V.A. (%1 %)").arg(iva));
        QCOMPARE(control<QLabel>(f, "lbl_Irpf")->text(), QStringLiteral("RETENCIÓN I.R.P.F. (%1 %) *").arg(irpf));
        rellenarFactura(f, importes);
        auto* chk = control<QCheckBox>(f, "chk_Retencion");
        if (accion.endsWith(QStringLiteral("retención")) || accion == QStringLiteral("con retención otra vez"))
            chk->setChecked(true);
        if (accion == QStringLiteral("con retención otra vez"))
            chk->setChecked(false);
        if (accion == QLatin1String("borrar")) {
            m_e->respuestas << Respuesta::Si;
            f->cmd_Borrar_Click();
            QCOMPARE(lineas(f), QStringList());
            QCOMPARE(texto(f, "txt_Importe"), QStringLiteral("0,00"));
        }
        QCOMPARE(totales(f), esperado);
    }

    // Miles de facturas al azar con los dos juegos de tipos: la pantalla y un cálculo exacto en
    // céntimos enteros han de dar lo mismo, también "Sin retención" marcada antes o después. La
    // letra ha de ser la del total exacto.
    void cadenaAlAzar_data()
    {
        QTest::addColumn<int>("iva");
        QTest::addColumn<int>("irpf");
        QTest::newRow("16 y 15") << 16 << 15;
        QTest::newRow("21 y 15") << 21 << 15;
    }
    void cadenaAlAzar()
    {
        QFETCH(int, iva);
        QFETCH(int, irpf);
        sql("UPDATE Config SET IVA = ?, IRPF = ?", {iva, irpf});
        auto* f = factura();
        auto* lvw = control<QTreeWidget>(f, "lvw_Concepto");
        auto* chk = control<QCheckBox>(f, "chk_Retencion");
        QRandomGenerator azar(20080305u + quint32(iva));
        int importesProbados = 0;
        QStringList diferencias;
        for (int muestra = 0; muestra < 1500 && diferencias.size() < 5; ++muestra) {
            // Líneas de todos los tamaños, alguna negativa (un descuento); el total, positivo.
            QList<qint64> lineasCentimos;
            qint64 h = 0;
            while (lineasCentimos.isEmpty() || h <= 0) {
                lineasCentimos.clear();
                h = 0;
                const int n = 1 + int(azar.bounded(4));
                for (int i = 0; i < n; ++i) {
                    const int tamano = int(azar.bounded(10));
                    qint64 c = tamano < 5 ? azar.bounded(100000) : tamano < 9 ? azar.bounded(100000000) : qint64(azar.bounded(10000000000.0));
                    if (azar.bounded(10) == 0)
                        c = -c / 7;
                    lineasCentimos << c;
                    h += c;
                }
            }
            importesProbados += int(lineasCentimos.size());
            // Las líneas en la lista como las deja el diálogo, y una más que se borra: la suma.
            chk->setChecked(false);
            lvw->clear();
            for (const qint64 c : lineasCentimos) {
                auto* fila = new QTreeWidgetItem(lvw);
                fila->setText(0, QStringLiteral("x"));
                fila->setText(1, textoExacto(c));
            }
            const int modo = int(azar.bounded(4));  // 0 con retención, 1 sin ella antes, 2 después, 3 quitada y vuelta a poner
            if (modo == 1 || modo == 3)
                chk->setChecked(true);
            (new QTreeWidgetItem(lvw))->setText(1, QStringLiteral("1,00"));
            seleccionarLinea(f, lvw->topLevelItemCount() - 1);
            m_e->respuestas << Respuesta::Si;
            f->cmd_Borrar_Click();
            if (modo == 2)
                chk->setChecked(true);
            if (modo == 3)
                chk->setChecked(false);

            const qint64 i = porcentajeExacto(h, iva), total = h + i;
            const bool retiene = modo == 0 || modo == 3;
            const qint64 r = retiene ? porcentajeExacto(h, irpf) : 0, abonado = total - r;
            const QStringList esperado = {textoExacto(h), textoExacto(i), textoExacto(total), retiene ? textoExacto(r) : QStringLiteral("0"),
                                          textoExacto(abonado), enLetraExacta(abonado)};
            const QStringList obtenido = totales(f);
            if (obtenido != esperado)
                diferencias << QStringLiteral("líneas %1, modo %2: %3 / esperado %4")
                                   .arg(textoExacto(lineasCentimos.first()))
                                   .arg(modo)
                                   .arg(obtenido.join(QLatin1String(" | ")), esperado.join(QLatin1String(" | ")));
        }
        m_e->limpiarCuadros();
        QCOMPARE(diferencias, QStringList());
        QVERIFY(importesProbados > 2500);
    }

    // ------------------------------------------------------------ líneas y su diálogo

    // El diálogo de la línea: sus avisos, su filtro de teclas y el formato al salir del importe.
    void dialogoDeLinea_data()
    {
        QTest::addColumn<QString>("concepto");
        QTest::addColumn<QString>("tecleado");
        QTest::addColumn<QString>("trasSalir");   // texto del importe al salir del campo
        QTest::addColumn<QString>("aviso");       // vacío: se acepta
        QTest::addColumn<QString>("enLaLista");
        QTest::newRow("punto como coma") << "Proyecto básico" << "1234.5" << "1234,50" << "" << "Proyecto básico|1.234,50";
        QTest::newRow("coma delante") << "Visado" << ",5" << "0,50" << "" << "Visado|0,50";
        QTest::newRow("coma al final") << "Copias" << "12," << "12,00" << "" << "Copias|12,00";
        QTest::newRow("una coma y un menos") << "Descuento" << "--1,,5a" << "-1,50" << "" << "Descuento|-1,50";
        QTest::newRow("sin concepto") << "  " << "10" << "10,00"
                                      << "El concepto del detalle de la factura es obligatorio.\nPor favor, escriba un valor" << "";
        QTest::newRow("sin importe") << "Dirección de obra" << "" << "" << "El importe es obligatorio.\nPor favor, escriba un valor" << "";
        QTest::newRow("menos solo") << "Dirección de obra" << "-" << "-" << FORMATO_NO_VALIDO << "";
    }
    void dialogoDeLinea()
    {
        QFETCH(QString, concepto);
        QFETCH(QString, tecleado);
        QFETCH(QString, trasSalir);
        QFETCH(QString, aviso);
        QFETCH(QString, enLaLista);
        auto* f = factura();
        QString leido;
        conDialogo([&](frmAddModDetalleFacturaHonorarios* d) {
            control(d, "txt_Concepto")->setText(concepto);
            QTest::keyClicks(control(d, "txt_Importe"), tecleado);
            emit control(d, "txt_Importe")->editingFinished();
            leido = texto(d, "txt_Importe");
            d->cmd_Aceptar_Click();
            if (d->isVisible()) {
                m_e->respuestas << Respuesta::No;  // pregunta al salir: no guardar
                d->reject();
            }
        });
        f->cmd_Anadir_Click();
        QCOMPARE(leido, trasSalir);
        QCOMPARE(m_e->textos(), (aviso.isEmpty() ? QStringList() : QStringList{aviso, DatosImpreso::PREGUNTA_SALIR}));
        QCOMPARE(lineas(f), enLaLista.isEmpty() ? QStringList() : QStringList{enLaLista});
    }

    // Editar (también con doble clic) y borrar: sus avisos, la pregunta, y la suma.
    void editarYBorrar()
    {
        auto* f = factura();
        f->cmd_Editar_Click();
        f->cmd_Borrar_Click();
        QCOMPARE(m_e->textos(), (QStringList{"No hay líneas de detalle en la lista", "La lista de detalles de la factura está vacía"}));
        rellenarFactura(f, {"1000", "250"});
        m_e->limpiarCuadros();
        seleccionarLinea(f, -1);
        f->lvw_Concepto_DblClick();
        QCOMPARE(m_e->textos(), QStringList{"Por favor, seleccione una línea de detalle para modificar"});

        // La línea se abre con su importe "#,##0.00", sin cambios; se cambia el importe.
        m_e->limpiarCuadros();
        seleccionarLinea(f, 0);
        QString abierto;
        conDialogo([&](frmAddModDetalleFacturaHonorarios* d) {
            abierto = texto(d, "txt_Concepto") + "|" + texto(d, "txt_Importe");
            QVERIFY(!d->PreguntarGuardarCambios());
            escribirLinea(d, "Proyecto de ejecución", "1500");
            d->cmd_Aceptar_Click();
        });
        emit control<QTreeWidget>(f, "lvw_Concepto")->itemDoubleClicked(control<QTreeWidget>(f, "lvw_Concepto")->topLevelItem(0), 0);
        QCOMPARE(abierto, QStringLiteral("Concepto 1|1.000,00"));
        QCOMPARE(lineas(f), (QStringList{"Proyecto de ejecución|1.500,00", "Concepto 2|250,00"}));
        QCOMPARE(texto(f, "txt_Importe"), QStringLiteral("1.750,00"));

        // Borrar: "No" deja la línea; "Sí" la quita y vuelve a sumar.
        m_e->respuestas << Respuesta::No << Respuesta::Si;
        seleccionarLinea(f, 0);
        f->cmd_Borrar_Click();
        QCOMPARE(lineas(f).size(), 2);
        f->cmd_Borrar_Click();
        QCOMPARE(m_e->textos(), (QStringList{"¿Realmente desea eliminar la línea de detalle seleccionada?",
                                             "¿Realmente desea eliminar la línea de detalle seleccionada?"}));
        QCOMPARE(lineas(f), QStringList{"Concepto 2|250,00"});
        QCOMPARE(texto(f, "txt_Importe"), QStringLiteral("250,00"));
    }

    // Cerrar el diálogo con cambios pregunta: "Cancelar" lo deja abierto, "Sí" acepta la línea.
    void dialogoPreguntaAlSalir()
    {
        auto* f = factura();
        bool abiertoTrasCancelar = false;
        conDialogo([&](frmAddModDetalleFacturaHonorarios* d) {
            escribirLinea(d, "Estudio de seguridad", "300");
            m_e->respuestas << Respuesta::Cancelar << Respuesta::Si;
            d->reject();
            abiertoTrasCancelar = d->isVisible();
            d->reject();
        });
        f->cmd_Anadir_Click();
        QVERIFY(abiertoTrasCancelar);
        QCOMPARE(m_e->textos(), (QStringList{DatosImpreso::PREGUNTA_SALIR, DatosImpreso::PREGUNTA_SALIR}));
        QCOMPARE(lineas(f), QStringList{"Estudio de seguridad|300,00"});
    }

    // ------------------------------------------------------------ guardar e imprimir

    // Un "ALTA" guarda el histórico con el emisor de OTROS y la Agencia de Config, sus líneas con
    // la clave nueva, la fila temporal con el cliente del proyecto; se cierra y abre la lista de
    // su tipo (ninguna para el B4), con el informe de su tipo.
    void altaPorTipo_data()
    {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QString>("informe");
        QTest::addColumn<QString>("titulo");
        QTest::addColumn<QString>("lista");
        QTest::newRow("B1") << "B1" << "crImpresoB1" << "Factura de honorarios profesionales" << "B1";
        QTest::newRow("B3") << "B3" << "crImpresoB3" << "Retención a cuenta del I.R.P.F." << "B3";
        QTest::newRow("B4") << "B4" << "crImpresoB4" << "Certificado anual de retenciones a cuenta del I.R.P.F." << "";
    }
    void altaPorTipo()
    {
        QFETCH(QString, tipo);
        QFETCH(QString, informe);
        QFETCH(QString, titulo);
        QFETCH(QString, lista);
        const qint64 otra = facturaGuardada(12, 102, 10.0, 0.0);
        sql("INSERT INTO Detalle_Factura_Honorarios (Id_Factura, Concepto, Importe) VALUES (?, 'De otra factura', 10)", {otra});
        auto* f = factura(tipo);
        rellenarFactura(f, {"600", "400"});
        control(f, "txt_NumRegCliente")->setText(QStringLiteral("R-5"));
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList());
        QVERIFY(!cargada("frmDatosImpreso_B1_B3_B4"));
        auto* busqueda = Pantallas::cargada<frmBuscar>();
        QCOMPARE(busqueda ? busqueda->Tabla + "|" + busqueda->TipoImpreso : QString(), lista.isEmpty() ? QString() : "DATOSB1B3B4|" + lista);
        QCOMPARE(modInformes::Informe->nombre(), informe);
        QCOMPARE(Pantallas::cargada<frmVisorCrystal>()->windowTitle(), titulo);

        const auto h = filas("SELECT * FROM datosB1B3B4 WHERE Clave <> ?", {otra});
        QCOMPARE(h.size(), 1);
        const QString clave = t(h[0], "Clave");
        QCOMPARE(columnas(h[0], {"PRYCOD", "PRYNOM", "NUMFAC", "REGCLI", "ARQNOM", "ARQCOD", "ARQNIF", "ARQCP", "AgenciaTributaria", "LUGAR",
                                 "TXTABON"}),
                 (QStringList{"101", "Vivienda unifamiliar", "17/2008", "R-5", "Ana Ruiz Peña", "11", "11111111H", "22700", "Huesca", "Jaca",
                              "Mil diez euros"}));
        QCOMPARE((QList<double>{h[0]["IMPORTE"].toDouble(), h[0]["IVA"].toDouble(), h[0]["TOTAL"].toDouble(), h[0]["IRPF"].toDouble(),
                                h[0]["EURABON"].toDouble()}),
                 (QList<double>{1000, 160, 1160, 150, 1010}));
        QStringList escritas;
        for (const auto& l : filas("SELECT * FROM Detalle_Factura_Honorarios WHERE Id_Factura = ?", {clave}))
            escritas << t(l, "Concepto") + "|" + t(l, "Importe");
        QCOMPARE(escritas, (QStringList{"Concepto 1|600", "Concepto 2|400"}));

        const auto tmp = filas("SELECT * FROM B1B3B4");
        QCOMPARE(tmp.size(), 1);
        QCOMPARE(columnas(tmp[0], {"Id_Factura", "ARQ1NOM", "ARQ1MUN", "CLINOM", "CLINIF", "IMPORTE", "IRPF", "EURABON", "AgenciaTributaria"}),
                 (QStringList{clave, "Ana Ruiz Peña", "Jaca", "Lucía Ferrer Gil", "12345678Z", "1.000,00", "150,00", "1.010,00", "Huesca"}));

        // Lo impreso: la factura con sus líneas (sólo las suyas); el B3 con el año y los euros.
        const QStringList textos = textosInforme();
        if (tipo == QLatin1String("B1")) {
            for (const char* s : {"Concepto 1", "600,00", "Concepto 2", "400,00", "1.000,00", "160,00", "1.160,00", "150,00", "1.010,00",
                                     "Mil diez euros", "17/2008", "R-5", "Lucía Ferrer Gil"})
                QVERIFY2(textos.contains(QString::fromUtf8(s)), s);
            QVERIFY(textos.contains(NOTA_RETENCION));
            QVERIFY(!textos.contains(QStringLiteral("De otra factura")));
        } else if (tipo == QLatin1String("B3")) {
            for (const char* s : {"2008", "1.000,00€", "150,00€", "850,00€"})
                QVERIFY2(textos.contains(QString::fromUtf8(s)), s);
        } else {
            QCOMPARE(modInformes::Informe->datos().numero(), 0);  // lee B4, que esta pantalla no llena
        }
    }

    // "MODIFICAR": las líneas se borran y se escriben otra vez, la misma fila; los importes
    // guardados se ven aunque Config tenga hoy otro IVA, hasta el primer cambio de las líneas.
    void reabrirConOtroTipo()
    {
        auto* f = factura();
        rellenarFactura(f, {"1000"});
        control<QCheckBox>(f, "chk_Retencion")->setChecked(true);
        control(f, "txt_TotalAbonado_Texto")->setText(QStringLiteral("Mil ciento sesenta euros exactos"));
        imprimir(f);
        const qint64 clave = filas("SELECT Clave FROM datosB1B3B4")[0]["Clave"].toLongLong();
        sql("UPDATE Config SET IVA = 21");

        f = factura(QStringLiteral("B1"), QStringLiteral("MODIFICAR"), clave);
        QVERIFY(!f->hayCambios());
        QCOMPARE(control<QLabel>(f, "lbl_Iva")->text(), QStringLiteral("I.V.A. (21 %)"));
        QVERIFY(control<QCheckBox>(f, "chk_Retencion")->isChecked());
        QCOMPARE(totales(f), (QStringList{"1.000,00", "160,00", "1.160,00", "0", "1.160,00", "Mil ciento sesenta euros exactos"}));
        QCOMPARE(lineas(f), QStringList{"Concepto 1|1.000,00"});

        anadirLinea(f, QStringLiteral("Dirección de obra"), QStringLiteral("500"));
        QCOMPARE(totales(f), (QStringList{"1.500,00", "315,00", "1.815,00", "0", "1.815,00", "Mil ochocientos quince euros"}));
        imprimir(f);
        QVERIFY(cargada("frmDatosImpreso_B1_B3_B4"));
        QCOMPARE(filas("SELECT * FROM datosB1B3B4").size(), 1);
        QStringList escritas;
        for (const auto& l : filas("SELECT * FROM Detalle_Factura_Honorarios WHERE Id_Factura = ?", {clave}))
            escritas << t(l, "Concepto");
        QCOMPARE(escritas, (QStringList{"Concepto 1", "Dirección de obra"}));
        QCOMPARE(filas("SELECT Id_Factura FROM B1B3B4")[0]["Id_Factura"].toLongLong(), clave);
    }

    // Sin fila en Config la carga se detiene en su aviso: nada de valores por omisión.
    void sinConfig()
    {
        sql("DELETE FROM Config");
        auto* f = factura();
        QCOMPARE(m_e->textos(), QStringList{frmDatosImpreso_B1_B3_B4::AVISO_SIN_TIPOS});
        QCOMPARE(texto(f, "txt_Fecha") + texto(f, "txt_Lugar"), QString());
        QCOMPARE(control<QLabel>(f, "lbl_Iva")->text(), QStringLiteral("I.V.A."));
        QCOMPARE(f->tipoIva(), 0.0);
    }

    // El orden de las comprobaciones, y el foco en el campo de cada una.
    void validacion_data()
    {
        QTest::addColumn<QString>("falta");
        QTest::addColumn<QString>("aviso");
        QTest::addColumn<QString>("foco");
        QTest::newRow("proyecto") << "proyecto" << "Por favor, seleccione un proyecto" << "txt_Proyecto";
        QTest::newRow("emisor") << "emisor" << "Por favor, seleccione el emisor de la factura" << "txt_Emisor";
        QTest::newRow("lugar") << "lugar" << "Por favor, escriba el lugar (necesario para el pie del impreso)" << "txt_Lugar";
        QTest::newRow("líneas") << "líneas" << "Por favor, incluya al menos un concepto para la factura de honorarios" << "lvw_Concepto";
        QTest::newRow("importe de una línea") << "importe" << "Por favor, rellene todos los importes de las líneas de detalle que ha incluido"
                                              << "lvw_Concepto";
        QTest::newRow("concepto de una línea") << "concepto"
                                               << "Por favor, rellene todos los conceptos de las líneas de detalle que ha incluido"
                                               << "lvw_Concepto";
    }
    void validacion()
    {
        QFETCH(QString, falta);
        QFETCH(QString, aviso);
        QFETCH(QString, foco);
        frmMenu::instancia()->show();
        auto* f = factura();
        rellenarFactura(f, falta == QStringLiteral("líneas") ? QStringList{} : QStringList{"100"});
        if (falta == QLatin1String("proyecto"))
            control(f, "txt_CodProyecto")->clear();
        if (falta == QLatin1String("emisor"))
            f->img_Borrar_Click(1);
        if (falta == QLatin1String("lugar"))
            control(f, "txt_Lugar")->setText(QStringLiteral("  "));
        auto* lvw = control<QTreeWidget>(f, "lvw_Concepto");
        if (falta == QLatin1String("importe"))
            lvw->topLevelItem(0)->setText(1, QString());
        if (falta == QLatin1String("concepto"))
            (new QTreeWidgetItem(lvw))->setText(1, QStringLiteral("5,00"));
        f->activateWindow();
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList{aviso});
        QVERIFY(cargada("frmDatosImpreso_B1_B3_B4"));
        QVERIFY(filas("SELECT * FROM datosB1B3B4").isEmpty());
        QCOMPARE(f->focusWidget() ? f->focusWidget()->objectName() : QString(), foco);
    }

    // La pregunta al salir mira también las líneas y la retención.
    void preguntaAlSalir_data()
    {
        QTest::addColumn<QString>("cambio");
        QTest::addColumn<bool>("pregunta");
        QTest::newRow("nada") << "" << false;
        QTest::newRow("una línea más") << "línea" << true;
        QTest::newRow("sin retención") << "retención" << true;
        QTest::newRow("sólo mayúsculas") << "mayúsculas" << false;
    }
    void preguntaAlSalir()
    {
        QFETCH(QString, cambio);
        QFETCH(bool, pregunta);
        auto* f = factura();
        rellenarFactura(f, {"100"});
        imprimir(f);
        f = factura(QStringLiteral("B1"), QStringLiteral("MODIFICAR"), filas("SELECT Clave FROM datosB1B3B4")[0]["Clave"].toLongLong());
        if (cambio == QStringLiteral("línea"))
            anadirLinea(f, QStringLiteral("Otra"), QStringLiteral("1"));
        if (cambio == QStringLiteral("retención"))
            control<QCheckBox>(f, "chk_Retencion")->setChecked(true);
        if (cambio == QStringLiteral("mayúsculas"))
            control(f, "txt_Lugar")->setText(QStringLiteral("JACA"));
        m_e->respuestas << Respuesta::No;
        Pantallas::descargar(f);
        procesarEventos();
        QCOMPARE(m_e->textos(), pregunta ? QStringList{DatosImpreso::PREGUNTA_SALIR} : QStringList());
        QVERIFY(!cargada("frmDatosImpreso_B1_B3_B4"));
    }

    // Muchas líneas pasan a otra hoja, y los importes van tras la última.
    void facturaDeVariasHojas()
    {
        auto* f = factura();
        rellenarFactura(f, {});
        auto* lvw = control<QTreeWidget>(f, "lvw_Concepto");
        for (int i = 1; i <= 30; ++i) {
            auto* fila = new QTreeWidgetItem(lvw);
            fila->setText(0, QStringLiteral("Línea %1").arg(i));
            fila->setText(1, QStringLiteral("10,00"));
        }
        anadirLinea(f, QStringLiteral("Línea 31"), QStringLiteral("10"));
        QCOMPARE(texto(f, "txt_Importe"), QStringLiteral("310,00"));
        const QString letra = texto(f, "txt_TotalAbonado_Texto");
        QCOMPARE(letra, QStringLiteral("Trescientos trece euros con diez céntimos"));
        imprimir(f);
        QVERIFY(modInformes::Informe->numeroPaginas() >= 2);
        const QStringList textos = textosInforme();
        for (int i = 1; i <= 31; ++i)
            QCOMPARE(textos.count(QStringLiteral("Línea %1").arg(i)), 1);
        // Los totales, en la última hoja y tras la última línea.
        const QStringList ultima = textosInforme(modInformes::Informe->numeroPaginas() - 1);
        QVERIFY(ultima.indexOf(QStringLiteral("Línea 31")) >= 0);
        QVERIFY(ultima.indexOf(QStringLiteral("TOTAL ABONADO")) > ultima.indexOf(QStringLiteral("Línea 31")));
        QVERIFY(ultima.contains(letra));
    }

    // ------------------------------------------------------------ certificados

    // "Ajeno": la suma de todas las facturas del arquitecto a los proyectos del cliente, de
    // cualquier año; sin retención cuentan con 0; sin facturas, nulos y celdas vacías.
    void certificadoAjeno_data()
    {
        QTest::addColumn<qint64>("perceptor");
        QTest::addColumn<qint64>("pagador");
        QTest::addColumn<QStringList>("esperado");  // Rendimientos, Retencion, ImporteIntegro en B4
        QTest::newRow("dos años") << qint64(11) << qint64(1) << QStringList{"2.000,00", "300,00", "1.700,00"};
        QTest::newRow("una sin retención") << qint64(11) << qint64(2) << QStringList{"1.700,00", "0,00", "1.700,00"};
        QTest::newRow("sin facturas") << qint64(12) << qint64(2) << QStringList{"", "", ""};
    }
    void certificadoAjeno()
    {
        QFETCH(qint64, perceptor);
        QFETCH(qint64, pagador);
        QFETCH(QStringList, esperado);
        facturaGuardada(11, 101, 1000.0, 150.0, QStringLiteral("20 de diciembre de 2007"));
        facturaGuardada(11, 103, 1000.0, 150.0, QStringLiteral("8 de enero de 2008"));
        facturaGuardada(11, 102, 1000.0, 0.0);
        facturaGuardada(11, 102, 700.0, 0.0);
        facturaGuardada(12, 101, 500.0, 75.0);
        facturaGuardada(11, 104, 300.0, 45.0);  // proyecto sin cliente: no es de nadie
        imprimir(certificado(QStringLiteral("B4_A"), perceptor, pagador));
        QCOMPARE(m_e->textos(), QStringList());

        const auto h = filas("SELECT * FROM datosB4");
        QCOMPARE(h.size(), 1);
        QCOMPARE(columnas(h[0], {"TipoCertificado", "Ejercicio", "PERCOD", "PAGCOD", "AgenciaTributaria", "LUGAR"}),
                 (QStringList{"A", "2009", QString::number(perceptor), QString::number(pagador), "Huesca", "Jaca"}));
        QVERIFY(h[0]["TipoPerceptor"].isNull() && h[0]["FechaPresentacion"].isNull());
        const auto tmp = filas("SELECT * FROM B4");
        QCOMPARE(tmp.size(), 1);
        QStringList importes;
        for (const char* c : {"Rendimientos", "Retencion", "ImporteIntegro"}) {
            importes << t(tmp[0], c);
            QCOMPARE(h[0][c].isNull(), esperado[0].isEmpty());
            QCOMPARE(tmp[0][c].isNull(), esperado[0].isEmpty());
        }
        QCOMPARE(importes, esperado);
        if (!esperado[0].isEmpty())
            QCOMPARE(h[0]["ImporteIntegro"].toDouble(), Formato::aNumero(esperado[2]));

        QCOMPARE(modInformes::Informe->nombre(), QStringLiteral("crImpresoB4"));
        const QStringList textos = textosInforme();
        for (const QString& s : esperado)
            QCOMPARE(textos.contains(s), !s.isEmpty());
        auto* lista = Pantallas::cargada<frmBuscar>();
        QCOMPARE(lista ? lista->Tabla + "|" + lista->TipoImpreso : QString(), QStringLiteral("DATOSB4|B4_A"));
    }

    // "Propio": el perceptor por su familia (aquí un contratista), el arquitecto que paga, y los
    // importes escritos: "0.00" en pantalla, "#,##0.00" en las tablas.
    void certificadoPropio()
    {
        frmMenu::instancia()->show();
        DatosImpreso* f = abrir({QStringLiteral("DATOSB4"), QStringLiteral("B4_P")}, QStringLiteral("ALTA"));
        control<QToolButton>(f, "img_Buscar_0")->click();
        auto* tipo = Pantallas::cargada<frmSeleccionarTipoPerceptor>();
        QVERIFY(tipo);
        control<QRadioButton>(tipo, "opt_Perceptor_2")->setChecked(true);
        tipo->cmd_Seleccionar_Click();
        procesarEventos();
        auto* s = Pantallas::cargada<frmBuscarSeleccionar>();
        QVERIFY(s);
        QCOMPARE(s->Tabla, QStringLiteral("CONTRATISTAS"));
        QVERIFY(texto(f, "txt_TipoPerceptor").isEmpty());  // el tipo llega con la persona
        s->seleccionarFila(0);
        s->cmd_Seleccionar_Click();
        procesarEventos();
        QCOMPARE(textos(f, {"txt_TipoPerceptor", "txt_CodPerceptor", "txt_Perceptor"}), (QStringList{"CO", "30", "Obras Duero SA"}));
        control<QToolButton>(f, "img_Buscar_1")->click();
        QVERIFY(elegir(11));
        QCOMPARE(texto(f, "txt_Pagador"), QStringLiteral("Ana Ruiz Peña"));

        // Elegir otra familia y cerrar el selector sin elegir no cambia el tipo de quien ya está.
        control<QToolButton>(f, "img_Buscar_0")->click();
        control<QRadioButton>(Pantallas::cargada<frmSeleccionarTipoPerceptor>(), "opt_Perceptor_3")->setChecked(true);
        Pantallas::cargada<frmSeleccionarTipoPerceptor>()->cmd_Seleccionar_Click();
        Pantallas::descargar(Pantallas::cargada<frmBuscarSeleccionar>());
        procesarEventos();
        QCOMPARE(texto(f, "txt_TipoPerceptor"), QStringLiteral("CO"));

        control(f, "txt_Ejercicio")->setText(QStringLiteral("2009"));
        for (const auto& [campo, valor] : {std::pair{"txt_Rendimientos", "1234,5"}, std::pair{"txt_Retencion", "234,5"}}) {
            control(f, campo)->setText(QString::fromLatin1(valor));
            emit control(f, campo)->editingFinished();
        }
        QCOMPARE(textos(f, {"txt_Rendimientos", "txt_Retencion", "txt_ImporteIntegro"}), (QStringList{"1234,50", "234,50", "1000,00"}));
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList());
        const auto h = filas("SELECT * FROM datosB4");
        QCOMPARE(h.size(), 1);
        QCOMPARE(columnas(h[0], {"TipoCertificado", "TipoPerceptor", "PERNOM", "PERNIF", "PERCP", "PAGNOM", "PAGCOD", "Ejercicio"}),
                 (QStringList{"P", "CO", "Obras Duero SA", "A33333333", "42001", "Ana Ruiz Peña", "11", "2009"}));
        QCOMPARE((QList<double>{h[0]["Rendimientos"].toDouble(), h[0]["Retencion"].toDouble(), h[0]["ImporteIntegro"].toDouble()}),
                 (QList<double>{1234.5, 234.5, 1000}));
        const auto tmp = filas("SELECT * FROM B4");
        QCOMPARE(columnas(tmp[0], {"Rendimientos", "Retencion", "ImporteIntegro"}), (QStringList{"1.234,50", "234,50", "1.000,00"}));
        auto* lista = Pantallas::cargada<frmBuscar>();
        QCOMPARE(lista ? lista->TipoImpreso : QString(), QStringLiteral("B4_P"));
    }

    // Los importes del "propio" al salir de cada campo; sólo el íntegro repara "-,".
    void importesPropio_data()
    {
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("tecleado");
        QTest::addColumn<QString>("pantalla");
        QTest::addColumn<QString>("tabla");  // en B4 tras imprimir
        QTest::newRow("rendimientos") << "txt_Rendimientos" << "1234.5" << "1234,50" << "1.234,50";
        QTest::newRow("coma delante") << "txt_Rendimientos" << ",5" << "0,50" << "0,50";
        QTest::newRow("coma detrás") << "txt_Retencion" << "12," << "12,00" << "12,00";
        QTest::newRow("íntegro negativo") << "txt_ImporteIntegro" << "-,5" << "-0,50" << "-0,50";
        QTest::newRow("millones") << "txt_ImporteIntegro" << "1234567,891" << "1234567,89" << "1.234.567,89";
        QTest::newRow("vacío") << "txt_Retencion" << "" << "" << "";
    }
    void importesPropio()
    {
        QFETCH(QString, campo);
        QFETCH(QString, tecleado);
        QFETCH(QString, pantalla);
        QFETCH(QString, tabla);
        DatosImpreso* f = certificado(QStringLiteral("B4_P"), 11, 11);
        escribir(f, "txt_TipoPerceptor", QStringLiteral("AR"));
        QLineEdit* c = control(f, campo);
        QTest::keyClicks(c, tecleado);
        emit c->editingFinished();
        QCOMPARE(c->text(), pantalla);
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList());
        const QString columna = campo.mid(4);
        QCOMPARE(filas("SELECT * FROM B4")[0].value(columna).toString(), tabla);
        QCOMPARE(filas("SELECT * FROM datosB4")[0].value(columna).isNull(), tabla.isEmpty());
    }

    // Fecha de presentación: vacía se guarda nula y se vuelve a ver "__/__/____".
    void fechaPresentacion_data()
    {
        QTest::addColumn<QString>("tecleada");
        QTest::addColumn<QVariant>("guardada");
        QTest::addColumn<QString>("alReabrir");
        QTest::newRow("vacía") << "" << QVariant() << "__/__/____";
        QTest::newRow("con fecha") << "05032009" << QVariant("2009-03-05") << "05/03/2009";
    }
    void fechaPresentacion()
    {
        QFETCH(QString, tecleada);
        QFETCH(QVariant, guardada);
        QFETCH(QString, alReabrir);
        DatosImpreso* f = certificado(QStringLiteral("B4_A"));
        QLineEdit* msk = control(f, "msk_FechaPresentacion");
        QCOMPARE(msk->displayText(), QStringLiteral("__/__/____"));
        msk->setCursorPosition(0);
        QTest::keyClicks(msk, tecleada);
        imprimir(f);
        const auto h = filas("SELECT * FROM datosB4");
        QCOMPARE(h[0]["FechaPresentacion"].isNull(), guardada.isNull());
        QCOMPARE(h[0]["FechaPresentacion"].toString(), guardada.toString());
        f = abrir({QStringLiteral("DATOSB4"), QStringLiteral("B4_A")}, QStringLiteral("MODIFICAR"), h[0]["Clave"].toLongLong());
        QCOMPARE(control(f, "msk_FechaPresentacion")->displayText(), alReabrir);
        QVERIFY(!f->hayCambios());
        if (!guardada.isNull())
            QVERIFY(textosInforme().contains(alReabrir));
    }

    // Comprobaciones de los dos certificados, en su orden.
    void validacionCertificados_data()
    {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QString>("falta");
        QTest::addColumn<QString>("aviso");
        for (const char* tipo : {"B4_A", "B4_P"}) {
            const QString p = QString::fromLatin1(tipo) + QLatin1Char(' ');
            QTest::newRow(qPrintable(p + "perceptor")) << tipo << "perceptor" << "Por favor, seleccione un perceptor";
            QTest::newRow(qPrintable(p + "pagador")) << tipo << "pagador" << "Por favor, seleccione un pagador";
            QTest::newRow(qPrintable(p + "ejercicio")) << tipo << "ejercicio" << "Por favor, proporcione el año del ejercicio";
            QTest::newRow(qPrintable(p + "fecha")) << tipo << "fecha" << "El día del mes no es válido. Inserte un día entre 1 y 28";
            QTest::newRow(qPrintable(p + "fecha del pie")) << tipo << "pie" << "Por favor, escriba la fecha (necesaria para el pie del impreso)";
        }
        QTest::newRow("B4_P importe") << "B4_P" << "importe" << FORMATO_NO_VALIDO;
    }
    void validacionCertificados()
    {
        QFETCH(QString, tipo);
        QFETCH(QString, falta);
        QFETCH(QString, aviso);
        DatosImpreso* f = abrir({QStringLiteral("DATOSB4"), tipo}, QStringLiteral("ALTA"));
        // Todo escrito salvo lo que falta en cada caso.
        const QList<std::pair<QString, QStringList>> campos = {{"perceptor", {"txt_CodPerceptor=11", "txt_Perceptor=Ana"}},
                                                               {"pagador", {"txt_CodPagador=1", "txt_Pagador=Lucía"}},
                                                               {"ejercicio", {"txt_Ejercicio=2009"}}};
        for (const auto& [grupo, pares] : campos)
            if (grupo != falta)
                for (const QString& par : pares)
                    control(f, par.section('=', 0, 0))->setText(par.section('=', 1));
        if (falta == QLatin1String("fecha"))
            control(f, "msk_FechaPresentacion")->setText(QStringLiteral("31/02/2009"));
        if (falta == QLatin1String("pie"))
            control(f, "txt_Fecha")->clear();
        if (falta == QLatin1String("importe"))
            control(f, "txt_Retencion")->setText(QStringLiteral("-"));
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList{aviso});
        QVERIFY(filas("SELECT * FROM datosB4").isEmpty());
    }

    // Perceptor o pagador borrados entre tanto: su aviso en el histórico y en la temporal, y sus
    // columnas sin poner; lo demás sigue.
    void personasNoHalladas()
    {
        DatosImpreso* f = certificado(QStringLiteral("B4_A"), 11, 9);
        sql("DELETE FROM OTROS WHERE Codigo_Cli = 11");
        imprimir(f);
        const QString per = QStringLiteral("No se han podido cargar los datos del perceptor");
        const QString pag = QStringLiteral("No se han podido cargar los datos del pagador");
        QCOMPARE(m_e->textos(), (QStringList{per, pag, per, pag}));
        const auto h = filas("SELECT * FROM datosB4");
        QVERIFY(h[0]["PERNOM"].isNull() && h[0]["PAGNOM"].isNull());
        QCOMPARE(t(h[0], "AgenciaTributaria"), QStringLiteral("Huesca"));
    }

    // ------------------------------------------------------------ impresos en blanco

    // Desde la lista: la factura en blanco no trae líneas de ninguna factura guardada.
    void enBlanco_data()
    {
        QTest::addColumn<int>("codigo");
        QTest::addColumn<QString>("informe");
        QTest::newRow("B1") << 9 << "crImpresoB1";
        QTest::newRow("B3") << 10 << "crImpresoB3";
        QTest::newRow("B4") << 11 << "crImpresoB4";
    }
    void enBlanco()
    {
        QFETCH(int, codigo);
        QFETCH(QString, informe);
        const qint64 guardada = facturaGuardada(11, 101, 10.0, 0.0);
        sql("INSERT INTO Detalle_Factura_Honorarios (Id_Factura, Concepto, Importe) VALUES (?, 'Línea guardada', 10)", {guardada});
        sql("INSERT INTO B1B3B4 (NUMFAC, Id_Factura) VALUES ('vieja', ?)", {guardada});
        QVERIFY(generarImpresoEnBlanco(codigo));
        QCOMPARE(modInformes::Informe->nombre(), informe);
        QCOMPARE(modInformes::Informe->numeroPaginas(), 1);
        const QStringList textos = textosInforme();
        QVERIFY(!textos.contains(QStringLiteral("Línea guardada")) && !textos.contains(QStringLiteral("vieja")));
        // La factura en blanco lleva igual sus importes y su nota, tras la cabecera de las líneas.
        if (codigo == 9)
            QVERIFY(textos.indexOf(QStringLiteral("TOTAL ABONADO")) > textos.indexOf(QStringLiteral("4. CONCEPTOS FACTURADOS"))
                    && textos.contains(NOTA_RETENCION));
    }
};

PRUEBA_PANTALLAS(tst_impresos_facturas)
#include "tst_impresos_facturas.moc"
#include "moc_PruebaImpresos.cpp"
