#include "core/AyudaFecha.h"
#include "core/Documentos.h"
#include "core/Fechas.h"
#include "core/Filtros.h"
#include "core/Listas.h"
#include "core/Mensajes.h"
#include "core/Rutas.h"
#include "core/Sistema.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>
#include <QTreeWidget>
#include <QVBoxLayout>

using Mensajes::Cuadro;

class tst_FechasFiltros : public QObject {
    Q_OBJECT

    QList<Cuadro> cuadros;
    QTemporaryDir programa;

    // Pulsación con texto arbitrario (acentos, eñes) que QTest no genera.
    static void teclear(QWidget* w, const QString& texto)
    {
        for (const QChar c : texto) {
            QKeyEvent pulsa(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(c));
            QApplication::sendEvent(w, &pulsa);
        }
    }

private slots:
    void initTestCase()
    {
        QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
        QVERIFY(programa.isValid());
        QVERIFY(QDir(programa.path()).mkpath(QStringLiteral("Logs")));
        Rutas::establecerDirectorioPrograma(programa.path());
        Mensajes::instalarContestador([this](const Cuadro& c) {
            cuadros << c;
            return Mensajes::Respuesta::Aceptar;
        });
    }
    void init() { cuadros.clear(); }
    void cleanupTestCase() { Sistema::instalarAbridor({}); }

