// Configuración del estudio: carga, huecos de arquitectos, borrados, devoluciones, validación,
// guardado, pregunta al salir, carpetas y costes de referencia.
#include "app/Aplicacion.h"
#include "app/frmMenu.h"
#include "core/modFunciones.h"
#include "masterdata/frmAddModCosteReferencia.h"
#include "masterdata/frmConfiguracion.h"
#include "reports/frmVisorCrystal.h"
#include "reports/modInformes.h"
#include "search/frmBuscarSeleccionar.h"
#include "tests/comun/EntornoPrueba.h"

#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <QtTest>

using Mensajes::Respuesta;

namespace {

const QStringList DOMICILIO = {"txt_Domicilio", "txt_NIF", "txt_CodigoPostal", "txt_Municipio", "txt_Provincia",
                               "txt_Telefono", "txt_Fax", "txt_Movil", "txt_CorreoElectronico"};
const QStringList ANA = {"C/ Portales 12, 2º", "16543219Q", "26001", "Logroño", "La Rioja", "941234567", "941234568", "600111222",
                         "ana@estudio.es"};
const QStringList SOCIEDAD = {"Avda. de la Paz 3", "B26412345", "26004", "Logroño", "La Rioja", "941000111", "941000112", "", "info@rioja.es"};
const QStringList LUIS = {"C/ Mayor 5", "22334455Y", "26200", "Haro", "La Rioja", "941300300", "", "", ""};

void persona(qint64 codigo, const QString& nombre, const QString& apellidos, int numero, const QVariant& esS, const QStringList& d,
             const QString& categoria = QStringLiteral("Arquitecto"))
{
    ejecutar(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli, Ape_Cli, Dirección_Cli, NIF, cp, "
                            "Municipio_Cli, Provincia_Cli, Tfno_Cli, Fax_Cli, TelMovil, Correo_Cli) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)"),
             {codigo, categoria, esS, numero, nombre, apellidos, d[0], d[1], d[2], d[3], d[4], d[5], d[6], textoONulo(d[7]), textoONulo(d[8])});
}

}  // namespace

class tst_configuracion : public QObject {
    Q_OBJECT

    std::unique_ptr<EntornoPrueba> m_e;
    QList<frmConfiguracion::PeticionSelector> m_peticiones;

    EntornoPrueba& e() { return *m_e; }

    frmConfiguracion* abrir(int pestana = 0)
    {
        frmConfiguracion* f = frmConfiguracion::abrir(pestana);
        e().limpiarCuadros();
        return f;
    }
    static QLineEdit* txt(frmConfiguracion* f, const QString& nombre)
    {
        auto* t = f->findChild<QLineEdit*>(nombre);
        if (!t)
            qFatal("falta %s", qPrintable(nombre));
        return t;
    }
    static QStringList textos(frmConfiguracion* f, const QStringList& nombres)
    {
        QStringList l;
        for (const QString& n : nombres)
            l << txt(f, n)->text();
        return l;
    }
    static void escribir(frmConfiguracion* f, const QString& nombre, const QString& texto) { txt(f, nombre)->setText(texto); }
    static int filasConfig()
    {
        UsoConexion uso;
        return escalar(QStringLiteral("SELECT count(*) FROM Config")).toInt();
    }

private slots:
    void initTestCase() { Aplicacion::prepararEntorno(); }

    void init()
    {
        Aplicacion::reiniciar();
        m_e = std::make_unique<EntornoPrueba>();
        e().conectar();
        UsoConexion uso;
        persona(1, QStringLiteral("Ana"), QStringLiteral("García Sáenz"), 1234, 0, ANA);
        persona(2, QStringLiteral("Luis"), QStringLiteral("Pérez Ochoa"), 2345, QVariant(), LUIS);
        persona(10, QStringLiteral("Estudio Rioja"), QStringLiteral("SLP"), 77, 1, SOCIEDAD);
        persona(20, QStringLiteral("Pedro"), QStringLiteral("Ruiz"), 999, 0, LUIS, QStringLiteral("Aparejador"));
        ejecutar(QStringLiteral("INSERT INTO Config (CodArq1, Arq1Nom, Arq1Col, Domicilio, Municipio, Modulo, IVA, IRPF, AgenciaTributaria) "
                                "VALUES (1, 'Ana García Sáenz', '1234', 'C/ Portales 12, 2º', 'Logroño', 525.5, 16, 15, 'Logroño')"));
        ejecutar(QStringLiteral("INSERT INTO Costes VALUES ('B02', 'Almacén', 'Nave sin uso definido', 0.5, 1)"));
        ejecutar(QStringLiteral("INSERT INTO Costes VALUES ('A01', 'Vivienda', 'Unifamiliar aislada', 1.2, 1.1)"));
        ejecutar(QStringLiteral("INSERT INTO Costes VALUES ('1.2', 'Garaje', 'Sótano', 0.6, 1)"));
        m_peticiones.clear();
        frmConfiguracion::abridorSelector = [this](const frmConfiguracion::PeticionSelector& p) { m_peticiones << p; };
        frmMenu::instancia();
    }

    void cleanup()
    {
        frmConfiguracion::abridorSelector = nullptr;
        delete frmMenu::existente();
        for (QWidget* w : Pantallas::cargadas())
            delete w;
        procesarEventos();
        m_e.reset();
        Aplicacion::reiniciar();
    }

