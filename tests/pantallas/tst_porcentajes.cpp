// Reparto de los porcentajes de participación y diálogo frmOpcionesArquitecto.
#include "core/modFunciones.h"
#include "masterdata/Porcentajes.h"
#include "masterdata/frmOpcionesArquitecto.h"
#include "tests/comun/EntornoPrueba.h"
#include "tests/pantallas/PruebaPantallas.h"

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
const QString NO_ES_SOCIEDAD = QStringLiteral(
    "El arquitecto seleccionado no es una sociedad.\n"
    "Se trata de una persona física, por lo que no se puede establecer como la propia sociedad");

// Lista como la de la ficha de proyecto: nombre (con casilla), número, "% Part.", "Es autor".
std::unique_ptr<QTreeWidget> lista() { auto l = std::make_unique<QTreeWidget>(); l->setColumnCount(4); return l; }

QTreeWidgetItem* fila(QTreeWidget* lvw, qint64 codigo, const QString& porcentaje = {}, bool sociedad = false)
{
    auto* f = new QTreeWidgetItem(lvw, {QStringLiteral("Arquitecto %1").arg(codigo), QString::number(1000 + codigo), porcentaje, "NO"});
    ponerClaveFila(f, QStringLiteral("K%1").arg(codigo));
    f->setCheckState(0, Qt::Unchecked);
    if (sociedad)
        pintarFila(f, COLOR_PROPIA_SOCIEDAD);
    return f;
}

// Porcentaje de cada fila, con "S" delante en la propia sociedad.
L porcentajes(const QTreeWidget* lvw)
{
    L l;
    for (int i = 0; i < lvw->topLevelItemCount(); ++i) {
        QTreeWidgetItem* f = lvw->topLevelItem(i);
        l << (esPropiaSociedad(f) ? QStringLiteral("S") : QString()) + f->text(COLUMNA_PORCENTAJE);
    }
    return l;
}

// inicial/final: porcentajes por fila; "S" marca la propia sociedad (fila azul).
struct Caso { L inicial; int editada; bool marcar; QString escrito; R respuestas; L mensajes, final; bool cerrado = true; };

template <typename T> T* hijo(QWidget* f, const char* nombre) { return f->findChild<T*>(QString::fromLatin1(nombre)); }

}  // namespace

Q_DECLARE_METATYPE(Caso)

class tst_porcentajes : public QObject {
    Q_OBJECT

private slots:
    // Cuota con dos redondeos; el resto va a la última fila.
    // sociedad: -1 sin ella; si no, posición de su fila entre las de los arquitectos.
    void reparto_data()
    {
        QTest::addColumn<int>("arquitectos");
        QTest::addColumn<int>("sociedad");
        QTest::addColumn<L>("esperado");
        const L sin[] = {{}, {"100,00"}, {"50,00", "50,00"}, {"33,00", "33,00", "34,00"}, L(4, "25,00"), L(5, "20,00"),
                         L(5, "17,00") << "15,00", L(6, "14,00") << "16,00", L(7, "12,00") << "16,00"};
        for (int n = 1; n <= 8; ++n) {
            QTest::addRow("%d sin sociedad", n) << n << -1 << sin[n];
            QTest::addRow("%d con la sociedad", n) << n << 0 << (L{"S"} + sin[n]);
        }
        QTest::newRow("sólo la sociedad") << 0 << 0 << L{"S"};
        QTest::newRow("sociedad al final: suma 99") << 3 << 3 << L{"33,00", "33,00", "33,00", "S"};
        QTest::newRow("101 filas") << 101 << -1 << (L(100, "1,00") << "0,00");
        QTest::newRow("201 filas") << 201 << -1 << (L(200, "0,00") << "100,00");
    }
    void reparto()
    {
        QFETCH(int, arquitectos);
        QFETCH(int, sociedad);
        QFETCH(L, esperado);
        auto lvw = lista();
        for (int i = 0; i <= arquitectos; ++i) {
            if (i == sociedad)
                fila(lvw.get(), 500, QStringLiteral("7,00"), true);
            if (i < arquitectos)
                fila(lvw.get(), i + 1, QStringLiteral("99,00"));  // lo escrito se pisa
        }
        for (int vuelta = 0; vuelta < 2; ++vuelta) {  // una segunda vuelta da lo mismo
            calcularPorcentajesParticipacion(lvw.get());
            QCOMPARE(porcentajes(lvw.get()), esperado);
        }
    }

