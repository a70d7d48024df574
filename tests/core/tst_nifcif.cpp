#include "core/Mensajes.h"
#include "core/Nif.h"
#include "core/Pantallas.h"
#include "core/frmValidarNIFCIF.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

using Mensajes::Cuadro;
using Mensajes::Respuesta;

namespace {
const QString AVISO_LONGITUD = QStringLiteral(
    "\n  - La longitud del CIF no es válida.\n"
    "      * Ha de tener 9 caracteres (sin el separador entre la letra y el número)\n"
    "      * O bien 10 caracteres (si se incluye el guión separador entre la letra y el número)");
QString avisoLetra()
{
    QString r = QStringLiteral("\n  - La primera letra no corresponde a un CIF válido o no es una letra.\n\n"
                               "  - Los caracteres válidos son:");
    for (const char* t : {"A - Sociedad Anónima", "B - Sociedad de responsabilidad limitada", "C - Sociedad colectiva",
                          "D - Sociedad comanditaria", "E - Comunidad de bienes", "F - Sociedad cooperativa",
                          "G - Asociación", "H - Comunidad de propietarios", "K - Formato antiguo", "L - Formato antiguo",
                          "M - Formato antiguo", "N - Formato antiguo", "P - Corporación local",
                          "Q - Organismo autónomo", "S - Órgano de la administración"})
        r += QStringLiteral("\n      * ") + QString::fromUtf8(t);
    return r;
}
QString avisoControl(const QString& aparece, const QString& cifra, const QString& letra)
{
    return QStringLiteral("\n  - El dígito de control (último carácter del CIF) no es válido.\n      * Aparece '") + aparece
        + QStringLiteral("' y debería ser '") + cifra + QStringLiteral("' ó '") + letra + QStringLiteral("'");
}
}  // namespace

class tst_NifCif : public QObject {
    Q_OBJECT

    QList<Cuadro> cuadros;
    Respuesta respuesta = Respuesta::Si;

    QStringList textos() const
    {
        QStringList t;
        for (const Cuadro& c : cuadros)
            t << c.titulo + QStringLiteral(": ") + c.texto;
        return t;
    }

private slots:
    void initTestCase()
    {
        QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
        Mensajes::instalarContestador([this](const Cuadro& c) {
            cuadros << c;
            return c.botones == Mensajes::Botones::Aceptar ? Respuesta::Aceptar : respuesta;
        });
    }
    void init() { cuadros.clear(); }
    void cleanup()
    {
        for (QWidget* w : Pantallas::cargadas())
            delete w;
    }

    void letraNIF()
    {
        // Resto de la división entre 23: extremos de la tabla y vuelta al principio.
        const QList<QPair<int, QString>> casos = {{12345678, "Z"}, {0, "T"}, {22, "E"}, {23, "T"}};
        for (const auto& [numero, letra] : casos)
            QCOMPARE(calcularLetraNIF(numero), letra);
    }

    void validarCIF_data()
    {
        QTest::addColumn<QString>("cif");
        QTest::addColumn<bool>("valido");
        QTest::addColumn<QString>("aviso");
        QTest::newRow("con cifra") << "A58818501" << true << QString();
        QTest::newRow("con guion") << "A-58818501" << true << QString();
        // El tipo de sociedad no restringe entre cifra y letra.
        QTest::newRow("P con cifra") << "P08000002" << true << QString();
        QTest::newRow("resto cero J") << "A0000000J" << true << QString();
        QTest::newRow("corto") << "A5881850" << false << AVISO_LONGITUD;
        QTest::newRow("minúscula") << "a58818501" << false << avisoLetra();
        QTest::newRow("control mal") << "A58818502" << false << avisoControl("2", "1", "A");
        QTest::newRow("letra mal") << "B1234567E" << false << avisoControl("E", "4", "D");
        // Los largos pasan la longitud; cuenta el último carácter.
        QTest::newRow("largo") << "A588185011" << true << QString();
        QTest::newRow("largo mal") << "A58818501X" << false << avisoControl("X", "1", "A");
    }
    void validarCIF()
    {
        QFETCH(QString, cif);
        QFETCH(bool, valido);
        QFETCH(QString, aviso);
        QCOMPARE(::validarCIF(cif), valido);
        QCOMPARE(textos(), aviso.isEmpty() ? QStringList() : QStringList{QStringLiteral("Aviso: ") + aviso});
    }