    void carga()
    {
        QVERIFY(frmConfiguracion::disponible());
        frmConfiguracion* f = abrir(1);
        QCOMPARE(f->pestanas()->currentIndex(), 1);
        QCOMPARE(f->pestanas()->tabText(1), QStringLiteral("Parámetros"));
        QCOMPARE(textos(f, {"txt_CodArq_1", "txt_Arquitecto_1", "txt_NumColegiado_1", "txt_CodArq_2", "txt_Domicilio", "txt_NIF",
                            "txt_ModuloM", "txt_Iva", "txt_Irpf", "txt_UbicacionAgenciaTributaria", "txt_RutaBD"}),
                 (QStringList{"1", "Ana García Sáenz", "1234", "", "C/ Portales 12, 2º", "", "525,5", "16", "15", "Logroño", e().carpetaDatos()}));
        QVERIFY(!txt(f, "txt_CodArq_1")->isVisibleTo(f) && !txt(f, "txt_CodSoc")->isVisibleTo(f));
        const QList<QPair<const char*, int>> limites = {
            {"txt_Arquitecto_4", 100}, {"txt_NumColegiado_2", 5}, {"txt_Sociedad", 50}, {"txt_NumRegistro", 15}, {"txt_NIF", 15},
            {"txt_Domicilio", 70}, {"txt_CodigoPostal", 5}, {"txt_Municipio", 50}, {"txt_Provincia", 25}, {"txt_Movil", 15},
            {"txt_PaginaWeb", 100}, {"txt_ModuloM", 8}, {"txt_Iva", 2}, {"txt_Irpf", 2}, {"txt_UbicacionAgenciaTributaria", 50}};
        for (const auto& [nombre, limite] : limites)
            QCOMPARE(txt(f, QString::fromLatin1(nombre))->maxLength(), limite);
        // Abrir de nuevo trae la misma pantalla a la pestaña pedida.
        QCOMPARE(frmConfiguracion::abrir(0), f);
        QCOMPARE(f->pestanas()->currentIndex(), 0);
        QVERIFY(e().cuadros.isEmpty());

        // Sin fila de configuración.
        QVERIFY(Pantallas::descargar(f));
        procesarEventos();
        {
            UsoConexion uso;
            ejecutar(QStringLiteral("DELETE FROM Config"));
        }
        f = frmConfiguracion::abrir(0);
        QCOMPARE(e().textos(), QStringList{QStringLiteral("No se han podido cargar los datos de la configuración")});
        QVERIFY(!f->PreguntarGuardarCambios());
    }

    void teclasModulo_data()
    {
        QTest::addColumn<QString>("caja");
        QTest::addColumn<QString>("teclas");
        QTest::addColumn<QString>("esperado");
        QTest::newRow("módulo con punto") << "txt_ModuloM" << "525.5" << "525,5";
        QTest::newRow("módulo, una coma") << "txt_ModuloM" << "5,2,5" << "5,25";
        QTest::newRow("módulo, ocho caracteres") << "txt_ModuloM" << "1234567890" << "12345678";
        QTest::newRow("IVA sin coma") << "txt_Iva" << "2,1a" << "21";
        QTest::newRow("IRPF sin signo") << "txt_Irpf" << "-7" << "7";
    }
    void teclasModulo()
    {
        QFETCH(QString, caja);
        QFETCH(QString, teclas);
        QFETCH(QString, esperado);
        frmConfiguracion* f = abrir(1);
        QLineEdit* t = txt(f, caja);
        t->clear();
        QTest::keyClicks(t, teclas);
        QCOMPARE(t->text(), esperado);
    }

