// Vida común de las pantallas de edición: la copia de los campos (también listas), la pregunta
// al salir, el cursor de espera que se restaura solo y los cuadros que esperan a que se confirme.
#include "core/CicloPantalla.h"
#include "core/Listas.h"
#include "core/modFunciones.h"
#include "tests/comun/EntornoPrueba.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTreeWidget>
#include <QtTest>

using Mensajes::Respuesta;

namespace {

// Pantalla mínima: una caja, una casilla y una lista; "Sí" al salir guarda si la caja no está vacía.
class PantallaPrueba : public PantallaEdicion {
public:
    QLineEdit* caja = new QLineEdit(this);
    QCheckBox* casilla = new QCheckBox(this);
    QTreeWidget* lista = new QTreeWidget(this);
    int guardados = 0;
    int cargas = 0;

    PantallaPrueba()
    {
        setObjectName(QStringLiteral("frmPrueba"));
        lista->setColumnCount(2);
    }

    void fila(const QString& clave, const QString& a, const QString& b)
    {
        auto* f = new QTreeWidgetItem(lista, {a, b});
        ponerClaveFila(f, clave);
        f->setCheckState(0, Qt::Unchecked);
    }

protected:
    bool cargar() override
    {
        ++cargas;
        caja->setText(QStringLiteral("Ana"));
        fila(QStringLiteral("K1"), QStringLiteral("Uno"), QStringLiteral("50,00"));
        fila(QStringLiteral("K2"), QStringLiteral("Dos"), QStringLiteral("50,00"));
        return true;
    }
    QList<QWidget*> controlesCopia() const override { return {caja, casilla, lista}; }
    bool guardarAlSalir() override
    {
        m_cancelarCierre = caja->text().trimmed().isEmpty();
        if (!m_cancelarCierre) {
            ++guardados;
            tomarCopia();
        }
        return !m_cancelarCierre;
    }
};

}  // namespace

class tst_ciclopantalla : public QObject {
    Q_OBJECT

private slots:
    // Qué cuenta como cambio: las mayúsculas no; una fila de la lista cambiada, quitada o
    // añadida sí; las filas que sólo cambian de sitio no.
    void copia_data()
    {
        QTest::addColumn<int>("cambio");
        QTest::addColumn<bool>("hayCambios");
        QTest::newRow("nada") << 0 << false;
        QTest::newRow("sólo mayúsculas") << 1 << false;
        QTest::newRow("texto") << 2 << true;
        QTest::newRow("casilla") << 3 << true;
        QTest::newRow("columna de una fila") << 4 << true;
        QTest::newRow("casilla de una fila") << 5 << true;
        QTest::newRow("fila quitada") << 6 << true;
        QTest::newRow("fila añadida") << 7 << true;
        QTest::newRow("filas cambiadas de sitio") << 8 << false;
        QTest::newRow("mayúsculas en una fila") << 9 << false;
    }

    void copia()
    {
        QFETCH(int, cambio);
        QFETCH(bool, hayCambios);
        PantallaPrueba p;
        p.Form_Load();
        p.Form_Load();  // una sola carga
        QCOMPARE(p.cargas, 1);
        switch (cambio) {
        case 1: p.caja->setText(QStringLiteral("ANA")); break;
        case 2: p.caja->setText(QStringLiteral("Ana María")); break;
        case 3: p.casilla->setChecked(true); break;
        case 4: p.lista->topLevelItem(1)->setText(1, QStringLiteral("40,00")); break;
        case 5: p.lista->topLevelItem(0)->setCheckState(0, Qt::Checked); break;
        case 6: delete p.lista->topLevelItem(0); break;
        case 7: p.fila(QStringLiteral("K3"), QStringLiteral("Tres"), QString()); break;
        case 8: p.lista->insertTopLevelItem(0, p.lista->takeTopLevelItem(1)); break;
        case 9: p.lista->topLevelItem(0)->setText(0, QStringLiteral("UNO")); break;
        default: break;
        }
        QCOMPARE(p.hayCambios(), hayCambios);
    }

