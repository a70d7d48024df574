// Reparto de los porcentajes de participación y diálogo frmOpcionesArquitecto.
#include "core/modFunciones.h"
#include "masterdata/Porcentajes.h"
#include "masterdata/frmOpcionesArquitecto.h"
#include "tests/comun/EntornoPrueba.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QTreeWidget>
#include <QtTest>

using Mensajes::Respuesta;

namespace {

const QString SIN_PORCENTAJE = QStringLiteral(
    "Se han hallado en la lista de arquitectos asociados al proyecto arquitectos sin porcentaje de participación.\n"
    "¿Desea que el programa reparta proporcionalmente el porcentaje de participación entre todos los arquitectos presentes en dicha lista?");
const QString YA_HAY_SOCIEDAD = QStringLiteral(
    "Ya ha incluido una sociedad como su propia sociedad y sólo puede existir una como tal.\n"
    "Por favor, desmárquela como su propia sociedad antes de continuar");
const QString NO_ES_SOCIEDAD = QStringLiteral(
    "El arquitecto seleccionado no es una sociedad.\n"
    "Se trata de una persona física, por lo que no se puede establecer como la propia sociedad");
const QString SIN_DATOS = QStringLiteral("No se ha podido obtener los datos del arquitecto para comprobar si es sociedad o no");

// Lista como la de la ficha de proyecto: nombre (con casilla), número, "% Part.", "Es autor".
QTreeWidget* lista(QWidget* padre = nullptr)
{
    auto* lvw = new QTreeWidget(padre);
    lvw->setObjectName(QStringLiteral("lvw_Arquitectos"));
    lvw->setColumnCount(4);
    return lvw;
}

QTreeWidgetItem* fila(QTreeWidget* lvw, qint64 codigo, const QString& porcentaje = {}, bool sociedad = false)
{
    auto* f = new QTreeWidgetItem(lvw, {QStringLiteral("Arquitecto %1").arg(codigo), QString::number(1000 + codigo), porcentaje,
                                        QStringLiteral("NO")});
    ponerClaveFila(f, QStringLiteral("K%1").arg(codigo));
    f->setCheckState(0, Qt::Unchecked);
    if (sociedad)
        pintarFila(f, COLOR_PROPIA_SOCIEDAD);
    return f;
}

QStringList porcentajes(const QTreeWidget* lvw)
{
    QStringList l;
    for (int i = 0; i < lvw->topLevelItemCount(); ++i)
        l << lvw->topLevelItem(i)->text(COLUMNA_PORCENTAJE);
    return l;
}

QStringList repetir(int veces, const QString& texto) { return QStringList(veces, texto); }

}  // namespace

class tst_porcentajes : public QObject {
    Q_OBJECT

private slots:
    void cleanup()
    {
        for (QWidget* w : Pantallas::cargadas())
            delete w;
        procesarEventos();
    }

    // Dos redondeos: "###0.00" y después al entero par más próximo.
    void cuota_data()
    {
        QTest::addColumn<int>("miembros");
        QTest::addColumn<int>("cuota");
        for (auto [m, c] : {std::pair{1, 100}, {2, 50}, {3, 33}, {6, 17}, {7, 14}, {8, 12}, {40, 2}, {101, 1}, {201, 0}})
            QTest::addRow("%d", m) << m << c;
    }
    void cuota()
    {
        QFETCH(int, miembros);
        QFETCH(int, cuota);
        QCOMPARE(int(cuotaParticipacion(miembros)), cuota);
    }

