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
using L = QStringList;
using R = QList<Respuesta>;

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
    auto* f = new QTreeWidgetItem(lvw, {QStringLiteral("Arquitecto %1").arg(codigo), QString::number(1000 + codigo), porcentaje, "NO"});
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

struct Caso { L inicial; int editada; bool marcar; QString escrito; R respuestas; L mensajes, final; bool cerrado = true; };

template <typename T> T* hijo(QWidget* f, const char* nombre) { return f->findChild<T*>(QString::fromLatin1(nombre)); }

}  // namespace

Q_DECLARE_METATYPE(Caso)

class tst_porcentajes : public QObject {
    Q_OBJECT

private slots:
    void cleanup()
    {
        for (QWidget* w : Pantallas::cargadas())
            delete w;
        procesarEventos();
    }

    // Cuota con dos redondeos ("###0.00" y al entero par); el resto va a la última fila.
    // sociedad: -1 sin ella; si no, posición de su fila entre las de los arquitectos.
    void reparto_data()
    {
        QTest::addColumn<int>("arquitectos");
        QTest::addColumn<int>("sociedad");
        QTest::addColumn<QStringList>("esperado");
        const L sin[] = {{}, {"100,00"}, {"50,00", "50,00"}, {"33,00", "33,00", "34,00"}, L(4, "25,00"), L(5, "20,00"),
                         L(5, "17,00") << "15,00", L(6, "14,00") << "16,00", L(7, "12,00") << "16,00"};
        for (int n = 1; n <= 8; ++n) {
            QTest::addRow("%d sin sociedad", n) << n << -1 << sin[n];
            QTest::addRow("%d con la sociedad primero", n) << n << 0 << (L{QString()} + sin[n]);
        }
        QTest::newRow("sólo la sociedad") << 0 << 0 << L{QString()};
        QTest::newRow("sociedad al final: suma 99") << 3 << 3 << L{"33,00", "33,00", "33,00", QString()};
        QTest::newRow("sociedad en medio") << 3 << 1 << L{"33,00", QString(), "33,00", "34,00"};
        QTest::newRow("101 filas") << 101 << -1 << (L(100, "1,00") << "0,00");
        QTest::newRow("201 filas") << 201 << -1 << (L(200, "0,00") << "100,00");
        QTest::newRow("40 filas") << 40 << -1 << (L(39, "2,00") << "22,00");
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
        for (int vuelta = 0; vuelta < 2; ++vuelta) {  // una segunda vuelta da lo mismo
            calcularPorcentajesParticipacion(lvw.get());
            QCOMPARE(porcentajes(lvw.get()), esperado);
        }
    }

    // Sin argumentos: la lista de la ficha de proyecto cargada, y nada sin ella.
    void repartoEnFichaProyecto()
    {
        calcularPorcentajesParticipacion();  // sin ficha ni lista: nada
        calcularPorcentajesParticipacion(static_cast<QTreeWidget*>(nullptr));
        auto* otra = new Pantalla;
        otra->setObjectName(QStringLiteral("frmCliente"));
        QTreeWidget* ajena = lista(otra);
        fila(ajena, 1);
        auto* proyecto = new Pantalla;
        proyecto->setObjectName(QStringLiteral("frmProyecto"));
        QTreeWidget* lvw = lista(proyecto);
        for (int i = 1; i <= 3; ++i)
            fila(lvw, i);
        calcularPorcentajesParticipacion();
        QCOMPARE(porcentajes(lvw), (L{"33,00", "33,00", "34,00"}));
        QCOMPARE(porcentajes(ajena), L{QString()});
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
        auto* txt = hijo<QLineEdit>(f.get(), "txt_Porcentaje");
        todo ? txt->selectAll() : txt->end(false);
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
        QCOMPARE(e.textos(), (L{"No hay arquitectos en la lista",
                                "Por favor, seleccione un arquitecto para modificar su porcentaje de participación"}));
        QCOMPARE(e.cuadros[1].titulo, QStringLiteral("Aviso"));

        lvw->topLevelItem(0)->setSelected(true);
        std::unique_ptr<frmOpcionesArquitecto> f(prepararOpcionesArquitecto(lvw.get()));
        auto* txt = hijo<QLineEdit>(f.get(), "txt_Porcentaje");
        auto* chk = hijo<QCheckBox>(f.get(), "chk_Sociedad");
        QCOMPARE(txt->text(), QStringLiteral("60,00"));
        QVERIFY(!chk->isChecked() && txt->isEnabled());
        chk->click();
        QVERIFY(!txt->isEnabled());

        lvw->clearSelection();
        soc->setSelected(true);
        f.reset(prepararOpcionesArquitecto(lvw.get()));
        QVERIFY(hijo<QCheckBox>(f.get(), "chk_Sociedad")->isChecked());
        QVERIFY(!hijo<QLineEdit>(f.get(), "txt_Porcentaje")->isEnabled());
        QCOMPARE(f->fila(), soc);
    }