    // Al salir del módulo: ",5" → "0,5"; "12," → "12".
    void salidaModulo_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("esperado");
        QTest::newRow("coma inicial") << ",5" << "0,5";
        QTest::newRow("coma final") << "12," << "12";
        QTest::newRow("sola coma") << "," << "0";
        QTest::newRow("vacío") << "" << "";
        QTest::newRow("normal") << "525,25" << "525,25";
    }
    void salidaModulo()
    {
        QFETCH(QString, texto);
        QFETCH(QString, esperado);
        frmConfiguracion* f = abrir(1);
        QLineEdit* t = txt(f, "txt_ModuloM");
        t->setText(texto);
        QFocusEvent salida(QEvent::FocusOut);
        QCoreApplication::sendEvent(t, &salida);
        QCOMPARE(t->text(), esperado);
    }

    // Los huecos se rellenan en orden; el selector recibe tabla, clave de llamada, título,
    // clave de devolución y posición.
    void selector_data()
    {
        QTest::addColumn<QStringList>("nombres");   // txt_Arquitecto_1..4
        QTest::addColumn<int>("indice");
        QTest::addColumn<bool>("abre");
        QTest::newRow("primero") << QStringList{"", "", "", ""} << 0 << true;
        QTest::newRow("segundo con el primero") << QStringList{"A", "", "", ""} << 1 << true;
        QTest::newRow("segundo sin el primero") << QStringList{"", "", "", ""} << 1 << false;
        QTest::newRow("tercero sin el segundo") << QStringList{"A", "", "", ""} << 2 << false;
        QTest::newRow("cuarto sin el tercero") << QStringList{"A", "B", "", ""} << 3 << false;
        QTest::newRow("cuarto sólo con el tercero") << QStringList{"", "", "C", ""} << 3 << true;
        QTest::newRow("tercero con blancos en el segundo") << QStringList{"A", "  ", "", ""} << 2 << false;
        QTest::newRow("sociedad sin arquitectos") << QStringList{"", "", "", ""} << 4 << true;
    }
    void selector()
    {
        QFETCH(QStringList, nombres);
        QFETCH(int, indice);
        QFETCH(bool, abre);
        frmConfiguracion* f = abrir();
        for (int i = 0; i < 4; ++i)
            escribir(f, QStringLiteral("txt_Arquitecto_%1").arg(i + 1), nombres[i]);
        f->findChild<QToolButton*>(QStringLiteral("img_Buscar_%1").arg(indice))->click();
        if (!abre) {
            QCOMPARE(e().textos(),
                     QStringList{QStringLiteral("Antes de incluir este arquitecto, debe completar primero los arquitectos anteriores")});
            QCOMPARE(e().cuadros[0].titulo, QStringLiteral("Aviso"));
            QVERIFY(m_peticiones.isEmpty());
            return;
        }
        QVERIFY(e().cuadros.isEmpty());
        QCOMPARE(m_peticiones.size(), 1);
        const auto& p = m_peticiones[0];
        QCOMPARE(p.tag, QStringLiteral("SELECCIONAR_EN_CONFIGURACION"));
        QCOMPARE(p.titulo, QStringLiteral("Buscar arquitecto"));
        if (indice == 4) {
            QCOMPARE(p.tabla, QStringLiteral("ARQUITECTOS_SOCIEDAD"));
            QCOMPARE(p.claveRetorno, QStringLiteral("FRMCONFIGURACION_SOCIEDAD_PROFESIONAL"));
        } else {
            QCOMPARE(p.tabla, QStringLiteral("ARQUITECTOS_SIMPLE"));
            QCOMPARE(p.claveRetorno, QStringLiteral("FRMCONFIGURACION_ARQUITECTO_%1").arg(indice + 1));
            QCOMPARE(int(p.posicion), indice + 1);
        }
    }

    // Devolución del selector y de una ficha nueva.
    void devolucion()
    {
        frmConfiguracion* f = abrir();
        for (const QString& n : DOMICILIO)
            escribir(f, n, QString());
        // El primero sin sociedad trae los datos del estudio.
        f->recibirArquitecto(1, 1, QStringLiteral("Ana García Sáenz"), QStringLiteral("1234"));
        QCOMPARE(textos(f, {"txt_CodArq_1", "txt_Arquitecto_1", "txt_NumColegiado_1"}), (QStringList{"1", "Ana García Sáenz", "1234"}));
        QCOMPARE(textos(f, DOMICILIO), ANA);
        // El segundo no toca el domicilio.
        f->recibirArquitecto(2, 2, QStringLiteral("Luis Pérez Ochoa"), QStringLiteral("2345"));
        QCOMPARE(textos(f, {"txt_CodArq_2", "txt_Arquitecto_2", "txt_NumColegiado_2"}), (QStringList{"2", "Luis Pérez Ochoa", "2345"}));
        QCOMPARE(textos(f, DOMICILIO), ANA);
        // La sociedad siempre, también con valores nulos (vacíos).
        f->recibirSociedad(10, QStringLiteral("Estudio Rioja SLP"), QStringLiteral("77"));
        QCOMPARE(textos(f, {"txt_CodSoc", "txt_Sociedad", "txt_NumRegistro"}), (QStringList{"10", "Estudio Rioja SLP", "77"}));
        QCOMPARE(textos(f, DOMICILIO), SOCIEDAD);
        // Con sociedad, el primero ya no cambia el domicilio.
        f->recibirArquitecto(1, 2, QStringLiteral("Luis Pérez Ochoa"), QStringLiteral("2345"));
        QCOMPARE(textos(f, DOMICILIO), SOCIEDAD);
        QVERIFY(e().cuadros.isEmpty());
        // Un código que no es de arquitecto: el código queda, el domicilio no cambia.
        f->recibirSociedad(20, QStringLiteral("Pedro Ruiz"), QStringLiteral("999"));
        QCOMPARE(e().textos(), QStringList{QStringLiteral("No se han podido cargar los datos del arquitecto seleccionado")});
        QCOMPARE(textos(f, DOMICILIO), SOCIEDAD);

        // Ficha nueva: nombre y número, nunca el código.
        const frmConfiguracion::DatosEstudio datos{"C/ Nueva 1", "11111111H", "26003", "Logroño", "La Rioja", "941", "942", "600", "n@e.es"};
        const QStringList datosTexto = {"C/ Nueva 1", "11111111H", "26003", "Logroño", "La Rioja", "941", "942", "600", "n@e.es"};
        f->recibirNuevoArquitecto(3, QStringLiteral("Nuevo Tres"), QStringLiteral("333"), datos);
        QCOMPARE(textos(f, {"txt_CodArq_3", "txt_Arquitecto_3", "txt_NumColegiado_3"}), (QStringList{"", "Nuevo Tres", "333"}));
        f->recibirNuevoArquitecto(1, QStringLiteral("Nuevo Uno"), QStringLiteral("111"), datos);
        QCOMPARE(textos(f, {"txt_CodArq_1", "txt_Arquitecto_1"}), (QStringList{"2", "Nuevo Uno"}));
        QCOMPARE(textos(f, DOMICILIO), SOCIEDAD);  // hay sociedad
        escribir(f, "txt_Sociedad", QString());
        f->recibirNuevoArquitecto(1, QStringLiteral("Nuevo Uno"), QStringLiteral("111"), datos);
        QCOMPARE(textos(f, DOMICILIO), datosTexto);
        for (const QString& n : DOMICILIO)
            escribir(f, n, QString());
        f->recibirNuevaSociedad(QStringLiteral("Sociedad Nueva"), QStringLiteral("88"), datos);
        QCOMPARE(textos(f, {"txt_CodSoc", "txt_Sociedad", "txt_NumRegistro"}), (QStringList{"20", "Sociedad Nueva", "88"}));
        QCOMPARE(textos(f, DOMICILIO), datosTexto);
    }

    // img_Borrar: 1 a 3 vacían su hueco; 0 también el domicilio si no hay sociedad; 4 la sociedad
    // y el domicilio, que vuelve del primer arquitecto (por su número, no sociedad).
    void borrar_data()
    {
        QTest::addColumn<int>("indice");
        QTest::addColumn<bool>("conSociedad");
        QTest::addColumn<QString>("numero1");
        QTest::addColumn<QStringList>("domicilio");
        QTest::newRow("primero sin sociedad") << 0 << false << "1234" << QStringList(9, QString());
        QTest::newRow("primero con sociedad") << 0 << true << "1234" << SOCIEDAD;
        QTest::newRow("segundo") << 1 << false << "1234" << SOCIEDAD;
        QTest::newRow("cuarto") << 3 << true << "1234" << SOCIEDAD;
        QTest::newRow("sociedad, vuelve el primero") << 4 << true << "1234" << ANA;
        QTest::newRow("sociedad, primero sin ficha") << 4 << true << "4321" << QStringList(9, QString());
        QTest::newRow("sociedad, sin primero") << 4 << true << "" << QStringList(9, QString());
        QTest::newRow("sociedad, número de una sociedad") << 4 << true << "77" << QStringList(9, QString());
    }
    void borrar()
    {
        QFETCH(int, indice);
        QFETCH(bool, conSociedad);
        QFETCH(QString, numero1);
        QFETCH(QStringList, domicilio);
        frmConfiguracion* f = abrir();
        for (int i = 1; i <= 4; ++i) {
            escribir(f, QStringLiteral("txt_CodArq_%1").arg(i), QString::number(i));
            escribir(f, QStringLiteral("txt_Arquitecto_%1").arg(i), QStringLiteral("Arq %1").arg(i));
            escribir(f, QStringLiteral("txt_NumColegiado_%1").arg(i), QString::number(i * 11));
        }
        escribir(f, "txt_NumColegiado_1", numero1);
        escribir(f, "txt_CodSoc", QStringLiteral("10"));
        escribir(f, "txt_Sociedad", conSociedad ? QStringLiteral("Estudio Rioja SLP") : QString());
        escribir(f, "txt_NumRegistro", QStringLiteral("77"));
        for (int i = 0; i < 9; ++i)
            escribir(f, DOMICILIO[i], SOCIEDAD[i]);
        f->findChild<QToolButton*>(QStringLiteral("img_Borrar_%1").arg(indice))->click();
        for (int i = 1; i <= 4; ++i) {
            const bool vacio = i == indice + 1;
            QCOMPARE(txt(f, QStringLiteral("txt_Arquitecto_%1").arg(i))->text().isEmpty(), vacio);
            QCOMPARE(txt(f, QStringLiteral("txt_CodArq_%1").arg(i))->text().isEmpty(), vacio);
            QCOMPARE(txt(f, QStringLiteral("txt_NumColegiado_%1").arg(i))->text().isEmpty(), vacio || (i == 1 && numero1.isEmpty()));
        }
        const bool sinSociedad = indice == 4;
        QCOMPARE(textos(f, {"txt_CodSoc", "txt_NumRegistro"}).join(QString()).isEmpty(), sinSociedad);
        QCOMPARE(txt(f, "txt_Sociedad")->text().isEmpty(), sinSociedad || !conSociedad);
        QCOMPARE(textos(f, DOMICILIO), domicilio);
        QVERIFY(e().cuadros.isEmpty());
        QCOMPARE(e().entradasLog(), 0);
    }

    void validacion_data()
    {
        QTest::addColumn<QStringList>("codigos");
        QTest::addColumn<QString>("modulo");
        QTest::addColumn<QString>("iva");
        QTest::addColumn<QString>("irpf");
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<int>("pestana");
        const QString rep = QStringLiteral(".\nPor favor, elimine los arquitectos repetidos");
        QTest::newRow("válido") << QStringList{"1", "2", "", ""} << "525,5" << "16" << "15" << "" << 2;
        QTest::newRow("1 y 3 iguales") << QStringList{"1", "2", "1", ""} << "1" << "1" << "1"
                                       << QStringLiteral("No se puede incluir dos veces al arquitecto Arq 1") + rep << 0;
        QTest::newRow("2 y 4 iguales") << QStringList{"1", "2", "3", "2"} << "1" << "1" << "1"
                                       << QStringLiteral("No se puede incluir dos veces al arquitecto Arq 2") + rep << 0;
        QTest::newRow("3 y 4 iguales") << QStringList{"", "", "7", "7"} << "1" << "1" << "1"
                                       << QStringLiteral("No se puede incluir dos veces al arquitecto Arq 3") + rep << 0;
        QTest::newRow("códigos vacíos no repiten") << QStringList{"", "", "", ""} << "1" << "1" << "1" << "" << 2;
        QTest::newRow("sin módulo") << QStringList{"1", "", "", ""} << " " << "16" << "15"
                                    << QStringLiteral("El módulo M es obligatorio.\nPor favor, escriba un valor") << 1;
        QTest::newRow("sin IVA") << QStringList{"1", "", "", ""} << "1" << "" << "15"
                                 << QStringLiteral("El porcentaje de IVA es obligatorio.\nPor favor, escriba un valor") << 1;
        QTest::newRow("sin IRPF") << QStringList{"1", "", "", ""} << "1" << "16" << ""
                                  << QStringLiteral("El porcentaje de IRPF es obligatorio.\nPor favor, escriba un valor") << 1;
        QTest::newRow("repetidos antes que el módulo") << QStringList{"5", "5", "", ""} << "" << "" << ""
                                                       << QStringLiteral("No se puede incluir dos veces al arquitecto Arq 1") + rep << 0;
    }
    void validacion()
    {
        QFETCH(QStringList, codigos);
        QFETCH(QString, modulo);
        QFETCH(QString, iva);
        QFETCH(QString, irpf);
        QFETCH(QString, mensaje);
        QFETCH(int, pestana);
        frmConfiguracion* f = abrir(2);
        for (int i = 1; i <= 4; ++i) {
            escribir(f, QStringLiteral("txt_CodArq_%1").arg(i), codigos[i - 1]);
            escribir(f, QStringLiteral("txt_Arquitecto_%1").arg(i), QStringLiteral("Arq %1").arg(i));
        }
        escribir(f, "txt_ModuloM", modulo);
        escribir(f, "txt_Iva", iva);
        escribir(f, "txt_Irpf", irpf);
        f->cmd_Guardar_Click();
        QCOMPARE(f->pestanas()->currentIndex(), pestana);
        if (mensaje.isEmpty()) {
            QCOMPARE(e().textos(), QStringList{QStringLiteral("La configuración se ha guardado correctamente")});
            QCOMPARE(e().cuadros[0].titulo, QStringLiteral("Información"));
            QVERIFY(!f->cancelarCierre());
            return;
        }
        QCOMPARE(e().textos(), QStringList{mensaje});
        QCOMPARE(e().cuadros[0].titulo, QStringLiteral("Aviso"));
        QVERIFY(f->cancelarCierre());
        // Nada se ha escrito.
        UsoConexion uso;
        QVERIFY(escalar(QStringLiteral("SELECT Arq2Nom FROM Config")).isNull());
    }

    void guardado()
    {
        frmConfiguracion* f = abrir();
        f->recibirArquitecto(2, 2, QStringLiteral("Luis Pérez Ochoa"), QStringLiteral("2345"));
        f->recibirSociedad(10, QStringLiteral("Estudio Rioja SLP"), QStringLiteral("77"));
        escribir(f, "txt_PaginaWeb", QStringLiteral("  www.rioja.es "));
        escribir(f, "txt_Movil", QStringLiteral("   "));
        escribir(f, "txt_ModuloM", QStringLiteral("530,25"));
        escribir(f, "txt_Iva", QStringLiteral("21"));
        escribir(f, "txt_Irpf", QStringLiteral("7"));
        escribir(f, "txt_RutaBD", QStringLiteral("/otra/carpeta/"));
        QVERIFY(f->PreguntarGuardarCambios());
        f->cmd_Guardar_Click();
        QCOMPARE(e().textos(), QStringList{QStringLiteral("La configuración se ha guardado correctamente")});
        QVERIFY(!f->PreguntarGuardarCambios());
        QCOMPARE(filasConfig(), 1);
        QCOMPARE(leerAjuste(QStringLiteral("BD"), QStringLiteral("ruta")), QStringLiteral("/otra/carpeta/"));
        {
            UsoConexion uso;
            Consulta c(QStringLiteral("SELECT * FROM Config"));
            QVERIFY(c.siguiente());
            const QList<QPair<const char*, QVariant>> esperado = {
                {"CodArq1", 1}, {"CodArq2", 2}, {"CodArq3", QVariant()}, {"CodArq4", QVariant()}, {"CodSoc", 10},
                {"Arq1Nom", "Ana García Sáenz"}, {"Arq1Col", "1234"}, {"Arq2Nom", "Luis Pérez Ochoa"}, {"Arq2Col", "2345"},
                {"Arq3Nom", QVariant()}, {"Arq4Col", QVariant()}, {"SocNom", "Estudio Rioja SLP"}, {"SocReg", "77"},
                {"NIF", "B26412345"}, {"Domicilio", "Avda. de la Paz 3"}, {"CP", "26004"}, {"Municipio", "Logroño"},
                {"Provincia", "La Rioja"}, {"Telefono", "941000111"}, {"Fax", "941000112"}, {"TfnMovil", QVariant()},
                {"CorreoElectronico", "info@rioja.es"}, {"PaginaWeb", "www.rioja.es"}, {"Modulo", 530.25}, {"IVA", 21.0},
                {"IRPF", 7.0}, {"AgenciaTributaria", "Logroño"}};
            for (const auto& [campo, valor] : esperado) {
                const QVariant v = c.valor(QString::fromLatin1(campo));
                QVERIFY2(v.isNull() == valor.isNull(), campo);
                if (!valor.isNull())
                    QVERIFY2(v.toString() == valor.toString(), qPrintable(QStringLiteral("%1: %2").arg(QString::fromLatin1(campo), v.toString())));
            }
        }
        // Al volver a abrir se ve lo guardado, sin cambios pendientes.
        QVERIFY(Pantallas::descargar(f));
        procesarEventos();
        f = abrir();
        QCOMPARE(textos(f, {"txt_CodArq_2", "txt_Sociedad", "txt_ModuloM", "txt_Iva", "txt_PaginaWeb", "txt_Movil", "txt_RutaBD"}),
                 (QStringList{"2", "Estudio Rioja SLP", "530,25", "21", "www.rioja.es", "", "/otra/carpeta/"}));
        QVERIFY(!f->PreguntarGuardarCambios());
        // Un segundo guardado sigue dejando una sola fila.
        f->cmd_Guardar_Click();
        QCOMPARE(filasConfig(), 1);
        QCOMPARE(e().entradasLog(), 0);
    }

    // Qué cuenta como cambio: textos en mayúsculas, no los códigos ni las carpetas.
    void cambios_data()
    {
        QTest::addColumn<QString>("caja");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<bool>("cambia");
        QTest::newRow("nombre") << "txt_Arquitecto_2" << "Otro" << true;
        QTest::newRow("sólo mayúsculas") << "txt_Arquitecto_1" << "ANA GARCÍA SÁENZ" << false;
        QTest::newRow("agencia") << "txt_UbicacionAgenciaTributaria" << "Haro" << true;
        QTest::newRow("web") << "txt_PaginaWeb" << "x" << true;
        QTest::newRow("IRPF") << "txt_Irpf" << "7" << true;
        QTest::newRow("código") << "txt_CodArq_1" << "9" << false;
        QTest::newRow("código sociedad") << "txt_CodSoc" << "9" << false;
        QTest::newRow("carpeta Excel") << "txt_RutaExcel" << "/x/" << false;
        QTest::newRow("carpeta BD") << "txt_RutaBD" << "/x/" << false;
    }
    void cambios()
    {
        QFETCH(QString, caja);
        QFETCH(QString, texto);
        QFETCH(bool, cambia);
        frmConfiguracion* f = abrir();
        QVERIFY(!f->PreguntarGuardarCambios());
        escribir(f, caja, texto);
        QCOMPARE(f->PreguntarGuardarCambios(), cambia);
    }

    void cierre_data()
    {
        QTest::addColumn<QString>("modulo");
        QTest::addColumn<Respuesta>("respuesta");
        QTest::addColumn<bool>("cerrada");
        QTest::addColumn<bool>("guardado");
        QTest::addColumn<QStringList>("mensajes");
        const QString pregunta = QStringLiteral("¿Desea guardar los cambios antes de salir?");
        QTest::newRow("sí") << "600" << Respuesta::Si << true << true
                            << QStringList{pregunta, QStringLiteral("La configuración se ha guardado correctamente")};
        QTest::newRow("sí, no válido") << "" << Respuesta::Si << false << false
                                       << QStringList{pregunta, QStringLiteral("El módulo M es obligatorio.\nPor favor, escriba un valor")};
        QTest::newRow("no") << "600" << Respuesta::No << true << false << QStringList{pregunta};
        QTest::newRow("cancelar") << "600" << Respuesta::Cancelar << false << false << QStringList{pregunta};
    }
    void cierre()
    {
        QFETCH(QString, modulo);
        QFETCH(Respuesta, respuesta);
        QFETCH(bool, cerrada);
        QFETCH(bool, guardado);
        QFETCH(QStringList, mensajes);
        QPointer<frmConfiguracion> f = abrir();
        // Sin cambios se cierra sin preguntar.
        f->findChild<QPushButton*>(QStringLiteral("cmd_Cerrar"))->click();
        procesarEventos();
        QVERIFY(!f);
        QVERIFY(e().cuadros.isEmpty());

        f = abrir();
        escribir(f, "txt_ModuloM", modulo);
        e().respuestas << respuesta;
        f->findChild<QPushButton*>(QStringLiteral("cmd_Cerrar"))->click();
        procesarEventos();
        QCOMPARE(e().textos(), mensajes);
        QCOMPARE(e().cuadros[0].titulo, QStringLiteral("Pregunta"));
        QCOMPARE(e().cuadros[0].botones, Mensajes::Botones::SiNoCancelar);
        QCOMPARE(f.isNull(), cerrada);
        UsoConexion uso;
        QCOMPARE(escalar(QStringLiteral("SELECT Modulo FROM Config")).toDouble(), guardado ? 600.0 : 525.5);
    }

    void validarNIF()
    {
        frmConfiguracion* f = abrir();
        escribir(f, "txt_NIF", QStringLiteral("  "));
        f->findChild<QToolButton*>(QStringLiteral("img_Validar"))->click();
        QCOMPARE(e().textos(), QStringList{QStringLiteral("Por favor, proporcione un valor para el NIF/CIF")});
        QCOMPARE(e().cuadros[0].titulo, QStringLiteral("Aviso"));
        QVERIFY(!Pantallas::cargada<frmValidarNIFCIF>());
        QCOMPARE(txt(f, "txt_NIF")->toolTip(), QStringLiteral("NIF del arquitecto 1 o CIF de la Sociedad (si se ha proporcionado)"));

        // Sin sociedad, NIF; con ella, CIF.
        for (const bool sociedad : {false, true}) {
            escribir(f, "txt_Sociedad", sociedad ? QStringLiteral("Estudio Rioja SLP") : QString());
            escribir(f, "txt_NIF", sociedad ? QStringLiteral("b26412345") : QStringLiteral("16543219q"));
            f->img_Validar_Click();
            frmValidarNIFCIF* v = Pantallas::cargada<frmValidarNIFCIF>();
            QVERIFY(v);
            QCOMPARE(v->cajaIdentificador.data(), txt(f, "txt_NIF"));
            QCOMPARE(v->findChild<QRadioButton*>(QStringLiteral("opt_Identificador_0"))->isChecked(), !sociedad);
            QCOMPARE(v->findChild<QRadioButton*>(QStringLiteral("opt_Identificador_1"))->isChecked(), sociedad);
        }
    }

    void carpetas()
    {
        frmConfiguracion* f = abrir(2);
        e().carpetas << QStringLiteral("/datos/excel") << QString() << QStringLiteral("/datos/pdf/");
        f->findChild<QPushButton*>(QStringLiteral("cmd_CambiarRutaExcel"))->click();
        f->findChild<QPushButton*>(QStringLiteral("cmd_CambiarRutaPdf"))->click();  // cancelado
        QCOMPARE(txt(f, "txt_RutaPdf")->text(), QString());
        f->findChild<QPushButton*>(QStringLiteral("cmd_CambiarRutaPdf"))->click();
        QCOMPARE(e().titulosCarpeta, (QStringList{tituloCambiarRuta(2), tituloCambiarRuta(3), tituloCambiarRuta(3)}));
        QCOMPARE(txt(f, "txt_RutaExcel")->text(), QStringLiteral("/datos/excel/"));
        QCOMPARE(txt(f, "txt_RutaPdf")->text(), QStringLiteral("/datos/pdf/"));
        QCOMPARE(leerAjuste(QStringLiteral("EXPORTACION"), QStringLiteral("rutaExcel")), QStringLiteral("/datos/excel/"));
        QCOMPARE(leerAjuste(QStringLiteral("EXPORTACION"), QStringLiteral("rutaPdf")), QStringLiteral("/datos/pdf/"));
        QVERIFY(!f->PreguntarGuardarCambios());
    }

    void moverBase()
    {
        frmConfiguracion* f = abrir(2);
        // No: nada cambia.
        e().respuestas << Respuesta::No;
        f->cmd_Cambiar_Click();
        QCOMPARE(e().cuadros.size(), 1);
        QVERIFY(e().cuadros[0].texto.startsWith(QStringLiteral("Si cambia la ubicación de la base de datos, el programa se cerrará")));
        QVERIFY(!Aplicacion::terminado());
        e().limpiarCuadros();
        e().respuestas << Respuesta::Si;
        e().carpetas << QStringLiteral("/red/estudio");
        f->cmd_Cambiar_Click();
        QCOMPARE(e().cuadros.size(), 2);
        QCOMPARE(e().cuadros[1].titulo, QStringLiteral("Información"));
        QCOMPARE(txt(f, "txt_RutaBD")->text(), QStringLiteral("/red/estudio/"));
        QCOMPARE(leerAjuste(QStringLiteral("BD"), QStringLiteral("ruta")), QStringLiteral("/red/estudio/"));
        QVERIFY(Aplicacion::terminado());
    }

    void costes()
    {
        frmConfiguracion* f = abrir(3);
        QTreeWidget* lvw = f->listaCostes();
        QCOMPARE(lvw->objectName(), QStringLiteral("lvw_CostesDeReferencia"));
        QCOMPARE(lvw->topLevelItemCount(), 3);
        auto filas = [lvw](int columna) {
            QStringList l;
            for (int i = 0; i < lvw->topLevelItemCount(); ++i)
                l << lvw->topLevelItem(i)->text(columna);
            return l;
        };
        QTreeWidgetItem* a01 = lvw->topLevelItem(1);
        QCOMPARE(claveFila(a01), QStringLiteral("KA01"));
        QCOMPARE((QStringList{a01->text(0), a01->text(1), a01->text(2), a01->text(3), a01->text(4)}),
                 (QStringList{"A01", "Vivienda", "Unifamiliar aislada", "1,20", "1,10"}));
        // Orden por columna; un segundo clic invierte.
        f->lvw_CostesDeReferencia_ColumnClick(1);
        QCOMPARE(filas(1), (QStringList{"Almacén", "Garaje", "Vivienda"}));
        f->lvw_CostesDeReferencia_ColumnClick(1);
        QCOMPARE(filas(1), (QStringList{"Vivienda", "Garaje", "Almacén"}));
        f->lvw_CostesDeReferencia_ColumnClick(0);
        QCOMPARE(filas(0), (QStringList{"1.2", "A01", "B02"}));

        // Sin selección.
        lvw->setCurrentItem(nullptr);
        lvw->clearSelection();
        f->tlb_BotoneraCostes_ButtonClick(2);
        f->tlb_BotoneraCostes_ButtonClick(3);
        QCOMPARE(e().textos(), (QStringList{QStringLiteral("Por favor, seleccione un coste de referencia para modificar"),
                                            QStringLiteral("Por favor, seleccione un coste de referencia para eliminar")}));
        e().limpiarCuadros();

        // Eliminar: "No" deja todo; "Sí" borra la fila de la tabla y de la lista. El código no es un número.
        lvw->setCurrentItem(lvw->topLevelItem(0));
        e().respuestas << Respuesta::No;
        f->tlb_BotoneraCostes_ButtonClick(3);
        QCOMPARE(e().textos(), QStringList{QStringLiteral("¿Realmente desea eliminar de la lista el coste de referencia con código 1.2?")});
        QCOMPARE(e().cuadros[0].titulo, QStringLiteral("Pregunta"));
        QCOMPARE(lvw->topLevelItemCount(), 3);
        e().respuestas << Respuesta::Si;
        f->findChild<QAction*>(QStringLiteral("tlb_BotoneraCostes_3"))->trigger();
        QCOMPARE(lvw->topLevelItemCount(), 2);
        {
            UsoConexion uso;
            QCOMPARE(escalar(QStringLiteral("SELECT group_concat(CODIGO) FROM (SELECT CODIGO FROM Costes ORDER BY CODIGO)")).toString(),
                     QStringLiteral("A01,B02"));
        }
        e().limpiarCuadros();

        // Lo que escribe la ficha de costes.
        f->agregarCoste(QStringLiteral("C7"), QStringLiteral("Oficinas"), QStringLiteral("Edificio"), 1.5, QVariant());
        QCOMPARE(lvw->topLevelItemCount(), 3);
        QTreeWidgetItem* c7 = lvw->topLevelItem(2);
        QCOMPARE(claveFila(c7), QStringLiteral("KC7"));
        QCOMPARE(c7->text(3), QStringLiteral("1,50"));
        QCOMPARE(c7->text(4), QString());
        lvw->setCurrentItem(c7);
        f->reescribirCosteSeleccionado(QStringLiteral("C7"), QStringLiteral("Oficina"), QStringLiteral("Planta"), 1234.5, 2);
        QCOMPARE((QStringList{c7->text(1), c7->text(2), c7->text(3), c7->text(4)}), (QStringList{"Oficina", "Planta", "1.234,50", "2,00"}));

        // Lista vacía.
        while (lvw->topLevelItemCount())
            delete lvw->topLevelItem(0);
        f->tlb_BotoneraCostes_ButtonClick(2);
        QCOMPARE(e().textos(), QStringList{QStringLiteral("No hay costes de referencia en la lista")});
        QCOMPARE(e().entradasLog(), 0);
    }

    // Selector de arquitectos y ficha de costes de verdad.
    void aperturas()
    {
        frmConfiguracion::abridorSelector = nullptr;
        frmConfiguracion* f = abrir();
        f->img_Buscar_Click(1);
        frmBuscarSeleccionar* s = Pantallas::cargada<frmBuscarSeleccionar>();
        QVERIFY(s);
        QCOMPARE(s->Tabla, QStringLiteral("ARQUITECTOS_SIMPLE"));
        QCOMPARE(s->ClaveRetorno, QStringLiteral("FRMCONFIGURACION_ARQUITECTO_2"));
        QCOMPARE(int(s->Posicion), 2);
        QCOMPARE(s->tag(), QStringLiteral("SELECCIONAR_EN_CONFIGURACION"));
        QCOMPARE(s->windowTitle(), QStringLiteral("Buscar arquitecto"));

        f->findChild<QAction*>(QStringLiteral("tlb_BotoneraCostes_1"))->trigger();
        frmAddModCosteReferencia* c = Pantallas::cargada<frmAddModCosteReferencia>();
        QVERIFY(c);
        QCOMPARE(c->tag(), QStringLiteral("ALTA"));
        QCOMPARE(c->windowTitle(), QStringLiteral("Nuevo coste"));
        // El alta guardada entra en la lista sin releerla.
        QTreeWidget* lvw = f->listaCostes();
        const QList<QPair<const char*, const char*>> campos = {
            {"txt_Codigo", "C9"}, {"txt_Tipo", "Oficinas"}, {"txt_Descripcion", "Edificio exento"}, {"txt_Ct", "1,3"}, {"txt_Cc", "1"}};
        for (const auto& [campo, valor] : campos)
            c->findChild<QLineEdit*>(QString::fromLatin1(campo))->setText(QString::fromUtf8(valor));
        c->cmd_Guardar_Click();
        procesarEventos();
        QCOMPARE(lvw->topLevelItemCount(), 4);
        QCOMPARE(claveFila(lvw->topLevelItem(3)), QStringLiteral("KC9"));
        QCOMPARE(lvw->topLevelItem(3)->text(1), QStringLiteral("Oficinas"));
        e().limpiarCuadros();

        lvw->setCurrentItem(lvw->topLevelItem(1));
        emit lvw->itemDoubleClicked(lvw->topLevelItem(1), 0);
        procesarEventos();
        c = Pantallas::cargada<frmAddModCosteReferencia>();
        QVERIFY(c);
        QCOMPARE(c->tag(), QStringLiteral("MODIFICAR"));
        QCOMPARE(c->windowTitle(), QStringLiteral("Modificar coste"));
        QCOMPARE(c->CodigoCoste, QStringLiteral("A01"));
        QCOMPARE(e().entradasLog(), 0);
    }

    void imprimirCostes()
    {
        frmConfiguracion* f = abrir(3);
        f->findChild<QAction*>(QStringLiteral("tlb_BotoneraImprimir_1"))->trigger();
        frmVisorCrystal* v = Pantallas::cargada<frmVisorCrystal>();
        QVERIFY(v);
        QCOMPARE(v->windowTitle(), QStringLiteral("Listado de Costes de referencia"));
        QVERIFY(v->numeroPaginas() >= 1);
        QCOMPARE(e().entradasLog(), 0);
    }
};

QTEST_MAIN(tst_configuracion)
#include "tst_configuracion.moc"