    // sociedad: -1 sin ella; si no, posición de su fila entre las de los arquitectos.
    void reparto_data()
    {
        QTest::addColumn<int>("arquitectos");
        QTest::addColumn<int>("sociedad");
        QTest::addColumn<QStringList>("esperado");
        const QStringList sin[] = {{},
                                   {"100,00"},
                                   {"50,00", "50,00"},
                                   {"33,00", "33,00", "34,00"},
                                   repetir(4, "25,00"),
                                   repetir(5, "20,00"),
                                   repetir(5, "17,00") << "15,00",
                                   repetir(6, "14,00") << "16,00",
                                   repetir(7, "12,00") << "16,00"};
        for (int n = 1; n <= 8; ++n) {
            QTest::addRow("%d sin sociedad", n) << n << -1 << sin[n];
            QTest::addRow("%d con la sociedad primero", n) << n << 0 << (QStringList{QString()} + sin[n]);
        }
        QTest::newRow("sólo la sociedad") << 0 << 0 << QStringList{QString()};
        QTest::newRow("sociedad al final: suma 99") << 3 << 3 << QStringList{"33,00", "33,00", "33,00", QString()};
        QTest::newRow("un arquitecto y la sociedad debajo") << 1 << 1 << QStringList{"100,00", QString()};
        QTest::newRow("sociedad en medio") << 3 << 1 << QStringList{"33,00", QString(), "33,00", "34,00"};
        QTest::newRow("101 filas") << 101 << -1 << (repetir(100, "1,00") << "0,00");
        QTest::newRow("201 filas") << 201 << -1 << (repetir(200, "0,00") << "100,00");
        QTest::newRow("40 filas") << 40 << -1 << (repetir(39, "2,00") << "22,00");
    }
    void reparto()
    {
        QFETCH(int, arquitectos);
        QFETCH(int, sociedad);
        QFETCH(QStringList, esperado);
        std::unique_ptr<QTreeWidget> lvw(lista());
        for (int i = 0; i <= arquitectos; ++i) {
            if (i == sociedad)
                fila(lvw.get(), 500, QStringLiteral("7,00"), true);
            if (i < arquitectos)
                fila(lvw.get(), i + 1, QStringLiteral("99,00"));  // lo escrito por el usuario se pisa
        }
        calcularPorcentajesParticipacion(lvw.get());
        QCOMPARE(porcentajes(lvw.get()), esperado);
        // Una segunda vuelta da lo mismo.
        calcularPorcentajesParticipacion(lvw.get());
        QCOMPARE(porcentajes(lvw.get()), esperado);
    }

    // Sin argumentos: la lista de la ficha de proyecto cargada, y nada sin ella.
    void repartoEnFichaProyecto()
    {
        calcularPorcentajesParticipacion();  // sin ficha: nada
        calcularPorcentajesParticipacion(static_cast<QTreeWidget*>(nullptr));
        std::unique_ptr<QTreeWidget> vacia(lista());
        calcularPorcentajesParticipacion(vacia.get());
        QCOMPARE(vacia->topLevelItemCount(), 0);

        auto* otra = new Pantalla;
        otra->setObjectName(QStringLiteral("frmCliente"));
        QTreeWidget* ajena = lista(otra);
        fila(ajena, 1);
        auto* proyecto = new Pantalla;
        proyecto->setObjectName(QStringLiteral("frmProyecto"));
        QTreeWidget* lvw = lista(proyecto);
        fila(lvw, 1);
        fila(lvw, 2);
        fila(lvw, 3);
        calcularPorcentajesParticipacion();
        QCOMPARE(porcentajes(lvw), (QStringList{"33,00", "33,00", "34,00"}));
        QCOMPARE(porcentajes(ajena), QStringList{QString()});
    }

