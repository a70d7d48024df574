#include "core/Error.h"
#include "core/Mensajes.h"
#include "core/Nif.h"
#include "core/Pantallas.h"
#include "core/Rutas.h"
#include "masterdata/frmValidarNIFCIF.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
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
    QTemporaryDir programa;
    int fallarEnCuadro = 0;  // el cuadro número n (desde 1) lanza un fallo; 0 ninguno

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
        QVERIFY(QDir(programa.path()).mkpath(QStringLiteral("Logs")));
        Rutas::establecerDirectorioPrograma(programa.path());
        Mensajes::instalarContestador([this](const Cuadro& c) {
            cuadros << c;
            if (cuadros.size() == fallarEnCuadro)
                lanzarError(5, QStringLiteral("Llamada a procedimiento o argumento no válidos"));
            return c.botones == Mensajes::Botones::Aceptar ? Respuesta::Aceptar : respuesta;
        });
    }
    void init()
    {
        cuadros.clear();
        fallarEnCuadro = 0;
        QFile::remove(Rutas::ficheroLog());
    }
    void cleanup() { qDeleteAll(Pantallas::cargadas()); }

    void letraNIF() { QCOMPARE(calcularLetraNIF(12345678), QStringLiteral("Z")); }

    // Cada paso que falla avisa con su cuadro, en orden, y los demás pasos se comprueban igual.
    void validarCIF_data()
    {
        QTest::addColumn<QString>("cif");
        QTest::addColumn<bool>("valido");
        QTest::addColumn<QStringList>("avisos");
        QTest::newRow("con cifra") << "A58818501" << true << QStringList();
        QTest::newRow("con guion") << "A-58818501" << true << QStringList();
        // Vale también la letra de control.
        QTest::newRow("resto cero J") << "A0000000J" << true << QStringList();
        QTest::newRow("sólo corto") << "A588185A" << false << QStringList{AVISO_LONGITUD};
        QTest::newRow("minúscula") << "a58818501" << false << QStringList{avisoLetra()};
        QTest::newRow("control mal") << "A58818502" << false << QStringList{avisoControl("2", "1", "A")};
        QTest::newRow("corto y control") << "A5881850" << false
                                         << QStringList{AVISO_LONGITUD, avisoControl("0", "1", "A")};
        QTest::newRow("letra y control") << "a-58818502" << false
                                         << QStringList{avisoLetra(), avisoControl("2", "1", "A")};
        QTest::newRow("los tres") << "X1234" << false
                                  << QStringList{AVISO_LONGITUD, avisoLetra(), avisoControl("4", "6", "F")};
        QTest::newRow("vacío") << "" << false << QStringList{AVISO_LONGITUD, avisoLetra(), avisoControl("", "0", "J")};
    }
    void validarCIF()
    {
        QFETCH(QString, cif);
        QFETCH(bool, valido);
        QFETCH(QStringList, avisos);
        QCOMPARE(::validarCIF(cif), valido);
        for (QString& a : avisos)
            a.prepend(QStringLiteral("Aviso: "));
        QCOMPARE(textos(), avisos);
        QVERIFY(!QFile::exists(Rutas::ficheroLog()));
    }

    // Un fallo atrapado a mitad deja el resultado que se llevaba, se anota y no sigue avisando.
    void validarCIF_fallo_data()
    {
        QTest::addColumn<QString>("cif");
        QTest::addColumn<int>("fallarEn");
        QTest::addColumn<bool>("resultado");
        QTest::newRow("en el primer aviso") << "X1234" << 1 << false;
        QTest::newRow("en el segundo aviso") << "X1234" << 2 << false;
    }
    void validarCIF_fallo()
    {
        QFETCH(QString, cif);
        QFETCH(int, fallarEn);
        QFETCH(bool, resultado);
        fallarEnCuadro = fallarEn;
        QCOMPARE(::validarCIF(cif), resultado);
        // Los avisos hasta el que falló y la entrada del registro enseñada.
        QCOMPARE(cuadros.size(), fallarEn + 1);
        QVERIFY(cuadros.last().texto.contains(QStringLiteral("Procedimiento: validarCIF\r\n")));
        QFile log(Rutas::ficheroLog());
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QString entrada = QString::fromUtf8(log.readAll());
        QVERIFY(entrada.contains(QStringLiteral("Formulario: modFunciones\r\n")));
        QVERIFY(entrada.contains(QStringLiteral("Procedimiento: validarCIF\r\n")));
    }

    void pantalla_data()
    {
        QTest::addColumn<QString>("entrada");
        QTest::addColumn<bool>("esNIF");
        QTest::addColumn<int>("respuesta");  // a la pregunta, si la hay
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<QString>("resultado");  // texto final del campo de la ficha
        const QString pregunta = QStringLiteral(
            "Pregunta: La letra del NIF proporcionado no coincide con la que debería aparecer.\n"
            "El NIF correcto sería %1\n\n ¿Desea sustituir el valor original %2 por este nuevo?");
        const QString nifBien = QStringLiteral("Información: El NIF es correcto");
        const int si = int(Respuesta::Si), no = int(Respuesta::No);
        QTest::newRow("NIF correcto") << "12345678z" << true << 0 << nifBien << "12345678z";
        QTest::newRow("sin letra, sí") << " 12345678 " << true << si << pregunta.arg("12345678Z", "12345678") << "12345678Z";
        QTest::newRow("letra mal, no") << "12345678A" << true << no << pregunta.arg("12345678Z", "12345678A") << "12345678A";
        QTest::newRow("CIF correcto") << "A58818501" << false << 0 << "Información: El CIF es correcto" << "A58818501";
    }
    void pantalla()
    {
        QFETCH(QString, entrada);
        QFETCH(bool, esNIF);
        QFETCH(int, respuesta);
        QFETCH(QString, mensaje);
        QFETCH(QString, resultado);
        this->respuesta = Respuesta(respuesta);
        QLineEdit txt_NIF(entrada);
        QPointer<frmValidarNIFCIF> frm = validarIdentificador(&txt_NIF, esNIF);
        QVERIFY(frm && cuadros.isEmpty());
        QTest::mouseClick(frm->findChild<QPushButton*>("cmd_Validar"), Qt::LeftButton);
        QCOMPARE(textos(), QStringList{mensaje});
        QCOMPARE(txt_NIF.text(), resultado);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(frm.isNull());
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
    }
};

QTEST_MAIN(tst_NifCif)
#include "tst_nifcif.moc"
