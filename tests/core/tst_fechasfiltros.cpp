#include "core/AyudaFecha.h"
#include "core/Documentos.h"
#include "core/Fechas.h"
#include "core/Filtros.h"
#include "core/Listas.h"
#include "core/Mensajes.h"
#include "core/Rutas.h"
#include "tests/comun/EntornoPrueba.h"
#include "core/Sistema.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QTest>

using Mensajes::Cuadro;

namespace {
// Una tecla suelta por admitirNumeros (letras = false) o admitirLetrasNumeros.
struct Tecla {
    bool letras;
    int tecla;
    bool menos, coma;
    int esperado;
};
// Texto tecleado en un campo con filtro: 0 números, 1 letras y números, 2 NIF.
struct Tecleo {
    int regla;
    bool menos, coma;
    QString tecleado, esperado;
};
}  // namespace
Q_DECLARE_METATYPE(Tecla)
Q_DECLARE_METATYPE(Tecleo)

class tst_FechasFiltros : public QObject {
    Q_OBJECT

    EntornoPrueba m_e{false, false};  // carpeta del programa propia y cuadros de mensaje anotados

    // Pulsación con texto arbitrario (acentos, eñes) que QTest no genera.
    static void teclear(QWidget* w, const QChar c)
    {
        QKeyEvent pulsa(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QApplication::sendEvent(w, &pulsa);
    }

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain)); }
    void init() { m_e.cuadros.clear(); }

    void isFecha_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("mensaje");  // vacío: válida
        const QString anio = QStringLiteral("El año ha de estar comprendido entre 1950 y 2100");
        const QString dia = QStringLiteral("El día del mes no es válido. Inserte un día entre 1 y %1");
        QTest::newRow("corta") << "1/2/2008" << "Por favor, complete todos los datos de la fecha";
        QTest::newRow("1949") << "01/01/1949" << anio;
        QTest::newRow("mes antes que día") << "00/13/2000" << "El mes no es válido. Inserte un mes entre 1 y 12";
        QTest::newRow("día 0 de enero") << "00/01/2008" << dia.arg(31);
        QTest::newRow("2100 no es bisiesto") << "29/02/2100" << dia.arg(28);
        QTest::newRow("2000 es bisiesto") << "29/02/2000" << QString();
    }
    void isFecha()
    {
        QFETCH(QString, texto);
        QFETCH(QString, mensaje);
        QCOMPARE(::isFecha(texto), mensaje.isEmpty());
        QCOMPARE(m_e.cuadros.size(), mensaje.isEmpty() ? 0 : 1);
        if (!mensaje.isEmpty())
            QCOMPARE(m_e.cuadros[0].titulo + QStringLiteral(": ") + m_e.cuadros[0].texto, QStringLiteral("Aviso: ") + mensaje);
    }

    void validarFecha_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<bool>("valida");
        QTest::newRow("vacía") << QString() << true;
        QTest::newRow("día mal") << "31/04/2008" << false;
    }
    void validarFecha()
    {
        QFETCH(QString, texto);
        QFETCH(bool, valida);
        QWidget ventana;
        auto* otro = new QLineEdit(&ventana);
        auto* msk = new QLineEdit(&ventana);
        prepararCampoFecha(msk);
        msk->setText(texto);
        ventana.show();
        QVERIFY(QTest::qWaitForWindowActive(&ventana));
        otro->setFocus();
        QCOMPARE(::validarFecha(msk), valida);
        QCOMPARE(m_e.cuadros.size(), valida ? 0 : 1);
        // Al fallar, el campo queda con el foco.
        QCOMPARE(msk->hasFocus(), !valida);
    }

    void normalizar() { QCOMPARE(textoFechaNormalizado(QStringLiteral("1/2/2008")), QStringLiteral("01/02/2008")); }

    void teclasSueltas_data()
    {
        QTest::addColumn<Tecla>("t");
        QTest::newRow("cifra") << Tecla{false, '7', false, false, '7'};
        QTest::newRow("menos refusado") << Tecla{false, '-', false, true, 0};
        QTest::newRow("menos admitido") << Tecla{false, '-', true, false, '-'};
        QTest::newRow("letra") << Tecla{true, 'q', false, false, 'q'};
        QTest::newRow("eñe") << Tecla{true, 0xF1, true, true, 0};
        QTest::newRow("acento") << Tecla{true, 0xE9, true, true, 0};
        QTest::newRow("espacio") << Tecla{true, ' ', true, true, 0};
    }
    void teclasSueltas()
    {
        QFETCH(Tecla, t);
        const int devuelto = t.letras ? admitirLetrasNumeros(t.tecla, {t.menos, t.coma}) : admitirNumeros(t.tecla, {t.menos, t.coma});
        QCOMPARE(devuelto, t.esperado);
        QCOMPARE(t.tecla, t.esperado);  // también por referencia
    }

    void filtroCampo_data()
    {
        QTest::addColumn<Tecleo>("t");
        QTest::newRow("importe") << Tecleo{0, false, true, "12a.5,3 -", "125,3"};
        QTest::newRow("letras") << Tecleo{1, false, false, "ab C-1,ñé", "abC1"};
        QTest::newRow("nif un guion") << Tecleo{2, false, false, "b-12-34-5", "b-12345"};
    }
    void filtroCampo()
    {
        QFETCH(Tecleo, t);
        QLineEdit campo;
        if (t.regla == 0)
            instalarFiltroNumeros(&campo, {t.menos, t.coma});
        else if (t.regla == 1)
            instalarFiltroLetrasNumeros(&campo, {t.menos, t.coma});
        else
            instalarFiltroNIF(&campo);
        for (const QChar c : t.tecleado)
            c.unicode() < 128 ? QTest::keyClick(&campo, char(c.unicode())) : teclear(&campo, c);
        QCOMPARE(campo.text(), t.esperado);
    }

    // Lo pegado pasa carácter a carácter por la regla.
    void filtroPegar()
    {
        QLineEdit campo;
        instalarFiltroNumeros(&campo, {.coma = true});
        QApplication::clipboard()->setText(QStringLiteral("1.234,5 €x-9"));
        QTest::keyClick(&campo, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(campo.text(), QStringLiteral("1234,59"));

        // En el NIF, un guion pegado no se suma al que ya hay.
        QLineEdit nif;
        instalarFiltroNIF(&nif);
        nif.setText(QStringLiteral("X-1"));
        QApplication::clipboard()->setText(QStringLiteral("2-3 4"));
        QTest::keyClick(&nif, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(nif.text(), QStringLiteral("X-1234"));
    }

    // El globo sale al entrar en la fecha y se va al teclear o al salir: no tapa lo de debajo.
    void globoDeLaFecha()
    {
        QWidget ventana;
        auto* fecha = new QLineEdit(&ventana);
        auto* globo = new AyudaFecha(&ventana);
        globo->vigilar(fecha);
        ventana.show();
        QFocusEvent entra(QEvent::FocusIn);
        QApplication::sendEvent(fecha, &entra);
        QVERIFY(globo->isVisible());
        teclear(fecha, QLatin1Char('1'));
        QVERIFY(!globo->isVisible());
        QApplication::sendEvent(fecha, &entra);
        QVERIFY(globo->isVisible());
        QKeyEvent mayusculas(QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier);
        QApplication::sendEvent(fecha, &mayusculas);
        QVERIFY(globo->isVisible());  // una tecla sin texto no lo quita
        QFocusEvent sale(QEvent::FocusOut);
        QApplication::sendEvent(fecha, &sale);
        QVERIFY(!globo->isVisible());
    }

    void getListIndex_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<int>("indice");
        QTest::newRow("sin acento") << "Leon" << 1;
        QTest::newRow("con acento") << "León" << 2;
    }
    void getListIndex()
    {
        QFETCH(QString, texto);
        QFETCH(int, indice);
        QComboBox combo;
        combo.addItems({QStringLiteral("MADRID"), QStringLiteral("LEON"), QStringLiteral("LEÓN")});
        QCOMPARE(::getListIndex(&combo, texto), indice);
    }

    void cargarPDF_data()
    {
        QTest::addColumn<int>("resultado");
        QTest::addColumn<QString>("aviso");
        QTest::newRow("sin visor") << 31
                                   << QStringLiteral("No tiene ningún programa asociado con los ficheros de tipo '*.pdf'.\n"
                                                     "Por favor, instale uno (por ejemplo, Acrobat Reader) e inténtelo de nuevo.");
        QTest::newRow("no encontrado")
            << 2
            << QStringLiteral("No se ha podido encontrar el documento en la ruta indicada.\n"
                              "Puede que haya sido borrado o cambiado de ubicación.\n"
                              "Por favor, compruébelo e inténtelo de nuevo\n\n"
                              "También puede copiar el documento generado y pegarlo en un ordenador que si tenga instalado un visor de documentos de tipo '*.doc'");
    }
    void cargarPDF()
    {
        QFETCH(int, resultado);
        QFETCH(QString, aviso);
        QFile::remove(Rutas::ficheroLog());
        QString abierto;
        Sistema::instalarAbridor([&](const QString& r) { abierto = r; return resultado; });
        const QString ruta = QDir(m_e.directorio()).filePath(QStringLiteral("Documentos/LC_A1.pdf"));
        ::cargarPDF(ruta, nullptr);
        QCOMPARE(abierto, ruta);
        // El aviso y luego la entrada del registro, enseñada en un "Aviso" sin icono.
        QCOMPARE(m_e.cuadros.size(), 2);
        QCOMPARE(m_e.cuadros[0].texto, aviso);
        QCOMPARE(m_e.cuadros[1].icono, Mensajes::Icono::Ninguno);
        QFile log(Rutas::ficheroLog());
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QString texto = QString::fromUtf8(log.readAll());
        QCOMPARE(texto.count(QStringLiteral("Se ha producido el siguiente error")), 1);
        for (const QString& linea : {QStringLiteral("Formulario: modFunciones\r\n"), QStringLiteral("Procedimiento: cargarPDF\r\n"),
                                     QStringLiteral("Número: 0\r\n"), QStringLiteral("Descripción: \r\n")}) {
            QVERIFY2(texto.contains(linea), qPrintable(linea));
            QVERIFY(m_e.cuadros[1].texto.contains(linea));
        }
    }
};

QTEST_MAIN(tst_FechasFiltros)
#include "tst_fechasfiltros.moc"