    void teclas_data()
    {
        QTest::addColumn<QString>("inicial");
        QTest::addColumn<bool>("todo");
        QTest::addColumn<QString>("teclas");
        QTest::addColumn<QString>("esperado");
        QTest::newRow("punto como coma") << "" << false << "12.5" << "12,5";
        QTest::newRow("una sola coma") << "" << false << "1,2,3" << "1,23";
        QTest::newRow("punto tras coma") << "1,5" << false << "." << "1,5";
        QTest::newRow("coma con todo seleccionado") << "1,5" << true << "," << ",";
        QTest::newRow("punto con todo seleccionado") << "1,5" << true << "." << ",";
        QTest::newRow("sin letras ni signo") << "" << false << "-a7 b" << "7";
        QTest::newRow("cinco caracteres") << "" << false << "100,00" << "100,0";
    }
    void teclas()
    {
        QFETCH(QString, inicial);
        QFETCH(bool, todo);
        QFETCH(QString, teclas);
        QFETCH(QString, esperado);
        std::unique_ptr<QTreeWidget> lvw(lista());
        fila(lvw.get(), 1, inicial)->setSelected(true);
        std::unique_ptr<frmOpcionesArquitecto> f(prepararOpcionesArquitecto(lvw.get()));
        QVERIFY(f);
        auto* txt = f->findChild<QLineEdit*>(QStringLiteral("txt_Porcentaje"));
        QCOMPARE(txt->maxLength(), 5);
        if (todo)
            txt->selectAll();
        else
            txt->end(false);
        QTest::keyClicks(txt, teclas);
        QCOMPARE(txt->text(), esperado);
    }

    void apertura()
    {
        EntornoPrueba e;
        std::unique_ptr<QTreeWidget> lvw(lista());
        QVERIFY(!prepararOpcionesArquitecto(lvw.get()));
        fila(lvw.get(), 1, QStringLiteral("60,00"));
        QTreeWidgetItem* soc = fila(lvw.get(), 2, QString(), true);
        QVERIFY(!prepararOpcionesArquitecto(lvw.get()));
        QCOMPARE(e.cuadros.size(), 2);
        QCOMPARE(e.cuadros[0].titulo, QStringLiteral("Información"));
        QCOMPARE(e.cuadros[0].texto, QStringLiteral("No hay arquitectos en la lista"));
        QCOMPARE(e.cuadros[1].titulo, QStringLiteral("Aviso"));
        QCOMPARE(e.cuadros[1].texto, QStringLiteral("Por favor, seleccione un arquitecto para modificar su porcentaje de participación"));

        lvw->topLevelItem(0)->setSelected(true);
        std::unique_ptr<frmOpcionesArquitecto> f(prepararOpcionesArquitecto(lvw.get()));
        auto* txt = f->findChild<QLineEdit*>(QStringLiteral("txt_Porcentaje"));
        auto* chk = f->findChild<QCheckBox*>(QStringLiteral("chk_Sociedad"));
        QCOMPARE(txt->text(), QStringLiteral("60,00"));
        QCOMPARE(f->porcentajeOriginal, QStringLiteral("60,00"));
        QVERIFY(!chk->isChecked() && txt->isEnabled());
        QCOMPARE(chk->text(), QStringLiteral("Es propia sociedad"));
        QCOMPARE(chk->toolTip(), QStringLiteral("Marque esta casilla si el arquitecto que está editando es su propia sociedad"));
        chk->click();
        QVERIFY(!txt->isEnabled());
        f.reset();

        lvw->clearSelection();
        soc->setSelected(true);
        f.reset(prepararOpcionesArquitecto(lvw.get()));
        QVERIFY(f->findChild<QCheckBox*>(QStringLiteral("chk_Sociedad"))->isChecked());
        QVERIFY(!f->findChild<QLineEdit*>(QStringLiteral("txt_Porcentaje"))->isEnabled());
        QCOMPARE(f->fila(), soc);
    }