    // La pregunta al salir: sin cambios no pregunta; Sí guarda y cierra, salvo que el guardado
    // pida quedarse; Cancelar se queda; No cierra sin guardar.
    void preguntaAlSalir_data()
    {
        QTest::addColumn<QString>("caja");  // texto al salir
        QTest::addColumn<int>("respuesta");  // -1: no hay pregunta
        QTest::addColumn<bool>("cierra");
        QTest::addColumn<int>("guardados");
        QTest::newRow("sin cambios") << "Ana" << -1 << true << 0;
        QTest::newRow("sí") << "Eva" << int(Respuesta::Si) << true << 1;
        QTest::newRow("sí que no valida") << "" << int(Respuesta::Si) << false << 0;
        QTest::newRow("cancelar") << "Eva" << int(Respuesta::Cancelar) << false << 0;
        QTest::newRow("no") << "Eva" << int(Respuesta::No) << true << 0;
    }

    void preguntaAlSalir()
    {
        QFETCH(QString, caja);
        QFETCH(int, respuesta);
        QFETCH(bool, cierra);
        QFETCH(int, guardados);
        EntornoPrueba e;
        auto* p = new PantallaPrueba;
        p->Form_Load();
        p->caja->setText(caja);
        if (respuesta >= 0)
            e.respuestas << Respuesta(respuesta);
        QPointer<PantallaPrueba> vigilada(p);
        p->show();
        const bool cerrada = p->close();
        QCOMPARE(cerrada, cierra);
        QCOMPARE(e.textos(), respuesta < 0 ? QStringList{} : QStringList{QStringLiteral("¿Desea guardar los cambios antes de salir?")});
        if (!e.cuadros.isEmpty())
            QCOMPARE(e.cuadros[0].botones, Mensajes::Botones::SiNoCancelar);
        if (vigilada) {
            QCOMPARE(p->guardados, guardados);
            delete p;
        }
    }

    // El cursor de espera vuelve también cuando el ámbito sale por un fallo.
    void cursorEspera()
    {
        EntornoPrueba e;
        guardia(QStringLiteral("frmPrueba"), QStringLiteral("cmd_Guardar_Click"), [] {
            CursorEspera espera;
            QVERIFY(QApplication::overrideCursor());
            lanzarError(-1, QStringLiteral("fallo de prueba"));
        });
        QVERIFY(!QApplication::overrideCursor());
        QCOMPARE(e.entradasLog(), 1);
    }

    // Los cuadros que sólo informan esperan a que la transacción se confirme o se deshaga: en
    // ese momento otro puesto ya puede guardar. Las preguntas no esperan.
    void cuadrosTrasConfirmar()
    {
        EntornoPrueba e;
        e.conectar();
        QList<bool> otroPuedeGuardar;
        Mensajes::instalarContestador([&](const Mensajes::Cuadro& c) {
            e.cuadros << c;
            otroPuedeGuardar << otroPuestoPuedeGuardar(e.ficheroBD());
            return c.porDefecto;
        });
        for (const bool confirmar : {true, false}) {
            e.cuadros.clear();
            otroPuedeGuardar.clear();
            {
                Transaccion t;
                ejecutar(QStringLiteral("INSERT INTO Config (IVA) VALUES (21)"));
                Mensajes::informacion(QStringLiteral("Guardado"));
                Mensajes::aviso(QStringLiteral("Aviso"));
                QVERIFY(e.cuadros.isEmpty());
                if (confirmar)
                    t.confirmar();
            }
            QCOMPARE(e.textos(), (QStringList{QStringLiteral("Guardado"), QStringLiteral("Aviso")}));
            QCOMPARE(otroPuedeGuardar, (QList<bool>{true, true}));
        }
        UsoConexion uso;
        QCOMPARE(escalar(QStringLiteral("SELECT count(*) FROM Config")).toInt(), 1);
    }
};

QTEST_MAIN(tst_ciclopantalla)
#include "tst_ciclopantalla.moc"