    void apertura()
    {
        EntornoPrueba e;
        auto lvw = lista();
        QVERIFY(!prepararOpcionesArquitecto(lvw.get()));
        fila(lvw.get(), 1, QStringLiteral("60,00"));
        QVERIFY(!prepararOpcionesArquitecto(lvw.get()));
        QCOMPARE(e.textos(), (L{"No hay arquitectos en la lista",
                                "Por favor, seleccione un arquitecto para modificar su porcentaje de participación"}));
        fila(lvw.get(), 2, QString(), true)->setSelected(true);
        std::unique_ptr<frmOpcionesArquitecto> f(prepararOpcionesArquitecto(lvw.get()));
        QVERIFY(hijo<QCheckBox>(f.get(), "chk_Sociedad")->isChecked());
        QVERIFY(!hijo<QLineEdit>(f.get(), "txt_Porcentaje")->isEnabled());
    }

    // cmd_Aceptar: cada rama, sus mensajes, la pregunta del reparto y el cierre del diálogo.
    // Filas: K1 y K2 personas, K4 la sociedad (esS 1), K5 sin ficha, K6 otra sociedad.
    void aceptar_data()
    {
        QTest::addColumn<Caso>("c");
        const L dos = {"50,00", "50,00"}, cinco = {"50,00", "20,00", "30,00", "0,00", "7,00"}, conSoc = {"50,00", "50,00", "", "S"};
        QTest::newRow("porcentaje escrito") << Caso{dos, 1, false, "12,5", {}, {}, {"50,00", "12,50"}};
        QTest::newRow("vacío, no repartir") << Caso{dos, 1, false, "", {Respuesta::No}, {SIN_PORCENTAJE}, {"50,00", ""}};
        QTest::newRow("persona física") << Caso{dos, 1, true, "", {}, {NO_ES_SOCIEDAD}, dos};
        QTest::newRow("sin ficha") << Caso{cinco, 4, true, "", {}, {"No se ha podido obtener los datos del arquitecto para comprobar si es sociedad o no"}, cinco};
        // Sociedad al final: nadie lleva el resto.
        QTest::newRow("sociedad nueva, repartir")
            << Caso{{"40,00", "", "10,00", "20,00"}, 3, true, "", {Respuesta::Si}, {SIN_PORCENTAJE}, {"33,00", "33,00", "33,00", "S"}};
        // Ya hay una sociedad y la fila editada tenía porcentaje: se rechaza y el diálogo sigue.
        QTest::newRow("segunda sociedad") << Caso{conSoc + L{"", "25,00"}, 5, true, "", {},
            {"Ya ha incluido una sociedad como su propia sociedad y sólo puede existir una como tal.\n"
             "Por favor, desmárquela como su propia sociedad antes de continuar"}, conSoc + L{"", "25,00"}, false};
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
                                    "(2, 'Arquitecto', 0, 'N2'), (4, 'Arquitecto', 1, 'N4'), (6, 'Arquitecto', 1, 'N6')"));
        }
        auto lvw = lista();
        for (int i = 0; i < c.inicial.size(); ++i) {
            const bool soc = c.inicial[i] == QLatin1String("S");
            fila(lvw.get(), i + 1, soc ? QString() : c.inicial[i], soc);
        }
        QTreeWidgetItem* ed = lvw->topLevelItem(c.editada);
        ed->setCheckState(0, Qt::Checked);
        ed->setSelected(true);
        std::unique_ptr<frmOpcionesArquitecto> f(prepararOpcionesArquitecto(lvw.get()));
        QVERIFY(f);
        hijo<QCheckBox>(f.get(), "chk_Sociedad")->setChecked(c.marcar);
        hijo<QLineEdit>(f.get(), "txt_Porcentaje")->setText(c.escrito);
        e.respuestas = c.respuestas;
        f->cmd_Aceptar_Click();

        QCOMPARE(e.textos(), c.mensajes);
        QCOMPARE(f->result() == QDialog::Accepted, c.cerrado);
        QCOMPARE(porcentajes(lvw.get()), c.final);
        // La nueva sociedad pierde la casilla; las demás filas la conservan.
        QCOMPARE(ed->checkState(0), esPropiaSociedad(ed) ? Qt::Unchecked : Qt::Checked);
    }

    // La casilla de la propia sociedad se rechaza; la de un arquitecto, no.
    void casillaDeLaSociedad()
    {
        EntornoPrueba e;
        auto lvw = lista();
        QTreeWidgetItem* arq = fila(lvw.get(), 1, QStringLiteral("100,00"));
        QTreeWidgetItem* soc = fila(lvw.get(), 2, QString(), true);
        conectarItemCheckArquitectos(lvw.get());
        arq->setCheckState(0, Qt::Checked);
        soc->setCheckState(0, Qt::Checked);
        QCOMPARE(e.textos(), L{"No se puede incluir a la propia sociedad como arquitecto perteneciente a ella misma"});
        QCOMPARE(arq->checkState(0), Qt::Checked);
        QCOMPARE(soc->checkState(0), Qt::Unchecked);
    }
};

PRUEBA_PANTALLAS(tst_porcentajes)
#include "tst_porcentajes.moc"