    // cmd_Aceptar: cada rama, sus mensajes, la pregunta del reparto y el cierre del diálogo.
    // Filas: K1 y K2 personas, K3 esS nulo, K4 la sociedad (esS 1), K5 sin ficha, K6 otra sociedad.
    // Porcentajes: "S" marca la propia sociedad (fila azul).
    void aceptar_data()
    {
        QTest::addColumn<Caso>("c");
        const L dos = {"50,00", "50,00"}, tres = {"50,00", "20,00", "30,00"}, cinco = tres + L{"0,00", "7,00"};
        const L conSoc = {"50,00", "50,00", "", "S"};
        QTest::newRow("porcentaje escrito") << Caso{dos, 1, false, "12,5", {}, {}, {"50,00", "12,50"}};
        QTest::newRow("vacío, no repartir") << Caso{dos, 1, false, "", {Respuesta::No}, {SIN_PORCENTAJE}, {"50,00", ""}};
        QTest::newRow("persona física") << Caso{dos, 1, true, "", {}, {NO_ES_SOCIEDAD}, dos};
        QTest::newRow("esS nulo") << Caso{tres, 2, true, "", {}, {NO_ES_SOCIEDAD}, tres};
        QTest::newRow("sin ficha") << Caso{cinco, 4, true, "", {}, {SIN_DATOS}, cinco};
        QTest::newRow("sociedad nueva") << Caso{{"40,00", "30,00", "10,00", "20,00"}, 3, true, "", {}, {}, {"40,00", "30,00", "10,00", "S"}};
        // Sociedad al final: nadie lleva el resto.
        QTest::newRow("sociedad nueva, repartir")
            << Caso{{"40,00", "", "10,00", "20,00"}, 3, true, "", {Respuesta::Si}, {SIN_PORCENTAJE}, {"33,00", "33,00", "33,00", "S"}};
        // Ya hay una sociedad y la fila editada tenía porcentaje: se rechaza y el diálogo sigue.
        QTest::newRow("segunda sociedad") << Caso{conSoc + L{"", "25,00"}, 5, true, "", {}, {YA_HAY_SOCIEDAD}, conSoc + L{"", "25,00"}, false};
        // La comparación es por porcentaje: con el porcentaje vacío pasa y la anterior pierde la marca.
        QTest::newRow("segunda sociedad sin porcentaje")
            << Caso{conSoc + L{"", ""}, 5, true, "", {Respuesta::No}, {SIN_PORCENTAJE}, {"50,00", "50,00", "", "", "", "S"}};
        QTest::newRow("se quita la marca") << Caso{conSoc, 3, false, "", {Respuesta::Si}, {SIN_PORCENTAJE}, L(4, "25,00")};
    }
    void aceptar()
    {
        QFETCH(Caso, c);
        EntornoPrueba e;
        e.conectar();
        {
            UsoConexion uso;
            ejecutar(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, Nombre_Cli) VALUES (1, 'Arquitecto', 0, 'N1'), "
                                    "(2, 'Arquitecto', 0, 'N2'), (3, 'Arquitecto', NULL, 'N3'), (4, 'Arquitecto', 1, 'N4'), (6, 'Arquitecto', 1, 'N6')"));
        }
        std::unique_ptr<QTreeWidget> lvw(lista());
        for (int i = 0; i < c.inicial.size(); ++i) {
            const bool soc = c.inicial[i] == QLatin1String("S");
            QTreeWidgetItem* f = fila(lvw.get(), i + 1, soc ? QString() : c.inicial[i], soc);
            if (i == c.editada) {
                f->setCheckState(0, Qt::Checked);
                f->setSelected(true);
            }
        }
        std::unique_ptr<frmOpcionesArquitecto> f(prepararOpcionesArquitecto(lvw.get()));
        QVERIFY(f);
        hijo<QCheckBox>(f.get(), "chk_Sociedad")->setChecked(c.marcar);
        hijo<QLineEdit>(f.get(), "txt_Porcentaje")->setText(c.escrito);
        e.respuestas = c.respuestas;
        f->cmd_Aceptar_Click();

        QCOMPARE(e.textos(), c.mensajes);
        for (const auto& q : e.cuadros)
            QCOMPARE(q.titulo, q.texto == SIN_PORCENTAJE ? QStringLiteral("Pregunta") : QStringLiteral("Aviso"));
        QCOMPARE(f->result() == QDialog::Accepted, c.cerrado);
        QStringList obtenido;
        for (int i = 0; i < lvw->topLevelItemCount(); ++i) {
            QTreeWidgetItem* fi = lvw->topLevelItem(i);
            obtenido << (esPropiaSociedad(fi) ? QStringLiteral("S") : QString()) + fi->text(COLUMNA_PORCENTAJE);
            for (int col = 1; col <= 3; ++col)
                QCOMPARE(fi->foreground(col).color(), fi->foreground(0).color());
        }
        QCOMPARE(obtenido, c.final);
        // La nueva sociedad pierde la casilla; las demás filas la conservan.
        QTreeWidgetItem* ed = lvw->topLevelItem(c.editada);
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
        QCOMPARE(arq->checkState(0), Qt::Checked);
        soc->setCheckState(0, Qt::Checked);
        QCOMPARE(e.textos(), L{"No se puede incluir a la propia sociedad como arquitecto perteneciente a ella misma"});
        QCOMPARE(soc->checkState(0), Qt::Unchecked);
        // Cambios de texto o color de la sociedad no avisan.
        calcularPorcentajesParticipacion(lvw.get());
        pintarFila(soc, COLOR_PROPIA_SOCIEDAD);
        QCOMPARE(e.cuadros.size(), 1);
    }
};

QTEST_MAIN(tst_porcentajes)
#include "tst_porcentajes.moc"