    void pantalla_data()
    {
        QTest::addColumn<QString>("entrada");
        QTest::addColumn<bool>("esNIF");
        QTest::addColumn<int>("respuesta");  // a la pregunta, si la hay
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<QString>("resultado");  // texto final del campo de la ficha
        QTest::addColumn<bool>("cerrada");
        const QString pregunta = QStringLiteral(
            "Pregunta: La letra del NIF proporcionado no coincide con la que debería aparecer.\n"
            "El NIF correcto sería %1\n\n ¿Desea sustituir el valor original %2 por este nuevo?");
        const QString nifBien = QStringLiteral("Información: El NIF es correcto");
        const int si = int(Respuesta::Si), no = int(Respuesta::No);
        QTest::newRow("NIF correcto") << "12345678z" << true << 0 << nifBien << "12345678z" << true;
        QTest::newRow("sin letra, sí") << " 12345678 " << true << si << pregunta.arg("12345678Z", "12345678") << "12345678Z" << true;
        QTest::newRow("letra mal, no") << "12345678A" << true << no << pregunta.arg("12345678Z", "12345678A") << "12345678A" << true;
        QTest::newRow("ceros delante") << "00000023" << true << si << pregunta.arg("00000023T", "00000023") << "00000023T" << true;
        // Sólo cuentan las cifras: el prefijo de extranjero se ignora.
        QTest::newRow("prefijo X") << "X1234567L" << true << 0 << nifBien << "X1234567L" << true;
        QTest::newRow("sin cifras") << "ABC" << true << 0
                                    << "Aviso: El DNI obtenido no es numérico. \n Por favor, inténtelo de nuevo" << "ABC" << false;
        QTest::newRow("diez cifras")
            << "1234567890Z" << true << 0
            << "Aviso: El mayor valor de DNI admitido es 999999999. \n Por favor, revise el valor introducido" << "1234567890Z" << false;
        QTest::newRow("CIF correcto") << "A58818501" << false << 0 << "Información: El CIF es correcto" << "A58818501" << true;
        QTest::newRow("CIF mal") << "A58818502" << false << 0 << "Aviso: " + avisoControl("2", "1", "A") << "A58818502" << true;
    }
    void pantalla()
    {
        QFETCH(QString, entrada);
        QFETCH(bool, esNIF);
        QFETCH(int, respuesta);
        QFETCH(QString, mensaje);
        QFETCH(QString, resultado);
        QFETCH(bool, cerrada);
        this->respuesta = Respuesta(respuesta);
        QLineEdit txt_NIF(entrada);
        QPointer<frmValidarNIFCIF> frm = validarIdentificador(&txt_NIF, esNIF);
        QVERIFY(frm && cuadros.isEmpty());
        QCOMPARE(frm->findChild<QLabel*>("lbl_Identificador")->text(), entrada.trimmed().toUpper());
        QCOMPARE(frm->findChild<QRadioButton*>("opt_Identificador_0")->isChecked(), esNIF);
        QTest::mouseClick(frm->findChild<QPushButton*>("cmd_Validar"), Qt::LeftButton);
        QCOMPARE(textos(), QStringList{mensaje});
        QCOMPARE(txt_NIF.text(), resultado);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(frm.isNull(), cerrada);
    }

    void pantallaSinDatos()
    {
        frmValidarNIFCIF* frm = new frmValidarNIFCIF;
        frm->show();
        auto* validar = frm->findChild<QPushButton*>("cmd_Validar");

        frm->setIdentificador(QStringLiteral("   "));
        frm->setTipo(0);
        QTest::mouseClick(validar, Qt::LeftButton);
        QCOMPARE(textos(), QStringList{"Aviso: No se ha proporcionado un valor para el NIF o CIF.\nPor favor, inténtelo de nuevo"});

        cuadros.clear();
        frm->setIdentificador(QStringLiteral("12345678Z"));
        frm->setTipo(-1);
        QTest::mouseClick(validar, Qt::LeftButton);
        QCOMPARE(textos(), QStringList{"Aviso: Por favor, seleccione el tipo de identificador: NIF o CIF"});
        QVERIFY(Pantallas::cargada<frmValidarNIFCIF>());

        QTest::mouseClick(frm->findChild<QPushButton*>("cmd_Cerrar"), Qt::LeftButton);
        QVERIFY(!Pantallas::cargada<frmValidarNIFCIF>());
        QCOMPARE(cuadros.size(), 1);
    }

    // Campo vacío: aviso, el foco vuelve al campo y la pantalla no se abre.
    void campoVacio()
    {
        for (const bool esNIF : {true, false}) {
            cuadros.clear();
            QWidget ficha;
            auto* otro = new QLineEdit(&ficha);
            auto* txt_NIF = new QLineEdit(QStringLiteral("   "), &ficha);
            otro->move(0, 40);
            ficha.show();
            QVERIFY(QTest::qWaitForWindowActive(&ficha));
            otro->setFocus();
            QVERIFY(!validarIdentificador(txt_NIF, esNIF));
            QCOMPARE(textos(), QStringList{esNIF ? "Aviso: Por favor, proporcione un valor para el NIF"
                                                 : "Aviso: Por favor, proporcione un valor para el CIF"});
            QVERIFY(txt_NIF->hasFocus());
            QVERIFY(!Pantallas::cargada<frmValidarNIFCIF>());
        }
    }

    // Una segunda petición reutiliza la pantalla abierta con el nuevo valor.
    void reutiliza()
    {
        QLineEdit a, b;
        a.setText(QStringLiteral("1"));
        b.setText(QStringLiteral("b12345674"));
        frmValidarNIFCIF* primera = validarIdentificador(&a, true);
        frmValidarNIFCIF* segunda = validarIdentificador(&b, false);
        QCOMPARE(segunda, primera);
        QCOMPARE(segunda->cajaIdentificador.data(), &b);
        QCOMPARE(segunda->findChild<QLabel*>("lbl_Identificador")->text(), QStringLiteral("B12345674"));
        QVERIFY(segunda->findChild<QRadioButton*>("opt_Identificador_1")->isChecked());
    }
};

QTEST_MAIN(tst_NifCif)
#include "tst_nifcif.moc"