    // cmd_Aceptar: cada rama, sus mensajes, la pregunta del reparto y el cierre del diálogo.
    // Filas: K1 y K2 personas, K3 esS nulo, K4 la sociedad (esS 1), K5 sin ficha, K6 otra sociedad.
    void aceptar_data()
    {
        QTest::addColumn<QStringList>("inicial");     // porcentajes; "S" marca la propia sociedad
        QTest::addColumn<int>("editada");
        QTest::addColumn<bool>("marcar");
        QTest::addColumn<QString>("escrito");
        QTest::addColumn<QList<Respuesta>>("respuestas");
        QTest::addColumn<QStringList>("mensajes");
        QTest::addColumn<QStringList>("final");        // porcentajes; "S..." la fila azul
        QTest::addColumn<bool>("cerrado");

        QTest::newRow("porcentaje escrito") << QStringList{"50,00", "50,00"} << 1 << false << "12,5" << QList<Respuesta>{} << QStringList{}
                                            << QStringList{"50,00", "12,50"} << true;
        QTest::newRow("porcentaje vacío, no repartir") << QStringList{"50,00", "50,00"} << 1 << false << "" << QList<Respuesta>{Respuesta::No}
                                                       << QStringList{SIN_PORCENTAJE} << QStringList{"50,00", ""} << true;
        QTest::newRow("porcentaje vacío, repartir") << QStringList{"50,00", "50,00"} << 1 << false << "" << QList<Respuesta>{Respuesta::Si}
                                                    << QStringList{SIN_PORCENTAJE} << QStringList{"50,00", "50,00"} << true;
        QTest::newRow("persona física") << QStringList{"50,00", "50,00"} << 1 << true << "" << QList<Respuesta>{} << QStringList{NO_ES_SOCIEDAD}
                                        << QStringList{"50,00", "50,00"} << true;
        QTest::newRow("esS nulo") << QStringList{"50,00", "20,00", "30,00"} << 2 << true << "" << QList<Respuesta>{}
                                  << QStringList{NO_ES_SOCIEDAD} << QStringList{"50,00", "20,00", "30,00"} << true;
        QTest::newRow("sin ficha") << QStringList{"50,00", "20,00", "30,00", "0,00", "7,00"} << 4 << true << "" << QList<Respuesta>{}
                                   << QStringList{SIN_DATOS} << QStringList{"50,00", "20,00", "30,00", "0,00", "7,00"} << true;
        QTest::newRow("sociedad nueva") << QStringList{"40,00", "30,00", "10,00", "20,00"} << 3 << true << "" << QList<Respuesta>{}
                                        << QStringList{} << QStringList{"40,00", "30,00", "10,00", "S"} << true;
        QTest::newRow("sociedad nueva, repartir") << QStringList{"40,00", "", "10,00", "20,00"} << 3 << true << ""
                                                  << QList<Respuesta>{Respuesta::Si} << QStringList{SIN_PORCENTAJE}
                                                  << QStringList{"33,00", "33,00", "33,00", "S"} << true;  // sociedad al final: nadie lleva el resto
        // Ya hay una sociedad y la fila editada tenía porcentaje: se rechaza y el diálogo sigue.
        QTest::newRow("segunda sociedad") << QStringList{"50,00", "50,00", "", "S", "", "25,00"} << 5 << true << "" << QList<Respuesta>{}
                                          << QStringList{YA_HAY_SOCIEDAD} << QStringList{"50,00", "50,00", "", "S", "", "25,00"} << false;
        // La comparación es por porcentaje: con el porcentaje vacío pasa y la anterior pierde la marca.
        QTest::newRow("segunda sociedad sin porcentaje") << QStringList{"50,00", "50,00", "", "S", "", ""} << 5 << true << ""
                                                         << QList<Respuesta>{Respuesta::No} << QStringList{SIN_PORCENTAJE}
                                                         << QStringList{"50,00", "50,00", "", "", "", "S"} << true;
        QTest::newRow("se quita la marca de sociedad") << QStringList{"50,00", "50,00", "", "S"} << 3 << false << ""
                                                       << QList<Respuesta>{Respuesta::Si} << QStringList{SIN_PORCENTAJE}
                                                       << QStringList{"25,00", "25,00", "25,00", "25,00"} << true;
    }
    void aceptar()
    {
        QFETCH(QStringList, inicial);
        QFETCH(int, editada);
        QFETCH(bool, marcar);
        QFETCH(QString, escrito);
        QFETCH(QList<Respuesta>, respuestas);
        QFETCH(QStringList, mensajes);
        QFETCH(QStringList, final);
        QFETCH(bool, cerrado);

        EntornoPrueba e;
        e.conectar();
        {
            UsoConexion uso;
            const QVariant esS[] = {0, 0, QVariant(), 1, QVariant(), 1};
            for (int i = 0; i < 6; ++i)
                if (i != 4)
                    ejecutar(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, Nombre_Cli) VALUES (?, 'Arquitecto', ?, ?)"),
                             {i + 1, esS[i], QStringLiteral("N%1").arg(i + 1)});
        }
        std::unique_ptr<QTreeWidget> lvw(lista());
        for (int i = 0; i < inicial.size(); ++i) {
            const bool soc = inicial[i] == QLatin1String("S");
            QTreeWidgetItem* f = fila(lvw.get(), i + 1, soc ? QString() : inicial[i], soc);
            if (i == editada) {
                f->setCheckState(0, Qt::Checked);
                f->setSelected(true);
            }
        }
        std::unique_ptr<frmOpcionesArquitecto> f(prepararOpcionesArquitecto(lvw.get()));
        QVERIFY(f);
        f->findChild<QCheckBox*>(QStringLiteral("chk_Sociedad"))->setChecked(marcar);
        f->findChild<QLineEdit*>(QStringLiteral("txt_Porcentaje"))->setText(escrito);
        e.respuestas = respuestas;
        f->cmd_Aceptar_Click();