    void isFecha_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<bool>("valida");
        QTest::addColumn<QString>("mensaje");
        const QString longitud = QStringLiteral("Por favor, complete todos los datos de la fecha");
        const QString anio = QStringLiteral("El año ha de estar comprendido entre 1950 y 2100");
        const QString mes = QStringLiteral("El mes no es válido. Inserte un mes entre 1 y 12");
        const QString dia = QStringLiteral("El día del mes no es válido. Inserte un día entre 1 y %1");
        QTest::newRow("corta") << "1/2/2008" << false << longitud;
        QTest::newRow("1949") << "01/01/1949" << false << anio;
        QTest::newRow("último día admitido") << "31/12/2100" << true << QString();
        QTest::newRow("año incompleto") << "12/05/20__" << false << anio;
        QTest::newRow("mes antes que día") << "00/13/2000" << false << mes;
        QTest::newRow("día 0 de enero") << "00/01/2008" << false << dia.arg(31);
        QTest::newRow("31 de abril") << "31/04/2008" << false << dia.arg(30);
        QTest::newRow("2100 no es bisiesto") << "29/02/2100" << false << dia.arg(28);
        QTest::newRow("2000 es bisiesto") << "29/02/2000" << true << QString();
        QTest::newRow("30 de febrero bisiesto") << "30/02/2008" << false << dia.arg(29);
        QTest::newRow("separadores libres") << "01-02-2008" << true << QString();
    }
    void isFecha()
    {
        QFETCH(QString, texto);
        QFETCH(bool, valida);
        QFETCH(QString, mensaje);
        QCOMPARE(::isFecha(texto), valida);
        QCOMPARE(cuadros.size(), valida ? 0 : 1);
        if (!valida)
            QCOMPARE(cuadros[0].titulo + QStringLiteral(": ") + cuadros[0].texto, QStringLiteral("Aviso: ") + mensaje);
    }

    void validarFecha_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<bool>("valida");
        QTest::addColumn<int>("avisos");
        QTest::newRow("vacía") << QString() << true << 0;
        QTest::newRow("correcta") << "24/11/2008" << true << 0;
        QTest::newRow("día mal") << "31/04/2008" << false << 1;
    }
    void validarFecha()
    {
        QFETCH(QString, texto);
        QFETCH(bool, valida);
        QFETCH(int, avisos);
        QWidget ventana;
        auto* otro = new QLineEdit(&ventana);
        auto* msk = new QLineEdit(&ventana);
        auto* capa = new QVBoxLayout(&ventana);
        capa->addWidget(otro);
        capa->addWidget(msk);
        prepararCampoFecha(msk);
        msk->setText(texto);
        ventana.show();
        QVERIFY(QTest::qWaitForWindowActive(&ventana));
        otro->setFocus();

        QCOMPARE(::validarFecha(msk), valida);
        QCOMPARE(cuadros.size(), avisos);
        // Al fallar, el campo queda con todo seleccionado y con el foco.
        QCOMPARE(msk->hasFocus(), !valida);
        if (!valida)
            QCOMPARE(msk->selectedText(), msk->displayText());
    }

    void normalizar_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("esperado");
        QTest::newRow("sin ceros") << "1/2/2008" << "01/02/2008";
        QTest::newRow("no es fecha") << "31/2_/2008" << "31/2/2008";
    }
    void normalizar()
    {
        QFETCH(QString, texto);
        QFETCH(QString, esperado);
        QCOMPARE(textoFechaNormalizado(texto), esperado);
    }

    void normalizarCampo()
    {
        QLineEdit msk;
        prepararCampoFecha(&msk);
        normalizarFecha(&msk);
        QCOMPARE(msk.displayText(), FECHA_VACIA);
        msk.setText(QStringLiteral("1_/2_/2008"));
        normalizarFecha(&msk);
        QCOMPARE(msk.displayText(), QStringLiteral("01/02/2008"));
    }

    void teclasSueltas_data()
    {
        QTest::addColumn<bool>("letras");
        QTest::addColumn<int>("tecla");
        QTest::addColumn<bool>("menos");
        QTest::addColumn<bool>("coma");
        QTest::addColumn<int>("esperado");
        QTest::newRow("cifra") << false << int('7') << false << false << int('7');
        QTest::newRow("menos refusado") << false << int('-') << false << true << 0;
        QTest::newRow("menos admitido") << false << int('-') << true << false << int('-');
        QTest::newRow("coma admitida") << false << int(',') << false << true << int(',');
        QTest::newRow("letra") << true << int('q') << false << false << int('q');
        QTest::newRow("eñe") << true << 0xF1 << true << true << 0;
        QTest::newRow("guion en letras") << true << int('-') << true << false << int('-');
    }
    void teclasSueltas()
    {
        QFETCH(bool, letras);
        QFETCH(int, tecla);
        QFETCH(bool, menos);
        QFETCH(bool, coma);
        QFETCH(int, esperado);
        const int devuelto = letras ? admitirLetrasNumeros(tecla, menos, coma) : admitirNumeros(tecla, menos, coma);
        QCOMPARE(devuelto, esperado);
        QCOMPARE(tecla, esperado);  // también por referencia
    }

    void filtroCampo_data()
    {
        QTest::addColumn<int>("regla");  // 0 números, 1 letras y números, 2 NIF
        QTest::addColumn<bool>("menos");
        QTest::addColumn<bool>("coma");
        QTest::addColumn<QString>("tecleado");
        QTest::addColumn<QString>("esperado");
        QTest::newRow("importe") << 0 << false << true << "12a.5,3 -" << "125,3";
        QTest::newRow("con signo") << 0 << true << false << "-4,5" << "-45";
        QTest::newRow("letras") << 1 << false << false << "ab C-1,ñé" << "abC1";
        QTest::newRow("nif un guion") << 2 << false << false << "b-12-34-5" << "b-12345";
        QTest::newRow("nif sin coma ni espacio") << 2 << false << false << "12 3,4x" << "1234x";
    }
    void filtroCampo()
    {
        QFETCH(int, regla);
        QFETCH(bool, menos);
        QFETCH(bool, coma);
        QFETCH(QString, tecleado);
        QFETCH(QString, esperado);
        QLineEdit campo;
        if (regla == 0)
            instalarFiltroNumeros(&campo, menos, coma);
        else if (regla == 1)
            instalarFiltroLetrasNumeros(&campo, menos, coma);
        else
            instalarFiltroNIF(&campo);
        for (const QChar c : tecleado) {
            if (c.unicode() < 128)
                QTest::keyClick(&campo, char(c.unicode()));
            else
                teclear(&campo, QString(c));
        }
        QCOMPARE(campo.text(), esperado);
    }

    // Edición y portapapeles siguen funcionando con el filtro puesto.
    void filtroEdicion()
    {
        QLineEdit campo;
        instalarFiltroNumeros(&campo, false, true);
        QTest::keyClicks(&campo, QStringLiteral("1234"));
        QTest::keyClick(&campo, Qt::Key_Backspace);
        QTest::keyClick(&campo, Qt::Key_Home);
        QTest::keyClick(&campo, Qt::Key_Delete);
        QTest::keyClick(&campo, Qt::Key_End);
        QTest::keyClick(&campo, Qt::Key_Left);
        QTest::keyClick(&campo, ',');
        QCOMPARE(campo.text(), QStringLiteral("2,3"));

        QTest::keyClick(&campo, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&campo, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("2,3"));
        QTest::keyClick(&campo, Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(campo.text(), QString());

        // Lo pegado pasa carácter a carácter por la regla.
        QApplication::clipboard()->setText(QStringLiteral("1.234,5 €x-9"));
        QTest::keyClick(&campo, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(campo.text(), QStringLiteral("1234,59"));
        QTest::keyClick(&campo, Qt::Key_Home);
        QTest::keyClick(&campo, Qt::Key_Insert, Qt::ShiftModifier);
        QCOMPARE(campo.text(), QStringLiteral("1234,591234,59"));

        // En el NIF, un guion pegado no se suma al que ya hay.
        QLineEdit nif;
        instalarFiltroNIF(&nif);
        nif.setText(QStringLiteral("X-1"));
        nif.end(false);
        QApplication::clipboard()->setText(QStringLiteral("2-3 4"));
        QTest::keyClick(&nif, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(nif.text(), QStringLiteral("X-1234"));
        // Sustituyendo la selección que contiene el guion, sí entra uno.
        nif.selectAll();
        QApplication::clipboard()->setText(QStringLiteral("a-b-c"));
        QTest::keyClick(&nif, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(nif.text(), QStringLiteral("a-bc"));
    }

    void listas()
    {
        QTreeWidget lista;
        for (const QString& k : {QStringLiteral("K1"), QStringLiteral("K23"), QStringLiteral("k5"), QStringLiteral("K23")}) {
            auto* fila = new QTreeWidgetItem(&lista, {k.mid(1)});
            ponerClaveFila(fila, k);
        }
        QCOMPARE(claveFila(lista.topLevelItem(1)), QStringLiteral("K23"));

        QVERIFY(estaEnListview(&lista, QStringLiteral("k23")));
        QVERIFY(!estaEnListview(&lista, QStringLiteral("K2")));
        QCOMPARE(getPosicionElementoEnLista(&lista, QStringLiteral("K1")), 1);
        QCOMPARE(getPosicionElementoEnLista(&lista, QStringLiteral("K23")), 2);  // la primera
        QCOMPARE(getPosicionElementoEnLista(&lista, QStringLiteral("K99")), -1);

        // Las listas largas con modelo se consultan igual.
        QStandardItemModel modelo;
        for (const QString& k : {QStringLiteral("K7"), QStringLiteral("K8")}) {
            auto* item = new QStandardItem(k.mid(1));
            item->setData(k, ROL_CLAVE_FILA);
            modelo.appendRow(item);
        }
        QTreeView vista;
        vista.setModel(&modelo);
        QCOMPARE(getPosicionElementoEnLista(&vista, QStringLiteral("k8")), 2);
        QVERIFY(!estaEnListview(&vista, QStringLiteral("K1")));

    }

    void getListIndex_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<int>("indice");
        QTest::newRow("sin acento") << "Leon" << 1;
        QTest::newRow("igual") << "LEON" << 1;
        QTest::newRow("con acento") << "León" << 2;
        QTest::newRow("no está") << "Burgos" << -1;
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
        QTest::addColumn<bool>("registro");
        QTest::newRow("sin visor") << 31
                                   << QStringLiteral("No tiene ningún programa asociado con los ficheros de tipo '*.pdf'.\n"
                                                     "Por favor, instale uno (por ejemplo, Acrobat Reader) e inténtelo de nuevo.")
                                   << true;
        QTest::newRow("no encontrado")
            << 2
            << QStringLiteral("No se ha podido encontrar el documento en la ruta indicada.\n"
                              "Puede que haya sido borrado o cambiado de ubicación.\n"
                              "Por favor, compruébelo e inténtelo de nuevo\n\n"
                              "También puede copiar el documento generado y pegarlo en un ordenador que si tenga instalado un visor de documentos de tipo '*.doc'")
            << true;
        QTest::newRow("otro fallo") << 5 << QString() << true;
        QTest::newRow("abierto") << 42 << QString() << false;
    }
    void cargarPDF()
    {
        QFETCH(int, resultado);
        QFETCH(QString, aviso);
        QFETCH(bool, registro);
        QFile::remove(Rutas::ficheroLog());
        QString abierto;
        Sistema::instalarAbridor([&](const QString& ruta) {
            abierto = ruta;
            return resultado;
        });
        const QString ruta = QDir(programa.path()).filePath(QStringLiteral("Documentos/LC_A1.pdf"));
        ::cargarPDF(ruta, nullptr);
        QCOMPARE(abierto, ruta);

        const int i = aviso.isEmpty() ? 0 : 1;
        if (i)
            QCOMPARE(cuadros.value(0).texto, aviso);
        if (registro) {
            // Luego la entrada del registro, enseñada en un "Aviso" sin icono.
            QCOMPARE(cuadros.size(), i + 1);
            QCOMPARE(cuadros[i].icono, Mensajes::Icono::Ninguno);
            QFile log(Rutas::ficheroLog());
            QVERIFY(log.open(QIODevice::ReadOnly));
            const QString texto = QString::fromUtf8(log.readAll());
            QCOMPARE(texto.count(QStringLiteral("Se ha producido el siguiente error")), 1);
            for (const QString& linea : {QStringLiteral("Formulario: modFunciones\r\n"), QStringLiteral("Procedimiento: cargarPDF\r\n"),
                                         QStringLiteral("Número: 0\r\n"), QStringLiteral("Descripción: \r\n")}) {
                QVERIFY2(texto.contains(linea), qPrintable(linea));
                QVERIFY(cuadros[i].texto.contains(linea));
            }
        } else {
            QVERIFY(cuadros.isEmpty());
            QVERIFY(!QFile::exists(Rutas::ficheroLog()));
        }
    }

    void ayudaFecha()
    {
        QWidget pantalla;
        auto* otro = new QLineEdit(&pantalla);
        auto* msk = new QLineEdit(&pantalla);
        auto* capa = new QVBoxLayout(&pantalla);
        capa->addWidget(otro);
        capa->addWidget(msk);
        prepararCampoFecha(msk);
        auto* ayuda = new AyudaFecha(&pantalla, {QStringLiteral("# Día: 2 dígitos (por ejemplo: 01, 15)")});
        ayuda->permitirCerrar();
        ayuda->vigilar(msk);
        pantalla.show();
        QVERIFY(QTest::qWaitForWindowActive(&pantalla));

        auto* etiqueta = ayuda->findChild<QLabel*>(QStringLiteral("lbl_AyudaFecha"));
        QCOMPARE(etiqueta->text(), QStringLiteral("  El formato de la fecha ha de ser dd/mm/aaaa.\n# Día: 2 dígitos (por ejemplo: 01, 15)"));
        QVERIFY(!ayuda->isVisible());
        ayuda->mostrarAyuda(1);
        QVERIFY(ayuda->isVisible());
        ayuda->mostrarAyuda(0);

        // Entrar en el campo la enseña con el cursor al principio; salir la oculta.
        otro->setFocus();
        msk->setFocus();
        QVERIFY(ayuda->isVisible());
        QTRY_COMPARE(msk->cursorPosition(), 0);
        otro->setFocus();
        QVERIFY(!ayuda->isVisible());

        ayuda->mostrarAyuda(1);
        QTest::mouseClick(ayuda->findChild<QLabel*>(QStringLiteral("lbl_Cerrar")), Qt::LeftButton);
        QVERIFY(!ayuda->isVisible());
    }
};

QTEST_MAIN(tst_FechasFiltros)
#include "tst_fechasfiltros.moc"