        QCOMPARE(e.textos(), mensajes);
        for (const auto& c : e.cuadros)
            QCOMPARE(c.titulo, c.texto == SIN_PORCENTAJE ? QStringLiteral("Pregunta") : QStringLiteral("Aviso"));
        QCOMPARE(f->result() == QDialog::Accepted, cerrado);
        QStringList obtenido;
        for (int i = 0; i < lvw->topLevelItemCount(); ++i) {
            QTreeWidgetItem* fi = lvw->topLevelItem(i);
            obtenido << (esPropiaSociedad(fi) ? QStringLiteral("S") + fi->text(COLUMNA_PORCENTAJE) : fi->text(COLUMNA_PORCENTAJE));
            for (int c = 1; c <= 3; ++c)
                QCOMPARE(fi->foreground(c).color(), fi->foreground(0).color());
        }
        QCOMPARE(obtenido, final);
        // La nueva sociedad pierde la casilla; las demás filas la conservan.
        QTreeWidgetItem* ed = lvw->topLevelItem(editada);
        QCOMPARE(ed->checkState(0), esPropiaSociedad(ed) ? Qt::Unchecked : Qt::Checked);
        QCOMPARE(e.entradasLog(), 0);
    }

    void casillaDeLaSociedad()
    {
        EntornoPrueba e;
        std::unique_ptr<QTreeWidget> lvw(lista());
        QTreeWidgetItem* arq = fila(lvw.get(), 1, QStringLiteral("100,00"));
        QTreeWidgetItem* soc = fila(lvw.get(), 2, QString(), true);
        conectarItemCheckArquitectos(lvw.get());
        arq->setCheckState(0, Qt::Checked);
        QVERIFY(e.cuadros.isEmpty());
        QCOMPARE(arq->checkState(0), Qt::Checked);
        soc->setCheckState(0, Qt::Checked);
        QCOMPARE(e.textos(), QStringList{QStringLiteral("No se puede incluir a la propia sociedad como arquitecto perteneciente a ella misma")});
        QCOMPARE(e.cuadros[0].titulo, QStringLiteral("Aviso"));
        QCOMPARE(soc->checkState(0), Qt::Unchecked);
        // Cambios de texto o color de la sociedad no avisan.
        e.limpiarCuadros();
        calcularPorcentajesParticipacion(lvw.get());
        pintarFila(soc, COLOR_PROPIA_SOCIEDAD);
        QVERIFY(e.cuadros.isEmpty());
    }
};

QTEST_MAIN(tst_porcentajes)
#include "tst_porcentajes.moc"
